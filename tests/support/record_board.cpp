// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/record_board.h"

#include "store/parameter_table.h"

namespace dosmara {

void PrintTo(const RecordRequest& request, std::ostream* out) {
  *out << request.time.count() / 1000.0 << " ms: node " << request.node << " record " << request.record;
  if (request.write) {
    *out << " := " << request.value;
  }
}

void RecordBoard::TakeTable() {
  for (int node = 0; node < kNodeCount; ++node) {
    for (int record = 1; record <= NodeRecordCount[node]; ++record) {
      records_[{node, AddressOf(node, record)}] = record;
      Set(node, record, static_cast<std::uint64_t>(ParamGet(record, node)));
    }
  }
}

std::optional<RecordRequest> RecordBoard::Read(const VirtualHost::Frame& frame) const {
  const std::optional<BoardRequest> request = ReadFrame(frame.bytes);
  if (!request) {
    return std::nullopt;
  }
  const auto place = records_.find({request->node, request->address});
  if (place == records_.end()) {
    return std::nullopt;
  }
  std::uint64_t value = 0;
  for (std::size_t i = request->data.size(); i-- > 0;) {
    value = value << 8 | request->data[i];
  }
  return RecordRequest{frame.time, request->node, place->second, request->write, value};
}

void RecordBoard::Receive(const Bytes& frame, VirtualHost& line) {
  const std::optional<BoardRequest> request = ReadFrame(frame);
  const bool refused = request && request->write && refused_.contains({request->node, request->address});
  const std::uint64_t held = refused ? memory_.Get(request->node, request->address) : 0;
  memory_.Receive(frame, line);
  if (refused) {
    memory_.Set(request->node, request->address, held);
  }
}

int RecordBoard::AddressOf(int node, int record) {
  const ParamRec& place = ParamTable[node][record];
  return place.AddrHi * 256 + place.AddrLo;
}

}  // namespace dosmara
