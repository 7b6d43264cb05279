// SPDX-License-Identifier: GPL-3.0-or-later
// The texts that are larger than those around them, because they are read from afar.
#include <QApplication>

#include "forms/form_fixture.h"

namespace dosmara {
namespace {

struct LargeText {
  const char* form;
  const char* label;
  double scale;
};
constexpr LargeText kLargeTexts[] = {
    {"FrmDosi", "Label7", 1.6}, {"FrmOrologio", "Label6", 2}, {"FrmTestZeth", "Label2(1)", 2.5}};

class LargeTextTest : public FormFixture {
 protected:
  ~LargeTextTest() override { QApplication::setFont(font_); }

  QFont font_ = QApplication::font();
};

TEST_F(LargeTextTest, GrowsWithAFontInPoints) {
  for (const double points : {9, 12}) {
    QFont font = font_;
    font.setPointSizeF(points);
    QApplication::setFont(font);
    for (const LargeText& text : kLargeTexts) {
      Open(text.form);
      EXPECT_NEAR(Find(text.label).font().pointSizeF(), text.scale * points, 0.01) << text.form;
      Close();
    }
  }
}

TEST_F(LargeTextTest, GrowsWithAFontInPixels) {
  QFont font = font_;
  font.setPixelSize(20);
  QApplication::setFont(font);
  for (const LargeText& text : kLargeTexts) {
    Open(text.form);
    EXPECT_EQ(Find(text.label).font().pixelSize(), qRound(text.scale * 20)) << text.form;
    Close();
  }
}

}  // namespace
}  // namespace dosmara
