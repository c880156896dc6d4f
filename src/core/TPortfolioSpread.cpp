#include "core/TPortfolioSpread.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "base/TextHelpers.h"

namespace DL {

bool sortSpreadOrders(const TPortfolioSpread& a, const TPortfolioSpread& b) { return a.priority < b.priority; }

bool ParsePortfolioSpreadLine(const std::string& key, const std::string& value, TPortfolioSpread& out) {
  const std::string number = TrimStr(key);
  if (number.empty() || number.find_first_not_of("0123456789") != std::string::npos) return false;
  errno = 0;
  const long long priority = std::strtoll(number.c_str(), nullptr, 10);
  if (errno == ERANGE) return false;
  const std::vector<std::string> codes = BoardListToVector(value, ',', true);
  if (codes.size() != 2 || codes[0].empty() || codes[1].empty()) return false;
  out.key = key;
  out.priority = priority;
  out.baseAsset1 = codes[0];
  out.baseAsset2 = codes[1];
  return true;
}

std::vector<TPortfolioSpread> FillPortfolioSpreadOrder(const TIniKeyMap& keys,
                                                       std::vector<std::pair<std::string, std::string>>* others) {
  std::vector<TPortfolioSpread> order;
  for (const auto& [key, value] : keys) {
    TPortfolioSpread line;
    if (ParsePortfolioSpreadLine(key, value, line))
      order.push_back(std::move(line));
    else if (others != nullptr)
      others->emplace_back(key, value);
  }
  std::stable_sort(order.begin(), order.end(), sortSpreadOrders);
  return order;
}

}  // namespace DL
