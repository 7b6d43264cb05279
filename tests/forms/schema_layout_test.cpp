// SPDX-License-Identifier: GPL-3.0-or-later
// FrmSchema: how lamps, words and drawing lie to each other.
#include <QApplication>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cmath>
#include <utility>

#include "controls/led.h"
#include "controls/seven_segment.h"
#include "controls/thermometer.h"
#include "data/caption_file.h"
#include "forms/diagnostics/schema_places.h"
#include "forms/form_fixture.h"
#include "shell/caption_table.h"

namespace dosmara {
namespace {

class SchemaLayout : public FormFixture {
 protected:
  ~SchemaLayout() override { QApplication::setFont(font_); }

  // A text whose words are each a fifth longer.
  static QString Longer(const QString& text) {
    QString longer;
    int letters = 0;
    for (const QChar character : text + ' ') {
      if (!character.isLetter()) {
        longer += QString((std::exchange(letters, 0) + 2) / 5, 'n');
      }
      letters += character.isLetter() ? 1 : 0;
      longer += character;
    }
    return longer.trimmed();
  }
  static void Speak(const Language& language, bool longer) {
    for (int line = 1; line <= kLastCaption; ++line) {
      const auto n = static_cast<std::size_t>(line - 1);
      const auto text = QString::fromStdString(n < language.lines.size() ? language.lines[n] : "");
      CaptionTable[line] = longer ? Longer(text) : text;
    }
  }
  void Scale(double scale) {
    QFont font = font_;
    font.setPointSizeF(font.pointSizeF() * scale);
    QApplication::setFont(font);
  }
  QWidget& Drawing() { return Find("Image1"); }
  QList<QWidget*> OnTheDrawing() {
    return Drawing().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
  }
  static std::string Name(const QWidget* widget) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    return widget->objectName().toStdString() + (label != nullptr ? " " + label->text().toStdString() : "");
  }
  // Pixels of a unit of the drawing while it is at its smallest.
  double Units() { return Drawing().fontMetrics().height() / 14.0; }
  QRect Place(const std::string& name) { return Find(name).geometry(); }

