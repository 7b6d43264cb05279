// SPDX-License-Identifier: GPL-3.0-or-later
// The graph of the temperatures.
#include <QCoreApplication>
#include <QTimer>
#include <QTimerEvent>

#include "controls/strip_chart.h"
#include "store/parameter_table.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

class Graph : public OneForm {
 protected:
  void ConnectAndOpen() {
    OneForm::ConnectAndOpen("smnuGrafico", "FrmGrafico");
    AwaitAllArrived();
  }

  std::vector<std::vector<QPointF>> Lines(int channel) {
    return On<StripChart>("iStripChartX1").Lines(channel);
  }

  // The next sample, without its four seconds.
  void Sample() {
    QTimerEvent event(On<QTimer>("Timer1").timerId());
    QCoreApplication::sendEvent(&On<QTimer>("Timer1"), &event);
  }

  double TankTemperature(int node) { return machine().Get(node, 52) - 5 + machine().Get(node, 287) / 256; }

  void AwaitGate(int record, bool present) {
    Await([&] { return (static_cast<int>(ParamGet(record, 0)) & 4) == (present ? 4 : 0); },
          "the gate of a board to change");
  }
};

TEST_F(Graph, ShowsTheTemperaturesThatTheMachineHas) {
  ConnectAndOpen();
  Await([&] { return !Lines(0).empty() && !Lines(1).empty() && !Lines(2).empty(); }, "a sample");
  EXPECT_NEAR(Lines(0)[0].back().y(), machine().Get(1, 542), 2);
  EXPECT_NEAR(Lines(1)[0].back().y(), TankTemperature(2), 0.5);
  EXPECT_NEAR(Lines(2)[0].back().y(), TankTemperature(3), 0.5);
  EXPECT_GT(machine().Get(1, 542), 0);
  EXPECT_NE(TankTemperature(2), TankTemperature(3));
}

TEST_F(Graph, HasNoPointsOfABoardThatIsAbsent) {
  ConnectAndOpen();
  Sample();
  machine().Command("absent 3");
  AwaitGate(357, false);
  Sample();
  Sample();
  machine().Command("present 3");
  AwaitGate(357, true);
  Sample();
  for (const int channel : {0, 1}) {
    ASSERT_EQ(Lines(channel).size(), 1u);
    EXPECT_GE(Lines(channel)[0].size(), 4u);
  }
  ASSERT_EQ(Lines(2).size(), 2u) << "a gap";
  EXPECT_GE(Lines(2)[1].front().x() - Lines(2)[0].back().x(), 12 - 1e-6);
}

TEST_F(Graph, ClosesAndLeavesNoRecordSubscribed) {
  ConnectAndOpen();
  CloseLeavesNothingSubscribed();
}

}  // namespace
}  // namespace dosmara
