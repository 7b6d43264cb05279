// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/frame_log.h"

#include <algorithm>
#include <cstdio>

namespace machine {
namespace {

// The column at which the bytes begin, so that they stand below each other.
constexpr int kDescriptionWidth = 72;

std::string Hex(const Bytes& bytes) {
  std::string text;
  char two[4];
  for (const std::uint8_t byte : bytes) {
    std::snprintf(two, sizeof two, " %02X", static_cast<unsigned>(byte));
    text += two;
  }
  return text;
}

// The value of at most eight bytes; longer ones are seen in the bytes.
std::uint64_t ValueOf(const std::uint8_t* bytes, std::size_t length) {
  std::uint64_t value = 0;
  for (std::size_t i = std::min<std::size_t>(length, 8); i-- > 0;) {
    value = value << 8 | bytes[i];
  }
  return value;
}

}  // namespace

void FrameLog::In(Time now, const Request& request, const Cell* cell) {
  if (!on_) {
    return;
  }
  std::string what = Describe(request, cell);
  if (request.write) {
    what += " = " + std::to_string(ValueOf(request.data.data(), request.data.size()));
  }
  Write(now, "in ", what, request.frame);
}

void FrameLog::Out(Time now, const Request& request, const Cell* cell, const Bytes& reply) {
  if (!on_) {
    return;
  }
  std::string what = Describe(request, cell);
  if (cell != nullptr) {
    what += " = " + std::to_string(ValueOf(cell->bytes.data(), cell->address.length()));
  }
  Write(now, "out", what, reply);
}

void FrameLog::Dropped(Time now, const Bytes& bytes) {
  if (on_ && !bytes.empty()) {
    Write(now, "in ", "no request", bytes);
  }
}

void FrameLog::Note(Time now, std::string_view text) {
  if (on_) {
    Write(now, "---", std::string(text), {});
  }
}

void FrameLog::Write(Time now, std::string_view direction, const std::string& what, const Bytes& bytes) {
  char start[48];
  std::snprintf(start, sizeof start, "%14.6f  %s  ", std::chrono::duration<double>(now).count(),
                std::string(direction).c_str());
  std::string line = start + what;
  if (!bytes.empty()) {
    line.resize(std::max<std::size_t>(line.size() + 1, kDescriptionWidth), ' ');
    line += Hex(bytes);
  }
  sink_(line);
}

std::string FrameLog::Describe(const Request& request, const Cell* cell) const {
  std::string text = "node " + std::to_string(request.node) + (request.write ? "  write  " : "  read   ");
  if (cell != nullptr && cell->identification) {
    return text + "identification " + std::to_string(cell->number);
  }
  if (cell != nullptr) {
    const std::string name = names_.NameOf(request.node, cell->number);
    return text + "record " + std::to_string(cell->number) + (name.empty() ? "" : " " + name);
  }
  if (IsPortTest(request)) {
    return text + "port test";
  }
  const Address& at = request.address;
  char place[40];
  std::snprintf(place, sizeof place, "address %02X:%02X:%02X control %02X", at.bank, at.high, at.low,
                at.control);
  return text + place;
}

}  // namespace machine
