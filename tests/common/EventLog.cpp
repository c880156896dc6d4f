// Linked into every test program: defines the exported devent that the code under test finds.
#include <cstdarg>
#include <cstdio>

#include "common/EventLog.h"

namespace ztest {
namespace {
std::mutex g_eventsMutex;
std::vector<EventLine> g_events;
}  // namespace

std::vector<EventLine> Events() {
  std::lock_guard<std::mutex> lock(g_eventsMutex);
  return g_events;
}
void ClearEvents() {
  std::lock_guard<std::mutex> lock(g_eventsMutex);
  g_events.clear();
}
bool HasEvent(int level, const std::string& text) {
  for (const EventLine& e : Events())
    if (e.level == level && e.text == text) return true;
  return false;
}
}  // namespace ztest

extern "C" __attribute__((visibility("default"))) void devent(int level, const char* format, ...) {
  va_list args;
  va_start(args, format);
  char buf[1 << 16];
  std::vsnprintf(buf, sizeof buf, format, args);
  va_end(args);
  std::lock_guard<std::mutex> lock(ztest::g_eventsMutex);
  ztest::g_events.push_back({level, buf});
}
