// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/visit.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <algorithm>

#include "controls/echo_mark.h"
#include "controls/progress_line.h"
#include "controls/selector.h"
#include "controls/two_position_switch.h"
#include "tour/left_subscribed.h"

namespace dosmara {

namespace {

// Leaves the records out that some form leaves subscribed: how many have done so depends on the way of the
// tour.
Subscribers WithoutLeftOnes(Subscribers counts) {
  for (const LeftSubscribed& left : kLeftSubscribed) {
    counts.erase({left.node, left.record});
  }
  return counts;
}

int Count(const Subscribers& counts, int node, int record) {
  const auto count = counts.find({node, record});
  return count == counts.end() ? 0 : count->second;
}

// Expects no record to have more subscribers in `counts` than in `most`.
void ExpectNoMore(Tour& tour, const Subscribers& counts, const Subscribers& most, const QString& otherwise) {
  for (const auto& [place, count] : WithoutLeftOnes(counts)) {
    const auto [node, record] = place;
    tour.Expect(count <= Count(most, node, record),
                QStringLiteral("record %1 of node %2 %3").arg(record).arg(node).arg(otherwise));
  }
}

void ExpectOpen(Tour& tour, const QWidget& control) {
  tour.Expect(control.isVisible() && control.isEnabled(), control.objectName() + " takes no change");
}

}  // namespace

QWidget* OpenAndUnlock(Tour& tour, const QString& name, const QString& control) {
  QWidget* form = nullptr;
  tour.Step(name + " opens and unlocks", [&] {
    form = &tour.Open(name);
    const auto& first = tour.Control<QWidget>(*form, control);
    tour.Await([&] { return first.isVisible() && first.isEnabled(); }, "it stays locked", kUnlockMs);
  });
  return form;
}

void AwaitHeld(Tour& tour, const Place& place, int value) {
  tour.Await([&] { return tour.machine().Get(place.node, place.record) == value; },
             "the machine does not hold the value");
  tour.Await([&] { return place.mirror == 0 || tour.machine().Get(place.node, place.mirror) == value; },
             "the mirror does not hold the value");
}

void AwaitTaken(Tour& tour, QWidget& form) {
  const auto marks = form.findChildren<EchoMark*>();
  const auto count = [&](EchoMark::State state) {
    return std::ranges::count(marks, state, &EchoMark::state);
  };
  tour.Await([&] { return count(EchoMark::State::kOnItsWay) == 0 && count(EchoMark::State::kTaken) > 0; },
             "the change stays on its way");
  tour.Expect(count(EchoMark::State::kNotTaken) == 0, "the machine does not take the change");
}

void TypeValue(Tour& tour, QWidget& form, const Entry& entry) {
  tour.Type(form, entry.box, entry.text);
  AwaitHeld(tour, entry.place, entry.value);
  tour.Await(
      [&] {
        const QString shown = entry.label != nullptr ? tour.Control<QLabel>(form, entry.label).text()
                                                     : tour.Control<QLineEdit>(form, entry.box).text();
        return shown == entry.shown;
      },
      "the form does not follow");
  AwaitTaken(tour, form);
}

void TypeHeld(Tour& tour, QWidget& form, const Entry& entry, const QString& bar_name) {
  const auto& bar = tour.Control<QWidget>(form, bar_name);
  tour.Expect(bar.isEnabled(), "the bar is closed");
  TypeValue(tour, form, entry);
  tour.Await([&] { return bar.isEnabled(); }, "the bar does not open again");
}

void ToggleSwitch(Tour& tour, QWidget& form, const Toggle& toggle) {
  auto& control = tour.Control<TwoPositionSwitch>(form, toggle.control);
  ExpectOpen(tour, control);
  const int wanted =
      static_cast<int>(tour.machine().Get(toggle.place.node, toggle.place.record)) ^ toggle.mask;
  QTest::keyClick(&control, Qt::Key_Space);
  AwaitHeld(tour, toggle.place, wanted);
  AwaitTaken(tour, form);
  tour.Expect(control.Position() == ((wanted & toggle.mask) != 0 ? 1 : 0), "the switch does not follow");
}

void Choose(Tour& tour, QWidget& form, const QString& name, int position) {
  auto& control = tour.Control<Selector>(form, name);
  ExpectOpen(tour, control);
  for (int steps = position - control.Position(); steps != 0; steps += steps < 0 ? 1 : -1) {
    QTest::keyClick(&control, steps < 0 ? Qt::Key_Left : Qt::Key_Right);
  }
  tour.Expect(control.Position() == position, name + " does not reach the position");
}

void ChoosePosition(Tour& tour, QWidget& form, const Choice& choice) {
  Choose(tour, form, choice.control, choice.position);
  AwaitHeld(tour, choice.place, choice.value);
  AwaitTaken(tour, form);
  tour.Expect(tour.Control<Selector>(form, choice.control).Position() == choice.position,
              "the selector does not follow");
}

void AwaitRead(Tour& tour, const QWidget& form) {
  const auto* line = form.findChild<ProgressLine*>();
  tour.Await([&] { return line == nullptr || line->Share() == 1; }, "it is not read to its end", kReadMs);
}

void CloseForm(Tour& tour, QWidget& form) {
  const QString name = form.objectName();
  tour.Step(name + " closes and leaves no record subscribed", [&] {
    const Subscribers before = tour.Before(form);
    tour.Close(form);
    const Subscribers after = CountSubscribers();
    ExpectNoMore(tour, after, before, "stays subscribed");
    ExpectNoMore(tour, before, after, "is not read any more");
    for (const LeftSubscribed& left : kLeftSubscribed) {
      tour.Expect(name != left.form ||
                      Count(after, left.node, left.record) == Count(before, left.node, left.record) + 1,
                  QStringLiteral("record %1 does not stay subscribed").arg(left.record));
    }
  });
}

}  // namespace dosmara
