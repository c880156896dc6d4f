// Repo terms by counterparty, currencies and class.
#include "cache/TRestrictREPOWithCPBasedOnTermStorage.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using DL::TRestrictREPOWithCPBasedOnTermStorage;

constexpr const char* kKey = "CP_X_SettlementCurrency_USD_FaceValueCurrency_RUB_ClassList_EQRP";

TEST(RepoTermStorageTest, ParsesTheFourMarksAndTheTerm) {
  TRestrictREPOWithCPBasedOnTermStorage s;
  ASSERT_TRUE(s.ParseSettingString(kKey, "30"));
  const auto& [cp, cur, face, classes, term] = s.GetConstRestriction().at(0);
  EXPECT_EQ(cp, "X");
  EXPECT_EQ(cur, "USD");
  EXPECT_EQ(face, "RUB");
  EXPECT_EQ(classes, std::set<std::string>{"EQRP"});
  EXPECT_EQ(term, 30);
}

TEST(RepoTermStorageTest, AValueWithTrailingLettersIsDropped) {
  TRestrictREPOWithCPBasedOnTermStorage s;
  EXPECT_FALSE(s.ParseSettingString(kKey, "30d"));
  EXPECT_TRUE(s.GetConstRestriction().empty());
}

TEST(RepoTermStorageTest, AnEmptyOrOutOfRangeTermIsDropped) {
  TRestrictREPOWithCPBasedOnTermStorage s;
  EXPECT_FALSE(s.ParseSettingString(kKey, ""));
  EXPECT_FALSE(s.ParseSettingString(kKey, "40000"));
}

TEST(RepoTermStorageTest, AMissingFaceValueMarkDropsTheLine) {
  TRestrictREPOWithCPBasedOnTermStorage s;
  EXPECT_FALSE(s.ParseSettingString("CP_X_SettlementCurrency_USD_ClassList_EQRP", "30"));
}

TEST(RepoTermStorageTest, ATermAboveTheStoredOneIsRestrictedAndReportsIt) {
  TRestrictREPOWithCPBasedOnTermStorage s;
  ASSERT_TRUE(s.ParseSettingString(kKey, "30"));
  s.RebuildSettingsIndex();
  int found = -1;
  EXPECT_FALSE(s.CheckRestriction("X", "USD", "RUB", "EQRP", 30, &found));
  EXPECT_EQ(found, -1);
  EXPECT_TRUE(s.CheckRestriction("X", "USD", "RUB", "EQRP", 31, &found));
  EXPECT_EQ(found, 30);
}

TEST(RepoTermStorageTest, AllCounterpartyAndClassApply) {
  TRestrictREPOWithCPBasedOnTermStorage s;
  ASSERT_TRUE(s.ParseSettingString("CP_<ALL>_SettlementCurrency_USD_FaceValueCurrency_RUB_ClassList_<ALL>", "7"));
  s.RebuildSettingsIndex();
  int found = 0;
  EXPECT_TRUE(s.CheckRestriction("ANY", "USD", "RUB", "EQRP", 8, &found));
  EXPECT_EQ(found, 7);
  EXPECT_FALSE(s.CheckRestriction("ANY", "EUR", "RUB", "EQRP", 8, &found));
}

TEST(RepoTermStorageTest, AClassInNoRowAnswersFalse) {
  TRestrictREPOWithCPBasedOnTermStorage s;
  ASSERT_TRUE(s.ParseSettingString(kKey, "30"));
  s.RebuildSettingsIndex();
  int found = 0;
  EXPECT_FALSE(s.CheckRestriction("X", "USD", "RUB", "PSRP", 100, &found));
}

TEST(RepoTermStorageTest, TheSameKeyTwiceKeepsTwoRowsAndTheFirstWinsInTheIndex) {
  TRestrictREPOWithCPBasedOnTermStorage s;
  ASSERT_TRUE(s.ParseSettingString(kKey, "30"));
  ASSERT_TRUE(s.ParseSettingString(kKey, "10"));
  s.RebuildSettingsIndex();
  EXPECT_EQ(s.GetConstRestriction().size(), 2u);
  ASSERT_EQ(s.GetIndex().size(), 1u);
  EXPECT_EQ(s.GetIndex().begin()->second, 30);
  int found = 0;
  EXPECT_FALSE(s.CheckRestriction("X", "USD", "RUB", "EQRP", 20, &found));
}

TEST(RepoTermStorageTest, AnEmptyStorageAnswersFalse) {
  TRestrictREPOWithCPBasedOnTermStorage s;
  int found = 0;
  EXPECT_FALSE(s.CheckRestriction("X", "USD", "RUB", "EQRP", 100, &found));
}

TEST(RepoTermStorageTest, RendersLinesWithTheTermAsAnInteger) {
  TRestrictREPOWithCPBasedOnTermStorage s;
  ASSERT_TRUE(s.ParseSettingString(kKey, "30"));
  std::string soft, section;
  s.MakeSettingsString(soft, true);
  s.MakeSectionString(section);
  EXPECT_EQ(soft,
            "Soft_RestrictREPOWithCPBasedOnTerm_CP_X_SettlementCurrency_USD_FaceValueCurrency_RUB_ClassList_EQRP=30\n");
  EXPECT_EQ(section, "CP_X_SettlementCurrency_USD_FaceValueCurrency_RUB_ClassList_EQRP=30\n");
}

}  // namespace
