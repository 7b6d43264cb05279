// SPDX-License-Identifier: GPL-3.0-or-later
// What the tour does in each window, one function for each. VisitForms knows which form each is for.
#pragma once

#include "tour/tour.h"

namespace dosmara {

// The main window: all boards answered, the lamps work, the pictures of it.
void VisitMainWindow(Tour& tour);

// Doses: unlocks, a dose changed and held by the machine, a drink and a part dispensed, the other language.
void VisitDoses(Tour& tour);

// Times: unlocks, a time and a drawer's time changed and held by their boards.
void VisitTimes(Tour& tour);

// Temperatures: unlocks, one of each board changed and held.
void VisitTemperatures(Tour& tour);

// Preventive actions: unlocks, a count changed and held by the machine.
void VisitPreventiveActions(Tour& tour);

// Machine codes: shown as the machine holds them, one changed and held.
void VisitMachineCodes(Tour& tour);

// Prices: unlocks, one of each run changed and held, the switch for all at price 1.
void VisitPrices(Tour& tour);

// Discounts: unlocks, one of a price and the one without a cup changed and held.
void VisitDiscounts(Tour& tour);

// Payment: unlocks with two payment systems, one value of each kind changed and held.
void VisitPayment(Tour& tour);

// The prices of selections and of the positions of both units: one of each changed and held by its board.
void VisitPricesOfSelections(Tour& tour);
void VisitPricesOfPositions(Tour& tour);
void VisitPricesOfSecondPositions(Tour& tour);

// Options: one of each kind changed and held by its board.
void VisitOptions(Tour& tour);

// Configuration: a group of each unit changed and held, the groups switched off and on.
void VisitConfiguration(Tour& tour);

// Paid, free and test vends: shown as the machine has counted them; a sale shows with the next refresh.
void VisitPaidVends(Tour& tour);
void VisitFreeVends(Tour& tour);
void VisitTestVends(Tour& tour);

// Totals, coins, jugs and the flows of money of MDB: shown as the machine has counted them.
void VisitTotals(Tour& tour);
void VisitCoinCounters(Tour& tour);
void VisitJugCounters(Tour& tour);
void VisitMdbAudit(Tour& tour);

// The alarm log: an alarm that the machine has just raised is its first line.
void VisitAlarms(Tour& tour);

// The reset of the counters: the machine has cleared them, but those for life.
void VisitClearing(Tour& tour);

// The graph of the temperatures is left open behind the windows that are visited in between. ReturnToGraph
// looks at what it has drawn meanwhile, and closes it.
void PutGraphAside(Tour& tour);
void ReturnToGraph(Tour& tour);

// Outputs and inputs: the boards take the test, outputs of three boards are driven and read back, the test
// ends.
void VisitOutputs(Tour& tour);

// The hydraulic diagram during a drink.
void VisitSchema(Tour& tour);

// The test of both units: a position hands out, the motors go to zero.
void VisitFirstUnit(Tour& tour);
void VisitSecondUnit(Tour& tour);

// The clock: a time point changed and held, the machine's clock set.
void VisitClock(Tour& tour);

// The information window.
void VisitInformation(Tour& tour);

}  // namespace dosmara
