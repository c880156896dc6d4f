// Faults under zent-host: a full disk, a read-only library folder, a library
// deleted or replaced by a folder while held, a missing database module, an
// audit database that is locked or read-only. Each gives the verb's result
// code or reply, a log line naming the cause, the old library as it was, and
// a host that goes on serving.
//
// The full disk is a small tmpfs and the read-only folder a read-only bind
// mount, both made by the test when it runs as root; otherwise the first is
// skipped with a message and the second uses the folder's permissions. Where
// even root may not mount (a confined container) they are skipped too.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "ReliabilityHost.h"

namespace {

namespace fs = std::filesystem;
using namespace reltest;
using namespace ZentWire;

const std::string kLib = "LIB0";

// A mount made by the test, undone when it goes.
class TMount {
 public:
  ~TMount() { Undo(); }
  bool Tmpfs(const std::string& at, const std::string& options) {
    m_at = at;
    m_done = ::mount("tmpfs", at.c_str(), "tmpfs", 0, options.c_str()) == 0;
    return m_done;
  }
  // Binds the folder on itself, read-only.
  bool ReadOnlyBind(const std::string& at) {
    m_at = at;
    if (::mount(at.c_str(), at.c_str(), nullptr, MS_BIND, nullptr) != 0) return false;
    m_done = true;
    return ::mount(nullptr, at.c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) == 0;
  }
  void Undo() {
    if (m_done) ::umount2(m_at.c_str(), MNT_DETACH);
    m_done = false;
  }

 private:
  std::string m_at;
  bool m_done = false;
};

class FaultsTest : public ::testing::Test {
 protected:
  void StartHost(int libraries = 1) {
    host_ = MakeHost(libraries, 0);
    ASSERT_TRUE(host_->Start()) << host_->output();
  }
  void TearDown() override {
    if (host_) {
      EXPECT_EQ(host_->Stop(), 0) << host_->output();
    }
  }
  std::string LibPath(int i = 0) const { return host_->path(LibraryFile(i)); }
  bool LogHas(const std::string& text) const { return host_->log().find(text) != std::string::npos; }

  // The host still serves: a fresh client fetches a library for reading.
  void ExpectStillServing() {
    auto c = LogOn(host_->port(), "trader");
    TFileReply r = GetDLFile(*c, kLib, 1);
    EXPECT_EQ(r.status, kWireOk);
    EXPECT_EQ(r.name, kLib);
  }

