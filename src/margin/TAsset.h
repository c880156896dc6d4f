#pragma once
// One position of a client for the MD+ margin method: money, a security in
// depot, a futures or an option, with the values and quantities its orders
// lock, and the valuations that turn it into risk.
//
// The host engine fills the fields (they are a contract with the host) and
// hands the asset to TPortfolio::AddAsset. A value is quantity * Price *
// LotSize in the currency of the asset's group; a value below 0.1 in
// magnitude counts as zero. A valuation of -1e50 (or a risk of 1e50) marks a
// forbidden state: callers stop at any magnitude above 1e25.
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/TradingTypes.h"  // TDiscountsEx, ESide, NM_Discs
#include "margin/MarginSettings.h"
#include "margin/OptionCalc.h"
#include "margin/ZDepoCount.h"

namespace DL::MDPLUS {

enum EAssetType : int32_t {
  atMoney = 0,
  atDepo = 1,
  atFut = 2,
  atOpt = 3,
  atOptShr = 4,  // share option position: no position valuation, no cost
  atUndef = 6,
};
// "money", "depo", "fut", "opt", "opt_shr", "undef"; the empty string for any other value.
const char* EAssetTypeToStr(EAssetType type);

// 1: the asset moves with the base of its group; -1: against it.
enum Enum_TrendToBaseBoard : int32_t { trWith = 1, trAgainst = -1 };
// sign is 1 or -1 for those two values and returns 0; any other value leaves
// sign at 1 and returns 1.
int ConvertPrimitiveToInt(Enum_TrendToBaseBoard trend, int& sign);
inline int TrendSign(Enum_TrendToBaseBoard trend) { return trend == trAgainst ? -1 : 1; }

// Kinds of trade account and tag, named by the host; the portfolio reads the
// numbers of the additional boards only.
enum ETrdAccTypes : int32_t {};
enum ETagTypes : int32_t {};
// 1 and 0: each price direction on its own; 2: full netting.
enum ENettingType : int32_t {};
inline constexpr int kFullNetting = 2;

// The cover that the other currencies give a money asset: (CurUp, CurDown).
struct TCUR {
  double CurUp = 0.0;
  double CurDown = 0.0;
};
inline constexpr TCUR ZERO_CUR{0.0, 0.0};

// The discounts of a new asset: those of a non-marginal security.
inline constexpr TDiscountsEx kNewAssetDiscounts = {1.0, 1e50, 0.0, 0.0, {}, false, false};

class TAsset {
 public:
  TAsset() = default;
  TAsset(const TAsset& other);
  TAsset& operator=(const TAsset& other);
  TAsset(TAsset&&) noexcept = default;
  TAsset& operator=(TAsset&&) noexcept = default;
  ~TAsset() = default;

  ZDepoCount Pos;           // current position, signed
  ZDepoCount PosAux;        // carried with the asset, not read by the method
  double Price = 0.0;       // market price
  double PriceAux = 0.0;    // carried with the asset, not read by the method
  int32_t LotSize = 1;
  double Theor = 0.0;       // option premium per unit
  double VarMargin = 0.0;   // accrued variation margin
  std::unique_ptr<TOptParams> OptParams;  // option data; copied with the asset
  // Per-unit scenario changes (CalcOptRisks); a calculation rewrites those of
  // non-option set members, so they are mutable.
  mutable std::vector<double> ScenRisks;
  double LockedBuyVal = 0.0;   // value locked by buy orders
  double LockedSellVal = 0.0;  // value locked by sell orders
  ZDepoCount LockedBuyQty;     // quantity of active buys
  ZDepoCount LockedSellQty;    // quantity of active sells
  ZDepoCount LockedOutQty;     // quantity locked for going out
  double LockedAuxVal = 0.0;
  ZDepoCount LockedAuxQty;
  ZDepoCount LockedQty;        // locked quantity, commission included
  ZDepoCount ReservedQty;      // taken off the position for corrected valuation
  ZDepoCount AddBoardQty;      // working quantity of the additional boards
  double LockedForNMVal = 0.0;  // value reduction, money and depo
  double LockedMoneyVal = 0.0;  // value reduction, money only
  double LockedAnyVal = 0.0;    // value reduction, every type
  double LockedAux2Val = 0.0;
  double LockedNegVal = 0.0;    // locked value that only adds to the risk
  ZDepoCount OptPremQty;        // quantity of premium locked in money
  Enum_TrendToBaseBoard Trend = trWith;
  double RelRiskRate = 0.0;     // relative risk, a fraction of the value; 0 for none
  EAssetType AssetType = atUndef;
  ETrdAccTypes TrdAccType{};
  ETagTypes TagType{};
  bool InSet = false;            // declared a member of a set
  bool KeepInOptionSet = false;  // a member that stays with the options of its set
  TDiscountsEx Discounts = kNewAssetDiscounts;
  mutable bool IsCritical = false;  // a short was valued without permission
  bool ExcludedFromCurrRisk = false;
  bool FlipsSell = false;  // the transaction under test turns the position at the sell side
  bool FlipsBuy = false;   // the same at the buy side

