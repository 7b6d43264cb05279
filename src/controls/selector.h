// SPDX-License-Identifier: GPL-3.0-or-later
// A selector of several positions, each with its word in sight.
#pragma once

#include <QRect>
#include <QSize>
#include <QStringList>
#include <QWidget>
#include <vector>

namespace dosmara {

// Where the segments of a selector lie, and its size with the room for the focus frame.
struct SelectorGeometry {
  std::vector<QRect> segments;
  QSize size;
};

// Lays out one segment for each word, by the widths and the height of the words alone: a row while that is
// not too wide, else two rows of equal segments, else a column.
SelectorGeometry LayOutSelector(const std::vector<int>& widths_of_words, int height_of_words);

// A selector of 2 to 16 positions, counted from 0. Driven by click, by the arrows, Home and End, and by the
// wheel while it has the focus. Until a position has been set, none is shown as chosen.
class Selector : public QWidget {
  Q_OBJECT
  Q_PROPERTY(int position READ Position WRITE SetPosition NOTIFY Changed)
  Q_PROPERTY(bool known READ IsKnown WRITE SetKnown)

 public:
  explicit Selector(QWidget* parent);

  // Sets the words of the positions, "Snack, Pan", with or without a comma behind the last one; blanks
  // around them do not count. Their number is the number of positions; a position that no longer exists
  // becomes 0.
  void SetPositionTexts(const QString& comma_separated);
  int PositionCount() const { return static_cast<int>(words_.size()); }

  // The position, 0 while it is not known.
  int Position() const { return position_; }
  // Takes a position, which is then known; one that does not exist is ignored. Setting the position that it
  // has raises no change event.
  void SetPosition(int position);

  // Whether the position is known. One that is not known is not shown.
  bool IsKnown() const { return known_; }
  void SetKnown(bool known);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  // The position has changed, by the operator or by the program.
  void Changed(int position);

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void LayOut();
  void Describe();
  void Take(int position);
  // Takes the operator's choice. While the position is not known, any choice is a change.
  void Choose(int position);
  // Moves by some positions and stops at the ends.
  void MoveBy(int steps);
  int SegmentAt(const QPoint& point) const;
  QFont ChosenFont() const;

  QStringList words_;
  SelectorGeometry geometry_;
  int position_ = 0;
  bool known_ = false;
  int pressed_ = -1;
  int wheel_ = 0;
};

}  // namespace dosmara
