#pragma once
// Loads libzent_dl.so the way the trading server does and gives tests its
// five exports and the recording database module.
#include <string>
#include <vector>

#include "TestDbZent.h"
#include "api/FileVerbRecords.h"
#include "api/RecordFields.h"
#include "support/Alert.h"

namespace ztest {

struct LoadedModule {
  int (*ModuleInit)(std::string& name, unsigned* kind);
  int (*InitDB)(const std::string& libraryList, const std::string& serverSettings, int port);
  int (*Reset)(int user, int port);
  std::string (*GetDLInUse)(int user, int port);
  int (*Execute)(const std::string& command, CAlert& message, int user, int port, const std::string& userName);
  TestDbState* db;
  std::string root;  // the server's working directory, with modules/libdbzent.so under it
};

// Lays out a fresh working directory, changes into it, loads modules/libdbzent.so
// and then the module. Done once per process; later calls return the same.
LoadedModule& Module();

// Empties what the recording database module noted and sets its answers back
// (every user of kind 1, auditing on), and empties the event log.
void ResetRecordedCalls();

// A port no other test of this process has used, so tests do not share state.
int NewPort();

// Writes `content` to `relative` under the working directory; returns the full path.
std::string WriteServerFile(const std::string& relative, const std::string& content);
std::string ReadServerFile(const std::string& relative);
// A file of the source tree (e.g. "examples/server/libs/broker.ini"), empty when missing.
std::string ReadSourceFile(const std::string& relative);
bool ServerFileExists(const std::string& relative);

// Builds a request row: a nested message of a key and a value.
template <class T>
CAlert Row(const std::string& key, const T& value) {
  CAlert row;
  row << key << value;
  return row;
}

// Calls the module's Execute as the server does, with the request rewound for
// reading, then rewinds the reply for the test to read, as a client receiving
// it from the wire would.
int Call(const std::string& command, CAlert& message, int user, int port, const std::string& userName);

// Sends one remote command ("ZDealerAPI") as user "user<n>" on the port:
// the request block goes out, the reply block comes back in its place.
// Returns the command's result.
int Command(int port, const std::string& command, std::vector<unsigned char>& block, int user);

// The same with a record: encoded into the request, decoded from the reply.
template <class Record>
int Command(int port, const std::string& command, Record& record, int user) {
  std::vector<unsigned char> block;
  StoreDataForZDealerAPI(record, block);
  const int result = Command(port, command, block, user);
  LoadDataForZDeallibAPI(record, block);
  return result;
}

// One library of a test, on a port of its own: `text` written as
// "<prefix><port>/lib.ini", registered as firm "F<prefix><port>" and opened
// by the user. The recorded calls are emptied first.
class TLibrarySession {
 public:
  TLibrarySession(const std::string& prefix, const std::string& text, int user = 2);

  int Port() const { return m_port; }
  const std::string& Firm() const { return m_firm; }
  // "DLOpenFile" (mode 0), "DLUpdateFile" and the text it wrote, and the save
  // followed by "DLCloseFile" and a new "DLOpenFile"; each asserts success.
  void Open();
  std::string Save();
  std::string SaveAndReload();
  // A remote command of the user on the session's port.
  template <class Record>
  int Command(const std::string& name, Record& record) const {
    return ztest::Command(m_port, name, record, m_user);
  }

 private:
  int m_port;
  int m_user;
  std::string m_dir;
  std::string m_firm;
};

// Reads every string field left in the message.
std::vector<std::string> ReadStrings(CAlert& message);

}  // namespace ztest
