// SPDX-License-Identifier: GPL-3.0-or-later
// Settings as a tool writes them, each record and then its mirror, frame by frame.
#include "machine/main_board_records.h"
#include "session_fixture.h"

namespace machine {
namespace {

class SettingsSession : public SessionTest {};

// Records of a node whose mirrors lie at one distance.
struct Mirrored {
  int node, first, last, distance;
};
constexpr Mirrored kMirrored[] = {{0, 1, 74, 202},  {0, 77, 79, 202}, {0, 83, 85, 202}, {0, 87, 106, 202},
                                  {0, 345, 345, 1}, {0, 347, 349, 3}, {0, 353, 353, 1}, {0, 355, 355, 1},
                                  {0, 359, 359, 1}, {0, 361, 361, 1}, {0, 363, 363, 1}, {0, 365, 365, 1},
                                  {1, 1, 22, 478},  {1, 24, 26, 478}, {1, 28, 36, 478}, {1, 38, 40, 478},
                                  {1, 42, 44, 478}, {1, 46, 50, 478}, {1, 553, 556, 4}, {1, 561, 561, 1},
                                  {1, 585, 585, 1}, {1, 587, 587, 1}, {1, 589, 591, 4}, {2, 1, 48, 215},
                                  {2, 51, 59, 215}, {2, 292, 309, 18}};

TEST_F(SettingsSession, ARecordHoldsWhatIsWrittenAndItsMirrorFollowsNothingButItsOwnWrite) {
  for (const Mirrored& range : kMirrored) {
    for (int record = range.first; record <= range.last; ++record) {
      const std::uint32_t mirror = Read(range.node, record + range.distance);
      const std::uint32_t value = Read(range.node, record) ^ 1;
      Write(range.node, record, value);
      EXPECT_EQ(Read(range.node, record), value) << range.node << " " << record;
      EXPECT_EQ(Read(range.node, record + range.distance), mirror) << range.node << " " << record;
      Write(range.node, record + range.distance, value);
      EXPECT_EQ(Read(range.node, record + range.distance), value) << range.node << " " << record;
    }
  }
}

TEST_F(SettingsSession, RecordsAreWideEnoughForTheirLargestValue) {
  struct {
    int node, first, last;
    std::uint32_t value;
  } const ranges[] = {{0, 1, 1, 99999},     {0, 2, 2, 9999},      {0, 3, 3, 99999},      {0, 4, 74, 65535},
                      {0, 79, 79, 9999},    {0, 85, 85, 65535},   {0, 132, 132, 999999}, {0, 133, 133, 65535},
                      {0, 333, 334, 65535}, {0, 345, 350, 65535}, {0, 353, 353, 250},    {0, 355, 355, 65535},
                      {0, 363, 363, 65535}, {0, 365, 365, 180},   {0, 367, 386, 65535},  {1, 48, 50, 65535},
                      {1, 148, 257, 999},   {1, 280, 477, 255},   {1, 553, 556, 65535},  {1, 563, 585, 255},
                      {1, 587, 587, 230},   {2, 292, 308, 30},    {3, 309, 309, 240}};
  for (const auto& range : ranges) {
    for (int record = range.first; record <= range.last; ++record) {
      if (range.node == 0 && record == 75) {
        continue;
      }
      Write(range.node, record, range.value);
      EXPECT_EQ(Read(range.node, record), range.value) << range.node << " " << record;
    }
  }
}

// Two thousand sales an hour at the highest price make less than 2^32 in a week, and so do the coins.
TEST_F(SettingsSession, CountersAndTotalsHoldMoreThanAWeek) {
  struct {
    int node, first, last;
  } const ranges[] = {{0, 107, 131}, {0, 332, 332}, {0, 336, 344}, {1, 60, 147}, {2, 71, 214}, {3, 71, 214}};
  for (const auto& range : ranges) {
    for (int record = range.first; record <= range.last; ++record) {
      Write(range.node, record, 4000000000u);
      EXPECT_EQ(Read(range.node, record), 4000000000u) << range.node << " " << record;
    }
  }
}

TEST_F(SettingsSession, TheDecimalsAreWrittenThroughOneRecordAndComeBackThroughAnother) {
  for (const std::uint32_t decimals : {0u, 3u, 1u, 2u}) {
    WriteBoth(0, 76, 278, decimals);
    EXPECT_EQ(Read(0, 311) & 3, decimals);
  }
}

TEST_F(SettingsSession, TheMachineSpeaksFourLanguagesOrEight) {
  EXPECT_EQ(Read(0, 317) & 8, 0u);
  WriteBoth(0, 77, 279, 3);
  EXPECT_EQ(Read(0, 77), 3u);
  SetBits(machine_.board(0), 317, 8, true);
  EXPECT_EQ(Read(0, 317) & 8, 8u);
}

TEST_F(SettingsSession, EachBoardTellsItsVersion) {
  EXPECT_GT(Read(0, 310), 0u);
  EXPECT_GT(Read(1, 534), 0u);
  EXPECT_GT(Read(2, 283), 0u);
  EXPECT_GT(Read(3, 283), 0u);
}

TEST_F(SettingsSession, EveryPositionOfBothUnitsHasAGroupOfItsOwn) {
  for (int position = 0; position < 48; ++position) {
    Write(2, 328 + position, 99);
    Write(3, 328 + position, static_cast<std::uint32_t>(position));
    EXPECT_EQ(Read(2, 328 + position), 99u);
    EXPECT_EQ(Read(3, 328 + position), static_cast<std::uint32_t>(position));
  }
  for (int position = 0; position < 48; ++position) {
    Write(2, 328 + position, static_cast<std::uint32_t>(position + 1));
  }
  EXPECT_EQ(Read(2, 328), 1u);
  EXPECT_EQ(Read(2, 375), 48u);
  EXPECT_EQ(Read(3, 375), 47u);
}

TEST_F(SettingsSession, TheBoardsInUseShowOnTheMainBoard) {
  const int records[] = {312, 313, 357};
  for (const int node : {1, 2, 3}) {
    EXPECT_EQ(Read(0, records[node - 1]) & 4, 4u) << node;
    machine_.SetPresent(node, false);
    EXPECT_EQ(Read(0, records[node - 1]) & 4, 0u) << node;
    machine_.SetPresent(node, true);
    EXPECT_EQ(Read(0, records[node - 1]) & 4, 4u) << node;
  }
}

}  // namespace
}  // namespace machine
