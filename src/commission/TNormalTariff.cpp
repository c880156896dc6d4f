#include "commission/TNormalTariff.h"

#include "base/Numbers.h"

namespace DL {

namespace {

// The part by the firm's rate, or the exchange's part raised to the minimum.
double NormalPart(double part, bool hasRate, double iniRate, bool minimum, double value, double percent) {
  if (hasRate) return value * iniRate / percent;
  if (minimum && MIsLT(part, 1.0)) return 1.0;
  return part;
}

}  // namespace

TNormalTariff::TNormalTariff(double ts, double org, double clearing, const TExchCommRate& iniRates, bool useMin)
    : ABoardTariff(iniRates), Rates(ts, org, clearing), UseMin(useMin) {
  TNormalTariff::SetINIRates(iniRates);
}

TNormalTariff::TNormalTariff(double org, double clearing, const TExchCommRate& iniRates, bool useMin)
    : ABoardTariff(iniRates), Rates(0.0, org, clearing), UseMin(useMin), MinTS(false) {
  TNormalTariff::SetINIRates(iniRates);
}

TNormalTariff::TNormalTariff(double org, const TExchCommRate& iniRates, bool useMin)
    : ABoardTariff(iniRates), Rates(0.0, org, 0.0), UseMin(useMin), MinTS(false), MinClearing(false) {
  TNormalTariff::SetINIRates(iniRates);
}

void TNormalTariff::SetINIRates(const TExchCommRate& rates) {
  ABoardTariff::SetINIRates(rates);
  HasTS = MIsGEZero(rates.TS);
  HasOrg = MIsGEZero(rates.Org);
  HasClearing = MIsGEZero(rates.Clearing);
}

TExchCommValue TNormalTariff::CalcCommValue(double value, ZDepoCount, unsigned, unsigned) const {
  TExchCommValue r(Rates.TS / Percent * value, Rates.Org / Percent * value, Rates.Clearing / Percent * value);
  r.TS = NormalPart(r.TS, HasTS, INIRates.TS, UseMin && MinTS, value, Percent);
  r.Org = NormalPart(r.Org, HasOrg, INIRates.Org, UseMin && MinOrg, value, Percent);
  r.Clearing = NormalPart(r.Clearing, HasClearing, INIRates.Clearing, UseMin && MinClearing, value, Percent);
  return r;
}

std::unique_ptr<ABoardTariff> TNormalTariff::Clone() const { return std::make_unique<TNormalTariff>(*this); }

}  // namespace DL
