#pragma once
// The kind of a repo commission rate as the settings name it.
#include <string_view>

namespace DL {

enum ERepoCommType : int {
  rctRepoFixed = 0,     // "REPOFIXED": a rate per day of the term
  rctRepoTrade = 1,     // "REPOTRADE": a money amount
  rctRepoTradeMax = 2,  // "REPOTRADE_MAX": a rate per day and an amount
  rctRepoTradeSum = 3,  // "REPOTRADE_SUM": as REPOTRADE_MAX, of its own base kind
  rctNotSet = 4,
};

// The broker commission kinds (as in the client commission settings) that
// the repo kinds stand for.
enum ERepoBaseCommType : int {
  rbctNone = 0,
  rbctFixed = 1,
  rbctTrade = 3,
  rbctTradeMax = 4,
  rbctTradeSum = 9,
};

// A small integer wrapper; 4 (rctNotSet) is the default.
struct TREPOCommTypeEnum {
  int value = rctNotSet;

  TREPOCommTypeEnum() = default;
  TREPOCommTypeEnum(int v) : value(v) {}  // NOLINT: a kind is its value
  operator int() const { return value; }  // NOLINT
  // "REPOFIXED" 1, "REPOTRADE" 3, "REPOTRADE_MAX" 4, "REPOTRADE_SUM" 9; 0 for
  // not set and for any other value.
  int ToBaseCommType() const;
  // The name of the kind; the empty text for not set and any other value.
  const char* ToString() const;
  bool operator==(const TREPOCommTypeEnum&) const = default;
};

// "REPOFIXED" 0, "REPOTRADE" 1, "REPOTRADE_MAX" 2, "REPOTRADE_SUM" 3, any
// other text 4. The comparison is exact.
TREPOCommTypeEnum StrToEnumREPOCommType(std::string_view text);

}  // namespace DL
