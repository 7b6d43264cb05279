// SPDX-License-Identifier: GPL-3.0-or-later
// Test of inputs and outputs: the boards in test mode, one output at a time.
#pragma once

#include <QTimer>
#include <array>
#include <cstdint>
#include <functional>
#include <optional>

#include "forms/diagnostics/in_out_panel.h"

namespace dosmara {

// Puts all boards that are there into test mode, switches their outputs and shows their inputs. A switch
// shows what the board reads back, never what has been wished. Closing leaves the boards as they are.
class FrmInOut : public InOutPanel {
 public:
  FrmInOut();

  void SLabelChange(std::int32_t index, double value) override;

 private:
  void Connect();
  void WatchDrinks();
  void WatchZeth(ZethUnderTest& unit);

  void StartOrStop();
  // The operator wishes something of a switch. `send` writes it and returns whether it is to be on, or
  // nothing if it has refused.
  void Wish(BoardUnderTest& board, const LedSwitch& target, const std::function<std::optional<bool>()>& send);
  void TakeReadBack(bool done);
  void TimeUp();

  void FollowPresence(BoardUnderTest& board);
  void TakeStatus(BoardUnderTest& board, double value);
  void OpenSwitches(bool open);
  void OpenButton(bool open);

  bool InAggiorna = false;  // the form itself changes controls: what a switch tells is no wish
  // The sector last switched on. There is one for both units: a click on the same sector of the other one
  // counts as the second.
  std::uint16_t UltimoSettore = ZethUnderTest::kNoSector;

  const std::array<BoardUnderTest*, 3> boards_{&drinks_, &zeth_, &zeth2_};
  QTimer* timer_;                 // Timer1, the patience with a write
  bool focus_to_button_ = false;  // the button had the focus when it closed, and gets it back
};

}  // namespace dosmara
