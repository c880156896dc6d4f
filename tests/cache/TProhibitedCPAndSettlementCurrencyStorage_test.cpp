// Prohibited counterparties by settlement currency and class: line parsing,
// the index of positions, the check with "<ALL>" and the rendering.
#include "cache/TProhibitedCPAndSettlementCurrencyStorage.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using DL::TProhibitedCPAndSettlementCurrencyStorage;

TEST(ProhibitedCPStorageTest, ParsesTheThreeMarksAndTheValueList) {
  TProhibitedCPAndSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("CP_MC001_SettlementCurrency_USD_ClassList_TQBR, EQOB", "S0, Y2"));
  ASSERT_EQ(s.GetConstRestriction().size(), 1u);
  const auto& [cp, cur, classes, items] = s.GetConstRestriction()[0];
  EXPECT_EQ(cp, "MC001");
  EXPECT_EQ(cur, "USD");
  EXPECT_EQ(classes, (std::set<std::string>{"EQOB", "TQBR"}));
  EXPECT_EQ(items, (std::set<std::string>{"S0", "Y2"}));
}

TEST(ProhibitedCPStorageTest, MarksAreFoundWithoutRegardToCase) {
  TProhibitedCPAndSettlementCurrencyStorage s;
  EXPECT_TRUE(s.ParseSettingString("cp_X_settlementcurrency_EUR_classlist_TQBR", "S0"));
}

TEST(ProhibitedCPStorageTest, AMissingMarkDropsTheLine) {
  TProhibitedCPAndSettlementCurrencyStorage s;
  EXPECT_FALSE(s.ParseSettingString("CP_X_ClassList_TQBR", "S0"));
  EXPECT_TRUE(s.GetConstRestriction().empty());
}

TEST(ProhibitedCPStorageTest, MarksOutOfOrderDropTheLine) {
  TProhibitedCPAndSettlementCurrencyStorage s;
  EXPECT_FALSE(s.ParseSettingString("CP_X_ClassList_TQBR_SettlementCurrency_USD", "S0"));
}

TEST(ProhibitedCPStorageTest, AnEmptyTextBetweenMarksDropsTheLine) {
  TProhibitedCPAndSettlementCurrencyStorage s;
  EXPECT_FALSE(s.ParseSettingString("CP_ _SettlementCurrency_USD_ClassList_TQBR", "S0"));
  EXPECT_FALSE(s.ParseSettingString("CP_X_SettlementCurrency_USD_ClassList_", "S0"));
}

TEST(ProhibitedCPStorageTest, AnEmptyValueDropsTheLine) {
  TProhibitedCPAndSettlementCurrencyStorage s;
  EXPECT_FALSE(s.ParseSettingString("CP_X_SettlementCurrency_USD_ClassList_TQBR", " "));
}

TEST(ProhibitedCPStorageTest, AnAllCounterpartyMatchesEveryCounterpartyOfAKnownClassAndCurrency) {
  TProhibitedCPAndSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("CP_<ALL>_SettlementCurrency_USD_ClassList_TQBR", "S0"));
  s.RebuildSettingsIndex();
  EXPECT_TRUE(s.CheckRestriction("ANY1", "USD", "TQBR", "S0"));
  EXPECT_TRUE(s.CheckRestriction("OTHER", "USD", "TQBR", "S0"));
  EXPECT_FALSE(s.CheckRestriction("ANY1", "EUR", "TQBR", "S0"));
  EXPECT_FALSE(s.CheckRestriction("ANY1", "USD", "TQBR", "Y2"));
}

TEST(ProhibitedCPStorageTest, AClassInNoRowWithoutAnAllClassAnswersFalse) {
  TProhibitedCPAndSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("CP_X_SettlementCurrency_USD_ClassList_TQBR", "S0"));
  s.RebuildSettingsIndex();
  EXPECT_TRUE(s.CheckRestriction("X", "USD", "TQBR", "S0"));
  EXPECT_FALSE(s.CheckRestriction("X", "USD", "EQOB", "S0"));
}

