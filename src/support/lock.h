#pragma once
// The library's mutex and its scoped lock. The mutex is plain (not recursive):
// a thread that takes it twice deadlocks, so callers keep their critical
// sections flat.
#include <mutex>

namespace Library::Thread {

class Mutex {
 public:
  Mutex() = default;
  Mutex(const Mutex&) = delete;
  Mutex& operator=(const Mutex&) = delete;

  void Lock() { m_mutex.lock(); }
  void Unlock() { m_mutex.unlock(); }
  // True when the mutex was free and is now held by the caller.
  [[nodiscard]] bool TryLock() { return m_mutex.try_lock(); }

 private:
  std::mutex m_mutex;
};

// Holds the mutex from construction to the end of the scope.
class Lock {
 public:
  explicit Lock(Mutex& mutex) : m_mutex(mutex) { m_mutex.Lock(); }
  ~Lock() { m_mutex.Unlock(); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  Mutex& m_mutex;
};

}  // namespace Library::Thread
