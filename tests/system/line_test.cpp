// SPDX-License-Identifier: GPL-3.0-or-later
// The line between tool and machine: plug pulled, machine restarted, another port.
#include <QElapsedTimer>

#include "link/identification.h"
#include "link/link_engine.h"
#include "support/process_figures.h"
#include "system/system_test.h"

namespace dosmara {
namespace {

using Line = SystemTest;

// Of a second, by a sanitized build too.
constexpr std::chrono::microseconds kIdle(250'000);

TEST_F(Line, RecoversWithinASecondOfTheReturnFromAPlugPulledDuringAWrite) {
  ConnectWithDoses();
  Type(0, "87");
  Await([] { return !LinkIdle && ExchControl >= 128; }, "the write");
  machine().Command("unplug");
  Await([&] { return Lamp(4) == 6; }, "the error lamp");
  machine().Command("replug");
  QElapsedTimer since_return;
  since_return.start();
  Await([&] { return Lamp(3) == 5 && Lamp(4) == 3; }, "a reply");
  EXPECT_LE(since_return.elapsed(), 1000);
  Await([&] { return Shown(0).toDouble() == machine().Get(1, 148); }, "the value of the machine");
  Type(0, "88");
  Await([&] { return machine().Get(1, 148) == 88 && Shown(0) == "88"; }, "a write to succeed");
}

TEST_F(Line, LampsTellOfAPlugThatIsPulled) {
  ConnectWithDoses();
  machine().Command("unplug");
  Await([&] { return Lamp(4) == 6 && Lamp(3) == 2; }, "the error lamp");
  for (int flash = 0; flash < 2; ++flash) {
    Await([&] { return Lamp(2) == 1; }, "the transmit lamp to go off");
    EXPECT_EQ(Lamp(4), 6) << "the error lamp stays";
    EXPECT_EQ(Lamp(3), 2);
    Await([&] { return Lamp(2) == 4; }, "the transmit lamp to flash");
    EXPECT_EQ(Lamp(4), 6) << "the error lamp stays";
  }
  EXPECT_EQ(Shown(0), "55") << "the form keeps its values";
  EXPECT_TRUE(screen_.boxes.empty());
}

TEST_F(Line, APulledPlugBurnsNoProcessorTime) {
  ConnectWithDoses();
  machine().Command("unplug");
  EXPECT_LT(ProcessorTimeOfASecond().count(), kIdle.count());
}

TEST_F(Line, AMachineThatIsSilentBurnsNoProcessorTime) {
  ConnectWithDoses();
  machine().Command("mute on");
  Await([&] { return Lamp(4) == 6; }, "the error lamp");
  EXPECT_LT(ProcessorTimeOfASecond().count(), kIdle.count());
}

TEST_F(Line, SurvivesManyShortInterruptions) {
  ConnectWithDoses();
  for (int i = 0; i < 10; ++i) {
    machine().Command("unplug");
    machine().Command("replug");
  }
  Select(3);
  Await([&] { return Shown(0) == "60" && Shown(2) == "3.0"; }, "another selection");
}

TEST_F(Line, AMachineThatRestartsIsFoundAgain) {
  ConnectWithDoses();
  machine().Command("restart");
  Await([&] { return Lamp(4) == 6; }, "the error lamp");
  Await([&] { return Lamp(4) == 3 && Lamp(3) == 5; }, "a reply");
  Type(0, "90");
  Await([&] { return machine().Get(1, 148) == 90 && Shown(0) == "90"; }, "a write to succeed");
}

TEST_F(Line, AMachineThatRestartsDuringADrinkOpensTheForm) {
  ConnectWithDoses();
  auto& complete = Control<QWidget>("Command1(2)");
  QMetaObject::invokeMethod(&complete, "click");
  Await([&] { return (machine().Get(0, 317) == 6); }, "the machine to dispense");
  AwaitRequests(6);
  machine().Command("restart");
  Await([&] { return complete.isEnabled(); }, "the form to open again");
}

TEST_F(Line, AnotherPortIsTakenWhileTheLinkRuns) {
  ConnectWithDoses();
  MachineProcess& other = rig_.StartMachine(2);
  ASSERT_TRUE(other.Set(1, 148, 222));
  Click("mnuCox(2)");
  EXPECT_EQ(PortNumber, 2);
  EXPECT_TRUE(Ticked("mnuCox(2)"));
  EXPECT_FALSE(Ticked("mnuCox(1)"));
  Select(3);
  Select(0);
  Await([&] { return Shown(0) == "222"; }, "the dose of the other machine");
  Type(0, "91");
  Await([&] { return other.Get(1, 148) == 91; }, "the other machine to hold the dose");
  EXPECT_EQ(machine().Get(1, 148), 55) << "the first machine";
}

TEST_F(Line, APortWithoutAMachineLeadsBackToTheOneThatHasOne) {
  ConnectWithDoses();
  Click("mnuCox(3)");
  EXPECT_EQ(PortNumber, 1);
  EXPECT_TRUE(Ticked("mnuCox(1)"));
  EXPECT_FALSE(Ticked("mnuCox(3)"));
  Type(0, "92");
  Await([&] { return machine().Get(1, 148) == 92 && Shown(0) == "92"; }, "the link to go on");
}

}  // namespace
}  // namespace dosmara
