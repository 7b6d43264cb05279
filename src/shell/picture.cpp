// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/picture.h"

#include <QPainter>
#include <QPixmapCache>

// The drawings lie in a static library, so nothing but this call brings them into the program. The macro
// wants no namespace around it.
static void BringDrawings() { Q_INIT_RESOURCE(art); }

namespace dosmara {

std::unique_ptr<QSvgRenderer> Drawing(const QString& name) {
  BringDrawings();
  return std::make_unique<QSvgRenderer>(name);
}

QPixmap Picture(const QString& name, QSize size, qreal ratio) {
  const QString key = QString("%1 %2x%3 %4").arg(name).arg(size.width()).arg(size.height()).arg(ratio);
  QPixmap picture;
  if (QPixmapCache::find(key, &picture)) {
    return picture;
  }
  const auto drawing = Drawing(name);
  QRectF place(QPointF(), QSizeF(drawing->defaultSize()).scaled(size, Qt::KeepAspectRatio));
  place.moveCenter(QRectF(QPointF(), QSizeF(size)).center());
  picture = QPixmap(size * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  drawing->render(&painter, place);
  painter.end();
  QPixmapCache::insert(key, picture);
  return picture;
}

}  // namespace dosmara
