// The term split from today reads today's date from the one seam.
#include <gtest/gtest.h>

#include "core/DLDates.h"
#include "support/TTodayDate.h"

namespace {

TEST(TermSplitTodayTest, TodayIsTheFixedDate) {
  const Library::TScopedTodayDate today(20231231);
  int a = 0;
  int b = 0;
  ASSERT_TRUE(DL::Get_T365_T366(10, a, b, true));
  int ea = 0;
  int eb = 0;
  ASSERT_TRUE(DL::Get_T365_T366(10, ea, eb, true, DL::TDate{31, 12, 2023}));
  EXPECT_EQ(a, ea);
  EXPECT_EQ(b, eb);
  // One day in 2023, nine in the leap year 2024.
  EXPECT_EQ(a, 1);
  EXPECT_EQ(b, 9);
}

TEST(TermSplitTodayTest, AFixedDateThatDoesNotConvertFails) {
  const Library::TScopedTodayDate today(20231340);
  int a = 5;
  int b = 5;
  EXPECT_FALSE(DL::Get_T365_T366(10, a, b, true));
  EXPECT_EQ(a, 0);
  EXPECT_EQ(b, 0);
}

}  // namespace
