// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/index_file.h"

namespace dosmara {
namespace {

// A kind of memory of a board: the high nibble of the control byte, and the first address. The nibble stays
// below 7: a frame to the main board begins with its control byte, and one that begins with 241 or more is
// passed on to another board. Control 0 at address 0 stays free: that frame tests a port.
struct Memory {
  std::uint8_t control;
  std::uint32_t first_address;
};
constexpr Memory kProgramMemory = {0x10, 0xF00000};
constexpr Memory kParameterMemory = {0x20, 0x000100};

constexpr int kValueBytes = 4;

}  // namespace

std::vector<std::uint8_t> IndexFileBytes(const BoardTable& table) {
  const Memory& memory = table.identification ? kProgramMemory : kParameterMemory;
  std::uint32_t address = memory.first_address;
  std::vector<std::uint8_t> bytes;
  for (const BoardRecord& record : table.records) {
    bytes.push_back(static_cast<std::uint8_t>(address));
    bytes.push_back(static_cast<std::uint8_t>(address >> 8));
    bytes.push_back(static_cast<std::uint8_t>(memory.control | (record.bytes - 1)));
    bytes.push_back(static_cast<std::uint8_t>(record.period));
    bytes.push_back(static_cast<std::uint8_t>(address >> 16));
    if (!table.identification) {
      for (int i = 0; i < kValueBytes; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(record.value >> (8 * i)));
      }
    }
    address += static_cast<std::uint32_t>(record.bytes);
  }
  return bytes;
}

std::string ExpandedTable(const BoardTable& table) {
  std::string text = "record\tname\tbytes\tperiod\tdefault\n";
  int number = 0;
  for (const BoardRecord& record : table.records) {
    text += std::to_string(++number) + "\t" + record.name + "\t" + std::to_string(record.bytes) + "\t" +
            std::to_string(record.period) + "\t" + std::to_string(record.value) + "\n";
  }
  return text;
}

}  // namespace dosmara
