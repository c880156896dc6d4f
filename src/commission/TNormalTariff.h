#pragma once
// The plain tariff: a fixed per cent of the value for each part, with the
// exchange's minimum of 1.0 per part when UseMin is on. A part that has a
// firm rate takes value * rate / Percent and no minimum.
#include "commission/ABoardTariff.h"

namespace DL {

class TNormalTariff : public ABoardTariff {
 public:
  // Three rates: every part has the minimum.
  TNormalTariff(double ts, double org, double clearing, const TExchCommRate& iniRates, bool useMin);
  // Organiser and clearing rates; no trading-system part and no minimum for it.
  TNormalTariff(double org, double clearing, const TExchCommRate& iniRates, bool useMin);
  // The organiser rate only; only the organiser part has the minimum.
  TNormalTariff(double org, const TExchCommRate& iniRates, bool useMin);

  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;
  // Also sets HasTS, HasOrg and HasClearing: a part has a firm rate when the
  // rate is 0 or more (tolerance 1e-7).
  void SetINIRates(const TExchCommRate& rates) override;

  TExchCommRate Rates;
  bool UseMin = false;
  bool HasTS = false;
  bool HasOrg = false;
  bool HasClearing = false;
  bool MinTS = true;
  bool MinClearing = true;
  bool MinOrg = true;
};

}  // namespace DL
