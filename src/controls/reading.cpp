// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/reading.h"

#include <QAccessibleWidget>
#include <QWidget>
#include <algorithm>
#include <iterator>

namespace dosmara {

namespace {

constexpr const char* kInstruments[] = {"dosmara::Led", "dosmara::LedBar", "dosmara::SegmentPanel",
                                        "dosmara::Thermometer"};

class Reading : public QAccessibleWidget {
 public:
  explicit Reading(QWidget* instrument) : QAccessibleWidget(instrument, QAccessible::StaticText) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? widget()->accessibleDescription() : QAccessibleWidget::text(kind);
  }
};

// Asked for each class of an object, the derived one first.
QAccessibleInterface* MakeReading(const QString& class_name, QObject* object) {
  const bool instrument =
      std::find(std::begin(kInstruments), std::end(kInstruments), class_name) != std::end(kInstruments);
  return instrument ? new Reading(static_cast<QWidget*>(object)) : nullptr;
}

}  // namespace

void LetInstrumentsBeRead() { QAccessible::installFactory(MakeReading); }

}  // namespace dosmara
