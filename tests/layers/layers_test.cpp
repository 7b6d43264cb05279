// SPDX-License-Identifier: GPL-3.0-or-later
// The house rules that can be read off the source: which folder may include which, no toolkit in the core,
// no form that knows another, a licence line in each file.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kRoot = SOURCE_ROOT;

// Folders that each folder of src/ may include from. The simulated machine stands alone.
const std::map<std::string, std::set<std::string>> kMayInclude = {
    {"store", {"store"}},
    {"link", {"store", "link"}},
    {"controls", {"controls"}},
    {"shell", {"store", "link", "controls", "shell"}},
    {"fields", {"store", "link", "controls", "shell", "fields"}},
    {"forms", {"store", "link", "controls", "shell", "fields", "forms"}},
    {"app", {"store", "link", "controls", "shell", "fields", "forms", "app"}},
    {"machine", {"machine"}},
};

const std::set<std::string> kNoToolkit = {"store", "link", "machine"};

bool IsForm(const std::string& header) { return header.find("/frm_") != std::string::npos; }

// Why a file of `folder` at `path` must not include `header` (as written between quotes or angle brackets);
// empty when it may.
std::string Objection(const std::string& folder, const std::string& path, const std::string& header) {
  const std::string head = header.substr(0, header.find('/'));
  if (kNoToolkit.contains(folder) && (header[0] == 'Q' || head.starts_with("Qt"))) {
    return "the toolkit is out of bounds here";
  }
  if (kMayInclude.contains(head) && !kMayInclude.at(folder).contains(head)) {
    return "that layer lies above";
  }
  if (folder == "forms" && head == "forms" && IsForm(header)) {
    const std::string own = fs::path(header).stem().string();
    const std::string here = fs::path(path).stem().string();
    if (own != here && here != "form_list") {
      return "a form must not know another form";
    }
  }
  return {};
}

std::vector<fs::path> SourceFiles(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const std::string extension = entry.path().extension().string();
    if (extension == ".cpp" || extension == ".h") {
      files.push_back(entry.path());
    }
  }
  std::ranges::sort(files);
  return files;
}

std::vector<std::string> IncludesOf(const fs::path& file) {
  std::vector<std::string> includes;
  std::ifstream in(file);
  for (std::string line; std::getline(in, line);) {
    if (!line.starts_with("#include")) {
      continue;
    }
    const auto begin = line.find_first_of("\"<");
    const auto end = line.find_first_of("\">", begin + 1);
    if (begin != std::string::npos && end != std::string::npos) {
      includes.push_back(line.substr(begin + 1, end - begin - 1));
    }
  }
  return includes;
}

void ExpectNoObjection(const std::string& folder, const fs::path& root) {
  for (const fs::path& file : SourceFiles(root)) {
    for (const std::string& header : IncludesOf(file)) {
      EXPECT_EQ(Objection(folder, file.string(), header), "") << file << " includes " << header;
    }
  }
}

TEST(Layers, IncludesGoDownOnly) {
  for (const char* folder : {"store", "link", "controls", "shell", "fields", "forms", "app"}) {
    ExpectNoObjection(folder, kRoot / "src" / folder);
  }
}

TEST(Layers, WhatFormsAreBuiltOfNeedsOfTheShellTheCaptionsAndTheSettingsOfAForm) {
  const std::set<std::string> allowed = {"shell/caption_table.h", "shell/form.h"};
  for (const fs::path& file : SourceFiles(kRoot / "src" / "fields")) {
    for (const std::string& header : IncludesOf(file)) {
      EXPECT_TRUE(!header.starts_with("shell/") || allowed.contains(header))
          << file << " includes " << header;
    }
  }
}

TEST(Layers, OnlyThePlotOfTheStripChartKnowsTheLibraryThatDrawsIt) {
  for (const fs::path& file : SourceFiles(kRoot / "src")) {
    for (const std::string& header : IncludesOf(file)) {
      EXPECT_TRUE(header != "qcustomplot.h" || file.filename() == "chart_plot.cpp") << file;
    }
  }
}

