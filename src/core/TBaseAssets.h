#pragma once
// The spot instruments of base assets: the section "BaseAssets" and the
// templates "BaseAssets_Template_" + code, which bind clients by "Clients".
// Every other key of such a section is a base asset ("DEFAULT" is the firm's
// default) and its value the spot list: instrument and number pairs,
// "SPOT1,1,SPOT2,0.5".
#include <string>
#include <utility>
#include <vector>

#include "ini/SettingsText.h"

namespace DL {

struct TSpotParams {
  std::vector<std::pair<std::string, double>> spots;  // instrument of 1 to 12 characters, number

  // The spot list of a value: an even count of items, each instrument 1 to
  // 12 characters long, each number read by strtod. False for anything else.
  static bool Parse(const std::string& value, TSpotParams& out);
  std::string ToText() const;

  bool operator==(const TSpotParams&) const = default;
};

struct TBaseAssetsSection {
  std::string name;  // as written
  bool isTemplate = false;
  std::string code;  // the template code; empty for "BaseAssets"
  std::string clientsKey;                // "Clients" as written; empty when absent
  std::vector<std::string> clients;      // of a template: codes of 1 to 12 characters
  std::vector<std::pair<std::string, TSpotParams>> assets;  // base asset -> spot list, in the section's order
  std::vector<std::pair<std::string, std::string>> unknown;  // kept as written
  TIniKeyMap loadedKeys;  // the section as it was read

  // Reads a section. A key with an empty value or a spot list that does not
  // read takes no part and is kept as written, and so is "Clients" outside a
  // template.
  static TBaseAssetsSection Parse(const std::string& name, bool isTemplate, const std::string& code,
                                  const TIniKeyMap& keys);
  // The spot list of a base asset (exact code), else that of "DEFAULT",
  // else null.
  const TSpotParams* SpotListFor(const std::string& asset) const;
  // "[name]" and the lines: "Clients" first, then the base assets, then the
  // lines kept as written.
  std::string ToText() const;

  bool operator==(const TBaseAssetsSection&) const = default;
};

}  // namespace DL
