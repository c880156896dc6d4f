#include "commission/TClientCommSettings.h"

#include <cstdlib>
#include <string>
#include <vector>

#include "base/TextHelpers.h"

namespace DL {

namespace {

constexpr const char* kRepoPerDayPrefixUp = "REPOPERDAYCOMMISSION_";
constexpr const char* kRepoScalePrefixUp = "REPOSCALE_";
constexpr const char* kRepoBrokerPrefixUp = "REPOBROKER_";
constexpr const char* kDefaultKey = "DEFAULT";

// The suffixes in their order of matching.
enum class ESuffix { Fixed, Trade, TradeMax, TwoRates, Lot, Sec };
struct TSuffix {
  const char* textUp;
  ESuffix kind;
};
constexpr TSuffix kSuffixes[] = {
    {"_FIXED", ESuffix::Fixed},       {"_TRADE", ESuffix::Trade},   {"_TRADE_MAX", ESuffix::TradeMax},
    {"_TRADE_MAX_1SEC", ESuffix::TwoRates}, {"_TRADELOT", ESuffix::Lot}, {"_1SEC", ESuffix::Sec},
};


double Number(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

// Two numbers separated by a comma; false unless there are exactly two
// non-empty items.
bool TwoNumbers(const std::string& value, double& a, double& b) {
  const std::vector<std::string> items = BoardListToVector(value, ',', true);
  if (items.size() != 2) return false;
  const std::string first = TrimStr(items[0]), second = TrimStr(items[1]);
  if (first.empty() || second.empty()) return false;
  a = Number(first);
  b = Number(second);
  return true;
}

}  // namespace

void TClientCommSettings::ParseClassRates(const TIniKeyMap& keys) {
  for (const auto& [key, value] : keys) {
    const std::string keyUp = StrUpper(key);
    if (StringStartsCaseSens(keyUp, kRepoPerDayPrefixUp)) {
      RepoPerDay.ParseSettingString(keyUp, value);
      continue;
    }
    if (StringStartsCaseSens(keyUp, kRepoScalePrefixUp)) {
      RepoScale.ParseSettingString(keyUp, value);
      continue;
    }
    if (StringStartsCaseSens(keyUp, kRepoBrokerPrefixUp)) {
      const std::string classCode = keyUp.substr(std::char_traits<char>::length(kRepoBrokerPrefixUp));
      if (!classCode.empty()) repoBrokerClasses.insert(classCode);
      continue;
    }
    for (const TSuffix& suffix : kSuffixes) {
      const std::size_t n = std::char_traits<char>::length(suffix.textUp);
      if (keyUp.size() <= n || keyUp.compare(keyUp.size() - n, n, suffix.textUp) != 0) continue;
      const std::string classCode = keyUp.substr(0, keyUp.size() - n);
      double a = 0.0, b = 0.0;
      switch (suffix.kind) {
        case ESuffix::Fixed:
          fixedRates[classCode] = Number(value);
          break;
        case ESuffix::Trade:
          tradeRates[classCode] = Number(value) * 100.0;
          break;
        case ESuffix::TradeMax:
          if (TwoNumbers(value, a, b)) tradeMaxRates[classCode] = {a * 100.0, b};
          break;
        case ESuffix::TwoRates:
          if (TwoNumbers(value, a, b)) twoRates[classCode] = {a * 100.0, b * 100.0};
          break;
        case ESuffix::Lot:
          lotRates[classCode] = Number(value) * 100.0;
          break;
        case ESuffix::Sec:
          secRates[classCode] = Number(value) * 100.0;
          break;
      }
      break;
    }
  }
  if (HasAnyRate()) HasClassRate = true;
}

bool TClientCommSettings::HasAnyRate() const {
  return !fixedRates.empty() || !tradeRates.empty() || !tradeMaxRates.empty() || !twoRates.empty() ||
         !lotRates.empty() || !secRates.empty();
}

namespace {

template <class M>
const typename M::mapped_type* Find(const M& map, const std::string& code) {
  const auto it = map.find(code);
  return it == map.end() ? nullptr : &it->second;
}

}  // namespace

bool TClientCommSettings::ApplyClassRate(const std::string& classCode) {
  const std::string code = StrUpper(classCode);
  auto apply = [&](ESuffix kind) -> bool {
    switch (kind) {
      case ESuffix::Fixed:
        if (const double* r = Find(fixedRates, code)) {
          CommKind = CommKindFixed;
          FixedRate = *r;
          return true;
        }
        return false;
      case ESuffix::Trade:
        if (const double* r = Find(tradeRates, code)) {
          CommKind = CommKindTrade;
          TradeRate = *r;
          return true;
        }
        return false;
      case ESuffix::TradeMax:
        if (const auto* r = Find(tradeMaxRates, code)) {
          CommKind = CommKindTradeMax;
          TradeRate = r->first;
          FixedRate = r->second;
          return true;
        }
        return false;
      case ESuffix::TwoRates:
        if (const auto* r = Find(twoRates, code)) {
          CommKind = CommKindTwoRates;
          TradeRate = r->first;
          SecRate = r->second;
          return true;
        }
        return false;
      case ESuffix::Lot:
        if (const double* r = Find(lotRates, code)) {
          CommKind = CommKindPerLot;
          LotRate = *r;
          return true;
        }
        return false;
      case ESuffix::Sec:
        if (const double* r = Find(secRates, code)) {
          CommKind = CommKindPerSecurity;
          SecRate = *r;
          return true;
        }
        return false;
    }
    return false;
  };
  const bool isDefault = code == kDefaultKey;
  static constexpr ESuffix kClassOrder[] = {ESuffix::Fixed, ESuffix::Trade, ESuffix::TradeMax,
                                            ESuffix::Sec,   ESuffix::Lot,   ESuffix::TwoRates};
  static constexpr ESuffix kDefaultOrder[] = {ESuffix::TradeMax, ESuffix::TwoRates, ESuffix::Fixed,
                                              ESuffix::Trade,    ESuffix::Sec,      ESuffix::Lot};
  for (const ESuffix kind : isDefault ? kDefaultOrder : kClassOrder)
    if (apply(kind)) {
      HasClassRate = true;
      UsedDefaultRate = isDefault;
      return true;
    }
  return false;
}

bool TClientCommSettings::ApplyDefaultRate() { return ApplyClassRate(kDefaultKey); }

bool TClientCommSettings::IsRepoClass(const std::string& classCode) const {
  const std::string code = StrUpper(classCode);
  return repoBrokerClasses.count(code) != 0 || RepoPerDay.HasClass(code) || RepoScale.HasClass(code);
}

}  // namespace DL
