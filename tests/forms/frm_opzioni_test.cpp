// SPDX-License-Identifier: GPL-3.0-or-later
// FrmOpzioni: what its controls show and write.
#include <QApplication>
#include <QGroupBox>
#include <QTest>

#include "fields/records.h"
#include "forms/opzioni_fixture.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;
using State = EchoMark::State;

FormRows OpzioniRows() {
  const auto pot = [](int n, const char* words, int record, int mirror) {
    return RowCase{.caption = Element("Label6", n),
                   .value = Element("Label10", n),
                   .box = Element("Text2", n),
                   .bar = Element("HScroll1", n),
                   .words = words,
                   .node = 1,
                   .record = record,
                   .mirror = mirror,
                   .min = 1,
                   .max = 99,
                   .large_change = 10,
                   .length = 3,
                   .arrivals = {{20, "20", 20}, {1, "1", 1}, {0, "0", 1}, {200, "200", 99}},
                   .good = {{"2", 2}, {"99", 99}},
                   .bad = {"0", "100", "-5", "", "x", "OFF"}};
  };
  RowCase threshold = pot(2, "Soglia macinino", 33, 511);
  threshold.min = 50;
  threshold.max = 180;
  threshold.length = 4;
  threshold.arrivals = {{100, "10.0", 100}, {55, "5.5", 55}, {49, "4.9", 50}, {181, "18.1", 180}};
  threshold.good = {{"5", 50}, {"18", 180}, {"18.0", 180}, {"12,5", 125}};
  threshold.bad = {"19", "18,1", "", "x", "6.", "6.x", "200"};
  return {.form = "FrmOpzioni",
          .opens = kOpensOptions,
          .closes = {{0, 312, 0}},
          .rows = {pot(0, "Bricco 1", 28, 506), pot(1, "Bricco 2÷25", 29, 507), threshold}};
}

INSTANTIATE_TEST_SUITE_P(FrmOpzioni, EachRow, testing::Values(OpzioniRows()));

// One switch: its number, that of its caption, the words of that, and its bit.
struct Option {
  int n;
  int caption;  // -1: it has none of its own
  const char* words;
  int node;
  int record;
  int mirror;
  int mask;
};
constexpr Option kOptions[] = {
    {11, 11, "#191", 1, 47, 525, 1},  {25, 25, "#210", 1, 47, 525, 2},    {0, 0, "#180", 1, 47, 525, 4},
    {8, 8, "#188", 1, 47, 525, 8},    {16, 16, "#196", 1, 47, 525, 16},   {9, 9, "#189", 1, 47, 525, 32},
    {10, 10, "#190", 1, 47, 525, 64}, {19, 19, "#225", 1, 47, 525, 128},  {2, 2, "#182", 1, 46, 524, 1},
    {4, 4, "#184", 1, 46, 524, 2},    {17, 17, "#197", 1, 46, 524, 8},    {5, 5, "#185", 1, 46, 524, 16},
    {6, 6, "#186", 1, 46, 524, 32},   {3, 3, "#183", 1, 46, 524, 64},     {14, 14, "#194", 0, 83, 285, 2},
    {13, 13, "#193", 0, 83, 285, 4},  {7, 7, "#187", 0, 84, 286, 8},      {1, 1, "#181", 0, 84, 286, 16},
    {15, 15, "#195", 0, 84, 286, 32}, {26, 20, "SI CUP", 0, 361, 362, 8}, {18, 18, "#198", 2, 59, 274, 1},
    {21, 21, "#219", 2, 59, 274, 2},  {22, 22, "#220", 2, 59, 274, 4},    {12, 12, "#192", 2, 59, 274, 8},
    {23, -1, "#198", 3, 59, 274, 1},  {24, -1, "#219", 3, 59, 274, 2},    {20, -1, "#192", 3, 59, 274, 8},
};

class FrmOpzioniTest : public OpzioniFixture {
 protected:
  void ExpectWords(const char* name, const std::vector<const char*>& words) {
    auto& selector = Find<Selector>(name);
    ASSERT_EQ(selector.PositionCount(), static_cast<int>(words.size())) << name;
    for (int n = 0; n < selector.PositionCount(); ++n) {
      selector.SetPosition(n);
      EXPECT_EQ(selector.accessibleDescription(), words[n]) << name;
    }
  }
};

