// SPDX-License-Identifier: GPL-3.0-or-later
// The horizontal scroll bar of a value.
#pragma once

#include <QScrollBar>

namespace dosmara {

// A scroll bar with one change event for each deliberate change: at every click and key, once at the end of
// a drag, and at every change of its value by the program; setting the value that it has raises none.
// It can be focused and driven by keys, and turns with the wheel only while it has the focus. Until it has
// been given a value it shows none, and the operator cannot move it, because there is nothing to step from.
class Bar : public QScrollBar {
  Q_OBJECT
  Q_PROPERTY(bool known READ IsKnown WRITE SetKnown)

 public:
  explicit Bar(QWidget* parent = nullptr);

  // Sets what the bar can hold and how far a click beside the handle moves it.
  void SetSpan(int min, int max, int large_change);

  // The value in force. During a drag it stays what it was before.
  int Value() const { return value_; }

  // Takes `value`, which is then known. A value outside the span is refused: the bar stays as it is and
  // returns false. During a drag the value is taken, but the handle stays under the operator's hand.
  bool SetValue(int value);

  // Whether the value is known.
  bool IsKnown() const { return known_; }
  void SetKnown(bool known);

  // The value nearest to `value` that the bar can hold.
  int Clamped(double value) const;

  QSize sizeHint() const override;

 signals:
  // The value has changed.
  void Changed(int value);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void Take(int value);
  void EndDrag();

  int value_ = 0;
  bool known_ = false;
  int wheel_ = 0;
};

}  // namespace dosmara
