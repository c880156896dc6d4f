#include "core/TRiskConfig.h"

#include <cstdlib>
#include <string>

#include "base/TextHelpers.h"
#include "base/Numbers.h"
#include "ini/SettingsText.h"

namespace DL {

const TRiskParamInfo kRiskParamInfos[rpCount] = {
#define ZDL_RISK_PARAM(field, name, alias, type, def) {name, alias, ERiskParamType::type, def},
#include "core/RiskConfigParams.def"
#undef ZDL_RISK_PARAM
};

double TRiskConfig::Get(ERiskParam param) const {
  switch (param) {
#define ZDL_RISK_PARAM(field, name, alias, type, def) \
  case rp_##field:                                    \
    return static_cast<double>(field);
#include "core/RiskConfigParams.def"
#undef ZDL_RISK_PARAM
    default:
      return 0.0;
  }
}

void TRiskConfig::Set(ERiskParam param, double value) {
  switch (param) {
#define ZDL_RISK_PARAM_SET_Int(field) field = static_cast<int>(value);
#define ZDL_RISK_PARAM_SET_Double(field) field = value;
#define ZDL_RISK_PARAM_SET_Flag(field) field = value != 0.0;
#define ZDL_RISK_PARAM(field, name, alias, type, def) \
  case rp_##field:                                    \
    ZDL_RISK_PARAM_SET_##type(field) break;
#include "core/RiskConfigParams.def"
#undef ZDL_RISK_PARAM
#undef ZDL_RISK_PARAM_SET_Flag
#undef ZDL_RISK_PARAM_SET_Double
#undef ZDL_RISK_PARAM_SET_Int
    default:
      break;
  }
}

bool TRiskConfig::Read(ERiskParam param, std::string_view text) {
  if (text.empty() || param < 0 || param >= rpCount) return false;
  const std::string value(text);
  double number = 0.0;
  if (kRiskParamInfos[param].type == ERiskParamType::Double)
    number = std::strtod(value.c_str(), nullptr);
  else
    number = static_cast<double>(static_cast<int>(std::strtol(value.c_str(), nullptr, 10)));
  // A zero margin coefficient would void the margin: it counts as 1.
  if ((param == rp_kgo || param == rp_orderKgo) && MIsZero(number)) number = 1.0;
  Set(param, number);
  return true;
}

std::string TRiskConfig::ToText(ERiskParam param) const {
  const double value = Get(param);
  switch (kRiskParamInfos[param].type) {
    case ERiskParamType::Double:
      return DoubleToString(value, 13);
    case ERiskParamType::Flag:
      return value != 0.0 ? "1" : "0";
    default:
      return IntToString(static_cast<long long>(value));
  }
}

bool FindRiskParam(std::string_view key, ERiskParam& param) {
  for (int i = 0; i < rpCount; ++i) {
    const TRiskParamInfo& info = kRiskParamInfos[i];
    if (IsSameSettingsName(key, info.name) || (info.alias[0] != '\0' && IsSameSettingsName(key, info.alias))) {
      param = static_cast<ERiskParam>(i);
      return true;
    }
  }
  return false;
}

}  // namespace DL
