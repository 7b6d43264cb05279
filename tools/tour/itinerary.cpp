// SPDX-License-Identifier: GPL-3.0-or-later
#include "tour/itinerary.h"

#include <algorithm>

#include "tour/steps.h"
#include "tour/visit.h"

namespace dosmara {

namespace {

// The steps in a form's window. The graph has two rows: it stays open while other windows are visited.
struct Steps {
  const char* form;
  void (*visit)(Tour& tour);
};

constexpr Steps kItinerary[] = {
    {"FrmDosi", VisitDoses},
    {"FrmTempi", VisitTimes},
    {"FrmTemperatura", VisitTemperatures},
    {"FrmAzione", VisitPreventiveActions},
    {"FrmPassword", VisitMachineCodes},
    {"FrmPrezzi", VisitPrices},
    {"FrmSconti", VisitDiscounts},
    {"FrmPagamento", VisitPayment},
    {"FrmAssSel", VisitPricesOfSelections},
    {"FrmAssSet", VisitPricesOfPositions},
    {"FrmAssSet2", VisitPricesOfSecondPositions},
    {"FrmOpzioni", VisitOptions},
    {"FrmConf", VisitConfiguration},
    {"FrmBattute", VisitPaidVends},
    {"FrmGratis", VisitFreeVends},
    {"FrmProva", VisitTestVends},
    {"FrmTotali", VisitTotals},
    {"FrmMonete", VisitCoinCounters},
    {"FrmBricco", VisitJugCounters},
    {"FrmMDBaudit", VisitMdbAudit},
    {"FrmAllarmi", VisitAlarms},
    {"FrmCancella", VisitClearing},
    {"FrmGrafico", PutGraphAside},
    {"FrmInOut", VisitOutputs},
    {"FrmSchema", VisitSchema},
    {"FrmTestZeth", VisitFirstUnit},
    {"FrmTestZeth2", VisitSecondUnit},
    {"FrmOrologio", VisitClock},
    {"FrmGrafico", ReturnToGraph},
    {"FrmInfo", VisitInformation},
};

}  // namespace

void VisitForms(Tour& tour, std::span<const FormEntry> forms, const QStringList& names) {
  const auto wanted = [&names](const char* form) { return names.isEmpty() || names.contains(form); };
  for (const Steps& steps : kItinerary) {
    if (wanted(steps.form)) {
      steps.visit(tour);
    }
  }
  for (const FormEntry& entry : forms) {
    const bool has_steps = std::ranges::any_of(
        kItinerary, [&entry](const Steps& steps) { return QString(steps.form) == entry.name; });
    if (wanted(entry.name) && !has_steps) {
      VisitPlainly(tour, entry.name);
    }
  }
}

void VisitPlainly(Tour& tour, const QString& name) {
  QWidget* form = nullptr;
  tour.Step(name + " opens and reads all its values", [&] {
    form = &tour.Open(name);
    AwaitRead(tour, *form);
    tour.Picture(name);
  });
  if (form != nullptr) {
    CloseForm(tour, *form);
  }
}

}  // namespace dosmara
