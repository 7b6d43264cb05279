// SPDX-License-Identifier: GPL-3.0-or-later
// Settings that show in another record: the decimals of money are wanted in record 76 of node 0 and reported
// in the low two bits of record 311. Every other setting is held as it is written, a mirror like any other
// record: the machine never copies a setting into its mirror.
#pragma once

#include "machine/board.h"
#include "machine/concern.h"

namespace machine {

class Settings : public Concern {
 public:
  explicit Settings(Boards& boards) : boards_(boards) {}

  void OnWrite(int node, int record) override;
  void OnSet(int node, int record) override { OnWrite(node, record); }

 private:
  Boards& boards_;
};

}  // namespace machine
