// SPDX-License-Identifier: GPL-3.0-or-later
// A drinks vending machine as its serial line shows it: four boards, a wire in each direction, and whatever
// goes on by itself, all in virtual time.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "machine/alarms.h"
#include "machine/audit.h"
#include "machine/board.h"
#include "machine/calendar.h"
#include "machine/climate.h"
#include "machine/clock.h"
#include "machine/concern.h"
#include "machine/defects.h"
#include "machine/dispenser.h"
#include "machine/faults.h"
#include "machine/frame_log.h"
#include "machine/frame_reader.h"
#include "machine/inputs.h"
#include "machine/output_test.h"
#include "machine/presence.h"
#include "machine/remarks.h"
#include "machine/sales.h"
#include "machine/schedule.h"
#include "machine/sensors.h"
#include "machine/settings.h"
#include "machine/supplies.h"
#include "machine/till.h"
#include "machine/timetable.h"
#include "machine/unit_motors.h"
#include "machine/wire.h"

namespace machine {

// A byte that has left the machine, and the end of its stop bit.
struct SentByte {
  Time at;
  std::uint8_t byte;
};

// What has passed on the wire.
struct Traffic {
  unsigned requests = 0;
  unsigned replies = 0;
  unsigned dropped_bytes = 0;
  unsigned errors = 0;  // damaged or missing replies, and runs of bytes that were no request
};

class Machine {
 public:
  // `seed` decides the faults and the customers.
  Machine(Boards boards, std::uint32_t seed, FrameLog log = {});
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;

  Time now() const { return schedule_.now(); }
  // The moment at which the machine will next do something.
  std::optional<Time> next_event() const { return schedule_.next(); }
  void AdvanceTo(Time when) { schedule_.AdvanceTo(when); }

  // Bytes that the tool writes now. They travel at the pace of the line, behind those still under way.
  void Receive(std::span<const std::uint8_t> bytes);
  // The bytes that have left since the last call.
  std::vector<SentByte> TakeSent();

  // A muted machine hears and says nothing.
  void Mute(bool on) { muted_ = on; }
  bool muted() const { return muted_; }
  // Switches the machine off and on: what was under way is lost, values stay, and the boards start up before
  // they answer again.
  void Restart();

  // Lets the machine's day run this many times faster than its wire and its dispensing.
  void SetSpeed(unsigned factor);
  unsigned speed() const { return speed_; }
  // Calls `tick` with every second of the machine's day, when all concerns have heard of it.
  void EachSecond(std::function<void()> tick) { each_second_ = std::move(tick); }

  // Takes a board of nodes 1 to 3 away, which raises an alarm, or puts it back.
  void SetPresent(int node, bool present);
  // True while the tool has the outputs of a board of nodes 1 to 3.
  bool InTest(int node) const { return InTestMode(boards_, node); }

  Board& board(int node) { return boards_[static_cast<std::size_t>(node)]; }
  Presence& presence() { return presence_; }
  Faults& faults() { return faults_; }
  FrameLog& log() { return log_; }
  Dispenser& dispenser() { return dispenser_; }
  const Remarks& remarks() const { return remarks_; }
  Calendar& calendar() { return calendar_; }
  Alarms& alarms() { return alarms_; }
  Supplies& supplies() { return supplies_; }
  Defects& defects() { return defects_; }
  Inputs& inputs() { return inputs_; }
  Sales& sales() { return sales_; }
  Till& till() { return till_; }
  const Timetable& timetable() const { return timetable_; }
  const Traffic& traffic() const { return traffic_; }
  // Frames taken within the last whole second, and whether there were any within the last three.
  unsigned frames_per_second() const { return frames_per_second_; }
  bool connected() const { return last_request_ && now() - *last_request_ < std::chrono::seconds(3); }

  // Writes a record as a frame would, with all that follows from it.
  void Write(int node, int record, std::uint32_t value);
  // Changes a record by hand: no command is carried out.
  void Set(int node, int record, std::uint32_t value);

 private:
  void TakeByte(std::uint8_t byte);
  void TakeRequests();
  void Handle(const Request& request);
  Bytes Answer(const Request& request, Cell* cell);
  void Send(const Bytes& bytes);
  // Starts what goes on by itself, at switch-on.
  void StartTime();
  void ScheduleSecond();
  void CountFrames();

  Boards boards_;
  Schedule schedule_;
  Presence presence_{boards_};
  Settings settings_{boards_};
  Calendar calendar_{boards_};
  Alarms alarms_{boards_, calendar_};
  Supplies supplies_{boards_, alarms_};
  Defects defects_{boards_, alarms_};
  Remarks remarks_{[this](const std::string& text) { log_.Note(now(), text); }};
  OutputTest output_test_{boards_, remarks_};
  Sensors sensors_{boards_, schedule_, defects_};
  Dispenser dispenser_;
  UnitMotors unit_motors_{boards_, schedule_, dispenser_, defects_, alarms_, remarks_};
  Audit audit_{boards_, presence_, dispenser_, remarks_};
  Inputs inputs_{boards_, supplies_, defects_, dispenser_, alarms_};
  Climate climate_{boards_, defects_, alarms_};
  Timetable timetable_{boards_, calendar_, dispenser_, remarks_};
  Till till_{boards_, alarms_};
  Sales sales_;
  // In the order in which they hear of what happens. The audit is last: a command to clear that has waited
  // for the end of a sale clears what that sale has counted.
  const std::vector<Concern*> concerns_ = {&settings_,    &calendar_,  &supplies_,  &output_test_,
                                           &unit_motors_, &dispenser_, &sensors_,   &inputs_,
                                           &climate_,     &sales_,     &timetable_, &audit_};

  Faults faults_;
  FrameLog log_;
  Traffic traffic_;
  FrameReader reader_;
  Wire incoming_;
  Wire outgoing_;
  Time last_byte_{0};
  Time ready_at_{0};
  bool muted_ = false;
  unsigned speed_ = 1;
  // Counts the changes of speed. A second that was scheduled before the latest change does nothing.
  unsigned day_ = 0;
  std::function<void()> each_second_ = [] {};
  std::optional<Time> last_request_;
  unsigned frames_this_second_ = 0;
  unsigned frames_per_second_ = 0;
  std::vector<SentByte> sent_;
};

}  // namespace machine
