#include "support/Buffer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>

namespace {

using Library::getAlign;
using Library::TBuffer;

TEST(GetAlignTest, GivesTheSmallestStepAboveTheSize) {
  EXPECT_EQ(8192u, getAlign(0));
  EXPECT_EQ(8192u, getAlign(8191));
  EXPECT_EQ(16384u, getAlign(8192));
  EXPECT_EQ(32768u, getAlign(16384));
  EXPECT_EQ(65536u, getAlign(40000));
  EXPECT_EQ(131072u, getAlign(65536));
  EXPECT_EQ(262144u, getAlign(131072));
  EXPECT_EQ(524288u, getAlign(262144));
  EXPECT_EQ(1048576u, getAlign(524288));
  EXPECT_EQ(2097152u, getAlign(1048576));
  EXPECT_EQ(4194304u, getAlign(4194303));
  EXPECT_EQ(8388608u, getAlign(4194304));
}

TEST(GetAlignTest, StopsAtEightMegabytes) {
  EXPECT_EQ(8388608u, getAlign(8388607));
  EXPECT_EQ(8388608u, getAlign(8388608));
  EXPECT_EQ(8388608u, getAlign(1000000000));
}

TEST(BufferTest, NewBufferHoldsEightKilobytesAndNoBytes) {
  TBuffer b;
  EXPECT_EQ(0u, b.size());
  EXPECT_EQ(0u, b.pos());
  EXPECT_EQ(8192u, b.capacity());
}

TEST(BufferTest, ConstructionFromBytesCopiesThem) {
  const char text[] = "hello";
  TBuffer b(text, 5);
  EXPECT_EQ(5u, b.size());
  EXPECT_EQ(8192u, b.capacity());
  EXPECT_EQ("hello", std::string(b.data(), b.size()));
}

TEST(BufferTest, AppendAddsAtTheEnd) {
  TBuffer b("ab", 2);
  b.append("cd", 2);
  EXPECT_EQ("abcd", std::string(b.data(), b.size()));
}

TEST(BufferTest, CapacityGrowsInAlignSteps) {
  TBuffer b;
  b.resize(8191);
  EXPECT_EQ(8192u, b.capacity());
  b.resize(8192);  // capacity must exceed the end
  EXPECT_EQ(16384u, b.capacity());
  b.resize(100);  // fits
  EXPECT_EQ(16384u, b.capacity());
  b.resize(8388608);
  EXPECT_EQ(16777216u, b.capacity());
}

TEST(BufferTest, ClearGivesABigBlockBack) {
  TBuffer b;
  b.resize(100000);
  EXPECT_EQ(131072u, b.capacity());
  b.skip(10);
  b.clear();
  EXPECT_EQ(0u, b.pos());
  EXPECT_EQ(0u, b.size());
  EXPECT_EQ(8192u, b.capacity());
}

TEST(BufferTest, ReadPositionShiftsTheView) {
  TBuffer b("0123456789", 10);
  b.skip(3);
  EXPECT_EQ(3u, b.pos());
  EXPECT_EQ(7u, b.size());
  EXPECT_EQ('3', *b.data());
  EXPECT_EQ('5', *b[2]);
  b.reset();
  EXPECT_EQ(10u, b.size());
}

TEST(BufferTest, ResizeCountsFromTheReadPosition) {
  TBuffer b("0123456789", 10);
  b.skip(4);
  b.resize(2);
  EXPECT_EQ(2u, b.size());
  b.reset();
  EXPECT_EQ(6u, b.size());
}

TEST(BufferTest, AppendAfterSkipKeepsTheReadBytes) {
  TBuffer b("abc", 3);
  b.skip(1);
  b.append("d", 1);
  EXPECT_EQ("bcd", std::string(b.data(), b.size()));
}

TEST(BufferTest, SkipPastTheEndLeavesNothingToRead) {
  TBuffer b("abc", 3);
  b.skip(5);
  EXPECT_EQ(5u, b.pos());
  EXPECT_EQ(0u, b.size());
}

TEST(BufferTest, ShrinkStartsOverOnceAllWasRead) {
  TBuffer b("abc", 3);
  b.skip(3);
  b.shrink();
  EXPECT_EQ(0u, b.pos());
  EXPECT_EQ(0u, b.size());
}

TEST(BufferTest, ShrinkKeepsUnreadBytes) {
  TBuffer b("abc", 3);
  b.skip(2);
  b.shrink();
  EXPECT_EQ(2u, b.pos());
  EXPECT_EQ("c", std::string(b.data(), b.size()));
}

TEST(BufferTest, ShrinkAtPositionZeroDoesNothing) {
  TBuffer b;
  b.shrink();
  EXPECT_EQ(0u, b.pos());
  EXPECT_EQ(8192u, b.capacity());
}

TEST(BufferTest, MoveTakesEverythingAndZeroesTheOther) {
  TBuffer a("xyz", 3);
  a.skip(1);
  TBuffer b(std::move(a));
  EXPECT_EQ(1u, b.pos());
  EXPECT_EQ("yz", std::string(b.data(), b.size()));
  EXPECT_EQ(0u, a.capacity());  // NOLINT(bugprone-use-after-move): the moved-from state is the contract
  EXPECT_EQ(0u, a.pos());
  EXPECT_EQ(0u, a.size());
  TBuffer c;
  c = std::move(b);
  EXPECT_EQ("yz", std::string(c.data(), c.size()));
  EXPECT_EQ(8192u, c.capacity());
  EXPECT_EQ(0u, b.capacity());  // NOLINT(bugprone-use-after-move)
}

TEST(BufferTest, SizeThatCannotBeAddressedIsBadAlloc) {
  TBuffer b("abc", 3);
  char* before = b.data();
  try {
    b.resize(SIZE_MAX - 100);
    FAIL();
  } catch (const std::runtime_error& e) {
    EXPECT_STREQ("Bad alloc", e.what());
  }
  EXPECT_EQ(before, b.data());
  EXPECT_EQ("abc", std::string(b.data(), b.size()));
  b.skip(10);
  EXPECT_THROW(b.resize(SIZE_MAX - 5), std::runtime_error);
}

TEST(BufferTest, FailedAllocationIsBadAllocAndKeepsTheBlock) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the address sanitizer stops the process on an allocation this large";
#else
  TBuffer b("abc", 3);
  try {
    b.resize(size_t{1} << 60);
    FAIL();
  } catch (const std::runtime_error& e) {
    EXPECT_STREQ("Bad alloc", e.what());
  }
  EXPECT_EQ("abc", std::string(b.data(), b.size()));
  EXPECT_EQ(8192u, b.capacity());
#endif
}

}  // namespace
