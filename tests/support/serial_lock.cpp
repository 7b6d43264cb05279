// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/serial_lock.h"

#include <QSerialPort>
#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace dosmara {

namespace {
constexpr std::chrono::seconds kDeadline(10);
}  // namespace

void AwaitUnlocked(const std::string& device) {
  const auto end = std::chrono::steady_clock::now() + kDeadline;
  QSerialPort port(QString::fromStdString(device));
  while (!port.open(QIODevice::ReadWrite)) {
    if (std::chrono::steady_clock::now() > end) {
      throw std::runtime_error(device + " stays locked");
    }
    std::this_thread::yield();
  }
}

bool IsOpenHere(const std::string& device) {
  for (const auto& file : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code closed_meanwhile;
    const std::string name = std::filesystem::read_symlink(file.path(), closed_meanwhile).string();
    if (name == device || name == device + " (deleted)") {
      return true;
    }
  }
  return false;
}

}  // namespace dosmara
