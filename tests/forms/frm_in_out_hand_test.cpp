// SPDX-License-Identifier: GPL-3.0-or-later
// The input and output test in the operator's hand: where the focus is, what the keys do, and that all is in
// sight.
#include <QApplication>
#include <QScrollBar>
#include <QTest>

#include "data/caption_file.h"
#include "forms/in_out_fixture.h"
#include "shell/caption_table.h"

namespace dosmara {
namespace {

using InOutHandTest = InOutFixture;

TEST_F(InOutHandTest, TheFocusWaitsForTheButton) {
  Present(4, 4, 4);
  EXPECT_TRUE(Find("Command1").hasFocus());
  AllOff();
  QTest::keyClick(&Find("Command1"), Qt::Key_Space);
  EXPECT_FALSE(Enabled("Command1"));
  InTest(1, 1, 1);
  EXPECT_TRUE(Find("Command1").hasFocus());
  QTest::keyClick(&Find("Command1"), Qt::Key_Return);
  EXPECT_FALSE(Enabled("Command1"));
  EXPECT_EQ(QApplication::focusWidget(), nullptr);
  Focus("SwitchLed3(7)");
  InTest(0, 0, 0);
  EXPECT_FALSE(Find("Command1").hasFocus());
}

TEST_F(InOutHandTest, TheFocusComesBackToTheButtonFromTheFrameOfTheWindow) {
  Present(4, 4, 4);
  QTest::keyClick(&Find("Command1"), Qt::Key_Space);
  form().parentWidget()->setFocus();
  ASSERT_EQ(QApplication::focusWidget(), form().parentWidget());
  InTest(1, 1, 1);
  EXPECT_TRUE(Find("Command1").hasFocus());
}

TEST_F(InOutHandTest, TheFocusBeginsOnTheButtonAlsoWhereTheTestIsOnAlready) {
  InTest(1, 1, 1);
  EXPECT_TRUE(Find("Command1").hasFocus());
}

TEST_F(InOutHandTest, EachGroupIsOneStopOfTab) {
  Start();
  Focus("Command1");
  EXPECT_EQ(TabThrough(6), (std::vector<std::string>{"SwitchLed1(0)", "SwitchLed3(0)", "SwitchLed4",
                                                     "SwitchLed5(0)", "SwitchLed6", "Command1"}));
}

TEST_F(InOutHandTest, TabLeavesAGroupFromAnyOfItsSwitches) {
  Start();
  struct Step {
    const char* from;
    const char* next;
    const char* back;
  };
  for (const Step& step : {Step{"SwitchLed1(9)", "SwitchLed3(0)", "Command1"},
                           Step{"SwitchLed3(47)", "SwitchLed4", "SwitchLed1(0)"},
                           Step{"SwitchLed5(20)", "SwitchLed6", "SwitchLed4"}}) {
    Focus(step.from);
    EXPECT_EQ(TabThrough(1), (std::vector<std::string>{step.next}));
    Focus(step.from);
    QTest::keyClick(&Find(step.from), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), step.back) << step.from;
  }
}

TEST_F(InOutHandTest, ArrowsMoveInsideAGroup) {
  Start();
  Focus("SwitchLed1(0)");
  QTest::keyClick(&Find("SwitchLed1(0)"), Qt::Key_Down);
  EXPECT_TRUE(Find("SwitchLed1(1)").hasFocus());
  QTest::keyClick(&Find("SwitchLed1(1)"), Qt::Key_Right);
  EXPECT_TRUE(Find("SwitchLed1(8)").hasFocus());
  Focus("SwitchLed5(0)");
  QTest::keyClick(&Find("SwitchLed5(0)"), Qt::Key_Down);
  EXPECT_TRUE(Find("SwitchLed5(8)").hasFocus());
}

// The compressor stands alone; while the machine is awaited a second key must not stop the test.
TEST_F(InOutHandTest, AGroupKeepsTheFocusWhileAWriteIsOnItsWay) {
  Start();
  for (const char* name : {"SwitchLed1(0)", "SwitchLed3(20)", "SwitchLed4", "SwitchLed6"}) {
    Focus(name);
    QTest::keyClick(&Find(name), Qt::Key_Space);
    EXPECT_FALSE(Enabled(name));
    EXPECT_EQ(QApplication::focusWidget(), Find(name).parentWidget()) << name;
    Fire("Timer1");
    EXPECT_TRUE(Find(name).hasFocus()) << name;
  }
}

TEST_F(InOutHandTest, FitsAScreenOf1366By768InTheShippedLanguages) {
  for (const Language& language : ReadCaptions(CAPTIONS)) {
    for (std::size_t line = 1; line <= language.lines.size(); ++line) {
      CaptionTable[line] = QString::fromStdString(language.lines[line - 1]);
    }
    Close();
    Open("FrmInOut");
    QApplication::processEvents();
    for (const QScrollBar* bar : form().findChildren<QScrollBar*>()) {
      EXPECT_FALSE(bar->isVisible());
    }
    EXPECT_LE(form().parentWidget()->sizeHint().width(), 1366) << language.name;
    EXPECT_LE(form().parentWidget()->sizeHint().height(), 700) << language.name;
  }
}

}  // namespace
}  // namespace dosmara
