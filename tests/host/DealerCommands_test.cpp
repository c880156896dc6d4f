// Named commands of the remote settings API, end to end through Execute.
#include <gtest/gtest.h>

#include "ModuleHarness.h"
#include "api/AdapterRecords.h"
#include "api/FileVerbRecords.h"
#include "common/EventLog.h"

namespace {

using ztest::Module;

class DealerCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ztest::ResetRecordedCalls();
    port_ = ztest::NewPort();
    dir_ = "cmd" + std::to_string(port_) + "/";
    firm_ = "FA" + std::to_string(port_);
    other_ = "FB" + std::to_string(port_);
    ztest::WriteServerFile(dir_ + "a.ini", "[General]\nCALCVARMARGIN=1\n");
    ztest::WriteServerFile(dir_ + "b.ini", "[General]\nUsePGO=1\n");
    std::string list = ztest::WriteServerFile(dir_ + "dl.ini", "[dealer-library]\n" + firm_ + "=a.ini\n" + other_ +
                                                                   "=b.ini\n");
    ASSERT_EQ(Module().InitDB(list, "", port_), 1);
    ztest::ClearEvents();
  }

  int Api(const std::string& command, std::vector<unsigned char>& block, int user) {
    CAlert m;
    m << command << block;
    ztest::Call("ZDealerAPI", m, user, port_, "user" + std::to_string(user));
    std::string name;
    int result = -1;
    m >> name >> result >> block;
    return result;
  }
  template <class Record>
  int Api(const std::string& command, Record& record, int user) {
    std::vector<unsigned char> block;
    StoreDataForZDealerAPI(record, block);
    int result = Api(command, block, user);
    LoadDataForZDeallibAPI(record, block);
    return result;
  }

  int Open(const std::string& firm, int user, int mode) {
    TDL_DLOpenFile r{firm, mode};
    return Api("DLOpenFile", r, user);
  }
  // GetUsePGOFromGlobal: the result, and the value in *value.
  int GetPGO(const std::string& firm, int user, bool* value) {
    TDL_StringAndBool r{firm, false};
    int result = Api("GetUsePGOFromGlobal", r, user);
    *value = r.boolParam1;
    return result;
  }
  int SetPGO(const std::string& firm, int user, bool value) {
    TDL_StringAndBool r{firm, value};
    return Api("SetUsePGOToGlobal", r, user);
  }
  const TestDbAudit* LastPacket() {
    for (auto it = Module().db->audits.rbegin(); it != Module().db->audits.rend(); ++it)
      if (it->event == "SRV_USER_BO_DEALLIB_PACKET_CHANGE") return &*it;
    return nullptr;
  }

  int port_ = 0;
  std::string dir_, firm_, other_;
};

TEST_F(DealerCommandsTest, GetCommandsWorkWithoutAHoldOnceTheFirmIsLoaded) {
  ASSERT_EQ(Open(other_, 2, 1), 0);
  bool value = false;
  EXPECT_EQ(GetPGO(other_, 2, &value), 0);
  EXPECT_TRUE(value);
  EXPECT_TRUE(ztest::HasEvent(10, "executeZDealerAPI GetUsePGOFromGlobal"));
  EXPECT_TRUE(ztest::HasEvent(10, "resultZDealerAPI 0"));
}

TEST_F(DealerCommandsTest, AFirmThatIsNotLoadedAnswers1002) {
  bool value = false;
  EXPECT_EQ(GetPGO("NOT" + firm_, 2, &value), 1002);
}

TEST_F(DealerCommandsTest, AnEmptyRequestBlockGoesOutWithAnEmptyFirmCode) {
  std::vector<unsigned char> block;
  EXPECT_EQ(Api("GetUsePGOFromGlobal", block, 2), 1002);
  EXPECT_TRUE(block.empty());  // a failure leaves the block as it came
}

TEST_F(DealerCommandsTest, AChangeFromAUserHoldingNothingIsRefusedWithTwelve) {
  ASSERT_EQ(Open(firm_, 2, 1), 0);
  EXPECT_EQ(SetPGO(firm_, 2, true), 12);
  EXPECT_TRUE(ztest::HasEvent(10, "executeZDealerAPI SetUsePGOToGlobal"));
  for (const ztest::EventLine& e : ztest::Events()) EXPECT_EQ(e.text.find("resultZDealerAPI"), std::string::npos);
}

