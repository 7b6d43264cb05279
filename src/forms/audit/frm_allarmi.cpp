// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/audit/frm_allarmi.h"

#include <QGridLayout>
#include <algorithm>
#include <limits>

#include "fields/field_helpers.h"
#include "fields/machine_records.h"
#include "shell/caption_table.h"
#include "store/parameter_table.h"

namespace dosmara {

namespace {

constexpr FormSetup kSetup = {.name = "FrmAllarmi", .title = 35};

// Lines of the language file.
constexpr int kHeadings[] = {395, 396, 397, 398};
constexpr int kLabelLine = 399;
constexpr int kFirstTextLine = 403;

// Records of the main board.
constexpr int kNewest = 86;
constexpr int kFirstField = 142;

// Fields of an entry.
enum { kMinute, kHour, kDay, kMonth, kYear, kCode };

constexpr int kFirstYear = 2000;
constexpr int kLargestCode = 203;  // an entry with a larger one is empty

// The value of a field as a signed number of 16 bits. No field means anything above it: a larger value
// becomes the largest.
int FieldValue(double value) {
  return std::min(LowBits(value), int{std::numeric_limits<std::int16_t>::max()});
}

}  // namespace

FrmAllarmi::FrmAllarmi()
    : DataForm(kSetup), progress_(new QProgressBar(Body())), list_(new ReportList(Body(), kEntries)) {
  progress_->setObjectName("ProgressBar1");
  progress_->setRange(0, 1 + kEntries * kFields);
  progress_->setValue(0);
  progress_->setTextVisible(false);
  list_->setObjectName("ListView1");
  auto* grid = new QGridLayout(Body());
  grid->addWidget(NewLabel("Label1", kLabelLine), 0, 0);
  grid->addWidget(progress_, 0, 1);
  grid->addWidget(list_, 1, 0, 1, 2);
  Hear(kMainBoard, kNewest, Counts::kYes, [this](double value) { Puntatore = FieldValue(value); });
  Hear({kMainBoard, kFirstField, kEntries * kFields}, Counts::kYes,
       [this](int n, double value) { Dati[n] = FieldValue(value); });
}

void FrmAllarmi::InitMessaggi() {
  DataForm::InitMessaggi();
  QStringList headings;
  for (const int line : kHeadings) {
    headings.append(Caption(line));
  }
  QStringList alarms;
  for (int code = 0; code <= kLargestCode; ++code) {
    alarms.append(Caption(kFirstTextLine + code));
  }
  list_->SetColumns(headings, {{"00"}, {"00/00/0000"}, {"00:00"}, alarms});
  list_->setAccessibleName(Caption(kLabelLine));
  progress_->setAccessibleName(Caption(kLabelLine));
  BuildList();
}

void FrmAllarmi::AfterArrival() {
  if (Arrivi < std::numeric_limits<std::int16_t>::max()) {
    ++Arrivi;
  }
  BuildList();
  progress_->setValue(std::min<int>(Arrivi, progress_->maximum()));
  progress_->setVisible(Arrivi < progress_->maximum());
}

// From the newest entry back to the first empty one, once round the ring; nothing before all has arrived.
void FrmAllarmi::BuildList() {
  if (!ParamIsFresh(kNewest, kMainBoard) || !AllFresh({kMainBoard, kFirstField, kEntries * kFields})) {
    return;
  }
  std::vector<ReportList::Line> lines;
  // A pointer behind the ring points at no entry.
  int entry = Puntatore < kEntries ? Puntatore : -1;
  for (int n = 1; n <= kEntries && entry >= 0 && Field(entry, kCode) <= kLargestCode; ++n) {
    lines.push_back(
        {entry,
         {QString::number(n), DateOf(entry), TimeOf(entry), Caption(kFirstTextLine + Field(entry, kCode))}});
    entry = entry == 0 ? kEntries - 1 : entry - 1;
  }
  list_->ShowLines(lines);
}

QString FrmAllarmi::DateOf(int entry) const {
  const int day = Field(entry, kDay);
  const int month = Field(entry, kMonth);
  const bool none = day == 0 && month == 0;
  return none ? QStringLiteral("00/00/00") : DateText(day, month, kFirstYear + Field(entry, kYear));
}

QString FrmAllarmi::TimeOf(int entry) const {
  return TwoDigits(Field(entry, kHour)) + ':' + TwoDigits(Field(entry, kMinute));
}

}  // namespace dosmara
