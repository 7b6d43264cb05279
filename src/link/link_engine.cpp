// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/link_engine.h"

#include <algorithm>
#include <optional>

#include "link/notification.h"
#include "store/failure.h"
#include "store/index_files.h"
#include "store/parameter_table.h"

namespace dosmara {

std::int32_t ScanCursor;
bool LinkIdle = true;
bool LinkIdentifying;
std::uint8_t ExchControl;
std::uint8_t ExchBank;
std::uint8_t ExchAddrHi;
std::uint8_t ExchAddrLo;
Bytes ExchValue;
std::uint8_t ExchLength;
std::uint8_t ExchChecksum;
Bytes ReplyData;
int RetryCount;
bool IdentTimedOut;

namespace {

using std::chrono::microseconds;

// A reply that comes after so many bad ones ends the exchange, good or bad.
constexpr int kMostRetries = 4;
// Countdown step of Period: one in the high nibble.
constexpr std::uint8_t kCountdownStep = 16;
// Bit value 2 of Period: a time-out sends the request again at once.
constexpr std::uint8_t kResendOnTimeOut = 2;
// One byte at 19200 bit/s, ten bits each, rounded up.
constexpr microseconds kByteTime{521};
// How long after a byte that nobody asked for the line counts as noisy.
constexpr microseconds kQuietTime{20000};
// How long nothing may follow what came too early for a repeated request: then no board is about to answer
// it.
constexpr microseconds kSilence{100000};

constexpr int kLampsOff[] = {1, 2, 3};

LinkHost* link_host;
int lamp_tag[3];  // image last shown on status bar panels 2, 3 and 4

// Node of the exchange that is running. Forms assign NodeIndex while the reply is on its way.
std::uint8_t exch_node;

// What keeps bytes that cannot be the reply from being taken for it. The check of a reply is an 8-bit sum,
// and two zero bytes pass it, so a stuck or flooded line would fill the table with zeros. For the same reason
// a read reply with a surplus is bad even where its last byte fits: zeros gathered into one chunk are no
// reply.
//
// Two things still pass. Noise that begins in the middle of an exchange, or comes in small pieces more than
// kQuietTime apart, may carry a right sum by chance: one in 256 does, and for a record of one byte any two
// equal bytes do. And a reply that is late or comes twice may meet the next request, since replies carry no
// number.
std::optional<microseconds> last_stray;  // time of the last byte that came while no exchange ran
bool reply_untrusted;                    // the reply to the request that is out counts as bad
microseconds resend_leaves_until;        // end of a request that is being repeated; until then what arrives
                                         // belongs to the broken reply

// On a line that is faster than 19200 bit/s the reply to a repeated request may come before
// resend_leaves_until and is dropped with the leftovers. In the silence that follows the request is asked
// anew. Should the board only have been slow, it answers twice: the next request waits until the second reply
// would be there.
microseconds request_sent;                     // time of the request that is out
std::optional<microseconds> last_leftover;     // time of the last byte since one came too early
std::optional<microseconds> unanswered_since;  // time of the request that was asked anew in this exchange
microseconds next_request_from;                // end of the wait for a second reply

void Restart(LinkTimer timer) {
  Host().DisableTimer(timer);
  Host().EnableTimer(timer);
}

void MoveToNextNode() {
  ScanCursor = 0;
  NodeIndex = static_cast<std::uint8_t>((NodeIndex + 1) % kNodeCount);
}

// Whether a record that is due takes its turn in this pass; counts its period. A write that waits does not
// shorten the countdown.
bool TakesItsTurn(ParamRec& record) {
  if (record.Period == 0) {
    return true;
  }
  if (record.Period >= kCountdownStep) {
    record.Period = static_cast<std::uint8_t>(record.Period - kCountdownStep);
    return false;
  }
  record.Period = static_cast<std::uint8_t>(record.Period * (kCountdownStep + 1));
  return true;
}

// Fills the exchange from the record. A write is pending no longer, so the scanner does not repeat it if it
// fails.
void BeginExchange(ParamRec& record) {
  ExchBank = record.Bank;
  ExchControl = record.Control;
  ExchAddrHi = record.AddrHi;
  ExchAddrLo = record.AddrLo;
  ExchValue.assign(std::begin(record.Value), std::end(record.Value));
  ExchLength = record.Control & kLengthMask;
  if (record.Flags & kWritePending) {
    ExchControl = record.Control | kWriteBit;
    record.Flags = static_cast<std::uint8_t>(record.Flags & ~kWritePending);
  }
}

bool IsWrite() { return ExchControl >= kWriteBit; }

// Sends the request again because of a bad reply. What is left of that reply may still come.
void RepeatRequest() {
  SetLinkStatus(6);
  ++RetryCount;
  LinkSend();
  const std::size_t header = NodeIndex == 0 ? 5 : 7;
  resend_leaves_until = Host().Now() + kByteTime * (header + (IsWrite() ? ExchValue.size() : 0));
}

// Goes on from a reply that is good or bad.
void ConcludeReply(bool good) {
  if (RetryCount == kMostRetries) {
    ReplyData.clear();
  } else if (!good) {
    RepeatRequest();
    return;
  }
  RetryCount = 0;
  if (unanswered_since) {
    const microseconds now = Host().Now();
    next_request_from = now + (now - *unanswered_since);
    unanswered_since.reset();
  }
  if (LinkIdentifying) {
    LinkIdle = true;
  } else {
    LinkComplete();
  }
}

// Takes what came too early for a bad reply once nothing has followed it. The line is quiet then, so that the
// reply to the repeated request is trusted however early it comes.
void AskAnewInSilence() {
  if (!last_leftover || Host().Now() - *last_leftover < kSilence) {
    return;
  }
  Host().TakeInput();
  Host().DisableTimer(LinkTimer::Timer2);
  NodeIndex = exch_node;
  if (!unanswered_since) {
    unanswered_since = request_sent;
  }
  ConcludeReply(false);
  resend_leaves_until = microseconds(0);
}

// No reply within a second of the request.
void TimeOut() {
  NodeIndex = exch_node;
  unanswered_since.reset();
  SetLinkStatus(6);
  SetLinkStatus(2);
  Host().DisableTimer(LinkTimer::Timer2);
  Host().ReopenPort();
  // An identification read is repeated until its own time-out ends the wait.
  if (LinkIdentifying || (ParamTable[NodeIndex][ScanCursor].Period & kResendOnTimeOut)) {
    LinkSend();
  } else {
    LinkIdle = true;
  }
}

}  // namespace

void LinkAttach(LinkHost& host) {
  link_host = &host;
  ScanCursor = 0;
  LinkIdle = true;
  LinkIdentifying = false;
  ExchControl = ExchBank = ExchAddrHi = ExchAddrLo = ExchLength = ExchChecksum = 0;
  ExchValue.clear();
  ReplyData.clear();
  RetryCount = 0;
  IdentTimedOut = false;
  std::ranges::copy(kLampsOff, lamp_tag);
  exch_node = 0;
  last_stray.reset();
  reply_untrusted = false;
  resend_leaves_until = request_sent = next_request_from = microseconds(0);
  last_leftover.reset();
  unanswered_since.reset();
}

LinkHost& Host() {
  if (link_host == nullptr) {
    StopProgram("Host: the link has no host");
  }
  return *link_host;
}

void LinkScan() {
  ParamRec* const table = ParamTable[NodeIndex];
  // The last record of a file, index NodeRecordCount, is never visited. An absent node keeps the count of its
  // small file but has no records: what was put on it waits there for good.
  const std::int32_t end = NodePresent[NodeIndex] ? NodeRecordCount[NodeIndex] : 0;
  for (std::int32_t cursor = ScanCursor; cursor < end; ++cursor) {
    if (!(table[cursor].Flags & kDue)) {
      continue;
    }
    if (!TakesItsTurn(table[cursor])) {
      continue;
    }
    ScanCursor = cursor;
    BeginExchange(table[cursor]);
    LinkSend();
    return;
  }
  MoveToNextNode();
}

void LinkSend() {
  Restart(LinkTimer::Timer3);
  SetLinkStatus(4);
  LinkIdle = false;
  exch_node = NodeIndex;
  if (ExchValue.size() > ExchLength + 1U) {
    ExchValue.resize(ExchLength + 1U);
  }
  const Bytes frame = EncodeRequest({.control = ExchControl,
                                     .bank = ExchBank,
                                     .addr_hi = ExchAddrHi,
                                     .addr_lo = ExchAddrLo,
                                     .letter = NodeLetter[NodeIndex],
                                     .value = ExchValue});
  ExchChecksum = frame.back();
  request_sent = Host().Now();
  last_leftover.reset();
  if (Host().InputCount() > 0) {
    Host().TakeInput();
    last_stray = request_sent;
  }
  reply_untrusted = last_stray && request_sent - *last_stray < kQuietTime;
  Host().EnableTimer(LinkTimer::Timer2);
  Host().Output(frame);
}

void ReceiveEvent() {
  if (LinkIdle) {
    if (!Host().TakeInput().empty()) {
      last_stray = Host().Now();
    }
    return;
  }
  if (Host().Now() < resend_leaves_until) {
    if (Host().TakeInput().empty()) {
      return;
    }
    reply_untrusted = true;
    last_leftover = Host().Now();
    return;
  }
  if (last_leftover) {
    last_leftover = Host().Now();
  }
  const std::size_t length = ExchLength + 1U;
  const std::size_t waiting = Host().InputCount();
  if (waiting == 0 || (!IsWrite() && waiting <= length)) {
    return;
  }
  const Bytes taken = Host().TakeInput();
  NodeIndex = exch_node;
  Host().DisableTimer(LinkTimer::Timer2);
  Restart(LinkTimer::Timer4);
  SetLinkStatus(5);
  SetLinkStatus(3);
  Host().ClearStatusText();
  bool good = !reply_untrusted;
  if (IsWrite()) {
    good = good && IsGoodWriteReply(taken, ExchChecksum);
    ReplyData = ExchValue;
  } else {
    good = good && taken.size() == length + 1 && IsGoodReadReply(taken, length);
    ReplyData.assign(taken.begin(), taken.begin() + static_cast<std::ptrdiff_t>(length));
  }
  ConcludeReply(good);
}

void LinkComplete() {
  ParamRec& record = ParamTable[NodeIndex][ScanCursor];
  // A value put while the exchange ran is newer than its reply. It stays, and goes out in the next pass.
  const bool overtaken = record.Flags & kWritePending;
  if ((record.Flags & kDue) && !ReplyData.empty() && !overtaken) {
    if (!(record.Flags & kWanted)) {
      StopProgram("LinkComplete: a record arrived that nobody wanted");
    }
    record.Flags |= kArrived;
    if ((record.Flags & kOneShot) || record.Period == 0) {
      record.Flags = static_cast<std::uint8_t>(record.Flags & ~kDue);
    }
    for (std::size_t i = 0; i < kValueBytes; ++i) {
      record.Value[i] = i < ReplyData.size() ? ReplyData[i] : 0;
    }
    NotifyForms(ScanCursor, ReplyData);
  }
  ++ScanCursor;
  if (ScanCursor == NodeRecordCount[NodeIndex]) {
    MoveToNextNode();
  }
  LinkIdle = true;
}

void SetLinkStatus(int n) {
  const int lamp = (n - 1) % 3;
  if (lamp_tag[lamp] == n) {
    return;
  }
  lamp_tag[lamp] = n;
  Host().ShowLamp(lamp + 2, n);
}

void TimerEvent(LinkTimer timer) {
  switch (timer) {
    case LinkTimer::Timer1:
      Host().DisableTimer(LinkTimer::Timer1);
      if (!LinkIdle) {
        AskAnewInSilence();
      } else if (Host().Now() >= next_request_from) {
        LinkScan();
      }
      Host().EnableTimer(LinkTimer::Timer1);
      break;
    case LinkTimer::Timer2:
      TimeOut();
      break;
    case LinkTimer::Timer3:
      SetLinkStatus(1);
      Host().DisableTimer(LinkTimer::Timer3);
      break;
    case LinkTimer::Timer4:
      SetLinkStatus(2);
      SetLinkStatus(3);
      Host().DisableTimer(LinkTimer::Timer4);
      break;
    case LinkTimer::Timer5:
      IdentTimedOut = true;
      break;
  }
}

}  // namespace dosmara
