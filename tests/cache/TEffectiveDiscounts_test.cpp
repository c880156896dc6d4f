// Discount lines, the discount formulas and the effective discounts built
// from one record.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "cache/TEffectiveDiscounts.h"
#include "cache/TSecurityDiscounts.h"

namespace {

using DL::TDiscountRequest;
using DL::TDiscountsEx;
using DL::TEffectiveDiscounts;
using DL::TSecurityDiscounts;
using DL::TSecurityDiscountsTable;

TEST(SecurityDiscountsTest, ItemsArePositionalAndSplitAtCommaOrBar) {
  const TSecurityDiscounts d = TSecurityDiscounts::Parse("1.5,2|0.2,0.3,0.1,0.2,USD,1,0");
  EXPECT_DOUBLE_EQ(d.KLong, 1.5);
  EXPECT_DOUBLE_EQ(d.KShort, 2.0);
  EXPECT_DOUBLE_EQ(d.DLong, 0.2);
  EXPECT_DOUBLE_EQ(d.DShort, 0.3);
  EXPECT_DOUBLE_EQ(d.DLongMin, 0.1);
  EXPECT_DOUBLE_EQ(d.DShortMin, 0.2);
  EXPECT_EQ(d.RCur, "USD");
  EXPECT_TRUE(d.flag1);
  EXPECT_FALSE(d.flag2);
}

TEST(SecurityDiscountsTest, ADLongOf1Point5HoldsMinusOne) {
  const TSecurityDiscounts d = TSecurityDiscounts::Parse("1,1,1.5,0.3");
  EXPECT_DOUBLE_EQ(d.DLong, -1.0);
  EXPECT_DOUBLE_EQ(d.DShort, 0.3);
}

TEST(SecurityDiscountsTest, EmptyAndUnreadableItemsLeaveMinusOne) {
  const TSecurityDiscounts d = TSecurityDiscounts::Parse(",abc,,-0.1");
  EXPECT_DOUBLE_EQ(d.KLong, -1.0);
  EXPECT_DOUBLE_EQ(d.KShort, -1.0);
  EXPECT_DOUBLE_EQ(d.DLong, -1.0);
  EXPECT_DOUBLE_EQ(d.DShort, -1.0);
  EXPECT_TRUE(d.IsEmpty());
}

TEST(SecurityDiscountsTableTest, AnEmptyLineIsDropped) {
  TSecurityDiscountsTable t;
  t.Add("SBER", ",,,");
  EXPECT_TRUE(t.Empty());
  EXPECT_EQ(t.Find("SBER"), nullptr);
}

TEST(SecurityDiscountsTableTest, ExactKeyThenTheLongestPrefixShortenedOneCharacterAtATime) {
  TSecurityDiscountsTable t;
  t.Add("GAZP", "1,1,0.1");
  t.Add("GA*", "1,1,0.2");
  t.Add("G*", "1,1,0.3");
  ASSERT_NE(t.Find("GAZP"), nullptr);
  EXPECT_DOUBLE_EQ(t.Find("GAZP")->DLong, 0.1);
  EXPECT_DOUBLE_EQ(t.Find("GAZ")->DLong, 0.2);
  EXPECT_DOUBLE_EQ(t.Find("GAZP*")->DLong, 0.2);  // its own star is removed first
  EXPECT_DOUBLE_EQ(t.Find("GMKN")->DLong, 0.3);
  EXPECT_EQ(t.Find("SBER"), nullptr);
  EXPECT_EQ(t.Find("GAZ", false), nullptr);  // no prefix search asked
}

TEST(SecurityDiscountsTableTest, ALoneStarOrALongKeyIsAnExactEntry) {
  TSecurityDiscountsTable t;
  t.Add("*", "1,1,0.5");
  t.Add("ABCDEFGHIJKLM*", "1,1,0.6");  // 14 characters: not a prefix entry
  EXPECT_EQ(t.Find("ABC"), nullptr);
  ASSERT_NE(t.Find("*"), nullptr);
  EXPECT_DOUBLE_EQ(t.Find("ABCDEFGHIJKLM*")->DLong, 0.6);
}

TEST(EffectiveDLongTest, OwnTakesTheLargerOfFormulaAndOwnDiscount) {
  // 1 - (1 - 0.2)^2 = 0.36
  EXPECT_NEAR(DL::GetEffectiveDLong(0.2, 0.5, 2.0, true), 0.5, 1e-12);
  EXPECT_NEAR(DL::GetEffectiveDLong(0.2, 0.3, 2.0, true), 0.36, 1e-12);
  // Without own: 1 - (1 - max(0.2, 0.3))^2 = 0.51
  EXPECT_NEAR(DL::GetEffectiveDLong(0.2, 0.3, 2.0, false), 0.51, 1e-12);
  EXPECT_DOUBLE_EQ(DL::GetEffectiveDLong(0.2, 1.7, 1.0, true), 1.0);  // never above 1
}

TEST(EffectiveDShortTest, FormulaAndTheForbiddenMark) {
  EXPECT_NEAR(DL::GetEffectiveDShort(0.2, 0.3, 2.0, false), 0.69, 1e-12);
  EXPECT_NEAR(DL::GetEffectiveDShort(0.2, 0.3, 2.0, true), 0.44, 1e-12);
  bool forbidden = false;
  // (1 + 9)^26 - 1 = 1e26: above 1e25, returned as 1e50.
  EXPECT_DOUBLE_EQ(DL::GetEffectiveDShort(9.0, 0.0, 26.0, false, &forbidden), 1e50);
  EXPECT_TRUE(forbidden);
  forbidden = false;
  DL::GetEffectiveDShort(9.0, 0.0, 24.0, false, &forbidden);
  EXPECT_FALSE(forbidden);
}

TEffectiveDiscounts Record(double dLong, double dShort, double k = 1.0) {
  TEffectiveDiscounts r;
  r.KLong = r.KShort = k;
  r.DLong = dLong;
  r.DShort = dShort;
  r.stockCoefLong = r.stockCoefShort = k;
  r.discountsSet = true;
  return r;
}

TEST(EffectiveDiscountsLongTest, PriceBelowZeroOrExactly100UsesTheLineAlone) {
  TDiscountRequest req;
  EXPECT_DOUBLE_EQ(DL::GetEffectiveDiscountsLong(Record(0.2, 0.3), req, false), 0.2);
  req.priceLong = 100.0;
  EXPECT_DOUBLE_EQ(DL::GetEffectiveDiscountsLong(Record(0.2, 0.3), req, false), 0.2);
  EXPECT_DOUBLE_EQ(DL::GetEffectiveDiscountsLong(Record(-1.0, 0.3), req, false), 1.0);  // unset
}

TEST(EffectiveDiscountsLongTest, AnyOtherPriceIsAPercentCappedAtOne) {
  TDiscountRequest req;
  req.priceLong = 30.0;
  EXPECT_NEAR(DL::GetEffectiveDiscountsLong(Record(0.2, 0.3), req, false), 0.3, 1e-12);
  req.priceLong = 150.0;
  EXPECT_DOUBLE_EQ(DL::GetEffectiveDiscountsLong(Record(0.2, 0.3), req, false), 1.0);
  req.uncapped = true;
  TEffectiveDiscounts noK = Record(0.2, 0.3);
  noK.KLong = -1.0;  // the formula needs both DLong and KLong
  EXPECT_DOUBLE_EQ(DL::GetEffectiveDiscountsLong(noK, req, false), 1.5);
}

TEST(EffectiveDiscountsLongTest, TheDiscountTradeAccountQuantityComesFirst) {
  TDiscountRequest req;
  req.discountTrdAcc = true;
  req.qtyLong = -1.0;
  EXPECT_DOUBLE_EQ(DL::GetEffectiveDiscountsLong(Record(0.2, 0.3), req, false), 1.0);
  req.qtyLong = 250.0;
  EXPECT_DOUBLE_EQ(DL::GetEffectiveDiscountsLong(Record(0.2, 0.3), req, false), 0.25);
  req.qtyLong = 5000.0;
  EXPECT_DOUBLE_EQ(DL::GetEffectiveDiscountsLong(Record(0.2, 0.3), req, false), 1.0);
  req.qtyLong = 0.0;  // says nothing: the settings
  EXPECT_DOUBLE_EQ(DL::GetEffectiveDiscountsLong(Record(0.2, 0.3), req, false), 0.2);
}

TEST(EffectiveDiscountsMinTest, MinimumsFollowTheStockCoefficientAndNeverExceedTheDiscount) {
  TDiscountsEx out;
  out.DLong = 0.36;
  out.DShort = 0.44;
  TEffectiveDiscounts r = Record(0.2, 0.3, 3.0);  // e = (1 + 3) / 2 = 2
  DL::GetEffectiveDiscountsLongMin(r, out);
  DL::GetEffectiveDiscountsShortMin(r, out);
  EXPECT_NEAR(out.DLongMin, 0.36, 1e-12);  // 1 - 0.64^2 = 0.5904, capped by DLong
  EXPECT_NEAR(out.DShortMin, 0.44, 1e-12);
  r.stockCoefLong = r.stockCoefShort = 0.0;  // e = 0.5
  DL::GetEffectiveDiscountsLongMin(r, out);
  DL::GetEffectiveDiscountsShortMin(r, out);
  EXPECT_NEAR(out.DLongMin, 0.2, 1e-12);  // 1 - 0.8 = 0.2 against the line's 0.2
  EXPECT_NEAR(out.DShortMin, std::sqrt(1.44) - 1.0, 1e-12);
  out.DLong = 1.0;
  DL::GetEffectiveDiscountsLongMin(r, out);
  EXPECT_DOUBLE_EQ(out.DLongMin, 1.0);
}

TEST(EffectiveDiscountsEx2Test, ANonMarginClientGetsMinimumsAndNoCurrency) {
  TDiscountRequest req;  // credit type 1
  TEffectiveDiscounts r = Record(0.2, 0.3);
  r.RCur = "USD";
  TDiscountsEx out;
  EXPECT_EQ(DL::GetEffectiveDiscountsEx2(r, req, false, out), 1);
  EXPECT_DOUBLE_EQ(out.DLong, 0.2);
  EXPECT_DOUBLE_EQ(out.DShort, 0.3);
  EXPECT_NEAR(out.DLongMin, 0.2, 1e-12);
  EXPECT_NEAR(out.DShortMin, 0.3, 1e-12);
  EXPECT_STREQ(out.RCur, "");
  EXPECT_FALSE(out.bC);
  EXPECT_FALSE(out.bS);
}

TEST(EffectiveDiscountsEx2Test, AMarginClientGetsTheMinimumMarksAndTheCurrency) {
  TDiscountRequest req;
  req.creditType = DL::kCreditTypeMarginByDiscounts;
  TEffectiveDiscounts r = Record(0.2, 0.3);
  r.RCur = "USDXX";
  TDiscountsEx out;
  DL::GetEffectiveDiscountsEx2(r, req, false, out);
  EXPECT_DOUBLE_EQ(out.DLongMin, 1.0);
  EXPECT_DOUBLE_EQ(out.DShortMin, 1e50);
  EXPECT_STREQ(out.RCur, "USDX");  // four characters and the terminator
}

TEST(EffectiveDiscountsEx2Test, MarginalTreatmentReplacesZeroDiscountsAndSetsTheFlags) {
  TDiscountRequest req;
  req.creditType = DL::kCreditTypeMarginByDiscounts;
  req.marginal = true;
  TDiscountsEx out;
  DL::GetEffectiveDiscountsEx2(Record(0.0, 0.0), req, false, out);
  EXPECT_DOUBLE_EQ(out.DLong, 1.0);
  EXPECT_DOUBLE_EQ(out.DShort, 1.0);
  EXPECT_TRUE(out.bC);
  EXPECT_TRUE(out.bS);
}

TEST(EffectiveDiscountsEx2Test, ADShortOf1e26InTheMarginalPathClearsBS) {
  TDiscountRequest req;
  req.creditType = DL::kCreditTypeMarginByDiscounts;
  req.marginalSigns = true;
  req.priceShort = 900.0;  // d = 9
  TEffectiveDiscounts r = Record(0.2, 0.0, 26.0);  // (1 + 9)^26 - 1 = 1e26
  TDiscountsEx out;
  DL::GetEffectiveDiscountsEx2(r, req, false, out);
  EXPECT_FALSE(out.bS);
  EXPECT_TRUE(out.bC);  // DLong is not 1.0
  EXPECT_DOUBLE_EQ(out.DShort, 1.0);
  EXPECT_DOUBLE_EQ(out.DLong, 0.2);
}

TEST(EffectiveDiscountsEx2Test, MarginalSignsWithDLongOneClearBCUnlessTheLineMarksIt) {
  TDiscountRequest req;
  req.creditType = DL::kCreditTypeMarginByDiscounts;
  req.marginalSigns = true;
  req.priceShort = 900.0;
  TEffectiveDiscounts r = Record(1.0, 0.0, 26.0);
  TDiscountsEx out;
  DL::GetEffectiveDiscountsEx2(r, req, false, out);
  EXPECT_FALSE(out.bC);
  r.lineFlag2 = true;
  DL::GetEffectiveDiscountsEx2(r, req, false, out);
  EXPECT_TRUE(out.bC);
}

TEST(EffectiveDiscountsEx2Test, ZeroCoefficientsInTheRequestCurrencyGiveZeroDiscounts) {
  TDiscountRequest req;
  req.creditType = DL::kCreditTypeMarginByDiscounts;
  req.marginalSigns = true;
  TEffectiveDiscounts r = Record(0.2, 0.3, 0.0);
  r.RCur = "USD";
  TDiscountsEx out;
  DL::GetEffectiveDiscountsEx2(r, req, true, out);
  EXPECT_DOUBLE_EQ(out.DLong, 0.0);
  EXPECT_DOUBLE_EQ(out.DShort, 0.0);
  EXPECT_TRUE(out.bC);
  EXPECT_TRUE(out.bS);
  DL::GetEffectiveDiscountsEx2(r, req, false, out);  // another currency
  EXPECT_DOUBLE_EQ(out.DLong, 0.2);
}

}  // namespace
