#pragma once
// A client of zent-host's administrator wire: connects, logs on, and sends the
// module's verbs with their messages. Transport failures (refused connection,
// closed socket, timeout, a reply that is not a message) raise CWireError;
// replies of any status are returned as they are.
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "WireProtocol.h"
#include "support/Alert.h"

namespace ZentWire {

class CWireError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct TWireReply {
  int status = -1;      // kWireOk or an EWireError code
  std::string verb;     // the verb the reply answers; "" when the host could not tell
  int result = 0;       // Execute's result (request), the user id (log-on)
  int kind = 0;         // the user's kind (log-on only)
  std::string text;     // the error text (error replies only)
};

class CAdminClient {
 public:
  explicit CAdminClient(int timeoutMs = 10000);
  ~CAdminClient();
  CAdminClient(const CAdminClient&) = delete;
  CAdminClient& operator=(const CAdminClient&) = delete;

  // Connects to a numeric IPv4 address.
  void Connect(const std::string& address, int tcpPort);
  void Close();
  bool IsOpen() const { return m_fd >= 0; }

  TWireReply Logon(const std::string& user, const std::string& secret, int connectionPort);
  // Sends the verb with the message; on a request reply the message holds the
  // module's reply, ready for reading.
  TWireReply Call(const std::string& verb, CAlert& message);
  // "ZDealerAPI": sends the command and its argument block; on success the
  // block holds the result block. Returns the command's result code, or -1
  // when the reply was an error reply (see `last`).
  int Api(const std::string& command, std::vector<unsigned char>& block, TWireReply* last = nullptr);

  // Raw access for tests of bad input.
  void SendRaw(const void* data, std::size_t size);
  void SendFrame(const void* data, std::uint32_t size);
  // Reads one reply; throws CWireError when the connection closes first.
  TWireReply ReadReply(CAlert* message = nullptr);
  // True when the host has closed the connection (waits up to the timeout).
  bool WaitClosed();

 private:
  TWireReply Exchange(CAlert& request, CAlert* message);

  int m_fd = -1;
  int m_timeoutMs;
};

}  // namespace ZentWire
