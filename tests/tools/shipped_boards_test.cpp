// SPDX-License-Identifier: GPL-3.0-or-later
// The index files that come with the tool, against the record numbers that its windows count on.
#include <algorithm>
#include <set>
#include <sstream>

#include "tools/table_test.h"

namespace dosmara {
namespace {

constexpr int kMain = 0;
constexpr int kHotDrinks = 1;
constexpr int kZeth = 2;
constexpr int kZeth2 = 3;

struct BoardFiles {
  const char* small;
  const char* full;
};
constexpr BoardFiles kFiles[] = {
    {"W0256", "W0256AO01"}, {"W0257", "W0257AC01"}, {"W0245", "W0245AB00"}, {"W0245", "W0245AC00"}};

struct Record {
  int address;
  int control;
  int period;
  std::uint32_t value;
  std::string name;
  int bytes() const { return (control & 15) + 1; }
};

std::string FileOf(const std::string& name, const std::string& ending) {
  return ReadWhole(std::string(PROGRAM_DATA) + "/" + name + ending);
}

// The records of an index file of `width` bytes a record, record 1 at index 1.
std::vector<Record> ReadIndex(const std::string& name, std::size_t width) {
  const std::string bytes = FileOf(name, ".inx");
  const auto at = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes.at(i)); };
  std::vector<Record> records(1);
  for (std::size_t i = 0; i + width <= bytes.size(); i += width) {
    Record record{at(i) + 256 * at(i + 1) + 65536 * at(i + 4), at(i + 2), at(i + 3), 0, ""};
    for (std::size_t k = 5; k < width; ++k) {
      record.value |= std::uint32_t{at(i + k)} << (8 * (k - 5));
    }
    records.push_back(record);
  }
  return records;
}

// The records of a node's full index file, with their names.
std::vector<Record> ReadBoard(int node) {
  std::vector<Record> records = ReadIndex(kFiles[node].full, 9);
  std::istringstream table(FileOf(kFiles[node].full, ".tsv"));
  std::string row;
  std::getline(table, row);
  for (std::size_t i = 1; std::getline(table, row); ++i) {
    const std::size_t begin = row.find('\t') + 1;
    records.at(i).name = row.substr(begin, row.find('\t', begin) - begin);
  }
  return records;
}

// The tables below hold what the established windows count on. A board may have further records.

// Records that windows read or write, first to last, and their width.
struct Width {
  int first;
  int last;
  int bytes;
};

constexpr Width kMainWidths[] = {
    {1, 3, 3},     {4, 74, 2},    {76, 78, 1},   {79, 79, 2},   {83, 84, 1},   {85, 85, 2},   {86, 106, 1},
    {107, 131, 4}, {132, 132, 3}, {133, 133, 2}, {142, 201, 1}, {203, 205, 3}, {206, 276, 2}, {278, 280, 1},
    {281, 281, 2}, {285, 286, 1}, {287, 287, 2}, {289, 308, 1}, {310, 318, 1}, {320, 324, 1}, {326, 330, 1},
    {332, 332, 4}, {333, 334, 2}, {336, 344, 4}, {345, 352, 2}, {353, 354, 1}, {355, 356, 2}, {357, 362, 1},
    {363, 364, 2}, {365, 366, 1}, {367, 386, 2}};
constexpr Width kHotDrinksWidths[] = {
    {1, 22, 1},    {24, 26, 1},   {28, 36, 1},   {38, 40, 1},   {42, 44, 1},   {46, 47, 1},
    {48, 50, 2},   {60, 147, 4},  {148, 257, 2}, {280, 477, 1}, {479, 500, 1}, {502, 504, 1},
    {506, 514, 1}, {516, 518, 1}, {520, 522, 1}, {524, 525, 1}, {526, 528, 2}, {534, 539, 1},
    {541, 541, 1}, {542, 542, 2}, {544, 550, 1}, {553, 560, 2}, {561, 591, 1}, {593, 595, 1}};
constexpr Width kZethWidths[] = {{1, 48, 1},    {51, 59, 1},   {71, 214, 4},  {216, 263, 1}, {266, 274, 1},
                                 {283, 286, 1}, {287, 287, 2}, {288, 290, 1}, {292, 375, 1}};

// Records written right behind their main record with the same value.
struct Mirrors {
  int first;
  int last;
  int mirror;  // of `first`
};
constexpr Mirrors kMainMirrors[] = {
    {1, 3, 203},     {4, 11, 206},    {12, 41, 214},   {42, 43, 244},   {44, 73, 246},   {74, 74, 276},
    {76, 76, 278},   {77, 77, 279},   {78, 78, 280},   {79, 79, 281},   {83, 83, 285},   {84, 84, 286},
    {85, 85, 287},   {87, 106, 289},  {345, 345, 346}, {347, 349, 350}, {353, 353, 354}, {355, 355, 356},
    {359, 359, 360}, {361, 361, 362}, {363, 363, 364}, {365, 365, 366}};
