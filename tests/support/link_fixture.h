// SPDX-License-Identifier: GPL-3.0-or-later
// A running link without a shell: clean tables, a virtual host, a simulated machine and one listening form.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "link/notification.h"
#include "store/parameter_table.h"
#include "support/simulated_board.h"
#include "support/virtual_host.h"

namespace dosmara {

// Puts the tables, the link and the list of forms to the state of a fresh program with all boards present
// and no records.
void ResetCore();

// Remembers every arrival that it is told of.
class ListeningForm : public LoadedForm {
 public:
  struct Arrival {
    int node;
    std::int32_t index;
    double value;
    bool operator==(const Arrival&) const = default;
    friend void PrintTo(const Arrival& arrival, std::ostream* out) {
      *out << "node " << arrival.node << " record " << arrival.index << " = " << arrival.value;
    }
  };
  std::vector<Arrival> arrivals;

  void SLabelChange(std::int32_t index, double value) override {
    arrivals.push_back({NodeIndex, index, value});
  }
};

// A record of a test: its address is its own index.
struct RecordPlan {
  int length = 1;
  int period = 0;
};

class LinkFixture : public ::testing::Test {
 protected:
  LinkFixture();
  ~LinkFixture() override;

  SimulatedBoard& Board() { return board_; }
  // Gives the node `count` records, all as planned; index `count` is the one that the scan never visits.
  void Records(int node, int count, RecordPlan plan = {});
  // Changes one record.
  void Record(int node, int index, RecordPlan plan);
  void Subscribe(int node, int index);
  void Unsubscribe(int node, int index);
  void Put(int node, int index, double value);
  ParamRec& At(int node, int index) { return ParamTable[node][index]; }
  // Starts the scan tick, as the end of the load of FrmSer does.
  void StartScan();
  // Lets whole scan ticks pass; the first of them after StartScan comes 40 ms later.
  void Ticks(int count) { host_.RunFor(count * milliseconds(40)); }
  std::vector<ListeningForm::Arrival>& Arrivals() { return form_.arrivals; }
  // The frames sent so far, without their times.
  std::vector<Bytes> Frames() const;
  // Bytes for the tool out of nowhere, as on a disturbed line.
  void Noise(const Bytes& bytes) { host_.Send(bytes); }

  VirtualHost host_;
  SimulatedBoard board_;
  ListeningForm form_;
};

}  // namespace dosmara
