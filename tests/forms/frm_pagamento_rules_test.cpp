// SPDX-License-Identifier: GPL-3.0-or-later
// FrmPagamento: the count that opens it, the payment systems, the models, the switches and channels.
#include <QApplication>
#include <QGroupBox>
#include <QTest>
#include <algorithm>

#include "controls/echo_mark.h"
#include "controls/selector.h"
#include "forms/form_fixture.h"
#include "link/identification.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;
using Names = std::vector<std::string>;

const Names kMdb = {"Frame2",          "Frame3",         "Frame5",     "Frame6",      "Label2",
                    "Label5",          "Label7",         "Label9",     "Label12",     "Label14",
                    "txtMDB(0)",       "txtMDB(1)",      "txtMDB(2)",  "txtMDB(3)",   "txtMDB(4)",
                    "Label4(0)",       "Label4(1)",      "Label11(0)", "Label11(1)",  "HScroll11(0)",
                    "HScroll11(1)",    "SliderX1",       "SliderX4",   "SliderX6",    "SliderX7",
                    "iSwitchSliderX2", "swslExact",      "Label6(0)",  "Label6(1)",   "Label6(2)",
                    "Label6s(0)",      "Label6s(1)",     "Label6s(2)", "HScroll6(0)", "HScroll6(1)",
                    "HScroll6(2)",     "Label3(0)",      "Label3(1)",  "Label3(2)",   "iSwSliderX3(0)",
                    "iSwSliderX3(1)",  "iSwSliderX3(2)", "Label4(3)",  "Label11(3)",  "HScroll11(3)"};
const Names kSecondCredit = {"Label4(2)", "Label11(2)", "HScroll11(2)", "txtMDB(5)"};
const Names kExecutive = {"Frame4", "SliderX5"};
const Names kTiming = {"Label8", "Label13", "swslResto", "Label8v", "txtTmPr", "scrTP"};

Names CoinRow(int n) {
  return {Element("HScroll10", n), Element("Label10", n), Element("txtMon", n), Element("Label1", n)};
}

class FrmPagamentoTest : public FormFixture {
 protected:
  FrmPagamentoTest() { Open("FrmPagamento"); }

  // One arrival of each record that counts, the payment system first.
  void Unlock(int system) {
    const std::pair<int, int> arrivals[] = {{84, system}, {311, 2}, {83, 0}, {85, 0},
                                            {353, 100},   {355, 0}, {361, 0}};
    for (const auto& [record, value] : arrivals) {
      Arrive(0, record, value);
    }
  }
  void ExpectEnabled(const Names& names, bool enabled) {
    for (const std::string& name : names) {
      EXPECT_EQ(Enabled(name), enabled) << name;
    }
  }
  // Everything is closed but what is named by the groups that are open.
  void ExpectOpen(bool mdb, bool executive, bool timing, const std::vector<int>& coins) {
    ExpectEnabled(kMdb, mdb);
    ExpectEnabled(kSecondCredit, mdb && ModelCode > 24);
    ExpectEnabled(kExecutive, executive);
    ExpectEnabled(kTiming, timing);
    EXPECT_EQ(Enabled("Frame1"), !coins.empty());
    for (int n = 0; n < 8; ++n) {
      ExpectEnabled(CoinRow(n), std::ranges::count(coins, n) != 0);
    }
  }
  void Reopen(int model) {
    Close();
    ModelCode = static_cast<std::int16_t>(model);
    Open("FrmPagamento");
  }
  Selector& Chosen(const char* name) { return Find<Selector>(name); }
};

constexpr std::pair<int, int> kSubscribed[] = {{4, 11},    {79, 79},   {83, 85},   {311, 311},
                                               {345, 345}, {347, 349}, {353, 353}, {355, 355},
                                               {361, 361}, {363, 363}, {365, 365}};

TEST_F(FrmPagamentoTest, SubscribesItsRecordsOnceAndNoMirror) {
  std::vector<Subscription> expected;
  for (const auto& [first, last] : kSubscribed) {
    for (int record = first; record <= last; ++record) {
      expected.push_back({0, record, 1});
    }
  }
  EXPECT_EQ(Subscribed(), expected);
}

