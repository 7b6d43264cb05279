// SPDX-License-Identifier: GPL-3.0-or-later
// The hidden form that owns the serial port and the five timers of the link engine.
#pragma once

#include <QTimer>
#include <QWidget>
#include <array>

#include "link/host.h"
#include "shell/serial_device.h"
#include "shell/settings.h"
#include "shell/status_bar.h"

namespace dosmara {

// Whether a scan tick that was due at `due` and is over at `now` would be followed too soon by one on time.
bool IsLateTick(std::chrono::microseconds due, std::chrono::microseconds now);

// What the link engine needs, over a real device. It is no Form: no menu opens it, nothing closes it but the
// end of the program, and no arrival is offered to it.
class FrmSer : public QWidget, public LinkHost {
  Q_OBJECT

 public:
  // `settings` and `status_bar` must outlive the form.
  FrmSer(Settings& settings, StatusBar& status_bar);

  // Makes the panels of the status bar and starts the link: port, boards, index files, Timer1. Throws
  // ProgramEnds after the operator has been told why, or has closed the program.
  void Load();
  // Stops the timers and closes the port for good.
  void Unload();

  int OpenPort(int port) override;
  void ClosePort() override;
  void ReopenPort() override;
  void Output(std::span<const std::uint8_t> frame) override;
  std::size_t InputCount() const override;
  Bytes TakeInput() override;
  void EnableTimer(LinkTimer timer) override;
  void DisableTimer(LinkTimer timer) override;
  void ShowLamp(int panel, int image) override;
  void ShowStatusText(const std::string& text) override;
  void ClearStatusText() override;
  std::chrono::microseconds Now() const override;
  void WaitBlocking(std::chrono::milliseconds time) override;
  void PumpEvents() override;
  BoxAnswer MsgBox(const std::string& text, const std::string& title, BoxStyle style) override;
  void TickPort(int port, bool ticked) override;
  int ReadSettingsPort() override;
  void WriteDefaultPort() override;

 signals:
  // The ticks of the ports in the settings have changed.
  void PortTicksChanged();

 private:
  QTimer& TimerOf(LinkTimer timer) { return timers_[static_cast<std::size_t>(timer)]; }
  void Fire(LinkTimer timer);
  void Tick();
  void StartTick();
  void SendLostRequestAgain();

  Settings& settings_;
  StatusBar& status_bar_;
  SerialDevice device_;
  std::array<QTimer, kLinkTimerCount> timers_;
  std::chrono::microseconds tick_due_{0};  // when Timer1 fires next
  bool ticking_ = false;                   // inside the event of Timer1
  bool unloaded_ = false;                  // the program is ending
};

}  // namespace dosmara
