// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/index_files.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <limits>
#include <span>
#include <string_view>
#include <vector>

#include "store/failure.h"

namespace dosmara {

std::int16_t NodeType[kNodeCount];
std::int16_t NodeRevision[kNodeCount];
std::int16_t NodeFileNumber[kNodeCount];
char NodeLetter[kNodeCount];
std::array<std::uint8_t, kIdentEntryBytes> IdentTable[kNodeCount][kIdentEntries];
std::string ModelNames[12];

namespace {

constexpr std::size_t kSmallRecordBytes = 5;
constexpr std::size_t kFullRecordBytes = 9;
constexpr std::size_t kMostRecords = std::numeric_limits<std::int16_t>::max();
constexpr std::uint8_t kBlank = ' ';

bool SameLetters(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; };
  return std::ranges::equal(a, b, {}, lower, lower);
}

// The path of the file `name`, or of one whose name differs only in case: the files come from systems that
// make no difference. Empty if there is none.
std::filesystem::path FindFile(const std::filesystem::path& folder, const std::string& name) {
  std::filesystem::path found;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string entry_name = entry->path().filename().string();
    if (!SameLetters(entry_name, name) || !entry->is_regular_file(error)) {
      continue;
    }
    found = entry->path();
    if (entry_name == name) {
      break;
    }
  }
  return found;
}

// The whole records of a file; what is left behind the last one is ignored. At most one record more than
// `most_records` is read, by which the caller knows that there are too many.
std::vector<std::uint8_t> ReadRecords(const std::filesystem::path& folder, const std::string& name,
                                      std::size_t record_bytes, std::size_t most_records) {
  const std::filesystem::path path = FindFile(folder, name);
  std::ifstream file(path, std::ios::binary);
  if (path.empty() || !file) {
    throw RunTimeError(kErrorFileNotFound, name + " not found !");
  }
  std::vector<std::uint8_t> bytes((most_records + 1) * record_bytes);
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (file.bad()) {
    throw RunTimeError(kErrorFileNotFound, name + " not found !");
  }
  const auto count = static_cast<std::size_t>(file.gcount()) / record_bytes;
  bytes.resize(count * record_bytes);
  return bytes;
}

}  // namespace

void InitNodeTables() {
  constexpr std::int16_t kTypes[kNodeCount] = {256, 257, 245, 245};
  constexpr std::int16_t kRevisions[kNodeCount] = {14, 2, 1, 2};
  constexpr std::int16_t kFileNumbers[kNodeCount] = {1, 1, 0, 0};
  constexpr char kLetters[kNodeCount] = {0, 'Q', 'V', 'W'};
  std::ranges::copy(kTypes, NodeType);
  std::ranges::copy(kRevisions, NodeRevision);
  std::ranges::copy(kFileNumbers, NodeFileNumber);
  std::ranges::copy(kLetters, NodeLetter);
}

void InitModelNames() {
  constexpr const char* kNames[] = {
      "Kelmar", "Lumeno", "Corvane",        "Zeth",        "Lumeno S",         "Corvane S",
      "Brevo",  "Galdo",  "Lumeno Nord EU", "Zeth Kestra", "Lumeno S Nord EU", "Corvane Plus"};
  static_assert(std::size(kNames) == std::size(ModelNames));
  std::ranges::copy(kNames, ModelNames);
}

std::string SmallIndexName(int board_type) {
  char name[32];
  std::snprintf(name, sizeof name, "W%04d.inx", board_type);
  return name;
}

std::string FullIndexName(int board_type, int revision, int file_number) {
  char name[48];
  const int size = std::snprintf(name, sizeof name, "W%04dA%c%02d.inx", board_type,
                                 static_cast<char>('A' + revision), file_number % 100);
  return std::string(name, static_cast<std::size_t>(size));
}

void LoadSmallIndex(const std::filesystem::path& folder, const std::string& name, int node) {
  NodeRecordCount[node] = 0;
  const std::vector<std::uint8_t> bytes = ReadRecords(folder, name, kSmallRecordBytes, kIdentEntries - 1);
  const std::size_t count = bytes.size() / kSmallRecordBytes;
  if (count < kIdentEntriesNeeded || count >= kIdentEntries) {
    throw RunTimeError(kErrorOutOfRange, name + " is damaged: it must hold 18 to 20 records");
  }
  const std::uint8_t* from = bytes.data();
  for (std::size_t k = 1; k <= count; ++k, from += kSmallRecordBytes) {
    // AddrLo, AddrHi, Control, Period, then Subscribers and Flags, Bank, and a value of zero.
    IdentTable[node][k] = {from[0], from[1], from[2], from[3], 0, 0, from[4], 0, 0, 0, 0};
  }
  NodeRecordCount[node] = static_cast<std::int16_t>(count);
}

void LoadFullIndex(const std::filesystem::path& folder, const std::string& name, int node) {
  const std::vector<std::uint8_t> bytes = ReadRecords(folder, name, kFullRecordBytes, kMostRecords);
  const std::size_t count = bytes.size() / kFullRecordBytes;
  if (count > kMostRecords) {
    throw RunTimeError(kErrorOverflow, name + " is damaged: it holds more than 32767 records");
  }
  const std::uint8_t* from = bytes.data();
  for (std::size_t k = 1; k <= count; ++k, from += kFullRecordBytes) {
    ParamRec& record = ParamTable[node][k];
    record = {.AddrLo = from[0],
              .AddrHi = from[1],
              .Control = from[2],
              .Period = from[3],
              .Subscribers = 0,
              .Flags = 0,
              .Bank = from[4],
              .Value = {from[5], from[6], from[7], from[8]},
              .Padding = {}};
    std::ranges::fill(record.Padding, kBlank);
  }
  NodeRecordCount[node] = static_cast<std::int16_t>(count);
}

}  // namespace dosmara
