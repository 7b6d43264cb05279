// SPDX-License-Identifier: GPL-3.0-or-later
// FrmTestZeth and FrmTestZeth2: a product of a unit by its keypad, and its motors to zero.
#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "fields/records.h"
#include "forms/form_fixture.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using Writes = std::vector<Write>;
using Names = std::vector<std::string>;

// What tells the two windows apart.
struct Unit {
  const char* form;
  int node;
  int presence;
  int letter;
  const char* title;
  const char* zero;
  const char* heading;
};
constexpr Unit kUnits[] = {{"FrmTestZeth", 2, 313, 86, "#33", "#330", "#331"},
                           {"FrmTestZeth2", 3, 357, 87, "#45", "#334", "#335"}};
void PrintTo(const Unit& unit, std::ostream* out) { *out << unit.form; }

class PeripheralTest : public FormFixture, public testing::WithParamInterface<Unit> {
 protected:
  PeripheralTest() { Open(); }

  void Open() { FormFixture::Open(GetParam().form); }
  int node() const { return GetParam().node; }
  void SendPresence(int value) { Arrive(0, GetParam().presence, value); }
  void SendStatus(int value) { Arrive(0, 317, value); }
  void SendMotors(int value) { Arrive(node(), 290, value); }
  void Zone(int zone) { Click(Element("Label1", zone)); }
  std::string Choice() { return LabelText("Label2(1)"); }

  void ExpectOpen(bool open) {
    for (int zone = 0; zone < 9; ++zone) {
      EXPECT_EQ(Enabled(Element("Label1", zone)), open) << zone;
    }
    EXPECT_EQ(Enabled("Command1"), open);
  }
  void ExpectIdle() {
    EXPECT_EQ(Choice(), "_ _");
    ExpectOpen(true);
    EXPECT_FALSE(Running("Timer1"));
    EXPECT_EQ(Written(), Writes{});
  }
  // The unit is there, and row 3, column 5 chosen.
  void AskFor35() {
    SendPresence(4);
    Zone(2);
    Zone(4);
  }
  Writes Position(int row, int column) const {
    return {{0, 315, column + 38}, {0, 316, row * 16}, {0, 358, GetParam().letter}};
  }
  // The echoes of all that has been sent for row 3, column 5.
  void SendEchoes() {
    Arrive(0, 358, GetParam().letter);
    Arrive(0, 316, 48);
    Arrive(0, 315, 43);
  }
};

TEST_P(PeripheralTest, SubscribesThreeRecordsAndReleasesTheWrittenOnesTooAsPrescribed) {
  for (const Subscription& each : {Subscription{0, 317, 1}, {0, GetParam().presence, 1}, {node(), 290, 1}}) {
    EXPECT_EQ(std::ranges::count(Subscribed(), each), 1) << testing::PrintToString(each);
  }
  EXPECT_EQ(Subscribed().size(), 3u);
  const Records written[] = {{0, 314, 3}, {0, 358}, {node(), 284}};
  for (const Records& records : written) {
    for (int n = 0; n < records.count; ++n) {
      ParamTable[records.node][records.first + n].Subscribers = 1;
    }
  }
  Close();
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
}

TEST_P(PeripheralTest, BearsTheWordsOfTheLanguage) {
  EXPECT_EQ(form().windowTitle(), GetParam().title);
  EXPECT_EQ(Find<QAbstractButton>("Command1").text(), GetParam().zero);
  EXPECT_EQ(LabelText("Label2(0)"), GetParam().heading);
  EXPECT_EQ(Find("Image1").accessibleName(), GetParam().heading);
}

TEST_P(PeripheralTest, TheButtonHasItsOwnWordsWhereTheLanguageHasNone) {
  for (const int line : {330, 334}) {
    CaptionTable[line].clear();
  }
  form().InitMessaggi();
  EXPECT_EQ(Find<QAbstractButton>("Command1").text(), "Set zero motori");
}

