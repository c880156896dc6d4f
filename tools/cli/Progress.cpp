#include "tools/cli/Progress.h"

#include <unistd.h>

#include <utility>

namespace zentdl {

CProgress::CProgress(std::string label, bool enabled, std::FILE* out)
    : m_label(std::move(label)),
      m_out(enabled ? out : nullptr),
      m_terminal(m_out != nullptr && ::isatty(::fileno(m_out)) == 1),
      m_start(std::chrono::steady_clock::now()) {
  if (m_out != nullptr) m_thread = std::thread([this] { Run(); });
}

CProgress::~CProgress() {
  {
    std::lock_guard<std::mutex> lock(m_mutex);
    m_done = true;
  }
  m_wake.notify_all();
  if (m_thread.joinable()) m_thread.join();
  std::lock_guard<std::mutex> lock(m_mutex);
  if (m_shown) {
    const double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
    // On a terminal the note is one line rewritten in place; elsewhere (a log
    // file) each tick is a line of its own.
    std::fprintf(m_out, m_terminal ? "\rzentdl: %s: done in %.1f s\x1b[K\n" : "zentdl: %s: done in %.1f s\n",
                 m_label.c_str(), s);
    std::fflush(m_out);
  }
}

void CProgress::SetLabel(std::string label) {
  std::lock_guard<std::mutex> lock(m_mutex);
  m_label = std::move(label);
}

void CProgress::Run() {
  std::unique_lock<std::mutex> lock(m_mutex);
  for (int seconds = 1;; ++seconds) {
    if (m_wake.wait_until(lock, m_start + std::chrono::seconds(seconds), [this] { return m_done; })) return;
    std::fprintf(m_out, m_terminal ? "\rzentdl: %s ... %d s\x1b[K" : "zentdl: %s ... %d s\n", m_label.c_str(),
                 seconds);
    std::fflush(m_out);
    m_shown = true;
  }
}

}  // namespace zentdl
