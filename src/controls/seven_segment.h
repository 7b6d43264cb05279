// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers and times as a seven-segment display shows them.
#pragma once

#include <QPolygonF>
#include <QRectF>
#include <QString>
#include <vector>

#include "controls/instrument.h"

namespace dosmara {

// The text of a display with room for a sign and `digits` digits, `decimals` of them behind the point,
// aligned right. A value that is too long is shown without decimals, and if it still does not fit, as "-" in
// each place. The text of NaN is empty.
QString SegmentText(double value, int digits, int decimals);

// The segments that are lit for a character, bit 0 to 6 for the segments a to g; none for a blank.
int SegmentsOf(QChar character);

// The outline of a segment, 0 to 6 for a to g, of a digit that fills `place`.
QPolygonF SegmentShape(int segment, const QRectF& place);

// Where the digits and the points of a display of `size` lie. Each digit has its point or colon, if any, at
// its right.
struct SegmentGeometry {
  std::vector<QRectF> digits;
  std::vector<QRectF> points;  // room behind each digit
};
SegmentGeometry LayOutSegments(QSize size, int digits);

// What a number and a clock have in common: a dark panel with digits.
class SegmentPanel : public Instrument {
  Q_OBJECT

 public:
  QSize sizeHint() const override;

 protected:
  SegmentPanel(QWidget* parent, int places);

  // Shows a text with one character for each place, a "." or ":" not counted. An empty one shows nothing.
  void SetText(const QString& text);

  void paintEvent(QPaintEvent* event) override;

 private:
  int places_;
  QString text_;
};

// A number with a sign. Dashes stand for one that does not fit; nothing is lit until a number has come.
class SevenSegment : public SegmentPanel {
  Q_OBJECT
  Q_PROPERTY(double value READ Value WRITE SetValue)
  Q_PROPERTY(bool known READ IsKnown WRITE SetKnown)

 public:
  // Room for `digits` digits and a sign, with `decimals` of the digits behind the point as far as they fit.
  SevenSegment(QWidget* parent, int digits, int decimals);

  // The number; 0 while it is not known.
  double Value() const { return value_; }
  void SetValue(double value);

  bool IsKnown() const { return known_; }
  // With false, the display forgets the number. With true, a number that was not known is 0.
  void SetKnown(bool known);

 private:
  void Show(bool known, double value);

  int digits_;
  int decimals_;
  double value_ = 0;
  bool known_ = false;
};

// A time of day, 00:00 to 23:59. Nothing is lit until a time has come.
class SegmentClock : public SegmentPanel {
  Q_OBJECT
  Q_PROPERTY(QString time READ Time WRITE SetTime)

 public:
  explicit SegmentClock(QWidget* parent);

  // The time as "hh:mm"; empty while it is not known.
  QString Time() const { return time_; }
  // Takes a time as "hh:mm", or an empty text for a time that is not known. Any other text is ignored.
  void SetTime(const QString& time);

 private:
  QString time_;
};

}  // namespace dosmara