TEST_F(FrmOpzioniTest, SubscribesItsRecordsOnceEach) {
  const std::vector<Subscription> expected = {
      {0, 77, 1},  {0, 78, 1},  {0, 83, 1},  {0, 84, 1},  {0, 132, 1}, {0, 133, 1}, {0, 310, 1},
      {0, 311, 1}, {0, 312, 1}, {0, 313, 1}, {0, 317, 1}, {0, 333, 1}, {0, 334, 1}, {0, 357, 1},
      {0, 359, 1}, {0, 361, 1}, {1, 28, 1},  {1, 29, 1},  {1, 33, 1},  {1, 46, 1},  {1, 47, 1},
      {1, 534, 1}, {2, 59, 1},  {2, 283, 1}, {3, 59, 1},  {3, 283, 1}};
  EXPECT_EQ(Subscribed(), expected);
}

TEST_F(FrmOpzioniTest, AnEntryBeginsOneAboveTheBeginningOfItsBarAsPrescribed) {
  Unlock();
  for (const int n : {0, 1}) {
    SCOPED_TRACE(n);
    Enter(Element("Text2", n), "1");
    EXPECT_EQ(Written(), Writes{});
    BarOf(Element("HScroll1", n)).SetValue(1);
    EXPECT_EQ(Written(), (Writes{{1, 28 + n, 1}, {1, 506 + n, 1}}));
  }
}

TEST_F(FrmOpzioniTest, AnEntryOfTheThresholdHasNoLeastButThatOfItsBarAsPrescribed) {
  Unlock();
  for (const char* entry : {"4.9", "0", "2,55"}) {
    SCOPED_TRACE(entry);
    Arrive(1, 33, 100);
    Enter("Text2(2)", entry);
    EXPECT_EQ(Written(), (Writes{{1, 33, 50}, {1, 511, 50}}));
  }
}

TEST_F(FrmOpzioniTest, EachSwitchHasItsCaptionItsWordsAndANameForTheEar) {
  EXPECT_EQ(form().windowTitle(), "#23");
  for (const Option& option : kOptions) {
    SCOPED_TRACE(option.n);
    if (option.caption >= 0) {
      EXPECT_EQ(LabelText(Element("Label1", option.caption)), option.words);
    }
    auto& control = Find<TwoPositionSwitch>(SwitchName(option.n));
    EXPECT_EQ(control.accessibleName().toStdString(), option.words);
    Arrive(option.node, option.record, 255);
    EXPECT_EQ(control.accessibleDescription(), "#221");
    Arrive(option.node, option.record, 0);
    EXPECT_EQ(control.accessibleDescription(), "#222");
  }
  for (const int none : {23, 24, 26}) {
    EXPECT_EQ(form().findChild<QLabel*>(Element("Label1", none).c_str()), nullptr);
  }
}

TEST_F(FrmOpzioniTest, TheOtherCaptionsAreThoseOfTheLanguage) {
  const std::pair<const char*, const char*> captions[] = {{"Label4", "#205"},
                                                          {"Label5", "#206"},
                                                          {"Label8", "#204"},
                                                          {"Label9", "#199"},
                                                          {"Label11", "#228"},
                                                          {"Label2", "#222"},
                                                          {"Label12", "#222"},
                                                          {"Label3", "#221"},
                                                          {"Label13", "#221"},
                                                          {"Label6(6)", "#213"},
                                                          {"Label6(7)", "#214"},
                                                          {"Label6(8)", "#223"},
                                                          {"Label6(9)", "#224"},
                                                          {"Label7s(0)", "Ver. master"},
                                                          {"Label7s(1)", "Ver. potenza"},
                                                          {"Label7s(2)", "Ver. zeth"},
                                                          {"Label7s(3)", "Ver. zeth 2"}};
  for (const auto& [name, words] : captions) {
    EXPECT_EQ(LabelText(name), words) << name;
  }
  EXPECT_EQ(Find<QGroupBox>("Frame1").title(), "#226");
  EXPECT_EQ(Find<QGroupBox>("Frame2").title(), "#254");
  const auto title_around = [this](const char* name) {
    return qobject_cast<QGroupBox*>(Find(name).parentWidget())->title();
  };
  EXPECT_EQ(title_around("SlswitchX5"), "#274");
  EXPECT_EQ(title_around("HScroll1(0)"), "#244");
}

