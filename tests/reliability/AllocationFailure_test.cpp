// Memory exhausted during a load: operator new of this program fails the Nth
// allocation after arming, for N = 1, 2, 3, ... until a load finishes with
// fewer allocations. At every N the load either succeeds with exactly the new
// settings, or fails (a result code, or std::bad_alloc out of the module for
// the host to catch) and leaves the firm's earlier settings exactly as they
// were. Then the same for the save of the settings to memory.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <string>

#include "api/ZDeallibAPI.h"

namespace {

// Allocations left before the failing one; 0 when disarmed.
std::atomic<long> g_left{0};
std::atomic<bool> g_fired{false};

void* Allocate(std::size_t n) {
  if (g_left.load(std::memory_order_relaxed) > 0 && g_left.fetch_sub(1) == 1) {
    g_fired = true;
    throw std::bad_alloc();
  }
  void* p = std::malloc(n == 0 ? 1 : n);
  if (p == nullptr) throw std::bad_alloc();
  return p;
}

}  // namespace

void* operator new(std::size_t n) { return Allocate(n); }
void* operator new[](std::size_t n) { return Allocate(n); }
void* operator new(std::size_t n, const std::nothrow_t&) noexcept {
  try {
    return Allocate(n);
  } catch (...) {
    return nullptr;
  }
}
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept {
  try {
    return Allocate(n);
  } catch (...) {
    return nullptr;
  }
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }

namespace {

constexpr const char* kFirm = "ALLOC";
constexpr const char* kOldText = "[General]\nUSEPGO=0\nCALCVARMARGIN=1\n";
constexpr const char* kNewText =
    "[General]\nUSEPGO=1\nCALCVARMARGIN=1\nLIMIT_KIND_COUNT=3\n"
    "[CLIENT1]\nCLIENT_CODE=C1\n";

void Arm(long n) {
  g_fired = false;
  g_left = n;
}
// Disarms; true when the armed allocation failed.
bool Disarm() {
  g_left = 0;
  return g_fired.load();
}

// The firm's settings as canonical text; empty when the firm cannot save.
std::string SavedText(const char* firm) {
  char* block = nullptr;
  if (ZDL_SaveSettingsToMemory(firm, &block) != 0) return {};
  std::string text = block;
  void* given = block;
  (void)ZDL_FreeMemory(firm, &given);
  return text;
}

std::string CanonicalOf(const char* text) {
  EXPECT_EQ(ZDL_LoadSettingsForFirm("REFERENCE", text, 2), 0);
  std::string out = SavedText("REFERENCE");
  (void)ZDL_FinishWorkWithFirm("REFERENCE");
  return out;
}

TEST(AllocationFailureTest, ALoadThatRunsOutOfMemoryFailsCleanlyAndKeepsTheEarlierSettings) {
  const std::string oldCanonical = CanonicalOf(kOldText);
  const std::string newCanonical = CanonicalOf(kNewText);
  ASSERT_FALSE(oldCanonical.empty());
  ASSERT_NE(oldCanonical, newCanonical);
  long n = 1, codes = 0, thrown = 0;
  for (;; ++n) {
    ASSERT_EQ(ZDL_LoadSettingsForFirm(kFirm, kOldText, 2), 0);
    int rc = -1;
    bool threw = false;
    Arm(n);
    try {
      rc = ZDL_LoadSettingsForFirm(kFirm, kNewText, 2);
    } catch (const std::bad_alloc&) {
      threw = true;
    }
    const bool fired = Disarm();
    const std::string now = SavedText(kFirm);
    if (!fired) {
      // Fewer than n allocations: every one of them has failed once.
      EXPECT_EQ(rc, 0);
      EXPECT_EQ(now, newCanonical);
      break;
    }
    if (threw || rc != 0) {
      threw ? ++thrown : ++codes;
      ASSERT_EQ(now, oldCanonical) << "allocation " << n << " failed and the earlier settings changed";
    } else {
      ASSERT_EQ(now, newCanonical) << "allocation " << n << " failed and the load claimed success";
    }
    ASSERT_LT(n, 2000000) << "the load never finishes";
  }
  std::printf("[ alloc    ] load: %ld allocations failed one by one: %ld bad_alloc, %ld result codes\n", n - 1,
              thrown, codes);
  EXPECT_EQ(ZDL_FinishWorkWithFirm(kFirm), 0);
}

TEST(AllocationFailureTest, ASaveThatRunsOutOfMemoryFailsCleanlyAndKeepsTheSettings) {
  const std::string canonical = CanonicalOf(kNewText);
  ASSERT_EQ(ZDL_LoadSettingsForFirm(kFirm, kNewText, 2), 0);
  long n = 1;
  for (;; ++n) {
    char* block = nullptr;
    int rc = -1;
    bool threw = false;
    Arm(n);
    try {
      rc = ZDL_SaveSettingsToMemory(kFirm, &block);
    } catch (const std::bad_alloc&) {
      threw = true;
    }
    const bool fired = Disarm();
    if (rc == 0) {
      ASSERT_NE(block, nullptr);
      EXPECT_EQ(std::string(block), canonical) << "allocation " << n;
      void* given = block;
      EXPECT_EQ(ZDL_FreeMemory(kFirm, &given), 0);
    }
    if (!fired) break;
    (void)threw;
    ASSERT_EQ(SavedText(kFirm), canonical) << "allocation " << n << " failed and the settings changed";
    ASSERT_LT(n, 2000000);
  }
  std::printf("[ alloc    ] save: %ld allocations failed one by one\n", n - 1);
  EXPECT_EQ(ZDL_FinishWorkWithFirm(kFirm), 0);
}

}  // namespace
