#include "commission/TDoubleSidedDealsWithCC.h"

#include "base/Numbers.h"

namespace DL {

namespace {
constexpr unsigned kFullFrom = 51;
}  // namespace

TDoubleSidedDealsWithCC::TDoubleSidedDealsWithCC(const TExchCommRate& iniRates, bool minOne)
    : ABoardTariff(iniRates), MinOne(minOne) {}

TExchCommValue TDoubleSidedDealsWithCC::CalcCommValue(double value, ZDepoCount, unsigned, unsigned bondDays) const {
  TExchCommValue r;
  r.Org = bondDays < kFullFrom ? value * static_cast<double>(bondDays) * PerDay / Percent : value * Full / Percent;
  if (MIsGEZero(INIRates.Org)) r.Org = value * INIRates.Org / Percent;
  if (MinOne && MIsLT(r.Org, 1.0)) r.Org = 1.0;
  return r;
}

std::unique_ptr<ABoardTariff> TDoubleSidedDealsWithCC::Clone() const {
  return std::make_unique<TDoubleSidedDealsWithCC>(*this);
}

}  // namespace DL
