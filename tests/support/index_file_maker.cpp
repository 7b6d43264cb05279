// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/index_file_maker.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace dosmara {

namespace {

constexpr int kIdentPage = 0xFF;

std::uint8_t Byte(int value) { return static_cast<std::uint8_t>(value); }

}  // namespace

TempFolder::TempFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "dosmara-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw std::runtime_error("no temporary folder");
  }
  path_ = name;
}

TempFolder::~TempFolder() {
  std::error_code error;
  std::filesystem::remove_all(path_, error);
}

void TempFolder::Write(const std::string& name, const std::vector<std::uint8_t>& bytes) const {
  std::ofstream file(path_ / name, std::ios::binary);
  file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (!file) {
    throw std::runtime_error("cannot write " + name);
  }
}

std::vector<std::uint8_t> SmallIndexBytes(int count) {
  std::vector<std::uint8_t> bytes;
  for (int k = 1; k <= count; ++k) {
    bytes.insert(bytes.end(), {Byte(k), kIdentPage, 0, 0, 0});
  }
  return bytes;
}

std::vector<std::uint8_t> FullIndexBytes(int count, int length, int period) {
  std::vector<std::uint8_t> bytes;
  for (int k = 1; k <= count; ++k) {
    bytes.insert(bytes.end(), {Byte(k & 0xFF), Byte(k >> 8), Byte(length - 1), Byte(period), 0, 0, 0, 0, 0});
  }
  return bytes;
}

void WriteStandardBoards(const TempFolder& folder, int count) {
  for (const char* name : {"W0256.inx", "W0257.inx", "W0245.inx"}) {
    folder.Write(name, SmallIndexBytes(18));
  }
  for (const char* name : {"W0256AO01.inx", "W0257AC01.inx", "W0245AB00.inx", "W0245AC00.inx"}) {
    folder.Write(name, FullIndexBytes(count));
  }
}

void Identify(SimulatedBoard& board, int node, const BoardFacts& facts) {
  const auto set = [&](int entry, int value) {
    board.Set(node, kIdentPage * 256 + entry, static_cast<std::uint64_t>(value));
  };
  set(1, 1);
  set(11, facts.revision);
  set(12, facts.code);
  set(13, facts.type & 0xFF);
  set(14, facts.type >> 8);
  set(17, facts.file_number);
  set(18, facts.model);
}

void IdentifyStandardBoards(SimulatedBoard& board) {
  Identify(board, 0, {.file_number = 1, .revision = 14, .code = 18, .type = 256, .model = 25});
  Identify(board, 1, {.file_number = 1, .revision = 2, .type = 257});
  Identify(board, 2, {.file_number = 0, .revision = 1, .type = 245});
  Identify(board, 3, {.file_number = 0, .revision = 2, .type = 245});
}

}  // namespace dosmara
