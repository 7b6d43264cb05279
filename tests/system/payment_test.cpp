// SPDX-License-Identifier: GPL-3.0-or-later
// The payment window: what the machine holds, what a change does to it, the payment systems.
#include "controls/bar.h"
#include "controls/selector.h"
#include "controls/two_position_switch.h"
#include "store/parameter_table.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

class Payment : public OneForm {
 protected:
  void ConnectAndUnlock(int system = 4) {
    Connect();
    ASSERT_TRUE(machine().Set(0, 84, system));
    Click("smnuPagamento");
    form_ = window().findChild<QWidget*>("FrmPagamento");
    ASSERT_NE(form_, nullptr);
    EXPECT_FALSE(On<QWidget>("HScroll10(6)").isEnabled());
    Await([&] { return ParamIsFresh(361, 0) && ParamIsFresh(353, 0) && ParamIsFresh(365, 0); },
          "the records");
  }
  TwoPositionSwitch& Switch(const QString& name) { return On<TwoPositionSwitch>(name); }
  // Changes what a switch shows and waits until record and mirror hold it.
  void Toggle(const QString& name, int record, int mirror, int value) {
    const int position = 1 - Switch(name).Position();
    Switch(name).click();
    AwaitHeld(0, record, value);
    AwaitHeld(0, mirror, value);
    Await([&] { return Switch(name).Position() == position && ParamIsFresh(record, 0); }, "the switch");
  }
};

TEST_F(Payment, ShowsWhatTheMachineHolds) {
  ConnectAndUnlock();
  const char* const coins[] = {"0.05", "0.10", "0.20", "0.50", "1.00", "2.00", "0.25", "5.00"};
  for (int n = 0; n < 8; ++n) {
    EXPECT_EQ(Text(QString("Label10(%1)").arg(n)), coins[n]);
  }
  EXPECT_EQ(Text("Label11(0)"), "5.00");
  EXPECT_EQ(Text("Label11(1)"), "10.00");
  EXPECT_EQ(Text("Label11(2)"), "20.00");
  EXPECT_EQ(Text("Label11(3)"), "60");
  EXPECT_EQ(Text("Label6s(2)"), "2.00");
  EXPECT_EQ(Text("Label8v"), "10.0");
  EXPECT_EQ(Switch("iSwitchSliderX2").Position(), 1);
  On<Selector>("SliderX7").SetPosition(4);
  EXPECT_EQ(Switch("SliderX6").Position(), 0) << "of the bills only four are taken";
  EXPECT_TRUE(On<QWidget>("Frame2").isEnabled());
  EXPECT_FALSE(On<QWidget>("Frame1").isEnabled());
}

TEST_F(Payment, AmountsReachTheMachineAndTheirMirrors) {
  ConnectAndUnlock();
  Enter(On<QLineEdit>("txtMDB(4)"), "123,4");
  EXPECT_EQ(Text("Label11(1)"), "10.00") << "the display waits for the machine";
  AwaitHeld(0, 345, 12340);
  AwaitHeld(0, 346, 12340);
  AwaitText("Label11(1)", "123.40");
  Enter(On<QLineEdit>("txtMDB(1)"), ".75");
  AwaitHeld(0, 347, 75);
  AwaitHeld(0, 350, 75);
  AwaitText("Label6s(0)", "0.75");
  On<Bar>("HScroll11(3)").SetValue(90);
  AwaitHeld(0, 365, 90);
  AwaitHeld(0, 366, 90);
  AwaitText("Label11(3)", "90");
}

TEST_F(Payment, SwitchesAndChannelsReachTheMachineAndTheirMirrors) {
  ConnectAndUnlock();
  Toggle("iSwSliderX3(2)", 83, 285, 34 + 64);
  Toggle("swslExact", 361, 362, 12 + 2);
  On<Selector>("SliderX1").SetPosition(9);
  Toggle("SliderX4", 85, 287, 255 + 512);
  On<Selector>("SliderX7").SetPosition(0);
  Toggle("SliderX6", 355, 356, 14);
}

TEST_F(Payment, AnExecutiveModeOpensItsTimingWhenTheMachineHoldsIt) {
  ConnectAndUnlock(2 + 32);
  Await([&] { return On<QWidget>("SliderX5").isEnabled(); }, "the group of the Executive");
  EXPECT_FALSE(On<QWidget>("scrTP").isEnabled());
  On<Selector>("SliderX5").SetPosition(2);
  EXPECT_FALSE(On<QWidget>("scrTP").isEnabled());
  AwaitHeld(0, 84, 2 + 32 + 128);
  AwaitHeld(0, 286, 2 + 32 + 128);
  Await([&] { return On<QWidget>("scrTP").isEnabled(); }, "the timing");
  Enter(On<QLineEdit>("txtTmPr"), "12,5");
  AwaitHeld(0, 353, 125);
  AwaitHeld(0, 354, 125);
  AwaitText("Label8v", "12.5");
  Toggle("swslResto", 361, 362, 12 + 1);
}

TEST_F(Payment, AMachineOnTokensOpensOneCoin) {
  ConnectAndUnlock(0);
  Await([&] { return On<QWidget>("txtMon(6)").isEnabled(); }, "the open channel");
  EXPECT_FALSE(On<QWidget>("txtMon(5)").isEnabled());
  Enter(On<QLineEdit>("txtMon(6)"), "1");
  AwaitHeld(0, 10, 100);
  AwaitHeld(0, 212, 100);
  AwaitText("Label10(6)", "1.00");
}

// The selling options are bit by bit the business of both windows.
TEST_F(Payment, TwoWindowsOnOneByteKeepEachOthersChanges) {
  ConnectAndUnlock();
  QWidget* const payment = form_;
  Click("ssmnuImposta");
  form_ = window().findChild<QWidget*>("FrmPrezzi");
  ASSERT_NE(form_, nullptr);
  auto& changer = *payment->findChild<TwoPositionSwitch*>("iSwitchSliderX2");
  Await([&] { return Switch("Switch1").isEnabled() && Switch("Switch1").IsKnown(); }, "the prices");
  Switch("Switch1").click();
  changer.click();
  AwaitHeld(0, 83, 3);
  AwaitHeld(0, 285, 3);
  Await([&] { return changer.Position() == 0 && Switch("Switch1").Position() == 1; },
        "both windows to follow");
  changer.click();
  Switch("Switch1").click();
  AwaitHeld(0, 83, 34);
  AwaitHeld(0, 285, 34);
  Await([&] { return changer.Position() == 1 && Switch("Switch1").Position() == 0; }, "both windows");
}

TEST_F(Payment, NewDecimalsRedrawTheAmounts) {
  ConnectAndUnlock();
  machine().Set(0, 76, 1);
  machine().Set(0, 311, 1);
  AwaitText("Label10(7)", "50.0");
  AwaitText("Label6s(0)", "5.0");
}

TEST_F(Payment, ClosingLeavesNoRecordSubscribed) {
  ConnectAndUnlock();
  CloseLeavesNothingSubscribed();
}

}  // namespace
}  // namespace dosmara
