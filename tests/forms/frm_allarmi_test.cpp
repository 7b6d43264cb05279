// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QClipboard>
#include <QFontMetrics>
#include <QProgressBar>
#include <QScrollBar>
#include <QTest>
#include <QTreeWidget>

#include "data/caption_file.h"
#include "forms/form_fixture.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

// In the order of an entry's records.
struct Alarm {
  int minute, hour, day, month, year, code;
};
constexpr Alarm kNone = {0, 0, 0, 0, 0, 255};

class Allarmi : public FormFixture {
 protected:
  Allarmi() { Open("FrmAllarmi"); }

  QTreeWidget& List() { return Find<QTreeWidget>("ListView1"); }
  QProgressBar& Progress() { return Find<QProgressBar>("ProgressBar1"); }

  void Log(int entry, const Alarm& alarm) {
    const int fields[] = {alarm.minute, alarm.hour, alarm.day, alarm.month, alarm.year, alarm.code};
    for (int f = 0; f < 6; ++f) {
      Arrive(0, 142 + 6 * entry + f, fields[f]);
    }
  }
  // Ten entries, entry e with code 10 + e at 08:0e on the day 1 + e.
  void FillRing() {
    for (int entry = 0; entry < 10; ++entry) {
      Log(entry, {entry, 8, 1 + entry, 6, 24, 10 + entry});
    }
  }
  void LogAlone(const Alarm& alarm) {
    for (int entry = 0; entry < 10; ++entry) {
      Log(entry, entry == 4 ? alarm : kNone);
    }
    Arrive(0, 86, 4);
  }

  std::string Cell(int line, int column) { return List().topLevelItem(line)->text(column).toStdString(); }
  // What stands in a column, from the top down.
  std::vector<std::string> Column(int column) {
    std::vector<std::string> texts;
    for (int line = 0; line < List().topLevelItemCount(); ++line) {
      texts.push_back(Cell(line, column));
    }
    return texts;
  }
  std::string Selected() {
    return List().selectedItems().isEmpty() ? "" : List().selectedItems().front()->text(3).toStdString();
  }
};

using Texts = std::vector<std::string>;

TEST_F(Allarmi, SubscribesThePointerAndTheRingOnce) {
  const std::vector<Subscription> subscribed = Subscribed();
  ASSERT_EQ(subscribed.size(), 61u);
  EXPECT_EQ(subscribed.front(), (Subscription{0, 86, 1}));
  for (int n = 0; n < 60; ++n) {
    EXPECT_EQ(subscribed[n + 1], (Subscription{0, 142 + n, 1}));
  }
}

TEST_F(Allarmi, BearsTheWordsOfTheLanguage) {
  EXPECT_EQ(form().windowTitle(), "#35");
  EXPECT_EQ(LabelText("Label1"), "#399");
  ASSERT_EQ(List().columnCount(), 4);
  for (int column = 0; column < 4; ++column) {
    EXPECT_EQ(List().headerItem()->text(column), QString("#%1").arg(395 + column));
  }
}

TEST_F(Allarmi, ListsTheNewestFirstAndWalksBackRoundTheRing) {
  FillRing();
  Arrive(0, 86, 2);
  EXPECT_EQ(Column(0), (Texts{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}));
  EXPECT_EQ(Column(3),
            (Texts{"#415", "#414", "#413", "#422", "#421", "#420", "#419", "#418", "#417", "#416"}));
  EXPECT_EQ(Cell(0, 1), "03/06/2024");
  EXPECT_EQ(Cell(0, 2), "08:02");
  EXPECT_EQ(Cell(3, 1), "10/06/2024");
  EXPECT_EQ(Cell(3, 2), "08:09");
}

TEST_F(Allarmi, EndsAtTheFirstEmptyEntry) {
  FillRing();
  Log(0, kNone);
  Arrive(0, 86, 2);
  EXPECT_EQ(Column(3), (Texts{"#415", "#414"}));
}

TEST_F(Allarmi, ListsTheLargestCodeAndEndsAtTheNext) {
  FillRing();
  Log(5, {30, 9, 1, 6, 24, 203});
  Log(4, {30, 9, 1, 6, 24, 204});
  Arrive(0, 86, 5);
  EXPECT_EQ(Column(3), (Texts{"#606"}));
  Arrive(0, 86, 4);
  EXPECT_EQ(Column(3), Texts{});
}

