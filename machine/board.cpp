// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/board.h"

#include <algorithm>
#include <utility>

namespace machine {
namespace {

void StoreLittleEndian(std::uint32_t value, Cell& cell) {
  cell.bytes.fill(0);
  const std::size_t width = std::min<std::size_t>(cell.address.length(), sizeof value);
  for (std::size_t i = 0; i < width; ++i) {
    cell.bytes[i] = static_cast<std::uint8_t>(value >> (8 * i));
  }
}

}  // namespace

bool Board::AddRecord(const Address& address, std::uint32_t value) {
  Cell cell{.number = record_count() + 1, .address = address};
  StoreLittleEndian(value, cell);
  return Register(cell, records_);
}

bool Board::AddIdentification(const Address& address) {
  const int entry = static_cast<int>(identification_.size()) + 1;
  return Register({.identification = true, .number = entry, .address = address}, identification_);
}

void Board::SetIdentity(const Identity& identity) {
  identity_ = identity;
  const std::pair<std::size_t, int> entries[] = {{11, identity.revision},    {12, identity.board_code},
                                                 {13, identity.type & 255},  {14, identity.type >> 8},
                                                 {17, identity.file_number}, {18, identity.model}};
  for (const auto& [entry, value] : entries) {
    if (entry > identification_.size()) {
      continue;
    }
    cells_[identification_[entry - 1]].bytes[0] = static_cast<std::uint8_t>(value);
  }
}

Cell* Board::Find(const Address& address) {
  const auto found = by_address_.find(address);
  return found == by_address_.end() ? nullptr : &cells_[found->second];
}

std::uint32_t Board::Get(int number) const {
  if (!HasRecord(number)) {
    return 0;
  }
  const Cell& cell = At(number);
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < sizeof value; ++i) {
    value |= std::uint32_t{cell.bytes[i]} << (8 * i);
  }
  return value;
}

void Board::Set(int number, std::uint32_t value) {
  if (!HasRecord(number)) {
    return;
  }
  StoreLittleEndian(value, cells_[records_[static_cast<std::size_t>(number) - 1]]);
}

void Board::Add(int number, std::uint32_t amount) {
  if (!HasRecord(number)) {
    return;
  }
  const std::uint32_t value = Get(number);
  Set(number, value + std::min(amount, Largest(number) - value));
}

std::uint32_t Board::Largest(int number) const {
  const std::size_t width = std::min<std::size_t>(At(number).address.length(), sizeof(std::uint32_t));
  return UINT32_MAX >> (8 * (sizeof(std::uint32_t) - width));
}

bool Board::Register(const Cell& cell, std::vector<Index>& places) {
  if (!by_address_.emplace(cell.address, cells_.size()).second) {
    return false;
  }
  places.push_back(cells_.size());
  cells_.push_back(cell);
  return true;
}

}  // namespace machine
