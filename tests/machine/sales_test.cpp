// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/sales.h"

#include "machine_fixture.h"

namespace machine {
namespace {

// Price 1 is 40, price 2 is 45, price 31 is 210; coins of 5, 10, 20, 50, 100 and 200. Selection 1 and
// position 11 sell at price 1, selection 2 and position 12 at price 2.
class SalesTest : public MachineTest {
 protected:
  SalesTest() {
    Set(0, 317, 4);
    Set(0, 321, 12);
    machine_.alarms().Clear();
    const std::uint32_t coins[] = {5, 10, 20, 50, 100, 200};
    for (int channel = 0; channel < 6; ++channel) {
      Set(0, 4 + channel, coins[channel]);
    }
    Set(0, 12, 40);
    Set(0, 13, 45);
    Set(0, 367, 210);
    Set(0, 44, 5);
    Set(0, 45, 7);
    Set(0, 42, 5);
    Set(0, 43, 10);
    Set(0, 74, 15);
    Set(0, 85, 255);
    Set(0, 79, 250);
    Set(0, 83, 32);
    Set(0, 84, 4 + 8 + 16);
    Set(1, 2, 1);
    Set(1, 28, 5);
    for (const int record : {34, 35, 36}) {
      Set(1, record, 255);
    }
    Set(1, 38, 1);
    for (int selection = 0; selection < 22; ++selection) {
      Set(1, 148 + selection, 40);
    }
    for (const int node : {2, 3}) {
      Set(node, 2, 1);
    }
  }

