// SPDX-License-Identifier: GPL-3.0-or-later
// Every control of every form that writes, over the real link: what goes to the machine are records that the
// tables of its boards have, and each with its mirror if it has one there.
#include <QAbstractButton>
#include <QTabWidget>
#include <QTest>
#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <set>

#include "controls/selector.h"
#include "data/board_table.h"
#include "forms/form_list.h"
#include "forms/line_form_fixture.h"
#include "forms/row_cases.h"
#include "store/parameter_table.h"
#include "support/box_recorder.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;

// A form and what the machine holds while it is open, how many records it writes then, and how many of them
// with their mirrors.
struct Writer {
  const char* form;
  const char* situation;
  std::vector<Sent> machine = {};
  const char* press = nullptr;  // a control that is pressed first
  const char* skip = nullptr;   // what the names of controls begin with that would end the situation
  std::size_t records = 0;
  std::size_t mirrors = 0;
};
void PrintTo(const Writer& writer, std::ostream* out) { *out << writer.form << ' ' << writer.situation; }

// Of the payment systems, 4 is MDB, 2 with 64 one of Executive, 1 G13. Bit 0 of the status of a board is its
// test.
const std::vector<Writer> kWriters = {
    {.form = "FrmAssSel", .situation = "", .records = 24, .mirrors = 24},
    {.form = "FrmAssSet", .situation = "", .records = 48, .mirrors = 48},
    {.form = "FrmAssSet2", .situation = "", .records = 48, .mirrors = 48},
    {.form = "FrmAzione", .situation = "", .records = 7, .mirrors = 7},
    {.form = "FrmCancella", .situation = "", .records = 1},
    {.form = "FrmConf", .situation = "Groups", .skip = "Option1(", .records = 96},
    {.form = "FrmConf", .situation = "Management", .skip = "Text", .records = 1},
    {.form = "FrmDosi",
     .situation = "Selection1",
     .press = "Label11(0)",
     .skip = "Label11(",
     .records = 21,
     .mirrors = 4},
    {.form = "FrmDosi",
     .situation = "Selection9",
     .press = "Label11(8)",
     .skip = "Label11(",
     .records = 21,
     .mirrors = 4},
    {.form = "FrmDosi",
     .situation = "Selection26",
     .press = "Label11(21)",
     .skip = "Label11(",
     .records = 21,
     .mirrors = 4},
    {.form = "FrmInOut",
     .situation = "InTest",
     .machine = {{1, 541, 1}, {2, 290, 1}, {3, 290, 1}},
     .records = 11},
    {.form = "FrmMDBaudit", .situation = "", .records = 6},
    {.form = "FrmOpzioni", .situation = "", .records = 17, .mirrors = 13},
    {.form = "FrmOpzioni",
     .situation = "OpenPoint",
     .machine = {{0, 84, 1}},
     .skip = "SlswitchX5",
     .records = 18,
     .mirrors = 14},
    {.form = "FrmOrologio", .situation = "", .records = 25, .mirrors = 20},
    {.form = "FrmPagamento", .situation = "Mdb", .machine = {{0, 84, 4}}, .records = 11, .mirrors = 11},
    {.form = "FrmPagamento", .situation = "Executive", .machine = {{0, 84, 66}}, .records = 3, .mirrors = 3},
    {.form = "FrmPagamento", .situation = "G13", .machine = {{0, 84, 1}}, .records = 8, .mirrors = 8},
    {.form = "FrmPassword", .situation = "", .records = 3, .mirrors = 3},
    {.form = "FrmPrezzi", .situation = "", .records = 51, .mirrors = 31},
    {.form = "FrmSconti", .situation = "", .records = 31, .mirrors = 31},
    {.form = "FrmTemperatura", .situation = "", .records = 15, .mirrors = 15},
    {.form = "FrmTempi", .situation = "", .records = 46, .mirrors = 46},
    {.form = "FrmTestZeth", .situation = "", .records = 5},
    {.form = "FrmTestZeth2", .situation = "", .records = 5},
};

