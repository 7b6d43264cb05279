// SPDX-License-Identifier: GPL-3.0-or-later
// The clock window: its time points, its captions, what it reads and how it lies on the screen.
#include <QApplication>

#include "controls/seven_segment.h"
#include "forms/row_cases.h"
#include "shell/caption_table.h"

namespace dosmara {
namespace {

struct Point {
  int k;
  const char* frame;
  int frame_line;
  const char* name;
  int hour;
  int hour_mirror;
  int minute;
  int minute_mirror;
};

constexpr Point kPoints[] = {
    {0, "Frame2", 262, "#265 1", 88, 290, 87, 289},   {1, "Frame2", 262, "#266 1", 92, 294, 91, 293},
    {2, "Frame2", 262, "#265 2", 90, 292, 89, 291},   {3, "Frame2", 262, "#266 2", 94, 296, 93, 295},
    {4, "Frame3", 263, "#267 1", 96, 298, 95, 297},   {5, "Frame3", 263, "#267 2", 98, 300, 97, 299},
    {6, "Frame4", 264, "#265 1", 100, 302, 99, 301},  {7, "Frame4", 264, "#266 1", 104, 306, 103, 305},
    {8, "Frame4", 264, "#265 2", 102, 304, 101, 303}, {9, "Frame4", 264, "#266 2", 106, 308, 105, 307},
};

RowCase RowOf(const Point& point, bool minute) {
  const int i = 2 * point.k + (minute ? 1 : 0);
  const std::string unit = minute ? "#269" : "#268";
  RowCase row = {.caption = Element("Label3", i),
                 .value = Element("Label1", i),
                 .box = Element("Text1", i),
                 .bar = Element("HScroll1", i),
                 .words = unit,
                 .spoken = "#" + std::to_string(point.frame_line) + " " + point.name + " " + unit,
                 .record = minute ? point.minute : point.hour,
                 .mirror = minute ? point.minute_mirror : point.hour_mirror,
                 .max = minute ? 59 : 23,
                 .large_change = minute ? 5 : 3,
                 .length = 8};
  if (minute) {
    row.arrivals = {{30, "30", 30}, {7, "7", 7}, {59, "59", 59}, {60, "60", 59}, {255, "255", 59}};
    row.good = {{"0", 0}, {"59", 59}, {"07", 7}, {" 24", 24}, {"12.4", 12}};
    row.bad = {"60", "100", "-1", "59.1", "x", "1x", "", " ", "OFF", "1:30"};
  } else {
    row.arrivals = {{6, "6", 6}, {7, "7", 7}, {23, "23", 23}, {24, "24", 23}, {255, "255", 23}};
    row.good = {{"0", 0}, {"23", 23}, {"07", 7}, {"12,4", 12}};
    row.bad = {"24", "59", "230", "-1", "23.1", "x", "", " ", "OFF", "7:30"};
  }
  return row;
}

FormRows OrologioRows() {
  FormRows form = {.form = "FrmOrologio", .opens = {}, .closes = {}, .rows = {}};
  for (const Point& point : kPoints) {
    form.opens.push_back({0, point.hour, 1});
    form.opens.push_back({0, point.minute, 1});
    form.rows.push_back(RowOf(point, false));
    form.rows.push_back(RowOf(point, true));
  }
  return form;
}

INSTANTIATE_TEST_SUITE_P(FrmOrologio, EachRow, testing::Values(OrologioRows()));

class FrmOrologioPoints : public FormFixture {
 protected:
  FrmOrologioPoints() { Open("FrmOrologio"); }

  void ExpectOpen(bool open) {
    for (int i = 0; i < 20; ++i) {
      SCOPED_TRACE(i);
      EXPECT_EQ(Enabled(Element("HScroll1", i)), open);
      EXPECT_EQ(Enabled(Element("Label1", i)), open);
      EXPECT_EQ(Shown(Element("Text1", i)), open);
      EXPECT_TRUE(Enabled(Element("Label3", i)));
    }
  }