constexpr Mirrors kHotDrinksMirrors[] = {
    {1, 22, 479},    {24, 24, 502},   {25, 25, 503},   {26, 26, 504},   {28, 28, 506},  {29, 29, 507},
    {30, 30, 508},   {31, 31, 509},   {32, 32, 510},   {33, 33, 511},   {34, 36, 512},  {38, 40, 516},
    {42, 44, 520},   {46, 46, 524},   {47, 47, 525},   {48, 48, 526},   {49, 49, 527},  {50, 50, 528},
    {553, 556, 557}, {561, 561, 562}, {585, 585, 586}, {587, 587, 588}, {589, 591, 593}};
constexpr Mirrors kZethMirrors[] = {{1, 48, 216},  {51, 51, 266}, {52, 52, 267},  {53, 53, 268},
                                    {54, 54, 269}, {55, 55, 270}, {56, 56, 271},  {57, 57, 272},
                                    {58, 58, 273}, {59, 59, 274}, {292, 309, 310}};

// What a value may be, so that no slider of a fresh machine stands at its end.
struct Range {
  int node;
  int first;
  int last;
  std::uint32_t least;
  std::uint32_t most;
};
constexpr Range kRanges[] = {
    {kMain, 1, 1, 0, 99999},       {kMain, 2, 2, 0, 9999},          {kMain, 3, 3, 0, 99999},
    {kMain, 79, 79, 0, 9999},      {kMain, 132, 132, 0, 999999},    {kMain, 311, 311, 2, 2},
    {kMain, 312, 313, 4, 4},       {kMain, 357, 357, 4, 4},         {kMain, 353, 353, 20, 250},
    {kMain, 365, 365, 0, 180},     {kMain, 320, 320, 0, 59},        {kMain, 321, 321, 0, 23},
    {kMain, 322, 322, 1, 31},      {kMain, 323, 323, 1, 12},        {kMain, 324, 324, 0, 99},
    {kHotDrinks, 1, 22, 0, 29},    {kHotDrinks, 24, 24, 70, 110},   {kHotDrinks, 25, 26, 0, 100},
    {kHotDrinks, 28, 29, 1, 99},   {kHotDrinks, 31, 31, 0, 100},    {kHotDrinks, 32, 32, 0, 90},
    {kHotDrinks, 33, 33, 50, 180}, {kHotDrinks, 148, 257, 0, 999},  {kHotDrinks, 434, 455, 0, 100},
    {kHotDrinks, 561, 561, 5, 60}, {kHotDrinks, 587, 587, 29, 230}, {kZeth, 1, 48, 0, 29},
    {kZeth, 51, 51, 1, 16},        {kZeth, 52, 52, 0, 10},          {kZeth, 53, 53, 10, 50},
    {kZeth, 54, 54, 5, 50},        {kZeth, 55, 55, 1, 9},           {kZeth, 56, 56, 1, 12},
    {kZeth, 57, 57, 1, 30},        {kZeth, 58, 58, 0, 250},         {kZeth, 292, 299, 0, 10},
    {kZeth, 300, 307, 1, 3},       {kZeth, 308, 308, 10, 30},       {kZeth, 309, 309, 120, 240},
    {kZeth, 328, 375, 0, 99}};

template <std::size_t N>
void ExpectWidths(int node, const Width (&widths)[N]) {
  const auto records = ReadBoard(node);
  for (const Width& run : widths) {
    for (int i = run.first; i <= run.last; ++i) {
      EXPECT_EQ(records.at(i).bytes(), run.bytes) << "node " << node << " record " << i;
      EXPECT_NE(records.at(i).name, "reserved") << "node " << node << " record " << i;
    }
  }
}

template <std::size_t N>
void ExpectMirrors(int node, const Mirrors (&mirrors)[N]) {
  const auto records = ReadBoard(node);
  for (const Mirrors& run : mirrors) {
    for (int i = run.first; i <= run.last; ++i) {
      const Record& mirror = records.at(run.mirror + i - run.first);
      EXPECT_EQ(mirror.name, "mirror of " + records.at(i).name) << "node " << node << " record " << i;
      EXPECT_EQ(mirror.bytes(), records.at(i).bytes()) << "node " << node << " record " << i;
      EXPECT_EQ(mirror.value, records.at(i).value) << "node " << node << " record " << i;
    }
  }
}

// Those of the records in `widths` that are read over and over.
template <std::size_t N>
std::set<int> Polled(int node, const Width (&widths)[N]) {
  std::set<int> polled;
  const auto records = ReadBoard(node);
  for (const Width& run : widths) {
    for (int i = run.first; i <= run.last; ++i) {
      if (records.at(i).period != 0) {
        polled.insert(i);
      }
    }
  }
  return polled;
}

