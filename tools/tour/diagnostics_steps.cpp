// SPDX-License-Identifier: GPL-3.0-or-later
// The visits of the windows that watch the machine and drive it: outputs and inputs, the drawing, the graph,
// the units' positions, the clock.
#include <QAbstractButton>
#include <QLabel>

#include "controls/led.h"
#include "controls/led_switch.h"
#include "controls/seven_segment.h"
#include "controls/strip_chart.h"
#include "fields/records.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"
#include "tour/steps.h"
#include "tour/visit.h"

namespace dosmara {

namespace {

constexpr int kTestMs = 20000;
constexpr int kProductMs = 30000;
constexpr int kDrinkMs = 90000;

// Lines of the language file.
constexpr int kTestRuns = 320;
constexpr int kTestIsOff = 321;

// An output that is switched on by hand, and how the machine tells that it is.
struct Output {
  const char* control;
  int node;
  int record;
  int bit;
};
constexpr Output kPump = {"SwitchLed1(5)", kHotDrinks, 547, 32};
constexpr Output kCompressor = {"SwitchLed4", kZeth, 288, 128};
constexpr Output kRow2 = {"SwitchLed5(13)", kZeth2, 288, 2};  // second row, sixth column
constexpr Output kColumn6 = {"SwitchLed5(13)", kZeth2, 289, 32};

bool Runs(Tour& tour, const Output& output) {
  return (static_cast<int>(tour.machine().Get(output.node, output.record)) & output.bit) != 0;
}

void SwitchOn(Tour& tour, QWidget& form, const Output& output) {
  auto& control = tour.Control<LedSwitch>(form, output.control);
  tour.Await([&] { return control.isEnabled(); }, QString(output.control) + " stays closed", kTestMs);
  control.click();
  tour.Await([&] { return Runs(tour, output); }, QString(output.control) + " moves nothing", kTestMs);
  tour.Await([&] { return control.IsOn() && control.isEnabled(); },
             QString(output.control) + " does not follow", kTestMs);
}

// Starts the test, or ends it, and waits until the form tells so.
void PressTest(Tour& tour, QWidget& form, int line) {
  auto& button = tour.Control<QAbstractButton>(form, "Command1");
  tour.Await([&] { return button.isEnabled(); }, "the test cannot be started or ended", kTestMs);
  button.click();
  tour.Await([&] { return tour.Control<QLabel>(form, "Label7").text() == Caption(line); },
             "the boards do not follow", kTestMs);
}

// Whether the lamps of a form from one on are the bits of a record of the hot drinks unit's board.
bool LampsShow(Tour& tour, QWidget& form, int first_lamp, int record) {
  const int bits = static_cast<int>(tour.machine().Get(kHotDrinks, record));
  for (int bit = 0; bit < 8; ++bit) {
    const auto& lamp = tour.Control<Led>(form, QStringLiteral("Led(%1)").arg(first_lamp + bit));
    if (!lamp.IsKnown() || lamp.IsOn() != ((bits >> bit & 1) != 0)) {
      return false;
    }
  }
  return true;
}

// Whether the lamps of all valves, motors and mixers are as the machine runs them.
bool AllLampsShow(Tour& tour, QWidget& form) {
  return LampsShow(tour, form, 0, 547) && LampsShow(tour, form, 8, 548) && LampsShow(tour, form, 16, 549);
}

void PressKey(Tour& tour, QWidget& form, int key) {
  auto& button = tour.Control<QAbstractButton>(form, QStringLiteral("Label1(%1)").arg(key));
  tour.Await([&] { return button.isEnabled(); }, "the keypad stays closed", kTestMs);
  button.click();
}

void VisitUnit(Tour& tour, const char* name, int node, const char* picture) {
  QWidget* form = nullptr;
  tour.Step(QString(name) + " opens", [&] { form = &tour.Open(name); });
  if (form == nullptr) {
    return;
  }
  tour.Step("a position is chosen, its unit hands out", [&] {
    auto& choice = tour.Control<QLabel>(*form, "Label2(1)");
    PressKey(tour, *form, 2);
    tour.Expect(choice.text() == "3 _", "the row does not show");
    PressKey(tour, *form, 4);
    tour.Expect(choice.text() == "3 5", "the column does not show");
    tour.Await([&] { return tour.machine().Get(node, 288) == 4 && tour.machine().Get(node, 289) == 16; },
               "the spiral does not turn", kProductMs);
    tour.Picture(picture);
    // It opens again as the main board or as the unit is done, whichever is first; the other is still to
    // come.
    const auto busy = [](int of_node, int record) { return (LowBits(ParamGet(record, of_node)) & 2) != 0; };
    tour.Await([&] { return choice.text() == "_ _" && !busy(kMainBoard, 317) && !busy(node, 290); },
               "the form does not open again", kProductMs);
  });
  tour.Step("the motors go to zero", [&] {
    auto& button = tour.Control<QAbstractButton>(*form, "Command1");
    tour.Await([&] { return button.isEnabled(); }, "the button stays closed", kTestMs);
    button.click();
    tour.Await([&] { return (static_cast<int>(tour.machine().Get(node, 290)) & 2) != 0; },
               "the motors do not run", kTestMs);
    tour.Await([&] { return button.isEnabled(); }, "the form does not open again", kProductMs);
  });
  CloseForm(tour, *form);
}

}  // namespace

void PutGraphAside(Tour& tour) {
  tour.Step("FrmGrafico opens and is put aside",
            [&] { tour.Open("FrmGrafico").parentWidget()->showMinimized(); });
}

void ReturnToGraph(Tour& tour) {
  QWidget* form = nullptr;
  tour.Step("the graph has gone on behind the other windows", [&] {
    form = &tour.Open("FrmGrafico");
    const auto& chart = tour.Control<StripChart>(*form, "iStripChartX1");
    for (int channel = 0; channel < 3; ++channel) {
      tour.Await([&] { return chart.Lines(channel).size() == 1; },
                 QStringLiteral("channel %1 has no line").arg(channel), kTestMs);
    }
    tour.Picture("graph");
  });
  if (form != nullptr) {
    CloseForm(tour, *form);
  }
}

void VisitOutputs(Tour& tour) {
  QWidget* form = nullptr;
  tour.Step("FrmInOut opens, and the boards take the test", [&] {
    form = &tour.Open("FrmInOut");
    PressTest(tour, *form, kTestRuns);
  });
  if (form == nullptr) {
    return;
  }
  tour.Step("outputs of all boards are driven and read back", [&] {
    SwitchOn(tour, *form, kPump);
    SwitchOn(tour, *form, kCompressor);
    tour.Expect(!Runs(tour, kPump), "two boards drive at once");
    SwitchOn(tour, *form, kRow2);
    tour.Expect(Runs(tour, kColumn6), "another column turns");
    tour.Picture("outputs");
  });
  tour.Step("the boards leave the test", [&] {
    PressTest(tour, *form, kTestIsOff);
    for (const Output& output : {kPump, kCompressor, kRow2, kColumn6}) {
      tour.Await([&] { return !Runs(tour, output); }, QString(output.control) + " still runs", kTestMs);
    }
  });
  CloseForm(tour, *form);
}

void VisitSchema(Tour& tour) {
  QWidget* form = nullptr;
  tour.Step("FrmSchema opens and shows a drink on its way", [&] {
    form = &tour.Open("FrmSchema");
    tour.Expect(tour.machine().Command("vend 1 paid").has_value(), "the machine sells nothing");
    tour.Await([&] { return Runs(tour, kPump) && AllLampsShow(tour, *form); },
               "the lamps do not follow the machine", kDrinkMs);
    tour.Picture("schema");
    const auto& shown = tour.Control<SevenSegment>(*form, "iSevenSegmentAnalogX1");
    tour.Await([&] { return shown.Value() == tour.machine().Get(kHotDrinks, 542); },
               "the temperature does not follow", kTestMs);
    tour.Await([&] { return !Runs(tour, kPump) && AllLampsShow(tour, *form); }, "the lamps do not go out",
               kDrinkMs);
  });
  if (form != nullptr) {
    CloseForm(tour, *form);
  }
}

void VisitFirstUnit(Tour& tour) { VisitUnit(tour, "FrmTestZeth", kZeth, "unit_test"); }

void VisitSecondUnit(Tour& tour) { VisitUnit(tour, "FrmTestZeth2", kZeth2, "unit_test_2"); }

void VisitClock(Tour& tour) {
  QWidget* form = OpenAndUnlock(tour, "FrmOrologio", "Text1(0)");
  if (form == nullptr) {
    return;
  }
  tour.Step("a time point is typed, the machine holds it, the label follows", [&] {
    TypeValue(tour, *form, {"Text1(0)", "7", {kMainBoard, 88, 290}, 7, "Label1(0)", "7"});
    TypeValue(tour, *form, {"Text1(1)", "45", {kMainBoard, 87, 289}, 45, "Label1(1)", "45"});
  });
  tour.Step("the hour is typed, the clock of the machine goes on from there", [&] {
    TypeValue(tour, *form, {"txtOrol(0)", "13", {kMainBoard, 326, 0}, 13, "Label4(0)", "13"});
    const auto& clock = tour.Control<SegmentClock>(*form, "iSevenSegmentClockX1");
    tour.Await([&] { return clock.Time().startsWith("13:"); }, "the clock does not follow", kTestMs);
    tour.Picture("clock");
  });
  CloseForm(tour, *form);
}

}  // namespace dosmara
