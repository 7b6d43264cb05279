// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/dispenser.h"

#include <utility>

#include "machine/main_board_records.h"
#include "machine/output_test.h"
#include "machine/positions.h"
#include "machine/recipe.h"

namespace machine {
namespace {

using namespace std::chrono_literals;

constexpr int kUnitRecord = 358;

constexpr std::uint32_t kComplete = 2;
constexpr std::uint32_t kWithoutSugar = 3;
constexpr std::uint32_t kWaterOnly = 4;
constexpr std::uint32_t kSinglePart = 7;

// The way from the command to the first drop: cup, valve, pump.
constexpr Time kStartDelay = 300ms;
// One turn of a spiral.
constexpr Time kSpiralTurn = 1500ms;

// Columns of a unit stand behind all selections.
constexpr int kColumnsFrom = 38;

}  // namespace

std::string Dispenser::Serve(const Serving& serving) {
  if (auto obstacle = ObstacleTo(serving); !obstacle.empty()) return obstacle;
  Time duration = DurationOf(serving);
  if (duration == Time(0)) return "there is nothing to dispense";
  std::optional<Alarm> failure;
  if (const auto defect = defects_.FailureOf(serving)) {
    duration = defect->timeout;
    failure = defect->alarm;
  }
  serving_ = serving;
  schedule_.In(kStartDelay, [this] { Show(true); });
  schedule_.In(kStartDelay + duration, [this, failure] { End(failure); });
  return {};
}

void Dispenser::OnWrite(int node, int record) {
  if (node != 0 || record != kCommandRecord) return;
  if (const auto serving = Commanded()) Serve(*serving);
}

void Dispenser::OnRestart() {
  Show(false);
  serving_.reset();
}

std::string Dispenser::Describe() const {
  if (!serving_) return "nothing";
  const std::string what = serving_->kind == Serving::Kind::kProduct
                               ? "product-" + PositionName(serving_->node, serving_->index)
                               : (serving_->kind == Serving::Kind::kPart ? "part-of-" : "drink-") +
                                     std::to_string(SelectionNumber(serving_->index));
  return what + (serving_->sale ? "-sold" : "-tested");
}

std::optional<Serving> Dispenser::Commanded() const {
  const std::uint32_t command = boards_[0].Get(kCommandRecord);
  const int selection = static_cast<int>(boards_[0].Get(kSelectionRecord));
  const std::uint32_t part = boards_[0].Get(kPartRecord);
  if (command == kComplete && selection > kColumnsFrom) {
    const int node = NodeOfLetter(static_cast<std::uint8_t>(boards_[0].Get(kUnitRecord)));
    const auto position = PositionAt(static_cast<int>(part / 16), selection - kColumnsFrom);
    if (node < 2 || !position) return std::nullopt;
    return Serving{.kind = Serving::Kind::kProduct, .node = node, .index = *position};
  }
  if (command == kSinglePart) {
    if (selection >= kSelections) return std::nullopt;
    return Serving{.kind = Serving::Kind::kPart, .index = selection, .part = part};
  }
  if (selection < 1 || selection > kSelections) return std::nullopt;
  Serving drink{.index = selection - 1};
  if (command == kComplete) return drink;
  drink.sugar = false;
  if (command == kWithoutSugar) return drink;
  drink.powders = false;
  if (command == kWaterOnly) return drink;
  return std::nullopt;
}

Time Dispenser::DurationOf(const Serving& serving) const {
  switch (serving.kind) {
    case Serving::Kind::kDrink:
      return DrinkTime(boards_[1], serving);
    case Serving::Kind::kPart:
      return PartTime(boards_[1], serving);
    case Serving::Kind::kProduct:
      return kSpiralTurn;
  }
  return Time(0);
}

std::string Dispenser::ObstacleTo(const Serving& serving) const {
  if (busy()) return "the machine is dispensing";
  const std::string board = "the board at node " + std::to_string(serving.node);
  if (!presence_.IsPresent(serving.node)) return board + " is absent";
  if (InTestMode(boards_, serving.node)) return board + " is in test mode";
  if (serving.kind == Serving::Kind::kProduct && MotorsRun(boards_, serving.node)) {
    return "the motors of " + board + " are on their way to zero";
  }
  if (const auto missing = supplies_.MissingFor(serving)) {
    return "what is missing or full: " + std::string(kSupplyNames[static_cast<std::size_t>(*missing)]);
  }
  return {};
}

void Dispenser::Show(bool on) {
  SetBits(boards_[0], kStatusRecord, kDispensingBit, on);
  if (brewing() && !InTestMode(boards_, 1)) {
    SetBits(boards_[1], kOutputsRecord, kPumpOutput, on);
  }
}

void Dispenser::End(std::optional<Alarm> failure) {
  Show(false);
  const Serving serving = *std::exchange(serving_, std::nullopt);
  if (failure) alarms_.Raise(*failure);
  ended_(serving, !failure);
}

}  // namespace machine
