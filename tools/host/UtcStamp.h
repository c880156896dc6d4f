#pragma once
// The time stamp of the host's log lines and audit rows: UTC with milliseconds,
// "YYYY-MM-DD HH:MM:SS.mmm".
#include <chrono>
#include <cstdio>
#include <ctime>
#include <string>

namespace ZentHost {

inline std::string UtcStamp() {
  auto now = std::chrono::system_clock::now();
  std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
  std::tm tm{};
  gmtime_r(&seconds, &tm);
  char buf[96];
  std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:%02d.%03d", tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday,
                tm.tm_hour, tm.tm_min, tm.tm_sec, static_cast<int>(ms));
  return buf;
}

}  // namespace ZentHost
