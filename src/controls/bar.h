// SPDX-License-Identifier: GPL-3.0-or-later
// The horizontal scroll bar of a value.
#pragma once

#include <QScrollBar>

namespace dosmara {

// A scroll bar with one change event for each deliberate change: at every click and key, once at the end of
// a drag, and at every change of its value by the program; setting the value that it has raises none.
// It can be focused and driven by keys, and turns with the wheel only while it has the focus.
class Bar : public QScrollBar {
  Q_OBJECT

 public:
  explicit Bar(QWidget* parent = nullptr);

  // Sets what the bar can hold and how far a click beside the handle moves it.
  void SetSpan(int min, int max, int large_change);

  // The value in force. During a drag it stays what it was before.
  int Value() const { return value_; }

  // Takes `value`. A value outside the span is refused: the bar stays as it is and returns false. During a
  // drag the value is taken, but the handle stays under the operator's hand.
  bool SetValue(int value);

  // The nearest value to `value` that the bar can hold.
  int Clamped(double value) const;

  QSize sizeHint() const override;

 signals:
  // The value has changed.
  void Changed(int value);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void Take(int value);
  void EndDrag();

  int value_ = 0;
  int wheel_ = 0;
};

}  // namespace dosmara
