#include "support/HostEvent.h"

#include <dlfcn.h>

#include <cstdarg>
#include <cstdio>
#include <string>

namespace Library::Host {
namespace {

using DeventFn = void (*)(int, const char*, ...);

DeventFn Devent() {
  // Looked up once: the host's symbols do not change while the module lives.
  static const DeventFn fn = reinterpret_cast<DeventFn>(dlsym(RTLD_DEFAULT, "devent"));
  return fn;
}

}  // namespace

bool EventEnabled() { return Devent() != nullptr; }

void Event(int level, const char* format, ...) {
  DeventFn fn = Devent();
  if (fn == nullptr) return;
  char small[512];
  va_list args;
  va_start(args, format);
  va_list again;
  va_copy(again, args);
  int n = std::vsnprintf(small, sizeof small, format, args);
  va_end(args);
  if (n < 0) {
    va_end(again);
    return;
  }
  if (static_cast<size_t>(n) < sizeof small) {
    va_end(again);
    fn(level, "%s", small);
    return;
  }
  std::string big(static_cast<size_t>(n) + 1, '\0');
  std::vsnprintf(big.data(), big.size(), format, again);
  va_end(again);
  big.resize(static_cast<size_t>(n));
  fn(level, "%s", big.c_str());
}

}  // namespace Library::Host
