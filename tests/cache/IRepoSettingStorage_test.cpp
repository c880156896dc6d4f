// The common helpers of the repo and settlement storages.
#include "cache/IRepoSettingStorage.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(RepoStorageHelpersTest, VectorElemIndexIsThePositionInTheSortedVector) {
  const std::vector<std::string> v = {"<ALL>", "EUR", "USD"};
  EXPECT_EQ(DL::GetVectorElemIndex(v, "USD"), 2);
  EXPECT_EQ(DL::GetVectorElemIndex(v, "<ALL>"), 0);
  EXPECT_EQ(DL::GetVectorElemIndex(v, "RUB"), -1);
  EXPECT_EQ(DL::GetVectorElemIndex({}, "RUB"), -1);
}

TEST(RepoStorageHelpersTest, OnlyValidIndexesAreAdded) {
  std::vector<long> list;
  DL::AddIndexToListIfValid(list, -1);
  DL::AddIndexToListIfValid(list, 0);
  DL::AddIndexToListIfValid(list, 3);
  EXPECT_EQ(list, (std::vector<long>{0, 3}));
}

TEST(RepoStorageHelpersTest, ADimensionSortsDropsRepeatsAndFindsAll) {
  DL::TRepoSettingDimension d;
  d.Add("USD");
  d.Add("<ALL>");
  d.Add("USD");
  d.Add("EUR");
  d.Finish();
  EXPECT_EQ(d.values, (std::vector<std::string>{"<ALL>", "EUR", "USD"}));
  EXPECT_EQ(d.allPos, 0);
  EXPECT_EQ(DL::ApplicablePositions(d, "USD"), (std::vector<long>{2, 0}));
  EXPECT_EQ(DL::ApplicablePositions(d, "USD", false), (std::vector<long>{2}));
  EXPECT_EQ(DL::ApplicablePositions(d, "RUB"), (std::vector<long>{0}));
  d.Clear();
  d.Finish();
  EXPECT_EQ(d.allPos, -1);
  EXPECT_TRUE(DL::ApplicablePositions(d, "USD").empty());
}

TEST(RepoStorageHelpersTest, KeyMarksAreCutInOrderAndTrimmed) {
  std::vector<std::string> texts;
  ASSERT_TRUE(DL::SplitKeyByMarks("cp_ A _SettlementCurrency_USD", {"CP_", "_SETTLEMENTCURRENCY_"}, texts));
  EXPECT_EQ(texts, (std::vector<std::string>{"A", "USD"}));
  EXPECT_FALSE(DL::SplitKeyByMarks("X_CP_A_SettlementCurrency_USD", {"CP_", "_SETTLEMENTCURRENCY_"}, texts));
  EXPECT_FALSE(DL::SplitKeyByMarks("CP_A_SettlementCurrency_", {"CP_", "_SETTLEMENTCURRENCY_"}, texts));
  EXPECT_TRUE(DL::SplitKeyByMarks("CP_A_SettlementCurrency_", {"CP_", "_SETTLEMENTCURRENCY_"}, texts, true));
  EXPECT_EQ(texts, (std::vector<std::string>{"A", ""}));
  EXPECT_FALSE(DL::SplitKeyByMarks("CP_A", {}, texts));
}

}  // namespace
