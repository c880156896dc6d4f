// Repo commission rates by class and for all other classes.
#include "commission/TRepoPerDayCommissionStorage.h"

#include <gtest/gtest.h>

namespace DL {
namespace {

TEST(TRepoPerDayCommissionStorageTest, ClassEntryIsFound) {
  TRepoPerDayCommissionStorage s;
  ASSERT_TRUE(s.ParseSettingString("RepoPerDayCommission_EQRP", "REPOFIXED,0.01,0"));
  TRepoCommRates r;
  ASSERT_TRUE(s.GetCommissionRates("EQRP", &r));
  EXPECT_EQ(r.CommType.value, rctRepoFixed);
  EXPECT_DOUBLE_EQ(r.Rate, 0.01);
  EXPECT_TRUE(s.GetCommissionRates("eqrp", &r));  // class codes ignore case
  EXPECT_TRUE(s.HasClass("EQRP"));
}

TEST(TRepoPerDayCommissionStorageTest, OtherClassesTakeTheCommonEntry) {
  TRepoPerDayCommissionStorage s;
  ASSERT_TRUE(s.ParseSettingString("REPOPERDAYCOMMISSION_<ALL>", "REPOTRADE,0,25"));
  ASSERT_TRUE(s.ParseSettingString("RepoPerDayCommission_EQRP", "REPOFIXED,0.01,0"));
  TRepoCommRates r;
  ASSERT_TRUE(s.GetCommissionRates("GCRP", &r));
  EXPECT_EQ(r.CommType.value, rctRepoTrade);
  EXPECT_DOUBLE_EQ(r.Amount, 25.0);
  EXPECT_FALSE(s.HasClass("GCRP"));
  ASSERT_TRUE(s.GetCommissionRates("EQRP", &r));
  EXPECT_EQ(r.CommType.value, rctRepoFixed);
}

TEST(TRepoPerDayCommissionStorageTest, NoClassEntryAndNoCommonGivesFalse) {
  TRepoPerDayCommissionStorage s;
  ASSERT_TRUE(s.ParseSettingString("RepoPerDayCommission_EQRP", "REPOFIXED,0.01,0"));
  TRepoCommRates r;
  r.Rate = 77.0;
  EXPECT_FALSE(s.GetCommissionRates("GCRP", &r));
  EXPECT_EQ(r.Rate, 77.0);
}

TEST(TRepoPerDayCommissionStorageTest, KeyWithoutPrefixOrClassIsRefused) {
  TRepoPerDayCommissionStorage s;
  EXPECT_FALSE(s.ParseSettingString("RepoScale_EQRP_1", "REPOFIXED,0.01,0"));
  EXPECT_FALSE(s.ParseSettingString("RepoPerDayCommission_", "REPOFIXED,0.01,0"));
  EXPECT_TRUE(s.GetByClass().empty());
}

TEST(TRepoPerDayCommissionStorageTest, ValueThatDoesNotReadIsRefused) {
  TRepoPerDayCommissionStorage s;
  EXPECT_FALSE(s.ParseSettingString("RepoPerDayCommission_EQRP", "0.01,0"));
  EXPECT_FALSE(s.ParseSettingString("RepoPerDayCommission_EQRP", "REPOFIXED,0.01"));
  EXPECT_FALSE(s.ParseSettingString("RepoPerDayCommission_EQRP", "REPOFIXED,,1"));
  EXPECT_FALSE(s.HasClass("EQRP"));
}

}  // namespace
}  // namespace DL

namespace DL {
namespace {

TEST(TRepoPerDayCommissionStorageTest, CommonEntryNotSetIsNotAnAnswer) {
  TRepoPerDayCommissionStorage s;
  s.SetRates("<ALL>", TRepoCommRates());
  TRepoCommRates r;
  EXPECT_FALSE(s.GetCommissionRates("EQRP", &r));
  TRepoCommRates set;
  set.CommType = rctRepoTradeMax;
  set.Rate = 0.2;
  set.Amount = 9.0;
  s.SetRates("<ALL>", set);
  ASSERT_TRUE(s.GetCommissionRates("EQRP", &r));
  EXPECT_EQ(r, set);
}

}  // namespace
}  // namespace DL
