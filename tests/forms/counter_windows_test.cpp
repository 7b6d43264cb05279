// SPDX-License-Identifier: GPL-3.0-or-later
// What holds for each window of counters: how values look, and the reading anew every fifteen seconds.
#include <malloc.h>

#include <QTest>

#include "controls/field_label.h"
#include "controls/progress_line.h"
#include "data/caption_file.h"
#include "forms/form_fixture.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"
#include "support/wait_until.h"

namespace dosmara {
namespace {

// A window and one of its plain counters.
struct Window {
  const char* name;
  int node;
  int record;
  const char* caption;
  const char* value;
};
void PrintTo(const Window& window, std::ostream* out) { *out << window.name; }

constexpr Window kWindows[] = {
    {"FrmTotali", 0, 124, "Label2(3)", "Label3(3)"},   {"FrmMonete", 0, 122, "Label1(15)", "Label2(15)"},
    {"FrmBricco", 1, 104, "Label1(0)", "Label2(0)"},   {"FrmMDBaudit", 0, 344, "Label1(5)", "Label2(5)"},
    {"FrmBattute", 1, 81, "Label1(21)", "Label3(21)"}, {"FrmGratis", 2, 119, "Label2(0)", "Label4(0)"},
    {"FrmProva", 3, 214, "Label2(95)", "Label4(95)"},
};

class CounterWindow : public FormFixture, public testing::WithParamInterface<Window> {
 protected:
  CounterWindow() { Open(window().name); }

