#include "support/lock.h"

#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace {

using Library::Thread::Lock;
using Library::Thread::Mutex;

bool FreeSeenFromAnotherThread(Mutex& mutex) {
  bool free = false;
  std::thread other([&] {
    free = mutex.TryLock();
    if (free) mutex.Unlock();
  });
  other.join();
  return free;
}

TEST(LockTest, TheMutexIsHeldForTheScopeOfTheLock) {
  Mutex mutex;
  {
    Lock lock(mutex);
    EXPECT_FALSE(FreeSeenFromAnotherThread(mutex));
  }
  EXPECT_TRUE(FreeSeenFromAnotherThread(mutex));
}

TEST(LockTest, LockAndUnlockByHand) {
  Mutex mutex;
  mutex.Lock();
  EXPECT_FALSE(FreeSeenFromAnotherThread(mutex));
  mutex.Unlock();
  EXPECT_TRUE(FreeSeenFromAnotherThread(mutex));
}

TEST(LockTest, LockedIncrementsOfManyThreadsAreNotLost) {
  Mutex mutex;
  long counter = 0;
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([&] {
      for (int i = 0; i < 20000; ++i) {
        Lock lock(mutex);
        ++counter;
      }
    });
  for (std::thread& t : threads) t.join();
  EXPECT_EQ(counter, 80000);
}

}  // namespace
