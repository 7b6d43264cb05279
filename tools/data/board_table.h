// SPDX-License-Identifier: GPL-3.0-or-later
// The tables under data/boards, one for each kind of board. A table opens with two rows:
//
//   files   W0245AB00  W0245AC00                   the index files that it makes, all alike
//   record  name       bytes      period  default  the columns
//
// and goes on with one row for a record or for a range of them:
//
//   record   7, 4-11, or with a step 142-196/6
//   name     words for a frame log; see ExpandName for what may stand in braces
//   bytes    data length, 1 to 4
//   period   polling period, 0 for a record that is read once
//   default  one value for all records of the row, or one for each of them, parted by blanks
//
// A row of two cells, "203-276" and "mirror of 1-74", stands for the unpolled twins of other records.
// A table of identification records, with files such as "W0256", has no default column.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace dosmara {

struct BoardRecord {
  std::string name;
  int bytes = 0;
  int period = 0;
  std::uint32_t value = 0;
};

struct BoardTable {
  std::vector<std::string> files;  // without their ending
  bool identification = false;
  std::vector<BoardRecord> records;  // record 1 first
};

// Reads and checks a board's table. Throws TableError at the first mistake.
BoardTable ReadBoardTable(const std::filesystem::path& file);

// The name of record `index`, counted from 0, of a row. {n} counts from 1, {n+30} and {n-1} from elsewhere;
// {selection} is the number of a selection (1 to 16, 21 to 26); {position} the row and column of a unit's
// position (11 to 68).
std::string ExpandName(const std::string& pattern, int index);

}  // namespace dosmara