  std::unique_ptr<hosttest::THostProcess> host_;
};

TEST_F(FaultsTest, AFullDiskFailsTheSaveAndKeepsTheOldLibrary) {
  if (::geteuid() != 0) GTEST_SKIP() << "a full disk needs a small tmpfs, which only root may mount";
  host_ = MakeHost(1, 0);
  const std::string dir = host_->path("full");
  fs::create_directories(dir);
  TMount mount;
  if (!mount.Tmpfs(dir, "size=64k")) GTEST_SKIP() << "no tmpfs could be mounted: " << std::strerror(errno);
  const std::string old = LibraryText(1, true);
  hosttest::WriteFile(dir + "/lib0.ini", old);
  hosttest::WriteFile(host_->path("dealer-library.ini"), "[dealer-library]\nLIB0=full/lib0.ini\n");
  {
    // Fill every block that is left.
    std::ofstream fill(dir + "/filler", std::ios::binary);
    std::string chunk(4096, 'x');
    while (fill.write(chunk.data(), static_cast<std::streamsize>(chunk.size()))) fill.flush();
  }
  ASSERT_TRUE(host_->Start()) << host_->output();
  auto c = LogOn(host_->port(), "admin");

  // Whole-file save.
  ASSERT_EQ(GetDLFile(*c, kLib, 0).readOnly, 0);
  TSaveReply r = SaveDLFile(*c, kLib, LibraryText(2, false));
  EXPECT_EQ(r.cancel, 1);
  EXPECT_TRUE(LogHas("Failed to save the new file DL-library [" + dir + "/lib0.ini][1][1][" +
                     std::to_string(ENOSPC) + "]"))
      << host_->log();
  EXPECT_EQ(hosttest::ReadFile(dir + "/lib0.ini"), old);

  // Command session.
  ASSERT_EQ(DLOpenFile(*c, kLib, 0), 0);
  ASSERT_EQ(SetUsePGO(*c, kLib, false), 0);
  EXPECT_EQ(DLUpdateFile(*c, kLib), 13);
  EXPECT_TRUE(LogHas("User[1], call ZA_DLUpdateFile for port[7001], error save library [LIB0][" +
                     std::to_string(ENOSPC) + "]."))
      << host_->log();
  EXPECT_EQ(hosttest::ReadFile(dir + "/lib0.ini"), old);
  EXPECT_EQ(DLCloseFile(*c, kLib), 0);
  ExpectStillServing();
  EXPECT_EQ(host_->Stop(), 0) << host_->output();
  host_.reset();
}

TEST_F(FaultsTest, AReadOnlyLibraryFolderHandsOutForReadingAndRefusesSaves) {
  StartHost();
  const std::string old = hosttest::ReadFile(LibPath());
  const std::string libs = host_->path("libs");
  const bool root = ::geteuid() == 0;
  TMount mount;
  if (root) {
    if (!mount.ReadOnlyBind(libs)) GTEST_SKIP() << "no read-only bind mount could be made: " << std::strerror(errno);
  } else {
    ::chmod(libs.c_str(), 0555);
    ::chmod(LibPath().c_str(), 0444);
  }
  auto c = LogOn(host_->port(), "admin");
  // A library the process may not write is handed out for reading only.
  TFileReply got = GetDLFile(*c, kLib, 0);
  EXPECT_EQ(got.readOnly, 1);
  EXPECT_EQ(got.text, old);
  TSaveReply r = SaveDLFile(*c, kLib, LibraryText(3, true));
  EXPECT_EQ(r.cancel, 1);
  const int cause = root ? EROFS : EACCES;
  EXPECT_TRUE(LogHas("Can not open file for write [" + LibPath() + "][" + std::to_string(cause) + "]"))
      << host_->log();
  // The command session loads it (reading is allowed) and cannot write it.
  ASSERT_EQ(DLOpenFile(*c, kLib, 0), 0);
  ASSERT_EQ(SetUsePGO(*c, kLib, true), 0);
  EXPECT_EQ(DLUpdateFile(*c, kLib), 13);
  EXPECT_TRUE(LogHas("call ZA_DLUpdateFile for port[7001], error save library [LIB0][" + std::to_string(cause) +
                     "]."))
      << host_->log();
  EXPECT_EQ(DLCloseFile(*c, kLib), 0);
  EXPECT_EQ(hosttest::ReadFile(LibPath()), old);
  ExpectStillServing();
  if (!root) {
    ::chmod(libs.c_str(), 0755);
    ::chmod(LibPath().c_str(), 0644);
  }
}

TEST_F(FaultsTest, ALibraryDeletedWhileHeldIsNotSavedByTheWholeFileService) {
  StartHost();
  auto c = LogOn(host_->port(), "admin");
  ASSERT_EQ(GetDLFile(*c, kLib, 0).readOnly, 0);
  ASSERT_EQ(::unlink(LibPath().c_str()), 0);
  TSaveReply r = SaveDLFile(*c, kLib, LibraryText(4, true));
  EXPECT_EQ(r.cancel, 1);
  EXPECT_TRUE(LogHas("Can not open file for write [" + LibPath() + "][" + std::to_string(ENOENT) + "]"))
      << host_->log();
  EXPECT_FALSE(fs::exists(LibPath()));  // the save creates nothing
  // Fetching it now fails with the failure reply.
  TFileReply got = GetDLFile(*c, kLib, 0);
  EXPECT_EQ(got.result, 0);
  hosttest::WriteFile(LibPath(), LibraryText(0, false));
  ExpectStillServing();
}

TEST_F(FaultsTest, ALibraryDeletedDuringACommandSessionIsWrittenAgainByTheUpdate) {
  StartHost();
  auto c = LogOn(host_->port(), "admin");
  ASSERT_EQ(DLOpenFile(*c, kLib, 0), 0);
  ASSERT_EQ(::unlink(LibPath().c_str()), 0);
  ASSERT_EQ(SetUsePGO(*c, kLib, true), 0);
  // The settings in memory are whole; the update writes them out as a new file.
  EXPECT_EQ(DLUpdateFile(*c, kLib), 0);
  EXPECT_NE(hosttest::ReadFile(LibPath()).find("USEPGO=1"), std::string::npos);
  EXPECT_EQ(DLCloseFile(*c, kLib), 0);
  ExpectStillServing();
}

TEST_F(FaultsTest, ALibraryReplacedByAFolderWhileHeldIsLeftAsAFolder) {
  StartHost();
  auto c = LogOn(host_->port(), "admin");
  ASSERT_EQ(GetDLFile(*c, kLib, 0).readOnly, 0);
  ASSERT_EQ(::unlink(LibPath().c_str()), 0);
  ASSERT_EQ(::mkdir(LibPath().c_str(), 0755), 0);
  TSaveReply r = SaveDLFile(*c, kLib, LibraryText(5, true));
  EXPECT_EQ(r.cancel, 1);
  EXPECT_TRUE(LogHas("Can not open file for write [" + LibPath() + "][" + std::to_string(EISDIR) + "]"))
      << host_->log();
  EXPECT_TRUE(fs::is_directory(LibPath()));

  EXPECT_EQ(DLOpenFile(*c, kLib, 0), 1001);  // a folder cannot be read as a library
  ::rmdir(LibPath().c_str());
  hosttest::WriteFile(LibPath(), LibraryText(6, false));
  ASSERT_EQ(DLOpenFile(*c, kLib, 0), 0);
  ASSERT_EQ(::unlink(LibPath().c_str()), 0);
  ASSERT_EQ(::mkdir(LibPath().c_str(), 0755), 0);
  EXPECT_EQ(DLUpdateFile(*c, kLib), 13);
  EXPECT_TRUE(LogHas("call ZA_DLUpdateFile for port[7001], error save library [LIB0][" + std::to_string(EISDIR) +
                     "]."))
      << host_->log();
  EXPECT_TRUE(fs::is_directory(LibPath()));
  EXPECT_EQ(DLCloseFile(*c, kLib), 0);
  ::rmdir(LibPath().c_str());
  hosttest::WriteFile(LibPath(), LibraryText(0, false));
  ExpectStillServing();
}

TEST_F(FaultsTest, WithoutItsDatabaseModuleTheHostDoesNotStart) {
  hosttest::THostOptions options;
  const auto home = fs::temp_directory_path() / ("zent-nodb-" + std::to_string(::getpid()));
  fs::create_directories(home / "modules");
  options.extraHostKeys["ModuleHome"] = home.string();
  host_ = MakeHost(1, 0, options);
  const std::string old = hosttest::ReadFile(LibPath());
  EXPECT_FALSE(host_->Start());
  const std::string expected = (home / "modules/libdbzent.so").string();
  EXPECT_NE(host_->output().find(expected), std::string::npos) << host_->output();
  EXPECT_NE(host_->log().find("zent-host: the database module " + expected + " cannot be loaded"), std::string::npos)
      << host_->log();
  EXPECT_EQ(hosttest::ReadFile(LibPath()), old);
  host_.reset();
  fs::remove_all(home);
}

// Opens the audit database beside the host and takes its write lock.
class TAuditLock {
 public:
  explicit TAuditLock(const std::string& path) {
    sqlite3_open_v2(path.c_str(), &m_db, SQLITE_OPEN_READWRITE, nullptr);
    m_ok = sqlite3_exec(m_db, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) == SQLITE_OK;
  }
  ~TAuditLock() {
    sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(m_db);
  }
  bool ok() const { return m_ok; }

