// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/steps.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>

#include "store/parameter_table.h"

namespace dosmara {

namespace {

constexpr int kMainBoard = 0;
constexpr int kHotDrinks = 1;
constexpr int kSalesCode = 3;
constexpr int kGrinderBlades = 49;
constexpr int kCoffeeWater = 148;  // record of the first selection
constexpr int kMilkTime = 280;
constexpr int kMilkySelection = 3;  // index of a selection with milk in it

constexpr int kUnlockMs = 20000;
constexpr int kDrinkMs = 90000;

// The entries of the language menu that have a file.
std::vector<QAction*> Languages(Tour& tour) {
  std::vector<QAction*> entries;
  for (int i = 0; i < kLanguageEntries; ++i) {
    auto* entry = tour.window().findChild<QAction*>(QStringLiteral("smnuLingue(%1)").arg(i));
    if (entry != nullptr && entry->isVisible()) {
      entries.push_back(entry);
    }
  }
  return entries;
}

void ChangeDose(Tour& tour, QWidget& form) {
  const QString label = QStringLiteral("lblVal(0)");
  const int dose = tour.machine().Get(kHotDrinks, kCoffeeWater) == 87 ? 86 : 87;
  tour.Type(form, "txtVal(0)", QString::number(dose));
  tour.Await([&] { return tour.machine().Get(kHotDrinks, kCoffeeWater) == dose; },
             "the machine does not hold the dose");
  tour.Await([&] { return tour.Control<QLabel>(form, label).text() == QString::number(dose); },
             "the label does not follow");
}

// Presses a test button and waits until the machine has counted the test and the form is open again.
void Dispense(Tour& tour, QWidget& form, const QString& button) {
  auto& press = tour.Control<QAbstractButton>(form, button);
  tour.Expect(press.isEnabled(), button + " is not enabled");
  press.click();
  tour.Expect(!press.isEnabled(), "the form does not close for the test");
  tour.Await([&] { return tour.machine().Command("status").value_or(QString()).contains("dispensing yes"); },
             "the machine does not dispense");
  tour.Picture("dispensing");
  tour.Await([&] { return press.isEnabled(); }, "the form does not open again", kDrinkMs);
}

void CloseForm(Tour& tour, QWidget& form) {
  tour.Step(form.objectName() + " closes and leaves no record subscribed", [&] {
    tour.Close(form);
    for (const auto& node : ParamTable) {
      tour.Expect(std::ranges::all_of(node, [](const ParamRec& record) { return record.Subscribers == 0; }),
                  "a record stays subscribed");
    }
  });
}

}  // namespace

void VisitMainWindow(Tour& tour) {
  tour.Step("the boards of all nodes have answered", [&] {
    tour.Expect(std::ranges::all_of(NodePresent, [](bool present) { return present; }), "a board is missing");
  });
  tour.Step("the main window is on the screen", [&] {
    tour.Expect(tour.window().isVisible(), "it is hidden");
    tour.Picture("main_window");
  });
}

void VisitDoses(Tour& tour) {
  QWidget* form = nullptr;
  tour.Step("FrmDosi opens and unlocks", [&] {
    form = &tour.Open("smnuDosi", "FrmDosi");
    tour.Await([&] { return tour.Control<QWidget>(*form, "txtVal(0)").isVisible(); }, "it stays locked",
               kUnlockMs);
    tour.Picture("doses");
  });
  if (form == nullptr) {
    return;
  }
  tour.Step("a dose is typed, the machine holds it, the label follows", [&] { ChangeDose(tour, *form); });
  tour.Step("a whole drink is dispensed", [&] { Dispense(tour, *form, "Command1(2)"); });
  tour.Step("the milk of another selection is dispensed", [&] {
    tour.Control<QAbstractButton>(*form, QStringLiteral("Label11(%1)").arg(kMilkySelection)).click();
    const double milk = tour.machine().Get(kHotDrinks, kMilkTime + kMilkySelection) / 10;
    tour.Await([&] { return tour.Control<QLabel>(*form, "lblVal(2)").text().toDouble() == milk; },
               "the milk time does not show", kUnlockMs);
    Dispense(tour, *form, "cmdProva(0)");
  });
  tour.Step("the windows change their language, and back", [&] {
    const auto languages = Languages(tour);
    tour.Expect(languages.size() > 1, "there is only one language");
    const auto ticked = std::ranges::find_if(languages, [](QAction* entry) { return entry->isChecked(); });
    tour.Expect(ticked != languages.end(), "no language is ticked");
    QAction* other = languages[ticked == languages.begin() ? 1 : 0];
    const QString title = form->windowTitle();
    other->trigger();
    tour.Expect(form->windowTitle() != title, "the form keeps its words");
    tour.Picture("doses_" + other->text().toLower());
    (*ticked)->trigger();
    tour.Expect(form->windowTitle() == title, "the first language does not come back");
  });
  CloseForm(tour, *form);
}

void VisitPreventiveActions(Tour& tour) {
  QWidget* form = nullptr;
  tour.Step("FrmAzione opens and unlocks", [&] {
    form = &tour.Open("smnuAzione", "FrmAzione");
    tour.Await([&] { return tour.Control<QWidget>(*form, "Text1(0)").isVisible(); }, "it stays locked",
               kUnlockMs);
  });
  if (form == nullptr) {
    return;
  }
  tour.Step("a count is typed, the machine holds it, the label follows", [&] {
    const int count = tour.machine().Get(kHotDrinks, kGrinderBlades) == 45000 ? 40000 : 45000;
    tour.Type(*form, "Text1(5)", QString::number(count));
    tour.Await([&] { return tour.machine().Get(kHotDrinks, kGrinderBlades) == count; },
               "the machine does not hold the count");
    tour.Await([&] { return tour.Control<QLabel>(*form, "Label10(5)").text() == QString::number(count); },
               "the label does not follow");
    tour.Picture("preventive_actions");
  });
  CloseForm(tour, *form);
}

void VisitMachineCodes(Tour& tour) {
  QWidget* form = nullptr;
  tour.Step("FrmPassword opens and shows the codes of the machine", [&] {
    form = &tour.Open("smnuPassword", "FrmPassword");
    const QString code = QString::number(tour.machine().Get(kMainBoard, kSalesCode));
    tour.Await([&] { return tour.Control<QLineEdit>(*form, "Text1(1)").text() == code; },
               "the code does not show");
    tour.Picture("machine_codes");
  });
  if (form == nullptr) {
    return;
  }
  tour.Step("a code is typed, the machine holds it", [&] {
    const int code = tour.machine().Get(kMainBoard, kSalesCode) == 54321 ? 12300 : 54321;
    tour.Type(*form, "Text1(1)", QString::number(code));
    tour.Await([&] { return tour.machine().Get(kMainBoard, kSalesCode) == code; },
               "the machine does not hold the code");
  });
  CloseForm(tour, *form);
}

void VisitInformation(Tour& tour) {
  tour.Step("FrmInfo tells the title and the revision", [&] {
    QWidget& form = tour.Open("mnuVer", "FrmInfo");
    tour.Expect(tour.Control<QLabel>(form, "Label1(0)").text() == "Dosmara", "the title is another");
    tour.Expect(tour.Control<QLabel>(form, "Label1(1)").text().startsWith("Rev. "), "there is no revision");
    tour.Picture("information");
    tour.Close(form);
  });
}

}  // namespace dosmara
