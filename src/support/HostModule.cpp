#include "support/HostModule.h"

#include <sys/syscall.h>
#include <unistd.h>

#include "support/FileUtils.h"
#include "support/LinuxUtils.h"

const std::string modName = Library::FileUtils::PrepareZentModulePath("dbzent", false);
std::map<unsigned, unsigned> mapMaxDeallibSize;

namespace {

using WhoIsItFn = int (*)(int user, int port);
using NotifyFn = void (*)(int user, int port, int state);
using AuditStateFn = int (*)(int port);
using AuditFn = int (*)(int port, int user, std::string& event, std::vector<std::string>& fields);
using ExecuteFn = int (*)(const std::string& command, CAlert& message, int user, int port,
                          const std::string& userName);

// Resolves one symbol of the database module as it is loaded now; null when
// the module is not loaded or lacks the symbol.
template <class Fn>
Fn Resolve(const char* symbol) {
  void* module = GetModuleHandle(modName.c_str());
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Fn>(GetProcAddress(module, symbol));
}

}  // namespace

namespace Library::Host {

std::vector<std::string> NewAuditRecord() { return std::vector<std::string>(kAuditFieldCount, kAuditNull); }

std::string ThreadIdText() { return std::to_string(static_cast<long>(syscall(SYS_gettid))); }

int WhoIsIt(int user, int port) {
  WhoIsItFn fn = Resolve<WhoIsItFn>("WhoIsIt");
  return fn == nullptr ? 0 : fn(user, port);
}

bool ExecuteInDbModule(const std::string& command, CAlert& message, int user, int port,
                       const std::string& userName, int* result) {
  ExecuteFn fn = Resolve<ExecuteFn>("Execute");
  if (fn == nullptr) return false;
  *result = fn(command, message, user, port, userName);
  return true;
}

}  // namespace Library::Host

void NotifyDLUserConnected(int user, int port, int state) {
  NotifyFn fn = Resolve<NotifyFn>("NotifyUserConnected");
  if (fn != nullptr) fn(user, port, state);
}

unsigned GetMaxDeallibSize(unsigned port) {
  auto it = mapMaxDeallibSize.find(port);
  return it == mapMaxDeallibSize.end() ? static_cast<unsigned>(-1) : it->second;
}

int audit_DEALLIB_CHANGE(int port, int user, std::string& event, std::vector<std::string>& fields) {
  void* module = GetModuleHandle(modName.c_str());
  if (module == nullptr) return 0;
  auto state = reinterpret_cast<AuditStateFn>(GetProcAddress(module, "audit_State"));
  if (state == nullptr || state(port) == 0) return 1;
  auto audit = reinterpret_cast<AuditFn>(GetProcAddress(module, "audit_DEALLIB_CHANGE"));
  if (audit == nullptr) return 0;
  if (fields.size() == Library::Host::kAuditFieldCount) {
    std::string& text = fields[20];
    if (text.size() > GetMaxDeallibSize(static_cast<unsigned>(port)))
      text = "DealLib size is: " + std::to_string(text.size());
  }
  return audit(port, user, event, fields);
}

int AuditLibraryEvent(int port, int user, const char* event, const std::string& userName,
                      const std::string& library, const std::string& text, const std::string* count) {
  std::vector<std::string> fields = Library::Host::NewAuditRecord();
  fields[0] = userName;
  fields[1] = std::to_string(user);
  fields[2] = library;
  fields[3] = Library::Host::ThreadIdText();
  if (count != nullptr) fields[4] = *count;
  fields[20] = text;
  std::string name = event;
  return audit_DEALLIB_CHANGE(port, user, name, fields);
}
