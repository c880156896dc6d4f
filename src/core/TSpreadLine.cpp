#include "core/TSpreadLine.h"

#include "base/TextHelpers.h"

namespace DL {

namespace {

constexpr std::string_view kSpreadPrefixUp = "SPREAD_";
constexpr std::size_t kLegMaxLength = 12;

}  // namespace

bool IsSpreadLineKey(std::string_view key) {
  return key.size() >= kSpreadPrefixUp.size() && StrUpper(key.substr(0, kSpreadPrefixUp.size())) == kSpreadPrefixUp;
}

bool ParseSpreadLine(std::string_view key, std::string_view value, const TClassList& tiers, TSpreadLine& out) {
  const std::string keyUp = StrUpper(key);
  if (!IsSpreadLineKey(keyUp)) return false;
  const std::vector<std::string_view> parts =
      GetAllSubStringsView(std::string_view(key).substr(kSpreadPrefixUp.size()), '_');
  if (parts.size() != 2 && parts.size() != 3) return false;
  // The tier as "SpreadTiers" lists it.
  const std::string tierUp = StrUpper(parts[0]);
  const std::string* tier = nullptr;
  for (const std::string& listed : tiers.Items())
    if (StrUpper(listed) == tierUp) tier = &listed;
  if (tier == nullptr) return false;
  for (std::size_t i = 1; i < parts.size(); ++i)
    if (parts[i].empty() || parts[i].size() > kLegMaxLength) return false;
  std::vector<double> values = StringListToDoubleVector(value, ',');
  if (values.empty()) return false;
  TSpreadLine line;
  line.key = std::string(key);
  line.tier = *tier;
  line.leg1 = std::string(parts[1]);
  line.leg2 = std::string(parts.size() == 3 ? parts[2] : parts[1]);
  line.values = std::move(values);
  out = std::move(line);
  return true;
}

TSpreadLine FillDefaultSpreadLine(const std::string& tier, const std::string& baseAsset) {
  TSpreadLine line;
  line.tier = tier;
  line.leg1 = baseAsset;
  line.leg2 = baseAsset;
  line.values = {0.0};
  line.isDefault = true;
  return line;
}

std::string SpreadLineValueToText(const TSpreadLine& line) {
  std::string text;
  for (double v : line.values) {
    if (!text.empty()) text += ',';
    text += DoubleToString(v, 13);
  }
  return text;
}

}  // namespace DL
