// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing of the machine, with lamps and words laid over it.
#pragma once

#include <QLabel>
#include <QSvgRenderer>
#include <QWidget>
#include <memory>
#include <vector>

#include "controls/led.h"
#include "forms/diagnostics/schema_places.h"

namespace dosmara {

// Keeps what lies on the drawing in its place while the drawing grows with the window. At its smallest it is
// as large as the letters ask for. A lamp that is on stands with its caption on a bright plate, which is seen
// from farther away than the lamp.
class SchemaDrawing : public QWidget {
 public:
  explicit SchemaDrawing(QWidget* parent);

  // Lays a lamp and its caption, a word of the legend or an instrument over the drawing. They become children
  // of it. `place` outlives the drawing; an instrument has its upper left corner there.
  void Add(Led* lamp, QLabel* caption, const LampPlace& place);
  void Add(QLabel* word, const LegendPlace& place);
  void Add(QWidget* instrument, QPointF place);

  // Sets the n-th lamp, in the order of Add, and its plate.
  void SetOn(int n, bool on);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Lamp {
    Led* lamp;
    QLabel* caption;
    const LampPlace* place;
  };
  struct Word {
    QLabel* word;
    const LegendPlace* place;
  };
  struct Instrument {
    QWidget* widget;
    QPointF place;
  };

  double Scale() const;
  QPoint Origin() const;
  QRect Plate(const Lamp& lamp) const;
  void PaintPlates(QPainter& painter) const;
  void LayOut();
  void LayOutText(QLabel& label, QPointF at, Beside side, double width);

  // The drawing is painted anew each time, which takes three milliseconds, or one where a single lamp
  // changes. Keeping its pixels would take as much memory as a dozen forms.
  std::unique_ptr<QSvgRenderer> machine_;
  std::vector<Lamp> lamps_;
  std::vector<Word> words_;
  std::vector<Instrument> instruments_;
};

}  // namespace dosmara
