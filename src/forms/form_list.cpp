// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/form_list.h"

#include "forms/beverage/frm_azione.h"
#include "forms/beverage/frm_dosi.h"
#include "forms/beverage/frm_temperatura.h"
#include "forms/beverage/frm_tempi.h"
#include "shell/frm_info.h"
#include "shell/frm_password.h"

namespace dosmara {

namespace {

constexpr FormEntry kForms[] = {
    {"FrmAzione", CreateForm<FrmAzione>},
    {"FrmDosi", CreateForm<FrmDosi>},
    {"FrmInfo", CreateForm<FrmInfo>},
    {"FrmPassword", CreateForm<FrmPassword>},
    {"FrmTemperatura", CreateForm<FrmTemperatura>},
    {"FrmTempi", CreateForm<FrmTempi>},
};

}  // namespace

std::span<const FormEntry> FormList() { return kForms; }

}  // namespace dosmara
