// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/serial_device.h"

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QThread>

#include "shell/serial_names.h"
#include "store/failure.h"

namespace dosmara {

namespace {

constexpr std::chrono::milliseconds kTryAgainInterval(200);

}  // namespace

int OpenErrorNumber(QSerialPort::SerialPortError error, bool permitted) {
  switch (error) {
    case QSerialPort::DeviceNotFoundError:
      return kErrorInvalidPort;
    case QSerialPort::PermissionError:
      return permitted ? kErrorPortBusy : kErrorPermissionDenied;
    default:
      return kErrorDeviceUnavailable;
  }
}

SerialDevice::SerialDevice(const QString& folder) : folder_(folder) {
  serial_.setBaudRate(QSerialPort::Baud19200);
  serial_.setReadBufferSize(kInputBufferBytes);
  connect(&serial_, &QSerialPort::errorOccurred, this, &SerialDevice::OnError);
  connect(&serial_, &QSerialPort::readyRead, this, [this] {
    if (!waiting_) {
      emit Received();
    }
  });
  try_again_.setInterval(kTryAgainInterval);
  connect(&try_again_, &QTimer::timeout, this, &SerialDevice::TryAgain);
}

SerialDevice::~SerialDevice() {
  // A port that closes in its destructor must not reach an object that is half gone.
  serial_.disconnect(this);
}

int SerialDevice::Open(int port) {
  Close();
  port_ = port;
  device_.clear();
  return OpenDevice();
}

void SerialDevice::Close() {
  try_again_.stop();
  CloseDevice();
}

void SerialDevice::Reopen() {
  Close();
  if (OpenDevice() != 0) {
    try_again_.start();
  }
}

// Opens the device of port_. It keeps its name even if others have moved up in the system's list since; only
// a port that had no device yet is looked up again.
int SerialDevice::OpenDevice() {
  if (device_.isEmpty()) {
    device_ = DeviceOfPort(folder_, port_);
  }
  const QString path = ResolveDevice(device_);
  if (path.isEmpty()) {
    return kErrorInvalidPort;
  }
  serial_.setPortName(path);
  if (!serial_.open(QIODevice::ReadWrite)) {
    const QFileInfo device(path);
    return OpenErrorNumber(serial_.error(), device.isReadable() && device.isWritable());
  }
  // The system has kept what arrived while nobody listened.
  serial_.clear(QSerialPort::Input);
  return 0;
}

void SerialDevice::CloseDevice() {
  lost_ = false;
  if (serial_.isOpen()) {
    serial_.close();
  }
}

// A device that has gone raises errors without end until it is closed, so the first one counts. It must not
// be closed from inside the event that reports the error.
void SerialDevice::OnError(QSerialPort::SerialPortError error) {
  const bool fatal = error == QSerialPort::ReadError || error == QSerialPort::WriteError ||
                     error == QSerialPort::ResourceError || error == QSerialPort::UnknownError;
  if (fatal && serial_.isOpen() && !lost_) {
    lost_ = true;
    QMetaObject::invokeMethod(this, &SerialDevice::LoseDevice, Qt::QueuedConnection);
  }
}

void SerialDevice::LoseDevice() {
  if (lost_) {
    CloseDevice();
    try_again_.start();
  }
}

void SerialDevice::TryAgain() {
  if (OpenDevice() == 0) {
    try_again_.stop();
    emit Returned();
  }
}

void SerialDevice::Output(std::span<const std::uint8_t> bytes) {
  if (serial_.isOpen()) {
    serial_.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
    serial_.flush();
  }
}

std::size_t SerialDevice::InputCount() const { return static_cast<std::size_t>(serial_.bytesAvailable()); }

Bytes SerialDevice::TakeInput() {
  const QByteArray input = serial_.isOpen() ? serial_.readAll() : QByteArray();
  return {input.begin(), input.end()};
}

void SerialDevice::WaitBlocking(std::chrono::milliseconds time) {
  waiting_ = true;
  for (QDeadlineTimer deadline(time, Qt::PreciseTimer); !deadline.hasExpired();) {
    const bool collects = serial_.isOpen() && !lost_ && InputCount() < kInputBufferBytes;
    const int left = qMax(1, static_cast<int>(deadline.remainingTime()));
    if (!collects) {
      QThread::msleep(static_cast<unsigned long>(left));
    } else {
      serial_.waitForReadyRead(left);
    }
  }
  waiting_ = false;
}

}  // namespace dosmara
