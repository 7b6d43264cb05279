// SPDX-License-Identifier: GPL-3.0-or-later
// Windows of counters, on tables made for it: what the tables can say beyond what the shipped windows use.
#include "fields/counters_form.h"

#include <QCoreApplication>
#include <QScrollArea>
#include <QScrollBar>

#include "forms/form_fixture.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

constexpr CounterRun kRuns[] = {
    {.records = {0, 10, 3}, .caption = {"Label1"}, .line = 200, .line_step = 1, .value = {"Label2"}},
    {.frame = "Frame1",
     .frame_line = 77,
     .records = {2, 10, 4},
     .caption = {"Label3", 5},
     .line = 300,
     .numbering = Numbering::kFromOne,
     .value = {"Label4", 5},
     .columns = 2},
    {.frame = "Frame2",
     .records = {1, 90},
     .caption = {"Label5", kNoArray},
     .line = 310,
     .value = {"Label6", kNoArray}},
    {.goes_on = true,
     .records = {1, 100, 2},
     .caption = {"Label7"},
     .line = 320,
     .line_step = 1,
     .value = {"Label8"}},
    {.frame = "Frame3",
     .beside = true,
     .records = {1, 110},
     .caption = {"Label9", kNoArray},
     .line = 330,
     .value = {"Label10", kNoArray}},
};

class Counters : public CountersForm {
 public:
  Counters() : CountersForm({.name = "Counters", .title = 47}, kRuns) {}
  using CountersForm::CaptionOf;
  using CountersForm::Grid;
  using CountersForm::Value;
};

class CountersFormTest : public FormFixture {
 protected:
  CountersFormTest() { Open(counters_); }

  QRect Place(const std::string& name) {
    const QWidget& widget = Find(name);
    return {widget.mapTo(&form(), QPoint()), widget.size()};
  }

  Counters* counters_ = new Counters;
};

TEST_F(CountersFormTest, CaptionsAreOneLineForAllOrALineForEach) {
  EXPECT_EQ(form().windowTitle(), "#47");
  EXPECT_EQ(LabelText("Label1(0)"), "#200");
  EXPECT_EQ(LabelText("Label1(1)"), "#201");
  EXPECT_EQ(LabelText("Label1(2)"), "#202");
  EXPECT_EQ(LabelText("Label3(5)"), "#300 1");
  EXPECT_EQ(LabelText("Label3(8)"), "#300 4");
  EXPECT_EQ(LabelText("Label5"), "#310");
}

TEST_F(CountersFormTest, AFrameHasATitleOrNone) {
  EXPECT_EQ(Find("Frame1").property("title").toString(), "#77");
  EXPECT_EQ(Find("Frame2").property("title").toString(), "");
}

TEST_F(CountersFormTest, CaptionsFollowTheLanguage) {
  for (const int line : {47, 77, 201, 300, 310}) {
    CaptionTable[line] = "new";
  }
  form().InitMessaggi();
  EXPECT_EQ(form().windowTitle(), "new");
  EXPECT_EQ(Find("Frame1").property("title").toString(), "new");
  EXPECT_EQ(LabelText("Label1(0)"), "#200");
  EXPECT_EQ(LabelText("Label1(1)"), "new");
  EXPECT_EQ(LabelText("Label3(6)"), "new 2");
  EXPECT_EQ(LabelText("Label5"), "new");
}

TEST_F(CountersFormTest, EachRecordShowsOnItsLabel) {
  Arrive(0, 12, 7);
  Arrive(2, 10, 8);
  Arrive(1, 90, 9);
  EXPECT_EQ(LabelText("Label2(2)"), "7");
  EXPECT_EQ(LabelText("Label2(0)"), "");
  EXPECT_EQ(LabelText("Label4(5)"), "8");
  EXPECT_EQ(LabelText("Label6"), "9");
  EXPECT_EQ(&counters_->Value(1, 0), &Find<FieldLabel>("Label4(5)"));
  EXPECT_EQ(&counters_->CaptionOf(0, 2), &Find<FieldLabel>("Label1(2)"));
}

