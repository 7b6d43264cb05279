// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/report_list.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QShortcut>
#include <algorithm>

#include "controls/scaled_font.h"

namespace dosmara {

namespace {

constexpr double kFontScale = 1.4;
constexpr double kLineScale = 1.5;  // height of a line in heights of its text

QStringList TextsOf(const QTreeWidgetItem& item) {
  QStringList texts;
  for (int column = 0; column < item.columnCount(); ++column) {
    texts.append(item.text(column));
  }
  return texts;
}

}  // namespace

ReportList::ReportList(QWidget* parent, int lines) : QTreeWidget(parent), room_(lines) {
  setFont(ScaledFont(font(), kFontScale));
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setAlternatingRowColors(true);
  setTabKeyNavigation(false);
  auto* copy = new QShortcut(QKeySequence::Copy, this);
  copy->setContext(Qt::WidgetShortcut);
  connect(copy, &QShortcut::activated, this, [this] {
    if (topLevelItemCount() > 0) {
      QGuiApplication::clipboard()->setText(AsText());
    }
  });
}

void ReportList::SetColumns(const QStringList& headings, const std::vector<QStringList>& texts) {
  setHeaderLabels(headings);
  const int gap = 2 * fontMetrics().horizontalAdvance('0');
  std::vector<int> widths;
  for (int column = 0; column < headings.size(); ++column) {
    int widest = header()->sectionSizeHint(column);
    for (const QString& text : texts[column]) {
      widest = std::max(widest, fontMetrics().horizontalAdvance(text) + gap);
    }
    widths.push_back(widest);
  }
  if (widths == widths_) {
    return;
  }
  widths_ = widths;
  for (int column = 0; column < headings.size(); ++column) {
    setColumnWidth(column, widths_[column]);
  }
  updateGeometry();
}

void ReportList::ShowLines(const std::vector<Line>& lines) {
  const QList<QTreeWidgetItem*> selected = selectedItems();
  const int selected_at = selected.isEmpty() ? -1 : indexOfTopLevelItem(selected.front());
  const int selected_id = selected_at < 0 ? 0 : ids_[selected_at];
  const int scrolled_to = verticalScrollBar()->value();
  const int count = static_cast<int>(lines.size());
  while (topLevelItemCount() > count) {
    delete takeTopLevelItem(topLevelItemCount() - 1);
  }
  ids_.clear();
  int stands_at = -1;
  for (int n = 0; n < count; ++n) {
    QTreeWidgetItem* item = n < topLevelItemCount() ? topLevelItem(n) : NewItem();
    for (int column = 0; column < lines[n].texts.size(); ++column) {
      item->setText(column, lines[n].texts[column]);
    }
    ids_.push_back(lines[n].id);
    if (lines[n].id == selected_id) {
      stands_at = n;
    }
  }
  if (selected_at >= 0 && count > 0) {
    setCurrentItem(topLevelItem(std::min(std::max(selected_at, stands_at), count - 1)));
  }
  verticalScrollBar()->setValue(scrolled_to);
}

QTreeWidgetItem* ReportList::NewItem() {
  auto* item = new QTreeWidgetItem(this);
  item->setFlags(item->flags() | Qt::ItemNeverHasChildren);
  item->setSizeHint(0, {0, LineHeight()});
  return item;
}

QString ReportList::AsText() const {
  QStringList lines = {TextsOf(*headerItem()).join('\t')};
  for (int n = 0; n < topLevelItemCount(); ++n) {
    lines.append(TextsOf(*topLevelItem(n)).join('\t'));
  }
  return lines.join('\n');
}

int ReportList::LineHeight() const { return qRound(kLineScale * fontMetrics().height()); }

QSize ReportList::sizeHint() const {
  int width = 2 * frameWidth();
  for (const int column : widths_) {
    width += column;
  }
  return {width, header()->sizeHint().height() + room_ * LineHeight() + 2 * frameWidth()};
}

}  // namespace dosmara
