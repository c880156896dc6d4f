// zent-host killed with SIGKILL at random moments while a client saves
// several libraries in a loop, by whole-file saves and by command sessions.
// After each kill every library equals, byte for byte, either the canonical
// text it had before the save in flight or the one that save was to write,
// and the audit database opens, passes its integrity check and holds no half
// record. The host is then started again on the same files.
//
// ZDL_KILLS sets the number of kills (200; 40 in sanitizer builds), and
// ZDL_KILL_WINDOW_MS the time after log-on within which each falls (60; 400).
#include <gtest/gtest.h>
#include <signal.h>
#include <sqlite3.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <map>
#include <mutex>
#include <optional>
#include <random>
#include <thread>

#include "ReliabilityHost.h"
#include "api/ZDeallibAPI.h"

namespace {

using namespace reltest;
using namespace ZentWire;

constexpr int kLibraries = 3;

// The canonical text the module's own settings layer writes for a settings
// text, after setting USEPGO when `pgo` is given (as a command session does).
std::string Canonical(const std::string& source, std::optional<bool> pgo = std::nullopt) {
  static std::mutex mutex;
  std::lock_guard<std::mutex> lock(mutex);
  std::string text;
  if (ZDL_LoadSettingsForFirm("KILLTEST", source.c_str(), 2) == 0 &&
      (!pgo || ZDL_SetUsePGOToGlobal("KILLTEST", *pgo) == 0)) {
    char* block = nullptr;
    if (ZDL_SaveSettingsToMemory("KILLTEST", &block) == 0) {
      text = block;
      void* given = block;
      (void)ZDL_FreeMemory("KILLTEST", &given);
    }
  }
  (void)ZDL_FinishWorkWithFirm("KILLTEST");
  return text;
}

// What the saving client knows of each library: the state confirmed by a
// reply, and the state of a save sent but not yet answered.
struct TLedger {
  std::mutex mutex;
  std::string confirmed[kLibraries];
  std::optional<std::string> inFlight[kLibraries];
  int nextMark = 1;
  std::atomic<long> saves{0};
};

void SaveLoop(int port, TLedger& ledger, unsigned seed, std::atomic<bool>& loggedOn) {
  std::mt19937 rng(seed);
  try {
    auto c = LogOn(port, "admin", 20000);
    loggedOn = true;
    for (;;) {
      const int library = static_cast<int>(rng() % kLibraries);
      const std::string name = LibraryName(library);
      std::string next;
      {
        std::lock_guard<std::mutex> lock(ledger.mutex);
        next = ledger.confirmed[library];
      }
      const bool wholeFile = rng() % 2 == 0;
      if (wholeFile) {
        // A whole-file save of a new mark.
        if (GetDLFile(*c, name, 0).readOnly != 0) continue;
        std::string source;
        {
          std::lock_guard<std::mutex> lock(ledger.mutex);
          source = LibraryText(ledger.nextMark++, rng() % 2 == 0);
        }
        next = Canonical(source);
        {
          std::lock_guard<std::mutex> lock(ledger.mutex);
          ledger.inFlight[library] = next;
        }
        TSaveReply r = SaveDLFile(*c, name, source);
        if (r.status != kWireOk || r.cancel != 0) return;
      } else {
        // A command session that flips USEPGO and writes the library.
        if (DLOpenFile(*c, name, 0) != 0) return;
        const bool pgo = rng() % 2 == 0;
        next = Canonical(next, pgo);
        if (SetUsePGO(*c, name, pgo) != 0) return;
        {
          std::lock_guard<std::mutex> lock(ledger.mutex);
          ledger.inFlight[library] = next;
        }
        if (DLUpdateFile(*c, name) != 0) return;
      }
      {
        std::lock_guard<std::mutex> lock(ledger.mutex);
        ledger.confirmed[library] = next;
        ledger.inFlight[library].reset();
      }
      ++ledger.saves;
      if (!wholeFile && DLCloseFile(*c, name) != 0) return;
    }
  } catch (const CWireError&) {
    // The host was killed.
  }
}

// The audit database after a kill: opens, passes the integrity check, and
// every row is whole. Empty when all is well, else what is wrong.
std::string CheckAuditDatabase(const std::string& path) {
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
    std::string e = db != nullptr ? sqlite3_errmsg(db) : "cannot open";
    sqlite3_close(db);
    return "open: " + e;
  }
  std::string problem;
  auto scalar = [&](const char* sql) {
    sqlite3_stmt* st = nullptr;
    std::string out;
    if (sqlite3_prepare_v2(db, sql, -1, &st, nullptr) == SQLITE_OK && sqlite3_step(st) == SQLITE_ROW &&
        sqlite3_column_text(st, 0) != nullptr)
      out = reinterpret_cast<const char*>(sqlite3_column_text(st, 0));
    else
      problem = std::string(sql) + ": " + sqlite3_errmsg(db);
    sqlite3_finalize(st);
    return out;
  };
  const std::string integrity = scalar("PRAGMA integrity_check");
  if (problem.empty() && integrity != "ok") problem = "integrity_check: " + integrity;
  // A whole record of a library event has its user, user id, library, thread and text.
  const std::string half = scalar(
      "SELECT count(*) FROM audit WHERE time IS NULL OR event IS NULL OR "
      "(event LIKE 'SRV_USER_BO_DEALLIB_%' AND (field0 IS NULL OR field1 IS NULL OR field2 IS NULL OR "
      "field3 IS NULL OR field20 IS NULL))");
  if (problem.empty() && half != "0") problem = half + " half records";
  sqlite3_close(db);
  return problem;
}

