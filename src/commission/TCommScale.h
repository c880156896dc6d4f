#pragma once
// A commission scale: rates by turnover threshold with the scale's limits.
// Amounts and thresholds are held in hundredths; a row's rate is held as the
// scale section gives it (per cent), so that a scale read from its section
// and written back gives the same text.
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/Numbers.h"

namespace DL {

struct TScaleRate {
  double rate = 0.0;      // as the scale section gives it
  double turnover = 0.0;  // threshold, in hundredths
  // Thresholds closer than 0.1 are one threshold.
  bool operator<(const TScaleRate& o) const { return MIsLT(turnover, o.turnover, 0.1); }
};

// The limits of a scale as an editor gives them, in units (not hundredths).
// A value of zero or less means "leave the stored value as it is".
struct TScaleCommExParams {
  double minValue = 0.0;
  double maxValue = 0.0;
  double minVolume = 0.0;
};

// One row as an editor gives it: the threshold in units and the rate.
struct TScaleRow {
  double turnover = 0.0;
  double rate = 0.0;
};

struct TCommScale {
  double minValue = 0.0;         // hundredths
  double maxValue = 0.0;         // hundredths
  double minVolume = 0.0;        // hundredths
  double tradeCommission = 0.0;  // hundredths
  bool considerRepoTerm = false;
  std::set<TScaleRate> rates;    // ascending by threshold

  // Enters a row; a row of the same threshold is replaced.
  void SetScaleRate(double turnover, double rate) {
    const TScaleRate row{rate, turnover};
    rates.erase(row);
    rates.insert(row);
  }

  // Each limit above zero is stored times 100; a limit of zero or less
  // leaves the stored one unchanged.
  void SetMinMaxTurnover(const TScaleCommExParams& limits);
  // Replaces all rows: each threshold times 100, the rate as given; a
  // repeated threshold keeps the last row.
  void SetScaleRates(const std::vector<TScaleRow>& rows);

  // The text of the scale, lines "key=value\n": "MinValue", "MaxValue" and
  // "MinVolume" when above zero, "TradeCommission" when above zero,
  // "ConsiderRepoTerm=1" when set, then one line per row, threshold=rate,
  // amounts divided by 100; every number with 10 decimals.
  void MakeSettingsString(std::string& out) const;

  // True for a scale with no limit, flag or row (the empty default).
  bool IsEmpty() const;
};

// A number with exactly 10 decimals, as the scale texts write them.
std::string ScaleNumberToString(double value);

}  // namespace DL
