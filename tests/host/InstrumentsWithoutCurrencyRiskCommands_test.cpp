// Instruments without currency risk of the firm, of a client's margin
// settings and of a client template, end to end through Execute: classes and
// instruments added, replaced and removed, saved by "DLUpdateFile",
// reloaded, and read again.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ModuleHarness.h"
#include "api/AdapterRecords.h"
#include "api/CommandTable.h"
#include "api/FileVerbRecords.h"
#include "api/RecordFields.h"

namespace {

using ztest::Module;
using TItems = std::vector<std::string>;

// The layouts of the records of their own, written out here.
ZDL_DECLARE_RECORD(TFirmClassSec, (std::string, firmCode), (std::string, classCode), (std::string, secCode));
ZDL_DECLARE_RECORD(TClientClass, (std::string, firmCode), (std::string, clientCode), (std::string, classCode));
ZDL_DECLARE_RECORD(TClientClassSec, (std::string, firmCode), (std::string, clientCode), (std::string, classCode),
                   (std::string, secCode));
ZDL_DECLARE_RECORD(TTemplateClass, (std::string, firmCode), (std::string, templateCode), (std::string, classCode));
ZDL_DECLARE_RECORD(TTemplateClassSec, (std::string, firmCode), (std::string, templateCode), (std::string, classCode),
                   (std::string, secCode));

// An owner: the scope word of its commands, its code ("" for the firm), and
// a code it does not have with the result that says so.
struct TOwner {
  std::string scope, code, missing;
  int missingResult;
};
const std::vector<TOwner>& Owners() {
  static const std::vector<TOwner> owners = {
      {"Global", "", "", 0}, {"ClientSettings", "C0003", "C0001", 1020}, {"ClientTemplate", "RETAIL", "QUAL", 1015}};
  return owners;
}

class InstrumentsWithoutCurrencyRiskCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    session_ = std::make_unique<ztest::TLibrarySession>("iw", ztest::ReadSourceFile("examples/server/libs/broker.ini"));
    port_ = session_->Port();
    firm_ = session_->Firm();
  }
  std::string Save() { return session_->Save(); }
  std::string SaveAndReload() { return session_->SaveAndReload(); }
  static std::string Name(const std::string& stem, const TOwner& o) {
    return stem + "InstrumentsWithoutCurrencyRisk" + o.scope;
  }

  int Classes(const TOwner& o, const std::string& code, TItems& out) {
    const std::string command = Name("GetClassListFrom", o);
    if (o.scope == "Global") {
      TDL_StringAndArray r{firm_, {}};
      const int rc = ztest::Command(port_, command, r, kUser);
      out = r.lsStrings;
      return rc;
    }
    TDL_TwoStringsAndArray r{firm_, code, {}};
    const int rc = ztest::Command(port_, command, r, kUser);
    out = r.lsStrings;
    return rc;
  }
  int Instruments(const TOwner& o, const std::string& code, const std::string& cls, TItems& out) {
    const std::string command = Name("GetInstrumentListForClassFrom", o);
    if (o.scope == "Global") {
      TDL_TwoStringsAndArray r{firm_, cls, {}};
      const int rc = ztest::Command(port_, command, r, kUser);
      out = r.lsStrings;
      return rc;
    }
    TDL_ThreeStringsAndArray r{firm_, code, cls, {}};
    const int rc = ztest::Command(port_, command, r, kUser);
    out = r.lsStrings;
    return rc;
  }
  int SetInstruments(const TOwner& o, const std::string& code, const std::string& cls, const TItems& items) {
    const std::string command = Name("SetInstrumentListForClassTo", o);
    if (o.scope == "Global") {
      TDL_TwoStringsAndArray r{firm_, cls, items};
      return ztest::Command(port_, command, r, kUser);
    }
    TDL_ThreeStringsAndArray r{firm_, code, cls, items};
    return ztest::Command(port_, command, r, kUser);
  }
  // Add or Remove of a class.
  int Class(const std::string& verb, const TOwner& o, const std::string& code, const std::string& cls) {
    const std::string command = Name(verb + (verb == "Add" ? "ClassTo" : "ClassFrom"), o);
    if (o.scope == "Global") {
      TDL_TwoStrings r{firm_, cls};
      return ztest::Command(port_, command, r, kUser);
    }
    if (o.scope == "ClientSettings") {
      TClientClass r{firm_, code, cls};
      return ztest::Command(port_, command, r, kUser);
    }
    TTemplateClass r{firm_, code, cls};
    return ztest::Command(port_, command, r, kUser);
  }
  // Add or Remove of an instrument.
  int Instrument(const std::string& verb, const TOwner& o, const std::string& code, const std::string& cls,
                 const std::string& sec) {
    const std::string command = Name(verb + (verb == "Add" ? "InstrumentForClassTo" : "InstrumentForClassFrom"), o);
    if (o.scope == "Global") {
      TFirmClassSec r{firm_, cls, sec};
      return ztest::Command(port_, command, r, kUser);
    }
    if (o.scope == "ClientSettings") {
      TClientClassSec r{firm_, code, cls, sec};
      return ztest::Command(port_, command, r, kUser);
    }
    TTemplateClassSec r{firm_, code, cls, sec};
    return ztest::Command(port_, command, r, kUser);
  }

  static constexpr int kUser = 2;
  std::unique_ptr<ztest::TLibrarySession> session_;
  int port_ = 0;
  std::string firm_;
};

