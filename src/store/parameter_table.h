// SPDX-License-Identifier: GPL-3.0-or-later
// The parameter table: the tool's image of the memory of up to four boards of one machine, and at the same
// time the only queue between the forms and the wire.
//
// A record is 23 bytes, addressed by node and record index. The index is the 1-based position of the record
// in the node's index file, so index 0 is never filled.
//
//   Offset  Width  Name         From        Meaning
//        0      1  AddrLo       index file  address, opaque to the tool
//        1      1  AddrHi       index file  address, opaque to the tool
//        2      1  Control      index file  low nibble: data length less one; high nibble: as the board wants
//        3      1  Period       index file  low nibble: polling period N; high nibble: its countdown
//        4      1  Subscribers  0           number of subscriptions
//        5      1  Flags        0           Arrived 1, Due 2, Wanted 4, OneShot 32 and 64, WritePending 128
//        6      1  Bank         index file  third address byte, opaque to the tool
//        7      4  Value        index file  value, least significant byte first
//       11     12  Padding      blanks      read only as the upper bytes of a value wider than four
//
// What each operation does:
//
//   Operation         Node                     Flags                   Stops the program
//   ParamSubscribe    NodeIndex, if present    OR 6                    index 0, 256th subscriber
//   ParamUnsubscribe  NodeIndex, if present    AND 248 by the last     -
//   ParamPut          NodeIndex, even absent   (OR 134) AND 254        index 0, value below 0 or from 2^31 up
//   ParamGet          explicit                 -                       -
//   ParamIsFresh      explicit                 -                       -
//
// Any of them also stops the program at an index that is below 0 or above kLastRecord, and at a node that
// does not exist. On an absent node the two that need a present one do nothing, whatever the index.
#pragma once

#include <cstddef>
#include <cstdint>

namespace dosmara {

inline constexpr int kNodeCount = 4;
inline constexpr int kLastRecord = 33000;
inline constexpr int kValueBytes = 4;
inline constexpr int kPaddingBytes = 12;

// Bits of ParamRec::Flags. Bits 8 and 16 have no meaning and are kept by every operation.
inline constexpr std::uint8_t kArrived = 1;
inline constexpr std::uint8_t kDue = 2;
inline constexpr std::uint8_t kWanted = 4;
inline constexpr std::uint8_t kOneShot = 32 | 64;
inline constexpr std::uint8_t kWritePending = 128;

// Control: the low nibble is the data length less one.
inline constexpr std::uint8_t kLengthMask = 15;
// Period: the low nibble is the period of the index file, the high nibble its countdown.
inline constexpr std::uint8_t kPeriodMask = 15;

#pragma pack(push, 1)
struct ParamRec {
  std::uint8_t AddrLo;
  std::uint8_t AddrHi;
  std::uint8_t Control;
  std::uint8_t Period;
  std::uint8_t Subscribers;
  std::uint8_t Flags;
  std::uint8_t Bank;
  std::uint8_t Value[kValueBytes];
  std::uint8_t Padding[kPaddingBytes];
};
#pragma pack(pop)

static_assert(sizeof(ParamRec) == 23);
static_assert(offsetof(ParamRec, AddrLo) == 0);
static_assert(offsetof(ParamRec, AddrHi) == 1);
static_assert(offsetof(ParamRec, Control) == 2);
static_assert(offsetof(ParamRec, Period) == 3);
static_assert(offsetof(ParamRec, Subscribers) == 4);
static_assert(offsetof(ParamRec, Flags) == 5);
static_assert(offsetof(ParamRec, Bank) == 6);
static_assert(offsetof(ParamRec, Value) == 7);
static_assert(offsetof(ParamRec, Padding) == 11);

// The table of all boards, index 0 to kLastRecord. Lives as long as the program.
extern ParamRec ParamTable[kNodeCount][kLastRecord + 1];

// The current node, 0 to 3. The scanner moves it during its walk; a form assigns it immediately before each
// ParamSubscribe, ParamUnsubscribe or ParamPut, and never trusts it afterwards.
extern std::uint8_t NodeIndex;

// Whether the board of each node answered at the start.
extern bool NodePresent[kNodeCount];

// Number of records read from each node's index file.
extern std::int16_t NodeRecordCount[kNodeCount];

// The value that a form is about to write. The form itself passes it to ParamPut; nothing reads it later.
extern double ParamScratch;

// How often ParamSubscribe, ParamUnsubscribe and ParamPut have been called. While it stands still, a record
// can only have become fresh by an arrival.
extern std::uint32_t ParamRequests;

// Adds one subscriber to the record of NodeIndex and makes it due. Called by forms as they open.
void ParamSubscribe(int index);

// Takes one subscriber away; the last one ends the polling and clears the countdown. A record without
// subscribers is left as it is. Called by forms as they close.
void ParamUnsubscribe(int index);

// Stores a value, 0 to 2^31-1, in the record of NodeIndex and marks it for writing. The wire follows when
// the scanner reaches the record. Called by forms when the operator changes a value.
void ParamPut(int index, double value);

// The record's value over its own length of 1 to 16 bytes. Ignores NodeIndex.
double ParamGet(int index, int node);

// Whether a value from the board has reached the record since the last write. Ignores NodeIndex.
bool ParamIsFresh(int index, int node);

}  // namespace dosmara
