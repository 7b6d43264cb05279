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

// From the command until the machine begins, which the status shows.
constexpr Time kStartDelay = 300ms;
// Record 315 counts the columns of a unit from here, behind all selections.
constexpr int kColumnsFrom = 38;

}  // namespace

std::string Dispenser::Serve(const Serving& serving) {
  if (auto obstacle = ObstacleTo(serving); !obstacle.empty()) {
    return obstacle;
  }
  Plan plan = PlanOf(serving);
  if (plan.length == Time(0)) {
    return "there is nothing to dispense";
  }
  std::optional<Alarm> failure;
  if (const auto defect = defects_.FailureOf(serving)) {
    plan.length = defect->timeout;
    failure = defect->alarm;
    for (Run& run : plan.runs) {
      if (run.output == defect->output) {
        run.to = plan.length;
      }
    }
  }
  serving_ = serving;
  schedule_.In(kStartDelay, [this] { Show(true); });
  for (const Run& run : plan.runs) {
    if (run.from >= plan.length) {
      continue;
    }
    schedule_.In(kStartDelay + run.from, [this, run] { Drive(run.output, true); });
    if (run.to < plan.length) {
      schedule_.In(kStartDelay + run.to, [this, run] { Drive(run.output, false); });
    }
  }
  schedule_.In(kStartDelay + plan.length, [this, failure] { End(failure); });
  return {};
}

void Dispenser::OnWrite(int node, int record) {
  if (node != 0 || record != kCommandRecord) {
    return;
  }
  const std::uint32_t command = boards_[0].Get(kCommandRecord);
  if (command == kClear || command == kClearAll) {
    return;
  }
  const auto serving = Commanded();
  const std::string refusal = serving ? Serve(*serving) : "there is no such command, selection or part";
  if (!refusal.empty()) {
    remarks_.Refused("test command " + std::to_string(command), refusal);
  }
}

void Dispenser::OnRestart() {
  Show(false);
  serving_.reset();
}

std::string Dispenser::Describe() const {
  if (!serving_) {
    return "nothing";
  }
  if (serving_->kind == Serving::Kind::kWash) {
    return "wash";
  }
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
    if (node < 2 || !position) {
      return std::nullopt;
    }
    return Serving{.kind = Serving::Kind::kProduct, .node = node, .index = *position};
  }
  if (command == kSinglePart) {
    if (selection >= kSelections) {
      return std::nullopt;
    }
    return Serving{.kind = Serving::Kind::kPart, .index = selection, .part = part};
  }
  if (selection < 1 || selection > kSelections) {
    return std::nullopt;
  }
  Serving drink{.index = selection - 1};
  if (command == kComplete) {
    return drink;
  }
  drink.sugar = false;
  if (command == kWithoutSugar) {
    return drink;
  }
  drink.powders = false;
  if (command == kWaterOnly) {
    return drink;
  }
  return std::nullopt;
}

Plan Dispenser::PlanOf(const Serving& serving) const {
  switch (serving.kind) {
    case Serving::Kind::kDrink:
      return DrinkPlan(boards_, serving);
    case Serving::Kind::kPart:
      return PartPlan(boards_, serving);
    case Serving::Kind::kWash:
      return WashPlan(boards_);
    case Serving::Kind::kProduct:
      return {.length = spiral_turn_, .runs = {}};
  }
  return {};
}

std::string Dispenser::ObstacleTo(const Serving& serving) const {
  if (busy()) {
    return "the machine is dispensing";
  }
  const std::string board = "the board at node " + std::to_string(serving.node);
  if (!presence_.IsPresent(serving.node)) {
    return board + " is absent";
  }
  if (!presence_.IsOpen(serving.node)) {
    return board + " is closed";
  }
  if (InTestMode(boards_, serving.node)) {
    return board + " is in test mode";
  }
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
  if (!on && !InTestMode(boards_, 1)) {
    for (int output = 0; output < kDrinksOutputs; ++output) {
      if (output != kHeaterOutput) {
        SetOutput(boards_[1], output, false);
      }
    }
  }
  if (serving_ && serving_->kind == Serving::Kind::kProduct) {
    ShowSector(on);
  }
  sensors_.Follow();
}

// While a product comes the unit shows that its motors run, and at which row and column. The compressor goes
// on as before.
void Dispenser::ShowSector(bool on) {
  const auto [node, position] = std::pair(serving_->node, serving_->index);
  Board& unit = boards_[static_cast<std::size_t>(node)];
  SetBits(unit, kUnitStatusRecord, kMotorsBit, on);
  if (InTestMode(boards_, node)) {
    return;
  }
  const std::uint32_t compressor = unit.Get(kRowRecord) & kCompressorOutput;
  unit.Set(kRowRecord, compressor | (on ? 1u << (position / kColumns) : 0));
  unit.Set(kColumnRecord, on ? 1u << (position % kColumns) : 0);
}

// In test mode the tool alone drives the outputs.
void Dispenser::Drive(int output, bool on) {
  if (!InTestMode(boards_, 1)) {
    SetOutput(boards_[1], output, on);
  }
  sensors_.Follow();
}

void Dispenser::End(std::optional<Alarm> failure) {
  Show(false);
  const Serving serving = *std::exchange(serving_, std::nullopt);
  if (failure) {
    alarms_.Raise(*failure);
  }
  ended_(serving, !failure);
}

}  // namespace machine
