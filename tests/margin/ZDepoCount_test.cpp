#include "margin/ZDepoCount.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace {

// A quantity with an explicit scale, the way the trading core hands it over.
ZDepoCount Q(double value, short scale) {
  ZDepoCount q(value);
  q.SetQtyScale(scale);
  return q;
}

// Value and scale together: the scale tells which operand a selection chose.
void ExpectQty(const ZDepoCount& q, double value, short scale) {
  EXPECT_EQ(q.asDouble(), value);
  EXPECT_EQ(q.GetQtyScale(), scale);
}

// ---- Layout ----

TEST(ZDepoCountTest, IsTwoPlainFieldsWithoutVirtualTable) {
  EXPECT_FALSE(std::is_polymorphic_v<ZDepoCount>);
  EXPECT_TRUE(std::is_trivially_copyable_v<ZDepoCount>);
  EXPECT_EQ(sizeof(ZDepoCount), 16u);
}

// ---- Construction ----

TEST(ZDepoCountTest, DefaultIsZeroWithScaleZero) {
  ExpectQty(ZDepoCount(), 0.0, 0);
  ExpectQty(ZDepoCount_ZERO, 0.0, 0);
  ExpectQty(ZDepoCount_MINUS1, -1.0, 0);
}

TEST(ZDepoCountTest, ScaledFormDividesAndKeepsTheScale) {
  const ZDepoCount q(123L, 2);
  EXPECT_EQ(q.asDouble(), 1.23);
  EXPECT_EQ(q.GetQtyScale(), 2);
  EXPECT_EQ(q.asInt64(), 123);
  EXPECT_EQ(q.GetScaled(0), 1);
  EXPECT_EQ(q.GetScaled(4), 12300);
}

TEST(ZDepoCountTest, ScaledFormWithNegativeScaleMultiplies) {
  const ZDepoCount q(5L, -2);
  EXPECT_EQ(q.asDouble(), 500.0);
  EXPECT_EQ(q.asInt64(), 5);
}

TEST(ZDepoCountTest, ValueFormHasScaleZeroSoIntegerFormTruncates) {
  const ZDepoCount q(1.23);
  EXPECT_EQ(q.GetQtyScale(), 0);
  EXPECT_EQ(q.asInt64(), 1);
  EXPECT_EQ(ZDepoCount(-1.77).asInt64(), -1);
}

TEST(ZDepoCountTest, CopyCarriesValueAndScale) {
  const ZDepoCount a(4567L, 3);
  ZDepoCount b(1.0);
  b = a;
  ExpectQty(b, a.asDouble(), 3);
  const ZDepoCount c(a);
  ExpectQty(c, a.asDouble(), 3);
}

TEST(ZDepoCountTest, SetQtyScaleLeavesTheValue) {
  ZDepoCount q(2.5);
  q.SetQtyScale(6);
  ExpectQty(q, 2.5, 6);
  EXPECT_EQ(q.asInt64(), 2500000);
}

// ---- Integer form ----

TEST(ZDepoCountTest, IntegerFormForgivesRepresentationError) {
  EXPECT_EQ(ZDepoCount(2.9999999999).GetScaled(0), 3);
  EXPECT_EQ(ZDepoCount(-2.9999999999).GetScaled(0), -3);
  EXPECT_EQ(ZDepoCount(2.9999).GetScaled(0), 2);
  EXPECT_EQ(ZDepoCount(0.29).GetScaled(2), 29);  // 28.999999999999996 before truncation
}

TEST(ZDepoCountTest, IntegerFormSaturatesInsteadOfOverflowing) {
  EXPECT_EQ(ZDepoCount(1e300).GetScaled(0), std::numeric_limits<int64_t>::max());
  EXPECT_EQ(ZDepoCount(-1e300).GetScaled(0), std::numeric_limits<int64_t>::min());
  EXPECT_EQ(ZDepoCount(1e300).asInt64(), std::numeric_limits<int64_t>::max());
  EXPECT_EQ(ZDepoCount(1e15).GetScaled(6), std::numeric_limits<int64_t>::max());
}

TEST(ZDepoCountTest, IntegerFormAtTheLimitItself) {
  const double twoTo63 = 9223372036854775808.0;
  EXPECT_EQ(ZDepoCount(twoTo63).GetScaled(0), std::numeric_limits<int64_t>::max());
  EXPECT_EQ(ZDepoCount(-twoTo63).GetScaled(0), std::numeric_limits<int64_t>::min());
  // The largest double below 2^63 still converts exactly.
  const double below = std::nextafter(twoTo63, 0.0);
  EXPECT_EQ(ZDepoCount(below).GetScaled(0), static_cast<int64_t>(below));
}