  QRect Place(const std::string& name) {
    const QWidget& control = Find(name);
    return {control.mapTo(&form(), QPoint()), control.size()};
  }
};

TEST_F(FrmOrologioPoints, SubscribesPointsMirrorsAndClockOnceEachAsPrescribed) {
  std::vector<Subscription> expected;
  for (int record = 87; record <= 106; ++record) {
    expected.push_back({0, record, 1});
  }
  for (int record = 289; record <= 308; ++record) {
    expected.push_back({0, record, 1});
  }
  for (const int record : {317, 320, 321, 322, 323, 324, 326, 327, 328, 329, 330}) {
    expected.push_back({0, record, 1});
  }
  EXPECT_EQ(Subscribed(), expected);
}

TEST_F(FrmOrologioPoints, OpenAtTheTwentiethArrival) {
  ExpectOpen(false);
  for (int record = 87; record <= 105; ++record) {
    Arrive(0, record, 3);
    ExpectOpen(false);
  }
  Arrive(0, 106, 3);
  ExpectOpen(true);
}

TEST_F(FrmOrologioPoints, CountArrivalsAndNotRecordsAsPrescribed) {
  for (int i = 0; i < 19; ++i) {
    Arrive(0, 87, 3);
  }
  ExpectOpen(false);
  Arrive(0, 87, 3);
  ExpectOpen(true);
  EXPECT_EQ(LabelText("Label1(1)"), "3");
  EXPECT_EQ(LabelText("Label1(0)"), "") << "what has not arrived is not known";
  EXPECT_FALSE(BarOf("HScroll1(0)").IsKnown());
}

TEST_F(FrmOrologioPoints, MirrorsAndTheClockDoNotCount) {
  for (int i = 0; i < 19; ++i) {
    Arrive(0, 88, 3);
  }
  for (int record = 289; record <= 308; ++record) {
    Arrive(0, record, 3);
  }
  for (const int record : {317, 320, 321, 322, 323, 324, 326, 327, 328, 329, 330}) {
    Arrive(0, record, 4);
  }
  ExpectOpen(false);
  Arrive(0, 88, 3);
  ExpectOpen(true);
}

TEST_F(FrmOrologioPoints, OtherBoardsDoNotCount) {
  for (int i = 0; i < 25; ++i) {
    Arrive(1 + i % 3, 87 + i % 20, 3);
  }
  ExpectOpen(false);
}

TEST_F(FrmOrologioPoints, OpenWithoutAClockAndStayOpen) {
  Arrive(0, 317, 0);
  for (int i = 0; i < 20; ++i) {
    Arrive(0, 106, 3);
  }
  ExpectOpen(true);
  for (const int status : {4, 0, 255, 251}) {
    Arrive(0, 317, status);
    ExpectOpen(true);
  }
}

TEST_F(FrmOrologioPoints, MirrorsAreShownByNothingAsPrescribed) {
  for (int record = 289; record <= 308; ++record) {
    Arrive(0, record, 9);
  }
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(LabelText(Element("Label1", i)), "");
  }
}

TEST_F(FrmOrologioPoints, AChangeDoesNotTouchTheClock) {
  for (int i = 0; i < 20; ++i) {
    Arrive(0, 88, 3);
  }
  Arrive(0, 317, 4);
  Enter("Text1(0)", "7");
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 88, 7}, {0, 290, 7}}));
  Arrive(0, 326, 9);
  EXPECT_EQ(LabelText("Label4(0)"), "") << "no change of the clock is under way";
}

TEST_F(FrmOrologioPoints, AWordForEachOfThem) {
  EXPECT_EQ(form().windowTitle(), "#29");
  const auto title = [this](const char* frame) { return Find(frame).property("title").toString(); };
  EXPECT_EQ(title("Frame1"), "#261");
  for (const Point& point : kPoints) {
    EXPECT_EQ(LabelText(Element("Label2", point.k)), point.name);
    EXPECT_EQ(title(point.frame), "#" + QString::number(point.frame_line));
    EXPECT_TRUE(Find(point.frame).isAncestorOf(&Find(Element("Label2", point.k))));
    for (const int i : {2 * point.k, 2 * point.k + 1}) {
      EXPECT_TRUE(Find(point.frame).isAncestorOf(&Find(Element("HScroll1", i))));
    }
  }
}

TEST_F(FrmOrologioPoints, TheClockHasItsUnitsAndIsCalledByItsFrame) {
  const std::pair<std::string, std::string> units[] = {{"Label41(0)", "#268"},
                                                       {"Label41(1)", "#269"},
                                                       {"Label5s(0)", "#641"},
                                                       {"Label5s(1)", "#642"},
                                                       {"Label5s(2)", "#643"}};
  const std::string bars[] = {"HScroll2(0)", "HScroll2(1)", "HScroll5(0)", "HScroll5(1)", "HScroll5(2)"};
  for (int n = 0; n < 5; ++n) {
    EXPECT_EQ(LabelText(units[n].first), units[n].second);
    const std::string spoken = "#261 " + units[n].second;
    EXPECT_EQ(BarOf(bars[n]).accessibleName().toStdString(), spoken);
    EXPECT_EQ(Find(Element("txtOrol", n)).accessibleName().toStdString(), spoken);
  }
  EXPECT_EQ(Find("iSevenSegmentClockX1").accessibleName(), "#261");
}

