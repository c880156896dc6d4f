#include "commission/TDarkPool.h"

#include "base/Numbers.h"

namespace DL {

void ApplyINIRatesAndFloor(const ABoardTariff& tariff, TExchCommValue& out, double value, bool noTS, bool minOne) {
  const TExchCommRate& ini = tariff.INIRates;
  const bool tsRate = !(0 > ini.TS);
  if (tsRate && !noTS) out.TS = PercentOf(value, ini.TS, tariff.Percent);
  if (!(0 > ini.Org)) out.Org = PercentOf(value, ini.Org, tariff.Percent);
  if (!(0 > ini.Clearing)) out.Clearing = PercentOf(value, ini.Clearing, tariff.Percent);
  if (!minOne) return;
  if (!noTS && !tsRate && MIsLT(out.TS, 1.0)) out.TS = 1.0;
  if (MIsLT(out.Org, 1.0)) out.Org = 1.0;
  if (MIsLT(out.Clearing, 1.0)) out.Clearing = 1.0;
}

TDarkPool::TDarkPool(const TExchCommRate& iniRates, bool minOne)
    : ABoardTariff(iniRates), Rates(0.0025, 0.0035, 0.004), MinOne(minOne) {}

TDarkPool::TDarkPool(bool noTS, const TExchCommRate& iniRates, bool minOne)
    : ABoardTariff(iniRates), Rates(0.0, 0.002875, 0.002125), MinOne(minOne), NoTS(noTS) {}

TExchCommValue TDarkPool::CalcCommValue(double value, ZDepoCount, unsigned, unsigned) const {
  TExchCommValue r(NoTS ? 0.0 : PercentOf(value, Rates.TS, Percent), PercentOf(value, Rates.Org, Percent),
                   PercentOf(value, Rates.Clearing, Percent));
  ApplyINIRatesAndFloor(*this, r, value, NoTS, MinOne);
  return r;
}

std::unique_ptr<ABoardTariff> TDarkPool::Clone() const { return std::make_unique<TDarkPool>(*this); }

}  // namespace DL
