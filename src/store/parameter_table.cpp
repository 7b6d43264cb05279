// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/parameter_table.h"

#include <cmath>
#include <string>

#include "store/failure.h"

namespace dosmara {

ParamRec ParamTable[kNodeCount][kLastRecord + 1];
std::uint8_t NodeIndex;
bool NodePresent[kNodeCount];
std::int16_t NodeRecordCount[kNodeCount];
double ParamScratch;
std::uint32_t ParamRequests;

namespace {

constexpr double kValueLimit = 2147483648.0;
constexpr int kMostSubscribers = 255;

[[noreturn]] void Stop(const char* operation, const char* reason, int index, int node) {
  StopProgram(std::string(operation) + ": " + reason + " (record " + std::to_string(index) + " of node " +
              std::to_string(node) + ")");
}

void CheckNode(const char* operation, int index, int node) {
  if (node < 0 || node >= kNodeCount) {
    Stop(operation, "no such node", index, node);
  }
}

// The record of `index`, from `lowest` up, of a node that has been checked.
ParamRec& Record(const char* operation, int index, int node, int lowest) {
  if (index < lowest || index > kLastRecord) {
    Stop(operation, "no such record", index, node);
  }
  return ParamTable[node][index];
}

}  // namespace

void ParamSubscribe(int index) {
  ++ParamRequests;
  CheckNode("ParamSubscribe", index, NodeIndex);
  if (!NodePresent[NodeIndex]) {
    return;
  }
  ParamRec& record = Record("ParamSubscribe", index, NodeIndex, 1);
  if (record.Subscribers == kMostSubscribers) {
    Stop("ParamSubscribe", "more subscribers than the record can count", index, NodeIndex);
  }
  ++record.Subscribers;
  record.Flags |= kDue | kWanted;
}

void ParamUnsubscribe(int index) {
  ++ParamRequests;
  CheckNode("ParamUnsubscribe", index, NodeIndex);
  if (!NodePresent[NodeIndex]) {
    return;
  }
  ParamRec& record = Record("ParamUnsubscribe", index, NodeIndex, 0);
  if (record.Subscribers == 0) {
    return;
  }
  if (record.Subscribers == 1) {
    record.Flags &= static_cast<std::uint8_t>(~(kArrived | kDue | kWanted));
    record.Period &= kPeriodMask;
  }
  --record.Subscribers;
}

void ParamPut(int index, double value) {
  ++ParamRequests;
  CheckNode("ParamPut", index, NodeIndex);
  ParamRec& record = Record("ParamPut", index, NodeIndex, 1);
  // Values computed from tenths arrive a hair off the whole number that is meant.
  const double whole = std::nearbyint(value);
  if (!(value >= 0 && whole < kValueLimit)) {
    Stop("ParamPut", "value outside 0 to 2147483647", index, NodeIndex);
  }
  auto rest = static_cast<std::uint32_t>(whole);
  for (std::uint8_t& byte : record.Value) {
    byte = static_cast<std::uint8_t>(rest & 255);
    rest >>= 8;
  }
  record.Flags |= kWritePending | kDue | kWanted;
  record.Flags &= static_cast<std::uint8_t>(~kArrived);
}

double ParamGet(int index, int node) {
  CheckNode("ParamGet", index, node);
  const ParamRec& record = Record("ParamGet", index, node, 0);
  const int length = (record.Control & kLengthMask) + 1;
  double value = 0;
  for (int i = length - 1; i >= 0; --i) {
    value = value * 256 + (i < kValueBytes ? record.Value[i] : record.Padding[i - kValueBytes]);
  }
  return value;
}

bool ParamIsFresh(int index, int node) {
  CheckNode("ParamIsFresh", index, node);
  return (Record("ParamIsFresh", index, node, 0).Flags & kArrived) != 0;
}

}  // namespace dosmara
