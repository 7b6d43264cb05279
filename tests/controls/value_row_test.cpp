// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/value_row.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QVBoxLayout>

namespace dosmara {
namespace {

// Two rows, 0 to 9 each, that take a single digit.
class ValueRowTest : public testing::Test {
 protected:
  void Make(bool closed_box_stays = false, bool opening_fills_box = false) {
    auto* grid = new QGridLayout(&window_);
    for (int n = 0; n < 2; ++n) {
      rows_[n] = new ValueRow(&window_, {.caption_name = "Caption",
                                         .value_name = "Value",
                                         .box_name = "Box",
                                         .bar_name = "Bar",
                                         .min = 0,
                                         .max = 8,
                                         .large_change = 2,
                                         .length = 3,
                                         .enter =
                                             [this, n](const QString& text) {
                                               bool whole = false;
                                               const int number = text.toInt(&whole);
                                               return whole && rows_[n]->bar().SetValue(number);
                                             },
                                         .closed_box_stays = closed_box_stays,
                                         .opening_fills_box = opening_fills_box});
      rows_[n]->PlaceIn(*grid, n, 0);
    }
    window_.show();
    QApplication::setActiveWindow(&window_);
    QObject::connect(&rows_[0]->bar(), &Bar::Changed, [this](int value) { changes_.push_back(value); });
    for (ValueRow* row : rows_) {
      row->SetOpen(true);
    }
    Arrive(0, 3);
    Arrive(1, 4);
    changes_.clear();
  }

  void Arrive(int n, int value) {
    rows_[n]->bar().SetValue(value);
    rows_[n]->value().setText(QString::number(value));
    rows_[n]->TakeValueText();
  }

  EntryBox& Box() { return *rows_[0]->box(); }
  void Enter(const char* text) {
    Box().setFocus();
    QTest::keyClicks(&Box(), text);
    QTest::keyClick(&Box(), Qt::Key_Return);
  }

