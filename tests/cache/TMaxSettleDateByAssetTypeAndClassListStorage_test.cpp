// The latest settle date by class, asset type and side, and the asset type words.
#include "cache/TMaxSettleDateByAssetTypeAndClassListStorage.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using DL::TMaxSettleDateByAssetTypeAndClassListStorage;

TEST(AssetTypeTest, WordsAndBack) {
  EXPECT_EQ(DL::AssetTypeToEnum("bond"), ZDL_atBond);
  EXPECT_EQ(DL::AssetTypeToEnum("SHARE"), ZDL_atShare);
  EXPECT_EQ(DL::AssetTypeToEnum("STOCKS"), ZDL_atUnknown);
  EXPECT_STREQ(DL::EnumToAssetType(ZDL_atFund), "FUND");
  EXPECT_STREQ(DL::EnumToAssetType(ZDL_atUnknown), "");
}

TEST(MaxSettleDateStorageTest, ParsesTheTemplateForm) {
  TMaxSettleDateByAssetTypeAndClassListStorage s;
  ASSERT_TRUE(s.ParseSettingString("MaxSettleDateByAssetType_ClassList_TQBR,TQOB_AssetType_Bond_Side_S", "30"));
  const auto& [classes, type, side, days] = s.GetConstRestriction().at(0);
  EXPECT_EQ(classes, (std::set<std::string>{"TQBR", "TQOB"}));
  EXPECT_EQ(type, ZDL_atBond);
  EXPECT_EQ(side, DL::sdSell);
  EXPECT_EQ(days, 30);
}

TEST(MaxSettleDateStorageTest, ParsesTheSectionFormWithoutTheParameter) {
  TMaxSettleDateByAssetTypeAndClassListStorage s;
  EXPECT_TRUE(s.ParseSettingString("ClassList_TQBR_AssetType_SHARE_Side_B", "5"));
  EXPECT_TRUE(s.ParseSettingString("_ClassList_TQBR_AssetType_SHARE_Side_S", "5"));
  EXPECT_EQ(s.GetConstRestriction().size(), 2u);
}

TEST(MaxSettleDateStorageTest, ZeroOrNegativeDaysDropTheLine) {
  TMaxSettleDateByAssetTypeAndClassListStorage s;
  EXPECT_FALSE(s.ParseSettingString("ClassList_TQBR_AssetType_SHARE_Side_B", "0"));
  EXPECT_FALSE(s.ParseSettingString("ClassList_TQBR_AssetType_SHARE_Side_B", "-3"));
  EXPECT_TRUE(s.GetConstRestriction().empty());
}

TEST(MaxSettleDateStorageTest, AnUnknownAssetTypeDropsTheLine) {
  TMaxSettleDateByAssetTypeAndClassListStorage s;
  EXPECT_FALSE(s.ParseSettingString("ClassList_TQBR_AssetType_STOCKS_Side_B", "3"));
}

TEST(MaxSettleDateStorageTest, TheSideIsOneKnownByte) {
  TMaxSettleDateByAssetTypeAndClassListStorage s;
  EXPECT_FALSE(s.ParseSettingString("ClassList_TQBR_AssetType_SHARE_Side_BS", "3"));
  EXPECT_FALSE(s.ParseSettingString("ClassList_TQBR_AssetType_SHARE_Side_X", "3"));
  EXPECT_FALSE(s.ParseSettingString("ClassList_TQBR_AssetType_SHARE_Side_", "3"));
}

TEST(MaxSettleDateStorageTest, AHitWritesBackTypeSideAndDays) {
  TMaxSettleDateByAssetTypeAndClassListStorage s;
  ASSERT_TRUE(s.ParseSettingString("ClassList_<ALL>_AssetType_BOND_Side_S", "30"));
  s.RebuildSettingsIndex();
  ZDL_AssetType type = ZDL_atBond;
  DL::ESide side = DL::sdBoth;
  std::int32_t days = 45;
  EXPECT_TRUE(s.CheckRestriction("TQOB", type, side, days));
  EXPECT_EQ(type, ZDL_atBond);
  EXPECT_EQ(side, DL::sdSell);
  EXPECT_EQ(days, 30);
}

TEST(MaxSettleDateStorageTest, DaysBelowTheStoredOnesAreNoHit) {
  TMaxSettleDateByAssetTypeAndClassListStorage s;
  ASSERT_TRUE(s.ParseSettingString("ClassList_TQBR_AssetType_BOND_Side_B", "30"));
  s.RebuildSettingsIndex();
  ZDL_AssetType type = ZDL_atBond;
  DL::ESide side = DL::sdBuy;
  std::int32_t days = 29;
  EXPECT_FALSE(s.CheckRestriction("TQBR", type, side, days));
  EXPECT_EQ(days, 29);
  days = 30;
  EXPECT_TRUE(s.CheckRestriction("TQBR", type, side, days));
}

TEST(MaxSettleDateStorageTest, UnknownTypeOrNegativeDaysAnswerFalseAtOnce) {
  TMaxSettleDateByAssetTypeAndClassListStorage s;
  ASSERT_TRUE(s.ParseSettingString("ClassList_TQBR_AssetType_BOND_Side_B", "1"));
  s.RebuildSettingsIndex();
  ZDL_AssetType type = ZDL_atUnknown;
  DL::ESide side = DL::sdBuy;
  std::int32_t days = 10;
  EXPECT_FALSE(s.CheckRestriction("TQBR", type, side, days));
  type = ZDL_atBond;
  days = -1;
  EXPECT_FALSE(s.CheckRestriction("TQBR", type, side, days));
}

TEST(MaxSettleDateStorageTest, AClassInNoRowAnswersFalse) {
  TMaxSettleDateByAssetTypeAndClassListStorage s;
  ASSERT_TRUE(s.ParseSettingString("ClassList_TQBR_AssetType_BOND_Side_B", "1"));
  s.RebuildSettingsIndex();
  ZDL_AssetType type = ZDL_atBond;
  DL::ESide side = DL::sdBuy;
  std::int32_t days = 10;
  EXPECT_FALSE(s.CheckRestriction("EQOB", type, side, days));
}

TEST(MaxSettleDateStorageTest, TheSameKeyTwiceTheFirstWinsInTheIndex) {
  TMaxSettleDateByAssetTypeAndClassListStorage s;
  ASSERT_TRUE(s.ParseSettingString("ClassList_TQBR_AssetType_BOND_Side_B", "30"));
  ASSERT_TRUE(s.ParseSettingString("ClassList_TQBR_AssetType_BOND_Side_B", "10"));
  s.RebuildSettingsIndex();
  EXPECT_EQ(s.GetConstRestriction().size(), 2u);
  ASSERT_EQ(s.GetIndex().size(), 1u);
  EXPECT_EQ(s.GetIndex().begin()->second, 30);
}

TEST(MaxSettleDateStorageTest, RendersBothForms) {
  TMaxSettleDateByAssetTypeAndClassListStorage s;
  ASSERT_TRUE(s.ParseSettingString("ClassList_TQOB,TQBR_AssetType_bond_Side_S", "30"));
  std::string templ, section;
  s.MakeSettingsString(templ);
  s.MakeSectionString(section);
  EXPECT_EQ(templ, "MaxSettleDateByAssetType_ClassList_TQBR,TQOB_AssetType_BOND_Side_S=30\n");
  EXPECT_EQ(section, "ClassList_TQBR,TQOB_AssetType_BOND_Side_S=30\n");
}

}  // namespace