TEST(KillTest, EveryLibraryIsItsOldOrItsNewCanonicalTextAfterEachKill) {
  const long kills = EnvNumber("ZDL_KILLS", SanitizedBuild() ? 40 : 200);
  // A sanitized host is several times slower: the kills spread over a longer time.
  const long windowUs = 1000 * EnvNumber("ZDL_KILL_WINDOW_MS", SanitizedBuild() ? 400 : 60);
  hosttest::THostOptions options;
  options.logonDelayMs = 0;
  auto host = MakeHost(kLibraries, 0, options);
  TLedger ledger;
  for (int i = 0; i < kLibraries; ++i) {
    ledger.confirmed[i] = Canonical(LibraryText(0, false));
    hosttest::WriteFile(host->path(LibraryFile(i)), ledger.confirmed[i]);
  }
  std::mt19937 rng(2026);
  long survived = 0, lost = 0, newState = 0;
  const auto start = std::chrono::steady_clock::now();
  for (long k = 0; k < kills; ++k) {
    ::unlink(host->path("port").c_str());
    ASSERT_TRUE(host->Start()) << "start " << k << ": " << host->output();
    std::atomic<bool> loggedOn{false};
    std::thread saver(SaveLoop, host->port(), std::ref(ledger), static_cast<unsigned>(k), std::ref(loggedOn));
    while (!loggedOn.load()) std::this_thread::sleep_for(std::chrono::microseconds(200));
    std::this_thread::sleep_for(std::chrono::microseconds(static_cast<long>(rng()) % windowUs));
    EXPECT_EQ(host->Stop(SIGKILL), 128 + SIGKILL);
    saver.join();
    for (int i = 0; i < kLibraries; ++i) {
      const std::string onDisk = hosttest::ReadFile(host->path(LibraryFile(i)));
      std::lock_guard<std::mutex> lock(ledger.mutex);
      if (onDisk == ledger.confirmed[i]) {
        // as before the save in flight, if any
      } else if (ledger.inFlight[i] && onDisk == *ledger.inFlight[i]) {
        ledger.confirmed[i] = *ledger.inFlight[i];
        ++newState;
      } else {
        ++lost;
        ADD_FAILURE() << "kill " << k << ": " << LibraryName(i) << " is neither its old nor its new text:\n"
                      << onDisk;
        ledger.confirmed[i] = onDisk;
      }
      ledger.inFlight[i].reset();
    }
    const std::string audit = CheckAuditDatabase(host->path("audit.db"));
    EXPECT_EQ(audit, "") << "kill " << k;
    if (lost != 0 || !audit.empty()) break;
    ++survived;
  }
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  std::printf("[ kills    ] %ld kills survived of %ld in %.1f s, %ld saves answered, %ld unanswered saves found "
              "stored, %ld libraries lost\n",
              survived, kills, seconds, ledger.saves.load(), newState, lost);
  EXPECT_EQ(survived, kills);
  EXPECT_EQ(lost, 0);
  EXPECT_GT(ledger.saves.load(), 0);
}

}  // namespace
