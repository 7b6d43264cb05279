// SPDX-License-Identifier: GPL-3.0-or-later
// The clock window: what the clock and its date show.
#include "forms/orologio_fixture.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;

class FrmOrologioClock : public OrologioFixture {};

TEST_F(FrmOrologioClock, OpensAndClosesWithTheChip) {
  ExpectOpen(false);
  Arrive(0, 317, 4);
  ExpectOpen(true);
  Arrive(0, 317, 251);
  ExpectOpen(false);
  Arrive(0, 317, 6);
  ExpectOpen(true);
  Arrive(0, 317, 255);
  ExpectOpen(true);
}

TEST_F(FrmOrologioClock, AStatusThatIsTheFirstOneAssumedOpensNothingAsPrescribed) {
  Arrive(0, 317, 255);
  ExpectOpen(false);
  Arrive(0, 317, 254);
  ExpectOpen(true);
}

TEST_F(FrmOrologioClock, ARepeatedStatusLeavesAHalfTypedEntryAlone) {
  Run();
  Type("txtOrol(0)", "1");
  Arrive(0, 317, 4);
  EXPECT_EQ(BoxText("txtOrol(0)"), "1");
}

TEST_F(FrmOrologioClock, DoesNotWaitForTheTimePoints) {
  Run();
  ExpectOpen(true);
  EXPECT_FALSE(Enabled("HScroll1(0)"));
  Enter("txtOrol(0)", "11");
  EXPECT_EQ(Written(), (Writes{{0, 326, 11}}));
}

TEST_F(FrmOrologioClock, TellsNothingBeforeTheMachineHas) {
  Arrive(0, 317, 4);
  EXPECT_EQ(Time(), "");
  EXPECT_EQ(Date(), "");
  EXPECT_EQ(Values(), "- - - - -");
  for (const Setting& each : kSettings) {
    EXPECT_FALSE(BarOf(each.bar).IsKnown()) << each.bar;
  }
}

TEST_F(FrmOrologioClock, RunsIn24HoursWithTheMachine) {
  Run();
  EXPECT_EQ(Time(), "10:32");
  Arrive(0, 320, 33);
  EXPECT_EQ(Time(), "10:33");
  SendTime(23, 59);
  EXPECT_EQ(Time(), "23:59");
  SendTime(0, 0);
  EXPECT_EQ(Time(), "00:00");
  SendTime(7, 5);
  EXPECT_EQ(Time(), "07:05");
}

TEST_F(FrmOrologioClock, WaitsForHourAndMinute) {
  Arrive(0, 317, 4);
  Arrive(0, 320, 32);
  EXPECT_EQ(Time(), "");
  EXPECT_EQ(Values(), "- - - - -");
  Arrive(0, 321, 10);
  EXPECT_EQ(Time(), "10:32");
  EXPECT_EQ(Values(), "10 32 - - -");
}

TEST_F(FrmOrologioClock, AnHourThatIsNoneMovesNothing) {
  Run();
  for (const int hour : {255, 24}) {
    Arrive(0, 321, hour);
    EXPECT_EQ(Time(), "10:32");
    Arrive(0, 320, 33);
    EXPECT_EQ(Time(), "10:32") << "the minute alone neither";
  }
  Arrive(0, 321, 11);
  EXPECT_EQ(Time(), "11:33");
  Arrive(0, 320, 60);
  EXPECT_EQ(Time(), "11:33");
}

TEST_F(FrmOrologioClock, AnHourThatIsNoneIsNotTheFirstFilling) {
  Arrive(0, 317, 4);
  SendTime(255, 10);
  EXPECT_EQ(Values(), "- - - - -");
  Arrive(0, 321, 8);
  EXPECT_EQ(Values(), "8 10 - - -");
}

TEST_F(FrmOrologioClock, WhatSetsTheTimeIsFilledOnce) {
  Run();
  SendTime(11, 45);
  EXPECT_EQ(Time(), "11:45");
  EXPECT_EQ(Values(), "10 32 15 3 24");
  EXPECT_EQ(Bars(), "10 32 15 3 24");
}

TEST_F(FrmOrologioClock, WhatSetsTheDateIsFilledOnceAndTheDateGoesOn) {
  Run();
  EXPECT_EQ(Date(), "15/03/2024");
  SendDate(16, 4, 25);
  EXPECT_EQ(Values(), "10 32 15 3 24");
  EXPECT_EQ(Date(), "16/04/2025");
}

