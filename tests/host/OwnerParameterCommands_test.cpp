// The single values of clients and templates end to end through Execute, one
// round trip per row of the table: set a value that differs, read it back,
// save by "DLUpdateFile", reload, read again; the saved text is a fixed
// point. Unknown owners and refused values change nothing.
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ModuleHarness.h"
#include "api/AdapterRecords.h"
#include "api/CommandTable.h"
#include "api/FileVerbRecords.h"

namespace {

using ztest::Module;

struct TOwnerRow {
  std::string stem, scope, owner, value, item;  // item: the code kind of a list's items
};

const std::vector<TOwnerRow>& Rows() {
  static const std::vector<TOwnerRow> rows = {
#define ZDL_OWNER_PARAMETER(stem, scope, owner, value, key, check) {#stem, #scope, #owner, #value, ""},
#define ZDL_OWNER_LIST(stem, scope, owner, key, item) {#stem, #scope, #owner, "List", #item},
#include "core/OwnerParameters.def"
#undef ZDL_OWNER_PARAMETER
#undef ZDL_OWNER_LIST
  };
  return rows;
}
bool IsList(const TOwnerRow& row) { return row.value == "List"; }

// Items of each kind a list of the table holds, and one too long with the
// result that refuses it.
struct TItemKind {
  std::vector<std::string> samples;
  std::string tooLong;
  int tooLongResult;
};
const std::map<std::string, TItemKind>& ItemKinds() {
  static const std::map<std::string, TItemKind> kinds = {
      {"Class", {{"TQBR", "SPBFUT"}, "ABCDEFGHIJKLM", 1009}},
      {"Partner", {{"P01", "P02"}, "ABCDEFGHIJKLM", 1017}},
  };
  return kinds;
}

// An owner of each kind in the example library, and one it does not have
// with the result that says so.
struct TOwnerCodes {
  std::string code, missing;
  int missingResult, tooLongResult;
};
const std::map<std::string, TOwnerCodes>& Owners() {
  static const std::map<std::string, TOwnerCodes> owners = {
      {"ClientMargin", {"C0003", "C0001", 1020, 1010}},
      {"MarginTemplate", {"QUAL", "RETAIL", 1015, 1021}},
      {"Client", {"C0001", "C0002", 1020, 1010}},
      {"ClientTemplate", {"RETAIL", "QUAL", 1015, 1021}},
  };
  return owners;
}

class OwnerParameterCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    session_ = std::make_unique<ztest::TLibrarySession>("op", ztest::ReadSourceFile("examples/server/libs/broker.ini"));
    port_ = session_->Port();
    firm_ = session_->Firm();
  }
  std::string Save() { return session_->Save(); }
  std::string SaveAndReload() { return session_->SaveAndReload(); }
  static bool IsNumber(const TOwnerRow& row) { return row.value == "Number"; }

  // The value as a double, whatever its kind.
  int Get(const TOwnerRow& row, const std::string& code, double& out) {
    const std::string command = "Get" + row.stem + "From" + row.scope;
    if (IsNumber(row)) {
      TDL_TwoStringsAndDouble r{firm_, code, 0};
      const int rc = ztest::Command(port_, command, r, kUser);
      out = r.doubleParam1;
      return rc;
    }
    TDL_TwoStringsAndInt r{firm_, code, 0};
    const int rc = ztest::Command(port_, command, r, kUser);
    out = r.intParam1;
    return rc;
  }
  int Set(const TOwnerRow& row, const std::string& code, double value) {
    const std::string command = "Set" + row.stem + "To" + row.scope;
    if (IsNumber(row)) {
      TDL_TwoStringsAndDouble r{firm_, code, value};
      return ztest::Command(port_, command, r, kUser);
    }
    TDL_TwoStringsAndInt r{firm_, code, static_cast<int>(value)};
    return ztest::Command(port_, command, r, kUser);
  }

  int GetList(const TOwnerRow& row, const std::string& code, std::vector<std::string>& out) {
    TDL_TwoStringsAndArray r{firm_, code, {}};
    const int rc = ztest::Command(port_, "Get" + row.stem + "From" + row.scope, r, kUser);
    out = r.lsStrings;
    return rc;
  }
  int SetList(const TOwnerRow& row, const std::string& code, const std::vector<std::string>& items) {
    TDL_TwoStringsAndArray r{firm_, code, items};
    return ztest::Command(port_, "Set" + row.stem + "To" + row.scope, r, kUser);
  }

  static constexpr int kUser = 2;
  std::unique_ptr<ztest::TLibrarySession> session_;
  int port_ = 0;
  std::string firm_;
};

TEST_F(OwnerParameterCommandsTest, EveryRowIsServedByItsCommands) {
  for (const TOwnerRow& row : Rows()) {
    EXPECT_TRUE(Owners().count(row.owner)) << row.owner;
    EXPECT_TRUE(!IsList(row) || ItemKinds().count(row.item) == 1) << row.item;
    for (const std::string& name : {"Get" + row.stem + "From" + row.scope, "Set" + row.stem + "To" + row.scope}) {
      const DL::TCommandRow* command = DL::FindCommand(name);
      ASSERT_NE(command, nullptr) << name;
      EXPECT_NE(command->handler, nullptr) << name;
    }
  }
}

