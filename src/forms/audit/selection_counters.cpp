// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/audit/selection_counters.h"

#include <array>

#include "fields/counters_form.h"

namespace dosmara {

namespace {

// What tells the three windows apart: lines of the language file and records.
struct Window {
  FormSetup setup;
  int frame_lines[3];  // of the selections, of the positions of each unit
  int selection_line;
  int position_line;
  int first_selection;  // record of the hot drinks unit
  int first_position;   // record of either Zeth unit
};

constexpr Window kWindows[] = {
    {{.name = "FrmBattute", .title = 16}, {142, 143, 144}, 145, 146, 60, 71},
    {{.name = "FrmGratis", .title = 17}, {148, 149, 150}, 151, 152, 82, 119},
    {{.name = "FrmProva", .title = 19}, {157, 158, 159}, 160, 161, 126, 167},
};

constexpr CounterRun Positions(const Window& window, int unit) {
  constexpr const char* kFrames[] = {"Frame2(0)", "Frame2(1)"};
  return {.frame = kFrames[unit],
          .frame_line = window.frame_lines[1 + unit],
          .records = {kZeth + unit, window.first_position, kPositions},
          .caption = {"Label2", unit * kPositions},
          .line = window.position_line,
          .numbering = Numbering::kPosition,
          .value = {"Label4", unit * kPositions},
          .columns = kPositionColumns};
}

using Runs = std::array<CounterRun, 3>;

constexpr Runs RunsOf(const Window& window) {
  return {{{.frame = "Frame1",
            .frame_line = window.frame_lines[0],
            .records = {kHotDrinks, window.first_selection, kSelections},
            .caption = {"Label1"},
            .line = window.selection_line,
            .numbering = Numbering::kSelection,
            .value = {"Label3"},
            .columns = kPositionColumns},
           Positions(window, 0),
           Positions(window, 1)}};
}

constexpr Runs kRuns[] = {RunsOf(kWindows[0]), RunsOf(kWindows[1]), RunsOf(kWindows[2])};

}  // namespace

Form* NewSelectionCounters(SoldAs sold_as) {
  const auto window = static_cast<std::size_t>(sold_as);
  return new CountersForm(kWindows[window].setup, kRuns[window]);
}

}  // namespace dosmara
