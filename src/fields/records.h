// SPDX-License-Identifier: GPL-3.0-or-later
// Calls on the parameter table as forms make them: with the node named in the call.
#pragma once

namespace dosmara {

// A run of records on one node.
struct Records {
  int node = 0;
  int first = 0;
  int count = 1;

  // Whether a record of a node is one of them.
  constexpr bool Has(int of_node, int record) const {
    return of_node == node && record >= first && record < first + count;
  }
};

// Subscribes, or unsubscribes, each record of the run in rising order.
void Subscribe(const Records& records);
void Unsubscribe(const Records& records);

// Whether a value from the machine has reached every record of the run since it was written last.
bool AllFresh(const Records& records);

// The value of a record as bits: its low 31, whatever width an index file gave the record.
int LowBits(double value);

// Writes `value` to one record of `node`.
void PutRecord(int node, int record, double value);

// Writes `value` to a record and then to its mirror on the same node; a mirror of 0 is none.
void PutWithMirror(int node, int record, int mirror, double value);

}  // namespace dosmara
