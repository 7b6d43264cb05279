// SPDX-License-Identifier: GPL-3.0-or-later
// The main of the tests on a real X server: keys go through the server as they do from a keyboard. The server
// is one of its own, without a window manager, on the first free display.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QLocale>
#include <QStyleFactory>
#include <cstdio>
#include <string>

#include "support/stops.h"

namespace {

// Runs Xvfb while it lives. The server goes down with this program, however that ends.
class XServer {
 public:
  XServer() {
    int display[2];
    if (pipe(display) != 0) {
      return;
    }
    pid_ = fork();
    if (pid_ == 0) {
      prctl(PR_SET_PDEATHSIG, SIGTERM);
      const std::string fd = std::to_string(display[1]);
      execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", "1366x768x24", "-nolisten", "tcp",
             nullptr);
      _exit(1);
    }
    close(display[1]);
    char number[16] = "";  // stays empty when there is no server
    if (FILE* reader = fdopen(display[0], "r")) {
      std::fgets(number, sizeof number, reader);
      std::fclose(reader);
    }
    qputenv("DISPLAY", ":" + QByteArray(number).trimmed());
  }
  ~XServer() {
    if (pid_ > 0) {
      kill(pid_, SIGTERM);
      waitpid(pid_, nullptr, 0);
    }
  }
  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;

 private:
  pid_t pid_ = -1;
};

int RunOnAScreen(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "xcb");
  QLocale::setDefault(QLocale::c());
  QApplication app(argc, argv);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  return RUN_ALL_TESTS();
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  dosmara::LetStopsFailOneTest();
  if (GTEST_FLAG_GET(list_tests)) {
    return RUN_ALL_TESTS();
  }
  const XServer server;
  return RunOnAScreen(argc, argv);
}
