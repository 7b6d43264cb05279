// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/chart_plot.h"

#include <qcustomplot.h>

#include <QEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <cmath>
#include <limits>

#include "controls/strip_chart.h"
#include "controls/tones.h"

namespace dosmara {

namespace {

const QColor kGround(Qt::black);
const QColor kGridTone(0, 255, 0);
constexpr double kLineWidth = 2;
constexpr double kMarkSize = 6;
constexpr double kDotWidth = 3;
constexpr double kMarkRoom = 2 * kMarkSize;  // least distance of points at which marks are drawn
constexpr double kDotRoom = 1;               // and dots
constexpr double kWheelZoom = 1.25;          // of one step of the wheel
constexpr double kWheelStep = 120;           // what the wheel reports for one step
constexpr double kLabelRoom = 1.3;           // from one tick to the next, in widths of a time
constexpr double kNoStretch = 0.001;
constexpr int kTickLength = 5;
constexpr int kSubTickLength = 2;
constexpr int kIconWidth = 32;
const char kLongestTime[] = "10000:00";
constexpr QSize kSmallestPlot(480, 220);

// Each channel's points have a shape of their own, for eyes that do not tell its colour from another.
constexpr QCPScatterStyle::ScatterShape kMarks[] = {QCPScatterStyle::ssDisc, QCPScatterStyle::ssSquare,
                                                    QCPScatterStyle::ssTriangle};

// A ticker of the library with a given number of minor ticks between two others.
template <typename Ticker>
class WithMinorTicks : public Ticker {
 public:
  explicit WithMinorTicks(int count) : count_(count) {}

 protected:
  int getSubTickCount(double /*tickStep*/) override { return count_; }

 private:
  int count_;
};

// Ticks of elapsed time at round times.
class ElapsedTicker : public WithMinorTicks<QCPAxisTickerTime> {
 public:
  using WithMinorTicks::WithMinorTicks;

  QString TextOf(double time) { return getTickLabel(time, {}, {}, 0); }

