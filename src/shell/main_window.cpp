// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/main_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QWindow>
#include <chrono>

#include "link/identification.h"
#include "shell/loaded_forms.h"
#include "shell/text_file.h"
#include "store/failure.h"
#include "store/index_files.h"

namespace dosmara {

namespace {

constexpr QSize kFirstSize(1200, 760);
constexpr std::chrono::seconds kMostTimeToAppear(2);
// What a window manager's frame may take of the screen; only the window manager knows exactly.
constexpr QSize kDecoration(16, 48);
const QString kLauncher = QStringLiteral("DOSMARA.EXE");

// Delivers events, but nothing that the operator does, until the window is on the screen and painted.
void Appear(const QWidget& window) {
  QTimer bound;
  bound.setSingleShot(true);
  bound.start(kMostTimeToAppear);
  while (!window.windowHandle()->isExposed() && bound.isActive()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
  }
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace

MDIForm1::MDIForm1(const Settings& settings, std::span<const FormEntry> forms)
    : settings_(settings),
      area_(new MdiBackground),
      windows_(*area_, forms),
      status_bar_(new StatusBar),
      frm_ser_(new FrmSer(settings_, *status_bar_)),
      bar_(new MenuBar),
      menu_(
          *bar_, [this](const MenuRow& row) { Click(row); },
          [this](QMenu& menu) { windows_.FillMenu(menu, [this] { bar_->HandBackFocus(); }); }) {
  setObjectName("MDIForm1");
  frm_ser_->setParent(this);
  setMenuBar(bar_);
  setCentralWidget(area_);
  setStatusBar(status_bar_);
  resize(kFirstSize.boundedTo(screen()->availableSize() - kDecoration));
  if (size() != kFirstSize) {
    setWindowState(Qt::WindowMaximized);
  }
  EnableMenu(false);
  connect(frm_ser_, &FrmSer::PortTicksChanged, this, [this] { menu_.ShowTicks(settings_); });
  auto* to_menu = new QShortcut(Qt::Key_F10, this);
  connect(to_menu, &QShortcut::activated, bar_, &MenuBar::Enter);
  // The desktop's own key for closing is one of these two, or both.
  auto* close = new QShortcut(this);
  close->setKeys({QKeySequence(Qt::CTRL | Qt::Key_F4), QKeySequence(Qt::CTRL | Qt::Key_W)});
  connect(close, &QShortcut::activated, area_, &QMdiArea::closeActiveSubWindow);
}

void MDIForm1::Load() {
  QDir::setCurrent(settings_.folder);
  InitModelNames();
  ReadSettings(settings_);
  if (!FillLanguageMenu(settings_.folder, settings_.smnuLingue)) {
    throw ProgramEnds();
  }
  InitNodeTables();
  show();
  menu_.InitMessaggi();
  menu_.ShowTicks(settings_);
  // The search for the port delivers no events: the window has to be painted before it begins.
  Appear(*this);
  frm_ser_->Load();
  ApplyHidingRules();
  EnableMenu(true);
  setWindowTitle(QCoreApplication::applicationName());
}

void MDIForm1::ApplyHidingRules() { menu_.ApplyHidingRules(ModelCode); }

// Until the link runs a form would subscribe records that are not there yet, and a change of port would take
// the line from under the identification.
void MDIForm1::EnableMenu(bool running) {
  menu_.Enable([this, running](const MenuRow& row) {
    const bool needs_link = row.form != nullptr || row.act == MenuAct::kPort;
    return (row.form == nullptr || windows_.Has(row.form)) && (running || !needs_link);
  });
}

void MDIForm1::Click(const MenuRow& row) {
  switch (row.act) {
    case MenuAct::kUnloadAndShowForm:
      UnloadDataForms();
      windows_.Show(row.form);
      break;
    case MenuAct::kShowForm:
      windows_.Show(row.form);
      break;
    case MenuAct::kExit:
      Exit();
      break;
    case MenuAct::kLanguage:
      ChangeLanguage(row.index);
      break;
    case MenuAct::kPort:
      ChangePort(row.index);
      break;
    case MenuAct::kNone:
    case MenuAct::kWindowList:
      break;
  }
}

void MDIForm1::ChangeLanguage(int index) {
  ChooseLanguage(settings_.folder, settings_.smnuLingue, index);
  menu_.InitMessaggi();
  menu_.ShowTicks(settings_);
  WriteSettings(settings_);
  windows_.ShowAll();
}

void MDIForm1::ChangePort(int port) {
  try {
    LinkOpenPort(port);
  } catch (const ProgramEnds&) {
    StopLink();
    QCoreApplication::exit();
  }
}

void MDIForm1::StopLink() {
  ended_ = true;
  frm_ser_->Unload();
}

void MDIForm1::Exit() {
  if (ended_) {
    return;
  }
  StopLink();
  QDir::setCurrent(settings_.folder + "/..");
  const QString launcher = FindFile(QDir::currentPath(), kLauncher);
  if (!launcher.isEmpty()) {
    QProcess::startDetached(launcher, {}, QDir::currentPath());
  }
  QCoreApplication::exit();
}

void MDIForm1::closeEvent(QCloseEvent* event) {
  Exit();
  event->accept();
}

}  // namespace dosmara
