// SPDX-License-Identifier: GPL-3.0-or-later
// The visits of the windows that tell how the machine sells.
#include <QAbstractButton>
#include <QLabel>
#include <QTest>

#include "tour/steps.h"
#include "tour/visit.h"

namespace dosmara {

namespace {

constexpr int kWash = 32;  // an option that shares its byte with the payment systems
constexpr int kPriceHolding = 128;

// Choices and switches of the window of payments, with a machine on MDB.
constexpr Toggle kPaymentSwitches[] = {{"iSwSliderX3(1)", {kMainBoard, 83, 285}, 16},
                                       {"swslExact", {kMainBoard, 361, 362}, 2}};
struct Channel {
  const char* selector;
  int position;
  Toggle accepted;
};
constexpr Channel kChannels[] = {{"SliderX1", 9, {"SliderX4", {kMainBoard, 85, 287}, 512}},
                                 {"SliderX7", 3, {"SliderX6", {kMainBoard, 355, 356}, 8}}};

// A window of a Zeth unit's positions: one of them gets another price.
void VisitPositions(Tour& tour, const char* name, const Entry& change, const char* bar, const char* picture) {
  QWidget* form = OpenAndUnlock(tour, name, change.box);
  if (form == nullptr) {
    return;
  }
  tour.Step("a position gets another price, its unit holds it", [&] {
    TypeHeld(tour, *form, change, bar);
    tour.Picture(picture);
  });
  CloseForm(tour, *form);
}

void StepOverpayTime(Tour& tour, QWidget& form) {
  const int seconds = static_cast<int>(tour.machine().Get(kMainBoard, 365)) + 1;
  QTest::keyClick(&tour.Control<QWidget>(form, "HScroll11(3)"), Qt::Key_Right);
  AwaitHeld(tour, {kMainBoard, 365, 366}, seconds);
  tour.Await([&] { return tour.Control<QLabel>(form, "Label11(3)").text() == QString::number(seconds); },
             "the form does not follow");
}

void VisitPaymentByMdb(Tour& tour) {
  tour.machine().Set(kMainBoard, 84, kWash + kMdb);
  QWidget* form = OpenAndUnlock(tour, "FrmPagamento", "txtMDB(4)");
  if (form == nullptr) {
    return;
  }
  tour.Step("limits and a token are typed, a time is set by its bar", [&] {
    TypeValue(tour, *form, {"txtMDB(4)", "123,4", {kMainBoard, 345, 346}, 12340, "Label11(1)", "123.40"});
    TypeValue(tour, *form, {"txtMDB(1)", ".75", {kMainBoard, 347, 350}, 75, "Label6s(0)", "0.75"});
    StepOverpayTime(tour, *form);
  });
  tour.Step("switches are toggled, and a channel of coins and of bills", [&] {
    for (const Toggle& toggle : kPaymentSwitches) {
      ToggleSwitch(tour, *form, toggle);
    }
    for (const Channel& channel : kChannels) {
      Choose(tour, *form, channel.selector, channel.position);
      ToggleSwitch(tour, *form, channel.accepted);
    }
    tour.Picture("payment");
  });
  CloseForm(tour, *form);
}

void VisitPaymentByExecutive(Tour& tour) {
  tour.machine().Set(kMainBoard, 84, kWash + kExecutive);
  QWidget* form = OpenAndUnlock(tour, "FrmPagamento", "SliderX5");
  if (form == nullptr) {
    return;
  }
  tour.Step("a mode is chosen, its time is typed and held", [&] {
    ChoosePosition(tour, *form, {"SliderX5", 2, {kMainBoard, 84, 286}, kWash + kExecutive + kPriceHolding});
    TypeValue(tour, *form, {"txtTmPr", "12,5", {kMainBoard, 353, 354}, 125, "Label8v", "12.5"});
    tour.Picture("payment_executive");
  });
  CloseForm(tour, *form);
  tour.machine().Set(kMainBoard, 84, kWash + kMdb);
}

}  // namespace

void VisitPrices(Tour& tour) {
  QWidget* form = OpenAndUnlock(tour, "FrmPrezzi", "Text1(0)");
  if (form == nullptr) {
    return;
  }
  tour.Step("prices are typed and held, with a mirror and without", [&] {
    TypeHeld(tour, *form, {"Text1(4)", "0,99", {kMainBoard, 16, 218}, 99, "Label1(4)", "0.99"},
             "HScroll1(4)");
    TypeHeld(tour, *form, {"Text1(34)", "2.55", {kMainBoard, 371, 0}, 255, "Label1(34)", "2.55"},
             "HScroll1(34)");
    tour.Picture("prices");
  });
  tour.Step("all is sold at price 1, and again at its own", [&] {
    for (int i = 0; i < 2; ++i) {
      ToggleSwitch(tour, *form, {"Switch1", {kMainBoard, 83, 285}, 1});
    }
  });
  CloseForm(tour, *form);
}

void VisitDiscounts(Tour& tour) {
  QWidget* form = OpenAndUnlock(tour, "FrmSconti", "Text1(0)");
  if (form == nullptr) {
    return;
  }
  tour.Step("discounts are typed and held, the labels follow", [&] {
    TypeHeld(tour, *form, {"Text1(2)", ",15", {kMainBoard, 46, 248}, 15, "Label1(2)", "0.15"}, "HScroll1(2)");
    TypeHeld(tour, *form, {"Text1(30)", "0.2", {kMainBoard, 74, 276}, 20, "Label1(30)", "0.20"},
             "HScroll1(30)");
    tour.Picture("discounts");
  });
  CloseForm(tour, *form);
}

void VisitPayment(Tour& tour) {
  VisitPaymentByExecutive(tour);
  VisitPaymentByMdb(tour);
}

void VisitPricesOfSelections(Tour& tour) {
  QWidget* form = OpenAndUnlock(tour, "FrmAssSel", "Text1(0)");
  if (form == nullptr) {
    return;
  }
  tour.Step("a selection gets another price, the milk its own", [&] {
    TypeHeld(tour, *form, {"Text1(16)", "25", {kHotDrinks, 17, 495}, 24, "Label1(16)", "25"}, "HScroll1(16)");
    TypeHeld(tour, *form, {"Text2(1)", "0,35", {kMainBoard, 43, 245}, 35, "Label1(31)", "0.35"},
             "HScroll1(31)");
    tour.Picture("prices_of_selections");
  });
  CloseForm(tour, *form);
}

void VisitPricesOfPositions(Tour& tour) {
  VisitPositions(tour, "FrmAssSet", {"Text1(47)", "30", {kZeth, 48, 263}, 29, "Label1(47)", "30"},
                 "HScroll1(47)", "prices_of_positions");
}

void VisitPricesOfSecondPositions(Tour& tour) {
  VisitPositions(tour, "FrmAssSet2", {"Text1(8)", "7", {kZeth2, 9, 224}, 6, "Label1(8)", "7"}, "HScroll1(8)",
                 "prices_of_positions_2");
}

void VisitOptions(Tour& tour) {
  QWidget* form = OpenAndUnlock(tour, "FrmOpzioni", "SlswitchX5");
  if (form == nullptr) {
    return;
  }
  tour.Step("options are changed and held by each board, the form follows", [&] {
    ToggleSwitch(tour, *form, {"SwitchX1(7)", {kMainBoard, 84, 286}, 8});
    ToggleSwitch(tour, *form, {"SwitchX1(11)", {kHotDrinks, 47, 525}, 1});
    ToggleSwitch(tour, *form, {"SwitchX1(21)", {kZeth, 59, 274}, 2});
    ToggleSwitch(tour, *form, {"SwitchX1(20)", {kZeth2, 59, 274}, 8});
    ChoosePosition(tour, *form, {"SlswitchX4", 1, {kMainBoard, 78, 280}, 1});
    ChoosePosition(tour, *form, {"SlswitchX1", 2, {kMainBoard, 77, 279}, 2});
  });
  tour.Step("a number and a setting are typed and held", [&] {
    TypeValue(tour, *form, {"Text1(0)", "123456", {kMainBoard, 132, 0}, 123456, nullptr, "123456"});
    TypeValue(tour, *form, {"Text2(2)", "6,5", {kHotDrinks, 33, 511}, 65, "Label10(2)", "6.5"});
    tour.Picture("options");
  });
  CloseForm(tour, *form);
}

void VisitConfiguration(Tour& tour) {
  QWidget* form = OpenAndUnlock(tour, "FrmConf", "Text6(47)");
  if (form == nullptr) {
    return;
  }
  tour.Step("a group of each unit is typed and held", [&] {
    TypeValue(tour, *form, {"Text5(9)", "9", {kZeth, 337, 0}, 9, nullptr, "9"});
    TypeValue(tour, *form, {"Text6(47)", "5", {kZeth2, 375, 0}, 5, nullptr, "5"});
    tour.Picture("configuration");
  });
  tour.Step("the groups are switched off, and on again", [&] {
    const auto& box = tour.Control<QWidget>(*form, "Text5(0)");
    const int options = static_cast<int>(tour.machine().Get(kMainBoard, 361));
    for (const bool off : {true, false}) {
      tour.Control<QAbstractButton>(*form, off ? "Option1(1)" : "Option1(0)").click();
      AwaitHeld(tour, {kMainBoard, 361, 0}, off ? options - 4 : options);
      AwaitTaken(tour, *form);
      tour.Expect(box.isEnabled() != off, "the groups do not follow");
    }
  });
  CloseForm(tour, *form);
}

}  // namespace dosmara
