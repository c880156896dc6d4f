#pragma once
// One client's portfolio for the MD+ margin method.
//
// The host builds it for a client on the firm's settings, fills it with
// assets (AddAsset) and asks for the five figures: the portfolio's value,
// the initial margin, the minimal margin, the corrected margin and the free
// funds NPR1 and NPR2 (CalcMargParams). Each asset goes to a group of its
// group's currency: groups of the main currency are valued directly, groups
// of other currencies turn their risk into a charge on the money asset of
// that currency, valued in the main-currency groups.
//
// A forbidden state (a short in a security that may not be shorted) is not
// an error: the margins come back as 1e50. One thread at a time: the const
// calculations write the mutable sums and the asset flags.
#include <cstdint>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "margin/MarginSettings.h"
#include "margin/TAssetGroup.h"
#include "margin/TMargParams.h"
#include "margin/TRisk.h"

namespace DL::MDPLUS {

enum EPortfolioType : int32_t { ptNormal = 0, ptLogAll = 1 };
// 2 logs every group; 1 the groups with AlwaysLog.
enum ELogLevel : int32_t { llNone = 0, llAlways = 1, llAll = 2 };

// Where an asset is kept: the asset and its group.
using TAssetListElem = std::pair<TAsset*, TAssetGroup*>;
// Group key -> group, ordered so that results do not depend on the order of adding.
using TGroupMap = std::map<std::string, TAssetGroup>;

class TPortfolio {
 public:
  TPortfolio(const IMarginSettings& settings, const std::string& clientCode, double leverage, const char* tag,
             int limitKind, bool calcRestrictLongAsset);
  TPortfolio(const TPortfolio&) = delete;
  TPortfolio& operator=(const TPortfolio&) = delete;

  // Updates what changed and tells whether anything did; a new leverage
  // re-reads the client's rate and flags.
  bool UpdateMainParams(const std::string& clientCode, double leverage, const char* tag, const std::string& trdAcc,
                        const std::string& currency);

  // Puts a copy of the asset into the group of group.CurrCode under
  // group.Key (or, for an asset outside any set, its own code). Returns the
  // stored asset. overwrite replaces an index entry of the same code.
  TAsset* AddAsset(const std::string& code, TAsset& asset, TAssetGroup&& group, bool overwrite);
  // An asset of an additional board: takes the currency and the discounts
  // (numbers, RCur and bS; not bC) and is kept apart from the groups.
  void AddAdditionalAsset(const std::string& code, TAsset& asset, const std::string& currency,
                          const TDiscountsEx& discounts);
  void ApplyAddBoards(const std::set<int>& tags, const std::set<int>& accounts) {
    ApplyAddBoardsToPortfolio(tags, accounts, false);
  }
  void RevertAddBoards(const std::set<int>& tags, const std::set<int>& accounts) {
    ApplyAddBoardsToPortfolio(tags, accounts, true);
  }
  void ApplyAddBoardsToPortfolio(const std::set<int>& tags, const std::set<int>& accounts, bool revert);
  void CorrectAddBoardAssets();

  // The groups of the operation under test; false if an asset is unknown.
  bool FormOperationGroup(const std::string& a, const std::string& b, const std::string& c, const std::string& d);
  void SetOperationAssets(const std::string& a, const std::string& b, const std::string& c, const std::string& d);
  bool IsOperationGroupAsset(const std::string& code) const;
  // Marks the flip flags of a money or depo position and its counter asset.
  void CheckTransactionFlipsPosition(char side, ZDepoCount qty, double price, TAsset* position, TAsset* counter);
  void ResetNonMargFlipPositionFlag() { NonMargFlipPosition = false; }

