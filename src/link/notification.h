// SPDX-License-Identifier: GPL-3.0-or-later
// Delivery of arrived values: the list of loaded forms and the one operation by which each of them hears of
// an arrival. The table has been updated before any form is told.
#pragma once

#include <cstdint>
#include <vector>

#include "link/frame.h"

namespace dosmara {

// A loaded form as the link engine sees it: a child form of the main window.
class LoadedForm {
 public:
  virtual ~LoadedForm() = default;
  // One arrival: record index and value; NodeIndex tells the node. Also called for a repeated value. Must
  // reject foreign records with plain comparisons and must not wait for another exchange. May call
  // ParamSubscribe, ParamUnsubscribe and ParamPut; an assignment of NodeIndex moves the scan.
  virtual void SLabelChange(std::int32_t index, double value) = 0;
};

// The loaded forms in the order of their loading. Forms add and remove themselves. The main window and FrmSer
// are none of them: no arrival concerns them.
extern std::vector<LoadedForm*> LoadedForms;

// The value of a reply, its bytes least significant first, over its whole length of up to 16 bytes.
double ReplyValue(const Bytes& reply);

// Offers an arrival to every loaded form, in order. An exception of one form does not keep the others from
// being told. A form may unload itself or another form meanwhile.
void NotifyForms(std::int32_t index, const Bytes& reply);

}  // namespace dosmara
