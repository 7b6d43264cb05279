// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/system_test.h"

#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QTest>
#include <algorithm>

#include "link/link_engine.h"
#include "store/failure.h"
#include "store/parameter_table.h"
#include "support/link_fixture.h"
#include "tour/wait.h"

namespace dosmara {

SystemTest::SystemTest() {
  ResetCore();
  LinkIdentifying = false;  // a start that failed leaves it set
}

void SystemTest::Connect(const QStringList& machine_options) {
  machine_ = &rig_.StartMachine(1, machine_options);
  if (!ToolStarts()) {
    const Box told = screen_.boxes.empty() ? Box() : screen_.boxes.back();
    throw std::runtime_error("the tool has ended at its start: " + testing::PrintToString(told));
  }
}

bool SystemTest::ToolStarts() {
  try {
    rig_.StartTool();
    return true;
  } catch (const ProgramEnds&) {
    return false;
  }
}

void SystemTest::ConnectWithDoses() {
  Connect();
  Click("smnuDosi");
  doses_ = window().findChild<QWidget*>("FrmDosi");
  Await([&] { return Unlocked(); }, "the doses to unlock");
  AwaitRead(1);
}

void SystemTest::AwaitRead(int node) const {
  Await(
      [node] {
        return std::ranges::none_of(ParamTable[node],
                                    [](const ParamRec& r) { return (r.Flags & kDue) != 0; });
      },
      "all values to arrive");
}

void SystemTest::Await(const std::function<bool()>& condition, const char* what, int deadline_ms) const {
  if (!WaitUntil(condition, deadline_ms)) {
    throw std::runtime_error(std::string("waited in vain for ") + what);
  }
}

QString SystemTest::Status(const QString& name) {
  const QStringList words = machine().Command("status").value_or(QString()).split(' ');
  return words.value(words.indexOf(name) + 1);
}

void SystemTest::AwaitRequests(int count) {
  const int before = Status("requests").toInt();
  Await([&] { return Status("requests").toInt() >= before + count; }, "further requests");
}

void SystemTest::Click(const QString& menu_entry) { window().findChild<QAction*>(menu_entry)->trigger(); }

bool SystemTest::Ticked(const QString& menu_entry) {
  return window().findChild<QAction*>(menu_entry)->isChecked();
}

int SystemTest::Lamp(int panel) {
  return window().findChild<QLabel*>(QString("Panels(%1)").arg(panel))->property("Tag").toInt();
}

QString SystemTest::Shown(int row) { return Control<QLabel>(QString("lblVal(%1)").arg(row)).text(); }

void SystemTest::Select(int selection) {
  Control<QAbstractButton>(QString("Label11(%1)").arg(selection)).click();
}

void SystemTest::Type(int row, const QString& text) {
  Enter(Control<QLineEdit>(QString("txtVal(%1)").arg(row)), text);
}

void SystemTest::Enter(QLineEdit& box, const QString& text) {
  box.clearFocus();  // a box empties as it takes the focus
  box.setFocus();
  box.selectAll();
  QTest::keyClicks(&box, text);
  QTest::keyClick(&box, Qt::Key_Return);
}

bool SystemTest::Unlocked() { return Control<QWidget>("txtVal(0)").isVisible(); }

}  // namespace dosmara
