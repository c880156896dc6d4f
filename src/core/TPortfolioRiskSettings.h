#pragma once
// The hub's component for the portfolio risk family: the sections
// "PortfolioRiskConfig" and "PortfolioRiskConfig_" plus a base asset or a
// template, the spread order "PortfolioSpreadOrder", and the base assets
// sections "BaseAssets" and "BaseAssets_Template_" plus a code. It owns their
// parsing (load steps 14 and 16), the query of a configuration, and their part
// of the save. It reads the section map and nothing of the hub.
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "core/TBaseAssets.h"
#include "core/TPortRiskConfig.h"
#include "core/TPortRiskSection.h"
#include "core/TPortfolioSpread.h"
#include "core/TWrittenSections.h"
#include "ini/TIniParser.h"

namespace DL {

class TPortfolioRiskSettings {
 public:
  using TPortRiskSections = std::map<std::string, TPortRiskSection, StringMapComparerFunc>;
  using TBaseAssetsSections = std::map<std::string, TBaseAssetsSection, StringMapComparerFunc>;

  // Load step 14. Nothing is read unless the firm has "PortfolioRiskConfig".
  void ParseRiskConfigs(const TIniParser& parser);
  // Load step 16: "BaseAssets" and every "BaseAssets_Template_" + code.
  void ParseBaseAssets(const TIniParser& parser);

  // The configuration for a trade account and a base asset (null codes
  // count as empty). An empty base asset gives the firm-level default; else
  // the account's configurations are searched for the asset (its code or
  // "AddBaseAssets"), then the firm's, and without a match the firm-level
  // default is the answer. Nothing without the section
  // "PortfolioRiskConfig".
  std::optional<TPortRiskConfig> Config(const char* tradeAccount, const char* baseAsset) const;
  // Whether the firm has the section "PortfolioRiskConfig".
  bool HasConfigs() const { return m_hasPortfolioRisk; }
  const TPortRiskConfig& DefaultConfig() const { return m_defaultRiskConfig; }
  // The firm-level configuration of each base asset with a section, in the
  // order of the section names.
  const std::vector<TPortRiskConfig>& BaseAssetConfigs() const { return m_assetRiskConfigs; }
  // By trade account, the configurations of the template that binds it.
  const TTradeAccountRiskConfigMap& TradeAccountConfigs() const { return m_tradeAccountRiskConfigs; }
  // "PortfolioSpreadOrder", by ascending priority.
  const std::vector<TPortfolioSpread>& SpreadOrder() const { return m_portfolioSpreadOrder; }
  // "LimitKinds" of "General", as read with the configurations.
  const std::vector<int>& LimitKinds() const { return m_portfolioLimitKinds; }
  // The sections of the family as read, by name.
  const TPortRiskSections& Sections() const { return m_portRiskSections; }
  // "BaseAssets" and "BaseAssets_Template_" sections as read, by name.
  const TBaseAssetsSections& BaseAssetsSections() const { return m_baseAssetsSections; }

  // Save: the sections of the family and the base assets sections, each from
  // its parsed form while the section map holds it as it was read; an edited
  // section is left to the raw copy, so that the edit is what is saved.
  void AppendRows(const TIniParser& parser, std::string& text, TWrittenSections& written) const;

 private:
  bool m_hasPortfolioRisk = false;
  TPortRiskConfig m_defaultRiskConfig;
  std::vector<TPortRiskConfig> m_assetRiskConfigs;
  TTradeAccountRiskConfigMap m_tradeAccountRiskConfigs;
  std::vector<TPortfolioSpread> m_portfolioSpreadOrder;
  std::optional<TIniKeyMap> m_spreadOrderKeysAtLoad;  // "PortfolioSpreadOrder" as read, when parsed
  std::vector<std::pair<std::string, std::string>> m_spreadOrderOthers;  // its lines of another shape
  std::vector<int> m_portfolioLimitKinds;
  TPortRiskSections m_portRiskSections;
  TBaseAssetsSections m_baseAssetsSections;
};

}  // namespace DL
