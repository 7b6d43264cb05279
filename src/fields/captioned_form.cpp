// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/captioned_form.h"

#include <QScrollArea>
#include <QVBoxLayout>

#include "fields/form_scroller.h"
#include "fields/numbering.h"
#include "shell/caption_table.h"

namespace dosmara {

CaptionedForm::CaptionedForm(const char* name, int title)
    : Form(name), title_(title), body_(new QWidget), area_(new QScrollArea(this)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  area_->setFrameShape(QFrame::NoFrame);
  area_->setWidgetResizable(true);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->setWidget(body_);
  layout->addWidget(area_);
}

QSize CaptionedForm::sizeHint() const {
  return body_->sizeHint() + QSize(0, head_ != nullptr ? head_->sizeHint().height() : 0);
}

void CaptionedForm::AddAbove(QWidget* head) {
  head_ = head;
  static_cast<QVBoxLayout*>(layout())->insertWidget(0, head);
}

void CaptionedForm::ScrollByKeys() { new FormScroller(area_, parentWidget()); }

void CaptionedForm::InitMessaggi() {
  if (title_ != 0) {
    setWindowTitle(Caption(title_));
  }
  for (const Captioned& each : captioned_) {
    each.set(Numbered(Caption(each.line), each.number));
  }
}

QGroupBox* CaptionedForm::NewFrame(const QString& name, int line) {
  auto* frame = new QGroupBox(Body());
  frame->setObjectName(name);
  captioned_.push_back({[frame](const QString& text) { frame->setTitle(text); }, line, 0});
  return frame;
}

FieldLabel* CaptionedForm::NewLabel(const QString& name, int line, int number, QWidget* parent) {
  auto* label = new FieldLabel(parent != nullptr ? parent : Body());
  label->setObjectName(name);
  captioned_.push_back({[label](const QString& text) { label->setText(text); }, line, number});
  return label;
}

QPushButton* CaptionedForm::NewButton(const QString& name, int line) {
  auto* button = new QPushButton(Body());
  button->setObjectName(name);
  captioned_.push_back({[button](const QString& text) { button->setText(text); }, line, 0});
  return button;
}

FieldLabel* CaptionedForm::NewReading(const QString& name, QWidget* parent) {
  auto* reading = new FieldLabel(parent != nullptr ? parent : Body(), true);
  reading->setObjectName(name);
  return reading;
}

}  // namespace dosmara
