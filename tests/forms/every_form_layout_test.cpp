// SPDX-License-Identifier: GPL-3.0-or-later
// How each form of the list lies on the screen, in the shipped languages and at the scales of screens.
#include <QAbstractButton>
#include <QApplication>
#include <QFont>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>

#include "controls/echo_mark.h"
#include "data/caption_file.h"
#include "forms/form_fixture.h"
#include "forms/form_list.h"
#include "shell/caption_table.h"

namespace dosmara {
namespace {

const std::vector<Language>& ShippedLanguages() {
  static const std::vector<Language> languages = ReadCaptions(CAPTIONS);
  return languages;
}

class EveryFormsLayout : public FormFixture, public testing::WithParamInterface<FormEntry> {
 protected:
  ~EveryFormsLayout() override { QApplication::setFont(font_); }

  void Speak(const Language& language) {
    for (int line = 1; line <= kLastCaption; ++line) {
      const auto n = static_cast<std::size_t>(line - 1);
      CaptionTable[line] = n < language.lines.size() ? QString::fromStdString(language.lines[n]) : QString();
    }
  }

  // As on a screen of that scale.
  void Scale(double scale) {
    QFont font = font_;
    font.setPointSizeF(font.pointSizeF() * scale);
    QApplication::setFont(font);
  }

  // What the controls lie on: it scrolls where it does not fit.
  QWidget* Ground() {
    const auto* area = form().findChild<QScrollArea*>();
    return area != nullptr ? area->widget() : &form();
  }

  // What the operator sees and touches, apart from the frames and pages around it.
  std::vector<QWidget*> Controls() {
    std::vector<QWidget*> controls;
    for (auto* widget : Ground()->findChildren<QWidget*>()) {
      const bool control =
          qobject_cast<QLabel*>(widget) != nullptr || qobject_cast<QLineEdit*>(widget) != nullptr ||
          qobject_cast<QAbstractButton*>(widget) != nullptr || qobject_cast<Bar*>(widget) != nullptr ||
          qobject_cast<EchoMark*>(widget) != nullptr;
      const bool of_tab_bar = qobject_cast<QTabBar*>(widget->parentWidget()) != nullptr;
      if (control && !of_tab_bar && widget->isVisible()) {
        controls.push_back(widget);
      }
    }
    return controls;
  }

  QRect Place(const QWidget* control) { return {control->mapTo(Ground(), QPoint()), control->size()}; }

  // A box lies exactly over the value that it changes.
  static bool IsBoxOverItsValue(const QWidget* a, const QWidget* b) {
    return a->parentWidget() == b->parentWidget() && a->geometry() == b->geometry() &&
           (qobject_cast<const QLineEdit*>(a) != nullptr) != (qobject_cast<const QLineEdit*>(b) != nullptr);
  }

  static std::string Name(const QWidget* control) {
    return control->metaObject()->className() + (" " + control->objectName().toStdString());
  }

  void ExpectNothingOverlaps() {
    const std::vector<QWidget*> controls = Controls();
    for (std::size_t i = 0; i < controls.size(); ++i) {
      for (std::size_t j = i + 1; j < controls.size(); ++j) {
        if (Place(controls[i]).intersects(Place(controls[j])) &&
            !IsBoxOverItsValue(controls[i], controls[j])) {
          ADD_FAILURE() << Name(controls[i]) << " lies over " << Name(controls[j]);
        }
      }
    }
  }

 private:
  const QFont font_ = QApplication::font();
};

TEST_P(EveryFormsLayout, NoTwoControlsOverlapInAnyLanguageAtAnyScale) {
  ASSERT_GE(ShippedLanguages().size(), 2u);
  for (const Language& language : ShippedLanguages()) {
    for (const double scale : {1.0, 2.0}) {
      SCOPED_TRACE(language.name + " at " + std::to_string(scale));
      Speak(language);
      Scale(scale);
      Open(GetParam().name);
      for (const Subscription& each : Subscribed()) {
        Arrive(each.node, each.record, 4);
      }
      const auto tabs = form().findChildren<QTabWidget*>();
      for (int tab = 0; tab < (tabs.isEmpty() ? 1 : tabs.front()->count()); ++tab) {
        if (!tabs.isEmpty()) {
          tabs.front()->setCurrentIndex(tab);
        }
        QApplication::processEvents();
        EXPECT_FALSE(Controls().empty());
        ExpectNothingOverlaps();
      }
      Close();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Forms, EveryFormsLayout, testing::ValuesIn(FormList().begin(), FormList().end()),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace dosmara
