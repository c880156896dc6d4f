// The client-list commands end to end through Execute: each change is read
// back, saved by "DLUpdateFile", reloaded and read again, and the saved text
// is a fixed point.
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

#include "ModuleHarness.h"
#include "api/CommandTable.h"
#include "api/FileVerbRecords.h"
#include "api/OwnClientListsCommands.h"

namespace {

class ClientListsCommandsTest : public ::testing::Test {
 public:
  void SetUp() override {
    ztest::ResetRecordedCalls();
    port_ = ztest::NewPort();
    dir_ = "cl" + std::to_string(port_) + "/";
    firm_ = "FC" + std::to_string(port_);
    ztest::WriteServerFile(dir_ + "f.ini",
                           "[General]\nA=1\n[ClientCval]\nC1=1\n[ComplexFIApprovedClients]\nClients=C1,C2\n");
    std::string list = ztest::WriteServerFile(dir_ + "dl.ini", "[dealer-library]\n" + firm_ + "=f.ini\n");
    ASSERT_EQ(ztest::Module().InitDB(list, "", port_), 1);
    ASSERT_EQ(Open(0), 0);
  }

  int Api(const std::string& command, std::vector<unsigned char>& block) {
    CAlert m;
    m << command << block;
    ztest::Call("ZDealerAPI", m, kUser, port_, "user");
    std::string name;
    int result = -1;
    m >> name >> result >> block;
    return result;
  }
  template <class Record>
  int Api(const std::string& command, Record& record) {
    std::vector<unsigned char> block;
    StoreDataForZDealerAPI(record, block);
    int result = Api(command, block);
    LoadDataForZDeallibAPI(record, block);
    return result;
  }
  int Open(int mode) {
    TDL_DLOpenFile r{firm_, mode};
    return Api("DLOpenFile", r);
  }
  // Saves, closes and opens the firm again from the saved file.
  std::string SaveAndReload() {
    TDL_DLUpdateFile update{firm_};
    EXPECT_EQ(Api("DLUpdateFile", update), 0);
    const std::string saved = ztest::ReadServerFile(dir_ + "f.ini");
    TDL_DLCloseFile close{firm_};
    EXPECT_EQ(Api("DLCloseFile", close), 0);
    EXPECT_EQ(Open(0), 0);
    return saved;
  }

  std::vector<std::string> ApprovedClients() {
    TDL_GetComplexFIApprovedClientsFromGlobal r{firm_, {}};
    EXPECT_EQ(Api("GetComplexFIApprovedClientsFromGlobal", r), 0);
    return r.lsClients;
  }
  int Cval(const std::string& client) {
    TDL_GetClientCvalByClientCodeFromGlobal r{firm_, client, -7};
    const int result = Api("GetClientCvalByClientCodeFromGlobal", r);
    return result == 0 ? r.clientCval : -result;  // a failure as its negated result
  }
  std::vector<TDL_StringsPair> CvalList() {
    TDL_GetClientCvalListFromGlobal r{firm_, {}};
    EXPECT_EQ(Api("GetClientCvalListFromGlobal", r), 0);
    return r.lsClientCvals;
  }
  int Sign() {
    TDL_GetClientCvalSignFromGlobal r{firm_, 0};
    EXPECT_EQ(Api("GetClientCvalSignFromGlobal", r), 0);
    return r.sign;
  }

