// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/msg_box.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "support/box_recorder.h"

namespace dosmara {
namespace {

// Shows a real box, hands it to `look` and returns the answer.
template <typename Look>
BoxAnswer Show(const QString& text, const QString& title, BoxStyle style, Look look) {
  QTimer::singleShot(0, [look] { look(*qobject_cast<QMessageBox*>(QApplication::activeModalWidget())); });
  return MsgBox(text, title, style);
}

TEST(MsgBox, ShowsTextAndTitleAsTheyAre) {
  Show("<b>Check</b> serial !\nBoard Not Ready", "ERROR 68", BoxStyle::kCritical, [](QMessageBox& box) {
    EXPECT_EQ(box.text(), "<b>Check</b> serial !\nBoard Not Ready");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.windowTitle(), "ERROR 68");
    EXPECT_TRUE(box.isModal());
    box.accept();
  });
}

TEST(MsgBox, HasTheIconAndTheButtonsOfItsStyle) {
  const struct {
    BoxStyle style;
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
  } kExpected[] = {
      {BoxStyle::kCritical, QMessageBox::Critical, QMessageBox::Ok},
      {BoxStyle::kExclamation, QMessageBox::Warning, QMessageBox::Ok},
      {BoxStyle::kRetryCancel, QMessageBox::Warning, QMessageBox::Retry | QMessageBox::Cancel},
      {BoxStyle::kYesNoWarning, QMessageBox::Warning, QMessageBox::Yes | QMessageBox::No},
  };
  for (const auto& expected : kExpected) {
    Show("text", "title", expected.style, [&expected](QMessageBox& box) {
      EXPECT_EQ(box.icon(), expected.icon);
      EXPECT_EQ(box.standardButtons(), expected.buttons);
      box.close();
    });
  }
}

TEST(MsgBox, ReturnsTheButtonPressed) {
  const struct {
    BoxStyle style;
    QMessageBox::StandardButton button;
    BoxAnswer answer;
  } kExpected[] = {
      {BoxStyle::kCritical, QMessageBox::Ok, BoxAnswer::kOk},
      {BoxStyle::kExclamation, QMessageBox::Ok, BoxAnswer::kOk},
      {BoxStyle::kRetryCancel, QMessageBox::Retry, BoxAnswer::kRetry},
      {BoxStyle::kRetryCancel, QMessageBox::Cancel, BoxAnswer::kCancel},
      {BoxStyle::kYesNoWarning, QMessageBox::Yes, BoxAnswer::kYes},
      {BoxStyle::kYesNoWarning, QMessageBox::No, BoxAnswer::kNo},
  };
  for (const auto& expected : kExpected) {
    const QMessageBox::StandardButton button = expected.button;
    EXPECT_EQ(
        Show("text", "title", expected.style, [button](QMessageBox& box) { box.button(button)->click(); }),
        expected.answer);
  }
}

TEST(MsgBox, TakesEscapeForTheHarmlessAnswer) {
  const auto escape = [](QMessageBox& box) {
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(&box, &key);
  };
  EXPECT_EQ(Show("text", "title", BoxStyle::kRetryCancel, escape), BoxAnswer::kCancel);
  EXPECT_EQ(Show("text", "title", BoxStyle::kYesNoWarning, escape), BoxAnswer::kNo);
  EXPECT_EQ(Show("text", "title", BoxStyle::kCritical, escape), BoxAnswer::kOk);
}

TEST(MsgBox, MakesNoTheAnswerOfEnterToADestructiveQuestion) {
  Show("text", "title", BoxStyle::kYesNoWarning, [](QMessageBox& box) {
    EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
    box.close();
  });
}

TEST(MsgBox, AsksTheHandlerInPlaceOfTheScreen) {
  BoxRecorder screen;
  screen.answers = {BoxAnswer::kYes, BoxAnswer::kNo};
  EXPECT_EQ(MsgBox("first", "title", BoxStyle::kYesNoWarning), BoxAnswer::kYes);
  EXPECT_EQ(MsgBox("second", "title", BoxStyle::kYesNoWarning), BoxAnswer::kNo);
  ASSERT_EQ(screen.boxes.size(), 2u);
  EXPECT_EQ(screen.boxes[1].text, "second");
}

}  // namespace
}  // namespace dosmara
