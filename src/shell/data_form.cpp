// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/data_form.h"

#include <QScopedValueRollback>
#include <QScrollArea>
#include <QVBoxLayout>

#include "shell/records.h"

namespace dosmara {

DataForm::DataForm(const QString& name, int load_threshold)
    : Form(name), body_(new QWidget), load_threshold_(load_threshold) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  auto* area = new QScrollArea(this);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(body_);
  layout->addWidget(area);
}

QSize DataForm::sizeHint() const { return body_->sizeHint(); }

// The controls go first: a box that loses the focus still puts its text back.
DataForm::~DataForm() { delete body_; }

void DataForm::SLabelChange(std::int32_t index, double value) {
  const int slot = arrivals_.Find(NodeIndex, index);
  if (slot == ArrivalMap::kForeign) {
    return;
  }
  const QScopedValueRollback guard(InArrival, true);
  takers_[slot - 1](value);
  if (LoadCount > load_threshold_) {
    Loading = false;
    LoadCount = 0;
    Loaded();
  }
}

void DataForm::Listen(int node, int record, std::function<void(double)> take) {
  takers_.push_back(std::move(take));
  arrivals_.Set(node, record, static_cast<int>(takers_.size()));
}

void DataForm::Listen(FieldRows& rows) {
  for (int n = 0; n < rows.size(); ++n) {
    Listen(rows.Field(n).node, rows.Record(n), [this, &rows, n](double value) {
      rows.Show(n, value);
      Count();
    });
  }
}

void DataForm::Listen(Gate& gate, std::function<void()> follow) {
  Listen(0, gate.record, [this, &gate, follow = std::move(follow)](double value) {
    const int seen = LowBits(value) & gate.mask;
    const bool differs = seen != gate.presence;
    if (!Loading || gate.while_loading != Gate::WhileLoading::kIgnored) {
      gate.presence = seen;
    }
    if (Loading) {
      if (differs || gate.while_loading != Gate::WhileLoading::kCountsChanges) {
        Count();
      }
    } else if (differs) {
      follow();
    }
  });
}

void DataForm::ListenToNothing() {
  takers_.clear();
  arrivals_.Clear();
}

void DataForm::Count() {
  if (Loading) {
    ++LoadCount;
  }
}

}  // namespace dosmara