 protected:
  double getTickStep(const QCPRange& range) override { return TickStep(range.size(), tickCount()); }
};

}  // namespace

ChartPlot::ChartPlot(QWidget* chart, const StripChartSetup& setup)
    : QObject(chart), chart_(*chart), setup_(setup), plot_(new QCustomPlot(chart)) {
  plot_->setMinimumSize(kSmallestPlot);
  plot_->setFocusPolicy(Qt::StrongFocus);
  plot_->installEventFilter(this);
  SetUpAxes();
  AddChannels();
  SetUpMouse();
  Dress();
}

QWidget& ChartPlot::Canvas() { return *plot_; }

void ChartPlot::SetUpAxes() {
  plot_->axisRect()->setupFullAxesBox();
  const QSharedPointer<ElapsedTicker> times(new ElapsedTicker(setup_.minor_ticks));
  times->setTimeFormat("%m:%s");  // an hour is shown as sixty minutes
  plot_->xAxis->setTicker(times);
  const QSharedPointer<WithMinorTicks<QCPAxisTickerFixed>> values(
      new WithMinorTicks<QCPAxisTickerFixed>(setup_.minor_ticks));
  values->setTickOrigin(setup_.low);
  values->setTickStep((setup_.high - setup_.low) / (setup_.value_ticks - 1));
  plot_->yAxis->setTicker(values);
  plot_->yAxis->setRange(setup_.low, setup_.high);
  for (QCPAxis* axis : {plot_->xAxis, plot_->yAxis}) {
    axis->setTickLength(0, kTickLength);
    axis->setSubTickLength(0, kSubTickLength);
    axis->grid()->setPen(QPen(kGridTone, 1, Qt::DotLine));
    axis->grid()->setZeroLinePen(Qt::NoPen);
  }
  for (QCPAxis* axis : {plot_->xAxis2, plot_->yAxis2}) {
    axis->setTicks(false);
  }
  connect(plot_, &QCustomPlot::beforeReplot, this, [this, times] {
    // Two ticks are so far apart that their times do not run into each other.
    const int width = chart_.fontMetrics().horizontalAdvance(times->TextOf(view_.to));
    times->setTickCount(std::clamp(static_cast<int>(Width() / (kLabelRoom * width)), 1, setup_.time_ticks));
    ChooseMarks();
    plot_->setBufferDevicePixelRatio(chart_.devicePixelRatioF());  // the window may have changed screens
  });
}

void ChartPlot::AddChannels() {
  for (const QColor& colour : setup_.colours) {
    graphs_.push_back(plot_->addGraph());
    graphs_.back()->setPen(QPen(colour, kLineWidth));
  }
  // The legend stands above the samples and hides none of them.
  plot_->axisRect()->insetLayout()->take(plot_->legend);
  plot_->plotLayout()->insertRow(0);
  plot_->plotLayout()->addElement(0, 0, plot_->legend);
  plot_->plotLayout()->setRowStretchFactor(0, kNoStretch);
  plot_->setPlottingHint(QCP::phFastPolylines);  // without it, wide lines take a tenth of a second
  plot_->legend->setFillOrder(QCPLegend::foColumnsFirst);
  plot_->legend->setVisible(true);
  // The library gives this layer pixels of its own, to draw it without the others. Nobody does that here.
  plot_->layer("overlay")->setMode(QCPLayer::lmLogical);
}

void ChartPlot::SetUpMouse() {
  plot_->setInteraction(QCP::iRangeDrag);
  plot_->axisRect()->setRangeDrag(Qt::Horizontal);
  connect(plot_->xAxis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
          [this](const QCPRange& range) {
            if (!moving_) {
              emit Dragged({range.lower, range.upper});
            }
          });
  connect(plot_, &QCustomPlot::mouseWheel, this, [this](const QWheelEvent* event) {
    emit Zoomed(std::pow(kWheelZoom, -event->angleDelta().y() / kWheelStep),
                plot_->xAxis->pixelToCoord(event->position().x()));
  });
}

void ChartPlot::SetTitles(const QString& values, const QStringList& channels) {
  plot_->yAxis->setLabel(values);
  for (std::size_t n = 0; n < graphs_.size(); ++n) {
    graphs_[n]->setName(channels.value(static_cast<int>(n)));
  }
  Redraw();
}

// The library joins all points of a graph. A value that is no number between two of them breaks the line.
void ChartPlot::AddPoint(int channel, const QPointF& point, bool begins_line) {
  const auto points = graphs_[channel]->data();
  if (begins_line && !points->isEmpty()) {
    const double between = ((points->constEnd() - 1)->key + point.x()) / 2;
    points->add({between, std::numeric_limits<double>::quiet_NaN()});
  }
  points->add({point.x(), point.y()});
}

std::vector<std::vector<QPointF>> ChartPlot::Lines(int channel) const {
  std::vector<std::vector<QPointF>> lines;
  bool breaks = true;
  for (const QCPGraphData& each : *graphs_[channel]->data()) {
    if (std::isnan(each.value)) {
      breaks = true;
      continue;
    }
    if (breaks) {
      lines.emplace_back();
      breaks = false;
    }
    lines.back().emplace_back(each.key, each.value);
  }
  return lines;
}

void ChartPlot::Show(const ChartView& view) {
  view_ = view;
  const QScopedValueRollback guard(moving_, true);
  plot_->xAxis->setRange(view_.from, view_.to);
  Redraw();
}

// The width in which samples are drawn, as it was laid out last.
double ChartPlot::Width() const {
  const QMargins margins = plot_->axisRect()->margins();
  return plot_->viewport().width() - margins.left() - margins.right();
}

// Points are marked as far as there is room between them: where they are many, their marks would hide the
// line, and drawing them would take longer than all else.
void ChartPlot::ChooseMarks() {
  int points = 1;  // in sight, of the channel that has the most
  for (const QCPGraph* graph : graphs_) {
    const auto held = graph->data();
    points = std::max(points, static_cast<int>(held->findEnd(view_.to) - held->findBegin(view_.from)));
  }
  const double room = Width() / points;
  for (std::size_t n = 0; n < graphs_.size(); ++n) {
    const QPen pen = graphs_[n]->pen();
    QCPScatterStyle mark(QCPScatterStyle::ssNone);
    if (room >= kMarkRoom) {
      mark = QCPScatterStyle(kMarks[n % std::size(kMarks)], pen.color(), pen.color(), kMarkSize);
    } else if (room >= kDotRoom) {
      mark.setShape(QCPScatterStyle::ssDot);
      mark.setPen(QPen(pen.color(), kDotWidth, Qt::SolidLine, Qt::RoundCap));
    }
    graphs_[n]->setScatterStyle(mark);
    graphs_[n]->setAntialiased(room >= kDotRoom);
  }
}

// The samples lie on black in every palette, and so does the legend. The frame tells where the focus is.
void ChartPlot::Dress() {
  const QPalette palette = chart_.palette();
  const QFont font = chart_.font();
  const QColor ink = Ink(palette, true);
  plot_->setBackground(palette.brush(QPalette::Active, QPalette::Window));
  plot_->axisRect()->setBackground(kGround);
  const QPen frame =
      plot_->hasFocus() ? QPen(palette.color(QPalette::Active, QPalette::Highlight), 2) : QPen(ink, 1);
  for (QCPAxis* axis : {plot_->xAxis, plot_->yAxis, plot_->xAxis2, plot_->yAxis2}) {
    axis->setBasePen(frame);
    axis->setTickPen(QPen(ink));
    axis->setSubTickPen(QPen(ink));
    axis->setTickLabelColor(ink);
    axis->setLabelColor(ink);
    axis->setTickLabelFont(font);
    axis->setLabelFont(font);
  }
  const QFontMetrics letters = chart_.fontMetrics();
  plot_->legend->setBrush(kGround);
  plot_->legend->setBorderPen(Qt::NoPen);
  plot_->legend->setTextColor(Qt::white);
  plot_->legend->setFont(font);
  plot_->legend->setIconSize(kIconWidth, letters.height());
  // Half of the time below the last tick reaches beyond the axis.
  const int margin = letters.horizontalAdvance(kLongestTime) / 2;
  plot_->axisRect()->setMinimumMargins({margin, letters.height(), margin, 0});
  Redraw();
}

bool ChartPlot::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
    Dress();
  }
  return QObject::eventFilter(watched, event);
}

void ChartPlot::Redraw() { plot_->replot(QCustomPlot::rpQueuedReplot); }

}  // namespace dosmara
