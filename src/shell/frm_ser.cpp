// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/frm_ser.h"

#include <QCoreApplication>
#include <filesystem>

#include "link/identification.h"
#include "link/link_engine.h"
#include "shell/msg_box.h"
#include "store/failure.h"

namespace dosmara {

namespace {

constexpr std::chrono::milliseconds kTickInterval = kLinkTimerInterval[static_cast<int>(LinkTimer::Timer1)];

}  // namespace

bool IsLateTick(std::chrono::microseconds due, std::chrono::microseconds now) {
  constexpr std::chrono::milliseconds kMostDelay(2);
  return now - due > kMostDelay;
}

FrmSer::FrmSer(Settings& settings, StatusBar& status_bar)
    : settings_(settings), status_bar_(status_bar), device_(settings.folder) {
  setObjectName("FrmSer");
  setFixedSize(0, 0);
  connect(&device_, &SerialDevice::Received, this, [] { ReceiveEvent(); });
  connect(&device_, &SerialDevice::Returned, this, &FrmSer::SendLostRequestAgain);
  for (std::size_t i = 0; i < timers_.size(); ++i) {
    timers_[i].setParent(this);
    timers_[i].setObjectName(QString("Timer%1").arg(i + 1));
    timers_[i].setTimerType(Qt::PreciseTimer);
    timers_[i].setInterval(kLinkTimerInterval[i]);
    connect(&timers_[i], &QTimer::timeout, this, [this, i] { Fire(static_cast<LinkTimer>(i)); });
  }
}

void FrmSer::Load() {
  status_bar_.MakePanels();
  LinkAttach(*this);
  LinkStart(std::filesystem::path(settings_.folder.toStdU16String()));
}

void FrmSer::Unload() {
  for (QTimer& timer : timers_) {
    timer.stop();
  }
  ClosePort();
  unloaded_ = true;
}

int FrmSer::OpenPort(int port) { return device_.Open(port); }

void FrmSer::ClosePort() { device_.Close(); }

void FrmSer::ReopenPort() { device_.Reopen(); }

void FrmSer::Output(std::span<const std::uint8_t> frame) { device_.Output(frame); }

std::size_t FrmSer::InputCount() const { return device_.InputCount(); }

Bytes FrmSer::TakeInput() { return device_.TakeInput(); }

void FrmSer::WaitBlocking(std::chrono::milliseconds time) { device_.WaitBlocking(time); }

// A request that was under way when the device vanished is lost, so its time-out is sure to come: there is no
// use in waiting for the rest of the second.
void FrmSer::SendLostRequestAgain() {
  if (TimerOf(LinkTimer::Timer2).isActive()) {
    TimerEvent(LinkTimer::Timer2);
  }
}

void FrmSer::Fire(LinkTimer timer) {
  if (timer == LinkTimer::Timer1) {
    Tick();
  } else {
    TimerEvent(timer);
  }
}

// The engine disables the scan tick for the length of its event. The QTimer runs on meanwhile: one that is
// started anew fires at the next whole millisecond behind its interval, which would make each tick 41 ms
// long. Only behind a late tick it is started anew: it would make up for the delay, and the next request
// would follow sooner than a board is used to.
void FrmSer::Tick() {
  ticking_ = true;
  TimerEvent(LinkTimer::Timer1);
  ticking_ = false;
  if (!TimerOf(LinkTimer::Timer1).isActive()) {
    return;
  }
  if (IsLateTick(tick_due_, Now())) {
    StartTick();
  } else {
    tick_due_ += kTickInterval;
  }
}

void FrmSer::StartTick() {
  tick_due_ = Now() + kTickInterval;
  TimerOf(LinkTimer::Timer1).start();
}

void FrmSer::EnableTimer(LinkTimer timer) {
  if (TimerOf(timer).isActive()) {
    return;
  }
  if (timer == LinkTimer::Timer1) {
    StartTick();
  } else {
    TimerOf(timer).start();
  }
}

void FrmSer::DisableTimer(LinkTimer timer) {
  if (!ticking_ || timer != LinkTimer::Timer1) {
    TimerOf(timer).stop();
  }
}

void FrmSer::ShowLamp(int panel, int image) { status_bar_.ShowLamp(panel, image); }

void FrmSer::ShowStatusText(const std::string& text) { status_bar_.SetText(QString::fromStdString(text)); }

void FrmSer::ClearStatusText() { status_bar_.ClearText(); }

std::chrono::microseconds FrmSer::Now() const {
  return std::chrono::duration_cast<std::chrono::microseconds>(
      std::chrono::steady_clock::now().time_since_epoch());
}

void FrmSer::PumpEvents() {
  QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  if (unloaded_) {
    throw ProgramEnds();
  }
}

BoxAnswer FrmSer::MsgBox(const std::string& text, const std::string& title, BoxStyle style) {
  return dosmara::MsgBox(QString::fromStdString(text), QString::fromStdString(title), style);
}

void FrmSer::TickPort(int port, bool ticked) {
  if (port >= kFirstPort && port <= kLastPort) {
    settings_.mnuCox[port] = ticked;
    emit PortTicksChanged();
  }
}

int FrmSer::ReadSettingsPort() { return ReadOwnPort(settings_); }

void FrmSer::WriteDefaultPort() { dosmara::WriteDefaultPort(settings_); }

}  // namespace dosmara
