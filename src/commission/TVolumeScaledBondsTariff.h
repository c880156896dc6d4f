#pragma once
// Bond placement boards: organiser and clearing rates fall with the size of
// the deal, by tiers of the value. A tier charges its rate on the part of the
// value above its lower bound plus the fixed base of the tiers below. For a
// term of 1 to 6 days a per-day charge applies instead; from 7 days the
// smaller of the tier charge and a per-day charge on the same part.
#include "commission/TTPlusBondsTariff.h"

namespace DL {

class TVolumeScaledBondsTariff : public TTPlusBondsTariff {
 public:
  // One row of the tiers: up to `upTo` (tolerance 0.1) the rates apply to
  // value - `above`, plus the bases.
  struct TTier {
    double upTo = 0.0;
    double orgRate = 0.0;
    double clearingRate = 0.0;
    double above = 0.0;
    double orgBase = 0.0;
    double clearingBase = 0.0;
  };

  // reducedSaleRate: the firm's "UseBondPlacementReducedMOEXRate".
  TVolumeScaledBondsTariff(const TExchCommRate& iniRates, bool useMin, bool reducedSaleRate = false);

  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;

  // The firm's "UseBondPlacementReducedMOEXRate": a sale (Side 'S') up to
  // 7.5e12 takes the second tier's rates on the whole value, with no base.
  void SetUseBondPlacementReducedMOEXRate(bool on) { IsUseBondPlacementReducedMOEXRateUsed = on; }
  // The tier of a value for this object's flag and side.
  TTier GetTier(double value) const;

  bool IsUseBondPlacementReducedMOEXRateUsed = false;
};

}  // namespace DL
