// SPDX-License-Identifier: GPL-3.0-or-later
// A slider switch with two positions.
#pragma once

#include <QAbstractButton>
#include <QRect>

namespace dosmara {

// Where the parts of a switch lie: the words of both positions with the track between them.
struct SwitchGeometry {
  QRect text[2];
  QRect track;
  QRect knob;
};

// Where the knob stands while the position is not known: half way between 0 and 1.
inline constexpr double kUnknownPosition = 0.5;

// Lays a switch of `size` out, with room for two words of the given widths; a width of 0 leaves no room.
SwitchGeometry LayOutSwitch(QSize size, int width_of_text_0, int width_of_text_1, double position);

// A switch whose position is 0 or 1. Driven by click, by Space, and by Left and Right. Until a position has
// been set, its knob is between the two.
class TwoPositionSwitch : public QAbstractButton {
  Q_OBJECT
  Q_PROPERTY(int position READ Position WRITE SetPosition NOTIFY Changed)
  Q_PROPERTY(bool known READ IsKnown WRITE SetKnown)

 public:
  explicit TwoPositionSwitch(QWidget* parent);

  // The position. While it is not known, the last one that was, or 0.
  int Position() const { return isChecked() ? 1 : 0; }
  // Takes a position, which is then known; anything but 0 is position 1. Setting the position that it has
  // raises no change event.
  void SetPosition(int position);

  // Whether the position is known. One that is not known is not shown.
  bool IsKnown() const { return known_; }
  void SetKnown(bool known);

  // The words beside the positions: "No,Yes", with or without a comma behind the last one.
  void SetPositionTexts(const QString& texts);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  // The position has changed, by the operator or by the program.
  void Changed(int position);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void Describe();
  // Takes the operator's choice. While the position is not known, either choice is a change.
  void Choose(int position);

  QString text_[2];
  bool known_ = false;
};

}  // namespace dosmara
