// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/entry_box.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFocusEvent>
#include <QTest>
#include <QTimerEvent>
#include <QVBoxLayout>
#include <memory>

namespace dosmara {
namespace {

// A window with a box that shows 42, and another control to leave it for.
class EntryBoxTest : public testing::Test {
 protected:
  void Make(const EntryPolicy& policy) {
    box_ = new EntryBox(&window_, policy);
    auto* layout = new QVBoxLayout(&window_);
    layout->addWidget(&other_);
    layout->addWidget(box_);
    window_.show();
    QApplication::setActiveWindow(&window_);
    other_.setFocus();
    box_->ShowText("42");
    QObject::connect(box_, &EntryBox::Confirmed, [this](const QString& text) { confirmed_.append(text); });
  }

  void Enter() { box_->setFocus(Qt::TabFocusReason); }
  void Leave() { other_.setFocus(Qt::TabFocusReason); }
  void Press(Qt::Key key) { QTest::keyClick(box_, key); }
  void Type(const char* text) { QTest::keyClicks(box_, text); }
  // Comes into the box and types, with nothing of the old text left.
  void TypeOver(const char* text) {
    Enter();
    box_->clear();
    Type(text);
  }
  void BringAnotherWindowToTheFront() { QApplication::setActiveWindow(nullptr); }
  // The moment in which an entry is seen is over.
  void LetSee() {
    auto* timer = box_->findChild<QTimer*>();
    ASSERT_TRUE(timer->isActive());
    QTimerEvent event(timer->timerId());
    QCoreApplication::sendEvent(timer, &event);
  }
  QColor Ground() { return box_->palette().color(QPalette::Base); }
  QColor Ink() { return box_->palette().color(QPalette::Text); }

  // A window that closes is left too, so what its box asks and tells outlives it.
  QStringList confirmed_;
  QString in_force_;
  QWidget window_;
  QLineEdit other_;
  EntryBox* box_ = nullptr;
};

// What holds for a box whatever its policy.
struct NamedPolicy {
  const char* name;
  const EntryPolicy& policy;
};
constexpr NamedPolicy kPolicies[] = {{"OverShownValue", kOverShownValue},
                                     {"ConfirmedByLeaving", kConfirmedByLeaving},
                                     {"JudgedAfterAMoment", kJudgedAfterAMoment}};
void PrintTo(const NamedPolicy& policy, std::ostream* out) { *out << policy.name; }

class EachEntryBox : public EntryBoxTest, public testing::WithParamInterface<NamedPolicy> {
 protected:
  EachEntryBox() { Make(GetParam().policy); }
};

TEST_P(EachEntryBox, ShowsWhatArrivesAndConfirmsNothingByItself) {
  EXPECT_EQ(box_->text(), "42");
  box_->ShowText("43");
  EXPECT_EQ(box_->text(), "43");
  EXPECT_EQ(box_->selectedText(), "") << "nobody is in the box";
  EXPECT_EQ(confirmed_, QStringList{});
}

TEST_P(EachEntryBox, AnArrivalReplacesWhatIsTypedAndIsItselfTypedOver) {
  TypeOver("7");
  box_->ShowText("43");
  EXPECT_EQ(box_->text(), "43");
  Type("8");
  EXPECT_EQ(box_->text(), "8");
  EXPECT_EQ(confirmed_, QStringList{});
}

TEST_P(EachEntryBox, AnArrivalThatStandsAlreadyDisturbsNobodyWhoTypes) {
  TypeOver("43");
  box_->setCursorPosition(1);
  box_->ShowText("43");
  EXPECT_EQ(box_->cursorPosition(), 1);
  Type("7");
  EXPECT_EQ(box_->text(), "473");
}

TEST_P(EachEntryBox, EscapeBringsBackWhatArrivedLast) {
  TypeOver("7");
  Press(Qt::Key_Escape);
  EXPECT_EQ(box_->text(), "42");
  box_->ShowText("43");
  TypeOver("7");
  Press(Qt::Key_Escape);
  EXPECT_EQ(box_->text(), "43");
  Type("5");
  EXPECT_EQ(box_->text(), "5") << "the next key begins a new entry";
  EXPECT_EQ(confirmed_, QStringList{});
}

TEST_P(EachEntryBox, ComesBackToATextThatItIsToldToAskFor) {
  box_->ComeBackTo([this] { return in_force_; });
  TypeOver("7");
  in_force_ = "99";
  Press(Qt::Key_Escape);
  EXPECT_EQ(box_->text(), "99");
}

TEST_P(EachEntryBox, ItsLengthHoldsForWhatIsTypedAlone) {
  box_->SetLength(3);
  box_->ShowText("12345");
  EXPECT_EQ(box_->text(), "12345");
  TypeOver("98765");
  EXPECT_EQ(box_->text(), "987");
  box_->ShowText("23456");
  EXPECT_EQ(box_->text(), "23456");
  Type("98765");
  EXPECT_EQ(box_->text(), "987");
}

TEST_P(EachEntryBox, TakesAnyLengthUntilItIsToldOne) {
  TypeOver("123456789");
  EXPECT_EQ(box_->text(), "123456789");
  EXPECT_EQ(box_->maxLength(), 32767);
}

TEST_P(EachEntryBox, ItsOwnMenuIsNeitherLeavingNorComing) {
  TypeOver("7");
  QFocusEvent out(QEvent::FocusOut, Qt::PopupFocusReason);
  QFocusEvent in(QEvent::FocusIn, Qt::PopupFocusReason);
  QApplication::sendEvent(box_, &out);
  QApplication::sendEvent(box_, &in);
  EXPECT_EQ(box_->text(), "7");
  EXPECT_EQ(confirmed_, QStringList{});
}

TEST_P(EachEntryBox, BothEnterKeysAreEnter) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    TypeOver("7");
    Press(key);
    if (GetParam().policy.shown_for.count() > 0) {
      LetSee();
    }
  }
  EXPECT_EQ(confirmed_, (QStringList{"7", "7"}));
}

