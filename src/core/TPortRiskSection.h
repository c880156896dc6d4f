#pragma once
// One section of the portfolio risk family as read at load: the firm-level
// "PortfolioRiskConfig", a base asset's "PortfolioRiskConfig_" + asset, or a
// template "PortfolioRiskConfig_" + name that binds trade accounts by its
// "Clients". It keeps what each parameter read, under the key as written, so
// that the section can be laid over a configuration and written back.
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "core/TPortRiskConfig.h"
#include "ini/SettingsText.h"

namespace DL {

struct TPortRiskSection {
  enum EKind { Firm = 0, BaseAsset = 1, Template = 2 };

  // A list parameter: its key as written (empty when absent) and its items.
  struct TListParam {
    std::string key;
    std::vector<std::string> items;
    bool Present() const { return !key.empty(); }
    bool operator==(const TListParam&) const = default;
  };
  // A text parameter: its key as written (empty when absent) and its value.
  struct TTextParam {
    std::string key;
    std::string value;
    bool Present() const { return !key.empty(); }
    bool operator==(const TTextParam&) const = default;
  };

  std::string name;  // the section's name as written
  EKind kind = Firm;
  std::string code;  // the base asset or template code: the name behind the prefix

  TListParam clients;  // "Clients" of a template: trade accounts of 1 to 12 characters
  TTextParam boardTag;
  TTextParam currency;
  TTextParam limitKind;  // the value is the number as read, in decimal
  TListParam mainSec, mainAsset, addSec, removeSec, addBaseAssets;
  TRiskConfig risk;                          // the values read; others at their defaults
  std::array<std::string, rpCount> riskKeys;  // the key as written, empty when absent
  TVolatilitySlopes slopes;
  std::array<std::string, TVolatilitySlopes::SlopeCount> slopeKeys;
  TListParam spreadTiers;
  std::vector<TSpreadLine> spreadLines;     // well-formed lines, in the section's order
  std::vector<std::pair<std::string, std::string>> unknown;  // kept as written
  TIniKeyMap loadedKeys;                    // the section as it was read

  // Reads a section. A known key with an empty value, any key this family
  // does not know, and a line of a known kind that does not read (a board tag
  // or currency longer than 12 characters, a slope with an odd count of
  // numbers, a spread line that does not fit a listed tier) take no part in
  // the configuration and are kept as written. "Clients" is read in a
  // template only.
  static TPortRiskSection Parse(const std::string& name, EKind kind, const std::string& code, const TIniKeyMap& keys);

  // Lays the section over a configuration: each parameter it has replaces
  // the configuration's; "SpreadTiers" replaces the tiers and their lines.
  void ApplyTo(TPortRiskConfig& config) const;

  // The section as settings text: "[name]" and one line per parameter read,
  // then the lines kept as written. A section without lines gives its
  // header alone.
  std::string ToText() const;

  bool HasRiskParam(ERiskParam param) const { return !riskKeys[param].empty(); }
};

// Completes a configuration after the sections are laid over it: each
// listed tier without a line gets FillDefaultSpreadLine, and the lines are
// put in the order of the tiers.
void FinishPortRiskConfig(TPortRiskConfig& config);

}  // namespace DL
