// The restrictions object: its defaults, its equality and the rebuild of the
// seven storage indexes.
#include "cache/TRestrictions.h"

#include <gtest/gtest.h>

namespace {

using DL::TRestrictions;

TEST(RestrictionsTest, Defaults) {
  const TRestrictions r;
  EXPECT_DOUBLE_EQ(r.defaultDeviation, -1.0);
  EXPECT_EQ(r.basePeriod, 2);
  EXPECT_EQ(r.softBasePeriod, 2);
  EXPECT_TRUE(r.maxPositionLimit.empty());
  EXPECT_TRUE(r.prohibitedCP.Empty() && r.softProhibitedCP.Empty() && r.repoTerm.Empty() &&
              r.softRepoTerm.Empty() && r.maxValue.Empty() && r.softMaxValue.Empty() && r.maxSettleDate.Empty());
  EXPECT_FALSE(r.qualifiedInvestors);
  const DL::TMaxPositionLimit limit;
  EXPECT_EQ(limit.longLimit, -1);
  EXPECT_EQ(limit.shortLimit, -1);
}

TEST(RestrictionsTest, EqualityFollowsTheRowsAndTheQuantities) {
  TRestrictions a, b;
  EXPECT_EQ(a, b);
  ASSERT_TRUE(a.softMaxValue.ParseSettingString("SettlementCurrency_USD_ClassList_TQBR_Side_B", "1"));
  EXPECT_NE(a, b);
  ASSERT_TRUE(b.softMaxValue.ParseSettingString("SettlementCurrency_USD_ClassList_TQBR_Side_B", "1"));
  EXPECT_EQ(a, b);
  DL::TQtyToClassListAndSecList q;
  q.Qty = 5;
  a.maxOrderQuantity.push_back(q);
  b.maxOrderQuantity.push_back(q);
  EXPECT_EQ(a, b);
  b.maxOrderQuantity[0].Securities.insert("SBER");
  EXPECT_NE(a, b);
}

TEST(RestrictionsTest, RebuildIndexesIndexesEveryStorage) {
  TRestrictions r;
  ASSERT_TRUE(r.prohibitedCP.ParseSettingString("CP_X_SettlementCurrency_USD_ClassList_TQBR", "S0"));
  ASSERT_TRUE(r.softRepoTerm.ParseSettingString(
      "CP_X_SettlementCurrency_USD_FaceValueCurrency_RUB_ClassList_EQRP", "1"));
  ASSERT_TRUE(r.maxSettleDate.ParseSettingString("ClassList_TQBR_AssetType_BOND_Side_B", "1"));
  EXPECT_TRUE(r.prohibitedCP.GetIndex().empty());
  r.RebuildIndexes();
  EXPECT_EQ(r.prohibitedCP.GetIndex().size(), 1u);
  EXPECT_EQ(r.softRepoTerm.GetIndex().size(), 1u);
  EXPECT_EQ(r.maxSettleDate.GetIndex().size(), 1u);
}

}  // namespace
