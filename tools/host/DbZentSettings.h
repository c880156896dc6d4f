#pragma once
// What zent-host tells its database module (modules/libdbzent.so) before it
// loads the dealer library: where the users, the audit trail and the class
// list are, and which connection ports are audited. The host resolves
// `dbzent_Open` and `dbzent_Close` by name:
//
//   extern "C" int dbzent_Open(const ZentHost::TDbZentSettings&, std::string& error);  // 1 or 0
//   extern "C" void dbzent_Close();  // closes the audit database
#include <map>
#include <string>

namespace ZentHost {

struct TDbZentSettings {
  std::string users;          // the users file
  std::string auditDatabase;  // the SQLite database
  std::string classList;      // empty: "GetTable" answers an empty table
  std::map<int, bool> audit;  // connection port -> auditing on; ports not listed are not audited
};

using DbZentOpenFn = int (*)(const TDbZentSettings&, std::string&);
using DbZentCloseFn = void (*)();

}  // namespace ZentHost
