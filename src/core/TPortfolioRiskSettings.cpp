#include "core/TPortfolioRiskSettings.h"

#include <cstring>

#include "base/TextHelpers.h"
#include "ini/SettingsText.h"

namespace DL {

namespace {

constexpr const char* kGeneralSection = "General";
constexpr const char* kPortfolioRiskConfig = "PortfolioRiskConfig";
constexpr const char* kPortfolioRiskConfigPrefixUp = "PORTFOLIORISKCONFIG_";
constexpr const char* kPortfolioSpreadOrder = "PortfolioSpreadOrder";
constexpr const char* kBaseAssets = "BaseAssets";
constexpr const char* kClients = "Clients";

}  // namespace

// Step 14. Nothing is read unless the firm has "PortfolioRiskConfig".
void TPortfolioRiskSettings::ParseRiskConfigs(const TIniParser& parser) {
  m_hasPortfolioRisk = false;
  m_defaultRiskConfig = TPortRiskConfig();
  m_assetRiskConfigs.clear();
  m_tradeAccountRiskConfigs.clear();
  m_portfolioSpreadOrder.clear();
  m_spreadOrderKeysAtLoad.reset();
  m_spreadOrderOthers.clear();
  m_portfolioLimitKinds.clear();
  m_portRiskSections.clear();
  const TIniSectionsMap& sections = parser.GetSections();
  auto firm = sections.find(kPortfolioRiskConfig);
  if (firm == sections.end()) return;
  m_hasPortfolioRisk = true;
  m_portfolioLimitKinds = StringListToIntVector(
      parser.GetIniParamString(std::string(kGeneralSection), TIniParser::ipcLimitKinds, TIniParser::EmptyString()));

  // 1. Every section of the family: the firm level, the base assets, and
  // the templates, told from base assets by their "Clients".
  const std::size_t prefixLength = std::strlen(kPortfolioRiskConfigPrefixUp);
  for (const auto& [name, keys] : sections) {
    TPortRiskSection::EKind kind = TPortRiskSection::Firm;
    std::string code;
    if (&name != &firm->first) {
      const std::string nameUp = StrUpper(name);
      if (nameUp.size() <= prefixLength || !StringStartsCaseSens(nameUp, kPortfolioRiskConfigPrefixUp)) continue;
      code = name.substr(prefixLength);
      kind = keys.count(kClients) != 0 ? TPortRiskSection::Template : TPortRiskSection::BaseAsset;
    }
    m_portRiskSections.emplace(name, TPortRiskSection::Parse(name, kind, code, keys));
  }

  // 2, 3. The firm-level default, then each base asset's configuration: the
  // default with the asset's section laid over it.
  const TPortRiskSection& firmSection = m_portRiskSections.at(firm->first);
  firmSection.ApplyTo(m_defaultRiskConfig);
  if (!firmSection.HasRiskParam(rp_orderKgo)) m_defaultRiskConfig.risk.orderKgo = m_defaultRiskConfig.risk.kgo;
  FinishPortRiskConfig(m_defaultRiskConfig);
  for (const auto& [name, section] : m_portRiskSections) {
    if (section.kind != TPortRiskSection::BaseAsset) continue;
    TPortRiskConfig config = m_defaultRiskConfig;
    config.baseAsset = section.code;
    // The firm's default lines were made for no asset: they are made anew.
    std::erase_if(config.spreadLines, [](const TSpreadLine& line) { return line.isDefault; });
    section.ApplyTo(config);
    FinishPortRiskConfig(config);
    m_assetRiskConfigs.push_back(std::move(config));
  }

  // 4. Each trade account bound by a template: the firm-level
  // configurations with the template laid over them, so that the account's
  // section wins. An account bound twice keeps the first template.
  for (const auto& [name, section] : m_portRiskSections) {
    if (section.kind != TPortRiskSection::Template) continue;
    for (const std::string& account : section.clients.items) {
      if (m_tradeAccountRiskConfigs.count(account) != 0) continue;
      TTradeAccountRiskConfigs& configs = m_tradeAccountRiskConfigs[account];
      configs.section = name;
      configs.byDefault = m_defaultRiskConfig;
      section.ApplyTo(configs.byDefault);
      FinishPortRiskConfig(configs.byDefault);
      for (const TPortRiskConfig& assetConfig : m_assetRiskConfigs) {
        TPortRiskConfig config = assetConfig;
        section.ApplyTo(config);
        FinishPortRiskConfig(config);
        configs.byAsset.push_back(std::move(config));
      }
    }
  }

  // 5. The spread order.
  auto order = sections.find(kPortfolioSpreadOrder);
  if (order != sections.end()) {
    m_portfolioSpreadOrder = FillPortfolioSpreadOrder(order->second, &m_spreadOrderOthers);
    m_spreadOrderKeysAtLoad = order->second;
  }
}

// Step 16: "BaseAssets" and every "BaseAssets_Template_" + code.
void TPortfolioRiskSettings::ParseBaseAssets(const TIniParser& parser) {
  m_baseAssetsSections.clear();
  const std::string& templatePrefixUp = TIniParser::GetPartIniSectCodeUp(TIniParser::pscBaseAssets_Template_);
  // Only the sections whose name begins with "BaseAssets" are visited.
  ForEachWithPrefixNoCase(parser.GetSections(), std::string_view(kBaseAssets), [&](const auto& section) {
    const std::string& name = section.first;
    const TIniKeyMap& keys = section.second;
    if (IsSameSettingsName(name, kBaseAssets)) {
      m_baseAssetsSections.emplace(name, TBaseAssetsSection::Parse(name, false, std::string(), keys));
      return;
    }
    const std::string nameUp = StrUpper(name);
    if (nameUp.size() <= templatePrefixUp.size() || !StringStartsCaseSens(nameUp, templatePrefixUp.c_str())) return;
    m_baseAssetsSections.emplace(name,
                                 TBaseAssetsSection::Parse(name, true, name.substr(templatePrefixUp.size()), keys));
  });
}

std::optional<TPortRiskConfig> TPortfolioRiskSettings::Config(const char* tradeAccount, const char* baseAsset) const {
  if (!m_hasPortfolioRisk) return std::nullopt;
  const std::string account = tradeAccount != nullptr ? tradeAccount : "";
  const std::string asset = baseAsset != nullptr ? baseAsset : "";
  if (asset.empty()) return m_defaultRiskConfig;
  auto covering = [&](const std::vector<TPortRiskConfig>& configs) -> const TPortRiskConfig* {
    for (const TPortRiskConfig& config : configs)
      if (config.Covers(asset)) return &config;
    return nullptr;
  };
  auto entry = m_tradeAccountRiskConfigs.find(account);
  if (entry != m_tradeAccountRiskConfigs.end())
    if (const TPortRiskConfig* hit = covering(entry->second.byAsset)) return *hit;
  if (const TPortRiskConfig* hit = covering(m_assetRiskConfigs)) return *hit;
  // The firm-level default, for the asset asked.
  TPortRiskConfig config = m_defaultRiskConfig;
  config.baseAsset = asset;
  std::erase_if(config.spreadLines, [](const TSpreadLine& line) { return line.isDefault; });
  FinishPortRiskConfig(config);
  return config;
}

void TPortfolioRiskSettings::AppendRows(const TIniParser& parser, std::string& text, TWrittenSections& written) const {
  for (const auto& [name, keys] : parser.GetSections()) {
    if (written.count(&name) != 0) continue;
    std::string row;
    if (auto risk = m_portRiskSections.find(name); risk != m_portRiskSections.end()) {
      if (risk->second.loadedKeys != keys) continue;
      row = risk->second.ToText();
    } else if (auto assets = m_baseAssetsSections.find(name); assets != m_baseAssetsSections.end()) {
      if (assets->second.loadedKeys != keys) continue;
      row = assets->second.ToText();
    } else if (m_spreadOrderKeysAtLoad.has_value() && IsSameSettingsName(name, kPortfolioSpreadOrder)) {
      if (*m_spreadOrderKeysAtLoad != keys) continue;
      row = "[" + name + "]\n";
      for (const TPortfolioSpread& line : m_portfolioSpreadOrder)
        row += line.key + "=" + line.baseAsset1 + "," + line.baseAsset2 + "\n";
      for (const auto& [key, value] : m_spreadOrderOthers) row += key + "=" + value + "\n";
    } else {
      continue;
    }
    written.insert(&name);
    text += row;
  }
}

}  // namespace DL
