// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/steps.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <algorithm>
#include <set>

#include "shell/caption_table.h"
#include "store/parameter_table.h"
#include "tour/visit.h"

namespace dosmara {

namespace {

constexpr int kSalesCode = 3;
constexpr int kGrinderBlades = 49;
constexpr int kCoffeeWater = 148;  // record of the first selection
constexpr int kMilkTime = 280;
constexpr int kMilkySelection = 3;  // index of a selection with milk in it
constexpr int kDoses = 5;           // line of the language file
constexpr int kSelections = 22;
constexpr int kPositions = 48;

constexpr int kDrinkMs = 90000;
constexpr int kRefreshMs = 25000;  // a refresh of the counters, and the reading of them

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

// One of the windows of vends.
struct Vends {
  const char* form;
  const char* picture;
  int first_selection;  // record
  int first_position;   // record
};

// The machine has counted something everywhere; the window shows the last counter of each board.
QWidget* OpenVends(Tour& tour, const Vends& vends) {
  QWidget* form = nullptr;
  tour.Step(QString(vends.form) + " opens and shows what the machine has counted", [&] {
    for (int n = 0; n < kSelections; ++n) {
      tour.machine().Set(kHotDrinks, vends.first_selection + n, n * n * 37 % 1900);
    }
    for (int n = 0; n < kPositions; ++n) {
      tour.machine().Set(kZeth, vends.first_position + n, n * 29 % 150);
      tour.machine().Set(kZeth2, vends.first_position + n, n * 53 % 70);
    }
    form = &tour.Open(vends.form);
    tour.Await(
        [&] {
          return tour.Control<QLabel>(*form, "Label3(21)").text() == "1117" &&
                 tour.Control<QLabel>(*form, "Label4(47)").text() == "13" &&
                 tour.Control<QLabel>(*form, "Label4(95)").text() == "41";
        },
        "the counters do not show", kUnlockMs);
    tour.Picture(vends.picture);
  });
  return form;
}

void VisitVends(Tour& tour, const Vends& vends) {
  if (QWidget* form = OpenVends(tour, vends); form != nullptr) {
    CloseForm(tour, *form);
  }
}

// Changes to each other language and back to the first: the title of the form is that of each language.
void SpeakAllLanguages(Tour& tour, const QWidget& form) {
  const std::vector<QAction*> languages = Languages(tour);
  const auto first = std::ranges::find_if(languages, [](QAction* entry) { return entry->isChecked(); });
  tour.Expect(first != languages.end(), "no language is ticked");
  const QString first_title = form.windowTitle();
  std::set<QString> titles = {first_title};
  for (QAction* language : languages) {
    if (language != *first) {
      language->trigger();
      tour.Expect(form.windowTitle() == Caption(kDoses), "the form keeps its words");
      titles.insert(form.windowTitle());
      tour.Picture("doses_" + language->iconText().toLower());
    }
  }
  tour.Expect(titles.size() > 1, "all languages have the same words");
  (*first)->trigger();
  tour.Expect(form.windowTitle() == first_title, "the first language does not come back");
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
  QWidget* form = OpenAndUnlock(tour, "FrmDosi", "txtVal(0)");
  if (form == nullptr) {
    return;
  }
  tour.Step("the doses are on the screen", [&] { tour.Picture("doses"); });
  tour.Step("a dose is typed, the machine holds it, the label follows", [&] { ChangeDose(tour, *form); });
  tour.Step("a whole drink is dispensed", [&] { Dispense(tour, *form, "Command1(2)"); });
  tour.Step("the milk of another selection is dispensed", [&] {
    tour.Control<QAbstractButton>(*form, QStringLiteral("Label11(%1)").arg(kMilkySelection)).click();
    const double milk = tour.machine().Get(kHotDrinks, kMilkTime + kMilkySelection) / 10;
    tour.Await([&] { return tour.Control<QLabel>(*form, "lblVal(2)").text().toDouble() == milk; },
               "the milk time does not show", kUnlockMs);
    Dispense(tour, *form, "cmdProva(0)");
  });
  tour.Step("the windows change their language, and back", [&] { SpeakAllLanguages(tour, *form); });
  CloseForm(tour, *form);
}

void VisitTimes(Tour& tour) {
  QWidget* form = OpenAndUnlock(tour, "FrmTempi", "txtTempi(0)");
  if (form == nullptr) {
    return;
  }
  tour.Step("a time is typed, the machine holds it, the label follows", [&] {
    TypeValue(tour, *form, {"txtTempi(0)", "9,9", {kHotDrinks, 31, 509}, 99, "Label1(0)", "9.9"});
    tour.Picture("times");
  });
  tour.Step("a drawer's time is typed on its tab, its unit holds it", [&] {
    tour.Control<QTabWidget>(*form, "SSTab1").setCurrentIndex(1);
    TypeValue(tour, *form, {"txtzeth1(3)", "0.7", {kZeth, 294, 312}, 7, "Label3(3)", "0.7"});
    tour.Picture("times_zeth");
  });
  CloseForm(tour, *form);
}

void VisitTemperatures(Tour& tour) {
  QWidget* form = OpenAndUnlock(tour, "FrmTemperatura", "Text1");
  if (form == nullptr) {
    return;
  }
  tour.Step("temperatures are typed and held, the labels follow", [&] {
    TypeValue(tour, *form, {"Text1", "95", {kHotDrinks, 24, 502}, 95, "Label1", "95"});
    TypeValue(tour, *form, {"Text2(1)", "3,5", {kZeth, 53, 268}, 35, "Label2(1)", "3.5"});
    TypeValue(tour, *form, {"Text3(0)", "OFF", {kZeth2, 51, 266}, 16, "Label3(0)", "OFF"});
    tour.Picture("temperatures");
  });
  CloseForm(tour, *form);
}

void VisitPreventiveActions(Tour& tour) {
  QWidget* form = OpenAndUnlock(tour, "FrmAzione", "Text1(0)");
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
    form = &tour.Open("FrmPassword");
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

void VisitPaidVends(Tour& tour) {
  QWidget* form = OpenVends(tour, {"FrmBattute", "paid_vends", 60, 71});
  if (form == nullptr) {
    return;
  }
  tour.Step("a sale shows with the next refresh", [&] {
    tour.Expect(tour.machine().Command("vend 2:68 paid").has_value(), "the machine does not sell");
    tour.Await([&] { return tour.Control<QLabel>(*form, "Label4(47)").text() == "14"; },
               "the counter does not rise", kRefreshMs);
  });
  CloseForm(tour, *form);
}

void VisitFreeVends(Tour& tour) { VisitVends(tour, {"FrmGratis", "free_vends", 82, 119}); }

void VisitTestVends(Tour& tour) { VisitVends(tour, {"FrmProva", "test_vends", 126, 167}); }

void VisitInformation(Tour& tour) {
  tour.Step("FrmInfo tells the title and the revision", [&] {
    QWidget& form = tour.Open("FrmInfo");
    tour.Expect(tour.Control<QLabel>(form, "Label1(0)").text() == "Dosmara", "the title is another");
    tour.Expect(tour.Control<QLabel>(form, "Label1(1)").text().startsWith("Rev. "), "there is no revision");
    tour.Picture("information");
    tour.Close(form);
  });
}

}  // namespace dosmara
