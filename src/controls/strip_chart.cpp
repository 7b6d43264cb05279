// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/strip_chart.h"

#include <qcustomplot.h>

#include <QEvent>
#include <QLocale>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QVBoxLayout>
#include <cmath>
#include <limits>

#include "controls/chart_bar.h"
#include "controls/tones.h"

namespace dosmara {

namespace {

const QColor kGround(Qt::black);
const QColor kGridTone(0, 255, 0);
constexpr double kLineWidth = 2;
constexpr double kMarkSize = 6;
constexpr double kDotWidth = 3;
constexpr double kMarkRoom = 2 * kMarkSize;  // from one point to the next for marks to be drawn, and for dots
constexpr double kDotRoom = 1;
constexpr double kWheelZoom = 1.25;  // of one step of the wheel
constexpr double kWheelStep = 120;   // what the wheel tells for it
constexpr double kLabelRoom = 1.3;   // widths of a time from one tick to the next
constexpr double kNoStretch = 0.001;
constexpr int kTickLength = 5;
constexpr int kSubTickLength = 2;
constexpr QSize kSize(860, 540);
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

// Whether sample `next` comes right behind sample `number`.
bool Follows(std::int16_t number, std::int16_t next) {
  return static_cast<std::uint16_t>(next - number) == 1;
}

// A value as a screen reader tells it: to a tenth.
QString Spoken(double value) { return QLocale().toString(std::round(value * 10) / 10); }

}  // namespace

StripChart::StripChart(QWidget* parent, const StripChartSetup& setup)
    : QWidget(parent), setup_(setup), scroll_(setup.span.count()) {
  bar_ = new ChartBar(this, scroll_);
  connect(bar_, &ChartBar::Moved, this, &StripChart::ShowView);
  plot_ = new QCustomPlot(this);
  plot_->setMinimumSize(kSmallestPlot);
  plot_->setFocusPolicy(Qt::StrongFocus);
  plot_->installEventFilter(this);
  setFocusProxy(plot_);
  const auto* const space = new QShortcut(Qt::Key_Space, plot_, nullptr, nullptr, Qt::WidgetShortcut);
  connect(space, &QShortcut::activated, this, [this] { SetFollowing(!Following()); });
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(bar_);
  layout->addWidget(plot_, 1);
  SetUpAxes();
  AddChannels();
  Dress();
  ShowView();
}

void StripChart::SetUpAxes() {
  plot_->axisRect()->setupFullAxesBox();
  const QSharedPointer<ElapsedTicker> times(new ElapsedTicker(setup_.minor_ticks));
  times->setTimeFormat("%m:%s");  // an hour has sixty minutes more
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
    // So much room between two ticks that their times do not run into each other.
    const int width = fontMetrics().horizontalAdvance(times->TextOf(View().to));
    times->setTickCount(std::clamp(static_cast<int>(Width() / (kLabelRoom * width)), 1, setup_.time_ticks));
    ChooseMarks();
    plot_->setBufferDevicePixelRatio(devicePixelRatioF());  // the window may have come to another screen
  });
  plot_->setInteraction(QCP::iRangeDrag);
  plot_->axisRect()->setRangeDrag(Qt::Horizontal);
  connect(plot_->xAxis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
          [this](const QCPRange& range) {
            if (!moving_) {  // the mouse has moved it
              scroll_.LookAt({range.lower, range.upper});
              ShowView();
            }
          });
  connect(plot_, &QCustomPlot::mouseWheel, this, [this](const QWheelEvent* event) {
    scroll_.Zoom(std::pow(kWheelZoom, -event->angleDelta().y() / kWheelStep),
                 plot_->xAxis->pixelToCoord(event->position().x()));
    ShowView();
  });
}

void StripChart::AddChannels() {
  for (const QColor& colour : setup_.colours) {
    QCPGraph* graph = plot_->addGraph();
    graph->setPen(QPen(colour, kLineWidth));
    channels_.push_back({.graph = graph, .last_number = {}, .newest = {}});
  }
  // The legend stands above the samples and hides none of them.
  plot_->axisRect()->insetLayout()->take(plot_->legend);
  plot_->plotLayout()->insertRow(0);
  plot_->plotLayout()->addElement(0, 0, plot_->legend);
  plot_->plotLayout()->setRowStretchFactor(0, kNoStretch);
  plot_->setPlottingHint(QCP::phFastPolylines);  // else wide lines take a tenth of a second
  plot_->legend->setFillOrder(QCPLegend::foColumnsFirst);
  plot_->legend->setVisible(true);
  // Nothing is drawn apart from all else, so no layer needs pixels of its own.
  plot_->layer("overlay")->setMode(QCPLayer::lmLogical);
}

// The width of the samples' field, before it is laid out anew.
double StripChart::Width() const {
  const QMargins margins = plot_->axisRect()->margins();
  return plot_->viewport().width() - margins.left() - margins.right();
}

