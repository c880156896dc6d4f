#pragma once
// A zent-host started for one test: a fresh directory with a configuration,
// two libraries, a users file (mode 0600) and a class list; the host listens
// on a free loopback port chosen by the system and is stopped with SIGTERM.
#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

namespace hosttest {

inline constexpr int kConnectionPort = 7001;

struct THostOptions {
  int logonDelayMs = 20;
  unsigned maxFrame = 1u << 20;
  int threads = 4;
  int maxPending = 4;
  int idleTimeoutSeconds = 60;
  bool audit = true;
  int usersMode = 0600;
  std::map<std::string, std::string> extraHostKeys;  // more keys of [Host]
};

class THostProcess {
 public:
  explicit THostProcess(const THostOptions& options = THostOptions());
  ~THostProcess();

  // Starts the host and waits until it listens; false (with the host's
  // output in `output`) when it does not start within the timeout.
  bool Start();
  // Sends the signal (SIGTERM unless given), then waits for the exit; the exit
  // status, or -1 on a timeout (the host is then killed).
  int Stop(int signal = 15);
  // Runs zent-host with the arguments and gives its exit status and output.
  static int Run(const std::vector<std::string>& args, std::string& output);

  int port() const { return m_port; }
  const std::string& dir() const { return m_dir; }
  std::string path(const std::string& relative) const { return m_dir + "/" + relative; }
  std::string config() const { return path("host.ini"); }
  std::string output() const;  // the host's standard output and error so far
  std::string log() const;     // the event log so far

  // Rows of the audit trail: each row the columns id, port, user, event,
  // field0..field20, a NULL column as "<NULL>".
  std::vector<std::vector<std::string>> AuditRows() const;

 private:
  std::string m_dir;
  pid_t m_pid = -1;
  int m_port = 0;
};

std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& content);

// The users of every host: admin (id 1, kind 1), trader (id 2, kind 2),
// viewer (id 3, kind 3); each secret is the name followed by "-secret".
std::string SecretOf(const std::string& user);

}  // namespace hosttest