TEST_F(CountersFormTest, CountersLieRowByRowInTheirColumns) {
  EXPECT_GT(Place("Label2(1)").top(), Place("Label2(0)").top());
  EXPECT_EQ(Place("Label4(6)").top(), Place("Label4(5)").top());
  EXPECT_GT(Place("Label4(6)").left(), Place("Label4(5)").right());
  EXPECT_GT(Place("Label4(7)").top(), Place("Label4(5)").top());
  EXPECT_EQ(Place("Label4(7)").left(), Place("Label4(5)").left());
}

TEST_F(CountersFormTest, ARunGoesOnInTheFrameAndTheColumnsOfTheOneBefore) {
  QCoreApplication::processEvents();
  for (const char* name : {"Label7(0)", "Label7(1)", "Label8(0)", "Label8(1)"}) {
    EXPECT_EQ(Find(name).parentWidget(), &Find("Frame2")) << name;
  }
  EXPECT_GT(Place("Label8(0)").top(), Place("Label6").bottom());
  EXPECT_GT(Place("Label8(1)").top(), Place("Label8(0)").bottom());
  EXPECT_EQ(Place("Label8(1)").left(), Place("Label6").left());
  EXPECT_EQ(Place("Label8(1)").right(), Place("Label6").right());
  EXPECT_EQ(&counters_->Grid(3), &counters_->Grid(2));
  Arrive(1, 90, 5);
  Arrive(1, 101, 6);
  EXPECT_EQ(LabelText("Label6"), "5");
  EXPECT_EQ(LabelText("Label8(1)"), "6");
  EXPECT_EQ(LabelText("Label7(1)"), "#321");
}

TEST_F(CountersFormTest, ARunStandsBelowTheOneBeforeOrBesideIt) {
  QCoreApplication::processEvents();
  EXPECT_GT(Place("Frame2").top(), Place("Frame1").bottom());
  EXPECT_GT(Place("Frame3").left(), Place("Frame2").right());
  EXPECT_EQ(Place("Frame3").top(), Place("Frame2").top());
  EXPECT_LT(Place("Frame3").bottom(), Place("Frame2").bottom()) << "no higher than its counters";
}

TEST_F(CountersFormTest, FewColumnsLeaveRoomForAnyCounterOfFourBytes) {
  for (const char* name : {"Label2(0)", "Label4(5)", "Label6"}) {
    QCoreApplication::processEvents();
    const QRect before = Place(name);
    Find<QLabel>(name).setText("4294967.295");
    QCoreApplication::processEvents();
    EXPECT_EQ(Place(name), before) << name;
    EXPECT_GE(Place(name).width(), Find(name).sizeHint().width()) << name;
  }
}

TEST_F(CountersFormTest, ACounterThatNeedsMoreRoomWidensItsColumnAndTheWindow) {
  const QSize before = form().parentWidget()->size();
  Arrive(1, 90, 7);
  EXPECT_EQ(form().parentWidget()->size(), before);
  counters_->Value(2, 0).setFont(QFont(form().font().family(), 3 * form().font().pointSize()));
  Arrive(1, 90, 4294967295.0);
  EXPECT_GE(Find("Label6").width(), Find("Label6").sizeHint().width());
  EXPECT_GT(form().parentWidget()->width(), before.width());
  EXPECT_FALSE(form().findChild<QScrollArea*>()->horizontalScrollBar()->isVisible());
}

TEST_F(CountersFormTest, SmallCountersTakeTheRoomOfSevenDigits) {
  Arrive(2, 10, 0);
  Arrive(2, 11, 1234567);
  QCoreApplication::processEvents();
  EXPECT_EQ(Place("Label4(5)").width(), Place("Label4(6)").width());
  EXPECT_GE(Place("Label4(6)").width(), Find("Label4(6)").sizeHint().width());
}

}  // namespace
}  // namespace dosmara
