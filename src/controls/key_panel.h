// SPDX-License-Identifier: GPL-3.0-or-later
// What the machine's keypads have in common, drawn: the panel and its keys.
#pragma once

#include <QAbstractButton>
#include <QRect>
#include <QStringList>
#include <vector>

#include "controls/pad.h"

namespace dosmara {

// One key: its text on a raised cap, which sinks while it is pressed and is only an outline while it is
// disabled. It is lit while its `checked` property is set; a press does not light it.
class KeypadKey : public QAbstractButton {
  Q_OBJECT

 public:
  KeypadKey(QWidget* parent, const QString& text);

 protected:
  void nextCheckState() override {}
  void paintEvent(QPaintEvent* event) override;
};

// The panel with its keys.
class KeyPanel : public Pad {
  Q_OBJECT

 public:
  // One key for each text, in the order of reading.
  KeyPanel(QWidget* parent, const QStringList& texts);

  int Count() const { return static_cast<int>(keys_.size()); }
  KeypadKey& Key(int index) { return *keys_[index]; }

 signals:
  // Key `index` has been pressed.
  void Pressed(int index);

 protected:
  // Where key `index` lies on a panel of `size`.
  virtual QRect PlaceOfKey(QSize size, int index) const = 0;

  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::vector<KeypadKey*> keys_;
};

}  // namespace dosmara
