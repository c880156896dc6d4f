// Sixteen clients at once against zent-host on four libraries: whole-file
// edits, read-only fetches and command sessions (open, set, get, update,
// close) contend for the same holds. At the end every library is canonical
// and equals its last audited text, every successful change is in the audit
// trail exactly once, no hold is left, and every reply answered its request.
//
// ZDL_STRESS_SECONDS sets the run time (20 s; 6 s in sanitizer builds).
#include <gtest/gtest.h>

#include <atomic>
#include <cctype>
#include <chrono>
#include <map>
#include <mutex>
#include <random>
#include <thread>

#include "ReliabilityHost.h"

namespace {

using namespace reltest;
using namespace ZentWire;
using Clock = std::chrono::steady_clock;

constexpr int kClients = 16;
constexpr int kLibraries = 4;

// What one client saw succeed, to be found in the audit trail.
struct TSaved {
  int library;
  int user;
  int mark;
};
struct TUpdated {
  int library;
  int user;
  int changeLines;  // successful Set commands since the open
};

struct TTally {
  std::atomic<long> requests{0};
  std::atomic<long> errors{0};      // transport failures, error replies, unexpected results
  std::atomic<long> busy{0};        // opens and fetches that found the library held
  std::atomic<long> saves{0};
  std::atomic<long> updates{0};
  std::mutex mutex;
  std::vector<TSaved> saved;
  std::vector<TUpdated> updated;
  std::vector<std::string> problems;

