// SPDX-License-Identifier: GPL-3.0-or-later
#include "machine/frame_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace machine {
namespace {

class FrameReaderTest : public testing::Test {
 protected:
  void Feed(const Bytes& bytes) {
    for (const std::uint8_t byte : bytes) {
      reader_.Push(byte);
    }
  }

  // The one request that `bytes` hold.
  Request Only(const Bytes& bytes) {
    Feed(bytes);
    const auto request = reader_.TakeRequest();
    EXPECT_TRUE(request.has_value());
    EXPECT_FALSE(reader_.TakeRequest().has_value());
    return request.value_or(Request{});
  }

  // True when `bytes`, between two silences, hold no request.
  bool Refused(const Bytes& bytes) {
    reader_.Silence();
    Feed(bytes);
    reader_.Silence();
    return !reader_.TakeRequest().has_value();
  }

  FrameReader reader_;
};

TEST_F(FrameReaderTest, ReadsAReadOfTheMainBoard) {
  const Request request = Only({0, 1, 2, 3, 6});
  EXPECT_EQ(request.node, 0);
  EXPECT_FALSE(request.write);
  EXPECT_EQ(request.address, (Address{.bank = 1, .high = 2, .low = 3, .control = 0}));
  EXPECT_EQ(request.check, 6);
  EXPECT_TRUE(request.data.empty());
}

TEST_F(FrameReaderTest, ReadsAReadOfEachForwardedBoardByItsLetter) {
  EXPECT_EQ(Only({241, 1, 2, 3, 0, 81, 72}).node, 1);
  EXPECT_EQ(Only({241, 1, 2, 3, 0, 86, 77}).node, 2);
  const Request third = Only({241, 1, 2, 3, 0, 87, 78});
  EXPECT_EQ(third.node, 3);
  EXPECT_FALSE(third.write);
  EXPECT_EQ(third.address, (Address{.bank = 1, .high = 2, .low = 3, .control = 0}));
}

TEST_F(FrameReaderTest, ReadsAWriteToTheMainBoard) {
  const Request request = Only({129, 0, 0, 16, 232, 3, 124});
  EXPECT_EQ(request.node, 0);
  EXPECT_TRUE(request.write);
  EXPECT_EQ(request.address, (Address{.bank = 0, .high = 0, .low = 16, .control = 1}));
  EXPECT_EQ(request.data, (Bytes{232, 3}));
  EXPECT_EQ(request.check, 124);
}

TEST_F(FrameReaderTest, ReadsAWriteToAForwardedBoard) {
  const Request request = Only({242, 0, 0, 1, 128, 86, 5, 206});
  EXPECT_EQ(request.node, 2);
  EXPECT_TRUE(request.write);
  EXPECT_EQ(request.address, (Address{.bank = 0, .high = 0, .low = 1, .control = 0}));
  EXPECT_EQ(request.data, (Bytes{5}));
  EXPECT_EQ(request.check, 206);
}

TEST_F(FrameReaderTest, KeepsTheHighBitsOfControlInTheAddress) {
  EXPECT_EQ(Only({0x60, 1, 2, 3, 0x66}).address.control, 0x60);
  EXPECT_EQ(Only({0xE0, 1, 2, 3, 9, 0xEF}).address.control, 0x60);
}

TEST_F(FrameReaderTest, TakesFourBytesFromAWriteThatAnnouncesMore) {
  EXPECT_EQ(Only({133, 0, 0, 16, 1, 2, 3, 4, 159}).data, (Bytes{1, 2, 3, 4}));
  EXPECT_EQ(Only({249, 0, 0, 16, 135, 81, 1, 2, 3, 4, 235}).data, (Bytes{1, 2, 3, 4}));
  EXPECT_EQ(Only({255, 0, 0, 16, 141, 81, 1, 2, 3, 4, 247}).data, (Bytes{1, 2, 3, 4}));
}

TEST_F(FrameReaderTest, TakesTheHighestFirstByteOfTheMainBoardForAWriteOfOneByte) {
  const Request request = Only({240, 0, 0, 1, 7, 248});
  EXPECT_EQ(request.node, 0);
  EXPECT_EQ(request.address.control, 112);
}

TEST_F(FrameReaderTest, TakesARequestWithItsLastByteAndNotBefore) {
  Feed({0, 1, 2, 3});
  EXPECT_FALSE(reader_.TakeRequest().has_value());
  Feed({6});
  EXPECT_TRUE(reader_.TakeRequest().has_value());
}

TEST_F(FrameReaderTest, TakesRequestsThatFollowEachOtherWithoutAPause) {
  Feed({0, 1, 2, 3, 6, 241, 1, 2, 3, 0, 81, 72, 0, 0, 0, 0, 0});
  EXPECT_EQ(reader_.TakeRequest()->address.low, 3);
  EXPECT_EQ(reader_.TakeRequest()->node, 1);
  EXPECT_EQ(reader_.TakeRequest()->address.low, 0);
  EXPECT_TRUE(reader_.TakeDropped().empty());
}

TEST_F(FrameReaderTest, FindsARequestDirectlyBehindNoise) {
  EXPECT_EQ(Only({0x37, 0, 1, 2, 3, 6}).address.low, 3);
  EXPECT_EQ(reader_.TakeDropped(), Bytes{0x37});
}

TEST_F(FrameReaderTest, FindsARequestBehindNoiseThatLooksLikeADamagedOne) {
  EXPECT_EQ(Only({0x37, 0x80, 0, 1, 2, 3, 6}).address.low, 3);
  EXPECT_EQ(reader_.TakeDropped(), (Bytes{0x37, 0x80}));
}

TEST_F(FrameReaderTest, FindsARequestBehindNoiseThatAnnouncesALongFrameOnceTheLineIsSilent) {
  Feed({0xF5, 0, 1, 2, 3, 6});
  EXPECT_FALSE(reader_.TakeRequest().has_value());
  reader_.Silence();
  EXPECT_EQ(reader_.TakeRequest()->address.low, 3);
  EXPECT_EQ(reader_.TakeDropped(), Bytes{0xF5});
}

TEST_F(FrameReaderTest, SilenceCutsAnIncompleteRequestOff) {
  Feed({0, 1, 2});
  reader_.Silence();
  EXPECT_EQ(reader_.TakeDropped(), (Bytes{0, 1, 2}));
  EXPECT_EQ(Only({0, 1, 2, 3, 6}).address.low, 3);
}

TEST_F(FrameReaderTest, RefusesAWrongCheck) {
  EXPECT_TRUE(Refused({0, 1, 2, 3, 7}));
  EXPECT_TRUE(Refused({241, 1, 2, 3, 0, 81, 73}));
  EXPECT_TRUE(Refused({129, 0, 0, 16, 232, 3, 125}));
  EXPECT_TRUE(Refused({242, 0, 0, 1, 128, 86, 5, 207}));
}

TEST_F(FrameReaderTest, TakesNothingFromInsideALoneDamagedRequest) {
  EXPECT_TRUE(Refused({0x83, 0, 0, 16, 0, 0, 0, 0, 0})) << "its last five bytes look like a port test";
  EXPECT_EQ(reader_.TakeDropped().size(), 9u);
}

TEST_F(FrameReaderTest, RefusesAHeaderThatContradictsItself) {
  EXPECT_TRUE(Refused({241, 1, 2, 3, 128, 81, 200})) << "marked as a read, with the bit of a write";
  EXPECT_TRUE(Refused({242, 1, 2, 3, 0, 81, 5, 78})) << "marked as a write, without its bit";
  EXPECT_TRUE(Refused({242, 1, 2, 3, 129, 81, 5, 207})) << "the marker says one byte, the control two";
}

TEST_F(FrameReaderTest, RefusesALetterThatNoBoardHas) {
  EXPECT_TRUE(Refused({241, 1, 2, 3, 0, 82, 73}));
  EXPECT_TRUE(Refused({241, 1, 2, 3, 0, 0, 247}));
}

TEST_F(FrameReaderTest, AMillionRandomBytesHoldOnlyRequestsWithTheRightCheck) {
  std::mt19937 random(20260);
  std::size_t requests = 0;
  std::size_t bytes = 0;
  for (int i = 0; i < 1000000; ++i) {
    reader_.Push(static_cast<std::uint8_t>(random() >> 24));
    if (random() % 16 == 0) {
      reader_.Silence();
    }
    while (const auto request = reader_.TakeRequest()) {
      unsigned sum = 0;
      for (std::size_t k = 0; k + 1 < request->frame.size(); ++k) {
        sum += request->frame[k];
      }
      ASSERT_EQ(sum % 256, request->frame.back());
      ASSERT_EQ(request->check, request->frame.back());
      bytes += request->frame.size();
      ++requests;
    }
    bytes += reader_.TakeDropped().size();
  }
  reader_.Silence();
  while (const auto request = reader_.TakeRequest()) {
    bytes += request->frame.size();
  }
  bytes += reader_.TakeDropped().size();
  EXPECT_EQ(bytes, 1000000u);
  EXPECT_GT(requests, 0u);
}

}  // namespace
}  // namespace machine
