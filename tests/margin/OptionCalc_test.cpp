#include "margin/OptionCalc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace {

using namespace DL::MDPLUS;
using DL::TDiscountsEx;

TDiscountsEx Discounts(double dLong, double dShort) {
  TDiscountsEx d;
  d.DLong = dLong;
  d.DShort = dShort;
  return d;
}

TOptParams Option(TContractType type, double stock, double strike) {
  TOptParams o;
  o.OptCode = "SI100BC5";
  o.BaseCode = "SiZ5";
  o.ContractType = type;
  o.Stock = stock;
  o.Strike = strike;
  o.Ytm = 0.5;
  o.Div = 0.02;
  o.RiskFR = 0.08;
  o.Vlt = 0.3;
  o.VltUp = 0.25;
  o.VltDwn = 0.2;
  o.Lot = 1;
  return o;
}

// The normal distribution to full precision, as the reference of the approximation.
double ExactN(double x) { return 0.5 * std::erfc(-x / std::sqrt(2.0)); }

// d1 of the price, written out as the method defines it.
double D1(double stock, double strike, double ytm, double div, double riskFR, double vlt) {
  const double ratio = std::fabs(strike) < 1e-7 ? 1e-10 : std::max(stock / strike, 1e-10);
  const double s = std::sqrt(ytm) * vlt;
  return ((vlt * vlt * 0.5 + (riskFR - div)) * ytm + std::log(ratio)) / std::max(1e-10, std::fabs(s));
}

// ---- Contract types ----

TEST(OptionCalcTest, ContractTypesHaveTheirLogWords) {
  EXPECT_STREQ(ContractTypeToStr(ctSpot), "Spot");
  EXPECT_STREQ(ContractTypeToStr(ctFut), "Fut");
  EXPECT_STREQ(ContractTypeToStr(ctCall_P), "Call_P");
  EXPECT_STREQ(ContractTypeToStr(ctPut_P), "Put_P");
  EXPECT_STREQ(ContractTypeToStr(ctCall_M), "Call_M");
  EXPECT_STREQ(ContractTypeToStr(ctPut_M), "Put_M");
  EXPECT_EQ(static_cast<int>(ctPut_M), 5);
  EXPECT_EQ(sizeof(TContractType), 4u);
}

TEST(OptionCalcTest, UnknownContractTypeHasNoWord) {
  EXPECT_STREQ(ContractTypeToStr(static_cast<TContractType>(6)), "");
  EXPECT_STREQ(ContractTypeToStr(static_cast<TContractType>(-1)), "");
}

TEST(OptionCalcTest, OptionParamsDefaults) {
  const TOptParams o;
  EXPECT_EQ(o.ContractType, ctCall_P);
  EXPECT_EQ(o.DThr, 1.0);
  EXPECT_EQ(o.Lot, 0);
  EXPECT_EQ(o.Vlt, 0.0);
  EXPECT_FALSE(o.InRelRiskSubGroup);
  EXPECT_TRUE(o.RelRiskDeltas.empty());
}

// ---- Normal distribution ----

TEST(OptionCalcTest, NormalDistributionAtZeroIsOneHalf) { EXPECT_NEAR(CumulativeNormalDistr(0.0), 0.5, 1e-7); }

TEST(OptionCalcTest, NormalDistributionIsSymmetric) {
  for (double x : {1e-12, 0.1, 0.5, 1.0, 1.96, 3.0, 7.5, 40.0, 1e6}) {
    EXPECT_EQ(CumulativeNormalDistr(x) + CumulativeNormalDistr(-x), 1.0) << x;
  }
}

TEST(OptionCalcTest, NormalDistributionWithinTheApproximationError) {
  double worst = 0.0;
  for (double x = -10.0; x <= 10.0; x += 0.001) worst = std::max(worst, std::fabs(CumulativeNormalDistr(x) - ExactN(x)));
  EXPECT_LT(worst, 7.5e-8);
  EXPECT_GT(worst, 1e-9);  // it is the polynomial, not a library's exact function
}

