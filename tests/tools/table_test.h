// SPDX-License-Identifier: GPL-3.0-or-later
// A folder of its own for tables that a test writes, and the words of the mistake that reading one raises.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "data/table_file.h"

namespace dosmara {

inline std::string ReadWhole(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// A table that must be refused, and the line and words of the refusal.
struct Mistake {
  std::string name;  // of the test
  std::string table;
  std::string complaint;
};

inline std::string MistakeName(const testing::TestParamInfo<Mistake>& mistake) { return mistake.param.name; }

class TableTest : public testing::Test {
 protected:
  TableTest() {
    std::string pattern = (std::filesystem::temp_directory_path() / "dosmara-tables-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
  }
  ~TableTest() override { std::filesystem::remove_all(folder_); }

  // Writes a table; '|' stands for the tab between two cells.
  std::filesystem::path Table(std::string text, const std::string& name = "t.tsv") const {
    for (char& c : text) {
      if (c == '|') {
        c = '\t';
      }
    }
    const auto path = folder_ / name;
    std::ofstream(path) << text;
    return path;
  }

  // What `read` complains of, without the folder: "t.tsv:3: ..."; empty when it has no complaint.
  template <typename Read>
  std::string Complaint(Read read) const {
    try {
      read();
    } catch (const TableError& mistake) {
      return std::string(mistake.what()).substr(folder_.string().size() + 1);
    }
    return {};
  }

  std::filesystem::path folder_;
};

}  // namespace dosmara
