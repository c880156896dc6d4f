// Option pricing, the inner loop of the margin method: one option scanned over
// the 73-point grid of a non-marginal base asset. Each computation runs twice,
// with our functions and with QuantLib's BlackCalculator doing the same
// pricings, so one run shows both. The counter per_pricing is the time of
// one option price (the grid of ScenarioOptRelRiskDeltas takes six distinct
// prices per point: three per volatility state).
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "margin/OptionCalc.h"

#ifdef ZDL_HAVE_QUANTLIB
#include <ql/option.hpp>
#include <ql/pricingengines/blackcalculator.hpp>
#endif

namespace {

using namespace DL::MDPLUS;

// Options around a base price of 100: in, at and out of the money, calls and
// puts, short and long expiries.
std::vector<TOptParams> Options() {
  std::vector<TOptParams> out;
  const TContractType types[] = {ctCall_P, ctPut_P, ctCall_M, ctPut_M};
  const double strikes[] = {70, 95, 100, 105, 140};
  const double times[] = {7.0 / 365, 0.25, 1.0};
  for (TContractType t : types)
    for (double k : strikes)
      for (double y : times) {
        TOptParams o;
        o.ContractType = t;
        o.Stock = 100;
        o.Strike = k;
        o.Ytm = y;
        o.Div = 0.01;
        o.RiskFR = 0.08;
        o.Vlt = 0.35;
        o.VltUp = 0.3;
        o.VltDwn = 0.25;
        o.Lot = 1;
        out.push_back(o);
      }
  return out;
}

const std::vector<TOptParams>& AllOptions() {
  static const std::vector<TOptParams> options = Options();
  return options;
}

const BaseAsset2OptCalcParams& Grid() {
  static const BaseAsset2OptCalcParams grid = PrepOptCalcParams(100.0, DL::NM_Discs);  // 73 points
  return grid;
}

constexpr double kRel = 0.05;

void SetPricingCounter(benchmark::State& state, double pricingsPerIteration) {
  // An inverted rate: seconds of CPU per pricing, printed as e.g. "45.2ns".
  state.counters["per_pricing"] =
      benchmark::Counter(pricingsPerIteration,
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// ---- Ours ----

void BM_OptionTheoreticalPrice(benchmark::State& state) {
  const auto& options = AllOptions();
  const auto& g = Grid();
  for (auto _ : state) {
    for (const TOptParams& o : options) {
      for (uint64_t i = 0; i < g.ScenCount; ++i) {
        const double p = g.FirstPrice + static_cast<double>(i) * g.PriceStep;
        benchmark::DoNotOptimize(
            OptionTheoreticalPrice(o.ContractType, p, o.Strike, o.Ytm, o.Div, o.RiskFR, o.Vlt));
      }
    }
  }
  SetPricingCounter(state, static_cast<double>(options.size() * g.ScenCount));
}
BENCHMARK(BM_OptionTheoreticalPrice);

void BM_ScenarioOptRisk(benchmark::State& state) {
  const auto& options = AllOptions();
  const auto& g = Grid();
  for (auto _ : state) {
    for (const TOptParams& o : options) benchmark::DoNotOptimize(ScenarioOptRisk(&o, g));
  }
  SetPricingCounter(state, static_cast<double>(options.size() * (2 * g.ScenCount + 1)));
}
BENCHMARK(BM_ScenarioOptRisk);

void BM_ScenarioOptRelRiskDeltas(benchmark::State& state) {
  const auto& options = AllOptions();
  const auto& g = Grid();
  for (auto _ : state) {
    for (const TOptParams& o : options) benchmark::DoNotOptimize(ScenarioOptRelRiskDeltas(&o, g, kRel));
  }
  SetPricingCounter(state, static_cast<double>(options.size() * 6 * g.ScenCount));
}
BENCHMARK(BM_ScenarioOptRelRiskDeltas);

#ifdef ZDL_HAVE_QUANTLIB
// ---- QuantLib, the same pricings ----

QuantLib::Option::Type QlType(TContractType t) { return IsCall(t) ? QuantLib::Option::Call : QuantLib::Option::Put; }

// One price from scratch, as OptionTheoreticalPrice does it.
double QlPrice(TContractType type, double S, double K, double T, double q, double r, double vol) {
  const double discount = std::exp(-r * T);
  const double forward = S * std::exp((r - q) * T);
  return QuantLib::BlackCalculator(QlType(type), K, forward, vol * std::sqrt(T), discount).value();
}

// The per-option constants computed once, as our scans do; one
// BlackCalculator per price.
struct QlSurface {
  QlSurface(const TOptParams& o, double vltFactor)
      : type(QlType(o.ContractType)),
        strike(o.Strike),
        growth(std::exp((o.RiskFR - o.Div) * o.Ytm)),
        stdDev(o.Vlt * vltFactor * std::sqrt(o.Ytm)),
        discount(std::exp(-o.RiskFR * o.Ytm)) {}
  double Price(double S) const { return QuantLib::BlackCalculator(type, strike, S * growth, stdDev, discount).value(); }

  QuantLib::Option::Type type;
  double strike, growth, stdDev, discount;
};

void BM_QuantLib_TheoreticalPrice(benchmark::State& state) {
  const auto& options = AllOptions();
  const auto& g = Grid();
  for (auto _ : state) {
    for (const TOptParams& o : options) {
      // The grid's first point is 0, where QuantLib wants a positive forward.
      for (uint64_t i = 1; i < g.ScenCount; ++i) {
        const double p = g.FirstPrice + static_cast<double>(i) * g.PriceStep;
        benchmark::DoNotOptimize(QlPrice(o.ContractType, p, o.Strike, o.Ytm, o.Div, o.RiskFR, o.Vlt));
      }
    }
  }
  SetPricingCounter(state, static_cast<double>(options.size() * (g.ScenCount - 1)));
}
BENCHMARK(BM_QuantLib_TheoreticalPrice);

void BM_QuantLib_ScenarioRisk(benchmark::State& state) {
  const auto& options = AllOptions();
  const auto& g = Grid();
  const uint64_t n = g.ScenCount;
  for (auto _ : state) {
    for (const TOptParams& o : options) {
      const double base = QlSurface(o, 1.0).Price(o.Stock);
      const QlSurface up(o, 1 + o.VltUp), down(o, 1 - o.VltDwn);
      std::vector<double> risks(2 * n);
      for (uint64_t i = 1; i < n; ++i) {
        const double p = g.FirstPrice + static_cast<double>(i) * g.PriceStep;
        risks[i] = up.Price(p) - base;
        risks[n + i] = down.Price(p) - base;
      }
      benchmark::DoNotOptimize(risks);
    }
  }
  SetPricingCounter(state, static_cast<double>(options.size() * (2 * (n - 1) + 1)));
}
BENCHMARK(BM_QuantLib_ScenarioRisk);

void BM_QuantLib_RelRiskDeltas(benchmark::State& state) {
  const auto& options = AllOptions();
  const auto& g = Grid();
  const uint64_t n = g.ScenCount;
  for (auto _ : state) {
    for (const TOptParams& o : options) {
      const QlSurface surfaces[2] = {QlSurface(o, 1 + o.VltUp), QlSurface(o, 1 - o.VltDwn)};
      std::vector<std::pair<double, double>> deltas(2 * n);
      for (uint64_t i = 1; i < n; ++i) {
        const double p = g.FirstPrice + static_cast<double>(i) * g.PriceStep;
        for (int half = 0; half < 2; ++half) {
          const double at = surfaces[half].Price(p);
          deltas[half * n + i] = {surfaces[half].Price((1 + kRel) * p) - at, surfaces[half].Price((1 - kRel) * p) - at};
        }
      }
      benchmark::DoNotOptimize(deltas);
    }
  }
  SetPricingCounter(state, static_cast<double>(options.size() * 6 * (n - 1)));
}
BENCHMARK(BM_QuantLib_RelRiskDeltas);
#endif

}  // namespace
