// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/diagnostics/frm_in_out.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <algorithm>
#include <chrono>

namespace dosmara {

using namespace in_out;

namespace {

constexpr std::chrono::milliseconds kPatience(5000);

}  // namespace

FrmInOut::FrmInOut() : timer_(new QTimer(this)) {
  timer_->setObjectName("Timer1");
  timer_->setSingleShot(true);
  timer_->setInterval(kPatience);
  for (BoardUnderTest* board : boards_) {
    board->OpenAllSwitches(false);
    Follow(board->Presenza, [this, board] { FollowPresence(*board); });
    Hear(board->node(), board->status_record(), Counts::kYes,
         [this, board](double value) { TakeStatus(*board, value); });
  }
  button_->setEnabled(false);
  WatchDrinks();
  WatchZeth(zeth_);
  WatchZeth(zeth2_);
  Connect();
}

void FrmInOut::Connect() {
  connect(timer_, &QTimer::timeout, this, &FrmInOut::TimeUp);
  connect(button_, &QPushButton::clicked, this, &FrmInOut::StartOrStop);
  connect(drinks_.outputs, &SwitchPad::Wished, this, [this](int i, bool on) {
    Wish(drinks_, drinks_.outputs->Switch(i), [&] { return drinks_.Wish(i, on); });
  });
  for (ZethUnderTest* unit : {&zeth_, &zeth2_}) {
    connect(unit->sectors, &SwitchPad::Wished, this, [this, unit](int i, bool) {
      Wish(*unit, unit->sectors->Switch(i), [&] { return unit->WishSector(i, UltimoSettore); });
    });
    connect(unit->compressor, &SwitchPad::Wished, this, [this, unit](int i, bool on) {
      Wish(*unit, unit->compressor->Switch(i), [&] { return unit->WishCompressor(on); });
    });
  }
}

void FrmInOut::WatchDrinks() {
  Hear({kHotDrinks, kFirstReadBack, kImages}, Counts::kYes,
       [this](int n, double value) { TakeReadBack(drinks_.TakeReadBack(n, value)); });
  for (int n = 0; n <= kLastThatMatters; ++n) {
    HearEcho(kHotDrinks, kFirstWanted + n, [this, n](double value) { drinks_.TakeEcho(n, value); });
  }
}

void FrmInOut::WatchZeth(ZethUnderTest& unit) {
  const int node = unit.node();
  Hear(node, kTankOffset, Counts::kYes, [&unit](double value) { unit.TakeOffset(value); });
  Hear(node, kTankTemperature, Counts::kYes, [&unit](double value) { unit.TakeTemperature(value); });
  Hear(node, kRow, Counts::kYes, [&unit](double value) { unit.TakeRow(value); });
  Hear(node, kColumn, Counts::kYes, [this, &unit](double value) { TakeReadBack(unit.TakeColumn(value)); });
  const Records wanted = WantedOf(node);
  for (int n = 0; n < wanted.count; ++n) {
    HearEcho(node, wanted.first + n, [&unit, n](double value) { unit.TakeEcho(n, value); });
  }
}

void FrmInOut::SLabelChange(std::int32_t index, double value) {
  const QScopedValueRollback guard(InAggiorna, true);
  InOutPanel::SLabelChange(index, value);
}

void FrmInOut::StartOrStop() {
  OpenButton(false);
  const int mode = TestAttivo ? kLeaveTest : kEnterTest;
  for (BoardUnderTest* board : boards_) {
    board->SendMode(mode);
  }
}

// Only one board is to drive an output at a time: the others are sent back to idle. A wish on the hot drinks
// unit does not do so with the second Zeth unit.
void FrmInOut::Wish(BoardUnderTest& board, const LedSwitch& target,
                    const std::function<std::optional<bool>()>& send) {
  if (InAggiorna) {
    return;
  }
  const QScopedValueRollback guard(InAggiorna, true);
  const std::optional<bool> on = send();
  if (!on) {
    return;
  }
  OpenSwitches(false);
  timer_->start();
  for (BoardUnderTest* other : boards_) {
    const bool left_alone = &board == &drinks_ && other == &zeth2_;
    if (other != &board && !left_alone) {
      other->SendMode(kEnterTest);
    }
  }
  mark_->Sent(target, *board.frame, *on);
}

void FrmInOut::TakeReadBack(bool done) {
  mark_->Look();
  if (done) {
    timer_->stop();
    OpenSwitches(true);
  }
}

void FrmInOut::TimeUp() {
  OpenSwitches(true);
  for (BoardUnderTest* board : boards_) {
    board->StopWaiting();
  }
}

// A board that is not there stays on the screen in grey and holds up no test.
void FrmInOut::FollowPresence(BoardUnderTest& board) {
  const bool present = board.Presenza.IsOpen();
  board.frame->setEnabled(present);
  if (!present) {
    board.OpenAllSwitches(false);
    board.Test = true;
  } else if (TestAttivo) {
    board.OpenAllSwitches(true);
  }
  OpenButton(std::ranges::any_of(boards_, [](const auto* each) { return each->Presenza.IsOpen(); }));
}

void FrmInOut::TakeStatus(BoardUnderTest& board, double value) {
  board.Test = !board.Presenza.IsOpen() || (LowBits(value) & kInTest) != 0;
  const bool all = std::ranges::all_of(boards_, [](const auto* each) { return each->Test; });
  if (all != TestAttivo) {
    TestAttivo = all;
    OpenButton(true);
    ShowState();
    OpenSwitches(all);
  }
}

void FrmInOut::OpenSwitches(bool open) {
  for (BoardUnderTest* board : boards_) {
    board->OpenSwitches(open);
  }
}

// A button that closes keeps the focus from going on to a switch, where the next key would move something.
void FrmInOut::OpenButton(bool open) {
  if (!open && button_->hasFocus()) {
    focus_to_button_ = true;
    button_->clearFocus();
  }
  button_->setEnabled(open);
  if (open && focus_to_button_) {
    focus_to_button_ = false;
    const QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr || focus->isAncestorOf(this)) {
      button_->setFocus();
    }
  }
}

}  // namespace dosmara
