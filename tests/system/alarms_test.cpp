// SPDX-License-Identifier: GPL-3.0-or-later
// The alarm log of a machine on the window that shows it.
#include <QTreeWidget>

#include "system/one_form.h"

namespace dosmara {
namespace {

class AlarmLog : public OneForm {
 protected:
  void SetUp() override {
    Connect();
    for (const char* command :
         {"clock 09:05 2024-03-07", "alarm clear", "alarm 7", "clock missing", "alarm 1"}) {
      ASSERT_TRUE(machine().Command(command)) << command;
    }
    Click("smnuAllarmi");
    form_ = window().findChild<QWidget*>("FrmAllarmi");
    ASSERT_NE(form_, nullptr);
    EXPECT_EQ(Lines(), 0) << "before it has been read";
  }

  // "1 07/03/2024 09:05 Door open"; empty where there is no such line.
  std::string Line(int n) {
    QStringList texts;
    if (const QTreeWidgetItem* item = On<QTreeWidget>("ListView1").topLevelItem(n)) {
      for (int column = 0; column < 4; ++column) {
        texts.append(item->text(column));
      }
    }
    return texts.join(' ').toStdString();
  }
  void AwaitFirst(const std::string& line) {
    Await([&] { return Line(0) == line; }, line.c_str());
  }
  int Lines() { return On<QTreeWidget>("ListView1").topLevelItemCount(); }
};

TEST_F(AlarmLog, FollowsTheMachineFromAFewAlarmsToAFullRingAndToNone) {
  AwaitFirst("1 00/00/00 00:00 No water");
  EXPECT_EQ(Line(1), "2 07/03/2024 09:05 Door open");
  EXPECT_EQ(Lines(), 2);
  EXPECT_TRUE(On<QWidget>("ProgressBar1").isHidden());
  for (const int code : {2, 3, 4, 5, 6, 8, 9, 10, 203}) {
    ASSERT_TRUE(machine().Command(QString("alarm %1").arg(code)));
  }
  AwaitFirst("1 00/00/00 00:00 Alarm 203");
  Await([&] { return Line(9) == "10 00/00/00 00:00 No water"; }, "the ring to have gone round");
  ASSERT_TRUE(machine().Command("alarm clear"));
  Await([&] { return Lines() == 0; }, "the list to empty");
  CloseLeavesNothingSubscribed();
}

}  // namespace
}  // namespace dosmara
