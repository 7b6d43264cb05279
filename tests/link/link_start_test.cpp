// SPDX-License-Identifier: GPL-3.0-or-later
// The whole start of the link, from the port to the first tick.
#include "link/identification.h"
#include "link/link_engine.h"
#include "store/failure.h"
#include "store/index_files.h"
#include "support/index_file_maker.h"
#include "support/link_fixture.h"

namespace dosmara {
namespace {

class LinkStartUp : public LinkFixture {
 protected:
  LinkStartUp() {
    WriteStandardBoards(folder_, 30);
    IdentifyStandardBoards(Board());
    std::ranges::fill(NodePresent, false);
  }
  void Start() { LinkStart(folder_.path()); }
  void ExpectEnds(const std::string& text, const std::string& title) {
    EXPECT_THROW(Start(), ProgramEnds);
    ASSERT_EQ(host_.boxes.size(), 1U);
    EXPECT_EQ(host_.boxes[0].text, text);
    EXPECT_EQ(host_.boxes[0].title, title);
    EXPECT_EQ(host_.boxes[0].style, BoxStyle::kCritical);
    EXPECT_FALSE(host_.IsEnabled(LinkTimer::Timer1));
  }
  void Remove(const std::string& name) { std::filesystem::remove(folder_.path() / name); }

  TempFolder folder_;
};

TEST_F(LinkStartUp, FindsAllBoardsAndStartsTheScan) {
  Start();
  for (int node = 0; node < 4; ++node) {
    EXPECT_TRUE(NodePresent[node]);
    EXPECT_EQ(NodeRecordCount[node], 30);
    EXPECT_EQ(ParamTable[node][30].AddrLo, 30);
  }
  EXPECT_FALSE(LinkIdentifying);
  EXPECT_TRUE(LinkIdle);
  EXPECT_EQ(NodeIndex, 0);
  EXPECT_EQ(ScanCursor, 0);
  EXPECT_TRUE(host_.IsEnabled(LinkTimer::Timer1));
  EXPECT_FALSE(host_.IsEnabled(LinkTimer::Timer2));
  EXPECT_TRUE(host_.boxes.empty());
}

TEST_F(LinkStartUp, RunsExchangesAfterwards) {
  Start();
  Board().Set(1, 7, 57);
  Subscribe(1, 7);
  host_.RunFor(milliseconds(500));
  EXPECT_EQ(Arrivals(), (std::vector<ListeningForm::Arrival>{{1, 7, 57}}));
}

TEST_F(LinkStartUp, AnAbsentNodeKeepsTheCountOfItsSmallFileAndStaysSilent) {
  Board().absent = {1};
  Start();
  EXPECT_FALSE(NodePresent[1]);
  EXPECT_EQ(NodeRecordCount[1], 18);
  EXPECT_EQ(NodeRecordCount[2], 30);
  Subscribe(1, 7);
  Put(1, 7, 3);
  host_.frames.clear();
  host_.RunFor(milliseconds(1000));
  EXPECT_TRUE(host_.frames.empty());
}

TEST_F(LinkStartUp, AnAbsentLastNodeLeavesNoTimeOutRunning) {
  Board().absent = {3};
  Start();
  EXPECT_FALSE(host_.IsEnabled(LinkTimer::Timer2));
  host_.RunFor(milliseconds(3000));
  EXPECT_EQ(host_.LampOn(4), 3);
}

TEST_F(LinkStartUp, BoardsDecideTheirFullFiles) {
  Identify(Board(), 1, {.file_number = 107, .revision = 0, .type = 257});
  folder_.Write("W0257AA07.inx", FullIndexBytes(12));
  Start();
  EXPECT_EQ(NodeRecordCount[1], 12);
}

TEST_F(LinkStartUp, AnEmptyFullFileLeavesTheNodePresentAndUnreached) {
  folder_.Write("W0257AC01.inx", {});
  Start();
  EXPECT_TRUE(NodePresent[1]);
  EXPECT_EQ(NodeRecordCount[1], 0);
  Subscribe(1, 7);
  EXPECT_EQ(At(1, 7).Flags, 6);
  host_.frames.clear();
  host_.RunFor(milliseconds(2000));
  EXPECT_TRUE(host_.frames.empty());
}

TEST_F(LinkStartUp, AMissingSmallFileEndsTheProgram) {
  Remove("W0245.inx");
  ExpectEnds("W0245.inx not found !", "ERROR");
  EXPECT_EQ(host_.frames.size(), 1U);  // small files go before all boards
}

TEST_F(LinkStartUp, AMissingFullFileEndsTheProgram) {
  Remove("W0245AC00.inx");
  ExpectEnds("W0245AC00.inx not found !", "ERROR");
}

TEST_F(LinkStartUp, AMissingFullFileOfTheMainBoardEndsTheProgram) {
  Remove("W0256AO01.inx");
  ExpectEnds("W0256AO01.inx not found !", "ERROR");
}

TEST_F(LinkStartUp, ADamagedSmallFileIsNamedBelowTheUsualWords) {
  folder_.Write("W0257.inx", SmallIndexBytes(17));
  ExpectEnds("Reinstall Program\nW0257.inx is damaged: it must hold 18 to 20 records", "ERROR 9");
}

TEST_F(LinkStartUp, AnOverlongFullFileIsNamedBelowTheUsualWords) {
  folder_.Write("W0256AO01.inx", FullIndexBytes(32768));
  ExpectEnds("Reinstall Program\nW0256AO01.inx is damaged: it holds more than 32767 records", "ERROR 6");
}

TEST_F(LinkStartUp, AnIncompatibleMainBoardEndsTheProgram) {
  Identify(Board(), 0, {.file_number = 1, .revision = 14, .code = 18, .type = 256, .model = 22});
  ExpectEnds("Not Compatible\nBoard Software", "ERROR");
}

TEST_F(LinkStartUp, ABoardThatPassesThePortTestOnlyBringsUpTheRetryBox) {
  host_.At(milliseconds(100), [this] { Board().absent = {0}; });
  EXPECT_THROW(Start(), ProgramEnds);
  ASSERT_EQ(host_.boxes.size(), 1U);
  EXPECT_EQ(host_.boxes[0].text, "Check serial !\nBoard Not Ready");
}

TEST_F(LinkStartUp, WithoutABoardTheSearchEndsTheProgram) {
  host_.board = nullptr;
  ExpectEnds("Check serial !\nSerial device unavailable\nor Board Not Ready", "ERROR 68");
}

// A host that fails in the middle of the identification, after a number of events.
class FailingHost : public VirtualHost {
 public:
  explicit FailingHost(int number) : number_(number) {}
  void PumpEvents() override { throw RunTimeError(number_, "failed"); }

