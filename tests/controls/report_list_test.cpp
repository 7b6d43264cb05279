// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/report_list.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QScrollBar>
#include <QTest>

namespace dosmara {
namespace {

using Lines = std::vector<ReportList::Line>;

class ReportListTest : public testing::Test {
 protected:
  ReportListTest() {
    list_.SetColumns({"No.", "Alarm"}, {{"00"}, {"Cup", "A text of some length"}});
    list_.resize(list_.sizeHint());
    list_.show();
    QApplication::setActiveWindow(&list_);
    list_.setFocus();
  }

  // Lines 1, 2, 3 ... of these ids; the text of each is its id.
  void Show(const std::vector<int>& ids) {
    Lines lines;
    for (const int id : ids) {
      lines.push_back({id, {QString::number(lines.size() + 1), QString("id %1").arg(id)}});
    }
    list_.ShowLines(lines);
  }
  void Select(int line) { list_.setCurrentItem(list_.topLevelItem(line)); }
  std::string Selected() {
    return list_.selectedItems().isEmpty() ? "" : list_.selectedItems().front()->text(1).toStdString();
  }
  static std::string Copied() { return QApplication::clipboard()->text().toStdString(); }

  ReportList list_{nullptr, 10};
};

TEST_F(ReportListTest, ShowsHeadingsAndLines) {
  Show({7, 5});
  EXPECT_EQ(list_.AsText(), "No.\tAlarm\n1\tid 7\n2\tid 5");
  Show({8});
  EXPECT_EQ(list_.AsText(), "No.\tAlarm\n1\tid 8");
  Show({});
  EXPECT_EQ(list_.AsText(), "No.\tAlarm");
}

TEST_F(ReportListTest, IsAsWideAsTheWidestTextOfEachColumn) {
  const QFontMetrics letters(list_.font());
  EXPECT_GE(list_.columnWidth(1), letters.horizontalAdvance("A text of some length"));
  Lines lines = {{1, {"10", "A text of some length"}}};
  list_.ShowLines(lines);
  for (const int column : {0, 1}) {
    const int width = list_.columnWidth(column);
    EXPECT_GE(width, list_.header()->sectionSizeHint(column));
    list_.resizeColumnToContents(column);
    EXPECT_GE(width, list_.columnWidth(column));
  }
}

TEST_F(ReportListTest, WidensForOtherTextsAndLeavesTheWidthsOfTheOperatorForTheSame) {
  list_.setColumnWidth(0, 150);
  list_.SetColumns({"No.", "Alarm"}, {{"00"}, {"Cup", "A text of some length"}});
  EXPECT_EQ(list_.columnWidth(0), 150);
  const int before = list_.sizeHint().width();
  list_.SetColumns({"No.", "Alarm"}, {{"00"}, {"A text of some length that another language has"}});
  EXPECT_LT(list_.columnWidth(0), 150);
  EXPECT_GT(list_.sizeHint().width(), before);
}

TEST_F(ReportListTest, HasRoomForAllItsLines) {
  Show({1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
  QApplication::processEvents();
  EXPECT_FALSE(list_.verticalScrollBar()->isVisible());
  EXPECT_TRUE(list_.viewport()->rect().contains(list_.visualItemRect(list_.topLevelItem(9))));
}

TEST_F(ReportListTest, ItsLinesStandApartAndFillItsRoomFromTheLeftOn) {
  Show({1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
  QApplication::processEvents();
  const QRect last = list_.visualItemRect(list_.topLevelItem(9));
  EXPECT_GE(last.height(), list_.fontMetrics().height() * 7 / 5);
  EXPECT_EQ(last.bottom(), list_.viewport()->rect().bottom());
  EXPECT_EQ(last.left(), 0);
}

TEST_F(ReportListTest, IsReadFromFurtherAwayThanTheRest) {
  EXPECT_GE(list_.font().pointSizeF(), 1.3 * QApplication::font().pointSizeF());
}

TEST_F(ReportListTest, TheSelectionMovesDownWithItsLine) {
  Show({3, 2, 1});
  Select(1);
  Show({4, 3, 2, 1});
  EXPECT_EQ(Selected(), "id 2");
}

TEST_F(ReportListTest, TheSelectionStaysAtItsPlaceWhenItsLineIsUsedAnew) {
  Show({3, 2, 1, 0});
  Select(3);
  Show({0, 3, 2, 1});
  EXPECT_EQ(Selected(), "id 1");
}

TEST_F(ReportListTest, TheSelectionStaysOnTheLastLineOfAShorterList) {
  Show({3, 2, 1, 0});
  Select(3);
  Show({5, 4});
  EXPECT_EQ(Selected(), "id 4");
  Show({});
  EXPECT_EQ(Selected(), "");
}

TEST_F(ReportListTest, NothingIsSelectedThatTheOperatorHasNotSelected) {
  Show({3, 2, 1});
  Show({4, 3, 2, 1});
  EXPECT_EQ(Selected(), "");
}

TEST_F(ReportListTest, StaysScrolledWhereItIs) {
  list_.resize(list_.width(), list_.height() / 2);
  Show({9, 8, 7, 6, 5, 4, 3, 2, 1, 0});
  Select(1);
  QApplication::processEvents();
  list_.verticalScrollBar()->setValue(3);
  Show({0, 9, 8, 7, 6, 5, 4, 3, 2, 1});
  QApplication::processEvents();
  EXPECT_EQ(Selected(), "id 8");
  EXPECT_EQ(list_.verticalScrollBar()->value(), 3);
}

TEST_F(ReportListTest, IsCopiedAsText) {
  QApplication::clipboard()->setText("before");
  QTest::keyClick(&list_, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), "before") << "an empty list has nothing to copy";
  Show({3, 2});
  Select(1);
  QTest::keyClick(&list_, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), "No.\tAlarm\n1\tid 3\n2\tid 2");
}

}  // namespace
}  // namespace dosmara