  // The drawing alone, without what lies on it.
  static QImage Picture() {
    QSvgRenderer drawing(QString(DRAWING));
    QImage picture(kSchemaSize.toSize(), QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    drawing.render(&painter);
    return picture;
  }
  // How many pixels of lines, as against faint grounds, lie under a place.
  static int LinesUnder(const QImage& picture, const QRect& place) {
    int lines = 0;
    for (int y = place.top(); y <= place.bottom(); ++y) {
      for (int x = place.left(); x <= place.right(); ++x) {
        lines += picture.rect().contains(x, y) && qAlpha(picture.pixel(x, y)) > 128;
      }
    }
    return lines;
  }
  static bool IsDrawn(const QImage& picture, QPoint at) {
    return picture.rect().contains(at) && qAlpha(picture.pixel(at)) > 0;
  }

 private:
  const QFont font_ = QApplication::font();
};

TEST_F(SchemaLayout, NothingOverlapsOrIsCutWhereTextsAreAFifthLonger) {
  for (const Language& language : ReadCaptions(CAPTIONS)) {
    for (const bool longer : {false, true}) {
      for (const double scale : {1.0, 2.0}) {
        SCOPED_TRACE(language.name + (longer ? ", longer, at " : " at ") + std::to_string(scale));
        Speak(language, longer);
        Scale(scale);
        Open("FrmSchema");
        QApplication::processEvents();
        const QList<QWidget*> widgets = OnTheDrawing();
        EXPECT_EQ(widgets.size(), 2 * (28 + 9) + 21 + 2);
        for (int i = 0; i < widgets.size(); ++i) {
          EXPECT_TRUE(Drawing().rect().contains(widgets[i]->geometry())) << Name(widgets[i]);
          for (int j = i + 1; j < widgets.size(); ++j) {
            EXPECT_FALSE(widgets[i]->geometry().intersects(widgets[j]->geometry()))
                << Name(widgets[i]) << " lies over " << Name(widgets[j]);
          }
        }
        Close();
      }
    }
  }
}

TEST_F(SchemaLayout, ThePlateOfALampTouchesNoOther) {
  for (const Language& language : ReadCaptions(CAPTIONS)) {
    Speak(language, true);
    Open("FrmSchema");
    QApplication::processEvents();
    std::vector<QRect> plates;
    for (const auto& [lamp, count] : {std::pair{"Led", 28}, std::pair{"iLed", 9}}) {
      for (int n = 0; n < count; ++n) {
        const QRect caption = Place(Element((std::string(lamp) + "Caption").c_str(), n));
        plates.push_back(Place(Element(lamp, n)).united(caption).adjusted(-2, -2, 2, 2));
      }
    }
    for (std::size_t i = 0; i < plates.size(); ++i) {
      std::vector<std::string> touched;
      for (const QWidget* widget : OnTheDrawing()) {
        if (plates[i].intersects(widget->geometry())) {
          touched.push_back(Name(widget));
        }
      }
      EXPECT_EQ(touched.size(), 2) << testing::PrintToString(touched);
      for (std::size_t j = 0; j < i; ++j) {
        EXPECT_FALSE(plates[i].intersects(plates[j])) << i << " " << j;
      }
    }
    Close();
  }
}

TEST_F(SchemaLayout, EachTextHasRoomForAllOfIt) {
  for (const Language& language : ReadCaptions(CAPTIONS)) {
    Speak(language, true);
    Open("FrmSchema");
    QApplication::processEvents();
    for (const QLabel* label : Drawing().findChildren<QLabel*>()) {
      const QRect text = label->fontMetrics().boundingRect(label->rect(), Qt::TextWordWrap, label->text());
      EXPECT_TRUE(label->rect().size().width() >= text.width() && label->height() >= text.height())
          << Name(label);
    }
    Close();
  }
}

TEST_F(SchemaLayout, OutputsAreRoundAndInputsOblong) {
  Open("FrmSchema");
  QApplication::processEvents();
  for (int n = 0; n < 28; ++n) {
    const QRect place = Place(Element("Led", n));
    EXPECT_NEAR(place.width(), place.height(), 1) << n;
  }
  for (int n = 0; n < 9; ++n) {
    const QRect place = Place(Element("iLed", n));
    EXPECT_GT(place.width(), 1.5 * place.height()) << n;
  }
}

TEST_F(SchemaLayout, ACaptionStandsBesideItsLamp) {
  Open("FrmSchema");
  QApplication::processEvents();
  for (const auto& [lamp, count] : {std::pair{"Led", 28}, std::pair{"iLed", 9}}) {
    for (int n = 0; n < count; ++n) {
      const QRect place = Place(Element(lamp, n));
      const QRect caption = Place(Element((std::string(lamp) + "Caption").c_str(), n));
      const QRect around = place.adjusted(-6, -6, 6, 6);
      EXPECT_TRUE(around.intersects(caption)) << lamp << n;
      const QPoint apart = place.center() - caption.center();
      EXPECT_TRUE(std::abs(apart.x()) <= 2 || std::abs(apart.y()) <= 2) << lamp << n;
    }
  }
}

TEST_F(SchemaLayout, WordsFollowALanguageWithOtherLengths) {
  Open("FrmSchema");
  QApplication::processEvents();
  const QRect before = Place("LedCaption(27)");
  const QRect legend = Place("Label1(6)");
  CaptionTable[353] = "Washing";
  CaptionTable[379] = "Coffee mill";
  form().InitMessaggi();
  QApplication::processEvents();
  EXPECT_EQ(Place("LedCaption(27)").right(), before.right());
  EXPECT_LT(Place("LedCaption(27)").left(), before.left());
  EXPECT_EQ(Place("Label1(6)").right(), legend.right());
  EXPECT_LT(Place("Label1(6)").left(), legend.left());
}

TEST_F(SchemaLayout, GrowsWithItsWindowAndKeepsItsShape) {
  Open("FrmSchema");
  QApplication::processEvents();
  const QRect pump = Place("Led(5)");
  const QRect fan = Place("Led(11)");
  form().parentWidget()->resize(form().parentWidget()->width(), 1400);
  QApplication::processEvents();
  EXPECT_EQ(Place("Led(5)").size(), pump.size()) << "a window that is only taller";
  EXPECT_EQ(Place("Led(11)").center() - Place("Led(5)").center(), fan.center() - pump.center());
  form().parentWidget()->resize(2 * form().parentWidget()->width(), 1400);
  QApplication::processEvents();
  EXPECT_NEAR(Place("Led(5)").width(), 2 * pump.width(), 2);
  const QPoint apart = Place("Led(11)").center() - Place("Led(5)").center();
  EXPECT_NEAR(apart.x(), 2 * (fan.center() - pump.center()).x(), 20);
  EXPECT_NEAR(apart.y(), 2 * (fan.center() - pump.center()).y(), 8);
  EXPECT_TRUE(Drawing().rect().contains(Place("Led(11)")));
}

TEST_F(SchemaLayout, TheDrawingIsNeverSmallerThanThePictureThatItReplaces) {
  EXPECT_GE(kSchemaSize.width(), 233);
  EXPECT_GE(kSchemaSize.height(), 470);
  EXPECT_EQ(QSvgRenderer(QString(DRAWING)).viewBoxF(), QRectF(QPointF(), kSchemaSize));
}

TEST_F(SchemaLayout, EachLineOfTheLegendEndsOnAPart) {
  const QImage picture = Picture();
  for (const LegendPlace& place : kLegendPlaces) {
    EXPECT_TRUE(IsDrawn(picture, place.to.toPoint())) << place.to.x() << " " << place.to.y();
  }
}

TEST_F(SchemaLayout, EachLampHangsOnALineOfItsPart) {
  const QImage picture = Picture();
  const auto hangs = [&](const LampPlace& lamp, double half_width, double half_height) {
    for (int degrees = 0; degrees < 360; ++degrees) {
      const double angle = degrees * 3.14159 / 180;
      const QPointF edge(half_width * std::cos(angle), half_height * std::sin(angle));
      if (IsDrawn(picture, (lamp.centre + edge).toPoint())) {
        return true;
      }
    }
    return false;
  };
  for (const LampPlace& lamp : kOutputPlaces) {
    EXPECT_TRUE(hangs(lamp, 10.5, 10.5)) << lamp.line;
  }
  for (const LampPlace& lamp : kInputPlaces) {
    EXPECT_TRUE(hangs(lamp, 18, 9)) << lamp.line;
  }
}

TEST_F(SchemaLayout, NoWordLiesOnALineOfTheDrawing) {
  const QImage picture = Picture();
  for (const Language& language : ReadCaptions(CAPTIONS)) {
    for (const bool longer : {false, true}) {
      SCOPED_TRACE(language.name + (longer ? ", longer" : ""));
      Speak(language, longer);
      Open("FrmSchema");
      QApplication::processEvents();
      const QImage seen = picture.scaled((kSchemaSize * Units()).toSize());
      const QSize margins = (Drawing().size() - seen.size()) / 2;
      for (const QLabel* label : Drawing().findChildren<QLabel*>()) {
        const QRect place = label->geometry().translated(-margins.width(), -margins.height());
        EXPECT_EQ(LinesUnder(seen, place), 0) << Name(label);
      }
      Close();
    }
  }
}

// Whether a line meets a rectangle.
bool Meets(const QLineF& line, const QRectF& place) {
  const QPointF corners[] = {place.topLeft(), place.topRight(), place.bottomRight(), place.bottomLeft()};
  for (int n = 0; n < 4; ++n) {
    if (line.intersects(QLineF(corners[n], corners[(n + 1) % 4]), nullptr) == QLineF::BoundedIntersection) {
      return true;
    }
  }
  return place.contains(line.p1());
}

TEST_F(SchemaLayout, NoLineOfTheLegendCrossesALampOrAWord) {
  for (const Language& language : ReadCaptions(CAPTIONS)) {
    Speak(language, false);
    Open("FrmSchema");
    QApplication::processEvents();
    const double scale = Units();
    const QSizeF margins = (QSizeF(Drawing().size()) - kSchemaSize * scale) / 2;
    const QPointF origin(margins.width(), margins.height());
    for (const LegendPlace& place : kLegendPlaces) {
      const QLineF line(origin + place.from * scale, origin + place.to * scale);
      for (const QWidget* widget : OnTheDrawing()) {
        EXPECT_FALSE(Meets(line, widget->geometry())) << Name(widget) << " " << place.to.x();
      }
    }
    Close();
  }
}

}  // namespace
}  // namespace dosmara
