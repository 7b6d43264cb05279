// SPDX-License-Identifier: GPL-3.0-or-later
// Board catalogue and index files: which boards the tool knows, what their index files are called, and how
// a file fills the tables. The two formats are laid out in docs/formats.md.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

#include "store/parameter_table.h"

namespace dosmara {

inline constexpr int kIdentEntries = 21;        // indices 0 to 20, 0 never filled
inline constexpr int kIdentEntriesNeeded = 18;  // identification reads up to entry 18
inline constexpr int kIdentEntryBytes = 11;     // laid out as the first 11 bytes of ParamRec

// What a board of each node must be (node 0) or is taken to be (nodes 1 to 3). Filled by InitNodeTables.
extern std::int16_t NodeType[kNodeCount];
extern std::int16_t NodeRevision[kNodeCount];
extern std::int16_t NodeFileNumber[kNodeCount];
// Destination letter in the frames of nodes 1 to 3; 0 for node 0.
extern char NodeLetter[kNodeCount];

// The identification records of each node, from its small index file.
extern std::array<std::uint8_t, kIdentEntryBytes> IdentTable[kNodeCount][kIdentEntries];

// Names of the family's models. Nothing reads the table; ModelCode is not an index into it.
extern std::string ModelNames[12];

// Fills NodeType, NodeRevision, NodeFileNumber and NodeLetter. Called once, before the link starts.
void InitNodeTables();

// Fills ModelNames. Called once at start.
void InitModelNames();

// "W0256.inx" for type 256.
std::string SmallIndexName(int board_type);

// "W0256AO01.inx" for type 256, revision 14, number 1. Only the last two digits of the number count.
std::string FullIndexName(int board_type, int revision, int file_number);

// Reads the small index file `name` in `folder` into IdentTable of `node` and sets NodeRecordCount to its
// number of records. The name matches without regard to case. Throws RunTimeError: kErrorFileNotFound when
// the file cannot be read, kErrorOutOfRange when it holds more records than IdentTable or fewer than
// identification needs; what() is the sentence for the operator.
void LoadSmallIndex(const std::filesystem::path& folder, const std::string& name, int node);

// Reads the full index file `name` in `folder` into ParamTable of `node` from index 1 and sets
// NodeRecordCount. Throws RunTimeError: kErrorFileNotFound when the file cannot be read, kErrorOverflow when
// it holds more records than NodeRecordCount can count; then nothing of the table has changed.
void LoadFullIndex(const std::filesystem::path& folder, const std::string& name, int node);

}  // namespace dosmara
