// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/serial_names.h"

#include <QDir>
#include <QFileInfo>
#include <QSerialPortInfo>
#include <algorithm>

namespace dosmara {

QString DeviceOfPort(const QString& folder, int port) {
  const QFileInfo link(QDir(folder), QString("com%1").arg(port));
  if (link.isSymLink()) {
    return link.absoluteFilePath();
  }
#ifdef Q_OS_WIN
  return QString("COM%1").arg(port);
#else
  QStringList devices;
  for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
    devices.append(info.systemLocation());
  }
  std::sort(devices.begin(), devices.end());
  return devices.value(port - 1);
#endif
}

QString ResolveDevice(const QString& device) {
#ifdef Q_OS_WIN
  return QFileInfo(device).isSymLink() ? QFileInfo(device).symLinkTarget() : device;
#else
  return QFileInfo(device).canonicalFilePath();
#endif
}

}  // namespace dosmara
