// SPDX-License-Identifier: GPL-3.0-or-later
// Forms over the real link, in virtual time: what is written leaves at a tick of the scan, and the machine
// answers as fast as its line.
//
//   Form& form = Open("FrmTempi");
//   RunTicks(60);
//   Enter("txtTempi(0)", "5");
//   RunTicks(6);
//   EXPECT_EQ(Board().Get(kHotDrinks, 31), 50u);
#pragma once

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "forms/window_fixture.h"
#include "support/record_board.h"
#include "support/virtual_host.h"

namespace dosmara {

// All four boards with the records, lengths, periods and first values of the index files that come with the
// tool. No timer of a form runs in virtual time: Fire ends it.
class LineFormFixture : public WindowFixture {
 protected:
  LineFormFixture();

  // Opens a form and lets the line run until all that it reads has arrived. Forms open and close between two
  // runs of the line, which may end in the middle of a frame.
  Form& OpenFilled(const std::string& name);

  // Lets whole ticks of the scan pass, 40 ms each.
  void RunTicks(int count) { RunFor(count * milliseconds(40)); }
  void RunFor(microseconds time);
  // Lets time pass until `condition` holds, at most for `limit`. Returns whether it holds.
  bool RunUntil(const std::function<bool()>& condition, microseconds limit = milliseconds(60000));
  // The same until everything that has been subscribed or put has arrived, and the scan is at the beginning
  // of a board: what is put then leaves in the order of its records.
  bool RunUntilFresh();
  // Lets time pass until the next write has just left for the board.
  bool RunUntilWrite();

  // The machine: what it holds, what it changes by itself, which of its boards are silent.
  RecordBoard& Board() { return board_; }
  // Takes the plug out of the computer, or puts it in.
  void Unplug() { host_.plugged = false; }
  void PlugIn() { host_.plugged = true; }
  // Whether a lamp of the status bar shows that the line is in trouble.
  bool TroubleShows() const { return host_.LampOn(4) == 6; }

  // What the tool has asked the boards since this, or Written, was called last. With the plug out it is lost.
  std::vector<RecordRequest> Requests();
  // The writes among them.
  std::vector<Write> Written();
  // The writes that wait in the table for their turn, by node and record.
  static std::vector<Write> Waiting();

  VirtualHost& host() { return host_; }

 private:
  // Stands in the list of loaded forms for a form while the line runs: the link forgives what a form throws,
  // and a test does not.
  class Usher;
  using Places = std::set<std::pair<int, int>>;  // node and record

  template <class Action>
  auto Run(const Action& action);

  VirtualHost host_;
  RecordBoard board_;
  std::size_t frames_told_ = 0;
  Places arrived_;
};

}  // namespace dosmara
