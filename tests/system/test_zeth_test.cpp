// SPDX-License-Identifier: GPL-3.0-or-later
// The test of the Zeth units on their windows and in the machine.
#include <QAbstractButton>
#include <QApplication>
#include <QTest>

#include "store/parameter_table.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

class PeripheralTest : public OneForm {
 protected:
  bool IsOpen() {
    const bool open = On<QWidget>("Label1(0)").isEnabled();
    EXPECT_EQ(On<QWidget>("Command1").isEnabled(), open);
    return open;
  }
  void AwaitOpen() {
    Await([&] { return IsOpen(); }, "the keypad to open");
  }
  static void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
};

TEST_F(PeripheralTest, AProductIsVendedFromTheSectorOfTheUnitThatIsPressed) {
  ConnectAndOpen("ssmnuZeth2", "FrmTestZeth2");
  ASSERT_TRUE(machine().Command("turn 2500"));
  EXPECT_FALSE(IsOpen());
  AwaitOpen();
  Press(Qt::Key_6);
  Press(Qt::Key_8);
  EXPECT_EQ(Text("Label2(1)"), "6 8");
  EXPECT_FALSE(IsOpen());
  Await([&] { return Status("serving") == "product-3:68-tested"; }, "the product");
  Await([&] { return (static_cast<int>(machine().Get(3, 288)) & 127) == 32; }, "the motor of row 6");
  EXPECT_EQ(machine().Get(3, 289), 128);
  EXPECT_EQ(machine().Get(2, 289), 0);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Text("Label2(1)"), "6 8");
  AwaitOpen();
  EXPECT_EQ(Status("serving"), "nothing");
  EXPECT_EQ(Text("Label2(1)"), "_ _");
  form_->parentWidget()->close();
  Click("ssmnuZeth");
  form_ = window().findChild<QWidget*>("FrmTestZeth");
  AwaitOpen();
  Press(Qt::Key_Right);
  Press(Qt::Key_Space);
  Press(Qt::Key_Return);
  Await([&] { return Status("serving") == "product-2:22-tested"; }, "the product of the other unit");
  AwaitOpen();
  CloseLeavesNothingSubscribed();
}

TEST_F(PeripheralTest, AProductThatTheMachineRefusesGivesTheKeypadBack) {
  ConnectAndOpen("ssmnuZeth", "FrmTestZeth");
  AwaitOpen();
  ASSERT_TRUE(machine().Set(2, 290, 1));  // in test mode
  Press(Qt::Key_1);
  Press(Qt::Key_1);
  EXPECT_FALSE(IsOpen());
  AwaitHeld(0, 314, 2);
  AwaitOpen();
  EXPECT_EQ(Text("Label2(1)"), "_ _");
  EXPECT_EQ(Status("serving"), "nothing");
}

TEST_F(PeripheralTest, TheMotorsRunToZeroBehindAClosedKeypad) {
  ConnectAndOpen("ssmnuZeth", "FrmTestZeth");
  AwaitOpen();
  Press(Qt::Key_4);
  On<QAbstractButton>("Command1").click();
  EXPECT_EQ(Text("Label2(1)"), "_ _");
  EXPECT_FALSE(IsOpen());
  AwaitHeld(2, 290, 2);
  EXPECT_EQ(machine().Get(3, 290), 0);
  Await([] { return ParamGet(290, 2) == 2; }, "the status to be read");
  EXPECT_FALSE(IsOpen());
  AwaitOpen();
  EXPECT_EQ(machine().Get(2, 290), 0);
}

TEST_F(PeripheralTest, APositionOfWhichTheLineLosesAPartIsNotRun) {
  ConnectAndOpen("ssmnuZeth", "FrmTestZeth");
  AwaitOpen();
  ASSERT_TRUE(machine().Set(0, 315, 46));  // column 8, as an earlier test has left it
  ASSERT_TRUE(machine().Command("unplug"));
  Press(Qt::Key_3);
  Press(Qt::Key_5);
  Await([] { return (ParamTable[0][315].Flags & kWritePending) == 0; }, "the column to be sent in vain");
  AwaitOpen();
  ASSERT_TRUE(machine().Command("replug"));
  Await([] { return ParamIsFresh(315, 0) && ParamIsFresh(316, 0) && ParamIsFresh(358, 0); }, "the echoes");
  EXPECT_EQ(ParamGet(315, 0), 46);
  Press(Qt::Key_3);
  Press(Qt::Key_5);
  AwaitHeld(0, 315, 43);
  Await([&] { return Status("serving") != "nothing"; }, "the product that is pressed anew");
  EXPECT_EQ(Status("serving"), "product-2:35-tested");
  AwaitOpen();
}

TEST_F(PeripheralTest, AUnitThatIsNotThereStaysClosedUntilItIs) {
  Connect({"--absent", "2"});
  Click("ssmnuZeth");
  form_ = window().findChild<QWidget*>("FrmTestZeth");
  AwaitAllArrived();
  ASSERT_TRUE(machine().Command("vend 3:11 free"));
  const auto dispensing = [] { return (static_cast<int>(ParamGet(317, 0)) & 2) != 0; };
  Await(dispensing, "a foreign vend");
  EXPECT_FALSE(IsOpen());
  Await([&] { return !dispensing(); }, "its end");
  EXPECT_FALSE(IsOpen());
  ASSERT_TRUE(machine().Command("present 2"));
  AwaitOpen();
}

}  // namespace
}  // namespace dosmara
