// SPDX-License-Identifier: GPL-3.0-or-later
// Windows that only show what the machine counts.
#pragma once

#include <QTimer>
#include <memory>
#include <span>
#include <vector>

#include "shell/fields/data_form.h"
#include "shell/fields/numbering.h"

namespace dosmara {

// Counters of one board that lie behind each other: a frame of captions and values.
struct CounterRun {
  const char* frame = nullptr;  // name of the frame around them; null: they stand on the form
  int frame_line = 0;           // its title; 0: it has none
  Records records;
  ControlArray caption;
  int line = 0;       // caption, line of the language file
  int line_step = 0;  // how many lines further the next caption stands: 0 where all have the same
  Numbering numbering = Numbering::kNone;  // what follows the caption
  ControlArray value;
  int columns = 1;  // in which they lie, row by row
};

// Counters of the machine, read anew every 15 seconds. Nothing is written. A form derives from it for its own
// rules or is made of a table alone.
class CountersForm : public DataForm {
 public:
  // `runs` outlives the form.
  CountersForm(const FormSetup& setup, std::span<const CounterRun> runs);

  void InitMessaggi() override;

 protected:
  // The value and the caption of the n-th counter of a run.
  FieldLabel& Value(std::size_t run, int n) { return *shown_[run][n].value; }
  FieldLabel& CaptionOf(std::size_t run, int n) { return *shown_[run][n].caption; }

 private:
  struct Shown {
    FieldLabel* caption;
    FieldLabel* value;
  };

  void Add(const CounterRun& run, QVBoxLayout& layout);

  std::span<const CounterRun> runs_;
  std::vector<std::vector<Shown>> shown_;
};

}  // namespace dosmara
