#pragma once
// One row of a volume-based commission table in flat form: the volume from
// which the step holds, the side and the step's kind and rates.
#include <tuple>

#include "commission/TypeAndRate.h"
#include "base/TradingTypes.h"

namespace DL {

struct VolumeAndSideToTypeAndRate {
  double Volume = 0.0;
  ESide Side = sdBoth;
  TypeAndRate Rates;

  // By volume, then side, then kind, rate and amount.
  bool operator<(const VolumeAndSideToTypeAndRate& o) const {
    return std::tie(Volume, Side, Rates.CommType, Rates.Rate, Rates.Amount) <
           std::tie(o.Volume, o.Side, o.Rates.CommType, o.Rates.Rate, o.Rates.Amount);
  }
  bool operator==(const VolumeAndSideToTypeAndRate&) const = default;
};

}  // namespace DL
