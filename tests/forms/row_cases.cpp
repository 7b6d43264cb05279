// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/row_cases.h"

#include <QApplication>
#include <QTabWidget>
#include <QTest>
#include <algorithm>

#include "store/failure.h"
#include "store/parameter_table.h"

namespace dosmara {

using State = EchoMark::State;
using Writes = std::vector<Write>;

void PrintTo(const FormRows& rows, std::ostream* out) {
  *out << rows.rows.size() << " rows of " << rows.form;
}

EachRow::EachRow() {
  Open(GetParam().form);
  for (const RowCase& row : rows()) {
    ExpectOpen(row, false);
  }
  for (const Sent& sent : GetParam().opens) {
    Arrive(sent);
  }
  for (const RowCase& row : rows()) {
    Rest(row);
  }
  Leave();
}

const RowArrival& EachRow::Rest(const RowCase& row, int position) {
  const RowArrival& arrival =
      row.arrivals.front().position != position ? row.arrivals.front() : row.arrivals.at(1);
  EXPECT_NE(arrival.position, position) << "a value to start from is missing";
  Arrive(row, arrival);
  return arrival;
}

void EachRow::BringForward(const RowCase& row) {
  const QWidget& bar = Find(row.bar);
  for (auto* tabs : form().findChildren<QTabWidget*>()) {
    for (int i = 0; i < tabs->count(); ++i) {
      if (tabs->widget(i)->isAncestorOf(&bar)) {
        tabs->setCurrentIndex(i);
      }
    }
  }
}

void EachRow::EnterBox(const RowCase& row) {
  BringForward(row);
  Focus(row.box);
  ASSERT_TRUE(Find(row.box).hasFocus());
}

void EachRow::Leave() {
  if (QWidget* focus = QApplication::focusWidget(); focus != nullptr) {
    focus->clearFocus();
  }
}

void EachRow::ExpectShown(const RowCase& row, const RowArrival& arrival) {
  EXPECT_EQ(LabelText(row.value), arrival.shown);
  EXPECT_EQ(BarOf(row.bar).Value(), arrival.position) << arrival.shown;
  if (!row.box.empty()) {
    EXPECT_EQ(BoxText(row.box), arrival.shown);
  }
}

void EachRow::ExpectOpen(const RowCase& row, bool open) {
  EXPECT_EQ(Enabled(row.bar), open);
  EXPECT_FALSE(Find(row.bar).isHidden());
  if (!row.box.empty()) {
    EXPECT_EQ(Enabled(row.box) && !Find(row.box).isHidden(), open);
    EXPECT_EQ(Find(row.box).isHidden(), !open && !row.closed_box_stays);
  }
}

Writes EachRow::WritesOf(const RowCase& row, int value) {
  Writes writes = {{row.node, row.record, value}};
  if (row.mirror != 0) {
    writes.push_back({row.node, row.mirror, value});
  }
  std::ranges::sort(writes, {}, &Write::record);
  return writes;
}

State EachRow::MarkOf(const RowCase& row) {
  for (ValueRow* view : form().findChildren<ValueRow*>()) {
    if (&view->bar() == &BarOf(row.bar)) {
      return view->echo().state();
    }
  }
  throw std::runtime_error("no mark beside " + row.bar);
}

TEST_P(EachRow, HasItsCaptionItsSpanAndItsBoxOverItsValue) {
  for (const RowCase& row : rows()) {
    SCOPED_TRACE(row.bar);
    BringForward(row);
    QApplication::processEvents();
    EXPECT_EQ(LabelText(row.caption), row.words);
    const Bar& bar = BarOf(row.bar);
    EXPECT_EQ(bar.minimum(), row.min);
    EXPECT_EQ(bar.maximum(), row.max);
    EXPECT_EQ(bar.singleStep(), 1);
    EXPECT_EQ(bar.pageStep(), row.large_change);
    const std::string& spoken = row.spoken.empty() ? row.words : row.spoken;
    EXPECT_EQ(bar.accessibleName().toStdString(), spoken);
    if (!row.box.empty()) {
      EXPECT_EQ(Find<QLineEdit>(row.box).maxLength(), row.length);
      EXPECT_EQ(Find(row.box).accessibleName().toStdString(), spoken);
      EXPECT_EQ(Find(row.box).geometry(), Find(row.value).geometry());
    }
  }
}

TEST_P(EachRow, IsOpenWithItsFormAndShowsArrivalsWhenItIsClosedToo) {
  for (const RowCase& row : rows()) {
    SCOPED_TRACE(row.bar);
    ExpectOpen(row, true);
  }
  for (const Sent& sent : GetParam().closes) {
    Arrive(sent);
  }
  for (const RowCase& row : rows()) {
    SCOPED_TRACE(row.bar);
    if (!GetParam().closes.empty()) {
      ExpectOpen(row, false);
    }
    Arrive(row, row.arrivals[1]);
    ExpectShown(row, row.arrivals[1]);
  }
}

TEST_P(EachRow, ShowsAnArrivalOnLabelBoxAndBarAndWritesNothing) {
  for (const RowCase& row : rows()) {
    SCOPED_TRACE(row.bar);
    for (const RowArrival& arrival : row.arrivals) {
      Arrive(row, arrival);
      ExpectShown(row, arrival);
      EXPECT_EQ(MarkOf(row), State::kNone);
    }
    Rest(row);
  }
  EXPECT_EQ(Written(), Writes{});
}

TEST_P(EachRow, KnowsItsRecordOfItsNodeAlone) {
  for (const RowCase& row : rows()) {
    SCOPED_TRACE(row.bar);
    const RowArrival& rest = Rest(row);
    for (int node = 0; node < kNodeCount; ++node) {
      if (node != row.node) {
        Arrive({node, row.record, row.arrivals[1].value});
      }
    }
    if (row.mirror != 0) {
      Arrive({row.node, row.mirror, row.arrivals[1].value});
    }
    ExpectShown(row, rest);
  }
}

TEST_P(EachRow, WritesWhatItsBarIsMovedToBetweenItsEndsAndTheDisplayWaits) {
  for (const RowCase& row : rows()) {
    SCOPED_TRACE(row.bar);
    const RowArrival& rest = Rest(row);
    Bar& bar = BarOf(row.bar);
    EXPECT_FALSE(bar.SetValue(row.max + 1));
    EXPECT_FALSE(bar.SetValue(row.min - 1));
    EXPECT_EQ(Written(), Writes{});
    for (const int end : {row.max, row.min}) {
      EXPECT_TRUE(bar.SetValue(end));
      EXPECT_EQ(Written(), WritesOf(row, end + row.offset));
      EXPECT_EQ(LabelText(row.value), rest.shown);
      if (!row.box.empty()) {
        EXPECT_EQ(BoxText(row.box), rest.shown);
      }
    }
    Rest(row);
  }
}

// A value that no record can hold stops the program at the first of the two writes, which says its record.
// One row speaks for its form: rows differ in their numbers alone.
TEST_P(EachRow, WritesItsRecordAheadOfItsMirror) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const RowCase& row = rows().front();
  Bar& bar = BarOf(row.bar);
  const auto write_what_no_record_can_hold = [&] {
    bar.SetSpan(-row.offset - 1, row.max, 1);
    bar.SetValue(-row.offset - 1);
  };
  EXPECT_EXIT(write_what_no_record_can_hold(), testing::ExitedWithCode(kStopExitCode),
              "\\(record " + std::to_string(row.record) + " of node " + std::to_string(row.node) + "\\)");
}

