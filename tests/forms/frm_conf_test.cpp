// SPDX-License-Identifier: GPL-3.0-or-later
// FrmConf: what holds for the window as a whole, and whether the groups are looked at.
#include <QTest>

#include "forms/conf_fixture.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {
namespace {

using State = EchoMark::State;
using Writes = std::vector<Write>;
using FrmConfTest = ConfFixture;

TEST_F(FrmConfTest, SubscribesTheOptionsAndTheGroupsOfBothUnits) {
  std::vector<Subscription> expected = {{0, 361, 1}};
  for (const int node : {2, 3}) {
    for (int record = 328; record <= 375; ++record) {
      expected.push_back({node, record, 1});
    }
  }
  EXPECT_EQ(Subscribed(), expected);
  ParamTable[0][362].Subscribers = ParamTable[1][328].Subscribers = 1;
  Close();
  EXPECT_EQ(Subscribed(), (std::vector<Subscription>{{0, 362, 1}, {1, 328, 1}}));
}

TEST_F(FrmConfTest, CaptionsComeFromTheLanguageButThoseOfTheFirstUnitAsPrescribed) {
  EXPECT_EQ(form().windowTitle(), "#24");
  EXPECT_EQ(Find("Frame1").property("title"), "#614");
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(LabelText(Element("Label1", 6 + i)), "#" + std::to_string(615 + i));
  }
  EXPECT_EQ(LabelText("Label1(0)"), "SETTORE");
  EXPECT_EQ(LabelText("Label1(1)"), "GRUPPO =>");
  EXPECT_EQ(LabelText("Label1(2)"), "Associa");
  // In the words of a switch: 109 is off, 110 is on.
  EXPECT_EQ(Find<QRadioButton>("Option1(0)").text(), "#110");
  EXPECT_EQ(Find<QRadioButton>("Option1(1)").text(), "#109");
  EXPECT_NE(&Find("Shape15(0)"), &Find("Shape15(1)"));
}

TEST_F(FrmConfTest, NumbersCountDownBesideTheFirstUnitAndUpBesideTheSecondAsPrescribed) {
  QApplication::processEvents();
  for (int n = 0; n < kPositions; ++n) {
    SCOPED_TRACE(n);
    const std::string number = std::to_string(n / 8 + 1) + std::to_string(n % 8 + 1);
    for (const auto& [label, box] : {std::pair(Element("Label2", 47 - n), Element("Text5", n)),
                                     std::pair(Element("Label2", 104 + n), Element("Text6", n))}) {
      EXPECT_EQ(LabelText(label), number);
      const QRect at = Find(label).geometry();
      EXPECT_LT(at.right(), Find(box).x());
      EXPECT_LT(Find(box).x() - at.right(), 15) << "the number stands beside its box";
      EXPECT_EQ(at.center().y() / 8, Find(box).geometry().center().y() / 8);
    }
  }
}

TEST_F(FrmConfTest, OpensWithTheNinetySeventhArrivalAndNotBefore) {
  EXPECT_FALSE(On());
  EXPECT_FALSE(Off());
  for (const char* frame : {"Frame2(0)", "Frame2(1)"}) {
    EXPECT_FALSE(Find(frame).isEnabledTo(&Find("Frame1"))) << frame;
  }
  Arrive(0, 361, 4);
  SendUnit(2);
  SendUnit(3, 47);
  for (const char* control : {"Frame1", "Frame2(0)", "Text5(0)", "Command3(0)", "Option1(0)"}) {
    EXPECT_FALSE(Enabled(control)) << control;
  }
  Arrive(1, 375, 1);
  EXPECT_FALSE(Enabled("Frame1"));
  EXPECT_TRUE(Find("Frame2(0)").isEnabledTo(&Find("Frame1"))) << "by the options";
  Arrive(3, 375, 1);
  for (const char* control : {"Frame1", "Frame2(0)", "Frame2(1)", "Text5(0)", "Text6(47)", "Command3(0)",
                              "Command3(1)", "Option1(0)", "Option1(1)", "Label1(0)", "Label1(8)"}) {
    EXPECT_TRUE(Enabled(control)) << control;
  }
}

TEST_F(FrmConfTest, WithoutManagementOnlyTheChoiceIsOpen) {
  Fill(251);
  EXPECT_TRUE(Off());
  EXPECT_FALSE(On());
  for (const char* control : {"Option1(0)", "Frame1", "Frame2(0)", "Frame2(1)"}) {
    EXPECT_TRUE(Enabled(control)) << control;
  }
  for (const char* control :
       {"Text5(0)", "Text5(47)", "Text6(0)", "Command3(0)", "Command3(1)", "Label1(0)", "Label1(7)"}) {
    EXPECT_FALSE(Enabled(control)) << control;
  }
  Arrive(0, 361, 4);
  EXPECT_TRUE(On());
  EXPECT_TRUE(Enabled("Text5(47)"));
  EXPECT_TRUE(Enabled("Command3(1)"));
  EXPECT_TRUE(Enabled("Label1(7)"));
  Arrive(0, 361, 0);
  EXPECT_TRUE(Off());
  EXPECT_TRUE(Enabled("Frame1"));
  EXPECT_FALSE(Enabled("Frame2(0)"));
  EXPECT_FALSE(Enabled("Frame2(1)"));
  EXPECT_EQ(Written(), Writes{});
}

