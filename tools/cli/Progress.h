#pragma once
// A note on standard error for work that takes longer than a second: after
// the first second the label is shown, and the elapsed time every second
// after that, until the work ends; quick work prints nothing.
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <string>
#include <thread>

namespace zentdl {

class CProgress {
 public:
  // out null (or enabled false) turns the note off.
  CProgress(std::string label, bool enabled, std::FILE* out = stderr);
  ~CProgress();  // ends the note: "done in N.N s" when anything was shown
  // What the work does now ("checking b.ini (2 of 7)"); shown at the next tick.
  void SetLabel(std::string label);
  CProgress(const CProgress&) = delete;
  CProgress& operator=(const CProgress&) = delete;

 private:
  void Run();

  std::string m_label;
  std::FILE* m_out;
  bool m_terminal;  // rewrite one line in place
  std::mutex m_mutex;
  std::condition_variable m_wake;
  bool m_done = false;
  bool m_shown = false;
  std::chrono::steady_clock::time_point m_start;
  std::thread m_thread;
};

}  // namespace zentdl
