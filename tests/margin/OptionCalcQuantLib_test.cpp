// The option prices against an independent implementation: QuantLib's
// Black-Scholes-Merton price (BlackCalculator with the forward and the
// discount factor), over a grid of calls and puts.
#include "margin/OptionCalc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

#ifdef ZDL_HAVE_QUANTLIB
#include <ql/option.hpp>
#include <ql/pricingengines/blackcalculator.hpp>
#endif

namespace {

using namespace DL::MDPLUS;

// Largest absolute error of the polynomial approximation of N (Abramowitz and
// Stegun 26.2.17: |N_approx(x) - N(x)| < 7.5e-8 for every x).
constexpr double kNormalError = 7.5e-8;

// Both prices are S e^{-qT} N(d1) - K e^{-rT} N(d2) for a call and
// K e^{-rT} N(-d2) - S e^{-qT} N(-d1) for a put, with the same d1 and d2 up to
// rounding. Each N differs by at most kNormalError, so
//   |our price - exact price| <= kNormalError * (S e^{-qT} + K e^{-rT}).
// On top of that, the two implementations round differently (d1 by another
// sequence of operations, F = S e^{(r-q)T} times the discount, erf against
// exp): a few units in the last place of the terms, covered by kRounding
// times the same sum.
constexpr double kRounding = 1e-12;

#ifdef ZDL_HAVE_QUANTLIB
double QuantLibPrice(TContractType type, double S, double K, double T, double q, double r, double vol) {
  // QuantLib wants a positive forward; at a base price of 0 a call is worth
  // nothing and a put its discounted strike.
  if (S == 0.0) return IsCall(type) ? 0.0 : K * std::exp(-r * T);
  const double discount = std::exp(-r * T);
  const double forward = S * std::exp((r - q) * T);
  const QuantLib::Option::Type qlType = IsCall(type) ? QuantLib::Option::Call : QuantLib::Option::Put;
  return QuantLib::BlackCalculator(qlType, K, forward, vol * std::sqrt(T), discount).value();
}
#endif

TEST(OptionCalcQuantLibTest, PricesAgreeWithinTheApproximationOfN) {
#ifndef ZDL_HAVE_QUANTLIB
  GTEST_SKIP() << "QuantLib is not installed (libquantlib0-dev): the independent price check did not run";
#else
  const double prices[] = {1, 2.5, 10, 47, 99.9, 100, 250, 640, 1000};
  const double times[] = {1.0 / 365, 7.0 / 365, 30.0 / 365, 0.25, 0.5, 1, 2, 3};
  const double vols[] = {0.05, 0.1, 0.25, 0.5, 1.0, 1.5};
  const double rates[] = {0, 0.01, 0.07, 0.2};
  const double divs[] = {0, 0.03, 0.2};
  int checked = 0;
  double worstShare = 0.0;  // the largest difference as a share of its bound
  for (TContractType type : {ctCall_P, ctPut_P})
    for (double S : prices)
      for (double K : prices)
        for (double T : times)
          for (double vol : vols)
            for (double r : rates)
              for (double q : divs) {
                const double ours = OptionTheoreticalPrice(type, S, K, T, q, r, vol);
                const double theirs = QuantLibPrice(type, S, K, T, q, r, vol);
                const double scale = S * std::exp(-q * T) + K * std::exp(-r * T);
                const double bound = (kNormalError + kRounding) * scale;
                const double diff = std::fabs(ours - theirs);
                ASSERT_LE(diff, bound) << ContractTypeToStr(type) << " S=" << S << " K=" << K << " T=" << T
                                       << " vol=" << vol << " r=" << r << " q=" << q << " ours=" << ours
                                       << " QuantLib=" << theirs;
                worstShare = std::max(worstShare, diff / bound);
                ++checked;
              }
  EXPECT_EQ(checked, 2 * 9 * 9 * 8 * 6 * 4 * 3);
  // The differences are those of the approximation of N, not nothing: the
  // prices really come from the polynomial.
  EXPECT_GT(worstShare, 0.05);
  std::printf("[ QuantLib ] %d prices, largest difference %.3f of the bound\n", checked, worstShare);
#endif
}

TEST(OptionCalcQuantLibTest, ScenarioVectorAgreesWithQuantLib) {
#ifndef ZDL_HAVE_QUANTLIB
  GTEST_SKIP() << "QuantLib is not installed (libquantlib0-dev): the independent scenario check did not run";
#else
  TOptParams o;
  o.ContractType = ctPut_M;
  o.Stock = 100;
  o.Strike = 105;
  o.Ytm = 0.4;
  o.Div = 0.01;
  o.RiskFR = 0.12;
  o.Vlt = 0.35;
  o.VltUp = 0.3;
  o.VltDwn = 0.25;
  const BaseAsset2OptCalcParams grid = PrepOptCalcParams(o.Stock, DL::NM_Discs);
  const std::vector<double> risks = ScenarioOptRisk(&o, grid);
  const size_t n = grid.ScenCount;
  ASSERT_EQ(risks.size(), 2 * n);
  const double base = QuantLibPrice(o.ContractType, o.Stock, o.Strike, o.Ytm, o.Div, o.RiskFR, o.Vlt);
  for (size_t i = 0; i < n; ++i) {
    const double p = grid.FirstPrice + i * grid.PriceStep;
    // Two prices per element, each within its own bound.
    const double bound = (kNormalError + kRounding) * (p * std::exp(-o.Div * o.Ytm) + o.Stock * std::exp(-o.Div * o.Ytm) +
                                                       2 * o.Strike * std::exp(-o.RiskFR * o.Ytm));
    const double up = QuantLibPrice(o.ContractType, p, o.Strike, o.Ytm, o.Div, o.RiskFR, o.Vlt * (1 + o.VltUp)) - base;
    const double dn = QuantLibPrice(o.ContractType, p, o.Strike, o.Ytm, o.Div, o.RiskFR, o.Vlt * (1 - o.VltDwn)) - base;
    EXPECT_NEAR(risks[i], up, bound) << i;
    EXPECT_NEAR(risks[n + i], dn, bound) << i;
  }
#endif
}

}  // namespace
