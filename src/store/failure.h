// SPDX-License-Identifier: GPL-3.0-or-later
// The three ways in which the core gives up: a programming error, a failure with a number for the message
// box, and the orderly end of the program after the operator has been told.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace dosmara {

// Exit code of StopProgram, distinct from every code of an orderly end.
inline constexpr int kStopExitCode = 70;

// Numbers that stand in the titles of message boxes ("ERROR 68").
inline constexpr int kErrorOverflow = 6;
inline constexpr int kErrorOutOfRange = 9;
inline constexpr int kErrorFileNotFound = 53;
inline constexpr int kErrorFileExists = 58;
inline constexpr int kErrorDeviceUnavailable = 68;
inline constexpr int kErrorPermissionDenied = 70;
inline constexpr int kErrorInvalidPort = 8002;
inline constexpr int kErrorPortBusy = 8005;

// Stops the program at once because of a programming error: says `reason` on stderr and exits with
// kStopExitCode. What comes from an operator, a file or the line must be checked before it is passed to an
// operation that may stop the program.
[[noreturn]] void StopProgram(std::string_view reason);

// Called by StopProgram with its reason before anything else. One that throws keeps the program alive, which
// a program of many tests wants; after one that returns the program ends. The tool itself has none: null.
using StopHandler = void (*)(std::string_view reason);
void SetStopHandler(StopHandler handler);

// A failure of the start that somebody above turns into a message box with its number.
class RunTimeError : public std::runtime_error {
 public:
  RunTimeError(int number, const std::string& what) : std::runtime_error(what), number_(number) {}
  int number() const { return number_; }

 private:
  int number_;
};

// Thrown after the operator has been told why the program ends. Caught where the shell starts the program
// and where a menu entry calls into the core; never thrown through the event loop.
struct ProgramEnds {};

}  // namespace dosmara
