// SPDX-License-Identifier: GPL-3.0-or-later
// A byte of the machine whose bits are single settings.
#pragma once

#include "shell/records.h"

namespace dosmara {

// Where a bit byte lies: its record, which is read and written, and its mirror, which is only written.
struct BitRecord {
  int node = 0;
  int record = 0;
  int mirror = 0;
};

// A form's copy of such a byte, kept so that one bit can be changed without losing the others.
class BitByte {
 public:
  explicit BitByte(const BitRecord& where) : where_(where) {}

  const BitRecord& where() const { return where_; }

  // Keeps an arrived value.
  void Take(double value) { bits_ = LowBits(value); }

  // Whether any bit of `mask` is set in the copy.
  bool Has(int mask) const { return (bits_ & mask) != 0; }

  // Sets or clears the bits of `mask` in the copy and writes the whole byte to the record and its mirror.
  void Write(int mask, bool set) {
    bits_ = set ? bits_ | mask : bits_ & ~mask;
    PutWithMirror(where_.node, where_.record, where_.mirror, bits_);
  }

 private:
  BitRecord where_;
  int bits_ = 0;
};

}  // namespace dosmara
