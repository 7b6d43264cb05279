// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/row_cases.h"

namespace dosmara {
namespace {

struct Count {
  int n;
  int line;
  int record;
  int mirror;
};

constexpr Count kCounts[] = {{0, 230, 553, 557}, {1, 231, 554, 558}, {2, 232, 555, 559}, {3, 233, 556, 560},
                             {4, 234, 48, 526},  {5, 235, 49, 527},  {6, 236, 50, 528}};

FormRows AzioneRows() {
  FormRows form = {.form = "FrmAzione", .opens = {{0, 312, 4}}, .closes = {{0, 312, 251}}, .rows = {}};
  for (const Count& count : kCounts) {
    form.rows.push_back({.caption = Element("Label6", count.n),
                         .value = Element("Label10", count.n),
                         .box = Element("Text1", count.n),
                         .bar = Element("HScroll1", count.n),
                         .words = "#" + std::to_string(count.line),
                         .node = 1,
                         .record = count.record,
                         .mirror = count.mirror,
                         .min = -32768,
                         .max = 32767,
                         .large_change = 100,
                         .length = 5,
                         .offset = 32768,
                         .arrivals = {{1000, "1000", -31768},
                                      {0, "0", -32768},
                                      {1, "1", -32767},
                                      {32768, "32768", 0},
                                      {40000, "40000", 7232},
                                      {65535, "65535", 32767},
                                      {65536, "65535", 32767}},
                         .good = {{"0", 0}, {"65535", 65535}, {"40000", 40000}, {"32767", 32767}, {"5", 5}},
                         .bad = {"65536", "99999", "-1", "-0.4", "-", "OFF", "12a", "1e3", "", " "}});
  }
  return form;
}

INSTANTIATE_TEST_SUITE_P(FrmAzione, EachRow, testing::Values(AzioneRows()));

class FrmAzioneTest : public FormFixture {
 protected:
  FrmAzioneTest() { Open("FrmAzione"); }

  // Every count arrives once, as 1000.
  void ArriveAll() {
    for (const Count& count : kCounts) {
      Arrive(1, count.record, 1000);
    }
  }
  // The form with every row open.
  void Unlock() {
    Arrive(0, 312, 4);
    ArriveAll();
    ExpectOpen(true);
  }

  void ExpectOpen(bool open) {
    for (const Count& count : kCounts) {
      SCOPED_TRACE(count.n);
      EXPECT_EQ(Enabled(Element("HScroll1", count.n)), open);
      EXPECT_EQ(Enabled(Element("Label10", count.n)), open);
      EXPECT_EQ(Enabled(Element("Label6", count.n)), open);
      EXPECT_EQ(Shown(Element("Text1", count.n)), open);
    }
  }

  // The bar, the label and the box of a row tell the same count.
  void ExpectCount(int n, const std::string& shown, int position) {
    EXPECT_EQ(LabelText(Element("Label10", n)), shown);
    EXPECT_EQ(BoxText(Element("Text1", n)), shown);
    EXPECT_EQ(BarOf(Element("HScroll1", n)).Value(), position);
  }
};

TEST_F(FrmAzioneTest, SubscribesTheGateAndTheCounts) {
  const std::vector<Subscription> expected = {{0, 312, 1}, {1, 48, 1},  {1, 49, 1},  {1, 50, 1},
                                              {1, 553, 1}, {1, 554, 1}, {1, 555, 1}, {1, 556, 1}};
  EXPECT_EQ(Subscribed(), expected);
}

TEST_F(FrmAzioneTest, TakesItsTitleFromTheLanguage) { EXPECT_EQ(form().windowTitle(), "#43"); }

TEST_F(FrmAzioneTest, ABarStandsOneAboveItsLeastAtFirstWhichWritesNothingAsPrescribed) {
  for (const Count& count : kCounts) {
    EXPECT_EQ(BarOf(Element("HScroll1", count.n)).Value(), -32767);
  }
  EXPECT_EQ(Written(), std::vector<Write>{});
}

TEST_F(FrmAzioneTest, OpeningAgainShowsTheCountOnTheBoxAnew) {
  Unlock();
  Type("Text1(4)", "77");
  Arrive(0, 312, 6);
  EXPECT_EQ(BoxText("Text1(4)"), "1000");
}

TEST_F(FrmAzioneTest, IsLockedUntilEightArrivalsHaveCounted) {
  ExpectOpen(false);
  ArriveAll();
  ExpectOpen(false);
  Arrive(0, 312, 4);
  ExpectOpen(true);
}

TEST_F(FrmAzioneTest, AnyArrivalCountsTheSameCountTwiceTooAsPrescribed) {
  for (int i = 0; i < 7; ++i) {
    Arrive(1, 48, 3);
  }
  ExpectOpen(false);
  Arrive(1, 48, 3);
  ExpectOpen(true);
}

TEST_F(FrmAzioneTest, AGateOf255DoesNotCountWhileLoadingAsPrescribed) {
  Arrive(0, 312, 255);
  ArriveAll();
  ExpectOpen(false);
  Arrive(1, 50, 1000);
  ExpectOpen(true);
}

TEST_F(FrmAzioneTest, AnUnchangedGateCountsOnce) {
  for (int i = 0; i < 9; ++i) {
    Arrive(0, 312, 4);
  }
  for (int i = 0; i < 6; ++i) {
    Arrive(1, 48, 3);
  }
  ExpectOpen(false);
  Arrive(1, 48, 3);
  ExpectOpen(true);
}

TEST_F(FrmAzioneTest, AChangedGateCountsEachTime) {
  for (const int flags : {4, 0, 4, 0, 4, 0, 4}) {
    Arrive(0, 312, flags);
  }
  ExpectOpen(false);
  Arrive(0, 312, 5);
  ExpectOpen(true);
}

TEST_F(FrmAzioneTest, StaysLockedAfterLoadingWhileTheBoardIsClosed) {
  Arrive(0, 312, 251);
  ArriveAll();
  ExpectOpen(false);
  EXPECT_EQ(LabelText("Label10(0)"), "1000");
  Arrive(0, 312, 4);
  ExpectOpen(true);
}

TEST_F(FrmAzioneTest, FollowsTheGateOnceLoaded) {
  Unlock();
  Arrive(0, 312, 251);
  ExpectOpen(false);
  Arrive(1, 553, 7);
  ExpectCount(0, "7", -32761);
  ExpectOpen(false);
  Arrive(0, 312, 255);
  ExpectOpen(true);
  EXPECT_EQ(BoxText("Text1(0)"), "7");
}

TEST_F(FrmAzioneTest, ARepeatedGateLeavesAHalfTypedEntryAlone) {
  Unlock();
  Type("Text1(0)", "12");
  Arrive(0, 312, 4);
  EXPECT_EQ(BoxText("Text1(0)"), "12");
}

TEST_F(FrmAzioneTest, TheTabKeyFollowsTheRows) {
  Unlock();
  Focus("Text1(0)");
  std::vector<std::string> expected = {"HScroll1(0)"};
  for (int n = 1; n < 7; ++n) {
    expected.push_back(Element("Text1", n));
    expected.push_back(Element("HScroll1", n));
  }
  EXPECT_EQ(TabThrough(13), expected);
}

}  // namespace
}  // namespace dosmara
