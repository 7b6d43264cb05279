// SPDX-License-Identifier: GPL-3.0-or-later
// What holds for each form of the list.
#include <QAbstractButton>
#include <QApplication>
#include <QMetaProperty>
#include <QRegularExpression>
#include <QSet>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <set>

#include "controls/progress_line.h"
#include "data/caption_file.h"
#include "forms/form_fixture.h"
#include "forms/form_list.h"
#include "shell/caption_table.h"
#include "shell/menu_table.h"
#include "store/parameter_table.h"
#include "tour/left_subscribed.h"

namespace dosmara {
namespace {

// The lines of the language that the texts of an object and its children tell of.
std::set<int> LinesIn(const QObject& object) {
  static const QRegularExpression kLine("#(\\d+)");
  std::set<int> lines;
  const auto add = [&lines](const QString& text) {
    for (const QRegularExpressionMatch& match : kLine.globalMatch(text)) {
      lines.insert(match.captured(1).toInt());
    }
  };
  for (int i = 0; i < object.metaObject()->propertyCount(); ++i) {
    if (const QMetaProperty property = object.metaObject()->property(i);
        property.typeId() == QMetaType::QString) {
      add(property.read(&object).toString());
    }
  }
  if (const auto* tabs = qobject_cast<const QTabBar*>(&object)) {
    for (int tab = 0; tab < tabs->count(); ++tab) {
      add(tabs->tabText(tab));
    }
  }
  for (const QObject* child : object.children()) {
    lines.merge(LinesIn(*child));
  }
  return lines;
}

class EveryForm : public FormFixture, public testing::WithParamInterface<FormEntry> {
 protected:
  // The machine sends a 4 for each record that somebody has subscribed: all gates are open, no head is off.
  void SendEverything() {
    for (const Subscription& subscription : Subscribed()) {
      Arrive(subscription.node, subscription.record, 4);
    }
  }
  // What Tab leads to, the first one first.
  std::vector<QWidget*> ReachedByTab() {
    std::vector<QWidget*> reached;
    for (QWidget* next = form().nextInFocusChain(); next != &form(); next = next->nextInFocusChain()) {
      const bool takes_focus = (next->focusPolicy() & Qt::TabFocus) != 0 && next->isEnabled();
      if (takes_focus && next->isVisible() && form().isAncestorOf(next) && !qobject_cast<QTabBar*>(next) &&
          !qobject_cast<QTabWidget*>(next)) {
        reached.push_back(next);
      }
    }
    return reached;
  }
  // Sends what SendEverything does, until a control of the form has the focus. Tabs have it while all else is
  // closed.
  void SendUntilTheFocusIsTaken() {
    for (const Subscription& subscription : Subscribed()) {
      const QWidget* focus = QApplication::focusWidget();
      if (form().isAncestorOf(focus) && qobject_cast<const QTabBar*>(focus) == nullptr) {
        return;
      }
      Arrive(subscription.node, subscription.record, 4);
    }
  }
  // Whether `other` is read before `widget`: it stands left in the same line, or above and not further right.
  bool IsReadBefore(const QWidget* other, const QWidget* widget) {
    const auto place = [this](const QWidget* each) {
      return QRect(each->mapTo(&form(), QPoint()), each->size());
    };
    const bool above = place(other).bottom() < place(widget).top();
    const bool in_line = !above && place(other).top() <= place(widget).bottom();
    return in_line ? place(other).right() < place(widget).left()
                   : above && place(other).left() <= place(widget).left();
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

// The captions of the fixture tell their lines.
TEST_P(EveryForm, HasWordsInEveryLanguageForTheLinesThatItShows) {
  Open(GetParam().name);
  for (const Language& language : ReadCaptions(CAPTIONS)) {
    for (const int line : LinesIn(form())) {
      ASSERT_LE(line, static_cast<int>(language.lines.size()));
      const std::string& words = language.lines[static_cast<std::size_t>(line - 1)];
      EXPECT_FALSE(words.empty() || words.starts_with(";--")) << language.name << " line " << line;
    }
  }
}

TEST_P(EveryForm, IsOpenedByOneEntryOfTheMenu) {
  const auto opens = [](const MenuRow& row) {
    return row.form != nullptr && std::string(row.form) == GetParam().name;
  };
  EXPECT_EQ(std::ranges::count_if(MenuTable(), opens), 1);
}

TEST_P(EveryForm, LeavesNoRecordSubscribedButAsPrescribed) {
  Open(GetParam().name);
  const auto* line = form().findChild<ProgressLine*>();
  EXPECT_EQ(Subscribed().empty(), line == nullptr || line->Share() == 1) << "it reads what it counts";
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

TEST_P(EveryForm, OpensOnTheFirstControlThatCanBeChangedAndLeavesTheOperatorsChoiceAlone) {
  Open(GetParam().name);
  SendUntilTheFocusIsTaken();
  std::vector<QWidget*> reached = ReachedByTab();
  if (reached.empty()) {
    EXPECT_TRUE(form().findChildren<QLineEdit*>().isEmpty() && form().findChildren<Bar*>().isEmpty());
    return;
  }
  EXPECT_TRUE(reached.front()->hasFocus()) << FocusName();
  for (const QWidget* other : reached) {
    EXPECT_FALSE(IsReadBefore(other, reached.front())) << other->objectName().toStdString();
  }
  SendEverything();
  EXPECT_TRUE(reached.front()->hasFocus()) << FocusName();
  reached = ReachedByTab();
  QWidget& another = *reached.back();
  another.setFocus(Qt::TabFocusReason);
  SendEverything();
  EXPECT_TRUE(another.hasFocus()) << FocusName();
  form().InitMessaggi();
  form().TakeFocus();
  EXPECT_TRUE(another.hasFocus()) << FocusName();
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
