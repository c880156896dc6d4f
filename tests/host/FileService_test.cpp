// The whole-file verbs Init, GetDLList and GetDLFile, through the module's Execute.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "ModuleHarness.h"
#include "common/EventLog.h"

namespace {

using ztest::Module;

// CP1251 bytes of the Russian texts 101 and 102.
const std::string kCannotOpenRu =
    "\xCD\xE5 \xF3\xE4\xE0\xE5\xF2\xF1\xFF \xEE\xF2\xEA\xF0\xFB\xF2\xFC \xF4\xE0\xE9\xEB "
    "\xE4\xE8\xEB\xE5\xF0\xF1\xEA\xEE\xE9 \xE1\xE8\xE1\xEB\xE8\xEE\xF2\xE5\xEA\xE8 "
    "\xE4\xEB\xFF \xF4\xE8\xF0\xEC\xFB";
const std::string kNoPermissionRu =
    "\xCD\xE5\xE4\xEE\xF1\xF2\xE0\xF2\xEE\xF7\xED\xEE \xEF\xF0\xE0\xE2 \xE4\xEB\xFF "
    "\xE2\xFB\xEF\xEE\xEB\xED\xE5\xED\xE8\xFF \xE4\xE0\xED\xED\xEE\xE9 \xEE\xEF\xE5\xF0\xE0\xF6\xE8\xE8";

class FileServiceTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ztest::ResetRecordedCalls();
    port_ = ztest::NewPort();
    dir_ = "fs" + std::to_string(port_) + "/";
    firmPath_ = ztest::WriteServerFile(dir_ + "firm.ini", kText);
    std::string list = ztest::WriteServerFile(dir_ + "dl.ini", "[dealer-library]\nfirm=firm.ini\n");
    ASSERT_EQ(Module().InitDB(list, ztest::WriteServerFile(dir_ + "srv.ini", ""), port_), 1);
    std::string name;
    unsigned kind;
    Module().ModuleInit(name, &kind);
    ztest::ClearEvents();
  }

  // Signs a client on; returns the reply fields.
  struct InitReply {
    int accepted = -1, mayWork = -1, user = -1, last = -1;
    std::string empty, version;
  };
  InitReply Init(int user, const std::string& version, int language,
                 const std::vector<std::pair<std::string, std::string>>& modules) {
    CAlert list;
    for (const auto& [name, moduleVersion] : modules) {
      CAlert row;
      row << name << moduleVersion << std::string("note");
      list << row;
    }
    CAlert m;
    m << version << language << list;
    EXPECT_EQ(ztest::Call("Init", m, user, port_, "user" + std::to_string(user)), 1);
    InitReply r;
    m >> r.accepted >> r.mayWork >> r.user >> r.empty >> r.version >> r.last;
    EXPECT_EQ(m.get_fields_count(), 0u);
    return r;
  }

  int GetFile(CAlert& m, int user) { return ztest::Call("GetDLFile", m, user, port_, "user" + std::to_string(user)); }

  static constexpr const char* kText = "[General]\r\nMainCurrency=SUR\r\n";
  int port_ = 0;
  std::string dir_, firmPath_;
};

TEST_F(FileServiceTest, InitEchoesTheClientAndAcceptsMatchingVersions) {
  InitReply r = Init(3, "7.2.1", 1033, {{"Terminal", "7.2.1"}});
  EXPECT_EQ(r.accepted, 1);
  EXPECT_EQ(r.mayWork, 1);
  EXPECT_EQ(r.user, 3);
  EXPECT_EQ(r.empty, "");
  EXPECT_EQ(r.version, "7.2.1");
  EXPECT_EQ(r.last, 0);
}

TEST_F(FileServiceTest, APlainClientWithMatchingVersionsGetsNoAuditAndNoNotice) {
  Init(3, "7.2.1", 1033, {{"Terminal", "7.2.1"}, {"Charts", "7.2.1"}});
  EXPECT_TRUE(Module().db->audits.empty());
  EXPECT_TRUE(Module().db->notices.empty());
}

TEST_F(FileServiceTest, TheLastModuleRowDecidesTheVersion) {
  InitReply r = Init(3, "7.2.1", 1033, {{"Terminal", "7.2.1"}, {"Charts", "7.1.0"}});
  EXPECT_EQ(r.accepted, 0);
  EXPECT_TRUE(ztest::HasEvent(0,
                              "Charts: Not supported version. Version of the executable: server: 7.2.1, client: 7.2.1. "
                              "Version of module: server: 7.2.1, client: 7.1.0"));
  EXPECT_TRUE(Module().db->audits.empty());
}

TEST_F(FileServiceTest, InitLogsEveryModuleRow) {
  Init(3, "7.2.1", 1033, {{"Terminal", "7.2.1"}});
  EXPECT_TRUE(ztest::HasEvent(0, "User[3], module - Terminal[7.2.1][note]"));
}