TEST(ProhibitedCPStorageTest, AllMayStandInEveryDimension) {
  TProhibitedCPAndSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("CP_<ALL>_SettlementCurrency_<ALL>_ClassList_<ALL>", "<ALL>"));
  s.RebuildSettingsIndex();
  EXPECT_TRUE(s.CheckRestriction("A", "B", "C", "D"));
}

TEST(ProhibitedCPStorageTest, AnEmptyStorageOrAnEmptyStringAnswersFalse) {
  TProhibitedCPAndSettlementCurrencyStorage s;
  s.RebuildSettingsIndex();
  EXPECT_FALSE(s.CheckRestriction("X", "USD", "TQBR", "S0"));
  ASSERT_TRUE(s.ParseSettingString("CP_<ALL>_SettlementCurrency_USD_ClassList_TQBR", "S0"));
  s.RebuildSettingsIndex();
  EXPECT_FALSE(s.CheckRestriction("", "USD", "TQBR", "S0"));
}

TEST(ProhibitedCPStorageTest, TheSameKeyTwiceKeepsTwoRowsAndBothFeedTheIndex) {
  TProhibitedCPAndSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("CP_X_SettlementCurrency_USD_ClassList_TQBR", "S0"));
  ASSERT_TRUE(s.ParseSettingString("CP_X_SettlementCurrency_USD_ClassList_TQBR", "S0,Y2"));
  s.RebuildSettingsIndex();
  EXPECT_EQ(s.GetConstRestriction().size(), 2u);
  EXPECT_EQ(s.GetIndex().size(), 2u);  // (X, USD, TQBR, S0) once, (X, USD, TQBR, Y2)
}

TEST(ProhibitedCPStorageTest, TheIndexHoldsPositionsInTheSortedDimensions) {
  TProhibitedCPAndSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("CP_B_SettlementCurrency_USD_ClassList_TQBR", "S0"));
  ASSERT_TRUE(s.ParseSettingString("CP_A_SettlementCurrency_EUR_ClassList_EQOB", "Y2"));
  s.RebuildSettingsIndex();
  const DL::TProhibitedCPIndex expected = {{1, 1, 1, 0}, {0, 0, 0, 1}};
  EXPECT_EQ(s.GetIndex(), expected);
}

TEST(ProhibitedCPStorageTest, SetRestrictionThenRebuildAnswersFromTheNewRows) {
  TProhibitedCPAndSettlementCurrencyStorage s;
  s.SetRestriction({{"X", "USD", {"TQBR"}, {"S0"}}});
  s.RebuildSettingsIndex();
  EXPECT_TRUE(s.CheckRestriction("X", "USD", "TQBR", "S0"));
}

TEST(ProhibitedCPStorageTest, RendersTemplateLinesSoftLinesAndSectionLines) {
  TProhibitedCPAndSettlementCurrencyStorage s;
  ASSERT_TRUE(s.ParseSettingString("CP_X_SettlementCurrency_USD_ClassList_TQBR,EQOB", "Y2,S0"));
  std::string hard, soft, section;
  s.MakeSettingsString(hard, false);
  s.MakeSettingsString(soft, true);
  s.MakeSectionString(section);
  EXPECT_EQ(hard, "ProhibitedCPAndSettlementCurrency_CP_X_SettlementCurrency_USD_ClassList_EQOB,TQBR=S0,Y2\n");
  EXPECT_EQ(soft, "Soft_ProhibitedCPAndSettlementCurrency_CP_X_SettlementCurrency_USD_ClassList_EQOB,TQBR=S0,Y2\n");
  EXPECT_EQ(section, "CP_X_SettlementCurrency_USD_ClassList_EQOB,TQBR=S0,Y2\n");
}

}  // namespace
