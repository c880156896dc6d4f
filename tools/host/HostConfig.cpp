#include "HostConfig.h"

#include <arpa/inet.h>
#include <strings.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "ClassList.h"
#include "UsersFile.h"
#include "ini/IniFile.h"

namespace fs = std::filesystem;

namespace ZentHost {
namespace {

class TReader {
 public:
  TReader(const std::string& path, std::vector<std::string>& problems)
      : m_ini(path), m_path(path), m_problems(problems), m_dir(fs::path(path).parent_path()) {}

  Library::Ini::CIniFile& ini() { return m_ini; }

  void Problem(const std::string& section, const std::string& key, const std::string& what) {
    m_problems.push_back(m_path + ": [" + section + "] " + key + ": " + what);
  }

  bool Has(const std::string& section, const std::string& key) {
    for (const auto& r : m_ini.GetRecords(section))
      if (strcasecmp(r.key.c_str(), key.c_str()) == 0) return true;
    return false;
  }

  std::string Text(const std::string& section, const std::string& key, const std::string& fallback) {
    return m_ini.GetValue(section, key, fallback);
  }

  // A whole number within bounds; the fallback when the key is missing.
  long Number(const std::string& section, const std::string& key, long fallback, long low, long high) {
    if (!Has(section, key)) return fallback;
    std::string text = Text(section, key, "");
    char* end = nullptr;
    long v = std::strtol(text.c_str(), &end, 10);
    if (text.empty() || *end != '\0') {
      Problem(section, key, "\"" + text + "\" is not a whole number");
      return fallback;
    }
    if (v < low || v > high) {
      Problem(section, key, std::to_string(v) + " is outside " + std::to_string(low) + ".." + std::to_string(high));
      return fallback;
    }
    return v;
  }

  // A path relative to the configuration file's directory, made absolute.
  std::string Path(const std::string& section, const std::string& key, const std::string& fallback, bool required) {
    std::string text = Text(section, key, fallback);
    if (text.empty()) {
      if (required) Problem(section, key, "missing");
      return std::string();
    }
    fs::path p(text);
    if (p.is_relative()) p = m_dir / p;
    return p.lexically_normal().string();
  }

 private:
  Library::Ini::CIniFile m_ini;
  std::string m_path;
  std::vector<std::string>& m_problems;
  fs::path m_dir;
};

bool Readable(const std::string& path) { return ::access(path.c_str(), R_OK) == 0 && fs::is_regular_file(path); }

}  // namespace

THostConfig LoadHostConfig(const std::string& path, bool deep, std::vector<std::string>& problems) {
  THostConfig c;
  std::error_code ec;
  c.file = fs::absolute(path, ec).lexically_normal().string();
  if (!fs::is_regular_file(c.file, ec)) {
    problems.push_back(path + ": no such configuration file");
    return c;
  }
  TReader r(c.file, problems);
  const std::string H = "Host";
  if (!r.ini().SectionExist(H)) r.Problem(H, "-", "section missing");
  c.listen = r.Text(H, "Listen", "127.0.0.1");
  in_addr addr{};
  if (::inet_pton(AF_INET, c.listen.c_str(), &addr) != 1) r.Problem(H, "Listen", "\"" + c.listen + "\" is not a numeric IPv4 address");
  c.tcpPort = static_cast<int>(r.Number(H, "Port", 7100, 0, 65535));
  c.threads = static_cast<int>(r.Number(H, "Threads", 4, 1, 256));
  c.maxPending = static_cast<int>(r.Number(H, "MaxPending", 16, 0, 4096));
  c.maxFrame = static_cast<unsigned>(r.Number(H, "MaxFrame", 64L * 1024 * 1024, 16, 1L << 30));
  c.idleTimeoutSeconds = static_cast<int>(r.Number(H, "IdleTimeout", 600, 1, 86400));
  c.logonDelayMs = static_cast<int>(r.Number(H, "LogonDelay", 250, 0, 60000));
  c.logLevel = static_cast<int>(r.Number(H, "LogLevel", 10, 0, 1000));
  c.log = r.Path(H, "Log", "zent-host.log", true);
  c.users = r.Path(H, "Users", "", true);
  c.auditDatabase = r.Path(H, "AuditDatabase", "", true);
  c.classList = r.Path(H, "ClassList", "", false);
  c.module = r.Path(H, "Module", "", false);
  c.moduleHome = r.Path(H, "ModuleHome", "", false);

  const auto ports = r.ini().GetRecords("Ports");
  if (ports.empty()) r.Problem("Ports", "-", "no connection port is listed");
  for (const auto& record : ports) {
    TPortConfig p;
    char* end = nullptr;
    long n = std::strtol(record.key.c_str(), &end, 10);
    if (record.key.empty() || *end != '\0' || n <= 0 || n > 0x7FFFFFFF) {
      r.Problem("Ports", record.key, "a connection port must be a positive number");
      continue;
    }
    p.port = static_cast<int>(n);
    p.section = record.value;
    for (const TPortConfig& other : c.ports)
      if (other.port == p.port) r.Problem("Ports", record.key, "listed twice");
    if (p.section.empty() || !r.ini().SectionExist(p.section)) {
      r.Problem("Ports", record.key, "section [" + p.section + "] missing");
      continue;
    }
    p.libraries = r.Path(p.section, "Libraries", "", true);
    p.serverSettings = r.Path(p.section, "ServerSettings", "", true);
    p.audit = r.Number(p.section, "Audit", 1, 0, 1) != 0;
    if (!p.libraries.empty() && !Readable(p.libraries)) {
      r.Problem(p.section, "Libraries", p.libraries + " cannot be read");
    } else if (!p.libraries.empty() && Library::Ini::CIniFile(p.libraries).GetRecords("dealer-library").empty()) {
      r.Problem(p.section, "Libraries", p.libraries + " lists no library in section \"dealer-library\"");
    }
    if (!p.serverSettings.empty() && !Readable(p.serverSettings))
      r.Problem(p.section, "ServerSettings", p.serverSettings + " cannot be read");
    c.ports.push_back(p);
  }

  if (deep) {
    std::string error;
    TUsersFile users;
    if (!c.users.empty() && !users.Load(c.users, error)) r.Problem(H, "Users", error);
    else if (!c.users.empty() && users.size() == 0) r.Problem(H, "Users", c.users + " holds no user");
    if (!c.classList.empty()) {
      std::vector<std::string> classes;
      if (!LoadClassList(c.classList, classes, error)) r.Problem(H, "ClassList", error);
    }
    if (!c.auditDatabase.empty()) {
      fs::path dir = fs::path(c.auditDatabase).parent_path();
      if (!fs::is_directory(dir, ec) || ::access(dir.c_str(), W_OK) != 0)
        r.Problem(H, "AuditDatabase", "directory " + dir.string() + " is missing or not writable");
    }
    fs::path logDir = fs::path(c.log).parent_path();
    if (!c.log.empty() && (!fs::is_directory(logDir, ec) || ::access(logDir.c_str(), W_OK) != 0))
      r.Problem(H, "Log", "directory " + logDir.string() + " is missing or not writable");
    if (!c.module.empty() && !Readable(c.module)) r.Problem(H, "Module", c.module + " cannot be read");
    if (!c.moduleHome.empty() && !Readable(c.moduleHome + "/modules/libdbzent.so"))
      r.Problem(H, "ModuleHome", c.moduleHome + " holds no modules/libdbzent.so");
  }
  return c;
}

}  // namespace ZentHost
