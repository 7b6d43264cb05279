// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QContextMenuEvent>
#include <QFocusEvent>

#include "forms/form_fixture.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

struct Code {
  const char* caption;
  const char* box;
  const char* line;
  int record;
  int mirror;
};

constexpr Code kCodes[] = {{"Label1(0)", "Text1(0)", "#240", 1, 203},
                           {"Label1(1)", "Text1(1)", "#241", 3, 205},
                           {"Label1(2)", "Text1(2)", "#242", 2, 204}};

// The codes are 111, 333 and 222, in records of three bytes.
class FrmPasswordTest : public FormFixture {
 protected:
  FrmPasswordTest() {
    for (const int record : {1, 2, 3, 203, 204, 205}) {
      ParamTable[0][record].Control = 2;
    }
    Open("FrmPassword");
    Arrive(0, 1, 111);
    Arrive(0, 2, 222);
    Arrive(0, 3, 333);
  }

  // Puts `text` in the place of a box's text, and confirms it.
  void Replace(const std::string& box, const std::string& text) {
    Put(box, text);
    PressEnter();
  }
  // As an operator who has just come into the box: what the one before has written is not looked at.
  void Put(const std::string& box, const std::string& text) {
    Focus(box);
    Written();
    Find<QLineEdit>(box).setText(QString::fromStdString(text));
  }
};

TEST_F(FrmPasswordTest, SubscribesTheThreeCodesOfTheMainBoard) {
  EXPECT_EQ(Subscribed(), (std::vector<Subscription>{{0, 1, 1}, {0, 2, 1}, {0, 3, 1}}));
}

TEST_F(FrmPasswordTest, CaptionsComeFromTheLanguage) {
  EXPECT_EQ(form().windowTitle(), "#25");
  for (const Code& code : kCodes) {
    EXPECT_EQ(LabelText(code.caption), code.line);
    EXPECT_EQ(Find(code.box).accessibleName().toStdString(), code.line);
  }
}

TEST_F(FrmPasswordTest, IsOpenFromTheStartAndKnowsNoGate) {
  Close();
  Open("FrmPassword");
  Arrive(0, 312, 0);
  for (const Code& code : kCodes) {
    EXPECT_TRUE(Enabled(code.box));
    EXPECT_TRUE(Shown(code.box));
  }
}

// The form as it is before the machine has sent anything, with other numbers from the index file.
class FrmPasswordFirst : public FormFixture {
 protected:
  FrmPasswordFirst() {
    for (const Code& code : kCodes) {
      ParamTable[0][code.record].Control = 2;
      ParamTable[0][code.record].Value[0] = 77;
    }
    Open("FrmPassword");
  }
};

TEST_F(FrmPasswordFirst, WalkingOverTheBoxesShowsAndWritesNothing) {
  for (int round = 0; round < 2; ++round) {
    for (const Code& code : kCodes) {
      Focus(code.box);
      EXPECT_EQ(BoxText(code.box), "");
    }
  }
  Focus("Text1(0)");
  TabThrough(6);
  EXPECT_EQ(Written(), std::vector<Write>{});
}

TEST_F(FrmPasswordFirst, ANumberThatWillNotDoWritesNothing) {
  for (const Code& code : kCodes) {
    for (const char* bad : {"-5", "    7", "x", ""}) {
      SCOPED_TRACE(std::string(code.box) + " " + bad);
      if (code.record != 2 && std::string(bad) == "    7") {
        continue;
      }
      Enter(code.box, bad);
      EXPECT_EQ(BoxText(code.box), "");
      Find(code.box).clearFocus();
      EXPECT_EQ(BoxText(code.box), "");
      EXPECT_EQ(Written(), std::vector<Write>{});
    }
  }
}

TEST_F(FrmPasswordFirst, ATypedNumberIsWrittenAndInForceFromThenOn) {
  for (const Code& code : kCodes) {
    SCOPED_TRACE(code.box);
    Enter(code.box, "4321");
    EXPECT_EQ(Written(), (std::vector<Write>{{0, code.record, 4321}, {0, code.mirror, 4321}}));
    Find<QLineEdit>(code.box).setText("x");
    PressEnter();
    EXPECT_EQ(BoxText(code.box), "4321");
    Find(code.box).clearFocus();
    Written();
  }
}

