// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes on the wire: pure functions, bytes in and bytes out.
//
// One exchange is one request of the tool and one reply of the board. C, B, H, A are the record's Control,
// Bank, AddrHi and AddrLo; L = C AND 15; n = L + 1 data bytes D1..Dn, least significant first; T is the
// letter of the node; S is the sum of all bytes before it, modulo 256.
//
//   Request             Bytes                               Length
//   read, node 0        C B H A S                           5
//   write, node 0       C+128 B H A D1..Dn S                5 + n
//   read, nodes 1-3     241 B H A C T S                     7
//   write, nodes 1-3    242+L B H A C+128 T D1..Dn S        7 + n
//
//   Reply               Bytes
//   to a read           R1..Rn K, K = sum of R1..Rn modulo 256
//   to a write          one byte, (2 x S) modulo 256
//
// A write carries at most four data bytes whatever L says; the marker byte still says L.
// The port test is five zero bytes, a read of node 0, answered by two equal bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace dosmara {

using Bytes = std::vector<std::uint8_t>;

inline constexpr std::uint8_t kWriteBit = 128;
inline constexpr std::uint8_t kForwardRead = 241;
inline constexpr std::uint8_t kForwardWrite = 242;
inline constexpr std::size_t kInputBufferBytes = 1024;
inline constexpr std::size_t kOutputBufferBytes = 512;

// The fields of one request. `control` carries bit 7 in a write; `letter` is 0 for node 0.
struct Request {
  std::uint8_t control = 0;
  std::uint8_t bank = 0;
  std::uint8_t addr_hi = 0;
  std::uint8_t addr_lo = 0;
  char letter = 0;
  Bytes value = {};  // data of a write, already cut to its length; ignored in a read
};

// Sum of the bytes modulo 256.
std::uint8_t Sum(std::span<const std::uint8_t> bytes);

// The frame of a request, its last byte being the checksum S.
Bytes EncodeRequest(const Request& request);

// The five zero bytes that ask whether a board is on a port.
Bytes PortTestFrame();

// Whether `taken`, all bytes that were in the buffer, is a good reply to a read of `n` data bytes. The last
// byte taken is compared, so a surplus normally fails. `taken` holds at least n + 1 bytes.
bool IsGoodReadReply(std::span<const std::uint8_t> taken, std::size_t n);

// Whether `taken` is exactly the one byte that answers a write whose request had the checksum `checksum`.
bool IsGoodWriteReply(std::span<const std::uint8_t> taken, std::uint8_t checksum);

}  // namespace dosmara
