// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/form_list.h"

#include "forms/audit/coin_and_jug_counters.h"
#include "forms/audit/frm_allarmi.h"
#include "forms/audit/frm_cancella.h"
#include "forms/audit/frm_mdbaudit.h"
#include "forms/audit/frm_totali.h"
#include "forms/audit/selection_counters.h"
#include "forms/beverage/frm_azione.h"
#include "forms/beverage/frm_dosi.h"
#include "forms/beverage/frm_temperatura.h"
#include "forms/beverage/frm_tempi.h"
#include "forms/diagnostics/frm_grafico.h"
#include "forms/diagnostics/frm_in_out.h"
#include "forms/diagnostics/frm_orologio.h"
#include "forms/diagnostics/frm_schema.h"
#include "forms/diagnostics/frm_test_zeth.h"
#include "forms/selling/frm_ass_sel.h"
#include "forms/selling/frm_ass_set.h"
#include "forms/selling/frm_conf.h"
#include "forms/selling/frm_opzioni.h"
#include "forms/selling/frm_pagamento.h"
#include "forms/selling/frm_password.h"
#include "forms/selling/frm_prezzi.h"
#include "forms/selling/frm_sconti.h"
#include "shell/frm_info.h"

namespace dosmara {

namespace {

constexpr FormEntry kForms[] = {
    {"FrmAllarmi", CreateForm<FrmAllarmi>},
    {"FrmAssSel", CreateForm<FrmAssSel>},
    {"FrmAssSet", [] { return NewSetAssignment(kZeth); }},
    {"FrmAssSet2", [] { return NewSetAssignment(kZeth2); }},
    {"FrmAzione", CreateForm<FrmAzione>},
    {"FrmBattute", [] { return NewSelectionCounters(SoldAs::kPaid); }},
    {"FrmBricco", NewJugCounters},
    {"FrmCancella", CreateForm<FrmCancella>},
    {"FrmConf", CreateForm<FrmConf>},
    {"FrmDosi", CreateForm<FrmDosi>},
    {"FrmGrafico", CreateForm<FrmGrafico>},
    {"FrmGratis", [] { return NewSelectionCounters(SoldAs::kFree); }},
    {"FrmInOut", CreateForm<FrmInOut>},
    {"FrmInfo", CreateForm<FrmInfo>},
    {"FrmMDBaudit", CreateForm<FrmMDBaudit>},
    {"FrmMonete", NewCoinCounters},
    {"FrmOpzioni", CreateForm<FrmOpzioni>},
    {"FrmOrologio", CreateForm<FrmOrologio>},
    {"FrmPagamento", CreateForm<FrmPagamento>},
    {"FrmPassword", CreateForm<FrmPassword>},
    {"FrmPrezzi", CreateForm<FrmPrezzi>},
    {"FrmProva", [] { return NewSelectionCounters(SoldAs::kTest); }},
    {"FrmSchema", CreateForm<FrmSchema>},
    {"FrmSconti", CreateForm<FrmSconti>},
    {"FrmTemperatura", CreateForm<FrmTemperatura>},
    {"FrmTempi", CreateForm<FrmTempi>},
    {"FrmTestZeth", [] { return NewPeripheralTest(kZeth); }},
    {"FrmTestZeth2", [] { return NewPeripheralTest(kZeth2); }},
    {"FrmTotali", CreateForm<FrmTotali>},
};

}  // namespace

std::span<const FormEntry> FormList() { return kForms; }

}  // namespace dosmara