  void Problem(const std::string& text) {
    ++errors;
    std::lock_guard<std::mutex> lock(mutex);
    if (problems.size() < 20) problems.push_back(text);
  }
};

// True when the text carries the mark as the whole value of its parameter.
bool CarriesMark(const std::string& text, int mark) {
  const std::string line = "LIMIT_KIND_COUNT=" + std::to_string(mark);
  const std::size_t at = text.find(line);
  return at != std::string::npos && (at + line.size() == text.size() || !std::isdigit(static_cast<unsigned char>(text[at + line.size()])));
}

void WholeFileEdit(CAdminClient& c, int client, int library, int& seq, std::mt19937& rng, TTally& t) {
  const std::string name = LibraryName(library);
  TFileReply got = GetDLFile(c, name, 0);
  ++t.requests;
  if (got.status != kWireOk || got.result != 1 || got.name != name) {
    t.Problem("GetDLFile " + name + ": status " + std::to_string(got.status) + " result " +
              std::to_string(got.result) + " name " + got.name);
    return;
  }
  if (got.readOnly != 0) {
    ++t.busy;
    return;
  }
  const int mark = client * 100000 + ++seq;
  TSaveReply saved = SaveDLFile(c, name, LibraryText(mark, rng() % 2 == 0));
  ++t.requests;
  if (saved.status != kWireOk || saved.result != 1 || saved.cancel != 0 || saved.name != name) {
    t.Problem("SaveDLFile " + name + ": status " + std::to_string(saved.status) + " cancel " +
              std::to_string(saved.cancel) + " name " + saved.name);
    return;
  }
  ++t.saves;
  std::lock_guard<std::mutex> lock(t.mutex);
  t.saved.push_back({library, UserId(client), mark});
}

void ReadOnlyFetch(CAdminClient& c, int library, TTally& t) {
  const std::string name = LibraryName(library);
  TFileReply got = GetDLFile(c, name, 1);
  ++t.requests;
  if (got.status != kWireOk || got.result != 1 || got.readOnly != 1 || got.name != name ||
      got.text.find("[General]") == std::string::npos)
    t.Problem("read-only GetDLFile " + name + ": status " + std::to_string(got.status) + " name " + got.name);
}

void ApiSession(CAdminClient& c, int client, int library, std::mt19937& rng, TTally& t) {
  const std::string name = LibraryName(library);
  int rc = DLOpenFile(c, name, 0);
  ++t.requests;
  if (rc == 11) {
    ++t.busy;
    return;
  }
  if (rc != 0) {
    t.Problem("DLOpenFile " + name + " gave " + std::to_string(rc));
    return;
  }
  int lines = 0;
  const int sets = 1 + static_cast<int>(rng() % 3);
  for (int i = 0; i < sets; ++i) {
    const bool value = rng() % 2 == 0;
    rc = SetUsePGO(c, name, value);
    ++t.requests;
    if (rc != 0) {
      t.Problem("SetUsePGOToGlobal " + name + " gave " + std::to_string(rc));
      continue;
    }
    ++lines;
    bool read = !value;
    std::string replyFirm;
    rc = GetUsePGO(c, name, read, &replyFirm);
    ++t.requests;
    if (rc != 0 || read != value || replyFirm != name)
      t.Problem("GetUsePGOFromGlobal " + name + " gave " + std::to_string(rc) + " value " + std::to_string(read) +
                " for " + replyFirm + ", expected " + std::to_string(value));
  }
  rc = DLUpdateFile(c, name);
  ++t.requests;
  if (rc == 0) {
    ++t.updates;
    std::lock_guard<std::mutex> lock(t.mutex);
    t.updated.push_back({library, UserId(client), lines});
  } else {
    t.Problem("DLUpdateFile " + name + " gave " + std::to_string(rc));
  }
  rc = DLCloseFile(c, name);
  ++t.requests;
  if (rc != 0) t.Problem("DLCloseFile " + name + " gave " + std::to_string(rc));
}

void RunClient(int port, int client, Clock::time_point deadline, TTally& t) {
  std::mt19937 rng(static_cast<unsigned>(client) * 7919u);
  int seq = 0;
  try {
    auto c = LogOn(port, UserName(client));
    while (Clock::now() < deadline) {
      const int library = static_cast<int>(rng() % kLibraries);
      switch (rng() % 3) {
        case 0: WholeFileEdit(*c, client, library, seq, rng, t); break;
        case 1: ReadOnlyFetch(*c, library, t); break;
        default: ApiSession(*c, client, library, rng, t); break;
      }
    }
  } catch (const std::exception& e) {
    t.Problem("client " + std::to_string(client) + ": " + e.what());
  }
}

TEST(StressTest, SixteenClientsOnFourLibrariesLeaveCanonicalLibrariesAndAnExactAuditTrail) {
  const long seconds = EnvNumber("ZDL_STRESS_SECONDS", SanitizedBuild() ? 6 : 20);
  hosttest::THostOptions options;
  options.threads = kClients + 2;
  options.maxPending = 8;
  auto host = MakeHost(kLibraries, kClients, options);
  ASSERT_TRUE(host->Start()) << host->output();

  TTally t;
  const auto start = Clock::now();
  const auto deadline = start + std::chrono::seconds(seconds);
  std::vector<std::thread> clients;
  for (int i = 1; i <= kClients; ++i) clients.emplace_back(RunClient, host->port(), i, deadline, std::ref(t));
  for (std::thread& th : clients) th.join();
  const double elapsed = std::chrono::duration<double>(Clock::now() - start).count();

  std::printf("[ stress   ] %d clients, %.1f s: %ld requests (%.0f/s), %ld saves, %ld updates, %ld busy, %ld errors\n",
              kClients, elapsed, t.requests.load(), static_cast<double>(t.requests.load()) / elapsed, t.saves.load(),
              t.updates.load(), t.busy.load(), t.errors.load());
  // In a ThreadSanitizer build the host reports races on its standard error (and stops).
  ASSERT_EQ(host->output().find("ThreadSanitizer"), std::string::npos) << host->output();
  for (const std::string& p : t.problems) ADD_FAILURE() << p;
  EXPECT_EQ(t.errors.load(), 0);
  EXPECT_GT(t.saves.load(), 0);
  EXPECT_GT(t.updates.load(), 0);

  // Every client has gone: the disconnects have released what they held.
  auto checker = LogOn(host->port(), "admin");
  for (int i = 0; i < kLibraries; ++i) {
    const std::string name = LibraryName(i);
    TFileReply got = GetDLFile(*checker, name, 0);
    EXPECT_EQ(got.readOnly, 0) << name << " is still held";
    const std::string before = hosttest::ReadFile(host->path(LibraryFile(i)));
    EXPECT_EQ(got.text, before);
    // Canonical: saving the text as it is changes no byte.
    TSaveReply again = SaveDLFile(*checker, name, got.text);
    EXPECT_EQ(again.cancel, 0) << name;
    EXPECT_EQ(hosttest::ReadFile(host->path(LibraryFile(i))), before) << name << " was not canonical";
  }
  checker.reset();

  // The audit trail, in order. A change record right after a packet record of
  // the same user and library is an update; any other is a save.
  const auto rows = host->AuditRows();
  std::map<int, std::string> lastText;  // library -> text of its last change record, before the checker's saves
  std::map<std::pair<int, int>, std::vector<int>> packetLines;  // (library, user) -> field 4 of packet records
  std::vector<std::vector<std::string>> saveRows;
  auto indexOf = [](const std::string& name) { return name.size() > 3 ? std::atoi(name.c_str() + 3) : -1; };
  const std::string checkerId = "1";
  for (std::size_t r = 0; r < rows.size(); ++r) {
    const auto& row = rows[r];
    const int library = indexOf(row[kAuditField0 + 2]);
    if (row[kAuditUser] == checkerId) continue;
    if (row[kAuditEvent] == "SRV_USER_BO_DEALLIB_PACKET_CHANGE") {
      packetLines[{library, std::atoi(row[kAuditUser].c_str())}].push_back(std::atoi(row[kAuditField0 + 4].c_str()));
    } else if (row[kAuditEvent] == "SRV_USER_BO_DEALLIB_CHANGE") {
      lastText[library] = row[kAuditField0 + 20];
      const bool update = r > 0 && rows[r - 1][kAuditEvent] == "SRV_USER_BO_DEALLIB_PACKET_CHANGE" &&
                          rows[r - 1][kAuditUser] == row[kAuditUser] &&
                          rows[r - 1][kAuditField0 + 2] == row[kAuditField0 + 2];
      if (!update) saveRows.push_back(row);
    }
  }
  // Each save exactly once.
  EXPECT_EQ(saveRows.size(), t.saved.size());
  for (const TSaved& s : t.saved) {
    int found = 0;
    for (const auto& row : saveRows)
      if (row[kAuditField0 + 2] == LibraryName(s.library) && row[kAuditUser] == std::to_string(s.user) &&
          CarriesMark(row[kAuditField0 + 20], s.mark))
        ++found;
    EXPECT_EQ(found, 1) << "save of mark " << s.mark << " to " << LibraryName(s.library);
  }
  // Each update exactly once, with its change lines, in the order the client made them.
  std::map<std::pair<int, int>, std::vector<int>> expectedLines;
  for (const TUpdated& u : t.updated) expectedLines[{u.library, u.user}].push_back(u.changeLines);
  EXPECT_EQ(packetLines, expectedLines);
  // The file ends as its last audited text.
  for (int i = 0; i < kLibraries; ++i) {
    if (lastText.count(i) == 0) continue;
    EXPECT_EQ(hosttest::ReadFile(host->path(LibraryFile(i))), lastText[i]) << LibraryName(i);
  }
  EXPECT_EQ(host->Stop(), 0) << host->output();
}

}  // namespace
