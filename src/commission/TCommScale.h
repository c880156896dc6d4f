#pragma once
// A commission scale: rates by turnover threshold with the scale's limits.
// Amounts and thresholds are held in hundredths.
#include <set>

#include "core/misc.h"

namespace DL {

struct TScaleRate {
  double rate = 0.0;      // as the scale section gives it
  double turnover = 0.0;  // threshold, in hundredths
  // Thresholds closer than 0.1 are one threshold.
  bool operator<(const TScaleRate& o) const { return MIsLT(turnover, o.turnover, 0.1); }
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
};

}  // namespace DL