TEST_P(EachRow, TakesGoodEntries) {
  for (const RowCase& row : rows()) {
    for (const GoodEntry& entry : row.good) {
      SCOPED_TRACE(row.box + " " + entry.text);
      const RowArrival& rest = Rest(row, entry.written - row.offset);
      EnterBox(row);
      Enter(row.box, entry.text);
      EXPECT_EQ(Written(), WritesOf(row, entry.written));
      EXPECT_EQ(BarOf(row.bar).Value(), entry.written - row.offset);
      EXPECT_EQ(LabelText(row.value), rest.shown) << "the display waits for the machine";
      EXPECT_EQ(MarkOf(row), State::kOnItsWay);
      EXPECT_EQ(Enabled(row.bar), !row.held);
      Leave();
      EXPECT_EQ(BoxText(row.box), rest.shown);
      EXPECT_EQ(Written(), Writes{});
      Arrive({row.node, row.record, entry.written});
      EXPECT_TRUE(Enabled(row.bar));
      EXPECT_EQ(BoxText(row.box), LabelText(row.value));
    }
    Rest(row);
  }
}

TEST_P(EachRow, RefusesBadEntriesAndBringsItsTextBack) {
  for (const RowCase& row : rows()) {
    for (const std::string& text : row.bad) {
      SCOPED_TRACE(row.box + " " + text);
      const RowArrival& rest = Rest(row);
      EnterBox(row);
      Enter(row.box, text);
      ExpectShown(row, rest);
      EXPECT_EQ(MarkOf(row), State::kNone);
      EXPECT_TRUE(Enabled(row.bar));
      Leave();
      ExpectShown(row, rest);
      EXPECT_EQ(Written(), Writes{});
    }
  }
}

