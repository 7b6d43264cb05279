// SPDX-License-Identifier: GPL-3.0-or-later
// What the visits of the windows have in common: they open, are changed by hand, and close.
#pragma once

#include "fields/machine_records.h"
#include "tour/tour.h"

namespace dosmara {

// How long a window may take to open for changes.
inline constexpr int kUnlockMs = 20000;
// How long a window may take to read all its values.
inline constexpr int kReadMs = 20000;

// A record of the machine with its mirror; a mirror of 0 is none.
struct Place {
  int node;
  int record;
  int mirror;
};

// A value that is typed into a box: where, and what the machine and the form make of it.
struct Entry {
  const char* box;
  const char* text;
  Place place;
  int value;
  const char* label;  // null: the box itself shows the value
  const char* shown;
};

// A switch, and the bit that it changes.
struct Toggle {
  const char* control;
  Place place;
  int mask;
};

// A selector, the position that is chosen, and what the machine then holds.
struct Choice {
  const char* control;
  int position;
  Place place;
  int value;
};

// Opens a form and waits until `control` takes changes. Returns nullptr when the form does not come.
QWidget* OpenAndUnlock(Tour& tour, const QString& name, const QString& control);

// Each of these changes a value by hand and waits until the machine and its mirror hold it, the form shows it
// and all its marks tell that what has been changed is taken.
void TypeValue(Tour& tour, QWidget& form, const Entry& entry);
// The bar of the row is closed until the machine has answered.
void TypeHeld(Tour& tour, QWidget& form, const Entry& entry, const QString& bar);
void ToggleSwitch(Tour& tour, QWidget& form, const Toggle& toggle);
void ChoosePosition(Tour& tour, QWidget& form, const Choice& choice);

// Chooses on a selector that writes nothing itself.
void Choose(Tour& tour, QWidget& form, const QString& control, int position);
// Waits until the machine holds `value` in a record and its mirror.
void AwaitHeld(Tour& tour, const Place& place, int value);
// Waits until the machine has sent back all that was changed on the form.
void AwaitTaken(Tour& tour, QWidget& form);

// Waits until a form has read all its values, as the line at its top tells; a form without records has none.
void AwaitRead(Tour& tour, const QWidget& form);

// Closes a form. It leaves the records subscribed as it found them, but for those of kLeftSubscribed: windows
// that are open beside it go on reading theirs.
void CloseForm(Tour& tour, QWidget& form);

}  // namespace dosmara