 private:
  int number_;
};

class LinkStartFailure : public LinkStartUp {
 protected:
  void StartOn(VirtualHost& host) {
    host.board = &board_;
    LinkAttach(host);
    LinkStart(folder_.path());
  }
};

TEST_F(LinkStartFailure, FileNotFoundWithRecordsLoadedMeansANewBoard) {
  FailingHost host(53);
  EXPECT_THROW(StartOn(host), ProgramEnds);
  ASSERT_EQ(host.boxes.size(), 1U);
  EXPECT_EQ(host.boxes[0].text, "New Board\nOld Program");
  EXPECT_EQ(host.boxes[0].title, "ERROR 53");
}

// A host that fails before any index file is read.
class EarlyFailingHost : public VirtualHost {
 public:
  void WaitBlocking(milliseconds /*time*/) override { throw RunTimeError(53, "failed"); }
};

TEST_F(LinkStartFailure, FileNotFoundWithoutRecordsAsksForAReinstall) {
  EarlyFailingHost host;
  EXPECT_THROW(StartOn(host), ProgramEnds);
  ASSERT_EQ(host.boxes.size(), 1U);
  EXPECT_EQ(host.boxes[0].text, "Reinstall Program");
  EXPECT_EQ(host.boxes[0].title, "ERROR 53");
}

TEST_F(LinkStartFailure, AnyOtherFailureAsksForAReinstall) {
  FailingHost host(70);
  EXPECT_THROW(StartOn(host), ProgramEnds);
  ASSERT_EQ(host.boxes.size(), 1U);
  EXPECT_EQ(host.boxes[0].text, "Reinstall Program");
  EXPECT_EQ(host.boxes[0].title, "ERROR 70");
}

TEST_F(LinkStartFailure, FileAlreadyExistsIsTolerated) {
  FailingHost host(58);
  StartOn(host);
  EXPECT_TRUE(host.boxes.empty());
  EXPECT_TRUE(host.IsEnabled(LinkTimer::Timer1));
  EXPECT_TRUE(LinkIdle);
  EXPECT_FALSE(LinkIdentifying);
}

// A host whose operator closes the program at the first event.
class ClosedHost : public VirtualHost {
 public:
  void PumpEvents() override { throw ProgramEnds(); }
};

TEST_F(LinkStartFailure, AProgramClosedDuringTheIdentificationEndsWithoutAMessage) {
  ClosedHost host;
  EXPECT_THROW(StartOn(host), ProgramEnds);
  EXPECT_TRUE(host.boxes.empty());
}

}  // namespace
}  // namespace dosmara
