// SPDX-License-Identifier: GPL-3.0-or-later
// Handing out drinks and products, for sales and for tests that are commanded through node 0.
//
//   314 = 2, 3, 4   a whole drink: complete, without sugar, water only; 315 is the selection, 1 to 22
//   314 = 2         with 315 from 39 up: a product from column 315 - 38, row 316 / 16 of the unit whose
//                   letter is in 358
//   314 = 7         one part of a drink: 315 is the selection, 0 to 21, and 316 the part
//
// Bit value 2 of record 317 is set while it lasts; the outputs of the drinks unit follow the recipe, and a
// unit of products shows its sector in 288 and 289 and bit value 2 in 290. A command is refused, with a
// remark and no sign on the line, while another is carried out, for a selection, part or unit that is not
// there, is closed or is in test mode, when a supply is missing, and when there is nothing to dispense. With
// a broken part the serving lasts for that part's time-out, ends with an alarm and counts as nothing.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "machine/concern.h"
#include "machine/defects.h"
#include "machine/presence.h"
#include "machine/recipe.h"
#include "machine/remarks.h"
#include "machine/schedule.h"
#include "machine/sensors.h"
#include "machine/supplies.h"

namespace machine {

class Dispenser : public Concern {
 public:
  // `ended` hears of each serving that has come to its end, and whether it was handed out.
  Dispenser(Boards& boards, const Presence& presence, Schedule& schedule, const Supplies& supplies,
            const Defects& defects, Alarms& alarms, Sensors& sensors, Remarks& remarks,
            std::function<void(const Serving&, bool)> ended)
      : boards_(boards),
        presence_(presence),
        schedule_(schedule),
        supplies_(supplies),
        defects_(defects),
        alarms_(alarms),
        sensors_(sensors),
        remarks_(remarks),
        ended_(std::move(ended)) {}

  // Starts a serving. Returns why it cannot start, or nothing.
  std::string Serve(const Serving& serving);

  void OnWrite(int node, int record) override;
  void OnRestart() override;

  // True from the moment a serving is taken until its end.
  bool busy() const { return serving_.has_value(); }
  // True while that is a whole drink.
  bool brewing() const { return serving_ && serving_->kind == Serving::Kind::kDrink; }
  // True while that is a product of the unit at `node`.
  bool TurnsSpiral(int node) const {
    return serving_ && serving_->kind == Serving::Kind::kProduct && serving_->node == node;
  }
  // How long one turn of a spiral takes, from the next product on.
  void SetSpiralTurn(Time turn) { spiral_turn_ = turn; }
  // What is being handed out, in one word.
  std::string Describe() const;

 private:
  std::optional<Serving> Commanded() const;
  Plan PlanOf(const Serving& serving) const;
  std::string ObstacleTo(const Serving& serving) const;
  void Show(bool on);
  void ShowSector(bool on);
  void Drive(int output, bool on);
  void End(std::optional<Alarm> failure);

  Boards& boards_;
  const Presence& presence_;
  Schedule& schedule_;
  const Supplies& supplies_;
  const Defects& defects_;
  Alarms& alarms_;
  Sensors& sensors_;
  Remarks& remarks_;
  Time spiral_turn_ = std::chrono::milliseconds(1500);
  std::function<void(const Serving&, bool)> ended_;
  std::optional<Serving> serving_;
};

}  // namespace machine
