// The host's parts on their own: secrets, the users file, log-on delays, the
// class list, the audit database and the database module.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <filesystem>

#include "AuditDatabase.h"
#include "ClassList.h"
#include "DbZentSettings.h"
#include "HostProcess.h"
#include "LogonGuard.h"
#include "SecretHash.h"
#include "UsersFile.h"
#include "support/Alert.h"

namespace fs = std::filesystem;
using namespace ZentHost;

namespace {

class TempDir : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "zent-hostparts-XXXXXX").string();
    ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
    dir_ = pattern;
  }
  void TearDown() override {
    std::error_code ec;
    fs::remove_all(dir_, ec);
  }
  std::string Write(const std::string& name, const std::string& content, int mode = 0600) {
    std::string p = dir_ + "/" + name;
    hosttest::WriteFile(p, content);
    ::chmod(p.c_str(), static_cast<mode_t>(mode));
    return p;
  }
  std::string dir_;
};

std::string Line(const std::string& name, int id, int kind, const std::string& secret) {
  TUser u;
  u.name = name;
  u.id = id;
  u.kind = kind;
  EXPECT_TRUE(MakeSecretHash(secret, 10, u.secret));
  return TUsersFile::FormatLine(u) + "\n";
}

TEST(SecretHashTest, TheRightSecretVerifiesAndAnotherDoesNot) {
  TSecretHash h;
  ASSERT_TRUE(MakeSecretHash("open sesame", 100, h));
  EXPECT_EQ(h.iterations, 100);
  EXPECT_EQ(h.saltHex.size(), 32u);
  EXPECT_EQ(h.hashHex.size(), 64u);
  EXPECT_TRUE(VerifySecret("open sesame", h));
  EXPECT_FALSE(VerifySecret("open sesamE", h));
  EXPECT_FALSE(VerifySecret("", h));
}

TEST(SecretHashTest, EachHashHasItsOwnSalt) {
  TSecretHash a, b;
  ASSERT_TRUE(MakeSecretHash("same", 10, a));
  ASSERT_TRUE(MakeSecretHash("same", 10, b));
  EXPECT_NE(a.saltHex, b.saltHex);
  EXPECT_NE(a.hashHex, b.hashHex);
}

TEST(SecretHashTest, AKnownPbkdf2VectorVerifies) {
  // The published PBKDF2-HMAC-SHA256 vector: password "password", salt "salt", 1 iteration, 32 bytes.
  TSecretHash h;
  h.iterations = 1;
  h.saltHex = "73616c74";
  h.hashHex = "120fb6cffcf8b32c43e7225256c4f837a86548c92ccc35480805987cb70be17b";
  EXPECT_TRUE(VerifySecret("password", h));
  h.iterations = 2;
  EXPECT_FALSE(VerifySecret("password", h));
}

TEST(SecretHashTest, AMalformedStoredHashNeverVerifies) {
  TSecretHash h{10, "zz", "00"};
  EXPECT_FALSE(VerifySecret("x", h));
}

TEST_F(TempDir, UsersFileReadsNameIdKindAndHash) {
  std::string p = Write("users", "# comment\n\n" + Line("ann", 5, 2, "a") + Line("bob", 7, 3, "b"));
  TUsersFile users;
  std::string error;
  ASSERT_TRUE(users.Load(p, error)) << error;
  EXPECT_EQ(users.size(), 2u);
  const TUser* ann = users.FindByName("ann");
  ASSERT_NE(ann, nullptr);
  EXPECT_EQ(ann->id, 5);
  EXPECT_EQ(ann->kind, 2);
  EXPECT_TRUE(VerifySecret("a", ann->secret));
  EXPECT_EQ(users.FindById(7)->name, "bob");
  EXPECT_EQ(users.FindById(6), nullptr);
  EXPECT_EQ(users.FindByName("carl"), nullptr);
}

TEST_F(TempDir, UsersFileOpenToOthersOrGroupIsRefused) {
  TUsersFile users;
  std::string error;
  EXPECT_FALSE(users.Load(Write("u1", Line("ann", 1, 1, "a"), 0604), error));
  EXPECT_EQ(error, dir_ + "/u1: the users file is open to group or others (mode 0604); allow its owner only (chmod 600)");
  EXPECT_FALSE(users.Load(Write("u2", Line("ann", 1, 1, "a"), 0640), error));
  EXPECT_TRUE(users.Load(Write("u3", Line("ann", 1, 1, "a"), 0400), error)) << error;
}

