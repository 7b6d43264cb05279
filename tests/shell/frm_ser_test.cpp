// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/frm_ser.h"

#include <gtest/gtest.h>
#include <termios.h>

#include <QElapsedTimer>
#include <QProperty>
#include <QSerialPort>
#include <list>
#include <thread>

#include "link/link_engine.h"
#include "shell/loaded_forms.h"
#include "shell/serial_names.h"
#include "store/failure.h"
#include "store/parameter_table.h"
#include "support/box_recorder.h"
#include "support/process_figures.h"
#include "support/program_folder.h"
#include "support/pty_line.h"
#include "support/serial_lock.h"
#include "support/wait_until.h"

namespace dosmara {
namespace {

using std::chrono::milliseconds;

// FrmSer with a line on port 2, and an exchange that waits for more bytes than any test sends, so that what
// arrives stays in the buffer.
class FrmSerTest : public testing::Test {
 protected:
  void SetUp() override {
    bar_.MakePanels();
    LinkAttach(ser_);
    LinkIdentifying = true;
    LinkIdle = false;
    ExchControl = 0;
    ExchLength = 15;
  }

  std::filesystem::path Link() const { return (folder_.path() + "/com2").toStdString(); }
  bool WaitForInput(std::size_t count) {
    return WaitUntil([&] { return ser_.InputCount() >= count; });
  }
  bool WaitForOutput(const PtyLine& line, const Bytes& expected,
                     milliseconds deadline = std::chrono::seconds(10)) {
    Bytes got;
    return WaitUntil(
        [&] {
          const Bytes more = line.Receive();
          got.insert(got.end(), more.begin(), more.end());
          return got == expected;
        },
        deadline);
  }
  QTimer* Timer(int n) { return ser_.findChild<QTimer*>(QString("Timer%1").arg(n)); }

