// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/frm_ser.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QThread>
#include <filesystem>

#include "link/identification.h"
#include "link/link_engine.h"
#include "shell/msg_box.h"
#include "shell/serial_names.h"
#include "store/failure.h"

namespace dosmara {

namespace {

constexpr std::chrono::milliseconds kTryAgainInterval(200);
constexpr int kTick = static_cast<int>(LinkTimer::Timer1);

}  // namespace

bool IsLateTick(std::chrono::microseconds due, std::chrono::microseconds now) {
  constexpr std::chrono::milliseconds kMostDelay(2);
  return now - due > kMostDelay;
}

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

FrmSer::FrmSer(Settings& settings, StatusBar& status_bar)
    : settings_(settings), status_bar_(status_bar) {
  setObjectName("FrmSer");
  setFixedSize(0, 0);
  serial_.setBaudRate(QSerialPort::Baud19200);
  serial_.setReadBufferSize(kInputBufferBytes);
  connect(&serial_, &QSerialPort::errorOccurred, this, &FrmSer::OnError);
  connect(&serial_, &QSerialPort::readyRead, this, &FrmSer::OnReadyRead);
  for (int i = 0; i < kLinkTimerCount; ++i) {
    timers_[i].setParent(this);
    timers_[i].setObjectName(QString("Timer%1").arg(i + 1));
    timers_[i].setTimerType(Qt::PreciseTimer);
    timers_[i].setInterval(kLinkTimerInterval[i]);
    connect(&timers_[i], &QTimer::timeout, this, [this, i] { Fire(static_cast<LinkTimer>(i)); });
  }
  try_again_.setInterval(kTryAgainInterval);
  connect(&try_again_, &QTimer::timeout, this, &FrmSer::TryAgain);
}

FrmSer::~FrmSer() {
  // A port that closes in its destructor must not reach a form that is half gone.
  serial_.disconnect(this);
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

int FrmSer::OpenPort(int port) {
  ClosePort();
  port_ = port;
  device_.clear();
  return OpenDevice();
}

void FrmSer::ClosePort() {
  try_again_.stop();
  CloseDevice();
}

void FrmSer::ReopenPort() {
  ClosePort();
  if (OpenDevice() != 0) {
    try_again_.start();
  }
}

// Opens the device of port_. It keeps its name even if others have moved up in the system's list since; only
// a port that had no device yet is looked up again.
int FrmSer::OpenDevice() {
  if (device_.isEmpty()) {
    device_ = DeviceOfPort(settings_.folder, port_);
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

void FrmSer::CloseDevice() {
  lost_ = false;
  if (serial_.isOpen()) {
    serial_.close();
  }
}

// A device that has gone raises errors without end until it is closed, so the first one counts. It must not
// be closed from inside the event that reports the error.
void FrmSer::OnError(QSerialPort::SerialPortError error) {
  const bool fatal = error == QSerialPort::ReadError || error == QSerialPort::WriteError ||
                     error == QSerialPort::ResourceError || error == QSerialPort::UnknownError;
  if (fatal && serial_.isOpen() && !lost_) {
    lost_ = true;
    QMetaObject::invokeMethod(this, &FrmSer::LoseDevice, Qt::QueuedConnection);
  }
}

void FrmSer::LoseDevice() {
  if (lost_) {
    CloseDevice();
    try_again_.start();
  }
}

// The request that was under way left with the device, so its time-out is at hand: there is no use in waiting
// for the rest of the second.
void FrmSer::TryAgain() {
  if (OpenDevice() != 0) {
    return;
  }
  try_again_.stop();
  if (timers_[static_cast<int>(LinkTimer::Timer2)].isActive()) {
    TimerEvent(LinkTimer::Timer2);
  }
}

void FrmSer::Output(std::span<const std::uint8_t> frame) {
  if (serial_.isOpen()) {
    serial_.write(reinterpret_cast<const char*>(frame.data()), static_cast<qint64>(frame.size()));
    serial_.flush();
  }
}

std::size_t FrmSer::InputCount() const { return static_cast<std::size_t>(serial_.bytesAvailable()); }

Bytes FrmSer::TakeInput() {
  const QByteArray input = serial_.isOpen() ? serial_.readAll() : QByteArray();
  return {input.begin(), input.end()};
}

void FrmSer::OnReadyRead() {
  if (!waiting_) {
    ReceiveEvent();
  }
}

void FrmSer::Fire(LinkTimer timer) {
  if (timer == LinkTimer::Timer1) {
    Tick();
  } else {
    TimerEvent(timer);
  }
}

// The scan tick disables itself for the length of its event. It runs on instead: a timer that is started anew
// fires at the next whole millisecond behind its interval, which would make each tick 41 ms long. Behind a
// late tick it begins anew all the same: it would make up for the delay, and two requests would come closer
// than a board is used to.
void FrmSer::Tick() {
  ticking_ = true;
  TimerEvent(LinkTimer::Timer1);
  ticking_ = false;
  if (!timers_[kTick].isActive()) {
    return;
  }
  if (IsLateTick(tick_due_, Now())) {
    StartTick();
  } else {
    tick_due_ += kLinkTimerInterval[kTick];
  }
}

void FrmSer::StartTick() {
  tick_due_ = Now() + kLinkTimerInterval[kTick];
  timers_[kTick].start();
}

void FrmSer::EnableTimer(LinkTimer timer) {
  QTimer& enabled = timers_[static_cast<int>(timer)];
  if (enabled.isActive()) {
    return;
  }
  if (timer == LinkTimer::Timer1) {
    StartTick();
  } else {
    enabled.start();
  }
}

void FrmSer::DisableTimer(LinkTimer timer) {
  if (!ticking_ || timer != LinkTimer::Timer1) {
    timers_[static_cast<int>(timer)].stop();
  }
}

void FrmSer::ShowLamp(int panel, int image) { status_bar_.ShowLamp(panel, image); }

void FrmSer::ShowStatusText(const std::string& text) { status_bar_.SetText(QString::fromStdString(text)); }

void FrmSer::ClearStatusText() { status_bar_.ClearText(); }

std::chrono::microseconds FrmSer::Now() const {
  return std::chrono::duration_cast<std::chrono::microseconds>(
      std::chrono::steady_clock::now().time_since_epoch());
}

void FrmSer::WaitBlocking(std::chrono::milliseconds time) {
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
