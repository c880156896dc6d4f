#include "LogonGuard.h"

#include <algorithm>

namespace ZentHost {

std::chrono::milliseconds TLogonGuard::Failed(const std::string& name) {
  std::lock_guard<std::mutex> lock(m_mutex);
  auto it = m_failures.find(name);
  if (it == m_failures.end()) {
    if (m_failures.size() >= kMaxNames) {
      m_failures.erase(m_order.front());
      m_order.pop_front();
    }
    it = m_failures.emplace(name, 0).first;
    m_order.push_back(name);
  }
  int count = ++it->second;
  int doublings = std::min(count - 1, kMaxDoublings);
  return std::chrono::milliseconds(static_cast<long long>(m_baseMs) << doublings);
}

void TLogonGuard::Succeeded(const std::string& name) {
  std::lock_guard<std::mutex> lock(m_mutex);
  if (m_failures.erase(name) != 0) m_order.remove(name);
}

int TLogonGuard::Failures(const std::string& name) const {
  std::lock_guard<std::mutex> lock(m_mutex);
  auto it = m_failures.find(name);
  return it == m_failures.end() ? 0 : it->second;
}

}  // namespace ZentHost
