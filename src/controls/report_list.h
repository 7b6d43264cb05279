// SPDX-License-Identifier: GPL-3.0-or-later
// A list in report form.
#pragma once

#include <QStringList>
#include <QTreeWidget>
#include <vector>

namespace dosmara {

// Lines of several columns under headings, in letters that are read at arm's length. Lines are shown anew in
// place: what has not changed is neither laid out nor painted. Ctrl+C copies the whole list.
class ReportList : public QTreeWidget {
  Q_OBJECT

 public:
  // One line. `id` tells it from the others wherever it stands.
  struct Line {
    int id = 0;
    QStringList texts;
  };

  // Its usual size has room for so many lines.
  ReportList(QWidget* parent, int lines);

  // Sets the headings, and gives each column the width of the widest text among its heading and those that
  // can stand under it. Widths that the operator has changed stay until the texts need others.
  void SetColumns(const QStringList& headings, const std::vector<QStringList>& texts);

  // Shows these lines in place of those before, with the list scrolled as it is. A selected line that moves
  // down stays selected. If it leaves the list, or moves up, the line in its old place is selected.
  void ShowLines(const std::vector<Line>& lines);

  // Headings and lines, with tabs between the columns.
  QString AsText() const;

  QSize sizeHint() const override;

 private:
  int LineHeight() const;
  QTreeWidgetItem* NewItem();

  int room_;
  std::vector<int> widths_;
  std::vector<int> ids_;  // of the lines shown
};

}  // namespace dosmara
