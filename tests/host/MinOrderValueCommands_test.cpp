// Smallest order values of the firm, of client and restriction templates and
// of a client's own settings, end to end through Execute on a copy of an
// example library.
#include <gtest/gtest.h>

#include <set>

#include "ModuleHarness.h"
#include "api/CommandTable.h"
#include "api/FileVerbRecords.h"
#include "api/RecordFields.h"
#include "common/EventLog.h"

namespace {

using ztest::Module;

// The layouts of the records, written out here: a row, the list form
// (firm, scope, [owner], rows) and the single-row form (firm, scope,
// [owner], the row's fields).
ZDL_DECLARE_RECORD(TRowRec, (std::vector<std::string>, lsClasses), (std::vector<std::string>, lsInstruments),
                   (double, value), (std::string, currency));
ZDL_DECLARE_RECORD(TListGlobal, (std::string, firmCode), (int, settingsScope), (std::vector<TRowRec>, lsRestrictions));
ZDL_DECLARE_RECORD(TListTemplate, (std::string, firmCode), (int, settingsScope), (std::string, templateCode),
                   (std::vector<TRowRec>, lsRestrictions));
ZDL_DECLARE_RECORD(TListSetClient, (std::string, firmCode), (int, settingsScope), (std::string, clientCode),
                   (std::vector<TRowRec>, lsRestrictions));
ZDL_DECLARE_RECORD(TListClient, (std::string, firmCode), (int, settingsScope), (std::string, clientCode),
                   (std::string, classCode), (std::vector<TRowRec>, lsRestrictions));
ZDL_DECLARE_RECORD(TOneGlobal, (std::string, firmCode), (int, settingsScope),
                   (std::vector<std::string>, lsClasses), (std::vector<std::string>, lsInstruments), (double, value),
                   (std::string, currency));
ZDL_DECLARE_RECORD(TOneTemplate, (std::string, firmCode), (int, settingsScope), (std::string, templateCode),
                   (std::vector<std::string>, lsClasses), (std::vector<std::string>, lsInstruments), (double, value),
                   (std::string, currency));
ZDL_DECLARE_RECORD(TOneClient, (std::string, firmCode), (int, settingsScope), (std::string, clientCode),
                   (std::vector<std::string>, lsClasses), (std::vector<std::string>, lsInstruments), (double, value),
                   (std::string, currency));

// An owner of rows: its scope word and its code ("" for the firm).
struct TOwnerRow {
  const char* scope;
  const char* code;
};
const std::vector<TOwnerRow>& Owners() {
  static const std::vector<TOwnerRow> rows = {
      {"Global", ""}, {"ClientSettings", "C0001"}, {"ClientTemplate", "RETAIL"}, {"RestrictionTemplate", "STRICT"}};
  return rows;
}

bool operator==(const TRowRec& a, const TRowRec& b) {
  return a.lsClasses == b.lsClasses && a.lsInstruments == b.lsInstruments && a.value == b.value &&
         a.currency == b.currency;
}
std::ostream& operator<<(std::ostream& out, const TRowRec& r) {
  out << "{";
  for (const auto& c : r.lsClasses) out << c << " ";
  out << "|";
  for (const auto& s : r.lsInstruments) out << " " << s;
  return out << " | " << r.value << " " << r.currency << "}";
}

class MinOrderValueCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ztest::ResetRecordedCalls();
    port_ = ztest::NewPort();
    dir_ = "mov" + std::to_string(port_) + "/";
    firm_ = "FM" + std::to_string(port_);
    ztest::WriteServerFile(dir_ + "broker.ini", ztest::ReadSourceFile("examples/server/libs/broker.ini"));
    std::string list = ztest::WriteServerFile(dir_ + "dl.ini", "[dealer-library]\n" + firm_ + "=broker.ini\n");
    ASSERT_EQ(Module().InitDB(list, "", port_), 1);
    ztest::ClearEvents();
    TDL_DLOpenFile open{firm_, 0};
    ASSERT_EQ(ztest::Command(port_, "DLOpenFile", open, 2), 0);
  }

  static bool IsClient(const TOwnerRow& o) { return std::string(o.scope) == "ClientSettings"; }
  int One(const std::string& verb, const TOwnerRow& o, int scope, const TRowRec& row) {
    const std::string command =
        verb + (verb == "Remove" ? "MinOrderValueFrom" : "MinOrderValueTo") + std::string(o.scope);
    if (*o.code == '\0') {
      TOneGlobal r{firm_, scope, row.lsClasses, row.lsInstruments, row.value, row.currency};
      return ztest::Command(port_, command, r, 2);
    }
    if (IsClient(o)) {
      TOneClient r{firm_, scope, o.code, row.lsClasses, row.lsInstruments, row.value, row.currency};
      return ztest::Command(port_, command, r, 2);
    }
    TOneTemplate r{firm_, scope, o.code, row.lsClasses, row.lsInstruments, row.value, row.currency};
    return ztest::Command(port_, command, r, 2);
  }
  int SetRows(const TOwnerRow& o, int scope, const std::vector<TRowRec>& rows) {
    const std::string command = "SetMinOrderValueTo" + std::string(o.scope);
    if (*o.code == '\0') {
      TListGlobal r{firm_, scope, rows};
      return ztest::Command(port_, command, r, 2);
    }
    if (IsClient(o)) {
      TListSetClient r{firm_, scope, o.code, rows};
      return ztest::Command(port_, command, r, 2);
    }
    TListTemplate r{firm_, scope, o.code, rows};
    return ztest::Command(port_, command, r, 2);
  }
  // The rows, or a single marker row holding the result when it is not 0.
  std::vector<TRowRec> Rows(const TOwnerRow& o, int scope = 0, const std::string& code = "-") {
    const std::string command = "GetMinOrderValueFrom" + std::string(o.scope);
    const std::string owner = code == "-" ? o.code : code;
    std::vector<TRowRec> rows;
    int result = 0;
    if (*o.code == '\0') {
      TListGlobal r{firm_, scope, {}};
      result = ztest::Command(port_, command, r, 2);
      rows = r.lsRestrictions;
    } else if (IsClient(o)) {
      TListClient r{firm_, scope, owner, "", {}};
      result = ztest::Command(port_, command, r, 2);
      rows = r.lsRestrictions;
    } else {
      TListTemplate r{firm_, scope, owner, {}};
      result = ztest::Command(port_, command, r, 2);
      rows = r.lsRestrictions;
    }
    if (result != 0) return {Marker(result)};
    return rows;
  }
  void SaveAndReload() {
    TDL_DLUpdateFile update{firm_};
    ASSERT_EQ(ztest::Command(port_, "DLUpdateFile", update, 2), 0);
    TDL_DLCloseFile close{firm_};
    ASSERT_EQ(ztest::Command(port_, "DLCloseFile", close, 2), 0);
    TDL_DLOpenFile open{firm_, 0};
    ASSERT_EQ(ztest::Command(port_, "DLOpenFile", open, 2), 0);
  }
  std::string SavedText() { return ztest::ReadServerFile(dir_ + "broker.ini"); }
  static TRowRec Marker(int result) { return TRowRec{{"result"}, {}, static_cast<double>(result), ""}; }

  int port_ = 0;
  std::string dir_, firm_;
};

