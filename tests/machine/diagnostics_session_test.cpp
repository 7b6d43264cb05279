// SPDX-License-Identifier: GPL-3.0-or-later
// What a tool does to try a machine out, frame by frame: outputs, products of the units, drinks, the clock.
#include "session_fixture.h"

namespace machine {
namespace {

class OutputSession : public SessionTest {
 protected:
  // 60 enters the test or ends what runs in it, 0 leaves it: data first, then the command.
  void Mode(int node, std::uint32_t value) {
    Write(node, node == 1 ? 536 : 285, value);
    Write(node, node == 1 ? 535 : 284, 1);
  }
  void EnterAll() {
    for (const int node : {1, 2, 3}) {
      Mode(node, 60);
    }
  }
  bool InTest(int node) { return (Read(node, node == 1 ? 541 : 290) & 1) != 0; }

  void DriveDrinksUnit(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
    Write(1, 536, a);
    Write(1, 537, b);
    Write(1, 538, c);
    Write(1, 539, d);
    Write(1, 535, 2);
  }
  void ExpectDrinksUnit(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
    EXPECT_EQ(Read(1, 547), a);
    EXPECT_EQ(Read(1, 548), b);
    EXPECT_EQ(Read(1, 549), c);
    EXPECT_EQ(Read(1, 550), d);
  }
  void DriveUnit(int node, std::uint32_t row, std::uint32_t column) {
    Write(node, 285, row);
    Write(node, 286, column);
    Write(node, 284, 2);
  }
  // The tool takes a unit's outputs for settled when they read alike twice.
  void ExpectUnit(int node, std::uint32_t row, std::uint32_t column) {
    for (int reading = 0; reading < 2; ++reading) {
      EXPECT_EQ(Read(node, 288), row);
      EXPECT_EQ(Read(node, 289), column);
    }
  }
};

TEST_F(OutputSession, AllBoardsEnterTheTestAndLeaveIt) {
  for (const int node : {1, 2, 3}) {
    EXPECT_FALSE(InTest(node)) << node;
  }
  EnterAll();
  for (const int node : {1, 2, 3}) {
    EXPECT_TRUE(InTest(node)) << node;
  }
  for (const int node : {1, 2, 3}) {
    Mode(node, 0);
  }
  for (const int node : {1, 2, 3}) {
    EXPECT_FALSE(InTest(node)) << node;
  }
}

TEST_F(OutputSession, EachOutputOfTheDrinksUnitReadsBackAsCommanded) {
  EnterAll();
  for (int bit = 0; bit < 8; ++bit) {
    DriveDrinksUnit(1u << bit, 0, 0, 0);
    ExpectDrinksUnit(1u << bit, 0, 0, 0);
    DriveDrinksUnit(0, 1u << bit, 0, 0);
    ExpectDrinksUnit(0, 1u << bit, 0, 0);
    DriveDrinksUnit(0, 0, 1u << bit, 0);
    ExpectDrinksUnit(0, 0, 1u << bit, 0);
  }
  DriveDrinksUnit(129, 16, 2, 5);
  Pass(5s);
  ExpectDrinksUnit(129, 16, 2, 5);
}

TEST_F(OutputSession, ASectorMovesAndGoesOffWhileTheCompressorRunsOn) {
  EnterAll();
  for (const int node : {2, 3}) {
    DriveUnit(node, 128, 0);
    ExpectUnit(node, 128, 0);
    DriveUnit(node, 128 + 4, 8);
    ExpectUnit(node, 128 + 4, 8);
    DriveUnit(node, 128 + 32, 128);
    ExpectUnit(node, 128 + 32, 128);
    DriveUnit(node, 128, 0);
    ExpectUnit(node, 128, 0);
  }
}

TEST_F(OutputSession, TheInterlockPutsTheOtherBoardsOffAndKeepsThemInTheTest) {
  EnterAll();
  DriveDrinksUnit(0, 2, 0, 0);
  DriveUnit(3, 1, 1);
  DriveUnit(2, 1, 1);
  Mode(1, 60);
  Mode(3, 60);
  ExpectUnit(2, 1, 1);
  ExpectUnit(3, 0, 0);
  ExpectDrinksUnit(0, 0, 0, 0);
  DriveDrinksUnit(0, 0, 8, 0);
  Mode(2, 60);
  ExpectDrinksUnit(0, 0, 8, 0);
  ExpectUnit(2, 0, 0);
  for (const int node : {1, 2, 3}) {
    EXPECT_TRUE(InTest(node)) << node;
  }
}

TEST_F(OutputSession, InputsAndTemperaturesReadAsOfAMachineAtRest) {
  EXPECT_EQ(Read(0, 318) & 2, 0u) << "the door is closed";
  EXPECT_EQ(Read(1, 544) & (1 | 4 | 16), 0u) << "brewer at rest, cups, water";
  EXPECT_EQ(Read(1, 544) & (8 | 32 | 64), 104u) << "no cup placed, nothing full";
  EXPECT_EQ(Read(1, 546) & 1, 1u) << "the boiler is hot";
  EXPECT_NEAR(Read(1, 542), 92, 3);
  Pass(5s);
  for (const int node : {2, 3}) {
    EXPECT_EQ(Read(node, 52), 5u);
    EXPECT_NEAR(Read(node, 287) / 256.0, node == 2 ? 5.5 : 9.0, 0.5);
  }
}

class ProductSession : public SessionTest {
 protected:
  void Vend(std::uint32_t letter, std::uint32_t row, std::uint32_t column) {
    Write(0, 358, letter);
    Write(0, 316, row * 16);
    Write(0, 315, column + 38);
    Write(0, 314, 2);
  }
};

TEST_F(ProductSession, AUnitVendsWithinTwoSecondsAndCountsAtThePosition) {
  struct {
    int node;
    std::uint32_t letter, row, column;
    int counter;
  } const vends[] = {{2, 86, 1, 1, 167}, {2, 86, 6, 8, 214}, {3, 87, 1, 2, 168}, {3, 87, 6, 8, 214}};
  std::uint32_t tests = 0;
  for (const auto& vend : vends) {
    EXPECT_EQ(Read(vend.node, vend.counter), 0u);
    Vend(vend.letter, vend.row, vend.column);
    EXPECT_TRUE(Becomes(0, 317, 2, 2, 2s));
    EXPECT_TRUE(Becomes(0, 317, 2, 0));
    EXPECT_EQ(Read(vend.node, vend.counter), 1u);
    EXPECT_EQ(Read(0, 126), ++tests);
  }
}

TEST_F(ProductSession, MotorsGoToZeroAndNothingIsVendedMeanwhile) {
  struct {
    int node;
    std::uint32_t letter;
  } const units[] = {{2, 86}, {3, 87}};
  for (const auto& unit : units) {
    Write(unit.node, 284, 3);
    EXPECT_TRUE(Becomes(unit.node, 290, 2, 2, 1s));
    Vend(unit.letter, 1, 1);
    EXPECT_FALSE(Becomes(0, 317, 2, 2, 2s));
    EXPECT_TRUE(Becomes(unit.node, 290, 2, 0));
    Vend(unit.letter, 1, 1);
    EXPECT_TRUE(Becomes(0, 317, 2, 2, 2s));
    EXPECT_TRUE(Becomes(0, 317, 2, 0));
  }
}

class DrinkSession : public SessionTest {};

TEST_F(DrinkSession, EveryTestOfAWholeDrinkStartsWithinTwoSecondsAndEnds) {
  for (const std::uint32_t command : {2u, 3u, 4u}) {
    Write(0, 315, 3);
    Write(0, 314, command);
    EXPECT_TRUE(Becomes(0, 317, 2, 2, 2s)) << command;
    EXPECT_TRUE(Becomes(1, 544, 1 | 8, 1, 1s)) << "the brewer has left its rest, a cup is in place";
    EXPECT_TRUE(Becomes(1, 547, 32, 32, 5s)) << "the pump, once the sugar has run";
    EXPECT_TRUE(Becomes(0, 317, 2, 0, 30s)) << command;
    EXPECT_EQ(Read(1, 547) & 32, 0u);
  }
  EXPECT_EQ(Read(1, 128), 3u);
  EXPECT_EQ(Read(0, 126), 3u);
}

TEST_F(DrinkSession, APartRunsAsLongAsTheToolWaitsForIt) {
  for (const std::uint32_t part : {66u, 192u}) {
    Write(0, 315, 2);
    Write(0, 316, part);
    Write(0, 314, 7);
    EXPECT_TRUE(Becomes(0, 317, 2, 2, 1s)) << part;
    // A tenth of a second for each count of the part's time, and the second that the tool adds.
    const std::uint32_t tenths = Read(1, (part == 66 ? 280 : 434) + 2);
    EXPECT_TRUE(Becomes(0, 317, 2, 0, tenths * 100ms + 1s)) << part;
  }
}

class ClockSession : public SessionTest {};

TEST_F(ClockSession, TheClockIsSetFieldByFieldAndRunsOn) {
  EXPECT_EQ(Read(0, 317) & 4, 4u);
  struct {
    int record, running;
    std::uint32_t value;
  } const fields[] = {{326, 321, 23}, {327, 320, 59}, {328, 322, 31}, {329, 323, 12}, {330, 324, 99}};
  for (const auto& field : fields) {
    Write(0, field.record, field.value);
    EXPECT_EQ(Read(0, field.record), field.value);
    EXPECT_EQ(Read(0, field.running), field.value);
  }
  EXPECT_TRUE(Becomes(0, 320, 255, 0, 61s));
  EXPECT_EQ(Read(0, 321), 0u);
  EXPECT_EQ(Read(0, 322), 1u);
  EXPECT_EQ(Read(0, 323), 1u);
  EXPECT_EQ(Read(0, 324), 0u);
}

// Sets 23:59 of a date, field by field in the order of the records, and lets midnight pass.
TEST_F(ClockSession, FebruaryEndsAsItsYearSays) {
  struct {
    std::uint32_t day, month, year, next_day, next_month;
  } const nights[] = {{28, 2, 23, 1, 3}, {28, 2, 24, 29, 2}, {29, 2, 24, 1, 3},
                      {28, 2, 0, 29, 2}, {29, 2, 23, 1, 3},  {31, 2, 24, 1, 3},
                      {31, 4, 24, 1, 5}, {30, 4, 24, 1, 5},  {31, 1, 23, 1, 2}};
  for (const auto& night : nights) {
    const std::uint32_t fields[] = {23, 59, night.day, night.month, night.year};
    for (int i = 0; i < 5; ++i) {
      Write(0, 326 + i, fields[i]);
    }
    EXPECT_EQ(Read(0, 322), night.day);
    EXPECT_EQ(Read(0, 323), night.month);
    ASSERT_TRUE(Becomes(0, 321, 255, 0, 61s));
    EXPECT_EQ(Read(0, 322), night.next_day) << night.day << "/" << night.month << "/" << night.year;
    EXPECT_EQ(Read(0, 323), night.next_month) << night.day << "/" << night.month << "/" << night.year;
    EXPECT_EQ(Read(0, 324), night.year);
  }
}

TEST_F(ClockSession, AnHourThatIsNoneIsHeldAndTheClockRunsOn) {
  Write(0, 326, 22);
  Write(0, 327, 59);
  for (const std::uint32_t hour : {24u, 255u}) {
    Write(0, 326, hour);
    EXPECT_EQ(Read(0, 326), hour);
    EXPECT_EQ(Read(0, 321), 22u);
  }
  EXPECT_TRUE(Becomes(0, 321, 255, 23, 61s));
}

TEST_F(ClockSession, AMachineWithoutAClockSaysSoAndStandsStill) {
  machine_.calendar().SetFitted(false);
  EXPECT_EQ(Read(0, 317) & 4, 0u);
  const std::uint32_t minute = Read(0, 320);
  Pass(2min);
  EXPECT_EQ(Read(0, 320), minute);
}

}  // namespace
}  // namespace machine
