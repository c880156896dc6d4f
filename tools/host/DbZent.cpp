// modules/libdbzent.so of zent-host: the host's database module as the dealer
// library reaches it. Users and their kinds come from the users file, audit
// records go to the SQLite audit trail, auditing per connection port follows
// the configuration, and "GetTable" answers the class list.
#include <dlfcn.h>
#include <strings.h>

#include <cstdarg>
#include <cstdio>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <vector>

#include "AuditDatabase.h"
#include "ClassList.h"
#include "DbZentSettings.h"
#include "UsersFile.h"
#include "support/Alert.h"

#define ZENT_EXPORT extern "C" __attribute__((visibility("default")))

namespace {

using DeventFn = void (*)(int, const char*, ...);

struct TDbZentState {
  ZentHost::TUsersFile users;
  std::vector<std::string> classes;
  std::map<int, bool> audit;
  ZentHost::TAuditDatabase database;
};

std::shared_mutex g_stateMutex;  // guards g_state; the database has its own lock
std::unique_ptr<TDbZentState> g_state;

// The host's event log, when the host has one.
void Event(int level, const std::string& text) {
  static const auto fn = reinterpret_cast<DeventFn>(dlsym(RTLD_DEFAULT, "devent"));
  if (fn != nullptr) fn(level, "%s", text.c_str());
}

}  // namespace

ZENT_EXPORT int dbzent_Open(const ZentHost::TDbZentSettings& settings, std::string& error) {
  auto state = std::make_unique<TDbZentState>();
  if (!state->users.Load(settings.users, error)) return 0;
  if (!settings.classList.empty() && !ZentHost::LoadClassList(settings.classList, state->classes, error)) return 0;
  state->audit = settings.audit;
  if (!state->database.Open(settings.auditDatabase, error)) return 0;
  std::unique_lock<std::shared_mutex> lock(g_stateMutex);
  g_state = std::move(state);
  Event(0, "dbzent: " + std::to_string(g_state->users.size()) + " users, " + std::to_string(g_state->classes.size()) +
               " classes, audit trail " + settings.auditDatabase);
  return 1;
}

ZENT_EXPORT void dbzent_Close() {
  std::unique_lock<std::shared_mutex> lock(g_stateMutex);
  if (g_state) {
    g_state->database.Close();
    Event(0, "dbzent: audit trail closed");
  }
  g_state.reset();
}

// The kind of a user: 1 or 2 may work with libraries, 3 may not. A user the
// users file does not know, or any call before dbzent_Open, gets 3.
ZENT_EXPORT int WhoIsIt(int user, int /*port*/) {
  std::shared_lock<std::shared_mutex> lock(g_stateMutex);
  if (!g_state) return 3;
  const ZentHost::TUser* u = g_state->users.FindById(user);
  return u == nullptr ? 3 : u->kind;
}

ZENT_EXPORT void NotifyUserConnected(int user, int port, int state) {
  Event(10, "dbzent: NotifyUserConnected user[" + std::to_string(user) + "] port[" + std::to_string(port) +
                "] state[" + std::to_string(state) + "]");
}

ZENT_EXPORT int audit_State(int port) {
  std::shared_lock<std::shared_mutex> lock(g_stateMutex);
  if (!g_state) return 0;
  auto it = g_state->audit.find(port);
  return it != g_state->audit.end() && it->second ? 1 : 0;
}

ZENT_EXPORT int audit_DEALLIB_CHANGE(int port, int user, std::string& event, std::vector<std::string>& fields) {
  std::shared_lock<std::shared_mutex> lock(g_stateMutex);
  if (!g_state) return 0;
  std::string error;
  if (!g_state->database.Insert(port, user, event, fields, error)) {
    Event(0, "dbzent: audit record " + event + " of user[" + std::to_string(user) + "] port[" + std::to_string(port) +
                 "] not stored: " + error);
    return 0;
  }
  return 1;
}

// The table service. "GetTable" (the request's content is not looked at: this
// host has one table) answers: string "GetTable", int 0, int the row count,
// int 2 (columns), and a nested message of rows, each a nested message of the
// row number (from 1) and the class code. Other commands return 0 untouched.
ZENT_EXPORT int Execute(const std::string& command, CAlert& message, int /*user*/, int /*port*/,
                        const std::string& /*userName*/) {
  if (strcasecmp(command.c_str(), "GetTable") != 0) return 0;
  std::vector<std::string> classes;
  {
    std::shared_lock<std::shared_mutex> lock(g_stateMutex);
    if (g_state) classes = g_state->classes;
  }
  CAlert rows;
  for (std::size_t i = 0; i < classes.size(); ++i) {
    CAlert row;
    row << static_cast<int>(i + 1) << classes[i];
    rows << row;
  }
  message.clear();
  message << std::string("GetTable") << 0 << static_cast<int>(classes.size()) << 2 << rows;
  message.set_begin();
  return 1;
}
