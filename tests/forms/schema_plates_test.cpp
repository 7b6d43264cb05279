// SPDX-License-Identifier: GPL-3.0-or-later
// FrmSchema: the plates on which lamps stand with their captions while they are on.
#include <QApplication>
#include <QEvent>
#include <QPaintEvent>
#include <QPalette>

#include "controls/led.h"
#include "controls/pictures.h"
#include "forms/form_fixture.h"
#include "link/identification.h"
#include "shell/caption_table.h"

namespace dosmara {
namespace {

class SchemaPlates : public FormFixture, public QObject {
 protected:
  SchemaPlates() { Show(); }
  ~SchemaPlates() override { QApplication::setPalette(palette_); }

  void Show() {
    Open("FrmSchema");
    QApplication::processEvents();
    Drawing().installEventFilter(this);
  }
  void ShowAnew(const QPalette& palette) {
    Close();
    QApplication::setPalette(palette);
    Show();
  }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      painted_ += static_cast<QPaintEvent*>(event)->region();
    }
    return false;
  }
  // What of the drawing has been painted anew since the last time.
  QRegion Painted() {
    QApplication::processEvents();
    return std::exchange(painted_, {});
  }
  QWidget& Drawing() { return Find("Image1"); }
  QRect Place(const std::string& name) { return Find(name).geometry(); }
  // Ground of a plate: between the lamp and the caption on its right.
  QRect GroundBeside(const std::string& lamp) {
    const QRect place = Place(lamp);
    return {place.right() + 2, place.center().y() - 3, 2, 6};
  }
  double LightnessBeside(const std::string& lamp) {
    return Lightness(Picture(Drawing()), GroundBeside(lamp));
  }

 private:
  const QPalette palette_ = QApplication::palette();
  QRegion painted_;
};

TEST_F(SchemaPlates, ALampThatIsOnIsToldFromAfarAndWithoutColour) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    ShowAnew(palette);
    const double unknown = LightnessBeside("Led(8)");
    Arrive(1, 548, 2);
    const double off = LightnessBeside("Led(8)");
    Arrive(1, 548, 3);
    const double on = LightnessBeside("Led(8)");
    EXPECT_EQ(unknown, off) << "no plate for either";
    EXPECT_GT(std::abs(on - off), 25);
  }
}

TEST_F(SchemaPlates, ItsCaptionIsEasyToRead) {
  for (const QPalette& palette : {LightPalette(), DarkPalette()}) {
    ShowAnew(palette);
    Arrive(1, 548, 1);
    const int ink = qGray(palette.color(QPalette::WindowText).rgb());
    EXPECT_GT(std::abs(ink - LightnessBeside("Led(8)")), 110);
  }
}

TEST_F(SchemaPlates, APlateReachesRoundLampAndCaption) {
  const QImage before = Picture(Drawing());
  Arrive(1, 549, 32);
  const QImage after = Picture(Drawing());
  const QRect both = Place("Led(21)").united(Place("LedCaption(21)"));
  for (const QPoint corner : {both.topLeft(), both.topRight(), both.bottomLeft(), both.bottomRight()}) {
    EXPECT_NE(before.pixel(corner), after.pixel(corner)) << corner.x() << " " << corner.y();
  }
  const QPoint middle = both.center();
  for (const QPoint beyond : {QPoint(middle.x(), both.top() - 4), QPoint(middle.x(), both.bottom() + 4),
                              QPoint(both.left() - 4, middle.y()), QPoint(both.right() + 4, middle.y())}) {
    EXPECT_EQ(before.pixel(beyond), after.pixel(beyond)) << beyond.x() << " " << beyond.y();
  }
}

TEST_F(SchemaPlates, AChangePaintsItsPlateAloneAndNoChangePaintsNothing) {
  Arrive(1, 549, 0);
  Painted();
  Arrive(1, 549, 32);
  const QRegion changed = Painted();
  const QRect both = Place("Led(21)").united(Place("LedCaption(21)"));
  EXPECT_TRUE(QRegion(both.adjusted(-2, -2, 2, 2)).subtracted(changed).isEmpty());
  EXPECT_FALSE(changed.intersects(Place("Led(20)")));
  Arrive(1, 549, 32);
  EXPECT_TRUE(Painted().isEmpty());
  Arrive(1, 549, 0);
  EXPECT_TRUE(QRegion(both).subtracted(Painted()).isEmpty()) << "it goes with the light";
}

TEST_F(SchemaPlates, APlateGoesWithACaptionThatChanges) {
  Arrive(1, 549, 32);
  const auto both = [&] { return Place("Led(21)").united(Place("LedCaption(21)")).adjusted(-2, -2, 2, 2); };
  for (const char* text : {"Cup release", "Cup"}) {
    const QRect before = both();
    Painted();
    CaptionTable[359] = text;
    form().InitMessaggi();
    const QRegion changed = Painted();
    EXPECT_NE(both(), before);
    EXPECT_TRUE(QRegion(both().united(before)).subtracted(changed).isEmpty()) << text;
  }
}

TEST_F(SchemaPlates, AnInputHasOneToo) {
  Arrive(1, 544, 255);
  const double off = LightnessBeside("iLed(2)");
  Arrive(1, 544, 251);
  EXPECT_GT(std::abs(LightnessBeside("iLed(2)") - off), 25);
}

TEST_F(SchemaPlates, AHiddenLampHasNone) {
  Close();
  ModelCode = 20;
  Show();
  const QImage before = Picture(Drawing());
  Arrive(1, 545, 253);
  EXPECT_EQ(Picture(Drawing()), before);
}

}  // namespace
}  // namespace dosmara
