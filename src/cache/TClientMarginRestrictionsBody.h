#pragma once
// The margin settings of one limit kind of a client, prefix, template, the
// general section cl<General>_Margin or the firm's global level.
#include <cstdint>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "cache/TSecurityDiscounts.h"
#include "cache/TSecurityRestrictionLists.h"
#include "ini/SettingsText.h"

namespace DL {

// What a margin section may say instead of a value.
inline constexpr int kMarginInherit = -2;  // take the base body's value (also: the key is missing)
inline constexpr int kMarginDefault = -1;  // take the global value

// A three-way setting: the value in force, and the value as the section
// wrote it (kMarginInherit when the section does not have the key), which
// is what the section is written back with.
template <class T>
struct TMarginSetting {
  using TRead = std::conditional_t<std::is_same_v<T, bool>, int, T>;
  T value{};
  TRead read = static_cast<TRead>(kMarginInherit);
  bool operator==(const TMarginSetting&) const = default;
};

// Code or key text -> value; the key as written, compared ignoring case.
template <class V>
using TMarginCodeMap = std::map<std::string, V, StringMapComparerFunc>;

struct TClientMarginRestrictionsBody {
#define ZDL_MARGIN_TYPE_Int int
#define ZDL_MARGIN_TYPE_Bool bool
#define ZDL_MARGIN_TYPE_Double double
#define ZDL_MARGIN_SETTING(type, field, key, def, general) TMarginSetting<ZDL_MARGIN_TYPE_##type> field;
#include "cache/MarginSettings.def"
#undef ZDL_MARGIN_SETTING
#undef ZDL_MARGIN_TYPE_Double
#undef ZDL_MARGIN_TYPE_Bool
#undef ZDL_MARGIN_TYPE_Int

  // "NegativeMoneyToShort": 0, 1 or 2 (ConvertIniNegativeMoneyToShortToEnum).
  TMarginSetting<int> negativeMoneyToShort;
  // "UseCorrelation" and "UseOrdersCorrelation": -1 takes the default (1 and 0).
  TMarginSetting<int> useCorrelation;
  TMarginSetting<int> useOrdersCorrelation;

  // Lists split at ",", items trimmed, empty items dropped.
  std::vector<std::string> classesWithIgnoreRstrTransfer;  // "ClassesWithIgnoreRstrTransfer"
  std::vector<std::string> mainMarginClasses;              // "MainMarginClasses"
  std::vector<std::string> addLimitKind;                   // "AddLimitKind"
  std::vector<std::string> negDealClasses;                 // "NegDealClasses"
  std::vector<std::uint64_t> limitKinds;                   // "LimitKinds"

  // Keys of a section that carry a code after a prefix or before a suffix.
  TMarginCodeMap<std::int64_t> classToLimitKind;       // "ClassToLimitKind_" class = limit kind
  TMarginCodeMap<std::int64_t> securityToLimitKind;    // "SecurityToLimitKind_" security = limit kind
  TMarginCodeMap<std::int64_t> settleCodeToLimitKind;  // "SettleCodeToLimitKind_" class_settlecode = limit kind
  TMarginCodeMap<std::vector<std::string>> addCommonTrdAcc;  // "AddCommonTrdAcc_" code = list
  TMarginCodeMap<std::string> boardTags;                     // board "_TAG" = tag
  TMarginCodeMap<std::string> secToBoard;                    // "SecToBoard_" security = board
  TMarginCodeMap<double> correlations;                       // code "_CORRELATION" = value
  TMarginCodeMap<double> coefs;                              // code "_COEF" = value
  TMarginCodeMap<int> discountsTypeByClasses;                // "DiscountsTypeByClasses_" class = type
  TMarginCodeMap<std::vector<std::string>> instrumentsWithoutCurrencyRisk;  // class -> securities
  // Security "_DISC" = discount line; the global object reads the section
  // "SecurityDiscounts". Not inherited: "UseSecurityDiscounts" says whose
  // lines a query reads.
  TSecurityDiscountsTable securityDiscounts;
  // "SECURITY_" class "_RESTSHORT" = securities restricted for shorts; the
  // global object reads the section "RestShortSecurities".
  TSecurityRestrictionLists restShortSecurities;

  // Only the global object reads these, from section "General".
  bool futuresDiscountFromCollateralAmount = false;
  bool mdPlusDiffCurrAssetsInSets = false;
  bool positionKeepingInCalendarDaysForAllMarkets = false;
  double includeClientsWithLeverage = -1.0;
  std::vector<std::string> classesWithIgnoreRstrNMBuy;
  std::vector<std::string> addCommonTrdAccList;  // "AddCommonTrdAcc"
  std::vector<std::string> boardTagList;         // "BoardTag"

  // Effective data kept with the settings (limit kind 0 is the one used):
  // the identifiers of the main margin classes, given when first asked for,
  // and whether the per-security parameters computed from them are valid.
  std::vector<int> mainMarginClassIDs;
  int mainMarginClassIDsCount = 0;
  bool securityParamsValid = false;

  bool operator==(const TClientMarginRestrictionsBody&) const = default;
};

// The three-way rule. `read` is the value read (kMarginInherit for a missing
// key), `base` the base body's value, `global` the value of limit kind 0 of
// the global object; `first` is set for the section of limit kind 0.
//   read -2: first ? global : base;  read -1: first ? -1 : global;  else read.
int ConvertIniValueToIntSetting(int read, int base, int global, bool first);
double ConvertIniValueToDoubleSetting(double read, double base, double global, bool first);
// A boolean is its value not equal to zero; -1 with `first` set is true.
bool ConvertIniValueToBoolSetting(int read, bool base, bool global, bool first);
// The short forms: -2 takes the base value, anything else stands.
int InheritIntSettingFromBaseSection(int read, int base);
bool InheritBoolSettingFromBaseSection(int read, bool base);
// 1 stays 1, 2 stays 2, anything else is 0.
int ConvertIniNegativeMoneyToShortToEnum(int value);

}  // namespace DL