TEST_F(FrmOrologioPoints, ALanguageWithoutWordsForTheDateLeavesTheUsualOnes) {
  for (int line = 641; line <= 643; ++line) {
    CaptionTable[line].clear();
  }
  form().InitMessaggi();
  EXPECT_EQ(LabelText("Label5s(0)"), "giorno");
  EXPECT_EQ(LabelText("Label5s(1)"), "mese");
  EXPECT_EQ(LabelText("Label5s(2)"), "anno");
  EXPECT_EQ(Find("txtOrol(2)").accessibleName(), "#261 giorno");
  CaptionTable[641] = "day";
  form().InitMessaggi();
  EXPECT_EQ(LabelText("Label5s(0)"), "day");
}

TEST_F(FrmOrologioPoints, TheNameTheHourAndTheMinuteReadAsOneLine) {
  for (int i = 0; i < 20; ++i) {
    Arrive(0, 88, 3);
  }
  QApplication::processEvents();
  for (const Point& point : kPoints) {
    SCOPED_TRACE(point.name);
    const std::string line[] = {Element("Label2", point.k), Element("Text1", 2 * point.k),
                                Element("Label3", 2 * point.k), Element("Text1", 2 * point.k + 1),
                                Element("Label3", 2 * point.k + 1)};
    for (int n = 1; n < 5; ++n) {
      EXPECT_GT(Place(line[n]).left(), Place(line[n - 1]).right()) << line[n];
      EXPECT_NEAR(Place(line[n]).center().y(), Place(line[0]).center().y(), 1) << line[n];
      EXPECT_GE(Find(line[n]).width(), n % 2 == 0 ? Find(line[n]).sizeHint().width() : 1) << "nothing is cut";
    }
  }
}

TEST_F(FrmOrologioPoints, AUnitStandsBehindItsValueAndTheBarBelow) {
  for (int i = 0; i < 20; ++i) {
    Arrive(0, 88, 3);
  }
  QApplication::processEvents();
  for (int n = 0; n < 8; ++n) {
    SCOPED_TRACE(n);
    const QRect box = Place(Element("Text1", n));
    EXPECT_GT(Place(Element("Label3", n)).left(), box.right());
    EXPECT_GT(Place(Element("HScroll1", n)).top(), box.bottom());
    EXPECT_EQ(Place(Element("HScroll1", n)).left(), box.left());
    EXPECT_EQ(MarkBehind(Element("Label3", n)), EchoMark::State::kNone);
  }
}

TEST_F(FrmOrologioPoints, TheClockIsLargeAtTheTopLeftWithItsDateBelow) {
  QApplication::processEvents();
  const QRect clock = Place("iSevenSegmentClockX1");
  EXPECT_GE(clock.height(), 2 * SegmentClock(nullptr).sizeHint().height());
  EXPECT_GT(Place("Label6").top(), clock.bottom());
  EXPECT_LT(Place("Label6").bottom(), Place("Frame2").top());
  for (const char* other : {"Label4(0)", "Label5(0)", "Frame3"}) {
    EXPECT_GT(Place(other).left(), clock.left()) << other;
  }
  EXPECT_GE(Find("Label6").width(), Find("Label6").fontMetrics().horizontalAdvance("00/00/0000"));
}

TEST_F(FrmOrologioPoints, TheTabKeyFollowsTheReading) {
  for (int i = 0; i < 20; ++i) {
    Arrive(0, 88, 3);
  }
  Arrive(0, 317, 4);
  std::vector<std::string> expected;
  const char* const bars[] = {"HScroll2(0)", "HScroll2(1)", "HScroll5(0)", "HScroll5(1)", "HScroll5(2)"};
  for (int n = 0; n < 5; ++n) {
    expected.push_back(Element("txtOrol", n));
    expected.emplace_back(bars[n]);
  }
  for (int i = 0; i < 20; ++i) {
    expected.push_back(Element("Text1", i));
    expected.push_back(Element("HScroll1", i));
  }
  Focus("HScroll1(19)");
  EXPECT_EQ(TabThrough(50), expected);
}

}  // namespace
}  // namespace dosmara
