#include "base/Dates.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace DL;

TEST(DateTest, ConvertLongSplitsByHundredAndTenThousand) {
  const TDate d = ConvertLongToTDate(20240229);
  EXPECT_EQ(d.year, 2024);
  EXPECT_EQ(d.month, 2);
  EXPECT_EQ(d.day, 29);
}

TEST(DateTest, CompareDatesBySign) {
  EXPECT_LT(CompareDates(20240101, 20240102), 0);
  EXPECT_GT(CompareDates(20250101, 20241231), 0);
  EXPECT_EQ(CompareDates(20240101, 20240101), 0);
}

TEST(DateTest, LeapYears) {
  EXPECT_TRUE(IsLeapYear(2000));
  EXPECT_TRUE(IsLeapYear(2024));
  EXPECT_FALSE(IsLeapYear(1900));
  EXPECT_FALSE(IsLeapYear(2023));
}

TEST(DateTest, DefaultDate) {
  EXPECT_TRUE(IsDefaultDate(TDate{}));
  EXPECT_FALSE(IsDefaultDate(TDate{1, 1, 2024}));
}

TEST(DateTest, ServerSettleDateToTm) {
  std::tm t{};
  ASSERT_TRUE(ConvertServerSettleDateToTm(20240315, t));
  EXPECT_EQ(t.tm_year, 124);
  EXPECT_EQ(t.tm_mon, 2);
  EXPECT_EQ(t.tm_mday, 15);
  EXPECT_EQ(t.tm_hour, 0);
  EXPECT_FALSE(ConvertServerSettleDateToTm(20241315, t));
  EXPECT_FALSE(ConvertServerSettleDateToTm(20240100, t));
  EXPECT_FALSE(ConvertServerSettleDateToTm(0, t));
}

TEST(DateTest, DaysBetweenDates) {
  EXPECT_EQ(GetDaysBetweenDates(TDate{1, 1, 2024}, TDate{1, 3, 2024}), 60);
  EXPECT_EQ(GetDaysBetweenDates(TDate{1, 1, 2023}, TDate{1, 1, 2024}), 365);
  EXPECT_EQ(GetDaysBetweenDates(TDate{1, 1, 2024}, TDate{1, 1, 2024}), 0);
}

TEST(DateTest, DaysBetweenDatesIsSymmetric) {
  const TDate a{15, 3, 2024};
  const TDate b{2, 11, 2025};
  EXPECT_EQ(GetDaysBetweenDates(a, b), GetDaysBetweenDates(b, a));
  EXPECT_EQ(GetDaysBetweenDates(20240315, 20251102), GetDaysBetweenDates(20251102, 20240315));
  EXPECT_EQ(GetDaysBetweenDates(20240315, 20251102), 597);
}

TEST(DateTest, DaysBetweenUnconvertibleDatesIsZero) {
  EXPECT_EQ(GetDaysBetweenDates(20241399, 20240101), 0);
  EXPECT_EQ(GetDaysBetweenDates(20240101, 0), 0);
}

TEST(DateTest, Feb29InFirstLeapYearOnOrBeforeIt) {
  EXPECT_TRUE(IsFEB29BetweenDates(TDate{29, 2, 2024}, TDate{1, 3, 2025}));
  EXPECT_TRUE(IsFEB29BetweenDates(TDate{10, 1, 2024}, TDate{1, 3, 2025}));
  EXPECT_FALSE(IsFEB29BetweenDates(TDate{1, 3, 2024}, TDate{1, 3, 2025}));
}

TEST(DateTest, Feb29InLastLeapYearOnOrAfterIt) {
  EXPECT_TRUE(IsFEB29BetweenDates(TDate{1, 3, 2023}, TDate{29, 2, 2024}));
  EXPECT_FALSE(IsFEB29BetweenDates(TDate{1, 3, 2023}, TDate{28, 2, 2024}));
}

TEST(DateTest, Feb29InAYearStrictlyBetween) {
  EXPECT_TRUE(IsFEB29BetweenDates(TDate{1, 3, 2023}, TDate{1, 1, 2025}));
  EXPECT_FALSE(IsFEB29BetweenDates(TDate{1, 3, 2021}, TDate{1, 1, 2023}));
}

