#pragma once
// One portfolio risk configuration as the margin method uses it: its
// identity (base asset, board tag, currency, limit kind), the instruments of
// the base asset, the risk parameters, volatility slopes and spread tiers.
#include <map>
#include <string>
#include <vector>

#include "core/TRiskConfig.h"
#include "core/TSpreadLine.h"
#include "core/TVolatilitySlopes.h"

namespace DL {

struct TPortRiskConfig {
  std::string baseAsset;              // empty for the firm-level default
  std::string boardTag = "EQTV";      // "BOARDTAG", 12 characters at most
  std::string currency;               // "CURRENCY", 12 characters at most
  int limitKind = 0;                  // "LIMITKIND"
  std::vector<std::string> mainSec;   // "MainSec"
  std::vector<std::string> mainAsset; // "MainAsset"
  std::vector<std::string> addSec;    // "AddSec": added to the main securities
  std::vector<std::string> removeSec; // "RemoveSec": taken out of them
  std::vector<std::string> addBaseAssets;  // "AddBaseAssets": further assets this configuration covers
  TRiskConfig risk;
  TVolatilitySlopes slopes;
  std::vector<std::string> spreadTiers;    // "SpreadTiers", as listed
  std::vector<TSpreadLine> spreadLines;    // one or more per tier, in the order of the tiers

  // The securities of the base asset: "MainSec" with "AddSec" appended and
  // "RemoveSec" taken out, each once, in that order.
  std::vector<std::string> Securities() const;
  // Whether the configuration answers for the base asset: its own code or
  // one of "AddBaseAssets" (exact comparison).
  bool Covers(const std::string& asset) const;

  bool operator==(const TPortRiskConfig&) const = default;
};

// The configurations of one trade account: the firm-level configurations
// with the account's section laid over them.
struct TTradeAccountRiskConfigs {
  std::string section;                 // the section that binds the account
  TPortRiskConfig byDefault;           // over the firm-level default
  std::vector<TPortRiskConfig> byAsset;  // over each base asset's configuration

  bool operator==(const TTradeAccountRiskConfigs&) const = default;
};

using TTradeAccountRiskConfigMap = std::map<std::string, TTradeAccountRiskConfigs>;

}  // namespace DL
