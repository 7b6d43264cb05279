// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/mdi_background.h"

#include <QPaintEvent>
#include <QPainter>

#include "shell/picture.h"

namespace dosmara {

MdiBackground::MdiBackground() {
  setObjectName("MDIBackground1");
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void MdiBackground::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), palette().window());
  painter.drawPixmap(0, 0, Picture(":/art/background.svg", viewport()->size(), devicePixelRatioF()));
}

}  // namespace dosmara
