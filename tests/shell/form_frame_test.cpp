// SPDX-License-Identifier: GPL-3.0-or-later
// The frame of a form: its size follows the contents until the operator gives it another.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "shell/form.h"

namespace dosmara {
namespace {

// A form whose contents scroll.
class ScrollingForm : public Form {
 public:
  explicit ScrollingForm(QSize contents)
      : Form("ScrollingForm"), body_(new QWidget), area_(new QScrollArea(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(area_);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setWidgetResizable(true);
    area_->setWidget(body_);
    Grow(contents);
  }
  void Grow(QSize contents) { body_->setMinimumSize(contents); }
  QSize sizeHint() const override { return body_->minimumSize(); }
  bool ScrollsAcross() const { return area_->horizontalScrollBar()->isVisible(); }
  bool ScrollsDown() const { return area_->verticalScrollBar()->isVisible(); }

 private:
  QWidget* body_;
  QScrollArea* area_;
};

class FormFrame : public testing::Test {
 protected:
  void SetUp() override {
    area_.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area_.resize(800, 600);
    area_.show();
  }

  ScrollingForm& Open(QSize contents) {
    form_ = new ScrollingForm(contents);
    frame_ = area_.addSubWindow(form_);
    FormCentre(*form_);
    frame_->show();
    QCoreApplication::sendPostedEvents();
    return *form_;
  }
  bool LiesInTheArea() const { return area_.viewport()->rect().contains(frame_->geometry()); }

  QMdiArea area_;
  ScrollingForm* form_ = nullptr;
  QMdiSubWindow* frame_ = nullptr;
};

TEST_F(FormFrame, WidensByTheScrollBarOfAFormThatIsTooTall) {
  Open({300, 900});
  EXPECT_TRUE(form_->ScrollsDown());
  EXPECT_FALSE(form_->ScrollsAcross());
  EXPECT_TRUE(LiesInTheArea());
}

TEST_F(FormFrame, HeightensByTheScrollBarOfAFormThatIsTooWide) {
  Open({1000, 300});
  EXPECT_TRUE(form_->ScrollsAcross());
  EXPECT_FALSE(form_->ScrollsDown());
  EXPECT_TRUE(LiesInTheArea());
}

TEST_F(FormFrame, FollowsContentsThatGrowAndShrink) {
  Open({300, 200});
  for (const QSize contents : {QSize(500, 300), QSize(250, 150)}) {
    form_->Grow(contents);
    RefitFrame(*form_);
    EXPECT_EQ(form_->size(), contents);
  }
}

TEST_F(FormFrame, StaysInTheAreaAsItGrows) {
  Open({300, 200});
  frame_->move(480, 350);
  form_->Grow({500, 300});
  RefitFrame(*form_);
  EXPECT_EQ(form_->size(), QSize(500, 300));
  EXPECT_TRUE(LiesInTheArea());
}

TEST_F(FormFrame, StaysWhereTheOperatorHasMovedIt) {
  Open({300, 200});
  frame_->move(10, 20);
  form_->Grow({500, 300});
  RefitFrame(*form_);
  EXPECT_EQ(frame_->pos(), QPoint(10, 20));
}

TEST_F(FormFrame, KeepsTheSizeThatTheOperatorHasGivenIt) {
  Open({300, 200});
  frame_->resize(600, 400);
  form_->Grow({350, 250});
  RefitFrame(*form_);
  EXPECT_EQ(frame_->size(), QSize(600, 400));
}

TEST_F(FormFrame, LeavesAMaximizedFrameMaximized) {
  Open({300, 200});
  frame_->showMaximized();
  const QSize full = frame_->size();
  form_->SetFittedSize(full);
  RefitFrame(*form_);
  EXPECT_TRUE(frame_->isMaximized());
  EXPECT_EQ(frame_->size(), full);
}

}  // namespace
}  // namespace dosmara
