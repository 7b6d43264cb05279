// SPDX-License-Identifier: GPL-3.0-or-later
// FrmSchema: which lamp shows which bit, and what the instruments show.
#include <set>

#include "controls/led.h"
#include "controls/seven_segment.h"
#include "controls/thermometer.h"
#include "forms/form_fixture.h"
#include "link/identification.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using Numbers = std::set<int>;

class Schema : public FormFixture {
 protected:
  Schema() { Open("FrmSchema"); }

  Led& Output(int n) { return Find<Led>(Element("Led", n)); }
  Led& Input(int n) { return Find<Led>(Element("iLed", n)); }
  Numbers OutputsOn() {
    Numbers on;
    for (int n = 0; n < 28; ++n) {
      if (Output(n).IsOn()) {
        on.insert(n);
      }
    }
    return on;
  }
  Numbers InputsOn() {
    Numbers on;
    for (int n = 0; n < 9; ++n) {
      if (Input(n).IsOn()) {
        on.insert(n);
      }
    }
    return on;
  }
  Numbers KnownOutputs() {
    Numbers known;
    for (int n = 0; n < 28; ++n) {
      if (Output(n).IsKnown()) {
        known.insert(n);
      }
    }
    return known;
  }
  Numbers KnownInputs() {
    Numbers known;
    for (int n = 0; n < 9; ++n) {
      if (Input(n).IsKnown()) {
        known.insert(n);
      }
    }
    return known;
  }
  std::string AccessibleName(const std::string& control) {
    return Find(control).accessibleName().toStdString();
  }
};

TEST_F(Schema, IsCaptionedFromTheLanguage) {
  EXPECT_EQ(form().windowTitle(), "#34");
  for (int n = 0; n <= 26; ++n) {
    const std::string caption = "#" + std::to_string(338 + n);
    EXPECT_EQ(LabelText(Element("LedCaption", n)), caption);
    EXPECT_EQ(AccessibleName(Element("Led", n)), caption);
  }
  EXPECT_EQ(LabelText("LedCaption(27)"), "#353");
  EXPECT_EQ(AccessibleName("Led(27)"), "#353");
  for (int n = 0; n <= 7; ++n) {
    const std::string caption = "#" + std::to_string(365 + n);
    EXPECT_EQ(LabelText(Element("iLedCaption", n)), caption);
    EXPECT_EQ(AccessibleName(Element("iLed", n)), caption);
  }
  EXPECT_EQ(LabelText("iLedCaption(8)"), "#352");
  EXPECT_EQ(AccessibleName("iLed(8)"), "#352");
  for (int n = 0; n <= 20; ++n) {
    EXPECT_EQ(LabelText(Element("Label1", n)), "#" + std::to_string(373 + n));
  }
}

TEST_F(Schema, TakesTheCaptionsAnewWhenItIsActivated) {
  Arrive(1, 547, 1);
  for (const int line : {34, 109, 110, 322, 338, 352, 378, 393, 650}) {
    CaptionTable[line] = QString("new %1").arg(line);
  }
  form().InitMessaggi();
  EXPECT_EQ(form().windowTitle(), "new 34");
  EXPECT_EQ(LabelText("LedCaption(0)"), "new 338");
  EXPECT_EQ(LabelText("LedCaption(14)"), "new 352");
  EXPECT_EQ(LabelText("iLedCaption(8)"), "new 352");
  EXPECT_EQ(LabelText("Label1(20)"), "new 393");
  EXPECT_EQ(Output(0).accessibleDescription(), "new 110");
  EXPECT_EQ(Output(1).accessibleDescription(), "new 109");
  EXPECT_EQ(Output(8).accessibleDescription(), "new 650");
  EXPECT_EQ(AccessibleName("iThermometerX1"), "new 378: new 322");
  EXPECT_EQ(AccessibleName("iSevenSegmentAnalogX1"), "new 378: new 322");
}

TEST_F(Schema, ALampThatNobodySendsSaysThatItIsNotKnown) {
  for (int record = 545; record <= 550; ++record) {
    Arrive(1, record, 0);
  }
  for (int n = 0; n < 8; ++n) {
    EXPECT_EQ(Input(n).accessibleDescription(), "#650");
  }
  EXPECT_EQ(Input(8).accessibleDescription(), "#110");
  EXPECT_EQ(Output(27).accessibleDescription(), "#109");
  CaptionTable[650].clear();
  form().InitMessaggi();
  EXPECT_EQ(Input(0).accessibleDescription(), "Non ancora noto") << "a language file without the word";
}

TEST_F(Schema, WantsItsEightRecordsOfTheDrinksBoard) {
  EXPECT_EQ(Subscribed(), (std::vector<Subscription>{{1, 542, 1},
                                                     {1, 544, 1},
                                                     {1, 545, 1},
                                                     {1, 546, 1},
                                                     {1, 547, 1},
                                                     {1, 548, 1},
                                                     {1, 549, 1},
                                                     {1, 550, 1}}));
  Close();
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
}