// Points are marked as far as there is room between them: where they are many, their marks would hide the
// line, and drawing them would take longer than all else.
void StripChart::ChooseMarks() {
  int points = 1;  // in sight, of the channel that has the most
  for (const Channel& channel : channels_) {
    const auto held = channel.graph->data();
    points = std::max(points, static_cast<int>(held->findEnd(View().to) - held->findBegin(View().from)));
  }
  const double room = Width() / points;
  for (std::size_t n = 0; n < channels_.size(); ++n) {
    const QPen pen = channels_[n].graph->pen();
    QCPScatterStyle mark(QCPScatterStyle::ssNone);
    if (room >= kMarkRoom) {
      mark = QCPScatterStyle(kMarks[n % std::size(kMarks)], pen.color(), pen.color(), kMarkSize);
    } else if (room >= kDotRoom) {
      mark.setShape(QCPScatterStyle::ssDot);
      mark.setPen(QPen(pen.color(), kDotWidth, Qt::SolidLine, Qt::RoundCap));
    }
    channels_[n].graph->setScatterStyle(mark);
    channels_[n].graph->setAntialiased(room >= kDotRoom);
  }
}

// Sets what depends on the palette, the font and the focus. The samples lie on black, whatever is around
// them.
void StripChart::Dress() {
  const QColor ink = Ink(palette(), true);
  plot_->setBackground(palette().brush(QPalette::Active, QPalette::Window));
  plot_->axisRect()->setBackground(kGround);
  const QPen frame =
      plot_->hasFocus() ? QPen(palette().color(QPalette::Active, QPalette::Highlight), 2) : QPen(ink, 1);
  for (QCPAxis* axis : {plot_->xAxis, plot_->yAxis, plot_->xAxis2, plot_->yAxis2}) {
    axis->setBasePen(frame);
    axis->setTickPen(QPen(ink));
    axis->setSubTickPen(QPen(ink));
    axis->setTickLabelColor(ink);
    axis->setLabelColor(ink);
    axis->setTickLabelFont(font());
    axis->setLabelFont(font());
  }
  plot_->legend->setBrush(kGround);
  plot_->legend->setBorderPen(Qt::NoPen);
  plot_->legend->setTextColor(Qt::white);
  plot_->legend->setFont(font());
  plot_->legend->setIconSize(kIconWidth, fontMetrics().height());
  // Beside the axes there is room for half the time that stands below the last tick.
  const int margin = fontMetrics().horizontalAdvance(kLongestTime) / 2;
  plot_->axisRect()->setMinimumMargins({margin, fontMetrics().height(), margin, 0});
  Redraw();
}

void StripChart::AddSample(std::int16_t number, std::chrono::duration<double> time,
                           std::span<const std::optional<double>> values) {
  for (std::size_t n = 0; n < channels_.size(); ++n) {
    Channel& channel = channels_[n];
    channel.newest = values[n];
    if (!values[n]) {
      continue;
    }
    const auto points = channel.graph->data();
    if (channel.last_number && !Follows(*channel.last_number, number)) {
      // No line leads over the samples in which the channel had no point.
      const double between = ((points->constEnd() - 1)->key + time.count()) / 2;
      points->add({between, std::numeric_limits<double>::quiet_NaN()});
    }
    points->add({time.count(), *values[n]});
    channel.last_number = number;
  }
  scroll_.Extend(time.count());
  ShowView();
  TellValues();
}

void StripChart::SetCaptions(const StripChartCaptions& captions) {
  captions_ = captions;
  plot_->setAccessibleName(captions_.name);
  plot_->yAxis->setLabel(captions_.values);
  for (std::size_t n = 0; n < channels_.size(); ++n) {
    channels_[n].graph->setName(captions_.channels.value(static_cast<int>(n)));
  }
  bar_->SetCaptions(captions_.controls);
  TellValues();
  Redraw();
}

void StripChart::SetFollowing(bool following) {
  following ? scroll_.Follow() : scroll_.Stop();
  ShowView();
}

std::vector<std::vector<QPointF>> StripChart::Lines(int channel) const {
  std::vector<std::vector<QPointF>> lines;
  bool breaks = true;
  for (const QCPGraphData& each : *channels_[channel].graph->data()) {
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

QSize StripChart::sizeHint() const { return kSize; }

void StripChart::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
    Dress();
  }
}

bool StripChart::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
    Dress();
  }
  return QWidget::eventFilter(watched, event);
}

void StripChart::ShowView() {
  bar_->ShowFollowing();
  const QScopedValueRollback guard(moving_, true);
  plot_->xAxis->setRange(View().from, View().to);
  Redraw();
}

// Tells the newest values to a screen reader, in words.
void StripChart::TellValues() {
  QStringList words;
  for (const Channel& channel : channels_) {
    if (channel.newest) {
      words.append(channel.graph->name() + ' ' + Spoken(*channel.newest));
    }
  }
  plot_->setAccessibleDescription(words.join(QStringLiteral(", ")));
}

// However much changes at a time, it is drawn once.
void StripChart::Redraw() { plot_->replot(QCustomPlot::rpQueuedReplot); }

}  // namespace dosmara
