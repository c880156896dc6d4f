// Random argument blocks through every command of the remote API that has a
// handler and the five file verbs, sent through the module's Execute by a user
// who holds the firm and by one who only reads it. An input either goes to one
// command it picks or, when it asks, to every command with a handler in turn.
// Input: byte 0 and 1 pick the command, byte 2 holds the flags (bit 0: sent by
// the reader; bit 1: the reader opens the firm first; bit 2: every command;
// bit 3: a file verb), the rest is the block. Whatever the block, Execute must answer with
// (name, result, block) and nothing may read or write outside a buffer; after
// every request the holder still holds its firm or can take it again.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <unistd.h>

#include "api/CommandTable.h"
#include "api/FileVerbRecords.h"
#include "api/RecordFields.h"
#include "host/ZENT_DL.h"
#include "support/Alert.h"

namespace {

constexpr int kPort = 7001;
constexpr int kHolder = 1;
constexpr int kReader = 2;
const char* const kFileVerbs[] = {"DLGetClassList", "DLGetFirmList", "DLOpenFile", "DLUpdateFile", "DLCloseFile"};
constexpr std::size_t kFileVerbCount = sizeof kFileVerbs / sizeof kFileVerbs[0];

// Sends one "ZDealerAPI" request; aborts when the reply is not (name, result, block).
int Send(const std::string& command, std::vector<unsigned char> block, int user) {
  CAlert message;
  message << command << block;
  message.set_begin();
  Execute("ZDealerAPI", message, user, kPort, "fuzz" + std::to_string(user));
  message.set_begin();
  std::string name;
  int result = -1;
  std::vector<unsigned char> reply;
  try {
    message >> name >> result >> reply;
  } catch (const CAlertException&) {
    std::abort();
  }
  if (name != command) std::abort();
  return result;
}

int Open(int user, int mode) {
  TDL_DLOpenFile record{"FUZZ", mode};
  std::vector<unsigned char> block;
  StoreDataForZDealerAPI(record, block);
  return Send("DLOpenFile", block, user);
}

// The names of the rows that have a handler, in the table's order.
std::vector<std::string> HandledCommands() {
  std::vector<std::string> names;
  for (const DL::TCommandRow& row : DL::kCommandTable)
    if (row.handler != nullptr) names.emplace_back(row.name);
  return names;
}

// A library folder of its own and the port registered with it, once per process.
bool Setup() {
  namespace fs = std::filesystem;
  fs::path dir = fs::temp_directory_path() / ("zdl_dispatch_fuzz_" + std::to_string(::getpid()));
  fs::create_directories(dir);
  std::ofstream(dir / "fuzz.ini") << "[General]\nCALCVARMARGIN=1\nUsePGO=0\n[cl_C1]\nLeverage=2\n";
  std::ofstream(dir / "dl.ini") << "[dealer-library]\nFUZZ=fuzz.ini\n";
  if (InitDB((dir / "dl.ini").string(), "", kPort) != 1) std::abort();
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const bool ready = Setup();
  static const std::vector<std::string> commands = HandledCommands();
  (void)ready;
  if (size < 3) return 0;
  const int user = (data[2] & 1) != 0 ? kReader : kHolder;
  const std::vector<unsigned char> block(data + 3, data + size);
  // The holder takes the firm again whenever an earlier request let it go;
  // the reader opens it again when the input asks for it.
  auto prepare = [&] {
    if (GetDLInUse(kHolder, kPort) != "FUZZ") (void)Open(kHolder, 0);
    if ((data[2] & 2) != 0) (void)Open(kReader, 1);
  };
  if ((data[2] & 4) != 0) {
    for (const std::string& command : commands) {
      prepare();
      Send(command, block, user);
    }
    return 0;
  }
  // Byte 2 bit 3 picks a file verb by byte 0; otherwise bytes 0 and 1 pick a
  // command among those with a handler.
  const std::size_t pick = static_cast<std::size_t>(data[0]) << 8 | data[1];
  const std::string command = (data[2] & 8) != 0 || commands.empty() ? std::string(kFileVerbs[data[0] % kFileVerbCount])
                                                                      : commands[pick % commands.size()];
  prepare();
  Send(command, block, user);
  return 0;
}
