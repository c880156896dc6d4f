#pragma once
// Partners and settle codes allowed or prohibited for classes, by side and
// repo term. A line of the settings reads
//   key:   class list [ "_SIDE_" ("B" | "S") ] [ "_TERM_" term ]
//   value: partner list [ "|" settle code list ]
// with the lists split at ",". The reserved names "<ALL>", "<ALL_NDM>",
// "<ALL_NDM_CCP>", "<ALL_REPO>" and "<ALL_REPO_CCP>" stand for classes.
#include <compare>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/TradingTypes.h"

namespace DL {

class TPartnersAndSettleCodes {
 public:
  struct TKey {
    std::vector<std::string> classes;  // in the order of the text, 12 bytes each at most
    int side = sdBoth;                 // sdBoth, sdBuy or sdSell
    bool hasTerm = false;
    long long term = 0;  // by strtoll, when hasTerm
    auto operator<=>(const TKey&) const = default;
  };
  struct TCodes {
    std::vector<std::string> partners;     // 12 bytes each at most
    std::vector<std::string> settleCodes;  // 12 bytes each at most
    bool operator==(const TCodes&) const = default;
  };
  using TItems = std::map<TKey, TCodes>;

  // Reads one line; a later line of the same key replaces the earlier one.
  // A malformed line changes nothing and gives false: no class, a class or
  // code too long, a side other than "B" or "S", an empty value.
  bool AddLine(std::string_view key, std::string_view value);

  const TItems& Items() const { return m_items; }
  bool Empty() const { return m_items.empty(); }
  // The texts of a line, in the form AddLine reads.
  static std::string KeyToStr(const TKey& key);
  static std::string CodesToStr(const TCodes& codes);

  bool operator==(const TPartnersAndSettleCodes&) const = default;

  static constexpr const char* kSideMarker = "_SIDE_";
  static constexpr const char* kTermMarker = "_TERM_";
  static constexpr char kSettleCodesSeparator = '|';

 private:
  TItems m_items;
};

}  // namespace DL
