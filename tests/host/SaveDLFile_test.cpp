// The whole-file save, through the module's Execute.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "ModuleHarness.h"
#include "common/EventLog.h"

namespace {

using ztest::Module;

class SaveDLFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ztest::ResetRecordedCalls();
    port_ = ztest::NewPort();
    dir_ = "save" + std::to_string(port_) + "/";
    firm_ = "S" + std::to_string(port_);
    path_ = ztest::WriteServerFile(dir_ + "firm.ini", kOriginal);
    std::string list = ztest::WriteServerFile(dir_ + "dl.ini", "[dealer-library]\n" + firm_ + "=firm.ini\n");
    ASSERT_EQ(Module().InitDB(list, "", port_), 1);
    ztest::ClearEvents();
  }

  // Fetches the library, taking the hold when it is free; returns the text.
  std::string Fetch(int user) {
    CAlert m;
    m << ztest::Row("FIRM", firm_);
    EXPECT_EQ(ztest::Call("GetDLFile", m, user, port_, "u"), 1);
    int readOnly = 0;
    std::string name, text;
    m >> readOnly >> name >> text;
    return text;
  }

  // Saves; returns reply field 1 (the final cancel flag), or -1 on a refusal.
  int Save(int user, const std::string& data, int cancel = 0, int* verbResult = nullptr) {
    CAlert m;
    m << ztest::Row("FIRM", firm_) << ztest::Row("CANCEL", cancel) << ztest::Row("DATA", data);
    int result = ztest::Call("SaveDLFile", m, user, port_, "user" + std::to_string(user));
    if (verbResult != nullptr) *verbResult = result;
    if (result != 1) return -1;
    int flag = -1;
    std::string name;
    m >> flag >> name;
    EXPECT_EQ(name, firm_);
    return flag;
  }

  size_t ChangeAudits() {
    size_t n = 0;
    for (const TestDbAudit& a : Module().db->audits) n += a.event == "SRV_USER_BO_DEALLIB_CHANGE" ? 1 : 0;
    return n;
  }

  static constexpr const char* kOriginal = "; settings\r\n[clC1]\r\nK=2\r\n[General]\r\nUsePGO=1 ; on\r\n";
  int port_ = 0;
  std::string dir_, firm_, path_;
};

TEST_F(SaveDLFileTest, TheHolderStoresTheCanonicalTextAndTheHoldEnds) {
  Fetch(2);
  Module().db->audits.clear();
  EXPECT_EQ(Save(2, kOriginal), 0);
  std::string saved = ztest::ReadServerFile(dir_ + "firm.ini");
  EXPECT_EQ(saved.find("; settings"), std::string::npos);  // comments do not survive
  EXPECT_NE(saved.find("UsePGO=1"), std::string::npos);
  EXPECT_FALSE(ztest::ServerFileExists(dir_ + "firm.ini.temp"));
  ASSERT_EQ(Module().db->audits.size(), 1u);
  const TestDbAudit& a = Module().db->audits[0];
  EXPECT_EQ(a.event, "SRV_USER_BO_DEALLIB_CHANGE");
  EXPECT_EQ(a.fields[0], "user2");
  EXPECT_EQ(a.fields[1], "2");
  EXPECT_EQ(a.fields[2], firm_);
  EXPECT_EQ(a.fields[3], std::to_string(gettid()));
  EXPECT_EQ(a.fields[20], saved);
  EXPECT_EQ(Module().GetDLInUse(2, port_), "");
  std::string size = std::to_string(saved.size());
  EXPECT_TRUE(ztest::HasEvent(0, "User[2], call in SaveDLFile for port[" + std::to_string(port_) + "], library name[" +
                                     firm_ + "]cancel[0]size[" + std::to_string(strlen(kOriginal)) + "]."));
  EXPECT_TRUE(ztest::HasEvent(0, "User[2], call out SaveDLFile for port[" + std::to_string(port_) +
                                     "], library name[" + firm_ + "]cancel[0]size[" + size + "]user[2]busy[1]."));
}

TEST_F(SaveDLFileTest, SavingTheFetchedTextTwiceLeavesTheFileByteForByteEqual) {
  std::string fetched = Fetch(2);
  ASSERT_EQ(Save(2, fetched), 0);
  std::string first = ztest::ReadServerFile(dir_ + "firm.ini");
  std::string again = Fetch(2);
  EXPECT_EQ(again, first);
  ASSERT_EQ(Save(2, again), 0);
  EXPECT_EQ(ztest::ReadServerFile(dir_ + "firm.ini"), first);
}

