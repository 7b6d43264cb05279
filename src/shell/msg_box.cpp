// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/msg_box.h"

#include <QApplication>
#include <QMessageBox>
#include <utility>

namespace dosmara {

namespace {

// What a box of each style looks like, in the order of BoxStyle. The default button of a question about a
// destructive act is No, so that an Enter too many destroys nothing.
struct BoxLook {
  QMessageBox::Icon icon;
  QMessageBox::StandardButtons buttons;
  QMessageBox::StandardButton default_button;
};

constexpr BoxLook kLooks[] = {
    {QMessageBox::Critical, QMessageBox::Ok, QMessageBox::Ok},
    {QMessageBox::Warning, QMessageBox::Ok, QMessageBox::Ok},
    {QMessageBox::Warning, QMessageBox::Retry | QMessageBox::Cancel, QMessageBox::Retry},
    {QMessageBox::Warning, QMessageBox::Yes | QMessageBox::No, QMessageBox::No},
};

BoxAnswer ShowOnScreen(const QString& text, const QString& title, BoxStyle style) {
  const BoxLook& look = kLooks[static_cast<int>(style)];
  QMessageBox box(look.icon, title, text, look.buttons, QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(look.default_button);
  switch (box.exec()) {
    case QMessageBox::Retry:
      return BoxAnswer::kRetry;
    case QMessageBox::Cancel:
      return BoxAnswer::kCancel;
    case QMessageBox::Yes:
      return BoxAnswer::kYes;
    case QMessageBox::No:
      return BoxAnswer::kNo;
    default:
      return BoxAnswer::kOk;
  }
}

MsgBoxHandler current_handler;

}  // namespace

BoxAnswer MsgBox(const QString& text, const QString& title, BoxStyle style) {
  return current_handler ? current_handler(text, title, style) : ShowOnScreen(text, title, style);
}

MsgBoxHandler SetMsgBoxHandler(MsgBoxHandler handler) {
  return std::exchange(current_handler, std::move(handler));
}

}  // namespace dosmara
