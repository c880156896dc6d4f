#include "core/TPortRiskConfig.h"

#include <algorithm>
#include <set>

namespace DL {

std::vector<std::string> TPortRiskConfig::Securities() const {
  const std::set<std::string> removed(removeSec.begin(), removeSec.end());
  std::set<std::string> seen;
  std::vector<std::string> out;
  for (const std::vector<std::string>* list : {&mainSec, &addSec})
    for (const std::string& code : *list)
      if (removed.count(code) == 0 && seen.insert(code).second) out.push_back(code);
  return out;
}

bool TPortRiskConfig::Covers(const std::string& asset) const {
  return baseAsset == asset || std::find(addBaseAssets.begin(), addBaseAssets.end(), asset) != addBaseAssets.end();
}

}  // namespace DL
