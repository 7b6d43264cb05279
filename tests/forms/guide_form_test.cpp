// SPDX-License-Identifier: GPL-3.0-or-later
// The form that the guide in ARCHITECTURE.md makes, letter by letter: it compiles, and does what the guide
// says.
#include <QGridLayout>

#include "fields/data_form.h"
#include "forms/form_fixture.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;

// From here on as in the guide.
constexpr FormSetup kSetup = {.name = "FrmServizio", .title = 43, .opens_with = kAllFresh};

constexpr FieldRow kRows[] = {
    WholeRow({.line = 230, .node = kHotDrinks, .record = 553, .mirror = 557, .max = 255, .length = 3}),
    TenthsRow({.line = 48, .node = kHotDrinks, .record = 31, .mirror = 509, .max = 100, .length = 4}),
};

class FrmServizio : public DataForm {
 public:
  FrmServizio()
      : DataForm(kSetup),
        rows_(NewRows({.caption = {"Label1"}, .value = {"Label2"}, .box = {"Text1"}, .bar = {"HScroll1"}},
                      kRows)) {
    auto* grid = new QGridLayout(Body());
    rows_.PlaceInColumns(*grid, 1);
    grid->setRowStretch(rows_.size(), 1);
    Watch(rows_, Counts::kYes);
  }

 private:
  void Loaded() override { rows_.SetEnabled(true); }

  FieldRows& rows_;
};
// So far as in the guide.

class GuideFormTest : public FormFixture {
 protected:
  GuideFormTest() { Open(new FrmServizio); }
};

TEST_F(GuideFormTest, HasItsWords) {
  EXPECT_EQ(form().windowTitle(), "#43");
  EXPECT_EQ(LabelText("Label1(0)"), "#230");
  EXPECT_EQ(LabelText("Label1(1)"), "#48");
}

TEST_F(GuideFormTest, OpensWhenBothValuesAreThere) {
  Arrive(1, 553, 40);
  EXPECT_FALSE(Enabled("HScroll1(0)"));
  Arrive(1, 31, 25);
  EXPECT_TRUE(Enabled("HScroll1(0)"));
  EXPECT_TRUE(Enabled("HScroll1(1)"));
  EXPECT_EQ(LabelText("Label2(1)"), "2.5");
}

TEST_F(GuideFormTest, WritesAnEntryAndMarksItsEcho) {
  Arrive(1, 553, 40);
  Arrive(1, 31, 25);
  Enter("Text1(1)", "3,5");
  EXPECT_EQ(Written(), (Writes{{1, 31, 35}, {1, 509, 35}}));
  EXPECT_EQ(MarkBehind("Text1(1)"), EchoMark::State::kOnItsWay);
  Arrive(1, 31, 35);
  EXPECT_EQ(MarkBehind("Text1(1)"), EchoMark::State::kTaken);
}

}  // namespace
}  // namespace dosmara