// Which of its records a board mirrors in which others.
class BoardRecords {
 public:
  explicit BoardRecords(const char* table)
      : records_(ReadBoardTable(std::string(BOARDS) + "/" + table).records) {
    const std::string words = "mirror of ";
    for (int mirror = 1; mirror <= Count(); ++mirror) {
      const std::string& name = At(mirror).name;
      for (int record = 1; record <= Count() && name.starts_with(words); ++record) {
        if (name == words + At(record).name) {
          EXPECT_TRUE(mirrors_.emplace(record, mirror).second) << "two mirrors of " << At(record).name;
          records_mirrored_.emplace(mirror, record);
        }
      }
    }
  }

  int Count() const { return static_cast<int>(records_.size()); }
  const BoardRecord& At(int record) const { return records_.at(static_cast<std::size_t>(record - 1)); }
  // The mirror of a record, or the record of a mirror.
  std::optional<int> MirrorOf(int record) const { return Look(mirrors_, record); }
  std::optional<int> MirroredBy(int mirror) const { return Look(records_mirrored_, mirror); }

 private:
  static std::optional<int> Look(const std::map<int, int>& map, int record) {
    const auto found = map.find(record);
    return found == map.end() ? std::nullopt : std::optional(found->second);
  }

  std::vector<BoardRecord> records_;
  std::map<int, int> mirrors_;
  std::map<int, int> records_mirrored_;
};

const BoardRecords& TableOf(int node) {
  static const BoardRecords boards[] = {BoardRecords("main_board.tsv"), BoardRecords("hot_drinks_unit.tsv"),
                                        BoardRecords("zeth_unit.tsv"), BoardRecords("zeth_unit.tsv")};
  return boards[node];
}

class EveryWrite : public LineFormFixture, public testing::WithParamInterface<Writer> {
 protected:
  // All that the operator can do to a control, each time until the machine has answered.
  void Drive(QWidget& control) {
    if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
      Do(control, [&] {
        screen_.answers = {BoxAnswer::kYes};
        button->click();
      });
    } else if (qobject_cast<Bar*>(&control) != nullptr || qobject_cast<Selector*>(&control) != nullptr) {
      for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End}) {
        Do(control, [&] { QTest::keyClick(&control, key); });
      }
    } else if (qobject_cast<QLineEdit*>(&control) != nullptr) {
      Do(control, [&] {
        control.setFocus();
        static_cast<QLineEdit&>(control).clear();
        QTest::keyClicks(&control, "7");
        QTest::keyClick(&control, Qt::Key_Return);
      });
    }
  }

  // What has been written by the form, apart from mirrors, and which mirrors.
  using Places = std::set<std::pair<int, int>>;  // node and record
  Places written_;
  Places mirrored_;

 private:
  void BringForward(const QWidget& control) {
    for (auto* tabs : form().findChildren<QTabWidget*>()) {
      for (int i = 0; i < tabs->count(); ++i) {
        if (tabs->widget(i)->isAncestorOf(&control)) {
          tabs->setCurrentIndex(i);
        }
      }
    }
  }

  void Do(const QWidget& control, const std::function<void()>& action) {
    BringForward(control);
    if (!control.isEnabled() || !control.isVisibleTo(&form())) {
      return;
    }
    SCOPED_TRACE(control.objectName().toStdString());
    action();
    const Writes waiting = Waiting();
    ExpectRoomFor(waiting);
    EndTimers();
    EXPECT_TRUE(RunUntilFresh());
    EndTimers();
    EXPECT_TRUE(RunUntilFresh());
    Judge(Written());
  }

  // The time of whatever the form waits for is up, more than once for a bar that runs.
  void EndTimers() {
    for (int times = 0; times < 20; ++times) {
      for (QTimer* timer : form().findChildren<QTimer*>()) {
        if (timer->isActive()) {
          QTimerEvent event(timer->timerId());
          QCoreApplication::sendEvent(timer, &event);
        }
      }
    }
  }

  static void ExpectRoomFor(const Writes& writes) {
    for (const Write& write : writes) {
      const ParamRec& record = ParamTable[write.node][write.record];
      for (int byte = TableOf(write.node).At(write.record).bytes; byte < kValueBytes; ++byte) {
        EXPECT_EQ(record.Value[byte], 0)
            << testing::PrintToString(write) << " has more bytes than its record";
      }
    }
  }

  void Judge(const Writes& writes) {
    const auto has = [&](int node, std::optional<int> record, int value) {
      return record && std::ranges::count(writes, Write{node, *record, value}) != 0;
    };
    for (const Write& write : writes) {
      SCOPED_TRACE(testing::PrintToString(write));
      const BoardRecords& board = TableOf(write.node);
      const std::string& name = board.At(write.record).name;
      EXPECT_FALSE(name == "reserved" || name == "spare");
      EXPECT_TRUE(board.At(write.record).period == 0 || name == "discount without a cup")
          << name << " is the machine's to say";
      if (const std::optional<int> record = board.MirroredBy(write.record)) {
        EXPECT_TRUE(has(write.node, record, write.value)) << "the mirror of " << *record << " alone";
        mirrored_.insert({write.node, *record});
        continue;
      }
      written_.insert({write.node, write.record});
      const std::optional<int> mirror = board.MirrorOf(write.record);
      // The configuration leaves the mirror of its byte to the other windows.
      EXPECT_TRUE(!mirror || has(write.node, mirror, write.value) || form().objectName() == "FrmConf")
          << "without its mirror " << *mirror;
    }
  }

  BoxRecorder screen_;
};

