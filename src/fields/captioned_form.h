// SPDX-License-Identifier: GPL-3.0-or-later
// A form whose controls lie on a body that scrolls, and which captions them from the language.
#pragma once

#include <QGroupBox>
#include <QPushButton>
#include <functional>
#include <vector>

#include "controls/field_label.h"
#include "shell/form.h"

class QScrollArea;

namespace dosmara {

// The base of DataForm: what there is before any record.
class CaptionedForm : public Form {
 public:
  // `title` is the line of the language file that titles the form; 0: the form does it itself.
  CaptionedForm(const char* name, int title);

  // Sets the title and all captions.
  void InitMessaggi() override;
  QSize sizeHint() const override;

 protected:
  // The widget that carries the controls.
  QWidget* Body() { return body_; }
  // Puts a widget above the body, where it does not scroll.
  void AddAbove(QWidget* head);
  // Lets the keys scroll the body that reach the frame around the form. Called once it lies in one.
  void ScrollByKeys();

  // Controls that are captioned by a line of the language, a label by a number behind it too.
  QGroupBox* NewFrame(const QString& name, int line);
  FieldLabel* NewLabel(const QString& name, int line, int number = 0, QWidget* parent = nullptr);
  QPushButton* NewButton(const QString& name, int line);
  // The framed field of a value that is only shown. The form gives it its text.
  FieldLabel* NewReading(const QString& name, QWidget* parent = nullptr);

 private:
  struct Captioned {
    std::function<void(const QString& text)> set;
    int line;
    int number;
  };

  int title_;
  QWidget* body_;
  QScrollArea* area_;
  QWidget* head_ = nullptr;
  std::vector<Captioned> captioned_;
};

}  // namespace dosmara
