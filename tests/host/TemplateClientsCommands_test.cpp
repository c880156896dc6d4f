// Template client lists and template removals end to end through Execute, on
// a copy of an example library: every kind, read back after save and reload.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "ModuleHarness.h"
#include "api/AdapterRecords.h"
#include "api/CommandTable.h"
#include "api/FileVerbRecords.h"
#include "api/RecordFields.h"
#include "common/EventLog.h"

namespace {

using ztest::Module;

using TClients = std::vector<std::string>;

// One kind of template: its command words and the template of the example
// library with its clients (none for base assets, added below).
struct TKindRow {
  const char* kind;        // as in AddClientTo<kind>Template
  const char* kinds;       // as in MoveClientBetween<kinds>
  const char* getClients;  // the reading command of a template's clients
  const char* removeTemplate;
  const char* templateCode;
  TClients clients;
};
const std::vector<TKindRow>& Kinds() {
  static const std::vector<TKindRow> rows = {
      {"Client", "ClientTemplates", "GetClientsListOfClientTemplate", "RemoveClientTemplate", "RETAIL",
       {"C0001", "C0002", "C0004"}},
      {"Margin", "MarginTemplates", "GetClientsListOfMarginTemplate", "RemoveMarginTemplate", "QUAL", {"C0003"}},
      {"Restriction", "RestrictionTemplates", "GetClientsListOfRestrictionTemplate", "RemoveRestrictionTemplate",
       "STRICT", {"C0002"}},
      {"BaseAssets", "BaseAssetsTemplates", "GetClientsListFromBaseAssetsTemplate", "RemoveBaseAssetsTemplate", "BT",
       {"C0005", "C0006"}},
  };
  return rows;
}

// The leverages a template claims: set, then read by the reading command.
struct TLeverageRow {
  const char* set;
  const char* get;
  const char* templateCode;
};
const std::vector<TLeverageRow>& LeverageRows() {
  static const std::vector<TLeverageRow> rows = {
      {"SetIncludeClientsWithLeverageToClientTemplate", "GetIncludeClientsWithLeverageFromClientTemplate", "RETAIL"},
      {"SetIncludeClientsWithLeverageToMarginTemplate", "GetIncludeClientsWithLeverageFromMarginTemplate", "QUAL"},
      {"SetIncludeClientsWithLeverageToRestrictionTemplate", "GetIncludeClientsWithLeverageFromRestrictionTemplate",
       "STRICT"},
  };
  return rows;
}

class TemplateClientsCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ztest::ResetRecordedCalls();
    port_ = ztest::NewPort();
    dir_ = "tcl" + std::to_string(port_) + "/";
    firm_ = "FC" + std::to_string(port_);
    std::string library = ztest::ReadSourceFile("examples/server/libs/broker.ini");
    ASSERT_FALSE(library.empty());
    ztest::WriteServerFile(dir_ + "broker.ini", library + "\n[BaseAssets_Template_BT]\nClients=C0005,C0006\n");
    std::string list = ztest::WriteServerFile(dir_ + "dl.ini", "[dealer-library]\n" + firm_ + "=broker.ini\n");
    ASSERT_EQ(Module().InitDB(list, "", port_), 1);
    ztest::ClearEvents();
  }

  template <class Record>
  int Api(const std::string& command, Record& record, int user = 2) {
    return ztest::Command(port_, command, record, user);
  }
  int Open(int user, int mode) {
    TDL_DLOpenFile r{firm_, mode};
    return Api("DLOpenFile", r, user);
  }
  int Update() {
    TDL_DLUpdateFile r{firm_};
    return Api("DLUpdateFile", r);
  }
  int Close() {
    TDL_DLCloseFile r{firm_};
    return Api("DLCloseFile", r);
  }
  // Saves, closes and opens the saved file again.
  void SaveAndReload() {
    ASSERT_EQ(Update(), 0);
    ASSERT_EQ(Close(), 0);
    ASSERT_EQ(Open(2, 0), 0);
  }
  std::string FullText() {
    ::TDL_TwoStrings r{firm_, ""};
    EXPECT_EQ(Api("GetFullDealerLibrarySettings", r), 0);
    return r.strParam;
  }
  // The clients of a template, or the reading command's result as a marker.
  TClients Clients(const TKindRow& k, const std::string& templ) {
    TDL_TwoStringsAndArray r{firm_, templ, {}};
    const int result = Api(k.getClients, r);
    if (result != 0) return {"result " + std::to_string(result)};
    return r.lsStrings;
  }
  // The commands with their own records, built field by field.
  int Add(const TKindRow& k, const std::string& templ, const std::string& client) {
    TDL_TwoStringsAndString r{firm_, templ, client};
    return Api(std::string("AddClientTo") + k.kind + "Template", r);
  }
  int Remove(const TKindRow& k, const std::string& templ, const std::string& client) {
    TDL_TwoStringsAndString r{firm_, templ, client};
    return Api(std::string("RemoveClientFrom") + k.kind + "Template", r);
  }
  int Set(const TKindRow& k, const std::string& templ, const TClients& clients) {
    TDL_TemplateAndClients r{firm_, templ, clients};
    return Api(std::string("SetClientsListOf") + k.kind + "Template", r);
  }
  int Move(const TKindRow& k, const std::string& from, const std::string& to, const std::string& client) {
    TDL_Move r{firm_, from, to, client};
    return Api(std::string("MoveClientBetween") + k.kinds, r);
  }
  int Drop(const TKindRow& k, const std::string& templ) {
    TDL_Template r{firm_, templ};
    return Api(k.removeTemplate, r);
  }
  int SetLeverages(const TLeverageRow& l, const std::string& templ, const std::vector<double>& values) {
    TDL_TwoStringsAndArrayDouble r{firm_, templ, values};
    return Api(l.set, r);
  }
  std::vector<double> Leverages(const TLeverageRow& l, const std::string& templ) {
    TDL_TwoStringsAndArrayDouble r{firm_, templ, {}};
    const int result = Api(l.get, r);
    if (result != 0) return {-static_cast<double>(result)};
    return r.lsDoubles;
  }
  const TestDbAudit* LastPacket() {
    for (auto it = Module().db->audits.rbegin(); it != Module().db->audits.rend(); ++it)
      if (it->event == "SRV_USER_BO_DEALLIB_PACKET_CHANGE") return &*it;
    return nullptr;
  }

  // Records with the layouts of the commands, declared here independently.
  ZDL_DECLARE_RECORD(TDL_TwoStringsAndString, (std::string, firmCode), (std::string, templateCode),
                     (std::string, clientCode));
  ZDL_DECLARE_RECORD(TDL_TemplateAndClients, (std::string, firmCode), (std::string, templateCode),
                     (std::vector<std::string>, lsClients));
  ZDL_DECLARE_RECORD(TDL_Move, (std::string, firmCode), (std::string, fromTemplateCode),
                     (std::string, toTemplateCode), (std::string, clientCode));
  ZDL_DECLARE_RECORD(TDL_Template, (std::string, firmCode), (std::string, templateCode));

  int port_ = 0;
  std::string dir_, firm_;
};

