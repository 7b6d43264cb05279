// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/failure.h"

#include <cstdio>
#include <cstdlib>

namespace dosmara {

void StopProgram(std::string_view reason) {
  std::fprintf(stderr, "dosmara: stopped: %.*s\n", static_cast<int>(reason.size()), reason.data());
  std::fflush(stderr);
  // No destructors: what is wrong may be in what they would walk over.
  std::_Exit(kStopExitCode);
}

}  // namespace dosmara
