// SPDX-License-Identifier: GPL-3.0-or-later
// The doses on the form and in the machine.
#include <QAbstractButton>
#include <QLabel>

#include "support/language_action.h"
#include "system/system_test.h"

namespace dosmara {
namespace {

using Doses = SystemTest;

// One value in each row: record of the first selection, what the machine holds, what the form shows.
struct Dose {
  int record;
  int value;
  const char* shown;
};
constexpr Dose kDoses[14] = {
    {148, 87, "87"},    {170, 999, "999"}, {280, 255, "25.5"}, {368, 5, "0.5"},  {302, 30, "3.0"},
    {390, 12, "1.2"},   {192, 110, "110"}, {324, 28, "2.8"},   {412, 7, "0.7"},  {214, 1, "0"},
    {346, 100, "10.0"}, {236, 0, "OFF"},   {434, 1, "0.0"},    {563, 64, "6.4"},
};

class DosesOfASelection : public SystemTest, public testing::WithParamInterface<int> {};

TEST_P(DosesOfASelection, AreShownAsTheMachineHoldsThem) {
  ConnectWithDoses();
  for (const Dose& dose : kDoses) {
    ASSERT_TRUE(machine().Set(1, dose.record + GetParam(), dose.value));
  }
  // By way of another selection, so that every value is read after it was set.
  Select(7);
  Select(GetParam());
  for (int row = 0; row < 14; ++row) {
    Await([&] { return Shown(row) == kDoses[row].shown; }, "the dose of a row");
  }
}

INSTANTIATE_TEST_SUITE_P(Selections, DosesOfASelection, testing::Values(0, 15, 16, 21));

TEST_F(Doses, AWaterDoseThatIsTypedReachesTheMachineAndComesBack) {
  ConnectWithDoses();
  EXPECT_EQ(Shown(0), "55");
  Type(0, "87");
  EXPECT_EQ(Shown(0), "55") << "the display waits for the machine";
  Await([&] { return machine().Get(1, 148) == 87; }, "the machine to hold the dose");
  Await([&] { return Shown(0) == "87"; }, "the label to follow");
}

TEST_F(Doses, ATimeIsTypedInTenths) {
  ConnectWithDoses();
  Type(12, "1,5");
  Await([&] { return machine().Get(1, 434) == 15; }, "the machine to hold the time");
  Await([&] { return Shown(12) == "1.5"; }, "the label to follow");
}

TEST_F(Doses, ADoseIsWrittenToTheSelectionShown) {
  ConnectWithDoses();
  Select(17);
  Await([&] { return Shown(1) == "60" && Shown(2) == "1.6"; }, "the other selection");
  Type(1, "61");
  Await([&] { return machine().Get(1, 187) == 61; }, "the machine to hold the dose");
  EXPECT_EQ(machine().Get(1, 170), 0) << "the first selection";
}

TEST_F(Doses, ASwitchChangesItsBitAndTheMirror) {
  ConnectWithDoses();
  ASSERT_EQ(machine().Get(1, 38), 3);
  auto& jug = Control<QAbstractButton>("SwitchX1(0)");
  ASSERT_TRUE(jug.isChecked());
  jug.click();
  Await([&] { return machine().Get(1, 38) == 2; }, "the record");
  Await([&] { return machine().Get(1, 516) == 2; }, "the mirror");
  EXPECT_FALSE(jug.isChecked());
}

TEST_F(Doses, ADrinkIsTestedFromTheButtonToTheLastDrop) {
  ConnectWithDoses();
  machine().Set(1, 148, 40);  // a second of water
  machine().Set(1, 434, 5);
  machine().Set(1, 126, 6);
  auto& complete = Control<QAbstractButton>("Command1(2)");
  complete.click();
  EXPECT_FALSE(complete.isEnabled());
  EXPECT_FALSE(Unlocked());
  Await([&] { return Status("dispensing") == "yes"; }, "the machine to dispense");
  EXPECT_EQ(machine().Get(0, 314), 2);
  EXPECT_EQ(machine().Get(0, 315), 1);
  EXPECT_FALSE(complete.isEnabled());
  Await([&] { return complete.isEnabled(); }, "the form to open again");
  EXPECT_TRUE(Unlocked());
  EXPECT_EQ(Status("dispensing"), "no");
}

TEST_F(Doses, APartIsTestedFromTheButtonToTheLastDrop) {
  ConnectWithDoses();
  machine().Set(1, 280 + 3, 10);
  Select(3);
  Await([&] { return Shown(2) == "1.0"; }, "the milk of the selection");
  auto& milk = Control<QAbstractButton>("cmdProva(0)");
  Await([&] { return milk.isEnabled(); }, "the button");
  milk.click();
  EXPECT_FALSE(Unlocked());
  Await([&] { return Status("dispensing") == "yes"; }, "the machine to dispense");
  EXPECT_EQ(machine().Get(0, 314), 7);
  EXPECT_EQ(machine().Get(0, 315), 3);
  EXPECT_EQ(machine().Get(0, 316), 66);
  Await([&] { return milk.isEnabled(); }, "the form to open again");
  EXPECT_TRUE(Unlocked());
}

TEST_F(Doses, AMachineThatDoesNotStartOpensTheFormAgain) {
  ConnectWithDoses();
  machine().Set(1, 148, 0);
  machine().Set(1, 434, 0);  // a drink of nothing: the machine does not start
  auto& complete = Control<QAbstractButton>("Command1(2)");
  complete.click();
  EXPECT_FALSE(complete.isEnabled());
  Await([&] { return complete.isEnabled(); }, "the form to open again");
}

TEST_F(Doses, ABoardThatIsTakenAwayGreysTheFormUntilItIsBack) {
  ConnectWithDoses();
  machine().Command("absent 1");
  Await([&] { return !Unlocked(); }, "the form to close");
  EXPECT_FALSE(Control<QAbstractButton>("Command1(0)").isEnabled());
  EXPECT_EQ(Shown(0), "55");
  machine().Command("present 1");
  Await([&] { return Unlocked(); }, "the form to open");
  EXPECT_TRUE(Control<QAbstractButton>("Command1(0)").isEnabled());
}

TEST_F(Doses, AnotherLanguageReachesTheOpenForm) {
  ConnectWithDoses();
  EXPECT_EQ(doses_->windowTitle(), "Doses");
  LanguageAction(window(), "Italiano").trigger();
  EXPECT_EQ(doses_->windowTitle(), "Dosi");
  EXPECT_EQ(Shown(0), "55");
  EXPECT_EQ(rig_.folder().Read("dosmara.ini"), "Com=1\nLingua=Italiano\n");
  Type(0, "56");
  Await([&] { return Shown(0) == "56"; }, "the form to go on working");
}

}  // namespace
}  // namespace dosmara
