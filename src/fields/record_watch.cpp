// SPDX-License-Identifier: GPL-3.0-or-later
#include "fields/record_watch.h"

#include <algorithm>
#include <utility>

#include "store/failure.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

// Sets a flag as long as it lives, also past an exception.
class Running {
 public:
  explicit Running(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~Running() { flag_ = before_; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace

void RecordWatch::Hear(const Records& records, Counts counts, Take take) {
  Add(records, true, counts, std::move(take));
}

void RecordWatch::HearEcho(int node, int record, std::function<void(double)> take) {
  Add({node, record}, false, Counts::kNo, [take = std::move(take)](int, double value) { take(value); });
}

void RecordWatch::Add(const Records& records, bool subscribed, Counts counts, Take take) {
  CheckNothingRuns();
  const auto run = std::make_shared<const Take>(std::move(take));
  for (int n = 0; n < records.count; ++n) {
    const int record = records.first + n;
    int slot = map_.Find(records.node, record);
    if (slot == kForeign) {
      heard_.push_back({.node = records.node,
                        .record = record,
                        .subscribed = false,
                        .counts = false,
                        .arrived = false,
                        .takes = {}});
      slot = static_cast<int>(heard_.size());
      map_.Set(records.node, record, slot);
    }
    Heard& heard = heard_[slot - 1];
    heard.takes.push_back({run, n});
    heard.counts = heard.counts || counts == Counts::kYes;
    if (on_ && subscribed && !heard.subscribed) {
      Subscribe({heard.node, heard.record});
    }
    heard.subscribed = heard.subscribed || subscribed;
  }
}

void RecordWatch::Forget(int node) {
  CheckNothingRuns();
  for (const Heard& heard : heard_) {
    if (heard.node == node) {
      Release(heard);
    }
  }
  std::erase_if(heard_, [node](const Heard& heard) { return heard.node == node; });
  map_.Clear();
  for (std::size_t i = 0; i < heard_.size(); ++i) {
    map_.Set(heard_[i].node, heard_[i].record, static_cast<int>(i) + 1);
  }
}

void RecordWatch::CheckNothingRuns() const {
  if (running_) {
    StopProgram("RecordWatch: an arrival must not change what is heard of");
  }
}

void RecordWatch::Start() {
  on_ = true;
  SubscribeAll();
}

void RecordWatch::Stop(std::span<const Records> kept) {
  for (const Heard& heard : heard_) {
    const auto has = [&heard](const Records& records) { return records.Has(heard.node, heard.record); };
    if (std::ranges::none_of(kept, has)) {
      Release(heard);
    }
  }
  on_ = false;
}

void RecordWatch::Refresh() {
  if (!on_) {
    return;
  }
  for (const Heard& heard : heard_) {
    Release(heard);
  }
  SubscribeAll();
}

void RecordWatch::SubscribeAll() {
  for (Heard& heard : heard_) {
    if (heard.subscribed) {
      heard.arrived = false;
      Subscribe({heard.node, heard.record});
    }
  }
}

void RecordWatch::Release(const Heard& heard) const {
  if (on_ && heard.subscribed) {
    Unsubscribe({heard.node, heard.record});
  }
}

bool RecordWatch::RunTakes(int slot, double value) {
  Heard& heard = heard_[slot - 1];
  const bool first = heard.subscribed && !heard.arrived;
  heard.arrived = true;
  const Running guard(running_);
  for (const NumberedTake& take : heard.takes) {
    (*take.run)(take.n, value);
  }
  return first;
}

bool RecordWatch::AllFresh() const {
  return std::ranges::all_of(
      heard_, [](const Heard& heard) { return !heard.counts || ParamIsFresh(heard.record, heard.node); });
}

RecordWatch::Progress RecordWatch::GetProgress() const {
  Progress progress;
  for (const Heard& heard : heard_) {
    if (heard.subscribed && NodePresent[heard.node]) {
      ++progress.total;
      progress.arrived += heard.arrived ? 1 : 0;
    }
  }
  return progress;
}

}  // namespace dosmara
