// SPDX-License-Identifier: GPL-3.0-or-later
// Finding the port with a board on it.
#include "link/identification.h"
#include "link/link_engine.h"
#include "store/failure.h"
#include "support/link_fixture.h"

namespace dosmara {
namespace {

using Ports = std::vector<int>;

class PortSearch : public LinkFixture {
 protected:
  // What the one box says, after a search that finds nothing.
  void ExpectSearchEnds(const std::string& title) {
    EXPECT_THROW(LinkOpenPort(0), ProgramEnds);
    ASSERT_EQ(host_.boxes.size(), 1U);
    EXPECT_EQ(host_.boxes[0].text, "Check serial !\nSerial device unavailable\nor Board Not Ready");
    EXPECT_EQ(host_.boxes[0].title, title);
    EXPECT_EQ(host_.boxes[0].style, BoxStyle::kCritical);
    EXPECT_TRUE(host_.ticked.empty());
  }
  void Answer(const Bytes& reply) {
    script_.replies.assign(20, reply);
    host_.board = &script_;
  }

  ScriptedBoard script_;
};

TEST_F(PortSearch, TakesTheSavedPort) {
  host_.settings_port = 3;
  host_.board_port = 3;
  LinkOpenPort(0);
  EXPECT_EQ(PortNumber, 3);
  EXPECT_EQ(host_.opened, (Ports{3}));
  EXPECT_EQ(host_.ticked, (std::set<int>{3}));
  EXPECT_EQ(Frames(), (std::vector<Bytes>{{0, 0, 0, 0, 0}}));
  EXPECT_EQ(ReplyData, (Bytes{0}));
}

TEST_F(PortSearch, TakesTheGivenPort) {
  host_.settings_port = 1;
  host_.board_port = 4;
  host_.ticked = {1};
  LinkOpenPort(4);
  EXPECT_EQ(host_.opened, (Ports{4}));
  EXPECT_EQ(host_.ticked, (std::set<int>{4}));
}

TEST_F(PortSearch, WaitsHalfASecondForTheReplyWithoutPumpingEvents) {
  host_.EnableTimer(LinkTimer::Timer3);
  LinkOpenPort(1);
  EXPECT_EQ(host_.Now(), milliseconds(500));
  host_.RunFor(milliseconds(0));
  EXPECT_FALSE(host_.IsEnabled(LinkTimer::Timer3));  // due at 500 ms, fired only now
}

TEST_F(PortSearch, GoesOnFromTheSavedPortUpward) {
  host_.settings_port = 2;
  host_.board_port = 4;
  LinkOpenPort(0);
  EXPECT_EQ(host_.opened, (Ports{2, 3, 4}));
  EXPECT_EQ(PortNumber, 4);
  EXPECT_EQ(host_.default_port_writes, 0);
  EXPECT_EQ(host_.ticked, (std::set<int>{4}));
}

TEST_F(PortSearch, BeginsAgainAtOneInASecondPass) {
  host_.settings_port = 3;
  host_.board_port = 2;
  LinkOpenPort(0);
  EXPECT_EQ(host_.opened, (Ports{3, 4, 1, 2}));
}

TEST_F(PortSearch, TriesOneToFourTwiceAndThenEndsTheProgram) {
  host_.board = nullptr;
  ExpectSearchEnds("ERROR 68");
  EXPECT_EQ(host_.opened, (Ports{1, 2, 3, 4, 1, 2, 3, 4}));
  EXPECT_EQ(host_.Now(), milliseconds(4000));
}

TEST_F(PortSearch, ALatePortIsFoundInTheSecondPass) {
  host_.board_port = 2;
  host_.plugged = false;
  host_.At(milliseconds(2400), [this] { host_.plugged = true; });
  LinkOpenPort(0);
  EXPECT_EQ(host_.opened, (Ports{1, 2, 3, 4, 1, 2}));
}

TEST_F(PortSearch, PortsThatCannotBeOpenedArePassedOver) {
  host_.open_errors = {{1, 8005}, {2, 68}, {3, 70}};
  host_.board_port = 4;
  LinkOpenPort(0);
  EXPECT_EQ(host_.opened, (Ports{1, 2, 3, 4}));
  EXPECT_EQ(host_.Now(), milliseconds(500));
}

TEST_F(PortSearch, TheTitleBearsTheNumberOfTheLastError) {
  host_.open_errors = {{1, 68}, {2, 68}, {3, 68}, {4, 8005}};
  ExpectSearchEnds("ERROR 8005");
  EXPECT_FALSE(host_.IsOpen());
}

TEST_F(PortSearch, TwoEqualBytesPassWhateverTheyAreAsPrescribed) {
  for (const std::uint8_t byte : {0, 57, 255}) {
    Answer({byte, byte});
    LinkOpenPort(1);
    EXPECT_EQ(ReplyData, (Bytes{byte}));
  }
  EXPECT_EQ(host_.opened, (Ports{1, 1, 1}));
}

using Texts = std::vector<std::string>;

TEST_F(PortSearch, SaysWhichPortIsTriedAndWhatIsWrongWithTheLastOne) {
  host_.settings_port = 1;
  host_.open_errors = {{1, 8002}, {2, 8005}, {3, 70}, {4, 68}};
  host_.board = nullptr;
  EXPECT_THROW(LinkOpenPort(0), ProgramEnds);
  const Texts pass = {"Trying Com2 - Com1: no such device", "Trying Com3 - Com2: in use",
                      "Trying Com4 - Com3: not permitted", "Trying Com1 - Com4: cannot be opened"};
  ASSERT_EQ(host_.status_texts.size(), 9U);
  EXPECT_EQ(host_.status_texts[0], "Trying Com1");
  EXPECT_EQ(Texts(host_.status_texts.begin() + 1, host_.status_texts.begin() + 5), pass);
  EXPECT_EQ(host_.status_texts[8], "Com4: cannot be opened");
}

TEST_F(PortSearch, TellsSilenceFromAWrongAnswer) {
  host_.board_port = 3;
  LinkOpenPort(2);
  Answer({57, 58});
  host_.board_port = 1;
  EXPECT_THROW(LinkOpenPort(1), ProgramEnds);
  ASSERT_EQ(host_.status_texts.size(), 11U);
  EXPECT_EQ(host_.status_texts[1], "Trying Com3 - Com2: no answer");
  EXPECT_EQ(host_.status_texts[3], "Trying Com2 - Com1: wrong answer");
}

TEST_F(PortSearch, APortThatAnswersClearsTheText) {
  host_.board_port = 2;
  LinkOpenPort(1);
  EXPECT_EQ(host_.status_texts, (Texts{"Trying Com1", "Trying Com2 - Com1: no answer"}));
  EXPECT_EQ(host_.status_text_clears, 1);
}

TEST_F(PortSearch, WithoutASettingsFileNoPortIsSaidToBeWrong) {
  host_.settings_error = 53;
  LinkOpenPort(0);
  EXPECT_EQ(host_.status_texts, (Texts{"Trying Com1"}));
}

TEST_F(PortSearch, AnyOtherReplyIsNoBoard) {
  for (const Bytes& reply : {Bytes{57}, Bytes{57, 58}, Bytes{57, 57, 57}, Bytes{}}) {
    Answer(reply);
    EXPECT_THROW(LinkOpenPort(1), ProgramEnds);
  }
  EXPECT_EQ(host_.boxes.size(), 4U);
}

TEST_F(PortSearch, AReplyAfterHalfASecondIsTooLate) {
  script_.latency = milliseconds(497);
  Answer({57, 57});
  EXPECT_THROW(LinkOpenPort(4), ProgramEnds);
}

TEST_F(PortSearch, WithoutASettingsFileItIsWrittenAndPortOneTaken) {
  host_.settings_error = 53;
  PortNumber = 2;
  LinkOpenPort(0);
  EXPECT_EQ(host_.default_port_writes, 1);
  EXPECT_EQ(host_.opened, (Ports{1}));
  EXPECT_EQ(PortNumber, 1);
}

TEST_F(PortSearch, WithoutASettingsFileAllPortsAreTriedTwice) {
  host_.settings_error = 53;
  host_.board = nullptr;
  ExpectSearchEnds("ERROR 68");
  EXPECT_EQ(host_.opened, (Ports{1, 2, 3, 4, 1, 2, 3, 4}));
  EXPECT_EQ(host_.default_port_writes, 1);
}

TEST_F(PortSearch, ASettingsFileThatCannotBeReadDoesNotStopTheSearch) {
  host_.settings_error = 70;
  host_.board_port = 2;
  LinkOpenPort(0);
  EXPECT_EQ(host_.opened, (Ports{1, 2}));
  EXPECT_EQ(host_.default_port_writes, 0);
}

TEST_F(PortSearch, APortOfTheSettingsThatIsNoneIsAnErrorLikeAnyOther) {
  for (const int port : {0, 5, 9}) {
    host_.settings_port = port;
    host_.opened.clear();
    LinkOpenPort(0);
    EXPECT_EQ(host_.opened, (Ports{1})) << port;
    EXPECT_EQ(host_.ticked, (std::set<int>{1}));
  }
}

TEST_F(PortSearch, AChangeOfPortWhileRunningRecoversByTheTimeOut) {
  Records(0, 10);
  Record(0, 4, {.period = 2});
  Board().Set(0, 4, 57);
  Board().latency = milliseconds(30);
  Subscribe(0, 4);
  StartScan();
  Ticks(1);
  ASSERT_FALSE(LinkIdle);
  host_.board_port = 2;
  LinkOpenPort(2);
  EXPECT_FALSE(LinkIdle);
  EXPECT_TRUE(Arrivals().empty());
  host_.RunFor(milliseconds(1000));
  EXPECT_EQ(host_.reopens, 1);
  EXPECT_FALSE(Arrivals().empty());
  EXPECT_EQ(Arrivals()[0], (ListeningForm::Arrival{0, 4, 57}));
}

TEST_F(PortSearch, AChangeOfPortOfAnIdleLinkLeavesNothingBehind) {
  Records(0, 10);
  Board().Set(0, 4, 57);
  Noise({1, 2, 3});
  host_.RunFor(milliseconds(1));
  LinkOpenPort(1);
  EXPECT_EQ(host_.InputCount(), 0U);
  host_.frames.clear();
  Subscribe(0, 4);
  StartScan();
  Ticks(2);
  EXPECT_EQ(host_.frames.size(), 1U);
  EXPECT_EQ(Arrivals(), (std::vector<ListeningForm::Arrival>{{0, 4, 57}}));
}

TEST_F(PortSearch, AChangeOfPortToADeadPortSearchesOn) {
  LinkOpenPort(3);
  EXPECT_EQ(host_.opened, (Ports{3, 4, 1}));
  EXPECT_EQ(PortNumber, 1);
  EXPECT_EQ(host_.ticked, (std::set<int>{1}));
}

}  // namespace
}  // namespace dosmara
