#include "margin/OptionCalc.h"

#include <algorithm>
#include <cmath>

#include "base/Numbers.h"

namespace DL::MDPLUS {

namespace {

// Smallest price ratio and smallest divisor of d1: a zero strike or a zero
// spread of volatility never divides by zero.
constexpr double kMinRatio = 1e-10;
constexpr double kMinSigma = 1e-10;

// A price surface of one option at one volatility: everything of the
// Black-Scholes-Merton formula that does not depend on the base price is
// computed once, so that a scan of the grid pays one logarithm and two
// exponentials per point. Each operation is the one of the plain formula, in
// the same order, so a price from here is bit for bit the price of
// OptionTheoreticalPrice; the one-shot form is built on this class too.
class TPriceSurface {
 public:
  TPriceSurface(TContractType type, double strike, double ytm, double div, double riskFR, double vlt)
      : m_type(type), m_strike(strike) {
    if (!IsCall(type) && !IsPut(type)) return;
    m_sigma = std::sqrt(ytm) * vlt;
    m_drift = (vlt * vlt * 0.5 + (riskFR - div)) * ytm;
    m_divisor = std::max(kMinSigma, std::fabs(m_sigma));
    m_zeroStrike = MIsZero(strike);
    m_stockDisc = std::exp(-ytm * div);
    m_strikeDisc = std::exp(-ytm * riskFR);
  }

  double Price(double stock) const {
    if (IsCall(m_type)) {
      const double d1 = D1(stock);
      const double d2 = d1 - m_sigma;
      return CumulativeNormalDistr(d1) * stock * m_stockDisc - CumulativeNormalDistr(d2) * m_strike * m_strikeDisc;
    }
    if (IsPut(m_type)) {
      const double d1 = D1(stock);
      const double d2 = d1 - m_sigma;
      return m_strike * CumulativeNormalDistr(-d2) * m_strikeDisc - CumulativeNormalDistr(-d1) * stock * m_stockDisc;
    }
    return m_strike;
  }

 private:
  double D1(double stock) const {
    const double ratio = m_zeroStrike ? kMinRatio : std::max(stock / m_strike, kMinRatio);
    return (m_drift + std::log(ratio)) / m_divisor;
  }