  QWidget window_;
  ValueRow* rows_[2] = {};
  std::vector<int> changes_;
};

TEST_F(ValueRowTest, ABoxShowsWhatTheMachineSent) {
  Make();
  EXPECT_EQ(Box().text(), "3");
}

TEST_F(ValueRowTest, TheBoxLiesOverAShownValue) {
  Make();
  Box().setFocus();
  EXPECT_EQ(Box().placeholderText(), u"3\u00a0");
  QTest::keyClicks(&Box(), "98765");
  EXPECT_EQ(Box().text(), "987") << "of the length of its setup";
  rows_[1]->bar().setFocus();
  EXPECT_EQ(Box().text(), "3");
  EXPECT_EQ(changes_, std::vector<int>{});
}

TEST_F(ValueRowTest, EnterMovesTheBar) {
  Make();
  Enter("7");
  EXPECT_EQ(changes_, std::vector<int>{7});
  EXPECT_EQ(rows_[0]->value().text(), "3");
}

TEST_F(ValueRowTest, AfterEnterTheNextKeyBeginsANewEntry) {
  Make();
  Enter("7");
  Enter("6");
  EXPECT_EQ(changes_, (std::vector<int>{7, 6}));
  Enter("x");
  EXPECT_EQ(Box().text(), "3");
}

TEST_F(ValueRowTest, ABadEntryBringsTheKeptTextBack) {
  Make();
  Enter("x");
  EXPECT_EQ(Box().text(), "3");
  EXPECT_EQ(changes_, std::vector<int>{});
}

TEST_F(ValueRowTest, AnEntryThatTheBarRefusesIsBad) {
  Make();
  Enter("9");
  EXPECT_EQ(Box().text(), "3");
  EXPECT_EQ(changes_, std::vector<int>{});
}

TEST_F(ValueRowTest, ARowMayHaveNoBox) {
  Make();
  ValueRowSetup setup;
  setup.bar_name = "AloneBar";
  setup.max = 8;
  auto* row = new ValueRow(&window_, setup);
  EXPECT_EQ(row->box(), nullptr);
  row->PlaceIn(*static_cast<QGridLayout*>(window_.layout()), 2, 0);
  row->SetCaption("Timeout");
  EXPECT_EQ(row->bar().accessibleName(), "Timeout");
  row->SetOpen(true);
  EXPECT_TRUE(row->bar().isEnabled());
  row->TakeValueText();
  row->Withdraw();
  EXPECT_FALSE(row->bar().isVisible());
}

TEST_F(ValueRowTest, ABoxNeverTakesTheTextOfAnother) {
  Make();
  Box().setFocus();
  Arrive(1, 5);
  rows_[1]->bar().setFocus();
  EXPECT_EQ(Box().text(), "3");
}

TEST_F(ValueRowTest, AClosedRowIsReadOnTheLabelUnderTheBox) {
  Make();
  EXPECT_EQ(Box().geometry(), rows_[0]->value().geometry());
  rows_[0]->SetOpen(false);
  EXPECT_FALSE(Box().isVisible());
  EXPECT_TRUE(rows_[0]->value().isVisible());
  EXPECT_FALSE(rows_[0]->bar().isEnabled());
  EXPECT_TRUE(rows_[0]->value().isEnabled());
}

TEST_F(ValueRowTest, AClosedBoxMayStayInGrey) {
  Make(true);
  rows_[0]->SetOpen(false);
  EXPECT_TRUE(Box().isVisible());
  EXPECT_FALSE(Box().isEnabled());
}

TEST_F(ValueRowTest, AWithdrawnRowIsGone) {
  Make();
  rows_[0]->Withdraw();
  for (QWidget* control :
       {static_cast<QWidget*>(&rows_[0]->caption()), static_cast<QWidget*>(&rows_[0]->value()),
        static_cast<QWidget*>(&Box()), static_cast<QWidget*>(&rows_[0]->bar())}) {
    EXPECT_FALSE(control->isVisible());
  }
}

TEST_F(ValueRowTest, AWithdrawnRowStaysAwayWhenItIsOpened) {
  Make();
  rows_[0]->Withdraw();
  rows_[0]->SetOpen(true);
  EXPECT_FALSE(Box().isVisible());
}

TEST_F(ValueRowTest, OpeningLeavesATypedTextAlone) {
  Make();
  Box().setFocus();
  QTest::keyClicks(&Box(), "7");
  rows_[0]->SetOpen(true);
  EXPECT_EQ(Box().text(), "7");
}

TEST_F(ValueRowTest, OpeningMayShowTheValueAnew) {
  Make(false, true);
  Box().setFocus();
  QTest::keyClicks(&Box(), "7");
  rows_[0]->SetOpen(false);
  EXPECT_EQ(Box().text(), "3");
  Box().setText("9");
  rows_[0]->SetOpen(false);
  EXPECT_EQ(Box().text(), "9");
  rows_[0]->SetOpen(true);
  EXPECT_EQ(Box().text(), "3");
}

TEST_F(ValueRowTest, AUnitMayBeSpokenWithMoreWords) {
  Make();
  rows_[0]->SetCaption("hours");
  rows_[0]->SetSpokenName("Start 1 hours");
  EXPECT_EQ(rows_[0]->caption().text(), "hours");
  EXPECT_EQ(Box().accessibleName(), "Start 1 hours");
  EXPECT_EQ(rows_[0]->bar().accessibleName(), "Start 1 hours");
}

TEST_F(ValueRowTest, BoxAndBarAreCalledByTheCaption) {
  Make();
  rows_[0]->SetCaption("milk time");
  EXPECT_EQ(rows_[0]->caption().text(), "milk time");
  EXPECT_EQ(Box().accessibleName(), "milk time");
  EXPECT_EQ(rows_[0]->bar().accessibleName(), "milk time");
  EXPECT_EQ(rows_[0]->caption().accessibleName(), "");
}

}  // namespace
}  // namespace dosmara
