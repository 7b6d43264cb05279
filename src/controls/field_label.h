// SPDX-License-Identifier: GPL-3.0-or-later
// Labels of value rows.
#pragma once

#include <QLabel>

namespace dosmara {

// A label that stays easy to read while it is disabled: a locked form must still tell its values.
class FieldLabel : public QLabel {
  Q_OBJECT

 public:
  // With `framed`, the label looks like the closed field of a value.
  explicit FieldLabel(QWidget* parent, bool framed = false);

  // Writes the text in softened ink, as while the label is disabled, or in full ink again.
  void SetQuiet(bool quiet);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QRect TextRect() const;

  bool framed_;
  bool quiet_ = false;
};

}  // namespace dosmara
