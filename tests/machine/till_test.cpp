// SPDX-License-Identifier: GPL-3.0-or-later
// What each payment system takes and gives back.
#include "machine/till.h"

#include "machine/board_files.h"
#include "machine_fixture.h"

namespace machine {
namespace {

// Selection 1 costs 40; coins of 5, 10, 20, 50, 100 and 200, and one of 25 on channel 7; tokens of 50, 100
// and 200.
class TillTest : public MachineTest {
 protected:
  TillTest() {
    machine_.alarms().Clear();
    const std::uint32_t coins[] = {5, 10, 20, 50, 100, 200, 25};
    for (int channel = 0; channel < 7; ++channel) {
      Set(0, 4 + channel, coins[channel]);
    }
    const std::uint32_t tokens[] = {50, 100, 200};
    for (int token = 0; token < 3; ++token) {
      Set(0, 347 + token, tokens[token]);
    }
    Set(0, 12, 40);
    Set(0, 79, 500);
    Set(0, 83, 32);
    Set(0, 84, 4);
    Set(0, 85, 255);
    Set(0, 355, 15);
    Set(1, 32, 1);
    Set(1, 34, 1);
    Set(1, 148, 40);
  }

  std::string Vend(Payment payment, std::optional<std::uint32_t> amount = {}) {
    const std::string refusal = machine_.sales().Vend({}, payment, amount);
    Pass(5s);
    return refusal;
  }
  void ExpectCounts(std::initializer_list<std::pair<int, std::uint32_t>> records) {
    for (const auto& [record, value] : records) {
      EXPECT_EQ(Get(0, record), value) << record;
    }
  }
  void ExpectFlowsStandStill() {
    for (int record = 339; record <= 344; ++record) {
      EXPECT_EQ(Get(0, record), 0u) << record;
    }
  }
};

TEST_F(TillTest, OnTokensOnlyChannel7TakesMoneyAtItsValue) {
  Set(0, 84, 32 + 64);
  Set(0, 85, 0);
  EXPECT_EQ(Vend(Payment::kCoins, 40), "no accepted coins make that amount");
  EXPECT_EQ(Vend(Payment::kCoins), "");
  ExpectCounts({{113, 2}, {107, 0}, {109, 0}, {128, 40}, {130, 10}, {127, 40}, {124, 1}});
  for (const Payment payment : {Payment::kBill, Payment::kToken, Payment::kKey}) {
    EXPECT_NE(Vend(payment), "");
  }
  ExpectFlowsStandStill();
}

TEST_F(TillTest, G13TakesCoinsOnAllItsChannelsAndGivesChange) {
  Set(0, 84, 1);
  EXPECT_EQ(Vend(Payment::kCoins, 25 + 20), "");
  ExpectCounts({{113, 1}, {109, 1}, {128, 40}, {130, 0}});
  EXPECT_EQ(Vend(Payment::kBill), "the payment system takes no bills");
  EXPECT_EQ(Vend(Payment::kToken), "the payment system takes no tokens");
  EXPECT_EQ(Vend(Payment::kKey), "the payment system takes no keys");
  EXPECT_EQ(machine_.till().LoadKey(10), "the payment system loads no keys");
  machine_.till().FillTubes(10);
  EXPECT_TRUE(machine_.till().EmptyTubes(10));
  ExpectFlowsStandStill();
}

TEST_F(TillTest, ExecutiveCountsSalesButNoCoinAndNoChange) {
  for (const std::uint32_t mode : {2u, 2u + 64u, 2u + 128u, 1u + 2u}) {
    Set(0, 84, mode);
    EXPECT_EQ(Vend(Payment::kCoins, 100), "");
  }
  EXPECT_EQ(Vend(Payment::kCoins, 39), "the price is 40");
  EXPECT_EQ(Vend(Payment::kKey), "");
  ExpectCounts({{124, 5}, {128, 200}, {130, 0}, {332, 0}});
  for (int channel = 0; channel < 16; ++channel) {
    EXPECT_EQ(Get(0, 107 + channel), 0u) << channel;
  }
  EXPECT_EQ(Vend(Payment::kBill), "the payment system takes no bills");
  ExpectFlowsStandStill();
}

TEST_F(TillTest, MdbStandsAboveTheOtherSystems) {
  Set(0, 84, 7);
  EXPECT_EQ(Vend(Payment::kCoins, 50), "");
  ExpectCounts({{110, 1}, {339, 50}, {341, 10}});
}

TEST_F(TillTest, AcceptedChannelsLimitTheCoins) {
  Set(0, 85, 255 - 8);
  EXPECT_EQ(Vend(Payment::kCoins, 50), "");
  ExpectCounts({{110, 0}, {113, 2}});
}

// Bills are larger than the one byte of a plain record: a machine with its own boards, where selection 1
// costs 40 and channels 1 to 4 of the bills are open.
TEST(Bills, AreTakenByTheirChannelsAndStayOutOfTheTubes) {
  Machine machine(LoadBoards(MACHINE_BOARDS), 1);
  const auto vend = [&](std::optional<std::uint32_t> bill) {
    const std::string refusal = machine.sales().Vend({}, Payment::kBill, bill);
    machine.AdvanceTo(machine.now() + 30s);
    return refusal;
  };
  Board& main = machine.board(0);
  EXPECT_EQ(vend(1000), "");
  EXPECT_EQ(main.Get(128), 40u);
  EXPECT_EQ(main.Get(130), 960u) << "above the largest change";
  EXPECT_EQ(vend({}), "");
  EXPECT_EQ(main.Get(341), 460u);
  EXPECT_EQ(main.Get(339), 0u);
  main.Set(79, 960);
  main.Set(355, 2);
  EXPECT_EQ(vend(500), "no accepted bill has that value");
  EXPECT_EQ(vend({}), "");
  EXPECT_EQ(main.Get(341), 460u + 960u);
  main.Set(355, 0xFF80);
  EXPECT_EQ(vend({}), "no accepted bill has that value");
  EXPECT_TRUE(machine.till().EmptyTubes(5000 - 460 - 960));
  EXPECT_FALSE(machine.till().EmptyTubes(1));
}

TEST_F(TillTest, TheLargestCreditLimitsWhatIsPutIn) {
  Set(0, 345, 99);
  EXPECT_EQ(Vend(Payment::kCoins, 100), "the largest credit is 99");
  EXPECT_EQ(Vend(Payment::kToken, 2), "the largest credit is 99");
  EXPECT_EQ(Vend(Payment::kBill), "the largest credit is 99");
  Set(0, 345, 100);
  EXPECT_EQ(Vend(Payment::kCoins, 100), "");
  Set(0, 363, 70);
  EXPECT_EQ(machine_.till().LoadKey(71), "the largest credit of a key is 70");
  EXPECT_EQ(machine_.till().LoadKey(70), "");
  ExpectCounts({{343, 70}});
}

TEST_F(TillTest, ATokenSellsAtItsValue) {
  EXPECT_EQ(Vend(Payment::kToken, 1), "");
  ExpectCounts({{128, 40}, {130, 10}, {339, 0}, {341, 0}, {343, 0}});
  Set(0, 12, 60);
  EXPECT_EQ(Vend(Payment::kToken, 1), "the price is 60");
  EXPECT_EQ(Vend(Payment::kToken, 2), "");
  ExpectCounts({{128, 100}, {130, 50}});
  EXPECT_EQ(Vend(Payment::kToken, 4), "tokens are 1 to 3");
}

TEST_F(TillTest, ATokensRestIsChangeOrGoesOntoTheKeyIfThatIsSwitchedOn) {
  Set(0, 83, 32 + 8);
  EXPECT_EQ(Vend(Payment::kToken, 1), "");
  ExpectCounts({{341, 10}, {130, 0}});
  Set(0, 83, 32 + 16);
  EXPECT_EQ(Vend(Payment::kToken, 1), "");
  ExpectCounts({{341, 10}, {343, 10}, {130, 0}});
  Set(0, 83, 32 + 8 + 16);
  EXPECT_EQ(Vend(Payment::kToken, 1), "");
  ExpectCounts({{341, 20}, {343, 10}, {130, 0}});
}

TEST_F(TillTest, ExactChangeRefusesASaleWithoutChangeUnlessItIsIgnored) {
  EXPECT_TRUE(machine_.till().EmptyTubes(5000));
  EXPECT_EQ(Vend(Payment::kCoins, 100), "exact change only");
  EXPECT_EQ(Vend(Payment::kCoins, 40), "");
  ExpectCounts({{124, 1}, {130, 0}, {147, 18}});
  EXPECT_TRUE(machine_.till().EmptyTubes(40));
  Set(0, 361, 2);
  EXPECT_EQ(Vend(Payment::kCoins, 100), "");
  ExpectCounts({{124, 2}, {130, 60}});
}

TEST_F(TillTest, ExactChangeCountsForTokensIfThatIsSwitchedOn) {
  EXPECT_TRUE(machine_.till().EmptyTubes(5000));
  Set(0, 83, 32 + 8);
  EXPECT_EQ(Vend(Payment::kToken, 1), "");
  ExpectCounts({{130, 10}});
  Set(0, 83, 32 + 8 + 64);
  EXPECT_EQ(Vend(Payment::kToken, 1), "exact change only");
}

TEST_F(TillTest, ImmediateChangeComesAheadOfTheDrink) {
  machine_.sales().Vend({}, Payment::kCoins, 100);
  Pass(1s);
  ExpectCounts({{341, 0}, {111, 0}, {128, 0}});
  Pass(5s);
  ExpectCounts({{341, 60}, {111, 1}, {128, 40}});
  Set(0, 361, 1);
  machine_.sales().Vend({}, Payment::kCoins, 100);
  ExpectCounts({{341, 120}, {111, 2}, {128, 40}});
  Pass(5s);
  ExpectCounts({{341, 120}, {339, 200}, {111, 2}, {128, 80}});
}

TEST_F(TillTest, ASaleThatFailsAfterItsChangeGivesThePriceBackAsWell) {
  Set(0, 361, 1);
  machine_.defects().Break("pump");
  EXPECT_EQ(Vend(Payment::kCoins, 100), "");
  ExpectCounts({{339, 100}, {341, 100}, {128, 0}, {124, 0}});
  EXPECT_TRUE(machine_.till().EmptyTubes(5000));
  EXPECT_FALSE(machine_.till().EmptyTubes(1));
}

}  // namespace
}  // namespace machine
