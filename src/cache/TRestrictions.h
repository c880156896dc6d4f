#pragma once
// The order restrictions of one level (the firm's global sections or one
// restriction template): quantity and position limits, price limits by time,
// turnover-based volume limits, repo prohibitions, allowed and restricted
// securities, and their soft twins. A soft field has the same type as its
// hard twin; only the queries tell them apart.
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "cache/TMaxSettleDateByAssetTypeAndClassListStorage.h"
#include "cache/TProhibitedCPAndSettlementCurrencyStorage.h"
#include "cache/TRestrictMaxValueForSettlementCurrencyStorage.h"
#include "cache/TRestrictREPOWithCPBasedOnTermStorage.h"
#include "base/PlainRecords.h"
#include "base/TradingTypes.h"

namespace DL {

// A list of codes, or all of them: a value "<ALL>" sets the flag and keeps
// no list.
struct TCodeListWithAll {
  bool all = false;
  std::set<std::string> codes;

  bool Empty() const { return !all && codes.empty(); }
  bool operator==(const TCodeListWithAll&) const = default;
};

// "MaxOrderQuantity_" and "MinOrderQuantity_": one entry per line, in key
// order. Two lists are equal when their entries agree field by field.
struct TQtyToClassListAndSecListVector : std::vector<TQtyToClassListAndSecList> {
  bool operator==(const TQtyToClassListAndSecListVector& o) const;
};

// "MaxPositionLimit_<securities>=<long>[,<short>]": -1 is no limit.
struct TMaxPositionLimit {
  std::int64_t longLimit = -1;
  std::int64_t shortLimit = -1;
  std::set<std::string> securities;

  bool operator==(const TMaxPositionLimit&) const = default;
};
using TMaxPositionLimitToSecList = std::vector<TMaxPositionLimit>;

// One "PriceLimitByTime_" line: the deviation allowed in the time interval.
struct TPriceLimitByTime {
  std::set<std::string> classes;
  std::set<std::string> securities;
  TTimeInterval time;
  double deviation = -1.0;  // per cent; -1 when not given
  int priceType = 0;        // price type number (TIniParser::GetPriceType)
  bool reject = false;

  bool operator==(const TPriceLimitByTime&) const = default;
};
struct TPriceLimitToClassListAndSecListAndTime {
  std::vector<TPriceLimitByTime> limits;
  // "PriceLimitByTime_ReferencePrice_<key>=<value>": the text behind
  // "ReferencePrice_" to the value, as written.
  std::map<std::string, std::string> referencePrices;

  bool operator==(const TPriceLimitToClassListAndSecListAndTime&) const = default;
};

// One "RestOrdVolumeByAvgTurnover_" line.
struct TRestOrdVolumeItem {
  std::set<std::string> classes;
  std::set<std::string> securities;
  double limit = -1.0;   // per cent of the average turnover
  double second = 0.0;   // the second number of the value
  std::string text;      // the third item, upper case

  bool operator==(const TRestOrdVolumeItem&) const = default;
};
struct TRestOrdVolumeByAvgTurnover {
  std::vector<TRestOrdVolumeItem> items;

  bool operator==(const TRestOrdVolumeByAvgTurnover&) const = default;
};

// Repo term prohibitions: by class, side and term, the class codes listed.
using TRepoTermKey = std::tuple<std::string, ESide, long>;  // class, side, term in days
using TProhibitREPOByFirstPartSideAndTerm = std::map<TRepoTermKey, TCodeListWithAll>;
// Class -> side -> securities.
using TClassToSideToSecList = std::map<std::string, std::map<ESide, TCodeListWithAll>>;
// Class -> securities.
using TClassToSecList = std::map<std::string, TCodeListWithAll>;

struct TRestrictions {
  TQtyToClassListAndSecListVector maxOrderQuantity;  // "MaxOrderQuantity_"
  TQtyToClassListAndSecListVector minOrderQuantity;  // "MinOrderQuantity_"
  TMaxPositionLimitToSecList maxPositionLimit;       // "MaxPositionLimit_"
  double defaultDeviation = -1.0;                    // no price limit unless a line sets one
  int basePeriod = 2;                                // "BasePeriod" of "RestOrdVolumeByAvgTurnover"
  int softBasePeriod = 2;                            // "BasePeriod" of "Soft_RestOrdVolumeByAvgTurnover"
  TPriceLimitToClassListAndSecListAndTime priceLimitByTime;       // "PriceLimitByTime_"
  TRestOrdVolumeByAvgTurnover restOrdVolumeByAvgTurnover;          // "RestOrdVolumeByAvgTurnover_"
  TRestOrdVolumeByAvgTurnover softRestOrdVolumeByAvgTurnover;      // "Soft_RestOrdVolumeByAvgTurnover_"
  TProhibitREPOByFirstPartSideAndTerm prohibitRepoByFirstPartSideAndTerm;      // hard
  TProhibitREPOByFirstPartSideAndTerm softProhibitRepoByFirstPartSideAndTerm;  // "Soft_"
  TClassToSideToSecList restrictRepoByFirstPartSide;                           // "RestrictREPOByFirstPartSide_"
  TClassToSecList securityAllowed;                                             // "SecurityAllowed_"
  TClassToSecList softSecurityAllowed;
  TClassToSideToSecList securityRestricted;  // "SecurityRestricted_"
  TClassToSideToSecList softSecurityRestricted;
  TProhibitedCPAndSettlementCurrencyStorage prohibitedCP;
  TProhibitedCPAndSettlementCurrencyStorage softProhibitedCP;
  TRestrictREPOWithCPBasedOnTermStorage repoTerm;
  TRestrictREPOWithCPBasedOnTermStorage softRepoTerm;
  TRestrictMaxValueForSettlementCurrencyStorage maxValue;
  TRestrictMaxValueForSettlementCurrencyStorage softMaxValue;
  TMaxSettleDateByAssetTypeAndClassListStorage maxSettleDate;
  bool qualifiedInvestors = false;                      // "QualifiedInvestors", templates only
  std::set<std::string> accessToComplexInstruments;     // upper case
  std::set<std::string> allowedISINPrefix;

  bool operator==(const TRestrictions&) const = default;
  // Rebuilds the index of each of the seven repo and settlement storages.
  void RebuildIndexes();
};

}  // namespace DL
