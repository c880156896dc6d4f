#pragma once
// The currency in which a client's commission is written off, by currency
// and class list, and three switches.
#include <map>
#include <string>
#include <vector>

#include "ini/SettingsText.h"

namespace DL {

struct TCommissionWriteOffCurrency {
  // Currency (the key behind the parameter) -> classes.
  using TByCurrency = std::map<std::string, std::vector<std::string>, StringMapComparerFunc>;
  TByCurrency broker;       // "CommissionWriteOffCurrency_" currency
  TByCurrency tradeSystem;  // "TSCommission_" currency
  bool withinAvailableCurrencyBalance = false;
  bool allowPositionClosing = false;
  bool doNotCheckForDiffSettlCurr = false;

  enum EFlag : unsigned {
    fWithinAvailableCurrencyBalance = 1,
    fAllowPositionClosing = 2,
    fDoNotCheckForDiffSettlCurr = 4
  };
  // The three switches as bits of EFlag.
  unsigned GetFlags() const {
    return (withinAvailableCurrencyBalance ? fWithinAvailableCurrencyBalance : 0u) |
           (allowPositionClosing ? fAllowPositionClosing : 0u) |
           (doNotCheckForDiffSettlCurr ? fDoNotCheckForDiffSettlCurr : 0u);
  }
  bool Empty() const { return broker.empty() && tradeSystem.empty() && GetFlags() == 0; }
  bool operator==(const TCommissionWriteOffCurrency& o) const {
    return broker == o.broker && tradeSystem == o.tradeSystem && GetFlags() == o.GetFlags();
  }
};

}  // namespace DL
