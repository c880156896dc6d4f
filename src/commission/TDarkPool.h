#pragma once
// The tariff of the dark pool boards. With MinOne the organiser and clearing
// parts are at least 1.0 whatever their rate; so is the trading-system part
// when the board has one and the firm set no rate for it.
#include "commission/ABoardTariff.h"

namespace DL {

class TDarkPool : public ABoardTariff, public ABondsTariff {
 public:
  // Rates (0.0025, 0.0035, 0.004), with a trading-system part.
  TDarkPool(const TExchCommRate& iniRates, bool minOne);
  // Rates (0, 0.002875, 0.002125); with noTS the trading-system part is
  // always 0, a firm rate for it included.
  TDarkPool(bool noTS, const TExchCommRate& iniRates, bool minOne);

  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;

  TExchCommRate Rates;
  bool MinOne = false;
  bool NoTS = false;
};

// The steps shared by the dark pool and the plain bond tariffs, after the
// exchange's parts are computed into `out` (TS already 0 under noTS): the
// firm's rates, then the floor of 1.0 under minOne.
void ApplyINIRatesAndFloor(const ABoardTariff& tariff, TExchCommValue& out, double value, bool noTS, bool minOne);

}  // namespace DL
