// SPDX-License-Identifier: GPL-3.0-or-later
// The tour of the windows: what it visits, what it lets pass, and its command line.
#include <QCoreApplication>
#include <QProcess>

#include "forms/form_list.h"
#include "store/parameter_table.h"
#include "system/system_test.h"
#include "tour/itinerary.h"
#include "tour/visit.h"

namespace dosmara {
namespace {

class TourTest : public SystemTest {
 protected:
  TourTest() {
    QCoreApplication::setApplicationName("Dosmara");
    Connect();
    QDir().mkdir(pictures_);
  }

  QStringList Pictures() const { return QDir(pictures_).entryList({"*.png"}); }

  const QString pictures_ = rig_.folder().parent() + "/pictures";
};

TEST_F(TourTest, OpensFillsPicturesAndClosesAFormWithoutStepsOfItsOwn) {
  Tour tour(window(), machine(), pictures_);
  ASSERT_TRUE(machine().Set(0, 339, 12345));
  VisitPlainly(tour, "FrmMDBaudit");
  EXPECT_EQ(tour.failures(), 0);
  EXPECT_EQ(Pictures(), QStringList("FrmMDBaudit.png"));
  EXPECT_EQ(ParamGet(339, 0), 12345) << "it was filled";
  EXPECT_TRUE(CountSubscribers().empty());
  EXPECT_EQ(window().findChild<QWidget*>("FrmMDBaudit"), nullptr);
}

TEST_F(TourTest, VisitsTheNamedFormsAlone) {
  Tour tour(window(), machine(), pictures_);
  VisitForms(tour, FormList(), {"FrmInfo", "FrmPassword"});
  EXPECT_EQ(tour.failures(), 0);
  EXPECT_EQ(Pictures(), QStringList({"information.png", "machine_codes.png"}));
}

TEST_F(TourTest, VisitsAFormThatItHasNoStepsForPlainly) {
  Tour tour(window(), machine(), pictures_);
  const FormEntry unknown[] = {{"FrmServizio", [] { return new Form("FrmServizio"); }}};
  VisitForms(tour, unknown, {"FrmServizio"});
  EXPECT_EQ(tour.failures(), 1) << "no menu entry opens it";
  VisitForms(tour, FormList(), {"FrmServizio"});
  EXPECT_EQ(tour.failures(), 1) << "it is no form of these";
}

TEST_F(TourTest, FindsOutThatAFormLeavesARecordSubscribed) {
  Tour tour(window(), machine(), pictures_);
  QWidget& aside = tour.Open("FrmAzione");
  QWidget& form = tour.Open("FrmPassword");
  CloseForm(tour, form);
  EXPECT_EQ(tour.failures(), 0) << "what the window beside it reads goes on";
  QWidget& again = tour.Open("FrmPassword");
  NodeIndex = 0;
  ParamSubscribe(5);
  CloseForm(tour, again);
  EXPECT_EQ(tour.failures(), 1);
  NodeIndex = 0;
  ParamUnsubscribe(5);
  CloseForm(tour, aside);
  EXPECT_EQ(tour.failures(), 1);
}

TEST_F(TourTest, FindsOutThatAFormTakesTheRecordsOfAnotherAway) {
  Tour tour(window(), machine(), pictures_);
  tour.Open("FrmAzione");
  QWidget& form = tour.Open("FrmPassword");
  NodeIndex = 1;
  ParamUnsubscribe(49);
  CloseForm(tour, form);
  EXPECT_EQ(tour.failures(), 1);
}

TEST_F(TourTest, KnowsWhatAFormIsMeantToLeaveSubscribed) {
  Tour tour(window(), machine(), pictures_);
  for (int i = 0; i < 2; ++i) {
    CloseForm(tour, tour.Open("FrmSconti"));
  }
  EXPECT_EQ(tour.failures(), 0);
  QWidget& form = tour.Open("FrmSconti");
  NodeIndex = 0;
  ParamUnsubscribe(74);
  CloseForm(tour, form);
  EXPECT_EQ(tour.failures(), 1);
}

class TourProgram : public SystemTest {
 protected:
  // Runs the program to its end. Returns its exit code.
  int Run(const QStringList& arguments) {
    QProcess program;
    program.start(DOSMARA_TOUR, arguments);
    EXPECT_TRUE(program.waitForFinished(kDeadlineMs));
    said_ = program.readAllStandardOutput();
    complained_ = program.readAllStandardError();
    return program.exitCode();
  }

  QStringList Arguments(const QStringList& forms) const {
    return QStringList{rig_.folder().path(), DOSMARA_MACHINE, rig_.folder().parent()} + forms;
  }

  QByteArray said_;
  QByteArray complained_;
};

TEST_F(TourProgram, SaysWhatItTakes) {
  EXPECT_EQ(Run({}), 2);
  EXPECT_TRUE(complained_.endsWith("usage: dosmara-tour PROGRAM_FOLDER MACHINE PICTURES [FORM...]\n"))
      << complained_.toStdString();
}

TEST_F(TourProgram, NamesAFormThatDoesNotExist) {
  EXPECT_EQ(Run(Arguments({"FrmDosi", "FrmDose"})), 2);
  EXPECT_TRUE(complained_.contains("dosmara-tour: no form is called FrmDose; there are FrmAllarmi, "))
      << complained_.toStdString();
  EXPECT_TRUE(said_.isEmpty());
}

TEST_F(TourProgram, VisitsTheFormsThatAreNamed) {
  EXPECT_EQ(Run(Arguments({"FrmPassword", "FrmInfo"})), 0) << said_.toStdString();
  EXPECT_TRUE(said_.contains("the tool connects"));
  EXPECT_TRUE(said_.contains("FrmPassword closes"));
  EXPECT_TRUE(said_.contains("FrmInfo tells"));
  EXPECT_FALSE(said_.contains("FrmDosi"));
  EXPECT_TRUE(said_.contains("\n0 failed, ")) << said_.toStdString();
  EXPECT_EQ(QDir(rig_.folder().parent()).entryList({"*.png"}),
            QStringList({"information.png", "machine_codes.png", "main_window.png"}));
}

}  // namespace
}  // namespace dosmara
