// SPDX-License-Identifier: GPL-3.0-or-later
// Small text files in a folder, as language and settings files are: found without regard to case, since they
// come from systems that make no difference, and read whole.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace dosmara {

// Largest file that is read. 650 captions take some 40 KiB; a file far beyond that is not for this program.
inline constexpr qint64 kLargestTextFile = 1024 * 1024;
// A longer line is cut here: nothing on the screen has room for it, and laying it out would take seconds.
inline constexpr qsizetype kLongestLine = 500;

// Path of the file `name` in `folder`: an exact match of the name first, else one that differs in case only.
// Empty when there is none.
QString FindFile(const QString& folder, const QString& name);

// The text of `bytes`: UTF-8 where they are valid UTF-8, with or without a byte-order mark, else
// Windows-1252.
QString DecodeText(const QByteArray& bytes);

// The lines of `bytes`, ended by LF, CR LF or CR; the last one needs no end. Each is cut at kLongestLine.
QStringList TextLines(const QByteArray& bytes);

// The lines of a file. Throws RunTimeError: kErrorFileNotFound when `path` is empty or cannot be read,
// kErrorOutOfRange when the file is larger than kLargestTextFile.
QStringList ReadLines(const QString& path);

}  // namespace dosmara
