#pragma once
// A zent-host for reliability tests: THostProcess with a chosen number of
// libraries (LIB0, LIB1, ... in libs/lib0.ini, ...) and of extra users
// (u1, u2, ... with ids 101, 102, ..., kind 1), and the calls the tests make
// over the wire.
#include <memory>
#include <string>
#include <vector>

#include "HostProcess.h"
#include "support/Alert.h"
#include "wire/CAdminClient.h"

namespace reltest {

using hosttest::kConnectionPort;

std::string LibraryName(int i);  // "LIB<i>"
std::string LibraryFile(int i);  // "libs/lib<i>.ini"
std::string UserName(int i);     // "u<i>", from 1
int UserId(int i);               // 100 + i

// A settings text that carries `mark` in a parameter the canonical form keeps.
std::string LibraryText(int mark, bool usePgo);

// Lays out a host with `libraries` libraries and `users` extra users; the
// libraries start as LibraryText(0, false).
std::unique_ptr<hosttest::THostProcess> MakeHost(int libraries, int users,
                                                 const hosttest::THostOptions& options = hosttest::THostOptions());

// A connected, logged-on client; throws CWireError when that fails.
std::unique_ptr<ZentWire::CAdminClient> LogOn(int port, const std::string& user, int timeoutMs = 60000);

struct TFileReply {
  int status = -1;    // wire status
  int result = -1;    // Execute's result
  int readOnly = -1;  // field 1 of a success reply
  std::string name;   // field 2
  std::string text;   // field 3
};
TFileReply GetDLFile(ZentWire::CAdminClient& c, const std::string& firm, int readOnly);

struct TSaveReply {
  int status = -1;
  int result = -1;
  int cancel = -1;
  std::string name;
};
TSaveReply SaveDLFile(ZentWire::CAdminClient& c, const std::string& firm, const std::string& data, int cancel = 0);

// File verbs and the two commands of the "ZDealerAPI" verb. Each gives the
// command's result code, or -1 after an error reply; `name` receives the
// command name of the reply.
int DLOpenFile(ZentWire::CAdminClient& c, const std::string& firm, int mode);
int DLUpdateFile(ZentWire::CAdminClient& c, const std::string& firm);
int DLCloseFile(ZentWire::CAdminClient& c, const std::string& firm);
int SetUsePGO(ZentWire::CAdminClient& c, const std::string& firm, bool value);
// The value in `value`; `replyFirm` receives the reply's "firmCode".
int GetUsePGO(ZentWire::CAdminClient& c, const std::string& firm, bool& value, std::string* replyFirm = nullptr);

// Environment variable as a number, or the default.
long EnvNumber(const char* name, long fallback);
// True in builds with a sanitizer: tests take smaller defaults there.
bool SanitizedBuild();

// The resident set of a process in KiB, from /proc; -1 when unknown.
long ResidentKiB(int pid);

// The audit rows of an event: columns as THostProcess::AuditRows.
std::vector<std::vector<std::string>> AuditOf(const hosttest::THostProcess& host, const std::string& event);
inline constexpr int kAuditPort = 1, kAuditUser = 2, kAuditEvent = 3, kAuditField0 = 4;

}  // namespace reltest
