// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/main_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileInfo>
#include <QMdiSubWindow>
#include <QMenu>
#include <QScreen>
#include <QTest>
#include <map>
#include <memory>

#include "link/identification.h"
#include "shell/loaded_forms.h"
#include "shell/msg_box.h"
#include "store/failure.h"
#include "store/parameter_table.h"
#include "support/box_recorder.h"
#include "support/language_action.h"
#include "support/program_folder.h"
#include "support/wait_until.h"
#include "tour/machine_process.h"

namespace dosmara {
namespace {

// What has happened to the forms of each name, in order.
std::map<QString, QStringList> history;
// The room that the words of a form take.
QSize words_size;

template <const char* kName>
class PlainForm : public Form {
 public:
  PlainForm() : Form(kName) { setWindowTitle(kName); }
  void Load() override {
    history[kName].append("load");
    FormCentre(*this);
  }
  void InitMessaggi() override { history[kName].append("captions"); }
  void Unload() override { history[kName].append("unload"); }
  QSize sizeHint() const override { return words_size; }
};

constexpr char kDosi[] = "FrmDosi";
constexpr char kTempi[] = "FrmTempi";
constexpr char kCancella[] = "FrmCancella";
constexpr FormEntry kForms[] = {{kDosi, CreateForm<PlainForm<kDosi>>},
                                {kTempi, CreateForm<PlainForm<kTempi>>},
                                {kCancella, CreateForm<PlainForm<kCancella>>}};

const Box kNoBoard = {"Check serial !\nSerial device unavailable\nor Board Not Ready", "ERROR 8002",
                      BoxStyle::kCritical};

// The main window in a folder of its own, with port 1 for the machine and nothing on the others.
class MainWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    history.clear();
    words_size = {300, 200};
    const QDir data(DOSMARA_PROGRAM_DATA);
    for (const QString& name : data.entryList({"*.inx", "*.lng"})) {
      ASSERT_TRUE(QFile::copy(data.filePath(name), folder_.path() + "/" + name)) << name.toStdString();
    }
    for (const char* port : {"com1", "com2", "com3", "com4"}) {
      QFile::link("/dev/nonexistent-line", folder_.path() + "/" + port);
    }
    folder_.Write("dosmara.ini", "Com=1\nLingua=Italiano\n");
    QApplication::setApplicationName("Dosmara");
    window_ = std::make_unique<MDIForm1>(SettingsOf(folder_.program()), kForms);
  }

  // An exit outside of the event loop would end the loops of the tests that follow.
  void TearDown() override {
    QTimer::singleShot(0, [] { QCoreApplication::exit(); });
    QApplication::exec();
  }

  // Plugs a machine into port 1.
  void PlugMachine(const QStringList& arguments = {}) {
    QStringList all = {"--boards", folder_.path(), "--link", folder_.path() + "/com1"};
    all.append(arguments);
    machine_ = std::make_unique<MachineProcess>(DOSMARA_MACHINE, all);
    ASSERT_TRUE(machine_->Ready());
  }

  void StartOnAMachine() {
    PlugMachine();
    window_->Load();
  }

  // A launcher above the program's directory that notes each start and where it runs.
  void PutLauncher() const {
    folder_.Write("../DOSMARA.EXE", "#!/bin/sh\npwd >> started\n");
    QFile::setPermissions(folder_.parent() + "/DOSMARA.EXE", QFile::ReadOwner | QFile::ExeOwner);
  }
  // How often it was started.
  qsizetype LauncherStarts() const { return folder_.Read("../started").count('\n'); }

  QAction* Action(const char* name) { return window_->findChild<QAction*>(name); }
  void Click(const char* name) {
    ASSERT_TRUE(Action(name)->isEnabled()) << name;
    Action(name)->trigger();
  }
  QAction& Language(const char* name) { return LanguageAction(*window_, name); }
  QStringList LanguageFiles() const { return QDir(folder_.path()).entryList({"*.lng"}); }
  QMdiArea* Area() { return window_->findChild<QMdiArea*>("MDIBackground1"); }
  QString ActiveForm() {
    QMdiSubWindow* frame = Area()->activeSubWindow();
    return frame != nullptr ? frame->widget()->objectName() : QString();
  }

  ProgramFolder folder_;
  BoxRecorder screen_;
  std::unique_ptr<MachineProcess> machine_;
  std::unique_ptr<MDIForm1> window_;
};

