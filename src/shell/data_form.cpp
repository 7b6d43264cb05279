// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/data_form.h"

#include <QScopedValueRollback>
#include <QScrollArea>
#include <QVBoxLayout>

namespace dosmara {

namespace {

// A scroll area that asks for the whole size of what it holds.
class BodyArea : public QScrollArea {
 public:
  explicit BodyArea(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setWidget(new QWidget);
  }

  QSize sizeHint() const override { return widget()->sizeHint(); }
};

}  // namespace

DataForm::DataForm(const QString& name, int load_threshold) : Form(name), load_threshold_(load_threshold) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  auto* area = new BodyArea(this);
  layout->addWidget(area);
  body_ = area->widget();
}

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
    const int seen = static_cast<int>(value) & gate.mask;
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
