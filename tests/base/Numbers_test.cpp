#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace DL;

// ---- Comparison ----

TEST(CompareTest, EqualWithinDefaultTolerance) {
  EXPECT_TRUE(MIsEqual(1.0, 1.00000009));
  EXPECT_FALSE(MIsEqual(1.0, 1.0000002));
}

TEST(CompareTest, ToleranceBandIsStrict) {
  EXPECT_FALSE(MIsEqual(0.0, 0.5, 0.5));
  EXPECT_TRUE(MIsEqual(0.0, 0.49, 0.5));
  EXPECT_FALSE(MIsZero(-0.1, 0.1));
  EXPECT_TRUE(MIsZero(-0.09, 0.1));
}

TEST(CompareTest, GreaterNeedsMoreThanTolerance) {
  EXPECT_FALSE(MIsGT(1.0 + 5e-8, 1.0));
  EXPECT_TRUE(MIsGE(1.0 + 5e-8, 1.0));
  EXPECT_TRUE(MIsGT(1.0 + 2e-7, 1.0));
}

TEST(CompareTest, LessNeedsMoreThanTolerance) {
  EXPECT_FALSE(MIsLT(1.0 - 5e-8, 1.0));
  EXPECT_TRUE(MIsLE(1.0 - 5e-8, 1.0));
  EXPECT_TRUE(MIsLT(1.0 - 2e-7, 1.0));
  EXPECT_FALSE(MIsLE(1.0 + 2e-7, 1.0));
  EXPECT_FALSE(MIsGE(1.0 - 2e-7, 1.0));
}

TEST(CompareTest, ExplicitMoneyTolerance) {
  EXPECT_TRUE(MIsEqual(100.0, 100.09, 0.1));
  EXPECT_FALSE(MIsGT(100.09, 100.0, 0.1));
  EXPECT_TRUE(MIsGT(100.2, 100.0, 0.1));
  EXPECT_TRUE(MIsLT(99.8, 100.0, 0.1));
}

TEST(CompareTest, ZeroForms) {
  EXPECT_TRUE(MIsZero(5e-8));
  EXPECT_FALSE(MIsZero(2e-7));
  EXPECT_TRUE(MIsGEZero(-5e-8));
  EXPECT_FALSE(MIsGEZero(-2e-7));
  EXPECT_TRUE(MIsLEZero(5e-8));
  EXPECT_FALSE(MIsLEZero(2e-7));
  EXPECT_FALSE(MIsGTZero(5e-8));
  EXPECT_TRUE(MIsGTZero(2e-7));
  EXPECT_FALSE(MIsLTZero(-5e-8));
  EXPECT_TRUE(MIsLTZero(-2e-7));
  EXPECT_TRUE(MIsLTZero(-0.002, 0.001));
  EXPECT_FALSE(MIsLTZero(-0.0005, 0.001));
}

TEST(CompareTest, CorrectIfZero) {
  EXPECT_EQ(MCorrectIfZero(5e-8), 0.0);
  EXPECT_FALSE(std::signbit(MCorrectIfZero(-5e-8)));
  EXPECT_EQ(MCorrectIfZero(2e-7), 2e-7);
  EXPECT_EQ(MCorrectIfZero(0.05, 0.1), 0.0);
  double v = -3e-8;
  MCorrectIfZeroInPlace(v);
  EXPECT_EQ(v, 0.0);
  double w = 0.5;
  MCorrectIfZeroInPlace(w, 0.1);
  EXPECT_EQ(w, 0.5);
}

TEST(CompareTest, MaxAndMinReturnSecondOnTie) {
  EXPECT_EQ(Max(1.0, 2.0), 2.0);
  EXPECT_EQ(Max(3.0, 2.0), 3.0);
  EXPECT_EQ(Min(1.0, 2.0), 1.0);
  EXPECT_EQ(Min(3.0, 2.0), 2.0);
  EXPECT_EQ(Max(1.05, 1.0, 0.1), 1.0);
  EXPECT_EQ(Min(1.0, 1.05, 0.1), 1.05);
}

// ---- Rounding ----

