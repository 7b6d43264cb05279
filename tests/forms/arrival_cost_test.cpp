// SPDX-License-Identifier: GPL-3.0-or-later
// What an arrival costs that tells a form nothing new: the same values come over and over.
#include <QApplication>
#include <QTest>

#include "forms/form_fixture.h"
#include "forms/form_list.h"

namespace dosmara {
namespace {

// Counts the events by which widgets are laid out and painted.
class LayoutsAndPaints : public QObject {
 public:
  LayoutsAndPaints() { qApp->installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    for (const QEvent::Type type : {QEvent::LayoutRequest, QEvent::Paint, QEvent::UpdateRequest}) {
      count += event->type() == type ? 1 : 0;
    }
    return false;
  }
};

class ArrivalCost : public FormFixture, public testing::WithParamInterface<FormEntry> {
 protected:
  void ArriveAll(int value) {
    for (const Subscription& subscription : Subscribed()) {
      Arrive(subscription.node, subscription.record, value);
    }
    // A layout asks for a painting, which may ask for another layout.
    for (int i = 0; i < 5; ++i) {
      QApplication::processEvents();
    }
  }
};

TEST_P(ArrivalCost, ValuesThatStandAlreadyCauseNoLayoutAndNoPaint) {
  QApplication::setCursorFlashTime(0);  // a blinking cursor paints by itself
  Open(GetParam().name);
  // 4 opens every gate, 0 and 1 are the values of the rows that show something else than a number.
  for (const int value : {4, 0, 1}) {
    SCOPED_TRACE(value);
    for (int i = 0; i < 3; ++i) {
      ArriveAll(value);
    }
    LayoutsAndPaints counter;
    ArriveAll(value);
    EXPECT_EQ(counter.count, 0);
  }
}

INSTANTIATE_TEST_SUITE_P(Forms, ArrivalCost, testing::ValuesIn(FormList().begin(), FormList().end()),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace dosmara
