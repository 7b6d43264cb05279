// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/link_fixture.h"

#include <algorithm>

#include "link/identification.h"
#include "link/link_engine.h"
#include "store/index_files.h"

namespace dosmara {

void ResetCore() {
  for (auto& node : ParamTable) {
    std::ranges::fill(node, ParamRec{});
  }
  for (auto& node : IdentTable) {
    std::ranges::fill(node, std::array<std::uint8_t, kIdentEntryBytes>{});
  }
  std::ranges::fill(NodePresent, true);
  std::ranges::fill(NodeRecordCount, std::int16_t{0});
  NodeIndex = 0;
  ParamScratch = 0;
  PortNumber = 0;
  ModelCode = 0;
  InitNodeTables();
  LoadedForms.clear();
}

LinkFixture::LinkFixture() {
  ResetCore();
  host_.board = &board_;
  LinkAttach(host_);
  host_.OpenPort(1);
  host_.opened.clear();
  LoadedForms = {&form_};
}

LinkFixture::~LinkFixture() { LoadedForms.clear(); }

void LinkFixture::Records(int node, int count, RecordPlan plan) {
  NodeRecordCount[node] = static_cast<std::int16_t>(count);
  for (int index = 1; index <= count; ++index) {
    Record(node, index, plan);
  }
}

void LinkFixture::Record(int node, int index, RecordPlan plan) {
  ParamRec& record = ParamTable[node][index];
  record.AddrLo = static_cast<std::uint8_t>(index & 0xFF);
  record.AddrHi = static_cast<std::uint8_t>(index >> 8);
  record.Control = static_cast<std::uint8_t>(plan.length - 1);
  record.Period = static_cast<std::uint8_t>(plan.period);
  std::ranges::fill(record.Padding, std::uint8_t{0x20});
}

void LinkFixture::Subscribe(int node, int index) {
  NodeIndex = static_cast<std::uint8_t>(node);
  ParamSubscribe(index);
}

void LinkFixture::Unsubscribe(int node, int index) {
  NodeIndex = static_cast<std::uint8_t>(node);
  ParamUnsubscribe(index);
}

void LinkFixture::Put(int node, int index, double value) {
  NodeIndex = static_cast<std::uint8_t>(node);
  ParamPut(index, value);
}

void LinkFixture::StartScan() {
  NodeIndex = 0;
  host_.EnableTimer(LinkTimer::Timer1);
}

std::vector<Bytes> LinkFixture::Frames() const {
  std::vector<Bytes> frames;
  for (const VirtualHost::Frame& frame : host_.frames) {
    frames.push_back(frame.bytes);
  }
  return frames;
}

}  // namespace dosmara