TEST_F(DealerCommandsTest, TheHolderChangesASettingAndTheUpdateReportsTheChangeLine) {
  ASSERT_EQ(Open(firm_, 2, 0), 0);
  bool value = true;
  ASSERT_EQ(GetPGO(firm_, 2, &value), 0);
  EXPECT_FALSE(value);
  ASSERT_EQ(SetPGO(firm_, 2, true), 0);
  ASSERT_EQ(GetPGO(firm_, 2, &value), 0);
  EXPECT_TRUE(value);

  TDL_DLUpdateFile update{firm_};
  ASSERT_EQ(Api("DLUpdateFile", update, 2), 0);
  const TestDbAudit* packet = LastPacket();
  ASSERT_NE(packet, nullptr);
  EXPECT_EQ(packet->fields[4], "1");
  EXPECT_EQ(packet->fields[20], "SetUsePGOToGlobal,main,,,\"1\"\r\n");
  EXPECT_NE(ztest::ReadServerFile(dir_ + "a.ini").find("UsePGO=1"), std::string::npos);

  // The list is spent: a second update reports nothing.
  ASSERT_EQ(Api("DLUpdateFile", update, 2), 0);
  EXPECT_EQ(LastPacket()->fields[4], "0");
  EXPECT_EQ(LastPacket()->fields[20], "");
}

TEST_F(DealerCommandsTest, ErasingTheParameterReadsAsFalse) {
  ASSERT_EQ(Open(other_, 2, 0), 0);
  ASSERT_EQ(SetPGO(other_, 2, false), 0);
  bool value = true;
  EXPECT_EQ(GetPGO(other_, 2, &value), 0);
  EXPECT_FALSE(value);
}

TEST_F(DealerCommandsTest, AReadingCommandAddsNoChangeLine) {
  ASSERT_EQ(Open(firm_, 2, 0), 0);
  bool value = false;
  ASSERT_EQ(GetPGO(firm_, 2, &value), 0);
  TDL_DLUpdateFile update{firm_};
  ASSERT_EQ(Api("DLUpdateFile", update, 2), 0);
  EXPECT_EQ(LastPacket()->fields[4], "0");
}

TEST_F(DealerCommandsTest, AFailedChangeLeavesNoChangeLine) {
  ASSERT_EQ(Open(firm_, 2, 0), 0);
  EXPECT_EQ(SetPGO("NOT" + firm_, 2, true), 1002);
  TDL_DLUpdateFile update{firm_};
  ASSERT_EQ(Api("DLUpdateFile", update, 2), 0);
  EXPECT_EQ(LastPacket()->fields[4], "0");
}

TEST_F(DealerCommandsTest, AChangeAddressedToAnotherLoadedFirmChangesItAndIsNotedUnderTheHeldFirm) {
  ASSERT_EQ(Open(other_, 3, 1), 0);  // B loaded by a reader
  ASSERT_EQ(Open(firm_, 2, 0), 0);   // user 2 holds A
  ASSERT_EQ(SetPGO(other_, 2, false), 0);
  bool value = true;
  ASSERT_EQ(GetPGO(other_, 2, &value), 0);
  EXPECT_FALSE(value);
  TDL_DLUpdateFile update{firm_};
  ASSERT_EQ(Api("DLUpdateFile", update, 2), 0);
  EXPECT_EQ(LastPacket()->fields[2], firm_);
  EXPECT_EQ(LastPacket()->fields[20], "SetUsePGOToGlobal,main,,,\"0\"\r\n");
}

TEST_F(DealerCommandsTest, CloseByTheHolderDropsTheFirmAndItsPendingChanges) {
  ASSERT_EQ(Open(firm_, 2, 0), 0);
  ASSERT_EQ(SetPGO(firm_, 2, true), 0);
  TDL_DLCloseFile close{firm_};
  ASSERT_EQ(Api("DLCloseFile", close, 2), 0);
  bool value = false;
  EXPECT_EQ(GetPGO(firm_, 2, &value), 1002);
  // Reopened, the firm has no pending lines and the file was not changed.
  ASSERT_EQ(Open(firm_, 2, 0), 0);
  TDL_DLUpdateFile update{firm_};
  ASSERT_EQ(Api("DLUpdateFile", update, 2), 0);
  EXPECT_EQ(LastPacket()->fields[4], "0");
  EXPECT_EQ(ztest::ReadServerFile(dir_ + "a.ini").find("UsePGO"), std::string::npos);
}

TEST_F(DealerCommandsTest, AfterResetOfTheHolderCloseLeavesTheFirmLoaded) {
  ASSERT_EQ(Open(firm_, 2, 0), 0);
  ASSERT_EQ(Module().Reset(2, port_), 1);
  TDL_DLCloseFile close{firm_};
  EXPECT_EQ(Api("DLCloseFile", close, 2), 0);
  bool value = false;
  EXPECT_EQ(GetPGO(firm_, 2, &value), 0);  // still loaded
}

TEST_F(DealerCommandsTest, AReaderOpeningAfterAnEditorDiscardsTheEditorsUnsavedChanges) {
  ASSERT_EQ(Open(firm_, 2, 0), 0);
  ASSERT_EQ(SetPGO(firm_, 2, true), 0);
  ASSERT_EQ(Open(firm_, 3, 1), 0);  // reloads from the file
  bool value = true;
  ASSERT_EQ(GetPGO(firm_, 2, &value), 0);
  EXPECT_FALSE(value);
}

}  // namespace