TEST(OptionCalcTest, NormalDistributionTailIsThePolynomialsOwnLimit) {
  // Beyond |x| = 9 the polynomial itself rounds to exactly 1 (and 0): the
  // function gives the same bits as the full evaluation would.
  for (double x = 8.5; x < 40.0; x += 0.001) {
    const double t = 1.0 / (0.2316419 * x + 1.0);
    const double p =
        t * (0.31938153 + t * (-0.356563782 + t * (1.781477937 + t * (-1.821255978 + t * 1.330274429))));
    const double r = 1.0 - p * std::exp(-x * x * 0.5) * 0.3989422804014327;
    ASSERT_EQ(CumulativeNormalDistr(x), r) << x;
    ASSERT_EQ(CumulativeNormalDistr(-x), 1.0 - r) << x;
  }
}

TEST(OptionCalcTest, NormalDistributionTails) {
  EXPECT_EQ(CumulativeNormalDistr(50.0), 1.0);
  EXPECT_EQ(CumulativeNormalDistr(-50.0), 0.0);
  EXPECT_EQ(CumulativeNormalDistr(std::numeric_limits<double>::infinity()), 1.0);
  EXPECT_TRUE(std::isnan(CumulativeNormalDistr(std::numeric_limits<double>::quiet_NaN())));
}

// ---- Theoretical price ----

TEST(OptionCalcTest, PriceOfTheTextbookCall) {
  // S = K = 100, one year, r = 5 %, no dividend, 20 % volatility: 10.4506 (exact
  // 10.450583572185565); the approximation moves it by less than 7.5e-8 * 200.
  EXPECT_NEAR(OptionTheoreticalPrice(ctCall_P, 100, 100, 1, 0, 0.05, 0.2), 10.450583572185565, 1.5e-5);
  EXPECT_NEAR(OptionTheoreticalPrice(ctPut_P, 100, 100, 1, 0, 0.05, 0.2), 5.573526022256971, 1.5e-5);
}

TEST(OptionCalcTest, MarginedKindsPriceAsPremiumKinds) {
  EXPECT_EQ(OptionTheoreticalPrice(ctCall_M, 90, 100, 0.3, 0.01, 0.07, 0.4),
            OptionTheoreticalPrice(ctCall_P, 90, 100, 0.3, 0.01, 0.07, 0.4));
  EXPECT_EQ(OptionTheoreticalPrice(ctPut_M, 90, 100, 0.3, 0.01, 0.07, 0.4),
            OptionTheoreticalPrice(ctPut_P, 90, 100, 0.3, 0.01, 0.07, 0.4));
}

TEST(OptionCalcTest, PriceIsTheFormulaWithTheApproximation) {
  const double S = 73, K = 80, T = 0.75, q = 0.03, r = 0.11, v = 0.45;
  const double d1 = D1(S, K, T, q, r, v);
  const double d2 = d1 - std::sqrt(T) * v;
  const double call = CumulativeNormalDistr(d1) * S * std::exp(-T * q) - CumulativeNormalDistr(d2) * K * std::exp(-T * r);
  const double put = K * CumulativeNormalDistr(-d2) * std::exp(-T * r) - CumulativeNormalDistr(-d1) * S * std::exp(-T * q);
  EXPECT_DOUBLE_EQ(OptionTheoreticalPrice(ctCall_P, S, K, T, q, r, v), call);
  EXPECT_DOUBLE_EQ(OptionTheoreticalPrice(ctPut_P, S, K, T, q, r, v), put);
}

TEST(OptionCalcTest, PutCallParityHolds) {
  const double S = 120, K = 100, T = 2, q = 0.04, r = 0.09, v = 0.6;
  const double c = OptionTheoreticalPrice(ctCall_P, S, K, T, q, r, v);
  const double p = OptionTheoreticalPrice(ctPut_P, S, K, T, q, r, v);
  EXPECT_NEAR(c - p, S * std::exp(-T * q) - K * std::exp(-T * r), 1e-12 * (S + K));
}