// Every registered command of the family is visited by the round trip below:
// the five commands of each kind are named from the kind's row.
TEST_F(TemplateClientsCommandsTest, EveryCommandOfTheFamilyIsInTheRoundTrip) {
  std::set<std::string> visited;
  for (const TKindRow& k : Kinds()) {
    visited.insert(std::string("AddClientTo") + k.kind + "Template");
    visited.insert(std::string("RemoveClientFrom") + k.kind + "Template");
    visited.insert(std::string("SetClientsListOf") + k.kind + "Template");
    visited.insert(std::string("MoveClientBetween") + k.kinds);
    visited.insert(k.removeTemplate);
  }
  for (const TLeverageRow& l : LeverageRows()) visited.insert(l.set);
  for (const std::string& name : visited) {
    const DL::TCommandRow* row = DL::FindCommand(name);
    ASSERT_NE(row, nullptr) << name;
    EXPECT_NE(row->handler, nullptr) << name << " is not registered";
  }
  // And no registered command of these forms is left out.
  for (const DL::TCommandRow& row : DL::kCommandTable) {
    const std::string name(row.name);
    const bool ofFamily = (name.rfind("AddClientTo", 0) == 0 || name.rfind("RemoveClientFrom", 0) == 0 ||
                           name.rfind("SetIncludeClientsWithLeverage", 0) == 0 ||
                           name.rfind("SetClientsListOf", 0) == 0 || name.rfind("MoveClientBetween", 0) == 0) &&
                          name.find("PortfolioRiskConfig") == std::string::npos &&
                          name.find("Global") == std::string::npos;
    if (ofFamily && row.handler != nullptr) {
      EXPECT_EQ(visited.count(name), 1u) << name << " has no round trip";
    }
  }
}