  const Window& window() { return GetParam(); }
  void Count(double value) { Arrive(window().node, window().record, value); }
  std::string Counter() { return LabelText(window().value); }
  double Share() { return form().findChild<ProgressLine*>()->Share(); }
  void ReadAll(double value) {
    for (const Subscription& each : Subscribed()) {
      Arrive(each.node, each.record, value);
    }
  }
};

TEST_P(CounterWindow, ANumberIsWholeHoweverLarge) {
  const struct {
    double value;
    const char* shown;
  } counts[] = {{0, "0"}, {1234567, "1234567"}, {4294967295.0, "4294967295"}, {1000000, "1000000"}};
  for (const auto& count : counts) {
    Count(count.value);
    EXPECT_EQ(Counter(), count.shown);
    EXPECT_TRUE(
        WaitUntil([&] { return Find(window().value).width() >= Find(window().value).sizeHint().width(); }));
  }
}

TEST_P(CounterWindow, NumbersLineUpToTheRight) {
  for (const FieldLabel* label : form().findChildren<FieldLabel*>()) {
    if (label->text().isEmpty()) {
      EXPECT_EQ(label->alignment(), Qt::AlignRight | Qt::AlignVCenter) << label->objectName().toStdString();
    }
  }
  ReadAll(5);
  EXPECT_LT(Find(window().caption).geometry().right(), Find(window().value).geometry().left());
}

TEST_P(CounterWindow, NoughtIsQuieterThanOtherNumbers) {
  auto& value = Find<FieldLabel>(window().value);
  for (const int count : {0, 8}) {
    Count(count);
    const QImage as_shown = value.grab().toImage();
    value.SetQuiet(count == 0);
    EXPECT_EQ(value.grab().toImage(), as_shown);
    value.SetQuiet(count != 0);
    EXPECT_NE(value.grab().toImage(), as_shown);
  }
}

TEST_P(CounterWindow, AReadingShowsHowFarItIsAndTakesNoValueAway) {
  EXPECT_EQ(Share(), 0);
  EXPECT_EQ(Counter(), "");
  ReadAll(41);
  EXPECT_EQ(Share(), 1);
  Fire("Timer1");
  EXPECT_EQ(Share(), 0);
  EXPECT_EQ(Counter(), "41");
  Count(42);
  EXPECT_GT(Share(), 0);
  EXPECT_EQ(Counter(), "42");
  ReadAll(43);
  EXPECT_EQ(Share(), 1);
}

TEST_P(CounterWindow, AReadingMovesNothing) {
  ReadAll(41);
  QCoreApplication::processEvents();
  const QImage before = form().grab().toImage();
  Fire("Timer1");
  ReadAll(41);
  QCoreApplication::processEvents();
  EXPECT_EQ(form().grab().toImage(), before);
}

TEST_P(CounterWindow, EveryFifteenSecondsAllIsReleasedAndSubscribed) {
  EXPECT_TRUE(Running("Timer1"));
  EXPECT_EQ(Find<QTimer>("Timer1").interval(), 15000);
  EXPECT_FALSE(Find<QTimer>("Timer1").isSingleShot());
  const std::vector<Subscription> all = Subscribed();
  for (const Subscription& each : all) {
    ParamRec& record = ParamTable[each.node][each.record];
    record.Flags = kArrived | kWanted;  // read once, and silent since
    record.Period = 0x30;
  }
  Fire("Timer1");
  EXPECT_EQ(Subscribed(), all);
  for (const Subscription& each : all) {
    const ParamRec& record = ParamTable[each.node][each.record];
    EXPECT_EQ(record.Flags, kDue | kWanted) << each.record;
    EXPECT_EQ(record.Period, 0) << each.record << " was released before it was subscribed";
  }
}

TEST_P(CounterWindow, ClosedBetweenTwoReadingsItLeavesNothingBehind) {
  ReadAll(1);
  Fire("Timer1");
  form().parentWidget()->close();
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
  Fire("Timer1");
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
}

// What this process has asked for and not given back.
std::size_t BytesInUse() { return mallinfo2().uordblks; }

TEST_P(CounterWindow, NothingGrowsInAnHour) {
  const std::vector<Subscription> all = Subscribed();
  const int timer = Find<QTimer>("Timer1").timerId();
  const auto fifteen_seconds = [this](int n) {
    Fire("Timer1");
    if (n % 10 != 9) {
      ReadAll(n % 2);  // or the machine is silent
    }
    if (n % 8 == 0) {
      QCoreApplication::processEvents();  // which paints
    }
  };
  for (int n = 0; n < 240; ++n) {
    fifteen_seconds(n);  // what is kept for later fills up
  }
  const auto objects = form().findChildren<QObject*>().size();
  const std::size_t bytes = BytesInUse();
  for (int n = 0; n < 240; ++n) {
    fifteen_seconds(n);
    ASSERT_EQ(Subscribed(), all) << n;
  }
  EXPECT_LT(BytesInUse(), bytes + 8192);
  EXPECT_EQ(form().findChildren<QObject*>().size(), objects);
  EXPECT_TRUE(Running("Timer1"));
  EXPECT_EQ(Find<QTimer>("Timer1").interval(), 15000);
  EXPECT_EQ(Find<QTimer>("Timer1").timerId(), timer) << "it was started anew";
}

TEST_P(CounterWindow, AnAbsentBoardKeepsItsCaptionsAndStaysCalm) {
  Close();
  NodePresent[window().node] = false;
  Open(window().name);
  for (int times = 0; times < 3; ++times) {
    for (const Subscription& each : Subscribed()) {
      EXPECT_NE(each.node, window().node);
      Arrive(each.node, each.record, 6);
    }
    EXPECT_EQ(Share(), 1) << "nothing is waited for";
    EXPECT_EQ(LabelText(window().caption).substr(0, 1), "#");
    EXPECT_EQ(Counter(), "");
    EXPECT_TRUE(Enabled(window().caption));
    Fire("Timer1");
  }
}

INSTANTIATE_TEST_SUITE_P(Windows, CounterWindow, testing::ValuesIn(kWindows),
                         [](const auto& each) { return std::string(each.param.name); });

// A window whose records lie behind each other and show as they are.
struct Plain {
  const char* name;
  int title;
  int node;
  int first;
  int count;
  int line;           // caption
  bool line_by_line;  // a line for each, or one for all with a number
};
void PrintTo(const Plain& window, std::ostream* out) { *out << window.name; }

class PlainCounters : public FormFixture, public testing::WithParamInterface<Plain> {
 protected:
  PlainCounters() { Open(window().name); }
  const Plain& window() { return GetParam(); }
};

TEST_P(PlainCounters, SubscribesItsRecordsAndNoOthers) {
  std::vector<Subscription> all;
  for (int n = 0; n < window().count; ++n) {
    all.push_back({window().node, window().first + n, 1});
  }
  EXPECT_EQ(Subscribed(), all);
}

TEST_P(PlainCounters, CaptionsComeFromTheLanguage) {
  const int numbers[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 21, 22, 23, 24, 25, 26};
  EXPECT_EQ(form().windowTitle(), '#' + QString::number(window().title));
  for (int n = 0; n < window().count; ++n) {
    const std::string shown = window().line_by_line
                                  ? "#" + std::to_string(window().line + n)
                                  : "#" + std::to_string(window().line) + " " + std::to_string(numbers[n]);
    EXPECT_EQ(LabelText(Element("Label1", n)), shown);
  }
}

TEST_P(PlainCounters, EachRecordShowsOnItsLabelAlone) {
  for (int n = 0; n < window().count; ++n) {
    Arrive(window().node, window().first + n, 1000 + n);
  }
  for (int n = 0; n < window().count; ++n) {
    EXPECT_EQ(LabelText(Element("Label2", n)), std::to_string(1000 + n));
  }
}

TEST_P(PlainCounters, OtherRecordsAndOtherBoardsAreForeign) {
  for (int node = 0; node < 4; ++node) {
    for (int record = 1; record <= kRecords; ++record) {
      const bool own = record >= window().first && record < window().first + window().count;
      if (node != window().node || !own) {
        Arrive(node, record, 5);
      }
    }
  }
  for (int n = 0; n < window().count; ++n) {
    EXPECT_EQ(LabelText(Element("Label2", n)), "");
  }
  EXPECT_EQ(Written(), std::vector<Write>{});
}

INSTANTIATE_TEST_SUITE_P(Windows, PlainCounters,
                         testing::Values(Plain{"FrmMonete", 20, 0, 107, 16, 163, false},
                                         Plain{"FrmBricco", 18, 1, 104, 22, 155, false},
                                         Plain{"FrmMDBaudit", 44, 0, 339, 6, 165, true}),
                         [](const auto& each) { return std::string(each.param.name); });

struct InColumns {
  const char* name;
  int columns;
};
void PrintTo(const InColumns& window, std::ostream* out) { *out << window.name; }

class CountersInColumns : public FormFixture, public testing::WithParamInterface<InColumns> {
 protected:
  CountersInColumns() { Open(GetParam().name); }
};

TEST_P(CountersInColumns, LieLineByLine) {
  QCoreApplication::processEvents();
  const auto top = [this](int n) { return Find(Element("Label2", n)).geometry().top(); };
  for (int n = 1; n < 16; ++n) {
    EXPECT_EQ(top(n) > top(n - 1), n % GetParam().columns == 0) << n;
  }
}

// The width of a screen of 1366 pixels at a scale of 200 %.
TEST_P(CountersInColumns, AllShowOnASmallScreenOfLargeLetters) {
  for (const Language& language : ReadCaptions(CAPTIONS)) {
    for (int line = 1; line <= 625; ++line) {
      CaptionTable[line] = QString::fromStdString(language.lines[static_cast<std::size_t>(line - 1)]);
    }
    form().InitMessaggi();
    RefitFrame(form());
    EXPECT_LE(form().parentWidget()->width(), 683) << language.name;
  }
}

INSTANTIATE_TEST_SUITE_P(Windows, CountersInColumns,
                         testing::Values(InColumns{"FrmMonete", 2}, InColumns{"FrmBricco", 3}),
                         [](const auto& each) { return std::string(each.param.name); });

class Jugs : public FormFixture {};

TEST_F(Jugs, StandInAFrameOfDrinks) {
  Open("FrmBricco");
  EXPECT_EQ(Find("Frame1").property("title").toString(), "#154");
  EXPECT_EQ(Find("Label2(21)").parentWidget(), &Find("Frame1"));
}

}  // namespace
}  // namespace dosmara