TEST(DateTest, IncDate) {
  EXPECT_EQ(IncDate(TDate{28, 2, 2024}, 1), (TDate{29, 2, 2024}));
  EXPECT_EQ(IncDate(TDate{31, 12, 2024}, 1), (TDate{1, 1, 2025}));
  EXPECT_EQ(IncDate(TDate{1, 3, 2023}, -1), (TDate{28, 2, 2023}));
}

TEST(DateTest, IncDateOfUnconvertibleDateLeavesIt) {
  EXPECT_EQ(IncDate(TDate{}, 5), TDate{});
  EXPECT_EQ(IncDate(TDate{1, 13, 2024}, 5), (TDate{1, 13, 2024}));
}

TEST(TimeTest, TimeCorrect) {
  EXPECT_TRUE(IsTimeCorrect(23, 59));
  EXPECT_TRUE(IsTimeCorrect(0, 0));
  EXPECT_FALSE(IsTimeCorrect(24, 0));
  EXPECT_FALSE(IsTimeCorrect(0, 60));
  EXPECT_FALSE(IsTimeCorrect(static_cast<unsigned>(-1), 0));  // a negative hour read as unsigned
}

TEST(TimeTest, InsideIntervalIncludesBounds) {
  const TTimeInterval i{{10, 0}, {12, 30}};
  EXPECT_TRUE(IsTimeInsideTimeInterval({10, 0}, i));
  EXPECT_TRUE(IsTimeInsideTimeInterval({12, 30}, i));
  EXPECT_TRUE(IsTimeInsideTimeInterval({11, 15}, i));
  EXPECT_FALSE(IsTimeInsideTimeInterval({9, 59}, i));
  EXPECT_FALSE(IsTimeInsideTimeInterval({12, 31}, i));
}

TEST(TimeTest, TextForms) {
  TTimeInterval i;
  ASSERT_TRUE(StrToTimeInterval("10:00-12:30", i));
  EXPECT_EQ(i, (TTimeInterval{{10, 0}, {12, 30}}));
  EXPECT_EQ(TimeIntervalToStr(i), "10:00-12:30");
  EXPECT_EQ(TimeIntervalToStr(TTimeInterval{{7, 5}, {9, 0}}), "07:05-09:00");
}

TEST(TimeTest, BadTextLeavesTheTarget) {
  TTimeInterval i{{1, 2}, {3, 4}};
  EXPECT_FALSE(StrToTimeInterval("10:00", i));
  EXPECT_FALSE(StrToTimeInterval("25:00-26:00", i));
  EXPECT_FALSE(StrToTimeInterval("10:00-12:3x", i));
  EXPECT_EQ(i, (TTimeInterval{{1, 2}, {3, 4}}));
  TTime t{5, 5};
  EXPECT_FALSE(StrToTime("1060", t));
  EXPECT_FALSE(StrToTime("10:60", t));
  EXPECT_EQ(t, (TTime{5, 5}));
}

TEST(TimeTest, StrToTm) {
  std::tm t{};
  ASSERT_TRUE(StrToTm("15.03.2024", t));
  EXPECT_EQ(t.tm_mday, 15);
  EXPECT_EQ(t.tm_mon, 2);
  EXPECT_EQ(t.tm_year, 124);
  EXPECT_FALSE(StrToTm("15.13.2024", t));
  EXPECT_FALSE(StrToTm("15-03-2024", t));
}

TEST(TermSplitTest, WithinANonLeapYear) {
  int a = -1, b = -1;
  ASSERT_TRUE(Get_T365_T366(30, a, b, true, TDate{1, 3, 2023}));
  EXPECT_EQ(a, 30);
  EXPECT_EQ(b, 0);
}

TEST(TermSplitTest, AcrossIntoALeapYear) {
  // 31 December 2023 counted: 1 day of 2023, the rest in 2024.
  int a = 0, b = 0;
  ASSERT_TRUE(Get_T365_T366(10, a, b, true, TDate{31, 12, 2023}));
  EXPECT_EQ(a, 1);
  EXPECT_EQ(b, 9);
}

