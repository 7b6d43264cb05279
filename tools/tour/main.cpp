// SPDX-License-Identifier: GPL-3.0-or-later
// dosmara-tour PROGRAM_FOLDER MACHINE PICTURES
//
// Starts the machine, runs the tool's own windows against it, prints each step and its result, saves
// pictures. PROGRAM_FOLDER holds the index and language files. Exits with 1 when a step has failed, with 2
// when it was called wrongly.
#include <QApplication>
#include <QDir>
#include <cstdio>

#include "forms/form_list.h"
#include "shell/application.h"
#include "store/failure.h"
#include "tour/machine_process.h"
#include "tour/steps.h"
#include "tour/tour.h"

namespace {

// The smallest screen that a technician brings.
constexpr QSize kLaptop(1366, 768);

}  // namespace

int main(int argc, char** argv) {
  using namespace dosmara;
  QApplication app(argc, argv);
  DressApplication();
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 4) {
    std::fputs("usage: dosmara-tour PROGRAM_FOLDER MACHINE PICTURES\n", stderr);
    return 2;
  }
  const QString folder = QDir(arguments[1]).absolutePath();
  const QString pictures = QDir(arguments[3]).absolutePath();
  MachineProcess machine(QFileInfo(arguments[2]).absoluteFilePath(),
                         {"--boards", folder, "--link", folder + "/com1"});
  if (!machine.Ready()) {
    std::fputs("the simulated machine did not start\n", stderr);
    return 1;
  }

  MDIForm1 window(SettingsOf(folder + "/dosmara"), FormList());
  window.setWindowState(Qt::WindowNoState);  // it is maximized where the screen is smaller
  window.resize(kLaptop);
  Tour tour(window, machine, pictures);
  tour.Step("the tool connects", [&] {
    try {
      window.Load();
    } catch (const ProgramEnds&) {
      tour.Expect(false, "it has ended at start");
    }
  });
  if (tour.failures() == 0) {
    VisitMainWindow(tour);
    VisitDoses(tour);
    VisitTimes(tour);
    VisitTemperatures(tour);
    VisitPreventiveActions(tour);
    VisitMachineCodes(tour);
    VisitPrices(tour);
    VisitDiscounts(tour);
    VisitPayment(tour);
    VisitAssignment(tour);
    VisitOptions(tour);
    VisitConfiguration(tour);
    VisitSelectionCounters(tour);
    VisitTotals(tour);
    VisitCoinCounters(tour);
    VisitJugCounters(tour);
    VisitMdbAudit(tour);
    VisitAlarms(tour);
    VisitClearing(tour);
    QWidget* graph = StartGraph(tour);
    VisitOutputs(tour);
    VisitSchema(tour);
    VisitUnits(tour);
    VisitClock(tour);
    EndGraph(tour, graph);
    VisitInformation(tour);
  }
  std::printf("%d failed, pictures in %s\n", tour.failures(), qPrintable(pictures));
  return tour.failures() == 0 ? 0 : 1;
}
