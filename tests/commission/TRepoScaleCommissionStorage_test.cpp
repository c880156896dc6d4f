// Repo commission by a scale of terms.
#include "commission/TRepoScaleCommissionStorage.h"

#include <gtest/gtest.h>

namespace DL {
namespace {

class RepoScaleTest : public ::testing::Test {
 protected:
  void SetUp() override {
    // EQRP: 1 day 0.01, 7 days 0.02, 30 days 0.03 (per day).
    ASSERT_TRUE(s.ParseSettingString("RepoScale_EQRP_1", "REPOFIXED,0.01,0"));
    ASSERT_TRUE(s.ParseSettingString("RepoScale_EQRP_7", "REPOFIXED,0.02,0"));
    ASSERT_TRUE(s.ParseSettingString("RepoScale_EQRP_30", "REPOFIXED,0.03,0"));
  }
  double RateAt(const std::string& cls, short term) {
    TRepoCommRates r;
    EXPECT_TRUE(s.GetCommissionScaleRates(cls, term, &r));
    return r.Rate;
  }
  TRepoScaleCommissionStorage s;
};

TEST_F(RepoScaleTest, LongestTermAtMostTheGivenOne) {
  EXPECT_DOUBLE_EQ(RateAt("EQRP", 1), 0.01);
  EXPECT_DOUBLE_EQ(RateAt("EQRP", 6), 0.01);
  EXPECT_DOUBLE_EQ(RateAt("EQRP", 7), 0.02);
  EXPECT_DOUBLE_EQ(RateAt("EQRP", 29), 0.02);
  EXPECT_DOUBLE_EQ(RateAt("EQRP", 365), 0.03);
}

TEST_F(RepoScaleTest, TermBelowTheShortestStepGivesTheShortestStep) {
  EXPECT_DOUBLE_EQ(RateAt("EQRP", 0), 0.01);
  EXPECT_DOUBLE_EQ(RateAt("EQRP", -5), 0.01);
}

TEST_F(RepoScaleTest, OtherClassesUseTheCommonScale) {
  TRepoCommRates r;
  EXPECT_FALSE(s.GetCommissionScaleRates("GCRP", 7, &r));  // no common scale
  ASSERT_TRUE(s.ParseSettingString("REPOSCALE_<ALL>_10", "REPOTRADE,0,15"));
  ASSERT_TRUE(s.GetCommissionScaleRates("GCRP", 7, &r));
  EXPECT_EQ(r.CommType.value, rctRepoTrade);
  EXPECT_DOUBLE_EQ(r.Amount, 15.0);
  EXPECT_DOUBLE_EQ(RateAt("EQRP", 7), 0.02);  // a class with its own scale keeps it
}

TEST_F(RepoScaleTest, ClassCodeMayHoldAnUnderscore) {
  ASSERT_TRUE(s.ParseSettingString("RepoScale_EQRP_BND_14", "REPOTRADE_MAX,0.5,3"));
  TRepoCommRates r;
  ASSERT_TRUE(s.GetCommissionScaleRates("EQRP_BND", 20, &r));
  EXPECT_DOUBLE_EQ(r.Rate, 0.5);
  EXPECT_DOUBLE_EQ(r.Amount, 3.0);
  EXPECT_TRUE(s.HasClass("EQRP_BND"));
}

TEST_F(RepoScaleTest, KeysWithoutATermOrOutOfRangeAreRefused) {
  EXPECT_FALSE(s.ParseSettingString("RepoScale_GCRP", "REPOFIXED,0.01,0"));
  EXPECT_FALSE(s.ParseSettingString("RepoScale_GCRP_x", "REPOFIXED,0.01,0"));
  EXPECT_FALSE(s.ParseSettingString("RepoScale_GCRP_40000", "REPOFIXED,0.01,0"));
  EXPECT_FALSE(s.ParseSettingString("RepoScale__5", "REPOFIXED,0.01,0"));
  EXPECT_FALSE(s.ParseSettingString("RepoPerDayCommission_GCRP_5", "REPOFIXED,0.01,0"));
  EXPECT_FALSE(s.HasClass("GCRP"));
}

TEST_F(RepoScaleTest, ValueThatDoesNotReadIsRefused) {
  EXPECT_FALSE(s.ParseSettingString("RepoScale_GCRP_5", "REPOFIXED;0.01"));
  EXPECT_FALSE(s.HasClass("GCRP"));
}

TEST(RepoScaleEmptyTest, EmptyScaleGivesFalse) {
  TRepoScaleCommissionStorage s;
  TRepoCommRates r;
  EXPECT_FALSE(s.GetCommissionScaleRates("EQRP", 1, &r));
}

}  // namespace
}  // namespace DL

namespace DL {
namespace {

TEST_F(RepoScaleTest, StepFoundWithKindNotSetGivesFalse) {
  s.SetStep("EQRP", 14, TRepoCommRates());  // a step whose kind is not set
  TRepoCommRates r;
  r.Rate = 55.0;
  EXPECT_FALSE(s.GetCommissionScaleRates("EQRP", 20, &r));
  EXPECT_EQ(r.Rate, 55.0);
  EXPECT_DOUBLE_EQ(RateAt("EQRP", 10), 0.02);  // the steps below still answer
  EXPECT_DOUBLE_EQ(RateAt("EQRP", 30), 0.03);
}

}  // namespace
}  // namespace DL
