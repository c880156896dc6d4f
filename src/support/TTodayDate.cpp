#include "support/TTodayDate.h"

#include <atomic>
#include <ctime>

namespace Library {

namespace {

// The fixed date, 0 when none. Atomic because the host's threads all read it.
std::atomic<long> g_fixedDate{0};

// The last reading of the clock on this thread.
struct TLastReading {
  std::time_t second = static_cast<std::time_t>(-1);
  long date = 0;
};
thread_local TLastReading t_last;

}  // namespace

long TTodayDate::Get() {
  const long fixed = g_fixedDate.load(std::memory_order_relaxed);
  if (fixed != 0) return fixed;
  const std::time_t now = std::time(nullptr);
  if (now == static_cast<std::time_t>(-1)) return 0;
  if (now != t_last.second) {
    std::tm local{};
    if (localtime_r(&now, &local) == nullptr) return 0;
    t_last.second = now;
    t_last.date = (local.tm_year + 1900L) * 10000 + (local.tm_mon + 1) * 100 + local.tm_mday;
  }
  return t_last.date;
}

void TTodayDate::Set(long yyyymmdd) { g_fixedDate.store(yyyymmdd, std::memory_order_relaxed); }

bool TTodayDate::IsFixed() { return g_fixedDate.load(std::memory_order_relaxed) != 0; }

}  // namespace Library
