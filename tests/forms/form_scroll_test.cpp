// SPDX-License-Identifier: GPL-3.0-or-later
// Keys that scroll a form which is larger than its frame.
#include <QAction>
#include <QApplication>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include "fields/data_form.h"
#include "forms/form_fixture.h"

namespace dosmara {
namespace {

// Larger than any window, with a button and a bar that are disabled at first.
class LargeForm : public DataForm {
 public:
  LargeForm() : DataForm({.name = "LargeForm", .title = 47}) {
    auto* layout = new QVBoxLayout(Body());
    auto* large = new QWidget;
    large->setMinimumSize(4000, 4000);
    auto* button = new QPushButton;
    button->setObjectName("button");
    auto* bar = new Bar;
    bar->setObjectName("bar");
    bar->SetSpan(0, 9, 5);
    bar->SetValue(0);
    for (QWidget* widget : {static_cast<QWidget*>(button), static_cast<QWidget*>(bar), large}) {
      layout->addWidget(widget);
      widget->setEnabled(false);
    }
  }
};

class FormScroll : public FormFixture {
 protected:
  FormScroll() {
    Open(new LargeForm);
    QApplication::processEvents();
  }
  QScrollArea& Area() { return *form().findChild<QScrollArea*>(); }
  int Down() { return Area().verticalScrollBar()->value(); }
  int Across() { return Area().horizontalScrollBar()->value(); }
  QMdiSubWindow& Frame() { return *qobject_cast<QMdiSubWindow*>(form().parentWidget()); }
  // As a keyboard does: to whatever has the focus.
  static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
};

TEST_F(FormScroll, ArrowsAndPageKeysScrollAFormWithNothingToFocus) {
  ASSERT_EQ(QApplication::focusWidget(), &Frame());
  Press(Qt::Key_PageDown);
  const int page = Down();
  EXPECT_GT(page, 100);
  Press(Qt::Key_Down);
  const int step = Down() - page;
  EXPECT_GT(step, 0);
  EXPECT_LT(step, 100);
  Press(Qt::Key_Up);
  EXPECT_EQ(Down(), page);
  Press(Qt::Key_PageUp);
  EXPECT_EQ(Down(), 0);
  EXPECT_EQ(Across(), 0);
  Press(Qt::Key_Right);
  Press(Qt::Key_Right);
  const int twice = Across();
  EXPECT_GT(twice, 0);
  Press(Qt::Key_Left);
  EXPECT_EQ(Across(), twice / 2);
  EXPECT_EQ(Down(), 0);
}

TEST_F(FormScroll, TheKeysOfTheNumberPadScrollToo) {
  Press(Qt::Key_PageDown, Qt::KeypadModifier);
  EXPECT_GT(Down(), 0);
}

TEST_F(FormScroll, OtherKeysAndKeysWithAModifierScrollNothing) {
  for (const Qt::Key key : {Qt::Key_A, Qt::Key_Return, Qt::Key_Space}) {
    Press(key);
  }
  for (const auto modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
    Press(Qt::Key_Down, modifier);
    Press(Qt::Key_Right, modifier);
  }
  EXPECT_EQ(Down(), 0);
  EXPECT_EQ(Across(), 0);
}

TEST_F(FormScroll, AControlWithTheFocusKeepsTheKeysThatItTakes) {
  Find("bar").setEnabled(true);
  Focus("bar");
  Press(Qt::Key_Right);
  Press(Qt::Key_PageDown);
  EXPECT_EQ(BarOf("bar").value(), 6);
  EXPECT_EQ(Down(), 0);
  EXPECT_EQ(Across(), 0);
}

TEST_F(FormScroll, AControlWithTheFocusPassesOnWhatItDoesNotTake) {
  Find("button").setEnabled(true);
  Focus("button");
  Press(Qt::Key_PageDown);
  EXPECT_GT(Down(), 0);
}

TEST_F(FormScroll, KeysThatMoveTheFrameScrollNothing) {
  const QPoint place = Frame().pos();
  for (QAction* entry : Frame().systemMenu()->actions()) {
    if (entry->text().contains("Move")) {
      entry->trigger();
    }
  }
  Press(Qt::Key_Down);
  EXPECT_EQ(Down(), 0);
  EXPECT_GT(Frame().y(), place.y());
  Press(Qt::Key_Return);
  Press(Qt::Key_Down);
  EXPECT_GT(Down(), 0) << "once it has been moved";
}

}  // namespace
}  // namespace dosmara
