#pragma once
// The administrator wire of zent-host. A connection carries frames both ways:
//
//   4 bytes   unsigned length N, little-endian
//   N bytes   one message (the CAlert buffer, its own 4-byte field counter included)
//
// Requests (client to host):
//   log-on     string "Logon", string user name, string secret, int connection port
//   request    string verb, nested message handed to the module's Execute
// Replies (host to client), the first field always an int status:
//   log-on     int 0, string "Logon", int user id, int kind
//   request    int 0, string verb, int Execute's result, nested reply message
//   error      int code (EWireError below), string verb ("" when unknown), string text
// docs/protocol.md is the reference for clients.
#include <cstdint>

namespace ZentWire {

// The status of a reply; 0 is success, every other value an error reply.
enum EWireError : int {
  kWireOk = 0,
  kWireNotAMessage = 1,    // the frame is not a well-formed message, or a field has the wrong type
  kWireFrameTooLarge = 2,  // the announced length exceeds the host's limit; the host closes
  kWireNotLoggedOn = 3,    // a request before a successful log-on
  kWireLogonRefused = 4,   // unknown user, wrong secret or unknown connection port
  kWireUnknownVerb = 5,    // not one of the module's verbs
  kWireModuleError = 6,    // the module raised an exception out of Execute
  kWireBusy = 7,           // every connection thread is taken and the queue is full; the host closes
  kWireStopping = 8,       // the host is stopping; it closes
};

inline constexpr const char* kLogonVerb = "Logon";
// The verbs of the module's Execute, compared ignoring case as the module does.
inline constexpr const char* kModuleVerbs[] = {"Init", "GetDLList", "GetDLFile", "SaveDLFile", "ZDealerAPI"};
// Length field plus the smallest message (its field counter alone).
inline constexpr std::uint32_t kMinMessage = 4;
inline constexpr std::uint32_t kDefaultMaxFrame = 64u * 1024u * 1024u;

}  // namespace ZentWire
