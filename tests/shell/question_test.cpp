// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/question.h"

#include <gtest/gtest.h>

#include "shell/caption_table.h"
#include "support/box_recorder.h"

namespace dosmara {
namespace {

TEST(Question, AsksToClearInTheWordsOfTheLanguage) {
  CaptionTable[401] = "Clear it?";
  CaptionTable[21] = "Clearing";
  BoxRecorder screen;
  AskToClear();
  EXPECT_EQ(screen.boxes, (std::vector<Box>{{"Clear it?", "Clearing", BoxStyle::kYesNoWarning}}));
}

TEST(Question, OnlyYesClears) {
  BoxRecorder screen;
  screen.answers = {BoxAnswer::kYes, BoxAnswer::kNo, BoxAnswer::kCancel, BoxAnswer::kOk};
  EXPECT_TRUE(AskToClear());
  EXPECT_FALSE(AskToClear());
  EXPECT_FALSE(AskToClear());
  EXPECT_FALSE(AskToClear());
}

}  // namespace
}  // namespace dosmara
