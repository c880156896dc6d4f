#include "margin/TAssetGroup.h"

#include <cmath>

namespace DL::MDPLUS {

TAssetGroup& TAssetGroup::operator<<(const TAssetGroup& other) {
  AddAssets(other);
  AlwaysLog = other.AlwaysLog;
  return *this;
}

void TAssetGroup::AddAssets(const TAssetGroup& other) {
  for (const auto& [code, asset] : other.Assets) AddAsset(code, asset);
}

TAsset* TAssetGroup::AddAsset(const std::string& code, const TAsset& asset) {
  auto [it, inserted] = Assets.insert_or_assign(code, asset);
  return &it->second;
}

TAsset* TAssetGroup::GetAssetPointer(const std::string& code) {
  auto it = Assets.find(code);
  return it == Assets.end() ? nullptr : &it->second;
}

const TAsset* TAssetGroup::GetAssetPointer(const std::string& code) const {
  auto it = Assets.find(code);
  return it == Assets.end() ? nullptr : &it->second;
}

double TAssetGroup::CalcTotalCost(const IMarginSettings& settings) const {
  const bool signs = settings.IsUseMarginalSignsFromDiscSettings();
  // A long asset without either sign adds nothing when the signs are in use.
  auto excepted = [signs](const TAsset& a) {
    return signs && !a.Discounts.bC && !a.Discounts.bS && !(a.Pos < ZDepoCount_ZERO);
  };
  double c = 0.0;
  double m = 0.0;
  const TAsset* ownMoney = nullptr;
  for (const auto& [code, a] : Assets) {
    switch (a.AssetType) {
      case atFut:
        m += a.VarMargin;
        break;
      case atOpt:
        if (a.OptParams && (a.OptParams->ContractType == ctCall_M || a.OptParams->ContractType == ctPut_M))
          m += a.VarMargin;
        else
          c += a.Pos.asDouble() * a.Theor;
        break;
      case atMoney:
        if (a.GetCurrCode() == CurrCode) {
          ownMoney = &a;
          break;
        }
        [[fallthrough]];
      case atDepo:
        if (!excepted(a)) c += a.GetAssetCost(settings, 0.0);
        break;
      default:
        break;
    }
  }
  if (!ownMoney) return c + m;
  if (excepted(*ownMoney)) return c;
  return c + ownMoney->GetAssetCost(settings, m);
}

double TAssetGroup::CalcTotalTurnover(const IMarginSettings& /*settings*/) const {
  double s = 0.0;
  for (const auto& [code, a] : Assets) {
    switch (a.AssetType) {
      case atMoney:
      case atDepo: s += std::fabs(a.Value()); break;
      case atFut: s += std::fabs(a.Pos.asDouble() * a.Price); break;
      case atOpt:
      case atOptShr: s += a.Pos.asDouble() * a.Theor; break;
      default: break;
    }
  }
  return s;
}

}  // namespace DL::MDPLUS
