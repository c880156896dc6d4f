#include "support/TTodayDate.h"

#include <gtest/gtest.h>

#include <ctime>

namespace {

using Library::TScopedTodayDate;
using Library::TTodayDate;

long LocalToday() {
  const std::time_t now = std::time(nullptr);
  std::tm t{};
  localtime_r(&now, &t);
  return (t.tm_year + 1900L) * 10000 + (t.tm_mon + 1) * 100 + t.tm_mday;
}

TEST(TodayDateTest, WithoutAFixedDateItIsTheHostsLocalDate) {
  TTodayDate::Reset();
  EXPECT_FALSE(TTodayDate::IsFixed());
  const long before = LocalToday();
  const long got = TTodayDate::Get();
  const long after = LocalToday();
  EXPECT_TRUE(got == before || got == after) << got;
}

TEST(TodayDateTest, AFixedDateHoldsUntilReset) {
  TTodayDate::Set(20240229);
  EXPECT_TRUE(TTodayDate::IsFixed());
  EXPECT_EQ(TTodayDate::Get(), 20240229);
  EXPECT_EQ(TTodayDate::Get(), 20240229);
  TTodayDate::Reset();
  EXPECT_FALSE(TTodayDate::IsFixed());
  EXPECT_NE(TTodayDate::Get(), 20240229);
}

TEST(TodayDateTest, SettingZeroReleasesTheDate) {
  TTodayDate::Set(20240229);
  TTodayDate::Set(0);
  EXPECT_FALSE(TTodayDate::IsFixed());
}

TEST(TodayDateTest, TheScopedDateIsReleasedAtTheEndOfItsScope) {
  {
    const TScopedTodayDate fixed(20230115);
    EXPECT_EQ(TTodayDate::Get(), 20230115);
  }
  EXPECT_FALSE(TTodayDate::IsFixed());
}

}  // namespace
