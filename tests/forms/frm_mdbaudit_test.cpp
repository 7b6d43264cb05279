// SPDX-License-Identifier: GPL-3.0-or-later
// FrmMDBaudit: six flows of money, and the button that clears them.
#include <QPushButton>

#include "forms/form_fixture.h"
#include "store/parameter_table.h"
#include "support/box_recorder.h"

namespace dosmara {
namespace {

class MdbAudit : public FormFixture {
 protected:
  MdbAudit() { Open("FrmMDBaudit"); }

  void ReadAll() {
    for (int n = 0; n < 6; ++n) {
      Arrive(0, 339 + n, 1500 + n);
    }
  }
  bool Clearable() { return Enabled("Command1"); }
  std::string Flow(int n) { return LabelText(Element("Label2", n)); }
  EchoMark::State Mark(int n) { return MarkBehind(Element("Label2", n)); }
  void ClearWith(BoxAnswer answer) {
    screen_.answers = {answer};
    Click("Command1");
  }

  const std::vector<Write> kZeroes = {{0, 339, 0}, {0, 340, 0}, {0, 341, 0},
                                      {0, 342, 0}, {0, 343, 0}, {0, 344, 0}};
  BoxRecorder screen_;
};

TEST_F(MdbAudit, TheButtonIsCaptionedFromTheLanguage) {
  EXPECT_EQ(Find("Command1").property("text").toString(), "#171");
}

TEST_F(MdbAudit, AmountsHaveNoDecimalPointWhateverTheDecimalsOfMoneyAsPrescribed) {
  Arrive(0, 311, 2);
  ReadAll();
  EXPECT_EQ(Flow(0), "1500");
  EXPECT_EQ(Flow(5), "1505");
}

TEST_F(MdbAudit, TheButtonOpensAsSoonAsTheFirstFlowIsKnownAsPrescribed) {
  EXPECT_FALSE(Clearable());
  for (int n = 1; n < 6; ++n) {
    Arrive(0, 339 + n, 5);
  }
  EXPECT_FALSE(Clearable());
  Arrive(0, 339, 0);
  EXPECT_TRUE(Clearable());
}

TEST_F(MdbAudit, AnyArrivalOpensTheButtonOnceTheFirstFlowIsFreshAsPrescribed) {
  ParamTable[0][339].Flags |= kArrived;  // another form has read it
  EXPECT_FALSE(Clearable());
  Arrive(2, 7, 5);
  EXPECT_TRUE(Clearable());
}

TEST_F(MdbAudit, AForeignArrivalShowsNothing) {
  for (int node = 1; node < 4; ++node) {
    for (int record = 339; record <= 344; ++record) {
      Arrive(node, record, 5);
    }
  }
  for (int n = 0; n < 6; ++n) {
    EXPECT_EQ(Flow(n), "");
  }
  EXPECT_FALSE(Clearable());
}

TEST_F(MdbAudit, AsksInTheWordsOfTheLanguageBeforeItClears) {
  ReadAll();
  ClearWith(BoxAnswer::kNo);
  EXPECT_EQ(screen_.boxes, (std::vector<Box>{{"#401", "#21", BoxStyle::kYesNoWarning}}));
}

TEST_F(MdbAudit, NoLeavesEverythingAsItWas) {
  ReadAll();
  ClearWith(BoxAnswer::kNo);
  EXPECT_EQ(Written(), std::vector<Write>{});
  EXPECT_TRUE(Clearable());
  EXPECT_EQ(Flow(0), "1500");
  for (int n = 0; n < 6; ++n) {
    EXPECT_TRUE(ParamIsFresh(339 + n, 0));
    EXPECT_EQ(Mark(n), EchoMark::State::kNone);
  }
}

TEST_F(MdbAudit, YesWritesSixZeroesAndClosesTheButton) {
  ReadAll();
  ClearWith(BoxAnswer::kYes);
  EXPECT_FALSE(Clearable());
  EXPECT_EQ(Written(), kZeroes);
}

TEST_F(MdbAudit, OldValuesStandUntilTheMachineAnswers) {
  ReadAll();
  ClearWith(BoxAnswer::kYes);
  for (int n = 0; n < 6; ++n) {
    EXPECT_EQ(Flow(n), std::to_string(1500 + n));
    EXPECT_EQ(Mark(n), EchoMark::State::kOnItsWay);
  }
  for (int n = 0; n < 6; ++n) {
    Arrive(0, 339 + n, 0);
    EXPECT_EQ(Flow(n), "0");
    EXPECT_EQ(Mark(n), EchoMark::State::kTaken);
  }
  EXPECT_EQ(Flow(5), "0");
}

TEST_F(MdbAudit, TheEchoOfTheFirstFlowOpensTheButtonAgain) {
  ReadAll();
  ClearWith(BoxAnswer::kYes);
  for (int n = 1; n < 6; ++n) {
    Arrive(0, 339 + n, 0);
  }
  Arrive(0, 86, 1);
  EXPECT_FALSE(Clearable()) << "the machine has not answered";
  Arrive(0, 339, 0);
  EXPECT_TRUE(Clearable());
}

TEST_F(MdbAudit, ARefreshLosesNoClearing) {
  ReadAll();
  ClearWith(BoxAnswer::kYes);
  Fire("Timer1");
  EXPECT_FALSE(Clearable());
  for (int record = 339; record <= 344; ++record) {
    EXPECT_EQ(ParamTable[0][record].Flags & (kWritePending | kDue), kWritePending | kDue) << record;
  }
}

TEST_F(MdbAudit, MoneyThatFlowsAfterAClearingDoesNotUndoIt) {
  ReadAll();
  ClearWith(BoxAnswer::kYes);
  Arrive(0, 340, 0);
  Arrive(0, 340, 0);
  EXPECT_EQ(Mark(1), EchoMark::State::kTaken);
  Arrive(0, 340, 50);
  EXPECT_EQ(Flow(1), "50");
  EXPECT_EQ(Mark(1), EchoMark::State::kNone);
}

TEST_F(MdbAudit, AFlowThatTheMachineDoesNotClearIsMarked) {
  ReadAll();
  ClearWith(BoxAnswer::kYes);
  Arrive(0, 341, 1502);
  EXPECT_EQ(Mark(2), EchoMark::State::kNotTaken);
}

TEST_F(MdbAudit, TheTimersRunWhileTheQuestionIsAsked) {
  ReadAll();
  const MsgBoxHandler recorder = SetMsgBoxHandler([this](const QString&, const QString&, BoxStyle) {
    Fire("Timer1");
    Arrive(0, 339, 77);
    return BoxAnswer::kYes;
  });
  Click("Command1");
  SetMsgBoxHandler(recorder);
  EXPECT_EQ(Flow(0), "77");
  EXPECT_EQ(Written(), kZeroes);
}

TEST_F(MdbAudit, AFormThatIsGoneWhenTheQuestionIsAnsweredClearsNothing) {
  ReadAll();
  const MsgBoxHandler recorder = SetMsgBoxHandler([this](const QString&, const QString&, BoxStyle) {
    Close();
    return BoxAnswer::kYes;
  });
  Find<QPushButton>("Command1").click();
  SetMsgBoxHandler(recorder);
  EXPECT_EQ(Written(), std::vector<Write>{});
}

TEST_F(MdbAudit, TheFocusComesToTheButtonWhenItOpens) {
  ReadAll();
  EXPECT_TRUE(Find("Command1").hasFocus());
}

}  // namespace
}  // namespace dosmara
