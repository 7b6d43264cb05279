// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/instrument.h"

#include <QAccessibleWidget>

namespace dosmara {

namespace {

class Reading : public QAccessibleWidget {
 public:
  explicit Reading(Instrument* instrument) : QAccessibleWidget(instrument, QAccessible::StaticText) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? widget()->accessibleDescription() : QAccessibleWidget::text(kind);
  }
};

QAccessibleInterface* MakeReading(const QString& /*class_name*/, QObject* object) {
  auto* instrument = qobject_cast<Instrument*>(object);
  return instrument != nullptr ? new Reading(instrument) : nullptr;
}

}  // namespace

// Qt keeps a factory once, however often it is installed.
Instrument::Instrument(QWidget* parent) : QWidget(parent) {
  QAccessible::installFactory(MakeReading);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

}  // namespace dosmara
