// SPDX-License-Identifier: GPL-3.0-or-later
// A machine with its own boards, and a service tool that has nothing but the serial line: it makes its frames
// from the index files, one exchange every 40 ms, and reads what it waits for.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <numeric>
#include <string>

#include "machine/board_files.h"
#include "machine/machine.h"

namespace machine {

using namespace std::chrono_literals;

class SessionTest : public testing::Test {
 protected:
  SessionTest() {
    const char* const names[] = {"W0256AO01.inx", "W0257AC01.inx", "W0245AB00.inx", "W0245AC00.inx"};
    for (std::size_t node = 0; node < 4; ++node) {
      std::ifstream file(std::filesystem::path(MACHINE_BOARDS) / names[node], std::ios::binary);
      rows_[node].assign(std::istreambuf_iterator<char>(file), {});
    }
  }

  // The value of a record as it comes over the line.
  std::uint32_t Read(int node, int record) {
    const Row row = RowOf(node, record);
    Bytes frame = {row.control, row.bank, row.high, row.low};
    if (node != 0) {
      frame = {241, row.bank, row.high, row.low, row.control, LetterOf(node)};
    }
    const Bytes reply = Exchange(frame);
    const std::size_t length = row.control % 16u + 1u;
    EXPECT_EQ(reply.size(), length + 1) << "node " << node << " record " << record;
    if (reply.size() != length + 1) {
      return 0;
    }
    EXPECT_EQ(reply.back(), Sum(Bytes(reply.begin(), reply.end() - 1)));
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < length; ++i) {
      value |= std::uint32_t{reply[i]} << (8 * i);
    }
    return value;
  }

  // Writes a record over the line and waits for its echo.
  void Write(int node, int record, std::uint32_t value) {
    const Row row = RowOf(node, record);
    const auto write = static_cast<std::uint8_t>(row.control | 128);
    Bytes frame = {write, row.bank, row.high, row.low};
    const auto marker = static_cast<std::uint8_t>(242 + row.control % 16);
    if (node != 0) {
      frame = {marker, row.bank, row.high, row.low, write, LetterOf(node)};
    }
    for (int i = 0; i <= row.control % 16; ++i) {
      frame.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
    const auto check = Sum(frame);
    EXPECT_EQ(Exchange(frame), Bytes{static_cast<std::uint8_t>(check << 1)})
        << "node " << node << " record " << record;
  }

  // A setting and its mirror, as the tool writes them.
  void WriteBoth(int node, int record, int mirror, std::uint32_t value) {
    Write(node, record, value);
    Write(node, mirror, value);
  }

  // Reads a record again and again. True once the masked bits are as wanted, false after `deadline`.
  bool Becomes(int node, int record, std::uint32_t mask, std::uint32_t wanted, Time deadline = 10s) {
    const Time end = machine_.now() + deadline;
    while (machine_.now() < end) {
      if ((Read(node, record) & mask) == wanted) {
        return true;
      }
    }
    return false;
  }

  void Pass(Time time) { machine_.AdvanceTo(machine_.now() + time); }

  Machine machine_{LoadBoards(MACHINE_BOARDS), 1};

 private:
  struct Row {
    std::uint8_t low, high, control, bank;
  };

  Row RowOf(int node, int record) const {
    const Bytes& rows = rows_[static_cast<std::size_t>(node)];
    const std::size_t begin = (static_cast<std::size_t>(record) - 1) * 9;
    return {rows.at(begin), rows.at(begin + 1), rows.at(begin + 2), rows.at(begin + 4)};
  }

  static std::uint8_t LetterOf(int node) { return static_cast<std::uint8_t>(" QVW"[node]); }

  static std::uint8_t Sum(const Bytes& bytes) {
    return static_cast<std::uint8_t>(std::accumulate(bytes.begin(), bytes.end(), 0));
  }

  Bytes Exchange(Bytes frame) {
    frame.push_back(Sum(frame));
    machine_.Receive(frame);
    Pass(40ms);
    Bytes reply;
    for (const SentByte& sent : machine_.TakeSent()) {
      reply.push_back(sent.byte);
    }
    return reply;
  }

  std::array<Bytes, 4> rows_;
};

}  // namespace machine