TEST(Layers, TheMachineSharesNothingWithTheTool) { ExpectNoObjection("machine", kRoot / "machine"); }

TEST(Layers, AForbiddenIncludeIsSeen) {
  EXPECT_NE(Objection("store", "src/store/a.cpp", "link/frame.h"), "");
  EXPECT_NE(Objection("store", "src/store/a.cpp", "QString"), "");
  EXPECT_NE(Objection("link", "src/link/a.cpp", "QtCore/QTimer"), "");
  EXPECT_NE(Objection("controls", "src/controls/a.cpp", "store/parameter_table.h"), "");
  EXPECT_NE(Objection("shell", "src/shell/a.cpp", "fields/data_form.h"), "");
  EXPECT_NE(Objection("fields", "src/fields/a.cpp", "forms/form_list.h"), "");
  EXPECT_NE(Objection("machine", "machine/a.cpp", "link/frame.h"), "");
  EXPECT_NE(Objection("forms", "src/forms/beverage/frm_dosi.cpp", "forms/beverage/frm_tempi.h"), "");
}

TEST(Layers, AnAllowedIncludePasses) {
  EXPECT_EQ(Objection("link", "src/link/a.cpp", "store/parameter_table.h"), "");
  EXPECT_EQ(Objection("store", "src/store/a.cpp", "vector"), "");
  EXPECT_EQ(Objection("forms", "src/forms/beverage/frm_dosi.cpp", "forms/beverage/frm_dosi.h"), "");
  EXPECT_EQ(Objection("forms", "src/forms/form_list.cpp", "forms/beverage/frm_dosi.h"), "");
}

TEST(House, EverySourceFileStartsWithItsLicence) {
  for (const char* folder : {"src", "machine", "tools", "tests", "bench"}) {
    for (const fs::path& file : SourceFiles(kRoot / folder)) {
      std::string first;
      std::ifstream in(file);
      std::getline(in, first);
      EXPECT_EQ(first, "// SPDX-License-Identifier: GPL-3.0-or-later") << file;
    }
  }
}

TEST(House, NoTestSleeps) {
  const std::vector<std::string> sleeps = {"qWait(",  "qSleep(",    "msleep(",
                                           "usleep(", "sleep_for(", "sleep_until("};
  for (const char* folder : {"tests", "bench"}) {
    for (const fs::path& file : SourceFiles(kRoot / folder)) {
      if (file.filename() == "layers_test.cpp") {
        continue;
      }
      std::ifstream in(file);
      for (std::string line; std::getline(in, line);) {
        for (const std::string& sleep : sleeps) {
          EXPECT_EQ(line.find(sleep), std::string::npos) << file << ": " << line;
        }
      }
    }
  }
}

TEST(House, NoSourceFileIsLongerThan500LinesAndNoneOfTheToolLongerThan400) {
  for (const std::string folder : {"src", "machine", "tools", "tests", "bench"}) {
    for (const fs::path& file : SourceFiles(kRoot / folder)) {
      std::ifstream in(file);
      const auto lines = std::count(std::istreambuf_iterator<char>(in), {}, '\n');
      EXPECT_LE(lines, folder == "src" ? 400 : 500) << file;
    }
  }
}

std::string ContentsOf(const fs::path& file) {
  std::ifstream in(file);
  return {std::istreambuf_iterator<char>(in), {}};
}

// What stands between the end of `begin` and `end`, both of which are there.
std::string Between(const std::string& text, const std::string& begin, const std::string& end) {
  const std::size_t from = text.find(begin) + begin.size();
  return text.substr(from, text.find(end, from) - from);
}

TEST(House, TheFormOfTheGuideIsTheOneThatIsBuilt) {
  const std::string guide = Between(ContentsOf(kRoot / "ARCHITECTURE.md"), "```cpp\n", "```");
  const std::string built = Between(ContentsOf(kRoot / "tests" / "forms" / "guide_form_test.cpp"),
                                    "as in the guide.\n", "// So far as in the guide.");
  EXPECT_NE(guide.find("FrmServizio"), std::string::npos);
  EXPECT_EQ(guide, built);
}

}  // namespace
