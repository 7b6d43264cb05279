// SPDX-License-Identifier: GPL-3.0-or-later
// What keypads and matrices of switches have in common: how the keyboard moves on them.
#pragma once

#include <QAbstractButton>
#include <QRect>
#include <QWidget>
#include <vector>

namespace dosmara {

// The button that the arrow key leads to from button `from`, as the buttons lie; `from` itself at an edge.
// Buttons with an empty rectangle are passed over.
int NeighbourOf(const std::vector<QRect>& buttons, int from, Qt::Key arrow);

// A panel of buttons that is one stop of Tab: arrows move among its buttons, Space and Enter press, Tab
// leaves. A focused button that is disabled leaves the focus with the panel, which hands it back when the
// button is enabled again, so that an operator who waits for the machine keeps his place.
class Pad : public QWidget {
  Q_OBJECT

 public:
  explicit Pad(QWidget* parent);

 protected:
  // The buttons, which are children of the panel, in the order of reading.
  void SetButtons(std::vector<QAbstractButton*> buttons);

  // The button on which Tab enters. Without one, or while it is disabled, it is the first that is enabled.
  void SetEntry(int button);

  // The place of the disabled button for which the panel keeps the focus, so that the panel can mark it.
  // Empty if there is none.
  QRect HeldPlace() const;

  bool eventFilter(QObject* watched, QEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  int IndexOf(const QObject* widget) const;
  bool TakesKey(int button, const QKeyEvent& event);
  void ChooseStop();

  std::vector<QAbstractButton*> buttons_;
  int entry_ = -1;
  int held_ = -1;
};

}  // namespace dosmara