TEST_P(PeripheralTest, IsClosedAndWithoutAChoiceUntilTheUnitIsKnownToBeThere) {
  EXPECT_EQ(Choice(), "_ _");
  EXPECT_FALSE(Running("Timer1"));
  EXPECT_EQ(Find<QTimer>("Timer1").interval(), 2000);
  ExpectOpen(false);
  SendStatus(0);
  SendMotors(0);
  ExpectOpen(false);
  SendPresence(4);
  ExpectIdle();
}

TEST_P(PeripheralTest, FollowsThePresenceOfItsOwnUnitWheneverItChanges) {
  SendPresence(251);
  ExpectOpen(false);
  SendPresence(12);
  ExpectOpen(true);
  SendPresence(8);
  ExpectOpen(false);
  Arrive(0, GetParam().presence == 313 ? 357 : 313, 4);
  Arrive(node(), GetParam().presence, 4);
  ExpectOpen(false);
}

TEST_P(PeripheralTest, ThePresenceThatItBeginsWithChangesNothing) {
  SendPresence(255);
  ExpectOpen(false);
  SendPresence(254);
  ExpectOpen(true);
}

TEST_P(PeripheralTest, AnUnchangedPresenceLeavesAClosedKeypadClosed) {
  AskFor35();
  SendPresence(4);
  ExpectOpen(false);
  EXPECT_EQ(Choice(), "3 5");
  SendPresence(5);
  ExpectOpen(true);
}

TEST_P(PeripheralTest, TheFirstPressChoosesARowOfSixAndTheNextAColumnOfEight) {
  SendPresence(4);
  for (int row = 1; row <= 6; ++row) {
    for (int column = 1; column <= 8; ++column) {
      SCOPED_TRACE(testing::Message() << row << column);
      for (const int nothing : {6, 7, 8}) {
        Zone(nothing);
      }
      EXPECT_EQ(Choice(), "_ _");
      Zone(row - 1);
      EXPECT_EQ(Choice(), std::to_string(row) + " _");
      Zone(8);
      EXPECT_EQ(Choice(), std::to_string(row) + " _");
      ExpectOpen(true);
      EXPECT_FALSE(Running("Timer1"));
      EXPECT_EQ(Written(), Writes{});
      Zone(column - 1);
      EXPECT_EQ(Choice(), std::to_string(row) + " " + std::to_string(column));
      EXPECT_EQ(Written(), Position(row, column));
      EXPECT_TRUE(Running("Timer1"));
      ExpectOpen(false);
      Fire("Timer1");
    }
  }
}

TEST_P(PeripheralTest, TheLastRowAndColumnAreNinetySixAndFortySix) {
  SendPresence(4);
  Zone(5);
  Zone(7);
  EXPECT_EQ(Written(), (Writes{{0, 315, 46}, {0, 316, 96}, {0, 358, GetParam().letter}}));
}

TEST_P(PeripheralTest, TheCommandFollowsTheLastOfTheThreeEchoesWhicheverItIs) {
  constexpr int kEchoes[] = {315, 316, 358};
  std::vector<int> order = {0, 1, 2};
  do {
    AskFor35();
    Written();
    for (const int n : order) {
      EXPECT_EQ(Written(), Writes{});
      Arrive(0, kEchoes[n], ParamGet(kEchoes[n], 0));
    }
    EXPECT_EQ(Written(), (Writes{{0, 314, 2}}));
    Arrive(0, 314, 2);
    ExpectOpen(false);
    EXPECT_EQ(Choice(), "3 5");
    Fire("Timer1");
  } while (std::ranges::next_permutation(order).found);
}

TEST_P(PeripheralTest, NothingIsSentWhileOneOfTheThreeIsOutstanding) {
  for (const int outstanding : {315, 316, 358}) {
    AskFor35();
    SendEchoes();
    Written();
    Fire("Timer1");
    AskFor35();
    Written();
    for (const int record : {315, 316, 358, 315, 316, 358}) {
      if (record != outstanding) {
        Arrive(0, record, ParamGet(record, 0));
      }
    }
    EXPECT_EQ(Written(), Writes{}) << outstanding;
    SendEchoes();
    Written();
    Fire("Timer1");
  }
}

