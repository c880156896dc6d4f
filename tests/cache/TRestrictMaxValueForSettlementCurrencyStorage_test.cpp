// The largest order value by settlement currency, class and side.
#include "cache/TRestrictMaxValueForSettlementCurrencyStorage.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using DL::TRestrictMaxValueForSettlementCurrencyStorage;

TEST(MaxValueStorageTest, ParsesCurrencyClassesSideAndMaximum) {
  TRestrictMaxValueForSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("SettlementCurrency_USD_ClassList_TQBR,EQOB_Side_B", "1500.5"));
  const auto& [cur, classes, side, maximum] = s.GetConstRestriction().at(0);
  EXPECT_EQ(cur, "USD");
  EXPECT_EQ(classes, (std::set<std::string>{"EQOB", "TQBR"}));
  EXPECT_EQ(side, DL::sdBuy);
  EXPECT_DOUBLE_EQ(maximum, 1500.5);
}

TEST(MaxValueStorageTest, AnEmptySideIsBothSides) {
  TRestrictMaxValueForSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("SettlementCurrency_USD_ClassList_TQBR_Side_", "10"));
  EXPECT_EQ(std::get<2>(s.GetConstRestriction().at(0)), DL::sdBoth);
}

TEST(MaxValueStorageTest, AnUnknownSideDropsTheLine) {
  TRestrictMaxValueForSettlementCurrencyStorage s;
  EXPECT_FALSE(s.ParseSettingString("SettlementCurrency_USD_ClassList_TQBR_Side_X", "10"));
  EXPECT_TRUE(s.GetConstRestriction().empty());
}

TEST(MaxValueStorageTest, ANegativeMaximumDropsTheLine) {
  TRestrictMaxValueForSettlementCurrencyStorage s;
  EXPECT_FALSE(s.ParseSettingString("SettlementCurrency_USD_ClassList_TQBR_Side_S", "-1"));
}

TEST(MaxValueStorageTest, AMissingSideMarkDropsTheLine) {
  TRestrictMaxValueForSettlementCurrencyStorage s;
  EXPECT_FALSE(s.ParseSettingString("SettlementCurrency_USD_ClassList_TQBR", "10"));
}

TEST(MaxValueStorageTest, AValueAboveTheMaximumIsRestrictedAndReportsIt) {
  TRestrictMaxValueForSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("SettlementCurrency_USD_ClassList_<ALL>_Side_B", "100"));
  s.RebuildSettingsIndex();
  double limit = 0.0;
  EXPECT_FALSE(s.CheckRestriction("USD", "TQBR", DL::sdBuy, 100.0, &limit));
  EXPECT_TRUE(s.CheckRestriction("USD", "TQBR", DL::sdBuy, 100.5, &limit));
  EXPECT_DOUBLE_EQ(limit, 100.0);
  EXPECT_FALSE(s.CheckRestriction("USD", "TQBR", DL::sdSell, 500.0, &limit));
}

TEST(MaxValueStorageTest, ABothSidesRowAnswersForEitherSide) {
  TRestrictMaxValueForSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("SettlementCurrency_USD_ClassList_TQBR_Side_", "100"));
  s.RebuildSettingsIndex();
  double limit = 0.0;
  EXPECT_TRUE(s.CheckRestriction("USD", "TQBR", DL::sdSell, 200.0, &limit));
}

TEST(MaxValueStorageTest, TheCurrencyMustBeKnownAllDoesNotStandForIt) {
  TRestrictMaxValueForSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("SettlementCurrency_<ALL>_ClassList_TQBR_Side_B", "100"));
  s.RebuildSettingsIndex();
  double limit = 0.0;
  EXPECT_FALSE(s.CheckRestriction("USD", "TQBR", DL::sdBuy, 200.0, &limit));
}

TEST(MaxValueStorageTest, ANegativeValueOrANullResultAnswersFalse) {
  TRestrictMaxValueForSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("SettlementCurrency_USD_ClassList_TQBR_Side_B", "0"));
  s.RebuildSettingsIndex();
  double limit = 0.0;
  EXPECT_FALSE(s.CheckRestriction("USD", "TQBR", DL::sdBuy, -5.0, &limit));
  EXPECT_FALSE(s.CheckRestriction("USD", "TQBR", DL::sdBuy, 5.0, nullptr));
  EXPECT_TRUE(s.CheckRestriction("USD", "TQBR", DL::sdBuy, 5.0, &limit));
}

TEST(MaxValueStorageTest, AClassInNoRowAnswersFalse) {
  TRestrictMaxValueForSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("SettlementCurrency_USD_ClassList_TQBR_Side_B", "1"));
  s.RebuildSettingsIndex();
  double limit = 0.0;
  EXPECT_FALSE(s.CheckRestriction("USD", "EQOB", DL::sdBuy, 5.0, &limit));
}

TEST(MaxValueStorageTest, TheSameKeyTwiceTheFirstWinsInTheIndex) {
  TRestrictMaxValueForSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("SettlementCurrency_USD_ClassList_TQBR_Side_B", "100"));
  ASSERT_TRUE(s.ParseSettingString("SettlementCurrency_USD_ClassList_TQBR_Side_B", "50"));
  s.RebuildSettingsIndex();
  EXPECT_EQ(s.GetConstRestriction().size(), 2u);
  double limit = 0.0;
  EXPECT_FALSE(s.CheckRestriction("USD", "TQBR", DL::sdBuy, 70.0, &limit));
}

TEST(MaxValueStorageTest, RendersPositiveMaximaOnly) {
  TRestrictMaxValueForSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("SettlementCurrency_USD_ClassList_TQBR_Side_S", "1500.25"));
  ASSERT_TRUE(s.ParseSettingString("SettlementCurrency_EUR_ClassList_TQBR_Side_", "0"));
  std::string hard, section;
  s.MakeSettingsString(hard, false);
  s.MakeSectionString(section);
  EXPECT_EQ(hard, "RestrictMaxValueForSettlementCurrency_SettlementCurrency_USD_ClassList_TQBR_Side_S=1500.25\n");
  EXPECT_EQ(section, "SettlementCurrency_USD_ClassList_TQBR_Side_S=1500.25\n");
}

}  // namespace
