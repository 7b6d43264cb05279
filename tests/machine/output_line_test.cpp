// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <string>

#include "machine/output.h"

namespace machine {
namespace {

class OutputTest : public testing::Test {
 protected:
  OutputTest() { EXPECT_EQ(pipe2(ends_, O_CLOEXEC | O_NONBLOCK), 0); }
  ~OutputTest() override {
    for (const int end : ends_) {
      close(end);
    }
  }

  // All that can be read now.
  std::string Read() {
    std::string text;
    char buffer[4096];
    for (ssize_t count; (count = read(ends_[0], buffer, sizeof buffer)) > 0;) {
      text.append(buffer, static_cast<std::size_t>(count));
    }
    return text;
  }

  int ends_[2];
};

TEST_F(OutputTest, ALineGoesOutAtOnce) {
  Output output(ends_[1]);
  output.Add("one");
  EXPECT_FALSE(output.waiting());
  EXPECT_EQ(Read(), "one\n");
}

TEST_F(OutputTest, LinesWaitForTheirReaderAndLoseNothing) {
  Output output(ends_[1]);
  const std::string line(999, 'x');
  for (int i = 0; i < 200; ++i) {
    output.Add(line);
  }
  EXPECT_TRUE(output.waiting());
  std::size_t read = 0;
  for (int i = 0; i < 100 && read < 200000; ++i) {
    read += Read().size();
    output.Flush();
  }
  EXPECT_EQ(read, 200000u);
  EXPECT_FALSE(output.waiting());
}

TEST_F(OutputTest, TellsHowManyLinesItHadNoRoomFor) {
  Output output(ends_[1]);
  const std::string line(99999, 'x');
  for (int i = 0; i < 20; ++i) {
    output.Add(line);
  }
  std::string text;
  for (int i = 0; i < 1000 && output.waiting(); ++i) {
    text += Read();
    output.Flush();
  }
  output.Add("after");
  text += Read();
  const auto lines = std::count(text.begin(), text.end(), '\n');
  EXPECT_TRUE(text.ends_with("\n(" + std::to_string(20 - (lines - 2)) + " lines lost)\nafter\n"));
  EXPECT_LT(lines, 20);
}

TEST_F(OutputTest, WhatNobodyWillEverReadIsForgotten) {
  signal(SIGPIPE, SIG_IGN);
  Output output(ends_[1]);
  close(ends_[0]);
  output.Add("one");
  EXPECT_FALSE(output.waiting());
  ends_[0] = open("/dev/null", O_RDONLY | O_CLOEXEC);
}

}  // namespace
}  // namespace machine
