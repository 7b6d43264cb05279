// SPDX-License-Identifier: GPL-3.0-or-later
// Windows of counters, on tables made for it: what the tables can say beyond what the shipped windows use.
#include "shell/fields/counters_form.h"

#include <QCoreApplication>

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
};

class Counters : public CountersForm {
 public:
  Counters() : CountersForm({.name = "Counters", .title = 47}, kRuns) {}
  using CountersForm::CaptionOf;
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
  for (const int line : {47, 77, 201, 300, 310}) CaptionTable[line] = "new";
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

TEST_F(CountersFormTest, SmallCountersTakeTheRoomOfSevenDigits) {
  Arrive(2, 10, 0);
  Arrive(2, 11, 1234567);
  QCoreApplication::processEvents();
  EXPECT_EQ(Place("Label4(5)").width(), Place("Label4(6)").width());
  EXPECT_GE(Place("Label4(6)").width(), Find("Label4(6)").sizeHint().width());
}

TEST_F(CountersFormTest, TheRefreshReadsAllThatIsWatchedAnew) {
  const std::vector<Subscription> all = {{0, 10, 1}, {0, 11, 1}, {0, 12, 1}, {1, 90, 1},
                                         {2, 10, 1}, {2, 11, 1}, {2, 12, 1}, {2, 13, 1}};
  EXPECT_EQ(Subscribed(), all);
  EXPECT_EQ(Find<QTimer>("Timer1").interval(), 15000);
  ParamTable[0][11].Subscribers = 2;  // another form shows it too
  for (int times = 0; times < 3; ++times) Fire("Timer1");
  EXPECT_EQ(ParamTable[0][11].Subscribers, 2);
  ParamTable[0][11].Subscribers = 1;
  EXPECT_EQ(Subscribed(), all);
}

TEST_F(CountersFormTest, ACounterOfNoughtStandsBackBehindTheOthers) {
  FieldLabel& value = counters_->Value(2, 0);
  Arrive(1, 90, 0);
  const QImage nought = value.grab().toImage();
  value.SetQuiet(false);
  EXPECT_NE(value.grab().toImage(), nought);
  Arrive(1, 90, 8);
  const QImage eight = value.grab().toImage();
  value.SetQuiet(true);
  EXPECT_NE(value.grab().toImage(), eight);
}

}  // namespace
}  // namespace dosmara
