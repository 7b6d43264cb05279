// SPDX-License-Identifier: GPL-3.0-or-later
// The clock window: setting the clock.
#include "forms/orologio_fixture.h"

namespace dosmara {
namespace {

using State = EchoMark::State;
using Writes = std::vector<Write>;

class FrmOrologioSetting : public OrologioFixture {};

TEST_F(FrmOrologioSetting, EachBarHasItsSpan) {
  for (const Setting& each : kSettings) {
    EXPECT_EQ(BarOf(each.bar).minimum(), each.min) << each.bar;
    EXPECT_EQ(BarOf(each.bar).maximum(), each.max) << each.bar;
    EXPECT_EQ(BarOf(each.bar).pageStep(), each.large_change) << each.bar;
  }
}

TEST_F(FrmOrologioSetting, FillingWritesNothing) {
  Run();
  SendTime(11, 45);
  SendDate(16, 4, 25);
  EXPECT_EQ(Written(), Writes{});
  Arrive(0, 327, 5);
  EXPECT_EQ(Values(), "10 32 15 3 24") << "and is no change by the operator";
}

TEST_F(FrmOrologioSetting, ABarWritesItsOwnRecordAndTheDisplayWaits) {
  Run();
  for (const Setting& each : kSettings) {
    SCOPED_TRACE(each.bar);
    for (const int end : {each.max, each.min}) {
      Set(each.n, end);
      EXPECT_EQ(Written(), (Writes{{0, each.record, end}}));
    }
    EXPECT_EQ(MarkOf(each.n), State::kOnItsWay);
    EXPECT_EQ(Values(), "10 32 15 3 24");
  }
  EXPECT_EQ(Time(), "10:32");
  EXPECT_EQ(Date(), "15/03/2024");
}

struct Entry {
  int n;
  std::vector<std::pair<std::string, int>> good;
  std::vector<std::string> bad;
};

TEST_F(FrmOrologioSetting, ABoxTakesWhatItsFieldCanHoldAndPutsBackTheRestInSilence) {
  Run();
  const Entry entries[] = {
      {0, {{"0", 0}, {"23", 23}, {"07", 7}}, {"24", "-1", "x", "", "59"}},
      {1, {{"0", 0}, {"59", 59}}, {"60", "-1", "x", ""}},
      {2, {{"1", 1}, {"31", 31}}, {"0", "32", "-1", "x", ""}},
      {3, {{"1", 1}, {"12", 12}}, {"0", "13", "x", ""}},
      {4, {{"0", 0}, {"99", 99}}, {"100", "2024", "-1", "x", ""}},
  };
  for (const Entry& entry : entries) {
    const std::string box = Element("txtOrol", entry.n);
    const int record = 326 + entry.n;
    const std::string elsewhere = Element("txtOrol", (entry.n + 1) % 5);
    for (const auto& [text, value] : entry.good) {
      SCOPED_TRACE(box + " " + text);
      EnterAndLeave(box, text, elsewhere);
      EXPECT_EQ(Written(), (Writes{{0, record, value}}));
      EXPECT_EQ(BarOf(kSettings[entry.n].bar).Value(), value);
    }
    for (const std::string& text : entry.bad) {
      SCOPED_TRACE(box + " " + text);
      Focus(elsewhere);
      const std::string standing = BoxText(box);
      Enter(box, text);
      EXPECT_EQ(BoxText(box), standing);
      EXPECT_EQ(Written(), Writes{});
    }
  }
  Find("txtOrol(4)").clearFocus();
  EXPECT_EQ(Values(), "10 32 15 3 24") << "new values arrive by the machine alone";
}

TEST_F(FrmOrologioSetting, TheAnswerShowsWhatTheMachineHasTaken) {
  Run();
  for (const Setting& each : kSettings) {
    Set(each.n, 9);
    Arrive(0, each.record, 9);
    EXPECT_EQ(LabelText(each.value), "9");
    EXPECT_EQ(BoxText(Element("txtOrol", each.n)), "9");
    EXPECT_EQ(MarkOf(each.n), State::kTaken);
  }
  EXPECT_EQ(Values(), "9 9 9 9 9");
  EXPECT_EQ(Date(), "09/09/2009");
  EXPECT_EQ(Time(), "10:32") << "the clock goes by its own records";
}

TEST_F(FrmOrologioSetting, AnAnswerThatIsAnotherValueIsShownAndMarked) {
  Run();
  Set(kMinute, 50);
  Arrive(0, 327, 32);
  EXPECT_EQ(Values(), "10 32 15 3 24");
  EXPECT_EQ(Bars(), "10 32 15 3 24");
  EXPECT_EQ(MarkOf(kMinute), State::kNotTaken);
}

TEST_F(FrmOrologioSetting, WithoutAChangeTheRecordsOfTheSettingChangeNothing) {
  Run();
  for (const Setting& each : kSettings) {
    Arrive(0, each.record, 5);
  }
  EXPECT_EQ(Values(), "10 32 15 3 24");
  EXPECT_EQ(Date(), "15/03/2024");
}

TEST_F(FrmOrologioSetting, TheFirstAnswerOfAnyOfTheFiveEndsTheChangeAsPrescribed) {
  for (const Setting& changed : kSettings) {
    for (const Setting& answered : kSettings) {
      SCOPED_TRACE(std::string(changed.bar) + " " + answered.value);
      Open("FrmOrologio");
      Run();
      Set(changed.n, 7);
      Arrive(0, answered.record, 8);
      EXPECT_EQ(LabelText(answered.value), "8");
      const std::string values = Values();
      Arrive(0, changed.record, 7);
      EXPECT_EQ(Values(), values) << "the change is over";
      EXPECT_EQ(MarkOf(changed.n), changed.n == answered.n ? State::kNotTaken : State::kOnItsWay);
      Set(changed.n, 6);
      Arrive(0, changed.record, 6);
      EXPECT_EQ(LabelText(changed.value), "6") << "a new change has its own answer";
      Close();
    }
  }
  Open("FrmOrologio");
}

TEST_F(FrmOrologioSetting, AnAnswerWithoutAChipIsNoAnswer) {
  Run();
  Set(kHour, 7);
  Arrive(0, 317, 0);
  Arrive(0, 326, 7);
  EXPECT_EQ(Values(), "10 32 15 3 24");
  Arrive(0, 317, 4);
  Arrive(0, 326, 7);
  EXPECT_EQ(Values(), "7 32 15 3 24") << "the change was still waiting";
}

TEST_F(FrmOrologioSetting, TheFirstFillingSaysNothingOfAChange) {
  Arrive(0, 317, 4);
  for (int n = 0; n < 5; ++n) {
    Enter(Element("txtOrol", n), std::to_string(n + 6));
  }
  EXPECT_EQ(Written(), (Writes{{0, 326, 6}, {0, 327, 7}, {0, 328, 8}, {0, 329, 9}, {0, 330, 10}}));
  Focus("HScroll2(1)");
  SendTime(10, 32);
  SendDate(15, 3, 24);
  EXPECT_EQ(Values(), "10 32 15 3 24");
  for (const Setting& each : kSettings) {
    EXPECT_EQ(MarkOf(each.n), State::kOnItsWay) << each.bar;
  }
  EXPECT_EQ(Written(), Writes{});
  Arrive(0, 326, 6);
  EXPECT_EQ(Values(), "6 32 15 3 24") << "the change was still waiting";
}

TEST_F(FrmOrologioSetting, TheYearIsWrittenInTwoDigitsAndShownInFull) {
  Run();
  Enter("txtOrol(4)", "31");
  EXPECT_EQ(Written(), (Writes{{0, 330, 31}}));
  Arrive(0, 330, 31);
  EXPECT_EQ(Date(), "15/03/2031");
  EXPECT_EQ(LabelText("Label5(2)"), "31");
}

TEST_F(FrmOrologioSetting, AnAnswerCompletesTheDateToo) {
  Arrive(0, 317, 4);
  Arrive(0, 322, 15);
  Arrive(0, 323, 3);
  Enter("txtOrol(4)", "31");
  EXPECT_EQ(Date(), "");
  Arrive(0, 330, 31);
  EXPECT_EQ(Date(), "15/03/2031");
}

TEST_F(FrmOrologioSetting, ADayThatItsMonthLacksIsCountedOnAsPrescribed) {
  Run();
  Set(kMonth, 2);
  Arrive(0, 329, 2);
  EXPECT_EQ(Date(), "15/02/2024");
  Enter("txtOrol(2)", "31");
  EXPECT_EQ(Written(), (Writes{{0, 328, 31}, {0, 329, 2}})) << "it is not refused";
  Arrive(0, 328, 31);
  EXPECT_EQ(Date(), "02/03/2024");
  EXPECT_EQ(LabelText("Label5(0)"), "31");
  EXPECT_EQ(BarOf("HScroll5(0)").Value(), 31);
  Set(kYear, 23);
  Arrive(0, 330, 23);
  EXPECT_EQ(Date(), "03/03/2023");
}

TEST_F(FrmOrologioSetting, TellsAllAnewWhenItIsOpenedAgain) {
  Run();
  Set(kHour, 7);
  Close();
  Open("FrmOrologio");
  ExpectOpen(false);
  EXPECT_EQ(Time(), "");
  Arrive(0, 317, 4);
  Arrive(0, 326, 9);
  EXPECT_EQ(LabelText("Label4(0)"), "");
  SendTime(11, 12);
  EXPECT_EQ(LabelText("Label4(0)"), "11");
}

TEST_F(FrmOrologioSetting, ClosingWritesNothing) {
  Run();
  Type("txtOrol(0)", "7");
  Close();
  EXPECT_EQ(Written(), Writes{});
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
  Open("FrmOrologio");
}

}  // namespace
}  // namespace dosmara
