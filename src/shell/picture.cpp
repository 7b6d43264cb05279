// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/picture.h"

#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace dosmara {

QPixmap Picture(const QString& name, QSize size, qreal ratio) {
  const QString key = QString("%1 %2x%3 %4").arg(name).arg(size.width()).arg(size.height()).arg(ratio);
  QPixmap picture;
  if (QPixmapCache::find(key, &picture)) {
    return picture;
  }
  picture = QPixmap(size * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QSvgRenderer renderer(name);
  renderer.setAspectRatioMode(Qt::KeepAspectRatio);
  QPainter painter(&picture);
  renderer.render(&painter, QRectF(QPointF(), QSizeF(size)));
  QPixmapCache::insert(key, picture);
  return picture;
}

}  // namespace dosmara
