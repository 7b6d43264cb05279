// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/board_files.h"

#include <fstream>
#include <iterator>
#include <string>

namespace machine {
namespace {

constexpr std::size_t kSmallRow = 5;
constexpr std::size_t kFullRow = 9;

// The index files of the two units are alike. A technician has set the second one up for warmer goods.
struct OwnSetting {
  int record;
  int mirror;  // 0 for none
  std::uint32_t value;
};
constexpr OwnSetting kSecondUnit[] = {
    {51, 266, 8},       // degrees wanted
    {53, 268, 30},      // hysteresis
    {56, 271, 4},       // hours between defrosts
    {57, 272, 10},      // minutes that a defrost takes
    {287, 0, 9 * 256},  // raw temperature
};

Bytes ReadWhole(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw FileError(path.string() + ": cannot be read");
  }
  return Bytes(std::istreambuf_iterator<char>(file), {});
}

Address AddressOf(const std::uint8_t* row) {
  return {.bank = row[4], .high = row[1], .low = row[0], .control = row[2]};
}

[[noreturn]] void RefuseRow(const std::filesystem::path& path, std::size_t row) {
  throw FileError(path.string() + ": row " + std::to_string(row + 1) + " lies at an address already taken");
}

}  // namespace

Boards LoadBoards(const std::filesystem::path& directory) {
  Boards boards;
  for (std::size_t node = 0; node < boards.size(); ++node) {
    const BoardKind& kind = kBoardKinds[node];
    const auto small_path = directory / kind.small_file;
    const Bytes small = ReadWhole(small_path);
    for (std::size_t row = 0; row < small.size() / kSmallRow; ++row) {
      if (!boards[node].AddIdentification(AddressOf(&small[row * kSmallRow]))) {
        RefuseRow(small_path, row);
      }
    }
    const auto full_path = directory / (std::string(kind.full_file) + ".inx");
    const Bytes full = ReadWhole(full_path);
    if (full.empty()) {
      throw FileError(full_path.string() + ": holds no records");
    }
    if (full.size() % kFullRow != 0) {
      throw FileError(full_path.string() + ": ends within a record");
    }
    for (std::size_t row = 0; row < full.size() / kFullRow; ++row) {
      const std::uint8_t* bytes = &full[row * kFullRow];
      std::uint32_t value = 0;
      for (int i = 0; i < 4; ++i) {
        value |= std::uint32_t{bytes[5 + i]} << (8 * i);
      }
      if (!boards[node].AddRecord(AddressOf(bytes), value)) {
        RefuseRow(full_path, row);
      }
    }
    boards[node].SetIdentity(kind.identity);
  }
  for (const OwnSetting& own : kSecondUnit) {
    for (const int record : {own.record, own.mirror}) {
      boards[3].Set(record, own.value);
    }
  }
  return boards;
}

}  // namespace machine
