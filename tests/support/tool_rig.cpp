// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/tool_rig.h"

#include <QDir>
#include <QFile>
#include <stdexcept>

#include "forms/form_list.h"
#include "support/serial_lock.h"

namespace dosmara {

ToolRig::ToolRig() {
  for (const QFileInfo& file : QDir(DOSMARA_PROGRAM_DATA).entryInfoList(QDir::Files)) {
    QFile::copy(file.filePath(), folder_.path() + "/" + file.fileName());
  }
  // The words on the screen are those that the tests expect, however many languages there are.
  folder_.Write("dosmara.ini", "Com=1\nLingua=English\n");
  for (int port = kFirstPort; port <= kLastPort; ++port) {
    QFile::link(folder_.path() + "/unplugged", PortLink(port));
  }
}

MachineProcess& ToolRig::StartMachine(int port, const QStringList& options) {
  const QStringList arguments = {"--boards", folder_.path(), "--link", PortLink(port)};
  machines_.push_back(std::make_unique<MachineProcess>(DOSMARA_MACHINE, arguments + options));
  if (!machines_.back()->Ready()) {
    throw std::runtime_error("the simulated machine did not start");
  }
  AwaitUnlocked(QFileInfo(PortLink(port)).symLinkTarget().toStdString());
  return *machines_.back();
}

MDIForm1& ToolRig::StartTool() {
  window_ = std::make_unique<MDIForm1>(SettingsOf(folder_.program()), FormList());
  window_->Load();
  return *window_;
}

QString ToolRig::PortLink(int port) const { return QString("%1/com%2").arg(folder_.path()).arg(port); }

}  // namespace dosmara
