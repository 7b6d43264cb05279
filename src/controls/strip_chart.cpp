// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/strip_chart.h"

#include <qcustomplot.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QLocale>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QVBoxLayout>
#include <cmath>
#include <limits>

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
constexpr double kStep = 0.5;        // of a view, from one press of Earlier to the next
constexpr double kZoom = 2;          // of one press of Zoom in
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

// The keys that do what the buttons behind Follow do, as their tool tips tell them.
constexpr const char* kKeys[] = {"\u2190", "\u2192", "+", "-", "Home"};

// Ticks of elapsed time, "mm:ss"; an hour has sixty minutes more.
class ElapsedTicker : public QCPAxisTickerTime {
 public:
  explicit ElapsedTicker(const StripChartSetup& setup)
      : most_(setup.time_ticks), minor_ticks_(setup.minor_ticks) {
    setTimeFormat("%m:%s");
  }

  // Leaves so much room between two ticks that their times do not run into each other.
  void SetRoom(int ticks) { setTickCount(std::clamp(ticks, 1, most_)); }

  QString TextOf(double time) { return getTickLabel(time, {}, {}, 0); }

 protected:
  double getTickStep(const QCPRange& range) override { return TickStep(range.size(), tickCount()); }
  int getSubTickCount(double /*tickStep*/) override { return minor_ticks_; }

 private:
  int most_;
  int minor_ticks_;
};

// Ticks at fixed values.
class ValueTicker : public QCPAxisTickerFixed {
 public:
  explicit ValueTicker(const StripChartSetup& setup) : minor_ticks_(setup.minor_ticks) {
    setTickOrigin(setup.low);
    setTickStep((setup.high - setup.low) / (setup.value_ticks - 1));
  }

 protected:
  int getSubTickCount(double /*tickStep*/) override { return minor_ticks_; }

 private:
  int minor_ticks_;
};

// Whether sample `next` comes right behind sample `number`.
bool Follows(std::int16_t number, std::int16_t next) {
  return static_cast<std::uint16_t>(next - number) == 1;
}

bool AreAlike(const ChartView& a, const ChartView& b) {
  const double tolerance = 1e-6 * b.Span();
  return std::abs(a.from - b.from) < tolerance && std::abs(a.to - b.to) < tolerance;
}

// A value as a screen reader tells it: to a tenth.
QString Spoken(double value) { return QLocale().toString(std::round(value * 10) / 10); }

}  // namespace

StripChart::StripChart(QWidget* parent, const StripChartSetup& setup)
    : QWidget(parent), setup_(setup), span_(setup.span.count()) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addLayout(NewControls());
  plot_ = new QCustomPlot(this);
  plot_->setMinimumSize(kSmallestPlot);
  plot_->setFocusPolicy(Qt::StrongFocus);
  plot_->installEventFilter(this);
  layout->addWidget(plot_, 1);
  setFocusProxy(plot_);
  new QShortcut(Qt::Key_Space, plot_, follow_, &QCheckBox::click, Qt::WidgetShortcut);
  SetUpAxes();
  AddChannels();
  Dress();
  ShowView(NewestView(newest_time_, span_));
}

QLayout* StripChart::NewControls() {
  auto* row = new QHBoxLayout;
  follow_ = new QCheckBox(this);
  follow_->setObjectName("Follow");
  follow_->setChecked(following_);
  connect(follow_, &QCheckBox::clicked, this, &StripChart::SetFollowing);
  AddKey(Qt::Key_End, [this] { SetFollowing(true); });
  row->addWidget(follow_);
  const struct {
    const char* name;
    Qt::Key key;
    std::function<void()> act;
  } buttons[] = {
      {"Earlier", Qt::Key_Left, [this] { Step(-kStep); }},
      {"Later", Qt::Key_Right, [this] { Step(kStep); }},
      {"ZoomIn", Qt::Key_Plus, [this] { Zoom(1 / kZoom); }},
      {"ZoomOut", Qt::Key_Minus, [this] { Zoom(kZoom); }},
      {"Everything", Qt::Key_Home, [this] { LookAt(WholeView(newest_time_, setup_.span.count())); }},
  };
  for (const auto& each : buttons) {
    auto* button = new QPushButton(this);
    button->setObjectName(each.name);
    connect(button, &QPushButton::clicked, this, each.act);
    AddKey(each.key, each.act);
    row->addWidget(button);
    buttons_.push_back(button);
  }
  row->addStretch();
  return row;
}

// A key that acts wherever the focus is on the chart.
void StripChart::AddKey(Qt::Key key, const std::function<void()>& act) {
  connect(new QShortcut(key, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut), &QShortcut::activated,
          this, act);
}