TEST_F(Allarmi, HasAnEmptyListForAPointerThatPointsAtNoEntry) {
  FillRing();
  for (const int pointer : {10, 11, 255, 65535, 65538}) {
    Arrive(0, 86, 9);
    EXPECT_EQ(Column(0).size(), 10u);
    Arrive(0, 86, pointer);
    EXPECT_EQ(Column(0).size(), 0u) << pointer;
  }
}

TEST_F(Allarmi, ListsNothingUntilAllHasArrived) {
  FillRing();
  EXPECT_EQ(Column(0).size(), 0u) << "the pointer is missing";
  Arrive(0, 86, 3);
  EXPECT_EQ(Column(0).size(), 10u);
}

TEST_F(Allarmi, ListsNothingWhileAnyFieldIsMissing) {
  for (int missing = 142; missing <= 201; ++missing) {
    Close();
    Open("FrmAllarmi");
    Arrive(0, 86, 3);
    for (int record = 142; record <= 201; ++record) {
      if (record != missing) {
        Arrive(0, record, 0);
      }
    }
    EXPECT_EQ(Column(0).size(), 0u) << missing;
    Arrive(0, missing, 0);
    EXPECT_EQ(Column(0).size(), 10u) << missing;
  }
}

struct Moment {
  Alarm alarm;
  const char* date;
  const char* time;
};

TEST_F(Allarmi, ShowsEachMomentInItsWay) {
  const Moment moments[] = {
      {{5, 9, 7, 3, 24, 1}, "07/03/2024", "09:05"},
      {{59, 23, 29, 2, 0, 1}, "29/02/2000", "23:59"},
      {{0, 0, 31, 12, 99, 1}, "31/12/2099", "00:00"},
      {{0, 0, 1, 3, 100, 1}, "01/03/2100", "00:00"},
      {{0, 0, 0, 0, 24, 1}, "00/00/00", "00:00"},    // its year is set all the same
      {{1, 2, 0, 3, 24, 1}, "29/02/2024", "02:01"},  // by the count of days, the day before the first
      {{1, 2, 30, 2, 23, 1}, "02/03/2023", "02:01"},
      {{1, 2, 5, 0, 24, 1}, "05/00/2024", "02:01"},
      {{1, 2, 5, 13, 24, 1}, "05/13/2024", "02:01"},
      {{88, 77, 5, 6, 24, 1}, "05/06/2024", "77:88"},
      {{255, 255, 255, 255, 255, 1}, "255/255/2255", "255:255"},
  };
  for (const Moment& moment : moments) {
    LogAlone(moment.alarm);
    ASSERT_EQ(List().topLevelItemCount(), 1);
    EXPECT_EQ(Cell(0, 1), moment.date);
    EXPECT_EQ(Cell(0, 2), moment.time);
  }
}

TEST_F(Allarmi, TakesTheLargestNumbersWithoutHarm) {
  constexpr double kLargest = 4294967295.0;
  LogAlone({0, 0, 1, 1, 1, 1});
  for (int field = 0; field < 5; ++field) {
    Arrive(0, 142 + 6 * 4 + field, kLargest);
  }
  EXPECT_EQ(List().topLevelItemCount(), 1);
  EXPECT_EQ(Cell(0, 1), "32767/32767/34767");
  EXPECT_EQ(Cell(0, 2), "32767:32767");
  Arrive(0, 142 + 6 * 4 + 3, 12);
  EXPECT_EQ(List().topLevelItemCount(), 1);
  Arrive(0, 142 + 6 * 4 + 5, kLargest);
  EXPECT_EQ(List().topLevelItemCount(), 0);
}

