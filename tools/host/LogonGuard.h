#pragma once
// Slows down guessing of secrets: every failed log-on of a user name adds to
// that name's count, and the reply to a failure waits base * 2^(count - 1)
// milliseconds, the doubling stopping at 2^6. A successful log-on clears the
// name's count. Names are kept up to a bound; beyond it the oldest are dropped.
#include <chrono>
#include <list>
#include <map>
#include <mutex>
#include <string>

namespace ZentHost {

class TLogonGuard {
 public:
  explicit TLogonGuard(int baseDelayMs) : m_baseMs(baseDelayMs) {}

  // Notes a failure and gives the delay to wait before answering it.
  std::chrono::milliseconds Failed(const std::string& name);
  void Succeeded(const std::string& name);
  int Failures(const std::string& name) const;

 private:
  static constexpr std::size_t kMaxNames = 10000;
  static constexpr int kMaxDoublings = 6;

  int m_baseMs;
  mutable std::mutex m_mutex;
  std::map<std::string, int> m_failures;
  std::list<std::string> m_order;  // names in the order of their first failure
};

}  // namespace ZentHost