TEST_F(TemplateClientsCommandsTest, EachKindRoundTripsThroughSaveAndReload) {
  ASSERT_EQ(Open(2, 0), 0);
  for (const TKindRow& k : Kinds()) {
    SCOPED_TRACE(k.kind);
    ASSERT_EQ(Clients(k, k.templateCode), k.clients);
    // Add a client, move another to a new template (created by the move),
    // set the list of a third template, remove one client.
    ASSERT_EQ(Add(k, k.templateCode, "N0001"), 0);
    ASSERT_EQ(Move(k, k.templateCode, "NEWT", k.clients[0]), 0);
    ASSERT_EQ(Set(k, "THIRD", {"S0002", "S0001"}), 0);
    ASSERT_EQ(Remove(k, "THIRD", "S0002"), 0);
  }
  for (int round = 0; round < 2; ++round) {
    for (const TKindRow& k : Kinds()) {
      SCOPED_TRACE(std::string(k.kind) + " round " + std::to_string(round));
      TClients expected(k.clients.begin() + 1, k.clients.end());
      expected.push_back("N0001");
      std::sort(expected.begin(), expected.end());
      EXPECT_EQ(Clients(k, k.templateCode), expected);
      EXPECT_EQ(Clients(k, "NEWT"), TClients{k.clients[0]});
      EXPECT_EQ(Clients(k, "THIRD"), TClients{"S0001"});
    }
    if (round == 0) SaveAndReload();
  }
  // The saved text is a fixed point.
  const std::string text = FullText();
  ASSERT_EQ(Update(), 0);
  EXPECT_EQ(ztest::ReadServerFile(dir_ + "broker.ini"), text);
}

TEST_F(TemplateClientsCommandsTest, RemovedTemplatesStayRemovedAfterReload) {
  ASSERT_EQ(Open(2, 0), 0);
  for (const TKindRow& k : Kinds()) ASSERT_EQ(Drop(k, k.templateCode), 0) << k.kind;
  for (int round = 0; round < 2; ++round) {
    for (const TKindRow& k : Kinds()) {
      // Restriction templates answer 15 for a missing one as the other kinds.
      EXPECT_EQ(Clients(k, k.templateCode), TClients{"result 1015"}) << k.kind << " round " << round;
    }
    if (round == 0) SaveAndReload();
  }
  const std::string text = FullText();
  EXPECT_EQ(text.find("[clRETAIL_Client_Template]"), std::string::npos);
  EXPECT_EQ(text.find("[clQUAL_Margin_Template]"), std::string::npos);
  EXPECT_EQ(text.find("[clSTRICT_Restriction_Template]"), std::string::npos);
  EXPECT_EQ(text.find("[BaseAssets_Template_BT]"), std::string::npos);
}

TEST_F(TemplateClientsCommandsTest, AClientStandsInOneTemplateOfAKind) {
  ASSERT_EQ(Open(2, 0), 0);
  const TKindRow& client = Kinds()[0];
  const TKindRow& margin = Kinds()[1];
  ASSERT_EQ(Set(client, "OTHER", {"X1"}), 0);
  // C0001 is in RETAIL: no second client template, and nothing changes.
  EXPECT_EQ(Add(client, "OTHER", "C0001"), 1016);
  EXPECT_EQ(Add(client, "RETAIL", "C0001"), 1016);
  EXPECT_EQ(Set(client, "OTHER", {"X2", "C0002"}), 1016);
  EXPECT_EQ(Clients(client, "OTHER"), TClients{"X1"});
  EXPECT_EQ(Clients(client, "RETAIL"), (TClients{"C0001", "C0002", "C0004"}));
  // Kinds are independent: C0001 may also stand in a margin template.
  EXPECT_EQ(Add(margin, "QUAL", "C0001"), 0);
  EXPECT_EQ(Clients(margin, "QUAL"), (TClients{"C0001", "C0003"}));
}

