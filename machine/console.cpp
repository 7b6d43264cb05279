// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/console.h"

#include <utility>

#include "machine/text.h"

namespace machine {

Console::Console(Machine& machine, Plug& plug)
    : scenario_(CheckInScenario,
                [this](std::string_view command) {
                  const std::string reply = Execute(command);
                  session_.machine.log().Note(session_.machine.now(),
                                              "scenario: " + std::string(command) + ": " + reply);
                }),
      session_{machine, plug, scenario_} {
  machine.EachSecond([this] { scenario_.OnSecond(); });
}

void Console::Add(std::string_view line) {
  const auto words = Words(line);
  if (!words.empty() && words.front().front() != '#') {
    lines_.emplace_back(line);
  }
}

std::optional<std::string> Console::RunNext() {
  if (lines_.empty() || session_.machine.now() < session_.resumes_at) {
    return std::nullopt;
  }
  const std::string line = std::move(lines_.front());
  lines_.pop_front();
  return Execute(line);
}

std::optional<Time> Console::resumes_at() const {
  if (lines_.empty()) {
    return std::nullopt;
  }
  return session_.resumes_at;
}

}  // namespace machine
