// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/strip_chart.h"

#include <QEvent>
#include <QLocale>
#include <QShortcut>
#include <QVBoxLayout>
#include <cmath>

#include "controls/chart_bar.h"
#include "controls/chart_plot.h"

namespace dosmara {

namespace {

constexpr QSize kSize(860, 540);

// Whether sample `next` comes right behind sample `number`.
bool Follows(std::int16_t number, std::int16_t next) {
  return static_cast<std::uint16_t>(next - number) == 1;
}

// A value as a screen reader tells it: to a tenth.
QString Spoken(double value) { return QLocale().toString(std::round(value * 10) / 10); }

}  // namespace

StripChart::StripChart(QWidget* parent, const StripChartSetup& setup)
    : QWidget(parent),
      setup_(setup),
      scroll_(setup.span.count()),
      bar_(new ChartBar(this, scroll_)),
      plot_(new ChartPlot(this, setup_)),
      channels_(setup.colours.size()) {
  connect(bar_, &ChartBar::Moved, this, &StripChart::ShowView);
  connect(plot_, &ChartPlot::Dragged, this, [this](const ChartView& view) {
    scroll_.LookAt(view);
    ShowView();
  });
  connect(plot_, &ChartPlot::Zoomed, this, [this](double factor, double around) {
    scroll_.Zoom(factor, around);
    ShowView();
  });
  QWidget& canvas = plot_->Canvas();
  setFocusProxy(&canvas);
  const auto* const space = new QShortcut(Qt::Key_Space, &canvas, nullptr, nullptr, Qt::WidgetShortcut);
  connect(space, &QShortcut::activated, this, [this] { SetFollowing(!IsFollowing()); });
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(bar_);
  layout->addWidget(&canvas, 1);
  ShowView();
}

// No line leads over the samples in which a channel had no point.
void StripChart::AddSample(std::int16_t number, std::chrono::duration<double> time,
                           std::span<const std::optional<double>> values) {
  for (std::size_t n = 0; n < channels_.size(); ++n) {
    Channel& channel = channels_[n];
    channel.newest = values[n];
    if (values[n]) {
      const bool joined = channel.last_number && Follows(*channel.last_number, number);
      plot_->AddPoint(static_cast<int>(n), {time.count(), *values[n]}, !joined);
      channel.last_number = number;
    }
  }
  scroll_.Extend(time.count());
  ShowView();
  TellValues();
}

void StripChart::SetCaptions(const StripChartCaptions& captions) {
  captions_ = captions;
  plot_->Canvas().setAccessibleName(captions_.name);
  plot_->SetTitles(captions_.values, captions_.channels);
  bar_->SetCaptions(captions_.controls);
  TellValues();
}

void StripChart::SetFollowing(bool following) {
  following ? scroll_.Follow() : scroll_.Stop();
  ShowView();
}

std::vector<std::vector<QPointF>> StripChart::Lines(int channel) const { return plot_->Lines(channel); }

QSize StripChart::sizeHint() const { return kSize; }

void StripChart::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
    plot_->Dress();
  }
}

void StripChart::ShowView() {
  bar_->ShowFollowing();
  plot_->Show(View());
}

// Tells the newest values to a screen reader, in words.
void StripChart::TellValues() {
  QStringList words;
  for (std::size_t n = 0; n < channels_.size(); ++n) {
    if (channels_[n].newest) {
      words.append(captions_.channels.value(static_cast<int>(n)) + ' ' + Spoken(*channels_[n].newest));
    }
  }
  plot_->Canvas().setAccessibleDescription(words.join(QStringLiteral(", ")));
}

}  // namespace dosmara