TEST_P(EachEntryBox, SaysWhyAnEntryIsRefusedUntilOneIsAccepted) {
  QPalette dark = window_.palette();
  dark.setColor(QPalette::Text, Qt::white);
  window_.setPalette(dark);
  const QColor plain = Ground();
  EXPECT_EQ(Ink(), Qt::white);
  box_->Refuse("too much");
  EXPECT_EQ(Ground(), QColor(255, 0, 0));
  EXPECT_EQ(Ink(), Qt::black);
  EXPECT_EQ(box_->toolTip(), "too much");
  EXPECT_EQ(box_->accessibleDescription(), "too much");
  box_->Accept();
  EXPECT_EQ(Ground(), plain);
  EXPECT_EQ(Ink(), Qt::white);
  EXPECT_EQ(box_->toolTip(), "");
  EXPECT_EQ(box_->accessibleDescription(), "");
}

INSTANTIATE_TEST_SUITE_P(Policies, EachEntryBox, testing::ValuesIn(kPolicies),
                         [](const auto& each) { return std::string(each.param.name); });

class BoxOverShownValue : public EntryBoxTest {
 protected:
  BoxOverShownValue() { Make(kOverShownValue); }
};

TEST_F(BoxOverShownValue, OpensEmptyWithTheOldTextFaintlyInSight) {
  Enter();
  EXPECT_EQ(box_->text(), "");
  EXPECT_EQ(box_->placeholderText(), u"42\u00a0");
}

TEST_F(BoxOverShownValue, OpensWithTheLengthThatCanBeTyped) {
  box_->SetLength(3);
  box_->ShowText("12345");
  EXPECT_EQ(box_->maxLength(), 5);
  Enter();
  EXPECT_EQ(box_->maxLength(), 3);
}

TEST_F(BoxOverShownValue, LeavingGivesTheEntryUp) {
  TypeOver("7");
  Leave();
  EXPECT_EQ(box_->text(), "42");
  EXPECT_EQ(box_->selectedText(), "");
  EXPECT_EQ(confirmed_, QStringList{});
}

TEST_F(BoxOverShownValue, AnotherWindowInFrontIsLeaving) {
  TypeOver("7");
  BringAnotherWindowToTheFront();
  EXPECT_EQ(box_->text(), "42");
  EXPECT_EQ(box_->selectedText(), "");
}

TEST_F(BoxOverShownValue, WhatArrivesWhileItIsTypedInIsThereWhenItIsLeft) {
  TypeOver("7");
  box_->ShowText("43");
  Type("8");
  Leave();
  EXPECT_EQ(box_->text(), "43");
}

TEST_F(BoxOverShownValue, AfterEnterTheNextKeyBeginsANewEntry) {
  TypeOver("7");
  Press(Qt::Key_Return);
  EXPECT_EQ(confirmed_, QStringList{"7"});
  EXPECT_EQ(box_->selectedText(), "7");
}

