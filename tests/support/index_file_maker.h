// SPDX-License-Identifier: GPL-3.0-or-later
// Index files for tests, and a folder to put them in.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "support/simulated_board.h"

namespace dosmara {

// A folder of its own for one test, removed with everything in it.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  // Writes a whole file.
  void Write(const std::string& name, const std::vector<std::uint8_t>& bytes) const;

 private:
  std::filesystem::path path_;
};

// Bytes of a small index file: `count` one-byte records at address 0xFF00 + k, k from 1 up.
std::vector<std::uint8_t> SmallIndexBytes(int count);

// Bytes of a full index file: `count` records of `length` bytes at address k, default 0.
std::vector<std::uint8_t> FullIndexBytes(int count, int length = 1, int period = 0);

// The small and full index files of all four boards, `count` one-byte records each.
void WriteStandardBoards(const TempFolder& folder, int count);

// What a board says of itself.
struct BoardFacts {
  int file_number = 0;
  int revision = 0;
  int code = 18;
  int type = 0;
  int model = 25;
};

// Puts the identification records of a board at the addresses that SmallIndexBytes uses.
void Identify(SimulatedBoard& board, int node, const BoardFacts& facts);

// All four boards as the standard index files name them.
void IdentifyStandardBoards(SimulatedBoard& board);

}  // namespace dosmara
