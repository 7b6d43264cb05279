// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/form_fixture.h"

#include <algorithm>

#include "store/parameter_table.h"

namespace dosmara {

FormFixture::FormFixture() {
  for (int node = 0; node < kNodeCount; ++node) {
    NodeRecordCount[node] = kRecords;
    for (int record = 1; record <= kRecords; ++record) {
      ParamTable[node][record].Control = 1;
    }
  }
}

void FormFixture::Arrive(int node, int record, double value) {
  const auto whole = static_cast<std::uint32_t>(value);
  Bytes reply;
  for (int byte = 0; byte < kValueBytes; ++byte) {
    reply.push_back(static_cast<std::uint8_t>(whole >> 8 * byte));
  }
  ParamRec& target = ParamTable[node][record];
  std::copy(reply.begin(), reply.end(), target.Value);
  target.Flags |= kArrived;
  // As the link offers it, but for one thing: what a form throws ends the test.
  const std::vector<LoadedForm*> forms = LoadedForms;
  for (LoadedForm* form : forms) {
    NodeIndex = static_cast<std::uint8_t>(node);
    form->SLabelChange(record, ReplyValue(reply));
  }
}

std::vector<Write> FormFixture::Written() {
  std::vector<Write> writes;
  for (int node = 0; node < kNodeCount; ++node) {
    for (int record = 1; record <= kRecords; ++record) {
      if ((ParamTable[node][record].Flags & kWritePending) != 0) {
        writes.push_back({node, record, static_cast<int>(ParamGet(record, node))});
        ParamTable[node][record].Flags &= static_cast<std::uint8_t>(~kWritePending);
      }
    }
  }
  return writes;
}

}  // namespace dosmara
