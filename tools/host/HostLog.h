#pragma once
// The event log of zent-host, written by `devent` (the host's logging call that
// the module and the database module find by name) and by the host itself.
// One line per event:
//
//   2026-11-24 15:25:23.123 [0] [tid 4242] text
//
// UTC time with milliseconds, the level, the calling thread's id. Events above
// the configured level are dropped. Lines are flushed as they are written.
#include <string>

namespace ZentHost {

// Opens (appends to) the log; false with a message when it cannot be opened.
[[nodiscard]] bool OpenHostLog(const std::string& path, int maxLevel, std::string& error);
void CloseHostLog();
void HostEvent(int level, const std::string& text);

}  // namespace ZentHost
