// Building, releasing and copying back the composite arrays of the settings API.
#include "api/ZDLArrays.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(ZDLCompositeArraysTest, NewCopiesEachElementWithItsStringsAndInnerLists) {
  ZDL_ArrayClassToLimitKind a;
  New_ZDL_ArrayClassToLimitKind(a, {{1, {"TQBR", "SPBFUT"}}, {2, {}}});
  ASSERT_EQ(a.count, 2u);
  EXPECT_EQ(a.items[0].intParam, 1);
  ASSERT_EQ(a.items[0].lsStrings.count, 2u);
  EXPECT_STREQ(a.items[0].lsStrings.items[0], "TQBR");
  EXPECT_STREQ(a.items[0].lsStrings.items[1], "SPBFUT");
  EXPECT_EQ(a.items[1].intParam, 2);
  // An empty inner list is a count of 0 without a block, as an empty
  // argument is a null array.
  EXPECT_EQ(a.items[1].lsStrings.count, 0u);
  EXPECT_EQ(a.items[1].lsStrings.items, nullptr);
  Free_ZDL_ArrayClassToLimitKind(a);
  EXPECT_EQ(a.count, 0u);
  EXPECT_EQ(a.items, nullptr);
}

TEST(ZDLCompositeArraysTest, AnEmptyVectorGivesCountZeroAndNoBlock) {
  ZDL_ArrayCurrencyWithDiscount a;
  New_ZDL_ArrayCurrencyWithDiscount(a, {});
  EXPECT_EQ(a.count, 0u);
  EXPECT_EQ(a.items, nullptr);
  Free_ZDL_ArrayCurrencyWithDiscount(a);
  EXPECT_EQ(a.items, nullptr);
}

TEST(ZDLCompositeArraysTest, ThreeLevelsTravelInBothDirections) {
  std::vector<TDL_ClassToSettleCodeToSec> in = {{"TQBR", {{"T0", {"SBER", "GAZP"}}, {"Y2", {}}}}, {"EQOB", {}}};
  ZDL_ClassToSettleCodeToSecList a;
  New_ZDL_ClassToSettleCodeToSecList(a, in);
  ASSERT_EQ(a.count, 2u);
  EXPECT_STREQ(a.items[0].strCode, "TQBR");
  ASSERT_EQ(a.items[0].lsSettleCodes.count, 2u);
  EXPECT_STREQ(a.items[0].lsSettleCodes.items[0].strCode, "T0");
  EXPECT_STREQ(a.items[0].lsSettleCodes.items[0].lsStrings.items[1], "GAZP");
  EXPECT_EQ(a.items[1].lsSettleCodes.count, 0u);
  std::vector<TDL_ClassToSettleCodeToSec> back = {{"stale", {}}};
  ZDL_ToRecords(a, back);
  ASSERT_EQ(back.size(), 2u);
  EXPECT_EQ(back[0].strCode, "TQBR");
  ASSERT_EQ(back[0].lsSettleCodes.size(), 2u);
  EXPECT_EQ(back[0].lsSettleCodes[0].lsStrings, (std::vector<std::string>{"SBER", "GAZP"}));
  EXPECT_TRUE(back[0].lsSettleCodes[1].lsStrings.empty());
  EXPECT_EQ(back[1].strCode, "EQOB");
  Free_ZDL_ClassToSettleCodeToSecList(a);
  EXPECT_EQ(a.items, nullptr);
}

TEST(ZDLCompositeArraysTest, ANullItemsBlockCopiesBackAsAnEmptyList) {
  ZDL_ArrayStringListToTag a{0, nullptr};
  std::vector<TDL_StringListToString> out = {{"old", {"x"}}};
  ZDL_ToRecords(a, out);
  EXPECT_TRUE(out.empty());
}

TEST(ZDLCompositeArraysTest, ANullStringCopiesBackAsEmpty) {
  ZDL_StringToString pair{nullptr, nullptr};
  ZDL_ArrayClientCodeToTrdAcc a{1, &pair};
  std::vector<TDL_StringsPair> out;
  ZDL_ToRecords(a, out);
  ASSERT_EQ(out.size(), 1u);
  EXPECT_EQ(out[0].str1, "");
  EXPECT_EQ(out[0].str2, "");
}

TEST(ZDLCompositeArraysTest, EveryElementKindKeepsItsFields) {
  ZDL_ArrayLimitKindToSettleCodeListToClassList k;
  New_ZDL_ArrayLimitKindToSettleCodeListToClassList(k, {{3, {"T0"}, {"TQBR", "TQTF"}}});
  EXPECT_EQ(k.items[0].intParam, 3);
  EXPECT_STREQ(k.items[0].lsSettleCodes.items[0], "T0");
  EXPECT_STREQ(k.items[0].lsClasses.items[1], "TQTF");
  Free_ZDL_ArrayLimitKindToSettleCodeListToClassList(k);

  ZDL_ArrayClassListForCurrency c;
  New_ZDL_ArrayClassListForCurrency(c, {{"USD", {"CETS"}}});
  EXPECT_STREQ(c.items[0].currency, "USD");
  EXPECT_STREQ(c.items[0].lsClasses.items[0], "CETS");
  Free_ZDL_ArrayClassListForCurrency(c);

  ZDL_ArrayCurrencyWithDiscount d;
  New_ZDL_ArrayCurrencyWithDiscount(d, {{"EUR", 0.25}});
  EXPECT_STREQ(d.items[0].str, "EUR");
  EXPECT_EQ(d.items[0].value, 0.25);
  Free_ZDL_ArrayCurrencyWithDiscount(d);

  ZDL_ArrayOfTwoStringsAndArrayStrings t;
  New_ZDL_ArrayOfTwoStringsAndArrayStrings(t, {{"TQBR", "T0", {"SBER"}}});
  EXPECT_STREQ(t.items[0].str1, "TQBR");
  EXPECT_STREQ(t.items[0].str2, "T0");
  EXPECT_STREQ(t.items[0].lsStrings.items[0], "SBER");
  Free_ZDL_ArrayOfTwoStringsAndArrayStrings(t);

  ZDL_DerivativesBaseAssetsList b;
  New_ZDL_DerivativesBaseAssetsList(b, {{"Si", {"SiH7", "SiM7"}}});
  EXPECT_STREQ(b.items[0].strCode, "Si");
  EXPECT_EQ(b.items[0].lsStrings.count, 2u);
  Free_ZDL_DerivativesBaseAssetsList(b);
}

}  // namespace
