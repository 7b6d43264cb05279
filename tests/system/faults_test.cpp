// SPDX-License-Identifier: GPL-3.0-or-later
// What goes wrong on the wire, by the names that the machine has for it.
#include "link/link_engine.h"
#include "store/parameter_table.h"
#include "support/process_figures.h"
#include "support/pty_line.h"
#include "system/system_test.h"

namespace dosmara {
namespace {

class Faults : public SystemTest {
 protected:
  // Arms a fault and lets it strike out.
  void Strike(const QString& fault) {
    ASSERT_TRUE(machine().Command("fault " + fault).has_value());
    Await([&] { return Status("faults") == "none"; }, "the fault to strike");
  }

  // The cappuccino, as it comes from the factory: every row whose water is on.
  void ExpectCappuccino() {
    Await([&] { return Shown(0) == "60"; }, "coffee water");
    Await([&] { return Shown(1) == "95"; }, "milk water");
    Await([&] { return Shown(2) == "3.0"; }, "milk");
    Await([&] { return Shown(3) == "0.5"; }, "milk delay");
    Await([&] { return Shown(12) == "2.2"; }, "sugar");
    Await([&] { return Unlocked(); }, "the form to be open");
  }

  // The link is as good as new: the error lamp is off and an entry reaches the machine.
  void ExpectRecovered() {
    Await([&] { return Lamp(4) == 3; }, "the error lamp to go off");
    Type(0, "77");
    Await([&] { return machine().Get(1, 148 + 3) == 77; }, "the machine to hold an entry");
    Await([&] { return Shown(0) == "77"; }, "the label to follow");
  }
};

constexpr int kCappuccino = 3;

// Faults that can never make a wrong value pass the check, while a selection is being read.
class WhileReading : public Faults, public testing::WithParamInterface<const char*> {};

TEST_P(WhileReading, EveryValueStaysRight) {
  ConnectWithDoses();
  ASSERT_TRUE(machine().Command(QString("fault ") + GetParam()).has_value());
  Select(kCappuccino);
  ExpectCappuccino();
  Await([&] { return Status("faults") == "none"; }, "the fault to strike out");
  ExpectRecovered();
}

std::string NameOfFault(const testing::TestParamInfo<const char*>& info) {
  return std::string(info.param).substr(0, std::string(info.param).find(' '));
}

// More than five in a row end an exchange without a value.
INSTANTIATE_TEST_SUITE_P(Named, WhileReading,
                         testing::Values("corrupt 12", "surplus 12", "lost 2", "silence 2"), NameOfFault);

// Faults of which a reply carries no trace when its sum is right by chance, while only the status is polled.
class WhilePolling : public Faults, public testing::WithParamInterface<const char*> {};

TEST_P(WhilePolling, TheFormKeepsItsValuesAndTheLinkRecovers) {
  ConnectWithDoses();
  Select(kCappuccino);
  ExpectCappuccino();
  Strike(GetParam());
  AwaitRequests(6);
  ExpectCappuccino();
  ExpectRecovered();
}

INSTANTIATE_TEST_SUITE_P(Named, WhilePolling, testing::Values("noise 8", "late 1", "flood 2"), NameOfFault);

TEST_F(Faults, ABadReplyLightsTheErrorLampUntilTheNextGoodOne) {
  ConnectWithDoses();
  machine().Command("fault corrupt 100%");
  Await([&] { return Lamp(4) == 6; }, "the error lamp");
  machine().Command("fault off");
  Await([&] { return Lamp(4) == 3; }, "the error lamp to go off");
}

TEST_F(Faults, AWriteThatNobodyHearsGivesWayToTheValueOfTheMachine) {
  ConnectWithDoses();
  machine().Command("mute on");
  Type(0, "87");
  Await([] { return !LinkIdle && ExchControl >= 128; }, "the write");
  Await([] { return LinkIdle || ExchControl < 128; }, "the write to be given up");
  machine().Command("mute off");
  Await([] { return ParamIsFresh(148, 1); }, "the value of the machine");
  EXPECT_EQ(ParamGet(148, 1), 55);
  EXPECT_EQ(Shown(0), "55");
  EXPECT_EQ(machine().Get(1, 148), 55);
}

TEST_F(Faults, AWriteWhoseReplyIsLostIsReadBack) {
  ConnectWithDoses();
  machine().Command("fault lost 100%");
  Type(0, "87");
  Await([&] { return machine().Get(1, 148) == 87; }, "the write");
  machine().Command("fault off");
  Await([&] { return Shown(0) == "87"; }, "the value to come back");
}

// A stuck device sends as fast as the tool can read, many times the pace of the line.
TEST_F(Faults, AFloodTakesNoMemory) {
  constexpr std::size_t kFloodBytes = 20'000'000;
  constexpr int kMostGrowth = 8'000;  // kilobytes
  ConnectWithDoses();
  machine().Command("unplug");
  {
    PtyLine stuck(rig_.PortLink(1).toStdString());
    const Bytes garbage(1000, 0x5A);
    const auto flood = [&](std::size_t bytes) {
      std::size_t sent = 0;
      Await([&] { return (sent += stuck.Offer(garbage)) >= bytes; }, "the tool to read");
    };
    flood(kFloodBytes / 10);
    const int before = ResidentMemory("self");
    flood(kFloodBytes);
    EXPECT_LT(ResidentMemory("self") - before, kMostGrowth);
    EXPECT_EQ(Shown(0), "55");
  }
  machine().Command("replug");
  Select(kCappuccino);
  ExpectCappuccino();
}

}  // namespace
}  // namespace dosmara
