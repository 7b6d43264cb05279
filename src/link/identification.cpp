// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/identification.h"

#include <optional>
#include <string>

#include "link/link_engine.h"
#include "store/failure.h"
#include "store/index_files.h"
#include "store/parameter_table.h"

namespace dosmara {

std::uint8_t PortNumber;
std::int16_t ModelCode;

namespace {

constexpr std::chrono::milliseconds kPortTestTime{500};

// Entries of IdentTable, each read as one byte.
constexpr int kEntryPresence = 1;
constexpr int kEntryRevision = 11;
constexpr int kEntryBoardCode = 12;
constexpr int kEntryTypeLow = 13;
constexpr int kEntryTypeHigh = 14;
constexpr int kEntryFileNumber = 17;
constexpr int kEntryModel = 18;

[[noreturn]] void TellAndEnd(const std::string& text, const std::string& title) {
  Host().MsgBox(text, title, BoxStyle::kCritical);
  throw ProgramEnds();
}

// PortNumber from the settings file. Returns 0, or the number for the message box.
int TakePortFromSettings() {
  try {
    PortNumber = static_cast<std::uint8_t>(Host().ReadSettingsPort());
    return 0;
  } catch (const RunTimeError& error) {
    return error.number();
  }
}

// What is wrong with a port: the number for the message box, and what the status bar says.
struct PortTrouble {
  int number = 0;  // 0: a board has answered
  const char* words = "";
};

const char* OpenTroubleWords(int number) {
  switch (number) {
    case kErrorInvalidPort:
      return "no such device";
    case kErrorPortBusy:
      return "in use";
    case kErrorPermissionDenied:
      return "not permitted";
    default:
      return "cannot be opened";
  }
}

std::string PortName() { return "Com" + std::to_string(PortNumber); }

// Opens PortNumber and asks for a board on it.
PortTrouble TestPort() {
  for (int port = kFirstPort; port <= kLastPort; ++port) {
    Host().TickPort(port, false);
  }
  Host().TickPort(PortNumber, true);
  Host().ClosePort();
  const bool exists = PortNumber >= kFirstPort && PortNumber <= kLastPort;
  if (const int error = exists ? Host().OpenPort(PortNumber) : kErrorInvalidPort) {
    return {error, OpenTroubleWords(error)};
  }
  Host().Output(PortTestFrame());
  Host().WaitBlocking(kPortTestTime);
  Bytes input = Host().TakeInput();
  const char* const words = input.empty() ? "no answer" : "wrong answer";
  if (input.empty()) {
    input = {'X', 'Y'};
  }
  ReplyData = {input[0]};
  if (input.size() == 2 && input[0] == input[1]) {
    return {};
  }
  return {kErrorDeviceUnavailable, words};
}

// Ends the wait for a reply, whether it came or not. If Timer2 ran on, it would repeat a request while the
// next one is out, and each reply after it would be taken for the reply to the request behind.
void GiveUpExchange() {
  Host().DisableTimer(LinkTimer::Timer2);
  LinkIdle = true;
  RetryCount = 0;
}

// Reads entry k of the node's identification as one byte. Returns nothing for a silent node other than 0.
// When the main board is silent, the operator is asked: it is tried again, or the program ends.
std::optional<std::uint8_t> SendIdentRead(int node, int k) {
  const auto& entry = IdentTable[node][k];
  ExchAddrLo = entry[offsetof(ParamRec, AddrLo)];
  ExchAddrHi = entry[offsetof(ParamRec, AddrHi)];
  ExchControl = entry[offsetof(ParamRec, Control)];
  ExchBank = entry[offsetof(ParamRec, Bank)];
  ExchLength = 0;
  for (;;) {
    ReplyData.clear();
    IdentTimedOut = false;
    Host().DisableTimer(LinkTimer::Timer5);
    Host().EnableTimer(LinkTimer::Timer5);
    NodeIndex = static_cast<std::uint8_t>(node);
    LinkSend();
    while (!LinkIdle && !IdentTimedOut) {
      Host().PumpEvents();
    }
    GiveUpExchange();
    NodePresent[node] = !ReplyData.empty();
    if (NodePresent[node]) {
      return ReplyData[0];
    }
    if (node != 0) {
      ReplyData = {0};
      return std::nullopt;
    }
    if (Host().MsgBox("Check serial !\nBoard Not Ready", "Serial", BoxStyle::kRetryCancel) !=
        BoxAnswer::kRetry) {
      throw ProgramEnds();
    }
  }
}

// Ends the program if the main board is not one that this program fits. Of several reasons the last one is
// told.
void RefuseForeignMainBoard(const BoardIdentity& board) {
  std::string text;
  if (board.board_code != kBoardCode) {
    text = "Not Compatible\nBoard";
  }
  if (board.board_type != NodeType[0]) {
    text = "Not Compatible\nBoard Type";
  }
  if (board.revision != NodeRevision[0] || ModelCode < kLowestModel) {
    text = "Not Compatible\nBoard Software";
  }
  if (!text.empty()) {
    TellAndEnd(text, "ERROR");
  }
}

using IndexLoad = void(const std::filesystem::path& folder, const std::string& name, int node);

// Runs one of the two loads; tells the operator of a file that is missing.
void LoadOrEnd(IndexLoad load, const std::filesystem::path& folder, const std::string& name, int node) {
  try {
    load(folder, name, node);
  } catch (const RunTimeError& error) {
    if (error.number() != kErrorFileNotFound) {
      throw;
    }
    TellAndEnd(error.what(), "ERROR");
  }
}

// What the operator reads of a failure of the start.
std::string StartFailureText(const RunTimeError& error) {
  if (error.number() == kErrorFileNotFound && NodeRecordCount[0] > 0) {
    return "New Board\nOld Program";
  }
  std::string text = "Reinstall Program";
  const bool damaged_file = error.number() == kErrorOutOfRange || error.number() == kErrorOverflow;
  if (damaged_file) {
    text += std::string("\n") + error.what();
  }
  return text;
}

}  // namespace

void LinkOpenPort(int port) {
  PortTrouble trouble;
  if (port != 0) {
    PortNumber = static_cast<std::uint8_t>(port);
  } else {
    trouble.number = TakePortFromSettings();
  }
  bool second_pass = false;
  std::string last_port;  // the port tried before and what is wrong with it
  for (;;) {
    if (trouble.number == 0) {
      Host().ShowStatusText("Trying " + PortName() + (last_port.empty() ? "" : " - " + last_port));
      trouble = TestPort();
      if (trouble.number == 0) {
        Host().ClearStatusText();
        return;
      }
      last_port = PortName() + ": " + trouble.words;
    }
    Host().TickPort(PortNumber, false);
    if (PortNumber >= kLastPort) {
      if (second_pass) {
        Host().ShowStatusText(last_port);
        TellAndEnd("Check serial !\nSerial device unavailable\nor Board Not Ready",
                   "ERROR " + std::to_string(trouble.number));
      }
      PortNumber = kFirstPort;
      second_pass = true;
    } else {
      ++PortNumber;
    }
    if (trouble.number == kErrorFileNotFound) {
      Host().WriteDefaultPort();
      PortNumber = kFirstPort;
    }
    trouble = {};
  }
}

BoardIdentity BoardIdentify(int node) {
  if (node < 0 || node >= kNodeCount) {
    StopProgram("BoardIdentify: no such node");
  }
  BoardIdentity board;
  // The reads in their order; the first one without an answer is the last. Each adds its byte, times
  // `factor`, to its result.
  struct Read {
    int entry;
    int* result;
    int factor;
  };
  int presence = 0;
  const Read reads[] = {{kEntryPresence, &presence, 1},        {kEntryFileNumber, &board.file_number, 1},
                        {kEntryRevision, &board.revision, 1},  {kEntryBoardCode, &board.board_code, 1},
                        {kEntryTypeLow, &board.board_type, 1}, {kEntryTypeHigh, &board.board_type, 256}};
  for (const Read& read : reads) {
    const std::optional<std::uint8_t> reply = SendIdentRead(node, read.entry);
    if (!reply) {
      return board;
    }
    *read.result += *reply * read.factor;
  }
  if (node != 0) {
    return board;
  }
  ModelCode = SendIdentRead(node, kEntryModel).value_or(0);
  RefuseForeignMainBoard(board);
  return board;
}

void ParamLoadIndex(const std::filesystem::path& folder) {
  for (int node = 0; node < kNodeCount; ++node) {
    LoadOrEnd(LoadSmallIndex, folder, SmallIndexName(NodeType[node]), node);
  }
  for (int node = 0; node < kNodeCount; ++node) {
    const BoardIdentity board = BoardIdentify(node);
    if (!NodePresent[node]) {
      continue;
    }
    LoadOrEnd(LoadFullIndex, folder, FullIndexName(board.board_type, board.revision, board.file_number),
              node);
  }
  Host().DisableTimer(LinkTimer::Timer2);
  NodeIndex = 0;
  SetLinkStatus(3);
}

void LinkStart(const std::filesystem::path& folder) {
  LinkIdentifying = true;
  try {
    LinkOpenPort(0);
    ParamLoadIndex(folder);
  } catch (const RunTimeError& error) {
    if (error.number() != kErrorFileExists) {
      TellAndEnd(StartFailureText(error), "ERROR " + std::to_string(error.number()));
    }
  }
  LinkIdentifying = false;
  LinkIdle = true;
  Host().EnableTimer(LinkTimer::Timer1);
}

}  // namespace dosmara
