// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/alarms.h"

namespace machine {
namespace {

constexpr int kNewest = 86;
constexpr int kFirstEntry = 142;
constexpr int kEntries = 10;
constexpr int kFields = 6;
constexpr int kCode = 5;
constexpr std::uint32_t kEmpty = 255;

// Minute, hour, day, month, year, in the order of an entry's fields.
constexpr int kClockRecords[] = {320, 321, 322, 323, 324};

int EntryAt(int entry) { return kFirstEntry + entry * kFields; }

}  // namespace

void Alarms::Raise(std::uint32_t code) {
  Board& board = boards_[0];
  const int newest = static_cast<int>(board.Get(kNewest)) % kEntries;
  const bool empty = board.Get(EntryAt(newest) + kCode) > kLargestAlarm;
  const int entry = empty ? newest : (newest + 1) % kEntries;
  int record = EntryAt(entry);
  for (const int field : kClockRecords) {
    board.Set(record++, calendar_.fitted() ? board.Get(field) : 0);
  }
  board.Set(record, code);
  board.Set(kNewest, static_cast<std::uint32_t>(entry));
}

void Alarms::Clear() {
  for (int entry = 0; entry < kEntries; ++entry) {
    for (int field = 0; field < kCode; ++field) {
      boards_[0].Set(EntryAt(entry) + field, 0);
    }
    boards_[0].Set(EntryAt(entry) + kCode, kEmpty);
  }
  boards_[0].Set(kNewest, 0);
}

}  // namespace machine
