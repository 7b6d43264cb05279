// SPDX-License-Identifier: GPL-3.0-or-later
// Prices and discounts on their forms and in the machine.
#include <QAbstractButton>
#include <vector>

#include "store/parameter_table.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

class Selling : public OneForm {
 protected:
  void ConnectAndUnlock(const QString& menu_entry, const QString& form) {
    ConnectAndOpen(menu_entry, form);
    EXPECT_FALSE(Box(0).isEnabled());
    Await([&] { return Box(0).isEnabled(); }, "the form to unlock");
  }

  // Types an amount: its bar is closed until the machine has answered, and the machine holds record and
  // mirror.
  void TypeAndAwait(int row, const QString& text, int record, int mirror, int value, const QString& shown) {
    const auto& bar = On<QWidget>(QString("HScroll1(%1)").arg(row));
    const QString label = QString("Label1(%1)").arg(row);
    const QString before = Text(label);
    Enter(Box(row), text);
    EXPECT_FALSE(bar.isEnabled());
    EXPECT_EQ(Text(label), before) << "the display waits for the machine";
    AwaitHeld(0, record, value);
    if (mirror != 0) {
      AwaitHeld(0, mirror, value);
    }
    AwaitText(label, shown);
    Await([&] { return bar.isEnabled(); }, "the bar to open again");
  }

  // Records of the main board with a subscriber.
  static std::vector<int> Subscribed() {
    std::vector<int> records;
    for (int record = 1; record <= NodeRecordCount[0]; ++record) {
      if (ParamTable[0][record].Subscribers != 0) {
        records.push_back(record);
      }
    }
    return records;
  }
};

TEST_F(Selling, ATypedPriceReachesTheMachineAndItsBarOpensAgain) {
  ConnectAndUnlock("ssmnuImposta", "FrmPrezzi");
  EXPECT_EQ(Text("Label1(0)"), "0.40");
  AwaitText("Label1(49)", "4.00");
  TypeAndAwait(4, "0,99", 16, 218, 99, "0.99");
  TypeAndAwait(30, "3", 367, 0, 300, "3.00");
  CloseLeavesNothingSubscribed();
}

TEST_F(Selling, AllAtPriceOneIsABitAmongTheOptionsOfTheMachine) {
  ConnectAndUnlock("ssmnuImposta", "FrmPrezzi");
  const int options = static_cast<int>(machine().Get(0, 83));
  ASSERT_EQ(options % 2, 0);
  auto& all_at_price_1 = On<QAbstractButton>("Switch1");
  Await([&] { return all_at_price_1.property("known").toBool(); }, "the options");
  EXPECT_FALSE(all_at_price_1.isChecked());
  all_at_price_1.click();
  AwaitHeld(0, 83, options + 1);
  AwaitHeld(0, 285, options + 1);
  all_at_price_1.click();
  AwaitHeld(0, 83, options);
  AwaitHeld(0, 285, options);
}

TEST_F(Selling, OtherDecimalsReachTheOpenPrices) {
  ConnectAndUnlock("ssmnuImposta", "FrmPrezzi");
  ASSERT_TRUE(machine().Set(0, 76, 1));
  AwaitText("Label1(0)", "4.0");
  AwaitText("Label1(49)", "40.0");
  TypeAndAwait(0, "5", 12, 214, 50, "5.0");
}

TEST_F(Selling, ATypedDiscountReachesTheMachineAndOneRecordStaysPolled) {
  ConnectAndUnlock("ssmnuSconti", "FrmSconti");
  EXPECT_EQ(Text("Label1(0)"), "0.05");
  TypeAndAwait(29, ",15", 73, 275, 15, "0.15");
  TypeAndAwait(30, "0.2", 74, 276, 20, "0.20");
  form_->parentWidget()->close();
  EXPECT_EQ(Subscribed(), std::vector<int>{74});
}

}  // namespace
}  // namespace dosmara