TEST(OptionCalcTest, ZeroStrikeUsesTheFloorRatio) {
  const double S = 50, T = 1, q = 0.01, r = 0.05, v = 0.3;
  const double d1 = ((v * v * 0.5 + (r - q)) * T + std::log(1e-10)) / (std::sqrt(T) * v);
  const double call = OptionTheoreticalPrice(ctCall_P, S, 0.0, T, q, r, v);
  ASSERT_TRUE(std::isfinite(call));
  EXPECT_DOUBLE_EQ(call, CumulativeNormalDistr(d1) * S * std::exp(-T * q));
  // A strike within 1e-7 of zero counts as zero for the ratio too.
  const double put = OptionTheoreticalPrice(ctPut_P, S, 5e-8, T, q, r, v);
  const double d2 = d1 - std::sqrt(T) * v;
  ASSERT_TRUE(std::isfinite(put));
  EXPECT_DOUBLE_EQ(put, 5e-8 * CumulativeNormalDistr(-d2) * std::exp(-T * r) -
                            CumulativeNormalDistr(-d1) * S * std::exp(-T * q));
}

TEST(OptionCalcTest, NoTimeLeftGivesIntrinsicValue) {
  EXPECT_EQ(OptionTheoreticalPrice(ctCall_P, 120, 100, 0.0, 0.05, 0.1, 0.3), 20.0);
  EXPECT_EQ(OptionTheoreticalPrice(ctCall_P, 80, 100, 0.0, 0.05, 0.1, 0.3), 0.0);
  EXPECT_EQ(OptionTheoreticalPrice(ctPut_P, 80, 100, 0.0, 0.05, 0.1, 0.3), 20.0);
  EXPECT_EQ(OptionTheoreticalPrice(ctPut_P, 120, 100, 0.0, 0.05, 0.1, 0.3), 0.0);
}

TEST(OptionCalcTest, NoVolatilityGivesDiscountedIntrinsicValue) {
  const double T = 0.5, q = 0.02, r = 0.1;
  // The forward 100 * e^(0.08 * 0.5) is above 100: the call is in the money.
  EXPECT_DOUBLE_EQ(OptionTheoreticalPrice(ctCall_P, 100, 100, T, q, r, 0.0),
                   100 * std::exp(-T * q) - 100 * std::exp(-T * r));
  EXPECT_EQ(OptionTheoreticalPrice(ctPut_P, 100, 100, T, q, r, 0.0), 0.0);
  EXPECT_DOUBLE_EQ(OptionTheoreticalPrice(ctPut_P, 90, 100, T, q, r, 0.0),
                   100 * std::exp(-T * r) - 90 * std::exp(-T * q));
  EXPECT_EQ(OptionTheoreticalPrice(ctCall_P, 90, 100, T, q, r, 0.0), 0.0);
}

TEST(OptionCalcTest, NonOptionPriceIsTheStrikeArgument) {
  EXPECT_EQ(OptionTheoreticalPrice(ctSpot, 100, 77.5, 1, 0, 0.05, 0.2), 77.5);
  EXPECT_EQ(OptionTheoreticalPrice(ctFut, 100, 77.5, 1, 0, 0.05, 0.2), 77.5);
  EXPECT_EQ(OptionTheoreticalPrice(static_cast<TContractType>(9), 100, -3.0, -1, 0, 0, 0), -3.0);
}

TEST(OptionCalcTest, NegativeTimePassesNotANumberThrough) {
  EXPECT_TRUE(std::isnan(OptionTheoreticalPrice(ctCall_P, 100, 100, -0.1, 0, 0.05, 0.2)));
}

