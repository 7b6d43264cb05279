// SPDX-License-Identifier: GPL-3.0-or-later
// A day of sales, and then each window of counters beside the machine's own books.
#include <QAbstractButton>
#include <QCoreApplication>
#include <QLabel>
#include <QTimer>
#include <QTimerEvent>
#include <algorithm>
#include <map>

#include "controls/progress_line.h"
#include "system/system_test.h"

namespace dosmara {
namespace {

struct Window {
  const char* menu_entry;
  const char* form;
};
constexpr Window kWindows[] = {
    {"ssmnuTotali", "FrmTotali"},     {"ssmnuMonete", "FrmMonete"},   {"ssmnuBricco", "FrmBricco"},
    {"ssmnuMDBaudit", "FrmMDBaudit"}, {"ssmnuBattute", "FrmBattute"}, {"ssmnuGratis", "FrmGratis"},
    {"ssmnuProva", "FrmProva"},
};

// Where the records of a node show: on labels that follow each other.
struct Page {
  const char* form;
  const char* label;
  int first_label;
  int node;
  int record;
  int count;
  bool money = false;
};
constexpr Page kPages[] = {
    {"FrmTotali", "Label4", 0, 0, 127, 1, true}, {"FrmTotali", "Label4", 1, 0, 123, 1},
    {"FrmTotali", "Label4", 2, 0, 332, 1, true}, {"FrmTotali", "Label3", 0, 0, 128, 3, true},
    {"FrmTotali", "Label3", 3, 0, 124, 2},       {"FrmTotali", "Label3", 5, 0, 131, 1},
    {"FrmTotali", "Label3", 6, 0, 126, 1},       {"FrmTotali", "Label3", 7, 0, 336, 3},
    {"FrmMonete", "Label2", 0, 0, 107, 16},      {"FrmBricco", "Label2", 0, 1, 104, 22},
    {"FrmMDBaudit", "Label2", 0, 0, 339, 6},     {"FrmBattute", "Label3", 0, 1, 60, 22},
    {"FrmBattute", "Label4", 0, 2, 71, 48},      {"FrmBattute", "Label4", 48, 3, 71, 48},
    {"FrmGratis", "Label3", 0, 1, 82, 22},       {"FrmGratis", "Label4", 0, 2, 119, 48},
    {"FrmGratis", "Label4", 48, 3, 119, 48},     {"FrmProva", "Label3", 0, 1, 126, 22},
    {"FrmProva", "Label4", 0, 2, 167, 48},       {"FrmProva", "Label4", 48, 3, 167, 48},
};

// What must have been counted for the day to say anything.
struct Counter {
  int node;
  int record;
};
constexpr Counter kCounted[] = {
    {0, 124}, {0, 125}, {0, 126}, {0, 127}, {0, 128}, {0, 130}, {0, 131}, {0, 336}, {0, 337},
    {0, 338}, {0, 339}, {0, 340}, {0, 341}, {0, 342}, {0, 343}, {0, 344}, {0, 332}, {1, 60},
    {1, 82},  {1, 104}, {1, 126}, {2, 71},  {2, 90},  {3, 71},  {3, 166}, {3, 214},
};

class CountersDay : public SystemTest {
 protected:
  static constexpr int kDayMs = 120000;

  template <class T>
  T& On(const char* form, const QString& name) {
    T* control = window().findChild<QWidget*>(form)->findChild<T*>(name);
    if (control == nullptr) {
      throw std::runtime_error("no control " + name.toStdString());
    }
    return *control;
  }
  QString Shown(const Page& page, int n) {
    return On<QLabel>(page.form, QString("%1(%2)").arg(page.label).arg(page.first_label + n)).text();
  }

  void AwaitIdle() {
    Await([&] { return Status("serving") == "nothing"; }, "the machine to be done");
  }
  void Happens(const QString& command) {
    EXPECT_TRUE(machine().Command(command)) << command.toStdString();
    AwaitIdle();
  }