TEST(ShippedBoards, HoldAsManyRecordsAsTheirWindowsNameAndASpare) {
  EXPECT_GE(ReadBoard(kMain).size() - 1, 387u);
  EXPECT_GE(ReadBoard(kHotDrinks).size() - 1, 597u);
  EXPECT_GE(ReadBoard(kZeth).size() - 1, 376u);
  EXPECT_GE(ReadBoard(kZeth2).size() - 1, 376u);
  for (int node = 0; node < 4; ++node) {
    const auto records = ReadBoard(node);
    EXPECT_EQ(records.back().name, "spare");
    EXPECT_EQ(std::ranges::count(records, "spare", &Record::name), 1);
  }
}

TEST(ShippedBoards, HoldEighteenIdentificationRecordsOfOneByte) {
  for (const BoardFiles& files : kFiles) {
    const auto records = ReadIndex(files.small, 5);
    EXPECT_EQ(records.size() - 1, 18u) << files.small;
    for (std::size_t i = 1; i < records.size(); ++i) {
      EXPECT_EQ(records[i].bytes(), 1) << files.small;
    }
  }
}

TEST(ShippedBoards, GiveEveryRecordTheWidthOfItsValues) {
  ExpectWidths(kMain, kMainWidths);
  ExpectWidths(kHotDrinks, kHotDrinksWidths);
  ExpectWidths(kZeth, kZethWidths);
  ExpectWidths(kZeth2, kZethWidths);
}

TEST(ShippedBoards, KeepEveryMirrorLikeItsRecord) {
  ExpectMirrors(kMain, kMainMirrors);
  ExpectMirrors(kHotDrinks, kHotDrinksMirrors);
  ExpectMirrors(kZeth, kZethMirrors);
  ExpectMirrors(kZeth2, kZethMirrors);
}

TEST(ShippedBoards, StartWithValuesThatTheWindowsCanShow) {
  for (const Range& range : kRanges) {
    const auto records = ReadBoard(range.node);
    for (int i = range.first; i <= range.last; ++i) {
      EXPECT_GE(records.at(i).value, range.least) << "node " << range.node << " record " << i;
      EXPECT_LE(records.at(i).value, range.most) << "node " << range.node << " record " << i;
    }
  }
  EXPECT_EQ(ReadBoard(kMain).at(147).value, 255u);  // an empty entry of the alarm ring
}

TEST(ShippedBoards, PollOnlyStatusGatesClockAlarmsAndReadBacks) {
  std::set<int> main = {74, 86, 311, 312, 313, 317, 318, 320, 321, 322, 323, 324, 357};
  for (int i = 142; i <= 201; ++i) {
    main.insert(i);
  }
  EXPECT_EQ(Polled(kMain, kMainWidths), main);
  EXPECT_EQ(Polled(kHotDrinks, kHotDrinksWidths),
            (std::set<int>{541, 542, 544, 545, 546, 547, 548, 549, 550}));
  EXPECT_EQ(Polled(kZeth, kZethWidths), (std::set<int>{287, 288, 289, 290}));
  EXPECT_EQ(Polled(kZeth2, kZethWidths), (std::set<int>{287, 288, 289, 290}));
}

TEST(ShippedBoards, NeverLetASilentBoardHoldTheLink) {
  for (int node = 0; node < 4; ++node) {
    for (const Record& record : ReadBoard(node)) {
      EXPECT_EQ(record.period & 2, 0) << record.name;
    }
  }
}

TEST(ShippedBoards, ShareNoAddressWithinABoard) {
  for (const BoardFiles& files : kFiles) {
    std::set<int> taken;
    for (const auto& records : {ReadIndex(files.small, 5), ReadIndex(files.full, 9)}) {
      for (std::size_t i = 1; i < records.size(); ++i) {
        for (int k = 0; k < records[i].bytes(); ++k) {
          EXPECT_TRUE(taken.insert(records[i].address + k).second) << files.full << " record " << i;
        }
      }
    }
    EXPECT_FALSE(taken.contains(0)) << "the port test reads there";
  }
}

TEST(ShippedBoards, BeginNoFrameWithTheMarkOfAFrameToBePassedOn) {
  for (const auto& records : {ReadIndex("W0256", 5), ReadIndex("W0256AO01", 9)}) {
    for (const Record& record : records) {
      EXPECT_LT(record.control | 128, 241);
    }
  }
}

TEST(ShippedBoards, MakeTheTwoZethUnitsAlike) {
  EXPECT_EQ(FileOf("W0245AB00", ".inx"), FileOf("W0245AC00", ".inx"));
}

}  // namespace
}  // namespace dosmara
