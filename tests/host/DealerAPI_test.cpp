// The remote settings API's file verbs, end to end through the module's Execute.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "ModuleHarness.h"
#include "api/FileVerbRecords.h"
#include "common/EventLog.h"

namespace {

using ztest::Module;

class DealerAPITest : public ::testing::Test {
 protected:
  void SetUp() override {
    ztest::ResetRecordedCalls();
    port_ = ztest::NewPort();
    dir_ = "api" + std::to_string(port_) + "/";
    firm_ = "FIRM" + std::to_string(port_);  // firms are process-wide: one per test
    path_ = ztest::WriteServerFile(dir_ + "firm.ini", kText);
    std::string list = ztest::WriteServerFile(dir_ + "dl.ini", "[dealer-library]\n" + firm_ + "=firm.ini\n");
    ASSERT_EQ(Module().InitDB(list, "", port_), 1);
    ztest::ClearEvents();
  }

  // Sends one request; returns the result code and leaves the reply block in `block`.
  int Api(const std::string& command, std::vector<unsigned char>& block, int user) {
    CAlert m;
    m << command << block;
    int ok = ztest::Call("ZDealerAPI", m, user, port_, "user" + std::to_string(user));
    std::string name;
    int result = -1;
    m >> name >> result >> block;
    EXPECT_EQ(name, command);
    EXPECT_EQ(ok, result == 0 ? 1 : 0);
    return result;
  }

  template <class Record>
  int Api(const std::string& command, const Record& record, int user) {
    std::vector<unsigned char> block;
    StoreDataForZDealerAPI(record, block);
    return Api(command, block, user);
  }

  int Open(int user, int mode) { return Api("DLOpenFile", TDL_DLOpenFile{firm_, mode}, user); }
  int Update(int user) { return Api("DLUpdateFile", TDL_DLUpdateFile{firm_}, user); }
  int Close(int user) { return Api("DLCloseFile", TDL_DLCloseFile{firm_}, user); }

  std::vector<TestDbAudit> AuditsNamed(const std::string& event) {
    std::vector<TestDbAudit> out;
    for (const TestDbAudit& a : Module().db->audits)
      if (a.event == event) out.push_back(a);
    return out;
  }