const TRowRec kShares{{"TQBR"}, {"GAZP", "SBER"}, 1000, "RUB"};
const TRowRec kFunds{{"TQTF"}, {}, 500.5, ""};
const TRowRec kBonds{{"TQOB", "TQCB"}, {"SU26238"}, 25000, "USD"};

TEST_F(MinOrderValueCommandsTest, EveryCommandOfTheFamilyIsRegisteredAndInTheRoundTrip) {
  std::set<std::string> visited;
  for (const TOwnerRow& o : Owners())
    for (const char* form : {"GetMinOrderValueFrom", "AddMinOrderValueTo", "SetMinOrderValueTo",
                             "RemoveMinOrderValueFrom"})
      visited.insert(form + std::string(o.scope));
  for (const DL::TCommandRow& row : DL::kCommandTable) {
    const std::string name(row.name);
    if (name.find("MinOrderValue") == std::string::npos) continue;
    EXPECT_EQ(visited.count(name), 1u) << name << " is not in the round trip";
    EXPECT_NE(row.handler, nullptr) << name << " is not registered";
  }
  EXPECT_EQ(visited.size(), 16u);
}

TEST_F(MinOrderValueCommandsTest, EachOwnerRoundTripsThroughSaveAndReload) {
  for (const TOwnerRow& o : Owners()) {
    SCOPED_TRACE(o.scope);
    // The firm has no section yet (4); the others have no rows.
    EXPECT_EQ(Rows(o), *o.code == '\0' ? std::vector<TRowRec>{Marker(1004)} : std::vector<TRowRec>{}) << "before";
    ASSERT_EQ(One("Add", o, 0, kShares), 0);
    ASSERT_EQ(One("Add", o, 0, kFunds), 0);
    ASSERT_EQ(One("Add", o, 0, kBonds), 0);
    ASSERT_EQ(One("Remove", o, 0, kFunds), 0);
  }
  // Rows come in key order; the lists of a key are sorted.
  const TRowRec bonds{{"TQCB", "TQOB"}, {"SU26238"}, 25000, "USD"};
  for (int round = 0; round < 2; ++round) {
    for (const TOwnerRow& o : Owners()) {
      SCOPED_TRACE(std::string(o.scope) + " round " + std::to_string(round));
      EXPECT_EQ(Rows(o), (std::vector<TRowRec>{kShares, bonds}));
    }
    if (round == 0) SaveAndReload();
  }
  EXPECT_NE(SavedText().find("[OrderMinValue]\r\nTQBR_INSTR_GAZP,SBER=1000,RUB\r\nTQCB,TQOB_INSTR_SU26238=25000,USD\r\n"),
            std::string::npos)
      << SavedText();
  EXPECT_NE(SavedText().find("OrderMinValue_TQBR_INSTR_GAZP,SBER=1000,RUB"), std::string::npos);
  // A whole list replaced, then read back after a reload.
  for (const TOwnerRow& o : Owners()) ASSERT_EQ(SetRows(o, 0, {kFunds}), 0) << o.scope;
  SaveAndReload();
  for (const TOwnerRow& o : Owners()) EXPECT_EQ(Rows(o), std::vector<TRowRec>{kFunds}) << o.scope;
  const std::string text = SavedText();
  SaveAndReload();
  EXPECT_EQ(SavedText(), text);  // a fixed point
}

