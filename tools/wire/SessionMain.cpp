// zent-session: a scripted administrator session against zent-host.
//
//   zent-session --port TCP_PORT --user NAME --secret-file FILE
//                [--address 127.0.0.1] [--connection-port 7001] [--library NAME]
//
// The script: log on; introduce the client ("Init" with a "ZDealerAPI" module
// row); list the libraries ("GetDLList" and "DLGetFirmList"); open one for
// writing ("DLOpenFile"); read "UsePGO" of the general settings
// ("GetUsePGOFromGlobal"), flip it ("SetUsePGOToGlobal") and read it again;
// write the library back ("DLUpdateFile"); close it ("DLCloseFile"). Each step
// prints one line; the first failure ends the session with exit status 1.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "api/AdapterRecords.h"
#include "api/FileVerbRecords.h"
#include "wire/CAdminClient.h"

using namespace ZentWire;

namespace {

struct TOptions {
  std::string address = "127.0.0.1";
  int port = 0;
  std::string user;
  std::string secretFile;
  int connectionPort = 7001;
  std::string library;
};

[[noreturn]] void Usage(const char* why) {
  std::fprintf(stderr,
               "zent-session: %s\nusage: zent-session --port TCP_PORT --user NAME --secret-file FILE "
               "[--address 127.0.0.1] [--connection-port 7001] [--library NAME]\n",
               why);
  std::exit(2);
}

TOptions Parse(int argc, char** argv) {
  TOptions o;
  for (int i = 1; i < argc; ++i) {
    std::string a = argv[i];
    if (a == "--help") {
      std::printf("zent-session --port TCP_PORT --user NAME --secret-file FILE [--address A] "
                  "[--connection-port N] [--library NAME]\n");
      std::exit(0);
    }
    if (i + 1 >= argc) Usage(("missing value of " + a).c_str());
    std::string v = argv[++i];
    if (a == "--address") o.address = v;
    else if (a == "--port") o.port = std::atoi(v.c_str());
    else if (a == "--user") o.user = v;
    else if (a == "--secret-file") o.secretFile = v;
    else if (a == "--connection-port") o.connectionPort = std::atoi(v.c_str());
    else if (a == "--library") o.library = v;
    else Usage(("unknown option " + a).c_str());
  }
  if (o.port <= 0 || o.user.empty() || o.secretFile.empty()) Usage("--port, --user and --secret-file are required");
  return o;
}

[[noreturn]] void Failed(const std::string& step, const std::string& why) {
  std::printf("FAILED %s: %s\n", step.c_str(), why.c_str());
  std::exit(1);
}

void Step(const std::string& step, int result, const std::string& detail = std::string()) {
  if (result != 0) Failed(step, "result " + std::to_string(result) + (detail.empty() ? "" : ", " + detail));
  std::printf("%-22s ok%s%s\n", step.c_str(), detail.empty() ? "" : "  ", detail.c_str());
}

template <class Record>
int Api(CAdminClient& client, const std::string& command, Record& record) {
  std::vector<unsigned char> block;
  StoreDataForZDealerAPI(record, block);
  TWireReply reply;
  int result = client.Api(command, block, &reply);
  if (reply.status != kWireOk) Failed(command, "host error " + std::to_string(reply.status) + ": " + reply.text);
  if (result == 0) LoadDataForZDeallibAPI(record, block);
  return result;
}

int Run(const TOptions& o) {
  std::ifstream secretIn(o.secretFile);
  std::string secret;
  if (!secretIn || !std::getline(secretIn, secret)) Failed("secret", "cannot read " + o.secretFile);

  CAdminClient client;
  client.Connect(o.address, o.port);
  std::printf("connected to %s:%d, connection port %d\n", o.address.c_str(), o.port, o.connectionPort);

  TWireReply logon = client.Logon(o.user, secret, o.connectionPort);
  if (logon.status != kWireOk) Failed("Logon", logon.text);
  Step("Logon", 0, "user " + o.user + ", id " + std::to_string(logon.result) + ", kind " + std::to_string(logon.kind));

  CAlert init, modules, row;
  row << std::string("ZDealerAPI") << std::string("1.0.0") << std::string("zent-session");
  modules << row;
  init << std::string("1.0.0") << 1033 << modules;
  TWireReply r = client.Call("Init", init);
  if (r.status != kWireOk || r.result != 1) Failed("Init", "host error or refusal");
  int accepted = 0, mayWork = 0;
  init >> accepted >> mayWork;
  if (mayWork == 0) Failed("Init", "this user may not work with libraries");
  Step("Init", 0, "accepted " + std::to_string(accepted));

  CAlert list;
  r = client.Call("GetDLList", list);
  if (r.status != kWireOk || r.result != 1) Failed("GetDLList", "host error");
  std::string names;
  std::vector<std::string> libraries;
  while (list.get_fields_count() != 0) {
    std::string name;
    list >> name;
    libraries.push_back(name);
    names += (names.empty() ? "" : ", ") + name;
  }
  Step("GetDLList", 0, names);
  if (libraries.empty()) Failed("GetDLList", "the port lists no library");

  TDL_DLGetFirmList firms;
  int rc = Api(client, "DLGetFirmList", firms);
  Step("DLGetFirmList", rc, std::to_string(firms.lsFirmList.size()) + " names");

  const std::string library = o.library.empty() ? libraries.front() : o.library;
  TDL_DLOpenFile open{library, 0};
  rc = Api(client, "DLOpenFile", open);
  Step("DLOpenFile", rc, library + " for writing");

  TDL_StringAndBool get{library, false};
  rc = Api(client, "GetUsePGOFromGlobal", get);
  Step("GetUsePGOFromGlobal", rc, "UsePGO " + std::to_string(get.boolParam1));
  const bool before = get.boolParam1;

  TDL_StringAndBool set{library, !before};
  rc = Api(client, "SetUsePGOToGlobal", set);
  Step("SetUsePGOToGlobal", rc, "UsePGO " + std::to_string(!before));

  TDL_StringAndBool again{library, false};
  rc = Api(client, "GetUsePGOFromGlobal", again);
  Step("GetUsePGOFromGlobal", rc, "UsePGO " + std::to_string(again.boolParam1));
  if (again.boolParam1 == before) Failed("GetUsePGOFromGlobal", "the change did not take");

  TDL_DLUpdateFile update{library};
  rc = Api(client, "DLUpdateFile", update);
  Step("DLUpdateFile", rc, library + " written");

  TDL_DLCloseFile close{library};
  rc = Api(client, "DLCloseFile", close);
  Step("DLCloseFile", rc, library + " released");
  client.Close();
  std::printf("session done\n");
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  TOptions o = Parse(argc, argv);
  try {
    return Run(o);
  } catch (const CWireError& e) {
    std::printf("FAILED: %s\n", e.what());
    return 1;
  }
}