TEST(OptionCalcTest, RecordFormsUseTheRecord) {
  TOptParams o = Option(ctPut_P, 95, 100);
  EXPECT_EQ(OptionTheoreticalPrice(o), OptionTheoreticalPrice(ctPut_P, 95, 100, o.Ytm, o.Div, o.RiskFR, o.Vlt));
  EXPECT_EQ(OptionTheoreticalPrice(o, 90, 1.25),
            OptionTheoreticalPrice(ctPut_P, 90, 100, o.Ytm, o.Div, o.RiskFR, o.Vlt * 1.25));
}

// ---- Delta ----

TEST(OptionCalcTest, DeltaHasNoDividendFactor) {
  const TOptParams call = Option(ctCall_P, 105, 100);
  const double d1 = D1(105, 100, call.Ytm, call.Div, call.RiskFR, call.Vlt);
  const auto [delta, dd1] = Delta(&call);
  EXPECT_DOUBLE_EQ(dd1, d1);
  EXPECT_EQ(delta, CumulativeNormalDistr(dd1));

  const TOptParams put = Option(ctPut_M, 105, 100);
  const auto [pdelta, pd1] = Delta(&put);
  EXPECT_EQ(pd1, dd1);
  EXPECT_EQ(pdelta, -CumulativeNormalDistr(-pd1));
  EXPECT_LT(pdelta, 0.0);
}

TEST(OptionCalcTest, DeltaOfNonOptionIsOne) {
  const TOptParams spot = Option(ctSpot, 100, 100);
  EXPECT_EQ(Delta(&spot).first, 1.0);
  const TOptParams fut = Option(ctFut, 100, 100);
  EXPECT_EQ(Delta(&fut).first, 1.0);
}

TEST(OptionCalcTest, DeltaAtZeroVolatilityDividesByTheFloor) {
  TOptParams o = Option(ctCall_P, 101, 100);
  o.Vlt = 0.0;
  const auto [delta, d1] = Delta(&o);
  EXPECT_DOUBLE_EQ(d1, ((o.RiskFR - o.Div) * o.Ytm + std::log(1.01)) / 1e-10);
  EXPECT_EQ(delta, 1.0);
}

TEST(OptionCalcTest, DeltaOfNullOptionIsZero) {
  const auto [delta, d1] = Delta(nullptr);
  EXPECT_EQ(delta, 0.0);
  EXPECT_EQ(d1, 0.0);
}

// ---- Threshold margin ----

TEST(OptionCalcTest, ThresMarginIsZeroWithoutShortSide) {
  const double m = ThresMargin(0, 0, 10, 10, Discounts(0.2, 0.3), 50, 1.0);
  EXPECT_EQ(m, 0.0);
  EXPECT_FALSE(std::signbit(m));
}

TEST(OptionCalcTest, ThresMarginChargesUncoveredShortCalls) {
  // 10 short call lots, 4 long base: 6 uncovered at DLong 0.2, 50 per lot, factor 1.5.
  EXPECT_DOUBLE_EQ(ThresMargin(-10, 0, 4, 4, Discounts(0.2, 0.3), 50, 1.5), 0.2 * 6 * 50 * 1.5);
  // A short base position covers no calls.
  EXPECT_DOUBLE_EQ(ThresMargin(-10, 0, -4, -4, Discounts(0.2, 0.3), 50, 1.0), 0.2 * 10 * 50);
}

TEST(OptionCalcTest, ThresMarginChargesUncoveredShortPuts) {
  // 10 short put lots, 3 short base: 7 uncovered at DShort 0.3.
  EXPECT_DOUBLE_EQ(ThresMargin(0, -10, -3, -3, Discounts(0.2, 0.3), 20, 1.0), 0.3 * 7 * 20);
  // A long base position covers no puts.
  EXPECT_DOUBLE_EQ(ThresMargin(0, -10, 3, 3, Discounts(0.2, 0.3), 20, 1.0), 0.3 * 10 * 20);
}