using MainWindowStart = MainWindowTest;
using MainWindowForms = MainWindowTest;
using MainWindowLanguage = MainWindowTest;
using MainWindowPort = MainWindowTest;
using MainWindowExit = MainWindowTest;

TEST_F(MainWindowStart, ConnectsAndNamesItself) {
  StartOnAMachine();
  EXPECT_TRUE(screen_.boxes.empty());
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(window_->windowTitle(), "Dosmara");
  EXPECT_EQ(window_->objectName(), "MDIForm1");
  EXPECT_EQ(QDir::currentPath(), QDir(folder_.path()).canonicalPath());
  EXPECT_EQ(Action("smnuExit")->iconText(), "Esci");
  EXPECT_TRUE(Action("mnuCox(1)")->isChecked());
  EXPECT_TRUE(Language("Italiano").isChecked());
  for (int n = 0; n < 10; ++n) {
    const bool shown = Action(qPrintable(QString("smnuLingue(%1)").arg(n)))->isVisible();
    EXPECT_EQ(shown, n < LanguageFiles().size()) << n;
  }
  EXPECT_TRUE(NodePresent[0]);
  EXPECT_GT(NodeRecordCount[0], 300);
}

TEST_F(MainWindowStart, FitsTheScreenWithItsFrame) {
  StartOnAMachine();
  EXPECT_TRUE(window_->screen()->availableGeometry().contains(window_->frameGeometry()));
  EXPECT_TRUE(window_->isMaximized());
  const QSize screen = window_->screen()->availableSize();
  EXPECT_LE(window_->normalGeometry().height(), screen.height() - 40);
}

TEST_F(MainWindowStart, CountsNeitherItselfNorFrmSerAmongTheLoadedForms) {
  StartOnAMachine();
  EXPECT_TRUE(LoadedForms.empty());
  Click("smnuDosi");
  ASSERT_EQ(LoadedForms.size(), 1u);
  EXPECT_EQ(LoadedForms[0], FindForm("FrmDosi"));
}

TEST_F(MainWindowStart, EnablesFormsAndPortsWhenTheLinkRuns) {
  EXPECT_FALSE(Action("smnuDosi")->isEnabled());
  EXPECT_FALSE(Action("mnuCox(2)")->isEnabled());
  EXPECT_TRUE(Action("smnuExit")->isEnabled());
  EXPECT_TRUE(Action("smnuLingue(0)")->isEnabled());
  StartOnAMachine();
  EXPECT_TRUE(Action("smnuDosi")->isEnabled());
  EXPECT_TRUE(Action("mnuCox(2)")->isEnabled());
}

TEST_F(MainWindowStart, LeavesAnEntryWhoseFormDoesNotExistDisabled) {
  StartOnAMachine();
  EXPECT_TRUE(Action("smnuAllarmi")->isVisible());
  EXPECT_FALSE(Action("smnuAllarmi")->isEnabled());
  EXPECT_TRUE(Action("smnuInOut")->isEnabled());
}

TEST_F(MainWindowStart, EndsWithoutTheLauncherWhenNoPortHasABoard) {
  PutLauncher();
  EXPECT_THROW(window_->Load(), ProgramEnds);
  EXPECT_EQ(screen_.boxes, std::vector<Box>{kNoBoard});
  window_.reset();
  EXPECT_EQ(LauncherStarts(), 0);
}

TEST_F(MainWindowStart, RefusesAModelBelow23) {
  PlugMachine({"--model", "22"});
  EXPECT_THROW(window_->Load(), ProgramEnds);
  const Box expected = {"Not Compatible\nBoard Software", "ERROR", BoxStyle::kCritical};
  EXPECT_EQ(screen_.boxes, std::vector<Box>{expected});
}

