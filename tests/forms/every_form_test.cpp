// SPDX-License-Identifier: GPL-3.0-or-later
// What holds for each form of the list.
#include <QAbstractButton>
#include <QSet>

#include "forms/form_fixture.h"
#include "forms/form_list.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"
#include "tour/left_subscribed.h"

namespace dosmara {
namespace {

class EveryForm : public FormFixture, public testing::WithParamInterface<FormEntry> {};

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

TEST_P(EveryForm, LeavesNoRecordSubscribedButWhatIsMeantToStay) {
  Open(GetParam().name);
  EXPECT_EQ(Subscribed().empty(), form().objectName() == "FrmInfo");
  Close();
  std::vector<Subscription> left;
  for (const LeftSubscribed& each : kLeftSubscribed) {
    if (std::string(each.form) == GetParam().name) {
      left.push_back({each.node, each.record, 1});
    }
  }
  EXPECT_EQ(Subscribed(), left);
  EXPECT_EQ(LoadedForms.size(), 2u);
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