TEST(OptionCalcTest, ThresMarginTakesTheWorseSide) {
  // Calls: 0.5 * (-2) = -1; puts: 0.1 * (-5) = -0.5. The smaller is the call side.
  EXPECT_DOUBLE_EQ(ThresMargin(-2, -5, 0, 0, Discounts(0.5, 0.1), 10, 1.0), 10.0);
}

TEST(OptionCalcTest, ThresMarginCapsDiscountsAtOne) {
  // A non-marginal base (1.0, 1e50): both discounts count as 1.
  EXPECT_DOUBLE_EQ(ThresMargin(0, -4, 0, 0, DL::NM_Discs, 25, 1.0), 100.0);
  EXPECT_DOUBLE_EQ(ThresMargin(-4, 0, 0, 0, Discounts(1.5, 0.1), 25, 1.0), 100.0);
}

// ---- Grid ----

TEST(OptionCalcTest, GridOfNonMarginalBaseHas73Points) {
  const BaseAsset2OptCalcParams g = PrepOptCalcParams(80.0, DL::NM_Discs);
  EXPECT_EQ(g.ScenCount, 73u);
  EXPECT_EQ(g.FirstPrice, 0.0);
  EXPECT_DOUBLE_EQ(g.FirstPrice + 72 * g.PriceStep, 160.0);
  EXPECT_TRUE(g.NonOptionScenRisks.empty());
}

TEST(OptionCalcTest, GridSpansBothDiscounts) {
  const BaseAsset2OptCalcParams g = PrepOptCalcParams(100.0, Discounts(0.2, 0.2));
  EXPECT_EQ(g.ScenCount, 15u);
  EXPECT_DOUBLE_EQ(g.FirstPrice, 80.0);
  EXPECT_DOUBLE_EQ(g.PriceStep, 40.0 / 14);
  const BaseAsset2OptCalcParams h = PrepOptCalcParams(100.0, Discounts(0.1, 0.3));
  EXPECT_EQ(h.ScenCount, 15u);
  EXPECT_DOUBLE_EQ(h.FirstPrice, 90.0);
  EXPECT_DOUBLE_EQ(h.FirstPrice + 14 * h.PriceStep, 130.0);
}

TEST(OptionCalcTest, ZeroDiscountsGiveAnEmptyGrid) {
  BaseAsset2OptCalcParams g = PrepOptCalcParams(100.0, Discounts(0.0, 0.0));
  EXPECT_EQ(g.ScenCount, 0u);
  EXPECT_EQ(g.FirstPrice, 0.0);
  EXPECT_EQ(g.PriceStep, 0.0);
  const TOptParams o = Option(ctCall_P, 100, 100);
  EXPECT_TRUE(ScenarioOptRisk(&o, g).empty());
  EXPECT_TRUE(ScenarioOptRelRiskDeltas(&o, g, 0.1).empty());
  g.CalcNonOptionScenRisks(100.0);
  EXPECT_TRUE(g.NonOptionScenRisks.empty());
}

TEST(OptionCalcTest, TinyDiscountsGiveOnePointAtTheDiscountedPrice) {
  BaseAsset2OptCalcParams g = PrepOptCalcParams(200.0, Discounts(0.0137, 0.0137));
  EXPECT_EQ(g.ScenCount, 1u);
  EXPECT_EQ(g.PriceStep, 0.0);
  EXPECT_DOUBLE_EQ(g.FirstPrice, (1 - 0.0137) * 200.0);
  g.CalcNonOptionScenRisks(200.0);
  ASSERT_EQ(g.NonOptionScenRisks.size(), 2u);
  EXPECT_NEAR(g.NonOptionScenRisks[0], -0.0137 * 200.0, 1e-12);
  EXPECT_EQ(g.NonOptionScenRisks[1], g.NonOptionScenRisks[0]);
}

