// Price limits by class and by security of the firm, of a client template
// and of a client's own settings, with their soft twins, end to end through
// Execute on a copy of an example library.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "ModuleHarness.h"
#include "api/CommandTable.h"
#include "api/FileVerbRecords.h"
#include "api/RecordFields.h"
#include "common/EventLog.h"

namespace {

using ztest::Module;

ZDL_DECLARE_RECORD(TLimit, (std::string, classCode), (double, deviation), (int, priceType), (bool, reject));

bool operator==(const TLimit& a, const TLimit& b) {
  return a.classCode == b.classCode && a.deviation == b.deviation && a.priceType == b.priceType &&
         a.reject == b.reject;
}
std::ostream& operator<<(std::ostream& out, const TLimit& l) {
  return out << "{" << l.classCode << " " << l.deviation << " " << l.priceType << " " << l.reject << "}";
}

// The records of the family, laid out here field by field: the firm, the
// scope, the owner's code under its name, then what the verb carries.
struct TRequest {
  using TransferRecordTag = void;
  enum EBody { OneLimit, Code, List, Middle };
  EBody body = List;
  std::string firmCode;
  int settingsScope = 0;
  std::string ownerField, ownerCode;  // no owner field when ownerField is empty
  std::string codeField, code;        // "classCode" or "secCode"
  double deviation = 0;
  int priceType = 0;
  bool reject = false;
  std::vector<TLimit> lsSettings;
  int middlePrice = 0;
  template <class Self, class Visitor>
  static void VisitFields(Self& r, Visitor&& visit) {
    visit("firmCode", r.firmCode);
    visit("settingsScope", r.settingsScope);
    if (!r.ownerField.empty()) visit(r.ownerField.c_str(), r.ownerCode);
    switch (r.body) {
      case OneLimit:
        visit(r.codeField.c_str(), r.code);
        visit("deviation", r.deviation);
        visit("priceType", r.priceType);
        visit("reject", r.reject);
        break;
      case Code:
        visit(r.codeField.c_str(), r.code);
        break;
      case List:
        visit("lsSettings", r.lsSettings);
        break;
      case Middle:
        visit("middlePrice", r.middlePrice);
        break;
    }
  }
};

// One owner and family: the words of its commands and its codes.
struct TFamilyRow {
  const char* owner;   // "Global", "ClientSettings", "ClientTemplate"
  const char* code;    // the owner's code
  const char* family;  // "PriceLimit" or "SecPriceLimit"
  const char* item;    // "Class" or "Security"
  const char* a;       // two codes of the family
  const char* b;
};
const std::vector<TFamilyRow>& Families() {
  static const std::vector<TFamilyRow> rows = {
      {"Global", "", "PriceLimit", "Class", "TQBR", "TQTF"},
      {"Global", "", "SecPriceLimit", "Security", "SBER", "GAZP"},
      {"ClientSettings", "C0001", "PriceLimit", "Class", "TQBR", "TQTF"},
      {"ClientSettings", "C0001", "SecPriceLimit", "Security", "SBER", "GAZP"},
      {"ClientTemplate", "RETAIL", "PriceLimit", "Class", "TQBR", "TQTF"},
      {"ClientTemplate", "RETAIL", "SecPriceLimit", "Security", "SBER", "GAZP"},
  };
  return rows;
}

class PriceLimitCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ztest::ResetRecordedCalls();
    port_ = ztest::NewPort();
    dir_ = "plc" + std::to_string(port_) + "/";
    firm_ = "FP" + std::to_string(port_);
    ztest::WriteServerFile(dir_ + "broker.ini", ztest::ReadSourceFile("examples/server/libs/broker.ini"));
    std::string list = ztest::WriteServerFile(dir_ + "dl.ini", "[dealer-library]\n" + firm_ + "=broker.ini\n");
    ASSERT_EQ(Module().InitDB(list, "", port_), 1);
    ztest::ClearEvents();
    ASSERT_EQ(Open(), 0);
  }
  int Open() {
    TDL_DLOpenFile open{firm_, 0};
    return ztest::Command(port_, "DLOpenFile", open, 2);
  }
  int Update() {
    TDL_DLUpdateFile update{firm_};
    return ztest::Command(port_, "DLUpdateFile", update, 2);
  }
  void SaveAndReload() {
    ASSERT_EQ(Update(), 0);
    TDL_DLCloseFile close{firm_};
    ASSERT_EQ(ztest::Command(port_, "DLCloseFile", close, 2), 0);
    ASSERT_EQ(Open(), 0);
  }
  std::string Saved() { return ztest::ReadServerFile(dir_ + "broker.ini"); }

  TRequest Request(const TFamilyRow& f, int scope, TRequest::EBody body, const std::string& code = "-") {
    TRequest r;
    r.body = body;
    r.firmCode = firm_;
    r.settingsScope = scope;
    const std::string owner(f.owner);
    if (owner != "Global") {
      r.ownerField = owner == "ClientSettings" ? "clientCode" : "templateCode";
      r.ownerCode = code == "-" ? f.code : code;
    }
    r.codeField = std::string(f.item) == "Class" ? "classCode" : "secCode";
    return r;
  }
  static std::string Name(const char* verb, const TFamilyRow& f) {
    const std::string v(verb);
    if (v == "Add") return "Add" + std::string(f.item) + "SettingsTo" + f.owner + f.family;
    if (v == "Remove") return "Remove" + std::string(f.item) + "SettingsFrom" + f.owner + f.family;
    if (v == "GetList") return "GetSettingListFrom" + std::string(f.owner) + f.family;
    if (v == "SetList") return "SetSettingListTo" + std::string(f.owner) + f.family;
    if (v == "GetMiddle") return "GetMiddlePriceFrom" + std::string(f.owner) + f.family;
    return "SetMiddlePriceTo" + std::string(f.owner) + f.family;
  }
  int Add(const TFamilyRow& f, int scope, const TLimit& l, const std::string& owner = "-") {
    TRequest r = Request(f, scope, TRequest::OneLimit, owner);
    r.code = l.classCode;
    r.deviation = l.deviation;
    r.priceType = l.priceType;
    r.reject = l.reject;
    return ztest::Command(port_, Name("Add", f), r, 2);
  }
  int Remove(const TFamilyRow& f, int scope, const std::string& code) {
    TRequest r = Request(f, scope, TRequest::Code);
    r.code = code;
    return ztest::Command(port_, Name("Remove", f), r, 2);
  }
  int SetList(const TFamilyRow& f, int scope, const std::vector<TLimit>& limits) {
    TRequest r = Request(f, scope, TRequest::List);
    r.lsSettings = limits;
    return ztest::Command(port_, Name("SetList", f), r, 2);
  }
  // The limits, or one marker limit holding the result when it is not 0.
  std::vector<TLimit> List(const TFamilyRow& f, int scope, const std::string& owner = "-") {
    TRequest r = Request(f, scope, TRequest::List, owner);
    const int result = ztest::Command(port_, Name("GetList", f), r, 2);
    if (result != 0) return {TLimit{"result", static_cast<double>(result), 0, false}};
    return r.lsSettings;
  }
  int SetMiddle(const TFamilyRow& f, int scope, int type, const std::string& owner = "-") {
    TRequest r = Request(f, scope, TRequest::Middle, owner);
    r.middlePrice = type;
    return ztest::Command(port_, Name("SetMiddle", f), r, 2);
  }
  int Middle(const TFamilyRow& f, int scope, int* type) {
    TRequest r = Request(f, scope, TRequest::Middle);
    r.middlePrice = -5;
    const int result = ztest::Command(port_, Name("GetMiddle", f), r, 2);
    *type = r.middlePrice;
    return result;
  }
  static bool IsClient(const TFamilyRow& f) { return std::string(f.owner) == "ClientSettings"; }

  int port_ = 0;
  std::string dir_, firm_;
};