TEST(RoundTest, HalfAwayFromZero) {
  EXPECT_EQ(MRound(2.5), 3.0);
  EXPECT_EQ(MRound(-2.5), -3.0);
  EXPECT_EQ(MRound(2.4), 2.0);
  EXPECT_EQ(MRound(-2.4), -2.0);
  EXPECT_EQ(MRound(2.49999995), 3.0);  // within the allowance of the half
}

TEST(RoundTest, RoundToDecimals) {
  EXPECT_DOUBLE_EQ(MRound(1.235, 2), 1.24);
  EXPECT_DOUBLE_EQ(MRound(-1.235, 2), -1.24);
  EXPECT_DOUBLE_EQ(MRound(1.234, 2), 1.23);
  EXPECT_EQ(MRound(2.5, 0), 3.0);
  EXPECT_DOUBLE_EQ(MRound(1250.0, -2), 1300.0);
}

TEST(RoundTest, TruncForgivesRepresentationError) {
  EXPECT_EQ(MTrunc(2.99999995), 3.0);
  EXPECT_EQ(MTrunc(2.9999), 2.0);
  EXPECT_EQ(MTrunc(-2.99999995), -3.0);
  EXPECT_EQ(MTrunc(-2.9999), -2.0);
}

TEST(RoundTest, TruncToMultiple) {
  EXPECT_DOUBLE_EQ(MTruncToMultiple(17.0, 5.0), 15.0);
  EXPECT_DOUBLE_EQ(MTruncToMultiple(-17.0, 5.0), -15.0);
  EXPECT_DOUBLE_EQ(MTruncToMultiple(0.3, 0.1), 0.3);
  EXPECT_DOUBLE_EQ(MTrunc(17.0, 5.0), 15.0);
  EXPECT_EQ(MTruncToMultiple(17.3, 0.0), 17.3);
}

TEST(RoundTest, RoundUpAwayFromZero) {
  EXPECT_EQ(MRoundUp(2.1), 3.0);
  EXPECT_EQ(MRoundUp(-2.1), -3.0);
  EXPECT_EQ(MRoundUp(2.0), 2.0);
  EXPECT_EQ(MRoundUp(2.00000005), 2.0);
  EXPECT_EQ(MRoundUp(2.05, 0.1), 2.0);
  EXPECT_EQ(MRoundUp(2.2, 0.1), 3.0);
}

TEST(RoundTest, RoundUpToDecimals) {
  EXPECT_DOUBLE_EQ(MRoundUp(1.231, 2), 1.24);
  EXPECT_DOUBLE_EQ(MRoundUp(-1.231, 2), -1.24);
  EXPECT_DOUBLE_EQ(MRoundUp(1.23, 2), 1.23);
}

TEST(RoundTest, RoundUpWithNoDecimalsUsesWideAllowance) {
  EXPECT_EQ(MRoundUp(2.05, 0), 2.0);  // 0.05 lies within the allowance of 0.1
  EXPECT_EQ(MRoundUp(2.05), 3.0);     // but not within 1e-7
  EXPECT_EQ(MRoundUp(2.2, 0), 3.0);
}

TEST(RoundTest, RoundDownTowardZero) {
  EXPECT_EQ(MRoundDown(2.9), 2.0);
  EXPECT_EQ(MRoundDown(-2.9), -2.0);
  EXPECT_EQ(MRoundDown(2.99999995), 3.0);
  EXPECT_DOUBLE_EQ(MRoundDown(1.239, 2), 1.23);
  EXPECT_DOUBLE_EQ(MRoundDown(-1.239, 2), -1.23);
  EXPECT_EQ(MRoundDown(2.9, 0), 2.0);
}

TEST(RoundTest, RoundDoubleDownCutsTowardZero) {
  EXPECT_DOUBLE_EQ(RoundDoubleDown(1.239, 2), 1.23);
  EXPECT_DOUBLE_EQ(RoundDoubleDown(-1.239, 2), -1.23);
  EXPECT_DOUBLE_EQ(RoundDoubleDown(1.2399999999, 2), 1.24);
  EXPECT_DOUBLE_EQ(RoundDoubleDown(1.2349, 2), 1.23);
  EXPECT_EQ(RoundDoubleDown(0.0, 2), 0.0);
}

