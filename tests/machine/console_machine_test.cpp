// SPDX-License-Identifier: GPL-3.0-or-later
// Commands on the machine behind the line.
#include <fstream>

#include "console_fixture.h"
#include "temp_folder.h"

namespace machine {
namespace {

class ConsoleMachineTest : public ConsoleTest {
 protected:
  ConsoleMachineTest() {
    Set(0, 317, 4);
    Set(0, 4, 10);
    Set(0, 84, 4);
    Set(0, 85, 255);
    Set(0, 12, 40);
    for (const int record : {34, 35, 36, 38}) {
      Set(1, record, 255);
    }
    Set(1, 148, 40);
    Set(1, 164, 40);
    Run("alarm clear");
  }
};

TEST_F(ConsoleMachineTest, VendServesASelectionOrAPosition) {
  EXPECT_EQ(Run("vend 1 paid"), "ok");
  EXPECT_NE(Run("status").find(" serving drink-1-sold "), std::string::npos);
  EXPECT_NE(Run("status").find(" dispensing yes "), std::string::npos);
  Pass(5s);
  EXPECT_EQ(Run("vend 21 paid 50"), "ok");
  Pass(5s);
  EXPECT_EQ(Run("vend 3:68 key"), "ok");
  EXPECT_NE(Run("status").find(" serving product-3:68-sold "), std::string::npos);
  Pass(5s);
  EXPECT_EQ(Get(1, 60), 1u);
  EXPECT_EQ(Get(1, 76), 1u);
  EXPECT_EQ(Get(3, 118), 1u);
}

TEST_F(ConsoleMachineTest, VendRefusesWhatCannotBeBought) {
  EXPECT_EQ(Run("vend 17"), "error: a selection such as 3 or a position such as 2:34, not '17'");
  EXPECT_EQ(Run("vend 2:79"), "error: a selection such as 3 or a position such as 2:34, not '2:79'");
  EXPECT_EQ(Run("vend 1:11"), "error: a selection such as 3 or a position such as 2:34, not '1:11'");
  EXPECT_EQ(Run("vend 1 stolen"), "error: no way to buy 'stolen', try help vend");
  EXPECT_EQ(Run("vend 1 paid 30"), "error: the price is 40");
  EXPECT_EQ(Run("vend 2"), "error: there is nothing to dispense");
  EXPECT_FALSE(machine_.dispenser().busy());
}

TEST_F(ConsoleMachineTest, VendRefusesAnAmountOrAMeansThatCannotBe) {
  Set(1, 34, 255);
  Set(1, 148, 40);
  EXPECT_EQ(Run("vend 1 paid 65536"), "error: amount must be 0 to 65535, not '65536'");
  EXPECT_EQ(Run("vend 1 paid 5x"), "error: amount must be 0 to 65535, not '5x'");
  EXPECT_EQ(Run("vend 1 paid key"), "error: only one of paid, bill, token, key and free");
  EXPECT_EQ(Run("vend 1 free free"), "error: only one of paid, bill, token, key and free");
  EXPECT_EQ(Run("vend 1 key 50"), "error: no way to buy '50', try help vend");
  EXPECT_FALSE(machine_.dispenser().busy());
}

TEST_F(ConsoleMachineTest, VendTakesABillOrAToken) {
  Set(0, 355, 1);
  Set(0, 348, 40);
  EXPECT_EQ(Run("vend 1 bill 500"), "ok");
  Pass(5s);
  EXPECT_EQ(Get(0, 124), 1u);
  EXPECT_EQ(Run("vend 1 token 2"), "ok");
  Pass(5s);
  EXPECT_EQ(Get(0, 128), 80u);
  EXPECT_EQ(Run("vend 1 bill 7"), "error: no accepted bill has that value");
  EXPECT_EQ(Run("vend 1 token 4"), "error: tokens are 1 to 3");
}

TEST_F(ConsoleMachineTest, AlarmLogsACodeAndClears) {
  EXPECT_EQ(Run("alarm 203"), "ok");
  EXPECT_EQ(Get(0, 147), 203u);
  EXPECT_EQ(Run("alarm 204"), "error: code must be 0 to 203, not '204'");
  EXPECT_EQ(Run("alarm clear"), "ok");
  EXPECT_EQ(Get(0, 147), 255u);
}

TEST_F(ConsoleMachineTest, SuppliesAndPartsComeAndGo) {
  EXPECT_EQ(Run("exhaust cups"), "ok");
  EXPECT_EQ(Run("vend 1"), "error: what is missing or full: cups");
  EXPECT_EQ(Run("service all"), "ok");
  EXPECT_EQ(Run("vend 1"), "ok");
  EXPECT_EQ(Run("exhaust gin"), "error: water, cups, coffee, stirrers, grounds or tray, not 'gin'");
  EXPECT_EQ(Run("break pump"), "ok");
  EXPECT_TRUE(machine_.defects().Broken("pump"));
  EXPECT_EQ(Run("mend pump"), "ok");
  EXPECT_FALSE(machine_.defects().Broken("pump"));
  EXPECT_TRUE(Run("break teapot").starts_with("error: no part 'teapot'; parts: pump "));
}

TEST_F(ConsoleMachineTest, DoorOpensAndCloses) {
  EXPECT_EQ(Run("door open"), "ok");
  EXPECT_EQ(Get(0, 318) & 2, 2u);
  EXPECT_EQ(Run("door closed"), "ok");
  EXPECT_EQ(Get(0, 318) & 2, 0u);
  EXPECT_EQ(Run("door ajar"), "error: open or closed, not 'ajar'");
}

TEST_F(ConsoleMachineTest, EveryInputCanBeMovedByHand) {
  struct {
    const char* name;
    int node, record;
    std::uint32_t mask;
    bool active_low;
  } const inputs[] = {{"program-key", 0, 318, 8, true},
                      {"return-lever", 0, 318, 32, true},
                      {"token", 0, 318, 64, true},
                      {"water-fill", 1, 545, 2, true},
                      {"spare", 1, 545, 4, true},
                      {"doser", 1, 544, 2, true},
                      {"flow-meter", 1, 544, 128, true},
                      {"door-closed", 0, 318, 2, true},
                      {"coin-mechanism", 0, 318, 16, true},
                      {"brewer-at-rest", 1, 544, 1, true},
                      {"cups", 1, 544, 4, true},
                      {"cup-in-position", 1, 544, 8, true},
                      {"water", 1, 544, 16, true},
                      {"grounds-full", 1, 544, 32, true},
                      {"tray-full", 1, 544, 64, true},
                      {"boiler-hot", 1, 546, 1, false}};
  for (const auto& input : inputs) {
    const std::string name = std::string("input ") + input.name;
    for (const bool on : {true, false, true}) {
      EXPECT_EQ(Run(name + (on ? " on" : " off")), "ok") << input.name;
      EXPECT_EQ((Get(input.node, input.record) & input.mask) != 0, on != input.active_low) << input.name;
      Pass(3s);
      EXPECT_EQ((Get(input.node, input.record) & input.mask) != 0, on != input.active_low) << input.name;
    }
  }
  EXPECT_EQ(Run("input token up"), "error: on or off, not 'up'");
  EXPECT_TRUE(Run("input nose on").starts_with("error: no input 'nose'; inputs: door-closed "));
}

TEST_F(ConsoleMachineTest, TurnSetsHowLongASpiralTakes) {
  EXPECT_EQ(Run("turn 5000"), "ok");
  EXPECT_EQ(Run("vend 2:11"), "ok");
  Pass(5s);
  EXPECT_TRUE(machine_.dispenser().busy());
  Pass(300ms);
  EXPECT_FALSE(machine_.dispenser().busy());
  EXPECT_EQ(Run("turn 99"), "error: time must be 100 to 60000, not '99'");
}

TEST_F(ConsoleMachineTest, StatusCountsWhatTheMachineHasRefused) {
  machine_.Write(0, 314, 9);
  machine_.Write(0, 315, 30);
  machine_.Write(0, 314, 2);
  machine_.Write(1, 535, 2);
  machine_.Write(2, 284, 9);
  EXPECT_TRUE(Run("status").ends_with(" refused 4"));
}

TEST_F(ConsoleMachineTest, TubesAndKeyMoveMoney) {
  EXPECT_EQ(Run("tubes fill 100"), "ok");
  EXPECT_EQ(Run("tubes empty 60"), "ok");
  EXPECT_EQ(Run("tubes empty 999999"), "error: the tubes do not hold as much");
  EXPECT_EQ(Run("key 20"), "ok");
  EXPECT_EQ(Get(0, 340), 100u);
  EXPECT_EQ(Get(0, 342), 60u);
  EXPECT_EQ(Get(0, 343), 20u);
}

TEST_F(ConsoleMachineTest, ClockIsSetTakenOutAndPutIn) {
  EXPECT_EQ(Run("clock 07:55 2024-03-04"), "ok");
  const std::uint32_t moment[] = {55, 7, 4, 3, 24};
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(Get(0, 320 + i), moment[i]) << i;
  }
  EXPECT_EQ(Run("clock 09:10"), "ok");
  EXPECT_EQ(Get(0, 322), 4u);
  EXPECT_EQ(Run("clock 25:00"), "error: a time such as 08:00, not '25:00'");
  EXPECT_EQ(Run("clock 08:00 4.3.2024"), "error: a date such as 2024-03-04, not '4.3.2024'");
  EXPECT_EQ(Run("clock 08:00 2023-02-29"), "error: a date such as 2024-03-04, not '2023-02-29'");
  EXPECT_EQ(Run("clock 08:00:30"), "error: a time such as 08:00, not '08:00:30'");
  EXPECT_EQ(Get(0, 321), 9u);
  EXPECT_EQ(Run("clock missing"), "ok");
  EXPECT_EQ(Get(0, 317) & 4, 0u);
  EXPECT_EQ(Run("clock 08:00"), "error: no clock is fitted");
  EXPECT_EQ(Run("clock fitted"), "ok");
  EXPECT_EQ(Get(0, 317) & 4, 4u);
}

TEST_F(ConsoleMachineTest, LanguagesAreFourOrEight) {
  EXPECT_EQ(Run("languages 8"), "ok");
  EXPECT_EQ(Get(0, 317), 12u);
  EXPECT_EQ(Run("languages 4"), "ok");
  EXPECT_EQ(Get(0, 317), 4u);
  EXPECT_EQ(Run("languages 5"), "error: 8 or 4, not '5'");
}

TEST_F(ConsoleMachineTest, SpeedMakesTheDayRunFaster) {
  EXPECT_EQ(Run("speed 3600"), "ok");
  Pass(2s);
  EXPECT_EQ(Get(0, 321), 2u);
  EXPECT_EQ(Run("speed 0"), "error: factor must be 1 to 3600, not '0'");
}

TEST_F(ConsoleMachineTest, CustomersComeAtARate) {
  EXPECT_EQ(Run("customers 60"), "ok");
  EXPECT_EQ(Run("customers many"), "error: count must be 0 to 3600, not 'many'");
}

TEST_F(ConsoleMachineTest, TheIdentityOfNode0IsChangedFieldByField) {
  EXPECT_EQ(Run("board-code 17"), "ok");
  EXPECT_EQ(Run("type 257"), "ok");
  EXPECT_EQ(Run("revision 13"), "ok");
  EXPECT_EQ(Run("file-number 2"), "ok");
  EXPECT_EQ(Run("model 20"), "ok");
  const std::pair<std::uint8_t, std::uint8_t> entries[] = {{12, 17}, {13, 1}, {14, 1},
                                                           {11, 13}, {17, 2}, {18, 20}};
  for (const auto& [entry, value] : entries) {
    EXPECT_EQ(Ask(WithSum({0, 2, 0, entry})), (Bytes{value, value})) << int{entry};
  }
}

TEST_F(ConsoleMachineTest, ABoardTakenAwayIsSilentAndLogged) {
  EXPECT_EQ(Run("absent 1"), "ok");
  EXPECT_EQ(Get(0, 147), 19u);
  EXPECT_TRUE(Ask(WithSum({241, 1, 0, 148, 1, 81})).empty());
  EXPECT_EQ(Run("present 1"), "ok");
  EXPECT_FALSE(Ask(WithSum({241, 1, 0, 148, 1, 81})).empty());
}

TEST_F(ConsoleMachineTest, AScenarioOfAMissingFileIsRefused) {
  EXPECT_EQ(Run("scenario /nowhere"), "error: /nowhere: cannot be read");
  EXPECT_EQ(Run("scenario stop"), "ok");
}

TEST_F(ConsoleMachineTest, AScenarioNeitherWaitsNorBeginsAScenario) {
  const TempFolder folder;
  const std::string day = (folder / "day").string();
  std::ofstream(day) << "scenario " << day << "\n";
  EXPECT_EQ(Run("scenario " + day), "error: " + day + ":1: 'scenario' has no place in a scenario");
  std::ofstream(day) << "at 08:00 wait 5\n";
  EXPECT_EQ(Run("scenario " + day), "error: " + day + ":1: 'wait' has no place in a scenario");
}

TEST_F(ConsoleMachineTest, HelpNamesEachCommandWithItsArguments) {
  const std::string list = CommandList();
  for (const char* name :
       {"vend", "customers", "alarm", "exhaust", "service", "break", "mend", "door", "tubes", "key", "clock",
        "languages", "speed", "scenario", "model", "revision", "quit"}) {
    EXPECT_NE(list.find("\n  " + std::string(name)), std::string::npos) << name;
    EXPECT_TRUE(Run("help " + std::string(name)).starts_with("ok ")) << name;
  }
  EXPECT_EQ(list.find(" \n"), std::string::npos);
}

}  // namespace
}  // namespace machine