TEST_F(InstrumentsWithoutCurrencyRiskCommandsTest, EveryCommandOfEveryOwnerIsServed) {
  for (const TOwner& o : Owners())
    for (const char* stem :
         {"GetClassListFrom", "AddClassTo", "RemoveClassFrom", "GetInstrumentListForClassFrom",
          "SetInstrumentListForClassTo", "AddInstrumentForClassTo", "RemoveInstrumentForClassFrom"}) {
      const DL::TCommandRow* row = DL::FindCommand(Name(stem, o));
      ASSERT_NE(row, nullptr) << Name(stem, o);
      EXPECT_NE(row->handler, nullptr) << Name(stem, o);
    }
}

TEST_F(InstrumentsWithoutCurrencyRiskCommandsTest, ClassesAndInstrumentsRoundTripThroughTheSavedText) {
  for (const TOwner& o : Owners()) {
    SCOPED_TRACE(o.scope);
    TItems items;
    EXPECT_EQ(Classes(o, o.code, items), o.scope == "Global" ? 1004 : 0);  // the firm has no such section yet
    ASSERT_EQ(Class("Add", o, o.code, "TQBR"), 0);
    EXPECT_EQ(Class("Add", o, o.code, "TQBR"), 1016);
    ASSERT_EQ(Instruments(o, o.code, "TQBR", items), 0);
    EXPECT_TRUE(items.empty());
    ASSERT_EQ(Instrument("Add", o, o.code, "TQBR", "SBER"), 0);
    ASSERT_EQ(Instrument("Add", o, o.code, "TQBR", "GAZP"), 0);
    EXPECT_EQ(Instrument("Add", o, o.code, "TQBR", "GAZP"), 1016);
    ASSERT_EQ(Instruments(o, o.code, "TQBR", items), 0);
    EXPECT_EQ(items, (TItems{"SBER", "GAZP"}));
    ASSERT_EQ(SetInstruments(o, o.code, "<ALL>", {"LKOH", "LKOH"}), 0);
    ASSERT_EQ(Classes(o, o.code, items), 0);
    EXPECT_EQ(items, (TItems{"<ALL>", "TQBR"}));
    ASSERT_EQ(Instrument("Remove", o, o.code, "TQBR", "SBER"), 0);
    EXPECT_EQ(Instrument("Remove", o, o.code, "TQBR", "SBER"), 1004);
    // The last instrument of a class takes the class with it.
    ASSERT_EQ(Instrument("Remove", o, o.code, "<ALL>", "LKOH"), 0);
    EXPECT_EQ(Instruments(o, o.code, "<ALL>", items), 1004);

    const std::string saved = SaveAndReload();
    ASSERT_EQ(Classes(o, o.code, items), 0);
    EXPECT_EQ(items, (TItems{"TQBR"}));
    ASSERT_EQ(Instruments(o, o.code, "TQBR", items), 0);
    EXPECT_EQ(items, (TItems{"GAZP"}));
    EXPECT_EQ(Save(), saved);
    EXPECT_NE(saved.find("InstrumentsWithoutCurrencyRisk_TQBR=GAZP\r\n"), std::string::npos) << saved;

    ASSERT_EQ(Class("Remove", o, o.code, "TQBR"), 0);
    EXPECT_EQ(Class("Remove", o, o.code, "TQBR"), 1004);
  }
}

TEST_F(InstrumentsWithoutCurrencyRiskCommandsTest, BadCodesAndMissingOwnersChangeNothing) {
  const std::string before = Save();
  for (const TOwner& o : Owners()) {
    SCOPED_TRACE(o.scope);
    EXPECT_EQ(Class("Add", o, o.code, "ABCDEFGHIJKLM"), 1009);
    EXPECT_EQ(Class("Add", o, o.code, ""), 1003);
    EXPECT_EQ(Instrument("Add", o, o.code, "TQBR", "ABCDEFGHIJKLM"), 1013);
    EXPECT_EQ(SetInstruments(o, o.code, "TQBR", {"SBER", "ABCDEFGHIJKLM"}), 1013);
    EXPECT_EQ(SetInstruments(o, o.code, "TQBR", {}), 1003);
    if (o.scope == "Global") continue;
    EXPECT_EQ(Class("Add", o, o.missing, "TQBR"), o.missingResult);
    EXPECT_EQ(Instrument("Add", o, o.missing, "TQBR", "SBER"), o.missingResult);
    TItems items;
    EXPECT_EQ(Classes(o, o.missing, items), o.missingResult);
    EXPECT_EQ(Classes(o, "ABCDEFGHIJKLM", items), o.scope == "ClientSettings" ? 1010 : 1021);
  }
  EXPECT_EQ(Save(), before);
}

}  // namespace
