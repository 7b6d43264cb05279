// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/question.h"

#include "shell/caption_table.h"
#include "shell/msg_box.h"

namespace dosmara {

namespace {

// Lines of the language file.
constexpr int kQuestionLine = 401;
constexpr int kTitleLine = 21;

}  // namespace

bool AskToClear() {
  return MsgBox(Caption(kQuestionLine), Caption(kTitleLine), BoxStyle::kYesNoWarning) == BoxAnswer::kYes;
}

}  // namespace dosmara