TEST_P(PeripheralTest, EchoesOfOtherBoardsAreNotHeard) {
  AskFor35();
  Written();
  for (const int record : {315, 316, 358}) {
    ParamTable[0][record].Flags |= kArrived;
  }
  for (int other = 1; other < 4; ++other) {
    for (const int record : {315, 316, 358}) {
      Arrive(other, record, 43);
    }
  }
  EXPECT_EQ(Written(), Writes{});
}

TEST_P(PeripheralTest, AChoiceWhoseEchoesAreLateIsRunAllTheSame) {
  AskFor35();
  Written();
  Fire("Timer1");
  SendEchoes();
  EXPECT_EQ(Written(), (Writes{{0, 314, 2}}));
}

// A write that the line loses is followed by a read of what the machine has had all along.
TEST_P(PeripheralTest, APositionThatHasNotReachedTheMachineIsNotRun) {
  constexpr std::pair<int, int> kOld[] = {{315, 46}, {316, 96}, {358, 85}};
  for (const auto& [lost, old] : kOld) {
    SCOPED_TRACE(lost);
    AskFor35();
    SendEchoes();
    Written();
    Fire("Timer1");
    AskFor35();
    Written();
    ParamTable[0][lost].Value[0] = static_cast<std::uint8_t>(old);
    for (const int record : {315, 316, 358}) {
      Arrive(0, record, ParamGet(record, 0));
    }
    EXPECT_EQ(Written(), Writes{});
    Arrive(0, lost, lost == 315 ? 43 : lost == 316 ? 48 : GetParam().letter);
    EXPECT_EQ(Written(), Writes{}) << "it has been given up";
    Fire("Timer1");
    ExpectIdle();
  }
  AskFor35();
  Written();
  SendEchoes();
  EXPECT_EQ(Written(), (Writes{{0, 314, 2}})) << "pressed anew";
}

TEST_P(PeripheralTest, WhatAnotherWindowTestsIsNotRunFromHere) {
  AskFor35();
  SendEchoes();
  Written();
  FormFixture::Open("FrmCancella");
  for (const int record : {315, 316, 358}) {
    Arrive(0, record, 3);
  }
  EXPECT_EQ(Written(), Writes{});
}

TEST_P(PeripheralTest, OpensWithoutAChoiceWhenTheMachineHasDispensed) {
  AskFor35();
  SendEchoes();
  Written();
  SendStatus(0);
  EXPECT_EQ(Choice(), "3 5");
  EXPECT_TRUE(Running("Timer1"));
  SendStatus(253);
  EXPECT_TRUE(Running("Timer1"));
  SendStatus(2);
  EXPECT_FALSE(Running("Timer1"));
  ExpectOpen(false);
  EXPECT_EQ(Choice(), "3 5");
  SendStatus(253);
  ExpectIdle();
  Zone(0);
  SendStatus(0);
  EXPECT_EQ(Choice(), "1 _");
}

TEST_P(PeripheralTest, AMachineThatDoesNotStartGivesTheKeypadBack) {
  AskFor35();
  Written();
  Fire("Timer1");
  ExpectIdle();
}

TEST_P(PeripheralTest, TheEndOfPatienceForgetsThatTheMachineWasBusy) {
  SendPresence(4);
  SendStatus(2);
  Zone(2);
  Zone(4);
  Fire("Timer1");
  Zone(0);
  SendStatus(0);
  EXPECT_EQ(Choice(), "1 _");
}

TEST_P(PeripheralTest, AForeignVendEndsAChoiceTooAsPrescribed) {
  SendPresence(4);
  Zone(2);
  SendStatus(6);
  EXPECT_EQ(Choice(), "3 _");
  ExpectOpen(true);
  SendStatus(4);
  ExpectIdle();
}

TEST_P(PeripheralTest, AForeignVendOpensNothingWithoutAUnit) {
  ParamTable[0][GetParam().presence].Value[0] = 4;  // as index files have it
  SendStatus(2);
  SendStatus(0);
  ExpectOpen(false);
  SendPresence(0);
  SendStatus(2);
  SendStatus(0);
  SendMotors(2);
  SendMotors(0);
  ExpectOpen(false);
}

