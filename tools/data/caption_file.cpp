// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/caption_file.h"

#include <algorithm>
#include <map>

#include "data/table_file.h"

namespace dosmara {
namespace {

const std::string kMarker = ";--";
const std::string kCode = "{code}";
constexpr std::size_t kCodeDigits = 3;

// Characters of a UTF-8 text: every byte but those that continue one.
int CharacterCount(const std::string& text) {
  return static_cast<int>(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

std::string ExpandCode(std::string text, int code) {
  const std::size_t at = text.find(kCode);
  if (at == std::string::npos) {
    return text;
  }
  std::string digits = std::to_string(code);
  digits.insert(0, kCodeDigits - std::min(kCodeDigits, digits.size()), '0');
  return text.replace(at, kCode.size(), digits);
}

class CaptionReader {
 public:
  explicit CaptionReader(const std::filesystem::path& file) : file_(file), rows_(ReadTable(file)) {}

  std::vector<Language> Read() {
    if (rows_.size() < 2) {
      throw TableError(file_, 1, "has no captions");
    }
    ReadHeader(rows_[0]);
    for (std::size_t i = 1; i < rows_.size(); ++i) {
      ReadRow(rows_[i]);
    }
    return std::move(languages_);
  }

 private:
  void ReadHeader(const TableRow& row) {
    if (row.cells[0] != "line" || row.cells.size() < 2) {
      throw TableError(file_, row.line, "the first row must be 'line' and the languages");
    }
    for (std::size_t i = 1; i < row.cells.size(); ++i) {
      languages_.push_back({row.cells[i], {}});
    }
  }

  void ReadRow(const TableRow& row) {
    const std::vector<int> numbers = ParseRange(file_, row.line, "line", row.cells[0], 1, kMostCaptionLines);
    const std::vector<std::string> captions = CaptionsOf(row);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      if (!Claim(row.line, numbers[i], numbers.size() == 1)) {
        continue;
      }
      for (std::size_t k = 0; k < languages_.size(); ++k) {
        Put(languages_[k], numbers[i], ExpandCode(captions[k], static_cast<int>(i)));
      }
    }
  }

  // The row's caption in each language. An empty cell takes the caption of the first language.
  std::vector<std::string> CaptionsOf(const TableRow& row) const {
    CheckCount(row);
    std::vector<std::string> captions(row.cells.begin() + 1, row.cells.end());
    const std::string first = captions[0];
    if (first.empty()) {
      throw TableError(file_, row.line, languages_[0].name + " is missing");
    }
    for (std::size_t k = 0; k < captions.size(); ++k) {
      std::string& caption = captions[k];
      if (caption.empty()) {
        caption = first;
      }
      if (caption.starts_with(kMarker) != first.starts_with(kMarker)) {
        throw TableError(file_, row.line, "is a marker in some languages only");
      }
      if (CharacterCount(caption) > kLongestCaption) {
        throw TableError(
            file_, row.line,
            languages_[k].name + " has more than " + std::to_string(kLongestCaption) + " characters");
      }
    }
    return captions;
  }

  // Every language has a cell in every row. A row with too few cells is refused by the languages that it
  // lacks.
  void CheckCount(const TableRow& row) const {
    const std::size_t wanted = languages_.size() + 1;
    if (row.cells.size() == wanted) {
      return;
    }
    std::string message = std::to_string(row.cells.size()) + " cells, " + std::to_string(wanted) + " wanted";
    for (std::size_t k = row.cells.size(); k < wanted; ++k) {
      message += (k == row.cells.size() ? ": " : ", ") + languages_[k - 1].name;
    }
    throw TableError(file_, row.line, message);
  }

  // Notes that the row in `row_line` has words for caption line `number`, and tells whether they are used: a
  // row
  // of one line overrides a range. Throws when two rows, or two ranges, have the same line.
  bool Claim(int row_line, int number, bool single) {
    auto& claims = single ? singles_ : ranges_;
    const auto [claim, fresh] = claims.emplace(number, row_line);
    if (!fresh) {
      throw TableError(
          file_, row_line,
          "line " + std::to_string(number) + " stands in line " + std::to_string(claim->second) + " already");
    }
    return single || !singles_.contains(number);
  }

  static void Put(Language& language, int number, std::string text) {
    const auto lines = static_cast<std::size_t>(number);
    if (language.lines.size() < lines) {
      language.lines.resize(lines);
    }
    language.lines[lines - 1] = std::move(text);
  }

  const std::filesystem::path file_;
  const std::vector<TableRow> rows_;
  std::vector<Language> languages_;
  std::map<int, int> singles_;  // caption line to the row that has it
  std::map<int, int> ranges_;
};

}  // namespace

std::vector<Language> ReadCaptions(const std::filesystem::path& file) { return CaptionReader(file).Read(); }

}  // namespace dosmara
