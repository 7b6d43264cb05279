// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>

#include "controls/led_bar.h"
#include "forms/form_fixture.h"
#include "shell/caption_table.h"
#include "shell/loaded_forms.h"
#include "support/box_recorder.h"

namespace dosmara {
namespace {

constexpr char kResettable[] = "cmdCancella(0)";
constexpr char kNonResettable[] = "cmdCancella(1)";

class Cancella : public FormFixture {
 protected:
  Cancella() { Open("FrmCancella"); }

  std::string ButtonText(const std::string& name) { return Find<QAbstractButton>(name).text().toStdString(); }
  int BarPosition() { return Find<LedBar>("lbrInfo").Position(); }
  void Press(const char* button, BoxAnswer answer) {
    screen_.answers = {answer};
    Click(button);
  }
  // So many tenths of a second go by.
  void Pass(int tenths) {
    for (int n = 0; n < tenths; ++n) {
      Fire("Timer1");
    }
  }
  void ExpectUntouched() {
    EXPECT_EQ(Written(), std::vector<Write>{});
    EXPECT_FALSE(Running("Timer1"));
    EXPECT_FALSE(Shown("lbrInfo"));
    EXPECT_TRUE(Enabled(kResettable));
    EXPECT_TRUE(Enabled(kNonResettable));
    EXPECT_EQ(LabelText("lblInfo"), "");
  }

  BoxRecorder screen_;
};

TEST_F(Cancella, BearsTheWordsOfTheLanguage) {
  EXPECT_EQ(form().windowTitle(), "#21");
  EXPECT_EQ(ButtonText(kResettable), "#175");
  EXPECT_EQ(ButtonText(kNonResettable), "#177");
  EXPECT_EQ(Find<QAction>("mnuClose").text(), "#&2");
  EXPECT_FALSE(Find<QLabel>("Picture1").pixmap().isNull());
}

TEST_F(Cancella, OpensWithNothingDone) {
  ExpectUntouched();
  EXPECT_EQ(Find<QTimer>("Timer1").interval(), 100);
}

TEST_F(Cancella, AsksBeforeEitherButtonClears) {
  for (const char* button : {kResettable, kNonResettable}) {
    screen_.boxes.clear();
    Press(button, BoxAnswer::kNo);
    EXPECT_EQ(screen_.boxes, (std::vector<Box>{{"#401", "#21", BoxStyle::kYesNoWarning}}));
    ExpectUntouched();
  }
}

TEST_F(Cancella, SendsTheCommandOfEachButton) {
  Press(kResettable, BoxAnswer::kYes);
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 314, 1}}));
  Pass(20);
  EXPECT_EQ(Written(), std::vector<Write>{});
  Press(kNonResettable, BoxAnswer::kYes);
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 314, 8}}));
}

TEST_F(Cancella, ClosesBothButtonsForTwoSeconds) {
  for (const char* button : {kResettable, kNonResettable}) {
    Press(button, BoxAnswer::kYes);
    EXPECT_TRUE(Running("Timer1"));
    EXPECT_TRUE(Shown("lbrInfo"));
    Written();
    for (int tenth = 0; tenth < 20; ++tenth) {
      EXPECT_EQ(BarPosition(), tenth);
      EXPECT_FALSE(Enabled(kResettable));
      EXPECT_FALSE(Enabled(kNonResettable));
      EXPECT_EQ(LabelText("lblInfo"), "");
      Press(kResettable, BoxAnswer::kYes);
      Press(kNonResettable, BoxAnswer::kYes);
      EXPECT_EQ(Written(), std::vector<Write>{});
      Pass(1);
    }
    EXPECT_FALSE(Running("Timer1"));
    EXPECT_EQ(BarPosition(), 20);
    EXPECT_TRUE(Shown("lbrInfo"));
    EXPECT_TRUE(Enabled(kResettable));
    EXPECT_TRUE(Enabled(kNonResettable));
    EXPECT_EQ(LabelText("lblInfo"), "#176");
  }
}

