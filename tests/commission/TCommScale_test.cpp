#include "commission/TCommScale.h"

#include <gtest/gtest.h>

#include <iterator>

namespace DL {
namespace {

TEST(TCommScaleTest, ANewScaleIsEmpty) {
  TCommScale s;
  EXPECT_TRUE(s.IsEmpty());
  s.considerRepoTerm = true;
  EXPECT_FALSE(s.IsEmpty());
}

TEST(TCommScaleTest, LimitsAboveZeroAreStoredInHundredthsAndOthersKeepTheOldValue) {
  TCommScale s;
  s.minValue = 500.0;
  s.maxValue = 700.0;
  s.minVolume = 900.0;
  s.SetMinMaxTurnover({10.0, 0.0, -1.0});
  EXPECT_DOUBLE_EQ(s.minValue, 1000.0);
  EXPECT_DOUBLE_EQ(s.maxValue, 700.0);
  EXPECT_DOUBLE_EQ(s.minVolume, 900.0);
}

TEST(TCommScaleTest, RowsAreSortedByThresholdAndThresholdsWithinATenthAreOne) {
  TCommScale s;
  s.SetScaleRate(123.0, 9.0);  // replaced by SetScaleRates
  s.SetScaleRates({{1000.0, 0.5}, {500.0, 0.7}, {1000.0004, 0.4}});
  ASSERT_EQ(s.rates.size(), 2u);
  EXPECT_DOUBLE_EQ(s.rates.begin()->turnover, 50000.0);
  EXPECT_DOUBLE_EQ(s.rates.begin()->rate, 0.7);
  EXPECT_NEAR(std::next(s.rates.begin())->turnover, 100000.04, 1e-6);
  EXPECT_DOUBLE_EQ(std::next(s.rates.begin())->rate, 0.4);
}

TEST(TCommScaleTest, TheTextHasLimitsAboveZeroThenTheFlagThenTheRows) {
  TCommScale s;
  s.minValue = 1000.0;
  s.minVolume = 250.0;
  s.considerRepoTerm = true;
  s.SetScaleRate(100000.0, 0.5);
  s.SetScaleRate(50000.0, 0.7);
  std::string out;
  s.MakeSettingsString(out);
  EXPECT_EQ(out,
            "MinValue=10.0000000000\n"
            "MinVolume=2.5000000000\n"
            "ConsiderRepoTerm=1\n"
            "500.0000000000=0.7000000000\n"
            "1000.0000000000=0.5000000000\n");
}

TEST(TCommScaleTest, AnEmptyScaleWritesNothing) {
  std::string out;
  TCommScale().MakeSettingsString(out);
  EXPECT_EQ(out, "");
}

TEST(TCommScaleTest, MaxValueAndTradeCommissionAreWrittenWhenAboveZero) {
  TCommScale s;
  s.maxValue = 12345.0;
  s.tradeCommission = 1.0;
  std::string out;
  s.MakeSettingsString(out);
  EXPECT_EQ(out, "MaxValue=123.4500000000\nTradeCommission=0.0100000000\n");
}

}  // namespace
}  // namespace DL
