#pragma once
// The TCP side of zent-host: one acceptor thread and a bounded pool of
// connection threads. A connection logs on with its first frame, then each
// frame carries a verb and a message for the module's Execute; the reply
// carries Execute's result and the message. When a connection ends, the
// module's Reset releases what its user held. The wire is in WireProtocol.h
// and docs/protocol.md.
#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "DealerModule.h"
#include "HostConfig.h"
#include "LibraryGate.h"
#include "LogonGuard.h"
#include "SecretHash.h"
#include "UsersFile.h"

namespace ZentHost {

class THostServer {
 public:
  THostServer(const THostConfig& config, const TDealerModule& module, const TUsersFile& users);
  ~THostServer();
  THostServer(const THostServer&) = delete;
  THostServer& operator=(const THostServer&) = delete;

  // Binds and listens on the configured address; false with a message.
  [[nodiscard]] bool Listen(std::string& error);
  int BoundPort() const { return m_boundPort; }
  // Starts the acceptor and the connection threads.
  void Start();
  // Stops gracefully: no new connections, requests in progress finish and are
  // answered, idle and waiting connections get a "stopping" reply and are
  // closed. Returns when every thread has ended.
  void Stop();

 private:
  struct TPending {
    int fd;
    std::string peer;
  };
  struct TSession;

  void AcceptLoop();
  void WorkerLoop();
  void Serve(int fd, const std::string& peer);
  // False when the connection is to be closed.
  bool HandleLogon(TSession& session, CAlert& request);
  bool HandleRequest(TSession& session, const std::string& verb, CAlert& request);
  void SendError(int fd, int code, const std::string& verb, const std::string& text);
  bool PortKnown(int port) const;

  const THostConfig& m_config;
  const TDealerModule& m_module;
  const TUsersFile& m_users;
  TLogonGuard m_guard;
  TLibraryGate m_gate;  // one thread per library inside the module, see LibraryGate.h
  TSecretHash m_decoy;  // verified against when the user name is unknown, so both cases cost the same

  int m_listenFd = -1;
  int m_boundPort = 0;
  std::atomic<bool> m_stopping{false};
  std::thread m_acceptor;
  std::vector<std::thread> m_workers;

  std::mutex m_queueMutex;
  std::condition_variable m_queueReady;
  std::deque<TPending> m_queue;
  int m_idle = 0;  // connection threads waiting for a connection
};

}  // namespace ZentHost
