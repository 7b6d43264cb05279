// SPDX-License-Identifier: GPL-3.0-or-later
// The menus by keyboard alone, with a value's bar under the operator's hand.
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>

#include "controls/bar.h"
#include "shell/loaded_forms.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

constexpr int kCount = 553;  // record of node 1 behind the first bar of FrmAzione

class MenuKeys : public OneForm {
 protected:
  // The window in front, with the counts for preventive maintenance read and the focus on the first bar.
  void SetUp() override {
    ConnectAndOpen("smnuAzione", "FrmAzione");
    window().activateWindow();
    Await([&] { return window().isActiveWindow(); }, "the window to become active");
    Await([&] { return ValueBar().isEnabled(); }, "the counts to unlock");
    AwaitRead(1);
    ValueBar().setFocus();
    Await([&] { return ValueBar().hasFocus(); }, "the bar to take the focus");
  }

  Bar& ValueBar() { return On<Bar>("HScroll1(0)"); }
  QMenuBar& Menus() { return *window().menuBar(); }
  QString Highlighted() {
    return Menus().activeAction() != nullptr ? Menus().activeAction()->objectName() : "";
  }
  static bool Popped(const char* menu) {
    return QApplication::activePopupWidget() != nullptr &&
           QApplication::activePopupWidget()->objectName() == menu;
  }
  void AwaitPopup(const char* menu) {
    Await([&] { return Popped(menu); }, menu);
  }
  void AwaitHighlight(const char* entry) {
    Await([&] { return Highlighted() == entry; }, entry);
  }

  // Input through the X server, in the words of xdotool.
  static void Input(const QStringList& words) { ASSERT_EQ(QProcess::execute("xdotool", words), 0); }
  // Presses and releases one key after the other.
  static void Press(const QStringList& keys) { Input(QStringList("key") + keys); }

  void AwaitFocusBack() {
    Await([&] { return ValueBar().hasFocus(); }, "the focus to come back");
    EXPECT_EQ(Highlighted(), "");
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  }
  void AwaitInformationWindow() {
    Await([&] { return FindForm("FrmInfo") != nullptr; }, "the information window");
    const QWidget* frame = FindForm("FrmInfo")->parentWidget();
    Await([&] { return QApplication::focusWidget() == frame; }, "the information window to take the focus");
    AwaitHighlight("");
  }
};

TEST_F(MenuKeys, ReachTheEntryWithoutAMenuAndOpenItsWindow) {
  Press({"F10"});
  AwaitPopup("mnuFile");
  Press({"Left"});
  AwaitHighlight("mnuVer");
  Press({"Return"});
  AwaitInformationWindow();
}

TEST_F(MenuKeys, GiveTheMenuUpInOnePressOnAnEntryWithoutAMenu) {
  Press({"F10", "Left"});
  AwaitHighlight("mnuVer");
  Press({"Escape"});
  AwaitFocusBack();
}

TEST_F(MenuKeys, GiveTheMenuUpInOnePressFromASubmenu) {
  Press({"F10", "Right", "Right", "Right", "Down", "Right"});
  AwaitPopup("smnuPrezzi");
  Press({"Escape"});
  AwaitFocusBack();
}

TEST_F(MenuKeys, ChangeNothingOnTheMachine) {
  const int shown = ValueBar().value();
  const double held = machine().Get(1, kCount);
  Press({"F10", "Left", "Left", "Left", "Left"});
  AwaitPopup("mnuLingue");
  Press({"Escape"});
  AwaitFocusBack();
  EXPECT_EQ(ValueBar().value(), shown);
  AwaitRequests(3);
  EXPECT_EQ(machine().Get(1, kCount), held);
}

TEST_F(MenuKeys, OpenAMenuByItsMnemonic) {
  const QAction& menu = *window().findChild<QMenu*>("mnuLingue")->menuAction();
  Press({QKeySequence::mnemonic(menu.text()).toString().toLower()});
  AwaitPopup("mnuLingue");
  Press({"Escape"});
  AwaitFocusBack();
}

TEST_F(MenuKeys, OpenTheInformationWindowByItsMnemonic) {
  Press({"alt+question"});
  AwaitInformationWindow();
}

TEST_F(MenuKeys, CloseAFormByTheMnemonicOfItsOwnMenu) {
  Click("ssmnuCancella");
  const QAction& close = *FindForm("FrmCancella")->findChild<QAction*>("mnuClose");
  Press({QKeySequence::mnemonic(close.text()).toString().toLower()});
  Await([] { return FindForm("FrmCancella") == nullptr; }, "the form to close");
}

TEST_F(MenuKeys, StayWithTheMenuThatTheMouseHasOpened) {
  const QPoint place = Menus().mapToGlobal(Menus().actionGeometry(Menus().actions().constFirst()).center());
  Input({"mousemove", QString::number(place.x()), QString::number(place.y()), "click", "1"});
  AwaitPopup("mnuFile");
  EXPECT_TRUE(ValueBar().hasFocus());
  Input({"mousemove", "0", "760"});  // off the menus, where it would choose
  Press({"Left"});
  AwaitHighlight("mnuVer");
  Press({"Left"});
  AwaitPopup("mnuCom");
  Press({"Escape"});
  AwaitFocusBack();
}

TEST_F(MenuKeys, CloseAFormThatHasNotTheFocus) {
  QApplication::focusWidget()->clearFocus();
  Press({"ctrl+w"});
  Await([&] { return FindForm("FrmAzione") == nullptr; }, "the form to close");
}

TEST_F(MenuKeys, CloseAFormByTheOtherKeyOnEveryDesktop) {
  Press({"ctrl+F4"});
  Await([&] { return FindForm("FrmAzione") == nullptr; }, "the form to close");
}

}  // namespace
}  // namespace dosmara
