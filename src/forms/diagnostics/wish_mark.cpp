// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/diagnostics/wish_mark.h"

#include <QHBoxLayout>
#include <chrono>

#include "forms/diagnostics/in_out_tables.h"
#include "shell/caption_table.h"

namespace dosmara {

namespace {

constexpr std::chrono::milliseconds kPatience(5000);

}  // namespace

// The label keeps its place whatever name it shows, so that nothing around it moves.
WishMark::WishMark(QWidget* parent)
    : QWidget(parent), name_(new FieldLabel(this)), mark_(new EchoMark(this)), patience_(this) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(mark_);
  layout->addWidget(name_);
  name_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  name_->setObjectName("lblWish");
  name_->setText("\n");
  name_->setFixedHeight(name_->sizeHint().height());
  patience_.setObjectName("Patience");
  patience_.setSingleShot(true);
  patience_.setInterval(kPatience);
  connect(&patience_, &QTimer::timeout, this, [this] { mark_->Came(on_ ? 0 : 1); });
}

void WishMark::Sent(const LedSwitch& target, const QGroupBox& group, bool on) {
  target_ = &target;
  group_ = &group;
  on_ = on;
  mark_->Sent(on ? 1 : 0);
  SetCaptions();
  patience_.start();
}

// A wish that comes true late is taken after all.
void WishMark::Look() {
  if (target_ == nullptr || target_->IsOn() != on_) {
    return;
  }
  if (mark_->state() == EchoMark::State::kNotTaken) {
    mark_->Sent(on_ ? 1 : 0);
  }
  mark_->Came(on_ ? 1 : 0);
  patience_.stop();
}

void WishMark::SetCaptions() {
  if (target_ != nullptr) {
    const QString wish = Caption(on_ ? kOffOn.on : kOffOn.off);
    name_->setText(group_->title() + ": " + wish + '\n' + target_->accessibleName());
  }
}

}  // namespace dosmara
