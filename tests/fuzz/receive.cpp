// SPDX-License-Identifier: GPL-3.0-or-later
// The receive path: an arbitrary byte stream meets a running link. The input is a list of steps of two bytes:
// what happens, and a byte for it.
#include <cstdlib>

#include "link/link_engine.h"
#include "store/index_files.h"
#include "store/parameter_table.h"
#include "support/virtual_host.h"

namespace {

using namespace dosmara;

constexpr int kRecords = 12;

// Clears the few records in use only: the whole table would take most of the time of a run.
void SetUp(VirtualHost& host) {
  InitNodeTables();
  LinkAttach(host);
  host.OpenPort(1);
  for (int node = 0; node < kNodeCount; ++node) {
    NodeRecordCount[node] = kRecords;
    NodePresent[node] = true;
    NodeIndex = static_cast<std::uint8_t>(node);
    for (int index = 1; index < kRecords; ++index) {
      ParamTable[node][index] = {};
      ParamTable[node][index].Control = static_cast<std::uint8_t>(index);  // lengths 2 to 12
      ParamTable[node][index].Period = static_cast<std::uint8_t>(index % 4);
      ParamSubscribe(index);
    }
  }
  NodeIndex = 0;
  host.EnableTimer(LinkTimer::Timer1);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  VirtualHost host;
  SetUp(host);
  for (std::size_t i = 0; i + 1 < size; i += 2) {
    const std::uint8_t argument = data[i + 1];
    switch (data[i] % 5) {
      case 0:
        host.Send({argument});
        break;
      case 1:
        host.Send(Bytes(argument, data[i]));
        break;
      case 2:
        host.RunFor(argument * milliseconds(10));
        break;
      case 3:
        NodeIndex = argument % kNodeCount;
        ParamPut(1 + argument % (kRecords - 1), argument * 1000.0);
        break;
      case 4:
        host.chunk = 1U + argument % 8U;
        break;
    }
  }
  host.RunFor(milliseconds(3000));
  if (RetryCount < 0 || RetryCount > 4) {
    std::abort();
  }
  if (ScanCursor < 0 || ScanCursor > kRecords || NodeIndex >= kNodeCount) {
    std::abort();
  }
  if (LinkIdle == host.IsEnabled(LinkTimer::Timer2)) {
    std::abort();  // waiting without a time-out would hang
  }
  return 0;
}