TEST(ZDepoCountTest, IntegerFormOfNotANumberIsZero) {
  EXPECT_EQ(ZDepoCount(std::numeric_limits<double>::quiet_NaN()).GetScaled(2), 0);
}

// ---- Arithmetic ----

TEST(ZDepoCountTest, UnaryMinusDropsTheScale) { ExpectQty(-Q(1.25, 2), -1.25, 0); }

TEST(ZDepoCountTest, BinaryOperatorsKeepTheLeftScale) {
  const ZDepoCount a = Q(3.5, 2);
  const ZDepoCount b = Q(1.25, 4);
  ExpectQty(a - b, 2.25, 2);
  ExpectQty(a + b, 4.75, 2);
  ExpectQty(a * b, 4.375, 2);
  ExpectQty(b - a, -2.25, 4);
}

TEST(ZDepoCountTest, CompoundOperatorsKeepTheirOwnScale) {
  ZDepoCount a = Q(3.5, 2);
  a += Q(1.0, 5);
  ExpectQty(a, 4.5, 2);
  a -= Q(0.5, 5);
  ExpectQty(a, 4.0, 2);
  a *= ZDepoCount(2.5);
  ExpectQty(a, 10.0, 2);
}

// ---- Comparison ----

TEST(ZDepoCountTest, ValuesWithinTheBandAreEqual) {
  const ZDepoCount a(1.0);
  const ZDepoCount b(1.0 + 5e-10);
  EXPECT_TRUE(a == b);
  EXPECT_FALSE(a != b);
  EXPECT_FALSE(a < b);
  EXPECT_FALSE(b > a);
  EXPECT_TRUE(a <= b);
  EXPECT_TRUE(b <= a);
  EXPECT_TRUE(a >= b);
  EXPECT_TRUE(b >= a);
}

TEST(ZDepoCountTest, ValuesOutsideTheBandAreOrdered) {
  const ZDepoCount a(1.0);
  const ZDepoCount b(1.0 + 2e-9);
  EXPECT_FALSE(a == b);
  EXPECT_TRUE(a != b);
  EXPECT_TRUE(a < b);
  EXPECT_FALSE(b < a);
  EXPECT_TRUE(b > a);
  EXPECT_FALSE(a > b);
  EXPECT_TRUE(a <= b);
  EXPECT_FALSE(b <= a);
  EXPECT_TRUE(b >= a);
  EXPECT_FALSE(a >= b);
}

TEST(ZDepoCountTest, ComparisonIgnoresTheScale) {
  EXPECT_TRUE(Q(1.5, 0) == Q(1.5, 7));
  EXPECT_TRUE(ZDepoCount(150L, 2) == ZDepoCount(1.5));
}

TEST(ZDepoCountTest, PlainNumbersCompareOnEitherSide) {
  EXPECT_TRUE(ZDepoCount(1.0) == 1.0 + 5e-10);
  EXPECT_TRUE(0.0 < ZDepoCount(1.0));
  EXPECT_FALSE(1e-10 < ZDepoCount(0.0));
  EXPECT_TRUE(2.0 >= ZDepoCount(2.0 + 5e-10));
}

TEST(ZDepoCountTest, ToleranceIsTighterThanTheFreeHelpers) {
  // 5e-8 apart: equal for MIsEqual (1e-7), different for a quantity.
  EXPECT_TRUE(ZDepoCount(1.0) < ZDepoCount(1.0 + 5e-8));
}

TEST(ZDepoCountTest, ZeroBandIsStrict) {
  EXPECT_TRUE(ZDepoCount(-1e-9).isLTZero());
  EXPECT_FALSE(ZDepoCount(-1e-9).isZero());
  EXPECT_TRUE(ZDepoCount(-0.9e-9).isZero());
  EXPECT_FALSE(ZDepoCount(-0.9e-9).isLTZero());
  EXPECT_TRUE(ZDepoCount(1e-9).isGTZero());
  EXPECT_TRUE(ZDepoCount(0.9e-9).isZero());
}

TEST(ZDepoCountTest, SignPredicates) {
  const ZDepoCount neg(-2.0), pos(2.0), tinyNeg(-5e-10), zero;
  EXPECT_TRUE(neg.isLTZero());
  EXPECT_FALSE(neg.isGTZero());
  EXPECT_TRUE(neg.isLEZero());
  EXPECT_FALSE(neg.isGEZero());
  EXPECT_TRUE(pos.isGTZero());
  EXPECT_FALSE(pos.isLTZero());
  EXPECT_TRUE(pos.isGEZero());
  EXPECT_FALSE(pos.isLEZero());
  for (const ZDepoCount& z : {tinyNeg, zero}) {
    EXPECT_TRUE(z.isZero());
    EXPECT_FALSE(z.isLTZero());
    EXPECT_FALSE(z.isGTZero());
    EXPECT_TRUE(z.isLEZero());
    EXPECT_TRUE(z.isGEZero());
  }
}

