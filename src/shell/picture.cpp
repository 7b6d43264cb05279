// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/picture.h"

#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

// The drawings lie in a static library, so nothing but this call brings them into the program. The macro
// wants no namespace around it.
static void BringDrawings() { Q_INIT_RESOURCE(art); }

namespace dosmara {

QPixmap Picture(const QString& name, QSize size, qreal ratio, Qt::AspectRatioMode mode) {
  const QString key =
      QString("%1 %2x%3 %4 %5").arg(name).arg(size.width()).arg(size.height()).arg(ratio).arg(mode);
  QPixmap picture;
  if (QPixmapCache::find(key, &picture)) {
    return picture;
  }
  BringDrawings();
  QSvgRenderer renderer(name);
  QRectF place(QPointF(), QSizeF(renderer.defaultSize()).scaled(size, mode));
  place.moveCenter(QRectF(QPointF(), QSizeF(size)).center());
  picture = QPixmap(size * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  renderer.render(&painter, place);
  painter.end();
  QPixmapCache::insert(key, picture);
  return picture;
}

}  // namespace dosmara
