#pragma once
// Option mathematics of the MD+ margin method: Black-Scholes-Merton prices,
// delta, the threshold margin, and the scan of an option's price over a grid
// of base-asset prices under two volatility states.
//
// Every function here is pure: numbers and records in, numbers out, no state
// and no errors. Prices are in the currency of the base asset, per unit of
// quantity; a scenario vector holds price changes per unit, which the caller
// multiplies by the position.
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/TradingTypes.h"  // TDiscountsEx

namespace DL::MDPLUS {

// The kinds of contract, with the words the margin log prints:
//   X(enumerator, value, word)
#define ZDL_CONTRACT_TYPES(X)  \
  X(ctSpot, 0, "Spot")         \
  X(ctFut, 1, "Fut")           \
  X(ctCall_P, 2, "Call_P")     \
  X(ctPut_P, 3, "Put_P")       \
  X(ctCall_M, 4, "Call_M")     \
  X(ctPut_M, 5, "Put_M")

// A 32-bit kind of contract. 2 and 4 are calls, 3 and 5 puts (premium paid
// up front, or daily variation margin); any other value is not an option.
enum TContractType : int32_t {
#define ZDL_CONTRACT_TYPE_ENUM(name, value, word) name = value,
  ZDL_CONTRACT_TYPES(ZDL_CONTRACT_TYPE_ENUM)
#undef ZDL_CONTRACT_TYPE_ENUM
};

// The log word of a kind of contract; the empty string for a value outside
// the table.
const char* ContractTypeToStr(TContractType type);

inline bool IsCall(TContractType t) { return t == ctCall_P || t == ctCall_M; }
inline bool IsPut(TContractType t) { return t == ctPut_P || t == ctPut_M; }

// The parameters of one option. Rates, dividend and volatilities are
// fractions; Ytm is in years.
struct TOptParams {
  std::string OptCode;   // code of the option
  std::string BaseCode;  // code of its base asset
  std::vector<std::pair<double, double>> RelRiskDeltas;  // last scaled relative-risk deltas, for the log
  double VltUp = 0.0;                      // upward shift of volatility, a fraction of Vlt
  double VltDwn = 0.0;                     // downward shift of volatility, a fraction of Vlt
  TContractType ContractType = ctCall_P;
  double Stock = 0.0;                      // current price of the base asset
  double Strike = 0.0;
  double Ytm = 0.0;                        // time to expiry, years
  double Div = 0.0;                        // continuous dividend rate
  double RiskFR = 0.0;                     // risk-free rate
  double Vlt = 0.0;                        // volatility
  double DThr = 1.0;                       // factor of the threshold margin
  int32_t Lot = 0;                         // units per contract
  bool InRelRiskSubGroup = false;          // takes part in the relative-risk sub-groups
};

// The price grid of one base asset: ScenCount points from FirstPrice up by
// PriceStep.
struct BaseAsset2OptCalcParams {
  uint64_t ScenCount = 0;                  // grid points n; 0 is an empty grid
  std::vector<double> NonOptionScenRisks;  // filled by CalcNonOptionScenRisks
  double FirstPrice = 0.0;                 // lowest price of the grid
  double PriceStep = 0.0;                  // distance between grid points

  // Makes NonOptionScenRisks 2n long: elements i and n+i are both the change
  // of price from `price` to grid point i, the gain of one unit of a
  // non-option position under either volatility state.
  void CalcNonOptionScenRisks(double price);
};

// The working set of one option group; clear() empties it before each group.
struct TOptCalcDataSet {
  virtual ~TOptCalcDataSet() = default;
  virtual void clear();

  std::unordered_map<std::string, std::string> BaseToOption;  // base code -> code of one option on it
  std::vector<std::vector<double>> ScenRiskRows;               // per position, 2n scenario values
  std::vector<std::vector<std::pair<double, double>>> RelRiskRows;  // per position, 2n pairs
  std::unordered_map<std::string, std::pair<double, double>> BasePositions;  // base code -> (call lots, put lots)
};

// Sums over the options of one base asset and one expiry.
struct TRelRiskSubGroup {
  double DeltaSum = 0.0;
  double RiskUp = 0.0;
  double RiskDown = 0.0;
};

// The working set of the initial margin, which needs two further maps.
struct TOptCalcDataSetEx : TOptCalcDataSet {
  void clear() override;

  std::unordered_map<std::string, int64_t> FutLeftover;  // asset code -> base quantity left after the delta cover
  std::unordered_map<std::string, std::map<double, TRelRiskSubGroup>> RelRiskSubGroups;  // base code -> Ytm -> sums
};

// The standard normal distribution function by the polynomial approximation
// 26.2.17 of Abramowitz and Stegun (absolute error below 7.5e-8). At 0 it
// gives 0.5 up to that error, and N(x) + N(-x) == 1 for every x != 0.
double CumulativeNormalDistr(double x);

// The Black-Scholes-Merton price with a continuous dividend rate. A strike
// within 1e-7 of zero is taken as a price ratio of 1e-10; with ytm or vlt 0
// the price collapses to the discounted intrinsic value. For a type that is
// not an option the strike argument is returned unchanged. A negative ytm is
// not rejected: the result is then not-a-number.
double OptionTheoreticalPrice(TContractType type, double stock, double strike, double ytm, double div,
                              double riskFR, double vlt);
// The same from the record, at its own Stock and Vlt.
double OptionTheoreticalPrice(const TOptParams& option);
// The same at another base price, with Vlt multiplied by vltFactor.
double OptionTheoreticalPrice(const TOptParams& option, double stock, double vltFactor);

// (delta, d1). The delta carries no dividend factor: N(d1) for a call,
// -N(-d1) for a put, 1.0 for any other type. A null option gives (0, 0).
std::pair<double, double> Delta(const TOptParams* option);

// The threshold margin of a base asset: the uncovered short side up to the
// discount, zero or positive. Long base (baseMin > 0) covers short calls,
// short base (baseMax < 0) covers short puts; lots are signed. Discounts
// above 1 count as 1.
double ThresMargin(double callLots, double putLots, double baseMin, double baseMax, const TDiscountsEx& discounts,
                   double stockPerLot, double dThr);

// The grid of a base asset at `price`: from the price less DLong to the
// price plus DShort, both ends included, one step per 2.75 per cent of the
// price. A discount above 1 makes the grid 0 .. 2*price with 73 points.
BaseAsset2OptCalcParams PrepOptCalcParams(double price, const TDiscountsEx& discounts);

// 2n price changes of the option from its price at Stock: element i at grid
// point i with Vlt*(1+VltUp), element n+i with Vlt*(1-VltDwn). A null option
// gives an empty vector.
std::vector<double> ScenarioOptRisk(const TOptParams* option, const BaseAsset2OptCalcParams& grid);

// 2n pairs: for each grid point p and each volatility state, the price change
// from p to (1+rel)*p and from p to (1-rel)*p. A null option gives an empty
// vector.
std::vector<std::pair<double, double>> ScenarioOptRelRiskDeltas(const TOptParams* option,
                                                                const BaseAsset2OptCalcParams& grid, double rel);

// Sums the rows column by column (as long as the first row) and returns the
// magnitude of the lowest column; worst is its index, the earliest of columns
// within 1e-7 of each other. No rows, a null pointer or an empty first row
// give 0 with worst 0.
double CalcNettoOptionsRisk(const std::vector<std::vector<double>>* rows, size_t& worst);
// The same over the losses only: a gain of one row does not offset a loss of
// another at the same column.
double CalcHalfNettoOptionsRisk(const std::vector<std::vector<double>>* rows, size_t& worst);

}  // namespace DL::MDPLUS
