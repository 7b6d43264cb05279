// SPDX-License-Identifier: GPL-3.0-or-later
// What the link engine needs of its surroundings. FrmSer gives it a serial port and QTimers; tests give it
// virtual time and a scripted line.
#pragma once

#include <chrono>
#include <cstddef>
#include <span>
#include <string>

#include "link/frame.h"

namespace dosmara {

// The five timers, all created disabled: scan tick 40 ms, reply time-out 1000 ms, transmit lamp off 500 ms,
// receive and error lamps off 500 ms, identification time-out 2000 ms. Each repeats until it is disabled.
enum class LinkTimer { Timer1, Timer2, Timer3, Timer4, Timer5 };
inline constexpr int kLinkTimerCount = 5;
inline constexpr std::chrono::milliseconds kLinkTimerInterval[kLinkTimerCount] = {
    std::chrono::milliseconds(40), std::chrono::milliseconds(1000), std::chrono::milliseconds(500),
    std::chrono::milliseconds(500), std::chrono::milliseconds(2000)};

enum class BoxStyle { kCritical, kExclamation, kRetryCancel, kYesNoWarning };
enum class BoxAnswer { kOk, kRetry, kCancel, kYes, kNo };

// A byte stream, five timers, the lamps, a clock, an event pump, message boxes, and what the search for the
// port needs of the shell: the ticks of the port menu and the settings file.
class LinkHost {
 public:
  virtual ~LinkHost() = default;

  // Opens device `port`, 1 to 4, with empty buffers. Returns 0, or the number for the message box.
  virtual int OpenPort(int port) = 0;
  // Closes the device; nothing happens when it is closed.
  virtual void ClosePort() = 0;
  // Closes and reopens the device in use, which empties both buffers. A device that has vanished stays
  // wanted: the host opens it again as soon as it is back.
  virtual void ReopenPort() = 0;
  // Gives a frame to the device. Without a device the frame is lost, as on a line that is unplugged.
  virtual void Output(std::span<const std::uint8_t> frame) = 0;
  // Bytes that wait in the input buffer, at most kInputBufferBytes.
  virtual std::size_t InputCount() const = 0;
  // Takes all bytes of the input buffer.
  virtual Bytes TakeInput() = 0;

  // Enabling a running timer leaves it running; disabling and enabling restarts it. From the end of one event
  // of Timer1 to the next it is never less than 38 ms, however late the first one came.
  virtual void EnableTimer(LinkTimer timer) = 0;
  virtual void DisableTimer(LinkTimer timer) = 0;

  // Shows image 1 to 6 on status bar panel 2, 3 or 4.
  virtual void ShowLamp(int panel, int image) = 0;
  // Shows a text on status bar panel 1. It is painted before this returns, since the caller may go on to
  // block without any event.
  virtual void ShowStatusText(const std::string& text) = 0;
  // Clears the text of status bar panel 1 if it holds one.
  virtual void ClearStatusText() = 0;

  // Time since some fixed moment; never runs backward.
  virtual std::chrono::microseconds Now() const = 0;
  // Blocks for `time` while input collects and no event is delivered.
  virtual void WaitBlocking(std::chrono::milliseconds time) = 0;
  // Waits for the next event and delivers what is there. Throws ProgramEnds when the operator has closed
  // the program meanwhile.
  virtual void PumpEvents() = 0;

  // Shows a modal box and returns the button pressed; the timers run on meanwhile.
  virtual BoxAnswer MsgBox(const std::string& text, const std::string& title, BoxStyle style) = 0;

  // Ticks or unticks the menu entry of a port; numbers outside 1 to 4 are ignored.
  virtual void TickPort(int port, bool ticked) = 0;
  // The port of the tool's own settings file. Throws RunTimeError, kErrorFileNotFound without a file.
  virtual int ReadSettingsPort() = 0;
  // Writes the line "Com=1" as the whole settings file, if the folder allows it.
  virtual void WriteDefaultPort() = 0;
};

}  // namespace dosmara