TEST_F(FrmPasswordTest, ACodeThatTheMachineDoesNotTakeSaysSoUntilItIsChangedAgain) {
  using State = EchoMark::State;
  for (const Code& code : kCodes) {
    SCOPED_TRACE(code.box);
    EXPECT_EQ(MarkBehind(code.box), State::kNone);
    Replace(code.box, "4321");
    EXPECT_EQ(MarkBehind(code.box), State::kOnItsWay);
    Arrive(0, code.record, 77);
    EXPECT_EQ(MarkBehind(code.box), State::kNotTaken);
    EXPECT_EQ(BoxText(code.box), "77");
    Arrive(0, code.record, 4321);
    EXPECT_EQ(MarkBehind(code.box), State::kNotTaken);
    Replace(code.box, "5");
    EXPECT_EQ(MarkBehind(code.box), State::kOnItsWay);
    Arrive(0, code.record, 5);
    EXPECT_EQ(MarkBehind(code.box), State::kTaken);
  }
}

TEST_F(FrmPasswordTest, EachRecordHasItsBox) {
  EXPECT_EQ(BoxText("Text1(0)"), "111");
  EXPECT_EQ(BoxText("Text1(1)"), "333");
  EXPECT_EQ(BoxText("Text1(2)"), "222");
  for (const Code& code : kCodes) {
    Arrive(0, code.record, 99999);
    EXPECT_EQ(BoxText(code.box), "99999");
    Arrive(0, code.record, 0);
    EXPECT_EQ(BoxText(code.box), "0");
  }
  EXPECT_EQ(Written(), std::vector<Write>{});
}

TEST_F(FrmPasswordTest, TheSameRecordsOfOtherBoardsAreForeign) {
  for (const int node : {1, 2, 3}) {
    for (const int record : {1, 2, 3}) {
      Arrive(node, record, 7);
    }
  }
  EXPECT_EQ(BoxText("Text1(0)"), "111");
  EXPECT_EQ(BoxText("Text1(1)"), "333");
  EXPECT_EQ(BoxText("Text1(2)"), "222");
}

TEST_F(FrmPasswordTest, EnterWritesTheRecordAndItsMirror) {
  for (const Code& code : kCodes) {
    SCOPED_TRACE(code.box);
    Replace(code.box, "4321");
    EXPECT_EQ(Written(), (std::vector<Write>{{0, code.record, 4321}, {0, code.mirror, 4321}}));
  }
}

TEST_F(FrmPasswordTest, LeavingABoxWritesTheRecordAndItsMirror) {
  for (const Code& code : kCodes) {
    SCOPED_TRACE(code.box);
    Put(code.box, "4321");
    EXPECT_EQ(Written(), std::vector<Write>{});
    Find(code.box).clearFocus();
    EXPECT_EQ(Written(), (std::vector<Write>{{0, code.record, 4321}, {0, code.mirror, 4321}}));
  }
}

TEST_F(FrmPasswordTest, LeavingAnUnchangedBoxWritesTheSameValueAgainAsPrescribed) {
  Put("Text1(1)", "333");
  Focus("Text1(2)");
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 3, 333}, {0, 205, 333}}));
}

TEST_F(FrmPasswordTest, ALongerTextIsCutAsPrescribed) {
  Replace("Text1(0)", "123456");
  EXPECT_EQ(BoxText("Text1(0)"), "12345");
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 1, 12345}, {0, 203, 12345}}));
  Replace("Text1(2)", "123456");
  EXPECT_EQ(BoxText("Text1(2)"), "1234");
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 2, 1234}, {0, 204, 1234}}));
}

TEST_F(FrmPasswordTest, RowOneTakesFiveDigits) {
  Replace("Text1(1)", "999999");
  EXPECT_EQ(BoxText("Text1(1)"), "99999");
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 3, 99999}, {0, 205, 99999}}));
}

TEST_F(FrmPasswordTest, ABoxItselfTakesAnyLength) {
  for (const Code& code : kCodes) {
    EXPECT_EQ(Find<QLineEdit>(code.box).maxLength(), 32767);
  }
}

TEST_F(FrmPasswordTest, AWholeTextThatIsNotNumericIsRefusedThoughItsBeginningIs) {
  Replace("Text1(0)", "12345x");
  EXPECT_EQ(BoxText("Text1(0)"), "111");
  EXPECT_EQ(Written(), std::vector<Write>{});
}

