// The corrected margin of a portfolio: every asset valued with the values and
// quantities its orders lock, for side 0 and, with currency-risk netting, for
// the buy and the sell side at once; the per-group risks for the log.
#include <algorithm>
#include <cmath>

#include "base/TextHelpers.h"
#include "base/Numbers.h"
#include "margin/TPortfolio.h"

namespace DL::MDPLUS {

void TPortfolio::AggregateCorrRisks(TAssetGroupRisk& groupRisk, const std::string& code, const TAsset& a,
                                    const TDiscountsEx& groupDisc, bool useOwn, double moneyAdd, const TCUR& cur,
                                    double limit, bool isMarginal, TRiskEx& all, TRiskEx& excluded,
                                    TRiskEx& restricted, bool addExcluded, bool currNetting, bool addRestricted,
                                    ESide side, int netting, bool log, bool& critical) const {
  if (a.IsOption()) return;
  TRiskEx r;
  const bool signs = m_settings->IsUseMarginalSignsFromDiscSettings();
  bool logIt = log;
  if (isMarginal && !MIsZero(a.Price) && a.AssetType != atOptShr) {
    const bool bOrders = side == sdBoth || side == sdBuy;
    const bool sOrders = side == sdBoth || side == sdSell;
    if (netting == kFullNetting) {
      if (a.Trend == trWith) {
        r.DFullRisk_Long += a.GetDiscCorrPosValuationFullNetting(groupDisc, useOwn, signs, sdBuy, true, bOrders,
                                                                 limit, critical, moneyAdd, cur);
        r.DFullRisk_Short += a.GetDiscCorrPosValuationFullNetting(groupDisc, useOwn, signs, sdSell, false, sOrders,
                                                                  limit, critical, moneyAdd, cur);
      } else {
        r.DFullRisk_Long += a.GetDiscCorrPosValuationFullNetting(groupDisc, useOwn, signs, sdSell, true, sOrders,
                                                                 limit, critical, moneyAdd, cur);
        r.DFullRisk_Short += a.GetDiscCorrPosValuationFullNetting(groupDisc, useOwn, signs, sdBuy, false, bOrders,
                                                                  limit, critical, moneyAdd, cur);
      }
    } else {
      const double b =
          a.GetDiscCorrPosValuation(groupDisc, useOwn, signs, sdBuy, bOrders, limit, critical, moneyAdd, cur);
      const double s =
          a.GetDiscCorrPosValuation(groupDisc, useOwn, signs, sdSell, sOrders, limit, critical, moneyAdd, cur);
      if (a.Trend == trWith) {
        if (b > 0) r.DLongV += b;
        if (s < 0) r.DShortV += -s;
      } else {
        if (b < 0) r.DLongV_inv += -b;
        if (s > 0) r.DShortV_inv += s;
      }
    }
    r.RelRisk += a.GetRelativeRiskValuation(true, side, netting == kFullNetting, limit, moneyAdd, cur);
    r.NegVal += a.LockedNegVal;
  } else if ((side == sdBoth || side == sdSell) && !(a.AssetType == atOptShr && signs)) {
    bool crit = false;
    double v = a.GetDiscNMPosValuation(true, signs, sdSell, limit, crit, moneyAdd, cur);
    double loss = v < 0 ? -v : 0.0;
    if (signs) {
      v = a.GetDiscNMPosValuation(true, signs, sdBuy, limit, crit, moneyAdd, cur);
      loss = std::max(loss, v < 0 ? -v : 0.0);
    }
    if (crit) critical = true;
    if (std::fabs(loss) > ForbiddenLimit || crit) {
      logIt = true;
      if (NonMargFlipPosition && (!IsOperationGroupAsset(code) || a.FlipsBuy))
        loss = 0.0;
      else if (!signs)
        loss = ForbiddenValue;
    }
    r.NMRisk += loss;
  }
  const double lp = a.LotSize * a.Price;
  const bool money = a.AssetType == atMoney;
  double comm = 0.0;
  if (money || isMarginal) r.OutVal += lp * a.LockedOutQty.asDouble();
  if (money) {
    comm = MCorrectIfZero(a.LockedQty.asDouble() * lp - lp * a.LockedOutQty.asDouble(), 0.1);
    if (isMarginal) r.OptPrem += MCorrectIfZero(a.OptPremQty.asDouble() * a.Price, 0.1);
  }
  if (isMarginal || money)
    r.MForNMVal += MCorrectIfZero(a.LockedForNMVal, 0.1) + (money ? comm : 0.0) + lp * a.ReservedQty.asDouble();
  all += r;
  if (addExcluded) excluded += r;
  if (addRestricted && !m_settings->IsRestrictSecuritiesPropotionInCollateral(code)) restricted += r;
  if (logIt) {
    r.Params.FillFromAsset(a, true);
    r.Params.IsMarginal = isMarginal;
    r.Params.Comm = comm;
    if (money) r.Params.Cur = currNetting ? TCUR{cur.CurDown, cur.CurUp} : cur;
    groupRisk.Risks[code] = r;
  }
}

double TPortfolio::CalcCorrRisksOfGroupWithOptions(const TAssetGroup& group, TOptCalcDataSet& set,
                                                   TAssetGroupRisk& groupRisk, bool log, TCurrRecords& records,
                                                   double* premium) const {
  double thres = 0.0;
  AggregateDataForOptGroupsCalc(group, false, thres, set);
  CalcOptRelRiskVector(set.RelRiskRows, thres, set.ScenRiskRows);
  size_t worst = 0;
  const double h = CalcHalfNettoOptionsRisk(&set.ScenRiskRows, worst);
  double s = 0.0;
  for (const auto& [code, a] : group.Assets) {
    const double b = (a.Pos - a.LockedSellQty).asDouble();
    const double up = (a.Pos + a.LockedBuyQty).asDouble();
    if (!a.IsOption()) {
      s += std::max(std::fabs(b * a.Price * a.RelRiskRate), std::fabs(up * a.Price * a.RelRiskRate));
      if (a.AssetType == atFut) (premium ? *premium : records[a.GetVarMargCurrCode()].VM) += a.VarMargin;
    } else if (premium) {
      SumOptPremiumAndVMBase(a, *premium);
    } else {
      SumOptPremiumAndVMCorr(a, false, records);
    }
    if (log && !(ZDepoCount(up).isZero() && ZDepoCount(b).isZero())) {
      TRiskEx r;
      const double rw = worst < a.ScenRisks.size() ? a.ScenRisks[worst] : 0.0;
      const double x = std::min(up * rw, b * rw);
      r.OptRisk = x <= 0.0 ? std::fabs(x) : 0.0;
      r.RelRisk = a.RelRiskRate;
      r.Params.FillFromAsset(a, false);
      r.Params.IsMarginal = IsMarginal(a);
      groupRisk.Risks[code] = r;
    }
  }
  if (log) {
    groupRisk.IsOptionGroup = true;
    groupRisk.InstrRelRisk = s;
    groupRisk.ThresMarg = thres;
    groupRisk.SplitAssets = group.SplitAssets;
    if (!set.RelRiskRows.empty() && worst < set.ScenRiskRows.back().size())
      groupRisk.OptRelRisk = std::max(0.0, -set.ScenRiskRows.back()[worst]);
  }
  return h + s + (set.RelRiskRows.empty() ? thres : 0.0);
}

bool TPortfolio::CalcCorrCurrency(const std::string& curr, const TGroupList& groups, ELogLevel level,
                                  bool& nmShort, bool currNetting, TCurrRecords& records, double& total,
                                  double& decrease) const {
  const bool useOwn = m_settings->IsUseOwnAssetDiscInSets();
  double A[3] = {0, 0, 0}, S[3] = {0, 0, 0};
  double up = 0, down = 0, setUp = 0, setDown = 0, buyVal = 0, o = 0;
  bool hasAlone = false, hasExcluded = false;
  TBaseToOption baseToOption;
  TPositions positions;
  TOptCalcDataSet set;
  for (const TAssetGroup* gp : groups) {
    const TAssetGroup& G = *gp;
    const bool log = ShouldLog(level, G);
    TAssetGroupRisk gr;
    gr.Discounts = G.Discounts;
    gr.Name = G.Name;
    gr.CurrCode = G.CurrCode;
    gr.NettingType = G.NettingType;
    TRiskEx all[3], excl[3], restricted;
    set.clear();
    if (!G.HasOptions) {
      for (const auto& [code, a] : G.Assets) {
        if (a.Discounts.RCur[sizeof a.Discounts.RCur - 1] != 0) gr.HasOptPart = true;
        bool m = IsMarginal(a);
        bool e = true;
        if (a.AssetType == atOptShr || !m) {
          m = false;
        } else {
          e = G.ExcludedFromCurrRisk || a.ExcludedFromCurrRisk;
          if (a.AssetType == atFut) {
            records[a.GetVarMargCurrCode()].VM += a.VarMargin;
          } else {
            const double k = a.AssetType >= atFut && a.AssetType <= atOptShr ? 0.0 : a.GetAssetCost(*m_settings, 0);
            const double u = a.FlipsSell ? 0.0 : k + a.LockedBuyVal;
            const double d = a.FlipsBuy ? 0.0 : k - a.LockedSellVal;
            up += u;
            down += d;
            if (e) {
              setUp += u;
              setDown += d;
            }
            buyVal += a.LockedBuyVal;
          }
        }
        AggregateCorrRisks(gr, code, a, G.Discounts, useOwn, 0, ZERO_CUR, 0, m, all[0], excl[0], restricted, e,
                           currNetting, CalcRestrictLongAsset, sdBoth, G.NettingType, log, nmShort);
        if (std::fabs(restricted.NMRisk) > ForbiddenLimit || std::fabs(all[0].NMRisk) > ForbiddenLimit) {
          if (log) AllGroupRisks[G.Name] = gr;
          return false;
        }
        if (currNetting) {
          TRiskEx unused;
          AggregateCorrRisks(gr, code, a, G.Discounts, useOwn, 0, ZERO_CUR, 0, m, all[1], excl[1], unused, e,
                             currNetting, false, sdBuy, G.NettingType, false, nmShort);
          AggregateCorrRisks(gr, code, a, G.Discounts, useOwn, 0, ZERO_CUR, 0, m, all[2], excl[2], unused, e,
                             currNetting, false, sdSell, G.NettingType, false, nmShort);
        }
      }
    } else if (IsStandAloneOption(G)) {
      const TAsset& a = G.Assets.begin()->second;
      SumOptPremiumAndVMCorr(a, false, records);
      hasExcluded = hasExcluded || a.ExcludedFromCurrRisk;
      hasAlone = true;
      baseToOption.try_emplace(a.OptParams->BaseCode, a.OptParams->OptCode);
      const double risk = CalcSingleOptionRisk(&a, false);
      o += risk;
      auto& pos = positions[a.OptParams->BaseCode];
      OptPosSummator(&a, false, &pos.first, &pos.second);
      if (log) {
        TRiskEx r;
        r.OptRisk = std::fabs(risk);
        r.Params.FillFromAsset(a, false);
        r.Params.IsMarginal = IsMarginal(a);
        gr.Risks[G.Assets.begin()->first] = r;
      }
    } else {
      gr.HasOptPart = true;
      const double v = CalcCorrRisksOfGroupWithOptions(G, set, gr, log, records, nullptr);
      for (int i = 0; i < 3; ++i) {
        all[i].OptRisk += v;
        if (G.ExcludedFromCurrRisk) excl[i].OptRisk += v;
      }
    }
    if (log) AllGroupRisks[G.Name] = gr;
    if (!currNetting) {
      // Without currency-risk netting only side 0 counts.
      all[1] = all[2] = all[0];
      excl[1] = excl[2] = excl[0];
    }
    for (int i = 0; i < 3; ++i) {
      A[i] += all[i].CalcTotalRisk();
      S[i] += excl[i].CalcTotalRisk();
    }
    decrease += restricted.CalcPortfolioDecreaseRisk();
    if (CalcRestrictLongAsset) AddRestrictLongAsset(restricted.CalcTotalRisk());
  }
  if (hasAlone) {
    double thres = 0.0;
    const double v = CalcOutOfSetOptionsRisk(baseToOption, o, positions, false, &thres);
    OutOfSetOptThresMarg.emplace_back(curr, thres);
    for (int i = 0; i < 3; ++i) {
      A[i] += v;
      if (hasExcluded) S[i] += v;
    }
  }
  if (!IsMDPlusDiffCurrAssetsInSets) {
    TCurrRecord& rec = records[curr];
    rec.R0 += std::max(A[0] - S[0], 0.0);
    rec.R1 += std::max(A[1] - S[1], 0.0);
    rec.R2 += std::max(A[2] - S[2], 0.0);
    rec.CostUp += up - setUp;
    rec.CostDown += down - setDown;
  }
  (void)buyVal;
  total += A[0];
  return true;
}

double TPortfolio::CalcCorrMarg(ELogLevel level, bool& nmShort, bool operationGroupsOnly) const {
  const bool currNetting = m_settings->IsMDPlusCurrRiskNetting();
  const bool useOwn = m_settings->IsUseOwnAssetDiscInSets();
  double total = 0.0, decrease = 0.0;
  TCurrRecords records;
  OutOfSetOptThresMarg.clear();
  AllGroupRisks.clear();

  for (const auto& [curr, groups] : CurrAssets) {
    TGroupList list;
    if (operationGroupsOnly) {
      auto it = m_operationCurrGroups.find(curr);
      if (it != m_operationCurrGroups.end()) list = it->second;
    } else {
      list = GroupsOf(groups);
    }
    if (!CalcCorrCurrency(curr, list, level, nmShort, currNetting, records, total, decrease))
      return ForbiddenValue;
  }

  m_lastCurrRecords = records;

  // The main currency; the running premium reaches the main money asset,
  // valued after all the groups.
  const TGroupList list = operationGroupsOnly ? m_operationBaseGroups : GroupsOf(BaseCurrAssets);
  double p = 0.0, o = 0.0;
  bool hasAlone = false;
  TBaseToOption baseToOption;
  TPositions positions;
  TOptCalcDataSet set;
  struct TPendingMoney {
    const TAsset* asset;
    std::string code;
    const TAssetGroup* group;
    TAssetGroupRisk gr;
    TRiskEx all, excl, restricted;
    bool log;
  };
  std::vector<TPendingMoney> pending;
  auto finishGroup = [&](const TAssetGroup& G, TAssetGroupRisk& gr, const TRiskEx& all, const TRiskEx& restricted,
                         bool log) {
    if (log) AllGroupRisks[G.Name] = gr;
    total += all.CalcTotalRisk();
    decrease += restricted.CalcPortfolioDecreaseRisk();
    if (CalcRestrictLongAsset) AddRestrictLongAsset(restricted.CalcTotalRisk());
  };
  for (const TAssetGroup* gp : list) {
    const TAssetGroup& G = *gp;
    const bool log = ShouldLog(level, G);
    TAssetGroupRisk gr;
    gr.Discounts = G.Discounts;
    gr.Name = G.Name;
    gr.CurrCode = G.CurrCode;
    gr.NettingType = G.NettingType;
    TRiskEx all, excl, restricted;
    set.clear();
    if (G.HasOptions) {
      if (IsStandAloneOption(G)) {
        const TAsset& a = G.Assets.begin()->second;
        const TContractType t = a.OptParams->ContractType;
        p += (t == ctCall_M || t == ctPut_M) ? a.VarMargin : a.Pos.asDouble() * a.Theor;
        hasAlone = true;
        baseToOption.try_emplace(a.OptParams->BaseCode, a.OptParams->OptCode);
        const double risk = CalcSingleOptionRisk(&a, false);
        o += risk;
        auto& pos = positions[a.OptParams->BaseCode];
        OptPosSummator(&a, false, &pos.first, &pos.second);
        if (log) {
          TRiskEx r;
          r.OptRisk = std::fabs(risk);
          r.Params.FillFromAsset(a, false);
          r.Params.IsMarginal = IsMarginal(a);
          gr.Risks[G.Assets.begin()->first] = r;
        }
      } else {
        gr.HasOptPart = true;
        all.OptRisk += CalcCorrRisksOfGroupWithOptions(G, set, gr, log, records, &p);
      }
      finishGroup(G, gr, all, restricted, log);
      continue;
    }
    const TAsset* kept = nullptr;
    std::string keptCode;
    for (const auto& [code, a] : G.Assets) {
      const bool m = IsMarginal(a) && a.AssetType != atOptShr;
      double moneyAdd = 0.0, limit = 0.0;
      TCUR cur = ZERO_CUR;
      if (a.AssetType == atFut) {
        p += a.VarMargin;
      } else if (a.AssetType == atMoney) {
        if (a.GetCurrCode() == BaseCurrCode) {
          if (m && !kept) {
            kept = &a;
            keptCode = code;
            continue;
          }
        } else {
          auto rit = records.find(a.GetCurrCode());
          const TCurrRecord r = rit != records.end() ? rit->second : TCurrRecord{};
          moneyAdd = r.VM;
          if (currNetting) {
            cur = TCUR{r.CostDown - r.R2, r.CostUp - r.R1};
            limit = std::min(a.LockedBuyVal + r.CostDown - r.R2, 0.0);
          } else {
            cur = TCUR{r.CostUp - r.R0, r.CostDown - r.R0};
          }
        }
      }
      AggregateCorrRisks(gr, code, a, G.Discounts, useOwn, moneyAdd, cur, limit, m, all, excl, restricted, false,
                         currNetting, CalcRestrictLongAsset, sdBoth, G.NettingType, log, nmShort);
      if (std::fabs(all.NMRisk) > ForbiddenLimit || std::fabs(restricted.NMRisk) > ForbiddenLimit) {
        if (log) AllGroupRisks[G.Name] = gr;
        return ForbiddenValue;
      }
    }
    if (kept) {
      pending.push_back({kept, keptCode, &G, std::move(gr), all, excl, restricted, log});
      continue;
    }
    finishGroup(G, gr, all, restricted, log);
  }
  bool first = true;
  for (TPendingMoney& pm : pending) {
    const double add = first ? p : 0.0;
    first = false;
    AggregateCorrRisks(pm.gr, pm.code, *pm.asset, pm.group->Discounts, useOwn, add, ZERO_CUR, 0.0, true, pm.all,
                       pm.excl, pm.restricted, false, currNetting, CalcRestrictLongAsset, sdBoth,
                       pm.group->NettingType, pm.log, nmShort);
    if (std::fabs(pm.all.NMRisk) > ForbiddenLimit) return ForbiddenValue;
    finishGroup(*pm.group, pm.gr, pm.all, pm.restricted, pm.log);
  }
  if (hasAlone) {
    double thres = 0.0;
    total += CalcOutOfSetOptionsRisk(baseToOption, o, positions, false, &thres);
    OutOfSetOptThresMarg.emplace_back(PortfolioCurrCode, thres);
  }
  AddDecreaseRisk(decrease);
  return total;
}

double TPortfolio::CalcCorrMargEx(ELogLevel level, bool operationGroupsOnly) const {
  bool nmShort = false;
  const double v = CalcCorrMarg(level, nmShort, operationGroupsOnly);
  return nmShort ? ForbiddenValue : v;
}

std::string TPortfolio::GroupRisksToLog() const {
  std::string s;
  for (const auto& [name, gr] : AllGroupRisks) {
    s += "CalcMarg: Set:";
    s += name;
    s += DiscountsToLog(gr.Discounts);
    if (gr.IsOptionGroup) {
      s += "; thresMarg:" + DoubleToStringWithWidth(gr.ThresMarg, 2, 20);
      s += "; optRelRisk:" + DoubleToStringWithWidth(gr.OptRelRisk, 2, 20);
      s += "; instrRelRisk:" + DoubleToStringWithWidth(gr.InstrRelRisk, 2, 20);
    }
    s += "\n";
    s += gr.ToLog();
    s += "GRisk:" + DoubleToStringWithWidth(gr.CalcTotalRisk(), 2, 20) + "\n";
  }
  return s;
}

}  // namespace DL::MDPLUS
