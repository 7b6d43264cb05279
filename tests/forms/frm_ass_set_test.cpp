// SPDX-License-Identifier: GPL-3.0-or-later
// FrmAssSet and FrmAssSet2: the price of each position of a Zeth unit.
#include <QApplication>
#include <QLabel>
#include <algorithm>

#include "forms/row_cases.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

constexpr int kPositions = 48;

// What tells the two forms apart.
struct Unit {
  const char* form;
  int node;
  int other;
  int gate;
  const char* title;
};
constexpr Unit kUnits[] = {{"FrmAssSet", 2, 3, 313, "#12"}, {"FrmAssSet2", 3, 2, 357, "#13"}};
void PrintTo(const Unit& unit, std::ostream* out) { *out << unit.form; }

FormRows RowsOf(const Unit& unit) {
  FormRows form = {.form = unit.form, .opens = {}, .closes = {{0, unit.gate, 0}}, .rows = {}};
  for (int n = 0; n < kPositions; ++n) {
    form.opens.push_back({unit.node, n + 1, 0});
    form.rows.push_back({.caption = Element("Label11", n),
                         .value = Element("Label1", n),
                         .box = Element("Text1", n),
                         .bar = Element("HScroll1", n),
                         .words = "#127 " + std::to_string(n / 8 + 1) + std::to_string(n % 8 + 1),
                         .node = unit.node,
                         .record = n + 1,
                         .mirror = n + 216,
                         .min = 1,
                         .max = 30,
                         .large_change = 3,
                         .length = 5,
                         .offset = -1,
                         .arrivals = {{n % 20 + 3, std::to_string(n % 20 + 4), n % 20 + 4},
                                      {0, "1", 1},
                                      {29, "30", 30},
                                      {30, "31", 30}},
                         .good = {{"30", 29}, {"1", 0}, {"2,5", 2}, {"0.5", 0}, {"30.4", 29}},
                         .bad = {"31", "0", "0.4", "30,5", "-1", "", "x"},
                         .closed_box_stays = true,
                         .held = true});
  }
  return form;
}

INSTANTIATE_TEST_SUITE_P(FrmAssSet, EachRow, testing::Values(RowsOf(kUnits[0])));
INSTANTIATE_TEST_SUITE_P(FrmAssSet2, EachRow, testing::Values(RowsOf(kUnits[1])));

class SetAssignment : public FormFixture, public testing::WithParamInterface<Unit> {
 protected:
  SetAssignment() { FormFixture::Open(GetParam().form); }

  int node() const { return GetParam().node; }
  void SendGate(int value) { Arrive(0, GetParam().gate, value); }
  void SendPositions(int count = kPositions) {
    for (int n = 0; n < count; ++n) {
      Arrive(node(), n + 1, 5);
    }
  }

  void Expect(bool labels, bool open) {
    for (int n = 0; n < kPositions; ++n) {
      SCOPED_TRACE(n);
      EXPECT_EQ(Enabled(Element("Label11", n)), labels);
      EXPECT_EQ(Enabled(Element("Label1", n)), labels);
      EXPECT_EQ(Enabled(Element("HScroll1", n)), open);
      EXPECT_EQ(Enabled(Element("Text1", n)), open);
    }
  }
  void ExpectOpen(bool open) { Expect(open, open); }
};

TEST_P(SetAssignment, SubscribesItsOwnUnitAndTwoRecordsOfTheMainBoard) {
  std::vector<Subscription> expected = {{0, 83, 1}, {0, GetParam().gate, 1}};
  for (int record = 1; record <= kPositions; ++record) {
    expected.push_back({node(), record, 1});
  }
  EXPECT_EQ(Subscribed(), expected);
  ParamTable[0][285].Subscribers = ParamTable[node()][216].Subscribers = 1;
  Close();
  EXPECT_EQ(Subscribed(), (std::vector<Subscription>{{0, 285, 1}, {node(), 216, 1}}));
}

TEST_P(SetAssignment, CaptionsComeFromTheLanguageWithRowAndColumn) {
  EXPECT_EQ(form().windowTitle(), GetParam().title);
  EXPECT_EQ(LabelText("Label11(0)"), "#127 11");
  EXPECT_EQ(LabelText("Label11(8)"), "#127 21");
  EXPECT_EQ(LabelText("Label11(47)"), "#127 68");
}

TEST_P(SetAssignment, OpensWithTheLastPositionAndNotBefore) {
  ExpectOpen(false);
  Arrive(0, 83, 0);
  SendGate(4);
  SendPositions(47);
  ExpectOpen(false);
  EXPECT_EQ(LabelText("Label1(0)"), "6");
  Arrive(node(), 48, 5);
  ExpectOpen(true);
}

TEST_P(SetAssignment, TheGateCountsAsSetUntilItHasArrivedAsPrescribed) {
  SendPositions();
  ExpectOpen(true);
}

