// SPDX-License-Identifier: GPL-3.0-or-later
// The visits of the windows that tell what the machine has counted and logged, and of the one that clears it.
#include <QAbstractButton>
#include <QLabel>
#include <QTreeWidget>
#include <algorithm>
#include <vector>

#include "shell/caption_table.h"
#include "shell/msg_box.h"
#include "tour/steps.h"
#include "tour/visit.h"

namespace dosmara {

namespace {

// Counters that lie behind each other in a board and on labels of a form, and what they have counted.
struct Page {
  const char* labels;
  int first_label;
  int node;
  int first_record;
  std::vector<int> counted;
  bool money = false;
};

// A window of counters.
struct Window {
  const char* form;
  const char* picture;
  std::vector<Page> pages;
};

// Money has two decimals here, as the machine does.
QString Shown(double value, bool money) {
  return QString::number(money ? value / 100 : value, 'f', money ? 2 : 0);
}

void ExpectShown(Tour& tour, QWidget& form, const Page& page) {
  for (int n = 0; n < static_cast<int>(page.counted.size()); ++n) {
    const QString name = QStringLiteral("%1(%2)").arg(page.labels).arg(page.first_label + n);
    const auto& label = tour.Control<QLabel>(form, name);
    const QString held = Shown(tour.machine().Get(page.node, page.first_record + n), page.money);
    tour.Expect(label.isVisible(), name + " is hidden");
    tour.Expect(label.text() == held,
                QStringLiteral("%1 shows %2, the machine holds %3").arg(name, label.text(), held));
  }
}

void VisitCounters(Tour& tour, const Window& window) {
  QWidget* form = nullptr;
  tour.Step(QString(window.form) + " opens and shows what the machine has counted", [&] {
    for (const Page& page : window.pages) {
      for (int n = 0; n < static_cast<int>(page.counted.size()); ++n) {
        tour.machine().Set(page.node, page.first_record + n, page.counted[n]);
      }
    }
    form = &tour.Open(window.form);
    AwaitRead(tour, *form);
    for (const Page& page : window.pages) {
      ExpectShown(tour, *form, page);
    }
    tour.Picture(window.picture);
  });
  if (form != nullptr) {
    CloseForm(tour, *form);
  }
}

// The alarm log: records of the main board, the fields of an entry, the first alarm's text in a language
// file.
constexpr int kNewestAlarm = 86;
constexpr int kAlarmLog = 142;
enum { kMinute, kHour, kDay, kMonth, kYear, kCode, kFields };
constexpr int kAlarmTexts = 403;
constexpr int kRaised = 7;

// The line of the newest alarm, as the machine has logged it.
QStringList NewestAlarm(Tour& tour) {
  const int entry = static_cast<int>(tour.machine().Get(kMainBoard, kNewestAlarm));
  const auto field = [&](int n) {
    return static_cast<int>(tour.machine().Get(kMainBoard, kAlarmLog + kFields * entry + n));
  };
  return {"1", QString::asprintf("%02d/%02d/%d", field(kDay), field(kMonth), 2000 + field(kYear)),
          QString::asprintf("%02d:%02d", field(kHour), field(kMinute)), Caption(kAlarmTexts + field(kCode))};
}

QStringList FirstLine(const QTreeWidget& list) {
  QStringList texts;
  if (const QTreeWidgetItem* line = list.topLevelItem(0)) {
    for (int column = 0; column < list.columnCount(); ++column) {
      texts.append(line->text(column));
    }
  }
  return texts;
}

// A counter that can be cleared, and one for life: the paid vends.
constexpr int kVendsSinceCleared = 124;
constexpr int kVendsForLife = 123;

// Presses a button and answers its question, the only one, with Yes.
void PressAndAgree(Tour& tour, QAbstractButton& button) {
  int questions = 0;
  const MsgBoxHandler previous = SetMsgBoxHandler([&](const QString&, const QString&, BoxStyle) {
    ++questions;
    return BoxAnswer::kYes;
  });
  button.click();
  SetMsgBoxHandler(previous);
  tour.Expect(questions == 1, QStringLiteral("%1 questions were asked").arg(questions));
}

}  // namespace

void VisitTotals(Tour& tour) {
  VisitCounters(tour, {"FrmTotali",
                       "totals",
                       {{"Label4", 0, kMainBoard, 127, {4871250}, true},
                        {"Label4", 1, kMainBoard, 123, {61402}},
                        {"Label3", 0, kMainBoard, 128, {183425, 4215, 1160}, true},
                        {"Label3", 3, kMainBoard, 124, {2311, 148}},
                        {"Label3", 5, kMainBoard, 131, {37}},
                        {"Label3", 6, kMainBoard, 126, {64}},
                        {"Label3", 7, kMainBoard, 336, {512, 1407, 392}}}});
}

void VisitCoinCounters(Tour& tour) {
  VisitCounters(
      tour,
      {"FrmMonete",
       "coins",
       {{"Label2", 0, kMainBoard, 107, {212, 618, 1493, 977, 840, 305, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3}}}});
}

void VisitJugCounters(Tour& tour) {
  VisitCounters(tour,
                {"FrmBricco", "jugs", {{"Label2", 0, kHotDrinks, 104, {31, 12, 0, 7, 18, 0, 0, 4, 9, 0, 0, 2,
                                                                       0,  0,  5, 0, 0,  1, 0, 0, 0, 6}}}});
}

void VisitMdbAudit(Tour& tour) {
  VisitCounters(
      tour,
      {"FrmMDBaudit", "mdb_audit", {{"Label2", 0, kMainBoard, 339, {96500, 21340, 3800, 17250, 4120, 60}}}});
}

void VisitAlarms(Tour& tour) {
  QWidget* form = nullptr;
  tour.Step("FrmAllarmi opens and lists an alarm that was just raised", [&] {
    tour.Expect(tour.machine().Command(QStringLiteral("alarm %1").arg(kRaised)).has_value(),
                "the machine raises no alarm");
    const QStringList raised = NewestAlarm(tour);
    tour.Expect(raised.last() == Caption(kAlarmTexts + kRaised), "the machine has logged another alarm");
    form = &tour.Open("FrmAllarmi");
    AwaitRead(tour, *form);
    const auto& list = tour.Control<QTreeWidget>(*form, "ListView1");
    tour.Await([&] { return FirstLine(list) == raised; }, "the alarm is not listed");
    tour.Picture("alarms");
  });
  if (form != nullptr) {
    CloseForm(tour, *form);
  }
}

void VisitClearing(Tour& tour) {
  QWidget* form = nullptr;
  tour.Step("FrmCancella opens", [&] { form = &tour.Open("FrmCancella"); });
  if (form == nullptr) {
    return;
  }
  tour.Step("the counters are cleared, those for life stay", [&] {
    tour.machine().Set(kMainBoard, kVendsSinceCleared, 2311);
    tour.machine().Set(kMainBoard, kVendsForLife, 61402);
    auto& button = tour.Control<QAbstractButton>(*form, "cmdCancella(0)");
    PressAndAgree(tour, button);
    AwaitHeld(tour, {kMainBoard, kVendsSinceCleared, 0}, 0);
    tour.Await([&] { return button.isEnabled(); }, "the form does not open again");
    tour.Expect(!tour.Control<QLabel>(*form, "lblInfo").text().isEmpty(), "it does not tell that it is done");
    tour.Expect(tour.machine().Get(kMainBoard, kVendsForLife) == 61402, "a counter for life is gone");
    tour.Picture("clearing");
  });
  CloseForm(tour, *form);
}

}  // namespace dosmara
