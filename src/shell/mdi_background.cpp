// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/mdi_background.h"

#include <QPaintEvent>
#include <QPainter>

#include "shell/picture.h"

namespace dosmara {

MdiBackground::MdiBackground() : picture_(Drawing(":/art/background.svg")) {
  setObjectName("MDIBackground1");
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

// The picture covers the area, whatever its shape. It is so plain that painting it takes half a millisecond,
// while its pixels would take as much memory as all else in the window.
void MdiBackground::paintEvent(QPaintEvent* /*event*/) {
  const QSizeF size = viewport()->size();
  QRectF place({}, QSizeF(picture_->defaultSize()).scaled(size, Qt::KeepAspectRatioByExpanding));
  place.moveCenter(viewport()->rect().toRectF().center());
  QPainter painter(viewport());
  picture_->render(&painter, place);
}

}  // namespace dosmara
