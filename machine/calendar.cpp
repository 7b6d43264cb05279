// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/calendar.h"

#include "machine/main_board_records.h"

namespace machine {
namespace {

// A field as it runs and as it is set.
struct Field {
  int running;
  int wanted;
  std::uint32_t least;
  std::uint32_t largest;
};
constexpr Field kFields[] = {
    {321, 326, 0, 23}, {320, 327, 0, 59}, {322, 328, 1, 31}, {323, 329, 1, 12}, {324, 330, 0, 99}};
constexpr int kMinute = 320;
constexpr int kHour = 321;
constexpr int kDay = 322;
constexpr int kMonth = 323;
constexpr int kYear = 324;

}  // namespace

void Calendar::OnWrite(int node, int record) {
  if (node != 0 || !fitted()) {
    return;
  }
  for (const Field& field : kFields) {
    if (record != field.wanted) {
      continue;
    }
    const std::uint32_t value = boards_[0].Get(record);
    if (value < field.least || value > field.largest) {
      return;
    }
    boards_[0].Set(field.running, value);
    if (field.running == kMinute) {
      second_ = 0;
    }
  }
}

void Calendar::OnSecond() {
  if (!fitted() || ++second_ < 60) {
    return;
  }
  second_ = 0;
  if (Step(kMinute, 0, 59) && Step(kHour, 0, 23) && Step(kDay, 1, DaysOfMonth()) && Step(kMonth, 1, 12)) {
    Step(kYear, 0, 99);
  }
}

bool Calendar::fitted() const { return (boards_[0].Get(kStatusRecord) & kClockBit) != 0; }

void Calendar::SetFitted(bool fitted) { SetBits(boards_[0], kStatusRecord, kClockBit, fitted); }

int Calendar::minute_of_day() const {
  return static_cast<int>(boards_[0].Get(kHour) * 60 + boards_[0].Get(kMinute));
}

bool Calendar::Step(int record, std::uint32_t first, std::uint32_t last) {
  const std::uint32_t value = boards_[0].Get(record);
  boards_[0].Set(record, value >= last ? first : value + 1);
  return value >= last;
}

// From 2000 to 2099 every fourth year is a leap year.
std::uint32_t Calendar::DaysOfMonth() const {
  const std::uint32_t month = boards_[0].Get(kMonth);
  if (month == 2) {
    return boards_[0].Get(kYear) % 4 == 0 ? 29 : 28;
  }
  return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

}  // namespace machine
