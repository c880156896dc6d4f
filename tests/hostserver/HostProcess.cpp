#include "HostProcess.h"

#include <signal.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "UsersFile.h"

namespace fs = std::filesystem;

namespace hosttest {
namespace {

constexpr int kStartTimeoutMs = 20000;

std::string MakeTempDir() {
  std::string pattern = (fs::temp_directory_path() / "zent-hostserver-XXXXXX").string();
  char* made = ::mkdtemp(pattern.data());
  if (made == nullptr) std::abort();
  return made;
}

std::string UsersLine(const std::string& name, int id, int kind) {
  ZentHost::TUser user;
  user.name = name;
  user.id = id;
  user.kind = kind;
  if (!ZentHost::MakeSecretHash(SecretOf(name), 1000, user.secret)) std::abort();
  return ZentHost::TUsersFile::FormatLine(user) + "\n";
}

}  // namespace

std::string SecretOf(const std::string& user) { return user + "-secret"; }

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

void WriteFile(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

THostProcess::THostProcess(const THostOptions& o) : m_dir(MakeTempDir()) {
  fs::create_directories(path("libs"));
  WriteFile(path("libs/alpha.ini"), "[General]\nUSEPGO=0\nCALCVARMARGIN=1\n");
  WriteFile(path("libs/beta.ini"), "[General]\nCALCVARMARGIN=1\n");
  WriteFile(path("dealer-library.ini"), "[dealer-library]\nALPHA=libs/alpha.ini\nBETA=libs/beta.ini\n");
  WriteFile(path("server.ini"), "[General]\nMaxDeallibSize=10485760\n");
  WriteFile(path("classes.txt"), "# classes\nTQBR\n\nSPBFUT\n");
  WriteFile(path("users"), "# test users\n" + UsersLine("admin", 1, 1) + UsersLine("trader", 2, 2) +
                               UsersLine("viewer", 3, 3));
  ::chmod(path("users").c_str(), static_cast<mode_t>(o.usersMode));
  std::string host = "[Host]\nListen=127.0.0.1\nPort=0\nThreads=" + std::to_string(o.threads) +
                     "\nMaxPending=" + std::to_string(o.maxPending) + "\nMaxFrame=" + std::to_string(o.maxFrame) +
                     "\nIdleTimeout=" + std::to_string(o.idleTimeoutSeconds) + "\nLogonDelay=" + std::to_string(o.logonDelayMs) +
                     "\nLog=host.log\nUsers=users\nAuditDatabase=audit.db\nClassList=classes.txt\n";
  for (const auto& [key, value] : o.extraHostKeys) host += key + "=" + value + "\n";
  host += "[Ports]\n" + std::to_string(kConnectionPort) + "=Port\n[Port]\nLibraries=dealer-library.ini\n"
          "ServerSettings=server.ini\nAudit=" + std::string(o.audit ? "1" : "0") + "\n";
  WriteFile(config(), host);
}

THostProcess::~THostProcess() {
  if (m_pid > 0) Stop();
  std::error_code ec;
  fs::remove_all(m_dir, ec);
}

bool THostProcess::Start() {
  const std::string portFile = path("port");
  const std::string out = path("host.out");
  m_pid = ::fork();
  if (m_pid == 0) {
    FILE* f = std::freopen(out.c_str(), "w", stdout);
    (void)f;
    ::dup2(::fileno(stdout), 2);
    ::execl(ZENT_HOST_PATH, ZENT_HOST_PATH, "--port-file", portFile.c_str(), config().c_str(),
            static_cast<char*>(nullptr));
    std::_Exit(127);
  }
  auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(kStartTimeoutMs);
  while (std::chrono::steady_clock::now() < deadline) {
    std::string text = ReadFile(portFile);
    if (!text.empty() && text.back() == '\n') {
      m_port = std::atoi(text.c_str());
      return m_port > 0;
    }
    int status = 0;
    if (::waitpid(m_pid, &status, WNOHANG) == m_pid) {
      m_pid = -1;
      return false;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return false;
}

int THostProcess::Stop(int signal) {
  if (m_pid <= 0) return -1;
  ::kill(m_pid, signal);
  auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  int status = 0;
  while (std::chrono::steady_clock::now() < deadline) {
    if (::waitpid(m_pid, &status, WNOHANG) == m_pid) {
      m_pid = -1;
      return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  ::kill(m_pid, SIGKILL);
  ::waitpid(m_pid, &status, 0);
  m_pid = -1;
  return -1;
}

int THostProcess::Run(const std::vector<std::string>& args, std::string& output) {
  std::string outFile = (fs::temp_directory_path() / ("zent-host-run-" + std::to_string(::getpid()))).string();
  pid_t pid = ::fork();
  if (pid == 0) {
    FILE* f = std::freopen(outFile.c_str(), "w", stdout);
    (void)f;
    ::dup2(::fileno(stdout), 2);
    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(ZENT_HOST_PATH));
    for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    ::execv(ZENT_HOST_PATH, argv.data());
    std::_Exit(127);
  }
  int status = 0;
  ::waitpid(pid, &status, 0);
  output = ReadFile(outFile);
  ::unlink(outFile.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

std::string THostProcess::output() const { return ReadFile(path("host.out")); }
std::string THostProcess::log() const { return ReadFile(path("host.log")); }

std::vector<std::vector<std::string>> THostProcess::AuditRows() const {
  std::vector<std::vector<std::string>> rows;
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(path("audit.db").c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
    sqlite3_close(db);
    return rows;
  }
  std::string sql = "SELECT id, port, user, event";
  for (int i = 0; i < 21; ++i) sql += ", field" + std::to_string(i);
  sql += " FROM audit ORDER BY id";
  sqlite3_stmt* st = nullptr;
  if (sqlite3_prepare_v2(db, sql.c_str(), -1, &st, nullptr) == SQLITE_OK) {
    while (sqlite3_step(st) == SQLITE_ROW) {
      std::vector<std::string> row;
      for (int c = 0; c < sqlite3_column_count(st); ++c) {
        if (sqlite3_column_type(st, c) == SQLITE_NULL) {
          row.emplace_back("<NULL>");
        } else {
          const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(st, c));
          row.emplace_back(text, static_cast<std::size_t>(sqlite3_column_bytes(st, c)));
        }
      }
      rows.push_back(std::move(row));
    }
  }
  sqlite3_finalize(st);
  sqlite3_close(db);
  return rows;
}

}  // namespace hosttest
