#include "margin/TAsset.h"

#include <algorithm>
#include <cmath>

#include "base/Numbers.h"

namespace DL::MDPLUS {

namespace {
// Values of money: anything below this in magnitude counts as zero.
constexpr double kValueTolerance = 0.1;

double Qty(const ZDepoCount& q) { return q.asDouble(); }
}  // namespace

const char* EAssetTypeToStr(EAssetType type) {
  switch (type) {
    case atMoney: return "money";
    case atDepo: return "depo";
    case atFut: return "fut";
    case atOpt: return "opt";
    case atOptShr: return "opt_shr";
    case atUndef: return "undef";
  }
  return "";
}

int ConvertPrimitiveToInt(Enum_TrendToBaseBoard trend, int& sign) {
  if (trend == trWith) { sign = 1; return 0; }
  if (trend == trAgainst) { sign = -1; return 0; }
  sign = 1;
  return 1;
}

TAsset::TAsset(const TAsset& other) { *this = other; }

TAsset& TAsset::operator=(const TAsset& o) {
  if (this == &o) return *this;
  Pos = o.Pos; PosAux = o.PosAux; Price = o.Price; PriceAux = o.PriceAux; LotSize = o.LotSize;
  Theor = o.Theor; VarMargin = o.VarMargin;
  OptParams = o.OptParams ? std::make_unique<TOptParams>(*o.OptParams) : nullptr;
  ScenRisks = o.ScenRisks;
  LockedBuyVal = o.LockedBuyVal; LockedSellVal = o.LockedSellVal;
  LockedBuyQty = o.LockedBuyQty; LockedSellQty = o.LockedSellQty; LockedOutQty = o.LockedOutQty;
  LockedAuxVal = o.LockedAuxVal; LockedAuxQty = o.LockedAuxQty; LockedQty = o.LockedQty;
  ReservedQty = o.ReservedQty; AddBoardQty = o.AddBoardQty;
  LockedForNMVal = o.LockedForNMVal; LockedMoneyVal = o.LockedMoneyVal; LockedAnyVal = o.LockedAnyVal;
  LockedAux2Val = o.LockedAux2Val; LockedNegVal = o.LockedNegVal; OptPremQty = o.OptPremQty;
  Trend = o.Trend; RelRiskRate = o.RelRiskRate; AssetType = o.AssetType;
  TrdAccType = o.TrdAccType; TagType = o.TagType; InSet = o.InSet; KeepInOptionSet = o.KeepInOptionSet;
  Discounts = o.Discounts; IsCritical = o.IsCritical; ExcludedFromCurrRisk = o.ExcludedFromCurrRisk;
  FlipsSell = o.FlipsSell; FlipsBuy = o.FlipsBuy;
  m_currCode = o.m_currCode; m_varMargCurrCode = o.m_varMargCurrCode; m_classCode = o.m_classCode;
  m_tag = o.m_tag; m_tradeAccount = o.m_tradeAccount;
  return *this;
}

void TAsset::SetCurrCode(const std::string& code, const IMarginSettings* settings) {
  m_currCode = settings ? settings->MainMultiCurrForCurr(code) : code;
}

void TAsset::SetVarMargCurrCode(const std::string& code, const IMarginSettings* settings) {
  m_varMargCurrCode = settings ? settings->MainMultiCurrForCurr(code) : code;
}

void TAsset::NullifyAllLockeds() {
  LockedAuxVal = 0.0;
  LockedBuyQty = ZDepoCount_ZERO;
  LockedBuyVal = 0.0;
  LockedMoneyVal = 0.0;
  LockedAuxQty = ZDepoCount_ZERO;
  LockedSellQty = ZDepoCount_ZERO;
  LockedOutQty = ZDepoCount_ZERO;
  LockedSellVal = 0.0;
  LockedNegVal = 0.0;
  LockedQty = ZDepoCount_ZERO;
  LockedAux2Val = 0.0;
  OptPremQty = ZDepoCount_ZERO;
}

double TAsset::GetAssetCost(const IMarginSettings& settings, double add) const {
  if (AssetType == atFut || AssetType == atOpt || AssetType == atOptShr) return 0.0;
  double c = Value();
  if (AssetType == atMoney) c += add;
  if (IsSecMarginForMDPlusClient(settings, Discounts)) return c;
  return std::min(c, 0.0);
}

double TAsset::GetDiscInitialPosValuation(const TDiscountsEx& groupDisc, bool useOwn, double add1,
                                          double add2) const {
  if (AssetType == atOpt || AssetType == atOptShr) return 0.0;
  double v = Value();
  if (AssetType == atMoney) v += add1 + add2;
  v = MCorrectIfZero(v, kValueTolerance);
  const TDiscountsEx& d = ChooseDiscounts(groupDisc, useOwn);
  const bool negative = !MIsGE(v, 0.0);
  if ((negative && Trend == trWith) || (!negative && Trend != trWith))
    v *= d.DShort;
  else
    v *= d.DLong;
  return v * TrendSign(Trend);
}

double TAsset::GetDiscInitialPosValuationFullNetting(const TDiscountsEx& groupDisc, bool useOwn, bool isLong,
                                                     double add1, double add2) const {
  if (AssetType == atOpt || AssetType == atOptShr) return 0.0;
  double v = Value();
  if (AssetType == atMoney) v += add1 + add2;
  v = MCorrectIfZero(v, kValueTolerance);
  const TDiscountsEx& d = ChooseDiscounts(groupDisc, useOwn);
  v *= isLong ? d.DLong : d.DShort;
  return v * TrendSign(Trend);
}

double TAsset::GetLockedCommVal() const {
  if (AssetType != atMoney) return 0.0;
  return MCorrectIfZero((Qty(LockedQty) - Qty(LockedOutQty)) * Price, kValueTolerance);
}

double TAsset::GetPosValReduction() const {
  double r = 0.0;
  if (AssetType == atDepo) r += LockedForNMVal;
  if (AssetType == atMoney) r += LockedMoneyVal + LockedForNMVal + GetLockedCommVal();
  r += LockedAnyVal;
  r += Qty(LockedOutQty) * Price * LotSize;
  return r;
}

// Steps of the sell side shared by both corrected valuations: takes the sell
// orders off acc and marks a short that is not allowed.
double TAsset::CorrSellAcc(double acc, double limit, const TCUR& cur, double moneyAdd, double base,
                           const TDiscountsEx& d, bool marginalSigns, bool withOrders, bool& critical) const {
  double out = LockedSellVal;
  if (AssetType == atMoney) out += Qty(LockedOutQty) * Price;
  if (withOrders) {
    if (MIsLTZero(limit))
      acc -= std::max(out - cur.CurDown, -limit);
    else
      acc -= out - cur.CurDown;
  }
  const double q = (Qty(LockedQty) + Qty(OptPremQty)) * Price * LotSize;
  double w = base - q - out;
  if (AssetType == atMoney) w += moneyAdd;
  if (marginalSigns && MIsLTZero(w, kValueTolerance) && !d.bS) {
    critical = true;
    IsCritical = true;
  }
  return acc;
}

double TAsset::GetDiscCorrPosValuation(const TDiscountsEx& groupDisc, bool useOwn, bool marginalSigns, ESide side,
                                       bool withOrders, double limit, bool& critical, double moneyAdd,
                                       const TCUR& cur) const {
  if (AssetType == atOpt || AssetType == atOptShr) return 0.0;
  const TDiscountsEx& d = ChooseDiscounts(groupDisc, useOwn);
  const double base = (Qty(Pos) - Qty(ReservedQty)) * Price * LotSize;
  double acc = AssetType == atMoney ? moneyAdd : 0.0;
  double v;
  if (side == sdBuy) {
    if (FlipsSell) return acc;
    if (withOrders) acc += LockedBuyVal + cur.CurUp;
    acc += base;
    v = MCorrectIfZero(acc - GetPosValReduction(), kValueTolerance);
    v *= Trend != trWith ? d.DShort : d.DLong;
  } else {
    if (FlipsBuy) return acc;
    acc = CorrSellAcc(acc, limit, cur, moneyAdd, base, d, marginalSigns, withOrders, critical);
    v = MCorrectIfZero(acc + base, kValueTolerance);
    v *= Trend != trWith ? d.DLong : d.DShort;
  }
  return v * TrendSign(Trend);
}

double TAsset::GetDiscCorrPosValuationFullNetting(const TDiscountsEx& groupDisc, bool useOwn, bool marginalSigns,
                                                  ESide side, bool isLong, bool withOrders, double limit,
                                                  bool& critical, double moneyAdd, const TCUR& cur) const {
  if (AssetType == atOpt || AssetType == atOptShr) return 0.0;
  const TDiscountsEx& d = ChooseDiscounts(groupDisc, useOwn);
  const double base = (Qty(Pos) - Qty(ReservedQty)) * Price * LotSize;
  double acc = AssetType == atMoney ? moneyAdd : 0.0;
  if (side == sdBuy) {
    if (FlipsSell) return acc;
    if (withOrders) acc += cur.CurUp + LockedBuyVal;
    const double t = LockedBuyVal + base;
    const double reduction = GetPosValReduction();
    if (reduction > std::max(t, 0.0)) {
      if (t > 0.0) acc -= t;
    } else {
      acc -= reduction;
    }
  } else {
    if (FlipsBuy) return acc;
    acc = CorrSellAcc(acc, limit, cur, moneyAdd, base, d, marginalSigns, withOrders, critical);
  }
  double v = MCorrectIfZero(acc + base, kValueTolerance);
  v *= isLong ? d.DLong : d.DShort;
  return v * TrendSign(Trend);
}

double TAsset::GetDiscNMPosValuation(bool corrected, bool marginalSigns, ESide side, double limit, bool& critical,
                                     double moneyAdd, const TCUR& cur) const {
  if (AssetType == atFut) return 0.0;
  if (!marginalSigns && (AssetType == atDepo || AssetType == atOpt || AssetType == atOptShr)) {
    const ZDepoCount left = Pos - ZDepoCount::Positive(LockedSellQty) - ZDepoCount::Positive(ReservedQty);
    return left < ZDepoCount_ZERO ? -ForbiddenValue : 0.0;
  }
  double acc = 0.0;
  if (AssetType == atMoney) {
    acc = moneyAdd;
    if (!corrected) acc += cur.CurUp;
  }
  const double q = (Qty(LockedQty) + Qty(OptPremQty)) * Price * LotSize;
  if (corrected) {
    if (side == sdBuy) {
      acc += LockedBuyVal + cur.CurUp;
    } else if (MIsLTZero(limit)) {
      acc -= std::max(q + LockedSellVal - cur.CurDown, -limit);
    } else {
      acc -= std::max(LockedSellVal, 0.0) + q - cur.CurDown;
    }
  }
  const double p = (Qty(Pos) - Qty(ZDepoCount::Positive(ReservedQty))) * Price * LotSize;
  double w = p - LockedSellVal - q;
  if (AssetType == atMoney) w += moneyAdd;
  if (marginalSigns && MIsLTZero(w, kValueTolerance) && !Discounts.bS) {
    critical = true;
    IsCritical = true;
  }
  double v = MCorrectIfZero(acc + p, kValueTolerance);
  v *= MIsGE(v, 0.0) ? Discounts.DLong : Discounts.DShort;
  return v;
}

double TAsset::GetRelativeRiskValuation(bool corrected, ESide side, bool fullNetting, double limit,
                                        double moneyAdd, const TCUR& cur) const {
  if (AssetType == atOpt || AssetType == atOptShr || !InSet) return 0.0;
  double p = (Qty(Pos) - Qty(ReservedQty)) * Price * LotSize;
  double w = AssetType == atMoney ? moneyAdd : 0.0;
  double u = cur.CurUp + w;
  auto sellOut = [&] {
    double o = LockedSellVal - cur.CurDown;
    if (MIsLTZero(limit)) o = std::max(o, -limit);
    w -= o;
  };
  if (corrected) {
    bool done = false;
    if (side == sdSell) {
      sellOut();
      if (FlipsSell) {
        w += p;
        p = 0.0;
      } else if (FlipsBuy) {
        p = 0.0;
      }
      done = true;
    } else if (side == sdBuy) {
      u += LockedBuyVal;
      if (FlipsSell && !FlipsBuy) {
        p = 0.0;
        done = true;
      }
    } else {
      sellOut();
      u += LockedBuyVal;
      if (FlipsSell) {
        w += p;
        if (!FlipsBuy) {
          p = 0.0;
          done = true;
        }
      }
    }
    if (!done) {
      if (!FlipsSell) {
        const double reduction = GetPosValReduction();
        if (fullNetting) {
          const double t = LockedBuyVal + p;
          if (reduction > std::max(t, 0.0)) {
            if (t > 0.0) u -= t;
          } else {
            u -= reduction;
          }
        } else {
          u -= reduction;
        }
      }
      if (FlipsSell || FlipsBuy) {
        u += p;
        p = 0.0;
      }
    }
  }
  const double x = MCorrectIfZero(u + p, kValueTolerance);
  const double y = MCorrectIfZero(w + p, kValueTolerance);
  return std::max(std::fabs(x), std::fabs(y)) * RelRiskRate;
}

void TAsset::CalcOptRisks(const BaseAsset2OptCalcParams* grid) {
  ScenRisks = grid ? ScenarioOptRisk(OptParams.get(), *grid) : std::vector<double>();
}

bool TAsset::IsPremOption() const {
  return AssetType == atOpt && OptParams &&
         (OptParams->ContractType == ctCall_P || OptParams->ContractType == ctPut_P);
}

bool IsSecMarginForMDPlusClient(const IMarginSettings& settings, const TDiscountsEx& d) {
  if (settings.IsUseMarginalSignsFromDiscSettings()) return d.bS ? true : d.bC;
  if (!MIsEqual(d.DLong, 1.0)) return true;
  return d.DShort <= ForbiddenLimit;
}

double CalcSingleOptionRisk(const TAsset* asset, bool initial) {
  if (!asset || asset->ScenRisks.empty()) return 0.0;
  const double pos = asset->Pos.asDouble();
  double worst = 0.0;
  if (initial) {
    if (asset->Pos.isZero()) return 0.0;
    for (double r : asset->ScenRisks) worst = std::min(worst, r * pos);
    return worst;
  }
  if (asset->Pos.isZero() && asset->LockedBuyQty.isZero() && asset->LockedSellQty.isZero()) return 0.0;
  const double up = pos + asset->LockedBuyQty.asDouble();
  const double down = pos - asset->LockedSellQty.asDouble();
  for (double r : asset->ScenRisks) worst = std::min({worst, r * pos, r * up, r * down});
  return worst;
}

void OptPosSummator(const TAsset* asset, bool initial, double* calls, double* puts) {
  if (!asset || !asset->OptParams) return;
  double q = asset->Pos.asDouble();
  if (!initial) q -= asset->LockedSellQty.asDouble();
  const TContractType t = asset->OptParams->ContractType;
  const double lots = asset->OptParams->Lot * q;
  if (t == ctCall_P || t == ctCall_M)
    *calls += lots;
  else
    *puts += lots;
}

void SumOptPremiumAndVMBase(const TAsset& asset, double& sum) {
  if (!asset.OptParams) return;
  const TContractType t = asset.OptParams->ContractType;
  if (t == ctCall_M || t == ctPut_M)
    sum += asset.VarMargin;
  else if (!asset.ExcludedFromCurrRisk)
    sum += asset.Pos.asDouble() * asset.Theor;
}

void SumOptPremiumAndVMCorr(const TAsset& asset, bool /*flag*/, TCurrRecords& records) {
  if (!asset.OptParams) return;
  TCurrRecord& r = records[asset.GetVarMargCurrCode()];
  const TContractType t = asset.OptParams->ContractType;
  if (t == ctCall_M || t == ctPut_M) {
    r.VM += asset.VarMargin;
  } else if (!asset.ExcludedFromCurrRisk) {
    const double v =
        asset.Theor * (asset.Pos.asDouble() + asset.LockedBuyQty.asDouble() - asset.LockedSellQty.asDouble());
    r.R0 += v;
    r.R1 += v;
    r.R2 += v;
  }
}

}  // namespace DL::MDPLUS
