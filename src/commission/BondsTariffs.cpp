#include "commission/BondsTariffs.h"

#include <algorithm>

#include "commission/TDarkPool.h"

namespace DL {

namespace {

// Up to `perDayLimit` days: value * days * perDay / percent; beyond:
// value * full / percent. The trading-system part is 0 under noTS.
TExchCommValue ByTerm(double value, unsigned days, unsigned perDayLimit, const TExchCommRate& perDay,
                      const TExchCommRate& full, double percent, bool noTS) {
  TExchCommValue r;
  if (days > perDayLimit) {
    r = TExchCommValue(value * full.TS / percent, value * full.Org / percent, value * full.Clearing / percent);
  } else {
    const double d = static_cast<double>(days);
    r = TExchCommValue(value * d * perDay.TS / percent, value * d * perDay.Org / percent,
                       value * d * perDay.Clearing / percent);
  }
  if (noTS) r.TS = 0.0;
  return r;
}

constexpr unsigned kNegotPerDayDays = 100;
constexpr unsigned kBondsPerDayDays = 100;
constexpr unsigned kOtherBondsPerDayDays = 125;

}  // namespace

// ---- TBondsAtNegot ----

TBondsAtNegot::TBondsAtNegot(const TExchCommRate& iniRates, bool minOne) : ABoardTariff(iniRates), MinOne(minOne) {}

TExchCommValue TBondsAtNegot::CalcCommValue(double value, ZDepoCount, unsigned, unsigned bondDays) const {
  TExchCommValue r = ByTerm(value, bondDays, kNegotPerDayDays, PerDay, Full, Percent, false);
  r.TS = std::min(r.TS, Max.TS);
  r.Org = std::min(r.Org, Max.Org);
  r.Clearing = std::min(r.Clearing, Max.Clearing);
  ApplyINIRatesAndFloor(*this, r, value, false, MinOne);
  return r;
}

std::unique_ptr<ABoardTariff> TBondsAtNegot::Clone() const { return std::make_unique<TBondsAtNegot>(*this); }

// ---- TBondsTariff, TOtherBondsTariff ----

TBondsTariff::TBondsTariff(bool noTS, const TExchCommRate& iniRates, bool minOne)
    : TBondsTariff(noTS, iniRates, minOne, kBondsPerDayDays, TExchCommRate(0.0015, 0.00425, 0.00425)) {}

TBondsTariff::TBondsTariff(bool noTS, const TExchCommRate& iniRates, bool minOne, unsigned perDayDays,
                           const TExchCommRate& fullWithTS)
    : ABoardTariff(iniRates), NoTS(noTS), MinOne(minOne), PerDayDays(perDayDays) {
  if (noTS) {
    PerDay = TExchCommRate(0.0, 5.75e-05, 4.25e-05);
    Full = TExchCommRate(0.0, 0.0071875, 0.0053125);
  } else {
    PerDay = TExchCommRate(1.5e-05, 4.25e-05, 4.25e-05);
    Full = fullWithTS;
  }
}

TExchCommValue TBondsTariff::CalcCommValue(double value, ZDepoCount, unsigned, unsigned bondDays) const {
  TExchCommValue r = ByTerm(value, bondDays, PerDayDays, PerDay, Full, Percent, NoTS);
  ApplyINIRatesAndFloor(*this, r, value, NoTS, MinOne);
  return r;
}

std::unique_ptr<ABoardTariff> TBondsTariff::Clone() const { return std::make_unique<TBondsTariff>(*this); }

TOtherBondsTariff::TOtherBondsTariff(bool noTS, const TExchCommRate& iniRates, bool minOne)
    : TBondsTariff(noTS, iniRates, minOne, kOtherBondsPerDayDays, TExchCommRate(0.001875, 0.0053125, 0.0053125)) {}

std::unique_ptr<ABoardTariff> TOtherBondsTariff::Clone() const { return std::make_unique<TOtherBondsTariff>(*this); }

}  // namespace DL
