#pragma once
// The spread order of the firm ("PortfolioSpreadOrder"): which pairs of base
// assets offset each other first. A key is a priority number; the value is
// a comma list of exactly two base-asset codes.
#include <string>
#include <utility>
#include <vector>

#include "ini/SettingsText.h"

namespace DL {

struct TPortfolioSpread {
  std::string key;  // the key as written
  long long priority = 0;
  std::string baseAsset1;
  std::string baseAsset2;

  bool operator==(const TPortfolioSpread&) const = default;
};

// Ascending priority.
bool sortSpreadOrders(const TPortfolioSpread& a, const TPortfolioSpread& b);

// One line: the key must be a whole decimal number (digits only) and the
// value two non-empty codes; false for a line of another shape.
bool ParsePortfolioSpreadLine(const std::string& key, const std::string& value, TPortfolioSpread& out);
// Every well-formed line of the section, sorted by priority (equal
// priorities keep the section's order); other lines are left out silently,
// and go to `others` as written when it is given.
std::vector<TPortfolioSpread> FillPortfolioSpreadOrder(const TIniKeyMap& keys,
                                                       std::vector<std::pair<std::string, std::string>>* others = nullptr);

}  // namespace DL