TEST_F(MainWindowStart, EndsWhenTheLanguageCannotBeLoaded) {
  folder_.Write("Italiano.lng", QByteArray("x\n").repeated(651));
  EXPECT_THROW(window_->Load(), ProgramEnds);
  const Box expected = {"Italiano.lng\nMore than 650 lines", "Error", BoxStyle::kCritical};
  EXPECT_EQ(screen_.boxes, std::vector<Box>{expected});
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(MainWindowStart, EndsWithoutAnyLanguageFile) {
  for (const QString& name : LanguageFiles()) {
    QFile::remove(folder_.path() + "/" + name);
  }
  EXPECT_THROW(window_->Load(), ProgramEnds);
  const Box expected = {"Reinstall program\nFile missing!", "Error", BoxStyle::kCritical};
  EXPECT_EQ(screen_.boxes, std::vector<Box>{expected});
}

TEST_F(MainWindowStart, HidesByModel) {
  ModelCode = 20;
  window_->ApplyHidingRules();
  EXPECT_FALSE(Action("smnuAzione")->isVisible());
  EXPECT_FALSE(Action("ssmnuMDBaudit")->isVisible());
  ModelCode = 21;
  window_->ApplyHidingRules();
  EXPECT_TRUE(Action("smnuAzione")->isVisible());
  EXPECT_FALSE(Action("ssmnuMDBaudit")->isVisible());
}

TEST_F(MainWindowStart, HidesByTheModelOfTheBoardThatAnswers) {
  ModelCode = 20;
  window_->ApplyHidingRules();
  StartOnAMachine();
  EXPECT_TRUE(Action("smnuAzione")->isVisible());
  EXPECT_TRUE(Action("ssmnuMDBaudit")->isVisible());
}

TEST_F(MainWindowStart, ShowsItselfWithItsMenusBeforeThePortIsSearched) {
  bool shown = false;
  const MsgBoxHandler recorder = SetMsgBoxHandler([&](const QString&, const QString&, BoxStyle) {
    shown = window_->isVisible() && Action("smnuExit")->iconText() == "Esci";
    return BoxAnswer::kOk;
  });
  EXPECT_THROW(window_->Load(), ProgramEnds);
  SetMsgBoxHandler(recorder);
  EXPECT_TRUE(shown);
}

TEST_F(MainWindowForms, OpenAsChildWindows) {
  StartOnAMachine();
  Click("smnuDosi");
  ASSERT_EQ(Area()->subWindowList().size(), 1);
  EXPECT_EQ(ActiveForm(), "FrmDosi");
  EXPECT_TRUE(FindForm("FrmDosi")->isVisible());
  EXPECT_EQ(history["FrmDosi"].count("load"), 1);
}

TEST_F(MainWindowForms, ComeForwardAtASecondClick) {
  StartOnAMachine();
  Click("smnuDosi");
  Click("smnuTempi");
  EXPECT_EQ(ActiveForm(), "FrmTempi");
  Area()->subWindowList().constFirst()->showMinimized();
  Click("smnuDosi");
  EXPECT_EQ(Area()->subWindowList().size(), 2);
  EXPECT_EQ(ActiveForm(), "FrmDosi");
  EXPECT_FALSE(Area()->activeSubWindow()->isMinimized());
  EXPECT_EQ(history["FrmDosi"].count("load"), 1);
}

TEST_F(MainWindowForms, OpenAgainAfterTheyWereClosed) {
  StartOnAMachine();
  Click("smnuDosi");
  Area()->closeActiveSubWindow();
  EXPECT_EQ(history["FrmDosi"].count("unload"), 1);
  Click("smnuDosi");
  EXPECT_EQ(history["FrmDosi"].count("load"), 2);
  EXPECT_TRUE(FindForm("FrmDosi")->isVisible());
}

TEST_F(MainWindowForms, CloseBeforeTheCountersAreCleared) {
  StartOnAMachine();
  Click("smnuDosi");
  Click("smnuTempi");
  Click("ssmnuCancella");
  EXPECT_EQ(history["FrmDosi"].back(), "unload");
  EXPECT_EQ(history["FrmTempi"].back(), "unload");
  EXPECT_EQ(FindForm("FrmDosi"), nullptr);
  EXPECT_EQ(FindForm("FrmTempi"), nullptr);
  EXPECT_EQ(ActiveForm(), "FrmCancella");
  EXPECT_EQ(LoadedForms.size(), 1u);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_TRUE(window_->findChild<QTimer*>("Timer1")->isActive()) << "the link goes on";
}

TEST_F(MainWindowForms, StandInTheListOfWindows) {
  StartOnAMachine();
  Click("smnuDosi");
  Click("smnuTempi");
  auto* windows = window_->findChild<QMenu*>("mnuWL");
  emit windows->aboutToShow();
  ASSERT_EQ(windows->actions().size(), 2);
  EXPECT_EQ(windows->actions()[0]->text(), "&FrmDosi");
  EXPECT_EQ(windows->actions()[1]->text(), "F&rmTempi");
  EXPECT_FALSE(windows->actions()[0]->isChecked());
  EXPECT_TRUE(windows->actions()[1]->isChecked());
  windows->actions()[0]->trigger();
  EXPECT_EQ(ActiveForm(), "FrmDosi");
}

TEST_F(MainWindowForms, TakeTheirCaptionsAgainWhenActivated) {
  StartOnAMachine();
  Click("smnuDosi");
  Click("smnuTempi");
  const qsizetype before = history["FrmDosi"].count("captions");
  Area()->setActiveSubWindow(Area()->subWindowList().constFirst());
  EXPECT_GT(history["FrmDosi"].count("captions"), before);
}

TEST_F(MainWindowForms, AreReachedByKeyboard) {
  StartOnAMachine();
  window_->activateWindow();
  QTest::keyClick(window_.get(), Qt::Key_F10);
  EXPECT_EQ(window_->menuBar()->activeAction(), Action("mnuFile"));
  EXPECT_TRUE(window_->menuBar()->hasFocus());
}

TEST_F(MainWindowForms, CloseByTheirKeysWithAndWithoutTheFocus) {
  StartOnAMachine();
  for (const auto& [key, modifier] :
       {std::pair(Qt::Key_F4, Qt::ControlModifier), {Qt::Key_W, Qt::ControlModifier}}) {
    for (const bool focused : {false, true}) {
      Click("smnuDosi");
      if (focused) {
        Area()->activeSubWindow()->setFocus();
      } else {
        QApplication::focusWidget()->clearFocus();
      }
      QTest::keyClick(focused ? QApplication::focusWidget() : window_.get(), key, modifier);
      EXPECT_EQ(FindForm("FrmDosi"), nullptr) << key << focused;
    }
  }
}

TEST_F(MainWindowForms, FollowTheirWordsWhenTheLanguageChanges) {
  StartOnAMachine();
  Click("smnuDosi");
  QWidget& form = *FindForm("FrmDosi");
  const QSize before = form.size();
  words_size = {500, 300};
  Language("English").trigger();
  EXPECT_NE(before, QSize(500, 300));
  EXPECT_EQ(form.size(), QSize(500, 300));
}

TEST_F(MainWindowForms, FollowTheirWordsWhenTheyComeBackFromTheFullArea) {
  StartOnAMachine();
  Click("smnuDosi");
  QMdiSubWindow* frame = Area()->activeSubWindow();
  frame->showMaximized();
  words_size = {500, 300};
  Language("English").trigger();
  EXPECT_TRUE(frame->isMaximized());
  frame->showNormal();
  EXPECT_TRUE(WaitUntil([&] { return frame->widget()->size() == QSize(500, 300); }));
}

TEST_F(MainWindowLanguage, ChangesMenusAndOpenFormsAtOnce) {
  StartOnAMachine();
  Click("smnuDosi");
  Click("smnuTempi");
  const qsizetype dosi = history["FrmDosi"].count("captions");
  const qsizetype tempi = history["FrmTempi"].count("captions");
  Language("English").trigger();
  EXPECT_EQ(Action("smnuExit")->iconText(), "Exit");
  EXPECT_TRUE(Language("English").isChecked());
  EXPECT_FALSE(Language("Italiano").isChecked());
  EXPECT_GT(history["FrmDosi"].count("captions"), dosi);
  EXPECT_GT(history["FrmTempi"].count("captions"), tempi);
  EXPECT_EQ(folder_.Read("dosmara.ini"), "Com=1\nLingua=English\n");
}

TEST_F(MainWindowLanguage, ReachesTheFormThatIsActiveAlready) {
  StartOnAMachine();
  Click("smnuDosi");
  const qsizetype dosi = history["FrmDosi"].count("captions");
  Language("English").trigger();
  EXPECT_GT(history["FrmDosi"].count("captions"), dosi);
}

TEST_F(MainWindowLanguage, StaysWhenTheFileDoesNotFit) {
  StartOnAMachine();
  folder_.Write("English.lng", "File\nExit\n");
  Language("English").trigger();
  const Box expected = {"Check file message !!!", "Wrong file", BoxStyle::kExclamation};
  EXPECT_EQ(screen_.boxes, std::vector<Box>{expected});
  EXPECT_EQ(Action("smnuExit")->iconText(), "Esci");
  EXPECT_TRUE(Language("Italiano").isChecked());
  EXPECT_FALSE(Language("English").isChecked());
  EXPECT_EQ(folder_.Read("dosmara.ini"), "Com=1\nLingua=Italiano\n");
}

TEST_F(MainWindowPort, ChangesWithoutWritingTheSettings) {
  StartOnAMachine();
  const QString device = QFileInfo(folder_.path() + "/com1").symLinkTarget();
  QFile::remove(folder_.path() + "/com2");
  QFile::link(device, folder_.path() + "/com2");
  Click("mnuCox(2)");
  EXPECT_EQ(PortNumber, 2);
  EXPECT_FALSE(Action("mnuCox(1)")->isChecked());
  EXPECT_TRUE(Action("mnuCox(2)")->isChecked());
  EXPECT_EQ(folder_.Read("dosmara.ini"), "Com=1\nLingua=Italiano\n");
  EXPECT_TRUE(screen_.boxes.empty());
}

TEST_F(MainWindowPort, FallsBackToThePortThatHasTheBoard) {
  StartOnAMachine();
  Click("mnuCox(3)");
  EXPECT_EQ(PortNumber, 1);
  EXPECT_TRUE(Action("mnuCox(1)")->isChecked());
  EXPECT_FALSE(Action("mnuCox(3)")->isChecked());
}

TEST_F(MainWindowPort, EndsTheProgramWithoutTheLauncherWhenNoneHasABoard) {
  StartOnAMachine();
  PutLauncher();
  machine_.reset();
  QFile::remove(folder_.path() + "/com1");
  QFile::link("/dev/nonexistent-line", folder_.path() + "/com1");
  QTimer::singleShot(0, Action("mnuCox(2)"), &QAction::trigger);
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_EQ(screen_.boxes, std::vector<Box>{kNoBoard});
  window_->close();
  EXPECT_EQ(LauncherStarts(), 0);
}

TEST_F(MainWindowExit, StartsTheLauncherInTheDirectoryAbove) {
  StartOnAMachine();
  PutLauncher();
  QTimer::singleShot(0, Action("smnuExit"), &QAction::trigger);
  EXPECT_EQ(QApplication::exec(), 0);
  ASSERT_TRUE(WaitUntil([&] { return LauncherStarts() == 1; }));
  EXPECT_EQ(folder_.Read("../started").trimmed(), QDir(folder_.parent()).canonicalPath());
  EXPECT_EQ(QDir::currentPath(), QDir(folder_.parent()).canonicalPath());
}

TEST_F(MainWindowExit, StartsTheLauncherOnceWhenTheWindowIsClosed) {
  StartOnAMachine();
  PutLauncher();
  QTimer::singleShot(0, window_.get(), &QWidget::close);
  EXPECT_EQ(QApplication::exec(), 0);
  ASSERT_TRUE(WaitUntil([&] { return LauncherStarts() == 1; }));
  Action("smnuExit")->trigger();
  EXPECT_FALSE(WaitUntil([&] { return LauncherStarts() > 1; }, std::chrono::milliseconds(300)));
}

TEST_F(MainWindowExit, EndsAllTheSameWithoutALauncher) {
  StartOnAMachine();
  QTimer::singleShot(0, Action("smnuExit"), &QAction::trigger);
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_TRUE(screen_.boxes.empty());
}

TEST_F(MainWindowExit, EndsAllTheSameWhenTheLauncherCannotRun) {
  StartOnAMachine();
  folder_.Write("../DOSMARA.EXE", "not a program");
  QTimer::singleShot(0, Action("smnuExit"), &QAction::trigger);
  EXPECT_EQ(QApplication::exec(), 0);
}

TEST_F(MainWindowExit, EndsInOrderWhileTheBoardsAreIdentified) {
  PlugMachine();
  PutLauncher();
  QTimer::singleShot(200, window_.get(),
                     &QWidget::close);  // due while the port is tested, delivered after it
  EXPECT_THROW(window_->Load(), ProgramEnds);
  EXPECT_TRUE(screen_.boxes.empty());
  EXPECT_TRUE(WaitUntil([&] { return LauncherStarts() == 1; }));
}

}  // namespace
}  // namespace dosmara
