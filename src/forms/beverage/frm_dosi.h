// SPDX-License-Identifier: GPL-3.0-or-later
// Doses: how each selection's drink is made, and tests of it.
#pragma once

#include <QPointer>
#include <QTimer>

#include "fields/data_form.h"
#include "forms/beverage/dosi_controls.h"

namespace dosmara {

// Water, times and delays of one selection at a time, four properties of it, and the dispensing of the drink
// or of one part of it while the machine runs.
class FrmDosi : public DataForm {
 public:
  FrmDosi();

  void InitMessaggi() override;

 private:
  void Connect();
  QTimer* NewTimer(const char* name, void (FrmDosi::*due)());

  void WatchSelection();
  void ChangeSelection(int n);

  // What the form is at: reading its values, waiting for the machine's leave to change them, open for
  // changes, or waiting for the end of a test.
  enum class State { kLoading, kLocked, kIdle, kTestingDrink, kTestingPart };
  // Enters a state, and opens all controls for changes or closes them. The two mostly agree; but a machine
  // that gives its leave in the middle of a test opens them, and the test goes on.
  void Enter(State state, bool open);
  bool IsTesting() const { return state_ == State::kTestingDrink || state_ == State::kTestingPart; }
  void DisableAll();
  void EnableAll();
  void SetDependantsOpen(const dosi::Head& head, bool open);
  void Loaded() override;
  void FollowGate();

  void TakeStatus(double value);
  void SendCommand(double selection);
  void TestDrink(std::size_t i);
  void TestPart(std::size_t i);
  // Sends the selection, whose echo sends the command.
  void BeginTest(State state, int code, int selection);
  bool IsPartTimed() const { return timer3_->isActive(); }
  void DrinkTestDue();
  void EndTest();

  State state_ = State::kLoading;
  int Selection = 0;        // index of the selection shown
  bool Dispensing = false;  // the machine has been seen dispensing since the last test ended
  int TestCode = 0;         // command that follows the selection under test; 0 without a test
  int TestedSelection = 0;  // as it has been sent for the test
  Gate Presenza1{.record = GateRecord(kHotDrinks), .mask = kInUse, .presence = 0};

  DosiControls controls_;
  QTimer* timer1_;                  // gives the machine time to start a drink
  QTimer* timer3_;                  // length of a single part's test
  QPointer<QWidget> focus_before_;  // what had the focus when everything was disabled
};

}  // namespace dosmara
