// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/loaded_forms.h"

#include <gtest/gtest.h>

#include <QCloseEvent>

namespace dosmara {
namespace {

// Loaded as a form is, but no child window.
class Listener : public QObject, public LoadedForm {
 public:
  Listener() { setObjectName("FrmDosi"); }
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
  void TearDown() override { LoadedForms.clear(); }

  int unloads_ = 0;
};

TEST_F(LoadedFormsTest, UnloadsAllForms) {
  new CountingForm("FrmDosi", unloads_);
  new CountingForm("FrmTempi", unloads_);
  new CountingForm("FrmAzione", unloads_);
  UnloadDataForms();
  EXPECT_TRUE(LoadedForms.empty());
  EXPECT_EQ(unloads_, 3);
}

TEST_F(LoadedFormsTest, AsksNoFormForItsNameOrItsPlace) {
  new CountingForm("MDIForm1", unloads_);
  new CountingForm("FrmSer", unloads_);
  UnloadDataForms();
  EXPECT_TRUE(LoadedForms.empty());
  EXPECT_EQ(unloads_, 2);
}

TEST_F(LoadedFormsTest, EndsThoughAFormRefusesToClose) {
  StubbornForm stubborn;
  new CountingForm("FrmDosi", unloads_);
  UnloadDataForms();
  EXPECT_EQ(LoadedForms, std::vector<LoadedForm*>{&stubborn});
  EXPECT_EQ(unloads_, 1);
}

TEST_F(LoadedFormsTest, FindsAFormByItsNameAlone) {
  CountingForm form("FrmDosi", unloads_);
  EXPECT_EQ(FindForm("frmdosi"), &form);
  EXPECT_EQ(FindForm("FrmTempi"), nullptr);
  EXPECT_EQ(FindForm("MDIForm1"), nullptr);
}

TEST_F(LoadedFormsTest, PassesOverWhatIsNoChildWindow) {
  Listener listener;
  LoadedForms = {&listener};
  EXPECT_EQ(FindForm("FrmDosi"), nullptr);
  UnloadDataForms();
  EXPECT_EQ(LoadedForms, std::vector<LoadedForm*>{&listener});
}

}  // namespace
}  // namespace dosmara
