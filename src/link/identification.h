// SPDX-License-Identifier: GPL-3.0-or-later
// Finding the port with a board on it, learning which boards are on the line, refusing a main board that
// this program does not fit, and loading the index files that match.
#pragma once

#include <cstdint>
#include <filesystem>

namespace dosmara {

inline constexpr int kFirstPort = 1;
inline constexpr int kLastPort = 4;
inline constexpr int kBoardCode = 18;    // what the main board must report
inline constexpr int kLowestModel = 23;  // lowest ModelCode that the tool accepts

// The serial port in use, 1 to 4; 0 until the settings are read.
extern std::uint8_t PortNumber;

// Board model of node 0. Forms branch on it.
extern std::int16_t ModelCode;

// What a board reported of itself.
struct BoardIdentity {
  int file_number = 0;
  int revision = 0;
  int board_code = 0;
  int board_type = 0;
};

// Opens `port` and tests it for a board; 0 takes the port of the settings file. Tries the ports 1 to 4 up
// to twice, then tells the operator and throws ProgramEnds. Called at start and by the port menu.
void LinkOpenPort(int port);

// Reads the identification records of `node` and sets NodePresent; for node 0 also ModelCode. Returns at
// the first silence of a node other than 0. A main board that stays silent or does not fit ends the program:
// tells the operator and throws ProgramEnds. A number that is no node stops the program.
BoardIdentity BoardIdentify(int node);

// Loads the index files in `folder`: the small file of every node, then the full file of each node that
// answers. Tells the operator of a missing file and throws ProgramEnds.
void ParamLoadIndex(const std::filesystem::path& folder);

// The whole start of the link, as FrmSer's load runs it: port, boards, index files, Timer1. Turns the
// failures that reach it into their boxes and throws ProgramEnds.
void LinkStart(const std::filesystem::path& folder);

}  // namespace dosmara