TEST_F(FrmPasswordTest, ANegativeNumberWritesTheOldValueAgainAsPrescribed) {
  Replace("Text1(0)", "-5");
  EXPECT_EQ(BoxText("Text1(0)"), "111");
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 1, 111}, {0, 203, 111}}));
  Put("Text1(2)", "-5");
  Focus("Text1(0)");
  EXPECT_EQ(BoxText("Text1(2)"), "222");
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 2, 222}, {0, 204, 222}}));
}

TEST_F(FrmPasswordTest, ATextWhoseCutHoldsNoNumberWritesTheOldValueAgainAsPrescribed) {
  Replace("Text1(2)", "    7");
  EXPECT_EQ(BoxText("Text1(2)"), "222");
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 2, 222}, {0, 204, 222}}));
}

TEST_F(FrmPasswordTest, ATextThatIsNoNumberShowsTheOldValueAndWritesNothing) {
  for (const char* bad : {"abc", "", "-", "1e3", "0x10", "1 2"}) {
    SCOPED_TRACE(bad);
    Replace("Text1(0)", bad);
    EXPECT_EQ(BoxText("Text1(0)"), "111");
    Put("Text1(0)", bad);
    Find("Text1(0)").clearFocus();
    EXPECT_EQ(BoxText("Text1(0)"), "111");
    EXPECT_EQ(Written(), std::vector<Write>{});
  }
}

TEST_F(FrmPasswordTest, TheOldValueIsTheTablesNotTheOneShown) {
  ParamTable[0][1].Value[0] = 99;
  Replace("Text1(0)", "x");
  EXPECT_EQ(BoxText("Text1(0)"), "99");
  ParamTable[0][1].Value[0] = 98;
  Replace("Text1(0)", "-5");
  EXPECT_EQ(BoxText("Text1(0)"), "98");
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 1, 98}, {0, 203, 98}}));
}

TEST_F(FrmPasswordTest, AFractionIsMadeWholeBeforeItIsJudged) {
  Replace("Text1(2)", "-0.6");
  EXPECT_EQ(BoxText("Text1(2)"), "222");
  Replace("Text1(2)", "-0,4");
  EXPECT_EQ(BoxText("Text1(2)"), "0");
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 2, 0}, {0, 204, 0}}));
  Replace("Text1(0)", "99999.9");
  EXPECT_EQ(BoxText("Text1(0)"), "99999");
  EXPECT_EQ(Written(), (std::vector<Write>{{0, 1, 99999}, {0, 203, 99999}}));
}

TEST_F(FrmPasswordTest, TheTabKeyFollowsTheRows) {
  Focus("Text1(0)");
  EXPECT_EQ(TabThrough(2), (std::vector<std::string>{"Text1(1)", "Text1(2)"}));
}

TEST_F(FrmPasswordTest, AnArrivalIsReplacedByTheNextKey) {
  Focus("Text1(0)");
  Arrive(0, 1, 777);
  Type("Text1(0)", "8");
  EXPECT_EQ(BoxText("Text1(0)"), "8");
}

TEST_F(FrmPasswordTest, ABoxIsNotLeftForItsMenuNorForAnotherProgram) {
  Put("Text1(0)", "12");
  QFocusEvent to_menu(QEvent::FocusOut, Qt::PopupFocusReason);
  QCoreApplication::sendEvent(&Find("Text1(0)"), &to_menu);
  EXPECT_EQ(Written(), std::vector<Write>{});
  QApplication::setActiveWindow(nullptr);
  EXPECT_FALSE(Find("Text1(0)").hasFocus());
  EXPECT_EQ(Written(), std::vector<Write>{});
  EXPECT_EQ(BoxText("Text1(0)"), "12");
}

TEST_F(FrmPasswordTest, ABoxThatIsLeftDuringAnArrivalConfirmsNothing) {
  Put("Text1(0)", "12");
  QObject::connect(&Find<QLineEdit>("Text1(0)"), &QLineEdit::textChanged, [this] { Focus("Text1(1)"); });
  Arrive(0, 1, 777);
  EXPECT_TRUE(Find("Text1(1)").hasFocus());
  EXPECT_EQ(BoxText("Text1(0)"), "777");
  EXPECT_EQ(Written(), std::vector<Write>{});
}

TEST_F(FrmPasswordTest, ClosingTheFormConfirmsNothing) {
  Put("Text1(0)", "12");
  Close();
  EXPECT_EQ(Written(), std::vector<Write>{});
}

TEST_F(FrmPasswordTest, HasNoBars) { EXPECT_TRUE(form().findChildren<Bar*>().isEmpty()); }

}  // namespace
}  // namespace dosmara
