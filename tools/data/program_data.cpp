// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/program_data.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "data/board_table.h"
#include "data/caption_file.h"
#include "data/index_file.h"
#include "data/table_file.h"

namespace dosmara {
namespace {

// File name to content, gathered first so that a mistake in any table leaves nothing half written.
using Files = std::map<std::string, std::string>;

void WriteFiles(const Files& files, const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder);
  for (const auto& [name, content] : files) {
    std::ofstream stream(folder / name, std::ios::binary);
    stream << content;
    if (!stream.flush()) {
      throw TableError(folder / name, 1, "cannot be written");
    }
  }
}

}  // namespace

void BuildBoards(const std::filesystem::path& tables, const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(tables)) {
    if (entry.path().extension() == ".tsv") {
      paths.push_back(entry.path());
    }
  }
  std::sort(paths.begin(), paths.end());

  Files files;
  for (const auto& path : paths) {
    const BoardTable table = ReadBoardTable(path);
    const std::vector<std::uint8_t> bytes = IndexFileBytes(table);
    for (const std::string& name : table.files) {
      if (!files.emplace(name + ".inx", std::string(bytes.begin(), bytes.end())).second) {
        throw TableError(path, 1, "another table makes '" + name + "' already");
      }
      files.emplace(name + ".tsv", ExpandedTable(table));
    }
  }
  WriteFiles(files, folder);
}

void BuildCaptions(const std::filesystem::path& captions, const std::filesystem::path& folder) {
  Files files;
  for (const Language& language : ReadCaptions(captions)) {
    std::string text;
    for (const std::string& line : language.lines) {
      text += line + "\n";
    }
    files.emplace(language.name + ".lng", text);
  }
  WriteFiles(files, folder);
}

}  // namespace dosmara
