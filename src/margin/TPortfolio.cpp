#include "margin/TPortfolio.h"

#include <algorithm>
#include <cmath>

#include "base/Numbers.h"

namespace DL::MDPLUS {

TPortfolio::TPortfolio(const IMarginSettings& settings, const std::string& clientCode, double leverage,
                       const char* tag, int limitKindArg, bool calcRestrictLongAsset)
    : ClientCode(clientCode),
      ClientLeverage(leverage),
      Tag(tag ? tag : ""),
      limitKind(limitKindArg),
      CalcRestrictLongAsset(calcRestrictLongAsset),
      m_settings(&settings) {
  BaseCurrCode = settings.MainCurrency();
  PortfolioCurrCode = BaseCurrCode;
  DefaultNettingType = static_cast<ENettingType>(settings.MDPlusDefaultNettingType(ClientCode, leverage, limitKind));
  ReadClientSettings();
}

void TPortfolio::ReadClientSettings() {
  MinMarginRate = m_settings->MDPlusMinMarginCalcRate(ClientCode, ClientLeverage, limitKind);
  FuturesDiscountFromCollateralAmount = m_settings->FuturesDiscountFromCollateralAmount(ClientCode, ClientLeverage);
  IsMDPlusDiffCurrAssetsInSets = m_settings->IsMDPlusDiffCurrAssetsInSets(ClientCode, ClientLeverage);
}

bool TPortfolio::UpdateMainParams(const std::string& clientCode, double leverage, const char* tag,
                                  const std::string& trdAcc, const std::string& currency) {
  bool changed = false;
  const std::string newTag = tag ? tag : "";
  if (clientCode != ClientCode) { ClientCode = clientCode; changed = true; }
  if (newTag != Tag) { Tag = newTag; changed = true; }
  if (trdAcc != TrdAcc) { TrdAcc = trdAcc; changed = true; }
  if (currency != PortfolioCurrCode) { PortfolioCurrCode = currency; changed = true; }
  if (!MIsEqual(leverage, ClientLeverage)) {
    ClientLeverage = leverage;
    ReadClientSettings();
    changed = true;
  }
  return changed;
}

TGroupMap& TPortfolio::TargetMap(const std::string& currency) {
  return currency == BaseCurrCode ? BaseCurrAssets : CurrAssets[currency];
}

TAssetGroup* TPortfolio::SplitOut(TGroupMap& target, const std::string& code, TAsset& asset) {
  TAssetGroup own(code, asset.GetCurrCode(), asset.Discounts);
  own.NettingType = DefaultNettingType;
  own.HasOptions = asset.IsOption();
  asset.InSet = false;
  auto [it, inserted] = target.try_emplace(code, std::move(own));
  return &it->second;
}

TAsset* TPortfolio::AddAsset(const std::string& code, TAsset& asset, TAssetGroup&& group, bool overwrite) {
  if (asset.IsOption()) {
    if (!asset.Pos.isZero())
      group.HasOptionPositions = true;
    else if (asset.LockedBuyQty.isZero() && asset.LockedSellQty.isZero())
      group.Key = code;  // an idle option stays out of the set
  }
  TGroupMap& target = TargetMap(group.CurrCode);
  const std::string key = asset.InSet ? group.Key : code;
  auto found = target.find(key);
  const bool existed = found != target.end();
  const bool wasOpt = existed && found->second.HasOptions;
  TAssetGroup* g;
  if (existed) {
    g = &found->second;
  } else {
    TAssetGroup copy = group;
    copy.Key = key;
    g = &target.emplace(key, std::move(copy)).first->second;
  }
  if (asset.InSet && !asset.KeepInOptionSet && (wasOpt || group.SplitAssets)) g = SplitOut(target, code, asset);

  TAsset* stored = g->AddAsset(code, asset);
  if (asset.AssetType == atFut) WithFutures = true;
  if (asset.IsOption()) {
    g->HasOptions = true;
    g->ExcludedFromCurrRisk = g->ExcludedFromCurrRisk || group.ExcludedFromCurrRisk;
    g->HasOptionPositions = g->HasOptionPositions || group.HasOptionPositions;
    WithOptions = true;
  }
  if (asset.IsOption() && asset.KeepInOptionSet) {
    std::vector<std::string> leaving;
    for (const auto& [other, a] : g->Assets)
      if (!a.KeepInOptionSet) leaving.push_back(other);
    for (const std::string& other : leaving) {
      TAsset moved = g->Assets.at(other);
      g->Assets.erase(other);
      TAssetGroup* own = SplitOut(target, other, moved);
      TAsset* p = own->AddAsset(other, moved);
      m_index[other] = {p, own};
    }
    stored = g->GetAssetPointer(code);
  }
  if (overwrite || m_index.find(code) == m_index.end()) m_index[code] = {stored, g};

  if (asset.Pos < ZDepoCount_ZERO && asset.AssetType != atFut && !asset.IsOption() &&
      m_settings->IsUseMarginalSignsFromDiscSettings() && !asset.Discounts.bS)
    CriticalStatus = true;
  return stored;
}

void TPortfolio::AddAdditionalAsset(const std::string& code, TAsset& asset, const std::string& currency,
                                    const TDiscountsEx& discounts) {
  asset.SetCurrCode(currency, m_settings);
  asset.Discounts.DLong = discounts.DLong;
  asset.Discounts.DShort = discounts.DShort;
  asset.Discounts.DLongMin = discounts.DLongMin;
  asset.Discounts.DShortMin = discounts.DShortMin;
  std::copy(std::begin(discounts.RCur), std::end(discounts.RCur), std::begin(asset.Discounts.RCur));
  asset.Discounts.bS = discounts.bS;
  m_additionalAssets.emplace_back(code, asset);
}

void TPortfolio::ApplyAddBoardsToPortfolio(const std::set<int>& tags, const std::set<int>& accounts, bool revert) {
  bool nm = false;
  if (tags.count(6)) {
    const TAsset* main = GetMainAssetPointer();
    nm = main && !IsMarginal(*main);
  }
  const double f = revert ? -1.0 : 1.0;
  for (const auto& [code, a] : m_additionalAssets) {
    if (!tags.count(a.TagType) && !accounts.count(a.TrdAccType)) continue;
    TAsset* m = GetAssetPointer(code);
    if (!m || m->AssetType != a.AssetType) continue;
    if (a.AssetType == atMoney) {
      const ZDepoCount neg = ZDepoCount::Negative(a.Pos);
      switch (static_cast<int>(a.TagType)) {
        case 3:
          m->Pos += ZDepoCount(f) * a.Pos;
          m->LockedQty += ZDepoCount(f) * a.LockedQty;
          break;
        case 4: m->LockedQty -= ZDepoCount(f) * neg; break;
        case 5: m->ReservedQty -= ZDepoCount(f) * neg; break;
        case 6:
          if (nm) m->LockedQty -= ZDepoCount(f) * neg;
          break;
        default: continue;
      }
    }
    if (a.AssetType == atDepo && static_cast<int>(a.TrdAccType) == 5)
      m->Pos += ZDepoCount(f) * ZDepoCount::Negative(a.Pos);
  }
}

void TPortfolio::CorrectAddBoardAssets() {
  double s = 0.0;
  for (const auto& [code, a] : m_additionalAssets) {
    if (static_cast<int>(a.TagType) == 3) s += (a.LockedQty - a.Pos).asDouble();
    if (static_cast<int>(a.TagType) == 4) s -= ZDepoCount::Negative(a.Pos).asDouble();
  }
  for (auto& [code, a] : m_additionalAssets) {
    if (MIsZero(s)) break;
    if (static_cast<int>(a.TagType) != 6) continue;
    const double neg = ZDepoCount::Negative(a.Pos).asDouble();
    const double t = std::max(s + neg, 0.0);
    double c = s - t;
    if (c < 0.0 && a.Pos.asDouble() > c) c = neg;
    a.Pos += ZDepoCount(c);
    s -= c;
  }
}

void TPortfolio::SetOperationAssets(const std::string& a, const std::string& b, const std::string& c,
                                    const std::string& d) {
  m_operationAssets[0] = a;
  m_operationAssets[1] = b;
  m_operationAssets[2] = c;
  m_operationAssets[3] = d;
}

bool TPortfolio::IsOperationGroupAsset(const std::string& code) const {
  return !code.empty() &&
         (code == m_operationAssets[0] || code == m_operationAssets[1] || code == m_operationAssets[2]);
}

bool TPortfolio::FormOperationGroup(const std::string& a, const std::string& b, const std::string& c,
                                    const std::string& d) {
  m_operationBaseGroups.clear();
  m_operationCurrGroups.clear();
  auto look = [this](const std::string& code) {
    TAssetGroup* g = nullptr;
    const int where = GetAssetGroupIterator(code, g);
    if (where == 0) return false;
    TGroupList& list = where == 1 ? m_operationBaseGroups : m_operationCurrGroups[g->CurrCode];
    if (std::find(list.begin(), list.end(), g) == list.end()) list.push_back(g);
    return true;
  };
  if (!look(a) || !look(b)) return false;
  if (!d.empty() && !look(d)) return false;
  if (c != a && c != b && !look(c)) return false;
  SetOperationAssets(a, b, c, d);
  return true;
}

void TPortfolio::CheckTransactionFlipsPosition(char side, ZDepoCount qty, double price, TAsset* position,
                                               TAsset* counter) {
  if (!position || !counter) return;
  if (position->AssetType != atMoney && position->AssetType != atDepo) return;
  const bool perevorot = m_settings->IsEnableDiscountPerevorot();
  if (perevorot) {
    const double value = position->Value();
    if (side == 'B') {
      if (position->Pos < ZDepoCount_ZERO && MIsGE(position->LockedBuyVal, std::fabs(value))) {
        position->FlipsBuy = true;
        if (!IsMarginal(*position)) NonMargFlipPosition = true;
      }
    } else if (side == 'S') {
      if (position->Pos > ZDepoCount_ZERO && MIsLE(value, position->LockedSellVal)) position->FlipsSell = true;
    }
  }
  double q;
  if (MIsZero(counter->Price)) {
    if (perevorot && (side == 'B' || side == 'S')) {
      q = qty.asDouble() * price;
      if (side != 'S') return;
    } else if (perevorot) {
      return;
    } else {
      q = qty.asDouble() * price / 1.0;
    }
  } else {
    q = qty.asDouble() * price / counter->Price;
  }
  if (side == 'S' && counter->Pos < ZDepoCount_ZERO && !IsMarginal(*counter) &&
      (std::fabs(counter->Pos.asDouble()) >= q || perevorot)) {
    NonMargFlipPosition = true;
    counter->FlipsBuy = true;
  }
}

TAsset* TPortfolio::GetAssetPointer(const std::string& code) const {
  auto it = m_index.find(code);
  return it == m_index.end() ? nullptr : it->second.first;
}

int TPortfolio::GetAssetGroupIterator(const std::string& code, TAssetGroup*& group) const {
  auto it = m_index.find(code);
  if (it == m_index.end()) {
    group = nullptr;
    return 0;
  }
  group = it->second.second;
  return group->CurrCode == BaseCurrCode ? 1 : 2;
}

std::vector<std::string> TPortfolio::GetCriticalNMAssets() const {
  std::vector<std::string> out;
  for (const auto& [code, elem] : m_index)
    if (elem.first->IsCritical) out.push_back(code);
  return out;
}

bool TPortfolio::IsTrdAccApplicable(const std::string& account) const {
  auto it = m_trdAccApplicable.find(account);
  return it != m_trdAccApplicable.end() && it->second;
}

void TPortfolio::ClearInnerStorages() {
  BaseCurrAssets.clear();
  CurrAssets.clear();
  m_index.clear();
  m_additionalAssets.clear();
  m_operationBaseGroups.clear();
  m_operationCurrGroups.clear();
  AllGroupRisks.clear();
  m_trdAccApplicable.clear();
}

double TPortfolio::CalcAssetsCost(const std::vector<const TAssetGroup*>& groups) const {
  double c = 0.0;
  for (const TAssetGroup* g : groups) c += g->CalcTotalCost(*m_settings);
  return c;
}

double TPortfolio::CalcPortfolioCost() const {
  double c = 0.0;
  for (const auto& [key, g] : BaseCurrAssets) c += g.CalcTotalCost(*m_settings);
  for (const auto& [curr, groups] : CurrAssets)
    for (const auto& [key, g] : groups) c += g.CalcTotalCost(*m_settings);
  return c;
}

bool TPortfolio::IsStandAloneOption(const TAssetGroup& g) const {
  if (g.Assets.size() != 1) return false;
  const TAsset& a = g.Assets.begin()->second;
  return a.IsOption() && a.OptParams && g.Name == a.OptParams->OptCode;
}

TPortfolio::TGroupList TPortfolio::GroupsOf(const TGroupMap& map) const {
  TGroupList list;
  list.reserve(map.size());
  for (const auto& [key, g] : map) list.push_back(&g);
  return list;
}

bool TPortfolio::ShouldLog(ELogLevel level, const TAssetGroup& g) const {
  return level == llAll || (level == llAlways && g.AlwaysLog) || PortfolioType == ptLogAll;
}

// ---- Initial margin ----

void TPortfolio::AggregateInitialRisks(const TAsset& a, const TDiscountsEx& groupDisc, bool useOwn,
                                       bool isMarginal, double moneyAdd, double curUp, TRisk& risk, TRisk* setRisk,
                                       bool addToSet, int netting) const {
  if (a.IsOption()) return;
  TRisk r;
  const TCUR cur{curUp, 0.0};
  const bool signs = m_settings->IsUseMarginalSignsFromDiscSettings();
  if (isMarginal && !MIsZero(a.Price) && a.AssetType != atOptShr) {
    if (netting == kFullNetting) {
      r.DFullRisk_Long += a.GetDiscInitialPosValuationFullNetting(groupDisc, useOwn, true, moneyAdd, curUp);
      r.DFullRisk_Short += a.GetDiscInitialPosValuationFullNetting(groupDisc, useOwn, false, moneyAdd, curUp);
    } else {
      const double v = a.GetDiscInitialPosValuation(groupDisc, useOwn, moneyAdd, curUp);
      if (a.Trend == trWith) {
        if (v > 0) r.DLongV += v;
        if (v < 0) r.DShortV += -v;
      } else {
        if (v < 0) r.DLongV_inv += -v;
        if (v > 0) r.DShortV_inv += v;
      }
    }
    r.RelRisk += a.GetRelativeRiskValuation(false, sdBoth, netting == kFullNetting, 0.0, moneyAdd, cur);
  } else if (!(a.AssetType == atOptShr && signs)) {
    bool dummy = false;
    const double v = a.GetDiscNMPosValuation(false, signs, sdSell, 0.0, dummy, moneyAdd, cur);
    if (v < 0) r.NMRisk += -v;
  }
  risk += r;
  if (setRisk && addToSet) *setRisk += r;
}

void TPortfolio::AggregateDataForOptGroupsCalc(const TAssetGroup& group, bool initial, double& thres,
                                               TOptCalcDataSet& set) const {
  auto fillRow = [initial, &set](const TAsset& a) {
    if (a.ScenRisks.empty()) return;
    std::vector<double> row(a.ScenRisks.size());
    if (initial) {
      if (a.Pos.isZero()) return;
      const double p = a.Pos.asDouble();
      for (size_t j = 0; j < row.size(); ++j) row[j] = a.ScenRisks[j] * p;
    } else {
      const double up = (a.Pos + a.LockedBuyQty).asDouble();
      const double down = (a.Pos - a.LockedSellQty).asDouble();
      if (ZDepoCount(up).isZero() && ZDepoCount(down).isZero()) return;
      for (size_t j = 0; j < row.size(); ++j) row[j] = std::min(a.ScenRisks[j] * up, a.ScenRisks[j] * down);
    }
    set.ScenRiskRows.push_back(std::move(row));
  };
  for (const auto& [code, a] : group.Assets) {
    if (!a.IsOption()) {
      BaseAsset2OptCalcParams grid = PrepOptCalcParams(a.Price, group.Discounts);
      grid.CalcNonOptionScenRisks(a.Price);
      a.ScenRisks = std::move(grid.NonOptionScenRisks);
      fillRow(a);
      continue;
    }
    if (!a.OptParams) continue;
    const TOptParams& o = *a.OptParams;
    set.BaseToOption.try_emplace(o.BaseCode, o.OptCode);
    fillRow(a);
    if (a.RelRiskRate != 0.0) {
      const BaseAsset2OptCalcParams grid = PrepOptCalcParams(o.Stock, a.Discounts);
      std::vector<std::pair<double, double>> d = ScenarioOptRelRiskDeltas(&o, grid, a.RelRiskRate);
      if (initial) {
        if (!a.Pos.isZero()) {
          const double p = a.Pos.asDouble();
          for (auto& e : d) {
            e.first *= p;
            e.second *= p;
          }
          a.OptParams->RelRiskDeltas = d;
          set.RelRiskRows.push_back(std::move(d));
        }
      } else {
        const double up = (a.Pos + a.LockedBuyQty).asDouble();
        const double down = (a.Pos - a.LockedSellQty).asDouble();
        if (!(ZDepoCount(up).isZero() && ZDepoCount(down).isZero())) {
          for (auto& e : d) {
            e.first *= up;
            e.second *= down;
          }
          set.RelRiskRows.push_back(std::move(d));
        }
      }
    }
    auto& pos = set.BasePositions[o.BaseCode];
    OptPosSummator(&a, initial, &pos.first, &pos.second);
  }
  thres = 0.0;
  for (const auto& [base, lots] : set.BasePositions) {
    auto opt = set.BaseToOption.find(base);
    if (opt == set.BaseToOption.end()) continue;
    double baseMin = 0.0, baseMax = 0.0;
    if (const TAsset* b = group.GetAssetPointer(base)) {
      baseMin = initial ? b->Pos.asDouble() : (b->Pos - b->LockedSellQty).asDouble();
      baseMax = initial ? b->Pos.asDouble() : (b->Pos + b->LockedBuyQty).asDouble();
    }
    double stockPerLot = 0.0, dThr = 1.0;
    const TAsset* o = group.GetAssetPointer(opt->second);
    if (o && o->OptParams) {
      stockPerLot = o->OptParams->Stock / (o->OptParams->Lot != 0 ? o->OptParams->Lot : 1.0);
      dThr = o->OptParams->DThr;
    }
    thres += ThresMargin(lots.first, lots.second, baseMin, baseMax, group.Discounts, stockPerLot, dThr);
  }
}

void TPortfolio::CalcOptRelRiskVector(const std::vector<std::vector<std::pair<double, double>>>& relRows,
                                      double thres, std::vector<std::vector<double>>& scenRows) {
  if (relRows.empty()) return;
  std::vector<double> r(relRows.front().size(), 0.0);
  for (const auto& row : relRows)
    for (size_t j = 0; j < r.size() && j < row.size(); ++j) r[j] -= std::min({0.0, row[j].first, row[j].second});
  for (double& x : r) x = -std::max(x, thres);
  scenRows.push_back(std::move(r));
}

double TPortfolio::CalcOptGroupRelRiskFullNetto(const TAssetGroup& group, TOptCalcDataSetEx& set,
                                                double thres) const {
  double f = 0.0;
  for (const auto& [base, records] : set.RelRiskSubGroups) {
    const TAsset* b = group.GetAssetPointer(base);
    int64_t q = b ? b->Pos.asInt64() : 0;
    const double sgn = q >= 0 ? 1.0 : -1.0;
    const double p = b ? b->Price : 0.0;
    const double R = b ? b->RelRiskRate : 0.0;
    double y = 0.0;
    for (const auto& [ytm, rec] : records) y += std::max(0.0, sgn * rec.DeltaSum);
    const double D = std::max(std::fabs(static_cast<double>(q)), y);
    for (const auto& [ytm, rec] : records) {
      const double share = MIsZero(D) ? 0.0 : std::max(0.0, rec.DeltaSum * sgn / D);
      const int64_t n = static_cast<int64_t>(MRound(share * static_cast<double>(q)));
      q -= n;
      const double c = static_cast<double>(n) * p * R;
      f += std::max(0.0, std::max(-c - rec.RiskDown, c - rec.RiskUp));
    }
    set.FutLeftover.try_emplace(base, q);
  }
  return std::max(f, thres);
}

void TPortfolio::CalcInitRisksOfGroupWithOptions(const TAssetGroup& group, TOptCalcDataSetEx& set,
                                                 TInitCurrRecords& records, double* premium, double* initOut,
                                                 double* nettoOut) const {
  double thres = 0.0;
  AggregateDataForOptGroupsCalc(group, true, thres, set);
  size_t worst = 0;
  *nettoOut = CalcNettoOptionsRisk(&set.ScenRiskRows, worst);
  for (const auto& [code, a] : group.Assets) {
    if (!a.IsOption() || !a.OptParams) continue;
    const TOptParams& o = *a.OptParams;
    if (!o.InRelRiskSubGroup || o.RelRiskDeltas.size() <= worst || o.BaseCode == group.Name) continue;
    TRelRiskSubGroup& rec = set.RelRiskSubGroups[o.BaseCode][o.Ytm];
    rec.RiskUp += o.RelRiskDeltas[worst].first;
    rec.RiskDown += o.RelRiskDeltas[worst].second;
    rec.DeltaSum += Delta(&o).first * a.Pos.asDouble();
  }
  const double f = CalcOptGroupRelRiskFullNetto(group, set, thres);
  double s1 = 0.0, s2 = 0.0;
  for (const auto& [code, a] : group.Assets) {
    if (a.IsOption()) {
      SumOptPremiumAndVMBase(a, premium ? *premium : records[a.GetVarMargCurrCode()].VM);
      continue;
    }
    const double v = std::fabs(a.Pos.asDouble() * a.Price * a.RelRiskRate);
    s1 += v;
    if (a.AssetType == atFut) {
      (premium ? *premium : records[a.GetVarMargCurrCode()].VM) += a.VarMargin;
      auto left = set.FutLeftover.find(code);
      s2 += left != set.FutLeftover.end()
                ? std::fabs(static_cast<double>(left->second) * a.Price * a.RelRiskRate)
                : v;
    } else {
      s2 += v;
    }
  }
  *nettoOut += f + s2;
  CalcOptRelRiskVector(set.RelRiskRows, thres, set.ScenRiskRows);
  size_t worst2 = 0;
  *initOut = CalcHalfNettoOptionsRisk(&set.ScenRiskRows, worst2) + s1 + (set.RelRiskRows.empty() ? thres : 0.0);
}

double TPortfolio::CalcOutOfSetOptionsRisk(const TBaseToOption& baseToOption, double singleSum,
                                           const TPositions& positions, bool initial, double* thresOut) const {
  double s = 0.0;
  for (const auto& [base, lots] : positions) {
    const TAsset* b = GetAssetPointer(base);
    const TAsset* opt = nullptr;
    auto it = baseToOption.find(base);
    if (it != baseToOption.end()) opt = GetAssetPointer(it->second);
    double stockPerLot = 0.0, dThr = 1.0;
    TDiscountsEx disc = NM_Discs;
    if (opt && opt->OptParams) {
      disc = opt->Discounts;
      stockPerLot = opt->OptParams->Stock / (opt->OptParams->Lot != 0 ? opt->OptParams->Lot : 1.0);
      dThr = opt->OptParams->DThr;
    }
    double baseMin = 0.0, baseMax = 0.0;
    if (b) {
      baseMin = initial ? b->Pos.asDouble() : (b->Pos - b->LockedSellQty).asDouble();
      baseMax = initial ? b->Pos.asDouble() : (b->Pos + b->LockedBuyQty).asDouble();
    }
    s += ThresMargin(lots.first, lots.second, baseMin, baseMax, disc, stockPerLot, dThr);
  }
  if (thresOut) *thresOut = s;
  return std::max(-singleSum, s);
}

std::pair<double, double> TPortfolio::CalcInitialMarg() const {
  const std::pair<double, double> forbidden{ForbiddenValue, ForbiddenValue};
  const bool useOwn = m_settings->IsUseOwnAssetDiscInSets();
  TInitCurrRecords records;
  std::map<std::string, double> nettoByCurr;
  double initMarg = 0.0, initNetto = 0.0;
  TOptCalcDataSetEx set;
  TBaseToOption baseToOption;
  TPositions positions;

  // A stand-alone option: its risk alone, its lots for the threshold margin.
  auto standAlone = [&](const TAsset& a, double& o) {
    baseToOption.try_emplace(a.OptParams->BaseCode, a.OptParams->OptCode);
    o += CalcSingleOptionRisk(&a, true);
    auto& pos = positions[a.OptParams->BaseCode];
    OptPosSummator(&a, true, &pos.first, &pos.second);
  };

  for (const auto& [curr, groups] : CurrAssets) {
    double i = 0, n = 0, si = 0, sn = 0, c = 0, sc = 0, o = 0;
    bool hasAlone = false, hasExcluded = false;
    positions.clear();
    for (const auto& [key, G] : groups) {
      set.clear();
      if (!G.HasOptionPositions) {
        TRisk A, B, S, T;
        for (const auto& [code, a] : G.Assets) {
          if (a.AssetType != atMoney && a.AssetType != atDepo && a.AssetType != atFut) continue;
          const bool m = IsMarginal(a);
          bool e = true;
          if (m) {
            e = G.ExcludedFromCurrRisk || a.ExcludedFromCurrRisk;
            if (a.AssetType == atFut) {
              records[a.GetVarMargCurrCode()].VM += a.VarMargin;
            } else {
              const double k = a.GetAssetCost(*m_settings, 0.0);
              c += k;
              if (e) sc += k;
            }
          }
          AggregateInitialRisks(a, G.Discounts, useOwn, m, 0, 0, A, &S, e, G.NettingType);
          if (G.NettingType != kFullNetting)
            AggregateInitialRisks(a, G.Discounts, useOwn, m, 0, 0, B, &T, e, kFullNetting);
          if (std::fabs(A.NMRisk) > ForbiddenLimit) return forbidden;
        }
        if (G.NettingType == kFullNetting) {
          B = A;
          T = S;
        }
        i += A.CalcTotalRisk();
        si += S.CalcTotalRisk();
        n += B.CalcTotalRisk();
        sn += T.CalcTotalRisk();
      } else if (IsStandAloneOption(G)) {
        const TAsset& a = G.Assets.begin()->second;
        SumOptPremiumAndVMBase(a, records[a.GetVarMargCurrCode()].VM);
        hasExcluded = hasExcluded || a.ExcludedFromCurrRisk;
        standAlone(a, o);
        hasAlone = true;
      } else {
        double initOut = 0, nettoOut = 0;
        CalcInitRisksOfGroupWithOptions(G, set, records, nullptr, &initOut, &nettoOut);
        i += initOut;
        n += nettoOut;
        if (G.ExcludedFromCurrRisk) {
          si += initOut;
          sn += nettoOut;
        }
      }
    }
    if (hasAlone) {
      const double v = CalcOutOfSetOptionsRisk(baseToOption, o, positions, true, nullptr);
      i += v;
      n += v;
      if (!hasExcluded) {
        si += v;
        sn += v;
      }
    }
    if (!IsMDPlusDiffCurrAssetsInSets) {
      records[curr].Risk += std::max(i - si, 0.0);
      records[curr].Cost += c - sc;
    }
    nettoByCurr[curr] = std::max(n - sn, 0.0);
    initMarg += i;
    initNetto += n;
  }

  // The main currency. The running premium p (futures variation margin,
  // option premiums) reaches the main money asset, which is valued after all
  // the groups.
  double p = 0.0, o = 0.0;
  bool hasAlone = false;
  positions.clear();
  struct TPendingMoney {
    const TAsset* asset;
    const TAssetGroup* group;
    TRisk A, B;
  };
  std::vector<TPendingMoney> pending;
  for (const auto& [key, G] : BaseCurrAssets) {
    set.clear();
    if (G.HasOptionPositions) {
      if (IsStandAloneOption(G)) {
        const TAsset& a = G.Assets.begin()->second;
        const TContractType t = a.OptParams->ContractType;
        p += (t == ctCall_M || t == ctPut_M) ? std::fabs(a.VarMargin) : a.Pos.asDouble() * a.Theor;
        standAlone(a, o);
        hasAlone = true;
      } else {
        double initOut = 0, nettoOut = 0;
        CalcInitRisksOfGroupWithOptions(G, set, records, &p, &initOut, &nettoOut);
        initMarg += initOut;
        initNetto += nettoOut;
      }
      continue;
    }
    TRisk A, B;
    const TAsset* kept = nullptr;
    for (const auto& [code, a] : G.Assets) {
      const bool m = IsMarginal(a);
      double moneyAdd = 0, curUp = 0, nettoUp = 0;
      if (a.AssetType == atFut) {
        p += a.VarMargin;
      } else if (a.AssetType == atMoney) {
        if (a.GetCurrCode() == BaseCurrCode) {
          if (m && !kept) {
            kept = &a;
            continue;
          }
        } else {
          auto rit = records.find(a.GetCurrCode());
          const TInitCurrRecord r = rit != records.end() ? rit->second : TInitCurrRecord{};
          auto nit = nettoByCurr.find(a.GetCurrCode());
          const double netto = nit != nettoByCurr.end() ? nit->second : 0.0;
          moneyAdd = r.VM;
          curUp = r.Cost - r.Risk;
          if (G.NettingType != kFullNetting) nettoUp = r.Cost - netto;
        }
      }
      AggregateInitialRisks(a, G.Discounts, useOwn, m, moneyAdd, curUp, A, nullptr, false, G.NettingType);
      if (G.NettingType != kFullNetting)
        AggregateInitialRisks(a, G.Discounts, useOwn, m, moneyAdd, nettoUp, B, nullptr, false, kFullNetting);
      if (std::fabs(A.NMRisk) > ForbiddenLimit) return forbidden;
    }
    if (kept) {
      pending.push_back({kept, &G, A, B});
      continue;
    }
    if (G.NettingType == kFullNetting) B = A;
    initMarg += A.CalcTotalRisk();
    initNetto += B.CalcTotalRisk();
  }
  bool first = true;
  for (TPendingMoney& pm : pending) {
    const double add = first ? p : 0.0;
    first = false;
    const TAssetGroup& G = *pm.group;
    AggregateInitialRisks(*pm.asset, G.Discounts, useOwn, true, add, 0, pm.A, nullptr, false, G.NettingType);
    if (G.NettingType != kFullNetting)
      AggregateInitialRisks(*pm.asset, G.Discounts, useOwn, true, add, 0, pm.B, nullptr, false, kFullNetting);
    else
      pm.B = pm.A;
    if (std::fabs(pm.A.NMRisk) > ForbiddenLimit) return forbidden;
    initMarg += pm.A.CalcTotalRisk();
    initNetto += pm.B.CalcTotalRisk();
  }
  if (hasAlone) {
    const double v = CalcOutOfSetOptionsRisk(baseToOption, o, positions, true, nullptr);
    initMarg += v;
    initNetto += v;
  }
  return {initMarg, initNetto};
}

// ---- All figures ----

void TPortfolio::CalcMargParams(TMargParams& params, ELogLevel level) {
  params.Version = TMargParams::kVersion;
  params.NM_Short = false;
  const std::set<int> tags{2, 4, 3, 5};
  ApplyAddBoardsToPortfolio(tags, {}, false);
  RestrictLongAsset = 0.0;
  DecreaseRisk = 0.0;
  params.portfolio = CalcPortfolioCost();
  const auto [init, initNetto] = CalcInitialMarg();
  params.initMarg = init;
  params.initMargNetto = initNetto;
  params.minMarg = init * MinMarginRate;
  params.minMargNetto = initNetto * MinMarginRate;
  params.corrMarg = CalcCorrMarg(level, params.NM_Short, false);
  ApplyAddBoardsToPortfolio(tags, {}, true);
  params.NPR1_corr = params.portfolio - params.initMarg;
  params.NPR2 = params.portfolio - params.minMarg;
  params.NPR1_corrNetto = params.portfolio - params.initMargNetto;
  params.NPR2Netto = params.portfolio - params.minMargNetto;
  params.RestrictLongAsset = RestrictLongAsset;
  params.DecreaseRisk = DecreaseRisk;
  m_log.str("");
  m_log << params.ToLog() << "\n" << GroupRisksToLog();
}

void TPortfolio::CalcMargParamsLite(double& cost, double& corrMarg, ELogLevel level) {
  const std::set<int> tags{2, 4, 3, 5};
  ApplyAddBoardsToPortfolio(tags, {}, false);
  RestrictLongAsset = 0.0;
  DecreaseRisk = 0.0;
  cost = CalcPortfolioCost();
  corrMarg = CalcCorrMargEx(level, false);
  ApplyAddBoardsToPortfolio(tags, {}, true);
}

}  // namespace DL::MDPLUS
