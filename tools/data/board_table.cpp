// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/board_table.h"

#include <algorithm>
#include <optional>
#include <regex>
#include <sstream>

#include "data/table_file.h"

namespace dosmara {
namespace {

constexpr int kMostRecords = 32767;
constexpr int kMostBytes = 4;
constexpr int kMostPeriod = 15;
// The tool reads 18 entries of the identification; a board has room for 20.
constexpr std::size_t kLeastIdentEntries = 18;
constexpr std::size_t kMostIdentEntries = 20;
// The tool's scan never visits the last record of a file.
const std::string kSpareName = "spare";
const std::string kMirrorWords = "mirror of ";

constexpr int kSelectionsBeforeGap = 16;
constexpr int kGapInSelections = 4;
constexpr int kColumnsOfUnit = 8;

// Turns the rows of one table into records.
class BoardReader {
 public:
  explicit BoardReader(const std::filesystem::path& file) : file_(file), rows_(ReadTable(file)) {}

  BoardTable Read() {
    if (rows_.size() < 3) {
      throw TableError(file_, 1, "has no records");
    }
    ReadFiles(rows_[0]);
    CheckHeader(rows_[1]);
    for (std::size_t i = 2; i < rows_.size(); ++i) {
      ReadRow(rows_[i]);
    }
    CheckWhole();
    for (auto& slot : slots_) {
      table_.records.push_back(std::move(slot->record));
    }
    return std::move(table_);
  }

 private:
  struct Slot {
    BoardRecord record;
    int line;
  };

  void ReadFiles(const TableRow& row) {
    if (row.cells[0] != "files" || row.cells.size() < 2) {
      throw TableError(file_, row.line, "the first row must be 'files' and their names");
    }
    table_.files.assign(row.cells.begin() + 1, row.cells.end());
    static const std::regex small_name("W[0-9]{4}");
    static const std::regex full_name("W[0-9]{4}A[A-Z][0-9]{2}");
    table_.identification = std::regex_match(table_.files.front(), small_name);
    for (const std::string& name : table_.files) {
      if (!std::regex_match(name, table_.identification ? small_name : full_name)) {
        throw TableError(file_, row.line, "'" + name + "' is no name for an index file of this table");
      }
    }
  }

  void CheckHeader(const TableRow& row) const {
    std::vector<std::string> columns = {"record", "name", "bytes", "period"};
    if (!table_.identification) {
      columns.push_back("default");
    }
    if (row.cells != columns) {
      throw TableError(file_, row.line, "the second row must name the columns");
    }
  }

  void ReadRow(const TableRow& row) {
    const std::vector<int> numbers = ParseRange(file_, row.line, "record", row.cells[0], 1, kMostRecords);
    if (row.cells.size() == 2 && row.cells[1].starts_with(kMirrorWords)) {
      ReadMirror(row, numbers);
      return;
    }
    if (row.cells.size() != rows_[1].cells.size()) {
      throw TableError(file_, row.line, "has " + std::to_string(row.cells.size()) + " cells");
    }
    if (row.cells[1].empty()) {
      throw TableError(file_, row.line, "has no name");
    }

    BoardRecord record;
    record.bytes = static_cast<int>(ParseNumber(file_, row.line, "bytes", row.cells[2], 1, kMostBytes));
    record.period = static_cast<int>(ParseNumber(file_, row.line, "period", row.cells[3], 0, kMostPeriod));
    const std::vector<std::uint32_t> values = ReadValues(row, record.bytes, numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      record.name = ExpandName(row.cells[1], static_cast<int>(i));
      record.value = values[values.size() == 1 ? 0 : i];
      Place(row.line, numbers[i], record);
    }
  }

  std::vector<std::uint32_t> ReadValues(const TableRow& row, int bytes, std::size_t records) const {
    if (table_.identification) {
      return {0};
    }
    const auto most = static_cast<std::uint32_t>((std::uint64_t{1} << (8 * bytes)) - 1);
    std::vector<std::uint32_t> values;
    std::istringstream words(row.cells[4]);
    for (std::string word; words >> word;) {
      values.push_back(ParseNumber(file_, row.line, "default", word, 0, most));
    }
    if (values.size() != 1 && values.size() != records) {
      throw TableError(
          file_, row.line,
          "has " + std::to_string(values.size()) + " defaults for " + std::to_string(records) + " records");
    }
    return values;
  }

  void ReadMirror(const TableRow& row, const std::vector<int>& numbers) {
    const std::string of = row.cells[1].substr(kMirrorWords.size());
    const std::vector<int> mains = ParseRange(file_, row.line, "record", of, 1, kMostRecords);
    if (mains.size() != numbers.size()) {
      throw TableError(file_, row.line, "mirrors a range of another length");
    }
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      const auto main = static_cast<std::size_t>(mains[i]);
      if (main > slots_.size() || !slots_[main - 1]) {
        throw TableError(file_, row.line,
                         "mirrors record " + std::to_string(main) + ", which no row above has");
      }
      BoardRecord record = slots_[main - 1]->record;
      record.name = kMirrorWords + record.name;
      record.period = 0;
      Place(row.line, numbers[i], record);
    }
  }

  void Place(int line, int number, const BoardRecord& record) {
    const auto at = static_cast<std::size_t>(number - 1);
    if (at >= slots_.size()) {
      slots_.resize(at + 1);
    }
    if (slots_[at]) {
      throw TableError(file_, line,
                       "record " + std::to_string(number) + " stands in line " +
                           std::to_string(slots_[at]->line) + " already");
    }
    slots_[at] = Slot{record, line};
  }

  void CheckWhole() const {
    int line = rows_[1].line;
    for (std::size_t i = 0; i < slots_.size(); ++i) {
      if (!slots_[i]) {
        throw TableError(file_, line, "record " + std::to_string(i + 1) + " is missing after this row");
      }
      line = slots_[i]->line;
    }
    const Slot& last = *slots_.back();
    if (table_.identification) {
      if (slots_.size() < kLeastIdentEntries || slots_.size() > kMostIdentEntries) {
        throw TableError(file_, last.line, "identification takes 18 to 20 records");
      }
    } else if (last.record.name != kSpareName) {
      throw TableError(file_, last.line, "the last record must be a spare, for the scan never visits it");
    }
  }

  const std::filesystem::path file_;
  const std::vector<TableRow> rows_;
  BoardTable table_;
  std::vector<std::optional<Slot>> slots_;
};

}  // namespace

BoardTable ReadBoardTable(const std::filesystem::path& file) { return BoardReader(file).Read(); }

std::string ExpandName(const std::string& pattern, int index) {
  static const std::regex braces(R"(\{(n([+-][0-9]+)?|selection|position)\})");
  std::smatch match;
  if (!std::regex_search(pattern, match, braces)) {
    return pattern;
  }
  int number = index + 1;
  if (match[1] == "selection") {
    if (index >= kSelectionsBeforeGap) {
      number += kGapInSelections;
    }
  } else if (match[1] == "position") {
    number = (index / kColumnsOfUnit + 1) * 10 + index % kColumnsOfUnit + 1;
  } else if (match[2].matched) {
    number += std::stoi(match[2]);
  }
  return match.prefix().str() + std::to_string(number) + match.suffix().str();
}

}  // namespace dosmara