TEST_F(SaveDLFileTest, CancelFromTheHolderChangesNothingAndEndsTheHold) {
  Fetch(2);
  Module().db->audits.clear();
  EXPECT_EQ(Save(2, "[General]\nX=1\n", 1), 1);
  EXPECT_EQ(ztest::ReadServerFile(dir_ + "firm.ini"), kOriginal);
  EXPECT_EQ(ChangeAudits(), 0u);
  EXPECT_EQ(Module().GetDLInUse(2, port_), "");
}

TEST_F(SaveDLFileTest, ACancelValueOfSevenIsAnsweredAsSeven) {
  Fetch(2);
  EXPECT_EQ(Save(2, "", 7), 7);
  EXPECT_EQ(ztest::ReadServerFile(dir_ + "firm.ini"), kOriginal);
}

TEST_F(SaveDLFileTest, CancelWithAnEmptyTextStillOpensTheLibrary) {
  Fetch(2);
  std::filesystem::remove(path_);
  EXPECT_EQ(Save(2, "", 1), 1);
  EXPECT_TRUE(ztest::HasEvent(0, "Can not open file for write [" + path_ + "][2]"));
  EXPECT_FALSE(ztest::ServerFileExists(dir_ + "firm.ini"));
}

TEST_F(SaveDLFileTest, AMissingLibraryIsNotCreated) {
  Fetch(2);
  std::filesystem::remove(path_);
  EXPECT_EQ(Save(2, "[General]\nA=1\n"), 1);
  EXPECT_FALSE(ztest::ServerFileExists(dir_ + "firm.ini"));
  EXPECT_EQ(ChangeAudits(), 0u);
  EXPECT_EQ(Module().GetDLInUse(2, port_), "");
}

TEST_F(SaveDLFileTest, ATextIsCutAtItsFirstZeroByte) {
  Fetch(2);
  std::string data = std::string("[General]\nA=1\n") + '\0' + "[Hidden]\nB=2\n";
  ASSERT_EQ(Save(2, data), 0);
  std::string saved = ztest::ReadServerFile(dir_ + "firm.ini");
  EXPECT_NE(saved.find("A=1"), std::string::npos);
  EXPECT_EQ(saved.find("Hidden"), std::string::npos);
  EXPECT_EQ(saved.find('\0'), std::string::npos);
}

TEST_F(SaveDLFileTest, ASaveByAnotherUserIsRefusedButFreesTheHolder) {
  Fetch(2);
  Module().db->audits.clear();
  EXPECT_EQ(Save(3, "[General]\nA=1\n"), 0);  // the client's cancel value, although nothing was stored
  EXPECT_EQ(ztest::ReadServerFile(dir_ + "firm.ini"), kOriginal);
  EXPECT_TRUE(ztest::HasEvent(0, "Library use by another user [" + path_ + "][2][3]"));
  EXPECT_EQ(ChangeAudits(), 0u);
  EXPECT_EQ(Module().GetDLInUse(2, port_), "");  // kept as it stands: the holder lost the hold
}

TEST_F(SaveDLFileTest, AUserWithoutTheRightIsRefusedAndTheHoldEnds) {
  Fetch(2);
  Module().db->kinds[2] = 3;
  int verbResult = -1;
  CAlert m;
  m << ztest::Row("FIRM", firm_) << ztest::Row("DATA", std::string("[General]\nA=1\n"));
  verbResult = ztest::Call("SaveDLFile", m, 2, port_, "u");
  EXPECT_EQ(verbResult, 0);
  std::string module, verb, text;
  int code = 0;
  m >> module >> verb >> code >> text;
  EXPECT_EQ(module, "ZENT_DL");
  EXPECT_EQ(verb, "SaveDLFile");
  EXPECT_EQ(code, 2);
  EXPECT_TRUE(ztest::HasEvent(0, "Failed to save the file DL-library [" + path_ + "] UserID[2] Port[" +
                                     std::to_string(port_) +
                                     "]: Sufficient permission to perform this operation"));
  EXPECT_EQ(Module().GetDLInUse(2, port_), "");
  EXPECT_EQ(ztest::ReadServerFile(dir_ + "firm.ini"), kOriginal);
}

TEST_F(SaveDLFileTest, EveryCallEndsWithTheServerToldTheFileCallIsOver) {
  Fetch(2);
  Module().db->notices.clear();
  Save(2, "", 1);
  ASSERT_EQ(Module().db->notices.size(), 1u);
  EXPECT_EQ(Module().db->notices[0].state, -1);
}

}  // namespace
