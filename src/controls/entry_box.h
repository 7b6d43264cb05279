// SPDX-License-Identifier: GPL-3.0-or-later
// The box into which a value is typed.
#pragma once

#include <QColor>
#include <QLineEdit>
#include <QTimer>
#include <chrono>
#include <functional>

namespace dosmara {

// What tells one kind of box from another: what becomes of the text when the operator comes into the box,
// presses Enter, and leaves.
struct EntryPolicy {
  // Coming into the box empties it; the old text shows faintly until something is typed.
  bool opens_empty = false;
  // Leaving the box confirms its text as Enter does. Otherwise leaving gives the entry up.
  bool leaving_confirms = false;
  // The box is left too when another window comes to the front.
  bool left_with_its_window = false;
  // The next key after Enter begins a new entry instead of going on with the one that was confirmed.
  bool typed_over = false;
  // How long an entry stands on green after Enter before it is confirmed; 0 confirms it at once.
  std::chrono::milliseconds shown_for{0};
};

// A box that lies over a shown value, which is read there as soon as the entry is given up.
inline constexpr EntryPolicy kOverShownValue = {
    .opens_empty = true, .left_with_its_window = true, .typed_over = true};
// A box that needs no Enter.
inline constexpr EntryPolicy kConfirmedByLeaving = {.leaving_confirms = true};
// A box whose entry is seen to be taken up before it is found good or bad.
inline constexpr EntryPolicy kJudgedAfterAMoment = {.typed_over = true,
                                                    .shown_for = std::chrono::milliseconds(200)};

// A box for one value. Enter confirms what is typed. Escape gives it up: the box comes back to the text that
// was shown last. Opening the box's own context menu counts neither as leaving it nor as coming into it.
class EntryBox : public QLineEdit {
  Q_OBJECT

 public:
  EntryBox(QWidget* parent, const EntryPolicy& policy);

  // Sets how many characters can be typed, which is not limited at first. A text that is shown may be longer.
  void SetLength(int length);

  // Lets the box come back to what `text` returns at that moment, in place of the text that was shown last.
  void ComeBackTo(std::function<QString()> text);

  // Shows a text that is in force: the machine has sent it, or it has just been confirmed.
  void ShowText(const QString& text);

  // Gives up what is typed.
  void Restore();

  // Marks the entry as refused, by a red ground and a tip that says why, until the next entry stands on green
  // or `Accept` is called.
  void Refuse(const QString& why);
  // Gives the box its usual looks.
  void Accept();

 signals:
  // The operator wants this text.
  void Confirmed(const QString& text);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void TakeUp();
  void Confirm();
  void Put(const QString& text);
  void SetGround(const QColor& ground, const QString& tip);

  EntryPolicy policy_;
  int length_ = maxLength();
  QString shown_;  // the text that was shown last
  std::function<QString()> come_back_to_;
  QString entry_;  // what stood in the box at Enter
  QTimer moment_{this};
};

}  // namespace dosmara
