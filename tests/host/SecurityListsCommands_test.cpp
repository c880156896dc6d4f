// The firm's securities by class of "LimitAllowedSecurity", "AssetSecurities"
// and "RestShortSecurities", read through Execute by class and by
// instrument, for each of the three sections.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ModuleHarness.h"
#include "api/AdapterRecords.h"
#include "api/CommandTable.h"
#include "api/FileVerbRecords.h"

namespace {

using ztest::Module;
using TItems = std::vector<std::string>;

const char* const kKinds[] = {"LimitAllowedSecurity", "AssetSecurities", "RestShortSecurities"};

class SecurityListsCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ztest::ResetRecordedCalls();
    port_ = ztest::NewPort();
    dir_ = "sl" + std::to_string(port_) + "/";
    firm_ = "FS" + std::to_string(port_);
    std::string text = "[General]\nCALCVARMARGIN=1\n";
    for (const char* kind : kKinds)
      text += std::string("[") + kind + "]\n<ALL>=SBER,GAZP\nSECURITY_TQBR=LKOH,SBER\nSECURITY_TQTF=FXUS\n";
    ztest::WriteServerFile(dir_ + "f.ini", text);
    ztest::WriteServerFile(dir_ + "e.ini", "[General]\nCALCVARMARGIN=1\n");
    std::string list =
        ztest::WriteServerFile(dir_ + "dl.ini", "[dealer-library]\n" + firm_ + "=f.ini\n" + firm_ + "E=e.ini\n");
    ASSERT_EQ(Module().InitDB(list, "", port_), 1);
    for (const std::string& firm : {firm_, firm_ + "E"}) {
      TDL_DLOpenFile open{firm, 0};
      ASSERT_EQ(ztest::Command(port_, "DLOpenFile", open, kUser), 0);
    }
  }
  int One(const std::string& firm, const std::string& command, TItems& out) {
    TDL_StringAndArray r{firm, {}};
    const int rc = ztest::Command(port_, command, r, kUser);
    out = r.lsStrings;
    return rc;
  }
  int Two(const std::string& firm, const std::string& command, const std::string& code, TItems& out) {
    TDL_TwoStringsAndArray r{firm, code, {}};
    const int rc = ztest::Command(port_, command, r, kUser);
    out = r.lsStrings;
    return rc;
  }

  static constexpr int kUser = 2;
  int port_ = 0;
  std::string dir_, firm_;
};

TEST_F(SecurityListsCommandsTest, EverySectionIsReadByClassAndByInstrument) {
  for (const std::string kind : kKinds) {
    SCOPED_TRACE(kind);
    TItems items;
    ASSERT_EQ(One(firm_, "GetClassListFromGlobal" + kind + "ByClasses", items), 0);
    EXPECT_EQ(items, (TItems{"<ALL>", "TQBR", "TQTF"}));
    ASSERT_EQ(Two(firm_, "GetInstrListForClassFromGlobal" + kind + "ByClasses", "TQBR", items), 0);
    EXPECT_EQ(items, (TItems{"LKOH", "SBER"}));
    ASSERT_EQ(Two(firm_, "GetInstrListForClassFromGlobal" + kind + "ByClasses", "<ALL>", items), 0);
    EXPECT_EQ(items, (TItems{"SBER", "GAZP"}));
    EXPECT_EQ(Two(firm_, "GetInstrListForClassFromGlobal" + kind + "ByClasses", "SPBFUT", items), 1004);
    EXPECT_EQ(Two(firm_, "GetInstrListForClassFromGlobal" + kind + "ByClasses", "ABCDEFGHIJKLM", items), 1009);
    ASSERT_EQ(One(firm_, "GetInstrListFromGlobal" + kind + "ByInstruments", items), 0);
    EXPECT_EQ(items, (TItems{"FXUS", "GAZP", "LKOH", "SBER"}));
    ASSERT_EQ(Two(firm_, "GetClassListForInstrFromGlobal" + kind + "ByInstruments", "SBER", items), 0);
    EXPECT_EQ(items, (TItems{"<ALL>", "TQBR"}));
    ASSERT_EQ(Two(firm_, "GetClassListForInstrFromGlobal" + kind + "ByInstruments", "FXUS", items), 0);
    EXPECT_EQ(items, (TItems{"TQTF"}));
    EXPECT_EQ(Two(firm_, "GetClassListForInstrFromGlobal" + kind + "ByInstruments", "YNDX", items), 1004);
    EXPECT_EQ(Two(firm_, "GetClassListForInstrFromGlobal" + kind + "ByInstruments", "ABCDEFGHIJKLM", items), 1013);
    EXPECT_EQ(Two(firm_, "GetClassListForInstrFromGlobal" + kind + "ByInstruments", "", items), 1003);
  }
}

TEST_F(SecurityListsCommandsTest, AFirmWithoutTheSectionHasNothingThere) {
  for (const std::string kind : kKinds) {
    SCOPED_TRACE(kind);
    TItems items;
    EXPECT_EQ(One(firm_ + "E", "GetClassListFromGlobal" + kind + "ByClasses", items), 1004);
    EXPECT_EQ(One(firm_ + "E", "GetInstrListFromGlobal" + kind + "ByInstruments", items), 1004);
    EXPECT_EQ(Two(firm_ + "E", "GetInstrListForClassFromGlobal" + kind + "ByClasses", "TQBR", items), 1004);
  }
}

}  // namespace
