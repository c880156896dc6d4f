#include "commission/TClientCommSettings.h"

#include <gtest/gtest.h>

namespace DL {
namespace {

TClientCommSettings Parsed(const TIniKeyMap& keys) {
  TClientCommSettings s;
  s.ParseClassRates(keys);
  return s;
}

TEST(TClientCommSettingsTest, AClassWithAFixedAndATradeRateTakesTheFixedRate) {
  TClientCommSettings s = Parsed({{"TQBR_FIXED", "1.5"}, {"TQBR_TRADE", "0.02"}});
  ASSERT_TRUE(s.ApplyClassRate("TQBR"));
  EXPECT_EQ(s.CommKind, CommKindFixed);
  EXPECT_DOUBLE_EQ(s.FixedRate, 1.5);
  EXPECT_TRUE(s.HasClassRate);
}

TEST(TClientCommSettingsTest, ATradeRateIsHeldTimes100) {
  TClientCommSettings s = Parsed({{"tqbr_trade", "0.02"}});
  ASSERT_TRUE(s.ApplyClassRate("TQBR"));
  EXPECT_EQ(s.CommKind, CommKindTrade);
  EXPECT_DOUBLE_EQ(s.TradeRate, 2.0);
}

TEST(TClientCommSettingsTest, TradeMaxGivesTheRateTimes100AndTheMaximumAsWritten) {
  TClientCommSettings s = Parsed({{"TQBR_TRADE_MAX", "0.03,100"}});
  ASSERT_TRUE(s.ApplyClassRate("tqbr"));
  EXPECT_EQ(s.CommKind, CommKindTradeMax);
  EXPECT_DOUBLE_EQ(s.TradeRate, 3.0);
  EXPECT_DOUBLE_EQ(s.FixedRate, 100.0);
}

TEST(TClientCommSettingsTest, TradeMaxWithOneValueIsDroppedAndTheWalkGoesOn) {
  TClientCommSettings s = Parsed({{"TQBR_TRADE_MAX", "0.03"}, {"TQOB_FIXED", "2"}});
  EXPECT_TRUE(s.tradeMaxRates.empty());
  EXPECT_FALSE(s.ApplyClassRate("TQBR"));
  ASSERT_TRUE(s.ApplyClassRate("TQOB"));
  EXPECT_DOUBLE_EQ(s.FixedRate, 2.0);
}

TEST(TClientCommSettingsTest, TwoRatesAreBothTimes100) {
  TClientCommSettings s = Parsed({{"TQBR_TRADE_MAX_1SEC", "0.01,0.5"}});
  ASSERT_TRUE(s.ApplyClassRate("TQBR"));
  EXPECT_EQ(s.CommKind, CommKindTwoRates);
  EXPECT_DOUBLE_EQ(s.TradeRate, 1.0);
  EXPECT_DOUBLE_EQ(s.SecRate, 50.0);
  EXPECT_TRUE(s.secRates.empty());  // not read as "_1SEC"
}

TEST(TClientCommSettingsTest, TwoRatesWithOneValueAreDropped) {
  TClientCommSettings s = Parsed({{"TQBR_TRADE_MAX_1SEC", "0.01"}});
  EXPECT_TRUE(s.twoRates.empty());
  EXPECT_FALSE(s.HasClassRate);
}

TEST(TClientCommSettingsTest, PerLotAndPerSecurityRatesAreTimes100) {
  TClientCommSettings s = Parsed({{"SPBFUT_TRADELOT", "0.1"}, {"TQOB_1SEC", "0.2"}});
  ASSERT_TRUE(s.ApplyClassRate("SPBFUT"));
  EXPECT_EQ(s.CommKind, CommKindPerLot);
  EXPECT_DOUBLE_EQ(s.LotRate, 10.0);
  ASSERT_TRUE(s.ApplyClassRate("TQOB"));
  EXPECT_EQ(s.CommKind, CommKindPerSecurity);
  EXPECT_DOUBLE_EQ(s.SecRate, 20.0);
}

TEST(TClientCommSettingsTest, AClassLooksUpTradeMaxBeforePerSecurity) {
  TClientCommSettings s = Parsed({{"X_TRADE_MAX", "0.03,100"}, {"X_1SEC", "0.2"}});
  ASSERT_TRUE(s.ApplyClassRate("X"));
  EXPECT_EQ(s.CommKind, CommKindTradeMax);
}

TEST(TClientCommSettingsTest, TheDefaultKeyLooksUpTradeMaxBeforeFixed) {
  TClientCommSettings s = Parsed({{"DEFAULT_FIXED", "1"}, {"DEFAULT_TRADE_MAX", "0.05,10"}});
  ASSERT_TRUE(s.ApplyDefaultRate());
  EXPECT_EQ(s.CommKind, CommKindTradeMax);
  EXPECT_DOUBLE_EQ(s.TradeRate, 5.0);
  EXPECT_DOUBLE_EQ(s.FixedRate, 10.0);
  EXPECT_TRUE(s.UsedDefaultRate);
}

TEST(TClientCommSettingsTest, AnUnknownClassHasNoRate) {
  TClientCommSettings s = Parsed({{"TQBR_FIXED", "1"}});
  EXPECT_FALSE(s.ApplyClassRate("EQOB"));
  EXPECT_FALSE(s.ApplyDefaultRate());
  EXPECT_EQ(s.CommKind, CommKindFixed);
  EXPECT_DOUBLE_EQ(s.FixedRate, 0.5);
}

TEST(TClientCommSettingsTest, ASuffixWithoutAClassIsNoRate) {
  TClientCommSettings s = Parsed({{"_FIXED", "1"}});
  EXPECT_TRUE(s.fixedRates.empty());
  EXPECT_FALSE(s.HasClassRate);
}

TEST(TClientCommSettingsTest, RepoRowsAndRepoBrokerClassesMarkRepoClasses) {
  TClientCommSettings s = Parsed({{"RepoPerDayCommission_EQRP", "REPOFIXED,0.1,0"},
                                  {"RepoScale_GCRP_7", "REPOTRADE_MAX,0.2,5"},
                                  {"RepoBroker_PSRP", "1"},
                                  {"RepoBroker", "0.3"}});
  EXPECT_TRUE(s.IsRepoClass("EQRP"));
  EXPECT_TRUE(s.IsRepoClass("gcrp"));
  EXPECT_TRUE(s.IsRepoClass("PSRP"));
  EXPECT_FALSE(s.IsRepoClass("TQBR"));
  TRepoCommRates perDay;
  ASSERT_TRUE(s.RepoPerDay.GetCommissionRates("EQRP", &perDay));
  EXPECT_EQ(perDay.CommType.value, rctRepoFixed);
  EXPECT_DOUBLE_EQ(perDay.Rate, 0.1);
  TRepoCommRates scale;
  ASSERT_TRUE(s.RepoScale.GetCommissionScaleRates("GCRP", 7, &scale));
  EXPECT_EQ(scale.CommType.value, rctRepoTradeMax);
  EXPECT_DOUBLE_EQ(scale.Amount, 5.0);
  EXPECT_FALSE(s.HasClassRate);  // repo rows are no rate by class
}

TEST(TClientCommSettingsTest, RepoRowsThatDoNotReadMarkNoRepoClass) {
  TClientCommSettings s = Parsed({{"RepoPerDayCommission_EQRP", "0.1,0"}, {"RepoScale_GCRP", "REPOFIXED,0.2,5"}});
  EXPECT_FALSE(s.IsRepoClass("EQRP"));  // no kind
  EXPECT_FALSE(s.IsRepoClass("GCRP"));  // no term
}

}  // namespace
}  // namespace DL