TEST_F(MinOrderValueCommandsTest, AClientReadsTheRowsOfOneClass) {
  const TOwnerRow& client = Owners()[1];
  ASSERT_EQ(SetRows(client, 0, {kShares, kFunds, TRowRec{{"<ALL>"}, {"LKOH"}, 7, ""}}), 0);
  TListClient r{firm_, 0, "C0001", "TQTF", {}};
  ASSERT_EQ(ztest::Command(port_, "GetMinOrderValueFromClientSettings", r, 2), 0);
  EXPECT_EQ(r.lsRestrictions, (std::vector<TRowRec>{TRowRec{{"<ALL>"}, {"LKOH"}, 7, ""}, kFunds}));
}

TEST_F(MinOrderValueCommandsTest, BadRowsScopesAndOwnersAreRefusedAndChangeNothing) {
  for (const TOwnerRow& o : Owners()) ASSERT_EQ(One("Add", o, 0, kShares), 0) << o.scope;
  TDL_DLUpdateFile update{firm_};
  ASSERT_EQ(ztest::Command(port_, "DLUpdateFile", update, 2), 0);
  const std::string before = SavedText();
  for (const TOwnerRow& o : Owners()) {
    SCOPED_TRACE(o.scope);
    // A common class and a common security: the row collides.
    EXPECT_EQ(One("Add", o, 0, TRowRec{{"TQBR", "TQTF"}, {"SBER"}, 1, ""}), 1016);
    EXPECT_EQ(One("Add", o, 0, kShares), 1016);
    EXPECT_EQ(SetRows(o, 0, {kFunds, kFunds}), 1016);  // written up to the second, then refused
    ASSERT_EQ(SetRows(o, 0, {kShares}), 0);
    // No soft form: scope 1 and any other scope give 19.
    EXPECT_EQ(One("Add", o, 1, kFunds), 1019);
    EXPECT_EQ(One("Add", o, 2, kFunds), 1019);
    EXPECT_EQ(Rows(o, 2), std::vector<TRowRec>{Marker(1019)});
    EXPECT_EQ(One("Add", o, 0, TRowRec{{}, {"SBER"}, 1, ""}), 1003);
    EXPECT_EQ(One("Add", o, 0, TRowRec{{"ABCDEFGHIJKLM"}, {}, 1, ""}), 1009);
    EXPECT_EQ(One("Add", o, 0, TRowRec{{"TQTF"}, {"ABCDEFGHIJKLM"}, 1, ""}), 1013);
    EXPECT_EQ(One("Add", o, 0, TRowRec{{"TQTF"}, {}, 1, "RUBLE"}), 1011);
    EXPECT_EQ(One("Remove", o, 0, kFunds), 1004);
  }
  EXPECT_EQ(One("Add", Owners()[1], 0, kFunds), 0);  // a client code of 5 passes ...
  const TOwnerRow longClient{"ClientSettings", "ABCDEFGHIJKLM"};
  EXPECT_EQ(One("Add", longClient, 0, kFunds), 1010);
  EXPECT_EQ(One("Add", TOwnerRow{"ClientSettings", "NOSUCH"}, 0, kFunds), 1020);
  EXPECT_EQ(One("Add", TOwnerRow{"ClientTemplate", "NOSUCH"}, 0, kFunds), 1015);
  EXPECT_EQ(One("Add", TOwnerRow{"RestrictionTemplate", "ABCDEFGHIJKLM"}, 0, kFunds), 1021);
  EXPECT_EQ(Rows(Owners()[2], 0, "NOSUCH"), std::vector<TRowRec>{Marker(1015)});
  ASSERT_EQ(One("Remove", Owners()[1], 0, kFunds), 0);
  ASSERT_EQ(ztest::Command(port_, "DLUpdateFile", update, 2), 0);
  EXPECT_EQ(SavedText(), before);
}

