// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/timetable.h"

#include <algorithm>
#include <utility>

namespace machine {
namespace {

constexpr Band kSwitchedOn[] = {{87, 91}, {89, 93}};
constexpr int kWashes[] = {95, 97};
constexpr int kPaymentOptions = 84;
constexpr std::uint32_t kWashing = 32;

// The minute of the day that stands in a record of a minute and the hour behind it.
std::uint32_t TimeAt(const Board& main, int minute) { return main.Get(minute + 1) * 60 + main.Get(minute); }

bool Exists(const Board& main, const Band& band) { return TimeAt(main, band.start) < TimeAt(main, band.end); }

}  // namespace

bool InBand(const Board& main, const Calendar& calendar, const Band& band) {
  const auto now = static_cast<std::uint32_t>(calendar.minute_of_day());
  return calendar.fitted() && now >= TimeAt(main, band.start) && now < TimeAt(main, band.end);
}

bool Timetable::SwitchedOn() const {
  const Board& main = boards_[0];
  const auto exists = [&](const Band& band) { return Exists(main, band); };
  if (!calendar_.fitted() || std::ranges::none_of(kSwitchedOn, exists)) {
    return true;
  }
  return std::ranges::any_of(kSwitchedOn, [&](const Band& band) { return InBand(main, calendar_, band); });
}

void Timetable::OnSecond() {
  const int minute = calendar_.minute_of_day();
  if (std::exchange(minute_, minute) != minute && WashDue()) {
    wash_wanted_ = true;
  }
  if (!wash_wanted_ || dispenser_.busy()) {
    return;
  }
  wash_wanted_ = false;
  const auto refusal = dispenser_.Serve({.kind = Serving::Kind::kWash, .cup = false});
  if (!refusal.empty()) {
    remarks_.Refused("wash", refusal);
  }
}

bool Timetable::WashDue() const {
  const Board& main = boards_[0];
  if (!calendar_.fitted() || (main.Get(kPaymentOptions) & kWashing) == 0) {
    return false;
  }
  return std::ranges::any_of(
      kWashes, [&](int wash) { return TimeAt(main, wash) == static_cast<std::uint32_t>(minute_); });
}

}  // namespace machine
