#include "core/TUserSettings.h"

#include <cstdlib>
#include <string_view>

#include "base/CodeLengths.h"
#include "base/TextHelpers.h"
#include "ini/SettingsText.h"
#include "ini/TIniLogicParser.h"

namespace DL {

namespace {

// A code is usable when it is not empty and not longer than its kind allows.
bool IsCode(std::string_view code, EClassSettingType kind) {
  return !code.empty() && !IsRowLengthGreaterMaxLength(code, kind);
}

}  // namespace

void TUserSettings::Parse(const TIniParser& parser) {
  m_users.clear();
  const std::string& prefixUp = TIniParser::GetPartIniSectCodeUp(TIniParser::pscU);
  // Only the sections whose name begins with the user prefix are visited.
  ForEachWithPrefixNoCase(parser.GetSections(), prefixUp, [&](const auto& section) {
    const std::string& name = section.first;
    const TIniKeyMap& keys = section.second;
    const std::string nameUp = StrUpper(name);
    if (nameUp.size() <= prefixUp.size()) return;
    // The rest must be a whole decimal number, a sign allowed.
    const char* digits = nameUp.c_str() + prefixUp.size();
    char* end = nullptr;
    const long number = std::strtol(digits, &end, 10);
    if (end == digits || *end != '\0' || (*digits != '-' && (*digits < '0' || *digits > '9'))) return;
    TUserIdSettings& user = m_users[static_cast<int>(number)];
    user.userId = static_cast<int>(number);
    user.commission = parser.GetIniParamDouble(keys, "COMMISSION", 0.0);
    user.oblCommission = parser.GetIniParamDouble(keys, "OBLCOMMISSION", 0.0);
    user.tradeCommission = parser.GetIniParamDouble(keys, TIniParser::ipcTradeCommission, 0.0);
    user.tradeOblCommission = parser.GetIniParamDouble(keys, TIniParser::ipcTradeOblCommission, 0.0);
    user.ignoreNegDealCheck = parser.GetIniParamBool(keys, "IGNORENEGDEALCHECK", false);
    const std::string& orderMaxValue =
        parser.GetIniParamString(keys, TIniParser::ipcOrderMaxValue, TIniParser::EmptyString());
    if (!orderMaxValue.empty()) TIniLogicParser::ParseOrderMaxValueItem(user.orderMaxValue, orderMaxValue);
    user.allowedTrdAcc.Assign(parser.GetIniParamString(keys, TIniParser::ipcAllowedTrdAcc, TIniParser::EmptyString()),
                              TClassList::NoRepeats);
    user.prohibedTrdAcc.Assign(
        parser.GetIniParamString(keys, TIniParser::ipcProhibedTrdAcc, TIniParser::EmptyString()),
        TClassList::NoRepeats);
    user.classesWithoutOrderCheck.Assign(
        parser.GetIniParamString(keys, TIniParser::ipcClassesWithoutOrderCheck, TIniParser::EmptyString()),
        TClassList::NoRepeats);
    ParseSecuritiesAndFloodControl(keys, user);
  });
}

void TUserSettings::ParseSecuritiesBySuffix(const TIniKeyMap& keys, const std::string& suffixUp, TKeyToList& out) {
  out.clear();
  for (const auto& [key, value] : keys) {
    const std::string name = TrimStr(key);
    if (!StringFinishesCaseSens(StrUpper(name), suffixUp)) continue;
    const std::string classCode = name.substr(0, name.size() - suffixUp.size());
    if (!IsCode(classCode, cstClass)) continue;
    out[classCode].Assign(value, TClassList::NoRepeats);
  }
}

void TUserSettings::ParseSecurities(const TIniKeyMap& keys, TKeyToList& out) {
  ParseSecuritiesBySuffix(keys, TIniParser::GetIniParamCodeUp(TIniParser::ipc_SECURITY), out);
}

void TUserSettings::ParseRestSecurities(const TIniKeyMap& keys, TKeyToList& out) {
  ParseSecuritiesBySuffix(keys, TIniParser::GetIniParamCodeUp(TIniParser::ipc_RESTSECURITY), out);
}

void TUserSettings::ParseSecuritiesAndFloodControl(const TIniKeyMap& keys, TUserIdSettings& out) {
  out.floodControlByInstrument.clear();
  const std::string& prefixUp = TIniParser::GetIniParamCodeUp(TIniParser::ipcFloodControlByInstrument_);
  for (const auto& [key, value] : keys) {
    const std::string name = TrimStr(key);
    if (!StringStartsCaseSens(StrUpper(name), prefixUp)) continue;
    const std::string code = name.substr(prefixUp.size());
    if (IsCode(code, cstSecurity)) out.floodControlByInstrument[code] = value;
  }
  ParseRestSecurities(keys, out.restSecurities);
  ParseSecurities(keys, out.securities);
}

}  // namespace DL