TEST_P(EachRow, ABoxEmptiesOnFocusAndWithoutEnterItsTextComesBack) {
  for (const RowCase& row : rows()) {
    if (row.box.empty()) {
      continue;
    }
    SCOPED_TRACE(row.box);
    const RowArrival& rest = Rest(row);
    EnterBox(row);
    EXPECT_EQ(BoxText(row.box), "");
    Type(row.box, "1");
    EXPECT_EQ(BoxText(row.box), "1");
    QTest::keyClick(&Find(row.box), Qt::Key_Escape);
    ExpectShown(row, rest);
    Type(row.box, "1");
    Leave();
    ExpectShown(row, rest);
    EXPECT_EQ(Written(), Writes{});
  }
}

TEST_P(EachRow, AnArrivalIsTheTextThatComesBackToItsOwnBoxAlone) {
  for (std::size_t n = 0; n < rows().size(); ++n) {
    const RowCase& row = rows()[n];
    const RowCase& other = rows()[(n + 1) % rows().size()];
    if (row.box.empty()) {
      continue;
    }
    SCOPED_TRACE(row.box);
    const RowArrival& rest = Rest(row);
    EnterBox(row);
    Type(row.box, "1");
    if (&other != &row) {
      Arrive(other, other.arrivals[1]);
      EXPECT_EQ(BoxText(row.box), "1");
      Leave();
      ExpectShown(row, rest);
      Rest(other);
      EnterBox(row);
      Type(row.box, "1");
    }
    Arrive(row, row.arrivals[1]);
    ExpectShown(row, row.arrivals[1]);
    Leave();
    ExpectShown(row, row.arrivals[1]);
    Rest(row);
  }
  EXPECT_EQ(Written(), Writes{});
}

TEST_P(EachRow, MarksWhatBecomesOfAChange) {
  for (const RowCase& row : rows()) {
    SCOPED_TRACE(row.bar);
    const RowArrival& rest = Rest(row);
    const Sent taken = {row.node, row.record, row.max + row.offset};
    const auto change = [&] {
      Rest(row);
      BarOf(row.bar).SetValue(row.max);
    };
    EXPECT_EQ(MarkOf(row), State::kNone);
    change();
    EXPECT_EQ(MarkOf(row), State::kOnItsWay);
    Arrive(taken);
    EXPECT_EQ(MarkOf(row), State::kTaken);
    change();
    EXPECT_EQ(MarkOf(row), State::kOnItsWay);
    Arrive(row, rest);
    EXPECT_EQ(MarkOf(row), State::kNotTaken);
    Arrive(row, rest);
    Arrive(taken);
    EXPECT_EQ(MarkOf(row), State::kNotTaken) << "it stands until the row is changed again";
    change();
    EXPECT_EQ(MarkOf(row), State::kOnItsWay);
    Rest(row);
  }
}

TEST_P(EachRow, AHeldRowIsHeldByAChangeAloneAndUntilTheMachineAnswers) {
  for (const RowCase& row : rows()) {
    if (!row.held) {
      continue;
    }
    SCOPED_TRACE(row.box);
    const RowArrival& rest = Rest(row);
    EnterBox(row);
    Enter(row.box, rest.shown);
    EXPECT_TRUE(Enabled(row.bar)) << "the number that stands, typed again";
    EXPECT_EQ(Written(), Writes{});
    Leave();
    EnterBox(row);
    Enter(row.box, row.good.front().text);
    Leave();
    for (const RowCase& other : rows()) {
      EXPECT_EQ(Enabled(other.bar), &other != &row) << other.bar;
    }
    // A second one is held on its own.
    const RowCase& second = rows()[&row == &rows()[1] ? 0 : 1];
    EnterBox(second);
    Enter(second.box, second.good.front().text);
    Leave();
    Arrive(row, rest);
    EXPECT_TRUE(Enabled(row.bar)) << "whatever the answer";
    EXPECT_FALSE(Enabled(second.bar));
    Rest(second);
    EXPECT_TRUE(Enabled(second.bar));
    Written();
  }
}

}  // namespace dosmara