TEST_F(FrmPagamentoTest, TheSeventhStructuralArrivalOpensIt) {
  ExpectOpen(false, false, false, {});
  Arrive(0, 84, 4);
  for (const int record : {83, 85, 311, 353, 355}) {
    Arrive(0, record, 0);
  }
  ExpectOpen(false, false, false, {});
  Arrive(0, 361, 0);
  ExpectOpen(true, false, false, {});
}

TEST_F(FrmPagamentoTest, ARepeatedStructuralArrivalCountsAgainAsPrescribed) {
  for (int i = 0; i < 6; ++i) {
    Arrive(0, 353, 100);
  }
  ExpectOpen(false, false, false, {});
  Arrive(0, 353, 100);
  ExpectOpen(false, false, false, {6});
}

TEST_F(FrmPagamentoTest, AmountsAndTheOverpayTimeoutDoNotCount) {
  for (int i = 0; i < 8; ++i) {
    for (int record = 4; record <= 11; ++record) {
      Arrive(0, record, 100);
    }
    for (const int record : {79, 345, 363, 347, 348, 349, 365}) {
      Arrive(0, record, 100);
    }
    for (int node = 1; node < 4; ++node) {
      Arrive(node, 84, 4);
    }
  }
  ExpectOpen(false, false, false, {});
}

