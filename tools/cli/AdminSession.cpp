#include "tools/cli/AdminSession.h"

#include <cstdlib>
#include <fstream>

#include "support/Alert.h"
#include "wire/CAdminClient.h"

namespace zentdl {
namespace {

using ZentWire::CWireError;
using ZentWire::TWireReply;

std::string FromEnv(const char* name) {
  const char* v = std::getenv(name);
  return v != nullptr ? v : "";
}

std::string WireErrorMeaning(int status) {
  switch (status) {
    case ZentWire::kWireNotAMessage: return "the host could not read the request as a message";
    case ZentWire::kWireFrameTooLarge: return "the request is larger than the host accepts";
    case ZentWire::kWireNotLoggedOn: return "not logged on";
    case ZentWire::kWireLogonRefused: return "log-on refused";
    case ZentWire::kWireUnknownVerb: return "not a verb of the module";
    case ZentWire::kWireModuleError: return "the module failed on the request (a malformed request)";
    case ZentWire::kWireBusy: return "the host is busy: every connection is taken";
    case ZentWire::kWireStopping: return "the host is stopping";
    default: return "host error";
  }
}

}  // namespace

CAdminSession::CAdminSession(const TRemoteOptions& o) : m_client(std::make_unique<ZentWire::CAdminClient>()) {
  const std::string host = o.host.empty() ? FromEnv("ZENTDL_HOST") : o.host;
  const std::string user = o.user.empty() ? FromEnv("ZENTDL_USER") : o.user;
  if (host.empty()) throw CRemoteError("no host: give --host ADDR:PORT or set ZENTDL_HOST", 2);
  if (user.empty()) throw CRemoteError("no user: give --user NAME or set ZENTDL_USER", 2);
  const std::size_t colon = host.rfind(':');
  if (colon == std::string::npos || colon == 0 || colon + 1 == host.size())
    throw CRemoteError("the host \"" + host + "\" is not ADDR:PORT", 2);
  const std::string address = host.substr(0, colon);
  char* end = nullptr;
  const long port = std::strtol(host.c_str() + colon + 1, &end, 10);
  if (*end != '\0' || port <= 0 || port > 65535) throw CRemoteError("the host \"" + host + "\" is not ADDR:PORT", 2);

  std::string secret;
  std::string secretFile = o.secretFile;
  if (secretFile.empty()) {
    if (const char* s = std::getenv("ZENTDL_SECRET"); s != nullptr) {
      secret = s;
    } else {
      secretFile = FromEnv("ZENTDL_SECRET_FILE");
      if (secretFile.empty())
        throw CRemoteError("no secret: set ZENTDL_SECRET, or give --secret-file FILE (or ZENTDL_SECRET_FILE)", 2);
    }
  }
  if (!secretFile.empty()) {
    std::ifstream in(secretFile);
    if (!in || !std::getline(in, secret)) throw CRemoteError("cannot read the secret from " + secretFile, 2);
  }
  m_where = user + "@" + host;

  try {
    m_client->Connect(address, static_cast<int>(port));
  } catch (const CWireError& e) {
    throw CRemoteError("cannot connect to zent-host at " + host + ": " + e.what(), 3);
  }
  TWireReply logon;
  try {
    logon = m_client->Logon(user, secret, o.connectionPort);
  } catch (const CWireError& e) {
    throw CRemoteError("log-on to " + host + " failed: " + e.what(), 3);
  }
  if (logon.status != ZentWire::kWireOk)
    throw CRemoteError("log-on refused for user " + user + " on connection port " + std::to_string(o.connectionPort) +
                           ": " + logon.text,
                       3);
  // Introduce the client as an API client; the module answers whether the
  // user may work with libraries at all.
  CAlert init, modules, row;
  row << std::string("ZDealerAPI") << std::string(ZENTDL_VERSION) << std::string("zentdl");
  modules << row;
  init << std::string(ZENTDL_VERSION) << 1033 << modules;
  Verb("Init", init);
  int accepted = 0, mayWork = 0;
  init >> accepted >> mayWork;
  if (mayWork == 0)
    throw CRemoteError("user " + user + " may not work with libraries (the host gives it kind " +
                           std::to_string(logon.kind) + ")",
                       3);
}

CAdminSession::~CAdminSession() = default;

int CAdminSession::Api(const std::string& command, std::vector<unsigned char>& block) {
  TWireReply reply;
  int result = 0;
  try {
    result = m_client->Api(command, block, &reply);
  } catch (const CWireError& e) {
    throw CRemoteError(command + ": " + e.what(), 3);
  }
  if (reply.status != ZentWire::kWireOk)
    throw CRemoteError(command + ": host error " + std::to_string(reply.status) + " (" + WireErrorMeaning(reply.status) +
                           "): " + reply.text,
                       3);
  return result;
}

int CAdminSession::Verb(const std::string& verb, CAlert& message) {
  TWireReply reply;
  try {
    reply = m_client->Call(verb, message);
  } catch (const CWireError& e) {
    throw CRemoteError(verb + ": " + e.what(), 3);
  }
  if (reply.status != ZentWire::kWireOk)
    throw CRemoteError(verb + ": host error " + std::to_string(reply.status) + " (" + WireErrorMeaning(reply.status) +
                           "): " + reply.text,
                       3);
  return reply.result;
}

}  // namespace zentdl
