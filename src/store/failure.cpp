// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/failure.h"

#include <cstdio>
#include <cstdlib>

namespace dosmara {

namespace {

StopHandler stop_handler = nullptr;

}  // namespace

void SetStopHandler(StopHandler handler) { stop_handler = handler; }

void StopProgram(std::string_view reason) {
  if (stop_handler != nullptr) {
    stop_handler(reason);
  }
  std::fprintf(stderr, "dosmara: stopped: %.*s\n", static_cast<int>(reason.size()), reason.data());
  std::fflush(stderr);
  // No destructors: what is wrong may be in what they would walk over.
  std::_Exit(kStopExitCode);
}

}  // namespace dosmara