TEST_F(TemplateClientsCommandsTest, AClientTemplateKeepsItsCommissionScaleTemplateInStep) {
  ASSERT_EQ(Open(2, 0), 0);
  ASSERT_EQ(Add(Kinds()[0], "RETAIL", "C0009"), 0);
  const std::string text = FullText();
  const size_t twin = text.find("[clRETAIL_CommissionScale_Template]");
  ASSERT_NE(twin, std::string::npos) << text;
  const std::string section = text.substr(twin, text.find('[', twin + 1) - twin);
  EXPECT_NE(section.find("Clients=C0001,C0002,C0004,C0009"), std::string::npos) << section;
}

TEST_F(TemplateClientsCommandsTest, AMoveWhoseAddFailsLeavesTheClientInNeither) {
  ASSERT_EQ(Open(2, 0), 0);
  const TKindRow& client = Kinds()[0];
  // The target cannot be made (its code is too long): the client has left
  // the source all the same.
  EXPECT_EQ(Move(client, "RETAIL", "ABCDEFGHIJKLM", "C0001"), 1021);
  EXPECT_EQ(Clients(client, "RETAIL"), (TClients{"C0002", "C0004"}));
  EXPECT_EQ(Clients(client, "ABCDEFGHIJKLM"), TClients{"result 1015"});
  // A target where the client already stands refuses the add: the client is
  // then in neither template either.
  ASSERT_EQ(Set(client, "OTHER", {"Z1"}), 0);
  ASSERT_EQ(Add(Kinds()[1], "QUAL", "Z1"), 0);
  EXPECT_EQ(Move(Kinds()[1], "QUAL", "QUAL", "C0003"), 0);  // removed and added again
  EXPECT_EQ(Clients(Kinds()[1], "QUAL"), (TClients{"C0003", "Z1"}));
  // A move from a missing template changes nothing.
  EXPECT_EQ(Move(client, "NOSUCH", "OTHER", "C0002"), 1015);
  EXPECT_EQ(Clients(client, "RETAIL"), (TClients{"C0002", "C0004"}));
}

TEST_F(TemplateClientsCommandsTest, BadCodesAnswerTheirResultAndChangeNothing) {
  ASSERT_EQ(Open(2, 0), 0);
  const std::string before = FullText();
  for (const TKindRow& k : Kinds()) {
    SCOPED_TRACE(k.kind);
    EXPECT_EQ(Add(k, k.templateCode, "ABCDEFGHIJKLM"), 1010);  // 13 characters
    EXPECT_EQ(Add(k, k.templateCode, ""), 1003);
    EXPECT_EQ(Add(k, "", "C0100"), 1003);
    EXPECT_EQ(Remove(k, k.templateCode, "NOTTHERE"), 1004);
    EXPECT_EQ(Remove(k, "NOSUCH", "C0001"), 1015);
    EXPECT_EQ(Set(k, k.templateCode, {"OK1", "ABCDEFGHIJKLM"}), 1010);
    EXPECT_EQ(Move(k, k.templateCode, "", "C0001"), 1003);
  }
  EXPECT_EQ(FullText(), before);
  // A code of 12 characters passes.
  EXPECT_EQ(Add(Kinds()[1], "QUAL", "ABCDEFGHIJKL"), 0);
  // Removing an unknown restriction template gives 4, an empty code 3; the
  // other kinds give 15 and 3, and 21 for a code too long.
  EXPECT_EQ(Drop(Kinds()[2], "NOSUCH"), 1004);
  EXPECT_EQ(Drop(Kinds()[2], ""), 1003);
  EXPECT_EQ(Drop(Kinds()[0], "NOSUCH"), 1015);
  EXPECT_EQ(Drop(Kinds()[1], ""), 1003);
  EXPECT_EQ(Drop(Kinds()[3], "ABCDEFGHIJKLM"), 1021);
}

