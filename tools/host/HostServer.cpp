#include "HostServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <strings.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "HostLog.h"
#include "support/Alert.h"
#include "wire/FrameIO.h"
#include "wire/MessageCheck.h"
#include "wire/WireProtocol.h"

namespace ZentHost {

using namespace ZentWire;

struct THostServer::TSession {
  int fd = -1;
  std::string peer;
  bool loggedOn = false;
  int user = 0;
  std::string name;
  int kind = 0;
  int port = 0;
  int failures = 0;  // failed log-ons on this connection
};

namespace {

constexpr int kMaxLogonFailuresPerConnection = 3;

std::string PeerText(const sockaddr_in& from) {
  char text[INET_ADDRSTRLEN] = "?";
  ::inet_ntop(AF_INET, &from.sin_addr, text, sizeof text);
  return std::string(text) + ":" + std::to_string(ntohs(from.sin_port));
}

bool IsModuleVerb(const std::string& verb) {
  for (const char* known : kModuleVerbs)
    if (strcasecmp(verb.c_str(), known) == 0) return true;
  return false;
}

void Log(const std::string& text) { HostEvent(0, "zent-host: " + text); }

}  // namespace

THostServer::THostServer(const THostConfig& config, const TDealerModule& module, const TUsersFile& users)
    : m_config(config), m_module(module), m_users(users), m_guard(config.logonDelayMs) {
  // A decoy of the same cost as a real entry: the count of the first user, or the default.
  int iterations = users.users().empty() ? kDefaultIterations : users.users().front().secret.iterations;
  if (!MakeSecretHash("decoy", iterations, m_decoy)) m_decoy.iterations = 0;
}

THostServer::~THostServer() {
  Stop();
  if (m_listenFd >= 0) ::close(m_listenFd);
}

bool THostServer::Listen(std::string& error) {
  sockaddr_in at{};
  at.sin_family = AF_INET;
  at.sin_port = htons(static_cast<std::uint16_t>(m_config.tcpPort));
  if (::inet_pton(AF_INET, m_config.listen.c_str(), &at.sin_addr) != 1) {
    error = "not an IPv4 address: " + m_config.listen;
    return false;
  }
  m_listenFd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (m_listenFd < 0) {
    error = std::string("socket: ") + std::strerror(errno);
    return false;
  }
  int one = 1;
  ::setsockopt(m_listenFd, SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
  if (::bind(m_listenFd, reinterpret_cast<sockaddr*>(&at), sizeof at) != 0 || ::listen(m_listenFd, 64) != 0) {
    error = m_config.listen + ":" + std::to_string(m_config.tcpPort) + ": " + std::strerror(errno);
    ::close(m_listenFd);
    m_listenFd = -1;
    return false;
  }
  socklen_t len = sizeof at;
  ::getsockname(m_listenFd, reinterpret_cast<sockaddr*>(&at), &len);
  m_boundPort = ntohs(at.sin_port);
  Log("listening on " + m_config.listen + ":" + std::to_string(m_boundPort) + " with " +
      std::to_string(m_config.threads) + " connection threads");
  return true;
}

void THostServer::Start() {
  for (int i = 0; i < m_config.threads; ++i) m_workers.emplace_back([this] { WorkerLoop(); });
  m_acceptor = std::thread([this] { AcceptLoop(); });
}

void THostServer::Stop() {
  if (m_stopping.exchange(true)) return;
  if (m_acceptor.joinable()) m_acceptor.join();
  if (m_listenFd >= 0) ::close(m_listenFd);
  m_listenFd = -1;
  m_queueReady.notify_all();
  for (std::thread& t : m_workers)
    if (t.joinable()) t.join();
  m_workers.clear();
  Log("all connections closed");
}

void THostServer::AcceptLoop() {
  while (!m_stopping.load()) {
    pollfd p{m_listenFd, POLLIN, 0};
    int n = ::poll(&p, 1, 100);
    if (n <= 0) continue;
    sockaddr_in from{};
    socklen_t len = sizeof from;
    int fd = ::accept4(m_listenFd, reinterpret_cast<sockaddr*>(&from), &len, SOCK_CLOEXEC);
    if (fd < 0) continue;
    int one = 1;
    ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
    std::string peer = PeerText(from);
    bool queued = false;
    {
      std::lock_guard<std::mutex> lock(m_queueMutex);
      if (static_cast<int>(m_queue.size()) < m_idle + m_config.maxPending) {
        m_queue.push_back({fd, peer});
        queued = true;
      }
    }
    if (queued) {
      m_queueReady.notify_one();
    } else {
      Log("connection from " + peer + " refused: every connection thread is busy and the queue is full");
      SendError(fd, kWireBusy, "", "every connection thread is busy; try again later");
      ::close(fd);
    }
  }
}

void THostServer::WorkerLoop() {
  for (;;) {
    TPending next;
    {
      std::unique_lock<std::mutex> lock(m_queueMutex);
      ++m_idle;
      m_queueReady.wait(lock, [this] { return m_stopping.load() || !m_queue.empty(); });
      --m_idle;
      if (m_queue.empty()) return;
      next = m_queue.front();
      m_queue.pop_front();
    }
    if (m_stopping.load()) {
      SendError(next.fd, kWireStopping, "", "the host is stopping");
      ::close(next.fd);
      continue;
    }
    Serve(next.fd, next.peer);
  }
}

void THostServer::SendError(int fd, int code, const std::string& verb, const std::string& text) {
  CAlert reply;
  reply << code << verb << text;
  WriteFrame(fd, reply.get_data(), reply.get_size());
}

bool THostServer::PortKnown(int port) const {
  for (const TPortConfig& p : m_config.ports)
    if (p.port == port) return true;
  return false;
}

void THostServer::Serve(int fd, const std::string& peer) {
  TSession s;
  s.fd = fd;
  s.peer = peer;
  Log("connection from " + peer);
  const int idleMs = m_config.idleTimeoutSeconds * 1000;
  for (;;) {
    std::vector<char> body;
    std::uint32_t announced = 0;
    EFrameRead r = ReadFrame(fd, m_config.maxFrame, idleMs, body, &announced, [this] { return m_stopping.load(); });
    if (r == EFrameRead::kClosed) {
      Log("connection from " + peer + " closed by the client");
      break;
    }
    if (r == EFrameRead::kTimeout) {
      if (m_stopping.load()) {
        SendError(fd, kWireStopping, "", "the host is stopping");
        Log("connection from " + peer + " closed: the host is stopping");
      } else {
        Log("connection from " + peer + " closed after " + std::to_string(m_config.idleTimeoutSeconds) +
            " s without a whole frame");
      }
      break;
    }
    if (r == EFrameRead::kError) {
      Log("connection from " + peer + " broken inside a frame");
      break;
    }
    if (r == EFrameRead::kTooLarge) {
      std::string text = "a frame of " + std::to_string(announced) + " bytes exceeds the limit of " +
                         std::to_string(m_config.maxFrame);
      Log("connection from " + peer + " closed: " + text);
      SendError(fd, kWireFrameTooLarge, "", text);
      break;
    }
    if (!IsWellFormedMessage(body.data(), body.size())) {
      Log("connection from " + peer + ": a frame of " + std::to_string(body.size()) + " bytes is not a message");
      SendError(fd, kWireNotAMessage, "", "the frame is not a message");
      continue;
    }
    CAlert request(body.data(), static_cast<unsigned>(body.size()));
    if (request.get_field_type() != CAlert::ftString) {
      Log("connection from " + peer + ": a message without a verb");
      SendError(fd, kWireNotAMessage, "", "the first field must be the verb, a string");
      continue;
    }
    std::string verb;
    request >> verb;
    if (!s.loggedOn) {
      if (verb != kLogonVerb) {
        Log("connection from " + peer + ": request \"" + verb + "\" before log-on");
        SendError(fd, kWireNotLoggedOn, verb, "log on first");
        continue;
      }
      if (!HandleLogon(s, request)) break;
      continue;
    }
    if (!HandleRequest(s, verb, request)) break;
  }
  if (s.loggedOn) {
    int rc = 0;
    {
      TLibraryGate::TPass pass = m_gate.Enter(TGateKey{});
      rc = m_module.Reset(s.user, s.port);
    }
    Log("user[" + s.name + "] id[" + std::to_string(s.user) + "] port[" + std::to_string(s.port) +
        "] disconnected; Reset returned " + std::to_string(rc));
  }
  ::close(fd);
}

bool THostServer::HandleLogon(TSession& s, CAlert& request) {
  if (request.get_fields_count() != 3) {
    Log("connection from " + s.peer + ": a log-on needs a user name, a secret and a connection port");
    SendError(s.fd, kWireNotAMessage, kLogonVerb, "a log-on carries a user name, a secret and a connection port");
    return true;
  }
  std::string name, secret;
  int port = 0;
  try {
    request >> name >> secret >> port;
  } catch (const CAlertException&) {
    Log("connection from " + s.peer + ": a log-on with fields of the wrong types");
    SendError(s.fd, kWireNotAMessage, kLogonVerb, "a log-on carries a string, a string and an int");
    return true;
  }
  const TUser* user = m_users.FindByName(name);
  bool secretOk = VerifySecret(secret, user != nullptr ? user->secret : m_decoy) && user != nullptr;
  if (secretOk && PortKnown(port)) {
    m_guard.Succeeded(name);
    s.loggedOn = true;
    s.user = user->id;
    s.name = user->name;
    s.kind = user->kind;
    s.port = port;
    Log("user[" + s.name + "] id[" + std::to_string(s.user) + "] kind[" + std::to_string(s.kind) +
        "] logged on to port[" + std::to_string(port) + "] from " + s.peer);
    CAlert reply;
    reply << static_cast<int>(kWireOk) << std::string(kLogonVerb) << s.user << s.kind;
    return WriteFrame(s.fd, reply.get_data(), reply.get_size());
  }
  std::string text = secretOk ? "unknown connection port " + std::to_string(port) : "wrong user name or secret";
  auto delay = m_guard.Failed(name);
  ++s.failures;
  Log("log-on of user[" + name + "] from " + s.peer + " refused: " + text + " (failure " +
      std::to_string(m_guard.Failures(name)) + ", answered after " + std::to_string(delay.count()) + " ms)");
  auto until = std::chrono::steady_clock::now() + delay;
  while (!m_stopping.load() && std::chrono::steady_clock::now() < until)
    std::this_thread::sleep_for(std::min<std::chrono::steady_clock::duration>(
        std::chrono::milliseconds(50), until - std::chrono::steady_clock::now()));
  SendError(s.fd, kWireLogonRefused, kLogonVerb, "log-on refused: " + text);
  if (s.failures >= kMaxLogonFailuresPerConnection) {
    Log("connection from " + s.peer + " closed after " + std::to_string(s.failures) + " failed log-ons");
    return false;
  }
  return true;
}

bool THostServer::HandleRequest(TSession& s, const std::string& verb, CAlert& request) {
  const std::string who = "user[" + s.name + "] port[" + std::to_string(s.port) + "]";
  if (!IsModuleVerb(verb)) {
    Log(who + ": unknown verb \"" + verb + "\"");
    SendError(s.fd, kWireUnknownVerb, verb, verb == kLogonVerb ? "already logged on" : "unknown verb");
    return true;
  }
  if (request.get_fields_count() != 1 || request.get_field_type() != CAlert::ftAlert) {
    Log(who + ": \"" + verb + "\" without its message");
    SendError(s.fd, kWireNotAMessage, verb, "a request carries the verb and one nested message");
    return true;
  }
  CAlert message;
  request >> message;
  message.set_begin();
  int result = 0;
  try {
    TLibraryGate::TPass pass = m_gate.Enter(ClassifyRequest(verb, message));
    result = m_module.Execute(verb, message, s.user, s.port, s.name);
  } catch (const CAlertException& e) {
    Log(who + ": \"" + verb + "\" raised CAlertException: " + e.what());
    SendError(s.fd, kWireModuleError, verb, std::string("malformed request: ") + e.what());
    return true;
  } catch (const std::exception& e) {
    Log(who + ": \"" + verb + "\" raised an exception: " + e.what());
    SendError(s.fd, kWireModuleError, verb, std::string("the module failed: ") + e.what());
    return true;
  }
  CAlert reply;
  reply << static_cast<int>(kWireOk) << verb << result << message;
  if (!WriteFrame(s.fd, reply.get_data(), reply.get_size())) {
    Log(who + ": the reply to \"" + verb + "\" could not be sent");
    return false;
  }
  return true;
}

}  // namespace ZentHost
