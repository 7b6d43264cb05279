// SPDX-License-Identifier: GPL-3.0-or-later
// The program dosmara-machine from outside: its line, its commands, its end.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "machine/pty.h"
#include "temp_folder.h"

namespace machine {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// Waits for input with a deadline.
bool Readable(int descriptor, std::chrono::milliseconds deadline) {
  pollfd wait{.fd = descriptor, .events = POLLIN, .revents = 0};
  return poll(&wait, 1, static_cast<int>(deadline.count())) == 1;
}

class ProgramTest : public testing::Test {
 protected:
  ~ProgramTest() override {
    if (child_ > 0) {
      kill(child_, SIGKILL);
      waitpid(child_, nullptr, 0);
    }
    for (const int end : {commands_, replies_}) {
      if (end >= 0) {
        close(end);
      }
    }
  }

  void Start(std::vector<std::string> arguments) {
    int to_child[2];
    int from_child[2];
    ASSERT_EQ(pipe2(to_child, O_CLOEXEC), 0);
    ASSERT_EQ(pipe2(from_child, O_CLOEXEC), 0);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, to_child[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, from_child[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, from_child[1], STDERR_FILENO);
    arguments.insert(arguments.begin(), MACHINE_PROGRAM);
    std::vector<char*> argv;
    for (std::string& argument : arguments) {
      argv.push_back(argument.data());
    }
    argv.push_back(nullptr);
    ASSERT_EQ(posix_spawn(&child_, MACHINE_PROGRAM, &actions, nullptr, argv.data(), environ), 0);
    posix_spawn_file_actions_destroy(&actions);
    close(to_child[0]);
    close(from_child[1]);
    commands_ = to_child[1];
    replies_ = from_child[0];
  }

  // Starts the machine with its usual boards and a link, and waits until it is ready.
  void StartMachine(std::vector<std::string> more = {}) {
    std::vector<std::string> arguments = {"--boards", MACHINE_BOARDS, "--link", link().string()};
    arguments.insert(arguments.end(), more.begin(), more.end());
    Start(arguments);
    ASSERT_EQ(ReadLine().substr(0, 6), "ready ");
  }

  std::string ReadLine() {
    std::string line;
    char character = 0;
    while (Readable(replies_, 10s) && read(replies_, &character, 1) == 1 && character != '\n') {
      line += character;
    }
    return line;
  }

  std::string Command(const std::string& line) {
    const std::string whole = line + "\n";
    EXPECT_EQ(write(commands_, whole.data(), whole.size()), static_cast<ssize_t>(whole.size()));
    return ReadLine();
  }

  // Asks every 20 ms of the machine's time until `condition` holds; false after a deadline.
  bool Comes(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    while (!condition()) {
      if (std::chrono::steady_clock::now() > deadline) {
        return false;
      }
      EXPECT_EQ(Command("wait 20"), "ok");
    }
    return true;
  }
  bool Replies(const std::string& command, const std::string& reply) {
    return Comes([&] { return Command(command) == reply; });
  }

  // Opens the line by its link, sends the port test and returns what comes back, two bytes at most.
  Bytes PortTest() {
    const Descriptor line(open(link().c_str(), O_RDWR | O_NOCTTY));
    EXPECT_GE(line.number(), 0);
    const Bytes zeros(5);
    EXPECT_EQ(write(line.number(), zeros.data(), zeros.size()), 5);
    Bytes reply;
    std::uint8_t byte = 0;
    while (reply.size() < 2 && Readable(line.number(), 10s) && read(line.number(), &byte, 1) == 1) {
      reply.push_back(byte);
    }
    return reply;
  }

  // The exit code, once the program has ended by itself; -1 if it does not.
  int ExitCode() {
    bool ended = false;
    while (!ended && Readable(replies_, 10s)) {
      char rest[256];
      ended = read(replies_, rest, sizeof rest) <= 0;
    }
    if (!ended) {
      kill(child_, SIGKILL);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child_, &status, 0), child_);
    child_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  fs::path link() const { return folder_ / "com1"; }

  TempFolder folder_;
  pid_t child_ = -1;
  int commands_ = -1;
  int replies_ = -1;
};

TEST_F(ProgramTest, AnswersOverItsLinkAgainAndAgain) {
  StartMachine();
  EXPECT_EQ(PortTest(), (Bytes{0, 0}));
  EXPECT_EQ(PortTest(), (Bytes{0, 0})) << "after the tool has closed the line";
}

TEST_F(ProgramTest, AnswersEachCommandWithOneLine) {
  StartMachine({"--model", "24", "--absent", "2"});
  EXPECT_EQ(Command("set 0 312 0"), "ok");
  EXPECT_EQ(Command("get 0 312"), "ok 0 312 0");
  EXPECT_EQ(Command("get 0 313"), "ok 0 313 0");
  EXPECT_EQ(Command("dance"), "error: no command 'dance', try help");
  EXPECT_NE(Command("status").find(" model 24 plugged yes "), std::string::npos);
}

TEST_F(ProgramTest, RunsAScriptFirst) {
  std::ofstream(folder_ / "script") << "# closes node 1\nset 0 312 0\n";
  StartMachine({"--script", (folder_ / "script").string()});
  EXPECT_EQ(ReadLine(), "ok");
  EXPECT_EQ(Command("get 0 312"), "ok 0 312 0");
}

TEST_F(ProgramTest, PlaysAScenarioInAFastDay) {
  const fs::path day = folder_ / "a day";
  std::ofstream(day) << "clock 08:00\nat 08:30 languages 8\n";
  StartMachine({"--scenario", day.string(), "--speed", "3600"});
  EXPECT_TRUE(Replies("get 0 317", "ok 0 317 12"));
}

// One customer a second who finds no drinks: which product is handed out first is decided by the seed.
TEST_F(ProgramTest, TheSameSeedAndScenarioGiveTheSameRun) {
  const std::string day = (folder_ / "day").string();
  std::ofstream(day) << "clock 08:00\nset 1 34 0\nset 1 35 0\nset 1 36 0\ncustomers 3600\n"
                        "at 08:00:30 customers 0\nat 08:00:40 languages 8\n";
  const auto run = [&](const char* seed) {
    StartMachine({"--scenario", day, "--speed", "60", "--seed", seed, "--log", (folder_ / seed).string()});
    EXPECT_TRUE(Replies("get 0 317", "ok 0 317 12"));
    const auto idle = [this] { return Command("status").find(" dispensing no ") != std::string::npos; };
    EXPECT_TRUE(Comes(idle));
    std::string counters;
    for (const char* node : {"get 2 ", "get 3 "}) {
      for (int record = 71; record <= 118; ++record) {
        counters += Command(node + std::to_string(record));
      }
    }
    EXPECT_EQ(Command("quit"), "ok");
    EXPECT_EQ(ExitCode(), 0);
    close(commands_);
    close(replies_);
    std::ifstream log(folder_ / seed);
    return counters + std::string(std::istreambuf_iterator<char>(log), {});
  };
  const std::string first = run("5");
  EXPECT_NE(first.find("scenario: customers 0: ok"), std::string::npos);
  EXPECT_EQ(first, run("5"));
  EXPECT_NE(first, run("6"));
  commands_ = replies_ = -1;
}

TEST_F(ProgramTest, RefusesABadScenarioInOneLineWithCode1) {
  const std::string day = (folder_ / "day").string();
  std::ofstream(day) << "at 08:00 dance\n";
  Start({"--boards", MACHINE_BOARDS, "--scenario", day});
  EXPECT_EQ(ReadLine(), "dosmara-machine: " + day + ":1: no command 'dance', try help");
  EXPECT_EQ(ExitCode(), 1);
}

TEST_F(ProgramTest, HelpNamesOptionsAndCommands) {
  Start({"--help"});
  std::string text;
  for (std::string line = ReadLine(); text.find("ends the program") == std::string::npos; line = ReadLine()) {
    text += line + "\n";
    if (text.size() > 100000) {
      break;
    }
  }
  EXPECT_NE(text.find("--scenario FILE"), std::string::npos);
  EXPECT_NE(text.find("  vend SELECTION"), std::string::npos);
  EXPECT_EQ(ExitCode(), 0);
}

TEST_F(ProgramTest, UnplugTakesTheLinkAwayAndReplugBringsItBack) {
  StartMachine();
  const Descriptor line(open(link().c_str(), O_RDWR | O_NOCTTY));
  EXPECT_EQ(Command("unplug"), "ok");
  EXPECT_FALSE(fs::exists(fs::symlink_status(link())));
  char byte = 0;
  EXPECT_LE(read(line.number(), &byte, 1), 0) << "an open line has come to its end";
  EXPECT_EQ(Command("replug"), "ok");
  EXPECT_EQ(PortTest(), (Bytes{0, 0}));
}

TEST_F(ProgramTest, LeavesTheLineRaw) {
  StartMachine();
  const Descriptor line(open(link().c_str(), O_RDWR | O_NOCTTY));
  termios settings{};
  ASSERT_EQ(tcgetattr(line.number(), &settings), 0);
  EXPECT_EQ(settings.c_lflag & (ECHO | ICANON | ISIG), 0u);
  EXPECT_EQ(settings.c_oflag & OPOST, 0u);
  EXPECT_EQ(settings.c_iflag & (ICRNL | INLCR | IXON), 0u);
}

TEST(Pty, NeverWaitsForAToolThatDoesNotRead) {
  Pty line("");
  for (int i = 0; i < 1000; ++i) {
    line.Write(Bytes(1000));
  }
}

TEST(Pty, GivesNothingWhenTheToolHasWrittenNothing) { EXPECT_TRUE(Pty("").Read().empty()); }

TEST(Pty, TakesThePlaceOfAnOldLinkAndLeavesALinkThatIsNoLongerItsOwn) {
  const TempFolder folder;
  const fs::path link = folder / "com1";
  fs::create_symlink("/nowhere", link);
  const Pty first(link);
  EXPECT_EQ(fs::read_symlink(link), first.device());
  {
    const Pty second(link);
    EXPECT_EQ(fs::read_symlink(link), second.device());
    fs::remove(link);
    fs::create_symlink(first.device(), link);
  }
  EXPECT_EQ(fs::read_symlink(link), first.device());
}

TEST_F(ProgramTest, RefusesToReplaceWhatIsNoLink) {
  for (const char* name : {"com1", "com1.new"}) {
    std::ofstream(folder_ / name) << "kept";
    Start({"--boards", MACHINE_BOARDS, "--link", link().string()});
    EXPECT_EQ(ReadLine(), "dosmara-machine: " + (folder_ / name).string() + " is no link: File exists");
    EXPECT_EQ(ExitCode(), 1);
    std::string text;
    std::getline(std::ifstream(folder_ / name), text);
    EXPECT_EQ(text, "kept");
    fs::remove(folder_ / name);
    close(commands_);
    close(replies_);
  }
  commands_ = replies_ = -1;
}

TEST_F(ProgramTest, TheEndOfItsCommandsIsNotItsEnd) {
  StartMachine();
  close(commands_);
  commands_ = -1;
  EXPECT_EQ(PortTest(), (Bytes{0, 0}));
}

TEST_F(ProgramTest, GoesOnAnsweringAndEndsOnASignalWhenNobodyReadsItsReplies) {
  StartMachine();
  std::string commands;
  for (int i = 0; i < 2000; ++i) {
    commands += "help\n";
  }
  ASSERT_EQ(write(commands_, commands.data(), commands.size()), static_cast<ssize_t>(commands.size()));
  const auto full = [this] {
    int unread = 0;
    ioctl(replies_, FIONREAD, &unread);
    return unread > 50000;
  };
  const auto deadline = std::chrono::steady_clock::now() + 10s;
  while (!full() && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::yield();
  }
  ASSERT_TRUE(full());
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(PortTest(), (Bytes{0, 0}));
  }
  kill(child_, SIGTERM);
  EXPECT_EQ(ExitCode(), 0);
}

TEST_F(ProgramTest, LosesNoReplyOfAReaderWhoIsSlow) {
  StartMachine();
  std::string commands;
  for (int i = 0; i < 400; ++i) {
    commands += "help\nget 0 " + std::to_string(1 + i % 300) + "\n";
  }
  ASSERT_EQ(write(commands_, commands.data(), commands.size()), static_cast<ssize_t>(commands.size()));
  for (int i = 0; i < 400; ++i) {
    ASSERT_EQ(ReadLine().substr(0, 8), "ok help,") << i;
    ASSERT_TRUE(ReadLine().starts_with("ok 0 " + std::to_string(1 + i % 300) + " ")) << i;
  }
}

TEST_F(ProgramTest, SaysOnceThatTheDiskUnderItsLogIsFull) {
  StartMachine({"--log", "/dev/full"});
  EXPECT_EQ(PortTest(), (Bytes{0, 0}));
  EXPECT_EQ(ReadLine(), "dosmara-machine: /dev/full: No space left on device, the log is off");
  EXPECT_EQ(PortTest(), (Bytes{0, 0}));
  EXPECT_EQ(Command("mute off"), "ok") << "and not a second time";
}

TEST_F(ProgramTest, EndsInOrderOnQuitAndOnSignals) {
  StartMachine();
  EXPECT_EQ(Command("quit\nstatus"), "ok");
  EXPECT_EQ(ReadLine(), "") << "nothing is carried out behind it";
  EXPECT_EQ(ExitCode(), 0);
  EXPECT_FALSE(fs::exists(fs::symlink_status(link())));
  for (const int signal : {SIGTERM, SIGINT}) {
    close(commands_);
    close(replies_);
    StartMachine();
    kill(child_, signal);
    EXPECT_EQ(ExitCode(), 0);
    EXPECT_FALSE(fs::exists(fs::symlink_status(link())));
  }
}

TEST_F(ProgramTest, RefusesABadOptionInOneLineWithCode2) {
  Start({"--colour"});
  EXPECT_EQ(ReadLine(), "dosmara-machine: no option '--colour', try --help");
  EXPECT_EQ(ExitCode(), 2);
}

TEST_F(ProgramTest, NamesAFileThatIsMissingWithCode1) {
  Start({"--boards", folder_.path().string()});
  EXPECT_EQ(ReadLine(), "dosmara-machine: " + (folder_ / "W0256.inx").string() + ": cannot be read");
  EXPECT_EQ(ExitCode(), 1);
  const std::string missing = (folder_ / "none" / "com1").string();
  const struct {
    std::string option, argument, reason;
  } bad[] = {{"--link", missing, ": No such file or directory"},
             {"--log", missing, ": cannot be written"},
             {"--names", missing, ": no such folder"},
             {"--script", folder_.path().string(), ": cannot be read"},
             {"--scenario", folder_.path().string(), ": cannot be read"}};
  for (const auto& [option, argument, reason] : bad) {
    close(commands_);
    close(replies_);
    Start({"--boards", MACHINE_BOARDS, option, argument});
    EXPECT_EQ(ReadLine(), "dosmara-machine: " + argument + reason);
    EXPECT_EQ(ExitCode(), 1);
  }
}

TEST_F(ProgramTest, LogsFramesToAFile) {
  StartMachine({"--log", (folder_ / "log").string()});
  PortTest();
  EXPECT_EQ(Command("quit"), "ok");
  EXPECT_EQ(ExitCode(), 0);
  std::ifstream log(folder_ / "log");
  std::string in;
  std::string out;
  ASSERT_TRUE(std::getline(log, in) && std::getline(log, out));
  EXPECT_TRUE(in.ends_with(" 00 00 00 00 00"));
  EXPECT_TRUE(out.ends_with(" 00 00"));
}

}  // namespace
}  // namespace machine