  // What one customer is told; the drink is handed out meanwhile.
  std::string Vend(const Order& order, std::optional<std::uint32_t> paid = {},
                   Payment payment = Payment::kCoins) {
    const std::string refusal = machine_.sales().Vend(order, payment, paid);
    Pass(5s);
    return refusal;
  }
  void ExpectCounts(std::initializer_list<std::pair<int, std::uint32_t>> records) {
    for (const auto& [record, value] : records) {
      EXPECT_EQ(Get(0, record), value) << record;
    }
  }
};

TEST_F(SalesTest, APaidDrinkCountsWhenItIsHandedOut) {
  EXPECT_EQ(machine_.sales().Vend({}, Payment::kCoins, 40), "");
  Pass(1s);
  EXPECT_EQ(Get(0, 317), 6u) << "the machine dispenses";
  ExpectCounts({{123, 0}, {127, 0}});
  Pass(2s);
  ExpectCounts({{123, 1}, {124, 1}, {125, 0}, {126, 0}, {127, 40}, {128, 40}, {129, 0}, {130, 0}, {131, 0}});
  EXPECT_EQ(Get(1, 60), 1u);
  EXPECT_EQ(Get(1, 126), 0u);
}

TEST_F(SalesTest, EachSelectionAndPositionHasItsOwnCounters) {
  for (const int selection : {0, 15, 16, 21}) {
    EXPECT_EQ(Vend({.index = selection}), "");
    EXPECT_EQ(Get(1, 60 + selection), 1u);
    EXPECT_EQ(Vend({.index = selection}, {}, Payment::kFree), "");
    EXPECT_EQ(Get(1, 82 + selection), 1u);
  }
  for (const int node : {2, 3}) {
    for (const int position : {0, 47}) {
      EXPECT_EQ(Vend({.node = node, .index = position}), "");
      EXPECT_EQ(Get(node, 71 + position), 1u);
      EXPECT_EQ(Vend({.node = node, .index = position}, {}, Payment::kFree), "");
      EXPECT_EQ(Get(node, 119 + position), 1u);
    }
  }
  ExpectCounts({{123, 8}, {124, 8}, {125, 8}});
}

TEST_F(SalesTest, CoinsAreCountedByChannel) {
  Vend({.index = 1}, 85);
  ExpectCounts({{107, 1}, {108, 1}, {109, 1}, {110, 1}, {111, 0}, {112, 0}});
}

TEST_F(SalesTest, ChangeComesOutOfTheTubesAndIsNoTakings) {
  Vend({}, 100);
  ExpectCounts({{128, 40}, {130, 0}, {339, 100}, {341, 60}});
}

TEST_F(SalesTest, WithoutAChangerWhatIsLeftOverIsOverpay) {
  Set(0, 83, 0);
  Vend({}, 100);
  ExpectCounts({{127, 40}, {128, 40}, {130, 60}, {332, 60}, {341, 0}});
}

TEST_F(SalesTest, ChangeAboveItsLimitIsOverpay) {
  Set(0, 79, 59);
  Vend({}, 100);
  ExpectCounts({{130, 60}});
  Set(0, 79, 60);
  Vend({}, 100);
  ExpectCounts({{130, 60}, {341, 60}});
}

TEST_F(SalesTest, EmptyTubesGiveNoChangeAndAnAlarm) {
  EXPECT_TRUE(machine_.till().EmptyTubes(5000));
  Set(0, 361, 2);
  Vend({}, 100);
  ExpectCounts({{130, 60}, {341, 0}, {147, 18}});
}

TEST_F(SalesTest, TheFlowsOfTheTubesAreMdbOnly) {
  Set(0, 84, 1);
  Vend({}, 100);
  ExpectCounts({{128, 40}, {339, 0}, {341, 0}});
}

TEST_F(SalesTest, TheTechniciansMoneyAndTheKeysHaveFlowsOfTheirOwn) {
  machine_.till().FillTubes(70);
  EXPECT_TRUE(machine_.till().EmptyTubes(30));
  EXPECT_FALSE(machine_.till().EmptyTubes(100000));
  machine_.till().LoadKey(90);
  Vend({}, {}, Payment::kKey);
  ExpectCounts({{339, 0}, {340, 70}, {341, 0}, {342, 30}, {343, 90}, {344, 40}, {128, 40}, {107, 0}});
}

TEST_F(SalesTest, WithoutAnAmountTheNearestSumIsPutIn) {
  Set(0, 12, 43);
  Vend({});
  ExpectCounts({{128, 43}, {339, 45}, {341, 2}});
}

TEST_F(SalesTest, RefusesTooLittleAndWhatNoAcceptedCoinsMake) {
  EXPECT_EQ(Vend({}, 35), "the price is 40");
  EXPECT_EQ(Vend({}, 41), "no accepted coins make that amount");
  Set(0, 85, 2);
  EXPECT_EQ(Vend({}, 45), "no accepted coins make that amount");
  EXPECT_EQ(Vend({}, 50), "");
  Set(0, 85, 0);
  EXPECT_EQ(Vend({}), "no accepted coins make that amount");
  ExpectCounts({{123, 1}});
}

TEST_F(SalesTest, FreeOfChargeCountsAsFreeAndTakesNoMoney) {
  Set(1, 589, 1);
  Vend({}, 100);
  ExpectCounts({{123, 0}, {125, 1}, {128, 0}, {339, 0}, {111, 0}});
  EXPECT_EQ(Get(1, 82), 1u);
}

TEST_F(SalesTest, AJugIsPaidByTheCupAndCountedAsAJug) {
  EXPECT_EQ(Vend({.jug = true}), "");
  ExpectCounts({{131, 1}, {123, 0}, {128, 200}});
  EXPECT_EQ(Get(1, 104), 1u);
  EXPECT_EQ(Get(1, 60), 0u);
  EXPECT_EQ(Vend({.index = 1, .jug = true}), "the selection has no jug");
}

TEST_F(SalesTest, ExtrasCostMoreAndAreCounted) {
  Vend({.extra_sugar = true});
  ExpectCounts({{128, 45}, {336, 1}});
  Vend({.extra_milk = true});
  ExpectCounts({{128, 95}, {337, 1}});
  Vend({.no_cup = true});
  ExpectCounts({{128, 120}, {338, 1}, {129, 15}});
}

TEST_F(SalesTest, ExtrasThatAreNotEnabledAreRefused) {
  Set(0, 84, 255 - 8 - 16);
  EXPECT_EQ(Vend({.extra_milk = true}), "extra milk is not enabled");
  EXPECT_EQ(Vend({.no_cup = true}), "a sale without a cup is not enabled");
}

TEST_F(SalesTest, WithoutCupsTheMachineFillsJugsAndCustomersCups) {
  machine_.supplies().Exhaust(Supply::kCups);
  EXPECT_EQ(Vend({}), "what is missing or full: cups");
  EXPECT_EQ(Vend({.jug = true}), "");
  EXPECT_EQ(Vend({.no_cup = true}), "");
}

TEST_F(SalesTest, OnlyIncludedSelectionsAreSold) {
  Set(1, 36, 31);
  EXPECT_EQ(Vend({.index = 21}), "the selection is not included");
  EXPECT_EQ(Vend({.index = 20}), "");
}

TEST_F(SalesTest, NothingIsSoldWhileTheMachineIsBusyOrOpen) {
  machine_.sales().Vend({}, Payment::kCoins, {});
  EXPECT_EQ(Vend({}), "the machine is dispensing");
  machine_.inputs().SetDoorOpen(true);
  EXPECT_EQ(Vend({}), "the door is open");
  ExpectCounts({{123, 1}});
}

TEST_F(SalesTest, ASaleThatFailsGivesTheMoneyBack) {
  Set(1, 32, 2);
  machine_.defects().Break("pump");
  EXPECT_EQ(Vend({}, 100), "");
  ExpectCounts({{123, 0}, {128, 0}, {111, 0}, {339, 0}, {147, 13}});
}

TEST_F(SalesTest, ASaleCutShortByARestartIsLost) {
  machine_.sales().Vend({}, Payment::kCoins, {});
  machine_.Restart();
  Pass(10s);
  ExpectCounts({{123, 0}, {128, 0}});
}

TEST_F(SalesTest, ClearingTheFlowsByZeroesKeepsTheMoneyInTheTubes) {
  Vend({}, 100);
  for (int record = 339; record <= 344; ++record) {
    Write(record, 0);
  }
  ExpectCounts({{339, 0}, {341, 0}, {123, 1}, {127, 40}, {128, 40}});
  EXPECT_TRUE(machine_.till().EmptyTubes(5040));
}

TEST_F(SalesTest, CustomersComeByThemselvesWhenAsked) {
  Pass(2h);
  ExpectCounts({{123, 0}});
  machine_.sales().SetCustomers(60);
  Pass(2h);
  EXPECT_GT(Get(0, 123), 60u);
  EXPECT_LT(Get(0, 123), 180u);
}

TEST_F(SalesTest, TheSameSeedBringsTheSameCustomers) {
  machine_.sales().SetCustomers(60);
  Pass(1h);
  Machine other(PlainBoards(), 1);
  for (int node = 0; node < 4; ++node) {
    for (int record = 1; record <= (node == 0 ? 100 : 58); ++record) {
      other.board(node).Set(record, Get(node, record));
    }
  }
  for (int selection = 0; selection < 22; ++selection) {
    other.board(1).Set(148 + selection, 40);
  }
  other.sales().SetCustomers(60);
  other.AdvanceTo(machine_.now());
  for (int selection = 0; selection < 22; ++selection) {
    EXPECT_EQ(other.board(1).Get(60 + selection), Get(1, 60 + selection)) << selection;
  }
}

class TariffTest : public SalesTest {
 protected:
  Cost CostOf(const Order& order) { return Tariff(boards_, calendar_).CostOf(order); }