TEST_F(Schema, KnowsNothingBeforeItHasArrived) {
  EXPECT_EQ(KnownOutputs(), Numbers{});
  EXPECT_EQ(KnownInputs(), Numbers{});
  EXPECT_FALSE(Find<Thermometer>("iThermometerX1").IsKnown());
  EXPECT_FALSE(Find<SevenSegment>("iSevenSegmentAnalogX1").IsKnown());
  Arrive(1, 544, 0);
  EXPECT_EQ(KnownInputs(), (Numbers{0, 1, 2, 3, 4, 5, 6, 7}));
  Arrive(1, 545, 0);
  EXPECT_EQ(KnownInputs(), (Numbers{0, 1, 2, 3, 4, 5, 6, 7, 8}));
  EXPECT_EQ(KnownOutputs(), Numbers{});
  Arrive(1, 548, 0);
  EXPECT_EQ(KnownOutputs(), (Numbers{8, 9, 10, 11, 12, 13, 14, 15, 27}));
  Arrive(1, 550, 0);
  EXPECT_EQ(KnownOutputs(), (Numbers{8, 9, 10, 11, 12, 13, 14, 15, 24, 25, 26, 27}));
}

TEST_F(Schema, EachBitOfTheOutputsLightsItsLampAndNoOther) {
  for (int bit = 0; bit < 32; ++bit) {
    for (int record = 547; record <= 550; ++record) {
      Arrive(1, record, record == 547 + bit / 8 ? 1 << bit % 8 : 0);
    }
    Numbers lit = bit < 27 ? Numbers{bit} : Numbers{};
    if (bit == 15) {
      lit.insert(27);
    }
    EXPECT_EQ(OutputsOn(), lit) << bit;
  }
}

TEST_F(Schema, AnInputIsOnWhileItsBitIsClear) {
  for (int bit = 0; bit < 8; ++bit) {
    Arrive(1, 544, 255 - (1 << bit));
    EXPECT_EQ(InputsOn(), Numbers{bit});
  }
  Arrive(1, 544, 0);
  EXPECT_EQ(InputsOn(), (Numbers{0, 1, 2, 3, 4, 5, 6, 7}));
  Arrive(1, 544, 255);
  EXPECT_EQ(InputsOn(), Numbers{});
}

TEST_F(Schema, TheLastInputIsTheSecondBitOfTheSecondByte) {
  for (int bit = 0; bit < 8; ++bit) {
    Arrive(1, 545, 255 - (1 << bit));
    EXPECT_EQ(InputsOn(), bit == 1 ? Numbers{8} : Numbers{}) << bit;
  }
}

TEST_F(Schema, TheThirdByteOfInputsIsShownByNothingAsPrescribed) {
  for (const int value : {0, 1, 255}) {
    Arrive(1, 546, value);
  }
  EXPECT_EQ(KnownOutputs(), Numbers{});
  EXPECT_EQ(KnownInputs(), Numbers{});
}

TEST_F(Schema, EachLampIsSetAtEachArrivalWhateverItShows) {
  Arrive(1, 547, 1);
  Arrive(1, 544, 255);
  Output(0).SetOn(false);
  Output(1).SetOn(true);
  Input(3).SetOn(true);
  Arrive(1, 547, 1);
  Arrive(1, 544, 255);
  EXPECT_EQ(OutputsOn(), Numbers{0});
  EXPECT_EQ(InputsOn(), Numbers{});
}

TEST_F(Schema, TheTemperatureStandsOnBothInstrumentsAsItIs) {
  for (const int degrees : {91, 0, 120, 999, 65535}) {
    Arrive(1, 542, degrees);
    EXPECT_EQ(Find<Thermometer>("iThermometerX1").Value(), degrees);
    EXPECT_EQ(Find<SevenSegment>("iSevenSegmentAnalogX1").Value(), degrees);
  }
  auto& display = Find<SevenSegment>("iSevenSegmentAnalogX1");
  EXPECT_EQ(display.accessibleDescription(), "----") << "three digits and a sign";
  Arrive(1, 542, 91);
  EXPECT_EQ(display.accessibleDescription(), "91");
}

TEST_F(Schema, OtherBoardsShowNothing) {
  for (const int node : {0, 2, 3}) {
    for (int record = 541; record <= 550; ++record) {
      Arrive(node, record, 5);
    }
  }
  for (const int record : {541, 543, 551}) {
    Arrive(1, record, 5);
  }
  EXPECT_EQ(KnownOutputs(), Numbers{});
  EXPECT_EQ(KnownInputs(), Numbers{});
  EXPECT_FALSE(Find<Thermometer>("iThermometerX1").IsKnown());
  EXPECT_FALSE(Find<SevenSegment>("iSevenSegmentAnalogX1").IsKnown());
}

TEST_F(Schema, Model20HidesTwoLampsAndGoesOnDrivingThemAsPrescribed) {
  for (const int model : {19, 20, 21}) {
    Close();
    ModelCode = static_cast<std::int16_t>(model);
    Open("FrmSchema");
    for (const std::string lamp : {"Led(27)", "iLed(8)", "LedCaption(27)", "iLedCaption(8)"}) {
      EXPECT_EQ(Shown(lamp), model != 20) << lamp << " of model " << model;
    }
    for (const std::string lamp : {"Led(15)", "Led(26)", "iLed(7)", "LedCaption(15)"}) {
      EXPECT_TRUE(Shown(lamp));
    }
    Arrive(1, 548, 128);
    Arrive(1, 545, 253);
    EXPECT_TRUE(Output(27).IsOn());
    EXPECT_TRUE(Input(8).IsOn());
    form().InitMessaggi();
    EXPECT_EQ(Shown("Led(27)"), model != 20);
  }
}

}  // namespace
}  // namespace dosmara
