// SPDX-License-Identifier: GPL-3.0-or-later
// Which device is port n.
#pragma once

#include <QString>

namespace dosmara {

// Name of the device of `port`: the link `com<n>` in `folder` if there is one, even one that leads nowhere
// now; else "COM<n>" on Windows and the n-th serial port that the system lists, by name, elsewhere. Empty
// when the system lists fewer.
QString DeviceOfPort(const QString& folder, int port);

// What to open for a device name now: a link may lead to another device each time, and a lock holds only
// when everybody uses the device's own name. Empty while there is no such device.
QString ResolveDevice(const QString& device);

}  // namespace dosmara