TEST(OptionCalcTest, RawCountRoundsHalfAwayFromZero) {
  // (0.5 + 0.4875) * 100 / 2.75 = 35.909...: 36; (0.05 + 0.01) * 100 / 2.75 = 2.18: 2.
  EXPECT_EQ(PrepOptCalcParams(10.0, Discounts(0.5, 0.4875)).ScenCount, 36u);
  EXPECT_EQ(PrepOptCalcParams(10.0, Discounts(0.05, 0.01)).ScenCount, 2u);
  // 0.06875 * 100 / 2.75 = 2.5: a half goes up.
  EXPECT_EQ(PrepOptCalcParams(10.0, Discounts(0.06875, 0.0)).ScenCount, 3u);
  // Discounts that add up below zero make no grid.
  EXPECT_EQ(PrepOptCalcParams(10.0, Discounts(-0.5, 0.1)).ScenCount, 0u);
}

TEST(OptionCalcTest, NonOptionScenarioRisksRepeatInBothHalves) {
  BaseAsset2OptCalcParams g = PrepOptCalcParams(100.0, Discounts(0.2, 0.2));
  g.CalcNonOptionScenRisks(100.0);
  ASSERT_EQ(g.NonOptionScenRisks.size(), 30u);
  for (size_t i = 0; i < 15; ++i) {
    EXPECT_DOUBLE_EQ(g.NonOptionScenRisks[i], 80.0 + i * (40.0 / 14) - 100.0) << i;
    EXPECT_EQ(g.NonOptionScenRisks[15 + i], g.NonOptionScenRisks[i]) << i;
  }
  // A second call replaces the vector rather than growing it.
  g.CalcNonOptionScenRisks(90.0);
  ASSERT_EQ(g.NonOptionScenRisks.size(), 30u);
  EXPECT_DOUBLE_EQ(g.NonOptionScenRisks[0], -10.0);
}

// ---- Scenario vectors ----

TEST(OptionCalcTest, ScenarioRiskIsTheChangeFromTheCurrentPrice) {
  const TOptParams o = Option(ctPut_P, 100, 95);
  const BaseAsset2OptCalcParams g = PrepOptCalcParams(100.0, Discounts(0.25, 0.3));
  const std::vector<double> r = ScenarioOptRisk(&o, g);
  const size_t n = g.ScenCount;
  ASSERT_EQ(r.size(), 2 * n);
  const double base = OptionTheoreticalPrice(ctPut_P, 100, 95, o.Ytm, o.Div, o.RiskFR, o.Vlt);
  for (size_t i = 0; i < n; ++i) {
    const double p = g.FirstPrice + i * g.PriceStep;
    // Bit for bit the plain formula: the scan precomputes nothing that changes a result.
    EXPECT_EQ(r[i], OptionTheoreticalPrice(ctPut_P, p, 95, o.Ytm, o.Div, o.RiskFR, o.Vlt * (1 + o.VltUp)) - base);
    EXPECT_EQ(r[n + i], OptionTheoreticalPrice(ctPut_P, p, 95, o.Ytm, o.Div, o.RiskFR, o.Vlt * (1 - o.VltDwn)) - base);
  }
  // Lower base prices raise a put.
  EXPECT_GT(r[0], 0.0);
  EXPECT_LT(r[n - 1], 0.0);
}

TEST(OptionCalcTest, ScenarioRiskOfNullOptionIsEmpty) {
  EXPECT_TRUE(ScenarioOptRisk(nullptr, PrepOptCalcParams(100.0, DL::NM_Discs)).empty());
  EXPECT_TRUE(ScenarioOptRelRiskDeltas(nullptr, PrepOptCalcParams(100.0, DL::NM_Discs), 0.1).empty());
}

