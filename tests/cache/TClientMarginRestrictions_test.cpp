// The three-way rule of the margin settings and the limit-kind map.
#include "cache/TClientMarginRestrictions.h"

#include <gtest/gtest.h>

namespace {

using namespace DL;

TEST(MarginThreeWayTest, InheritTakesTheGlobalValueInTheFirstSectionAndTheBaseOtherwise) {
  EXPECT_EQ(ConvertIniValueToIntSetting(-2, 5, 7, true), 7);
  EXPECT_EQ(ConvertIniValueToIntSetting(-2, 5, 7, false), 5);
}

TEST(MarginThreeWayTest, DefaultStaysMinusOneInTheFirstSectionAndIsTheGlobalValueOtherwise) {
  EXPECT_EQ(ConvertIniValueToIntSetting(-1, 5, 7, true), -1);
  EXPECT_EQ(ConvertIniValueToIntSetting(-1, 5, 7, false), 7);
}

TEST(MarginThreeWayTest, AnyOtherValueStands) {
  EXPECT_EQ(ConvertIniValueToIntSetting(0, 5, 7, true), 0);
  EXPECT_EQ(ConvertIniValueToIntSetting(3, 5, 7, false), 3);
  EXPECT_EQ(ConvertIniValueToIntSetting(-3, 5, 7, false), -3);
}

TEST(MarginThreeWayTest, RealsCompareTheMarksWithTolerance) {
  EXPECT_DOUBLE_EQ(ConvertIniValueToDoubleSetting(-2.0, 1.5, 2.5, true), 2.5);
  EXPECT_DOUBLE_EQ(ConvertIniValueToDoubleSetting(-2.00000001, 1.5, 2.5, false), 1.5);
  EXPECT_DOUBLE_EQ(ConvertIniValueToDoubleSetting(-1.0, 1.5, 2.5, true), -1.0);
  EXPECT_DOUBLE_EQ(ConvertIniValueToDoubleSetting(-1.0, 1.5, 2.5, false), 2.5);
  EXPECT_DOUBLE_EQ(ConvertIniValueToDoubleSetting(-1.5, 1.5, 2.5, false), -1.5);
  EXPECT_DOUBLE_EQ(ConvertIniValueToDoubleSetting(0.25, 1.5, 2.5, true), 0.25);
}

TEST(MarginThreeWayTest, BooleanDefaultInTheFirstSectionIsTrue) {
  EXPECT_TRUE(ConvertIniValueToBoolSetting(-1, false, false, true));
  EXPECT_FALSE(ConvertIniValueToBoolSetting(-1, true, false, false));
  EXPECT_TRUE(ConvertIniValueToBoolSetting(-2, false, true, true));
  EXPECT_FALSE(ConvertIniValueToBoolSetting(-2, false, true, false));
  EXPECT_TRUE(ConvertIniValueToBoolSetting(4, false, false, true));
  EXPECT_FALSE(ConvertIniValueToBoolSetting(0, true, true, false));
}

TEST(MarginThreeWayTest, ShortFormsInheritOnlyOnMinusTwo) {
  EXPECT_EQ(InheritIntSettingFromBaseSection(-2, 9), 9);
  EXPECT_EQ(InheritIntSettingFromBaseSection(-1, 9), -1);
  EXPECT_EQ(InheritIntSettingFromBaseSection(4, 9), 4);
  EXPECT_TRUE(InheritBoolSettingFromBaseSection(-2, true));
  EXPECT_TRUE(InheritBoolSettingFromBaseSection(-1, false));
  EXPECT_FALSE(InheritBoolSettingFromBaseSection(0, true));
}

TEST(MarginThreeWayTest, NegativeMoneyToShortKeepsOneAndTwoOnly) {
  EXPECT_EQ(ConvertIniNegativeMoneyToShortToEnum(1), 1);
  EXPECT_EQ(ConvertIniNegativeMoneyToShortToEnum(2), 2);
  EXPECT_EQ(ConvertIniNegativeMoneyToShortToEnum(3), 0);
  EXPECT_EQ(ConvertIniNegativeMoneyToShortToEnum(-1), 0);
  EXPECT_EQ(ConvertIniNegativeMoneyToShortToEnum(0), 0);
}

TEST(TClientMarginRestrictionsTest, BodiesByLimitKindAndLimitKindZeroIsTheEffectiveStorage) {
  TClientMarginRestrictions object;
  EXPECT_TRUE(object.empty());
  EXPECT_EQ(object.find(0), object.end());
  EXPECT_EQ(object.Body(0), nullptr);
  object[0].securityParamsValid = true;
  object[3].grossLimit.value = 5.0;
  EXPECT_EQ(object.size(), 2u);
  ASSERT_NE(object.find(0), object.end());
  EXPECT_TRUE(object.find(0)->second.securityParamsValid);
  EXPECT_DOUBLE_EQ(object.Body(3)->grossLimit.value, 5.0);
  EXPECT_EQ(object.Body(2), nullptr);
}

TEST(TClientMarginRestrictionsTest, EqualityComparesEveryBody) {
  TClientMarginRestrictions a, b;
  a[0].rstrNMBuy.value = 1;
  b[0].rstrNMBuy.value = 1;
  EXPECT_EQ(a, b);
  b[0].classToLimitKind["TQBR"] = 2;
  EXPECT_FALSE(a == b);
  a[0].classToLimitKind["TQBR"] = 2;
  EXPECT_EQ(a, b);
  a[1];
  EXPECT_FALSE(a == b);
}

TEST(TClientMarginRestrictionsTest, CopiesCarryTheListsAndTheEffectiveData) {
  TClientMarginRestrictionsBody body;
  body.mainMarginClasses = {"TQBR", "SPBFUT"};
  body.mainMarginClassIDs = {4, 9};
  body.mainMarginClassIDsCount = 2;
  body.securityParamsValid = true;
  const TClientMarginRestrictionsBody copy(body);
  EXPECT_EQ(copy.mainMarginClasses, body.mainMarginClasses);
  EXPECT_EQ(copy.mainMarginClassIDs, body.mainMarginClassIDs);
  EXPECT_EQ(copy.mainMarginClassIDsCount, 2);
  EXPECT_TRUE(copy.securityParamsValid);
}

}  // namespace