TEST_F(TempDir, UsersFileFaultsNameTheLine) {
  TUsersFile users;
  std::string error;
  EXPECT_FALSE(users.Load(Write("u", Line("ann", 1, 1, "a") + "bob:2:4:pbkdf2-sha256:10:00:" + std::string(64, '0')), error));
  EXPECT_EQ(error, dir_ + "/u:2: the kind must be 1, 2 or 3");
  EXPECT_FALSE(users.Load(Write("u", Line("ann", 1, 1, "a") + Line("ann", 2, 1, "b")), error));
  EXPECT_EQ(error, dir_ + "/u:2: user \"ann\" appears twice");
  EXPECT_FALSE(users.Load(Write("u", Line("ann", 1, 1, "a") + Line("bob", 1, 1, "b")), error));
  EXPECT_EQ(error, dir_ + "/u:2: id 1 appears twice");
  EXPECT_FALSE(users.Load(Write("u", "ann:1:1\n"), error));
  EXPECT_EQ(error, dir_ + "/u:1: expected name:id:kind:pbkdf2-sha256:iterations:salt:hash");
  EXPECT_FALSE(users.Load(Write("u", "ann:1:1:md5:10:00:" + std::string(64, '0') + "\n"), error));
  EXPECT_EQ(error, dir_ + "/u:1: unknown hash scheme \"md5\"");
  EXPECT_FALSE(users.Load(dir_ + "/missing", error));
  EXPECT_EQ(error, dir_ + "/missing: no such file");
}

TEST(LogonGuardTest, TheDelayDoublesPerFailureOfANameUpToABound) {
  TLogonGuard guard(10);
  EXPECT_EQ(guard.Failed("ann").count(), 10);
  EXPECT_EQ(guard.Failed("ann").count(), 20);
  EXPECT_EQ(guard.Failed("ann").count(), 40);
  EXPECT_EQ(guard.Failed("bob").count(), 10);
  for (int i = 0; i < 10; ++i) guard.Failed("ann");
  EXPECT_EQ(guard.Failed("ann").count(), 640);
  EXPECT_EQ(guard.Failures("ann"), 14);
}

TEST(LogonGuardTest, ASuccessClearsTheCount) {
  TLogonGuard guard(10);
  guard.Failed("ann");
  guard.Failed("ann");
  guard.Succeeded("ann");
  EXPECT_EQ(guard.Failures("ann"), 0);
  EXPECT_EQ(guard.Failed("ann").count(), 10);
}

TEST_F(TempDir, ClassListSkipsCommentsAndBlanks) {
  std::vector<std::string> classes;
  std::string error;
  ASSERT_TRUE(LoadClassList(Write("c", "# x\n; y\n TQBR \n\n\tSPBFUT\r\n"), classes, error)) << error;
  EXPECT_EQ(classes, (std::vector<std::string>{"TQBR", "SPBFUT"}));
  EXPECT_FALSE(LoadClassList(Write("c", "TQBR\nTOO LONG\n"), classes, error));
  EXPECT_EQ(error, dir_ + "/c:2: \"TOO LONG\" is not a class code (at most 12 characters, no blanks)");
}

TEST_F(TempDir, AuditDatabaseIsWalAndStoresEveryFieldWithNullForTheMarker) {
  TAuditDatabase db;
  std::string error;
  const std::string path = dir_ + "/a.db";
  ASSERT_TRUE(db.Open(path, error)) << error;
  std::vector<std::string> fields(21, kAuditNullMarker);
  fields[0] = "ann";
  fields[20] = std::string("text\0with zero", 14);
  ASSERT_TRUE(db.Insert(7001, 5, "EVENT", fields, error)) << error;
  std::vector<std::string> tooMany(22, "x");
  EXPECT_FALSE(db.Insert(7001, 5, "EVENT", tooMany, error));
  EXPECT_EQ(error, "an audit record has 22 fields, at most 21 are stored");
  db.Close();

  sqlite3* check = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &check), SQLITE_OK);
  sqlite3_stmt* st = nullptr;
  ASSERT_EQ(sqlite3_prepare_v2(check, "PRAGMA journal_mode", -1, &st, nullptr), SQLITE_OK);
  ASSERT_EQ(sqlite3_step(st), SQLITE_ROW);
  EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)), "wal");
  sqlite3_finalize(st);
  ASSERT_EQ(sqlite3_prepare_v2(check, "SELECT port, user, event, field0, field1, length(CAST(field20 AS BLOB)), count(*) FROM audit",
                               -1, &st, nullptr),
            SQLITE_OK);
  ASSERT_EQ(sqlite3_step(st), SQLITE_ROW);
  EXPECT_EQ(sqlite3_column_int(st, 0), 7001);
  EXPECT_EQ(sqlite3_column_int(st, 1), 5);
  EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(st, 2)), "EVENT");
  EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(st, 3)), "ann");
  EXPECT_EQ(sqlite3_column_type(st, 4), SQLITE_NULL);
  EXPECT_EQ(sqlite3_column_int(st, 5), 14);
  EXPECT_EQ(sqlite3_column_int(st, 6), 1);
  sqlite3_finalize(st);
  sqlite3_close(check);
}

