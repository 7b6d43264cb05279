// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/text_file.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>

#include "store/failure.h"

namespace dosmara {

namespace {

// Windows-1252 differs from Latin-1 in the bytes 128 to 159 only. The five bytes without a character keep
// their number.
constexpr char16_t kWindows1252[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                       0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString FromWindows1252(const QByteArray& bytes) {
  QString text = QString::fromLatin1(bytes);
  for (QChar& c : text) {
    if (c.unicode() >= 128 && c.unicode() < 160) {
      c = QChar(kWindows1252[c.unicode() - 128]);
    }
  }
  return text;
}

// The filter of a folder's files that lets nothing but `name` pass, in any case.
QString FilterOf(QString name) { return name.replace(QRegularExpression("([*?[])"), "[\\1]"); }

}  // namespace

QString FindFile(const QString& folder, const QString& name) {
  const QDir dir(folder);
  const QStringList found = dir.entryList({FilterOf(name)}, QDir::Files, QDir::Name);
  if (found.isEmpty()) {
    return {};
  }
  return dir.filePath(found.contains(name) ? name : found.first());
}

QString DecodeText(const QByteArray& bytes) {
  QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString text = utf8(bytes);
  return utf8.hasError() ? FromWindows1252(bytes) : text;
}

QStringList TextLines(const QByteArray& bytes) {
  const QString text = DecodeText(bytes);
  QStringList lines;
  for (qsizetype begin = 0; begin < text.size();) {
    qsizetype end = begin;
    while (end < text.size() && text[end] != '\n' && text[end] != '\r') {
      ++end;
    }
    lines.append(text.mid(begin, qMin(end - begin, kLongestLine)));
    const bool cr_lf = end + 1 < text.size() && text[end] == '\r' && text[end + 1] == '\n';
    begin = end + (cr_lf ? 2 : 1);
  }
  return lines;
}

QStringList ReadLines(const QString& path) {
  QFile file(path);
  if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) {
    throw RunTimeError(kErrorFileNotFound, "File not found");
  }
  const QByteArray bytes = file.read(kLargestTextFile + 1);
  if (bytes.size() > kLargestTextFile) {
    throw RunTimeError(kErrorOutOfRange, "File too large");
  }
  return TextLines(bytes);
}

}  // namespace dosmara
