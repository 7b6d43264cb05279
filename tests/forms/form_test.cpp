// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/form.h"

#include <QMdiSubWindow>
#include <QPointer>
#include <QTabWidget>
#include <QVBoxLayout>

#include "forms/form_fixture.h"

namespace dosmara {
namespace {

struct Diary {
  int loads = 0;
  int unloads = 0;
  int arrivals = 0;
};

class PlainForm : public Form {
 public:
  explicit PlainForm(Diary& diary) : Form("PlainForm"), diary_(diary) {}
  void Load() override {
    ++diary_.loads;
    FormCentre(*this);
  }
  void Unload() override { ++diary_.unloads; }
  void SLabelChange(std::int32_t, double) override { ++diary_.arrivals; }
  QSize sizeHint() const override { return {300, 200}; }

 private:
  Diary& diary_;
};

class FormTest : public FormFixture {
 protected:
  Diary diary_;
};

TEST_F(FormTest, HearsArrivalsFromItsOpeningToItsClose) {
  Arrive(1, 5, 1);
  Open(new PlainForm(diary_));
  Arrive(1, 5, 1);
  Arrive(1, 5, 1);
  form().parentWidget()->close();
  Arrive(1, 5, 1);
  EXPECT_EQ(diary_.arrivals, 2);
}

TEST_F(FormTest, UnloadsOnceWhenItCloses) {
  Open(new PlainForm(diary_));
  EXPECT_EQ(diary_.unloads, 0);
  form().close();
  form().close();
  EXPECT_EQ(diary_.loads, 1);
  EXPECT_EQ(diary_.unloads, 1);
  EXPECT_TRUE(LoadedForms.empty());
}

TEST_F(FormTest, IsGoneAfterItsClose) {
  Open(new PlainForm(diary_));
  const QPointer<Form> watched(&form());
  Close();
  EXPECT_TRUE(watched.isNull());
}

TEST_F(FormTest, TakesTheSizeOfItsContentsAndItsPlaceInTheWindow) {
  Open(new PlainForm(diary_));
  const QWidget& frame = *form().parentWidget();
  EXPECT_EQ(form().size(), QSize(300, 200));
  EXPECT_EQ(frame.pos(), FormCentrePosition({1366, 700}, frame.size()));
}

TEST_F(FormTest, TakesTheSizeOfAPageBehindAnotherOne) {
  class Pages : public Form {
   public:
    Pages() : Form("Pages"), label_(new QLabel) {
      auto* tabs = new QTabWidget;
      tabs->addTab(new QWidget, "front");
      auto* page = new QWidget;
      (new QVBoxLayout(page))->addWidget(label_);
      tabs->addTab(page, "back");
      (new QVBoxLayout(this))->addWidget(tabs);
      sizeHint();
    }
    void Load() override {
      label_->setFixedSize(500, 400);
      FormCentre(*this);
    }

   private:
    QLabel* label_;
  };
  Open(new Pages);
  EXPECT_GT(form().width(), 500);
  EXPECT_GT(form().height(), 400);
}

TEST_F(FormTest, LiesWhollyInTheAreaOfFormsWhereThatIsSmall) {
  Open(new PlainForm(diary_));
  QWidget& area = *form().parentWidget()->parentWidget();
  form().parentWidget()->close();
  for (const QSize size : {QSize(340, 250), QSize(100, 100)}) {
    area.resize(size);
    Open(new PlainForm(diary_));
    EXPECT_TRUE(area.rect().contains(form().parentWidget()->geometry())) << size.width();
    form().parentWidget()->close();
  }
}

TEST(FormCentre, LiesLeftOfAndAboveTheMiddle) {
  // 1366 x 0.85 / 2 - 300 / 2 + 100 / 15 = 437.2; 700 / 2 - 200 / 2 - 80 / 15 = 244.7
  EXPECT_EQ(FormCentrePosition({1366, 700}, {300, 200}), QPoint(437, 245));
}

}  // namespace
}  // namespace dosmara
