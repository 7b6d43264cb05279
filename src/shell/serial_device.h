// SPDX-License-Identifier: GPL-3.0-or-later
// The serial device of a port, with 19200 bit/s. A device that vanishes while it is in use is closed at the
// first error and opened again by its name as soon as it is back; nothing runs meanwhile but a slow timer.
#pragma once

#include <QSerialPort>
#include <QTimer>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>

#include "link/frame.h"

namespace dosmara {

// Number for the message box of an open that failed. A device in use and one that the user may not open give
// the same error; `permitted`, whether the file's permissions let the user in, tells them apart.
int OpenErrorNumber(QSerialPort::SerialPortError error, bool permitted);

class SerialDevice : public QObject {
  Q_OBJECT

 public:
  // `folder` is the program's directory, where links may name the devices of the ports.
  explicit SerialDevice(const QString& folder);
  ~SerialDevice() override;

  // Opens the device of port 1 to 4 with empty buffers. Returns 0, or the number for the message box.
  int Open(int port);
  // Closes the device for good; nothing happens when it is closed.
  void Close();
  // Closes and reopens the device. One that is not there is opened as soon as it is back.
  void Reopen();

  // Sends bytes; without a device they are lost.
  void Output(std::span<const std::uint8_t> bytes);
  std::size_t InputCount() const;
  Bytes TakeInput();
  // Blocks for `time`. Input only collects meanwhile: nothing tells of it.
  void WaitBlocking(std::chrono::milliseconds time);

 signals:
  // Bytes wait in the input buffer.
  void Received();
  // The device that had vanished is open again.
  void Returned();

 private:
  int OpenDevice();
  void CloseDevice();
  void OnError(QSerialPort::SerialPortError error);
  void LoseDevice();
  void TryAgain();

  const QString folder_;
  QSerialPort serial_;
  QTimer try_again_;      // runs while a device that is wanted is not there
  int port_ = 0;          // port in use
  QString device_;        // its name; empty while the system has no such device
  bool lost_ = false;     // the open device has failed and waits to be closed
  bool waiting_ = false;  // inside WaitBlocking
};

}  // namespace dosmara
