#include "CAdminClient.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "FrameIO.h"
#include "MessageCheck.h"

namespace ZentWire {

CAdminClient::CAdminClient(int timeoutMs) : m_timeoutMs(timeoutMs) {}

CAdminClient::~CAdminClient() { Close(); }

void CAdminClient::Connect(const std::string& address, int tcpPort) {
  Close();
  sockaddr_in to{};
  to.sin_family = AF_INET;
  to.sin_port = htons(static_cast<std::uint16_t>(tcpPort));
  if (::inet_pton(AF_INET, address.c_str(), &to.sin_addr) != 1) throw CWireError("not an IPv4 address: " + address);
  m_fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (m_fd < 0) throw CWireError(std::string("socket: ") + std::strerror(errno));
  if (::connect(m_fd, reinterpret_cast<sockaddr*>(&to), sizeof to) != 0) {
    int e = errno;
    Close();
    throw CWireError("connect to " + address + ":" + std::to_string(tcpPort) + ": " + std::strerror(e));
  }
  int one = 1;
  ::setsockopt(m_fd, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
}

void CAdminClient::Close() {
  if (m_fd >= 0) ::close(m_fd);
  m_fd = -1;
}

void CAdminClient::SendRaw(const void* data, std::size_t size) {
  if (m_fd < 0) throw CWireError("not connected");
  if (!WriteAll(m_fd, data, size)) throw CWireError("the host closed the connection");
}

void CAdminClient::SendFrame(const void* data, std::uint32_t size) {
  if (m_fd < 0) throw CWireError("not connected");
  if (!WriteFrame(m_fd, data, size)) throw CWireError("the host closed the connection");
}

TWireReply CAdminClient::ReadReply(CAlert* message) {
  if (m_fd < 0) throw CWireError("not connected");
  std::vector<char> body;
  EFrameRead r = ReadFrame(m_fd, 0xFFFFFFFFu, m_timeoutMs, body);
  if (r == EFrameRead::kTimeout) throw CWireError("no reply within the timeout");
  if (r != EFrameRead::kFrame) throw CWireError("the host closed the connection");
  if (!IsWellFormedMessage(body.data(), body.size())) throw CWireError("the reply is not a message");
  CAlert reply(body.data(), static_cast<unsigned>(body.size()));
  TWireReply out;
  try {
    reply >> out.status >> out.verb;
    if (out.status != kWireOk) {
      reply >> out.text;
    } else if (out.verb == kLogonVerb) {
      reply >> out.result >> out.kind;
    } else {
      reply >> out.result;
      CAlert inner;
      reply >> inner;
      if (message != nullptr) {
        *message = std::move(inner);
        message->set_begin();
      }
    }
  } catch (const CAlertException& e) {
    throw CWireError(std::string("unexpected reply layout: ") + e.what());
  }
  return out;
}

bool CAdminClient::WaitClosed() {
  if (m_fd < 0) return true;
  char byte;
  for (;;) {
    pollfd p{m_fd, POLLIN, 0};
    int n = ::poll(&p, 1, m_timeoutMs);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    ssize_t r = ::recv(m_fd, &byte, 1, 0);
    if (r == 0) return true;
    if (r < 0) return errno == ECONNRESET;
  }
}

TWireReply CAdminClient::Exchange(CAlert& request, CAlert* message) {
  SendFrame(request.get_data(), request.get_size());
  return ReadReply(message);
}

TWireReply CAdminClient::Logon(const std::string& user, const std::string& secret, int connectionPort) {
  CAlert request;
  request << std::string(kLogonVerb) << user << secret << connectionPort;
  return Exchange(request, nullptr);
}

TWireReply CAdminClient::Call(const std::string& verb, CAlert& message) {
  CAlert request;
  request << verb << message;
  return Exchange(request, &message);
}

int CAdminClient::Api(const std::string& command, std::vector<unsigned char>& block, TWireReply* last) {
  CAlert message;
  message << command << block;
  TWireReply reply = Call("ZDealerAPI", message);
  if (last != nullptr) *last = reply;
  if (reply.status != kWireOk) return -1;
  std::string name;
  int result = -1;
  message >> name >> result >> block;
  return result;
}

}  // namespace ZentWire
