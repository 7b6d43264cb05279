// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/audit/frm_cancella.h"

#include <QApplication>
#include <QEvent>
#include <QMenuBar>
#include <QPointer>
#include <QVBoxLayout>
#include <chrono>

#include "fields/machine_records.h"
#include "shell/caption_table.h"
#include "shell/mnemonics.h"
#include "shell/picture.h"
#include "shell/question.h"

namespace dosmara {

namespace {

constexpr FormSetup kSetup = {.name = "FrmCancella", .title = 21};

// What the two buttons clear: line of the language file, and command.
struct Kind {
  int line;
  int command;
};
constexpr Kind kKinds[] = {{175, 1}, {177, 8}};
constexpr int kClearedLine = 176;
// The language has no word of its own for closing this window.
constexpr int kCloseLine = 2;

constexpr std::chrono::milliseconds kStep(100);
constexpr QSize kPictureSize(96, 96);

// The menus of a form. The Alt key on its own belongs to the menus of the main window.
class FormMenus : public QMenuBar {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    return event->type() != QEvent::ShortcutOverride && QMenuBar::eventFilter(watched, event);
  }
};

// What the main window shows in its menu bar.
QStringList MainMenuTexts(const QWidget& form) {
  QStringList texts;
  if (const auto* menus = form.window()->findChild<QMenuBar*>({}, Qt::FindDirectChildrenOnly)) {
    for (const QAction* entry : menus->actions()) {
      texts.append(entry->text());
    }
  }
  return texts;
}

// Leaves the place of a hidden control empty, so that nothing moves when it shows.
void KeepPlace(QWidget& control) {
  QSizePolicy policy = control.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  control.setSizePolicy(policy);
}

}  // namespace

FrmCancella::FrmCancella()
    : DataForm(kSetup), info_(new FieldLabel(Body())), bar_(new LedBar(Body())), timer_(new QTimer(this)) {
  auto* menus = new FormMenus;
  close_ = menus->addAction(QString(), this, [this] { parentWidget()->close(); });
  close_->setObjectName("mnuClose");
  auto* picture = new QLabel(Body());
  picture->setObjectName("Picture1");
  picture->setPixmap(Picture(":/art/cancel.svg", kPictureSize, devicePixelRatioF()));
  auto* grid = new QGridLayout(Body());
  grid->setMenuBar(menus);
  grid->addWidget(picture, 0, 0, kButtons, 1);
  for (int n = 0; n < kButtons; ++n) {
    buttons_[n] = NewButton(ControlArray{"cmdCancella"}[n], kKinds[n].line);
    connect(buttons_[n], &QPushButton::clicked, this, [this, n] { Clear(n); });
    grid->addWidget(buttons_[n], n, 1);
  }
  info_->setObjectName("lblInfo");
  grid->addWidget(info_, kButtons, 0, 1, 2);
  bar_->setObjectName("lbrInfo");
  bar_->hide();
  KeepPlace(*bar_);
  grid->addWidget(bar_, kButtons + 1, 0, 1, 2, Qt::AlignHCenter);
  grid->setRowStretch(kButtons + 2, 1);
  grid->setColumnStretch(1, 1);
  timer_->setObjectName("Timer1");
  timer_->setInterval(kStep);
  connect(timer_, &QTimer::timeout, this, &FrmCancella::Step);
}

void FrmCancella::InitMessaggi() {
  DataForm::InitMessaggi();
  close_->setText(WithMnemonic(Caption(kCloseLine), MainMenuTexts(*this)));
  if (!info_->text().isEmpty()) {
    info_->setText(Caption(kClearedLine));
  }
}

void FrmCancella::Clear(int button) {
  const QPointer<FrmCancella> form(this);
  if (!AskToClear() || form.isNull()) {
    return;
  }
  PutRecord(kMainBoard, kTestCommand, kKinds[button].command);
  timer_->start();
  bar_->SetPosition(0);
  bar_->show();
  SetButtonsEnabled(false);
  info_->clear();
  pressed_ = buttons_[button];
}

// The machine tells nothing of its clearing: the bar is a fixed delay.
void FrmCancella::Step() {
  bar_->SetPosition(bar_->Position() + 1);
  if (bar_->Position() < kLedBarLamps) {
    return;
  }
  timer_->stop();
  info_->setText(Caption(kClearedLine));
  SetButtonsEnabled(true);
  // The focus has gone nowhere while there was nothing to give it to.
  const QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr || focus->isAncestorOf(this)) {
    pressed_->setFocus();
  }
}

void FrmCancella::SetButtonsEnabled(bool enabled) {
  for (QPushButton* button : buttons_) {
    button->setEnabled(enabled);
  }
}

}  // namespace dosmara