 private:
  sqlite3* m_db = nullptr;
  bool m_ok = false;
};

TEST_F(FaultsTest, ALockedAuditDatabaseIsLoggedAndTheSaveStillCompletes) {
  StartHost();
  auto c = LogOn(host_->port(), "admin");
  ASSERT_EQ(GetDLFile(*c, kLib, 0).readOnly, 0);
  {
    TAuditLock lock(host_->path("audit.db"));
    ASSERT_TRUE(lock.ok());
    // The module does not make a save wait on its audit record: the library is stored.
    TSaveReply r = SaveDLFile(*c, kLib, LibraryText(7, true));
    EXPECT_EQ(r.cancel, 0);
  }
  EXPECT_TRUE(LogHas("dbzent: audit record SRV_USER_BO_DEALLIB_CHANGE of user[1] port[7001] not stored: database is "
                     "locked"))
      << host_->log();
  EXPECT_NE(hosttest::ReadFile(LibPath()).find("LIMIT_KIND_COUNT=7"), std::string::npos);
  ExpectStillServing();
  // Once the lock is gone, records are stored again.
  ASSERT_EQ(GetDLFile(*c, kLib, 0).readOnly, 0);
  EXPECT_EQ(AuditOf(*host_, "SRV_USER_BO_DEALLIB_OPEN").size(), 2u);
}

TEST_F(FaultsTest, AReadOnlyAuditDatabaseKeepsTheHostFromStarting) {
  if (::geteuid() != 0) GTEST_SKIP() << "a read-only audit folder needs a read-only mount when the test runs as root";
  host_ = MakeHost(1, 0);
  fs::create_directories(host_->path("db"));
  std::string config = hosttest::ReadFile(host_->config());
  config.replace(config.find("AuditDatabase=audit.db"), 22, "AuditDatabase=db/audit.db");
  hosttest::WriteFile(host_->config(), config);
  ASSERT_TRUE(host_->Start()) << host_->output();
  ASSERT_EQ(host_->Stop(), 0);
  const std::string old = hosttest::ReadFile(LibPath());
  TMount mount;
  if (!mount.ReadOnlyBind(host_->path("db"))) {
    GTEST_SKIP() << "no read-only bind mount could be made: " << std::strerror(errno);
  }
  ::unlink(host_->path("port").c_str());
  EXPECT_FALSE(host_->Start());
  EXPECT_TRUE(LogHas("zent-host: the database module refused to open: " + host_->path("db/audit.db") + ": "))
      << host_->log();
  EXPECT_EQ(hosttest::ReadFile(LibPath()), old);
  mount.Undo();
  // Writable again, the same trail serves.
  ::unlink(host_->path("port").c_str());
  ASSERT_TRUE(host_->Start()) << host_->output();
  ExpectStillServing();
}

}  // namespace
