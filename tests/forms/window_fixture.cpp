// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/window_fixture.h"

#include <QApplication>
#include <QLocale>
#include <QMdiSubWindow>
#include <QTest>
#include <QTimerEvent>
#include <algorithm>

#include "forms/form_list.h"
#include "link/identification.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"
#include "support/link_fixture.h"

namespace dosmara {

void PrintTo(const Write& write, std::ostream* out) {
  *out << "node " << write.node << " record " << write.record << " := " << write.value;
}

void PrintTo(const Subscription& subscription, std::ostream* out) {
  *out << "node " << subscription.node << " record " << subscription.record << " x "
       << subscription.subscribers;
}

std::string Element(const char* name, int n) { return std::string(name) + "(" + std::to_string(n) + ")"; }

WindowFixture::WindowFixture() : window_(std::make_unique<QMainWindow>()), area_(new QMdiArea) {
  ResetCore();
  ModelCode = 25;
  for (int line = 0; line <= kLastCaption; ++line) {
    CaptionTable[line] = '#' + QString::number(line);
  }
  QLocale::setDefault(QLocale::c());
  LoadedForms.clear();
  window_->setCentralWidget(area_);
  window_->resize(1366, 700);
  window_->show();
}

WindowFixture::~WindowFixture() {
  window_.reset();
  LoadedForms.clear();
}

Form& WindowFixture::Open(const std::string& name) {
  for (const FormEntry& entry : FormList()) {
    if (name == entry.name) {
      return Open(entry.create());
    }
  }
  throw std::runtime_error("no form " + name);
}

Form& WindowFixture::Open(Form* form) {
  form_ = form;
  area_->addSubWindow(form_);
  form_->Load();
  form_->parentWidget()->show();
  QApplication::setActiveWindow(window_.get());
  return *form_;
}

void WindowFixture::Close() {
  form_->parentWidget()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  form_ = nullptr;
}

void WindowFixture::TurnTo(Form& form) {
  form_ = &form;
  area_->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(form.parentWidget()));
}

std::vector<Subscription> WindowFixture::Subscribed() const {
  std::vector<Subscription> subscriptions;
  for (int node = 0; node < kNodeCount; ++node) {
    for (int record = 1; record <= NodeRecordCount[node]; ++record) {
      if (const int subscribers = ParamTable[node][record].Subscribers; subscribers != 0) {
        subscriptions.push_back({node, record, subscribers});
      }
    }
  }
  return subscriptions;
}

std::ptrdiff_t WindowFixture::ShownMarks() {
  const auto marks = form_->findChildren<EchoMark*>();
  return std::ranges::count_if(marks, [this](const EchoMark* mark) { return mark->isVisibleTo(form_); });
}

EchoMark::State WindowFixture::MarkBehind(const std::string& name) {
  const QRect control = Find(name).geometry();
  const EchoMark* nearest = nullptr;
  for (const EchoMark* mark :
       Find(name).parentWidget()->findChildren<EchoMark*>(Qt::FindDirectChildrenOnly)) {
    const QRect place = mark->geometry();
    const bool behind =
        place.left() > control.right() && control.contains(control.center().x(), place.center().y());
    if (behind && (nearest == nullptr || place.left() < nearest->x())) {
      nearest = mark;
    }
  }
  if (nearest == nullptr) {
    throw std::runtime_error("no mark behind " + name);
  }
  return nearest->state();
}

void WindowFixture::Focus(const std::string& name) { Find(name).setFocus(Qt::TabFocusReason); }

void WindowFixture::Type(const std::string& box, const std::string& text) {
  Focus(box);
  QTest::keyClicks(&Find(box), QString::fromStdString(text));
}

void WindowFixture::PressEnter() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); }

void WindowFixture::Enter(const std::string& box, const std::string& text) {
  Type(box, text);
  PressEnter();
}

void WindowFixture::EnterAndLeave(const std::string& box, const std::string& text, const std::string& leave) {
  Enter(box, text);
  Focus(leave);
}

std::vector<std::string> WindowFixture::TabThrough(int count) {
  std::vector<std::string> names;
  while (count-- > 0) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    names.push_back(QApplication::focusWidget()->objectName().toStdString());
  }
  return names;
}

void WindowFixture::Click(const std::string& name) { QTest::mouseClick(&Find(name), Qt::LeftButton); }

void WindowFixture::Fire(const std::string& timer) {
  auto& target = Find<QTimer>(timer);
  QTimerEvent event(target.timerId());
  QCoreApplication::sendEvent(&target, &event);
}

}  // namespace dosmara
