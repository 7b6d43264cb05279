// SPDX-License-Identifier: GPL-3.0-or-later
// The status bar StatusBar1: a panel of text and three lamps that report on the link.
#pragma once

#include <QLabel>
#include <QStatusBar>
#include <vector>

namespace dosmara {

class StatusBar : public QStatusBar {
 public:
  StatusBar();

  // Makes the four panels: text, transmit lamp, receive lamp, error lamp, all lamps off. Called once, by the
  // load of FrmSer. Panel n is called "Panels(n)".
  void MakePanels();
  // Shows image 1 to 6 on lamp panel 2, 3 or 4. Its property "Tag" holds the number of the image.
  void ShowLamp(int panel, int image);
  // Text of panel 1. It is painted before this returns, without an event.
  void SetText(const QString& text);
  // Clears the text of panel 1 if it holds one.
  void ClearText();

 private:
  std::vector<QLabel*> panels_;
};

}  // namespace dosmara