TEST_F(BoxOverShownValue, AfterEscapeTooThoughTheTextIsTheSame) {
  TypeOver("42");
  Press(Qt::Key_Escape);
  EXPECT_EQ(box_->selectedText(), "42");
}

class BoxConfirmedByLeaving : public EntryBoxTest {
 protected:
  BoxConfirmedByLeaving() { Make(kConfirmedByLeaving); }
};

TEST_F(BoxConfirmedByLeaving, KeepsItsTextWhenItIsComeInto) {
  Enter();
  EXPECT_EQ(box_->text(), "42");
  EXPECT_EQ(box_->placeholderText(), "");
}

TEST_F(BoxConfirmedByLeaving, LeavingConfirmsAsEnterDoes) {
  TypeOver("7");
  Press(Qt::Key_Return);
  EXPECT_EQ(confirmed_, QStringList{"7"});
  Type("5");
  Leave();
  EXPECT_EQ(confirmed_, (QStringList{"7", "75"})) << "after Enter the entry goes on";
  EXPECT_EQ(box_->text(), "75");
}

TEST_F(BoxConfirmedByLeaving, AnotherWindowInFrontIsNoLeaving) {
  TypeOver("7");
  BringAnotherWindowToTheFront();
  EXPECT_FALSE(box_->hasFocus());
  EXPECT_EQ(box_->text(), "7");
  EXPECT_EQ(confirmed_, QStringList{});
}

TEST_F(BoxConfirmedByLeaving, EscapeLeavesATextThatStandsAlreadyAsItIs) {
  TypeOver("42");
  Press(Qt::Key_Escape);
  EXPECT_EQ(box_->selectedText(), "");
}

class BoxJudgedAfterAMoment : public EntryBoxTest {
 protected:
  BoxJudgedAfterAMoment() { Make(kJudgedAfterAMoment); }
};

TEST_F(BoxJudgedAfterAMoment, AnEntryIsSeenInGreenBeforeItIsConfirmed) {
  TypeOver("7");
  box_->Refuse("an earlier one");
  Press(Qt::Key_Return);
  EXPECT_EQ(Ground(), QColor(0, 255, 0));
  EXPECT_EQ(Ink(), Qt::black);
  EXPECT_EQ(box_->toolTip(), "");
  EXPECT_EQ(box_->findChild<QTimer*>()->interval(), 200);
  EXPECT_EQ(confirmed_, QStringList{});
  LetSee();
  EXPECT_EQ(confirmed_, QStringList{"7"});
  EXPECT_FALSE(box_->findChild<QTimer*>()->isActive()) << "it is confirmed once";
  EXPECT_EQ(box_->selectedText(), "7");
}

TEST_F(BoxJudgedAfterAMoment, WhatStoodThereAtEnterIsConfirmedWhateverIsTypedMeanwhile) {
  TypeOver("7");
  Press(Qt::Key_Return);
  Type("1");
  LetSee();
  EXPECT_EQ(confirmed_, QStringList{"7"});
  EXPECT_EQ(box_->text(), "71");
  EXPECT_EQ(box_->selectedText(), "");
}

TEST_F(BoxJudgedAfterAMoment, LeavingGivesUpWhatEnterHasNotTakenUp) {
  TypeOver("7");
  Press(Qt::Key_Return);
  Leave();
  EXPECT_EQ(box_->text(), "42");
  TypeOver("42");
  Press(Qt::Key_Return);
  Leave();
  LetSee();
  EXPECT_EQ(confirmed_, QStringList{"42"}) << "taken up before it was left";
  EXPECT_EQ(box_->selectedText(), "") << "nobody is in the box";
}

TEST_F(BoxJudgedAfterAMoment, AnotherWindowInFrontIsNoLeaving) {
  TypeOver("7");
  BringAnotherWindowToTheFront();
  EXPECT_EQ(box_->text(), "7");
}

TEST_F(BoxJudgedAfterAMoment, MayBeDeletedByWhoeverIsTold) {
  QObject::connect(box_, &EntryBox::Confirmed, [this] { delete box_; });
  TypeOver("7");
  Press(Qt::Key_Return);
  LetSee();
  EXPECT_EQ(confirmed_, QStringList{"7"});
}

}  // namespace
}  // namespace dosmara