TEST_F(PriceLimitCommandsTest, EveryCommandOfTheFamilyIsRegisteredAndInTheRoundTrip) {
  std::set<std::string> visited;
  for (const TFamilyRow& f : Families())
    for (const char* verb : {"Add", "Remove", "GetList", "SetList", "GetMiddle", "SetMiddle"})
      visited.insert(Name(verb, f));
  EXPECT_EQ(visited.size(), 36u);
  for (const std::string& name : visited) {
    const DL::TCommandRow* row = DL::FindCommand(name);
    ASSERT_NE(row, nullptr) << name;
    EXPECT_NE(row->handler, nullptr) << name << " is not registered";
  }
  for (const DL::TCommandRow& row : DL::kCommandTable) {
    const std::string name(row.name);
    if (name.find("PriceLimit") != std::string::npos && name.find("ByTime") == std::string::npos) {
      EXPECT_EQ(visited.count(name), 1u) << name << " is not in the round trip";
    }
  }
}

TEST_F(PriceLimitCommandsTest, EachFamilyAndScopeRoundTripsThroughSaveAndReload) {
  for (const TFamilyRow& f : Families()) {
    for (int scope = 0; scope <= 1; ++scope) {
      SCOPED_TRACE(Name("Add", f) + " scope " + std::to_string(scope));
      ASSERT_EQ(Add(f, scope, {f.a, 5, 2, false}), 0);
      ASSERT_EQ(Add(f, scope, {f.b, 10.5, 1, true}), 0);
      ASSERT_EQ(Remove(f, scope, f.a), 0);
      if (!(IsClient(f) && scope == 1)) {
        ASSERT_EQ(SetMiddle(f, scope, 3), 0);
      }
    }
  }
  for (int round = 0; round < 2; ++round) {
    for (const TFamilyRow& f : Families()) {
      for (int scope = 0; scope <= 1; ++scope) {
        SCOPED_TRACE(Name("GetList", f) + " scope " + std::to_string(scope) + " round " + std::to_string(round));
        EXPECT_EQ(List(f, scope), (std::vector<TLimit>{{f.b, 10.5, 1, true}}));
        int type = -1;
        if (IsClient(f) && scope == 1) {
          EXPECT_EQ(Middle(f, scope, &type), 1019);
        } else {
          ASSERT_EQ(Middle(f, scope, &type), 0);
          EXPECT_EQ(type, 3);
        }
      }
    }
    if (round == 0) SaveAndReload();
  }
  // A whole list replaced; the middle price stays.
  for (const TFamilyRow& f : Families()) ASSERT_EQ(SetList(f, 0, {{f.a, 1, 7, false}, {f.b, 2, 4, true}}), 0);
  SaveAndReload();
  for (const TFamilyRow& f : Families()) {
    std::vector<TLimit> expected = {{f.a, 1, 7, false}, {f.b, 2, 4, true}};
    std::sort(expected.begin(), expected.end(),
              [](const TLimit& x, const TLimit& y) { return x.classCode < y.classCode; });
    EXPECT_EQ(List(f, 0), expected) << Name("SetList", f);
    int type = -1;
    ASSERT_EQ(Middle(f, 0, &type), 0);
    EXPECT_EQ(type, 3) << Name("GetMiddle", f);
  }
  const std::string text = Saved();
  EXPECT_NE(text.find("[PriceLimit]"), std::string::npos) << text;
  EXPECT_NE(text.find("[Soft_SecPriceLimit]"), std::string::npos) << text;
  SaveAndReload();
  EXPECT_EQ(Saved(), text);  // a fixed point
}

