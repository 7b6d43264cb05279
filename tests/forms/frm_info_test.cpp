// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/frm_info.h"

#include <QCoreApplication>
#include <QGroupBox>

#include "forms/form_fixture.h"

namespace dosmara {
namespace {

// The form of the program "Doser", version 12.3.45.
class FrmInfoTest : public FormFixture {
 protected:
  FrmInfoTest()
      : name_(QCoreApplication::applicationName()), version_(QCoreApplication::applicationVersion()) {
    QCoreApplication::setApplicationName("Doser");
    QCoreApplication::setApplicationVersion("12.3.45");
    Open("FrmInfo");
  }
  ~FrmInfoTest() override {
    QCoreApplication::setApplicationName(name_);
    QCoreApplication::setApplicationVersion(version_);
  }

 private:
  QString name_;
  QString version_;
};

TEST_F(FrmInfoTest, TellsTheTitleAndTheRevisionOfTheBuild) {
  EXPECT_EQ(form().windowTitle(), "Info");
  EXPECT_EQ(Find<QGroupBox>("Frame1").title(), "Program Info");
  EXPECT_EQ(LabelText("Label1(0)"), "Doser");
  EXPECT_EQ(LabelText("Label1(1)"), "Rev. 12.3.45");
}

TEST_F(FrmInfoTest, ShowsItsPicture) {
  const QImage picture = Find<QLabel>("Picture").pixmap(Qt::ReturnByValue).toImage();
  EXPECT_EQ(picture.size() / picture.devicePixelRatio(), QSize(240, 160));
  EXPECT_EQ(picture.pixelColor(picture.width() / 2, picture.height() / 8), QColor("#e9eef2"));
}

TEST_F(FrmInfoTest, SubscribesNothingAndIgnoresArrivals) {
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
  Arrive(0, 312, 4);
  EXPECT_EQ(LabelText("Label1(1)"), "Rev. 12.3.45");
  Close();
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
}

TEST_F(FrmInfoTest, KeepsItsWordsInEveryLanguage) {
  form().InitMessaggi();
  EXPECT_EQ(form().windowTitle(), "Info");
  EXPECT_EQ(Find<QGroupBox>("Frame1").title(), "Program Info");
}

// 4500 twips are 300 pixels, 3500 are 233.33; 0.075 of the height is what 0.85 / 2 lacks to a half.
TEST_F(FrmInfoTest, LiesRightOfAndBelowTheCornerByItsHeightAloneAsPrescribed) {
  const QWidget& frame = *form().parentWidget();
  EXPECT_EQ(frame.x(), 300);
  EXPECT_EQ(frame.y(), qRound(233.3333 - 0.075 * frame.height()));
}

TEST(CenterForm1, PlacesAFormByTheSizeOfTheReference) {
  // 400 x 0.85 / 2 - 200 / 2 + 3500 / 15 = 303.3; 1000 / 2 - 300 / 2 + 4500 / 15 = 650
  EXPECT_EQ(CenterForm1Position({300, 200}, {1000, 400}), QPoint(650, 303));
  // 3500 / 15 - 0.075 x 400 = 203.3
  EXPECT_EQ(CenterForm1Position({500, 400}, {500, 400}), QPoint(300, 203));
}

TEST(RevisionText, HasABlankBehindThePointAsPrescribed) {
  EXPECT_EQ(RevisionText(QVersionNumber(1, 0, 5)), "Rev. 1.0.5");
  EXPECT_EQ(RevisionText(QVersionNumber(10, 20, 30)), "Rev. 10.20.30");
}

}  // namespace
}  // namespace dosmara