  static constexpr int kUser = 5;
  int port_ = 0;
  std::string dir_, firm_;
};

// One step of the round trip: a change through its command, and what the
// matching Get commands must answer after it, before and after a reload.
struct TRoundTrip {
  std::set<std::string> commands;  // the commands the step exercises
  std::function<int(ClientListsCommandsTest&)> change;
  std::function<void(ClientListsCommandsTest&)> check;
};

std::string Names(const std::vector<TDL_StringsPair>& pairs) {
  std::string out;
  for (const TDL_StringsPair& p : pairs) out += p.str1 + "=" + p.str2 + ";";
  return out;
}

std::vector<TRoundTrip> Steps() {
  return {
      {{"AddComplexFIApprovedClientsToGlobal", "GetComplexFIApprovedClientsFromGlobal"},
       [](ClientListsCommandsTest& t) {
         TDL_AddComplexFIApprovedClientsToGlobal r{t.firm_, "C3"};
         return t.Api("AddComplexFIApprovedClientsToGlobal", r);
       },
       [](ClientListsCommandsTest& t) { EXPECT_EQ(t.ApprovedClients(), (std::vector<std::string>{"C1", "C2", "C3"})); }},
      {{"RemoveComplexFIApprovedClientsFromGlobal"},
       [](ClientListsCommandsTest& t) {
         TDL_RemoveComplexFIApprovedClientsFromGlobal r{t.firm_, "C1"};
         return t.Api("RemoveComplexFIApprovedClientsFromGlobal", r);
       },
       [](ClientListsCommandsTest& t) { EXPECT_EQ(t.ApprovedClients(), (std::vector<std::string>{"C2", "C3"})); }},
      {{"SetComplexFIApprovedClientsToGlobal"},
       [](ClientListsCommandsTest& t) {
         TDL_SetComplexFIApprovedClientsToGlobal r{t.firm_, {"Z9", "A0"}};
         return t.Api("SetComplexFIApprovedClientsToGlobal", r);
       },
       [](ClientListsCommandsTest& t) { EXPECT_EQ(t.ApprovedClients(), (std::vector<std::string>{"A0", "Z9"})); }},
      {{"SetClientCvalSignToGlobal", "GetClientCvalSignFromGlobal"},
       [](ClientListsCommandsTest& t) {
         TDL_SetClientCvalSignToGlobal r{t.firm_, -1};
         return t.Api("SetClientCvalSignToGlobal", r);
       },
       [](ClientListsCommandsTest& t) { EXPECT_EQ(t.Sign(), -1); }},
      {{"AddClientCvalByClientCodeToGlobal", "GetClientCvalByClientCodeFromGlobal"},
       [](ClientListsCommandsTest& t) {
         TDL_AddClientCvalByClientCodeToGlobal r{t.firm_, "C5", 2};
         return t.Api("AddClientCvalByClientCodeToGlobal", r);
       },
       [](ClientListsCommandsTest& t) { EXPECT_EQ(t.Cval("C5"), 2); }},
      {{"RemoveClientCvalByClientCodeFromGlobal", "GetClientCvalListFromGlobal"},
       [](ClientListsCommandsTest& t) {
         TDL_RemoveClientCvalByClientCodeFromGlobal r{t.firm_, "C1"};
         return t.Api("RemoveClientCvalByClientCodeFromGlobal", r);
       },
       [](ClientListsCommandsTest& t) { EXPECT_EQ(Names(t.CvalList()), "C5=2;"); }},
      {{"SetClientCvalListToGlobal"},
       [](ClientListsCommandsTest& t) {
         TDL_SetClientCvalListToGlobal r{t.firm_, {{"K2", "0"}, {"K1", "3"}}};
         return t.Api("SetClientCvalListToGlobal", r);
       },
       [](ClientListsCommandsTest& t) {
         EXPECT_EQ(Names(t.CvalList()), "K1=3;K2=0;");
         EXPECT_EQ(t.Cval("C5"), -1004);
       }},
  };
}

TEST_F(ClientListsCommandsTest, EveryChangeIsReadBackSavedReloadedAndAFixedPoint) {
  for (const TRoundTrip& step : Steps()) {
    SCOPED_TRACE(*step.commands.begin());
    ASSERT_EQ(step.change(*this), 0);
    step.check(*this);
    const std::string saved = SaveAndReload();
    step.check(*this);
    // Saved again without a change, the text stays the same bytes.
    EXPECT_EQ(SaveAndReload(), saved);
  }
}

TEST_F(ClientListsCommandsTest, EveryRegisteredCommandOfTheFamilyIsInTheRoundTrip) {
  std::set<std::string> covered;
  for (const TRoundTrip& step : Steps()) covered.insert(step.commands.begin(), step.commands.end());
  const std::set<std::string> family = {
      "GetComplexFIApprovedClientsFromGlobal", "SetComplexFIApprovedClientsToGlobal",
      "AddComplexFIApprovedClientsToGlobal",   "RemoveComplexFIApprovedClientsFromGlobal",
      "GetClientCvalSignFromGlobal",           "SetClientCvalSignToGlobal",
      "GetClientCvalListFromGlobal",           "SetClientCvalListToGlobal",
      "AddClientCvalByClientCodeToGlobal",     "RemoveClientCvalByClientCodeFromGlobal",
      "GetClientCvalByClientCodeFromGlobal"};
  for (const std::string& name : family) {
    const DL::TCommandRow* row = DL::FindCommand(name);
    ASSERT_NE(row, nullptr) << name;
    EXPECT_NE(row->handler, nullptr) << name << " is not registered";
    EXPECT_EQ(covered.count(name), 1u) << name << " is not in the round trip";
  }
}

TEST_F(ClientListsCommandsTest, AChangeIsNotedAsItsChangeLine) {
  TDL_AddClientCvalByClientCodeToGlobal add{firm_, "C5", 2};
  ASSERT_EQ(Api("AddClientCvalByClientCodeToGlobal", add), 0);
  TDL_SetComplexFIApprovedClientsToGlobal set{firm_, {"A1", "B2"}};
  ASSERT_EQ(Api("SetComplexFIApprovedClientsToGlobal", set), 0);
  TDL_DLUpdateFile update{firm_};
  ASSERT_EQ(Api("DLUpdateFile", update), 0);
  const TestDbAudit* packet = nullptr;
  for (const TestDbAudit& a : ztest::Module().db->audits)
    if (a.event == "SRV_USER_BO_DEALLIB_PACKET_CHANGE") packet = &a;
  ASSERT_NE(packet, nullptr);
  EXPECT_EQ(packet->fields[20],
            "AddClientCvalByClientCodeToGlobal,main,\"C5\",\"2\"\r\n"
            "SetComplexFIApprovedClientsToGlobal,main,2[A1,B2]\r\n");
}

TEST_F(ClientListsCommandsTest, RefusedChangesAnswerTheirCodeAndChangeNothing) {
  TDL_AddComplexFIApprovedClientsToGlobal dup{firm_, "C1"};
  EXPECT_EQ(Api("AddComplexFIApprovedClientsToGlobal", dup), 1016);
  TDL_AddComplexFIApprovedClientsToGlobal tooLong{firm_, "C123456789012"};
  EXPECT_EQ(Api("AddComplexFIApprovedClientsToGlobal", tooLong), 1010);
  TDL_SetClientCvalListToGlobal notNumber{firm_, {{"K1", "one"}}};
  EXPECT_EQ(Api("SetClientCvalListToGlobal", notNumber), 1003);
  TDL_RemoveClientCvalByClientCodeFromGlobal absent{firm_, "NOPE"};
  EXPECT_EQ(Api("RemoveClientCvalByClientCodeFromGlobal", absent), 1004);
  EXPECT_EQ(ApprovedClients(), (std::vector<std::string>{"C1", "C2"}));
  EXPECT_EQ(Names(CvalList()), "C1=1;");
}

TEST_F(ClientListsCommandsTest, AReaderMayReadButNotChange) {
  TDL_DLOpenFile reader{firm_, 1};
  CAlert m;
  std::vector<unsigned char> block;
  StoreDataForZDealerAPI(reader, block);
  m << std::string("DLOpenFile") << block;
  ztest::Call("ZDealerAPI", m, kUser + 1, port_, "reader");
  TDL_AddClientCvalByClientCodeToGlobal add{firm_, "C9", 1};
  std::vector<unsigned char> request;
  StoreDataForZDealerAPI(add, request);
  CAlert call;
  call << std::string("AddClientCvalByClientCodeToGlobal") << request;
  ztest::Call("ZDealerAPI", call, kUser + 1, port_, "reader");
  std::string name;
  int result = -1;
  call >> name >> result;
  EXPECT_EQ(result, 12);
}

}  // namespace
