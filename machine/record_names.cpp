// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/record_names.h"

#include <fstream>

#include "machine/board_files.h"
#include "machine/text.h"

namespace machine {

RecordNames RecordNames::Load(const std::filesystem::path& directory) {
  RecordNames names;
  for (std::size_t node = 0; node < names.names_.size(); ++node) {
    std::ifstream table(directory / (std::string(kBoardKinds[node].full_file) + ".tsv"));
    for (std::string row; std::getline(table, row);) {
      const auto number_end = row.find('\t');
      const auto record = Number(std::string_view(row).substr(0, number_end), 1, 33000);
      if (!record || number_end == std::string::npos) {
        continue;  // the header row
      }
      const auto name_end = row.find('\t', number_end + 1);
      names.names_[node][static_cast<int>(*record)] = row.substr(number_end + 1, name_end - number_end - 1);
    }
  }
  return names;
}

std::string RecordNames::NameOf(int node, int record) const {
  const auto& names = names_[static_cast<std::size_t>(node)];
  const auto found = names.find(record);
  return found == names.end() ? std::string() : found->second;
}

}  // namespace machine
