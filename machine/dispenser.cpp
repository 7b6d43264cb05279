// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/dispenser.h"

#include <algorithm>
#include <array>

#include "machine/main_board_records.h"

namespace machine {
namespace {

using namespace std::chrono_literals;

constexpr int kSelectionRecord = 315;
constexpr int kPartRecord = 316;
constexpr int kUnitRecord = 358;

constexpr std::uint32_t kComplete = 2;
constexpr std::uint32_t kWithoutSugar = 3;
constexpr std::uint32_t kWaterOnly = 4;
constexpr std::uint32_t kSinglePart = 7;

// The way from the command to the first drop: cup, valve, pump.
constexpr Time kStartDelay = 300ms;
// One water count is one pulse of the flow meter behind the pump.
constexpr Time kWaterPulse = 25ms;
// One turn of a spiral.
constexpr Time kSpiralTurn = 1500ms;

constexpr std::uint32_t kSelections = 22;
constexpr std::uint32_t kFirstColumn = 39;
constexpr std::uint32_t kColumns = 8;
constexpr std::uint32_t kRows = 6;

// Records of node 1, each the first of 22, one for each selection. A powder with record 0 is not there.
struct Powder {
  int delay = 0;
  int time = 0;
};
struct Part {
  int water = 0;
  std::array<Powder, 2> powders{};
};
constexpr Part kParts[] = {
    {148},                              // coffee
    {170, {{{368, 280}, {390, 302}}}},  // milk and chocolate share their water
    {192, {{{412, 324}}}},              // tea
    {214, {{{563, 346}}}},              // decaffeinated
    {236},                              // hot water
};
constexpr int kSugarTime = 434;

// What record 316 asks for in a test of one part, and the record of that part's time.
struct SinglePart {
  std::uint32_t code;
  int time;
};
constexpr SinglePart kSingleParts[] = {{66, 280}, {68, 302}, {72, 324}, {80, 346}, {192, kSugarTime}};

}  // namespace

void Dispenser::OnWrite(int node, int record) {
  if (node != 0 || record != kCommandRecord || busy_) return;
  const auto duration = DurationOfCommand();
  if (!duration || *duration == Time(0)) return;
  busy_ = true;
  schedule_.In(kStartDelay, [this] { SetBits(boards_[0], kStatusRecord, kDispensingBit, true); });
  schedule_.In(kStartDelay + *duration, [this] {
    SetBits(boards_[0], kStatusRecord, kDispensingBit, false);
    busy_ = false;
  });
}

void Dispenser::OnRestart() {
  busy_ = false;
  SetBits(boards_[0], kStatusRecord, kDispensingBit, false);
}

std::optional<Time> Dispenser::DurationOfCommand() const {
  const std::uint32_t command = boards_[0].Get(kCommandRecord);
  const std::uint32_t selection = boards_[0].Get(kSelectionRecord);
  if (command == kComplete && selection >= kFirstColumn) return ProductTime();
  if (!presence_.IsPresent(1)) return std::nullopt;
  if (command == kSinglePart) return PartTime(selection);
  const bool drink = command == kComplete || command == kWithoutSugar || command == kWaterOnly;
  if (!drink || selection < 1 || selection > kSelections) return std::nullopt;
  return DrinkTime(selection - 1, command != kWaterOnly, command == kComplete);
}

// The parts follow each other, since there is one pump; the powders of a part run along with its water. A
// part whose water is off is left out with its powders.
Time Dispenser::DrinkTime(std::uint32_t selection, bool with_powders, bool with_sugar) const {
  const int index = static_cast<int>(selection);
  Time total = with_sugar ? Tenths(kSugarTime + index) : Time(0);
  for (const Part& part : kParts) {
    const Time water = boards_[1].Get(part.water + index) * kWaterPulse;
    Time longest = water;
    for (const Powder& powder : part.powders) {
      if (!with_powders || powder.time == 0 || water == Time(0)) continue;
      longest = std::max(longest, Tenths(powder.delay + index) + Tenths(powder.time + index));
    }
    total += longest;
  }
  return total;
}

std::optional<Time> Dispenser::PartTime(std::uint32_t selection) const {
  const std::uint32_t code = boards_[0].Get(kPartRecord);
  const auto part = std::find_if(std::begin(kSingleParts), std::end(kSingleParts),
                                 [code](const SinglePart& single) { return single.code == code; });
  if (part == std::end(kSingleParts) || selection >= kSelections) return std::nullopt;
  return Tenths(part->time + static_cast<int>(selection));
}

std::optional<Time> Dispenser::ProductTime() const {
  const std::uint32_t row = boards_[0].Get(kPartRecord) / 16;
  const std::uint32_t column = boards_[0].Get(kSelectionRecord) - kFirstColumn + 1;
  const int node = NodeOfLetter(static_cast<std::uint8_t>(boards_[0].Get(kUnitRecord)));
  if (node < 2 || !presence_.IsPresent(node)) return std::nullopt;
  if (row < 1 || row > kRows || column > kColumns) return std::nullopt;
  return kSpiralTurn;
}

Time Dispenser::Tenths(int record) const { return boards_[1].Get(record) * Time(100ms); }

}  // namespace machine