TEST_F(MinOrderValueCommandsTest, AChangeIsNotedAsItsChangeLine) {
  ASSERT_EQ(One("Add", Owners()[0], 0, TRowRec{{"TQBR"}, {"SBER", "GAZP"}, 1000, "RUB"}), 0);
  ASSERT_EQ(One("Add", Owners()[0], 1, kFunds), 1019);  // refused: no line
  ASSERT_EQ(One("Remove", Owners()[2], 0, kFunds), 1004);
  ASSERT_EQ(SetRows(Owners()[2], 0, {kFunds}), 0);
  TDL_DLUpdateFile update{firm_};
  ASSERT_EQ(ztest::Command(port_, "DLUpdateFile", update, 2), 0);
  const TestDbAudit* packet = nullptr;
  for (const TestDbAudit& a : Module().db->audits)
    if (a.event == "SRV_USER_BO_DEALLIB_PACKET_CHANGE") packet = &a;
  ASSERT_NE(packet, nullptr);
  EXPECT_EQ(packet->fields[20],
            "AddMinOrderValueToGlobal,main,\"0\",1[[TQBR]:[SBER,GAZP]:1000:RUB]\r\n"
            "SetMinOrderValueToClientTemplate,main,\"0\",\"RETAIL\",1[[TQTF]:[]:500.5:]\r\n");
}

}  // namespace
