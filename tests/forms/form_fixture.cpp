// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/form_fixture.h"

#include <QApplication>
#include <QLocale>
#include <QMdiSubWindow>
#include <QTest>
#include <QTimerEvent>
#include <algorithm>
#include <cstring>
#include <stdexcept>

#include "forms/form_list.h"
#include "link/identification.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {

void PrintTo(const Write& write, std::ostream* out) {
  *out << "node " << write.node << " record " << write.record << " := " << write.value;
}

void PrintTo(const Subscription& subscription, std::ostream* out) {
  *out << "node " << subscription.node << " record " << subscription.record << " x "
       << subscription.subscribers;
}

std::string Element(const char* name, int n) { return std::string(name) + "(" + std::to_string(n) + ")"; }

FormFixture::FormFixture() : window_(std::make_unique<QMainWindow>()), area_(new QMdiArea) {
  std::memset(ParamTable, 0, sizeof ParamTable);
  for (int node = 0; node < kNodeCount; ++node) {
    NodePresent[node] = true;
    NodeRecordCount[node] = kRecords;
    for (int record = 1; record <= kRecords; ++record) {
      ParamTable[node][record].Control = 1;
    }
  }
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

FormFixture::~FormFixture() {
  window_.reset();
  LoadedForms.clear();
}

Form& FormFixture::Open(const std::string& name) {
  for (const FormEntry& entry : FormList()) {
    if (name == entry.name) {
      return Open(entry.create());
    }
  }
  throw std::runtime_error("no form " + name);
}

Form& FormFixture::Open(Form* form) {
  form_ = form;
  area_->addSubWindow(form_);
  form_->Load();
  form_->parentWidget()->show();
  QApplication::setActiveWindow(window_.get());
  return *form_;
}

void FormFixture::Close() {
  form_->parentWidget()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  form_ = nullptr;
}

void FormFixture::Arrive(int node, int record, double value) {
  const auto whole = static_cast<std::uint32_t>(value);
  Bytes reply;
  for (int byte = 0; byte < kValueBytes; ++byte) {
    reply.push_back(static_cast<std::uint8_t>(whole >> 8 * byte));
  }
  ParamRec& target = ParamTable[node][record];
  std::copy(reply.begin(), reply.end(), target.Value);
  target.Flags |= kArrived;
  // As the link offers it, but for one thing: what a form throws ends the test.
  const std::vector<LoadedForm*> forms = LoadedForms;
  for (LoadedForm* form : forms) {
    NodeIndex = static_cast<std::uint8_t>(node);
    form->SLabelChange(record, ReplyValue(reply));
  }
}

std::vector<Write> FormFixture::Written() {
  std::vector<Write> writes;
  for (int node = 0; node < kNodeCount; ++node) {
    for (int record = 1; record <= kRecords; ++record) {
      if ((ParamTable[node][record].Flags & kWritePending) != 0) {
        writes.push_back({node, record, static_cast<int>(ParamGet(record, node))});
        ParamTable[node][record].Flags &= static_cast<std::uint8_t>(~kWritePending);
      }
    }
  }
  return writes;
}

std::vector<Subscription> FormFixture::Subscribed() const {
  std::vector<Subscription> subscriptions;
  for (int node = 0; node < kNodeCount; ++node) {
    for (int record = 1; record <= kRecords; ++record) {
      if (const int subscribers = ParamTable[node][record].Subscribers; subscribers != 0) {
        subscriptions.push_back({node, record, subscribers});
      }
    }
  }
  return subscriptions;
}

std::ptrdiff_t FormFixture::ShownMarks() {
  const auto marks = form_->findChildren<EchoMark*>();
  return std::ranges::count_if(marks, [this](const EchoMark* mark) { return mark->isVisibleTo(form_); });
}

EchoMark::State FormFixture::MarkBehind(const std::string& name) {
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

void FormFixture::Focus(const std::string& name) { Find(name).setFocus(Qt::TabFocusReason); }

void FormFixture::Type(const std::string& box, const std::string& text) {
  Focus(box);
  QTest::keyClicks(&Find(box), QString::fromStdString(text));
}

void FormFixture::PressEnter() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); }

void FormFixture::Enter(const std::string& box, const std::string& text) {
  Type(box, text);
  PressEnter();
}

void FormFixture::EnterAndLeave(const std::string& box, const std::string& text, const std::string& leave) {
  Enter(box, text);
  Focus(leave);
}

std::vector<std::string> FormFixture::TabThrough(int count) {
  std::vector<std::string> names;
  while (count-- > 0) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    names.push_back(QApplication::focusWidget()->objectName().toStdString());
  }
  return names;
}

void FormFixture::Click(const std::string& name) { QTest::mouseClick(&Find(name), Qt::LeftButton); }

void FormFixture::Fire(const std::string& timer) {
  auto& target = Find<QTimer>(timer);
  QTimerEvent event(target.timerId());
  QCoreApplication::sendEvent(&target, &event);
}

}  // namespace dosmara
