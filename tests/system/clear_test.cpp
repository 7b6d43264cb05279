// SPDX-License-Identifier: GPL-3.0-or-later
// The machine's counters, cleared from the window that does it.
#include <QAbstractButton>
#include <QTest>
#include <algorithm>
#include <array>

#include "shell/loaded_forms.h"
#include "store/parameter_table.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

struct Counter {
  int node;
  int record;
};
constexpr Counter kResettable[] = {{0, 107}, {0, 124}, {0, 128}, {0, 131}, {0, 336},
                                   {1, 60},  {1, 147}, {2, 71},  {2, 214}, {3, 118}};
constexpr Counter kForLife[] = {{0, 123}, {0, 127}, {0, 332}};
constexpr Counter kOthers[] = {{0, 339}, {0, 344}, {1, 553}};

class ClearedCounters : public OneForm {
 protected:
  void ConnectAndCount() {
    ConnectAndOpen("ssmnuCancella", "FrmCancella");
    for (const auto& counters : {std::span<const Counter>(kResettable), {kForLife}, {kOthers}}) {
      for (const auto& [node, record] : counters) {
        ASSERT_TRUE(machine().Command(QString("set %1 %2 7").arg(node).arg(record)));
      }
    }
  }
  void Press(const char* button) {
    screen_.answers = {BoxAnswer::kYes};
    On<QAbstractButton>(button).click();
  }
  void AwaitDone(const char* button) {
    Await([&] { return On<QAbstractButton>(button).isEnabled(); }, "the bar to end");
    EXPECT_EQ(Text("lblInfo"), "Data cleared");
  }
  void ExpectAll(std::span<const Counter> counters, double value) {
    for (const auto& [node, record] : counters) {
      EXPECT_EQ(machine().Get(node, record), value) << node << ": " << record;
    }
  }
};

TEST_F(ClearedCounters, AreThoseOfTheButton) {
  ConnectAndCount();
  Press("cmdCancella(0)");
  AwaitHeld(0, 124, 0);
  ExpectAll(kResettable, 0);
  ExpectAll(kForLife, 7);
  ExpectAll(kOthers, 7);
  AwaitDone("cmdCancella(1)");
  Press("cmdCancella(1)");
  AwaitHeld(0, 123, 0);
  ExpectAll(kForLife, 0);
  ExpectAll(kOthers, 7);
  CloseLeavesNothingSubscribed();
}

TEST_F(ClearedCounters, AreClearedWhenWhatIsHandedOutHasBeen) {
  ConnectAndCount();
  ASSERT_TRUE(machine().Command("turn 4000"));
  ASSERT_TRUE(machine().Command("vend 2:11 free"));
  Await([&] { return Status("serving").startsWith("product"); }, "the product");
  Press("cmdCancella(0)");
  AwaitDone("cmdCancella(0)");
  EXPECT_TRUE(Status("serving").startsWith("product"));
  ExpectAll(kResettable, 7);
  AwaitHeld(0, 124, 0);
  ExpectAll(kResettable, 0);
  ExpectAll(kForLife, 7);
}

TEST_F(ClearedCounters, StayWhenTheAnswerIsNo) {
  ConnectAndCount();
  screen_.answers = {BoxAnswer::kNo};
  On<QAbstractButton>("cmdCancella(0)").click();
  form_->parentWidget()->close();
  Click("smnuPassword");
  AwaitRequests(3);
  ExpectAll(kResettable, 7);
}

TEST_F(ClearedCounters, TheWindowClosesAllOthersAndWhatNobodyHasConfirmedThere) {
  Connect();
  Click("smnuAzione");
  Click("smnuPassword");
  form_ = FindForm("FrmPassword");
  Await([&] { return !Box(0).text().isEmpty(); }, "the code to arrive");
  const double code = machine().Get(0, 1);
  Box(0).setFocus();
  Box(0).selectAll();
  QTest::keyClicks(&Box(0), "54321");
  EXPECT_EQ(Box(0).text(), "54321");
  Click("ssmnuCancella");
  EXPECT_EQ(FindForm("FrmPassword"), nullptr);
  EXPECT_EQ(FindForm("FrmAzione"), nullptr);
  EXPECT_NE(FindForm("FrmCancella"), nullptr);
  for (const auto& node : ParamTable) {
    EXPECT_TRUE(std::ranges::none_of(node, [](const ParamRec& r) { return (r.Flags & kWritePending) != 0; }));
  }
  EXPECT_EQ(machine().Get(0, 1), code);
}

}  // namespace
}  // namespace dosmara
