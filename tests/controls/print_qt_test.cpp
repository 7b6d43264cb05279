// SPDX-License-Identifier: GPL-3.0-or-later
// What a failing test says of values that the test library does not know.
#include "support/print_qt.h"

#include <gtest/gtest.h>

#include <QWidget>
#include <optional>
#include <vector>

#include "controls/echo_mark.h"
#include "controls/lamp.h"

namespace dosmara {
namespace {

using testing::PrintToString;

TEST(PrintQt, TextsAreTexts) {
  EXPECT_EQ(PrintToString(QString("12,5 °C")), "\"12,5 °C\"");
  EXPECT_EQ(PrintToString(QByteArray("Com=1")), "\"Com=1\"");
  EXPECT_EQ(PrintToString(QStringList{"Off", "On"}), "QList(\"Off\", \"On\")");
  EXPECT_EQ(PrintToString(std::vector<QString>{"Off"}), "{ \"Off\" }");
  EXPECT_EQ(PrintToString(std::optional(QString("Off"))), "(\"Off\")");
}

TEST(PrintQt, PlacesAndSizesAreNumbers) {
  EXPECT_EQ(PrintToString(QPoint(3, 4)), "QPoint(3,4)");
  EXPECT_EQ(PrintToString(QSize(1366, 768)), "QSize(1366, 768)");
  EXPECT_EQ(PrintToString(QRect(1, 2, 30, 40)), "QRect(1,2 30x40)");
}

TEST(PrintQt, AnEnumerationIsItsWordOrItsNumber) {
  EXPECT_EQ(PrintToString(EchoMark::State::kNotTaken), "kNotTaken");
  EXPECT_EQ(PrintToString(static_cast<LampShape>(1)), "1");
}

TEST(PrintQt, AControlIsItsName) {
  QWidget control;
  control.setObjectName("lblVal(3)");
  QWidget* none = nullptr;
  EXPECT_EQ(PrintToString(&control), "QWidget lblVal(3)");
  EXPECT_EQ(PrintToString(none), "none");
}

}  // namespace
}  // namespace dosmara