  ProgramFolder folder_;
  Settings settings_ = SettingsOf(folder_.program());
  StatusBar bar_;
  FrmSer ser_{settings_, bar_};
  BoxRecorder screen_;
};

using FrmSerLine = FrmSerTest;
using FrmSerTimers = FrmSerTest;
using FrmSerShell = FrmSerTest;

TEST_F(FrmSerLine, SendsAndReceives) {
  PtyLine line(Link());
  ASSERT_EQ(ser_.OpenPort(2), 0);
  ser_.Output(Bytes{0x80, 0x01, 0xFF, 0x00, 0x11, 0x13});
  EXPECT_TRUE(WaitForOutput(line, {0x80, 0x01, 0xFF, 0x00, 0x11, 0x13}));
  line.Send({0x0D, 0x00, 0x11, 0x13, 0x0A});
  ASSERT_TRUE(WaitForInput(5));
  EXPECT_EQ(ser_.TakeInput(), (Bytes{0x0D, 0x00, 0x11, 0x13, 0x0A}));
  EXPECT_EQ(ser_.InputCount(), 0u);
}

TEST_F(FrmSerLine, Speaks19200EightNoneOneWithoutHandshake) {
  PtyLine line(Link());
  ASSERT_EQ(ser_.OpenPort(2), 0);
  termios now = {};
  ASSERT_EQ(tcgetattr(line.tool_end(), &now), 0);
  EXPECT_EQ(cfgetospeed(&now), static_cast<speed_t>(B19200));
  EXPECT_EQ(cfgetispeed(&now), static_cast<speed_t>(B19200));
  EXPECT_EQ(now.c_cflag & CSIZE, static_cast<tcflag_t>(CS8));
  EXPECT_EQ(now.c_cflag & (PARENB | CSTOPB | CRTSCTS), 0u);
  EXPECT_EQ(now.c_iflag & (IXON | IXOFF | ICRNL), 0u);
}

TEST_F(FrmSerLine, RunsTheReceiveEventWhenBytesArrive) {
  PtyLine line(Link());
  ASSERT_EQ(ser_.OpenPort(2), 0);
  ExchLength = 0;
  line.Send({7, 7});
  EXPECT_TRUE(WaitUntil([] { return LinkIdle; }));
  EXPECT_EQ(ReplyData, Bytes{7});
}

TEST_F(FrmSerLine, OpensWithEmptyBuffers) {
  PtyLine line(Link());
  ASSERT_EQ(ser_.OpenPort(2), 0);
  ser_.ClosePort();
  line.Send({1, 2, 3});
  ASSERT_EQ(ser_.OpenPort(2), 0);
  line.Send({9});
  ASSERT_TRUE(WaitForInput(1));
  EXPECT_EQ(ser_.TakeInput(), Bytes{9});
}

TEST_F(FrmSerLine, ReopensWithEmptyBuffers) {
  PtyLine line(Link());
  ASSERT_EQ(ser_.OpenPort(2), 0);
  line.Send({1, 2, 3});
  ASSERT_TRUE(WaitForInput(3));
  line.Send({4});
  ser_.ReopenPort();
  EXPECT_EQ(ser_.InputCount(), 0u);
  line.Send({9});
  ASSERT_TRUE(WaitForInput(1));
  EXPECT_EQ(ser_.TakeInput(), Bytes{9});
}

TEST_F(FrmSerLine, HoldsAtMost1024BytesOfAFlood) {
  PtyLine line(Link());
  ASSERT_EQ(ser_.OpenPort(2), 0);
  ExchLength = 15;
  LinkIdentifying = true;
  line.Send(Bytes(3000, 1));
  ser_.WaitBlocking(milliseconds(20));
  EXPECT_LE(ser_.InputCount(), 1024u);
  EXPECT_GE(ser_.InputCount(), 1000u);
}

TEST_F(FrmSerLine, IsQuietWithoutAPort) {
  ser_.Output(Bytes{1, 2});
  ser_.ClosePort();
  EXPECT_EQ(ser_.InputCount(), 0u);
  EXPECT_TRUE(ser_.TakeInput().empty());
}

TEST_F(FrmSerLine, ReportsAPortThatDoesNotExist) {
  std::filesystem::create_symlink("/dev/nonexistent-line", Link());
  EXPECT_EQ(ser_.OpenPort(2), 8002);
}

TEST_F(FrmSerLine, ReportsAPortThatSomebodyElseHasOpened) {
  PtyLine line(Link());
  QSerialPort other(QString::fromStdString(line.device()));
  ASSERT_TRUE(other.open(QIODevice::ReadWrite));
  EXPECT_EQ(ser_.OpenPort(2), 8005);
}

// Root may open everything, so that a device cannot show this.
TEST(OpenErrorNumber, TellsAPortInUseFromOneThatTheUserMayNotOpen) {
  EXPECT_EQ(OpenErrorNumber(QSerialPort::PermissionError, true), 8005);
  EXPECT_EQ(OpenErrorNumber(QSerialPort::PermissionError, false), 70);
  EXPECT_EQ(OpenErrorNumber(QSerialPort::DeviceNotFoundError, false), 8002);
  EXPECT_EQ(OpenErrorNumber(QSerialPort::OpenError, true), 68);
}

TEST_F(FrmSerLine, ReportsAFileThatIsNoPort) {
  folder_.Write("plain", "text");
  std::filesystem::create_symlink((folder_.path() + "/plain").toStdString(), Link());
  EXPECT_EQ(ser_.OpenPort(2), 68);
}

TEST_F(FrmSerLine, UsesNoProcessorTimeWhileTheDeviceIsAway) {
  PtyLine line(Link());
  ASSERT_EQ(ser_.OpenPort(2), 0);
  line.Unplug();
  EXPECT_LT(ProcessorTimeOfASecond(), milliseconds(100));
}

TEST_F(FrmSerLine, OpensTheDeviceAgainWhenItIsBack) {
  PtyLine line(Link());
  ASSERT_EQ(ser_.OpenPort(2), 0);
  const std::string first = line.device();
  line.Unplug();
  ASSERT_TRUE(WaitUntil([&] { return !IsOpenHere(first); }));
  // Other lines take the number of the device that has gone, so that it comes back under another.
  std::list<PtyLine> others;
  do {
    line.Unplug();
    others.emplace_back((folder_.path() + "/com3").toStdString());
    line.Plug();
  } while (line.device() == first);
  EXPECT_TRUE(WaitUntil(
      [&] {
        ser_.Output(Bytes{5});
        return !line.Receive().empty();
      },
      milliseconds(1000)));
}

TEST_F(FrmSerLine, SendsTheLostRequestAgainWithinASecondOfTheReturn) {
  PtyLine line(Link());
  ASSERT_EQ(ser_.OpenPort(2), 0);
  NodeIndex = 0;
  ScanCursor = 1;
  ParamTable[0][1].Period = 2;
  ExchBank = 1;
  ExchAddrHi = 2;
  ExchAddrLo = 3;
  Timer(2)->setInterval(60'000);  // the return of the device has to be enough
  LinkSend();
  ASSERT_TRUE(WaitForOutput(line, {0, 1, 2, 3, 6}));
  line.Unplug();
  ASSERT_TRUE(WaitUntil([&] { return !IsOpenHere(line.device()); }));
  line.Plug();
  EXPECT_TRUE(WaitForOutput(line, {0, 1, 2, 3, 6}, milliseconds(1000)));
}

TEST_F(FrmSerLine, OpensAPortThatAppearsAfterTheReopen) {
  EXPECT_EQ(ser_.OpenPort(2), 8002);
  ser_.ReopenPort();
  PtyLine line(Link());
  EXPECT_TRUE(WaitUntil(
      [&] {
        ser_.Output(Bytes{5});
        return !line.Receive().empty();
      },
      milliseconds(1000)));
}

TEST_F(FrmSerLine, LeavesAClosedPortClosed) {
  PtyLine line(Link());
  ASSERT_EQ(ser_.OpenPort(2), 0);
  line.Unplug();
  ASSERT_TRUE(WaitUntil([&] { return !IsOpenHere(line.device()); }));
  ser_.ClosePort();
  // What would have opened the device again comes before this one's first try.
  FrmSer other(settings_, bar_);
  EXPECT_NE(other.OpenPort(2), 0);
  other.ReopenPort();
  line.Plug();
  EXPECT_TRUE(WaitUntil([&] {
    ser_.Output(Bytes{5});
    other.Output(Bytes{6});
    return !line.Receive().empty();
  }));
  ser_.Output(Bytes{5});
  other.Output(Bytes{7});
  EXPECT_TRUE(WaitForOutput(line, {7}));
}

TEST_F(FrmSerLine, CollectsInputInSilenceDuringABlockingWait) {
  PtyLine line(Link());
  ASSERT_EQ(ser_.OpenPort(2), 0);
  ExchLength = 0;
  ser_.EnableTimer(LinkTimer::Timer1);
  std::thread machine([&] {
    for (const std::uint8_t byte : {3, 3}) {
      line.WaitForInput(milliseconds(1000));
      line.Send({byte});
    }
  });
  ser_.Output(Bytes{0, 0, 0, 0, 0});
  QElapsedTimer clock;
  clock.start();
  ser_.WaitBlocking(milliseconds(200));
  machine.join();
  EXPECT_GE(clock.elapsed(), 199);
  EXPECT_LT(clock.elapsed(), 400);
  EXPECT_FALSE(LinkIdle) << "the receive event ran";
  EXPECT_EQ(ser_.TakeInput(), (Bytes{3, 3}));
}

TEST_F(FrmSerLine, WaitsOutABlockingWaitOnADeviceThatHasGone) {
  PtyLine line(Link());
  ASSERT_EQ(ser_.OpenPort(2), 0);
  line.Unplug();
  const auto before = ProcessorTime();
  QElapsedTimer clock;
  clock.start();
  ser_.WaitBlocking(milliseconds(500));
  EXPECT_GE(clock.elapsed(), 499);
  EXPECT_LT(ProcessorTime() - before, milliseconds(50));
}

TEST_F(FrmSerLine, FollowsTheLinkToTheDeviceThatItNamesNow) {
  folder_.Write("line", "");
  const QString device = DeviceOfPort(folder_.path(), 2);
  std::filesystem::create_symlink((folder_.path() + "/line").toStdString(), Link());
  EXPECT_EQ(DeviceOfPort(folder_.path(), 2), folder_.path() + "/com2");
  EXPECT_NE(device, folder_.path() + "/com2");
  EXPECT_EQ(ResolveDevice(folder_.path() + "/com2"), QFileInfo(folder_.path() + "/line").canonicalFilePath());
  QFile::remove(folder_.path() + "/line");
  EXPECT_EQ(DeviceOfPort(folder_.path(), 2), folder_.path() + "/com2");
  EXPECT_EQ(ResolveDevice(folder_.path() + "/com2"), "");
}

TEST_F(FrmSerTimers, HaveTheirIntervalsAndStartDisabled) {
  const int intervals[] = {40, 1000, 500, 500, 2000};
  for (int n = 1; n <= 5; ++n) {
    ASSERT_NE(Timer(n), nullptr);
    EXPECT_EQ(Timer(n)->interval(), intervals[n - 1]);
    EXPECT_EQ(Timer(n)->timerType(), Qt::PreciseTimer);
    EXPECT_FALSE(Timer(n)->isActive());
    EXPECT_FALSE(Timer(n)->isSingleShot());
  }
}

TEST_F(FrmSerTimers, FireTheirEvents) {
  IdentTimedOut = false;
  Timer(5)->setInterval(1);
  ser_.EnableTimer(LinkTimer::Timer5);
  EXPECT_TRUE(WaitUntil([] { return IdentTimedOut; }));
  ser_.DisableTimer(LinkTimer::Timer5);
  EXPECT_FALSE(Timer(5)->isActive());
}

TEST_F(FrmSerTimers, EnablingARunningTimerLeavesItRunning) {
  Timer(2)->setInterval(60'000);
  ser_.EnableTimer(LinkTimer::Timer2);
  ASSERT_TRUE(WaitUntil([this] { return Timer(2)->remainingTime() < 59'990; }));
  ser_.EnableTimer(LinkTimer::Timer2);
  EXPECT_LT(Timer(2)->remainingTime(), 59'990);
  ser_.DisableTimer(LinkTimer::Timer2);
  EXPECT_FALSE(Timer(2)->isActive());
}

TEST_F(FrmSerTimers, AScanTickThatIsOnTimeRunsOnThroughItsOwnEvents) {
  int ticks_that_ran_on = 0;
  int stops_and_starts = 0;
  QObject::connect(Timer(1), &QTimer::timeout, [&] {
    ticks_that_ran_on += stops_and_starts == 0;
    stops_and_starts = 0;
  });
  ser_.EnableTimer(LinkTimer::Timer1);
  {
    const auto watch = Timer(1)->bindableActive().addNotifier([&] { ++stops_and_starts; });
    EXPECT_TRUE(WaitUntil([&] { return ticks_that_ran_on >= 2; }));
  }
  ser_.DisableTimer(LinkTimer::Timer1);
  EXPECT_FALSE(Timer(1)->isActive());
}

TEST_F(FrmSerTimers, AScanTickBehindALateOneKeepsItsDistance) {
  std::vector<std::chrono::microseconds> ticks;
  QObject::connect(Timer(1), &QTimer::timeout, [&] { ticks.push_back(ser_.Now()); });
  ser_.EnableTimer(LinkTimer::Timer1);
  ser_.WaitBlocking(milliseconds(60));  // a program that is busy for so long
  ASSERT_TRUE(WaitUntil([&] { return ticks.size() >= 2; }));
  EXPECT_GT(ticks[1] - ticks[0], milliseconds(30));
}

TEST(ScanTick, IsLateWhenTheNextOneWouldComeLessThan38MillisecondsBehindIt) {
  using std::chrono::microseconds;
  EXPECT_FALSE(IsLateTick(microseconds(500000), microseconds(500100)));
  EXPECT_FALSE(IsLateTick(microseconds(500000), microseconds(502000)));
  EXPECT_TRUE(IsLateTick(microseconds(500000), microseconds(502001)));
  EXPECT_TRUE(IsLateTick(microseconds(500000), microseconds(560000)));
}

TEST_F(FrmSerTimers, TheClockNeverRunsBackward) {
  const std::chrono::microseconds before = ser_.Now();
  ser_.WaitBlocking(milliseconds(10));
  EXPECT_GE(ser_.Now() - before, milliseconds(10));
  EXPECT_LT(ser_.Now() - before, milliseconds(1000));
}

TEST_F(FrmSerShell, PumpingWaitsForAnEventWithoutProcessorTime) {
  QTimer event;
  event.setSingleShot(true);
  bool fired = false;
  QObject::connect(&event, &QTimer::timeout, [&] { fired = true; });
  event.start(300);
  const auto before = ProcessorTime();
  while (!fired) {
    ser_.PumpEvents();
  }
  EXPECT_LT(ProcessorTime() - before, milliseconds(50));
}

TEST_F(FrmSerShell, UnloadStopsAllAndEndsAWaitThatPumps) {
  PtyLine line(Link());
  ASSERT_EQ(ser_.OpenPort(2), 0);
  ser_.EnableTimer(LinkTimer::Timer1);
  ser_.Unload();
  EXPECT_FALSE(Timer(1)->isActive());
  ser_.Output(Bytes{1});
  EXPECT_TRUE(line.Receive().empty());
  QTimer::singleShot(0, [] {});
  EXPECT_THROW(ser_.PumpEvents(), ProgramEnds);
}

TEST_F(FrmSerShell, TicksThePortsOneToFour) {
  int changes = 0;
  QObject::connect(&ser_, &FrmSer::PortTicksChanged, [&] { ++changes; });
  ser_.TickPort(4, true);
  EXPECT_TRUE(settings_.mnuCox[4]);
  ser_.TickPort(4, false);
  EXPECT_FALSE(settings_.mnuCox[4]);
  ser_.TickPort(0, true);
  ser_.TickPort(5, true);
  EXPECT_EQ(changes, 2);
}

TEST_F(FrmSerShell, ShowsAndClearsTheTextOfTheStatusBar) {
  const auto* panel = bar_.findChild<QLabel*>("Panels(1)");
  ser_.ShowStatusText("Trying Com1");
  EXPECT_EQ(panel->text(), "Trying Com1");
  ser_.ClearStatusText();
  EXPECT_EQ(panel->text(), "");
}

TEST_F(FrmSerShell, AsksTheOperatorThroughTheMessageBox) {
  screen_.answers = {BoxAnswer::kRetry};
  EXPECT_EQ(ser_.MsgBox("Check serial !\nBoard Not Ready", "Serial", BoxStyle::kRetryCancel),
            BoxAnswer::kRetry);
  const Box expected = {"Check serial !\nBoard Not Ready", "Serial", BoxStyle::kRetryCancel};
  EXPECT_EQ(screen_.boxes, std::vector<Box>{expected});
}

TEST_F(FrmSerShell, ReadsAndWritesThePortOfTheOwnSettings) {
  folder_.Write("dosmara.ini", "Com=3\nLingua=x\n");
  EXPECT_EQ(ser_.ReadSettingsPort(), 3);
  ser_.WriteDefaultPort();
  EXPECT_EQ(folder_.Read("dosmara.ini"), "Com=1\n");
}

TEST_F(FrmSerShell, IsNeverSeen) {
  EXPECT_EQ(ser_.size(), QSize(0, 0));
  EXPECT_EQ(ser_.objectName(), "FrmSer");
}

TEST_F(FrmSerShell, HearsOfNoArrivalAndIsNotUnloadedWithTheForms) {
  EXPECT_TRUE(LoadedForms.empty());
  ser_.EnableTimer(LinkTimer::Timer1);
  UnloadDataForms();
  EXPECT_TRUE(Timer(1)->isActive());
}

}  // namespace
}  // namespace dosmara
