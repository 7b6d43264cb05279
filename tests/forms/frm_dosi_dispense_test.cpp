// SPDX-License-Identifier: GPL-3.0-or-later
// The tests of a drink and of its parts on FrmDosi.
#include <QTest>

#include "forms/dosi_fixture.h"
#include "link/identification.h"

namespace dosmara {
namespace {

TEST_F(FrmDosiTest, AModelBelow21HasNoPartTests) {
  for (const int model : {20, 21}) {
    ModelCode = static_cast<std::int16_t>(model);
    OpenLoaded();
    Arrive(1, 170, 9);
    EXPECT_TRUE(RowOpen(2));
    for (int n = 0; n < 5; ++n) {
      EXPECT_EQ(Enabled(Element("cmdProva", n)), model == 21) << n;
    }
    Close();
  }
}

TEST_F(FrmDosiTest, TheCommandFollowsTheEchoOfTheSelection) {
  OpenLoaded();
  Click("Label11(21)");
  Click("Command1(2)");
  EXPECT_EQ(Written(), (Writes{{0, 315, 22}}));
  ExpectAllGrey();
  EXPECT_TRUE(Running("Timer1"));
  Arrive(0, 315, 22);
  EXPECT_EQ(Written(), (Writes{{0, 314, 2}}));
}

TEST_F(FrmDosiTest, ASelectionThatHasNotReachedTheMachineIsNotTested) {
  OpenLoaded();
  Click("Label11(21)");
  for (const char* button : {"Command1(2)", "cmdProva(1)"}) {
    Click(button);
    Written();
    Arrive(0, 315, 7);  // the machine's old one: the line has lost the write
    EXPECT_EQ(Written(), Writes{});
    Fire(button == std::string("cmdProva(1)") ? "Timer3" : "Timer1");
  }
}

TEST_F(FrmDosiTest, AMachineThatDoesNotStartGivesTheFormBack) {
  OpenLoaded();
  Click("Command1(0)");
  Fire("Timer1");
  EXPECT_FALSE(Running("Timer1"));
  EXPECT_TRUE(Enabled("Command1(0)"));
  EXPECT_TRUE(RowOpen(0));
  Arrive(0, 315, 1);
  EXPECT_EQ(Written(), (Writes{{0, 314, 0}, {0, 315, 1}}));
}

TEST_F(FrmDosiTest, AStartedDrinkEndsWithTheStatus) {
  OpenLoaded();
  Click("Command1(0)");
  Arrive(0, 317, 2);
  Fire("Timer1");
  ExpectAllGrey();
  EXPECT_FALSE(Running("Timer1"));
  Arrive(0, 317, 2);
  ExpectAllGrey();
  Arrive(0, 317, 253);
  EXPECT_TRUE(Enabled("Command1(2)"));
  EXPECT_TRUE(RowOpen(0));
}

TEST_F(FrmDosiTest, ALeaveThatComesDuringATestOpensTheFormAndTheTestGoesOn) {
  OpenLoaded();
  Click("Command1(0)");
  Arrive(0, 317, 2);
  Arrive(0, 312, 0);
  ExpectAllGrey();
  Arrive(0, 312, 4);
  EXPECT_TRUE(Enabled("Command1(0)"));
  Written();
  Arrive(0, 315, 1);
  EXPECT_EQ(Written(), (Writes{{0, 314, 4}})) << "the test is still under way";
  Arrive(0, 317, 0);
  Arrive(0, 315, 1);
  EXPECT_EQ(Written(), (Writes{{0, 314, 0}})) << "and has ended";
}

TEST_F(FrmDosiTest, AnArrivalThatLoadsTheFormDuringATestOpensIt) {
  Open();
  Arrive(0, 312, 4);
  for (const int record : kBitRecords) {
    Arrive(1, record, 0);
  }
  Arrive(1, 170, 7);  // its dependants open, and with them the test of a part
  Click("cmdProva(0)");
  EXPECT_FALSE(Enabled("cmdProva(0)"));
  for (const int record : {148, 280, 368, 302, 390, 192, 324, 412, 214}) {
    Arrive(1, record, 7);
  }
  EXPECT_FALSE(Enabled("Command1(0)"));
  Arrive(1, 346, 7);
  EXPECT_TRUE(Enabled("Command1(0)"));
  EXPECT_TRUE(Running("Timer3"));
}

TEST_F(FrmDosiTest, TheEndOfATestOpensAFormThatHasBeenLockedMeanwhile) {
  OpenLoaded();
  Click("Command1(0)");
  Arrive(0, 312, 0);
  ExpectAllGrey();
  Fire("Timer1");
  EXPECT_TRUE(Enabled("Command1(0)"));
}

TEST_F(FrmDosiTest, ADrinkOfTheMachinesOwnEndsNoTest) {
  OpenLoaded();
  Arrive(0, 312, 0);
  Arrive(0, 317, 2);
  Arrive(0, 317, 0);
  ExpectAllGrey();
}

TEST_F(FrmDosiTest, AStatusWithoutAStartEndsNoTest) {
  OpenLoaded();
  Click("Command1(0)");
  Arrive(0, 317, 0);
  ExpectAllGrey();
}

TEST_F(FrmDosiTest, APartTestEndsByItsTimerAlone) {
  OpenLoaded();
  Click("Label11(3)");
  Arrive(1, 283, 25);
  Click("cmdProva(0)");
  EXPECT_EQ(Written(), (Writes{{0, 315, 3}, {0, 316, 66}}));
  EXPECT_EQ(Find<QTimer>("Timer3").interval(), 3500);
  ExpectAllGrey();
  Arrive(0, 317, 2);
  Arrive(0, 317, 0);
  ExpectAllGrey();
  Fire("Timer3");
  EXPECT_FALSE(Running("Timer3"));
  EXPECT_TRUE(Enabled("cmdProva(0)"));
  EXPECT_TRUE(RowOpen(2));
  Arrive(0, 317, 2);
  Arrive(0, 312, 0);
  Arrive(0, 317, 0);
  ExpectAllGrey();
}

TEST_F(FrmDosiTest, AStartThatWasSeenEndsWithItsTest) {
  OpenLoaded();
  for (const char* test : {"Command1(1)", "cmdProva(0)"}) {
    SCOPED_TRACE(test);
    Click(test);
    Arrive(0, 317, 2);
    Arrive(0, 317, 0);
    if (Running("Timer3")) {
      Fire("Timer3");
    }
    EXPECT_TRUE(RowOpen(0));
    Click("Command1(0)");
    Arrive(0, 317, 0);
    ExpectAllGrey();
    Fire("Timer1");
    EXPECT_TRUE(RowOpen(0));
  }
}

TEST_F(FrmDosiTest, TheStatusEndsADrinkThatIsTestedAfterAPart) {
  OpenLoaded();
  Click("cmdProva(4)");
  Fire("Timer3");
  Click("Command1(2)");
  Arrive(0, 317, 2);
  Fire("Timer1");
  ExpectAllGrey();
  Arrive(0, 317, 0);
  EXPECT_TRUE(Enabled("Command1(2)"));
  EXPECT_TRUE(RowOpen(0));
}

TEST_F(FrmDosiTest, APartWithoutTimeIsTestedForATenthOfASecond) {
  OpenLoaded();
  Arrive(1, 280, 0);
  Click("cmdProva(0)");
  EXPECT_EQ(Find<QTimer>("Timer3").interval(), 100);
  Fire("Timer3");
  Arrive(1, 280, 1);
  Click("cmdProva(0)");
  EXPECT_EQ(Find<QTimer>("Timer3").interval(), 1100);
}

TEST_F(FrmDosiTest, AfterATestTheFocusIsBackOnItsButton) {
  OpenLoaded();
  Focus("cmdProva(4)");
  QTest::keyClick(&Find("cmdProva(4)"), Qt::Key_Space);
  ExpectAllGrey();
  Fire("Timer3");
  EXPECT_TRUE(Find("cmdProva(4)").hasFocus());
}

}  // namespace
}  // namespace dosmara
