// The limit kinds of the firm, of a client's margin settings and of a margin
// template, end to end through Execute: replaced, read back, saved by
// "DLUpdateFile", reloaded and read again; refused lists change nothing.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ModuleHarness.h"
#include "api/RecordFields.h"

namespace {

using TKinds = std::vector<int>;

// The layouts of the records, written out here.
ZDL_DECLARE_RECORD(TFirmKinds, (std::string, firmCode), (std::vector<int>, lsLimitKinds));
ZDL_DECLARE_RECORD(TClientKinds, (std::string, firmCode), (std::string, clientCode), (std::vector<int>, lsLimitKinds));
ZDL_DECLARE_RECORD(TTemplateKinds, (std::string, firmCode), (std::string, templateCode),
                   (std::vector<int>, lsLimitKinds));

class LimitKindsCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    session_ = std::make_unique<ztest::TLibrarySession>("lk", ztest::ReadSourceFile("examples/server/libs/broker.ini"));
  }
  // The owner's scope word ("Global", "ClientSettings", "MarginTemplate").
  int Get(const std::string& scope, const std::string& code, TKinds& out) {
    const std::string command = scope == "Global" ? "GetGlobalLimitKinds" : "Get" + scope + "LimitKinds";
    int rc = 0;
    if (scope == "Global") {
      TFirmKinds r{session_->Firm(), {}};
      rc = session_->Command(command, r);
      out = r.lsLimitKinds;
    } else if (scope == "ClientSettings") {
      TClientKinds r{session_->Firm(), code, {}};
      rc = session_->Command(command, r);
      out = r.lsLimitKinds;
    } else {
      TTemplateKinds r{session_->Firm(), code, {}};
      rc = session_->Command(command, r);
      out = r.lsLimitKinds;
    }
    return rc;
  }
  int Set(const std::string& scope, const std::string& code, const TKinds& kinds) {
    const std::string command = scope == "Global" ? "SetGlobalLimitKinds" : "Set" + scope + "LimitKinds";
    if (scope == "Global") {
      TFirmKinds r{session_->Firm(), kinds};
      return session_->Command(command, r);
    }
    if (scope == "ClientSettings") {
      TClientKinds r{session_->Firm(), code, kinds};
      return session_->Command(command, r);
    }
    TTemplateKinds r{session_->Firm(), code, kinds};
    return session_->Command(command, r);
  }

  std::unique_ptr<ztest::TLibrarySession> session_;
};

struct TOwner {
  std::string scope, code, missing;
  int missingResult;
};
const std::vector<TOwner> kOwners = {
    {"Global", "", "", 0}, {"ClientSettings", "C0003", "C0001", 1020}, {"MarginTemplate", "QUAL", "RETAIL", 1015}};

TEST_F(LimitKindsCommandsTest, EveryOwnersListRoundTripsThroughTheSavedText) {
  for (const TOwner& o : kOwners) {
    SCOPED_TRACE(o.scope);
    TKinds kinds{7};
    ASSERT_EQ(Get(o.scope, o.code, kinds), 0);
    EXPECT_TRUE(kinds.empty());
    ASSERT_EQ(Set(o.scope, o.code, {2, 0, 2, 5}), 0);
    ASSERT_EQ(Get(o.scope, o.code, kinds), 0);
    EXPECT_EQ(kinds, (TKinds{2, 0, 5}));
    const std::string saved = session_->SaveAndReload();
    EXPECT_NE(saved.find("LimitKinds=2,0,5\r\n"), std::string::npos) << saved;
    ASSERT_EQ(Get(o.scope, o.code, kinds), 0);
    EXPECT_EQ(kinds, (TKinds{2, 0, 5}));
    EXPECT_EQ(session_->Save(), saved);
  }
}

TEST_F(LimitKindsCommandsTest, ARefusedListOrOwnerChangesNothing) {
  const std::string before = session_->Save();
  for (const TOwner& o : kOwners) {
    SCOPED_TRACE(o.scope);
    EXPECT_EQ(Set(o.scope, o.code, {1, -1}), 1003);
    EXPECT_EQ(Set(o.scope, o.code, {}), 1003);  // an empty list travels as a null array
    if (o.scope == "Global") continue;
    TKinds kinds;
    EXPECT_EQ(Set(o.scope, o.missing, {1}), o.missingResult);
    EXPECT_EQ(Get(o.scope, o.missing, kinds), o.missingResult);
    EXPECT_EQ(Get(o.scope, "ABCDEFGHIJKLM", kinds), o.scope == "ClientSettings" ? 1010 : 1021);
  }
  EXPECT_EQ(session_->Save(), before);
}

TEST_F(LimitKindsCommandsTest, AChangeIsNotedAsItsChangeLine) {
  ASSERT_EQ(Set("MarginTemplate", "QUAL", {1, 3}), 0);
  (void)session_->Save();
  std::string lines;
  for (const TestDbAudit& a : ztest::Module().db->audits)
    if (a.event == "SRV_USER_BO_DEALLIB_PACKET_CHANGE") lines = a.fields[20];
  EXPECT_EQ(lines, "SetMarginTemplateLimitKinds,main,\"QUAL\",2[1,3]\r\n");
}

}  // namespace
