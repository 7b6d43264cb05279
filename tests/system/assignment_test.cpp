// SPDX-License-Identifier: GPL-3.0-or-later
// What sells at which price, and which positions sell as one, on the forms and in the machine.
#include <QAbstractButton>

#include "store/parameter_table.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

class Assignment : public OneForm {
 protected:
  void ConnectAndUnlock(const QString& menu_entry, const QString& form, const QString& box) {
    ConnectAndOpen(menu_entry, form);
    EXPECT_FALSE(On<QWidget>(box).isEnabled());
    Await([&] { return On<QWidget>(box).isEnabled(); }, "the form to unlock");
  }
  // Types into a box and waits until the machine and then the display hold the value.
  void Change(const QString& box, const QString& text, int node, int record, int mirror, double value) {
    Enter(On<QLineEdit>(box), text);
    AwaitHeld(node, record, value);
    AwaitHeld(node, mirror, value);
  }
};

TEST_F(Assignment, ASelectionIsSoldAtThePriceThatItIsGiven) {
  ConnectAndUnlock("ssmnuPrsel", "FrmAssSel", "Text1(0)");
  machine().Set(0, 36, 135);  // price 25
  machine().Set(0, 84, 4);
  On<QWidget>("HScroll1(0)").setFocus();
  Change("Text1(16)", "25", 1, 17, 495, 24);
  AwaitText("Label1(16)", "25");
  Await([&] { return On<QWidget>("HScroll1(16)").isEnabled(); }, "the row to open again");
  Change("Text2(1)", "0,35", 0, 43, 245, 35);
  AwaitText("Label1(31)", "0.35");
  const double takings = machine().Get(0, 128);
  ASSERT_TRUE(machine().Command("vend 21 paid"));
  AwaitHeld(0, 128, takings + 135);
  CloseLeavesNothingSubscribed();
}

TEST_F(Assignment, TheSwitchOfTheOtherFormClosesTheSelectionsAndOpensThemAgain) {
  ConnectAndUnlock("ssmnuPrsel", "FrmAssSel", "Text1(0)");
  Click("ssmnuImposta");
  auto& all_at_price_1 = *window().findChild<QAbstractButton*>("Switch1");
  Await([&] { return all_at_price_1.isEnabled(); }, "the prices to unlock");
  const double before = machine().Get(0, 83);
  all_at_price_1.click();
  AwaitHeld(0, 83, before + 1);
  Await([&] { return !Box(0).isEnabled(); }, "the selections to close");
  EXPECT_TRUE(On<QWidget>("Text2(0)").isEnabled());
  all_at_price_1.click();
  AwaitHeld(0, 83, before);
  Await([&] { return Box(0).isEnabled(); }, "the selections to open");
}

TEST_F(Assignment, APositionOfEachUnitReachesItsOwnBoardAndComesBack) {
  ConnectAndUnlock("ssmnuPrsett", "FrmAssSet", "Text1(47)");
  const double other = machine().Get(3, 48);
  On<QWidget>("HScroll1(0)").setFocus();
  Change("Text1(47)", "30", 2, 48, 263, 29);
  AwaitText("Label1(47)", "30");
  EXPECT_EQ(machine().Get(3, 48), other);
  form_->parentWidget()->close();
  Click("ssmnuPrsett2");
  form_ = window().findChild<QWidget*>("FrmAssSet2");
  Await([&] { return Box(0).isEnabled(); }, "the form to unlock");
  On<QWidget>("HScroll1(0)").setFocus();
  Change("Text1(8)", "2.5", 3, 9, 224, 2);
  AwaitText("Label1(8)", "3");
  CloseLeavesNothingSubscribed();
}

TEST_F(Assignment, ASetThatIsTakenAwayClosesItsRowsUntilItIsBack) {
  ConnectAndUnlock("ssmnuPrsett", "FrmAssSet", "Text1(0)");
  machine().Command("absent 2");
  Await([&] { return !Box(0).isEnabled(); }, "the rows to close");
  machine().Command("present 2");
  Await([&] { return Box(0).isEnabled(); }, "the rows to open");
}

TEST_F(Assignment, AGroupIsWrittenToItsUnitAloneAndABadOneNowhere) {
  ConnectAndUnlock("mnuConf", "FrmConf", "Text6(47)");
  auto& box = On<QLineEdit>("Text6(47)");
  Enter(box, "5");
  EXPECT_EQ(box.palette().color(QPalette::Base), QColor(0, 255, 0));
  AwaitHeld(3, 375, 5);
  EXPECT_NE(box.palette().color(QPalette::Base), QColor(0, 255, 0));
  EXPECT_EQ(machine().Get(2, 375), 48);
  Enter(box, "100");
  Await([&] { return !screen_.boxes.empty(); }, "the message");
  EXPECT_EQ(machine().Get(3, 375), 5);
  screen_.answers = {BoxAnswer::kYes};
  On<QAbstractButton>("Command3(1)").click();
  AwaitHeld(3, 328, 1);
  AwaitHeld(3, 375, 48);
  Await([&] { return box.text() == "48"; }, "the box to follow");
  CloseLeavesNothingSubscribed();
}

TEST_F(Assignment, TheChoiceOfManagementKeepsTheOtherOptionsAndLeavesTheMirror) {
  ConnectAndUnlock("mnuConf", "FrmConf", "Option1(1)");
  ASSERT_EQ(machine().Get(0, 361), 12);
  ASSERT_TRUE(machine().Set(0, 362, 12));
  On<QAbstractButton>("Option1(1)").click();
  AwaitHeld(0, 361, 8);
  Await([&] { return !On<QWidget>("Text5(0)").isEnabled(); }, "the groups to close");
  EXPECT_EQ(machine().Get(0, 362), 12);
  On<QAbstractButton>("Option1(0)").click();
  AwaitHeld(0, 361, 12);
  Await([&] { return On<QWidget>("Text5(0)").isEnabled(); }, "the groups to open");
}

TEST_F(Assignment, TwoFormsOnOneByteNeverUndoEachOthersChanges) {
  Connect();
  ASSERT_TRUE(machine().Set(0, 84, 4));
  ASSERT_EQ(machine().Get(0, 361), 12);
  Click("smnuPagamento");
  auto& exact_change = *window().findChild<QAbstractButton*>("swslExact");
  Click("mnuConf");
  form_ = window().findChild<QWidget*>("FrmConf");
  auto& off = On<QAbstractButton>("Option1(1)");
  Await([&] { return off.isEnabled() && exact_change.isEnabled(); }, "both forms to unlock");
  off.click();
  exact_change.click();
  AwaitHeld(0, 361, 10);
  Await([&] { return !On<QWidget>("Text5(0)").isEnabled() && exact_change.isChecked(); }, "both to follow");
  exact_change.click();
  On<QAbstractButton>("Option1(0)").click();
  AwaitHeld(0, 361, 12);
}

}  // namespace
}  // namespace dosmara
