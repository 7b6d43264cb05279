// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/main_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QMdiSubWindow>
#include <QProcess>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <chrono>

#include "link/identification.h"
#include "shell/loaded_forms.h"
#include "shell/mnemonics.h"
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

QMdiSubWindow* FrameOf(const Form& form) { return qobject_cast<QMdiSubWindow*>(form.parentWidget()); }

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

// Gives a form the words of the language, and the room that they take.
void ShowCaptions(Form& form) {
  form.InitMessaggi();
  RefitFrame(form);
}

void BringForward(Form& form) {
  if (QMdiSubWindow* frame = FrameOf(form)) {
    frame->show();
    static_cast<QMdiArea*>(frame->mdiArea())->setActiveSubWindow(frame);
    ShowCaptions(form);
  }
}

// A child window's own keys close it only while they have the focus, which a form that waits for the machine
// does not take: the main window has these keys.
void TakeCloseKeys(QMdiSubWindow& frame) {
  for (QAction* entry : frame.systemMenu()->actions()) {
    entry->setShortcuts(QList<QKeySequence>());
  }
}

}  // namespace

MDIForm1::MDIForm1(const Settings& settings, std::span<const FormEntry> forms)
    : settings_(settings),
      forms_(forms),
      area_(new MdiBackground),
      status_bar_(new StatusBar),
      frm_ser_(nullptr),
      bar_(new MenuBar),
      menu_(
          *bar_, [this](const MenuRow& row) { Click(row); }, [this](QMenu& m) { FillWindowList(m); }) {
  setObjectName("MDIForm1");
  frm_ser_ = new FrmSer(settings_, *status_bar_);
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
  connect(area_, &QMdiArea::subWindowActivated, this, [](QMdiSubWindow* frame) {
    if (auto* form = frame != nullptr ? dynamic_cast<Form*>(frame->widget()) : nullptr) {
      ShowCaptions(*form);
    }
  });
  auto* to_menu = new QShortcut(Qt::Key_F10, this);
  connect(to_menu, &QShortcut::activated, bar_, &MenuBar::Enter);
  // The desktop's own key for closing is one of these two, or both.
  auto* close = new QShortcut(this);
  close->setKeys({QKeySequence(Qt::CTRL | Qt::Key_F4), QKeySequence(Qt::CTRL | Qt::Key_W)});
  connect(close, &QShortcut::activated, area_, &QMdiArea::closeActiveSubWindow);
}

MDIForm1::~MDIForm1() {
  // The area still activates windows while it goes down.
  area_->disconnect(this);
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
    const bool has_form = std::any_of(forms_.begin(), forms_.end(), [&row](const FormEntry& entry) {
      return row.form != nullptr && QString(entry.name) == row.form;
    });
    const bool needs_link = row.form != nullptr || row.act == MenuAct::kPort;
    return (row.form == nullptr || has_form) && (running || !needs_link);
  });
}

void MDIForm1::Click(const MenuRow& row) {
  switch (row.act) {
    case MenuAct::kUnloadAndShowForm:
      UnloadDataForms();
      ShowForm(row.form);
      break;
    case MenuAct::kShowForm:
      ShowForm(row.form);
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

void MDIForm1::ShowForm(const char* name) {
  if (Form* open = FindForm(name)) {
    FrameOf(*open)->showNormal();
    BringForward(*open);
    return;
  }
  for (const FormEntry& entry : forms_) {
    if (QString(entry.name) == name) {
      Form* form = entry.create();
      QMdiSubWindow* frame = area_->addSubWindow(form);
      TakeCloseKeys(*frame);
      // A frame that was maximized while the language changed has its old size when it comes back.
      connect(
          frame, &QMdiSubWindow::windowStateChanged, form, [form] { RefitFrame(*form); },
          Qt::QueuedConnection);
      form->Load();
      form->show();
      frame->show();
      form->TakeFocus();
    }
  }
}

void MDIForm1::ChangeLanguage(int index) {
  ChooseLanguage(settings_.folder, settings_.smnuLingue, index);
  menu_.InitMessaggi();
  menu_.ShowTicks(settings_);
  WriteSettings(settings_);
  const std::vector<LoadedForm*> forms = LoadedForms;
  for (LoadedForm* loaded : forms) {
    if (auto* form = dynamic_cast<Form*>(loaded)) {
      BringForward(*form);
    }
  }
}

void MDIForm1::ChangePort(int port) {
  try {
    LinkOpenPort(port);
  } catch (const ProgramEnds&) {
    StopLink();
    QCoreApplication::exit();
  }
}

void MDIForm1::FillWindowList(QMenu& menu) {
  menu.clear();
  const QList<QMdiSubWindow*> frames = area_->subWindowList();
  QStringList titles;
  for (const QMdiSubWindow* frame : frames) {
    titles.append(frame->windowTitle());
  }
  const QStringList texts = WithMnemonics(titles);
  for (qsizetype i = 0; i < frames.size(); ++i) {
    QMdiSubWindow* frame = frames[i];
    QAction* entry = menu.addAction(texts[i]);
    entry->setCheckable(true);
    entry->setChecked(frame == area_->activeSubWindow());
    connect(entry, &QAction::triggered, frame, [this, frame] {
      bar_->HandBackFocus();
      area_->setActiveSubWindow(frame);
    });
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
