// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/loaded_forms.h"

#include <gtest/gtest.h>

#include <QCloseEvent>

namespace dosmara {
namespace {

// Stands in for the main window, which is loaded but no child form.
class MainForm : public QObject, public LoadedForm {
 public:
  MainForm() { setObjectName("MDIForm1"); }
  void SLabelChange(std::int32_t /*index*/, double /*value*/) override {}
};

class CountingForm : public Form {
 public:
  CountingForm(const QString& name, int& unloads) : Form(name), unloads_(unloads) {}
  void Unload() override { ++unloads_; }

 private:
  int& unloads_;
};

// A form that does not let itself be closed.
class StubbornForm : public Form {
 public:
  StubbornForm() : Form("FrmGrafico") {}

 protected:
  void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

class LoadedFormsTest : public testing::Test {
 protected:
  void SetUp() override { LoadedForms = {&main_}; }
  void TearDown() override { LoadedForms.clear(); }

  QStringList Names() {
    QStringList names;
    for (const LoadedForm* form : LoadedForms) {
      names.append(UpperName(*form));
    }
    return names;
  }

  MainForm main_;
  int unloads_ = 0;
};

TEST_F(LoadedFormsTest, UnloadsAllButTheMainWindowAndFrmSer) {
  new CountingForm("FrmSer", unloads_);
  new CountingForm("FrmDosi", unloads_);
  new CountingForm("FrmTempi", unloads_);
  UnloadDataForms();
  EXPECT_EQ(Names(), QStringList({"MDIFORM1", "FRMSER"}));
  EXPECT_EQ(unloads_, 2);
  delete FindForm("FrmSer");
}

TEST_F(LoadedFormsTest, KnowsFrmSerWhereverItStands) {
  new CountingForm("FrmDosi", unloads_);
  new CountingForm("FRMSER", unloads_);
  UnloadDataForms();
  EXPECT_EQ(Names(), QStringList({"MDIFORM1", "FRMSER"}));
  delete FindForm("FrmSer");
}

TEST_F(LoadedFormsTest, EndsThoughAFormRefusesToClose) {
  StubbornForm stubborn;
  new CountingForm("FrmDosi", unloads_);
  UnloadDataForms();
  EXPECT_EQ(Names(), QStringList({"MDIFORM1", "FRMGRAFICO"}));
}

TEST_F(LoadedFormsTest, FindsAFormByItsNameAlone) {
  CountingForm form("FrmDosi", unloads_);
  EXPECT_EQ(FindForm("frmdosi"), &form);
  EXPECT_EQ(FindForm("FrmTempi"), nullptr);
  EXPECT_EQ(FindForm("MDIForm1"), nullptr);
}

}  // namespace
}  // namespace dosmara