TEST_F(Allarmi, TellsHowManyArrivalsThereWereUntilItIsSixtyOne) {
  EXPECT_EQ(Progress().minimum(), 0);
  EXPECT_EQ(Progress().maximum(), 61);
  EXPECT_EQ(Progress().value(), 0);
  for (int n = 1; n <= 60; ++n) {
    Arrive(0, 141 + n, 0);
    EXPECT_EQ(Progress().value(), n);
    EXPECT_TRUE(Shown("ProgressBar1"));
  }
  Arrive(0, 300, 0);
  Arrive(1, 142, 0);
  EXPECT_EQ(Progress().value(), 60) << "what belongs to others";
  Arrive(0, 86, 0);
  EXPECT_FALSE(Shown("ProgressBar1"));
}

TEST_F(Allarmi, NamesItsProgressForThoseWhoCannotSeeIt) { EXPECT_EQ(Progress().accessibleName(), "#399"); }

TEST_F(Allarmi, NothingMovesWhenTheProgressVanishes) {
  QApplication::processEvents();
  const QRect before = List().geometry();
  FillRing();
  Arrive(0, 86, 2);
  QApplication::processEvents();
  EXPECT_FALSE(Shown("ProgressBar1"));
  EXPECT_EQ(List().geometry(), before);
}

TEST_F(Allarmi, StaysAsItIsThroughMoreArrivalsThanTheCountHolds) {
  FillRing();
  Arrive(0, 86, 2);
  for (int n = 0; n < 33000; ++n) {
    Arrive(0, 86, 2);
    ASSERT_FALSE(Shown("ProgressBar1")) << n;
  }
  EXPECT_EQ(Column(0).size(), 10u);
}

TEST_F(Allarmi, ShowsALaterAlarmOnTopAndKeepsTheSelectedLine) {
  FillRing();
  Arrive(0, 86, 2);
  List().setCurrentItem(List().topLevelItem(1));
  EXPECT_EQ(Selected(), "#414");
  Log(3, {0, 9, 2, 6, 24, 42});
  Arrive(0, 86, 3);
  EXPECT_EQ(Cell(0, 3), "#445");
  EXPECT_EQ(Cell(0, 1), "02/06/2024");
  EXPECT_EQ(Selected(), "#414");
  EXPECT_EQ(Cell(2, 3), "#414");
}

TEST_F(Allarmi, KeepsThePlaceOfTheScrollBar) {
  form().parentWidget()->resize(form().parentWidget()->width(), form().parentWidget()->height() * 2 / 3);
  FillRing();
  Arrive(0, 86, 2);
  List().setCurrentItem(List().topLevelItem(0));
  QApplication::processEvents();
  ASSERT_GT(List().verticalScrollBar()->maximum(), 1);
  List().verticalScrollBar()->setValue(2);
  Log(3, {0, 9, 2, 6, 24, 42});
  Arrive(0, 86, 3);
  QApplication::processEvents();
  EXPECT_EQ(List().verticalScrollBar()->value(), 2);
}

TEST_F(Allarmi, SpeaksTheNewLanguageWhenItIsActivated) {
  LogAlone({5, 9, 7, 3, 24, 1});
  CaptionTable[404] = "No water";
  CaptionTable[398] = "Alarm";
  form().InitMessaggi();
  EXPECT_EQ(Cell(0, 3), "No water");
  EXPECT_EQ(List().headerItem()->text(3), "Alarm");
}

TEST_F(Allarmi, IsCopiedAsText) {
  LogAlone({5, 9, 7, 3, 24, 1});
  EXPECT_TRUE(List().hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "#395\t#396\t#397\t#398\n1\t07/03/2024\t09:05\t#404");
}

TEST_F(Allarmi, ShowsTheLongestTextOfEachLanguageWhole) {
  for (const Language& language : ReadCaptions(CAPTIONS)) {
    for (int line = 1; line <= 625; ++line) {
      CaptionTable[line] = QString::fromStdString(language.lines[static_cast<std::size_t>(line - 1)]);
    }
    form().InitMessaggi();
    RefitFrame(form());
    const QFontMetrics letters(List().font());
    for (int line = 403; line <= 606; ++line) {
      EXPECT_LT(letters.horizontalAdvance(CaptionTable[line]), List().columnWidth(3));
    }
    QApplication::processEvents();
    EXPECT_FALSE(List().horizontalScrollBar()->isVisible()) << language.name;
    EXPECT_FALSE(List().verticalScrollBar()->isVisible()) << language.name;
  }
}

}  // namespace
}  // namespace dosmara
