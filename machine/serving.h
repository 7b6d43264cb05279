// SPDX-License-Identifier: GPL-3.0-or-later
// One thing that the machine hands out, as a test or as a sale, or a wash, of which the water is all.
#pragma once

#include <cstdint>

namespace machine {

struct Serving {
  enum class Kind { kDrink, kPart, kProduct, kWash };

  Kind kind = Kind::kDrink;
  int node = 1;   // 1 for drinks and their parts, 2 or 3 for products
  int index = 0;  // selection 0 to 21, or position 0 to 47
  bool sale = false;
  bool powders = true;
  bool sugar = true;
  bool cup = true;
  bool extra_sugar = false;
  bool extra_milk = false;
  std::uint32_t part = 0;  // of a single part, as record 316 names it
};

}  // namespace machine
