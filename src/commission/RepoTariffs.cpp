#include "commission/RepoTariffs.h"

#include <algorithm>

namespace DL {

// ---- TSharesEuroBondsAtREPO ----

TSharesEuroBondsAtREPO::TSharesEuroBondsAtREPO(double clearingUpTo7, double clearingUpTo21, double clearingUpTo30,
                                               const TExchCommRate& iniRates)
    : ABoardTariff(iniRates) {
  ClearingByTerm[0] = clearingUpTo7;
  ClearingByTerm[1] = clearingUpTo21;
  ClearingByTerm[2] = clearingUpTo30;
}

TExchCommValue TSharesEuroBondsAtREPO::CalcCommValue(double value, ZDepoCount, unsigned repoDays, unsigned) const {
  TExchCommValue r;
  if (repoDays == 0) {
    r = TExchCommValue(Fixed, Fixed, Fixed);
  } else if (repoDays == 1) {
    r = TExchCommValue(value * OvernightTS / Percent, value * OvernightOrg / Percent,
                       value * ClearingByTerm[1] / Percent);
  } else {
    std::size_t term = 4;
    if (repoDays < 8) term = 0;
    else if (repoDays <= 21) term = 1;
    else if (repoDays <= 30) term = 2;
    else if (repoDays <= 90) term = 3;
    r = TExchCommValue(value * LongTS / Percent, value * LongOrg / Percent, value * ClearingByTerm[term] / Percent);
  }
  ApplyINIRates(r, value);
  return r;
}

std::unique_ptr<ABoardTariff> TSharesEuroBondsAtREPO::Clone() const {
  return std::make_unique<TSharesEuroBondsAtREPO>(*this);
}

// ---- TModifiedREPO ----

TModifiedREPO::TModifiedREPO(double first, double second, double third, const TExchCommRate& iniRates)
    : ABoardTariff(iniRates), First(first), Second(second), Third(third) {}

TExchCommValue TModifiedREPO::CalcCommValue(double value, ZDepoCount, unsigned repoDays, unsigned) const {
  const double days = repoDays > 0 ? static_cast<double>(repoDays) : 1.0;
  TExchCommValue r(std::max(Min, Rates.TS * value / Percent * days), std::max(Min, Rates.Org * value / Percent * days),
                   std::max(Min, Rates.Clearing * value / Percent * days));
  ApplyINIRates(r, value);
  return r;
}

std::unique_ptr<ABoardTariff> TModifiedREPO::Clone() const { return std::make_unique<TModifiedREPO>(*this); }

// ---- TMoexREPO ----

TMoexREPO::TMoexREPO(double tsRate, double orgRate, double clearingRate, double tsMin, double orgMin,
                     double clearingMin, const TExchCommRate& iniRates, bool noMin)
    : ABoardTariff(iniRates), Rates(tsRate, orgRate, clearingRate), Min(tsMin, orgMin, clearingMin), NoMin(noMin) {}

TMoexREPO::TMoexREPO(double orgRate, double clearingRate, double orgMin, double clearingMin,
                     const TExchCommRate& iniRates, bool noMin)
    : TMoexREPO(0.0, orgRate, clearingRate, 0.0, orgMin, clearingMin, iniRates, noMin) {}

TExchCommValue TMoexREPO::CalcCommValue(double value, ZDepoCount, unsigned repoDays, unsigned) const {
  // The value counts once per day of the term; a repo of 0 days counts it once.
  const double v = repoDays != 0 ? value * static_cast<double>(repoDays) : value;
  TExchCommValue r(Rates.TS * v / Percent, Rates.Org * v / Percent, Rates.Clearing * v / Percent);
  if (INIRates.TS >= 0) r.TS = v * INIRates.TS / Percent;
  if (INIRates.Org >= 0) r.Org = v * INIRates.Org / Percent;
  if (INIRates.Clearing >= 0) r.Clearing = v * INIRates.Clearing / Percent;
  if (!NoMin) {
    if (r.TS < Min.TS) r.TS = Min.TS;
    if (r.Org < Min.Org) r.Org = Min.Org;
    if (r.Clearing < Min.Clearing) r.Clearing = Min.Clearing;
  }
  return r;
}

std::unique_ptr<ABoardTariff> TMoexREPO::Clone() const { return std::make_unique<TMoexREPO>(*this); }

}  // namespace DL
