// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/one_form.h"

#include <algorithm>

#include "store/parameter_table.h"

namespace dosmara {

void OneForm::ConnectAndOpen(const QString& menu_entry, const QString& form) {
  Connect();
  Click(menu_entry);
  form_ = window().findChild<QWidget*>(form);
  ASSERT_NE(form_, nullptr);
}

void OneForm::AwaitText(const QString& label, const QString& text) {
  Await([&] { return Text(label) == text; }, qPrintable(label + " to show " + text));
}

void OneForm::AwaitHeld(int node, int record, double value) {
  Await([&] { return machine().Get(node, record) == value; }, "the machine to hold a value");
}

void OneForm::AwaitAllArrived() {
  const auto arrived = [](const ParamRec& r) { return r.Subscribers == 0 || (r.Flags & kArrived) != 0; };
  Await(
      [&] {
        return std::ranges::all_of(ParamTable,
                                   [&](const auto& node) { return std::ranges::all_of(node, arrived); });
      },
      "all values to arrive");
}

void OneForm::CloseLeavesNothingSubscribed() {
  form_->parentWidget()->close();
  for (const auto& node : ParamTable) {
    EXPECT_TRUE(std::ranges::all_of(node, [](const ParamRec& r) { return r.Subscribers == 0; }));
  }
}

}  // namespace dosmara