void StripChart::SetUpAxes() {
  plot_->axisRect()->setupFullAxesBox();
  const QSharedPointer<ElapsedTicker> times(new ElapsedTicker(setup_));
  plot_->xAxis->setTicker(times);
  plot_->yAxis->setTicker(QSharedPointer<ValueTicker>(new ValueTicker(setup_)));
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
    const QString last = times->TextOf(plot_->xAxis->range().upper);
    times->SetRoom(static_cast<int>(Width() / (kLabelRoom * fontMetrics().horizontalAdvance(last))));
    ChooseMarks();
  });
  plot_->setInteraction(QCP::iRangeDrag);
  plot_->axisRect()->setRangeDrag(Qt::Horizontal);
  connect(plot_->xAxis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this, [this] {
    if (!moving_) {
      LookAt(View());  // the mouse has moved it
    }
  });
  connect(plot_, &QCustomPlot::mouseWheel, this, [this](const QWheelEvent* event) {
    Zoom(std::pow(kWheelZoom, -event->angleDelta().y() / kWheelStep),
         plot_->xAxis->pixelToCoord(event->position().x()));
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
}

// The width of the samples' field, before it is laid out anew.
double StripChart::Width() const {
  const QMargins margins = plot_->axisRect()->margins();
  return plot_->viewport().width() - margins.left() - margins.right();
}

// Points are marked as far as there is room between them: where they are many, their marks would hide the
// line, and drawing them would take longer than all else.
void StripChart::ChooseMarks() {
  const QCPRange range = plot_->xAxis->range();
  int points = 1;  // in sight, of the channel that has the most
  for (const Channel& channel : channels_) {
    const auto held = channel.graph->data();
    points = std::max(points, static_cast<int>(held->findEnd(range.upper) - held->findBegin(range.lower)));
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
  newest_time_ = time.count();
  if (following_) {
    ShowView(NewestView(newest_time_, span_));
  }
  TellValues();
  Redraw();
}

void StripChart::SetCaptions(const StripChartCaptions& captions) {
  captions_ = captions;
  plot_->setAccessibleName(captions_.name);
  plot_->yAxis->setLabel(captions_.values);
  for (std::size_t n = 0; n < channels_.size(); ++n) {
    channels_[n].graph->setName(captions_.channels.value(static_cast<int>(n)));
  }
  const auto caption = [this](QAbstractButton& button, int n, const char* keys) {
    button.setText(captions_.controls.value(n));
    button.setToolTip(QStringLiteral("%1  [%2]").arg(button.text(), QString::fromUtf8(keys)));
  };
  caption(*follow_, 0, "Space, End");
  for (std::size_t n = 0; n < buttons_.size(); ++n) {
    caption(*buttons_[n], static_cast<int>(n) + 1, kKeys[n]);
  }
  TellValues();
  Redraw();
}

void StripChart::SetFollowing(bool following) {
  following_ = following;
  follow_->setChecked(following);
  if (following) {
    span_ = setup_.span.count();
    ShowView(NewestView(newest_time_, span_));
    Redraw();
  }
}

ChartView StripChart::View() const {
  const QCPRange range = plot_->xAxis->range();
  return {range.lower, range.upper};
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

// The screen that the chart is shown on may be finer than the one that it was made on.
void StripChart::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  plot_->setBufferDevicePixelRatio(devicePixelRatioF());
}

void StripChart::ShowView(const ChartView& view) {
  const QScopedValueRollback guard(moving_, true);
  plot_->xAxis->setRange(view.from, view.to);
}

// Shows what the operator wants to see. Unless that is what is followed anyway, following ends.
void StripChart::LookAt(const ChartView& view) {
  const ChartView shown = NearestView(view, newest_time_);
  if (following_ && !AreAlike(shown, NewestView(newest_time_, span_))) {
    SetFollowing(false);
  }
  ShowView(shown);
  Redraw();
}

void StripChart::Step(double share) {
  const ChartView view = View();
  LookAt({view.from + share * view.Span(), view.to + share * view.Span()});
}

void StripChart::Zoom(double factor) {
  const ChartView view = View();
  Zoom(factor, (view.from + view.to) / 2);
}

// A view that follows goes on following, with another width.
void StripChart::Zoom(double factor, double around) {
  if (following_) {
    span_ = NearestSpan(span_ * factor, newest_time_);
    ShowView(NewestView(newest_time_, span_));
    Redraw();
  } else {
    LookAt(ZoomedView(View(), factor, around, newest_time_));
  }
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
