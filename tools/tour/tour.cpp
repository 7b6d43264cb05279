// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/tour.h"

#include <QAction>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "shell/loaded_forms.h"
#include "shell/menu_table.h"
#include "shell/msg_box.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

// Why a step has failed.
struct StepFailed : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace

Subscribers CountSubscribers() {
  Subscribers counts;
  for (int node = 0; node < kNodeCount; ++node) {
    for (int record = 1; record <= NodeRecordCount[node]; ++record) {
      if (const int subscribers = ParamTable[node][record].Subscribers; subscribers > 0) {
        counts[{node, record}] = subscribers;
      }
    }
  }
  return counts;
}

Tour::Tour(MDIForm1& window, MachineProcess& machine, const QString& pictures)
    : window_(window), machine_(machine), pictures_(pictures) {}

void Tour::Step(const QString& name, const std::function<void()>& act) {
  QElapsedTimer clock;
  clock.start();
  QString outcome = "ok";
  QString box;
  const MsgBoxHandler previous =
      SetMsgBoxHandler([&box](const QString& text, const QString& title, BoxStyle) {
        box = title + ": " + text;
        return BoxAnswer::kCancel;
      });
  try {
    act();
    if (!box.isEmpty()) {
      outcome = "FAILED: an unexpected message box, " + box;
    }
  } catch (const StepFailed& failure) {
    outcome = QStringLiteral("FAILED: ") + failure.what();
  }
  SetMsgBoxHandler(previous);
  if (outcome != "ok") {
    ++failures_;
  }
  std::printf("%-62s %6lld ms  %s\n", qPrintable(name), static_cast<long long>(clock.elapsed()),
              qPrintable(outcome));
  std::fflush(stdout);
}

void Tour::Expect(bool held, const QString& reason) {
  if (!held) {
    throw StepFailed(reason.toStdString());
  }
}

void Tour::Await(const std::function<bool()>& condition, const QString& reason, int deadline_ms) {
  Expect(WaitUntil(condition, deadline_ms), reason);
}

QWidget& Tour::Open(const QString& form) {
  const std::span<const MenuRow> rows = MenuTable();
  const auto row = std::ranges::find_if(rows, [&form](const MenuRow& each) { return each.form == form; });
  Expect(row != rows.end(), "no menu entry opens " + form);
  auto* entry = window_.findChild<QAction*>(row->name);
  Expect(entry != nullptr && entry->isEnabled(),
         QStringLiteral("the menu entry %1 is closed").arg(row->name));
  if (FindForm(form) == nullptr) {
    before_[form] = CountSubscribers();
  }
  entry->trigger();
  auto* opened = window_.findChild<QWidget*>(form);
  Expect(opened != nullptr && opened->isVisible(), form + " did not open");
  return *opened;
}

void Tour::Close(QWidget& form) {
  const QString name = form.objectName();
  form.parentWidget()->close();
  Await([this, name] { return window_.findChild<QWidget*>(name) == nullptr; }, name + " did not close");
}

void Tour::Type(QWidget& form, const QString& box, const QString& text) {
  auto& edit = Control<QLineEdit>(form, box);
  Expect(edit.isVisible() && edit.isEnabled(), box + " takes no entry");
  edit.setFocus();
  edit.selectAll();
  QTest::keyClicks(&edit, text);
  QTest::keyClick(&edit, Qt::Key_Return);
}

void Tour::Picture(const QString& name) {
  QCoreApplication::processEvents();
  const QString file = QDir(pictures_).filePath(name + ".png");
  Expect(window_.grab().save(file), "cannot save " + file);
}

}  // namespace dosmara