// ---- Selection ----

TEST(ZDepoCountTest, AbsOfNegativeIsNegatedWithScaleZero) {
  ExpectQty(ZDepoCount::Abs(Q(-5.0, 3)), 5.0, 0);
  ExpectQty(Q(-5.0, 3).Abs(), 5.0, 0);
}

TEST(ZDepoCountTest, AbsOfPositiveKeepsItsScale) {
  ExpectQty(ZDepoCount::Abs(Q(5.0, 3)), 5.0, 3);
  ExpectQty(Q(5.0, 3).Abs(), 5.0, 3);
}

TEST(ZDepoCountTest, AbsOfTinyNegativeStaysNegative) { ExpectQty(ZDepoCount::Abs(Q(-5e-10, 3)), -5e-10, 3); }

TEST(ZDepoCountTest, PositivePassesTinyNegativeThrough) {
  ExpectQty(ZDepoCount::Positive(Q(-5e-10, 2)), -5e-10, 2);
  ExpectQty(Q(-5e-10, 2).Positive(), -5e-10, 2);
  ExpectQty(ZDepoCount::Positive(Q(-5.0, 2)), 0.0, 0);
  ExpectQty(ZDepoCount::Positive(Q(5.0, 2)), 5.0, 2);
}

TEST(ZDepoCountTest, NegativeDropsTinyNegative) {
  ExpectQty(ZDepoCount::Negative(Q(-5e-10, 2)), 0.0, 0);
  ExpectQty(Q(-5e-10, 2).Negative(), 0.0, 0);
  ExpectQty(ZDepoCount::Negative(Q(-5.0, 2)), -5.0, 2);
  ExpectQty(ZDepoCount::Negative(Q(5.0, 2)), 0.0, 0);
}

TEST(ZDepoCountTest, MaxKeepsTheFirstOnATieMinTheSecond) {
  const ZDepoCount x = Q(1.0, 1);
  const ZDepoCount y = Q(1.0 + 5e-10, 2);
  ExpectQty(ZDepoCount::Max(x, y), 1.0, 1);
  ExpectQty(ZDepoCount::Min(x, y), 1.0 + 5e-10, 2);
  ExpectQty(ZDepoCount::Max(y, x), 1.0 + 5e-10, 2);
  ExpectQty(ZDepoCount::Min(y, x), 1.0, 1);
}

TEST(ZDepoCountTest, MaxAndMinOutsideTheBand) {
  const ZDepoCount lo = Q(1.0, 1);
  const ZDepoCount hi = Q(2.0, 2);
  ExpectQty(ZDepoCount::Max(lo, hi), 2.0, 2);
  ExpectQty(ZDepoCount::Max(hi, lo), 2.0, 2);
  ExpectQty(ZDepoCount::Min(lo, hi), 1.0, 1);
  ExpectQty(ZDepoCount::Min(hi, lo), 1.0, 1);
}

TEST(ZDepoCountTest, MaxOfThreeAndFourNestsPairs) {
  ExpectQty(ZDepoCount::Max(Q(1, 1), Q(3, 2), Q(2, 3)), 3.0, 2);
  ExpectQty(ZDepoCount::Max(Q(3, 1), Q(1, 2), Q(3 + 5e-10, 3)), 3.0, 1);
  ExpectQty(ZDepoCount::Max(Q(1, 1), Q(2, 2), Q(4, 3), Q(3, 4)), 4.0, 3);
  // Max(Max(a, b), Max(c, d)): the tie between the pair winners keeps the left one.
  ExpectQty(ZDepoCount::Max(Q(1, 1), Q(4, 2), Q(4 + 5e-10, 3), Q(0, 4)), 4.0, 2);
}

// ---- Rounding ----

TEST(ZDepoCountTest, TruncCutsTowardZeroForgivingRepresentationError) {
  ExpectQty(ZDepoCount::Trunc(1.2399999999, 2), 1.24, 0);
  ExpectQty(ZDepoCount::Trunc(1.2349, 2), 1.23, 0);
  ExpectQty(ZDepoCount::Trunc(-1.239, 2), -1.23, 0);
}

TEST(ZDepoCountTest, RoundUpGoesAwayFromZeroAndKeepsExactMultiples) {
  ExpectQty(ZDepoCount::RoundUp(1.23, 2), 1.23, 0);
  ExpectQty(ZDepoCount::RoundUp(1.231, 2), 1.24, 0);
  ExpectQty(ZDepoCount::RoundUp(-1.231, 2), -1.24, 0);
  EXPECT_TRUE(ZDepoCount::RoundUp(0.0, 2).isZero());
  EXPECT_EQ(ZDepoCount::RoundUp(0.0, 2).asDouble(), 0.0);
}

}  // namespace
