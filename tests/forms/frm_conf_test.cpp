// SPDX-License-Identifier: GPL-3.0-or-later
// FrmConf: which positions of the two Zeth units sell as one.
#include <QApplication>
#include <QFocusEvent>
#include <QRadioButton>
#include <QTest>
#include <QTimerEvent>

#include "controls/echo_mark.h"
#include "forms/form_fixture.h"
#include "store/parameter_table.h"
#include "support/box_recorder.h"

namespace dosmara {
namespace {

using State = EchoMark::State;
using Writes = std::vector<Write>;

constexpr int kPositions = 48;
const QColor kGreen(0, 255, 0);
const QColor kRed(255, 0, 0);

// What tells the two units apart on the form.
struct Unit {
  int node;
  int other;
  const char* box;
  const char* other_box;
  const char* frame;
  const char* reset;
};
constexpr Unit kUnits[] = {{2, 3, "Text5", "Text6", "Frame2(0)", "Command3(0)"},
                           {3, 2, "Text6", "Text5", "Frame2(1)", "Command3(1)"}};
void PrintTo(const Unit& unit, std::ostream* out) { *out << unit.box; }

class FrmConfTest : public FormFixture {
 protected:
  FrmConfTest() { Open("FrmConf"); }

  void SendUnit(int node, int count = kPositions) {
    for (int n = 0; n < count; ++n) Arrive(node, 328 + n, n % 90 + 1);
  }
  void Fill(int options = 4) {
    Arrive(0, 361, options);
    SendUnit(2);
    SendUnit(3);
    Focus("Option1(0)");
  }

  QColor Ground(const std::string& box) { return Find(box).palette().color(QPalette::Base); }
  QColor Standard() { return QApplication::palette("QLineEdit").color(QPalette::Base); }
  // The moment in which an entry is seen is over.
  void LetSee(const std::string& box) {
    auto* timer = Find(box).findChild<QTimer*>();
    ASSERT_TRUE(timer->isActive());
    QTimerEvent event(timer->timerId());
    QCoreApplication::sendEvent(timer, &event);
  }
  void EnterGroup(const std::string& box, const std::string& text) {
    Focus(box);
    Find<QLineEdit>(box).clear();
    Enter(box, text);
    LetSee(box);
  }
  bool On() { return Find<QRadioButton>("Option1(0)").isChecked(); }
  bool Off() { return Find<QRadioButton>("Option1(1)").isChecked(); }
  // The mark in the row of a control: the next one to its right.
  State MarkBehind(const std::string& control) {
    QApplication::processEvents();
    const QWidget& left = Find(control);
    const EchoMark* nearest = nullptr;
    for (const EchoMark* mark : left.parentWidget()->findChildren<EchoMark*>(Qt::FindDirectChildrenOnly)) {
      const bool same_line = std::abs(mark->geometry().center().y() - left.geometry().center().y()) < 6;
      if (same_line && mark->x() > left.x() && (nearest == nullptr || mark->x() < nearest->x()))
        nearest = mark;
    }
    return nearest != nullptr ? nearest->state() : throw std::runtime_error("no mark");
  }

