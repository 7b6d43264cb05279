// SPDX-License-Identifier: GPL-3.0-or-later
// FrmSchema: the drawing of the machine lies behind its lamps and words.
#include <QApplication>
#include <QPainter>
#include <QSvgRenderer>

#include "controls/pictures.h"
#include "forms/form_fixture.h"

namespace dosmara {
namespace {

class SchemaPicture : public FormFixture {
 protected:
  SchemaPicture() { Open("FrmSchema"); }

  QWidget& Drawing() { return Find("Image1"); }

  // The drawing alone, as it has to lie on the ground of the window: as large as fits and in the middle, with
  // two pixels around it.
  QImage Expected() {
    QSvgRenderer machine(QString(DRAWING));
    QRectF place(QPointF(), QSizeF(1350, 622).scaled(Drawing().size() - QSize(4, 4), Qt::KeepAspectRatio));
    place.moveCenter(QRectF(Drawing().rect()).center());
    QImage picture(Drawing().size(), QImage::Format_RGB32);
    picture.fill(Ground());
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    machine.render(&painter, place);
    return picture;
  }
  QColor Ground() { return Drawing().palette().color(QPalette::Window); }

  // Of the pixels where the drawing differs from its ground and nothing lies over it, the share that is
  // painted.
  double PaintedShare() {
    QApplication::processEvents();
    const QImage expected = Expected();
    const QImage painted = Picture(Drawing());
    QRegion in_sight = Drawing().rect();
    for (const QWidget* lying_over :
         Drawing().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      in_sight -= lying_over->geometry();
    }
    int drawn = 0;
    int alike = 0;
    for (const QRect& part : in_sight) {
      for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
          const QRgb wanted = expected.pixel(x, y);
          if (Differs(wanted, Ground().rgb())) {
            ++drawn;
            alike += Differs(wanted, painted.pixel(x, y)) ? 0 : 1;
          }
        }
      }
    }
    EXPECT_GT(drawn, 10'000) << "there is something to see";
    return static_cast<double>(alike) / drawn;
  }

 private:
  static bool Differs(QRgb one, QRgb other) {
    return std::abs(qRed(one) - qRed(other)) + std::abs(qGreen(one) - qGreen(other)) +
               std::abs(qBlue(one) - qBlue(other)) >
           48;
  }
};

// The lines to the words cross some of its parts, and edges may lie a fraction of a pixel elsewhere.
TEST_F(SchemaPicture, TheMachineIsPainted) { EXPECT_GT(PaintedShare(), 0.9); }

TEST_F(SchemaPicture, TheMachineGrowsWithItsWindow) {
  form().parentWidget()->resize(form().parentWidget()->size() * 1.2);
  EXPECT_GT(PaintedShare(), 0.9);
}

}  // namespace
}  // namespace dosmara
