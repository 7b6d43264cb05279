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

void MdiBackground::paintEvent(QPaintEvent* /*event*/) {
  const QSize size = viewport()->size();
  if (picture_.size() != size * devicePixelRatioF()) {
    picture_ = Picture(":/art/background.svg", size, devicePixelRatioF(), Qt::KeepAspectRatioByExpanding);
  }
  QPainter(viewport()).drawPixmap(0, 0, picture_);
}

}  // namespace dosmara
