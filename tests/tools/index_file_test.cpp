// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/index_file.h"

#include <gtest/gtest.h>

namespace dosmara {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(IndexFile, WritesNineBytesForEachRecordOfABoard) {
  BoardTable table;
  table.records = {{"code", 3, 0, 0x030201}, {"status", 1, 4, 7}, {"spare", 1, 0, 0}};
  EXPECT_EQ(IndexFileBytes(table), (Bytes{0x00, 0x01, 0x22, 0, 0, 1, 2, 3, 0,  //
                                          0x03, 0x01, 0x20, 4, 0, 7, 0, 0, 0,  //
                                          0x04, 0x01, 0x20, 0, 0, 0, 0, 0, 0}));
}

TEST(IndexFile, WritesFiveBytesForEachRecordOfIdentification) {
  BoardTable table;
  table.identification = true;
  table.records = {{"sign of life", 1, 0, 0}, {"revision", 1, 0, 0}};
  EXPECT_EQ(IndexFileBytes(table), (Bytes{0x00, 0x00, 0x10, 0, 0xF0,  //
                                          0x01, 0x00, 0x10, 0, 0xF0}));
}

TEST(IndexFile, CarriesAddressesOverIntoTheHighByteAndTheBank) {
  BoardTable table;
  table.records.assign(0x10000, {"reserved", 1, 0, 0});
  const Bytes bytes = IndexFileBytes(table);
  const auto address = [&](std::size_t record) {
    return Bytes{bytes[record * 9], bytes[record * 9 + 1], bytes[record * 9 + 4]};
  };
  EXPECT_EQ(address(0xFF), (Bytes{0xFF, 0x01, 0x00}));
  EXPECT_EQ(address(0x100), (Bytes{0x00, 0x02, 0x00}));
  EXPECT_EQ(address(0xFF00), (Bytes{0x00, 0x00, 0x01}));
}

TEST(IndexFile, ExpandsTheTableToOneRowForEachRecord) {
  BoardTable table;
  table.records = {{"price 1", 2, 0, 50}, {"status", 1, 4, 7}};
  EXPECT_EQ(ExpandedTable(table),
            "record\tname\tbytes\tperiod\tdefault\n"
            "1\tprice 1\t2\t0\t50\n"
            "2\tstatus\t1\t4\t7\n");
}

}  // namespace
}  // namespace dosmara
