#include "commission/TVolumeScaledBondsTariff.h"

#include <array>

#include "base/Numbers.h"

namespace DL {

namespace {

constexpr double kMoneyTolerance = 0.1;

using TTier = TVolumeScaledBondsTariff::TTier;

// The exchange's tiers; the last row has no upper bound.
constexpr std::array<TTier, 5> kTiers = {{
    {1e12, 0.008625, 0.006375, 0.0, 0.0, 0.0},
    {7.5e12, 0.0071875, 0.0053125, 1e12, 86250000.0, 63750000.0},
    {1.5e13, 0.00575, 0.00425, 7.5e12, 539062500.0, 398437500.0},
    {3e13, 0.0043125, 0.0031875, 1.5e13, 970312500.0, 717187500.0},
    {0.0, 0.002875, 0.002125, 3e13, 1617187500.0, 1195312500.0},
}};

// The reduced rate of a placement sale: the first two rows as one.
constexpr TTier kReducedSaleTier = {7.5e12, 0.0071875, 0.0053125, 0.0, 0.0, 0.0};

// The per-day charge of a term: the organiser's and clearing's rate per day.
constexpr double kOrgPerDayFirstWeek = 2.3e-05;
constexpr double kClearingPerDayFirstWeek = 1.7e-05;
constexpr double kOrgPerDayLater = 5.75e-05;
constexpr double kClearingPerDayLater = 4.25e-05;
constexpr unsigned kFirstWeek = 7;

}  // namespace

TVolumeScaledBondsTariff::TVolumeScaledBondsTariff(const TExchCommRate& iniRates, bool useMin, bool reducedSaleRate)
    : TTPlusBondsTariff(iniRates, useMin), IsUseBondPlacementReducedMOEXRateUsed(reducedSaleRate) {}

TVolumeScaledBondsTariff::TTier TVolumeScaledBondsTariff::GetTier(double value) const {
  if (IsUseBondPlacementReducedMOEXRateUsed && Side == 'S' && MIsLE(value, kReducedSaleTier.upTo, kMoneyTolerance))
    return kReducedSaleTier;
  for (std::size_t i = 0; i + 1 < kTiers.size(); ++i)
    if (MIsLE(value, kTiers[i].upTo, kMoneyTolerance)) return kTiers[i];
  return kTiers.back();
}

TExchCommValue TVolumeScaledBondsTariff::CalcCommValue(double value, ZDepoCount, unsigned, unsigned bondDays) const {
  TExchCommValue r;
  TCustomFlags flags;
  ApplyCustomRatesIfNeeded(r, value, flags);
  if (bondDays >= 1 && bondDays < kFirstWeek) {
    // A short term: the per-day charge, whatever the firm's rates.
    const double days = static_cast<double>(bondDays);
    r = TExchCommValue(0.0, days * kOrgPerDayFirstWeek * value / Percent,
                       days * kClearingPerDayFirstWeek * value / Percent);
  } else {
    const TTier tier = (flags.Org && flags.Clearing) ? TTier() : GetTier(value);
    const double d = value - tier.above;
    double org = tier.orgRate * d / Percent;
    double clearing = tier.clearingRate * d / Percent;
    if (bondDays >= kFirstWeek) {
      const double later = static_cast<double>(bondDays - kFirstWeek);
      const double firstWeek = static_cast<double>(kFirstWeek);
      org = DL::Min(org, (firstWeek * kOrgPerDayFirstWeek + later * kOrgPerDayLater) * d / Percent, kMoneyTolerance);
      clearing = DL::Min(clearing, (firstWeek * kClearingPerDayFirstWeek + later * kClearingPerDayLater) * d / Percent,
                         kMoneyTolerance);
    }
    if (!flags.Org) r.Org = org + tier.orgBase;
    if (!flags.Clearing) r.Clearing = clearing + tier.clearingBase;
  }
  if (UseMin) SetMinCommValue(r);
  return r;
}

std::unique_ptr<ABoardTariff> TVolumeScaledBondsTariff::Clone() const {
  return std::make_unique<TVolumeScaledBondsTariff>(*this);
}

}  // namespace DL
