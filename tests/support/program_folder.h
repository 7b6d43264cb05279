// SPDX-License-Identifier: GPL-3.0-or-later
// The program's directory and the one above it, made new for one test.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

namespace dosmara {

class ProgramFolder {
 public:
  ProgramFolder() { QDir(parent()).mkdir("tool"); }

  QString parent() const { return temporary_.path(); }
  QString path() const { return parent() + "/tool"; }
  QString program() const { return path() + "/dosmara"; }

  // Writes a file of the program's directory, or above it with "../" in front.
  void Write(const QString& name, const QByteArray& bytes) const {
    QFile file(path() + "/" + name);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
      qFatal("cannot write %s", qPrintable(name));
    }
  }

  // The bytes of a file; "(none)" without one.
  QByteArray Read(const QString& name) const {
    QFile file(path() + "/" + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
  }

 private:
  QTemporaryDir temporary_;
};

}  // namespace dosmara