TEST_P(SetAssignment, ASetThatIsNotInUseStaysLockedUntilItIs) {
  SendGate(251);
  SendPositions();
  ExpectOpen(false);
  Arrive(0, 83, 0);
  ExpectOpen(false);
  Arrive(node(), 3, 7);
  ExpectOpen(false);
  SendGate(4);
  ExpectOpen(true);
}

TEST_P(SetAssignment, AnArrivalOfAnyOtherRecordOpensItTooAsPrescribed) {
  for (int n = 0; n < kPositions; ++n) {
    ParamTable[node()][n + 1].Flags |= kArrived;
  }
  Arrive(1, 600, 1);
  ExpectOpen(true);
}

TEST_P(SetAssignment, TheGateClosesAndOpensTheRows) {
  SendPositions();
  SendGate(0);
  ExpectOpen(false);
  SendGate(6);
  ExpectOpen(true);
}

TEST_P(SetAssignment, WithEverythingAtPriceOneNothingOpensAndTheLockClearsAllTheSameAsPrescribed) {
  Arrive(0, 83, 1);
  SendGate(4);
  SendPositions();
  ExpectOpen(false);
  Arrive(node(), 3, 7);
  ExpectOpen(false);
  Arrive(0, 83, 254);
  ExpectOpen(true);
}

TEST_P(SetAssignment, TheSwitchOfPriceOneClosesTheRowsAndOpensThemInASetInUseOnly) {
  SendPositions();
  Arrive(0, 83, 1);
  ExpectOpen(false);
  Arrive(0, 83, 0);
  ExpectOpen(true);
  SendGate(0);
  Arrive(0, 83, 0);
  ExpectOpen(false);
}

TEST_P(SetAssignment, AChangeOfTheGateOpensTheRowsWithEverythingAtPriceOneTooAsPrescribed) {
  Arrive(0, 83, 1);
  SendPositions();
  SendGate(4);
  ExpectOpen(true);
}

TEST_P(SetAssignment, TheSwitchOfPriceOneOpensNothingWhileTheFormIsLocked) {
  SendGate(4);
  Arrive(0, 83, 0);
  ExpectOpen(false);
}

TEST_P(SetAssignment, NeverTouchesTheOtherUnit) {
  SendPositions();
  for (int record = 1; record <= 300; ++record) {
    Arrive(GetParam().other, record, 29);
  }
  Arrive(0, GetParam().gate == 313 ? 357 : 313, 0);
  ExpectOpen(true);
  for (int n = 0; n < kPositions; ++n) {
    EXPECT_EQ(LabelText(Element("Label1", n)), "6");
    BarOf(Element("HScroll1", n)).SetValue(20);
  }
  EXPECT_TRUE(std::ranges::all_of(Written(), [&](const Write& write) { return write.node == node(); }));
}

TEST_P(SetAssignment, TabGoesThroughThePositionsRowByRow) {
  SendPositions();
  Focus("Text1(6)");
  EXPECT_EQ(TabThrough(4), (std::vector<std::string>{"HScroll1(6)", "Text1(7)", "HScroll1(7)", "Text1(8)"}));
}

TEST_P(SetAssignment, APositionLiesUnderTheDigitOfItsColumnAndBesideThatOfItsRow) {
  QApplication::processEvents();
  const auto rect = [&](const QWidget& control) {
    return QRect(control.mapTo(&form(), QPoint()), control.size());
  };
  for (const int n : {0, 7, 35, 47}) {
    const QRect caption = rect(Find(Element("Label11", n)));
    const auto shows = [&](int digit, auto stands) {
      return std::ranges::any_of(form().findChildren<QLabel*>(), [&](const QLabel* label) {
        return label->text() == QString::number(digit) && label->objectName().isEmpty() &&
               stands(rect(*label));
      });
    };
    EXPECT_TRUE(shows(n % 8 + 1,
                      [&](QRect at) { return at.left() == caption.left() && at.bottom() < caption.top(); }));
    EXPECT_TRUE(shows(n / 8 + 1, [&](QRect at) {
      return at.right() < caption.left() && at.intersects({0, caption.top(), 999, 80});
    }));
  }
}

TEST_P(SetAssignment, APriceLiesBetweenItsPositionAndItsBar) {
  SendPositions();
  QApplication::processEvents();
  for (int n = 0; n < 48; ++n) {
    SCOPED_TRACE(n);
    const QRect box = Find(Element("Text1", n)).geometry();
    EXPECT_GT(box.top(), Find(Element("Label11", n)).geometry().bottom());
    EXPECT_LT(box.bottom(), Find(Element("HScroll1", n)).y());
    EXPECT_EQ(MarkBehind(Element("Text1", n)), EchoMark::State::kNone);
  }
}

INSTANTIATE_TEST_SUITE_P(Units, SetAssignment, testing::ValuesIn(kUnits),
                         [](const auto& each) { return std::string(each.param.form); });

}  // namespace
}  // namespace dosmara
