#include "margin/TRisk.h"

#include <algorithm>
#include <cstring>

#include "base/TextHelpers.h"

namespace DL::MDPLUS {

namespace {
std::string Num(double v, int decimals) { return DoubleToStringWithWidth(v, decimals, 20); }
void Tag(std::string& out, const char* tag, double v, int decimals = 2) {
  out += tag;
  out += Num(v, decimals);
}
}  // namespace

const char* BoolWord(bool value) { return value ? "true" : "false"; }

std::string DiscountsToLog(const TDiscountsEx& d) {
  std::string s;
  Tag(s, "; DLong:", d.DLong, 4);
  Tag(s, "; DShort:", d.DShort, 4);
  s += "; RCur:";
  s += std::string(d.RCur, strnlen(d.RCur, sizeof d.RCur));
  s += "; bC:";
  s += BoolWord(d.bC);
  s += "; bS:";
  s += BoolWord(d.bS);
  return s;
}

TRisk& TRisk::operator+=(const TRisk& r) {
  DLongV += r.DLongV;
  DLongV_inv += r.DLongV_inv;
  DShortV += r.DShortV;
  DShortV_inv += r.DShortV_inv;
  DFullRisk_Long += r.DFullRisk_Long;
  DFullRisk_Short += r.DFullRisk_Short;
  NMRisk += r.NMRisk;
  RelRisk += r.RelRisk;
  Reserved8 += r.Reserved8;
  OptRisk += r.OptRisk;
  return *this;
}

double TRisk::CalcTotalRisk() const {
  const double t = std::max(DLongV + DShortV_inv, DShortV + DLongV_inv);
  const double f = std::max({0.0, DFullRisk_Long, -DFullRisk_Short});
  return t + f + RelRisk + NMRisk + Reserved8 + OptRisk;
}

TRiskEx& TRiskEx::operator+=(const TRiskEx& r) {
  DLongV += r.DLongV;
  DLongV_inv += r.DLongV_inv;
  DShortV += r.DShortV;
  DShortV_inv += r.DShortV_inv;
  DFullRisk_Long += r.DFullRisk_Long;
  DFullRisk_Short += r.DFullRisk_Short;
  NMRisk += r.NMRisk;
  RelRisk += r.RelRisk;
  Reserved8 += r.Reserved8;
  OptRisk += r.OptRisk;
  OutVal += r.OutVal;
  MForNMVal += r.MForNMVal;
  NegVal += r.NegVal;
  OptPrem += r.OptPrem;
  return *this;
}

double TRiskEx::CalcTotalRisk() const {
  const double t = std::max(DLongV + DShortV_inv, DShortV + DLongV_inv);
  const double f = std::max({0.0, DFullRisk_Long, -DFullRisk_Short});
  return t + f + RelRisk + NMRisk + OutVal + MForNMVal + NegVal + OptRisk + OptPrem;
}

double TRiskEx::CalcPortfolioDecreaseRisk() const { return OutVal + MForNMVal + NegVal; }

void TAdditionalParamsToLog::FillFromAsset(const TAsset& a, bool withReduction) {
  ClassCode = a.GetClassCode();
  Tag = a.GetTag();
  TradeAccount = a.GetTradeAccount();
  CurrCode = a.GetCurrCode();
  AssetType = a.AssetType;
  Pos = a.Pos.asDouble();
  LockedBuyQty = a.LockedBuyQty.asDouble();
  LockedBuyVal = a.LockedBuyVal;
  LockedSellQty = a.LockedSellQty.asDouble();
  LockedSellVal = a.LockedSellVal;
  Price = a.Price;
  LotSize = a.LotSize;
  VarMargin = a.VarMargin;
  Discounts = a.Discounts;
  PosValReduction = withReduction ? a.GetPosValReduction() : 0.0;
  Theor = a.Theor;
  if (a.OptParams)
    OptParams = *a.OptParams;
  else
    OptParams.reset();
}

double TAssetGroupRisk::CalcTotalRisk() const {
  TRiskEx sum;
  for (const auto& [code, r] : Risks) sum += r;
  return sum.CalcTotalRisk();
}

void TAssetGroupRisk::Clear() { *this = TAssetGroupRisk(); }

std::string TAssetGroupRisk::ToLog() const {
  std::string s;
  for (const auto& [code, r] : Risks) {
    const TAdditionalParamsToLog& p = r.Params;
    s += "Asset:";
    s += code;
    s += "; type:";
    s += EAssetTypeToStr(p.AssetType);
    s += "; curr:";
    s += p.CurrCode;
    Tag(s, "; qty:", p.Pos);
    Tag(s, "; pr:", p.Price, 6);
    if (p.LotSize != 1) Tag(s, "; lotsz:", p.LotSize, 0);
    Tag(s, "; val:", p.Pos * p.Price * p.LotSize);
    s += "; marg:";
    s += BoolWord(p.IsMarginal);
    s += DiscountsToLog(p.Discounts);
    if (NettingType == kFullNetting) {
      Tag(s, "; DFullRisk_Long:", r.DFullRisk_Long, 6);
      Tag(s, "; DFullRisk_Short:", r.DFullRisk_Short, 6);
    } else {
      Tag(s, "; DLongV:", r.DLongV, 6);
      Tag(s, "; DShortV:", r.DShortV, 6);
      Tag(s, "; DLongV_inv:", r.DLongV_inv, 6);
      Tag(s, "; DShortV_inv:", r.DShortV_inv, 6);
    }
    Tag(s, "; RelRisk:", r.RelRisk);
    Tag(s, "; NMRisk:", r.NMRisk);
    Tag(s, "; l_MForNMVal:", r.MForNMVal);
    if (p.AssetType == atMoney || p.AssetType == atDepo) {
      Tag(s, "; l_b:", p.LockedBuyQty);
      Tag(s, "; l_bv:", p.LockedBuyVal);
      Tag(s, "; l_s:", p.LockedSellQty);
      Tag(s, "; l_sv:", p.LockedSellVal);
      Tag(s, "; posValRed:", p.PosValReduction);
      Tag(s, "; l_OutVal:", r.OutVal);
      if (p.AssetType == atMoney) {
        Tag(s, "; l_NegVal:", r.NegVal);
        Tag(s, "; CURmax:", p.Cur.CurUp);
        Tag(s, "; CURmin:", p.Cur.CurDown);
        Tag(s, "; optPrem:", r.OptPrem);
        Tag(s, "; Comm:", p.Comm);
      }
    } else if (p.AssetType == atFut || p.AssetType == atOpt) {
      if (p.AssetType == atOpt && p.OptParams) {
        const TOptParams& o = *p.OptParams;
        Tag(s, "; lot:", o.Lot, 0);
        s += "; sType:";
        s += ContractTypeToStr(o.ContractType);
        Tag(s, "; strike:", o.Strike, 4);
        Tag(s, "; stock:", o.Stock, 4);
        Tag(s, "; theor:", p.Theor, 4);
        Tag(s, "; ytm:", o.Ytm, 4);
        Tag(s, "; vlt:", o.Vlt, 4);
        Tag(s, "; vltUp:", o.VltUp, 4);
        Tag(s, "; vltDwn:", o.VltDwn, 4);
        Tag(s, "; dThr:", o.DThr, 4);
        Tag(s, "; riskFR:", o.RiskFR, 4);
        Tag(s, "; div:", o.Div, 4);
      }
      Tag(s, "; VM:", p.VarMargin);
    }
    s += "\n";
  }
  return s;
}

}  // namespace DL::MDPLUS
