// Built as modules/libdbzent.so for the host tests: answers the module's calls
// from a state the test sets, and records every call.
#include "TestDbZent.h"

#include "support/Alert.h"

namespace {
TestDbState& State() {
  static TestDbState state;
  return state;
}
}  // namespace

extern "C" {

TestDbState* TestDb() { return &State(); }

int WhoIsIt(int user, int /*port*/) {
  ++State().whoIsItCalls;
  auto it = State().kinds.find(user);
  return it == State().kinds.end() ? 1 : it->second;
}

void NotifyUserConnected(int user, int port, int state) { State().notices.push_back({user, port, state}); }

int audit_State(int /*port*/) { return State().auditState; }

int audit_DEALLIB_CHANGE(int port, int user, std::string& event, std::vector<std::string>& fields) {
  State().audits.push_back({port, user, event, fields});
  return State().auditResult;
}

// Answers "GetTable" as the server's table service does: a string, three ints
// and a nested message with one row (int, class code) per class.
int Execute(const std::string& command, CAlert& message, int user, int port, const std::string& userName) {
  State().executes.push_back({command, userName, user, port});
  if (command != "GetTable") return 0;
  CAlert rows;
  int n = 0;
  for (const std::string& code : State().tableRows) {
    CAlert row;
    row << n++ << code;
    rows << row;
  }
  message.clear();
  message << std::string("GetTable") << 0 << n << 0 << rows;
  return 1;
}

}  // extern "C"