TEST(OptionCalcTest, RelativeRiskDeltasFollowTheFormula) {
  const TOptParams o = Option(ctCall_M, 60, 62);
  const BaseAsset2OptCalcParams g = PrepOptCalcParams(60.0, Discounts(0.15, 0.15));
  const double rel = 0.07;
  const auto d = ScenarioOptRelRiskDeltas(&o, g, rel);
  const size_t n = g.ScenCount;
  ASSERT_EQ(n, 11u);
  ASSERT_EQ(d.size(), 2 * n);
  auto P = [&](double x, double f) {
    return OptionTheoreticalPrice(ctCall_M, x, 62, o.Ytm, o.Div, o.RiskFR, o.Vlt * f);
  };
  for (size_t i = 0; i < n; ++i) {
    const double p = g.FirstPrice + i * g.PriceStep;
    const double up = 1 + o.VltUp, dn = 1 - o.VltDwn;
    EXPECT_EQ(d[i].first, P((1 + rel) * p, up) - P(p, up)) << i;
    EXPECT_EQ(d[i].second, P((1 - rel) * p, up) - P(p, up)) << i;
    EXPECT_EQ(d[n + i].first, P((1 + rel) * p, dn) - P(p, dn)) << i;
    EXPECT_EQ(d[n + i].second, P((1 - rel) * p, dn) - P(p, dn)) << i;
    EXPECT_GT(d[i].first, 0.0);
    EXPECT_LT(d[i].second, 0.0);
  }
}

TEST(OptionCalcTest, ScenarioVectorsOfNonOptionAreZero) {
  // A non-option prices at its strike at every point, so nothing changes.
  const TOptParams o = Option(ctFut, 100, 100);
  const BaseAsset2OptCalcParams g = PrepOptCalcParams(100.0, Discounts(0.1, 0.1));
  for (double v : ScenarioOptRisk(&o, g)) EXPECT_EQ(v, 0.0);
  for (auto [a, b] : ScenarioOptRelRiskDeltas(&o, g, 0.1)) {
    EXPECT_EQ(a, 0.0);
    EXPECT_EQ(b, 0.0);
  }
}

// ---- Netto risks ----

TEST(OptionCalcTest, NettoRiskOfSummedRows) {
  const std::vector<std::vector<double>> rows = {{1, -2, 3, -4}, {-1, -1, -10, 2}};
  size_t worst = 99;
  EXPECT_DOUBLE_EQ(CalcNettoOptionsRisk(&rows, worst), 7.0);  // column 2: 3 - 10
  EXPECT_EQ(worst, 2u);
}

TEST(OptionCalcTest, NettoRiskTieWithinToleranceKeepsTheEarlierColumn) {
  const std::vector<std::vector<double>> rows = {{0, -5, -5 - 5e-8, -5 + 5e-8}};
  size_t worst = 99;
  EXPECT_DOUBLE_EQ(CalcNettoOptionsRisk(&rows, worst), 5.0);
  EXPECT_EQ(worst, 1u);
  const std::vector<std::vector<double>> clear = {{0, -5, -5 - 2e-7}};
  EXPECT_DOUBLE_EQ(CalcNettoOptionsRisk(&clear, worst), 5 + 2e-7);
  EXPECT_EQ(worst, 2u);
}

TEST(OptionCalcTest, NettoRiskOfAllGainsIsTheSmallestGain) {
  const std::vector<std::vector<double>> rows = {{4, 2, 3}};
  size_t worst = 99;
  EXPECT_DOUBLE_EQ(CalcNettoOptionsRisk(&rows, worst), 2.0);
  EXPECT_EQ(worst, 1u);
}

TEST(OptionCalcTest, NettoRiskWithoutRowsIsZero) {
  size_t worst = 99;
  const std::vector<std::vector<double>> none;
  EXPECT_EQ(CalcNettoOptionsRisk(&none, worst), 0.0);
  EXPECT_EQ(worst, 0u);
  worst = 99;
  const std::vector<std::vector<double>> emptyFirst = {{}, {1, 2}};
  EXPECT_EQ(CalcNettoOptionsRisk(&emptyFirst, worst), 0.0);
  EXPECT_EQ(worst, 0u);
  worst = 99;
  EXPECT_EQ(CalcNettoOptionsRisk(nullptr, worst), 0.0);
  EXPECT_EQ(worst, 0u);
  worst = 99;
  EXPECT_EQ(CalcHalfNettoOptionsRisk(&none, worst), 0.0);
  EXPECT_EQ(worst, 0u);
}