TEST_P(PeripheralTest, AForeignVendOpensNothingWhereAnotherWindowHasReadThatThereIsNoUnit) {
  ParamTable[0][GetParam().presence].Flags |= kArrived;
  SendStatus(2);
  SendStatus(0);
  ExpectOpen(false);
}

TEST_P(PeripheralTest, AUnitThatIsGoneLeavesTheKeypadClosedWhenPatienceEnds) {
  AskFor35();
  SendPresence(0);
  Fire("Timer1");
  EXPECT_EQ(Choice(), "_ _");
  ExpectOpen(false);
}

TEST_P(PeripheralTest, MotorsToZeroCloseTheKeypadUntilTheyStand) {
  SendPresence(4);
  Zone(2);
  Click("Command1");
  EXPECT_EQ(Written(), (Writes{{node(), 284, 3}}));
  EXPECT_EQ(Choice(), "_ _");
  EXPECT_FALSE(Running("Timer1"));
  ExpectOpen(false);
  SendMotors(0);
  ExpectOpen(false);
  SendMotors(7);
  SendMotors(2);
  ExpectOpen(false);
  SendMotors(253);
  ExpectIdle();
  Zone(0);
  SendMotors(0);
  EXPECT_EQ(Choice(), "1 _");
}

TEST_P(PeripheralTest, MotorsOfTheOtherUnitAreNotLookedAt) {
  SendPresence(4);
  Click("Command1");
  const int other = node() == 2 ? 3 : 2;
  Arrive(other, 290, 2);
  Arrive(other, 290, 0);
  Arrive(0, 290, 2);
  Arrive(0, 290, 0);
  Arrive(node(), 317, 2);
  Arrive(node(), 317, 0);
  ExpectOpen(false);
}

TEST_P(PeripheralTest, TheKeyboardDrivesTheKeypad) {
  SendPresence(4);
  EXPECT_TRUE(Find("Label1(0)").hasFocus());
  const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
  press(Qt::Key_3);
  EXPECT_EQ(Choice(), "3 _");
  press(Qt::Key_Down);
  press(Qt::Key_Right);
  press(Qt::Key_Space);
  EXPECT_EQ(Choice(), "3 5");
  EXPECT_EQ(Written(), Position(3, 5));
  press(Qt::Key_6);
  EXPECT_EQ(Choice(), "3 5");
  Fire("Timer1");
  EXPECT_TRUE(Find("Label1(4)").hasFocus());
  press(Qt::Key_Return);
  press(Qt::Key_8);
  EXPECT_EQ(Written(), Position(5, 8));
}

TEST_P(PeripheralTest, TabGoesFromTheKeypadToTheButton) {
  SendPresence(4);
  EXPECT_EQ(TabThrough(2), (Names{"Command1", "Label1(0)"}));
}

TEST_P(PeripheralTest, TheFocusGoesFromTheButtonToTheKeypadWhichKeepsIt) {
  SendPresence(4);
  Focus("Command1");
  QTest::keyClick(&Find("Command1"), Qt::Key_Space);
  EXPECT_EQ(Written(), (Writes{{node(), 284, 3}}));
  EXPECT_TRUE(Find("Image1").hasFocus());
  SendMotors(2);
  SendMotors(0);
  EXPECT_TRUE(Find("Label1(0)").hasFocus());
}

TEST_P(PeripheralTest, KeepsTheChoiceWhenTheLanguageChanges) {
  SendPresence(4);
  Zone(2);
  form().InitMessaggi();
  EXPECT_EQ(Choice(), "3 _");
}

TEST_P(PeripheralTest, NothingMovesWhateverIsChosen) {
  SendPresence(4);
  QApplication::processEvents();
  const QSize size = form().parentWidget()->size();
  const QRect keypad = Find("Image1").geometry();
  Zone(2);
  Zone(4);
  QApplication::processEvents();
  EXPECT_EQ(form().parentWidget()->size(), size);
  EXPECT_EQ(Find("Image1").geometry(), keypad);
}

INSTANTIATE_TEST_SUITE_P(Units, PeripheralTest, testing::ValuesIn(kUnits),
                         [](const auto& each) { return std::string(each.param.form); });

}  // namespace
}  // namespace dosmara
