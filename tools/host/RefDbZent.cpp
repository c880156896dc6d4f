// The reference host's database module: every user may work with libraries,
// auditing is on, and each audit record is printed to standard error.
#include <cstdio>
#include <string>
#include <vector>

#include "support/Alert.h"

extern "C" {

int WhoIsIt(int /*user*/, int /*port*/) { return 1; }

void NotifyUserConnected(int user, int port, int state) {
  std::fprintf(stderr, "notice: user %d port %d state %d\n", user, port, state);
}

int audit_State(int /*port*/) { return 1; }

int audit_DEALLIB_CHANGE(int port, int user, std::string& event, std::vector<std::string>& fields) {
  std::fprintf(stderr, "audit: %s port %d user %d library [%s] %zu bytes of text\n", event.c_str(), port, user,
               fields.size() > 2 ? fields[2].c_str() : "", fields.size() > 20 ? fields[20].size() : 0);
  return 1;
}

// The table service: this host knows no classes.
int Execute(const std::string& command, CAlert& message, int /*user*/, int /*port*/,
            const std::string& /*userName*/) {
  if (command != "GetTable") return 0;
  message.clear();
  message << std::string("GetTable") << 0 << 0 << 0 << CAlert();
  return 1;
}

}  // extern "C"
