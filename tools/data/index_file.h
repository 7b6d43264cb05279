// SPDX-License-Identifier: GPL-3.0-or-later
// Index files: what the tool learns of a board's memory. One row of bytes for each record, in order:
//
//   Offset  Width  Meaning
//        0      1  address, low byte
//        1      1  address, high byte
//        2      1  control: low nibble length less one, high nibble kind of memory
//        3      1  polling period
//        4      1  address, bank
//        5      4  default, least significant byte first; not in files of identification records
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/board_table.h"

namespace dosmara {

// The bytes of the table's index files. Records lie one behind the other in the board's memory, those of
// identification in its program memory, so that no two share an address.
std::vector<std::uint8_t> IndexFileBytes(const BoardTable& table);

// The table with one row for each record and no ranges, mirrors or braces: what each record of the index
// file is called, for whoever shows frames to people.
std::string ExpandedTable(const BoardTable& table);

}  // namespace dosmara
