// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of the main board that are bit by bit the business of several windows, with these windows open at
// once: none undoes what another one changes.
#include <algorithm>

#include "controls/echo_mark.h"
#include "controls/selector.h"
#include "controls/two_position_switch.h"
#include "store/parameter_table.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

// When the second window writes, seen from the write of the first one.
enum class Second { kAtOnce, kDuringTheFirstExchange, kWhenTheFirstIsBack };

class SharedBytes : public OneForm {
 protected:
  // The machine with a payment system, and payment and options open for changes on it.
  void ConnectWithBoth(int payment_options) {
    Connect();
    ASSERT_TRUE(machine().Set(0, 84, payment_options));
    payment_ = OpenWindow("smnuPagamento", "FrmPagamento");
    options_ = OpenWindow("smnuOpzioni", "FrmOpzioni");
    Await([&] { return Selected(*options_, "SlswitchX5").isEnabled(); }, "the options to unlock");
    AwaitAllArrived();
  }
  QWidget* OpenWindow(const QString& menu_entry, const QString& form) {
    Click(menu_entry);
    QWidget* const opened = window().findChild<QWidget*>(form);
    if (opened == nullptr) {
      throw std::runtime_error("no window " + form.toStdString());
    }
    return opened;
  }

  static TwoPositionSwitch& Switch(QWidget& form, const QString& name) {
    return *form.findChild<TwoPositionSwitch*>(name);
  }
  static Selector& Selected(QWidget& form, const QString& name) { return *form.findChild<Selector*>(name); }

  // Makes both changes of record `record`, the second one at its moment, and waits until the machine and its
  // mirror hold `expected` and all marks in sight say so.
  void ChangeBoth(const std::function<void()>& first, const std::function<void()>& second, Second moment,
                  int record, int mirror, int expected) {
    first();
    if (moment != Second::kAtOnce) {
      Await([&] { return (ParamTable[0][record].Flags & kWritePending) == 0; }, "the first write to leave");
    }
    if (moment == Second::kWhenTheFirstIsBack) {
      Await([&] { return ParamIsFresh(record, 0); }, "the first write to be back");
    }
    second();
    AwaitHeld(0, record, expected);
    AwaitHeld(0, mirror, expected);
    Await([&] { return Marks(EchoMark::State::kOnItsWay) == 0; }, "both changes to be back");
    EXPECT_EQ(Marks(EchoMark::State::kNotTaken), 0);
    EXPECT_EQ(machine().Get(0, record), expected);
  }
  std::ptrdiff_t Marks(EchoMark::State state) {
    const auto marks = window().findChildren<EchoMark*>();
    return std::ranges::count(marks, state, &EchoMark::state);
  }

  QWidget* payment_ = nullptr;
  QWidget* options_ = nullptr;
};

constexpr Second kMoments[] = {Second::kAtOnce, Second::kDuringTheFirstExchange, Second::kWhenTheFirstIsBack};

TEST_F(SharedBytes, SwitchesOfPaymentAndOptionsKeepEachOthersChanges) {
  ConnectWithBoth(4 + 32);
  struct Pair {
    int record;
    int mirror;
    int held;
    const char* of_payment;
    int payment_bit;
    const char* of_options;
    int options_bit;
  };
  for (const Pair& pair : {Pair{83, 285, 34, "iSwitchSliderX2", 32, "SwitchX1(13)", 4},
                           Pair{361, 362, 12, "swslExact", 2, "SwitchX1(26)", 8}}) {
    TwoPositionSwitch& of_payment = Switch(*payment_, pair.of_payment);
    TwoPositionSwitch& of_options = Switch(*options_, pair.of_options);
    const auto change_payment = [&] { of_payment.click(); };
    const auto change_options = [&] { of_options.click(); };
    int expected = pair.held;
    ASSERT_EQ(machine().Get(0, pair.record), expected);
    for (const Second moment : kMoments) {
      SCOPED_TRACE(testing::Message() << pair.record << ", moment " << static_cast<int>(moment));
      expected ^= pair.payment_bit ^ pair.options_bit;
      ChangeBoth(change_payment, change_options, moment, pair.record, pair.mirror, expected);
      expected ^= pair.payment_bit ^ pair.options_bit;
      ChangeBoth(change_options, change_payment, moment, pair.record, pair.mirror, expected);
      EXPECT_EQ(of_payment.Position(), (expected & pair.payment_bit) != 0 ? 1 : 0);
      EXPECT_EQ(of_options.Position(), (expected & pair.options_bit) != 0 ? 1 : 0);
    }
  }
}

