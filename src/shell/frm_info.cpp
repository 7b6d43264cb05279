// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/frm_info.h"

#include <QCoreApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMdiSubWindow>
#include <QVBoxLayout>

#include "controls/scaled_font.h"
#include "shell/picture.h"

namespace dosmara {

namespace {

constexpr QSize kPictureSize(240, 160);
constexpr double kTitleScale = 1.6;

QLabel* NewLabel(QVBoxLayout& layout, const QString& name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setAlignment(Qt::AlignCenter);
  layout.addWidget(label);
  return label;
}

}  // namespace

QString RevisionText(const QVersionNumber& version) {
  return QStringLiteral("Rev. %1.%2.%3")
      .arg(version.majorVersion())
      .arg(version.minorVersion())
      .arg(version.microVersion());
}

QPoint CenterForm1Position(QSize form, QSize reference) {
  return {qRound(reference.width() / 2.0 - form.width() / 2.0 + FromTwips(4500)),
          qRound(reference.height() * 0.85 / 2 - form.height() / 2.0 + FromTwips(3500))};
}

void CenterForm1(QWidget& form, const QWidget& reference) {
  form.move(CenterForm1Position(form.size(), reference.size()));
}

FrmInfo::FrmInfo() : Form("FrmInfo") {
  auto* frame = new QGroupBox("Program Info");
  frame->setObjectName("Frame1");
  auto* outer = new QVBoxLayout(this);
  outer->addWidget(frame);
  auto* layout = new QVBoxLayout(frame);
  NewLabel(*layout, "Picture")->setPixmap(Picture(":/art/info.svg", kPictureSize, devicePixelRatioF()));
  QLabel* title = NewLabel(*layout, "Label1(0)");
  title->setFont(ScaledFont(title->font(), kTitleScale));
  title->setText(QCoreApplication::applicationName());
  NewLabel(*layout, "Label1(1)")
      ->setText(RevisionText(QVersionNumber::fromString(QCoreApplication::applicationVersion())));
}

void FrmInfo::Load() {
  setWindowTitle("Info");
  // The window is its own reference: the sizes cancel out but for a part of the height.
  if (QMdiSubWindow* frame = FitFrame(*this)) {
    CenterForm1(*frame, *frame);
  }
}

}  // namespace dosmara
