// SPDX-License-Identifier: GPL-3.0-or-later
// The arguments of the operator's commands.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "machine/text.h"

namespace machine {

// Why a command cannot be carried out, in words for one line.
struct CommandError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

inline std::string Quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

// A number within limits. Throws CommandError, which names `what` it is.
inline std::uint32_t NumberIn(std::string_view what, std::string_view text, std::uint32_t least,
                              std::uint32_t largest) {
  if (const auto number = Number(text, least, largest)) {
    return *number;
  }
  throw CommandError(std::string(what) + " must be " + std::to_string(least) + " to " +
                     std::to_string(largest) + ", not " + Quoted(text));
}

// One of two words: true for the first. Throws CommandError.
inline bool OneOf(std::string_view text, std::string_view yes, std::string_view no) {
  if (text == yes) {
    return true;
  }
  if (text == no) {
    return false;
  }
  throw CommandError(std::string(yes) + " or " + std::string(no) + ", not " + Quoted(text));
}

}  // namespace machine