TEST_F(Cancella, LeavesTheLastResultWhenTheAnswerIsNo) {
  Press(kResettable, BoxAnswer::kYes);
  Pass(20);
  Press(kNonResettable, BoxAnswer::kNo);
  EXPECT_EQ(LabelText("lblInfo"), "#176");
  EXPECT_EQ(BarPosition(), 20);
  EXPECT_TRUE(Enabled(kResettable));
}

TEST_F(Cancella, IgnoresWhatArrives) {
  Press(kResettable, BoxAnswer::kYes);
  Arrive(0, 314, 0);
  Arrive(0, 317, 255);
  EXPECT_EQ(BarPosition(), 0);
  EXPECT_FALSE(Enabled(kResettable));
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
}

TEST_F(Cancella, HandsTheFocusBackToThePressedButton) {
  Focus(kNonResettable);
  screen_.answers = {BoxAnswer::kYes};
  QTest::keyClick(&Find(kNonResettable), Qt::Key_Space);
  EXPECT_FALSE(Find(kNonResettable).hasFocus());
  Pass(20);
  EXPECT_TRUE(Find(kNonResettable).hasFocus());
}

TEST_F(Cancella, LeavesTheFocusWhereTheOperatorHasTakenItMeanwhile) {
  QLineEdit elsewhere(form().window());
  Press(kResettable, BoxAnswer::kYes);
  elsewhere.show();
  elsewhere.setFocus();
  ASSERT_TRUE(elsewhere.hasFocus());
  Pass(20);
  EXPECT_TRUE(Enabled(kResettable));
  EXPECT_TRUE(elsewhere.hasFocus());
}

TEST_F(Cancella, LeavesTheAltKeyOnItsOwnToTheMenusOfTheMainWindow) {
  QTest::keyClick(&Find(kResettable), Qt::Key_Alt);
  EXPECT_EQ(form().findChild<QMenuBar*>()->activeAction(), nullptr);
}

TEST_F(Cancella, ItsMenuTakesNoLetterOfTheMenusOfTheMainWindow) {
  CaptionTable[2] = "Exit";
  form().InitMessaggi();
  EXPECT_EQ(Find<QAction>("mnuClose").text(), "&Exit");
  qobject_cast<QMainWindow*>(form().window())->menuBar()->addAction("&Edit");
  form().InitMessaggi();
  EXPECT_EQ(Find<QAction>("mnuClose").text(), "E&xit");
}

TEST_F(Cancella, SpeaksTheNewLanguageOfWhatItTells) {
  CaptionTable[176] = "Cleared";
  form().InitMessaggi();
  EXPECT_EQ(LabelText("lblInfo"), "");
  Press(kResettable, BoxAnswer::kYes);
  Pass(20);
  CaptionTable[176] = "Data cleared";
  form().InitMessaggi();
  EXPECT_EQ(LabelText("lblInfo"), "Data cleared");
}

TEST_F(Cancella, NothingMovesWhenTheBarShows) {
  QApplication::processEvents();
  const QRect before = Find(kResettable).geometry();
  Press(kResettable, BoxAnswer::kYes);
  QApplication::processEvents();
  EXPECT_EQ(Find(kResettable).geometry(), before);
}

TEST_F(Cancella, ClosesByItsMenuEvenWhileTheBarRuns) {
  Press(kResettable, BoxAnswer::kYes);
  Find<QAction>("mnuClose").trigger();
  EXPECT_EQ(FindForm("FrmCancella"), nullptr);
  Fire("Timer1");  // it may still be due
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 314, 1}}));
}

TEST_F(Cancella, ClearsNothingForAFormThatIsGoneWhenTheAnswerComes) {
  const MsgBoxHandler before = SetMsgBoxHandler([this](const QString&, const QString&, BoxStyle) {
    Close();
    return BoxAnswer::kYes;
  });
  emit Find<QAbstractButton>(kResettable).clicked();
  SetMsgBoxHandler(before);
  EXPECT_EQ(Written(), std::vector<Write>{});
}

}  // namespace
}  // namespace dosmara
