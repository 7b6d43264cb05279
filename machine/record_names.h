// SPDX-License-Identifier: GPL-3.0-or-later
// What the records are called, for the frame log.
#pragma once

#include <array>
#include <filesystem>
#include <map>
#include <string>

#include "machine/frame_reader.h"

namespace machine {

class RecordNames {
 public:
  // Reads the table beside each full index file, such as "W0256AO01.tsv" in `directory`: columns parted by
  // tabs, the first the record number, the second its name. A board without a table has no names.
  static RecordNames Load(const std::filesystem::path& directory);

  // The name of a record, or nothing.
  std::string NameOf(int node, int record) const;

 private:
  std::array<std::map<int, std::string>, kNodeCount> names_;
};

}  // namespace machine
