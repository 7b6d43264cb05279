// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/chart_bar.h"

#include <QHBoxLayout>
#include <QShortcut>

namespace dosmara {

namespace {

// The buttons behind Follow, each with its key.
constexpr struct {
  const char* name;
  Qt::Key key;
  const char* key_name;
  void (ChartScroll::*act)();
} kButtons[] = {{"Earlier", Qt::Key_Left, "\u2190", &ChartScroll::Earlier},
                {"Later", Qt::Key_Right, "\u2192", &ChartScroll::Later},
                {"ZoomIn", Qt::Key_Plus, "+", &ChartScroll::ZoomIn},
                {"ZoomOut", Qt::Key_Minus, "-", &ChartScroll::ZoomOut},
                {"Everything", Qt::Key_Home, "Home", &ChartScroll::Everything}};

void SetCaption(QAbstractButton& button, const QString& text, const char* keys) {
  button.setText(text);
  button.setToolTip(QStringLiteral("%1  [%2]").arg(text, QString::fromUtf8(keys)));
}

}  // namespace

ChartBar::ChartBar(QWidget* chart, ChartScroll& scroll)
    : QWidget(chart), scroll_(scroll), follow_(new QCheckBox(this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  follow_->setObjectName("Follow");
  connect(follow_, &QCheckBox::clicked, this,
          [this](bool on) { Move(on ? &ChartScroll::Follow : &ChartScroll::Stop); });
  AddKey(Qt::Key_End, &ChartScroll::Follow);
  row->addWidget(follow_);
  for (const auto& each : kButtons) {
    auto* button = new QPushButton(this);
    button->setObjectName(each.name);
    connect(button, &QPushButton::clicked, this, [this, act = each.act] { Move(act); });
    AddKey(each.key, each.act);
    row->addWidget(button);
    buttons_.push_back(button);
  }
  row->addStretch();
}

void ChartBar::SetCaptions(const QStringList& captions) {
  SetCaption(*follow_, captions.value(0), "Space, End");
  for (std::size_t n = 0; n < buttons_.size(); ++n) {
    SetCaption(*buttons_[n], captions.value(static_cast<int>(n) + 1), kButtons[n].key_name);
  }
}

void ChartBar::ShowFollowing() { follow_->setChecked(scroll_.IsFollowing()); }

void ChartBar::AddKey(Qt::Key key, void (ChartScroll::*act)()) {
  auto* shortcut = new QShortcut(key, parentWidget(), nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
  connect(shortcut, &QShortcut::activated, this, [this, act] { Move(act); });
}

void ChartBar::Move(void (ChartScroll::*act)()) {
  (scroll_.*act)();
  emit Moved();
}

}  // namespace dosmara
