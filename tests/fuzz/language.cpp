// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary bytes as a language file: at most 650 captions of bounded length, and a file always fits itself.
// The byte '|' parts the input into the current file and the new one.
#include "shell/language.h"

#include <algorithm>
#include <cstdlib>

#include "shell/caption_table.h"
#include "shell/text_file.h"
#include "store/failure.h"

namespace {

using namespace dosmara;

// Whether the lines are within what the table holds; element 0 stays empty either way.
bool Fills(const QStringList& lines) {
  try {
    FillCaptions(lines);
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

bool Fits(const QStringList& current, const QStringList& other) {
  try {
    return ValidateLines(current, other);
  } catch (const RunTimeError&) {
    return false;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const qsizetype bar = input.indexOf('|');
  const QStringList current = TextLines(bar < 0 ? input : input.left(bar));
  const QStringList other = bar < 0 ? current : TextLines(input.mid(bar + 1));

  const bool is_short = current.size() <= 650;
  if (Fills(current) != is_short) {
    std::abort();
  }
  if (Fits(current, current) != is_short) {
    std::abort();
  }
  const bool fits = Fits(current, other);
  if (fits && other.size() < current.size()) {
    std::abort();
  }
  for (qsizetype i = 0; fits && i < current.size(); ++i) {
    if (CaptionTable[i + 1] != other[i]) {
      std::abort();
    }
  }
  if (!CaptionTable[0].isEmpty()) {
    std::abort();
  }
  const auto too_long = [](const QString& caption) { return caption.size() > 500; };
  if (std::any_of(std::begin(CaptionTable), std::end(CaptionTable), too_long)) {
    std::abort();
  }
  return 0;
}
