// zent-host over TCP: log-on, the module's verbs, the audit trail in SQLite,
// contention, and every kind of bad input.
#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <cstring>
#include <memory>
#include <thread>

#include "HostProcess.h"
#include "api/AdapterRecords.h"
#include "api/FileVerbRecords.h"
#include "wire/CAdminClient.h"
#include "wire/FrameIO.h"

namespace {

using hosttest::kConnectionPort;
using hosttest::SecretOf;
using hosttest::THostOptions;
using hosttest::THostProcess;
using namespace ZentWire;

constexpr const char* kNull = "<NULL>";
// Columns of THostProcess::AuditRows.
constexpr int kPort = 1, kUser = 2, kEvent = 3, kField0 = 4;

class HostServerTest : public ::testing::Test {
 protected:
  void StartHost(const THostOptions& options = THostOptions()) {
    host_ = std::make_unique<THostProcess>(options);
    ASSERT_TRUE(host_->Start()) << host_->output();
  }
  void SetUp() override { StartHost(); }
  void TearDown() override {
    if (host_) {
      EXPECT_EQ(host_->Stop(), 0) << host_->output();
    }
  }

  std::unique_ptr<CAdminClient> Connect() {
    auto client = std::make_unique<CAdminClient>(15000);
    client->Connect("127.0.0.1", host_->port());
    return client;
  }
  std::unique_ptr<CAdminClient> LogOn(const std::string& user) {
    auto client = Connect();
    TWireReply r = client->Logon(user, SecretOf(user), kConnectionPort);
    EXPECT_EQ(r.status, kWireOk) << r.text;
    return client;
  }

  template <class Record>
  int Api(CAdminClient& client, const std::string& command, Record& record) {
    std::vector<unsigned char> block;
    StoreDataForZDealerAPI(record, block);
    TWireReply reply;
    int result = client.Api(command, block, &reply);
    EXPECT_EQ(reply.status, kWireOk) << reply.text;
    LoadDataForZDeallibAPI(record, block);
    return result;
  }
  int Open(CAdminClient& c, const std::string& firm, int mode) {
    TDL_DLOpenFile r{firm, mode};
    return Api(c, "DLOpenFile", r);
  }

  // Sends a "GetDLFile" request with the rows; gives Execute's result and leaves the reply in `m`.
  int GetDLFile(CAdminClient& c, const std::string& firm, int readOnly, CAlert& m) {
    CAlert firmRow, roRow;
    firmRow << std::string("FIRM") << firm;
    roRow << std::string("READONLY") << readOnly;
    m.clear();
    m << firmRow;
    if (readOnly >= 0) m << roRow;
    TWireReply r = c.Call("GetDLFile", m);
    EXPECT_EQ(r.status, kWireOk) << r.text;
    return r.result;
  }

  std::vector<std::vector<std::string>> AuditOf(const std::string& event) {
    std::vector<std::vector<std::string>> out;
    for (auto& row : host_->AuditRows())
      if (row[kEvent] == event) out.push_back(row);
    return out;
  }

  static TWireReply ErrorAfterFrame(CAdminClient& c, const std::vector<char>& frame) {
    c.SendFrame(frame.data(), static_cast<std::uint32_t>(frame.size()));
    return c.ReadReply();
  }

