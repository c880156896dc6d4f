// Progress notes: nothing for quick work; the label and the time for work
// longer than a second.
#include "tools/cli/Progress.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <thread>

namespace {

std::string Written(std::FILE* f) {
  std::fflush(f);
  std::rewind(f);
  std::string out;
  char buf[256];
  std::size_t n;
  while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) out.append(buf, n);
  return out;
}

TEST(ProgressTest, QuickWorkPrintsNothing) {
  std::FILE* f = std::tmpfile();
  ASSERT_NE(f, nullptr);
  { zentdl::CProgress progress("checking a.ini", true, f); }
  EXPECT_EQ(Written(f), "");
  std::fclose(f);
}

TEST(ProgressTest, WorkLongerThanASecondShowsItsLabelAndEnds) {
  std::FILE* f = std::tmpfile();
  ASSERT_NE(f, nullptr);
  {
    zentdl::CProgress progress("checking a.ini", true, f);
    progress.SetLabel("checking b.ini (2 of 2)");
    std::this_thread::sleep_for(std::chrono::milliseconds(1300));
  }
  const std::string text = Written(f);
  // Not a terminal: one line per tick.
  EXPECT_EQ(text.rfind("zentdl: checking b.ini (2 of 2) ... 1 s\nzentdl: checking b.ini (2 of 2): done in 1.", 0), 0u)
      << text;
  EXPECT_EQ(text.back(), '\n');
  std::fclose(f);
}

TEST(ProgressTest, TurnedOffPrintsNothingEvenForLongWork) {
  std::FILE* f = std::tmpfile();
  ASSERT_NE(f, nullptr);
  {
    zentdl::CProgress progress("checking a.ini", false, f);
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
  }
  EXPECT_EQ(Written(f), "");
  std::fclose(f);
}

}  // namespace
