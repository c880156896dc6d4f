#pragma once
// Test-side stand-in for the host's event log. EventLog.cpp is linked into
// every test program and defines an exported devent that records every line.
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace ztest {

struct EventLine {
  int level;
  std::string text;
};

// Lines seen by devent since the last Clear().
std::vector<EventLine> Events();
void ClearEvents();
// True when some line has exactly this level and text.
bool HasEvent(int level, const std::string& text);

}  // namespace ztest
