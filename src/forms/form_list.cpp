// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/form_list.h"

#include "forms/audit/frm_allarmi.h"
#include "forms/audit/frm_cancella.h"
#include "forms/audit/selection_counters.h"
#include "forms/beverage/frm_azione.h"
#include "forms/beverage/frm_dosi.h"
#include "forms/beverage/frm_temperatura.h"
#include "forms/beverage/frm_tempi.h"
#include "forms/selling/frm_prezzi.h"
#include "forms/selling/frm_sconti.h"
#include "shell/frm_info.h"
#include "shell/frm_password.h"

namespace dosmara {

namespace {

constexpr FormEntry kForms[] = {
    {"FrmAllarmi", CreateForm<FrmAllarmi>},
    {"FrmAzione", CreateForm<FrmAzione>},
    {"FrmBattute", [] { return NewSelectionCounters(SoldAs::kPaid); }},
    {"FrmCancella", CreateForm<FrmCancella>},
    {"FrmDosi", CreateForm<FrmDosi>},
    {"FrmGratis", [] { return NewSelectionCounters(SoldAs::kFree); }},
    {"FrmInfo", CreateForm<FrmInfo>},
    {"FrmPassword", CreateForm<FrmPassword>},
    {"FrmPrezzi", CreateForm<FrmPrezzi>},
    {"FrmProva", [] { return NewSelectionCounters(SoldAs::kTest); }},
    {"FrmSconti", CreateForm<FrmSconti>},
    {"FrmTemperatura", CreateForm<FrmTemperatura>},
    {"FrmTempi", CreateForm<FrmTempi>},
};

}  // namespace

std::span<const FormEntry> FormList() { return kForms; }

}  // namespace dosmara
