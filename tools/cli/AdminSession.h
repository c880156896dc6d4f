#pragma once
// A session of zentdl with a running zent-host: where the host is, who logs
// on, and the secret, which comes from the environment or a file, never from
// the command line (a command line is visible to every user of the machine).
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace ZentWire {
class CAdminClient;
}
class CAlert;

namespace zentdl {

struct TRemoteOptions {
  std::string host;          // "ADDR:PORT"; empty: $ZENTDL_HOST
  std::string user;          // empty: $ZENTDL_USER
  std::string secretFile;    // empty: $ZENTDL_SECRET, else $ZENTDL_SECRET_FILE
  int connectionPort = 7001; // the host's connection port whose libraries are served
};

// A failure that ends the session; exitCode is the process's exit code.
class CRemoteError : public std::runtime_error {
 public:
  CRemoteError(const std::string& message, int exitCode) : std::runtime_error(message), m_exitCode(exitCode) {}
  int ExitCode() const { return m_exitCode; }

 private:
  int m_exitCode;
};

class CAdminSession {
 public:
  // Connects, logs on and introduces the client as a "ZDealerAPI" client.
  // Throws CRemoteError: 2 for missing or bad options, 3 for a refused
  // connection, a refused log-on or a user who may not work with libraries.
  explicit CAdminSession(const TRemoteOptions& options);
  ~CAdminSession();
  CAdminSession(const CAdminSession&) = delete;
  CAdminSession& operator=(const CAdminSession&) = delete;

  // One "ZDealerAPI" command with its block; the block becomes the reply
  // block on success. Returns the command's result code.
  int Api(const std::string& command, std::vector<unsigned char>& block);
  // A module verb with its message; returns Execute's result (1 or 0), the
  // message holding the reply. Throws CRemoteError on a host error.
  int Verb(const std::string& verb, CAlert& message);

  const std::string& Where() const { return m_where; }

 private:
  std::unique_ptr<ZentWire::CAdminClient> m_client;
  std::string m_where;  // "user@addr:port"
};

}  // namespace zentdl
