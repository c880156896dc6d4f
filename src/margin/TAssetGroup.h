#pragma once
// A group of assets of one currency: a set of instruments valued together
// (with the set's discounts, netting and options), or a lone asset.
#include <map>
#include <string>

#include "margin/TAsset.h"

namespace DL::MDPLUS {

// The discounts of a group made without any: those of a non-marginal security.
inline constexpr TDiscountsEx kNonMarginDiscounts = {1.0, 1e50, 0.0, 0.0, {}, false, false};

class TAssetGroup {
 public:
  // Ordered by code, so that sums and the log do not depend on the order in
  // which the host adds assets. Elements stay in place under insertion.
  using TAssets = std::map<std::string, TAsset>;

  TAssetGroup(const std::string& name, const std::string& currCode,
              const TDiscountsEx& discounts = kNonMarginDiscounts)
      : Key(name), Name(name), CurrCode(currCode), Discounts(discounts) {}

  std::string Key;         // its key in the group map
  std::string Name;        // the group's name in the log
  std::string CurrCode;    // currency of the group
  TDiscountsEx Discounts;  // discounts of the set
  ENettingType NettingType{1};
  bool AlwaysLog = false;            // logged at log level 1
  bool SplitAssets = false;          // assets without KeepInOptionSet leave this set
  bool HasOptions = false;           // an option has been added
  bool ExcludedFromCurrRisk = false;
  bool HasOptionPositions = false;   // an option with a non-zero position has been added
  TAssets Assets;

  // Same name and currency.
  bool operator==(const TAssetGroup& o) const { return Name == o.Name && CurrCode == o.CurrCode; }
  // Adds the other group's assets and takes its AlwaysLog.
  TAssetGroup& operator<<(const TAssetGroup& other);
  void AddAssets(const TAssetGroup& other);
  // Stores a copy (replacing an asset of the same code) and returns it.
  TAsset* AddAsset(const std::string& code, const TAsset& asset);
  void DeleteAsset(TAssets::iterator it) { Assets.erase(it); }
  TAsset* GetAssetPointer(const std::string& code);
  const TAsset* GetAssetPointer(const std::string& code) const;

  // The group's cost for the portfolio's value; the variation margin comes in
  // through the group's own money asset.
  double CalcTotalCost(const IMarginSettings& settings) const;
  // Sum of magnitudes of the values (options: Pos * Theor, signed).
  double CalcTotalTurnover(const IMarginSettings& settings) const;
};

}  // namespace DL::MDPLUS
