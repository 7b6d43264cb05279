// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/notification.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "store/parameter_table.h"

namespace dosmara {

std::vector<LoadedForm*> LoadedForms;

namespace {

// The memory of the list that an arrival goes through, kept for the next one.
std::vector<LoadedForm*> spare_list;

// `place` is where the form stood when the arrival began, and where it normally still stands.
bool IsStillLoaded(const LoadedForm* form, std::size_t place) {
  if (place < LoadedForms.size() && LoadedForms[place] == form) {
    return true;
  }
  return std::ranges::find(LoadedForms, form) != LoadedForms.end();
}

}  // namespace

double ReplyValue(const Bytes& reply) {
  double value = 0;
  for (std::size_t i = reply.size(); i-- > 0;) {
    value = value * 256 + reply[i];
  }
  return value;
}

void NotifyForms(std::int32_t index, const Bytes& reply) {
  const double value = ReplyValue(reply);
  // Told are the forms that were loaded when the value arrived, as far as they still are.
  std::vector<LoadedForm*> forms = std::exchange(spare_list, {});
  forms = LoadedForms;
  // Each form finds the node of the exchange, also when the form before it wrote to another node; the scan
  // goes on where the last of such forms has moved it.
  const std::uint8_t node = NodeIndex;
  std::uint8_t next_node = node;
  for (std::size_t i = 0; i < forms.size(); ++i) {
    if (!IsStillLoaded(forms[i], i)) {
      continue;
    }
    NodeIndex = node;
    try {
      forms[i]->SLabelChange(index, value);
    } catch (...) {  // the other forms are told all the same
    }
    if (NodeIndex != node) {
      next_node = NodeIndex;
    }
  }
  NodeIndex = next_node;
  spare_list = std::move(forms);
}

}  // namespace dosmara
