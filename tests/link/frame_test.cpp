// SPDX-License-Identifier: GPL-3.0-or-later
// Frames against bytes worked out by hand.
#include "link/frame.h"

#include <gtest/gtest.h>

namespace dosmara {
namespace {

TEST(Frame, ReadOfTheMainBoard) {
  EXPECT_EQ(EncodeRequest({.control = 0, .bank = 1, .addr_hi = 2, .addr_lo = 3}), (Bytes{0, 1, 2, 3, 6}));
}

TEST(Frame, ReadOfNodeOneIsPassedOn) {
  EXPECT_EQ(EncodeRequest({.control = 0, .bank = 1, .addr_hi = 2, .addr_lo = 3, .letter = 'Q'}),
            (Bytes{241, 1, 2, 3, 0, 81, 72}));
}

TEST(Frame, ReadOfNodesTwoAndThreeBearsTheirLetters) {
  EXPECT_EQ(EncodeRequest({.control = 1, .bank = 0, .addr_hi = 0, .addr_lo = 0, .letter = 'V'}),
            (Bytes{241, 0, 0, 0, 1, 86, 72}));
  EXPECT_EQ(EncodeRequest({.control = 1, .bank = 0, .addr_hi = 0, .addr_lo = 0, .letter = 'W'}),
            (Bytes{241, 0, 0, 0, 1, 87, 73}));
}

TEST(Frame, WriteOfTheMainBoard) {
  EXPECT_EQ(EncodeRequest({.control = 0x81, .bank = 0, .addr_hi = 0, .addr_lo = 16, .value = Bytes{232, 3}}),
            (Bytes{129, 0, 0, 16, 232, 3, 124}));
}

TEST(Frame, WriteOfNodeTwoIsPassedOn) {
  EXPECT_EQ(EncodeRequest(
                {.control = 0x80, .bank = 0, .addr_hi = 0, .addr_lo = 1, .letter = 'V', .value = Bytes{5}}),
            (Bytes{242, 0, 0, 1, 128, 86, 5, 206}));
}

TEST(Frame, WriteMarkerGrowsWithTheDataLength) {
  const auto marker = [](std::uint8_t control) {
    return EncodeRequest({.control = control, .letter = 'Q', .value = Bytes{1, 2, 3, 4}}).front();
  };
  EXPECT_EQ(marker(0x81), 243);
  EXPECT_EQ(marker(0x83), 245);
  EXPECT_EQ(marker(0xF3), 245);  // only the low nibble counts
  EXPECT_EQ(marker(0x8D), 255);
}

TEST(Frame, WriteOfALongRecordCarriesFourBytesWhileTheMarkerSaysItsLengthAsPrescribed) {
  EXPECT_EQ(EncodeRequest({.control = 0x87,
                           .bank = 0,
                           .addr_hi = 1,
                           .addr_lo = 0,
                           .letter = 'W',
                           .value = Bytes{1, 2, 3, 4}}),
            (Bytes{249, 0, 1, 0, 135, 87, 1, 2, 3, 4, 226}));  // 482 modulo 256
}

TEST(Frame, HighNibbleOfControlTravelsAsItStands) {
  EXPECT_EQ(EncodeRequest({.control = 0x31, .bank = 0, .addr_hi = 0, .addr_lo = 0}),
            (Bytes{0x31, 0, 0, 0, 0x31}));
}

TEST(Frame, ReadIgnoresTheValue) {
  EXPECT_EQ(EncodeRequest({.control = 0, .value = Bytes{9, 9}}), (Bytes{0, 0, 0, 0, 0}));
}

TEST(Frame, PortTestIsFiveZeroBytes) { EXPECT_EQ(PortTestFrame(), (Bytes{0, 0, 0, 0, 0})); }

TEST(Frame, SumIsTakenModulo256) {
  EXPECT_EQ(Sum(Bytes{}), 0);
  EXPECT_EQ(Sum(Bytes{200, 100}), 44);
  EXPECT_EQ(Sum(Bytes(257, 255)), 255);  // 65535
}

TEST(Frame, ReadReplyIsGoodWhenTheLastByteIsTheSum) {
  EXPECT_TRUE(IsGoodReadReply(Bytes{57, 57}, 1));
  EXPECT_TRUE(IsGoodReadReply(Bytes{200, 100, 44}, 2));
  EXPECT_TRUE(IsGoodReadReply(Bytes{0, 0}, 1));
  EXPECT_FALSE(IsGoodReadReply(Bytes{57, 58}, 1));
  EXPECT_FALSE(IsGoodReadReply(Bytes{200, 100, 45}, 2));
}

TEST(Frame, ReadReplyWithASurplusComparesTheByteAfterItAsPrescribed) {
  EXPECT_FALSE(IsGoodReadReply(Bytes{57, 57, 3}, 1));
  EXPECT_TRUE(IsGoodReadReply(Bytes{57, 3, 57}, 1));
}

TEST(Frame, WriteReplyIsTwiceTheChecksum) {
  EXPECT_TRUE(IsGoodWriteReply(Bytes{248}, 124));
  EXPECT_TRUE(IsGoodWriteReply(Bytes{156}, 206));
  EXPECT_FALSE(IsGoodWriteReply(Bytes{124}, 124));
}

TEST(Frame, WriteReplyToChecksums0And128IsZero) {
  EXPECT_TRUE(IsGoodWriteReply(Bytes{0}, 0));
  EXPECT_TRUE(IsGoodWriteReply(Bytes{0}, 128));
  EXPECT_FALSE(IsGoodWriteReply(Bytes{128}, 128));
}

TEST(Frame, WriteReplyOfTwoBytesFails) {
  EXPECT_FALSE(IsGoodWriteReply(Bytes{248, 248}, 124));
  EXPECT_FALSE(IsGoodWriteReply(Bytes{248, 0}, 124));
}

}  // namespace
}  // namespace dosmara
