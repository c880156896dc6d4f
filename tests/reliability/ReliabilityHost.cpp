#include "ReliabilityHost.h"

#include <cstdlib>
#include <fstream>

#include "UsersFile.h"
#include "api/AdapterRecords.h"
#include "api/FileVerbRecords.h"

namespace reltest {

using namespace ZentWire;

std::string LibraryName(int i) { return "LIB" + std::to_string(i); }
std::string LibraryFile(int i) { return "libs/lib" + std::to_string(i) + ".ini"; }
std::string UserName(int i) { return "u" + std::to_string(i); }
int UserId(int i) { return 100 + i; }

std::string LibraryText(int mark, bool usePgo) {
  return "[General]\nUSEPGO=" + std::string(usePgo ? "1" : "0") + "\nCALCVARMARGIN=1\nLIMIT_KIND_COUNT=" +
         std::to_string(mark) + "\n";
}

std::unique_ptr<hosttest::THostProcess> MakeHost(int libraries, int users, const hosttest::THostOptions& options) {
  auto host = std::make_unique<hosttest::THostProcess>(options);
  std::string list = "[dealer-library]\n";
  for (int i = 0; i < libraries; ++i) {
    hosttest::WriteFile(host->path(LibraryFile(i)), LibraryText(0, false));
    list += LibraryName(i) + "=" + LibraryFile(i) + "\n";
  }
  hosttest::WriteFile(host->path("dealer-library.ini"), list);
  std::ofstream out(host->path("users"), std::ios::app);
  for (int i = 1; i <= users; ++i) {
    ZentHost::TUser user;
    user.name = UserName(i);
    user.id = UserId(i);
    user.kind = 1;
    if (!ZentHost::MakeSecretHash(hosttest::SecretOf(user.name), 1000, user.secret)) std::abort();
    out << ZentHost::TUsersFile::FormatLine(user) << "\n";
  }
  return host;
}

std::unique_ptr<CAdminClient> LogOn(int port, const std::string& user, int timeoutMs) {
  auto client = std::make_unique<CAdminClient>(timeoutMs);
  client->Connect("127.0.0.1", port);
  TWireReply r = client->Logon(user, hosttest::SecretOf(user), kConnectionPort);
  if (r.status != kWireOk) throw CWireError("log-on of " + user + " refused: " + r.text);
  return client;
}

TFileReply GetDLFile(CAdminClient& c, const std::string& firm, int readOnly) {
  CAlert firmRow, roRow, m;
  firmRow << std::string("FIRM") << firm;
  roRow << std::string("READONLY") << readOnly;
  m << firmRow << roRow;
  TWireReply r = c.Call("GetDLFile", m);
  TFileReply out;
  out.status = r.status;
  out.result = r.result;
  if (r.status == kWireOk && r.verb == "GetDLFile" && r.result == 1) m >> out.readOnly >> out.name >> out.text;
  return out;
}

TSaveReply SaveDLFile(CAdminClient& c, const std::string& firm, const std::string& data, int cancel) {
  CAlert firmRow, dataRow, cancelRow, m;
  firmRow << std::string("FIRM") << firm;
  dataRow << std::string("DATA") << data;
  cancelRow << std::string("CANCEL") << cancel;
  m << firmRow << dataRow << cancelRow;
  TWireReply r = c.Call("SaveDLFile", m);
  TSaveReply out;
  out.status = r.status;
  out.result = r.result;
  if (r.status == kWireOk && r.verb == "SaveDLFile" && r.result == 1) m >> out.cancel >> out.name;
  return out;
}

namespace {

template <class Record>
int Api(CAdminClient& c, const std::string& command, Record& record) {
  std::vector<unsigned char> block;
  StoreDataForZDealerAPI(record, block);
  CAlert message;
  message << command << block;
  TWireReply reply = c.Call("ZDealerAPI", message);
  if (reply.status != kWireOk || reply.verb != "ZDealerAPI") return -1;
  std::string name;
  int result = -1;
  message >> name >> result >> block;
  if (name != command) return -2;  // the reply answers another request
  LoadDataForZDeallibAPI(record, block);
  return result;
}

}  // namespace

int DLOpenFile(CAdminClient& c, const std::string& firm, int mode) {
  TDL_DLOpenFile r{firm, mode};
  return Api(c, "DLOpenFile", r);
}
int DLUpdateFile(CAdminClient& c, const std::string& firm) {
  TDL_DLUpdateFile r{firm};
  return Api(c, "DLUpdateFile", r);
}
int DLCloseFile(CAdminClient& c, const std::string& firm) {
  TDL_DLCloseFile r{firm};
  return Api(c, "DLCloseFile", r);
}
int SetUsePGO(CAdminClient& c, const std::string& firm, bool value) {
  TDL_StringAndBool r{firm, value};
  return Api(c, "SetUsePGOToGlobal", r);
}
int GetUsePGO(CAdminClient& c, const std::string& firm, bool& value, std::string* replyFirm) {
  TDL_StringAndBool r{firm, !value};
  int result = Api(c, "GetUsePGOFromGlobal", r);
  value = r.boolParam1;
  if (replyFirm != nullptr) *replyFirm = r.firmCode;
  return result;
}

long EnvNumber(const char* name, long fallback) {
  const char* text = std::getenv(name);
  if (text == nullptr || *text == '\0') return fallback;
  char* end = nullptr;
  long v = std::strtol(text, &end, 10);
  return end != nullptr && *end == '\0' ? v : fallback;
}

bool SanitizedBuild() {
#ifdef ZDL_SANITIZED_BUILD
  return true;
#else
  return false;
#endif
}

long ResidentKiB(int pid) {
  std::ifstream in("/proc/" + std::to_string(pid) + "/status");
  std::string line;
  while (std::getline(in, line))
    if (line.rfind("VmRSS:", 0) == 0) return std::atol(line.c_str() + 6);
  return -1;
}

std::vector<std::vector<std::string>> AuditOf(const hosttest::THostProcess& host, const std::string& event) {
  std::vector<std::vector<std::string>> out;
  for (auto& row : host.AuditRows())
    if (row[kAuditEvent] == event) out.push_back(row);
  return out;
}

}  // namespace reltest
