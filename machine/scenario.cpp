// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/scenario.h"

#include <algorithm>
#include <utility>

#include "machine/lines.h"
#include "machine/text.h"

namespace machine {
namespace {

constexpr int kDay = 24 * 60 * 60;

// The part of `text` before the next colon; `text` becomes what is behind it.
std::string_view CutField(std::string_view& text) {
  const auto end = text.find(':');
  const std::string_view field = text.substr(0, end);
  text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
  return field;
}

}  // namespace

std::optional<int> TimeOfDay(std::string_view text) {
  const bool seconds_given = std::count(text.begin(), text.end(), ':') == 2;
  const auto hour = Number(CutField(text), 0, 23);
  const auto minute = Number(CutField(text), 0, 59);
  const auto second = seconds_given ? Number(CutField(text), 0, 59) : std::optional<std::uint32_t>(0);
  if (!hour || !minute || !second || !text.empty()) {
    return std::nullopt;
  }
  return static_cast<int>(*hour * 3600 + *minute * 60 + *second);
}

std::string Scenario::Start(const std::string& path, const std::function<int()>& second_of_day) {
  const auto lines = LinesOf(path);
  if (!lines) {
    return path + ": cannot be read";
  }
  std::deque<Step> steps;
  for (std::size_t i = 0; i < lines->size(); ++i) {
    if (const auto wrong = ReadLine((*lines)[i], steps); !wrong.empty()) {
      return path + ":" + std::to_string(i + 1) + ": " + wrong;
    }
  }
  for (; !steps.empty() && !steps.front().at; steps.pop_front()) {
    run_(steps.front().command);
  }
  steps_ = std::move(steps);
  now_ = previous_ = second_of_day();
  Wait();
  return {};
}

void Scenario::OnSecond() {
  now_ = (now_ + 1) % kDay;
  if (left_ > 0) {
    --left_;
  }
  while (!steps_.empty() && left_ == 0) {
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    previous_ = *step.at;
    Wait();
    run_(step.command);
  }
}

std::string Scenario::ReadLine(std::string_view line, std::deque<Step>& steps) const {
  const auto words = Words(line);
  if (words.empty() || words[0].front() == '#') {
    return {};
  }
  Step step;
  if (words[0] == "at") {
    if (words.size() < 3) {
      return "at TIME COMMAND";
    }
    step.at = TimeOfDay(words[1]);
    if (!step.at) {
      return "no time of the day: '" + std::string(words[1]) + "'";
    }
    step.command = line.substr(static_cast<std::size_t>(words[2].data() - line.data()));
  } else {
    if (!steps.empty() && steps.back().at) {
      return "a line without 'at' behind one with it";
    }
    step.command = line;
  }
  if (auto wrong = check_(step.command); !wrong.empty()) {
    return wrong;
  }
  steps.push_back(std::move(step));
  return {};
}

// Counts from the time of the line before and not from now, so that a line that ran late delays no other.
void Scenario::Wait() {
  if (steps_.empty()) {
    return;
  }
  const int from_previous = (*steps_.front().at - previous_ + kDay) % kDay;
  const int late = (now_ - previous_ + kDay) % kDay;
  left_ = from_previous > late ? from_previous - late : 0;
}

}  // namespace machine
