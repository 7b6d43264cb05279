// SPDX-License-Identifier: GPL-3.0-or-later
// The link engine: the one loop of the program. A 40 ms timer looks for the next record that needs an
// exchange, the receive event ends the exchange, a one-second timer recovers when nothing comes back.
//
//   State        LinkIdle  Timer2  Left by
//   idle         true      off     LinkScan finds a record
//   waiting      false     on      the receive event, or Timer2
//   identifying  as above, with LinkIdentifying true: a finished exchange only sets LinkIdle
//
// Bytes that cannot be the reply, because nothing was asked or because the line is not quiet, are never
// taken for it: they are dropped, or make the reply count as bad.
//
// Everything here runs on the one user-interface thread. Nothing waits for a reply: one event begins an
// exchange and another ends it. What may take its time are the host, which closes and opens the device after
// a time-out, and the forms that are told of an arrival.
#pragma once

#include <cstdint>

#include "link/frame.h"
#include "link/host.h"

namespace dosmara {

extern std::int32_t ScanCursor;   // record index that the scanner stands on
extern bool LinkIdle;             // no exchange is running: Timer1 may start the next one
extern bool LinkIdentifying;      // during start and change of port
extern std::uint8_t ExchControl;  // frame fields of the exchange; bit 7 set in a write
extern std::uint8_t ExchBank;
extern std::uint8_t ExchAddrHi;
extern std::uint8_t ExchAddrLo;
extern Bytes ExchValue;            // value bytes of a write
extern std::uint8_t ExchLength;    // data length less one
extern std::uint8_t ExchChecksum;  // checksum of the last request
extern Bytes ReplyData;            // data of the finished exchange; empty: it failed
extern int RetryCount;             // bad replies so far to this request, 0 to 4
extern bool IdentTimedOut;         // set by Timer5

// Gives the engine its surroundings and puts the exchange state and the lamp tags to their first values.
// `host` must outlive the engine's use. Called by the load of FrmSer, before anything else here.
void LinkAttach(LinkHost& host);

// The surroundings given to LinkAttach; stops the program when there are none.
LinkHost& Host();

// Walks the table from ScanCursor as far as the first record that it sends or the end of the node. Sends at
// most one request. Only entered with LinkIdle true.
void LinkScan();

// Sends the request of the current exchange, again or for the first time.
void LinkSend();

// Finishes an exchange on the record at (NodeIndex, ScanCursor): stores, offers, moves on.
void LinkComplete();

// Shows lamp image n, 1 to 6, unless its panel shows it already.
void SetLinkStatus(int n);

// The events of the timers and of the serial control, fired by the host.
void TimerEvent(LinkTimer timer);
void ReceiveEvent();

}  // namespace dosmara
