#pragma once
// "MaxSettleDateByAssetType": the latest settle date, in days, allowed for an
// asset type on a class and side.
//   MaxSettleDateByAssetType_ClassList_<classes>_AssetType_<type>_Side_<B|S>=<days>
// The leading parameter name may be left out (the form of the global
// section). "<ALL>" may stand for the classes.
#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <tuple>

#include "cache/AssetType.h"
#include "cache/IRepoSettingStorage.h"
#include "base/TradingTypes.h"

namespace DL {

using TMaxSettleDateRow = std::tuple<std::set<std::string>,  // classes
                                     ZDL_AssetType,          // asset type
                                     ESide,                  // side
                                     std::int32_t>;          // days
using TMaxSettleDateIndex = std::map<std::tuple<long, ZDL_AssetType, ESide>, std::int32_t>;

class TMaxSettleDateByAssetTypeAndClassListStorage
    : public IRepoSettingStorage<TMaxSettleDateRow, TMaxSettleDateIndex> {
 public:
  static constexpr const char* kParam = "MaxSettleDateByAssetType_";

  // The side is one byte, "B" or "S"; an unknown asset type or side, or days
  // at or below zero, drop the line.
  bool ParseSettingString(const std::string& key, const std::string& value) override;
  void RebuildSettingsIndex() override;

  // True on a hit: a combination of the class (or "<ALL>"), the asset type
  // and the side (both sides try "B" then "S") whose stored days are at or
  // below `days`; its asset type, side and days are written back. An unknown
  // asset type or negative days answer false at once.
  bool CheckRestriction(const std::string& classCode, ZDL_AssetType& assetType, ESide& side,
                        std::int32_t& days) const;

  // Template lines (with the parameter) and global section lines (without).
  void MakeSettingsString(std::string& out) const;
  void MakeSectionString(std::string& out) const;

 private:
  void Make(std::string& out, const std::string& prefix) const;
  TRepoSettingDimension m_classes;
};

}  // namespace DL