TEST(OptionCalcTest, NettoRiskSumsAsLongAsTheFirstRow) {
  const std::vector<std::vector<double>> rows = {{0, 0}, {-1}, {-1, -3, -100}};
  size_t worst = 99;
  EXPECT_DOUBLE_EQ(CalcNettoOptionsRisk(&rows, worst), 3.0);
  EXPECT_EQ(worst, 1u);
}

TEST(OptionCalcTest, HalfNettoRiskDoesNotOffsetLossesByGains) {
  const std::vector<std::vector<double>> rows = {{5, -2, 1}, {-4, 1, -1}};
  size_t worst = 99;
  // Netto: columns 1, -1, 0: risk 1 at column 1.
  EXPECT_DOUBLE_EQ(CalcNettoOptionsRisk(&rows, worst), 1.0);
  EXPECT_EQ(worst, 1u);
  // Half netto: columns -4, -2, -1: risk 4 at column 0.
  EXPECT_DOUBLE_EQ(CalcHalfNettoOptionsRisk(&rows, worst), 4.0);
  EXPECT_EQ(worst, 0u);
}

TEST(OptionCalcTest, HalfNettoRiskIgnoresLossesWithinTolerance) {
  const std::vector<std::vector<double>> rows = {{-5e-8, -1}, {-5e-8, 0}, {-5e-8, 0.5}};
  size_t worst = 99;
  EXPECT_DOUBLE_EQ(CalcHalfNettoOptionsRisk(&rows, worst), 1.0);
  EXPECT_EQ(worst, 1u);
  const std::vector<std::vector<double>> tiny = {{-5e-8, -6e-8}};
  EXPECT_EQ(CalcHalfNettoOptionsRisk(&tiny, worst), 0.0);
  EXPECT_EQ(worst, 0u);
}

// ---- Working sets ----

TEST(OptionCalcTest, ClearEmptiesTheWholeWorkingSet) {
  TOptCalcDataSetEx ex;
  ex.BaseToOption["Si"] = "Si65000BC5";
  ex.ScenRiskRows.push_back({1.0});
  ex.RelRiskRows.push_back({{1.0, 2.0}});
  ex.BasePositions["Si"] = {1.0, -2.0};
  ex.FutLeftover["SiZ5"] = 3;
  ex.RelRiskSubGroups["Si"][0.25].DeltaSum = 1.0;
  TOptCalcDataSet& base = ex;
  base.clear();  // through the base: the derived maps go too
  EXPECT_TRUE(ex.BaseToOption.empty());
  EXPECT_TRUE(ex.ScenRiskRows.empty());
  EXPECT_TRUE(ex.RelRiskRows.empty());
  EXPECT_TRUE(ex.BasePositions.empty());
  EXPECT_TRUE(ex.FutLeftover.empty());
  EXPECT_TRUE(ex.RelRiskSubGroups.empty());
}

TEST(OptionCalcTest, RelRiskSubGroupsAreOrderedByExpiry) {
  TOptCalcDataSetEx ex;
  auto& byYtm = ex.RelRiskSubGroups["RTS"];
  byYtm[0.5].RiskUp = 1;
  byYtm[0.1].RiskUp = 2;
  byYtm[0.3].RiskDown = 3;
  std::vector<double> keys;
  for (const auto& [ytm, sums] : byYtm) keys.push_back(ytm);
  EXPECT_EQ(keys, (std::vector<double>{0.1, 0.3, 0.5}));
  EXPECT_EQ(byYtm[0.3].DeltaSum, 0.0);
}

}  // namespace
