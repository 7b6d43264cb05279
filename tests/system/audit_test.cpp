// SPDX-License-Identifier: GPL-3.0-or-later
// What the machine counts, on the windows that show it.
#include <QTimer>

#include "system/one_form.h"

namespace dosmara {
namespace {

struct Counted {
  const char* menu_entry;
  const char* form;
  const char* happens;  // at the machine
  int node;             // what counts it there
  int record;
  const char* label;  // and here
};
void PrintTo(const Counted& counted, std::ostream* out) { *out << counted.form; }

class SelectionCounts : public OneForm, public testing::WithParamInterface<Counted> {};

TEST_P(SelectionCounts, RiseWithinOneRefreshOfWhatTheMachineHandsOut) {
  ConnectAndOpen(GetParam().menu_entry, GetParam().form);
  AwaitText(GetParam().label, "0");
  for (const int node : {1, 2, 3}) {
    AwaitRead(node);
  }
  ASSERT_TRUE(machine().Command(GetParam().happens));
  AwaitHeld(GetParam().node, GetParam().record, 1);
  auto& refresh = On<QTimer>("Timer1");
  EXPECT_GT(refresh.remainingTime(), 0);
  refresh.setSingleShot(true);
  refresh.start(0);  // the fifteen seconds are over
  AwaitText(GetParam().label, "1");
  EXPECT_EQ(Text("Label4(1)"), "0") << "what nobody has had";
  CloseLeavesNothingSubscribed();
}

INSTANTIATE_TEST_SUITE_P(
    Windows, SelectionCounts,
    testing::Values(Counted{"ssmnuBattute", "FrmBattute", "vend 2:34 paid", 2, 90, "Label4(19)"},
                    Counted{"ssmnuGratis", "FrmGratis", "vend 3:68 free", 3, 166, "Label4(95)"},
                    Counted{"ssmnuProva", "FrmProva", "test 2 1", 1, 126, "Label3(0)"}),
    [](const auto& each) { return std::string(each.param.form); });

}  // namespace
}  // namespace dosmara