  BoxRecorder screen_;
};

class FrmConfUnit : public FrmConfTest, public testing::WithParamInterface<Unit> {
 protected:
  std::string Box(int n) { return Element(GetParam().box, n); }
};

TEST_F(FrmConfTest, SubscribesTheOptionsAndTheGroupsOfBothUnits) {
  std::vector<Subscription> expected = {{0, 361, 1}};
  for (const int node : {2, 3}) {
    for (int record = 328; record <= 375; ++record) expected.push_back({node, record, 1});
  }
  EXPECT_EQ(Subscribed(), expected);
  ParamTable[0][362].Subscribers = ParamTable[1][328].Subscribers = 1;
  Close();
  EXPECT_EQ(Subscribed(), (std::vector<Subscription>{{0, 362, 1}, {1, 328, 1}}));
}

TEST_F(FrmConfTest, CaptionsComeFromTheLanguageButThoseOfTheFirstUnit) {
  EXPECT_EQ(form().windowTitle(), "#24");
  EXPECT_EQ(Find("Frame1").property("title"), "#614");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(LabelText(Element("Label1", 6 + i)), "#" + std::to_string(615 + i));
  EXPECT_EQ(LabelText("Label1(0)"), "SETTORE");
  EXPECT_EQ(LabelText("Label1(1)"), "GRUPPO =>");
  EXPECT_EQ(LabelText("Label1(2)"), "Associa");
  // In the words of a switch: 109 is off, 110 is on.
  EXPECT_EQ(Find<QRadioButton>("Option1(0)").text(), "#110");
  EXPECT_EQ(Find<QRadioButton>("Option1(1)").text(), "#109");
  EXPECT_NE(&Find("Shape15(0)"), &Find("Shape15(1)"));
}

TEST_F(FrmConfTest, NumbersCountDownBesideTheFirstUnitAndUpBesideTheSecond) {
  QApplication::processEvents();
  for (int n = 0; n < kPositions; ++n) {
    SCOPED_TRACE(n);
    const std::string number = std::to_string(n / 8 + 1) + std::to_string(n % 8 + 1);
    for (const auto& [label, box] : {std::pair(Element("Label2", 47 - n), Element("Text5", n)),
                                     std::pair(Element("Label2", 104 + n), Element("Text6", n))}) {
      EXPECT_EQ(LabelText(label), number);
      const QRect at = Find(label).geometry();
      EXPECT_LT(at.right(), Find(box).x());
      EXPECT_LT(Find(box).x() - at.right(), 15) << "the number stands beside its box";
      EXPECT_EQ(at.center().y() / 8, Find(box).geometry().center().y() / 8);
    }
  }
}

TEST_F(FrmConfTest, OpensWithTheNinetySeventhArrivalAndNotBefore) {
  EXPECT_FALSE(On());
  EXPECT_FALSE(Off());
  Arrive(0, 361, 4);
  SendUnit(2);
  SendUnit(3, 47);
  for (const char* control : {"Frame1", "Frame2(0)", "Text5(0)", "Command3(0)", "Option1(0)"}) {
    EXPECT_FALSE(Enabled(control)) << control;
  }
  Arrive(1, 375, 1);
  EXPECT_FALSE(Enabled("Frame1"));
  Arrive(3, 375, 1);
  for (const char* control : {"Frame1", "Frame2(0)", "Frame2(1)", "Text5(0)", "Text6(47)", "Command3(0)",
                              "Command3(1)", "Option1(0)", "Option1(1)", "Label1(0)", "Label1(8)"}) {
    EXPECT_TRUE(Enabled(control)) << control;
  }
}

TEST_F(FrmConfTest, WithoutManagementOnlyTheChoiceIsOpen) {
  Fill(251);
  EXPECT_TRUE(Off());
  EXPECT_FALSE(On());
  EXPECT_TRUE(Enabled("Option1(0)"));
  for (const char* control :
       {"Text5(0)", "Text5(47)", "Text6(0)", "Command3(0)", "Command3(1)", "Label1(0)", "Label1(7)"}) {
    EXPECT_FALSE(Enabled(control)) << control;
  }
  Arrive(0, 361, 4);
  EXPECT_TRUE(On());
  EXPECT_TRUE(Enabled("Text5(47)"));
  EXPECT_TRUE(Enabled("Command3(1)"));
  EXPECT_TRUE(Enabled("Label1(7)"));
  Arrive(0, 361, 0);
  EXPECT_TRUE(Off());
  EXPECT_TRUE(Enabled("Frame1"));
  EXPECT_FALSE(Enabled("Frame2(0)"));
  EXPECT_FALSE(Enabled("Frame2(1)"));
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(FrmConfTest, TheChoiceKeepsTheOtherBitsAndWritesNoMirror) {
  Fill(15);
  Click("Option1(1)");
  EXPECT_EQ(Written(), (Writes{{0, 361, 11}}));
  EXPECT_TRUE(Enabled("Text5(0)")) << "the display waits for the machine";
  EXPECT_EQ(MarkBehind("Option1(1)"), State::kOnItsWay);
  Arrive(0, 361, 11);
  EXPECT_FALSE(Enabled("Text5(0)"));
  EXPECT_EQ(MarkBehind("Option1(1)"), State::kTaken);
  Click("Option1(1)");
  EXPECT_EQ(Written(), Writes{});
  Arrive(0, 361, 9);
  Click("Option1(0)");
  EXPECT_EQ(Written(), (Writes{{0, 361, 13}}));
  Arrive(0, 361, 9);
  EXPECT_TRUE(Off());
  EXPECT_EQ(MarkBehind("Option1(1)"), State::kNotTaken);
}

TEST_F(FrmConfTest, TheChoiceKeepsWhatAnotherFormHasOnItsWay) {
  Fill(4);
  NodeIndex = 0;
  ParamPut(361, 5);
  Click("Option1(1)");
  EXPECT_EQ(Written(), (Writes{{0, 361, 1}}));
}

TEST_F(FrmConfTest, TheChoiceIsNotMadeBeforeItsByteIsKnown) {
  for (int i = 0; i < 3; ++i) SendUnit(2);
  Click("Option1(0)");
  EXPECT_EQ(Written(), Writes{});
  EXPECT_FALSE(On());
  EXPECT_FALSE(Off());
  Arrive(0, 361, 8);
  Click("Option1(0)");
  EXPECT_EQ(Written(), (Writes{{0, 361, 12}}));
}

TEST_P(FrmConfUnit, ShowsTheLowSevenBitsAndAQuestionMarkAboveNinetyNine) {
  const std::pair<int, const char*> cases[] = {{0, "0"},   {7, "7"},   {99, "99"},  {100, "?"}, {127, "?"},
                                               {128, "0"}, {129, "1"}, {227, "99"}, {228, "?"}, {255, "?"}};
  for (int n = 0; n < kPositions; ++n) {
    for (const auto& [value, shown] : cases) {
      Arrive(GetParam().node, 328 + n, value);
      EXPECT_EQ(BoxText(Box(n)), shown) << n << ": " << value;
    }
  }
  EXPECT_EQ(BoxText(Element(GetParam().other_box, 0)), "");
  EXPECT_EQ(Written(), Writes{});
}

TEST_P(FrmConfUnit, AnEntryIsSeenInGreenAndThenWritten) {
  Fill();
  for (int n = 0; n < kPositions; ++n) {
    SCOPED_TRACE(n);
    Find<QLineEdit>(Box(n)).clear();
    Enter(Box(n), "99");
    EXPECT_EQ(Ground(Box(n)), kGreen);
    EXPECT_EQ(Written(), Writes{});
    NodeIndex = 1;
    LetSee(Box(n));
    EXPECT_EQ(Written(), (Writes{{GetParam().node, 328 + n, 99}}));
    EXPECT_EQ(Ground(Box(n)), Standard());
    EXPECT_EQ(MarkBehind(Box(n)), State::kOnItsWay);
    Arrive(GetParam().node, 328 + n, 128 + 99);
    EXPECT_EQ(BoxText(Box(n)), "99");
    EXPECT_EQ(MarkBehind(Box(n)), State::kTaken);
  }
}

TEST_P(FrmConfUnit, EntriesOfTwoBoxesAtOnceAreBothWritten) {
  Fill();
  for (const int n : {3, 4}) {
    Find<QLineEdit>(Box(n)).clear();
    Enter(Box(n), std::to_string(50 + n));
  }
  LetSee(Box(4));
  LetSee(Box(3));
  EXPECT_EQ(Written(), (Writes{{GetParam().node, 331, 53}, {GetParam().node, 332, 54}}));
}

TEST_P(FrmConfUnit, TakesWhatRoundsToAGroup) {
  Fill();
  for (const auto& [text, group] : {std::pair("0", 0), {"2,5", 3}, {"2.5", 3}, {"99.4", 99}, {" 8 ", 8}}) {
    EnterGroup(Box(9), text);
    EXPECT_EQ(Written(), (Writes{{GetParam().node, 337, group}})) << text;
  }
}

TEST_P(FrmConfUnit, RefusesWhatIsNoGroupWithAMessageAndInRedUntilTheNextGoodOne) {
  Fill();
  const dosmara::Box message = {"Error Value or Value out of range", QCoreApplication::applicationName(),
                                BoxStyle::kCritical};
  for (const char* text : {"100", "99.5", "-1", "-0,4", "x", "", "?", "1e1"}) {
    SCOPED_TRACE(text);
    screen_.boxes.clear();
    EnterGroup(Box(5), text);
    EXPECT_EQ(screen_.boxes, std::vector{message});
    EXPECT_EQ(Ground(Box(5)), kRed);
    EXPECT_EQ(BoxText(Box(5)), text);
    EXPECT_EQ(Written(), Writes{});
    EXPECT_EQ(MarkBehind(Box(5)), State::kNone);
  }
  Focus(Box(6));
  EXPECT_EQ(BoxText(Box(5)), "6");
  EXPECT_EQ(Ground(Box(5)), kRed);
  EXPECT_EQ(Find(Box(5)).toolTip(), message.text);
  EnterGroup(Box(6), "1");
  EXPECT_EQ(Ground(Box(5)), kRed) << "another box";
  EnterGroup(Box(5), "9");
  EXPECT_EQ(Ground(Box(5)), Standard());
  EXPECT_EQ(Find(Box(5)).toolTip(), "");
}

TEST_P(FrmConfUnit, ABoxThatIsLeftShowsWhatIsStoredAsAnArrivalWould) {
  Fill();
  for (const auto& [value, shown] : {std::pair(129, "1"), {100, "?"}, {42, "42"}}) {
    Arrive(GetParam().node, 330, value);
    Find<QLineEdit>(Box(2)).clear();
    Type(Box(2), "55");
    Focus(Box(3));
    EXPECT_EQ(BoxText(Box(2)), shown);
    Type(Box(2), "55");
    QTest::keyClick(&Find(Box(2)), Qt::Key_Escape);
    EXPECT_EQ(BoxText(Box(2)), shown);
  }
  EXPECT_EQ(Written(), Writes{});
}

TEST_P(FrmConfUnit, ABoxThatLendsTheFocusToItsMenuIsNotLeft) {
  Fill();
  Find<QLineEdit>(Box(2)).clear();
  Type(Box(2), "55");
  QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
  QCoreApplication::sendEvent(&Find(Box(2)), &menu);
  EXPECT_EQ(BoxText(Box(2)), "55");
}

TEST_P(FrmConfUnit, ABoxThatIsLeftBeforeAnythingHasArrivedShowsNothing) {
  ParamTable[GetParam().node][330].Value[0] = 17;
  Arrive(0, 361, 4);
  for (int i = 0; i < 96; ++i) Arrive(GetParam().node, 328, 1);
  Type(Box(2), "55");
  Focus(Box(3));
  EXPECT_EQ(BoxText(Box(2)), "");
}

TEST_P(FrmConfUnit, AnEntryThatIsLeftWhileItIsSeenIsWritten) {
  Fill();
  Find<QLineEdit>(Box(2)).clear();
  Enter(Box(2), "77");
  Focus(Box(3));
  EXPECT_EQ(BoxText(Box(2)), "3");
  LetSee(Box(2));
  EXPECT_EQ(Written(), (Writes{{GetParam().node, 330, 77}}));
}

TEST_P(FrmConfUnit, ClosingTheFormWhileAnEntryIsSeenWritesNothing) {
  Fill();
  Enter(Box(2), "100");
  EXPECT_EQ(Ground(Box(2)), kGreen);
  Close();
  QTest::qWait(300);
  EXPECT_EQ(Written(), Writes{});
  EXPECT_TRUE(screen_.boxes.empty());
}

TEST_P(FrmConfUnit, TheFormMayCloseWhileTheMessageStands) {
  Fill();
  const MsgBoxHandler before = SetMsgBoxHandler([this](const QString&, const QString&, BoxStyle) {
    Close();
    return BoxAnswer::kOk;
  });
  Find<QLineEdit>(Box(2)).clear();
  Enter(Box(2), "100");
  LetSee(Box(2));
  SetMsgBoxHandler(before);
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
}

TEST_P(FrmConfUnit, ResetMakesEachPositionOfItsUnitAGroupOfItsOwn) {
  Fill();
  screen_.answers = {BoxAnswer::kYes};
  Click(GetParam().reset);
  EXPECT_EQ(screen_.boxes, (std::vector<dosmara::Box>{
                               {"      Are you sure?", "Reset Equals Products ", BoxStyle::kYesNoWarning}}));
  Writes expected;
  for (int n = 0; n < kPositions; ++n) expected.push_back({GetParam().node, 328 + n, n + 1});
  EXPECT_EQ(Written(), expected);
  EXPECT_EQ(MarkBehind(Box(47)), State::kOnItsWay);
  for (const char* control : {"Frame1", "Frame2(0)", "Frame2(1)", "Command3(0)", "Command3(1)"}) {
    EXPECT_TRUE(Enabled(control)) << control;
  }
}

TEST_P(FrmConfUnit, ResetWritesNothingOnNoAndLeavesTheFocusWhereItWas) {
  Fill();
  screen_.answers = {BoxAnswer::kNo};
  Focus(GetParam().reset);
  QTest::keyClick(&Find(GetParam().reset), Qt::Key_Space);
  EXPECT_EQ(Written(), Writes{});
  EXPECT_TRUE(Find(GetParam().reset).hasFocus());
}

TEST_P(FrmConfUnit, EverythingIsClosedWhileTheQuestionStands) {
  Fill();
  const MsgBoxHandler before = SetMsgBoxHandler([this](const QString&, const QString&, BoxStyle) {
    for (const char* control : {"Frame1", "Frame2(0)", "Frame2(1)", "Command3(0)", "Command3(1)"}) {
      EXPECT_FALSE(Find(control).isEnabledTo(Find(control).parentWidget())) << control;
    }
    return BoxAnswer::kNo;
  });
  Click(GetParam().reset);
  SetMsgBoxHandler(before);
}

TEST_P(FrmConfUnit, TheFormMayCloseWhileTheQuestionStands) {
  Fill();
  const MsgBoxHandler before = SetMsgBoxHandler([this](const QString&, const QString&, BoxStyle) {
    Close();
    return BoxAnswer::kYes;
  });
  QMetaObject::invokeMethod(&Find(GetParam().reset), "click");
  SetMsgBoxHandler(before);
  EXPECT_EQ(Written(), Writes{});
}

INSTANTIATE_TEST_SUITE_P(Units, FrmConfUnit, testing::ValuesIn(kUnits),
                         [](const auto& each) { return std::string(each.param.box); });

}  // namespace
}  // namespace dosmara
