// SPDX-License-Identifier: GPL-3.0-or-later
// The forms of three boards: the times and the temperatures.
#include <QTabWidget>

#include "controls/bar.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

// Which of the three frames of a form take changes.
struct Frames {
  bool hot_drinks, zeth, zeth2;
  bool operator==(const Frames&) const = default;
};
void PrintTo(const Frames& open, std::ostream* out) {
  *out << "hot drinks " << open.hot_drinks << ", units " << open.zeth << ' ' << open.zeth2;
}

class BoardsTest : public OneForm {
 protected:
  void ConnectAndUnlock(const QString& menu_entry, const QString& form) {
    ConnectAndOpen(menu_entry, form);
    EXPECT_EQ(Open(), (Frames{false, false, false}));
    AwaitOpen({true, true, true});
    for (const int node : {1, 2, 3}) {
      AwaitRead(node);
    }
  }

  Frames Open() {
    return {On<QWidget>("Frame1").isEnabled(), On<QWidget>("Frame2").isEnabled(),
            On<QWidget>("Frame3").isEnabled()};
  }
  void AwaitOpen(const Frames& frames) {
    Await([&] { return Open() == frames; }, "the frames to open or close");
  }

  void EachBoardOpensAndClosesItsFrame() {
    machine().Command("absent 2");
    AwaitOpen({true, false, true});
    machine().Command("absent 1");
    AwaitOpen({false, false, true});
    machine().Command("present 2");
    AwaitOpen({false, true, true});
    machine().Command("absent 3");
    AwaitOpen({false, true, false});
    machine().Command("present 1");
    machine().Command("present 3");
    AwaitOpen({true, true, true});
  }

  // The machine holds the value in the record and in its mirror, and sends it back.
  void AwaitTaken(int node, int record, int mirror, int value, const QString& label, const QString& shown) {
    AwaitHeld(node, record, value);
    AwaitHeld(node, mirror, value);
    AwaitText(label, shown);
  }
};

class Times : public BoardsTest {
 protected:
  void ConnectAndUnlock() { BoardsTest::ConnectAndUnlock("smnuTempi", "FrmTempi"); }
  void ShowTab(int tab) { On<QTabWidget>("SSTab1").setCurrentIndex(tab - 1); }
};

TEST_F(Times, AreShownAsTheMachineHoldsThem) {
  ConnectAndUnlock();
  const char* const times[] = {"8.0", "0.8", "1.0", "12.0", "45", "6.0", "30", "6.0", "12.0", "60"};
  for (int n = 0; n < 10; ++n) {
    EXPECT_EQ(Text(QString("Label1(%1)").arg(n)), times[n]);
  }
  for (const char* unit : {"Label3(%1)", "Label4(%1)"}) {
    for (int i = 1; i <= 8; ++i) {
      EXPECT_EQ(Text(QString(unit).arg(i)), "0.5");
      EXPECT_EQ(Text(QString(unit).arg(8 + i)), "2");
    }
    EXPECT_EQ(Text(QString(unit).arg(17)), "2.0");
    EXPECT_EQ(Text(QString(unit).arg(18)), "180");
  }
}

TEST_F(Times, OneOfEachKindReachesTheMachineAndItsMirror) {
  ConnectAndUnlock();
  Enter(On<QLineEdit>("txtTempi(0)"), "9,9");
  AwaitTaken(1, 31, 509, 99, "Label1(0)", "9.9");
  Enter(On<QLineEdit>("txtTempi(6)"), "31");
  AwaitTaken(1, 561, 562, 31, "Label1(6)", "31");
  Enter(On<QLineEdit>("txtTempi(9)"), "23");
  AwaitTaken(1, 585, 586, 230, "Label1(9)", "230");
  ShowTab(2);
  Enter(On<QLineEdit>("txtTempi(5)"), "25");
  AwaitTaken(2, 58, 273, 250, "Label1(5)", "25.0");
  On<Bar>("HScroll3(16)").SetValue(3);
  AwaitTaken(2, 307, 325, 3, "Label3(16)", "3");
  ShowTab(3);
  Enter(On<QLineEdit>("txtzeth2(8)"), "1");
  AwaitTaken(3, 299, 317, 10, "Label4(8)", "1.0");
  Enter(On<QLineEdit>("txtzeth2(18)"), "24");
  AwaitTaken(3, 309, 327, 240, "Label4(18)", "240");
  EXPECT_EQ(machine().Get(2, 309), 180) << "the other unit";
}

TEST_F(Times, AnEntryThatTheBarRefusesDoesNotReachTheMachine) {
  ConnectAndUnlock();
  Enter(On<QLineEdit>("txtTempi(8)"), "25.5");
  EXPECT_EQ(On<QLineEdit>("txtTempi(8)").text(), "12.0");
  AwaitRequests(5);
  EXPECT_EQ(machine().Get(1, 587), 120);
}

TEST_F(Times, EachBoardOpensAndClosesItsTab) {
  ConnectAndUnlock();
  EachBoardOpensAndClosesItsFrame();
}

TEST_F(Times, CloseAndLeaveNoRecordSubscribed) {
  ConnectAndUnlock();
  CloseLeavesNothingSubscribed();
}

class Temperatures : public BoardsTest {
 protected:
  void ConnectAndUnlock() { BoardsTest::ConnectAndUnlock("smnuSet", "FrmTemperatura"); }
};

TEST_F(Temperatures, AreShownAsTheMachineHoldsThem) {
  ConnectAndUnlock();
  EXPECT_EQ(Text("Label1"), "92");
  const char* const first[] = {"5", "2.0", "10", "3", "6", "15", "0"};
  const char* const second[] = {"8", "3.0", "10", "3", "4", "10", "0"};
  for (int n = 0; n < 7; ++n) {
    EXPECT_EQ(Text(QString("Label2(%1)").arg(n)), first[n]);
    EXPECT_EQ(Text(QString("Label3(%1)").arg(n)), second[n]);
  }
}

TEST_F(Temperatures, OneOfEachKindReachesTheMachineAndItsMirror) {
  ConnectAndUnlock();
  Enter(On<QLineEdit>("Text1"), "95");
  AwaitTaken(1, 24, 502, 95, "Label1", "95");
  Enter(On<QLineEdit>("Text2(0)"), "off");
  AwaitTaken(2, 51, 266, 16, "Label2(0)", "OFF");
  Enter(On<QLineEdit>("Text3(1)"), "3,5");
  AwaitTaken(3, 53, 268, 35, "Label3(1)", "3.5");
  Enter(On<QLineEdit>("Text2(5)"), "30");
  AwaitTaken(2, 57, 272, 30, "Label2(5)", "30");
  Enter(On<QLineEdit>("Text3(6)"), "-5");
  AwaitTaken(3, 52, 267, 0, "Label3(6)", "-5");
  EXPECT_EQ(machine().Get(3, 51), 8) << "the other tank";
}

TEST_F(Temperatures, EachBoardOpensAndClosesItsFrame) {
  ConnectAndUnlock();
  BoardsTest::EachBoardOpensAndClosesItsFrame();
}

TEST_F(Temperatures, CloseAndLeaveNoRecordSubscribed) {
  ConnectAndUnlock();
  CloseLeavesNothingSubscribed();
}

}  // namespace
}  // namespace dosmara
