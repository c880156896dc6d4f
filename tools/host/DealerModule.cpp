#include "DealerModule.h"

#include <dlfcn.h>

namespace ZentHost {
namespace {

template <class Fn>
bool Resolve(void* handle, const char* name, Fn& to, std::string& error) {
  to = reinterpret_cast<Fn>(dlsym(handle, name));
  if (to == nullptr) error = "the module lacks the export " + std::string(name);
  return to != nullptr;
}

}  // namespace

bool TDealerModule::Load(const std::string& path, std::string& error) {
  handle = dlopen(path.c_str(), RTLD_NOW);
  if (handle == nullptr) {
    const char* text = dlerror();
    error = text != nullptr ? text : path + ": cannot be loaded";
    return false;
  }
  return Resolve(handle, "ModuleInit", ModuleInit, error) && Resolve(handle, "InitDB", InitDB, error) &&
         Resolve(handle, "Reset", Reset, error) && Resolve(handle, "GetDLInUse", GetDLInUse, error) &&
         Resolve(handle, "Execute", Execute, error);
}

}  // namespace ZentHost