  TContractType m_type;
  double m_strike;
  double m_sigma = 0.0;       // sqrt(ytm) * vlt; d2 = d1 - m_sigma
  double m_drift = 0.0;       // (vlt^2 / 2 + riskFR - div) * ytm
  double m_divisor = 0.0;     // |m_sigma|, at least kMinSigma
  bool m_zeroStrike = false;  // the ratio is then kMinRatio whatever the stock
  double m_stockDisc = 0.0;   // exp(-ytm * div)
  double m_strikeDisc = 0.0;  // exp(-ytm * riskFR)
};

TPriceSurface SurfaceOf(const TOptParams& o, double vltFactor) {
  return TPriceSurface(o.ContractType, o.Strike, o.Ytm, o.Div, o.RiskFR, o.Vlt * vltFactor);
}

// Grid point i, the same expression wherever a grid is walked.
inline double GridPrice(const BaseAsset2OptCalcParams& grid, uint64_t i) {
  return grid.FirstPrice + static_cast<double>(i) * grid.PriceStep;
}

// The common walk of both netto risks; `part` maps an element before it is
// added to its column.
template <class Part>
double NettoRisk(const std::vector<std::vector<double>>* rows, size_t& worst, Part part) {
  worst = 0;
  if (rows == nullptr || rows->empty() || rows->front().empty()) return 0.0;
  std::vector<double> sum(rows->front().size(), 0.0);
  for (const std::vector<double>& row : *rows) {
    // A row shorter than the first adds what it has; a longer one is cut.
    const size_t n = std::min(row.size(), sum.size());
    for (size_t i = 0; i < n; ++i) sum[i] += part(row[i]);
  }
  double minimum = sum[0];
  for (size_t i = 1; i < sum.size(); ++i) {
    if (MIsLT(sum[i], minimum)) {
      minimum = sum[i];
      worst = i;
    }
  }
  return std::fabs(minimum);
}

}  // namespace

const char* ContractTypeToStr(TContractType type) {
  switch (type) {
#define ZDL_CONTRACT_TYPE_WORD(name, value, word) \
  case name:                                      \
    return word;
    ZDL_CONTRACT_TYPES(ZDL_CONTRACT_TYPE_WORD)
#undef ZDL_CONTRACT_TYPE_WORD
  }
  return "";
}

void BaseAsset2OptCalcParams::CalcNonOptionScenRisks(double price) {
  const uint64_t n = ScenCount;
  NonOptionScenRisks.assign(2 * n, 0.0);
  for (uint64_t i = 0; i < n; ++i) {
    const double change = static_cast<double>(i) * PriceStep + FirstPrice - price;
    NonOptionScenRisks[i] = change;
    NonOptionScenRisks[n + i] = change;
  }
}

void TOptCalcDataSet::clear() {
  BaseToOption.clear();
  ScenRiskRows.clear();
  RelRiskRows.clear();
  BasePositions.clear();
}

void TOptCalcDataSetEx::clear() {
  TOptCalcDataSet::clear();
  FutLeftover.clear();
  RelRiskSubGroups.clear();
}

double CumulativeNormalDistr(double x) {
  const double a = std::fabs(x);
  // Beyond 9 the correction p * exp(-a^2 / 2) * 0.39894 is below 1.1e-18,
  // under half a unit in the last place of 1.0, so r is exactly 1.0: the tail
  // is answered without the exponential, with the same result.
  if (a > 9.0) return x < 0 ? 0.0 : 1.0;
  const double t = 1.0 / (0.2316419 * a + 1.0);
  // 0.31938153 t - 0.356563782 t^2 + 1.781477937 t^3 - 1.821255978 t^4
  // + 1.330274429 t^5, in Horner's form.
  const double p =
      t * (0.31938153 + t * (-0.356563782 + t * (1.781477937 + t * (-1.821255978 + t * 1.330274429))));
  const double r = 1.0 - p * std::exp(-a * a * 0.5) * 0.3989422804014327;
  return x < 0 ? 1.0 - r : r;
}

double OptionTheoreticalPrice(TContractType type, double stock, double strike, double ytm, double div,
                              double riskFR, double vlt) {
  return TPriceSurface(type, strike, ytm, div, riskFR, vlt).Price(stock);
}

double OptionTheoreticalPrice(const TOptParams& option) {
  return OptionTheoreticalPrice(option, option.Stock, 1.0);
}

double OptionTheoreticalPrice(const TOptParams& option, double stock, double vltFactor) {
  return SurfaceOf(option, vltFactor).Price(stock);
}

std::pair<double, double> Delta(const TOptParams* option) {
  if (option == nullptr) return {0.0, 0.0};
  const TOptParams& o = *option;
  const double ratio = MIsZero(o.Strike) ? kMinRatio : std::max(o.Stock / o.Strike, kMinRatio);
  const double divisor = std::max(std::fabs(o.Vlt * std::sqrt(o.Ytm)), kMinSigma);
  const double d1 = ((o.Vlt * o.Vlt * 0.5 + (o.RiskFR - o.Div)) * o.Ytm + std::log(ratio)) / divisor;
  if (IsCall(o.ContractType)) return {CumulativeNormalDistr(d1), d1};
  if (IsPut(o.ContractType)) return {-CumulativeNormalDistr(-d1), d1};
  return {1.0, d1};
}

double ThresMargin(double callLots, double putLots, double baseMin, double baseMax, const TDiscountsEx& discounts,
                   double stockPerLot, double dThr) {
  double dLong = discounts.DLong;
  double dShort = discounts.DShort;
  if (dShort > 1.0 || dLong > 1.0) dLong = dShort = 1.0;
  const double shortSide = dShort * (baseMax > 0 ? putLots : putLots - baseMax);
  const double longSide = dLong * (callLots + (baseMin < 0 ? 0.0 : baseMin));
  const double m = std::min(std::min(shortSide, longSide), 0.0);
  // 0 - x rather than -x: a margin of nothing is +0, not -0, in the log.
  return 0.0 - m * stockPerLot * dThr;
}

BaseAsset2OptCalcParams PrepOptCalcParams(double price, const TDiscountsEx& discounts) {
  BaseAsset2OptCalcParams grid;
  double l = discounts.DLong;
  double s = discounts.DShort;
  double raw;
  if (s > 1.0 || l > 1.0) {
    l = s = 1.0;
    raw = 72.72727272727273;  // 200 / 2.75
  } else {
    raw = (l + s) * 100 / 2.75;
  }
  const double rounded = MRound(raw);
  // Negative discounts (or not-a-number) make no grid rather than a wrapped count.
  grid.ScenCount = rounded > 0.0 ? static_cast<uint64_t>(rounded) : 0;
  if (grid.ScenCount == 0) return grid;
  grid.FirstPrice = (1 - l) * price;
  grid.PriceStep = grid.ScenCount == 1
                       ? 0.0
                       : ((1 + s) * price - grid.FirstPrice) / static_cast<double>(grid.ScenCount - 1);
  return grid;
}

std::vector<double> ScenarioOptRisk(const TOptParams* option, const BaseAsset2OptCalcParams& grid) {
  std::vector<double> risks;
  if (option == nullptr) return risks;
  const TOptParams& o = *option;
  const double base = OptionTheoreticalPrice(o, o.Stock, 1.0);
  const TPriceSurface up = SurfaceOf(o, 1 + o.VltUp);
  const TPriceSurface down = SurfaceOf(o, 1 - o.VltDwn);
  const uint64_t n = grid.ScenCount;
  risks.resize(2 * n);
  for (uint64_t i = 0; i < n; ++i) {
    const double p = GridPrice(grid, i);
    risks[i] = up.Price(p) - base;
    risks[n + i] = down.Price(p) - base;
  }
  return risks;
}

std::vector<std::pair<double, double>> ScenarioOptRelRiskDeltas(const TOptParams* option,
                                                                const BaseAsset2OptCalcParams& grid, double rel) {
  std::vector<std::pair<double, double>> deltas;
  if (option == nullptr) return deltas;
  const TOptParams& o = *option;
  const TPriceSurface surfaces[2] = {SurfaceOf(o, 1 + o.VltUp), SurfaceOf(o, 1 - o.VltDwn)};
  const uint64_t n = grid.ScenCount;
  deltas.resize(2 * n);
  for (uint64_t i = 0; i < n; ++i) {
    const double p = GridPrice(grid, i);
    for (int half = 0; half < 2; ++half) {
      const TPriceSurface& f = surfaces[half];
      // The price at p serves both deltas of the pair.
      const double at = f.Price(p);
      deltas[half * n + i] = {f.Price((1 + rel) * p) - at, f.Price((1 - rel) * p) - at};
    }
  }
  return deltas;
}

double CalcNettoOptionsRisk(const std::vector<std::vector<double>>* rows, size_t& worst) {
  return NettoRisk(rows, worst, [](double v) { return v; });
}

double CalcHalfNettoOptionsRisk(const std::vector<std::vector<double>>* rows, size_t& worst) {
  // Only a loss (below zero by more than 1e-7) counts.
  return NettoRisk(rows, worst, [](double v) { return MIsLT(v, 0.0) ? v : 0.0; });
}

}  // namespace DL::MDPLUS