  double CalcPortfolioCost() const;
  double CalcAssetsCost(const std::vector<const TAssetGroup*>& groups) const;
  // (initMarg, initMargNetto); (1e50, 1e50) for a forbidden short.
  std::pair<double, double> CalcInitialMarg() const;
  double CalcMinMarg() const { return CalcInitialMarg().first * MinMarginRate; }
  double CalcNPR1() const { return CalcPortfolioCost() - CalcInitialMarg().first; }
  double CalcNPR2() const { return CalcPortfolioCost() - CalcInitialMarg().first * MinMarginRate; }
  // The margin with every order counted; 1e50 for a forbidden state. nmShort
  // is set when a critical non-marginal short was met.
  double CalcCorrMarg(ELogLevel level, bool& nmShort, bool operationGroupsOnly) const;
  double CalcCorrMargEx(ELogLevel level, bool operationGroupsOnly) const;
  // All figures at once, with the additional boards of tags 2, 4, 3 and 5
  // applied for the calculation. The log text of this calculation replaces
  // the last one (GetLogText).
  void CalcMargParams(TMargParams& params, ELogLevel level);
  void CalcMargParamsLite(double& cost, double& corrMarg, ELogLevel level);

  // The group lines of the last corrected calculation.
  std::string GroupRisksToLog() const;
  std::string GetLogText() const { return m_log.str(); }

  void ClearInnerStorages();

  TAsset* GetAssetPointer(const std::string& code) const;
  TAsset* GetMainAssetPointer() const { return GetAssetPointer(m_operationAssets[0]); }
  TAsset* GetSecondAssetPointer() const { return GetAssetPointer(m_operationAssets[1]); }
  // 1 for a group of the main currency, 2 of another, 0 if not found.
  int GetAssetGroupIterator(const std::string& code, TAssetGroup*& group) const;
  const TGroupMap& GetAllAssets() const { return BaseCurrAssets; }
  const std::vector<std::pair<std::string, TAsset>>& GetAdditionalAssets() const { return m_additionalAssets; }
  const std::map<std::string, TGroupMap>& GetAllCurrAssets() const { return CurrAssets; }
  // The codes of assets whose valuation marked a forbidden short.
  std::vector<std::string> GetCriticalNMAssets() const;
  const std::vector<std::pair<std::string, double>>& GetOutOfSetOptThresMarg() const { return OutOfSetOptThresMarg; }
  const std::map<std::string, TAssetGroupRisk>& GetAllGroupRisks() const { return AllGroupRisks; }
  // The currency records of the last corrected calculation.
  const TCurrRecords& GetCurrRecords() const { return m_lastCurrRecords; }
  void SetTrdAccApplicable(const std::string& account, bool value) { m_trdAccApplicable[account] = value; }
  bool IsTrdAccApplicable(const std::string& account) const;
  void SetInitialPortfolioCostAndCorrMargin(double cost, double corrMargin) {
    InitialPortfolioCost = cost;
    InitialCorrMargin = corrMargin;
  }
  void AddRestrictLongAsset(double v) const { RestrictLongAsset += v; }
  void AddDecreaseRisk(double v) const { DecreaseRisk += v; }

  EPortfolioType PortfolioType = ptNormal;
  std::string ClientCode;
  double ClientLeverage = -1.0;
  std::string Tag;
  std::string TrdAcc;
  int32_t limitKind = 0;
  double MinMarginRate = 0.0;
  bool CalcRestrictLongAsset = false;
  mutable double RestrictLongAsset = 0.0;
  mutable double DecreaseRisk = 0.0;
  std::string BaseCurrCode;
  std::string PortfolioCurrCode;
  bool NonMargFlipPosition = false;
  bool FuturesDiscountFromCollateralAmount = false;
  ENettingType DefaultNettingType{0};
  bool IsMDPlusDiffCurrAssetsInSets = false;
  bool CriticalStatus = false;  // a short position of a forbidden asset entered
  bool WithOptions = false;
  bool WithFutures = false;
  double InitialPortfolioCost = 0.0;
  double InitialCorrMargin = 0.0;