  // The currency codes are replaced by the main currency of their
  // multi-currency family when settings are given.
  void SetCurrCode(const std::string& code, const IMarginSettings* settings = nullptr);
  void SetVarMargCurrCode(const std::string& code, const IMarginSettings* settings = nullptr);
  void SetClassCode(const std::string& code) { m_classCode = code; }
  void SetTag(const std::string& tag) { m_tag = tag; }
  void SetTradeAccount(const std::string& account) { m_tradeAccount = account; }
  const std::string& GetCurrCode() const { return m_currCode; }
  // The currency of the variation margin; the asset's currency when not set.
  const std::string& GetVarMargCurrCode() const { return m_varMargCurrCode.empty() ? m_currCode : m_varMargCurrCode; }
  const std::string& GetClassCode() const { return m_classCode; }
  const std::string& GetTag() const { return m_tag; }
  const std::string& GetTradeAccount() const { return m_tradeAccount; }

  void NullifyAllLockeds();

  // Pos * Price * LotSize.
  double Value() const { return Pos.asDouble() * Price * LotSize; }

  // The cost for the portfolio's value: 0 for futures and options; the value
  // (plus add for money); a non-marginal asset counts only when negative.
  double GetAssetCost(const IMarginSettings& settings, double add) const;

  double GetDiscInitialPosValuation(const TDiscountsEx& groupDisc, bool useOwn, double add1, double add2) const;
  double GetDiscInitialPosValuationFullNetting(const TDiscountsEx& groupDisc, bool useOwn, bool isLong, double add1,
                                               double add2) const;
  double GetDiscCorrPosValuation(const TDiscountsEx& groupDisc, bool useOwn, bool marginalSigns, ESide side,
                                 bool withOrders, double limit, bool& critical, double moneyAdd,
                                 const TCUR& cur) const;
  double GetDiscCorrPosValuationFullNetting(const TDiscountsEx& groupDisc, bool useOwn, bool marginalSigns,
                                            ESide side, bool isLong, bool withOrders, double limit, bool& critical,
                                            double moneyAdd, const TCUR& cur) const;
  // A non-marginal asset, always with its own discounts. -1e50 marks a
  // forbidden short.
  double GetDiscNMPosValuation(bool corrected, bool marginalSigns, ESide side, double limit, bool& critical,
                               double moneyAdd, const TCUR& cur) const;
  double GetRelativeRiskValuation(bool corrected, ESide side, bool fullNetting, double limit, double moneyAdd,
                                  const TCUR& cur) const;
  double GetPosValReduction() const;
  double GetLockedCommVal() const;

  // ScenRisks = ScenarioOptRisk(OptParams, grid).
  void CalcOptRisks(const BaseAsset2OptCalcParams* grid);
  // An option whose premium is paid up front (contract type 2 or 3).
  bool IsPremOption() const;
  bool IsOption() const { return AssetType == atOpt; }

  // The discounts a valuation uses: the group's for a set member unless the
  // firm asks for the asset's own, otherwise the asset's.
  const TDiscountsEx& ChooseDiscounts(const TDiscountsEx& groupDisc, bool useOwn) const {
    return InSet && !useOwn ? groupDisc : Discounts;
  }

 private:
  double CorrSellAcc(double acc, double limit, const TCUR& cur, double moneyAdd, double base,
                     const TDiscountsEx& d, bool marginalSigns, bool withOrders, bool& critical) const;

  std::string m_currCode;
  std::string m_varMargCurrCode;
  std::string m_classCode;
  std::string m_tag;
  std::string m_tradeAccount;
};

// The record of one currency in the corrected margin: the risk for side 0,
// buy and sell, the variation margin, and the costs up and down.
struct TCurrRecord {
  double R0 = 0.0;
  double R1 = 0.0;
  double R2 = 0.0;
  double VM = 0.0;
  double CostUp = 0.0;
  double CostDown = 0.0;
};
using TCurrRecords = std::map<std::string, TCurrRecord>;

// Whether the asset is marginal for this method: with marginal signs in use,
// its bS flag or else its bC flag; otherwise anything but the pair 1.0 and
// more than 1e25.
bool IsSecMarginForMDPlusClient(const IMarginSettings& settings, const TDiscountsEx& d);
// The worst scenario of a lone option, zero or negative.
double CalcSingleOptionRisk(const TAsset* asset, bool initial);
// Adds the asset's lots to the calls or the puts.
void OptPosSummator(const TAsset* asset, bool initial, double* calls, double* puts);
// Premium (Pos * Theor) or variation margin of an option into sum.
void SumOptPremiumAndVMBase(const TAsset& asset, double& sum);
// The same for the corrected margin into the record of the asset's
// variation-margin currency. The flag is not read.
void SumOptPremiumAndVMCorr(const TAsset& asset, bool flag, TCurrRecords& records);

}  // namespace DL::MDPLUS
