// SPDX-License-Identifier: GPL-3.0-or-later
// FrmBattute, FrmGratis and FrmProva: how often each selection and position was sold, given away, tested.
#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include "forms/form_fixture.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"
#include "support/wait_until.h"

namespace dosmara {
namespace {

struct Window {
  const char* name;
  int title;
  int frame_lines[3];
  int selection_line;
  int position_line;
  int selections;  // record of the first of 22, node 1
  int positions;   // record of the first of 48, nodes 2 and 3
};
void PrintTo(const Window& window, std::ostream* out) { *out << window.name; }

constexpr Window kWindows[] = {{"FrmBattute", 16, {142, 143, 144}, 145, 146, 60, 71},
                               {"FrmGratis", 17, {148, 149, 150}, 151, 152, 82, 119},
                               {"FrmProva", 19, {157, 158, 159}, 160, 161, 126, 167}};

class SelectionCounters : public FormFixture, public testing::WithParamInterface<Window> {
 protected:
  SelectionCounters() { Open(window().name); }

  const Window& window() { return GetParam(); }

  std::vector<Subscription> All() {
    std::vector<Subscription> all;
    for (int n = 0; n < 22; ++n) {
      all.push_back({1, window().selections + n, 1});
    }
    for (const int node : {2, 3}) {
      for (int n = 0; n < 48; ++n) {
        all.push_back({node, window().positions + n, 1});
      }
    }
    return all;
  }
  std::string Selection(int n) { return LabelText(Element("Label3", n)); }
  std::string PositionOf(int n) { return LabelText(Element("Label4", n)); }
};

TEST_P(SelectionCounters, SubscribesTheCountersOfThreeBoards) { EXPECT_EQ(Subscribed(), All()); }

TEST_P(SelectionCounters, TitleAndFramesComeFromTheLanguage) {
  const auto line = [](int number) { return '#' + QString::number(number); };
  EXPECT_EQ(form().windowTitle(), line(window().title));
  const char* const frames[] = {"Frame1", "Frame2(0)", "Frame2(1)"};
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Find(frames[i]).property("title").toString(), line(window().frame_lines[i]));
  }
}

TEST_P(SelectionCounters, SelectionsAreNumberedOneToSixteenAndFromTwentyOne) {
  const int numbers[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 21, 22, 23, 24, 25, 26};
  const std::string word = "#" + std::to_string(window().selection_line) + " ";
  for (int n = 0; n < 22; ++n) {
    EXPECT_EQ(LabelText(Element("Label1", n)), word + std::to_string(numbers[n]));
  }
}

TEST_P(SelectionCounters, PositionsAreNumberedByRowAndColumn) {
  const std::string word = "#" + std::to_string(window().position_line) + " ";
  int n = 0;
  for (const int row : {10, 20, 30, 40, 50, 60}) {
    for (int column = 1; column <= 8; ++column, ++n) {
      EXPECT_EQ(LabelText(Element("Label2", n)), word + std::to_string(row + column));
      EXPECT_EQ(LabelText(Element("Label2", 48 + n)), word + std::to_string(row + column));
    }
  }
  EXPECT_EQ(LabelText("Label2(95)"), word + "68");
}

TEST_P(SelectionCounters, EachRecordShowsOnItsLabelAlone) {
  for (int n = 0; n < 22; ++n) {
    Arrive(1, window().selections + n, 1000 + n);
  }
  for (int n = 0; n < 48; ++n) {
    Arrive(2, window().positions + n, 2000 + n);
  }
  for (int n = 0; n < 48; ++n) {
    Arrive(3, window().positions + n, 3000 + n);
  }
  for (int n = 0; n < 22; ++n) {
    EXPECT_EQ(Selection(n), std::to_string(1000 + n));
  }
  for (int n = 0; n < 48; ++n) {
    EXPECT_EQ(PositionOf(n), std::to_string(2000 + n));
  }
  for (int n = 0; n < 48; ++n) {
    EXPECT_EQ(PositionOf(48 + n), std::to_string(3000 + n));
  }
  EXPECT_EQ(Written(), std::vector<Write>{});
}

TEST_P(SelectionCounters, OtherRecordsAndTheMainBoardsAreForeign) {
  for (int record = 1; record <= kRecords; ++record) {
    Arrive(0, record, 5);
    if (record < window().selections || record > window().selections + 21) {
      Arrive(1, record, 5);
    }
    if (record < window().positions || record > window().positions + 47) {
      Arrive(2, record, 5);
      Arrive(3, record, 5);
    }
  }
  for (int n = 0; n < 22; ++n) {
    EXPECT_EQ(Selection(n), "");
  }
  for (int n = 0; n < 96; ++n) {
    EXPECT_EQ(PositionOf(n), "");
  }
}

TEST_P(SelectionCounters, AnAbsentBoardLeavesItsHalfEmptyAndTheOthersGoOn) {
  Close();
  NodePresent[3] = false;
  Open(window().name);
  std::vector<Subscription> present = All();
  std::erase_if(present, [](const Subscription& each) { return each.node == 3; });
  EXPECT_EQ(Subscribed(), present);
  Fire("Timer1");
  EXPECT_EQ(Subscribed(), present);
  Arrive(2, window().positions, 7);
  EXPECT_EQ(PositionOf(0), "7");
  for (int n = 48; n < 96; ++n) {
    EXPECT_EQ(PositionOf(n), "");
  }
  const std::string word = "#" + std::to_string(window().position_line) + " ";
  EXPECT_EQ(LabelText("Label2(48)"), word + "11");
  Close();
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
}

TEST_P(SelectionCounters, ALargeCounterIsShownWhole) {
  const struct {
    double value;
    const char* shown;
  } counts[] = {{1234567, "1234567"}, {4294967295.0, "4294967295"}, {0, "0"}};
  for (const auto& count : counts) {
    Arrive(1, window().selections + 21, count.value);
    EXPECT_EQ(Selection(21), count.shown);
    Arrive(3, window().positions + 47, count.value);
    EXPECT_EQ(PositionOf(95), count.shown);
    // A large number widens its column.
    for (const char* label : {"Label3(21)", "Label4(95)"}) {
      EXPECT_TRUE(WaitUntil([&] { return Find(label).width() >= Find(label).sizeHint().width(); })) << label;
    }
  }
}

TEST_P(SelectionCounters, TheWindowWidensForACounterOfTenDigits) {
  for (int line = 142; line <= 161; ++line) {
    CaptionTable[line] = "Sel.";
  }
  form().InitMessaggi();
  RefitFrame(form());
  QApplication::processEvents();
  const int before = form().parentWidget()->width();
  Arrive(2, window().positions, 9999999);
  EXPECT_EQ(form().parentWidget()->width(), before);
  Arrive(2, window().positions, 4294967295.0);
  QApplication::processEvents();
  EXPECT_GT(form().parentWidget()->width(), before);
  EXPECT_FALSE(form().findChild<QScrollArea*>()->horizontalScrollBar()->isVisible());
}

TEST_P(SelectionCounters, TakesNoEntry) {
  EXPECT_TRUE(form().findChildren<QLineEdit*>().isEmpty());
  EXPECT_TRUE(form().findChildren<Bar*>().isEmpty());
  for (const QWidget* widget : form().findChildren<QWidget*>()) {
    EXPECT_FALSE((widget->focusPolicy() & Qt::TabFocus) != 0 && !widget->objectName().isEmpty() &&
                 !widget->objectName().startsWith("qt_"))
        << widget->objectName().toStdString();
  }
}

INSTANTIATE_TEST_SUITE_P(Windows, SelectionCounters, testing::ValuesIn(kWindows),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace dosmara
