// SPDX-License-Identifier: GPL-3.0-or-later
// What holds for each form of the list.
#include <QAbstractButton>
#include <QApplication>
#include <QSet>
#include <algorithm>

#include "forms/form_fixture.h"
#include "forms/form_list.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"
#include "tour/left_subscribed.h"

namespace dosmara {
namespace {

class EveryForm : public FormFixture, public testing::WithParamInterface<FormEntry> {
 protected:
  // The machine sends a 4 for each record that somebody has subscribed: all gates are open, no head is off.
  void SendEverything() {
    for (const Subscription& subscription : Subscribed()) {
      Arrive(subscription.node, subscription.record, 4);
    }
  }
  static std::string FocusName() {
    const QWidget* focus = QApplication::focusWidget();
    return focus != nullptr ? focus->objectName().toStdString() : "(nothing)";
  }
};

TEST_P(EveryForm, IsCalledByItsClass) {
  EXPECT_EQ(Open(GetParam().name).objectName().toStdString(), GetParam().name);
}

TEST_P(EveryForm, IsOpenedBeforeAnyBoardHasAnswered) {
  for (bool& present : NodePresent) {
    present = false;
  }
  Open(GetParam().name);
  EXPECT_EQ(Subscribed(), std::vector<Subscription>{});
}

TEST_P(EveryForm, ShowsWhateverTheMachineSendsAndWritesNothingByIt) {
  Open(GetParam().name);
  for (const int value : {4, 0, 1, 255, 65535}) {
    for (const Subscription& subscription : Subscribed()) {
      Arrive(subscription.node, subscription.record, value);
    }
  }
  EXPECT_EQ(Written(), std::vector<Write>{});
}

TEST_P(EveryForm, TakesTheNewLanguageWhenItIsActivated) {
  Open(GetParam().name);
  for (int line = 1; line <= kLastCaption; ++line) {
    CaptionTable[line] = "new";
  }
  form().InitMessaggi();
  EXPECT_FALSE(form().windowTitle().isEmpty());
  EXPECT_FALSE(form().windowTitle().contains('#')) << form().windowTitle().toStdString();
  for (const QLabel* label : form().findChildren<QLabel*>()) {
    EXPECT_FALSE(label->text().contains('#')) << label->objectName().toStdString();
  }
}

TEST_P(EveryForm, LeavesNoRecordSubscribedButAsPrescribed) {
  Open(GetParam().name);
  const bool reads = form().objectName() != "FrmInfo" && form().objectName() != "FrmCancella";
  EXPECT_EQ(Subscribed().empty(), !reads);
  Close();
  std::vector<Subscription> left;
  for (const LeftSubscribed& each : kLeftSubscribed) {
    if (std::string(each.form) == GetParam().name) {
      left.push_back({each.node, each.record, 1});
    }
  }
  EXPECT_EQ(Subscribed(), left);
  EXPECT_TRUE(LoadedForms.empty());
}

// What a form releases without having subscribed it, and how often.
struct Released {
  const char* form;
  int node;
  int first;
  int count;
  int times = 1;
};
constexpr Released kReleased[] = {
    {"FrmAzione", 1, 557, 4},         {"FrmAzione", 1, 526, 3},    {"FrmDosi", 1, 512, 3},
    {"FrmDosi", 1, 516, 3},           {"FrmDosi", 1, 520, 3},      {"FrmDosi", 1, 593, 4},
    {"FrmPassword", 0, 203, 3},       {"FrmPrezzi", 0, 285, 1},    {"FrmTemperatura", 1, 502, 1},
    {"FrmTemperatura", 2, 266, 7, 2}, {"FrmTempi", 1, 503, 2},     {"FrmTempi", 1, 508, 3},
    {"FrmTempi", 1, 562, 1},          {"FrmTempi", 1, 586, 1},     {"FrmTempi", 1, 588, 1},
    {"FrmTempi", 2, 273, 1},          {"FrmTempi", 2, 310, 18},    {"FrmTempi", 3, 273, 1},
    {"FrmTempi", 3, 310, 18},         {"FrmPagamento", 0, 206, 8}, {"FrmPagamento", 0, 281, 1},
    {"FrmPagamento", 0, 285, 3},      {"FrmPagamento", 0, 362, 1}, {"FrmPagamento", 0, 354, 1},
    {"FrmPagamento", 0, 366, 1},      {"FrmPagamento", 0, 85, 1},  {"FrmOpzioni", 0, 285, 2},
    {"FrmOpzioni", 0, 279, 2},        {"FrmOpzioni", 0, 360, 1},   {"FrmOpzioni", 1, 524, 2},
    {"FrmOpzioni", 1, 506, 2},        {"FrmOpzioni", 1, 511, 1},   {"FrmTestZeth", 0, 314, 3},
    {"FrmTestZeth", 0, 358, 1},       {"FrmTestZeth", 2, 284, 1},  {"FrmTestZeth2", 0, 314, 3},
    {"FrmTestZeth2", 0, 358, 1},      {"FrmTestZeth2", 3, 284, 1}, {"FrmInOut", 1, 535, 5},
    {"FrmInOut", 2, 285, 2},
};

TEST_P(EveryForm, ReleasesNothingOfOthersButAsPrescribed) {
  constexpr int kOthers = 3;
  for (int node = 0; node < kNodeCount; ++node) {
    for (int record = 1; record <= kRecords; ++record) {
      ParamTable[node][record].Subscribers = kOthers;
    }
  }
  Open(GetParam().name);
  Close();
  for (const LeftSubscribed& each : kLeftSubscribed) {
    if (std::string(each.form) == GetParam().name) {
      --ParamTable[each.node][each.record].Subscribers;
    }
  }
  for (const Released& each : kReleased) {
    for (int n = 0; n < each.count && std::string(each.form) == GetParam().name; ++n) {
      ParamTable[each.node][each.first + n].Subscribers += each.times;
    }
  }
  for (const Subscription& subscription : Subscribed()) {
    EXPECT_EQ(subscription.subscribers, kOthers) << testing::PrintToString(subscription);
  }
  EXPECT_EQ(Subscribed().size(), std::size_t{kNodeCount * kRecords});
}

TEST_P(EveryForm, LeavesTheFocusInAnotherFormWhereItIs) {
  Open(GetParam().name);
  SendEverything();
  Open("FrmPassword");
  Type("Text1(1)", "1");
  for (const int gates : {0, 4, 0, 255}) {
    for (const int gate : {312, 313, 357}) {
      Arrive(0, gate, gates);
    }
    EXPECT_TRUE(Find("Text1(1)").hasFocus());
  }
  EXPECT_EQ(BoxText("Text1(1)"), "1");
}

// The first control that can be changed, in the order of reading, and another one of the same form.
struct FirstFocus {
  const char* form;
  const char* first;
  const char* another;
};
constexpr FirstFocus kFirstFocus[] = {
    {"FrmAssSel", "Text1(0)", "HScroll1(30)"},  {"FrmAssSet", "Text1(0)", "HScroll1(9)"},
    {"FrmAssSet2", "Text1(0)", "HScroll1(9)"},  {"FrmAzione", "Text1(0)", "HScroll1(4)"},
    {"FrmConf", "Option1(0)", "Text6(9)"},      {"FrmDosi", "Label11(0)", "txtVal(6)"},
    {"FrmGrafico", "Follow", "iStripChartX1"},  {"FrmOpzioni", "SlswitchX5", "HScroll1(1)"},
    {"FrmOrologio", "Text1(0)", "HScroll1(7)"}, {"FrmPagamento", "iSwitchSliderX2", "HScroll6(1)"},
    {"FrmPassword", "Text1(0)", "Text1(2)"},    {"FrmPrezzi", "Switch1", "HScroll1(7)"},
    {"FrmSconti", "Text1(0)", "HScroll1(7)"},   {"FrmTemperatura", "Text1", "HScroll2(3)"},
    {"FrmTempi", "txtTempi(0)", "HScroll1(3)"}, {"FrmTestZeth", "Label1(0)", "Command1"},
    {"FrmTestZeth2", "Label1(0)", "Command1"},
};

TEST_P(EveryForm, OpensOnTheFirstControlThatCanBeChangedAndLeavesTheOperatorsChoiceAlone) {
  const auto* focus = std::ranges::find(kFirstFocus, std::string(GetParam().name), &FirstFocus::form);
  Open(GetParam().name);
  SendEverything();
  if (focus == std::end(kFirstFocus)) {
    EXPECT_TRUE(form().findChildren<QLineEdit*>().isEmpty() && form().findChildren<Bar*>().isEmpty());
    return;
  }
  EXPECT_TRUE(Find(focus->first).hasFocus()) << FocusName();
  Focus(focus->another);
  SendEverything();
  EXPECT_TRUE(Find(focus->another).hasFocus()) << FocusName();
  form().InitMessaggi();
  form().TakeFocus();
  EXPECT_TRUE(Find(focus->another).hasFocus()) << FocusName();
}

TEST_P(EveryForm, GivesEachNamedControlANameOfItsOwn) {
  Open(GetParam().name);
  QSet<QString> names;
  for (const QObject* child : form().findChildren<QObject*>()) {
    const QString name = child->objectName();
    if (!name.isEmpty() && !name.startsWith("qt_")) {
      EXPECT_FALSE(names.contains(name)) << name.toStdString();
      names.insert(name);
    }
  }
}

TEST_P(EveryForm, NamesWhatCanHaveTheFocus) {
  Open(GetParam().name);
  for (const QWidget* widget : form().findChildren<QWidget*>()) {
    if ((widget->focusPolicy() & Qt::TabFocus) != 0 && !widget->objectName().isEmpty()) {
      const auto* button = qobject_cast<const QAbstractButton*>(widget);
      EXPECT_FALSE(widget->accessibleName().isEmpty() && (button == nullptr || button->text().isEmpty()))
          << widget->objectName().toStdString();
    }
  }
}

TEST_P(EveryForm, FitsASmallScreen) {
  Open(GetParam().name);
  EXPECT_LE(form().parentWidget()->width(), 1366);
  EXPECT_LE(form().parentWidget()->height(), 700);
  EXPECT_GE(form().parentWidget()->y(), 0);
}

INSTANTIATE_TEST_SUITE_P(Forms, EveryForm, testing::ValuesIn(FormList().begin(), FormList().end()),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace dosmara
