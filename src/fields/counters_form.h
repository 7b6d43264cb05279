// SPDX-License-Identifier: GPL-3.0-or-later
// Windows that only show what the machine counts.
#pragma once

#include <QBoxLayout>
#include <QGridLayout>
#include <QTimer>
#include <memory>
#include <span>
#include <vector>

#include "fields/data_form.h"
#include "fields/numbering.h"

namespace dosmara {

// Counters of one board that lie behind each other: a grid of captions and values.
struct CounterRun {
  const char* frame = nullptr;  // name of the frame around them; null: they stand on the form
  int frame_line = 0;           // its title; 0: it has none
  bool goes_on = false;         // below the run before, in its frame and its columns
  bool beside = false;          // its frame is on the right of the one before, not below it
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
  // Where a run lies: its captions and values, two columns for each of its own.
  QGridLayout& Grid(std::size_t run) { return *grids_[run]; }

  // Shows an arrival on the n-th counter of a run.
  virtual void Show(std::size_t run, int n, double value);
  // Shows a text for a value. A counter that has counted nothing stands back behind the others.
  void ShowText(std::size_t run, int n, double value, const QString& text);

 private:
  struct Shown {
    FieldLabel* caption;
    FieldLabel* value;
  };

  QGridLayout* NewGrid(const CounterRun& run);
  QBoxLayout* NewColumnBesideTheLast();
  void Add(const CounterRun& run);

  std::span<const CounterRun> runs_;
  std::vector<std::vector<Shown>> shown_;
  std::vector<QGridLayout*> grids_;  // of each run
  QVBoxLayout* layout_;
};

}  // namespace dosmara
