// SPDX-License-Identifier: GPL-3.0-or-later
// What holds for each row of each form: a form's test types the numbers of its rows and instantiates EachRow
// with them, as in
//
//   INSTANTIATE_TEST_SUITE_P(FrmAzione, EachRow, testing::Values(AzioneRows()));
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "controls/value_row.h"
#include "forms/form_fixture.h"

namespace dosmara {

// A value of the machine, what a row shows of it, and where its bar stands then.
struct RowArrival {
  int value;
  std::string shown;
  int position;
};

// A text that is taken, and what it writes.
struct GoodEntry {
  std::string text;
  int written;
};

struct RowCase {
  std::string caption = {};  // objectNames
  std::string value = {};
  std::string box = {};  // empty: the row has none
  std::string bar = {};
  std::string words = {};   // of the caption
  std::string spoken = {};  // by a screen reader; empty: the caption
  int node = 0;
  int record = 0;
  int mirror = 0;  // 0: none
  int min = 0;     // of the bar
  int max = 0;     //
  int large_change = 1;
  int length = 0;  // of the box
  int offset = 0;  // the record's value less the bar's
  // At least two, the first one with the bar not at its upper end: it is what the row stands at.
  std::vector<RowArrival> arrivals = {};
  std::vector<GoodEntry> good = {};
  std::vector<std::string> bad = {};
  bool closed_box_stays = false;  // grey instead of hidden
  bool held = false;              // a good entry closes the bar until the machine answers
};

// A value of a record.
struct Sent {
  int node;
  int record;
  int value;
};

// All rows of a form.
struct FormRows {
  const char* form;
  // What the machine sends besides the first value of each row until the form has opened for changes.
  std::vector<Sent> opens;
  std::vector<Sent> closes;  // what closes all its rows; empty: nothing does
  std::vector<RowCase> rows;
};
void PrintTo(const FormRows& rows, std::ostream* out);

// The form, open for changes, with each row at its first value and the focus nowhere.
class EachRow : public FormFixture, public testing::WithParamInterface<FormRows> {
 protected:
  EachRow();

  const std::vector<RowCase>& rows() const { return GetParam().rows; }

  void Arrive(const Sent& sent) { FormFixture::Arrive(sent.node, sent.record, sent.value); }
  void Arrive(const RowCase& row, const RowArrival& arrival) {
    Arrive({row.node, row.record, arrival.value});
  }
  // The row stands at the first of its values with the bar elsewhere than at `position`; that value.
  const RowArrival& Rest(const RowCase& row, int position);
  const RowArrival& Rest(const RowCase& row) { return Rest(row, row.max); }

  // Brings the tab of the row to the front and the focus into its box.
  void EnterBox(const RowCase& row);
  void BringForward(const RowCase& row);
  // Nothing has the focus any more.
  void Leave();

  // Label, box and bar show an arrival.
  void ExpectShown(const RowCase& row, const RowArrival& arrival);
  void ExpectOpen(const RowCase& row, bool open);
  // What the record and the mirror of a row are sent, as Written tells it.
  static std::vector<Write> WritesOf(const RowCase& row, int value);
  EchoMark::State MarkOf(const RowCase& row);
};

}  // namespace dosmara
