// SPDX-License-Identifier: GPL-3.0-or-later
// dosmara-tour PROGRAM_FOLDER MACHINE PICTURES [FORM...]
//
// Starts the machine, runs the tool's own windows against it, prints each step and its result, saves
// pictures: of the forms that are named ("FrmDosi"), else of all. PROGRAM_FOLDER holds the index and language
// files. Exits with 1 when a step has failed, with 2 when it was called wrongly.
#include <QApplication>
#include <QDir>
#include <cstdio>

#include "forms/form_list.h"
#include "shell/application.h"
#include "store/failure.h"
#include "tour/itinerary.h"
#include "tour/machine_process.h"
#include "tour/steps.h"
#include "tour/tour.h"

namespace {

// The smallest screen that a technician brings.
constexpr QSize kLaptop(1366, 768);

// The names of all forms.
QStringList FormNames() {
  QStringList names;
  for (const dosmara::FormEntry& entry : dosmara::FormList()) {
    names.append(entry.name);
  }
  return names;
}

// What is wrong with the arguments; empty: nothing.
QString Complaint(const QStringList& arguments) {
  if (arguments.size() < 4) {
    return "usage: dosmara-tour PROGRAM_FOLDER MACHINE PICTURES [FORM...]";
  }
  for (const QString& name : arguments.mid(4)) {
    if (!FormNames().contains(name)) {
      return "dosmara-tour: no form is called " + name + "; there are " + FormNames().join(", ");
    }
  }
  return {};
}

}  // namespace

int main(int argc, char** argv) {
  using namespace dosmara;
  QApplication app(argc, argv);
  DressApplication();
  const QStringList arguments = QApplication::arguments();
  if (const QString complaint = Complaint(arguments); !complaint.isEmpty()) {
    std::fprintf(stderr, "%s\n", qPrintable(complaint));
    return 2;
  }
  const QString folder = QDir(arguments[1]).absolutePath();
  const QString pictures = QDir(arguments[3]).absolutePath();
  QDir().mkpath(pictures);
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
    VisitForms(tour, FormList(), arguments.mid(4));
  }
  std::printf("%d failed, pictures in %s\n", tour.failures(), qPrintable(pictures));
  return tour.failures() == 0 ? 0 : 1;
}
