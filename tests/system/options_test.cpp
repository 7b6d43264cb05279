// SPDX-License-Identifier: GPL-3.0-or-later
// The small forms: preventive actions, machine codes, the information window.
#include <QLabel>
#include <QMenuBar>
#include <QTest>
#include <algorithm>

#include "shell/application.h"
#include "store/parameter_table.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

class Azione : public OneForm {
 protected:
  void ConnectAndUnlock() {
    ConnectAndOpen("smnuAzione", "FrmAzione");
    EXPECT_FALSE(Box(0).isVisible());
    Await([&] { return Box(0).isVisible(); }, "the counts to unlock");
  }
};

TEST_F(Azione, ShowsTheCountsOfTheMachine) {
  ConnectAndUnlock();
  const char* const counts[] = {"30000", "20000", "50000", "1000", "5000", "40000", "8000"};
  for (int n = 0; n < 7; ++n) {
    EXPECT_EQ(Text(QString("Label10(%1)").arg(n)), counts[n]);
    EXPECT_EQ(Box(n).text(), counts[n]);
  }
}

TEST_F(Azione, ACountThatIsTypedReachesTheMachineAndItsMirror) {
  ConnectAndUnlock();
  Enter(Box(5), "65535");
  EXPECT_EQ(Text("Label10(5)"), "40000") << "the display waits for the machine";
  AwaitHeld(1, 49, 65535);
  AwaitHeld(1, 527, 65535);
  Await([&] { return Text("Label10(5)") == "65535"; }, "the label to follow");
  Enter(Box(0), "0");
  AwaitHeld(1, 553, 0);
  AwaitHeld(1, 557, 0);
  Await([&] { return Text("Label10(0)") == "0"; }, "the label to follow");
}

TEST_F(Azione, ABoardThatIsTakenAwayLocksTheFormUntilItIsBack) {
  ConnectAndUnlock();
  machine().Command("absent 1");
  Await([&] { return !Box(0).isVisible(); }, "the form to lock");
  EXPECT_EQ(Text("Label10(2)"), "50000");
  machine().Command("present 1");
  Await([&] { return Box(0).isVisible(); }, "the form to unlock");
}

TEST_F(Azione, ClosingLeavesNoRecordSubscribed) {
  ConnectAndUnlock();
  CloseLeavesNothingSubscribed();
}

class Password : public OneForm {
 protected:
  void ConnectAndAwaitCodes() {
    ConnectAndOpen("smnuPassword", "FrmPassword");
    Await([] { return ParamIsFresh(1, 0) && ParamIsFresh(2, 0) && ParamIsFresh(3, 0); }, "the codes");
  }
};

TEST_F(Password, ShowsTheCodesOfTheMachine) {
  ConnectAndAwaitCodes();
  EXPECT_EQ(Box(0).text(), "12345");
  EXPECT_EQ(Box(1).text(), "54321");
  EXPECT_EQ(Box(2).text(), "1234");
}

TEST_F(Password, ACodeReachesTheMachineAndItsMirror) {
  ConnectAndAwaitCodes();
  Enter(Box(1), "99999");
  AwaitHeld(0, 3, 99999);
  AwaitHeld(0, 205, 99999);
}

TEST_F(Password, LeavingABoxSendsItsCode) {
  ConnectAndAwaitCodes();
  Box(2).setFocus();
  Box(2).setText("4711");
  Box(0).setFocus();
  AwaitHeld(0, 2, 4711);
  AwaitHeld(0, 204, 4711);
}

TEST_F(Password, ANegativeCodeSendsTheOldOneAgain) {
  ConnectAndAwaitCodes();
  ASSERT_TRUE(machine().Set(0, 203, 1));
  Enter(Box(0), "-5");
  AwaitHeld(0, 203, 12345);
  EXPECT_EQ(Box(0).text(), "12345");
  EXPECT_EQ(machine().Get(0, 1), 12345);
}

TEST_F(Password, StaysOpenWithoutTheBoardOfTheHotDrinks) {
  ConnectAndAwaitCodes();
  machine().Command("absent 1");
  Enter(Box(2), "42");
  AwaitHeld(0, 2, 42);
}

TEST_F(Password, ClosingLeavesNoRecordSubscribed) {
  ConnectAndAwaitCodes();
  CloseLeavesNothingSubscribed();
}

TEST_F(OneForm, AClickInTheMenuBarShowsTheInformationWindow) {
  DressApplication();
  Connect();
  QMenuBar& bar = *window().menuBar();
  QTest::mouseClick(&bar, Qt::LeftButton, {},
                    bar.actionGeometry(window().findChild<QAction*>("mnuVer")).center());
  form_ = window().findChild<QWidget*>("FrmInfo");
  ASSERT_NE(form_, nullptr);
  EXPECT_TRUE(form_->isVisible());
  EXPECT_EQ(Text("Label1(1)"), "Rev. " + QCoreApplication::applicationVersion());
  CloseLeavesNothingSubscribed();
}

}  // namespace
}  // namespace dosmara
