// One administrator session across the families of commands: templates of
// every kind made, clients added and moved, values and lists of the firm,
// of clients and of templates changed, refusals by their codes, a reader's
// change refused, then the update with its change lines in order, a close
// and a new open that reads every change back.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ModuleHarness.h"
#include "api/AdapterRecords.h"
#include "api/FileVerbRecords.h"
#include "api/RecordFields.h"

namespace {

// The layouts of the records of their own, written out here.
ZDL_DECLARE_RECORD(TTemplate, (std::string, firmCode), (std::string, templateCode));
ZDL_DECLARE_RECORD(TTemplateClient, (std::string, firmCode), (std::string, templateCode), (std::string, clientCode));
ZDL_DECLARE_RECORD(TMove, (std::string, firmCode), (std::string, fromTemplateCode), (std::string, toTemplateCode),
                   (std::string, clientCode));
ZDL_DECLARE_RECORD(TMinOrderValue, (std::string, firmCode), (int, settingsScope), (std::vector<std::string>, lsClasses),
                   (std::vector<std::string>, lsInstruments), (double, value), (std::string, currency));

class CrossFamilySessionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    session_ = std::make_unique<ztest::TLibrarySession>("xf", ztest::ReadSourceFile("examples/server/libs/broker.ini"));
    firm_ = session_->Firm();
  }
  // Runs a change and, when it is done, notes its name for the change lines.
  template <class Record>
  int Change(const std::string& command, Record record) {
    const int result = session_->Command(command, record);
    if (result == 0) done_.push_back(command);
    return result;
  }

  std::unique_ptr<ztest::TLibrarySession> session_;
  std::string firm_;
  std::vector<std::string> done_;
};