TEST_F(FileServiceTest, AnApiClientIsNotVersionCheckedAndIsAudited) {
  InitReply r = Init(6, "1.0", 1049, {{"ZDealerAPI", "3.4.5"}});
  EXPECT_EQ(r.accepted, 1);
  EXPECT_EQ(r.mayWork, 1);
  ASSERT_EQ(Module().db->audits.size(), 1u);
  const TestDbAudit& a = Module().db->audits[0];
  EXPECT_EQ(a.event, "SRV_USER_BO_LOGON");
  EXPECT_EQ(a.port, port_);
  EXPECT_EQ(a.user, 6);
  ASSERT_EQ(a.fields.size(), 21u);
  EXPECT_EQ(a.fields[0], "user6");
  EXPECT_EQ(a.fields[1], "3.4.5");
  EXPECT_EQ(a.fields[2], "6");
  EXPECT_EQ(a.fields[3], std::to_string(gettid()));
  for (size_t i = 4; i < 21; ++i) EXPECT_EQ(a.fields[i], "DBSTATUS_S_ISNULL") << i;
  ASSERT_EQ(Module().db->notices.size(), 1u);
  EXPECT_EQ(Module().db->notices[0].state, 1);
}

TEST_F(FileServiceTest, AnApiClientWithoutTheRightIsToldSoAndNotAudited) {
  Module().db->kinds[6] = 3;
  InitReply r = Init(6, "1.0", 1049, {{"ZDealerAPI", "3.4.5"}});
  EXPECT_EQ(r.accepted, 1);
  EXPECT_EQ(r.mayWork, 0);
  EXPECT_TRUE(Module().db->audits.empty());
  ASSERT_EQ(Module().db->notices.size(), 1u);
  EXPECT_EQ(Module().db->notices[0].state, 1);
}

TEST_F(FileServiceTest, GetDLListListsNamesInOrderAndLogs) {
  std::string list = ztest::WriteServerFile(dir_ + "dl2.ini", "[dealer-library]\nzeta=z.ini\nalpha=a.ini\n");
  ASSERT_EQ(Module().InitDB(list, "", port_), 1);
  CAlert m;
  ASSERT_EQ(ztest::Call("GetDLList", m, 2, port_, "u"), 1);
  EXPECT_EQ(ztest::ReadStrings(m), (std::vector<std::string>{"alpha", "firm", "zeta"}));
  EXPECT_TRUE(ztest::HasEvent(0, "User[2], call GetDLList for port[" + std::to_string(port_) + "], library count[3]."));
}

TEST_F(FileServiceTest, GetDLFileHandsOutTheTextAndTakesTheHold) {
  CAlert m;
  m << ztest::Row("FIRM", std::string("firm"));
  ASSERT_EQ(GetFile(m, 2), 1);
  int readOnly = -1;
  std::string name, text;
  m >> readOnly >> name >> text;
  EXPECT_EQ(readOnly, 0);
  EXPECT_EQ(name, "firm");
  EXPECT_EQ(text, kText);
  EXPECT_EQ(Module().GetDLInUse(2, port_), "firm");
  ASSERT_EQ(Module().db->audits.size(), 1u);
  const TestDbAudit& a = Module().db->audits[0];
  EXPECT_EQ(a.event, "SRV_USER_BO_DEALLIB_OPEN");
  EXPECT_EQ(a.fields[0], "user2");
  EXPECT_EQ(a.fields[1], "2");
  EXPECT_EQ(a.fields[2], "firm");
  EXPECT_EQ(a.fields[3], std::to_string(gettid()));
  EXPECT_EQ(a.fields[20], kText);
  EXPECT_TRUE(ztest::HasEvent(0, "User[2], call GetDLFile for port[" + std::to_string(port_) +
                                     "], library name[firm]readonly[0]size[29]user[2]busy[1]."));
  ASSERT_EQ(Module().db->notices.size(), 1u);
  EXPECT_EQ(Module().db->notices[0].state, -1);
}

TEST_F(FileServiceTest, ASecondClientAndTheHolderItselfGetTheTextForReadingOnly) {
  CAlert first;
  first << ztest::Row("FIRM", std::string("firm"));
  ASSERT_EQ(GetFile(first, 2), 1);
  for (int user : {3, 2}) {
    CAlert m;
    m << ztest::Row("FIRM", std::string("firm"));
    ASSERT_EQ(GetFile(m, user), 1);
    int readOnly = -1;
    m >> readOnly;
    EXPECT_EQ(readOnly, 1) << user;
  }
  EXPECT_EQ(Module().GetDLInUse(2, port_), "firm");
  EXPECT_EQ(Module().db->audits.size(), 1u);
}

TEST_F(FileServiceTest, ReadOnlySevenIsAnsweredAsOne) {
  CAlert m;
  m << ztest::Row("FIRM", std::string("firm")) << ztest::Row("READONLY", 7);
  ASSERT_EQ(GetFile(m, 2), 1);
  int readOnly = -1;
  m >> readOnly;
  EXPECT_EQ(readOnly, 1);
  EXPECT_EQ(Module().GetDLInUse(2, port_), "");
  EXPECT_TRUE(Module().db->audits.empty());
}