TEST_F(PriceLimitCommandsTest, TheSoftTwinIsASettingOfItsOwn) {
  const TFamilyRow& f = Families()[4];  // a client template's class limits
  ASSERT_EQ(Add(f, 1, {"TQBR", 3, 2, true}), 0);
  EXPECT_EQ(List(f, 0), std::vector<TLimit>{});
  EXPECT_EQ(List(f, 1), (std::vector<TLimit>{{"TQBR", 3, 2, true}}));
  ASSERT_EQ(Update(), 0);
  EXPECT_NE(Saved().find("Soft_PriceLimit_TQBR=3,LAST,1"), std::string::npos) << Saved();
}

TEST_F(PriceLimitCommandsTest, BadOwnersScopesAndValuesAreRefusedAndChangeNothing) {
  ASSERT_EQ(Update(), 0);
  const std::string before = Saved();
  for (const TFamilyRow& f : Families()) {
    SCOPED_TRACE(Name("Add", f));
    EXPECT_EQ(Add(f, 2, {f.a, 5, 2, false}), 1019);
    EXPECT_EQ(Add(f, -1, {f.a, 5, 2, false}), 1019);
    EXPECT_EQ(Add(f, 0, {"", 5, 2, false}), 1003);
    EXPECT_EQ(Add(f, 0, {"ABCDEFGHIJKLM", 5, 2, false}), std::string(f.item) == "Class" ? 1009 : 1013);
    EXPECT_EQ(Add(f, 0, {f.a, -1, 2, false}), 1003);
    EXPECT_EQ(Add(f, 0, {f.a, 5, 8, false}), 1003);
    EXPECT_EQ(SetList(f, 0, {{f.a, 5, 2, false}, {f.b, 5, 9, false}}), 1003);
    EXPECT_EQ(SetMiddle(f, 0, 8), 1003);
    if (std::string(f.owner) == "Global") {
      // The firm has no price limit sections yet.
      EXPECT_EQ(Remove(f, 0, f.a), 1004);
      EXPECT_EQ(List(f, 0), (std::vector<TLimit>{{"result", 1004, 0, false}}));
    } else {
      EXPECT_EQ(Remove(f, 0, f.a), 1004);
      EXPECT_EQ(Add(f, 0, {f.a, 5, 2, false}, "ABCDEFGHIJKLM"), IsClient(f) ? 1010 : 1021);
      EXPECT_EQ(Add(f, 0, {f.a, 5, 2, false}, ""), 1003);
      EXPECT_EQ(Add(f, 0, {f.a, 5, 2, false}, "NOSUCH"), IsClient(f) ? 1020 : 1015);
      EXPECT_EQ(List(f, 0, "NOSUCH"), (std::vector<TLimit>{{"result", IsClient(f) ? 1020.0 : 1015.0, 0, false}}));
    }
  }
  ASSERT_EQ(Update(), 0);
  EXPECT_EQ(Saved(), before);
  // A code already there.
  const TFamilyRow& f = Families()[0];
  ASSERT_EQ(Add(f, 0, {"TQBR", 5, 2, false}), 0);
  EXPECT_EQ(Add(f, 0, {"tqbr", 6, 2, false}), 1016);
}