TEST_F(OwnerParameterCommandsTest, EveryListRoundTripsThroughTheSavedText) {
  for (const TOwnerRow& row : Rows()) {
    if (!IsList(row)) continue;
    SCOPED_TRACE(row.stem + " of " + row.scope);
    const std::string& code = Owners().at(row.owner).code;
    const std::vector<std::string>& s = ItemKinds().at(row.item).samples;
    std::vector<std::string> read;
    ASSERT_EQ(GetList(row, code, read), 0);
    EXPECT_TRUE(read.empty());
    ASSERT_EQ(SetList(row, code, {s[0], s[1], s[0]}), 0);
    ASSERT_EQ(GetList(row, code, read), 0);
    EXPECT_EQ(read, (std::vector<std::string>{s[0], s[1]}));
    const std::string saved = SaveAndReload();
    ASSERT_EQ(GetList(row, code, read), 0);
    EXPECT_EQ(read, (std::vector<std::string>{s[0], s[1]}));
    EXPECT_EQ(Save(), saved);
    // A refused list changes nothing.
    EXPECT_EQ(SetList(row, code, {s[1], ItemKinds().at(row.item).tooLong}), ItemKinds().at(row.item).tooLongResult);
    EXPECT_EQ(SetList(row, code, {}), 1003);
    EXPECT_EQ(SetList(row, code, {"A,B"}), 1003);
    EXPECT_EQ(SetList(row, Owners().at(row.owner).missing, {s[0]}), Owners().at(row.owner).missingResult);
    ASSERT_EQ(GetList(row, code, read), 0);
    EXPECT_EQ(read, (std::vector<std::string>{s[0], s[1]}));
  }
}

TEST_F(OwnerParameterCommandsTest, EveryValueRoundTripsThroughTheSavedText) {
  for (const TOwnerRow& row : Rows()) {
    if (IsList(row)) continue;
    SCOPED_TRACE(row.stem + " of " + row.scope);
    const std::string& code = Owners().at(row.owner).code;
    double before = 0;
    const int rc = Get(row, code, before);
    ASSERT_TRUE(rc == 0 || (rc == 1004 && row.value != "Inherit")) << rc;
    const double wanted = IsNumber(row) ? (before == 0.25 ? 0.5 : 0.25) : (before == 1 ? 2 : 1);
    ASSERT_EQ(Set(row, code, wanted), 0);
    double read = 0;
    ASSERT_EQ(Get(row, code, read), 0);
    EXPECT_EQ(read, wanted);
    const std::string saved = SaveAndReload();
    ASSERT_EQ(Get(row, code, read), 0);
    EXPECT_EQ(read, wanted);
    EXPECT_EQ(Save(), saved);
  }
}

TEST_F(OwnerParameterCommandsTest, AnInheritedValueLeavesNoKey) {
  for (const TOwnerRow& row : Rows()) {
    if (row.value != "Inherit") continue;
    SCOPED_TRACE(row.stem + " of " + row.scope);
    const std::string& code = Owners().at(row.owner).code;
    ASSERT_EQ(Set(row, code, -1), 0);
    double read = 0;
    ASSERT_EQ(Get(row, code, read), 0);
    EXPECT_EQ(read, -1);
    ASSERT_EQ(Set(row, code, -2), 0);
    ASSERT_EQ(Get(row, code, read), 0);
    EXPECT_EQ(read, -2);
  }
  // The client's margin section held only the key, and a section left
  // empty is not written.
  const std::string saved = Save();
  EXPECT_EQ(saved.find("UseDiscountsType"), std::string::npos) << saved;
  EXPECT_EQ(saved.find("[clC0003_Margin]"), std::string::npos) << saved;
}

TEST_F(OwnerParameterCommandsTest, AnUnknownOrLongOwnerAndARefusedValueChangeNothing) {
  const std::string before = Save();
  for (const TOwnerRow& row : Rows()) {
    if (IsList(row)) continue;
    SCOPED_TRACE(row.stem + " of " + row.scope);
    const TOwnerCodes& owner = Owners().at(row.owner);
    double read = 0;
    EXPECT_EQ(Get(row, owner.missing, read), owner.missingResult);
    EXPECT_EQ(Set(row, owner.missing, 1), owner.missingResult);
    EXPECT_EQ(Get(row, "ABCDEFGHIJKLM", read), owner.tooLongResult);
    EXPECT_EQ(Set(row, "ABCDEFGHIJKLM", 1), owner.tooLongResult);
    EXPECT_EQ(Set(row, "", 1), 1003);
    EXPECT_EQ(Set(row, owner.code, -3), 1003);
    if (row.stem == "MDPlusDefaultNettingType") {
      EXPECT_EQ(Set(row, owner.code, 3), 1003);
    }
  }
  EXPECT_EQ(Save(), before);
}

}  // namespace