// The database module loaded on its own, as the host loads it.
class DbZentTest : public TempDir {
 protected:
  void SetUp() override {
    TempDir::SetUp();
    handle_ = dlopen(ZENT_DBZENT_PATH, RTLD_NOW);
    ASSERT_NE(handle_, nullptr) << dlerror();
    open_ = reinterpret_cast<DbZentOpenFn>(dlsym(handle_, "dbzent_Open"));
    close_ = reinterpret_cast<DbZentCloseFn>(dlsym(handle_, "dbzent_Close"));
    whoIsIt_ = reinterpret_cast<int (*)(int, int)>(dlsym(handle_, "WhoIsIt"));
    auditState_ = reinterpret_cast<int (*)(int)>(dlsym(handle_, "audit_State"));
    audit_ = reinterpret_cast<int (*)(int, int, std::string&, std::vector<std::string>&)>(
        dlsym(handle_, "audit_DEALLIB_CHANGE"));
    execute_ = reinterpret_cast<int (*)(const std::string&, CAlert&, int, int, const std::string&)>(
        dlsym(handle_, "Execute"));
    ASSERT_TRUE(open_ && close_ && whoIsIt_ && auditState_ && audit_ && execute_);
    settings_.users = Write("users", Line("ann", 4, 2, "a") + Line("vic", 9, 3, "v"));
    settings_.auditDatabase = dir_ + "/audit.db";
    settings_.classList = Write("classes", "TQBR\nSPBFUT\n");
    settings_.audit = {{7001, true}, {7002, false}};
  }
  void TearDown() override {
    if (close_ != nullptr) close_();
    TempDir::TearDown();
  }

  void* handle_ = nullptr;
  DbZentOpenFn open_ = nullptr;
  DbZentCloseFn close_ = nullptr;
  int (*whoIsIt_)(int, int) = nullptr;
  int (*auditState_)(int) = nullptr;
  int (*audit_)(int, int, std::string&, std::vector<std::string>&) = nullptr;
  int (*execute_)(const std::string&, CAlert&, int, int, const std::string&) = nullptr;
  TDbZentSettings settings_;
};

TEST_F(DbZentTest, WhoIsItAnswersTheKindOfTheUsersFile) {
  std::string error;
  ASSERT_EQ(open_(settings_, error), 1) << error;
  EXPECT_EQ(whoIsIt_(4, 7001), 2);
  EXPECT_EQ(whoIsIt_(9, 7001), 3);
  EXPECT_EQ(whoIsIt_(5, 7001), 3);
}

TEST_F(DbZentTest, AuditStateFollowsTheConfigurationOfEachPort) {
  std::string error;
  ASSERT_EQ(open_(settings_, error), 1) << error;
  EXPECT_EQ(auditState_(7001), 1);
  EXPECT_EQ(auditState_(7002), 0);
  EXPECT_EQ(auditState_(7003), 0);
}

TEST_F(DbZentTest, AuditRecordsGoToTheDatabase) {
  std::string error;
  ASSERT_EQ(open_(settings_, error), 1) << error;
  std::string event = "SRV_USER_BO_DEALLIB_OPEN";
  std::vector<std::string> fields(21, kAuditNullMarker);
  fields[2] = "FIRM";
  EXPECT_EQ(audit_(7001, 4, event, fields), 1);
  EXPECT_EQ(audit_(7001, 4, event, fields), 1);
  close_();
  sqlite3* check = nullptr;
  ASSERT_EQ(sqlite3_open(settings_.auditDatabase.c_str(), &check), SQLITE_OK);
  sqlite3_stmt* st = nullptr;
  ASSERT_EQ(sqlite3_prepare_v2(check, "SELECT count(*), max(field2) FROM audit WHERE event = 'SRV_USER_BO_DEALLIB_OPEN'",
                               -1, &st, nullptr),
            SQLITE_OK);
  ASSERT_EQ(sqlite3_step(st), SQLITE_ROW);
  EXPECT_EQ(sqlite3_column_int(st, 0), 2);
  EXPECT_STREQ(reinterpret_cast<const char*>(sqlite3_column_text(st, 1)), "FIRM");
  sqlite3_finalize(st);
  sqlite3_close(check);
}

TEST_F(DbZentTest, GetTableAnswersTheClassList) {
  std::string error;
  ASSERT_EQ(open_(settings_, error), 1) << error;
  CAlert m;
  m << std::string("anything");
  ASSERT_EQ(execute_("GetTable", m, 4, 7001, "ann"), 1);
  m.set_begin();
  std::string name;
  int status = -1, count = -1, columns = -1;
  CAlert rows;
  m >> name >> status >> count >> columns >> rows;
  EXPECT_EQ(name, "GetTable");
  EXPECT_EQ(status, 0);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(columns, 2);
  std::vector<std::string> codes;
  while (rows.get_fields_count() != 0) {
    CAlert row;
    rows >> row;
    int n = 0;
    std::string code;
    row >> n >> code;
    EXPECT_EQ(n, static_cast<int>(codes.size()) + 1);
    codes.push_back(code);
  }
  EXPECT_EQ(codes, (std::vector<std::string>{"TQBR", "SPBFUT"}));
  CAlert other;
  other << 1;
  EXPECT_EQ(execute_("SomethingElse", other, 4, 7001, "ann"), 0);
  EXPECT_EQ(other.get_size(), 9u);
}

TEST_F(DbZentTest, OpeningRefusesAUsersFileOpenToOthers) {
  ::chmod(settings_.users.c_str(), 0644);
  std::string error;
  EXPECT_EQ(open_(settings_, error), 0);
  EXPECT_NE(error.find("open to group or others"), std::string::npos);
}

}  // namespace
