// SPDX-License-Identifier: GPL-3.0-or-later
// FrmConf: the groups of either of the two Zeth units.
#include <QFocusEvent>
#include <QPointer>
#include <QTest>
#include <algorithm>

#include "forms/conf_fixture.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using State = EchoMark::State;
using Writes = std::vector<Write>;

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

class FrmConfUnit : public ConfFixture, public testing::WithParamInterface<Unit> {
 protected:
  std::string Box(int n) { return Element(GetParam().box, n); }
};

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
    EXPECT_EQ(Find(Box(n)).findChild<QTimer*>()->interval(), 200);
    EXPECT_EQ(Written(), Writes{});
    NodeIndex = 1;
    LetSee(Box(n));
    EXPECT_EQ(Written(), (Writes{{GetParam().node, 328 + n, 99}}));
    EXPECT_FALSE(Find(Box(n)).findChild<QTimer*>()->isActive()) << "it is written once";
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

TEST_P(FrmConfUnit, OfTwoEntriesWhileTheFirstIsSeenTheSecondCounts) {
  Fill();
  Find<QLineEdit>(Box(3)).clear();
  Enter(Box(3), "5");
  Enter(Box(3), "6");
  LetSee(Box(3));
  EXPECT_EQ(Written(), (Writes{{GetParam().node, 331, 56}}));
}

TEST_P(FrmConfUnit, AnEntryGoodOrBadIsTypedOver) {
  Fill();
  for (const char* text : {"9", "100"}) {
    EnterGroup(Box(3), text);
    EXPECT_EQ(Find<QLineEdit>(Box(3)).selectedText(), text);
    QTest::keyClicks(&Find(Box(3)), "7");
    EXPECT_EQ(BoxText(Box(3)), "7");
  }
  Enter(Box(3), "1");
  QTest::keyClicks(&Find(Box(3)), "2");
  LetSee(Box(3));
  EXPECT_EQ(Find<QLineEdit>(Box(3)).selectedText(), "") << "typed on while the entry was seen";
  Find<QLineEdit>(Box(3)).clear();
  Enter(Box(3), "71");
  Focus(Box(4));
  ASSERT_EQ(BoxText(Box(3)), "71");
  LetSee(Box(3));
  EXPECT_EQ(Find<QLineEdit>(Box(3)).selectedText(), "") << "left while the entry was seen";
}

TEST_P(FrmConfUnit, AnAnswerLeavesAnEqualTextAloneAndAnotherIsThereToBeTypedOver) {
  Fill();
  auto& box = Find<QLineEdit>(Box(3));
  Focus(Box(3));
  box.deselect();
  Arrive(GetParam().node, 331, 4);
  EXPECT_EQ(box.selectedText(), "");
  Arrive(GetParam().node, 331, 17);
  EXPECT_EQ(box.selectedText(), "17");
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
  EXPECT_EQ(Find(Box(5)).accessibleDescription(), message.text);
  EnterGroup(Box(6), "1");
  EXPECT_EQ(Ground(Box(5)), kRed) << "another box";
  EnterGroup(Box(5), "9");
  EXPECT_EQ(Ground(Box(5)), Standard());
  EXPECT_EQ(Find(Box(5)).toolTip(), "");
}

TEST_P(FrmConfUnit, GreenAndRedAreWrittenOnInBlackInTheDarkToo) {
  const QPalette light = QApplication::palette();
  QPalette dark = light;
  dark.setColor(QPalette::Text, Qt::white);
  QApplication::setPalette(dark);
  Fill();
  EXPECT_EQ(Ink(Box(5)), Qt::white);
  Find<QLineEdit>(Box(5)).clear();
  Enter(Box(5), "100");
  EXPECT_EQ(Ink(Box(5)), Qt::black);
  LetSee(Box(5));
  EXPECT_EQ(Ink(Box(5)), Qt::black);
  EnterGroup(Box(5), "9");
  EXPECT_EQ(Ink(Box(5)), Qt::white);
  QApplication::setPalette(light);
}

TEST_P(FrmConfUnit, IsRedAlreadyBehindTheMessage) {
  Fill();
  const MsgBoxHandler before = SetMsgBoxHandler([this](const QString&, const QString&, BoxStyle) {
    EXPECT_EQ(Ground(Box(5)), kRed);
    return BoxAnswer::kOk;
  });
  EnterGroup(Box(5), "100");
  SetMsgBoxHandler(before);
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

TEST_P(FrmConfUnit, ABoxWhoseWindowGoesBehindAnotherIsNotLeft) {
  Fill();
  Find<QLineEdit>(Box(2)).clear();
  Type(Box(2), "55");
  QWidget other;
  other.show();
  QApplication::setActiveWindow(&other);
  ASSERT_FALSE(Find(Box(2)).hasFocus());
  EXPECT_EQ(BoxText(Box(2)), "55");
}

TEST_P(FrmConfUnit, APositionStandsUnderTheDigitOfItsColumnAndBesideThatOfItsRow) {
  QApplication::processEvents();
  for (const int n : {0, 7, 29, 47}) {
    SCOPED_TRACE(n);
    const QWidget& box = Find(Box(n));
    const QRect at = box.geometry();
    const auto shows = [&](int digit, auto stands) {
      return std::ranges::any_of(box.parentWidget()->findChildren<QLabel*>(), [&](const QLabel* label) {
        return label->text() == QString::number(digit) && stands(label->geometry());
      });
    };
    EXPECT_TRUE(shows(n % 8 + 1, [&](QRect head) {
      return head.bottom() < at.top() && std::abs(head.center().x() - at.center().x()) < at.width();
    }));
    EXPECT_TRUE(shows(n / 8 + 1, [&](QRect head) {
      return head.right() < at.left() && std::abs(head.center().y() - at.center().y()) < 6;
    }));
  }
}

TEST_P(FrmConfUnit, ABoxThatIsLeftBeforeAnythingHasArrivedShowsNothing) {
  ParamTable[GetParam().node][330].Value[0] = 17;
  Arrive(0, 361, 4);
  for (int i = 0; i < 96; ++i) {
    Arrive(GetParam().node, 328, 1);
  }
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
  const QPointer<QTimer> seen = Find(Box(2)).findChild<QTimer*>();
  ASSERT_TRUE(seen->isActive());
  Close();
  EXPECT_EQ(seen, nullptr);
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
  for (int n = 0; n < kPositions; ++n) {
    expected.push_back({GetParam().node, 328 + n, n + 1});
  }
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
