#pragma once
// libzent_dl.so as zent-host loads it: dlopen, then the five exports resolved
// by name. The host shares the module's string and message layouts (both are
// built from the same sources with the same compiler).
#include <string>

class CAlert;

namespace ZentHost {

struct TDealerModule {
  int (*ModuleInit)(std::string& name, unsigned* kind) = nullptr;
  int (*InitDB)(const std::string& libraryList, const std::string& serverSettings, int port) = nullptr;
  int (*Reset)(int user, int port) = nullptr;
  std::string (*GetDLInUse)(int user, int port) = nullptr;
  int (*Execute)(const std::string& command, CAlert& message, int user, int port,
                 const std::string& userName) = nullptr;
  void* handle = nullptr;

  // False with dlerror's text, or the name of a missing export.
  [[nodiscard]] bool Load(const std::string& path, std::string& error);
};

}  // namespace ZentHost