TEST_F(CrossFamilySessionTest, ChangesOfEveryFamilySurviveTheUpdateAndAReopen) {
  // A reader opens first: an open for reading loads the library from its
  // file, so it comes before the holder's changes.
  TDL_DLOpenFile reader{firm_, 1};
  ASSERT_EQ(ztest::Command(session_->Port(), "DLOpenFile", reader, 3), 0);

  // Templates of every kind.
  ASSERT_EQ(Change("AddClientTemplate", TTemplate{firm_, "PRO"}), 0);
  ASSERT_EQ(Change("AddMarginTemplate", TTemplate{firm_, "MPRO"}), 0);
  ASSERT_EQ(Change("AddRestrictionTemplate", TTemplate{firm_, "RPRO"}), 0);
  ASSERT_EQ(Change("AddBaseAssetsTemplate", TTemplate{firm_, "BPRO"}), 0);
  EXPECT_EQ(Change("AddClientTemplate", TTemplate{firm_, "PRO"}), 1016);

  // Clients in templates: one of each kind at most, kinds independent.
  ASSERT_EQ(Change("AddClientToClientTemplate", TTemplateClient{firm_, "PRO", "C0007"}), 0);
  EXPECT_EQ(Change("AddClientToClientTemplate", TTemplateClient{firm_, "RETAIL", "C0007"}), 1016);
  ASSERT_EQ(Change("AddClientToMarginTemplate", TTemplateClient{firm_, "MPRO", "C0007"}), 0);
  ASSERT_EQ(Change("MoveClientBetweenClientTemplates", TMove{firm_, "RETAIL", "PRO", "C0001"}), 0);
  EXPECT_EQ(Change("AddClientToClientTemplate", TTemplateClient{firm_, "PRO", "ABCDEFGHIJKLM"}), 1010);

  // Values and lists of the firm, of a template and of a client.
  ASSERT_EQ(Change("SetCalcNegDealToGlobal", TDL_StringAndBool{firm_, true}), 0);
  ASSERT_EQ(Change("SetGlobalProhibedTrdAcc", TDL_StringAndArray{firm_, {"L01", "L02"}}), 0);
  ASSERT_EQ(Change("SetUseDiscountsTypeToMarginTemplate", TDL_TwoStringsAndInt{firm_, "MPRO", 2}), 0);
  EXPECT_EQ(Change("SetUseDiscountsTypeToMarginTemplate", TDL_TwoStringsAndInt{firm_, "NONE", 2}), 1015);
  ASSERT_EQ(Change("SetNegDealClassesToClientSettings", TDL_TwoStringsAndArray{firm_, "C0003", {"PSEQ"}}), 0);
  EXPECT_EQ(Change("AddMinOrderValueToGlobal", TMinOrderValue{firm_, 1, {"TQBR"}, {}, 100, ""}), 1019);
  ASSERT_EQ(Change("AddMinOrderValueToGlobal", TMinOrderValue{firm_, 0, {"TQBR"}, {}, 100, ""}), 0);

  // A user who holds nothing may read but not change.
  TDL_StringAndBool readerSet{firm_, false};
  EXPECT_EQ(ztest::Command(session_->Port(), "SetCalcNegDealToGlobal", readerSet, 3), 12);
  TDL_StringAndBool readerGet{firm_, false};
  ASSERT_EQ(ztest::Command(session_->Port(), "GetCalcNegDealFromGlobal", readerGet, 3), 0);
  EXPECT_TRUE(readerGet.boolParam1);

  // The update notes exactly the changes that were done, in their order.
  const std::string saved = session_->SaveAndReload();
  std::string lines;
  for (const TestDbAudit& a : ztest::Module().db->audits)
    if (a.event == "SRV_USER_BO_DEALLIB_PACKET_CHANGE") lines = a.fields[20];
  std::vector<std::string> noted;
  for (std::size_t at = 0; at < lines.size();) {
    const std::size_t end = lines.find("\r\n", at);
    noted.push_back(lines.substr(at, lines.find(',', at) - at));
    at = end == std::string::npos ? lines.size() : end + 2;
  }
  EXPECT_EQ(noted, done_) << lines;

  // Everything reads back after the reopen, and the text is a fixed point.
  TDL_ThreeStrings byClient{firm_, "C0001", ""};
  ASSERT_EQ(session_->Command("GetClientTemplateNameByClientCode", byClient), 0);
  EXPECT_EQ(byClient.strParam2, "PRO");
  TDL_TwoStringsAndArray marginClients{firm_, "MPRO", {}};
  ASSERT_EQ(session_->Command("GetClientsListOfMarginTemplate", marginClients), 0);
  EXPECT_EQ(marginClients.lsStrings, std::vector<std::string>{"C0007"});
  TDL_TwoStringsAndInt discounts{firm_, "MPRO", 0};
  ASSERT_EQ(session_->Command("GetUseDiscountsTypeFromMarginTemplate", discounts), 0);
  EXPECT_EQ(discounts.intParam1, 2);
  TDL_StringAndBool negDeal{firm_, false};
  ASSERT_EQ(session_->Command("GetCalcNegDealFromGlobal", negDeal), 0);
  EXPECT_TRUE(negDeal.boolParam1);
  TDL_StringAndArray accounts{firm_, {}};
  ASSERT_EQ(session_->Command("GetGlobalProhibedTrdAcc", accounts), 0);
  EXPECT_EQ(accounts.lsStrings, (std::vector<std::string>{"L01", "L02"}));
  TDL_TwoStringsAndArray negDealClasses{firm_, "C0003", {}};
  ASSERT_EQ(session_->Command("GetNegDealClassesFromClientSettings", negDealClasses), 0);
  EXPECT_EQ(negDealClasses.lsStrings, std::vector<std::string>{"PSEQ"});
  EXPECT_NE(saved.find("[clRPRO_Restriction_Template]"), std::string::npos) << saved;
  EXPECT_NE(saved.find("[BaseAssets_Template_BPRO]"), std::string::npos) << saved;
  EXPECT_EQ(session_->Save(), saved);
}

}  // namespace
