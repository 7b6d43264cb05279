// SPDX-License-Identifier: GPL-3.0-or-later
// What one board holds: its records by number, its identification by entry, and both by address.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "machine/frame_reader.h"

namespace machine {

// The longest value that a read can ask for.
inline constexpr std::size_t kMaxValueBytes = 16;

// One value at one address. `number` is the record number, or the entry of the identification.
struct Cell {
  bool identification = false;
  int number = 0;
  Address address;
  std::array<std::uint8_t, kMaxValueBytes> bytes{};
};

// What a board says of itself, each as one byte on the wire.
struct Identity {
  int board_code = 18;
  int type = 0;
  int revision = 0;
  int file_number = 0;
  int model = 0;
};

class Board {
 public:
  // Adds the next record, numbered from 1 up, with its value at switch-on. False when the address is taken.
  [[nodiscard]] bool AddRecord(const Address& address, std::uint32_t value);
  // Adds the next entry of the identification, numbered from 1 up. False when the address is taken.
  [[nodiscard]] bool AddIdentification(const Address& address);
  // Stores `identity` into the entries of the identification.
  void SetIdentity(const Identity& identity);
  const Identity& identity() const { return identity_; }

  // The value at an address, or null when the board has nothing there. It stays where it is once all
  // records have been added.
  Cell* Find(const Address& address);

  bool HasRecord(int number) const { return number >= 1 && number <= record_count(); }
  int record_count() const { return static_cast<int>(records_.size()); }

  // The low four bytes of a record, or 0 for one that the board does not have.
  std::uint32_t Get(int number) const;
  // Stores a value; a record that the board does not have is passed over.
  void Set(int number, std::uint32_t value);
  // Adds to a record; a count that would not fit stops at the largest value.
  void Add(int number, std::uint32_t amount);
  // The largest value that fits the record.
  std::uint32_t Largest(int number) const;

 private:
  // Places in cells_.
  using Index = std::size_t;

  // Adds a cell and notes its place. False when the address is taken.
  bool Register(const Cell& cell, std::vector<Index>& places);
  const Cell& At(int number) const { return cells_[records_[static_cast<std::size_t>(number) - 1]]; }

  std::vector<Cell> cells_;
  std::map<Address, Index> by_address_;
  std::vector<Index> records_;
  std::vector<Index> identification_;
  Identity identity_;
};

// The four boards of a machine, by node.
using Boards = std::array<Board, kNodeCount>;

}  // namespace machine
