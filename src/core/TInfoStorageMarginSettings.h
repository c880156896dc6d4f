#pragma once
// The margin method's view of a loaded firm: IMarginSettings answered from
// the firm's general parameters, its margin sections (resolved per client by
// the client margin restrictions cache) and its section lists.
#include <string>

#include "margin/MarginSettings.h"

namespace DL {

class TInfoStorage;

class TInfoStorageMarginSettings final : public MDPLUS::IMarginSettings {
 public:
  // The storage is not owned and must outlive this object.
  explicit TInfoStorageMarginSettings(const TInfoStorage& storage) : m_storage(storage) {}

  std::string MainCurrency() const override;
  std::string MainMultiCurrForCurr(const std::string& currency) const override;
  double MDPlusMinMarginCalcRate(const std::string& client, double leverage, int limitKind) const override;
  int MDPlusDefaultNettingType(const std::string& client, double leverage, int limitKind) const override;
  bool FuturesDiscountFromCollateralAmount(const std::string& client, double leverage) const override;
  bool IsMDPlusDiffCurrAssetsInSets(const std::string& client, double leverage) const override;
  bool IsUseMarginalSignsFromDiscSettings() const override;
  bool IsUseOwnAssetDiscInSets() const override;
  bool IsEnableDiscountPerevorot() const override;
  bool IsMDPlusCurrRiskNetting() const override;
  bool IsRestrictSecuritiesPropotionInCollateral(const std::string& secCode) const override;

 private:
  const TInfoStorage& m_storage;
};

}  // namespace DL
