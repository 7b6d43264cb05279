// SPDX-License-Identifier: GPL-3.0-or-later
// A hundred thousand completed exchanges on each of some bad lines, with an operator who reads and writes
// meanwhile. Whatever the line does, the table holds nothing but what was put there and what the machine sent
// right.
#include <cstdio>

#include "link/link_engine.h"
#include "support/faulty_board.h"
#include "support/link_fixture.h"

namespace dosmara {
namespace {

constexpr std::uint32_t kSeed = 1920;
constexpr int kRecordsPerNode = 40;
constexpr std::size_t kExchanges = 100000;

// A form that judges each arrival: it must be a right reply to this very record, whose last byte has come in
// this very moment.
class JudgingForm : public LoadedForm {
 public:
  JudgingForm(const FaultyBoard& machine, const VirtualHost& host) : machine_(machine), host_(host) {}

  // What the table must hold: the last good arrival or put of each record.
  double expected[kNodeCount][kRecordsPerNode + 1] = {};
  int arrivals[kNodeCount][kRecordsPerNode + 1] = {};
  std::size_t exchanges = 0;
  int wrong = 0;

  void SLabelChange(std::int32_t index, double value) override {
    const bool right = machine_.HasJustSent(host_.Now(), NodeIndex, index, value);
    if (!right) {
      ++wrong;
    }
    ++exchanges;
    expected[NodeIndex][index] = value;
    ++arrivals[NodeIndex][index];
  }

 private:
  const FaultyBoard& machine_;
  const VirtualHost& host_;
};

// A line and how its board answers.
struct Line {
  const char* name;
  bool at_wire_pace;
  microseconds least_latency;
  unsigned further_microseconds;
};

class RandomFaults : public LinkFixture, public ::testing::WithParamInterface<Line> {
 protected:
  RandomFaults() : line_(board_, kSeed), judge_(line_, host_) {
    host_.board = &line_;
    host_.at_wire_pace = GetParam().at_wire_pace;
    line_.least_latency = GetParam().least_latency;
    line_.further_microseconds = GetParam().further_microseconds;
    LoadedForms = {&judge_};
    for (int node = 0; node < kNodeCount; ++node) {
      Records(node, kRecordsPerNode);
      for (int index = 1; index < kRecordsPerNode; ++index) {
        Record(node, index, {.length = 1 + index % 4, .period = PeriodOf(index)});
        Subscribe(node, index);
      }
    }
  }

  // Every third record is read once; the others have periods with and without bit value 2.
  static int PeriodOf(int index) {
    constexpr int kPeriods[] = {0, 1, 2, 0, 5, 3, 0, 4, 7};
    return kPeriods[index % 9];
  }
  int SomeNode() { return static_cast<int>(line_.Below(kNodeCount)); }
  int SomeIndex() { return 1 + static_cast<int>(line_.Below(kRecordsPerNode - 1)); }

  // The operator writes, or closes and opens a form.
  void Operate() {
    const int node = SomeNode();
    const int index = SomeIndex();
    if (line_.Below(3) == 0) {
      const double limit = index % 4 == 3 ? 2147483648.0 : static_cast<double>(1ULL << (8 * (1 + index % 4)));
      const double value = line_.Below(static_cast<unsigned>(limit));
      Put(node, index, value);
      judge_.expected[node][index] = value;
    } else {
      Unsubscribe(node, index);
      Subscribe(node, index);
    }
  }

  void DisturbTheLine() {
    // The adapter hands bytes over one by one, or gathers them.
    host_.chunk = line_.Below(2) == 0 ? 1 : 1 + line_.Below(64);
    const unsigned choice = line_.Below(400);
    if (choice < 4 && LinkIdle && host_.plugged) {
      line_.Flood(host_);
    } else if (choice == 5 && host_.plugged) {
      ++line_.counts[static_cast<int>(Fault::kUnplug)];
      host_.plugged = false;
      host_.At(host_.Now() + milliseconds(100 + line_.Below(2000)), [this] { host_.plugged = true; });
    }
  }

  // Number of records whose value is not the expected one.
  int WrongRecords() const {
    int count = 0;
    for (int node = 0; node < kNodeCount; ++node) {
      for (int index = 1; index < kRecordsPerNode; ++index) {
        count += ParamGet(index, node) != judge_.expected[node][index];
      }
    }
    return count;
  }

  void SubscribeToEverythingAnew() {
    for (int node = 0; node < kNodeCount; ++node) {
      for (int index = 1; index < kRecordsPerNode; ++index) {
        Unsubscribe(node, index);
        Subscribe(node, index);
        judge_.arrivals[node][index] = 0;
      }
    }
  }

  int RecordsThatArrived() const {
    int count = 0;
    for (const auto& node : judge_.arrivals) {
      for (const int arrivals : node) {
        count += arrivals > 0;
      }
    }
    return count;
  }

  FaultyBoard line_;
  JudgingForm judge_;
};

TEST_P(RandomFaults, NeverPutAWrongValueIntoTheTable) {
  std::printf("seed %u\n", kSeed);
  StartScan();
  for (unsigned step = 0; judge_.exchanges < kExchanges; ++step) {
    host_.RunFor(microseconds(1 + line_.Below(120000)));
    Operate();
    DisturbTheLine();
    if (step % 64 == 0) {
      ASSERT_EQ(WrongRecords(), 0) << "after " << judge_.exchanges << " exchanges";
    }
    ASSERT_EQ(judge_.wrong, 0) << "after " << judge_.exchanges << " exchanges";
  }
  for (std::size_t fault = 0; fault < line_.counts.size(); ++fault) {
    EXPECT_GT(line_.counts[fault], 100) << "fault " << fault << " hardly ever happened";
  }

  // The line is good again: every record is read.
  line_.faulty = false;
  host_.plugged = true;
  SubscribeToEverythingAnew();
  constexpr int kAll = kNodeCount * (kRecordsPerNode - 1);
  EXPECT_TRUE(host_.RunUntil([this] { return RecordsThatArrived() == kAll; }, std::chrono::minutes(3)));
  EXPECT_EQ(RecordsThatArrived(), kAll);
  EXPECT_EQ(judge_.wrong, 0);
  EXPECT_EQ(WrongRecords(), 0);
}

INSTANTIATE_TEST_SUITE_P(Lines, RandomFaults,
                         ::testing::Values(Line{"Serial", true, microseconds(200), 12000},
                                           Line{"SlowBoard", true, microseconds(150000), 3000},
                                           Line{"VirtualPort", false, microseconds(0), 5000}),
                         [](const auto& line) { return line.param.name; });

}  // namespace
}  // namespace dosmara
