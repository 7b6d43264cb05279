// SPDX-License-Identifier: GPL-3.0-or-later
// The end of the tool, and the program file itself.
#include <QApplication>
#include <QProcess>
#include <QTimer>

#include "system/system_test.h"

namespace dosmara {
namespace {

class Exit : public SystemTest {
 protected:
  static constexpr int kStillRunning = 7;

  // A launcher in the directory above that leaves a trace of having been started there.
  void PlaceLauncher(const QString& name) {
    rig_.folder().Write("../" + name, "#!/bin/sh\npwd >> started.new\nmv started.new started\n");
    QFile::setPermissions(rig_.folder().parent() + "/" + name,
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }

  QByteArray Started() const { return rig_.folder().Read("../started"); }

  // Runs the program's event loop, with `act` as the operator's deed in it. Returns the loop's result.
  int RunUntilItEnds(const std::function<void()>& act) {
    QTimer::singleShot(0, &window(), act);
    QTimer guard;
    guard.callOnTimeout([] { QCoreApplication::exit(kStillRunning); });
    guard.start(kDeadlineMs);
    return QCoreApplication::exec();
  }
};

TEST_F(Exit, StartsTheLauncherOfTheParentDirectory) {
  PlaceLauncher("DOSMARA.EXE");
  ConnectWithDoses();
  EXPECT_EQ(RunUntilItEnds([&] { Click("smnuExit"); }), 0);
  const QByteArray parent = QDir(rig_.folder().parent()).canonicalPath().toUtf8() + "\n";
  Await([&] { return Started() == parent; }, "the launcher");
  EXPECT_EQ(QDir::currentPath(), QDir(rig_.folder().parent()).canonicalPath());
}

TEST_F(Exit, ClosingTheMainWindowStartsTheLauncherOnce) {
  PlaceLauncher("dosmara.exe");
  ConnectWithDoses();
  EXPECT_EQ(RunUntilItEnds([&] { window().close(); }), 0);
  Await([&] { return Started() != "(none)"; }, "the launcher");
  EXPECT_EQ(Started().count('\n'), 1);
}

TEST_F(Exit, EndsWithoutALauncherAllTheSame) {
  Connect();
  EXPECT_EQ(RunUntilItEnds([&] { Click("smnuExit"); }), 0);
  EXPECT_TRUE(screen_.boxes.empty());
}

TEST_F(Exit, LeavesTheLineInPeace) {
  ConnectWithDoses();
  RunUntilItEnds([&] { Click("smnuExit"); });
  const QString requests = Status("requests");
  machine().Command("unplug");
  machine().Command("replug");
  EXPECT_EQ(Status("requests"), requests);
}

// The program as it is installed: the file beside its data, no argument.
TEST_F(Exit, TheProgramItselfConnects) {
  machine_ = &rig_.StartMachine();
  QFile::copy(DOSMARA_PROGRAM, rig_.folder().program());
  QProcess program;
  program.start(rig_.folder().program(), QStringList());
  // The port test, seven reads of the main board and six of each other board.
  Await([&] { return Status("requests").toInt() == 26; }, "the identification of all boards");
  program.terminate();
  EXPECT_TRUE(program.waitForFinished(kDeadlineMs));
}

}  // namespace
}  // namespace dosmara
