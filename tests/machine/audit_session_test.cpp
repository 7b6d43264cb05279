// SPDX-License-Identifier: GPL-3.0-or-later
// What a tool reads and clears of a machine that has sold, frame by frame.
#include <vector>

#include "session_fixture.h"

namespace machine {
namespace {

class AuditSession : public SessionTest {
 protected:
  // Sells and waits until it is handed out.
  void Sell(const Order& order, Payment payment = Payment::kCoins) {
    EXPECT_EQ(machine_.sales().Vend(order, payment, std::nullopt), "");
    Pass(20s);
  }
  // One sale of each kind. Selection 1 costs 0.40, position 1 of both units as much.
  void SellAll() {
    Sell({.index = 0});
    Sell({.index = 0, .extra_sugar = true});
    Sell({.index = 21}, Payment::kFree);
    Sell({.index = 1, .jug = true});
    Sell({.node = 2, .index = 0});
    Sell({.node = 3, .index = 47}, Payment::kKey);
    machine_.till().FillTubes(300);
  }
};

TEST_F(AuditSession, TotalsAndCountersTellWhatWasSold) {
  SellAll();
  EXPECT_EQ(Read(0, 123), 4u) << "paid";
  EXPECT_EQ(Read(0, 124), 4u);
  EXPECT_EQ(Read(0, 125), 1u) << "free";
  EXPECT_EQ(Read(0, 131), 1u) << "jug";
  EXPECT_EQ(Read(0, 336), 1u) << "sugar";
  EXPECT_EQ(Read(0, 127), Read(0, 128));
  // Two coffees, sugar, five cups of selection 2, position 1, and position 48 at price 24.
  EXPECT_EQ(Read(0, 128), 40u + 40 + 5 + 5 * 45 + 40 + 140);
  EXPECT_EQ(Read(1, 60), 2u);
  EXPECT_EQ(Read(1, 103), 1u);
  EXPECT_EQ(Read(1, 105), 1u);
  EXPECT_EQ(Read(2, 71), 1u);
  EXPECT_EQ(Read(3, 118), 1u);
  std::uint32_t coins = 0;
  for (int channel = 0; channel < 16; ++channel) {
    coins += Read(0, 107 + channel);
  }
  EXPECT_GT(coins, 0u);
}

TEST_F(AuditSession, OneClearsWithinTwoSecondsAndKeepsWhatMustSurvive) {
  SellAll();
  const std::uint32_t vends = Read(0, 123);
  const std::uint32_t takings = Read(0, 127);
  const std::uint32_t flow = Read(0, 339);
  Write(0, 314, 1);
  Pass(2s);
  for (const int record : {107, 124, 125, 126, 128, 129, 130, 131, 336, 337, 338}) {
    EXPECT_EQ(Read(0, record), 0u) << record;
  }
  for (const int record : {60, 103, 105, 126}) {
    EXPECT_EQ(Read(1, record), 0u) << record;
  }
  EXPECT_EQ(Read(2, 71), 0u);
  EXPECT_EQ(Read(3, 118), 0u);
  EXPECT_EQ(Read(0, 123), vends);
  EXPECT_EQ(Read(0, 127), takings);
  EXPECT_EQ(Read(0, 339), flow);
  Write(0, 314, 8);
  Pass(2s);
  for (const int record : {123, 127, 332}) {
    EXPECT_EQ(Read(0, record), 0u) << record;
  }
}

TEST_F(AuditSession, ZeroesClearTheSixFlowsAndTheNextSaleCountsAnew) {
  SellAll();
  EXPECT_GT(Read(0, 339), 0u);
  EXPECT_EQ(Read(0, 340), 300u);
  EXPECT_EQ(Read(0, 344), 140u);
  const std::uint32_t takings = Read(0, 128);
  for (int record = 339; record <= 344; ++record) {
    Write(0, record, 0);
  }
  for (int record = 339; record <= 344; ++record) {
    EXPECT_EQ(Read(0, record), 0u) << record;
  }
  EXPECT_EQ(Read(0, 128), takings);
  Sell({.index = 0});
  EXPECT_EQ(Read(0, 339) - Read(0, 341), 40u);
}

TEST_F(AuditSession, AWeekOfCustomersReadsWellEachMinute) {
  machine_.sales().SetCustomers(20);
  std::uint32_t vends = 0;
  for (int minute = 0; minute < 7 * 24 * 60; ++minute) {
    Pass(60s - 2 * 40ms);
    const std::uint32_t now = Read(0, 124);
    ASSERT_GE(now, vends);
    ASSERT_LE(now, vends + 10);
    vends = now;
    ASSERT_GT(Read(1, 542), 60u);
    for (const Supply supply : {Supply::kCups, Supply::kCoffee, Supply::kStirrers, Supply::kGrounds}) {
      if (minute % 1440 == 0) {
        machine_.supplies().Service(supply);
      }
    }
  }
  EXPECT_GT(vends, 1000u);
  EXPECT_EQ(Read(0, 123), vends);
  EXPECT_EQ(Read(0, 127), Read(0, 128));
  EXPECT_EQ(Read(0, 322), 8u) << "the day of the month, which began with its first";
}

class AlarmSession : public SessionTest {
 protected:
  // The codes of the log, newest first, as the tool walks the ring.
  std::vector<std::uint32_t> Codes() {
    std::vector<std::uint32_t> codes;
    int entry = static_cast<int>(Read(0, 86));
    EXPECT_LT(entry, 10);
    for (int row = 0; row < 10; ++row) {
      const std::uint32_t code = Read(0, 147 + 6 * entry);
      if (code > 203) {
        break;
      }
      codes.push_back(code);
      entry = entry == 0 ? 9 : entry - 1;
    }
    return codes;
  }
};

using Log = std::vector<std::uint32_t>;

TEST_F(AlarmSession, TheLogIsEmptyAtFirst) { EXPECT_EQ(Codes(), Log{}); }

TEST_F(AlarmSession, TheLogListsTheNewestFirstAndWraps) {
  machine_.inputs().SetDoorOpen(true);
  EXPECT_EQ(Codes(), Log{7});
  machine_.defects().Break("probe");
  EXPECT_EQ(Codes(), (Log{10, 7}));
  for (std::uint32_t code = 100; code < 112; ++code) {
    machine_.alarms().Raise(code);
  }
  EXPECT_EQ(Codes(), (Log{111, 110, 109, 108, 107, 106, 105, 104, 103, 102}));
}

TEST_F(AlarmSession, AnEntryBearsDateAndTime) {
  struct {
    int record;
    std::uint32_t value;
  } const clock[] = {{326, 14}, {327, 35}, {328, 9}, {329, 11}, {330, 26}};
  for (const auto& field : clock) {
    Write(0, field.record, field.value);
  }
  machine_.alarms().Raise(203);
  const std::uint32_t entry[] = {35, 14, 9, 11, 26, 203};
  for (int field = 0; field < 6; ++field) {
    EXPECT_EQ(Read(0, 142 + field), entry[field]) << field;
  }
}

}  // namespace
}  // namespace machine
