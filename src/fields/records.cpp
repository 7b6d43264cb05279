// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/records.h"

#include <cmath>

#include "store/parameter_table.h"

namespace dosmara {

int LowBits(double value) { return static_cast<int>(std::fmod(value, 2147483648.0)); }

void Subscribe(const Records& records) {
  for (int record = records.first; record < records.first + records.count; ++record) {
    NodeIndex = static_cast<std::uint8_t>(records.node);
    ParamSubscribe(record);
  }
}

void Unsubscribe(const Records& records) {
  for (int record = records.first; record < records.first + records.count; ++record) {
    NodeIndex = static_cast<std::uint8_t>(records.node);
    ParamUnsubscribe(record);
  }
}

bool AllFresh(const Records& records) {
  for (int record = records.first; record < records.first + records.count; ++record) {
    if (!ParamIsFresh(record, records.node)) {
      return false;
    }
  }
  return true;
}

void PutRecord(int node, int record, double value) {
  ParamScratch = value;
  NodeIndex = static_cast<std::uint8_t>(node);
  ParamPut(record, ParamScratch);
}

void PutWithMirror(int node, int record, int mirror, double value) {
  PutRecord(node, record, value);
  if (mirror != 0) {
    PutRecord(node, mirror, value);
  }
}

}  // namespace dosmara
