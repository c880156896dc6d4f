#pragma once
// The host's database module ("dbzent"): who a user is, connection notices,
// the audit trail and the host's own table service. Every call resolves the
// module and the symbol anew through modName (the module may be replaced or
// unloaded by the host), and a missing module or symbol disables only that
// call. Together with HostEvent.h this is the whole surface of the trading
// server that the module touches.
#include <map>
#include <string>
#include <vector>

class CAlert;

// Full path of the host's database module, computed at load from the current
// directory: <cwd>/modules/libdbzent.so.
extern const std::string modName;

// Audit size limit by port, set by InitDB (see GetMaxDeallibSize).
extern std::map<unsigned, unsigned> mapMaxDeallibSize;

namespace Library::Host {

// Number of fields of every audit record, and the value of a field not set.
inline constexpr size_t kAuditFieldCount = 21;
inline constexpr const char* kAuditNull = "DBSTATUS_S_ISNULL";

// A fresh audit record: 21 fields, each kAuditNull.
std::vector<std::string> NewAuditRecord();

// The calling thread's id in decimal, as audit records carry it in field 3.
std::string ThreadIdText();

// The kind of user (1 and 2 may work with libraries, 3 may not); 0 when the
// module or its WhoIsIt is missing.
int WhoIsIt(int user, int port);

// The host's Execute of the database module; false when it is missing, else
// *result holds what it returned.
bool ExecuteInDbModule(const std::string& command, CAlert& message, int user, int port,
                       const std::string& userName, int* result);

}  // namespace Library::Host

// Tells the host that a client logged on to the module (1) or finished a file
// service call (-1). Does nothing when the module or the symbol is missing.
void NotifyDLUserConnected(int user, int port, int state);

// Writes one audit record through the host. 0 when the module or its
// audit_DEALLIB_CHANGE is missing; 1 without writing when auditing is off for
// the port (or audit_State is missing); else the host's result. A full record
// whose field 20 is longer than the port's limit carries
// "DealLib size is: <length>" in its place.
int audit_DEALLIB_CHANGE(int port, int user, std::string& event, std::vector<std::string>& fields);

// Writes an audit record about a library: field 0 the user's name, 1 the
// user, 2 the library, 3 the calling thread, 4 the count when given, 20 the
// text. Returns what audit_DEALLIB_CHANGE returns.
int AuditLibraryEvent(int port, int user, const char* event, const std::string& userName,
                      const std::string& library, const std::string& text, const std::string* count = nullptr);

// The port's audit size limit, or unsigned -1 (no limit) if the port has none.
unsigned GetMaxDeallibSize(unsigned port);
