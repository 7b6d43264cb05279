// SPDX-License-Identifier: GPL-3.0-or-later
// The records that a form hears of: which they are, how long they are subscribed, and what runs when one
// arrives. Knows no widget.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "fields/arrival_map.h"
#include "fields/records.h"

namespace dosmara {

// Whether the arrivals of a record count among those after which its form opens.
enum class Counts { kYes, kNo };

// Owned by a form, which starts it when it opens and stops it when it closes. What runs at an arrival must
// not call Hear, HearEcho or Forget: that stops the program.
class RecordWatch {
 public:
  // Runs with the value that has arrived for the n-th record of a run.
  using Take = std::function<void(int n, double value)>;
  static constexpr int kForeign = ArrivalMap::kForeign;

  // How many of the records on boards that are there have arrived since they were subscribed.
  struct Progress {
    int arrived = 0;
    int total = 0;
  };

  // Hears of the records and subscribes them while the watch is on, at once if it is on already. A record
  // that is heard twice is subscribed once and counts if either call says so; its arrival runs both in the
  // order of the calls.
  void Hear(const Records& records, Counts counts, Take take);
  // Hears of a record that the form only writes: its arrival is the echo. It is not subscribed.
  void HearEcho(int node, int record, std::function<void(double value)> take);
  // Releases all records of one board and hears of them no more.
  void Forget(int node);

  // The form opens: everything is subscribed.
  void Start();
  // The form closes: everything is released but the records in `kept`.
  void Stop(std::span<const Records> kept);
  // Releases and subscribes everything anew, so that the machine sends it again. Does nothing while the watch
  // is off: a form that has closed may have a timer that still fires once.
  void Refresh();

  // The slot of a record for the calls below; kForeign for one that is not heard of.
  int Find(int node, std::int32_t index) const { return map_.Find(node, index); }
  bool IsCounted(int slot) const { return heard_[slot - 1].counts; }
  // Runs what waits for the record. Returns whether it is the first arrival since the record was subscribed.
  bool RunTakes(int slot, double value);

  // Whether each record that counts is fresh.
  bool AllFresh() const;
  Progress GetProgress() const;

 private:
  struct NumberedTake {
    std::shared_ptr<const Take> run;  // shared by the records of its run
    int n;
  };
  struct Heard {
    int node;
    int record;
    bool subscribed;  // while the watch is on
    bool counts;
    bool arrived;  // since it was subscribed last
    std::vector<NumberedTake> takes;
  };

  void Add(const Records& records, bool subscribed, Counts counts, Take take);
  void CheckNothingRuns() const;
  void SubscribeAll();
  void Release(const Heard& heard) const;

  bool on_ = false;
  bool running_ = false;  // takes are being run
  ArrivalMap map_;        // a slot is the place in heard_, counted from 1
  std::vector<Heard> heard_;
};

}  // namespace dosmara
