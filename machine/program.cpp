// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/program.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>

#include "machine/lines.h"

namespace machine {
namespace {

volatile std::sig_atomic_t end_signal = 0;

void NoteEndSignal(int signal) { end_signal = signal; }

Boards LoadMachine(const Options& options) {
  Boards boards = LoadBoards(options.boards);
  boards[0].SetIdentity(options.identity);
  return boards;
}

RecordNames LoadNames(const Options& options) {
  if (options.names.empty()) {
    return RecordNames::Load(options.boards);
  }
  if (!std::filesystem::is_directory(options.names)) {
    throw FileError(options.names + ": no such folder");
  }
  return RecordNames::Load(options.names);
}

// Lets the end signals in only while the program waits, so that none is missed between test and wait.
// Returns the mask for the wait.
sigset_t HoldEndSignals() {
  struct sigaction action {};
  action.sa_handler = NoteEndSignal;
  sigset_t held;
  sigemptyset(&held);
  for (const int signal : {SIGTERM, SIGINT}) {
    sigaction(signal, &action, nullptr);
    sigaddset(&held, signal);
  }
  signal(SIGPIPE, SIG_IGN);
  sigset_t before;
  sigprocmask(SIG_BLOCK, &held, &before);
  return before;
}

}  // namespace

Program::Program(const Options& options)
    : options_(options), machine_(LoadMachine(options), options.seed, MakeLog()) {
  machine_.log().Switch(!options_.log.empty());
  for (const int node : options_.absent) {
    machine_.presence().SetPresent(node, false);
  }
  machine_.SetSpeed(options_.speed);
  if (!options_.scenario.empty()) {
    if (const auto wrong = console_.Play(options_.scenario); !wrong.empty()) {
      throw FileError(wrong);
    }
  }
  if (!options_.script.empty()) {
    const auto script = LinesOf(options_.script);
    if (!script) {
      throw FileError(options_.script + ": cannot be read");
    }
    for (const std::string& line : *script) {
      console_.Add(line);
    }
  }
  pty_.emplace(options_.link);
}

void Program::Run() {
  const sigset_t signals = HoldEndSignals();
  replies_.Add("ready " + pty_->device());
  while (!ended_ && end_signal == 0) {
    machine_.AdvanceTo(RealTime());
    RunCommands();
    SendBytes();
    if (!ended_) {
      WaitForEvent(signals);
    }
  }
}

std::string Program::Unplug() {
  pty_.reset();
  return {};
}

std::string Program::Replug() {
  try {
    pty_.emplace(options_.link);
    return {};
  } catch (const std::system_error& error) {
    return error.what();
  }
}

FrameLog Program::MakeLog() {
  if (options_.log.empty()) {
    return {LoadNames(options_), [this](const std::string& line) { errors_.Add(line); }};
  }
  log_file_.open(options_.log);
  if (!log_file_) {
    throw FileError(options_.log + ": cannot be written");
  }
  return {LoadNames(options_), [this](const std::string& line) { LogToFile(line); }};
}

// A file that takes no more ends the log, until it is switched on again.
void Program::LogToFile(const std::string& line) {
  if (log_file_ << line << std::endl) {
    return;
  }
  errors_.Add("dosmara-machine: " + options_.log + ": " + std::strerror(errno) + ", the log is off");
  log_file_.clear();
  machine_.log().Switch(false);
}

void Program::RunCommands() {
  replies_.Flush();
  errors_.Flush();
  while (!ended_ && !replies_.waiting()) {
    const auto reply = console_.RunNext();
    if (!reply) {
      return;
    }
    replies_.Add(*reply);
  }
}

void Program::SendBytes() {
  Bytes bytes;
  for (const SentByte& sent : machine_.TakeSent()) {
    bytes.push_back(sent.byte);
  }
  if (pty_ && !bytes.empty()) {
    pty_->Write(bytes);
  }
}

void Program::WaitForEvent(const sigset_t& signals) {
  std::optional<Time> until = machine_.next_event();
  const auto resume = replies_.waiting() ? std::nullopt : console_.resumes_at();
  if (resume) {
    until = until ? std::min(*until, *resume) : *resume;
  }
  timespec timeout{};
  if (until) {
    const Time left = std::max(*until - RealTime(), Time(0));
    const auto seconds = std::chrono::floor<std::chrono::seconds>(left);
    timeout = {.tv_sec = seconds.count(), .tv_nsec = (left - seconds).count()};
  }
  // A negative descriptor is passed over.
  const auto unread = [](const Output& output) { return output.waiting() ? output.descriptor() : -1; };
  std::array<pollfd, 4> waits = {
      {{.fd = pty_ ? pty_->descriptor() : -1, .events = POLLIN, .revents = 0},
       {.fd = commands_open_ && !replies_.waiting() ? STDIN_FILENO : -1, .events = POLLIN, .revents = 0},
       {.fd = unread(replies_), .events = POLLOUT, .revents = 0},
       {.fd = unread(errors_), .events = POLLOUT, .revents = 0}}};
  if (ppoll(waits.data(), waits.size(), until ? &timeout : nullptr, &signals) <= 0) {
    return;
  }
  machine_.AdvanceTo(RealTime());
  if (waits[0].revents != 0) {
    machine_.Receive(pty_->Read());
  }
  if (waits[1].revents != 0) {
    ReadCommands();
  }
}

void Program::ReadCommands() {
  std::array<char, 4096> buffer;
  const ssize_t count = read(STDIN_FILENO, buffer.data(), buffer.size());
  if (count <= 0) {
    commands_open_ = false;
    return;
  }
  unfinished_line_.append(buffer.data(), static_cast<std::size_t>(count));
  for (std::size_t end; (end = unfinished_line_.find('\n')) != std::string::npos;) {
    console_.Add(std::string_view(unfinished_line_).substr(0, end));
    unfinished_line_.erase(0, end + 1);
  }
}

}  // namespace machine
