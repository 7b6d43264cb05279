// SPDX-License-Identifier: GPL-3.0-or-later
// The words of the interface, data/captions.tsv. The header row is "line" and the names of the languages; a
// row is a line number, or a range of them, and the words of that line in each language:
//
//   line     Italiano        English
//   15       Totali          Totals
//   46       ;-- Tempi       ;-- Times     a section marker, at the same line of every language
//   403-606  Allarme {code}  Alarm {code}  {code} counts the range from 000; a row of one line overrides it
//
// A further language is a further column. Every row has a cell for it; where the cell is empty, the language
// has the words of the first one. A line that no row has is empty in every language.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace dosmara {

inline constexpr int kMostCaptionLines = 650;
inline constexpr int kLongestCaption = 60;  // characters

struct Language {
  std::string name;
  std::vector<std::string> lines;  // line 1 first; all languages have as many
};

// Reads and checks the words. Throws TableError at the first mistake.
std::vector<Language> ReadCaptions(const std::filesystem::path& file);

}  // namespace dosmara
