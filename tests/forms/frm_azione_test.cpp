// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/form_fixture.h"
#include "store/parameter_table.h"

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

class FrmAzioneTest : public FormFixture {
 protected:
  FrmAzioneTest() { Open("FrmAzione"); }

  // Every count arrives once, as 1000.
  void ArriveAll() {
    for (const Count& count : kCounts) Arrive(1, count.record, 1000);
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

TEST_F(FrmAzioneTest, ReleasesTheMirrorsThatItNeverSubscribed) {
  for (const Count& count : kCounts) ParamTable[1][count.mirror].Subscribers = 1;
  ParamTable[1][525].Subscribers = ParamTable[1][529].Subscribers = 1;
  ParamTable[1][561].Subscribers = ParamTable[0][526].Subscribers = 1;
  Close();
  EXPECT_EQ(Subscribed(), (std::vector<Subscription>{{0, 526, 1}, {1, 525, 1}, {1, 529, 1}, {1, 561, 1}}));
}

TEST_F(FrmAzioneTest, EveryRowHasItsCaptionAndItsSpan) {
  EXPECT_EQ(form().windowTitle(), "#43");
  for (const Count& count : kCounts) {
    SCOPED_TRACE(count.n);
    EXPECT_EQ(LabelText(Element("Label6", count.n)), "#" + std::to_string(count.line));
    const Bar& bar = BarOf(Element("HScroll1", count.n));
    EXPECT_EQ(bar.minimum(), -32768);
    EXPECT_EQ(bar.maximum(), 32767);
    EXPECT_EQ(bar.pageStep(), 100);
    EXPECT_EQ(bar.singleStep(), 1);
    EXPECT_EQ(Find<QLineEdit>(Element("Text1", count.n)).maxLength(), 5);
    EXPECT_EQ(Find(Element("Text1", count.n)).accessibleName().toStdString(),
              "#" + std::to_string(count.line));
    EXPECT_EQ(bar.accessibleName(), Find(Element("Text1", count.n)).accessibleName());
  }
}

TEST_F(FrmAzioneTest, ABarStandsOneAboveItsLeastAtFirstWhichWritesNothing) {
  for (const Count& count : kCounts) {
    EXPECT_EQ(BarOf(Element("HScroll1", count.n)).Value(), -32767);
  }
  EXPECT_EQ(Written(), std::vector<Write>{});
}

TEST_F(FrmAzioneTest, ACountIsShownUnsignedOnItsBarTooAndWritesNothing) {
  Unlock();
  for (const Count& count : kCounts) {
    SCOPED_TRACE(count.n);
    Arrive(1, count.record, 0);
    ExpectCount(count.n, "0", -32768);
    Arrive(1, count.record, 1);
    ExpectCount(count.n, "1", -32767);
    Arrive(1, count.record, 32768);
    ExpectCount(count.n, "32768", 0);
    Arrive(1, count.record, 40000);
    ExpectCount(count.n, "40000", 7232);
    Arrive(1, count.record, 65535);
    ExpectCount(count.n, "65535", 32767);
    Arrive(1, count.record, 65536);
    ExpectCount(count.n, "65535", 32767);
  }
  EXPECT_EQ(Written(), std::vector<Write>{});
}

TEST_F(FrmAzioneTest, TheSameRecordsOfAnotherBoardAreForeign) {
  Unlock();
  for (const Count& count : kCounts) {
    for (const int node : {0, 2, 3}) Arrive(node, count.record, 7);
    ExpectCount(count.n, "1000", -31768);
  }
}

TEST_F(FrmAzioneTest, ABarWritesTheRecordAndThenItsMirrorAndTheDisplayWaits) {
  Unlock();
  for (const Count& count : kCounts) {
    SCOPED_TRACE(count.n);
    std::vector<Write> expected = {{1, count.record, 32768}, {1, count.mirror, 32768}};
    if (count.mirror < count.record) std::swap(expected[0], expected[1]);
    BarOf(Element("HScroll1", count.n)).SetValue(0);
    EXPECT_EQ(Written(), expected);
    EXPECT_EQ(LabelText(Element("Label10", count.n)), "1000");
  }
}

TEST_F(FrmAzioneTest, ABarsEndsAreNoughtAnd65535) {
  Unlock();
  BarOf("HScroll1(3)").SetValue(-32768);
  EXPECT_EQ(Written(), (std::vector<Write>{{1, 556, 0}, {1, 560, 0}}));
  BarOf("HScroll1(3)").SetValue(32767);
  EXPECT_EQ(Written(), (std::vector<Write>{{1, 556, 65535}, {1, 560, 65535}}));
}

TEST_F(FrmAzioneTest, AnEntryFromNoughtTo65535IsWritten) {
  Unlock();
  for (const int good : {0, 65535, 40000, 32767, 5}) {
    Enter("Text1(5)", std::to_string(good));
    EXPECT_EQ(Written(), (std::vector<Write>{{1, 49, good}, {1, 527, good}}));
    EXPECT_EQ(BarOf("HScroll1(5)").Value(), good - 32768);
    EXPECT_EQ(LabelText("Label10(5)"), "1000") << "the display waits for the machine";
    Focus("HScroll1(0)");
  }
}

TEST_F(FrmAzioneTest, ABadEntryBringsTheTextBackAndWritesNothing) {
  Unlock();
  for (const char* bad : {"65536", "99999", "-1", "-0.4", "-", "OFF", "12a", "1e3", "", " "}) {
    SCOPED_TRACE(bad);
    Enter("Text1(2)", bad);
    EXPECT_EQ(BoxText("Text1(2)"), "1000");
    EXPECT_EQ(BarOf("HScroll1(2)").Value(), -31768);
    EXPECT_EQ(Written(), std::vector<Write>{});
    Focus("HScroll1(0)");
  }
}

TEST_F(FrmAzioneTest, OpeningAgainShowsTheCountOnTheBoxAnew) {
  Unlock();
  Type("Text1(4)", "77");
  Arrive(0, 312, 6);
  EXPECT_EQ(BoxText("Text1(4)"), "1000");
}

TEST_F(FrmAzioneTest, ABoxEmptiesOnFocusAndItsTextComesBackWithoutEnter) {
  Unlock();
  Focus("Text1(6)");
  EXPECT_EQ(BoxText("Text1(6)"), "");
  Type("Text1(6)", "77");
  Focus("HScroll1(0)");
  EXPECT_EQ(BoxText("Text1(6)"), "1000");
  EXPECT_EQ(Written(), std::vector<Write>{});
}

TEST_F(FrmAzioneTest, AnArrivalIsTheTextThatComesBack) {
  Unlock();
  Focus("Text1(6)");
  Arrive(1, 50, 1234);
  EXPECT_EQ(BoxText("Text1(6)"), "1234");
  Focus("Text1(5)");
  EXPECT_EQ(BoxText("Text1(6)"), "1234");
}

TEST_F(FrmAzioneTest, EachBoxKeepsItsOwnText) {
  Unlock();
  Focus("Text1(0)");
  Arrive(1, 554, 2222);
  Focus("HScroll1(3)");
  EXPECT_EQ(BoxText("Text1(0)"), "1000");
  EXPECT_EQ(BoxText("Text1(1)"), "2222");
}

TEST_F(FrmAzioneTest, IsLockedUntilEightArrivalsHaveCounted) {
  ExpectOpen(false);
  ArriveAll();
  ExpectOpen(false);
  Arrive(0, 312, 4);
  ExpectOpen(true);
}

TEST_F(FrmAzioneTest, AnyArrivalCountsTheSameCountTwiceToo) {
  for (int i = 0; i < 7; ++i) Arrive(1, 48, 3);
  ExpectOpen(false);
  Arrive(1, 48, 3);
  ExpectOpen(true);
}

TEST_F(FrmAzioneTest, AGateOf255DoesNotCountWhileLoading) {
  Arrive(0, 312, 255);
  ArriveAll();
  ExpectOpen(false);
  Arrive(1, 50, 1000);
  ExpectOpen(true);
}

TEST_F(FrmAzioneTest, AnUnchangedGateCountsOnce) {
  for (int i = 0; i < 9; ++i) Arrive(0, 312, 4);
  for (int i = 0; i < 6; ++i) Arrive(1, 48, 3);
  ExpectOpen(false);
  Arrive(1, 48, 3);
  ExpectOpen(true);
}

TEST_F(FrmAzioneTest, AChangedGateCountsEachTime) {
  for (const int flags : {4, 0, 4, 0, 4, 0, 4}) Arrive(0, 312, flags);
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

TEST_F(FrmAzioneTest, TheBoxLiesExactlyOverTheValue) {
  Unlock();
  for (const Count& count : kCounts) {
    EXPECT_EQ(Find(Element("Text1", count.n)).geometry().width(),
              Find(Element("Label10", count.n)).geometry().width());
    EXPECT_EQ(Find(Element("Text1", count.n)).x(), Find(Element("Label10", count.n)).x());
  }
}

}  // namespace
}  // namespace dosmara
