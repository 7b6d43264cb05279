// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/audit/coin_and_jug_counters.h"

#include "fields/counters_form.h"

namespace dosmara {

namespace {

// So many columns fit a screen of 1366 pixels at a scale of 200 %, even with the largest counters.
constexpr int kCoinColumns = 2;
constexpr int kJugColumns = 3;

constexpr CounterRun kCoins[] = {{.records = {kMainBoard, 107, 16},
                                  .caption = {"Label1"},
                                  .line = 163,
                                  .numbering = Numbering::kFromOne,
                                  .value = {"Label2"},
                                  .columns = kCoinColumns}};

constexpr CounterRun kJugs[] = {{.frame = "Frame1",
                                 .frame_line = 154,
                                 .records = {kHotDrinks, 104, kSelections},
                                 .caption = {"Label1"},
                                 .line = 155,
                                 .numbering = Numbering::kSelection,
                                 .value = {"Label2"},
                                 .columns = kJugColumns}};

}  // namespace

Form* NewCoinCounters() { return new CountersForm({.name = "FrmMonete", .title = 20}, kCoins); }

Form* NewJugCounters() { return new CountersForm({.name = "FrmBricco", .title = 18}, kJugs); }

}  // namespace dosmara
