#include "core/TPortRiskSection.h"

#include <algorithm>
#include <cstdlib>

#include "base/TextHelpers.h"
#include "base/TClassList.h"

namespace DL {

namespace {

constexpr std::size_t kCodeMaxLength = 12;

constexpr const char* kClients = "Clients";
constexpr const char* kBoardTag = "BOARDTAG";
constexpr const char* kCurrency = "CURRENCY";
constexpr const char* kLimitKind = "LIMITKIND";
constexpr const char* kMainSec = "MainSec";
constexpr const char* kMainAsset = "MainAsset";
constexpr const char* kAddSec = "AddSec";
constexpr const char* kRemoveSec = "RemoveSec";
constexpr const char* kAddBaseAssets = "AddBaseAssets";
constexpr const char* kSpreadTiers = "SPREADTIERS";

std::vector<std::string> ListItems(const std::string& value) {
  return TClassList(value, TClassList::NoRepeats).Items();
}

void AppendLine(std::string& out, const std::string& key, const std::string& value) {
  out += key;
  out += '=';
  out += value;
  out += '\n';
}

void AppendList(std::string& out, const TPortRiskSection::TListParam& list) {
  if (list.Present()) AppendLine(out, list.key, ListToString(list.items));
}

}  // namespace

TPortRiskSection TPortRiskSection::Parse(const std::string& name, EKind kind, const std::string& code,
                                         const TIniKeyMap& keys) {
  TPortRiskSection s;
  s.name = name;
  s.kind = kind;
  s.code = code;
  s.loadedKeys = keys;
  std::vector<std::pair<std::string, std::string>> spreadKeys;
  TListParam* const lists[] = {&s.mainSec, &s.mainAsset, &s.addSec, &s.removeSec, &s.addBaseAssets, &s.spreadTiers};
  const char* const listNames[] = {kMainSec, kMainAsset, kAddSec, kRemoveSec, kAddBaseAssets, kSpreadTiers};
  for (const auto& [key, rawValue] : keys) {
    const std::string value = TrimStr(rawValue);
    if (value.empty()) {
      s.unknown.emplace_back(key, rawValue);
      continue;
    }
    if (kind == Template && IsSameSettingsName(key, kClients)) {
      s.clients.key = key;
      for (std::string& client : ListItems(value))
        if (client.size() <= kCodeMaxLength) s.clients.items.push_back(std::move(client));
      continue;
    }
    if (IsSameSettingsName(key, kBoardTag) || IsSameSettingsName(key, kCurrency)) {
      TTextParam& param = IsSameSettingsName(key, kBoardTag) ? s.boardTag : s.currency;
      if (value.size() <= kCodeMaxLength)
        param = {key, value};
      else
        s.unknown.emplace_back(key, rawValue);
      continue;
    }
    if (IsSameSettingsName(key, kLimitKind)) {
      s.limitKind = {key, IntToString(std::strtol(value.c_str(), nullptr, 10))};
      continue;
    }
    bool isList = false;
    for (std::size_t i = 0; i < std::size(lists); ++i)
      if (IsSameSettingsName(key, listNames[i])) {
        *lists[i] = {key, ListItems(value)};
        isList = true;
      }
    if (isList) continue;
    ERiskParam param = rpCount;
    if (FindRiskParam(key, param)) {
      // Two spellings of one parameter: the first in the map wins.
      if (s.riskKeys[param].empty() && s.risk.Read(param, value)) s.riskKeys[param] = key;
      continue;
    }
    TVolatilitySlopes::ESlope slope = TVolatilitySlopes::SlopeCount;
    if (TVolatilitySlopes::FindSlope(key, slope)) {
      if (TVolatilitySlopes::ParsePoints(value, s.slopes.points[slope]))
        s.slopeKeys[slope] = key;
      else
        s.unknown.emplace_back(key, rawValue);
      continue;
    }
    if (IsSpreadLineKey(key)) {
      spreadKeys.emplace_back(key, rawValue);
      continue;
    }
    s.unknown.emplace_back(key, rawValue);
  }
  // The lines need the tiers, which may stand after them in the map.
  const TClassList tiers(ListToString(s.spreadTiers.items), TClassList::NoRepeats);
  for (const auto& [key, value] : spreadKeys) {
    TSpreadLine line;
    if (ParseSpreadLine(key, TrimStr(value), tiers, line))
      s.spreadLines.push_back(std::move(line));
    else
      s.unknown.emplace_back(key, value);
  }
  return s;
}

void TPortRiskSection::ApplyTo(TPortRiskConfig& config) const {
  if (boardTag.Present()) config.boardTag = boardTag.value;
  if (currency.Present()) config.currency = currency.value;
  if (limitKind.Present()) config.limitKind = static_cast<int>(std::strtol(limitKind.value.c_str(), nullptr, 10));
  const std::pair<const TListParam*, std::vector<std::string>*> lists[] = {
      {&mainSec, &config.mainSec},           {&mainAsset, &config.mainAsset}, {&addSec, &config.addSec},
      {&removeSec, &config.removeSec},       {&addBaseAssets, &config.addBaseAssets}};
  for (const auto& [from, to] : lists)
    if (from->Present()) *to = from->items;
  for (int i = 0; i < rpCount; ++i) {
    const ERiskParam param = static_cast<ERiskParam>(i);
    if (HasRiskParam(param)) config.risk.Set(param, risk.Get(param));
  }
  for (int i = 0; i < TVolatilitySlopes::SlopeCount; ++i)
    if (!slopeKeys[i].empty()) config.slopes.points[i] = slopes.points[i];
  if (spreadTiers.Present()) {
    config.spreadTiers = spreadTiers.items;
    config.spreadLines = spreadLines;
  }
}

std::string TPortRiskSection::ToText() const {
  std::string lines;
  AppendList(lines, clients);
  for (const TTextParam* param : {&boardTag, &currency, &limitKind})
    if (param->Present()) AppendLine(lines, param->key, param->value);
  for (const TListParam* list : {&mainSec, &mainAsset, &addSec, &removeSec, &addBaseAssets}) AppendList(lines, *list);
  for (int i = 0; i < rpCount; ++i)
    if (!riskKeys[i].empty()) AppendLine(lines, riskKeys[i], risk.ToText(static_cast<ERiskParam>(i)));
  for (int i = 0; i < TVolatilitySlopes::SlopeCount; ++i)
    if (!slopeKeys[i].empty()) AppendLine(lines, slopeKeys[i], TVolatilitySlopes::PointsToText(slopes.points[i]));
  AppendList(lines, spreadTiers);
  for (const TSpreadLine& line : spreadLines) AppendLine(lines, line.key, SpreadLineValueToText(line));
  for (const auto& [key, value] : unknown) AppendLine(lines, key, value);
  // An empty section is written too: the firm-level section turns the
  // family on by being there.
  return "[" + name + "]\n" + lines;
}

void FinishPortRiskConfig(TPortRiskConfig& config) {
  for (const std::string& tier : config.spreadTiers) {
    const bool hasLine = std::any_of(config.spreadLines.begin(), config.spreadLines.end(),
                                     [&](const TSpreadLine& line) { return line.tier == tier; });
    if (!hasLine) config.spreadLines.push_back(FillDefaultSpreadLine(tier, config.baseAsset));
  }
  auto tierIndex = [&](const TSpreadLine& line) {
    return std::find(config.spreadTiers.begin(), config.spreadTiers.end(), line.tier) - config.spreadTiers.begin();
  };
  std::stable_sort(config.spreadLines.begin(), config.spreadLines.end(),
                   [&](const TSpreadLine& a, const TSpreadLine& b) { return tierIndex(a) < tierIndex(b); });
}

}  // namespace DL