TEST(RoundTest, RoundDoubleUpAwayFromZero) {
  EXPECT_DOUBLE_EQ(RoundDoubleUp(1.23, 2), 1.23);
  EXPECT_DOUBLE_EQ(RoundDoubleUp(1.231, 2), 1.24);
  EXPECT_DOUBLE_EQ(RoundDoubleUp(-1.231, 2), -1.24);
  EXPECT_EQ(RoundDoubleUp(0.0, 2), 0.0);
}

TEST(RoundTest, ValuesBeyondTwoToThe52ndStayUnrounded) {
  const double big = 4503599627370496.0 * 4;  // 2^54: spacing of 4
  EXPECT_EQ(MRound(big), big);
  EXPECT_EQ(MTrunc(-big), -big);
  EXPECT_EQ(RoundDoubleDown(big, 0), big);
  EXPECT_EQ(RoundDoubleUp(-big, 0), -big);
  // Just below the limit the value is still rounded.
  EXPECT_EQ(MRound(1e15 + 0.5), 1e15 + 1.0);
}

// ---- Powers and scaled numbers ----

TEST(ScaledTest, Pow10TableAndBeyond) {
  EXPECT_EQ(pow10(0), 1.0);
  EXPECT_EQ(pow10(1), 10.0);
  EXPECT_EQ(pow10(14), 1e14);
  EXPECT_EQ(pow10(15), 1e15);
  EXPECT_EQ(pow10(20), 1e20);
  EXPECT_DOUBLE_EQ(pow10(-2), 0.01);
}

TEST(ScaledTest, FromScaled) {
  EXPECT_DOUBLE_EQ(ConvertFromScaledPrice(12345, 2), 123.45);
  EXPECT_DOUBLE_EQ(ConvertFromScaledQty(123, 2), 1.23);
  EXPECT_DOUBLE_EQ(ConvertFromScaledQty(-5, 0), -5.0);
}

TEST(ScaledTest, ToScaledRoundsRepresentationErrorAway) {
  EXPECT_EQ(ConvertToScaledQty(1.23, 2), 123);
  EXPECT_EQ(ConvertToScaledQty(-1.23, 2), -123);
  EXPECT_EQ(ConvertToScaledQty(0.29, 2), 29);  // 0.29 * 100 is 28.999999999999996
  EXPECT_EQ(ConvertToScaledQty(1.239, 2), 123);
}

TEST(ScaledTest, ToScaledSaturates) {
  EXPECT_EQ(ConvertToScaledQty(1e300, 0), std::numeric_limits<int64_t>::max());
  EXPECT_EQ(ConvertToScaledQty(-1e300, 0), std::numeric_limits<int64_t>::min());
  EXPECT_EQ(ConvertToScaledQty(9.223372036854776e18, 0), std::numeric_limits<int64_t>::max());
}

TEST(ScaledTest, ScaledLeverage) {
  EXPECT_EQ(GetScaledLeverage(-1), -1);
  EXPECT_EQ(GetScaledLeverage(2.5), 250);
  EXPECT_EQ(GetScaledLeverage(1.006), 101);  // half a hundredth rounds up
  EXPECT_EQ(GetScaledLeverage(1.004), 100);
  EXPECT_EQ(GetScaledLeverage(0.0), 0);
  EXPECT_EQ(GetScaledLeverage(-0.001), -1);
  EXPECT_EQ(GetScaledLeverage(-0.0009), 0);
  EXPECT_EQ(GetScaledLeverage(999999999.0), 99999999900);
}

TEST(ScaledTest, LeverageFromString) {
  EXPECT_EQ(GetLeverageFromString("2.5"), 250);
  EXPECT_EQ(GetLeverageFromString("-1"), -1);
  EXPECT_EQ(GetLeverageFromString("abc"), -1);
  EXPECT_EQ(GetLeverageFromString(nullptr), -1);
}

}  // namespace
