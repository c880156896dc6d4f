#pragma once
// One step of a volume-based commission table for one side: the kind of the
// commission, its rate in per cent and its money amount.
#include "base/TradingTypes.h"

namespace DL {

struct TypeAndRate {
  ECommType CommType = ctUndefined;  // fixed (0), maximum (1), minimum (2), undefined (3)
  double Rate = 0.0;                 // per cent of the value
  double Amount = 0.0;               // money, in units of the deal's currency

  TypeAndRate() = default;
  TypeAndRate(ECommType type, double rate, double amount) : CommType(type), Rate(rate), Amount(amount) {}
  void Set(ECommType type, double rate, double amount) {
    CommType = type;
    Rate = rate;
    Amount = amount;
  }
  bool operator==(const TypeAndRate&) const = default;
};

}  // namespace DL
