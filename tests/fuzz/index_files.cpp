// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary bytes as a small and as a full index file: loaded whole, or refused with a number.
#include "store/index_files.h"

#include <cstdlib>

#include "store/failure.h"
#include "support/index_file_maker.h"

namespace {

using namespace dosmara;

template <typename Load>
bool Loads(Load load, const TempFolder& folder, int node) {
  try {
    load(folder.path(), "W0001.inx", node);
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TempFolder folder;
  folder.Write("W0001.inx", {data, data + size});
  const bool is_small = size / 5 >= 18 && size / 5 <= 20;
  if (Loads(LoadSmallIndex, folder, 1) != is_small) {
    std::abort();
  }
  if (!Loads(LoadFullIndex, folder, 2)) {
    std::abort();
  }
  if (NodeRecordCount[2] != static_cast<std::int16_t>(size / 9)) {
    std::abort();
  }
  if (ParamTable[2][0].Flags != 0) {
    std::abort();
  }
  return 0;
}
