// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/status_bar.h"

#include <QLayout>

#include "shell/form.h"
#include "shell/picture.h"

namespace dosmara {

namespace {

constexpr int kPanels = 4;
constexpr int kFirstLamp = 2;
constexpr int kLampSize = 16;
constexpr double kLampPanelTwips = 255;
constexpr int kRightMargin = 6;

// The six lamp images, image 1 first. The text tells what the picture shows.
struct LampImage {
  const char* picture;
  const char* text;
};

constexpr LampImage kImages[] = {
    {":/art/tx_off.svg", "Transmit lamp: off"}, {":/art/rx_off.svg", "Receive lamp: off"},
    {":/art/err_off.svg", "Error lamp: off"},   {":/art/tx_on.svg", "Transmit lamp: on"},
    {":/art/rx_on.svg", "Receive lamp: on"},    {":/art/err_on.svg", "Error lamp: on"},
};

}  // namespace

StatusBar::StatusBar() {
  setObjectName("StatusBar1");
  setSizeGripEnabled(false);
  setContentsMargins(0, 0, kRightMargin, 0);
}

void StatusBar::MakePanels() {
  for (int panel = 1; panel <= kPanels; ++panel) {
    auto* label = new QLabel;
    label->setObjectName(QString("Panels(%1)").arg(panel));
    label->setTextFormat(Qt::PlainText);
    panels_.push_back(label);
    if (panel < kFirstLamp) {
      addWidget(label, 1);
    } else {
      label->setFixedWidth(qRound(FromTwips(kLampPanelTwips)));
      addPermanentWidget(label);
      ShowLamp(panel, panel - kFirstLamp + 1);
    }
  }
}

void StatusBar::ShowLamp(int panel, int image) {
  const LampImage& lamp = kImages[image - 1];
  QLabel& label = *panels_.at(panel - 1);
  label.setPixmap(Picture(lamp.picture, {kLampSize, kLampSize}, devicePixelRatioF()));
  label.setProperty("Tag", image);
  label.setToolTip(lamp.text);
  label.setAccessibleName(lamp.text);
}

void StatusBar::SetText(const QString& text) {
  panels_.at(0)->setText(text);
  layout()->activate();
  repaint();
}

void StatusBar::ClearText() {
  if (!panels_.at(0)->text().isEmpty()) {
    panels_.at(0)->clear();
  }
}

}  // namespace dosmara
