// SPDX-License-Identifier: GPL-3.0-or-later
// What scripts/format finds, in a project of its own that has nothing but the script and its style.
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "tools/table_test.h"

namespace dosmara {
namespace {

namespace fs = std::filesystem;

class FormatScript : public TableTest {
 protected:
  FormatScript() {
    fs::create_directories(folder_ / "scripts");
    fs::copy_file(fs::path(SOURCE_ROOT) / "scripts/format", folder_ / "scripts/format");
    fs::copy_file(fs::path(SOURCE_ROOT) / ".clang-format", folder_ / ".clang-format");
    EXPECT_TRUE(Run("git init -q"));
  }

  // True when the command succeeds in the project. What it says goes to the file "said".
  bool Run(const std::string& command) const {
    return WEXITSTATUS(
               std::system(("cd '" + folder_.string() + "' && " + command + " >said 2>&1").c_str())) == 0;
  }
  bool IsInOrder() const { return Run("scripts/format --check"); }
  void Write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name) << text;
  }
  std::string TextOf(const std::string& name) const { return ReadWhole(folder_ / name); }
};

TEST_F(FormatScript, HasNothingToSayOfAProjectInOrder) {
  EXPECT_TRUE(IsInOrder()) << TextOf("said");
  Write("a.cpp", "int One() { return 1; }\n");
  EXPECT_TRUE(IsInOrder()) << TextOf("said");
}

TEST_F(FormatScript, SeesFilesThatAreNotCommittedAndNoIgnoredOnes) {
  Write("a.h", "int  One();\n");
  EXPECT_FALSE(IsInOrder());
  EXPECT_NE(TextOf("said").find("a.h:1"), std::string::npos);
  Write(".gitignore", "a.h\n");
  EXPECT_TRUE(IsInOrder()) << TextOf("said");
}

TEST_F(FormatScript, PassesOverAFileThatIsGone) {
  Write("a.cpp", "int One();\n");
  ASSERT_TRUE(Run("git add a.cpp"));
  fs::remove(folder_ / "a.cpp");
  EXPECT_TRUE(IsInOrder()) << TextOf("said");
}

TEST_F(FormatScript, WantsBracesAroundEveryBody) {
  for (const std::string body :
       {"if (n > 0) return 1;", "for (int i = 0; i < n; ++i) ++n;", "for (int m : {n}) n = m;",
        "while (n > 0) --n;", "do\n    --n;\n  while (n > 0);"}) {
    Write("a.cpp", "int F(int n) {\n  " + body + "\n  return n;\n}\n");
    EXPECT_FALSE(IsInOrder()) << body;
    EXPECT_TRUE(Run("scripts/format"));
    EXPECT_TRUE(IsInOrder()) << body;
    EXPECT_NE(TextOf("a.cpp").find(" {\n    "), std::string::npos) << TextOf("a.cpp");
  }
  Write("a.cpp", "int F(int n) {\n  if (n > 0) {\n    return 1;\n  } else\n    return 2;\n}\n");
  EXPECT_FALSE(IsInOrder());
}

TEST_F(FormatScript, ACheckChangesNothing) {
  Write("a.cpp", "int  One();\n");
  EXPECT_FALSE(IsInOrder());
  EXPECT_EQ(TextOf("a.cpp"), "int  One();\n");
  EXPECT_TRUE(Run("scripts/format"));
  EXPECT_EQ(TextOf("a.cpp"), "int One();\n");
}

TEST_F(FormatScript, RefusesWhatItDoesNotUnderstand) {
  EXPECT_FALSE(Run("scripts/format --chekc"));
  EXPECT_EQ(TextOf("said"), "usage: scripts/format [--check]\n");
}

}  // namespace
}  // namespace dosmara
