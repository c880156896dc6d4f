#pragma once
// Bond tariffs charged by the term of the deal in days (bondDays): a rate per
// day up to a limit of days, the full rate beyond it.
#include "commission/ABoardTariff.h"

namespace DL {

// Negotiated bond deals: per day up to 100 days, each part capped by Max; a
// firm rate removes the cap. MinOne floors each part at 1.0, the trading
// system's only when the firm set no rate for it.
class TBondsAtNegot : public ABoardTariff, public ABondsTariff {
 public:
  TBondsAtNegot(const TExchCommRate& iniRates, bool minOne);

  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;

  TExchCommRate Max{27000.0, 76500.0, 76500.0};
  TExchCommRate PerDay{1.5e-05, 4.25e-05, 4.25e-05};
  TExchCommRate Full{0.0015, 0.00425, 0.00425};
  bool MinOne = false;
};

// Bonds of the main boards: per day up to 100 days, the full rate from 101.
// With NoTS the trading-system part is always 0. Firm rates and the MinOne
// floor as in TDarkPool.
class TBondsTariff : public ABoardTariff, public ABondsTariff {
 public:
  TBondsTariff(bool noTS, const TExchCommRate& iniRates, bool minOne);

  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;

  TExchCommRate PerDay;
  TExchCommRate Full;
  bool NoTS = false;
  bool MinOne = false;

 protected:
  // The last day of the per-day rate, and the full rate with the trading
  // system's part (NoTS keeps the same full rate for every bond tariff).
  TBondsTariff(bool noTS, const TExchCommRate& iniRates, bool minOne, unsigned perDayDays,
               const TExchCommRate& fullWithTS);

  unsigned PerDayDays = 100;
};

// The other bonds: as TBondsTariff with the full rate above 125 days and a
// higher full rate with the trading system's part.
class TOtherBondsTariff : public TBondsTariff {
 public:
  TOtherBondsTariff(bool noTS, const TExchCommRate& iniRates, bool minOne);

  std::unique_ptr<ABoardTariff> Clone() const override;
};

}  // namespace DL