TEST_F(FrmConfTest, TheChoiceKeepsTheOtherBitsAndWritesNoMirrorAsPrescribed) {
  Fill(15);
  Click("Option1(1)");
  EXPECT_EQ(Written(), (Writes{{0, 361, 11}}));
  EXPECT_TRUE(Enabled("Text5(0)")) << "the display waits for the machine";
  EXPECT_EQ(MarkBehind("Option1(1)"), State::kOnItsWay);
  Arrive(0, 361, 11);
  EXPECT_FALSE(Enabled("Text5(0)"));
  EXPECT_EQ(MarkBehind("Option1(1)"), State::kTaken);
  Click("Option1(1)");
  EXPECT_EQ(Written(), Writes{});
  Arrive(0, 361, 9);
  Click("Option1(0)");
  EXPECT_EQ(Written(), (Writes{{0, 361, 13}}));
  Arrive(0, 361, 9);
  EXPECT_TRUE(Off());
  EXPECT_EQ(MarkBehind("Option1(1)"), State::kNotTaken);
}

TEST_F(FrmConfTest, TheChoiceKeepsWhatAnotherFormHasOnItsWay) {
  Fill(4);
  NodeIndex = 0;
  ParamPut(361, 5);
  Click("Option1(1)");
  EXPECT_EQ(Written(), (Writes{{0, 361, 1}}));
}

TEST_F(FrmConfTest, TheChoiceIsNotMadeBeforeItsByteIsKnown) {
  for (int i = 0; i < 3; ++i) {
    SendUnit(2);
  }
  Click("Option1(0)");
  EXPECT_EQ(Written(), Writes{});
  EXPECT_FALSE(On());
  EXPECT_FALSE(Off());
  Arrive(0, 361, 8);
  EXPECT_TRUE(Off());
  Click("Option1(0)");
  EXPECT_FALSE(Off());
  EXPECT_EQ(Written(), (Writes{{0, 361, 12}}));
}

TEST_F(FrmConfTest, ShowsWhereTheFocusIsWhenItOpens) {
  Arrive(0, 361, 4);
  SendUnit(2);
  SendUnit(3);
  QWidget& choice = Find("Option1(0)");
  ASSERT_TRUE(choice.hasFocus());
  const QImage with_focus = choice.grab().toImage();
  choice.clearFocus();
  EXPECT_NE(choice.grab().toImage(), with_focus);
}

TEST_F(FrmConfTest, OpensOnTheChoiceThatIsMade) {
  for (const int options : {0, 4}) {
    Close();
    Open("FrmConf");
    Arrive(0, 361, options);
    SendUnit(2);
    SendUnit(3);
    EXPECT_TRUE(Find(options == 0 ? "Option1(1)" : "Option1(0)").hasFocus()) << options;
    for (const bool on : {true, false, true}) {
      QTest::keyClick(QApplication::focusWidget(), on ? Qt::Key_Left : Qt::Key_Right);
      Arrive(0, 361, on ? 4 : 0);
      EXPECT_TRUE(Find(on ? "Option1(0)" : "Option1(1)").hasFocus());
    }
  }
}

TEST_F(FrmConfTest, ControlsOfEqualWordsHaveNamesThatTellThemApart) {
  EXPECT_EQ(Find("Option1(0)").accessibleName(), "#614 #110");
  EXPECT_EQ(Find("Option1(1)").accessibleName(), "#614 #109");
  EXPECT_EQ(Find("Text5(29)").accessibleName(), "#33 46");
  EXPECT_EQ(Find("Text6(29)").accessibleName(), "#45 46");
  EXPECT_EQ(Find("Command3(0)").accessibleName(), "#33 Reset Equals Products");
  EXPECT_EQ(Find("Command3(1)").accessibleName(), "#45 Reset Equals Products");
}

TEST_F(FrmConfTest, TheBoxesOfBothUnitsStandBelowEachOtherWhateverTheLanguage) {
  for (const char* words : {"x", "a caption longer than those of the first unit"}) {
    for (int line = 615; line <= 617; ++line) {
      CaptionTable[line] = words;
    }
    form().InitMessaggi();
    QApplication::processEvents();
    EXPECT_EQ(Find("Text5(0)").mapTo(&form(), QPoint()).x(), Find("Text6(0)").mapTo(&form(), QPoint()).x());
  }
}

}  // namespace
}  // namespace dosmara