// What the options choose as the payment system lies in one byte with the mode that payment chooses.
TEST_F(SharedBytes, TheModeOfAnExecutiveAndTheOptionsKeepEachOthersChanges) {
  ConnectWithBoth(2 + 32);
  Selector& mode = Selected(*payment_, "SliderX5");
  Selector& system = Selected(*options_, "SlswitchX5");
  TwoPositionSwitch& extra_milk = Switch(*options_, "SwitchX1(7)");
  ASSERT_TRUE(mode.isEnabled());
  for (const Second moment : kMoments) {
    SCOPED_TRACE(testing::Message() << "moment " << static_cast<int>(moment));
    ChangeBoth([&] { mode.SetPosition(2); }, [&] { extra_milk.click(); }, moment, 84, 286, 2 + 8 + 32 + 128);
    ChangeBoth([&] { extra_milk.click(); }, [&] { mode.SetPosition(1); }, moment, 84, 286, 2 + 32 + 64);
    ChangeBoth([&] { mode.SetPosition(2); }, [&] { system.SetPosition(3); }, moment, 84, 286, 4 + 32 + 128);
    EXPECT_FALSE(mode.isEnabled()) << "payment follows the system that the options have chosen";
    ChangeBoth([&] { system.SetPosition(2); }, [&] { mode.SetPosition(0); }, moment, 84, 286, 2 + 32);
    EXPECT_TRUE(mode.isEnabled());
  }
}

TEST_F(SharedBytes, ThreeWindowsOnOneByteKeepEachOthersChanges) {
  ConnectWithBoth(4 + 32);
  QWidget& prices = *OpenWindow("ssmnuImposta", "FrmPrezzi");
  TwoPositionSwitch& all_at_price_1 = Switch(prices, "Switch1");
  Await([&] { return all_at_price_1.isEnabled() && all_at_price_1.IsKnown(); }, "the prices to unlock");
  TwoPositionSwitch& changer = Switch(*payment_, "iSwitchSliderX2");
  TwoPositionSwitch& multiple_sales = Switch(*options_, "SwitchX1(14)");
  for (const int expected : {1, 34}) {
    changer.click();
    all_at_price_1.click();
    multiple_sales.click();
    AwaitHeld(0, 83, expected);
    AwaitHeld(0, 285, expected);
    Await([&] { return Marks(EchoMark::State::kOnItsWay) == 0; }, "all changes to be back");
    EXPECT_EQ(Marks(EchoMark::State::kTaken), 3);
  }
}

TEST_F(SharedBytes, TheDecimalPointOfTheOptionsRedrawsPaymentAndPrices) {
  ConnectWithBoth(32);
  QWidget& prices = *OpenWindow("ssmnuImposta", "FrmPrezzi");
  const auto show = [&](const QString& price, const QString& coin, const QString& token) {
    return prices.findChild<QLabel*>("Label1(0)")->text() == price &&
           payment_->findChild<QLabel*>("Label10(7)")->text() == coin &&
           payment_->findChild<QLabel*>("Label6s(2)")->text() == token;
  };
  Await([&] { return show("0.40", "5.00", "2.00"); }, "two decimals");
  Selector& point = Selected(*options_, "SlswitchX2");
  Await([&] { return point.isEnabled(); }, "the decimal point to open");
  point.SetPosition(3);
  Await([&] { return show("0.040", "0.500", "0.200"); }, "three decimals");
  point.SetPosition(0);
  Await([&] { return show("40", "500", "200"); }, "no decimals");
  EXPECT_EQ(machine().Get(0, 11), 500) << "the amounts themselves stay as they are";
}

}  // namespace
}  // namespace dosmara
