// SPDX-License-Identifier: GPL-3.0-or-later
// Answers message boxes in a test and remembers them.
#pragma once

#include <QString>
#include <deque>
#include <ostream>
#include <utility>
#include <vector>

#include "shell/msg_box.h"

namespace dosmara {

struct Box {
  QString text;
  QString title;
  BoxStyle style;
  bool operator==(const Box&) const = default;
};

inline void PrintTo(const Box& box, std::ostream* out) {
  *out << "[" << box.title.toStdString() << "] " << box.text.toStdString() << " style "
       << static_cast<int>(box.style);
}

// Stands in for the screen while it lives. Boxes without a canned answer get OK.
class BoxRecorder {
 public:
  BoxRecorder() {
    previous_ = SetMsgBoxHandler([this](const QString& text, const QString& title, BoxStyle style) {
      boxes.push_back({text, title, style});
      if (answers.empty()) {
        return BoxAnswer::kOk;
      }
      const BoxAnswer answer = answers.front();
      answers.pop_front();
      return answer;
    });
  }
  ~BoxRecorder() { SetMsgBoxHandler(std::move(previous_)); }
  BoxRecorder(const BoxRecorder&) = delete;
  BoxRecorder& operator=(const BoxRecorder&) = delete;

  std::vector<Box> boxes;
  std::deque<BoxAnswer> answers;

 private:
  MsgBoxHandler previous_;
};

}  // namespace dosmara
