// SPDX-License-Identifier: GPL-3.0-or-later
// A day that is played back: a file of commands, one a line.
//
//   clock 07:55 2024-03-04      before the first "at": carried out as the scenario starts
//   at 08:00 vend 3 paid        carried out when the machine's day comes to that time
//   at 08:00:30 door open       seconds if need be
//
// The lines stand in order of time; one that is earlier than the line before belongs to the next day. Empty
// lines and lines that begin with "#" are passed over.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace machine {

// A time of the day as "8:00", "08:00" or "08:00:30", in seconds since midnight.
std::optional<int> TimeOfDay(std::string_view text);

class Scenario {
 public:
  // `check` returns why a command cannot be one, or nothing; `run` carries a command out.
  Scenario(std::function<std::string(std::string_view)> check, std::function<void(std::string_view)> run)
      : check_(std::move(check)), run_(std::move(run)) {}

  // Reads a file. Returns what is wrong with it and changes nothing, or nothing and plays it from here on.
  // `second_of_day` is asked for the time once the lines before the first "at" have run.
  std::string Start(const std::string& path, const std::function<int()>& second_of_day);
  // Forgets what is still to come.
  void Stop() { steps_.clear(); }
  // A second of the machine's day has passed.
  void OnSecond();

  // Lines that are still to come.
  std::size_t left() const { return steps_.size(); }

 private:
  struct Step {
    std::optional<int> at;
    std::string command;
  };
  // Returns what is wrong with the line.
  std::string ReadLine(std::string_view line, std::deque<Step>& steps) const;
  // Works out when the first step is due.
  void Wait();

  std::function<std::string(std::string_view)> check_;
  std::function<void(std::string_view)> run_;
  std::deque<Step> steps_;
  int now_ = 0;       // second of the day
  int previous_ = 0;  // time of the line before
  int left_ = 0;      // seconds until the first step
};

}  // namespace machine
