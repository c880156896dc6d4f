#pragma once
// The security restrictions of one client, template or the firm as a whole:
// which securities, partners and settle codes may be used, price limits, the
// largest order value, and per-client switches. A client's object holds what
// its own section says; the query side looks in it first and then in the
// global object, so a client section adds to or overrides the global
// settings key by key. Only the order value is inherited while parsing.
#include <map>
#include <set>
#include <string>

#include "cache/TCommissionWriteOffCurrency.h"
#include "cache/TPartnersAndSettleCodes.h"
#include "cache/TPriceLimit.h"
#include "cache/TRowListWithAll.h"
#include "base/TClassList.h"
#include "ini/SettingsText.h"
#include "ini/TMaxOrderValue.h"

namespace DL {

struct TClientSecurityRestrictions {
  // Class -> list, by the key's class (the part before the suffix).
  using TClassToList = std::map<std::string, TRowListWithAll, StringMapComparerFunc>;
  // Code -> currencies, "RUB" and "RUR" written as "SUR".
  using TCurrencySets = std::map<std::string, std::set<std::string>, StringMapComparerFunc>;

  TMaxOrderValue orderMaxValue;                                  // "OrderMaxValue"; amount -100.0: not set
  bool orderMaxValueSet = false;                                 // the section gave an amount of its own
  TRowListWithAll allowedPartners;                               // "AllowedPartners"
  TRowListWithAll prohibitedPartners;                            // "ProhibitedPartners"
  TRowListWithAll userTemplate;                                  // "UserTemplate"
  TPartnersAndSettleCodes allowedPartnersAndSettleCodes;         // "AllowedPartnersAndSettleCodes_"
  TPartnersAndSettleCodes prohibitedPartnersAndSettleCodes;      // "ProhibitedPartnersAndSettleCodes_"
  TPartnersAndSettleCodes softProhibitedPartnersAndSettleCodes;  // "Soft_ProhibitedPartnersAndSettleCodes_"
  TPriceLimit priceLimit;                                        // "PriceLimit_" class
  TPriceLimit secPriceLimit;                                     // "SecPriceLimit_" security
  TPriceLimit softPriceLimit;                                    // "Soft_PriceLimit_" class
  TPriceLimit softSecPriceLimit;                                 // "Soft_SecPriceLimit_" security
  TDeviationPercentMiddle priceLimitMiddle;                      // "PriceLimit_MIDDLE"
  TDeviationPercentMiddle secPriceLimitMiddle;                   // "SecPriceLimit_MIDDLE"
  TDeviationPercentMiddle softPriceLimitMiddle;                  // "Soft_PriceLimit_MIDDLE"
  TDeviationPercentMiddle softSecPriceLimitMiddle;               // "Soft_SecPriceLimit_MIDDLE"
  TClassToList restrictOpen;                                     // class "_RESTRICTOPEN": restricted for opening
  TClassToList restSecurity;                                     // class "_RESTSECURITY": restricted securities
  TClassToList security;                                         // class "_SECURITY": allowed securities
  TClassToList trdAcc;                                           // class "_TRDACC": trading accounts
  bool noAllowedList = true;                               // no "_SECURITY" key, and no "_TRDACC" list says "<ALL>"
  TCommissionWriteOffCurrency commissionWriteOffCurrency;  // "CommissionWriteOffCurrency_", "TSCommission_"
  TClassList classesWithoutTSCommission;                   // "ClassesWithoutTSCommission"
  TClassList linkedUserTemplate;                           // "LinkedUserTemplate"
  TClassList brokerQuoteBoard;                             // "BrokerQuoteBoard"
  TClassList transferBoard;                                // "TransferBoard"
  TCurrencySets addMultiCurrency;                          // "AddMultiCurrency_" main currency
  TCurrencySets currency;                                  // "Currency_" code
  TCurrencySets currency2;                                 // "Currency2_" code
  bool ignoreCheckLimits = false;                          // "IGNORECHECKLIMITS" of the global "General"

  bool operator==(const TClientSecurityRestrictions& o) const;
  bool operator!=(const TClientSecurityRestrictions& o) const { return !(*this == o); }
};

}  // namespace DL
