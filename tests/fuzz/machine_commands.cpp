// SPDX-License-Identifier: GPL-3.0-or-later
// The simulated machine's commands: whatever is typed, there is one line in return, and the machine goes on.
#include <cstdlib>
#include <string_view>

#include "machine/console.h"

namespace {

class NoPlug : public machine::Plug {
 public:
  std::string Unplug() override { return {}; }
  std::string Replug() override { return {}; }
  bool plugged() const override { return true; }
  void Quit() override {}
};

// Four boards with as many records as a machine has, all of two bytes.
machine::Boards SomeBoards() {
  machine::Boards boards;
  for (machine::Board& board : boards) {
    for (int n = 1; n <= 600; ++n) {
      const machine::Address address{.bank = 1,
                                     .high = static_cast<std::uint8_t>(n / 256),
                                     .low = static_cast<std::uint8_t>(n % 256),
                                     .control = 1};
      if (!board.AddRecord(address, static_cast<std::uint32_t>(n))) {
        std::abort();
      }
    }
  }
  return boards;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const machine::Boards boards = SomeBoards();
  machine::Machine machine(boards, 1);
  NoPlug plug;
  machine::Console console(machine, plug);
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  while (!rest.empty()) {
    const auto end = rest.find('\n');
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (line.find("scenario") != std::string_view::npos) {
      continue;  // any file of the disk would be read
    }
    const std::string reply = console.Execute(line);
    if (!reply.starts_with("ok") && !reply.starts_with("error: ")) {
      std::abort();
    }
    if (reply.find('\n') != std::string::npos) {
      std::abort();
    }
    machine.AdvanceTo(machine.now() + std::chrono::seconds(1));
  }
  return 0;
}