TEST_F(FrmOpzioniTest, EachSwitchShowsItsBitOfItsRecordAlone) {
  for (const Option& option : kOptions) {
    EXPECT_FALSE(Find<TwoPositionSwitch>(SwitchName(option.n)).IsKnown());
  }
  for (const Option& sent : kOptions) {
    SCOPED_TRACE(sent.n);
    for (const Option& option : kOptions) {
      Arrive(option.node, option.record, 0);
    }
    Arrive(sent.node, sent.record, sent.mask);
    for (const Option& option : kOptions) {
      EXPECT_EQ(SwitchAt(option.n), option.n == sent.n) << option.n;
      EXPECT_TRUE(Find<TwoPositionSwitch>(SwitchName(option.n)).IsKnown());
    }
  }
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(FrmOpzioniTest, ASwitchChangesItsBitAloneInTheRecordAndItsMirror) {
  Unlock();
  for (const Option& option : kOptions) {
    SCOPED_TRACE(option.n);
    const int others = option.n == 0 ? 127 - 4 : 255 - option.mask;  // without the fourth canister
    Arrive(option.node, option.record, others);
    Click(SwitchName(option.n));
    EXPECT_EQ(Written(), (Writes{{option.node, option.record, others + option.mask},
                                 {option.node, option.mirror, others + option.mask}}));
    Click(SwitchName(option.n));
    EXPECT_EQ(Written(),
              (Writes{{option.node, option.record, others}, {option.node, option.mirror, others}}));
    Arrive(option.node, option.record, 0);
  }
}

// The bytes 83, 84 and 361 are the business of several windows.
TEST_F(FrmOpzioniTest, ASwitchNeverUndoesWhatAnotherWindowHasOnItsWay) {
  Unlock();
  for (const auto& [record, mirror, n, mask] :
       {std::tuple{83, 285, 14, 2}, {84, 286, 15, 32}, {361, 362, 26, 8}}) {
    SCOPED_TRACE(record);
    Arrive(0, record, 0);
    PutRecord(0, record, 64);
    Click(SwitchName(n));
    EXPECT_EQ(Written(), (Writes{{0, record, 64 + mask}, {0, mirror, 64 + mask}}));
  }
  Arrive(0, 84, 0);
  PutRecord(0, 84, 128);
  QTest::keyClick(&Find("SlswitchX5"), Qt::Key_End);
  EXPECT_EQ(Written(), (Writes{{0, 84, 132}, {0, 286, 132}}));
}

TEST_F(FrmOpzioniTest, TheSwitchAndThePaymentSystemOfOneByteNeverUndoEachOther) {
  Unlock();
  Arrive(0, 84, 8);
  Click("SwitchX1(1)");
  QTest::keyClick(&Find("SlswitchX5"), Qt::Key_End);
  Click("SwitchX1(15)");
  EXPECT_EQ(Written(), (Writes{{0, 84, 8 + 16 + 4 + 32}, {0, 286, 8 + 16 + 4 + 32}}));
}

TEST_F(FrmOpzioniTest, ThePaymentSystemIsTheHighestOfItsBits) {
  constexpr int kPositions[] = {0, 1, 2, 2, 3, 3, 3, 3};
  for (int bits = 0; bits < 8; ++bits) {
    Arrive(0, 84, 248 + bits);
    EXPECT_EQ(Chosen("SlswitchX5"), kPositions[bits]) << bits;
  }
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(FrmOpzioniTest, APaymentSystemIsOneBitOrNoneAndLeavesTheOthers) {
  Unlock();
  Arrive(0, 84, 255);
  for (const int bits : {2, 1, 0}) {
    QTest::keyClick(&Find("SlswitchX5"), Qt::Key_Left);
    EXPECT_EQ(Written(), (Writes{{0, 84, 248 + bits}, {0, 286, 248 + bits}}));
  }
  QTest::keyClick(&Find("SlswitchX5"), Qt::Key_End);
  EXPECT_EQ(Written(), (Writes{{0, 84, 252}, {0, 286, 252}}));
}

TEST_F(FrmOpzioniTest, TheDecimalPointIsWrittenToOneRecordAndReadFromAnother) {
  Unlock();
  QTest::keyClick(&Find("SlswitchX2"), Qt::Key_End);
  EXPECT_EQ(Written(), (Writes{{0, 76, 3}, {0, 278, 3}}));
  Arrive(0, 76, 1);
  EXPECT_EQ(Chosen("SlswitchX2"), 3);
  Arrive(0, 311, 254);
  EXPECT_EQ(Chosen("SlswitchX2"), 2);
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(FrmOpzioniTest, TheKindsOfTheZethUnitsAreTwo) {
  Unlock();
  for (const auto& [name, record, mirror] : {std::tuple{"SlswitchX4", 78, 280}, {"SlswitchX6", 359, 360}}) {
    SCOPED_TRACE(name);
    for (const auto& [value, position] : {std::pair{1, 1}, {0, 0}, {255, 1}}) {
      Arrive(0, record, value);
      EXPECT_EQ(Chosen(name), position);
    }
    QTest::keyClick(&Find(name), Qt::Key_Home);
    EXPECT_EQ(Written(), (Writes{{0, record, 0}, {0, mirror, 0}}));
    QTest::keyClick(&Find(name), Qt::Key_End);
    EXPECT_EQ(Written(), (Writes{{0, record, 1}, {0, mirror, 1}}));
  }
}

TEST_F(FrmOpzioniTest, TheSelectorsHaveTheirWords) {
  Unlock();
  const std::pair<const char*, std::vector<const char*>> words[] = {
      {"SlswitchX5", {"Gettone", "G13", "Executive", "MDB"}},
      {"SlswitchX2", {"00000", "0000.0", "000.00", "00.000"}},
      {"SlswitchX4", {"Snack", "Pan"}},
      {"SlswitchX6", {"Snack", "Pan"}},
      {"SlswitchX1", {"1", "2", "3", "4", "5", "6", "7", "8"}}};
  for (const auto& [name, all] : words) {
    ExpectWords(name, all);
  }
  Arrive(0, 317, 0);
  ExpectWords("SlswitchX1", {"1", "2", "3", "4"});
}

TEST_F(FrmOpzioniTest, TheLanguageIsOneOfFourOrOfEight) {
  Arrive(0, 317, 8);
  Arrive(0, 77, 6);
  EXPECT_EQ(Chosen("SlswitchX1"), 6);
  Arrive(0, 317, 247);
  EXPECT_EQ(Find<Selector>("SlswitchX1").PositionCount(), 4);
  EXPECT_EQ(Chosen("SlswitchX1"), 0);
  Arrive(0, 77, 4);
  EXPECT_EQ(Chosen("SlswitchX1"), 0);
  Arrive(0, 77, 3);
  EXPECT_EQ(Chosen("SlswitchX1"), 3);
  Arrive(0, 317, 8);
  EXPECT_EQ(Find<Selector>("SlswitchX1").PositionCount(), 8);
  EXPECT_EQ(Chosen("SlswitchX1"), 3);
  Arrive(0, 77, 8);
  EXPECT_EQ(Chosen("SlswitchX1"), 0);
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(FrmOpzioniTest, ALanguageThatComesAheadOfTheStatusIsNotLost) {
  Arrive(0, 77, 6);
  EXPECT_EQ(Chosen("SlswitchX1"), 6);
  Arrive(0, 317, 8);
  EXPECT_EQ(Chosen("SlswitchX1"), 6);
}

TEST_F(FrmOpzioniTest, NoLanguageIsShownBeforeOneHasArrived) {
  Arrive(0, 317, 0);
  EXPECT_FALSE(Find<Selector>("SlswitchX1").IsKnown());
}

TEST_F(FrmOpzioniTest, ALanguageIsWrittenWithItsMirror) {
  Unlock();
  QTest::keyClick(&Find("SlswitchX1"), Qt::Key_End);
  EXPECT_EQ(Written(), (Writes{{0, 77, 7}, {0, 279, 7}}));
}

TEST_F(FrmOpzioniTest, TheVersionsAreShownInTenths) {
  const std::pair<int, int> versions[] = {{0, 310}, {1, 534}, {2, 283}, {3, 283}};
  for (int n = 0; n < 4; ++n) {
    Arrive(versions[n].first, versions[n].second, 14 + n);
    for (int other = 0; other < 4; ++other) {
      EXPECT_EQ(LabelText(Element("Label7", other)), other <= n ? "1." + std::to_string(4 + other) : "");
    }
  }
}

// The numbers by which the machine is known.
class FrmOpzioniNumbersTest : public OpzioniFixture,
                              public testing::WithParamInterface<std::tuple<int, int, int>> {
 protected:
  std::string Box() { return Element("Text1", std::get<0>(GetParam())); }
  int Record() { return std::get<1>(GetParam()); }
  int Largest() { return std::get<2>(GetParam()); }
  // Types into the empty box and leaves it.
  void TypeAndLeave(const std::string& text) {
    Focus(Box());
    Find<QLineEdit>(Box()).selectAll();
    Type(Box(), text);
    QApplication::focusWidget()->clearFocus();
  }
};

TEST_P(FrmOpzioniNumbersTest, ShowsWhatTheMachineHoldsAndNothingBefore) {
  EXPECT_EQ(BoxText(Box()), "");
  Arrive(0, Record(), 43210);
  EXPECT_EQ(BoxText(Box()), "43210");
}

TEST_P(FrmOpzioniNumbersTest, LeavingWritesWhatIsTypedWithoutEnterAndWithoutAMirror) {
  ParamTable[0][Record()].Control = 3;
  Arrive(0, Record(), 5);
  TypeAndLeave(std::to_string(Largest()));
  EXPECT_EQ(Written(), (Writes{{0, Record(), Largest()}}));
  EXPECT_EQ(BoxText(Box()), std::to_string(Largest()));
  Focus(Box());
  Find<QLineEdit>(Box()).selectAll();
  Enter(Box(), "0");
  EXPECT_EQ(Written(), (Writes{{0, Record(), 0}}));
}

TEST_P(FrmOpzioniNumbersTest, ANumberThatWillNotDoWritesTheStoredOneOnceItHasArrivedAsPrescribed) {
  ParamTable[0][Record()].Value[0] = 9;  // of the index file
  TypeAndLeave("-1");
  EXPECT_EQ(Written(), Writes{});
  EXPECT_EQ(BoxText(Box()), "");
  Arrive(0, Record(), 5);
  TypeAndLeave("-1");
  EXPECT_EQ(Written(), (Writes{{0, Record(), 5}}));
  EXPECT_EQ(BoxText(Box()), "5");
}

TEST_P(FrmOpzioniNumbersTest, ATextThatIsNoNumberWritesNothing) {
  Arrive(0, Record(), 5);
  TypeAndLeave("x");
  EXPECT_EQ(BoxText(Box()), "5");
  EXPECT_EQ(Written(), Writes{});
}

INSTANTIATE_TEST_SUITE_P(Boxes, FrmOpzioniNumbersTest,
                         testing::Values(std::tuple{0, 132, 999999}, std::tuple{1, 133, 65535},
                                         std::tuple{2, 334, 65535}, std::tuple{3, 333, 65535}));

TEST_F(FrmOpzioniTest, SixCharactersOfTheMachineNumberAreReadAndFiveOfTheOthersAsPrescribed) {
  for (const int record : {132, 133, 334, 333}) {
    ParamTable[0][record].Control = 3;
    Arrive(0, record, 7);
  }
  Focus("Text1(0)");
  Enter("Text1(0)", "1000000");
  EXPECT_EQ(Written(), (Writes{{0, 132, 100000}}));
  EXPECT_EQ(BoxText("Text1(0)"), "100000");
  for (const auto& [n, record] : {std::pair{1, 133}, {2, 334}, {3, 333}}) {
    Focus(Element("Text1", n));
    Written();
    Enter(Element("Text1", n), "70000");
    EXPECT_EQ(Written(), (Writes{{0, record, 7}})) << "the stored one";
    Enter(Element("Text1", n), "655350");
    EXPECT_EQ(Written(), (Writes{{0, record, 65535}}));
  }
}

}  // namespace
}  // namespace dosmara