TEST(TermSplitTest, WithoutTheFirstDayTheWindowStartsTomorrow) {
  int a = 0, b = 0;
  ASSERT_TRUE(Get_T365_T366(10, a, b, false, TDate{31, 12, 2023}));
  EXPECT_EQ(a, 0);
  EXPECT_EQ(b, 10);
}

TEST(TermSplitTest, LongTermsAlwaysAddUp) {
  for (int term : {1, 364, 365, 366, 730, 1095, 1461, 2000}) {
    for (bool first : {true, false}) {
      int a = 0, b = 0;
      ASSERT_TRUE(Get_T365_T366(term, a, b, first, TDate{15, 6, 2023}));
      EXPECT_EQ(a + b, term) << term;
    }
  }
  int a = 0, b = 0;
  ASSERT_TRUE(Get_T365_T366(730, a, b, true, TDate{1, 1, 2023}));
  EXPECT_EQ(a, 365);  // all of 2023
  EXPECT_EQ(b, 365);  // 2024 up to its 365th day
}

TEST(TermSplitTest, FromTodayAddsUp) {
  int a = 0, b = 0;
  ASSERT_TRUE(Get_T365_T366(400, a, b, true));
  EXPECT_EQ(a + b, 400);
}

TEST(TermSplitTest, UnconvertibleStartFailsWithZeros) {
  int a = 7, b = 7;
  EXPECT_FALSE(Get_T365_T366(10, a, b, true, TDate{}));
  EXPECT_EQ(a, 0);
  EXPECT_EQ(b, 0);
}

TEST(RepoTest, Basis1IsActOver365) {
  double f = 0;
  const double v = CalcSecondPartRepoValue(1000.0, TRepoParams{10.0, 73, 1}, f);
  EXPECT_DOUBLE_EQ(f, 1.02);
  EXPECT_DOUBLE_EQ(v, 1020.0);
}

TEST(RepoTest, Basis6IsActOver360) {
  double f = 0;
  const double v = CalcSecondPartRepoValue(1000.0, TRepoParams{12.0, 30, 6}, f);
  EXPECT_DOUBLE_EQ(f, 1.01);
  EXPECT_DOUBLE_EQ(v, 1010.0);
}

TEST(RepoTest, Basis4SplitsByYearLength) {
  double f = 0;
  // From 31.12.2023, counting the first day: 1 day at 365, 9 at 366.
  const double v = CalcSecondPartRepoValue(1000.0, TRepoParams{10.0, 10, 4}, f, TDate{31, 12, 2023});
  EXPECT_DOUBLE_EQ(f, 1.0 + 0.1 * (9 / 366.0 + 1 / 365.0));
  EXPECT_DOUBLE_EQ(v, 1000.0 * f);
}

TEST(RepoTest, Basis7SkipsTheFirstDay) {
  double f = 0;
  CalcSecondPartRepoValue(1000.0, TRepoParams{10.0, 10, 7}, f, TDate{31, 12, 2023});
  EXPECT_DOUBLE_EQ(f, 1.0 + 0.1 * (10 / 366.0));
}

TEST(RepoTest, FailedSplitCountsTheWholeTermAt365) {
  double f = 0;
  CalcSecondPartRepoValue(1000.0, TRepoParams{10.0, 73, 4}, f, TDate{});
  EXPECT_DOUBLE_EQ(f, 1.02);
  CalcSecondPartRepoValue(1000.0, TRepoParams{10.0, 73, 7}, f, TDate{});
  EXPECT_DOUBLE_EQ(f, 1.02);
}

TEST(RepoTest, UnknownBasisGivesZeroAndTheRate) {
  double f = 0;
  EXPECT_EQ(CalcSecondPartRepoValue(1000.0, TRepoParams{10.0, 73, 2}, f), 0.0);
  EXPECT_DOUBLE_EQ(f, 0.1);
}

}  // namespace