TEST_F(FileServiceTest, RowsWithUnknownKeysAreSkipped) {
  CAlert m;
  m << ztest::Row("COLOUR", std::string("blue")) << ztest::Row("FIRM", std::string("firm"));
  ASSERT_EQ(GetFile(m, 2), 1);
  int readOnly = -1;
  std::string name;
  m >> readOnly >> name;
  EXPECT_EQ(name, "firm");
}

TEST_F(FileServiceTest, NoRowsLooksUpTheEmptyNameAndFailsWithText101) {
  CAlert m;
  EXPECT_EQ(GetFile(m, 2), 0);
  std::string verb, empty, text;
  int code = 0;
  m >> verb >> empty >> code >> text;
  EXPECT_EQ(verb, "GetDLFile");
  EXPECT_EQ(empty, "");
  EXPECT_EQ(code, 255);
  EXPECT_EQ(text, kCannotOpenRu + " ");  // no Init: the user's language is Russian
  // The empty name is listed from now on.
  CAlert list;
  ztest::Call("GetDLList", list, 2, port_, "u");
  EXPECT_EQ(ztest::ReadStrings(list), (std::vector<std::string>{"", "firm"}));
}

TEST_F(FileServiceTest, AMissingLibraryFailsInTheUsersLanguage) {
  Init(2, "7.2.1", 1033, {{"Terminal", "7.2.1"}});
  std::filesystem::remove(firmPath_);
  CAlert m;
  m << ztest::Row("FIRM", std::string("firm"));
  EXPECT_EQ(GetFile(m, 2), 0);
  std::string verb, empty, text;
  int code = 0;
  m >> verb >> empty >> code >> text;
  EXPECT_EQ(text, "Can not open file dealer library for firm firm");
  EXPECT_EQ(Module().GetDLInUse(2, port_), "");
}

TEST_F(FileServiceTest, AUserWithoutTheRightIsRefusedWithoutALogLine) {
  Module().db->kinds[8] = 3;
  CAlert m;
  m << ztest::Row("FIRM", std::string("firm"));
  EXPECT_EQ(GetFile(m, 8), 0);
  std::string module, verb, text;
  int code = 0;
  m >> module >> verb >> code >> text;
  EXPECT_EQ(module, "ZENT_DL");
  EXPECT_EQ(verb, "GetDLFile");
  EXPECT_EQ(code, 2);
  EXPECT_EQ(text, kNoPermissionRu);
  EXPECT_TRUE(ztest::Events().empty());
  EXPECT_EQ(Module().GetDLInUse(8, port_), "");
}

TEST_F(FileServiceTest, TheRefusalComesInEnglishAfterAnEnglishInit) {
  Module().db->kinds[8] = 3;
  Init(8, "7.2.1", 1033, {{"Terminal", "7.2.1"}});
  CAlert m;
  m << ztest::Row("FIRM", std::string("firm"));
  EXPECT_EQ(GetFile(m, 8), 0);
  std::string module, verb, text;
  int code = 0;
  m >> module >> verb >> code >> text;
  EXPECT_EQ(text, "Sufficient permission to perform this operation");
}

TEST_F(FileServiceTest, AFileTheProcessMayNotWriteIsHandedOutForReadingOnly) {
  if (geteuid() == 0) GTEST_SKIP() << "root may write any file; the read-only path cannot be produced";
  std::filesystem::permissions(firmPath_, std::filesystem::perms::owner_read);
  CAlert m;
  m << ztest::Row("FIRM", std::string("firm"));
  ASSERT_EQ(GetFile(m, 2), 1);
  int readOnly = -1;
  m >> readOnly;
  EXPECT_EQ(readOnly, 1);
  EXPECT_EQ(Module().GetDLInUse(2, port_), "");
}

}  // namespace

namespace {

class FileServiceKeysTest : public ::testing::Test {};

TEST_F(FileServiceKeysTest, GetDLFileSkipsTheSaveKeysUnread) {
  const int port = ztest::NewPort();
  std::string dir = "keys" + std::to_string(port) + "/";
  ztest::WriteServerFile(dir + "k.ini", "[General]\nA=1\n");
  std::string list = ztest::WriteServerFile(dir + "dl.ini", "[dealer-library]\nK=k.ini\n");
  ASSERT_EQ(ztest::Module().InitDB(list, "", port), 1);
  CAlert m;
  // "DATA" and "CANCEL" carry values of a type GetDLFile would not expect.
  m << ztest::Row("DATA", 1) << ztest::Row("CANCEL", std::string("x")) << ztest::Row("FIRM", std::string("K"));
  ASSERT_EQ(ztest::Call("GetDLFile", m, 2, port, "u"), 1);
  int readOnly = -1;
  std::string name, text;
  m >> readOnly >> name >> text;
  EXPECT_EQ(text, "[General]\nA=1\n");
}

}  // namespace