  static constexpr const char* kText = "[General]\nUSEPGO=1\n";
  int port_ = 0;
  std::string dir_, firm_, path_;
};

TEST_F(DealerAPITest, OpeningForWritingTakesTheHoldAndAudits) {
  EXPECT_EQ(Open(2, 0), 0);
  EXPECT_EQ(Module().GetDLInUse(2, port_), firm_);
  std::vector<TestDbAudit> opens = AuditsNamed("SRV_USER_BO_DEALLIB_OPEN");
  ASSERT_EQ(opens.size(), 1u);
  EXPECT_EQ(opens[0].fields[0], "user2");
  EXPECT_EQ(opens[0].fields[1], "2");
  EXPECT_EQ(opens[0].fields[2], firm_);
  EXPECT_EQ(opens[0].fields[3], std::to_string(gettid()));
  EXPECT_EQ(opens[0].fields[4], "DBSTATUS_S_ISNULL");
  EXPECT_EQ(opens[0].fields[20], kText);
  EXPECT_TRUE(ztest::HasEvent(0, "User[2], call ZA_DLOpenFile for port[" + std::to_string(port_) + "], library name[" +
                                     firm_ + "]size[19]user[2]busy[1]."));
}

TEST_F(DealerAPITest, OpeningForReadingTakesNoHoldAndWritesNoAudit) {
  EXPECT_EQ(Open(2, 1), 0);
  EXPECT_EQ(Module().GetDLInUse(2, port_), "");
  EXPECT_TRUE(Module().db->audits.empty());
}

TEST_F(DealerAPITest, ASecondWriterIsRefusedWithElevenAndTheHolderMayReopen) {
  ASSERT_EQ(Open(2, 0), 0);
  EXPECT_EQ(Open(3, 0), 11);
  EXPECT_EQ(Open(2, 0), 0);
  EXPECT_EQ(Open(3, 1), 0);  // reading is always possible
  EXPECT_EQ(Module().GetDLInUse(2, port_), firm_);
}

TEST_F(DealerAPITest, AnUnknownFirmGivesNine) {
  EXPECT_EQ(Api("DLOpenFile", TDL_DLOpenFile{"NOSUCH", 0}, 2), 9);
  EXPECT_EQ(Api("DLUpdateFile", TDL_DLUpdateFile{"NOSUCH"}, 2), 9);
  EXPECT_EQ(Api("DLCloseFile", TDL_DLCloseFile{"NOSUCH"}, 2), 9);
}

TEST_F(DealerAPITest, AMissingLibraryFileGives1001) {
  std::filesystem::remove(path_);
  EXPECT_EQ(Open(2, 0), 1001);
  EXPECT_EQ(Module().GetDLInUse(2, port_), "");
}

TEST_F(DealerAPITest, CloseTwiceGivesZeroThen1002) {
  ASSERT_EQ(Open(2, 0), 0);
  EXPECT_EQ(Close(2), 0);
  EXPECT_EQ(Module().GetDLInUse(2, port_), "");
  EXPECT_EQ(Close(2), 1002);
  EXPECT_TRUE(ztest::HasEvent(0, "User[2], call ZA_DLCloseFile for port[" + std::to_string(port_) + "], library name[" +
                                     firm_ + "][0][0]."));
}

TEST_F(DealerAPITest, UpdateByAReaderGivesThirteen) {
  ASSERT_EQ(Open(2, 0), 0);
  ASSERT_EQ(Open(3, 1), 0);
  EXPECT_EQ(Update(3), 13);
  EXPECT_EQ(Update(4), 13);
}

TEST_F(DealerAPITest, UpdateWithNothingChangedRewritesTheFileAndReportsAnEmptyPacket) {
  ASSERT_EQ(Open(2, 0), 0);
  Module().db->audits.clear();
  EXPECT_EQ(Update(2), 0);
  ASSERT_EQ(Module().db->audits.size(), 2u);
  const TestDbAudit& packet = Module().db->audits[0];
  EXPECT_EQ(packet.event, "SRV_USER_BO_DEALLIB_PACKET_CHANGE");
  EXPECT_EQ(packet.fields[0], "user2");
  EXPECT_EQ(packet.fields[1], "2");
  EXPECT_EQ(packet.fields[2], firm_);
  EXPECT_EQ(packet.fields[4], "0");
  EXPECT_EQ(packet.fields[20], "");
  const TestDbAudit& change = Module().db->audits[1];
  EXPECT_EQ(change.event, "SRV_USER_BO_DEALLIB_CHANGE");
  EXPECT_EQ(change.fields[4], "DBSTATUS_S_ISNULL");
  EXPECT_EQ(change.fields[20], ztest::ReadServerFile(dir_ + "firm.ini"));
  EXPECT_FALSE(ztest::ServerFileExists(dir_ + "firm.ini.temp"));
  EXPECT_EQ(Module().GetDLInUse(2, port_), firm_);  // the hold goes on
}

TEST_F(DealerAPITest, AfterResetTheUserStillHasTheFileOpenButCloseFinishesNothing) {
  ASSERT_EQ(Open(2, 0), 0);
  ASSERT_EQ(Module().Reset(2, port_), 1);
  EXPECT_EQ(Module().GetDLInUse(2, port_), "");
  EXPECT_EQ(Close(2), 0);
  // The firm's settings stayed loaded: a reader can update nothing, but a new
  // writer may open again.
  EXPECT_EQ(Open(3, 0), 0);
}

TEST_F(DealerAPITest, GetFirmListListsEveryLibraryName) {
  ztest::WriteServerFile(dir_ + "firm.soft.ini", "");
  std::string list = ztest::WriteServerFile(dir_ + "dl.ini", "[dealer-library]\n" + firm_ + "=firm.ini\nB=b.ini\n");
  ASSERT_EQ(Module().InitDB(list, "", port_), 1);
  std::vector<unsigned char> block;
  ASSERT_EQ(Api("DLGetFirmList", block, 2), 0);
  TDL_DLGetFirmList reply;
  LoadDataForZDeallibAPI(reply, block);
  EXPECT_EQ(reply.lsFirmList, (std::vector<std::string>{"B", firm_, firm_ + ".soft"}));
}

TEST_F(DealerAPITest, GetClassListAsksTheHostsTableServiceAndReturnsTheBlockUnchanged) {
  Module().db->tableRows = {"TQBR", "SPBFUT"};
  CAlert request;
  request << std::string("classes");
  std::vector<unsigned char> block(request.get_data(), request.get_data() + request.get_size());
  const std::vector<unsigned char> sent = block;
  EXPECT_EQ(Api("DLGetClassList", block, 2), 0);
  EXPECT_EQ(block, sent);
  ASSERT_EQ(Module().db->executes.size(), 1u);
  EXPECT_EQ(Module().db->executes[0].command, "GetTable");
  EXPECT_EQ(Module().db->executes[0].user, 2);
  EXPECT_EQ(Module().db->executes[0].userName, "user2");
}

TEST_F(DealerAPITest, AnUnknownCommandGivesOneAndNoLogLine) {
  std::vector<unsigned char> block;
  EXPECT_EQ(Api("NoSuchCommand", block, 2), 1);
  EXPECT_EQ(Api("SetNoSuchThingToGlobal", block, 2), 1);  // the table comes before the read-only test
  EXPECT_TRUE(ztest::Events().empty());
}

TEST_F(DealerAPITest, FileVerbNamesAreExact) {
  std::vector<unsigned char> block;
  EXPECT_EQ(Api("dlopenfile", block, 2), 1);
}

}  // namespace
