#include "commission/GZBTariffs.h"

#include <algorithm>

namespace DL {

namespace {

// value * days * perDay / percent under `fullFrom` days, else value * full / percent.
double OrgByTerm(double value, unsigned days, unsigned fullFrom, double perDay, double full, double percent) {
  if (days < fullFrom) return value * static_cast<double>(days) * perDay / percent;
  return value * full / percent;
}

constexpr unsigned kMainFullFrom = 101;
constexpr unsigned kNegotFullFrom = 201;
constexpr unsigned kRepoPerDayDays = 100;

}  // namespace

// ---- TGZBSharesBondsAtMain ----

TGZBSharesBondsAtMain::TGZBSharesBondsAtMain(const TExchCommRate& iniRates) : ABoardTariff(iniRates) {}

TExchCommValue TGZBSharesBondsAtMain::CalcCommValue(double value, ZDepoCount, unsigned, unsigned bondDays) const {
  TExchCommValue r(0.0, OrgByTerm(value, bondDays, kMainFullFrom, PerDay, Full, Percent), 0.0);
  ApplyINIRates(r, value);
  return r;
}

std::unique_ptr<ABoardTariff> TGZBSharesBondsAtMain::Clone() const {
  return std::make_unique<TGZBSharesBondsAtMain>(*this);
}

// ---- TGZBBondsAtNegot ----

TGZBBondsAtNegot::TGZBBondsAtNegot(const TExchCommRate& iniRates) : ABoardTariff(iniRates) {}

TExchCommValue TGZBBondsAtNegot::CalcCommValue(double value, ZDepoCount, unsigned, unsigned bondDays) const {
  TExchCommValue r(0.0, std::min(OrgByTerm(value, bondDays, kNegotFullFrom, PerDay, Full, Percent), Max), 0.0);
  ApplyINIRates(r, value);
  return r;
}

std::unique_ptr<ABoardTariff> TGZBBondsAtNegot::Clone() const { return std::make_unique<TGZBBondsAtNegot>(*this); }

// ---- TGZBBondsAtREPO ----

TGZBBondsAtREPO::TGZBBondsAtREPO(const TExchCommRate& iniRates) : ABoardTariff(iniRates) {}

TExchCommValue TGZBBondsAtREPO::CalcCommValue(double value, ZDepoCount, unsigned repoDays, unsigned) const {
  TExchCommValue r;
  if (repoDays > kRepoPerDayDays) {
    r = TExchCommValue(value * Full.TS / Percent, value * Full.Org / Percent, value * Full.Clearing / Percent);
  } else {
    const double d = static_cast<double>(repoDays);
    r = TExchCommValue(value * d * PerDay.TS / Percent, value * d * PerDay.Org / Percent,
                       value * d * PerDay.Clearing / Percent);
  }
  ApplyINIRates(r, value);
  return r;
}

std::unique_ptr<ABoardTariff> TGZBBondsAtREPO::Clone() const { return std::make_unique<TGZBBondsAtREPO>(*this); }

}  // namespace DL