TEST_F(FrmPagamentoTest, EachArrivalOfThePaymentSystemIsFollowedAtOnceFromThenOn) {
  Unlock(4);
  ExpectOpen(true, false, false, {});
  Arrive(0, 84, 1);
  ExpectOpen(false, false, false, {0, 1, 2, 3, 4, 5, 6, 7});
  Arrive(0, 84, 2);
  ExpectOpen(false, true, false, {});
  Arrive(0, 84, 2 + 64);
  ExpectOpen(false, true, true, {});
  Arrive(0, 84, 2 + 128);
  ExpectOpen(false, true, true, {});
  Arrive(0, 84, 8 + 16 + 32);
  ExpectOpen(false, false, false, {6});
  Arrive(0, 84, 4 + 192);
  ExpectOpen(true, false, false, {});
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(FrmPagamentoTest, MdbGoesBeforeExecutiveBeforeG13) {
  Unlock(5);
  ExpectOpen(true, false, false, {});
  Arrive(0, 84, 7);
  ExpectOpen(true, false, false, {});
  Arrive(0, 84, 3);
  ExpectOpen(false, true, false, {});
}

TEST_F(FrmPagamentoTest, OfTwoModesTheDifferentialOneHolds) {
  Unlock(192 + 2);
  EXPECT_EQ(Chosen("SliderX5").Position(), 1);
  Arrive(0, 84, 128 + 2);
  EXPECT_EQ(Chosen("SliderX5").Position(), 2);
  Arrive(0, 84, 64 + 2);
  EXPECT_EQ(Chosen("SliderX5").Position(), 1);
  Arrive(0, 84, 2);
  EXPECT_EQ(Chosen("SliderX5").Position(), 0);
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(FrmPagamentoTest, AModeClearsTheOtherAndTheTimingWaitsForTheMachine) {
  Unlock(2 + 32 + 128);
  Arrive(0, 84, 2 + 32 + 128 + 64);
  Chosen("SliderX5").SetPosition(2);
  EXPECT_EQ(Written(), (Writes{{0, 84, 2 + 32 + 128}, {0, 286, 2 + 32 + 128}}));
  EXPECT_EQ(MarkBehind("SliderX5"), EchoMark::State::kOnItsWay);
  Chosen("SliderX5").SetPosition(1);
  EXPECT_EQ(Written(), (Writes{{0, 84, 2 + 32 + 64}, {0, 286, 2 + 32 + 64}}));
  Chosen("SliderX5").SetPosition(0);
  EXPECT_EQ(Written(), (Writes{{0, 84, 2 + 32}, {0, 286, 2 + 32}}));
  ExpectEnabled(kTiming, true);
  Arrive(0, 84, 2 + 32);
  ExpectEnabled(kTiming, false);
  EXPECT_EQ(MarkBehind("SliderX5"), EchoMark::State::kTaken);
}

TEST_F(FrmPagamentoTest, TheEchoOfAModeLeavesTheFocusWhereItIs) {
  Unlock(2 + 64);
  Focus("SliderX5");
  QTest::keyClick(&Chosen("SliderX5"), Qt::Key_Right);
  EXPECT_EQ(Written(), (Writes{{0, 84, 130}, {0, 286, 130}}));
  Arrive(0, 84, 130);
  EXPECT_EQ(QApplication::focusWidget(), &Chosen("SliderX5"));
  ExpectEnabled(kTiming, true);
}

TEST_F(FrmPagamentoTest, AnotherBitOfThePaymentOptionsDisturbsNoEntry) {
  Unlock(1);
  Arrive(0, 4, 100);
  Type("txtMon(0)", "2");
  Arrive(0, 84, 1 + 32);
  EXPECT_EQ(BoxText("txtMon(0)"), "2");
  EXPECT_TRUE(Find("txtMon(0)").hasFocus());
}

struct Bit {
  const char* control;
  const char* caption;
  int line;
  int record;
  int mirror;
  int mask;
};
constexpr Bit kBits[] = {
    {"iSwSliderX3(0)", "Label3(0)", 102, 83, 285, 8}, {"iSwSliderX3(1)", "Label3(1)", 103, 83, 285, 16},
    {"iSwitchSliderX2", "Label9", 97, 83, 285, 32},   {"iSwSliderX3(2)", "Label3(2)", 104, 83, 285, 64},
    {"SliderX4", "Label2", 93, 85, 287, 1},           {"SliderX6", "Label7", 108, 355, 356, 1},
    {"swslExact", "Label14", 112, 361, 362, 2},       {"swslResto", "Label13", 111, 361, 362, 1},
};

TEST_F(FrmPagamentoTest, ASwitchShowsItsBitAndWritesTheByteWithItsMirror) {
  Unlock(4);
  for (const Bit& bit : kBits) {
    SCOPED_TRACE(bit.control);
    Arrive(0, 84, std::string(bit.control) == "swslResto" ? 66 : 4);
    EXPECT_EQ(LabelText(bit.caption), "#" + std::to_string(bit.line));
    EXPECT_EQ(Find(bit.control).accessibleName(), '#' + QString::number(bit.line));
    Arrive(0, bit.record, 255 - bit.mask);
    EXPECT_EQ(Position(bit.control), 0);
    EXPECT_EQ(Find(bit.control).accessibleDescription().toStdString(), "#109");
    Arrive(0, bit.record, bit.mask);
    EXPECT_EQ(Position(bit.control), 1);
    EXPECT_EQ(Find(bit.control).accessibleDescription().toStdString(), "#110");
    EXPECT_EQ(Written(), Writes{});
    Arrive(0, bit.record, 255);
    Click(bit.control);
    EXPECT_EQ(Written(), (Writes{{0, bit.record, 255 - bit.mask}, {0, bit.mirror, 255 - bit.mask}}));
    EXPECT_EQ(MarkBehind(bit.control), EchoMark::State::kOnItsWay);
    Arrive(0, bit.record, 255 - bit.mask);
    EXPECT_EQ(MarkBehind(bit.control), EchoMark::State::kTaken);
    Arrive(0, bit.record, 0);
    Click(bit.control);
    EXPECT_EQ(Written(), (Writes{{0, bit.record, bit.mask}, {0, bit.mirror, bit.mask}}));
  }
}

TEST_F(FrmPagamentoTest, NothingIsKnownBeforeItHasArrived) {
  for (const Bit& bit : kBits) {
    EXPECT_FALSE(Find<TwoPositionSwitch>(bit.control).IsKnown()) << bit.control;
  }
  EXPECT_FALSE(Chosen("SliderX5").IsKnown());
  for (const char* channels : {"SliderX1", "SliderX7"}) {
    EXPECT_TRUE(Chosen(channels).IsKnown());
    EXPECT_EQ(Chosen(channels).Position(), 0);
  }
  for (int channel = 15; channel >= 0; --channel) {
    Chosen("SliderX1").SetPosition(channel);
    EXPECT_FALSE(Find<TwoPositionSwitch>("SliderX4").IsKnown());
  }
}

TEST_F(FrmPagamentoTest, ABitThatAnotherFormHasChangedStaysChanged) {
  Unlock(4);
  for (const auto& [control, record, mask] : {std::tuple{"iSwitchSliderX2", 83, 32}, {"swslExact", 361, 2}}) {
    NodeIndex = 0;
    ParamPut(record, 1);
    Click(control);
    EXPECT_EQ(Written().front(), (Write{0, record, 1 + mask}));
  }
  Arrive(0, 84, 2);
  NodeIndex = 0;
  ParamPut(84, 2 + 16);
  Chosen("SliderX5").SetPosition(1);
  EXPECT_EQ(Written().front(), (Write{0, 84, 2 + 16 + 64}));
}

struct Channel {
  const char* selector;
  const char* control;
  const char* caption;
  int line;
  int record;
  int mirror;
};
constexpr Channel kChannels[] = {{"SliderX1", "SliderX4", "Label5", 92, 85, 287},
                                 {"SliderX7", "SliderX6", "Label12", 107, 355, 356}};

TEST_F(FrmPagamentoTest, ASelectorShowsTheBitOfItsChannelAndWritesNothing) {
  Unlock(4);
  for (const Channel& each : kChannels) {
    SCOPED_TRACE(each.selector);
    EXPECT_EQ(LabelText(each.caption), "#" + std::to_string(each.line));
    EXPECT_EQ(Find(each.selector).accessibleName(), '#' + QString::number(each.line));
    EXPECT_EQ(Chosen(each.selector).PositionCount(), 16);
    Arrive(0, each.record, 0b1010'0000'0000'0010);
    for (int channel = 0; channel < 16; ++channel) {
      Chosen(each.selector).SetPosition(channel);
      EXPECT_EQ(Position(each.control), channel == 1 || channel == 13 || channel == 15 ? 1 : 0) << channel;
      EXPECT_EQ(Find(each.selector).accessibleDescription(), QString::number(channel + 1));
    }
    EXPECT_EQ(Written(), Writes{});
    for (const int channel : {4, 15}) {
      Chosen(each.selector).SetPosition(channel);
      Click(each.control);
      const int bits = 0b1010'0000'0000'0010 ^ 1 << channel;
      EXPECT_EQ(Written(), (Writes{{0, each.record, bits}, {0, each.mirror, bits}}));
      Arrive(0, each.record, bits);
      Arrive(0, each.record, 0b1010'0000'0000'0010);
    }
  }
}

TEST_F(FrmPagamentoTest, AChannelOnItsWayKeepsItsMarkWhileOthersAreLookedAt) {
  Unlock(4);
  Click("SliderX4");
  EXPECT_EQ(MarkBehind("SliderX4"), EchoMark::State::kOnItsWay);
  Focus("SliderX1");
  QTest::keyClick(&Chosen("SliderX1"), Qt::Key_Right);
  EXPECT_EQ(Position("SliderX4"), 0);
  EXPECT_EQ(MarkBehind("SliderX4"), EchoMark::State::kNone);
  QTest::keyClick(&Chosen("SliderX1"), Qt::Key_Left);
  EXPECT_EQ(Position("SliderX4"), 1);
  EXPECT_EQ(MarkBehind("SliderX4"), EchoMark::State::kOnItsWay);
  EXPECT_EQ(Written(), (Writes{{0, 85, 1}, {0, 287, 1}}));
  Arrive(0, 85, 1);
  EXPECT_EQ(MarkBehind("SliderX4"), EchoMark::State::kTaken);
}

TEST_F(FrmPagamentoTest, AClosedGroupShowsItsValues) {
  Unlock(0);
  Arrive(0, 345, 1234);
  EXPECT_EQ(LabelText("Label11(1)"), "12.34");
  EXPECT_EQ(BoxText("txtMDB(4)"), "12.34");
  EXPECT_TRUE(Shown("txtMDB(4)"));
  Arrive(0, 83, 32);
  EXPECT_EQ(Position("iSwitchSliderX2"), 1);
  EXPECT_EQ(LabelText("Label8v"), "10.0");
}

TEST_F(FrmPagamentoTest, AnOlderModelHasNoSecondCreditButItsEmptyBoxAsPrescribed) {
  const auto marks = ShownMarks();
  Reopen(24);
  Unlock(4);
  EXPECT_EQ(ShownMarks(), marks - 1);
  ExpectOpen(true, false, false, {});
  for (const char* part : {"Label4(2)", "Label11(2)", "HScroll11(2)"}) {
    EXPECT_FALSE(Shown(part)) << part;
  }
  EXPECT_TRUE(Shown("txtMDB(5)"));
  EXPECT_EQ(BoxText("txtMDB(5)"), "");
  Arrive(0, 363, 1234);
  EXPECT_EQ(BoxText("txtMDB(5)"), "12.34");
  for (const char* part : {"Label13", "Label14", "swslResto", "swslExact"}) {
    EXPECT_TRUE(Shown(part)) << part;
  }
  EXPECT_EQ(Subscribed().size(), 22u);
}

TEST_F(FrmPagamentoTest, AStillOlderModelHasNoOptionsOfChangeEither) {
  const auto marks = ShownMarks();
  Reopen(23);
  Unlock(2 + 64);
  EXPECT_EQ(ShownMarks(), marks - 3);
  for (const char* part : {"Label13", "Label14", "swslResto", "swslExact", "Label4(2)", "HScroll11(2)"}) {
    EXPECT_FALSE(Shown(part)) << part;
  }
  Arrive(0, 361, 3);
  EXPECT_EQ(Position("swslResto"), 1);
}

TEST_F(FrmPagamentoTest, HasItsTitlesAndTheWordsOfItsModes) {
  EXPECT_EQ(form().windowTitle(), "#7");
  const std::pair<const char*, const char*> frames[] = {{"Frame1", "#86"},  {"Frame2", "#89"},
                                                        {"Frame3", "#90"},  {"Frame4", "#94"},
                                                        {"Frame5", "#100"}, {"Frame6", "#106"}};
  for (const auto& [frame, title] : frames) {
    EXPECT_EQ(Find<QGroupBox>(frame).title(), title);
  }
  EXPECT_EQ(Chosen("SliderX5").accessibleName(), "#94");
  for (const QLabel* label : form().findChildren<QLabel*>()) {
    EXPECT_FALSE(label->text() == "#94" && label->isVisibleTo(&form())) << "the title says it already";
  }
  EXPECT_EQ(Chosen("SliderX5").PositionCount(), 3);
  const char* const words[] = {"#96", "#95", "#98"};
  for (int position = 0; position < 3; ++position) {
    Arrive(0, 84, position == 0 ? 2 : position == 1 ? 66 : 130);
    EXPECT_EQ(Chosen("SliderX5").accessibleDescription(), words[position]);
  }
  CaptionTable[96] = "new";
  form().InitMessaggi();
  Arrive(0, 84, 2);
  EXPECT_EQ(Chosen("SliderX5").accessibleDescription(), "new");
}

TEST_F(FrmPagamentoTest, TabFollowsTheReading) {
  Unlock(4);
  EXPECT_TRUE(Find("iSwitchSliderX2").hasFocus()) << "the first control that can be changed";
  EXPECT_EQ(TabThrough(19),
            (Names{"swslExact", "SliderX1", "SliderX4", "SliderX7", "SliderX6", "txtMDB(1)", "HScroll6(0)",
                   "txtMDB(2)", "HScroll6(1)", "txtMDB(3)", "HScroll6(2)", "iSwSliderX3(0)", "iSwSliderX3(1)",
                   "iSwSliderX3(2)", "txtMDB(0)", "HScroll11(0)", "txtMDB(4)", "HScroll11(1)", "txtMDB(5)"}));
  Arrive(0, 84, 66);
  Focus("SliderX5");
  EXPECT_EQ(TabThrough(4), (Names{"txtTmPr", "scrTP", "swslResto", "SliderX5"}));
}

}  // namespace
}  // namespace dosmara