  std::unique_ptr<THostProcess> host_;
};

TEST_F(HostServerTest, LogOnGivesTheUsersIdAndKind) {
  auto c = Connect();
  TWireReply r = c->Logon("trader", SecretOf("trader"), kConnectionPort);
  EXPECT_EQ(r.status, kWireOk);
  EXPECT_EQ(r.verb, "Logon");
  EXPECT_EQ(r.result, 2);
  EXPECT_EQ(r.kind, 2);
  EXPECT_NE(host_->log().find("user[trader] id[2] kind[2] logged on to port[7001]"), std::string::npos);
}

TEST_F(HostServerTest, TheFrameIsALittleEndianLengthAndAMessage) {
  CAlert logon;
  logon << std::string("Logon") << std::string("admin") << SecretOf("admin") << kConnectionPort;
  std::vector<unsigned char> raw(4);
  raw[0] = static_cast<unsigned char>(logon.get_size() & 0xFF);
  raw[1] = static_cast<unsigned char>((logon.get_size() >> 8) & 0xFF);
  raw.insert(raw.end(), logon.get_data(), logon.get_data() + logon.get_size());
  auto c = Connect();
  c->SendRaw(raw.data(), raw.size());
  TWireReply r = c->ReadReply();
  EXPECT_EQ(r.status, kWireOk);
  EXPECT_EQ(r.result, 1);
}

TEST_F(HostServerTest, WrongSecretIsRefusedAndTheDelayGrowsPerFailure) {
  host_->Stop();
  THostOptions o;
  o.logonDelayMs = 150;
  StartHost(o);
  auto c = Connect();
  using Clock = std::chrono::steady_clock;
  auto t0 = Clock::now();
  TWireReply first = c->Logon("admin", "wrong", kConnectionPort);
  auto t1 = Clock::now();
  TWireReply second = c->Logon("admin", "wrong again", kConnectionPort);
  auto t2 = Clock::now();
  EXPECT_EQ(first.status, kWireLogonRefused);
  EXPECT_EQ(second.status, kWireLogonRefused);
  EXPECT_EQ(first.text, "log-on refused: wrong user name or secret");
  EXPECT_GE(std::chrono::duration_cast<std::chrono::milliseconds>(t1 - t0).count(), 150);
  EXPECT_GE(std::chrono::duration_cast<std::chrono::milliseconds>(t2 - t1).count(), 300);
  EXPECT_NE(host_->log().find("log-on of user[admin] from 127.0.0.1:"), std::string::npos);
  EXPECT_NE(host_->log().find("refused: wrong user name or secret (failure 2, answered after 300 ms)"),
            std::string::npos);
  // The right secret still works, and clears the count.
  TWireReply ok = c->Logon("admin", SecretOf("admin"), kConnectionPort);
  EXPECT_EQ(ok.status, kWireOk);
}

TEST_F(HostServerTest, ThreeFailedLogOnsCloseTheConnection) {
  auto c = Connect();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(c->Logon("nobody", "x", kConnectionPort).status, kWireLogonRefused);
  EXPECT_TRUE(c->WaitClosed());
  EXPECT_NE(host_->log().find("closed after 3 failed log-ons"), std::string::npos);
}

TEST_F(HostServerTest, AnUnknownConnectionPortIsRefused) {
  auto c = Connect();
  TWireReply r = c->Logon("admin", SecretOf("admin"), 9999);
  EXPECT_EQ(r.status, kWireLogonRefused);
  EXPECT_EQ(r.text, "log-on refused: unknown connection port 9999");
}

TEST_F(HostServerTest, ARequestBeforeLogOnGetsAnErrorAndTheConnectionStays) {
  auto c = Connect();
  CAlert m;
  TWireReply r = c->Call("GetDLList", m);
  EXPECT_EQ(r.status, kWireNotLoggedOn);
  EXPECT_EQ(r.verb, "GetDLList");
  EXPECT_EQ(r.text, "log on first");
  EXPECT_NE(host_->log().find("request \"GetDLList\" before log-on"), std::string::npos);
  EXPECT_EQ(c->Logon("admin", SecretOf("admin"), kConnectionPort).status, kWireOk);
}

TEST_F(HostServerTest, GetDLListNamesTheLibrariesOfThePort) {
  auto c = LogOn("admin");
  CAlert m;
  TWireReply r = c->Call("GetDLList", m);
  ASSERT_EQ(r.status, kWireOk);
  EXPECT_EQ(r.result, 1);
  std::string a, b;
  m >> a >> b;
  EXPECT_EQ(a, "ALPHA");
  EXPECT_EQ(b, "BETA");
  EXPECT_EQ(m.get_fields_count(), 0u);
}

TEST_F(HostServerTest, GetDLFileTakesTheHoldAndASecondClientReadsOnly) {
  auto a = LogOn("admin");
  auto b = LogOn("trader");
  CAlert m;
  ASSERT_EQ(GetDLFile(*a, "ALPHA", -1, m), 1);
  int readOnly = -1;
  std::string name, text;
  m >> readOnly >> name >> text;
  EXPECT_EQ(readOnly, 0);
  EXPECT_EQ(name, "ALPHA");
  EXPECT_EQ(text, "[General]\nUSEPGO=0\nCALCVARMARGIN=1\n");
  ASSERT_EQ(GetDLFile(*b, "ALPHA", -1, m), 1);
  m >> readOnly;
  EXPECT_EQ(readOnly, 1);
  ASSERT_EQ(AuditOf("SRV_USER_BO_DEALLIB_OPEN").size(), 1u);
}

TEST_F(HostServerTest, GetDLFileWithReadOnlyTakesNoHold) {
  auto a = LogOn("admin");
  CAlert m;
  ASSERT_EQ(GetDLFile(*a, "ALPHA", 7, m), 1);
  int readOnly = -1;
  m >> readOnly;
  EXPECT_EQ(readOnly, 1);
  EXPECT_TRUE(AuditOf("SRV_USER_BO_DEALLIB_OPEN").empty());
  auto b = LogOn("trader");
  ASSERT_EQ(GetDLFile(*b, "ALPHA", 0, m), 1);
  m >> readOnly;
  EXPECT_EQ(readOnly, 0);
}

TEST_F(HostServerTest, SaveDLFileStoresTheCanonicalTextAndAudits) {
  auto a = LogOn("admin");
  CAlert m;
  ASSERT_EQ(GetDLFile(*a, "BETA", 0, m), 1);
  CAlert firmRow, dataRow;
  firmRow << std::string("FIRM") << std::string("BETA");
  dataRow << std::string("DATA") << std::string("[General]\nUSEPGO=1\n");
  m.clear();
  m << firmRow << dataRow;
  TWireReply r = a->Call("SaveDLFile", m);
  ASSERT_EQ(r.status, kWireOk);
  EXPECT_EQ(r.result, 1);
  int cancel = -1;
  std::string name;
  m >> cancel >> name;
  EXPECT_EQ(cancel, 0);
  EXPECT_EQ(name, "BETA");
  std::string onDisk = hosttest::ReadFile(host_->path("libs/beta.ini"));
  EXPECT_NE(onDisk.find("USEPGO=1"), std::string::npos) << onDisk;
  auto changes = AuditOf("SRV_USER_BO_DEALLIB_CHANGE");
  ASSERT_EQ(changes.size(), 1u);
  EXPECT_EQ(changes[0][kField0 + 0], "admin");
  EXPECT_EQ(changes[0][kField0 + 1], "1");
  EXPECT_EQ(changes[0][kField0 + 2], "BETA");
  EXPECT_EQ(changes[0][kField0 + 20], onDisk);
}

TEST_F(HostServerTest, AWholeDealerApiSessionChangesTheLibraryAndLeavesItsAuditTrail) {
  auto c = LogOn("admin");
  CAlert init, modules, row;
  row << std::string("ZDealerAPI") << std::string("1.0.0") << std::string("test");
  modules << row;
  init << std::string("1.0.0") << 1033 << modules;
  TWireReply r = c->Call("Init", init);
  ASSERT_EQ(r.status, kWireOk);
  int accepted = 0, mayWork = 0;
  init >> accepted >> mayWork;
  EXPECT_EQ(accepted, 1);
  EXPECT_EQ(mayWork, 1);

  TDL_DLGetFirmList firms;
  EXPECT_EQ(Api(*c, "DLGetFirmList", firms), 0);
  EXPECT_EQ(firms.lsFirmList, (std::vector<std::string>{"ALPHA", "BETA"}));
  EXPECT_EQ(Open(*c, "ALPHA", 0), 0);
  TDL_StringAndBool get{"ALPHA", true};
  EXPECT_EQ(Api(*c, "GetUsePGOFromGlobal", get), 0);
  EXPECT_FALSE(get.boolParam1);
  TDL_StringAndBool set{"ALPHA", true};
  EXPECT_EQ(Api(*c, "SetUsePGOToGlobal", set), 0);
  TDL_StringAndBool again{"ALPHA", false};
  EXPECT_EQ(Api(*c, "GetUsePGOFromGlobal", again), 0);
  EXPECT_TRUE(again.boolParam1);
  TDL_DLUpdateFile update{"ALPHA"};
  EXPECT_EQ(Api(*c, "DLUpdateFile", update), 0);
  TDL_DLCloseFile close{"ALPHA"};
  EXPECT_EQ(Api(*c, "DLCloseFile", close), 0);
  EXPECT_EQ(Api(*c, "DLCloseFile", close), 1002);

  std::string onDisk = hosttest::ReadFile(host_->path("libs/alpha.ini"));
  EXPECT_NE(onDisk.find("USEPGO=1"), std::string::npos) << onDisk;

  auto rows = host_->AuditRows();
  ASSERT_EQ(rows.size(), 4u);
  EXPECT_EQ(rows[0][kEvent], "SRV_USER_BO_LOGON");
  EXPECT_EQ(rows[1][kEvent], "SRV_USER_BO_DEALLIB_OPEN");
  EXPECT_EQ(rows[2][kEvent], "SRV_USER_BO_DEALLIB_PACKET_CHANGE");
  EXPECT_EQ(rows[3][kEvent], "SRV_USER_BO_DEALLIB_CHANGE");
  for (const auto& a : rows) {
    EXPECT_EQ(a[kPort], "7001");
    EXPECT_EQ(a[kUser], "1");
    EXPECT_EQ(a[kField0], "admin");
  }
  EXPECT_EQ(rows[0][kField0 + 1], "1.0.0");
  EXPECT_EQ(rows[0][kField0 + 2], "1");
  EXPECT_EQ(rows[0][kField0 + 20], kNull);
  EXPECT_EQ(rows[1][kField0 + 20], "[General]\nUSEPGO=0\nCALCVARMARGIN=1\n");
  EXPECT_EQ(rows[2][kField0 + 4], "1");
  EXPECT_EQ(rows[2][kField0 + 20], "SetUsePGOToGlobal,main,,,\"1\"\r\n");
  EXPECT_EQ(rows[3][kField0 + 20], onDisk);
  for (int f = 5; f < 20; ++f) EXPECT_EQ(rows[3][kField0 + f], kNull) << f;
}

TEST_F(HostServerTest, AWholeFileClientOfTheHostsVersionIsAcceptedAndAnOlderOneRefused) {
  auto c = LogOn("admin");
  auto init = [&c](const std::string& version) {
    CAlert m, modules, row;
    row << std::string("DealerLibEditor") << version << std::string("test");
    modules << row;
    m << version << 1033 << modules;
    EXPECT_EQ(c->Call("Init", m).status, kWireOk);
    int accepted = -1;
    m >> accepted;
    return accepted;
  };
  EXPECT_EQ(init(ZDL_VERSION), 1);
  EXPECT_EQ(init("0.9.0"), 0);
  EXPECT_NE(host_->log().find("Not supported version. Version of the executable: server: " ZDL_VERSION
                              ", client: 0.9.0"),
            std::string::npos);
}

TEST_F(HostServerTest, KindThreeMayLogOnButNotWorkWithLibraries) {
  auto c = LogOn("viewer");
  CAlert init, modules, row;
  row << std::string("ZDealerAPI") << std::string("1.0.0") << std::string("test");
  modules << row;
  init << std::string("1.0.0") << 1033 << modules;
  ASSERT_EQ(c->Call("Init", init).status, kWireOk);
  int accepted = 0, mayWork = -1;
  init >> accepted >> mayWork;
  EXPECT_EQ(mayWork, 0);
  CAlert m;
  EXPECT_EQ(GetDLFile(*c, "ALPHA", 0, m), 0);
  std::string module, verb, text;
  int code = 0;
  m >> module >> verb >> code >> text;
  EXPECT_EQ(module, "ZENT_DL");
  EXPECT_EQ(verb, "GetDLFile");
  EXPECT_EQ(code, 2);
  EXPECT_EQ(text, "Sufficient permission to perform this operation");
  EXPECT_TRUE(host_->AuditRows().empty());
}

TEST_F(HostServerTest, KindThreeMayNotSaveALibrary) {
  auto c = LogOn("viewer");
  CAlert firmRow, dataRow, m;
  firmRow << std::string("FIRM") << std::string("BETA");
  dataRow << std::string("DATA") << std::string("[General]\nUSEPGO=1\n");
  m << firmRow << dataRow;
  TWireReply r = c->Call("SaveDLFile", m);
  ASSERT_EQ(r.status, kWireOk);
  EXPECT_EQ(r.result, 0);
  std::string module, verb;
  int code = 0;
  m >> module >> verb >> code;
  EXPECT_EQ(module, "ZENT_DL");
  EXPECT_EQ(verb, "SaveDLFile");
  EXPECT_EQ(code, 2);
  EXPECT_EQ(hosttest::ReadFile(host_->path("libs/beta.ini")), "[General]\nCALCVARMARGIN=1\n");
}

TEST_F(HostServerTest, TwoClientsContendForOneLibraryAndADisconnectReleasesIt) {
  auto a = LogOn("admin");
  auto b = LogOn("trader");
  EXPECT_EQ(Open(*a, "ALPHA", 0), 0);
  EXPECT_EQ(Open(*b, "ALPHA", 0), 11);
  EXPECT_EQ(Open(*b, "ALPHA", 1), 0);
  a->Close();
  // The host passes the disconnect to Reset, which ends the hold.
  int result = 11;
  for (int i = 0; i < 200 && result == 11; ++i) {
    result = Open(*b, "ALPHA", 0);
    if (result == 11) std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  EXPECT_EQ(result, 0);
  EXPECT_NE(host_->log().find("user[admin] id[1] port[7001] disconnected; Reset returned 1"), std::string::npos);
}

TEST_F(HostServerTest, ConcurrentClientsAreServedTogether) {
  std::vector<std::thread> threads;
  std::atomic<int> ok{0};
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([this, &ok] {
      CAdminClient c(15000);
      c.Connect("127.0.0.1", host_->port());
      if (c.Logon("trader", SecretOf("trader"), kConnectionPort).status != kWireOk) return;
      for (int i = 0; i < 10; ++i) {
        CAlert m;
        TWireReply r = c.Call("GetDLList", m);
        if (r.status == kWireOk && r.result == 1 && m.get_fields_count() == 2) ++ok;
      }
    });
  }
  for (auto& t : threads) t.join();
  EXPECT_EQ(ok.load(), 40);
}

TEST_F(HostServerTest, AnOversizedFrameGetsAnErrorAndTheConnectionCloses) {
  auto c = LogOn("admin");
  unsigned char head[4];
  PutLength((1u << 20) + 1, head);
  c->SendRaw(head, 4);
  TWireReply r = c->ReadReply();
  EXPECT_EQ(r.status, kWireFrameTooLarge);
  EXPECT_EQ(r.text, "a frame of 1048577 bytes exceeds the limit of 1048576");
  EXPECT_TRUE(c->WaitClosed());
  EXPECT_NE(host_->log().find("exceeds the limit of 1048576"), std::string::npos);
  // The host goes on with other clients.
  auto other = LogOn("trader");
  CAlert m;
  EXPECT_EQ(other->Call("GetDLList", m).status, kWireOk);
}

TEST_F(HostServerTest, AFrameThatIsNotAMessageGetsAnErrorAndTheConnectionStays) {
  auto c = LogOn("admin");
  // The counter says two fields, one follows.
  std::vector<char> frame = {2, 0, 0, 0, 3, 1, 0, 0, 0};
  TWireReply r = ErrorAfterFrame(*c, frame);
  EXPECT_EQ(r.status, kWireNotAMessage);
  EXPECT_EQ(r.text, "the frame is not a message");
  // A type byte outside the codes.
  r = ErrorAfterFrame(*c, {1, 0, 0, 0, 42});
  EXPECT_EQ(r.status, kWireNotAMessage);
  // Shorter than the counter.
  r = ErrorAfterFrame(*c, {1, 0});
  EXPECT_EQ(r.status, kWireNotAMessage);
  // A message whose first field is no verb.
  r = ErrorAfterFrame(*c, {1, 0, 0, 0, 3, 1, 0, 0, 0});
  EXPECT_EQ(r.status, kWireNotAMessage);
  EXPECT_EQ(r.text, "the first field must be the verb, a string");
  CAlert m;
  EXPECT_EQ(c->Call("GetDLList", m).status, kWireOk);
}

TEST_F(HostServerTest, AnUnknownVerbGetsAnError) {
  auto c = LogOn("admin");
  CAlert m;
  TWireReply r = c->Call("FormatDisk", m);
  EXPECT_EQ(r.status, kWireUnknownVerb);
  EXPECT_EQ(r.verb, "FormatDisk");
  EXPECT_EQ(r.text, "unknown verb");
  EXPECT_NE(host_->log().find("unknown verb \"FormatDisk\""), std::string::npos);
  // Verbs ignore case, as the module's do.
  EXPECT_EQ(c->Call("getdllist", m).status, kWireOk);
}

TEST_F(HostServerTest, AnExceptionOutOfExecuteGetsAnErrorAndTheHostGoesOn) {
  auto c = LogOn("admin");
  CAlert m;
  m << 5 << std::string("not a command name first");
  TWireReply r = c->Call("ZDealerAPI", m);
  EXPECT_EQ(r.status, kWireModuleError);
  EXPECT_EQ(r.verb, "ZDealerAPI");
  EXPECT_EQ(r.text, "malformed request: invalid field type: get[3]need[6];");
  EXPECT_NE(host_->log().find("\"ZDealerAPI\" raised CAlertException: invalid field type"), std::string::npos);
  CAlert list;
  EXPECT_EQ(c->Call("GetDLList", list).status, kWireOk);
}

TEST_F(HostServerTest, DLGetClassListReachesTheTableService) {
  auto c = LogOn("admin");
  CAlert table;
  table << std::string("classes");
  std::vector<unsigned char> block(table.get_data(), table.get_data() + table.get_size());
  const std::vector<unsigned char> sent = block;
  TWireReply reply;
  EXPECT_EQ(c->Api("DLGetClassList", block, &reply), 0);
  EXPECT_EQ(block, sent);
}

TEST_F(HostServerTest, SigtermStopsGracefullyAndTellsIdleClients) {
  auto c = LogOn("admin");
  EXPECT_EQ(host_->Stop(), 0);
  TWireReply r = c->ReadReply();
  EXPECT_EQ(r.status, kWireStopping);
  EXPECT_TRUE(c->WaitClosed());
  std::string log = host_->log();
  EXPECT_NE(log.find("zent-host: SIGTERM, stopping"), std::string::npos);
  EXPECT_NE(log.find("dbzent: audit trail closed"), std::string::npos);
  EXPECT_NE(log.find("zent-host: stopped"), std::string::npos);
  host_.reset();
}

TEST_F(HostServerTest, WhenEveryThreadIsBusyAndTheQueueIsFullANewConnectionIsTurnedAway) {
  host_->Stop();
  THostOptions o;
  o.threads = 1;
  o.maxPending = 0;
  StartHost(o);
  auto first = LogOn("admin");
  auto second = Connect();
  TWireReply r = second->ReadReply();
  EXPECT_EQ(r.status, kWireBusy);
  EXPECT_TRUE(second->WaitClosed());
  EXPECT_NE(host_->log().find("refused: every connection thread is busy and the queue is full"), std::string::npos);
  // The busy connection is served as before, and its thread is free again once it goes.
  CAlert m;
  EXPECT_EQ(first->Call("GetDLList", m).status, kWireOk);
  first->Close();
  TWireReply later;
  for (int i = 0; i < 200; ++i) {
    try {
      auto third = Connect();
      later = third->Logon("trader", SecretOf("trader"), kConnectionPort);
      if (later.status == kWireOk) break;
    } catch (const CWireError&) {
      // Turned away before the log-on was sent; try again.
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  EXPECT_EQ(later.status, kWireOk);
}

TEST_F(HostServerTest, ASilentConnectionIsClosedAfterTheIdleTimeout) {
  host_->Stop();
  THostOptions o;
  o.idleTimeoutSeconds = 1;
  StartHost(o);
  auto c = LogOn("admin");
  EXPECT_TRUE(c->WaitClosed());
  EXPECT_NE(host_->log().find("closed after 1 s without a whole frame"), std::string::npos);
  EXPECT_NE(host_->log().find("user[admin] id[1] port[7001] disconnected; Reset returned 1"), std::string::npos);
}

TEST_F(HostServerTest, ARequestInProgressWhenTheStopComesIsAnswered) {
  host_->Stop();
  THostOptions o;
  o.maxFrame = 64u << 20;
  StartHost(o);
  auto c = LogOn("admin");
  CAlert m;
  ASSERT_EQ(GetDLFile(*c, "BETA", 0, m), 1);
  std::string text = "[General]\nUSEPGO=1\n";
  for (int i = 0; i < 40000; ++i)
    text += "[clC" + std::to_string(100000 + i) + "_Client_Template]\nMaxOrderQuantity_TQBR=" + std::to_string(i) + "\n";
  CAlert firmRow, dataRow, request;
  firmRow << std::string("FIRM") << std::string("BETA");
  dataRow << std::string("DATA") << text;
  request << std::string("SaveDLFile") << (CAlert() << firmRow << dataRow);
  c->SendFrame(request.get_data(), request.get_size());
  // Once the module has the request, stop the host.
  for (int i = 0; i < 5000 && host_->log().find("call in SaveDLFile") == std::string::npos; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  ASSERT_NE(host_->log().find("call in SaveDLFile"), std::string::npos);
  std::thread stopper([this] { EXPECT_EQ(host_->Stop(), 0); });
  CAlert reply;
  TWireReply r = c->ReadReply(&reply);
  EXPECT_EQ(r.status, kWireOk);
  EXPECT_EQ(r.verb, "SaveDLFile");
  int cancel = -1;
  reply >> cancel;
  EXPECT_EQ(cancel, 0);
  EXPECT_EQ(c->ReadReply().status, kWireStopping);
  stopper.join();
  EXPECT_EQ(AuditOf("SRV_USER_BO_DEALLIB_CHANGE").size(), 1u);
  host_.reset();
}

TEST_F(HostServerTest, SigintStopsGracefullyToo) {
  auto c = LogOn("admin");
  EXPECT_EQ(Open(*c, "ALPHA", 0), 0);
  EXPECT_EQ(host_->Stop(SIGINT), 0);
  EXPECT_EQ(c->ReadReply().status, kWireStopping);
  std::string log = host_->log();
  EXPECT_NE(log.find("zent-host: SIGINT, stopping"), std::string::npos);
  EXPECT_NE(log.find("user[admin] id[1] port[7001] disconnected; Reset returned 1"), std::string::npos);
  EXPECT_NE(log.find("zent-host: stopped"), std::string::npos);
  // The audit trail is complete and readable after the stop.
  EXPECT_EQ(AuditOf("SRV_USER_BO_DEALLIB_OPEN").size(), 1u);
  host_.reset();
}

TEST_F(HostServerTest, AuditingOffForThePortStoresNothing) {
  host_->Stop();
  THostOptions o;
  o.audit = false;
  StartHost(o);
  auto c = LogOn("admin");
  EXPECT_EQ(Open(*c, "ALPHA", 0), 0);
  EXPECT_TRUE(host_->AuditRows().empty());
}

TEST(HostProgramTest, RefusesAUsersFileOpenToOthers) {
  THostOptions o;
  o.usersMode = 0644;
  THostProcess host(o);
  EXPECT_FALSE(host.Start());
  EXPECT_NE(host.output().find("the users file is open to group or others (mode 0644)"), std::string::npos)
      << host.output();
}

TEST(HostProgramTest, HelpAndVersionGoToStandardOutput) {
  std::string out;
  EXPECT_EQ(THostProcess::Run({"--help"}, out), 0);
  EXPECT_NE(out.find("zent-host --check CONFIG"), std::string::npos);
  EXPECT_EQ(THostProcess::Run({"--version"}, out), 0);
  EXPECT_EQ(out.rfind("zent-host ", 0), 0u);
}

TEST(HostProgramTest, CheckAcceptsAGoodConfiguration) {
  THostProcess host;
  std::string out;
  EXPECT_EQ(THostProcess::Run({"--check", host.config()}, out), 0) << out;
  EXPECT_EQ(out, host.config() + ": the configuration is valid\n");
}

TEST(HostProgramTest, CheckNamesTheFileAndKeyOfEachFault) {
  THostOptions o;
  o.usersMode = 0640;
  THostProcess host(o);
  std::string config = hosttest::ReadFile(host.config());
  config.replace(config.find("Threads=4"), 9, "Threads=many");
  config.replace(config.find("Listen=127.0.0.1"), 16, "Listen=localhost");
  hosttest::WriteFile(host.config(), config);
  std::remove(host.path("server.ini").c_str());
  std::string out;
  EXPECT_EQ(THostProcess::Run({"--check", host.config()}, out), 1);
  const std::string f = host.config() + ": ";
  EXPECT_NE(out.find(f + "[Host] Threads: \"many\" is not a whole number"), std::string::npos) << out;
  EXPECT_NE(out.find(f + "[Host] Listen: \"localhost\" is not a numeric IPv4 address"), std::string::npos) << out;
  EXPECT_NE(out.find(f + "[Port] ServerSettings: " + host.path("server.ini") + " cannot be read"), std::string::npos)
      << out;
  EXPECT_NE(out.find(f + "[Host] Users: " + host.path("users") + ": the users file is open to group or others"),
            std::string::npos)
      << out;
}

}  // namespace