TEST_F(FrmOrologioClock, TheDateWaitsForAllThreeAndTheStatus) {
  SendDate(15, 3, 24);
  EXPECT_EQ(Date(), "");
  Arrive(0, 317, 4);
  EXPECT_EQ(Date(), "15/03/2024");
  EXPECT_EQ(Values(), "- - 15 3 24");
}

TEST_F(FrmOrologioClock, ADateThatCameAheadOfAMissingChipIsNotShown) {
  SendDate(15, 3, 24);
  Arrive(0, 317, 0);
  EXPECT_EQ(Date(), "");
  EXPECT_EQ(Values(), "- - - - -");
}

TEST_F(FrmOrologioClock, AnyArrivalOfItsOwnShowsTheDateThatIsComplete) {
  Arrive(0, 317, 4);
  Arrive(0, 322, 15);
  Arrive(0, 323, 3);
  EXPECT_EQ(Date(), "");
  ParamTable[0][324].Flags |= kArrived;
  Arrive(0, 321, 10);
  EXPECT_EQ(Date(), "") << "a year that the window has not heard of is not known";
  Arrive(0, 324, 24);
  EXPECT_EQ(Date(), "15/03/2024");
}

TEST_F(FrmOrologioClock, ADateOfWhichAPartIsNotFreshFillsNothing) {
  constexpr std::pair<int, int> kSent[] = {{317, 4}, {322, 15}, {323, 3}, {324, 24}};
  for (const auto& [stale, stale_value] : kSent) {
    SCOPED_TRACE(stale);
    Close();
    Open("FrmOrologio");
    for (const auto& [record, value] : kSent) {
      ParamTable[0][record].Flags = 0;
    }
    Arrive(0, stale, stale_value);
    ParamTable[0][stale].Flags = 0;
    for (const auto& [record, value] : kSent) {
      if (record != stale) {
        Arrive(0, record, value);
      }
    }
    EXPECT_EQ(Values(), "- - - - -");
    EXPECT_EQ(Date(), "");
    Arrive(0, stale, stale_value);
    EXPECT_EQ(Values(), "- - 15 3 24");
    EXPECT_EQ(Date(), "15/03/2024");
  }
}

TEST_F(FrmOrologioClock, WithoutAChipNothingIsTaken) {
  Run();
  Arrive(0, 317, 0);
  SendTime(11, 45);
  SendDate(16, 4, 25);
  EXPECT_EQ(Time(), "10:32");
  EXPECT_EQ(Date(), "15/03/2024");
  Arrive(0, 317, 4);
  EXPECT_EQ(Time(), "10:32");
  EXPECT_EQ(Date(), "15/03/2024");
  Arrive(0, 320, 46);
  EXPECT_EQ(Time(), "10:46");
}

TEST_F(FrmOrologioClock, WhatCameWithoutAChipIsNotKnownWhenThereIsOne) {
  Arrive(0, 317, 0);
  SendTime(11, 45);
  SendDate(16, 4, 25);
  Arrive(0, 317, 4);
  EXPECT_EQ(Time(), "");
  EXPECT_EQ(Date(), "");
  EXPECT_EQ(Values(), "- - - - -");
  Run();
  EXPECT_EQ(Values(), "10 32 15 3 24");
}

TEST_F(FrmOrologioClock, GoesOverTheEndOfFebruary) {
  Run();
  SendDate(28, 2, 23);
  EXPECT_EQ(Date(), "28/02/2023");
  SendTime(0, 0);
  SendDate(1, 3, 23);
  EXPECT_EQ(Time() + " " + Date(), "00:00 01/03/2023");
  SendDate(29, 2, 24);
  EXPECT_EQ(Date(), "29/02/2024");
}

TEST_F(FrmOrologioClock, ADateThatIsNoneIsShownAsItIs) {
  Arrive(0, 317, 4);
  SendDate(0, 0, 0);
  EXPECT_EQ(Date(), "00/00/2000");
  EXPECT_EQ(Values(), "- - 0 0 0");
  EXPECT_EQ(Bars(), "0 0 1 1 0");
}

}  // namespace
}  // namespace dosmara