TEST_F(PriceLimitCommandsTest, AClientsMiddlePriceTestsCodeScopeOwnerAndValueInThatOrder) {
  const TFamilyRow& client = Families()[2];
  EXPECT_EQ(SetMiddle(client, 1, 9, "ABCDEFGHIJKLM"), 1010);
  EXPECT_EQ(SetMiddle(client, 1, 9, "NOSUCH"), 1019);
  EXPECT_EQ(SetMiddle(client, 0, 9, "NOSUCH"), 1020);
  EXPECT_EQ(SetMiddle(client, 0, 9), 1003);
  EXPECT_EQ(SetMiddle(client, 0, 7), 0);
  // The template form has a soft middle price.
  EXPECT_EQ(SetMiddle(Families()[4], 1, 7), 0);
}

TEST_F(PriceLimitCommandsTest, AChangeIsNotedAsItsChangeLine) {
  ASSERT_EQ(Add(Families()[2], 1, {"TQBR", 2.5, 7, true}), 0);
  ASSERT_EQ(SetMiddle(Families()[0], 0, 4), 0);
  ASSERT_EQ(Update(), 0);
  const TestDbAudit* packet = nullptr;
  for (const TestDbAudit& a : Module().db->audits)
    if (a.event == "SRV_USER_BO_DEALLIB_PACKET_CHANGE") packet = &a;
  ASSERT_NE(packet, nullptr);
  EXPECT_EQ(packet->fields[20],
            "AddClassSettingsToClientSettingsPriceLimit,main,\"1\",\"C0001\",\"TQBR\",\"2.5\",\"7\",\"1\"\r\n"
            "SetMiddlePriceToGlobalPriceLimit,main,\"0\",\"4\"\r\n");
}

}  // namespace
