#include "HostLog.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <mutex>

#include "UtcStamp.h"

namespace ZentHost {
namespace {

std::mutex g_logMutex;
std::FILE* g_log = nullptr;
int g_maxLevel = 10;

}  // namespace

bool OpenHostLog(const std::string& path, int maxLevel, std::string& error) {
  std::lock_guard<std::mutex> lock(g_logMutex);
  std::FILE* f = std::fopen(path.c_str(), "ae");
  if (f == nullptr) {
    error = path + ": " + std::strerror(errno);
    return false;
  }
  if (g_log != nullptr) std::fclose(g_log);
  g_log = f;
  g_maxLevel = maxLevel;
  return true;
}

void CloseHostLog() {
  std::lock_guard<std::mutex> lock(g_logMutex);
  if (g_log != nullptr) std::fclose(g_log);
  g_log = nullptr;
}

void HostEvent(int level, const std::string& text) {
  std::lock_guard<std::mutex> lock(g_logMutex);
  if (g_log == nullptr || level > g_maxLevel) return;
  std::fprintf(g_log, "%s [%d] [tid %ld] %s\n", UtcStamp().c_str(), level, static_cast<long>(syscall(SYS_gettid)),
               text.c_str());
  std::fflush(g_log);
}

}  // namespace ZentHost

// The host's event call, looked up by name by the modules it loads.
extern "C" __attribute__((visibility("default"))) void devent(int level, const char* format, ...) {
  va_list args;
  va_start(args, format);
  va_list again;
  va_copy(again, args);
  char small[1024];
  int n = std::vsnprintf(small, sizeof small, format, args);
  va_end(args);
  if (n < 0) {
    va_end(again);
    return;
  }
  if (static_cast<std::size_t>(n) < sizeof small) {
    va_end(again);
    ZentHost::HostEvent(level, small);
    return;
  }
  std::string big(static_cast<std::size_t>(n) + 1, '\0');
  std::vsnprintf(big.data(), big.size(), format, again);
  va_end(again);
  big.resize(static_cast<std::size_t>(n));
  ZentHost::HostEvent(level, big);
}
