#pragma once
// The risk parameters of one portfolio risk configuration: one field per row
// of RiskConfigParams.def, each starting at the row's default.
#include <string>
#include <string_view>

namespace DL {

enum ERiskParam : int {
#define ZDL_RISK_PARAM(field, name, alias, type, def) rp_##field,
#include "core/RiskConfigParams.def"
#undef ZDL_RISK_PARAM
  rpCount
};

enum class ERiskParamType { Int, Double, Flag };

struct TRiskParamInfo {
  const char* name;   // the name as the table spells it
  const char* alias;  // a second spelling, "" for none
  ERiskParamType type;
  double def;         // the default, for every type
};

// The rows of the table, indexed by ERiskParam.
extern const TRiskParamInfo kRiskParamInfos[rpCount];

struct TRiskConfig {
#define ZDL_RISK_PARAM_TYPE_Int int
#define ZDL_RISK_PARAM_TYPE_Double double
#define ZDL_RISK_PARAM_TYPE_Flag bool
#define ZDL_RISK_PARAM(field, name, alias, type, def) ZDL_RISK_PARAM_TYPE_##type field = static_cast<ZDL_RISK_PARAM_TYPE_##type>(def);
#include "core/RiskConfigParams.def"
#undef ZDL_RISK_PARAM
#undef ZDL_RISK_PARAM_TYPE_Flag
#undef ZDL_RISK_PARAM_TYPE_Double
#undef ZDL_RISK_PARAM_TYPE_Int

  // The value of a parameter as a double (a flag is 0 or 1).
  double Get(ERiskParam param) const;
  // Sets a parameter from a double: an int is truncated, a flag is on when
  // the value is not zero.
  void Set(ERiskParam param, double value);

  // Reads one parameter from its text as the settings give it: an int by
  // strtol, a double by strtod, a flag on when its integer is not zero. A
  // malformed value reads as 0 or as its leading digits. "KGO" and
  // "ORDERKGO" that read as zero (within MIsZero) become 1.0. An empty text
  // is no value: false, nothing set.
  bool Read(ERiskParam param, std::string_view text);
  // The text of a parameter: an int in decimal, a double by DoubleToString
  // with 13 decimals, a flag "1" or "0".
  std::string ToText(ERiskParam param) const;

  bool operator==(const TRiskConfig&) const = default;
};

// The parameter whose name or alias is `key` (without regard to case);
// false when there is none.
bool FindRiskParam(std::string_view key, ERiskParam& param);

}  // namespace DL
