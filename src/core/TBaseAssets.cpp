#include "core/TBaseAssets.h"

#include <cstdlib>

#include "base/TextHelpers.h"
#include "base/TClassList.h"

namespace DL {

namespace {

constexpr std::size_t kCodeMaxLength = 12;
constexpr const char* kClients = "Clients";
constexpr const char* kDefaultAsset = "DEFAULT";

}  // namespace

bool TSpotParams::Parse(const std::string& value, TSpotParams& out) {
  const std::vector<std::string> items = BoardListToVector(value, ',', true);
  if (items.empty() || items.size() % 2 != 0) return false;
  TSpotParams params;
  for (std::size_t i = 0; i < items.size(); i += 2) {
    if (items[i].empty() || items[i].size() > kCodeMaxLength || items[i + 1].empty()) return false;
    params.spots.emplace_back(items[i], std::strtod(items[i + 1].c_str(), nullptr));
  }
  out = std::move(params);
  return true;
}

std::string TSpotParams::ToText() const {
  std::string text;
  for (const auto& [instrument, number] : spots) {
    if (!text.empty()) text += ',';
    text += instrument;
    text += ',';
    text += DoubleToString(number, 13);
  }
  return text;
}

TBaseAssetsSection TBaseAssetsSection::Parse(const std::string& name, bool isTemplate, const std::string& code,
                                             const TIniKeyMap& keys) {
  TBaseAssetsSection s;
  s.name = name;
  s.isTemplate = isTemplate;
  s.code = code;
  s.loadedKeys = keys;
  for (const auto& [key, rawValue] : keys) {
    const std::string value = TrimStr(rawValue);
    if (IsSameSettingsName(key, kClients)) {
      if (!isTemplate || value.empty()) {
        s.unknown.emplace_back(key, rawValue);
        continue;
      }
      s.clientsKey = key;
      const TClassList list(value, TClassList::NoRepeats);
      for (const std::string& client : list.Items())
        if (client.size() <= kCodeMaxLength) s.clients.push_back(client);
      continue;
    }
    if (value.empty()) {
      s.unknown.emplace_back(key, rawValue);
      continue;
    }
    TSpotParams params;
    if (TSpotParams::Parse(value, params))
      s.assets.emplace_back(key, std::move(params));
    else
      s.unknown.emplace_back(key, rawValue);
  }
  return s;
}

const TSpotParams* TBaseAssetsSection::SpotListFor(const std::string& asset) const {
  const TSpotParams* fallback = nullptr;
  for (const auto& [code, params] : assets) {
    if (code == asset) return &params;
    if (code == kDefaultAsset) fallback = &params;
  }
  return fallback;
}

std::string TBaseAssetsSection::ToText() const {
  std::string text = "[" + name + "]\n";
  auto line = [&](const std::string& key, const std::string& value) {
    text += key;
    text += '=';
    text += value;
    text += '\n';
  };
  if (!clientsKey.empty()) line(clientsKey, ListToString(clients));
  for (const auto& [asset, params] : assets) line(asset, params.ToText());
  for (const auto& [key, value] : unknown) line(key, value);
  return text;
}

}  // namespace DL
