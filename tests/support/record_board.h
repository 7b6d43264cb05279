// SPDX-License-Identifier: GPL-3.0-or-later
// The simulated machine by the records of the tool's table: for tests that do not care where a record lies in
// the memory of its board.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <utility>

#include "support/simulated_board.h"

namespace dosmara {

// A request of the tool for a record.
struct RecordRequest {
  microseconds time;  // at which it was given to the line
  int node;
  int record;
  bool write;
  std::uint64_t value;  // of a write
};
void PrintTo(const RecordRequest& request, std::ostream* out);

class RecordBoard : public LineBoard {
 public:
  // Takes the records of ParamTable: where each lies, and the value that its index file gives it.
  void TakeTable();

  std::uint64_t Get(int node, int record) const { return memory_.Get(node, AddressOf(node, record)); }
  // Changes a record behind the tool's back.
  void Set(int node, int record, std::uint64_t value) { memory_.Set(node, AddressOf(node, record), value); }

  // Takes the board of a node off the line, and puts it back.
  void Silence(int node) { memory_.absent.insert(node); }
  void Answer(int node) { memory_.absent.erase(node); }
  // From now on a write to the record is confirmed as ever, but its value stays what it is.
  void Refuse(int node, int record) { refused_.insert({node, AddressOf(node, record)}); }

  // What a frame of the tool asks for; empty when it is for no record of the table.
  std::optional<RecordRequest> Read(const VirtualHost::Frame& frame) const;

  void Receive(const Bytes& frame, VirtualHost& line) override;

 private:
  using Place = std::pair<int, int>;  // node and address

  static int AddressOf(int node, int record);

  SimulatedBoard memory_;
  std::set<Place> refused_;
  std::map<Place, int> records_;  // which record lies there
};

}  // namespace dosmara
