// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the maps of the boards from index files, the same files that the service tool loads.
//
//   small file, one row of 5 bytes for each identification entry   low high control period bank
//   full file, one row of 9 bytes for each record                  low high control period bank value(4)
//
// Neither has a header. A rest at the end of a small file that is no whole row is passed over; a full file
// that is empty or ends within a row is refused. Values are least significant byte first. The period means
// nothing to the machine.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string_view>

#include "machine/board.h"

namespace machine {

// One kind of board, as this machine has it built in.
struct BoardKind {
  std::string_view small_file;
  std::string_view full_file;  // without its ending, which is also the name of its table of record names
  Identity identity;
};

// The kind of the board at each node. The units at nodes 2 and 3 differ in their revision.
inline constexpr BoardKind kBoardKinds[kNodeCount] = {
    {"W0256.inx", "W0256AO01", {.type = 256, .revision = 14, .file_number = 1, .model = 25}},
    {"W0257.inx", "W0257AC01", {.type = 257, .revision = 2, .file_number = 1}},
    {"W0245.inx", "W0245AB00", {.type = 245, .revision = 1, .file_number = 0}},
    {"W0245.inx", "W0245AC00", {.type = 245, .revision = 2, .file_number = 0}},
};

// A file that is missing or cannot serve, with a message that names it.
struct FileError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Loads all four boards from the index files in `directory`. The cooling of the unit at
// node 3 has settings of its own, so that the two can be told apart. Throws FileError.
Boards LoadBoards(const std::filesystem::path& directory);

}  // namespace machine