  // Reads each window anew and for the last time.
  void ReadWindowsAnew() {
    for (const Window& each : kWindows) {
      auto& timer = On<QTimer>(each.form, "Timer1");
      QTimerEvent time_is_up(timer.timerId());
      QCoreApplication::sendEvent(&timer, &time_is_up);
      timer.stop();
    }
    const auto read = [&](const Window& each) {
      return window().findChild<QWidget*>(each.form)->findChild<ProgressLine*>()->Share() == 1;
    };
    Await([&] { return std::ranges::all_of(kWindows, read); }, "all windows to be read", kDayMs);
  }

  using Books = std::map<std::pair<int, int>, double>;
  Books MachinesBooks() {
    Books books;
    for (const Page& page : kPages) {
      for (int n = 0; n < page.count; ++n) {
        books[{page.node, page.record + n}] = machine().Get(page.node, page.record + n);
      }
    }
    return books;
  }
  void ExpectWindowsShow(Books& books) {
    for (const Page& page : kPages) {
      for (int n = 0; n < page.count; ++n) {
        const double value = books[{page.node, page.record + n}];
        EXPECT_EQ(Shown(page, n),
                  page.money ? QString::number(value / 100, 'f', 2) : QString::number(value, 'f', 0))
            << page.form << " record " << page.record + n << " of node " << page.node;
      }
    }
  }
};

TEST_F(CountersDay, ShowsInEachWindowWhatTheMachineHasCountedAndClearsTheFlowsOfMdbAlone) {
  Connect({"--scenario", DOSMARA_SCENARIOS "/busy_day.txt", "--speed", "3600", "--seed", "2"});
  for (const Window& each : kWindows) {
    Click(each.menu_entry);
  }
  Await([&] { return Status("scenario") == "0"; }, "the day to end", kDayMs);
  machine().Command("customers 0");
  machine().Command("speed 1");
  machine().Command("service all");
  AwaitIdle();

  // What nobody has bought on that day.
  ASSERT_EQ(machine().Get(0, 311), 2);
  machine().Set(0, 84, 36 + 8 + 16);  // milk and no cup
  machine().Set(1, 38, 255);          // jugs of the first selections
  machine().Set(0, 122, 1234567);
  machine().Set(3, 214, 4294967295.0);
  machine().Command("turn 100");
  for (const char* command :
       {"vend 1 paid 200 sugar milk no-cup", "vend 1 free", "vend 1 paid jug", "test 2 1", "vend 2:34 paid",
        "vend 2:11 bill 500", "vend 2:12 key", "vend 3:11 token 1", "vend 3:68 free", "key 1000",
        "tubes fill 500", "tubes empty 30"}) {
    Happens(command);
  }

  ReadWindowsAnew();
  Books books = MachinesBooks();
  ExpectWindowsShow(books);
  for (const auto& [node, record] : kCounted) {
    EXPECT_GT((books[{node, record}]), 0) << "nothing counted by record " << record << " of node " << node;
  }

  screen_.answers = {BoxAnswer::kNo, BoxAnswer::kYes};
  auto& clear = On<QAbstractButton>("FrmMDBaudit", "Command1");
  clear.click();
  EXPECT_EQ(MachinesBooks(), books);
  clear.click();
  EXPECT_FALSE(clear.isEnabled());
  for (int record = 339; record <= 344; ++record) {
    Await([&] { return machine().Get(0, record) == 0; }, "the machine to clear a flow");
    books[{0, record}] = 0;
  }
  const Page& flows = *std::ranges::find(kPages, std::string("FrmMDBaudit"), &Page::form);
  for (int n = 0; n < flows.count; ++n) {
    Await([&] { return Shown(flows, n) == "0"; }, "the echo of a zero");
  }
  EXPECT_TRUE(clear.isEnabled());
  EXPECT_EQ(MachinesBooks(), books) << "all else stands";
  ExpectWindowsShow(books);
}

}  // namespace
}  // namespace dosmara