TEST_P(EveryWrite, GoesToARecordOfItsBoardAndToItsMirror) {
  const Writer& writer = GetParam();
  for (const Sent& sent : writer.machine) {
    Board().Set(sent.node, sent.record, static_cast<std::uint64_t>(sent.value));
  }
  OpenFilled(writer.form);
  if (writer.press != nullptr) {
    Click(writer.press);
    EXPECT_TRUE(RunUntilFresh());
  }
  Written();
  for (QWidget* control : form().findChildren<QWidget*>()) {
    if (writer.skip == nullptr || !control->objectName().startsWith(writer.skip)) {
      Drive(*control);
    }
  }
  EXPECT_EQ(written_.size(), writer.records) << testing::PrintToString(written_);
  EXPECT_EQ(mirrored_.size(), writer.mirrors) << testing::PrintToString(mirrored_);
}

INSTANTIATE_TEST_SUITE_P(Forms, EveryWrite, testing::ValuesIn(kWriters), [](const auto& each) {
  return std::string(each.param.form) + each.param.situation;
});

// A form that is in no situation writes nothing, whatever the operator does to it.
class NoWrite : public EveryWrite {};

TEST_P(NoWrite, ComesFromAFormThatOnlyShows) {
  OpenFilled(GetParam().form);
  Written();
  for (QWidget* control : form().findChildren<QWidget*>()) {
    Drive(*control);
  }
  EXPECT_EQ(written_, Places{});
  EXPECT_EQ(mirrored_, Places{});
}

std::vector<Writer> Readers() {
  std::vector<Writer> readers;
  for (const FormEntry& entry : FormList()) {
    if (std::ranges::count(kWriters, std::string_view(entry.name),
                           [](const Writer& writer) { return std::string_view(writer.form); }) == 0) {
      readers.push_back({.form = entry.name, .situation = ""});
    }
  }
  return readers;
}

INSTANTIATE_TEST_SUITE_P(Forms, NoWrite, testing::ValuesIn(Readers()),
                         [](const auto& each) { return std::string(each.param.form); });

}  // namespace
}  // namespace dosmara
