// SPDX-License-Identifier: GPL-3.0-or-later
// What is set on one window of selling and takes effect on the others, and in what the machine sells.
#include <QTest>

#include "controls/selector.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

class SellingFlow : public OneForm {
 protected:
  // Opens a form beside those that are open and waits until `control` takes changes.
  void OpenBeside(const QString& menu_entry, const QString& form, const QString& control) {
    Click(menu_entry);
    Turn(form);
    Await([&] { return On<QWidget>(control).isEnabled(); }, qPrintable(form + " to unlock"));
  }
  // The form that is looked at and worked on from now on.
  void Turn(const QString& form) {
    form_ = window().findChild<QWidget*>(form);
    if (form_ == nullptr) {
      throw std::runtime_error("no form " + form.toStdString());
    }
  }
  void Type(const QString& box, const QString& text) { Enter(On<QLineEdit>(box), text); }
  void AwaitHeldTwice(int node, int record, int mirror, double value) {
    AwaitHeld(node, record, value);
    AwaitHeld(node, mirror, value);
  }
  // One customer with coins: the takings rise by `price`, those of all time too.
  void SellAt(double price, const QString& what) {
    const double for_life = machine().Get(0, 127);
    const double takings = machine().Get(0, 128);
    ASSERT_TRUE(machine().Command("vend " + what + " paid"));
    AwaitHeld(0, 128, takings + price);
    AwaitHeld(0, 127, for_life + price);
    Await([&] { return Status("serving") == "nothing"; }, "the end of the sale");
  }
};

TEST_F(SellingFlow, AnotherDecimalPointRedrawsPricesAndPayment) {
  Connect();
  ASSERT_TRUE(machine().Set(0, 84, 32));  // a machine on tokens leaves the point to the operator
  OpenBeside("ssmnuImposta", "FrmPrezzi", "Text1(0)");
  OpenBeside("smnuPagamento", "FrmPagamento", "txtMon(6)");
  AwaitText("Label11(1)", "10.00");
  AwaitText("Label6s(2)", "2.00");
  OpenBeside("smnuOpzioni", "FrmOpzioni", "SlswitchX2");
  auto& point = On<Selector>("SlswitchX2");
  ASSERT_EQ(point.Position(), 2);
  QTest::keyClick(&point, Qt::Key_Left);
  AwaitHeldTwice(0, 76, 278, 1);
  Turn("FrmPrezzi");
  AwaitText("Label1(0)", "4.0");
  AwaitText("Label1(49)", "40.0");
  EXPECT_EQ(Box(49).text(), "40.0");
  Turn("FrmPagamento");
  AwaitText("Label10(7)", "50.0");
  AwaitText("Label11(1)", "100.0");
  AwaitText("Label6s(2)", "20.0");
  EXPECT_EQ(On<QLineEdit>("txtMDB(4)").text(), "100.0");
  EXPECT_EQ(machine().Get(0, 12), 40) << "the amounts themselves stay";
  EXPECT_EQ(machine().Get(0, 345), 1000);
  Type("txtMon(6)", "1,5");
  AwaitHeldTwice(0, 10, 212, 15);
  AwaitText("Label10(6)", "1.5");
  Turn("FrmPrezzi");
  Type("Text1(1)", "7");
  AwaitHeldTwice(0, 13, 215, 70);
  AwaitText("Label1(1)", "7.0");
}

TEST_F(SellingFlow, WhatIsSetAndAssignedIsWhatTheMachineTakes) {
  Connect();
  OpenBeside("ssmnuImposta", "FrmPrezzi", "Text1(0)");
  Type("Text1(24)", "1,35");
  AwaitHeldTwice(0, 36, 238, 135);
  OpenBeside("ssmnuPrsel", "FrmAssSel", "Text1(0)");
  Type("Text1(16)", "25");
  AwaitHeldTwice(1, 17, 495, 24);
  SellAt(135, "21");
  OpenBeside("ssmnuPrsett2", "FrmAssSet2", "Text1(0)");
  Type("Text1(47)", "25");
  AwaitHeldTwice(3, 48, 263, 24);
  SellAt(135, "3:68");
  Turn("FrmPrezzi");
  Type("Text1(24)", "1.4");
  AwaitHeldTwice(0, 36, 238, 140);
  SellAt(140, "21");
}

TEST_F(SellingFlow, AllAtPriceOneSellsTheAssignedSelectionAtTheFirstPrice) {
  Connect();
  OpenBeside("ssmnuImposta", "FrmPrezzi", "Switch1");
  Await([&] { return Box(0).isEnabled() && On<QWidget>("Switch1").property("known").toBool(); },
        "the prices to unlock");
  Type("Text1(0)", "0,85");
  AwaitHeldTwice(0, 12, 214, 85);
  QTest::keyClick(&On<QWidget>("Switch1"), Qt::Key_Space);
  AwaitHeldTwice(0, 83, 285, 35);
  SellAt(85, "26");
}

}  // namespace
}  // namespace dosmara
