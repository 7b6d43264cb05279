// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/allocations.h"

#include <cstdlib>
#include <new>

namespace {
std::size_t allocations = 0;
}  // namespace

namespace dosmara {

std::size_t Allocations() { return allocations; }

}  // namespace dosmara

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  ++allocations;
  return std::malloc(size);
}

void* operator new(std::size_t size) {
  if (void* memory = operator new(size, std::nothrow)) {
    return memory;
  }
  throw std::bad_alloc();
}

void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept { std::free(memory); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
