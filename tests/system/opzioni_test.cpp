// SPDX-License-Identifier: GPL-3.0-or-later
// The options on the form and in the machine.
#include <QAbstractButton>
#include <QElapsedTimer>
#include <QTest>
#include <algorithm>

#include "controls/echo_mark.h"
#include "controls/selector.h"
#include "controls/two_position_switch.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

class Opzioni : public OneForm {
 protected:
  void ConnectAndUnlock() {
    ConnectAndOpen("smnuOpzioni", "FrmOpzioni");
    QElapsedTimer since_click;
    since_click.start();
    EXPECT_FALSE(Payment().isEnabled());
    Await([&] { return Payment().isEnabled(); }, "the options to unlock");
    RecordProperty("click_to_unlocked_ms", static_cast<int>(since_click.elapsed()));
    AwaitAllArrived();
    RecordProperty("click_to_all_shown_ms", static_cast<int>(since_click.elapsed()));
  }

  Selector& Payment() { return On<Selector>("SlswitchX5"); }
  Selector& Point() { return On<Selector>("SlswitchX2"); }
  QAbstractButton& Switch(int n) { return On<QAbstractButton>(QString("SwitchX1(%1)").arg(n)); }
  static void Choose(Selector& selector, int position) {
    QTest::keyClick(&selector, Qt::Key_Home);
    while (selector.Position() < position) {
      QTest::keyClick(&selector, Qt::Key_Right);
    }
  }
  void AwaitHeldTwice(int node, int record, int mirror, double value) {
    AwaitHeld(node, record, value);
    AwaitHeld(node, mirror, value);
  }
  // Chooses tokens, which leaves the decimal point to the operator.
  void ChooseTokens() {
    Choose(Payment(), 0);
    AwaitHeldTwice(0, 84, 286, 32);
    Await([&] { return Point().isEnabled(); }, "the decimal point to open");
  }
};

TEST_F(Opzioni, ShowsWhatTheMachineHolds) {
  ConnectAndUnlock();
  EXPECT_EQ(Payment().Position(), 3);
  EXPECT_EQ(Point().Position(), 2);
  EXPECT_FALSE(Point().isEnabled());
  EXPECT_TRUE(Switch(16).isChecked());
  EXPECT_TRUE(Switch(14).isChecked());
  EXPECT_TRUE(Switch(24).isChecked());
  EXPECT_FALSE(Switch(11).isChecked());
  EXPECT_EQ(Box(0).text(), "100001");
  EXPECT_EQ(Text("Label10(2)"), "9.0");
  EXPECT_EQ(Text("Label7(0)"), "1.4");
  EXPECT_EQ(Text("Label7(1)"), "1.2");
  EXPECT_EQ(Text("Label7(3)"), "1.1");
}

TEST_F(Opzioni, OneOfEachKindReachesTheMachineAndItsMirror) {
  ConnectAndUnlock();
  Switch(11).click();
  AwaitHeldTwice(1, 47, 525, 21);
  Switch(20).click();
  AwaitHeldTwice(3, 59, 274, 10);
  Choose(On<Selector>("SlswitchX4"), 1);
  AwaitHeldTwice(0, 78, 280, 1);
  Enter(On<QLineEdit>("Text2(2)"), "4,9");
  AwaitHeldTwice(1, 33, 511, 50);
  AwaitText("Label10(2)", "5.0");
  Enter(Box(0), "1000000");
  AwaitHeld(0, 132, 100000);
  Box(1).setFocus();
  Box(1).setText("65535");
  Box(2).setFocus();
  AwaitHeld(0, 133, 65535);
}

TEST_F(Opzioni, TheDecimalPointIsTakenOnceTheMachineReportsIt) {
  ConnectAndUnlock();
  ChooseTokens();
  Choose(Point(), 1);
  AwaitHeldTwice(0, 76, 278, 1);
  const auto taken = [&] {
    const auto marks = form_->findChildren<EchoMark*>();
    return std::ranges::count(marks, EchoMark::State::kTaken, &EchoMark::state) == 2;
  };
  Await(taken, "the payment system and the decimal point to be taken");
  EXPECT_EQ(Point().Position(), 1);
}

TEST_F(Opzioni, AnotherDecimalPointRedrawsThePrices) {
  ConnectAndUnlock();
  ChooseTokens();
  Click("ssmnuImposta");
  QWidget* prices = window().findChild<QWidget*>("FrmPrezzi");
  ASSERT_NE(prices, nullptr);
  const auto shows = [&](const QString& text) {
    return prices->findChild<QLabel*>("Label1(0)")->text().section('.', 1).size() == text.size();
  };
  Await([&] { return shows("00"); }, "two decimals");
  Choose(Point(), 3);
  Await([&] { return shows("000"); }, "three decimals");
}

TEST_F(Opzioni, TwoFormsOnOneByteNeverUndoEachOther) {
  ConnectAndUnlock();
  Click("ssmnuImposta");
  QWidget* prices = window().findChild<QWidget*>("FrmPrezzi");
  ASSERT_NE(prices, nullptr);
  auto& all_at_price_1 = *prices->findChild<TwoPositionSwitch*>("Switch1");
  Await([&] { return all_at_price_1.isEnabled() && all_at_price_1.IsKnown(); }, "the prices to unlock");
  ASSERT_EQ(machine().Get(0, 83), 34);
  all_at_price_1.click();
  Switch(13).click();
  AwaitHeldTwice(0, 83, 285, 34 + 1 + 4);
  Switch(14).click();
  AwaitHeldTwice(0, 83, 285, 32 + 1 + 4);
  all_at_price_1.click();
  AwaitHeldTwice(0, 83, 285, 32 + 4);
}

TEST_F(Opzioni, ABoardThatIsTakenAwayClosesItsOptionsUntilItIsBack) {
  ConnectAndUnlock();
  machine().Command("absent 2");
  Await([&] { return !Switch(18).isEnabled(); }, "the options of the unit to close");
  EXPECT_FALSE(Switch(12).isEnabled());
  EXPECT_TRUE(Switch(23).isEnabled());
  machine().Command("present 2");
  Await([&] { return Switch(18).isEnabled(); }, "the options of the unit to open");
}

TEST_F(Opzioni, ClosingLeavesNoRecordSubscribed) {
  ConnectAndUnlock();
  CloseLeavesNothingSubscribed();
}

}  // namespace
}  // namespace dosmara
