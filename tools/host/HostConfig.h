#pragma once
// The configuration of zent-host, a profile file:
//
//   [Host]
//   Listen=127.0.0.1          address to listen on (numeric IPv4)
//   Port=7100                 TCP port; 0 lets the system choose
//   Threads=4                 connection threads (1..256)
//   MaxPending=16             accepted connections waiting for a thread
//   MaxFrame=67108864         largest frame accepted, in bytes
//   IdleTimeout=600           seconds a connection may stay silent
//   LogonDelay=250            milliseconds after the first failed log-on of a
//                             user, doubled per further failure, at most 64 times
//   Log=zent-host.log         the event log
//   LogLevel=10               highest event level written
//   Users=users               the users file
//   AuditDatabase=audit.db    the SQLite audit trail
//   ClassList=classes.txt     class codes served to "GetTable"
//   Module=                   libzent_dl.so; empty for the one built with the host
//   ModuleHome=               working directory with modules/libdbzent.so;
//                             empty for the directory of the zent-host program
//   [Ports]
//   7001=Port7001             connection port = section describing it
//   [Port7001]
//   Libraries=dealer-library.ini   the port's library list (section "dealer-library")
//   ServerSettings=server.ini      the port's server settings (section "General")
//   Audit=1                        audit records of this port are stored (0: not)
//
// Relative paths are taken from the configuration file's directory.
#include <map>
#include <string>
#include <vector>

namespace ZentHost {

struct TPortConfig {
  int port = 0;
  std::string section;
  std::string libraries;       // absolute path
  std::string serverSettings;  // absolute path
  bool audit = true;
};

struct THostConfig {
  std::string file;  // the configuration file, absolute
  std::string listen = "127.0.0.1";
  int tcpPort = 7100;
  int threads = 4;
  int maxPending = 16;
  unsigned maxFrame = 64u * 1024u * 1024u;
  int idleTimeoutSeconds = 600;
  int logonDelayMs = 250;
  std::string log;
  int logLevel = 10;
  std::string users;
  std::string auditDatabase;
  std::string classList;
  std::string module;
  std::string moduleHome;
  std::vector<TPortConfig> ports;
};

// Reads the file. Every fault is one line "FILE: [Section] Key: what is wrong"
// in `problems`; the result is usable only when `problems` is empty. With
// `deep` the files named are opened and checked too (as --check does).
THostConfig LoadHostConfig(const std::string& path, bool deep, std::vector<std::string>& problems);

}  // namespace ZentHost