TEST_F(TemplateClientsCommandsTest, ChangesAreNotedAsTheirChangeLines) {
  ASSERT_EQ(Open(2, 0), 0);
  const TKindRow& client = Kinds()[0];
  ASSERT_EQ(Add(client, "RETAIL", "C0009"), 0);
  ASSERT_EQ(Set(client, "OTHER", {"B1", "A1"}), 0);
  ASSERT_EQ(Move(client, "OTHER", "RETAIL", "A1"), 0);
  EXPECT_EQ(Remove(client, "RETAIL", "NOTTHERE"), 1004);  // a refusal notes nothing
  ASSERT_EQ(Drop(Kinds()[2], "STRICT"), 0);
  ASSERT_EQ(Update(), 0);
  const TestDbAudit* packet = LastPacket();
  ASSERT_NE(packet, nullptr);
  EXPECT_EQ(packet->fields[20],
            "AddClientToClientTemplate,\"main\",\"RETAIL\",1,\"C0009\",\r\n"
            "SetClientsListOfClientTemplate,\"main\",\"OTHER\",2,\"B1\",\"A1\",\r\n"
            "MoveClientBetweenClientTemplates,\"main\",\"OTHER\",\"RETAIL\",1,\"A1\",\r\n"
            "RemoveRestrictionTemplate,\"main\",\"STRICT\",\r\n");
}

TEST_F(TemplateClientsCommandsTest, LeveragesRoundTripThroughSaveAndReload) {
  ASSERT_EQ(Open(2, 0), 0);
  for (const TLeverageRow& l : LeverageRows()) {
    ASSERT_EQ(Leverages(l, l.templateCode), std::vector<double>{}) << l.set;
  }
  ASSERT_EQ(SetLeverages(LeverageRows()[0], "RETAIL", {2.5, 0, 2.5, 10}), 0);
  ASSERT_EQ(SetLeverages(LeverageRows()[1], "QUAL", {3}), 0);
  ASSERT_EQ(SetLeverages(LeverageRows()[2], "STRICT", {999999999}), 0);
  for (int round = 0; round < 2; ++round) {
    SCOPED_TRACE(round);
    EXPECT_EQ(Leverages(LeverageRows()[0], "RETAIL"), (std::vector<double>{2.5, 0, 10}));
    EXPECT_EQ(Leverages(LeverageRows()[1], "QUAL"), (std::vector<double>{3}));
    EXPECT_EQ(Leverages(LeverageRows()[2], "STRICT"), (std::vector<double>{999999999}));
    if (round == 0) SaveAndReload();
  }
  // An empty array empties the list.
  ASSERT_EQ(SetLeverages(LeverageRows()[1], "QUAL", {}), 0);
  EXPECT_EQ(Leverages(LeverageRows()[1], "QUAL"), std::vector<double>{});
}

TEST_F(TemplateClientsCommandsTest, BadLeveragesAreRefusedAndChangeNothing) {
  ASSERT_EQ(Open(2, 0), 0);
  const TLeverageRow& client = LeverageRows()[0];
  ASSERT_EQ(SetLeverages(client, "RETAIL", {2}), 0);
  ASSERT_EQ(SetLeverages(client, "OTHER", {1}), 1015);  // no such template
  ASSERT_EQ(Set(Kinds()[0], "OTHER", {"X1"}), 0);
  EXPECT_EQ(SetLeverages(client, "OTHER", {1, -1}), 1003);
  EXPECT_EQ(SetLeverages(client, "OTHER", {1e9}), 1003);
  EXPECT_EQ(SetLeverages(client, "OTHER", {1, 2}), 1016);  // RETAIL claims 2
  EXPECT_EQ(SetLeverages(client, "", {1}), 1003);
  EXPECT_EQ(Leverages(client, "OTHER"), std::vector<double>{});
  EXPECT_EQ(Leverages(client, "RETAIL"), std::vector<double>{2});
  // Another kind may claim the same leverage.
  EXPECT_EQ(SetLeverages(LeverageRows()[1], "QUAL", {2}), 0);
}

TEST_F(TemplateClientsCommandsTest, AReaderMayNotChangeTemplates) {
  ASSERT_EQ(Open(3, 1), 0);
  EXPECT_EQ(Add(Kinds()[0], "RETAIL", "C0009"), 12);
}

}  // namespace