 private:
  struct TInitCurrRecord {
    double Risk = 0.0;
    double VM = 0.0;
    double Cost = 0.0;
  };
  using TInitCurrRecords = std::map<std::string, TInitCurrRecord>;
  using TPositions = std::map<std::string, std::pair<double, double>>;  // base code -> (call lots, put lots)
  using TBaseToOption = std::map<std::string, std::string>;
  using TGroupList = std::vector<const TAssetGroup*>;

  void ReadClientSettings();
  TGroupMap& TargetMap(const std::string& currency);
  // Moves the asset into a group of its own (it leaves its set).
  TAssetGroup* SplitOut(TGroupMap& target, const std::string& code, TAsset& asset);
  bool IsMarginal(const TAsset& asset) const { return IsSecMarginForMDPlusClient(*m_settings, asset.Discounts); }
  bool ShouldLog(ELogLevel level, const TAssetGroup& g) const;
  bool IsStandAloneOption(const TAssetGroup& g) const;
  TGroupList GroupsOf(const TGroupMap& map) const;

  void AggregateInitialRisks(const TAsset& asset, const TDiscountsEx& groupDisc, bool useOwn, bool isMarginal,
                             double moneyAdd, double curUp, TRisk& risk, TRisk* setRisk, bool addToSet,
                             int netting) const;
  void AggregateCorrRisks(TAssetGroupRisk& groupRisk, const std::string& code, const TAsset& asset,
                          const TDiscountsEx& groupDisc, bool useOwn, double moneyAdd, const TCUR& cur, double limit,
                          bool isMarginal, TRiskEx& all, TRiskEx& excluded, TRiskEx& restricted, bool addExcluded,
                          bool currNetting, bool addRestricted, ESide side, int netting, bool log,
                          bool& critical) const;

  void AggregateDataForOptGroupsCalc(const TAssetGroup& group, bool initial, double& thres,
                                     TOptCalcDataSet& set) const;
  void CalcInitRisksOfGroupWithOptions(const TAssetGroup& group, TOptCalcDataSetEx& set, TInitCurrRecords& records,
                                       double* premium, double* initOut, double* nettoOut) const;
  // The relative-risk rows become one more scenario row: at each point the
  // sum of the rows' losses, at least the threshold margin, as a loss.
  static void CalcOptRelRiskVector(const std::vector<std::vector<std::pair<double, double>>>& relRows,
                                   double thres, std::vector<std::vector<double>>& scenRows);
  double CalcOptGroupRelRiskFullNetto(const TAssetGroup& group, TOptCalcDataSetEx& set, double thres) const;
  double CalcCorrRisksOfGroupWithOptions(const TAssetGroup& group, TOptCalcDataSet& set, TAssetGroupRisk& groupRisk,
                                         bool log, TCurrRecords& records, double* premium) const;
  double CalcOutOfSetOptionsRisk(const TBaseToOption& baseToOption, double singleSum, const TPositions& positions,
                                 bool initial, double* thresOut) const;
  // The currency pass of the corrected margin for one currency; false on a
  // forbidden state.
  bool CalcCorrCurrency(const std::string& currency, const TGroupList& groups, ELogLevel level, bool& nmShort,
                        bool currNetting, TCurrRecords& records, double& total, double& decrease) const;

  const IMarginSettings* m_settings;
  std::string m_operationAssets[4];
  std::map<std::string, TAssetListElem> m_index;
  TGroupMap BaseCurrAssets;
  std::map<std::string, TGroupMap> CurrAssets;
  std::vector<std::pair<std::string, TAsset>> m_additionalAssets;
  mutable std::vector<std::pair<std::string, double>> OutOfSetOptThresMarg;
  TGroupList m_operationBaseGroups;
  std::map<std::string, TGroupList> m_operationCurrGroups;
  std::map<std::string, bool> m_trdAccApplicable;
  mutable std::map<std::string, TAssetGroupRisk> AllGroupRisks;
  mutable TCurrRecords m_lastCurrRecords;
  mutable std::ostringstream m_log;
};

}  // namespace DL::MDPLUS
