// SPDX-License-Identifier: GPL-3.0-or-later
// A drink on the hydraulic diagram while the machine makes it.
#include <algorithm>
#include <initializer_list>

#include "controls/led.h"
#include "controls/seven_segment.h"
#include "controls/thermometer.h"
#include "system/one_form.h"

namespace dosmara {
namespace {

class SchemaOfADrink : public OneForm {
 protected:
  bool On(const char* lamp) { return OneForm::On<Led>(lamp).IsOn(); }
  bool AllOn(std::initializer_list<const char*> lamps) {
    return std::ranges::all_of(lamps, [this](const char* lamp) { return On(lamp); });
  }
  bool AllOff(std::initializer_list<const char*> lamps) {
    return std::ranges::none_of(lamps, [this](const char* lamp) { return On(lamp); });
  }
};

TEST_F(SchemaOfADrink, TheLampsFollowAMilkCoffeeFromTheGrinderToTheLastDrop) {
  ConnectAndOpen("ssmnuSchema", "FrmSchema");
  AwaitAllArrived();
  EXPECT_TRUE(AllOff({"Led(0)", "Led(1)", "Led(5)", "Led(8)", "Led(12)", "Led(16)", "Led(24)"}));
  EXPECT_TRUE(AllOn({"iLed(0)", "iLed(2)", "iLed(4)"})) << "at rest, cups, water";
  EXPECT_FALSE(On("iLed(3)"));

  machine().Set(1, 46, 1);    // grinds with the sugar
  machine().Set(1, 434, 24);  // more than two seconds of it
  machine().Set(1, 148, 60);  // a second and a half of coffee
  machine().Set(1, 170, 60);  // and of milk
  machine().Set(1, 280, 15);
  ASSERT_TRUE(machine().Command("vend 1 free"));
  Await(
      [&] {
        return AllOn({"Led(20)", "Led(8)", "iLed(1)", "Led(24)", "Led(25)", "Led(26)"});
      },
      "grinder and its switch, sugar, lights and lock");
  Await(
      [&] {
        return AllOn({"Led(0)", "Led(5)", "Led(10)"}) && AllOff({"Led(8)", "iLed(1)"});
      },
      "valve, pump and brewer of the coffee");
  Await([&] { return On("iLed(7)"); }, "a pulse of the flow meter");
  Await(
      [&] {
        return AllOn({"Led(1)", "Led(5)", "Led(12)"}) && AllOff({"Led(0)", "Led(10)"});
      },
      "valve, pump and mixer of the milk");
  Await([&] { return On("Led(16)"); }, "the milk");
  Await(
      [&] {
        return AllOff({"Led(1)", "Led(5)", "Led(12)", "Led(16)", "Led(24)", "Led(26)"});
      },
      "all to go out");
  CloseLeavesNothingSubscribed();
}

TEST_F(SchemaOfADrink, TheInstrumentsAndInputsFollowTheMachine) {
  ConnectAndOpen("ssmnuSchema", "FrmSchema");
  AwaitAllArrived();
  machine().Set(1, 542, 64);
  const auto degrees = [&] { return OneForm::On<Thermometer>("iThermometerX1").Value(); };
  Await([&] { return degrees() >= 60 && degrees() <= 70; }, "the thermometer");
  Await([&] { return OneForm::On<SevenSegment>("iSevenSegmentAnalogX1").Value() == degrees(); },
        "the display");
  Await([&] { return On("Led(6)"); }, "the heater of a boiler that has got cold");
  ASSERT_TRUE(machine().Command("exhaust cups"));
  ASSERT_TRUE(machine().Command("input water-fill on"));
  Await([&] { return !On("iLed(2)") && On("iLed(8)"); }, "the inputs");
}

}  // namespace
}  // namespace dosmara
