// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a fuzz target without libFuzzer: the seeds first, then mutations of them, the same ones each time.
// Called as `<target> <number of mutations> [<folder of seeds>]`. When the target crashes, the input is in
// `crash-input` in the current folder.
#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Input = std::vector<std::uint8_t>;

constexpr std::uint32_t kSeed = 20240611;
constexpr std::size_t kLongestInput = 4096;

Input current;

// Best effort: the crashed program writes what it was given.
void SaveInput(int signal_number) {
  if (std::FILE* file = std::fopen("crash-input", "wb")) {
    std::fwrite(current.data(), 1, current.size(), file);
    std::fclose(file);
  }
  std::signal(signal_number, SIG_DFL);
  std::raise(signal_number);
}

void Run(Input input) {
  current = std::move(input);
  LLVMFuzzerTestOneInput(current.data(), current.size());
}

std::vector<Input> BuiltInSeeds() {
  return {{}, {0}, Input(64, 0), Input(64, 255), {'1', '2', ',', '5'}, {'\r', '\n', ';', '-', '-', '='}};
}

std::vector<Input> ReadSeeds(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    files.push_back(entry.path());
  }
  std::ranges::sort(files);
  std::vector<Input> seeds;
  for (const auto& path : files) {
    std::ifstream file(path, std::ios::binary);
    seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return seeds;
}

class Mutator {
 public:
  explicit Mutator(const std::vector<Input>& seeds) : seeds_(seeds) {}

  Input Next() {
    Input input = seeds_[Below(seeds_.size())];
    const std::size_t changes = 1 + Below(6);
    for (std::size_t i = 0; i < changes; ++i) {
      Change(input);
    }
    if (input.size() > kLongestInput) {
      input.resize(kLongestInput);
    }
    return input;
  }

 private:
  // One change: flip a bit, set, insert or remove a byte, cut the end, repeat a piece, append another seed.
  void Change(Input& input) {
    const auto place = [&] { return input.begin() + static_cast<std::ptrdiff_t>(Below(input.size() + 1)); };
    const std::size_t kind = Below(7);
    if (input.empty() || kind == 0) {
      input.insert(place(), static_cast<std::uint8_t>(Below(256)));
    } else if (kind == 1) {
      input[Below(input.size())] ^= static_cast<std::uint8_t>(1U << Below(8));
    } else if (kind == 2) {
      input[Below(input.size())] = static_cast<std::uint8_t>(Below(256));
    } else if (kind == 3) {
      input.erase(input.begin() + static_cast<std::ptrdiff_t>(Below(input.size())));
    } else if (kind == 4) {
      input.resize(Below(input.size()));
    } else {
      const Input piece = kind == 5 ? input : seeds_[Below(seeds_.size())];
      const auto length = static_cast<std::ptrdiff_t>(Below(std::min<std::size_t>(piece.size(), 64) + 1));
      input.insert(place(), piece.begin(), piece.begin() + length);
    }
  }
  std::size_t Below(std::size_t limit) { return random_() % limit; }

  const std::vector<Input>& seeds_;
  std::mt19937 random_{kSeed};
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: %s <number of mutations> [<folder of seeds>]\n", argv[0]);
    return 2;
  }
  for (const int fatal : {SIGABRT, SIGSEGV, SIGFPE, SIGILL}) {
    std::signal(fatal, SaveInput);
  }
  std::vector<Input> seeds = BuiltInSeeds();
  if (argc > 2) {
    std::ranges::move(ReadSeeds(argv[2]), std::back_inserter(seeds));
  }
  for (const Input& seed : seeds) {
    Run(seed);
  }
  Mutator mutator(seeds);
  const long count = std::strtol(argv[1], nullptr, 10);
  for (long i = 0; i < count; ++i) {
    Run(mutator.Next());
  }
  std::printf("%ld mutations of %zu seeds, random seed %u\n", count, seeds.size(), kSeed);
  return 0;
}
