#pragma once
// What the portfolio margin method asks of a firm's settings. The engine sits
// below the firm: the firm (core/) implements this over its loaded settings,
// and a host or a test without a firm can fill TPlainMarginSettings itself.
#include <set>
#include <string>

namespace DL::MDPLUS {

class IMarginSettings {
 public:
  virtual ~IMarginSettings() = default;

  // The firm's main currency ("SUR" unless the general settings say else).
  virtual std::string MainCurrency() const = 0;
  // The main currency of the multi-currency family the code belongs to, or
  // the code itself when it belongs to none.
  virtual std::string MainMultiCurrForCurr(const std::string& currency) const = 0;

  // Per client (at a leverage, -1 for none, and a limit kind).
  virtual double MDPlusMinMarginCalcRate(const std::string& client, double leverage, int limitKind) const = 0;
  virtual int MDPlusDefaultNettingType(const std::string& client, double leverage, int limitKind) const = 0;
  virtual bool FuturesDiscountFromCollateralAmount(const std::string& client, double leverage) const = 0;
  virtual bool IsMDPlusDiffCurrAssetsInSets(const std::string& client, double leverage) const = 0;

  // Firm-wide switches of the method.
  virtual bool IsUseMarginalSignsFromDiscSettings() const = 0;
  virtual bool IsUseOwnAssetDiscInSets() const = 0;
  virtual bool IsEnableDiscountPerevorot() const = 0;
  virtual bool IsMDPlusCurrRiskNetting() const = 0;
  // The security stands in a list of "RestrictSecuritiesPropotionInCollateral".
  virtual bool IsRestrictSecuritiesPropotionInCollateral(const std::string& secCode) const = 0;
};

// Settings given as plain values: for a host that keeps its own settings, and
// for tests. The defaults are those of a firm whose text says nothing.
struct TPlainMarginSettings : IMarginSettings {
  std::string mainCurrency = "SUR";
  double minMarginCalcRate = 0.5;
  int defaultNettingType = 0;
  bool futuresDiscountFromCollateralAmount = false;
  bool diffCurrAssetsInSets = false;
  bool useMarginalSigns = false;
  bool useOwnAssetDiscInSets = false;
  bool enableDiscountPerevorot = false;
  bool currRiskNetting = true;
  std::set<std::string> restrictedProportion;  // securities restricted in collateral

  std::string MainCurrency() const override { return mainCurrency; }
  std::string MainMultiCurrForCurr(const std::string& currency) const override { return currency; }
  double MDPlusMinMarginCalcRate(const std::string&, double, int) const override { return minMarginCalcRate; }
  int MDPlusDefaultNettingType(const std::string&, double, int) const override { return defaultNettingType; }
  bool FuturesDiscountFromCollateralAmount(const std::string&, double) const override {
    return futuresDiscountFromCollateralAmount;
  }
  bool IsMDPlusDiffCurrAssetsInSets(const std::string&, double) const override { return diffCurrAssetsInSets; }
  bool IsUseMarginalSignsFromDiscSettings() const override { return useMarginalSigns; }
  bool IsUseOwnAssetDiscInSets() const override { return useOwnAssetDiscInSets; }
  bool IsEnableDiscountPerevorot() const override { return enableDiscountPerevorot; }
  bool IsMDPlusCurrRiskNetting() const override { return currRiskNetting; }
  bool IsRestrictSecuritiesPropotionInCollateral(const std::string& secCode) const override {
    return restrictedProportion.count(secCode) != 0;
  }
};

}  // namespace DL::MDPLUS
