// SPDX-License-Identifier: GPL-3.0-or-later
// What scripts/run says before it builds anything, in a project that has nothing but the script.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <utility>

#include "machine/pty.h"
#include "temp_folder.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

class RunScript : public testing::Test {
 protected:
  RunScript() {
    fs::create_directories(folder_ / "scripts");
    fs::create_directories(folder_ / "build/run");
    fs::copy_file(MACHINE_RUN_SCRIPT, folder_ / "scripts/run");
  }

  // What the script says, and its exit code.
  std::pair<std::string, int> Run(const std::string& arguments = "") {
    FILE* output = popen(((folder_ / "scripts/run").string() + " " + arguments + " 2>&1").c_str(), "r");
    std::string text;
    for (int character; (character = fgetc(output)) != EOF;) {
      text += static_cast<char>(character);
    }
    const int status = pclose(output);
    return {text, WEXITSTATUS(status)};
  }

  TempFolder folder_;
};

TEST_F(RunScript, ASecondRunSaysSoInOneLineWhileTheFirstIsOpen) {
  const Descriptor first(open((folder_ / "build/run/lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0666));
  ASSERT_EQ(flock(first.number(), LOCK_EX), 0);
  const std::pair<std::string, int> refused = {"run: it runs already; close that Dosmara first\n", 1};
  EXPECT_EQ(Run(), refused);
  ASSERT_EQ(flock(first.number(), LOCK_UN), 0);
  EXPECT_NE(Run(), refused);
}

TEST_F(RunScript, NamesADeviceThatIsMissing) {
  EXPECT_EQ(Run("--port /nowhere").first, "run: there is no device /nowhere\n");
  EXPECT_EQ(Run("--colour").first, "usage: scripts/run [--port DEVICE]\n");
}

}  // namespace
}  // namespace machine