  Boards boards_ = PlainBoards();
  Calendar calendar_{boards_};
};

TEST_F(TariffTest, EveryPriceOfTheListIsFound) {
  for (std::uint32_t number = 0; number < 50; ++number) {
    const int record = static_cast<int>(number < 30 ? 12 + number : 337 + number);
    boards_[0].Set(record, 100 + number);
    boards_[1].Set(1, number);
    boards_[3].Set(48, number);
    EXPECT_EQ(CostOf({}).price, 100 + number);
    EXPECT_EQ(CostOf({.node = 3, .index = 47}).price, 100 + number);
  }
}

TEST_F(TariffTest, AllAtPrice1KnowsNoOtherPrice) {
  boards_[0].Set(12, 40);
  boards_[0].Set(13, 45);
  boards_[1].Set(1, 1);
  EXPECT_EQ(CostOf({}).price, 45u);
  boards_[0].Set(83, 1);
  EXPECT_EQ(CostOf({}).price, 40u);
}

TEST_F(TariffTest, TheDiscountIsGivenWithinItsBands) {
  boards_[0].Set(317, 4);
  boards_[0].Set(13, 45);
  boards_[0].Set(45, 7);
  boards_[1].Set(1, 1);
  const std::pair<int, std::uint32_t> bands[] = {{99, 15}, {100, 8},  {103, 0},  {104, 9},
                                                 {101, 0}, {102, 15}, {105, 30}, {106, 16}};
  for (const auto& [record, value] : bands) {
    boards_[0].Set(record, value);
  }
  struct {
    std::uint32_t hour, minute, price;
  } const moments[] = {{8, 14, 45},  {8, 15, 38}, {8, 59, 38},  {9, 0, 45},
                       {14, 59, 45}, {15, 0, 38}, {16, 29, 38}, {16, 30, 45}};
  for (const auto& moment : moments) {
    boards_[0].Set(321, moment.hour);
    boards_[0].Set(320, moment.minute);
    EXPECT_EQ(CostOf({}).price, moment.price) << moment.hour << ":" << moment.minute;
    EXPECT_EQ(CostOf({}).discount, 45 - moment.price);
  }
  boards_[0].Set(321, 8);
  boards_[0].Set(320, 30);
  boards_[0].Set(367, 210);
  boards_[0].Set(74, 15);
  boards_[1].Set(1, 30);
  EXPECT_EQ(CostOf({}).price, 210u) << "prices from 31 up have no discount of their own";
  boards_[1].Set(1, 1);
  EXPECT_EQ(CostOf({}).price, 38u);
  boards_[0].Set(317, 0);
  EXPECT_EQ(CostOf({}).price, 45u) << "a machine without a clock has no bands";
}

TEST_F(TariffTest, ADiscountNeverPaysOut) {
  boards_[0].Set(12, 10);
  boards_[0].Set(74, 30);
  EXPECT_EQ(CostOf({.no_cup = true}).price, 0u);
  EXPECT_EQ(CostOf({.no_cup = true}).discount, 10u);
}

TEST(Coins, AreTheFewestThatMakeTheSum) {
  EXPECT_EQ(CoinsFor(60, false, {5, 20, 30}), (Coins{0, 0, 2}));
  EXPECT_EQ(CoinsFor(40, false, {10, 25, 0}), (Coins{4}));
  EXPECT_EQ(CoinsFor(0, false, {10}), (Coins{}));
}

TEST(Coins, ThatCannotMakeTheSumMakeTheNextOneIfAsked) {
  EXPECT_EQ(CoinsFor(43, false, {20, 50}), std::nullopt);
  EXPECT_EQ(CoinsFor(43, true, {20, 50}), (Coins{0, 1}));
  EXPECT_EQ(CoinsFor(10, true, {}), std::nullopt);
  EXPECT_EQ(CoinsFor(1000001, true, {1}), std::nullopt);
}

}  // namespace
}  // namespace machine
