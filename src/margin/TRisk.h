#pragma once
// The records into which asset valuations are summed, and the log record of
// one group. All values are in the currency of the group, zero when new.
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "margin/TAsset.h"

namespace DL::MDPLUS {

// The ten sums of the initial margin.
struct TRisk {
  double DLongV = 0.0;           // positive valuations of assets that move with the base
  double DLongV_inv = 0.0;       // magnitudes of negative valuations of assets that move against it
  double DShortV = 0.0;          // magnitudes of negative valuations, with the base
  double DShortV_inv = 0.0;      // positive valuations, against the base
  double DFullRisk_Long = 0.0;   // full netting, long discount
  double DFullRisk_Short = 0.0;  // full netting, short discount
  double NMRisk = 0.0;           // risk of non-marginal assets
  double RelRisk = 0.0;          // relative risk
  double Reserved8 = 0.0;        // adds to the total; written by nothing
  double OptRisk = 0.0;          // risk of the group's options

  TRisk& operator+=(const TRisk& r);
  // The worse price direction, plus the netted figure and the other risks.
  double CalcTotalRisk() const;
};

// The copy of an asset's values that a TRiskEx keeps for the log.
struct TAdditionalParamsToLog {
  std::string ClassCode, Tag, TradeAccount, CurrCode;
  EAssetType AssetType = atUndef;
  double Pos = 0.0;
  double LockedBuyQty = 0.0;
  double LockedBuyVal = 0.0;
  double LockedSellQty = 0.0;
  double LockedSellVal = 0.0;
  double Price = 0.0;
  int32_t LotSize = 1;
  double VarMargin = 0.0;
  TDiscountsEx Discounts = kNewAssetDiscounts;
  double PosValReduction = 0.0;
  double Theor = 0.0;
  std::optional<TOptParams> OptParams;
  TCUR Cur;              // the cover of the other currencies (money)
  double Comm = 0.0;     // locked commission (money)
  bool IsMarginal = false;

  // The reduction is 0 unless withReduction.
  void FillFromAsset(const TAsset& asset, bool withReduction);
};

// The fourteen sums of the corrected margin; the first eight as in TRisk.
struct TRiskEx {
  double DLongV = 0.0;
  double DLongV_inv = 0.0;
  double DShortV = 0.0;
  double DShortV_inv = 0.0;
  double DFullRisk_Long = 0.0;
  double DFullRisk_Short = 0.0;
  double NMRisk = 0.0;
  double RelRisk = 0.0;
  double Reserved8 = 0.0;  // not part of the total here
  double OptRisk = 0.0;
  double OutVal = 0.0;     // locked out value
  double MForNMVal = 0.0;  // money locked for non-marginal value
  double NegVal = 0.0;     // locked negative value
  double OptPrem = 0.0;    // option premium locked
  TAdditionalParamsToLog Params;  // for the log; not summed

  TRiskEx& operator+=(const TRiskEx& r);
  double CalcTotalRisk() const;
  // OutVal + MForNMVal + NegVal.
  double CalcPortfolioDecreaseRisk() const;
};

struct TTrendRisk {
  double first = 0.0;
  double second = 0.0;
  TTrendRisk& operator+=(const TTrendRisk& r) { first += r.first; second += r.second; return *this; }
};
struct TFullRisk {
  double first = 0.0;
  double second = 0.0;
  TFullRisk& operator+=(const TFullRisk& r) { first += r.first; second += r.second; return *this; }
};

// The log record of one group.
struct TAssetGroupRisk {
  TDiscountsEx Discounts = NM_Discs;
  std::string Name;
  std::string CurrCode;
  ENettingType NettingType{1};
  bool HasOptPart = false;        // an option part (or an asset risk currency) was logged
  bool IsOptionGroup = false;     // the option-group tags are written
  double ThresMarg = 0.0;
  double OptRelRisk = 0.0;
  double InstrRelRisk = 0.0;
  bool SplitAssets = false;
  std::map<std::string, TRiskEx> Risks;  // asset code -> its risk

  double CalcTotalRisk() const;
  void Clear();
  // The asset lines of the group, in order of asset code.
  std::string ToLog() const;
};

// "; DLong:...; DShort:...; RCur:...; bC:...; bS:..." with four decimals for
// the two discounts.
std::string DiscountsToLog(const TDiscountsEx& d);
// "true" or "false".
const char* BoolWord(bool value);

}  // namespace DL::MDPLUS
