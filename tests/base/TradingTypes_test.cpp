#include "base/TradingTypes.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using namespace DL;

TEST(SideTest, CharsBAndSAreTheOnlySides) {
  EXPECT_EQ(CharToEnumSide('B'), sdBuy);
  EXPECT_EQ(CharToEnumSide('S'), sdSell);
  EXPECT_EQ(CharToEnumSide('b'), sdUndefined);
  EXPECT_EQ(CharToEnumSide('X'), sdUndefined);
}

TEST(SideTest, FromText) {
  EXPECT_EQ(StrToEnumSide(""), sdBoth);
  EXPECT_EQ(StrToEnumSide("B"), sdBuy);
  EXPECT_EQ(StrToEnumSide("S"), sdSell);
  EXPECT_EQ(StrToEnumSide("BS"), sdUndefined);
  EXPECT_EQ(StrToEnumSide("s"), sdUndefined);
  EXPECT_EQ(TSide("S").value, sdSell);
  EXPECT_EQ(TSide('B').value, sdBuy);
  EXPECT_EQ(TSide().value, sdBoth);
}

TEST(SideTest, ValuesAreFixed) {
  EXPECT_EQ(static_cast<int>(sdBoth), 0);
  EXPECT_EQ(static_cast<int>(sdBuy), 1);
  EXPECT_EQ(static_cast<int>(sdSell), 2);
  EXPECT_EQ(static_cast<int>(sdUndefined), 3);
}

TEST(SideTest, ToText) {
  EXPECT_STREQ(EnumSideToStr(sdBoth), "");
  EXPECT_STREQ(EnumSideToStr(sdBuy), "B");
  EXPECT_STREQ(EnumSideToStr(sdSell), "S");
  EXPECT_STREQ(EnumSideToStr(sdUndefined), "UNDEFINED");
  EXPECT_STREQ(TSide(sdSell).ToString(), "S");
}

TEST(CommTypeTest, FromText) {
  EXPECT_EQ(TCommType("FIXED").value, ctFixed);
  EXPECT_EQ(TCommType("TRADE_MAX").value, ctTradeMax);
  EXPECT_EQ(TCommType("TRADE_MIN").value, ctTradeMin);
  EXPECT_EQ(TCommType("").value, ctFixed);
  EXPECT_EQ(TCommType("fixed").value, ctUndefined);
  EXPECT_EQ(TCommType("OTHER").value, ctUndefined);
}

TEST(CommTypeTest, ToText) {
  EXPECT_STREQ(TCommType(ctFixed).ToString(), "FIXED");
  EXPECT_STREQ(TCommType(ctTradeMax).ToString(), "TRADE_MAX");
  EXPECT_STREQ(TCommType(ctTradeMin).ToString(), "TRADE_MIN");
  EXPECT_STREQ(TCommType(ctUndefined).ToString(), "undefined");
}

TEST(CommRateTest, ZeroByDefaultAndWithinTightTolerance) {
  EXPECT_TRUE(TExchCommRate().IsZero());
  EXPECT_TRUE(TExchCommRate(5e-8, 0, -5e-8).IsZero());
  EXPECT_FALSE(TExchCommRate(0, 0.001, 0).IsZero());
}

TEST(CommValueTest, ZeroWithinMoneyTolerance) {
  EXPECT_TRUE(TExchCommValue().IsZero());
  EXPECT_TRUE(TExchCommValue(0.05, -0.05, 0.09).IsZero());
  EXPECT_FALSE(TExchCommValue(0, 0, 0.1).IsZero());
}

TEST(DiscountsTest, NonMarginalConstant) {
  EXPECT_EQ(NM_Discs.DLong, 1.0);
  EXPECT_EQ(NM_Discs.DShort, 1e50);
  EXPECT_EQ(NM_Discs.DLongMin, 1.0);
  EXPECT_EQ(NM_Discs.DShortMin, 1e50);
  EXPECT_STREQ(NM_Discs.RCur, "");
  EXPECT_FALSE(NM_Discs.bC);
  EXPECT_FALSE(NM_Discs.bS);
}

TEST(DiscountsTest, CurrencyHoldsFourCharsAndZero) {
  TDiscountsEx d;
  EXPECT_EQ(sizeof d.RCur, 5u);
  std::strcpy(d.RCur, "USD1");
  EXPECT_STREQ(d.RCur, "USD1");
}

TEST(ConstantsTest, CodesAndLengths) {
  EXPECT_STREQ(DefaultMainCurrency, "SUR");
  EXPECT_STREQ(DefaultRublesEquivalents[0], "SUR");
  EXPECT_STREQ(DefaultRublesEquivalents[1], "RUR");
  EXPECT_STREQ(DefaultRublesEquivalents[2], "RUB");
  EXPECT_STREQ(AllMark, "<ALL>");
  EXPECT_STREQ(UndefinedText, "UNDEFINED");
  EXPECT_EQ(MaxClientCodeLength, 12u);
  EXPECT_EQ(MaxCurrCodeLength, 4u);
  EXPECT_EQ(MaxTagCodeLength, 4u);
}

}  // namespace
