#include "core/TUniversalParser.h"

#include "base/TextHelpers.h"

namespace DL {

namespace {

using TParamCode = TIniParser::EIniParamCodeNum;

bool IsSectionCode(int sect) { return sect >= 0 && sect < iscCount; }

}  // namespace

const std::set<std::string>& TUniversalParser::ExcludedGeneralSettings() {
  static const std::set<std::string> excluded = [] {
    std::set<std::string> names;
#define ZDL_GENERAL_RENDERED(name) names.insert(StrUpper(name));
#include "core/GeneralRenderedParams.def"
#undef ZDL_GENERAL_RENDERED
    return names;
  }();
  return excluded;
}

TUniversalParser::TUniversalParser(const TIniParser& parser) : m_parser(parser), m_sections(iscCount) {
#define ZDL_UNIVERSAL_SECTION(sect, count)      \
  m_sections[isc##sect].registered = true;      \
  m_sections[isc##sect].rows.resize(count);
#define ZDL_UNIVERSAL_PARAM_Bool(sect, num, param, def, validator) \
  AddBoolParamSupport(isc##sect, num, TIniParser::ipc##param, def);
#define ZDL_UNIVERSAL_PARAM_Int(sect, num, param, def, validator) \
  AddIntParamSupport(isc##sect, num, TIniParser::ipc##param, def, validator);
#define ZDL_UNIVERSAL_PARAM_Char(sect, num, param, def, validator) \
  AddCharParamSupport(isc##sect, num, TIniParser::ipc##param, static_cast<char>(def));
#define ZDL_UNIVERSAL_PARAM(sect, num, type, param, def, validator) \
  ZDL_UNIVERSAL_PARAM_##type(sect, num, param, def, validator)
#include "core/UniversalParams.def"
#undef ZDL_UNIVERSAL_PARAM
#undef ZDL_UNIVERSAL_PARAM_Char
#undef ZDL_UNIVERSAL_PARAM_Int
#undef ZDL_UNIVERSAL_PARAM_Bool
#undef ZDL_UNIVERSAL_SECTION
}

TUniversalParser::TParamTypeAndNums& TUniversalParser::AddRow(EIniSectCodeNum sect, int num, TParamCode param,
                                                              int type, int index) {
  TSectionTable& table = m_sections[sect];
  table.registered = true;
  if (static_cast<int>(table.rows.size()) <= num) table.rows.resize(num + 1);
  TParamTypeAndNums& row = table.rows[num];
  row.type = type;
  row.paramCode = param;
  row.index = index;
  table.namesUp.emplace_back(StrUpper(TIniParser::GetIniParamCode(param)), num);
  return row;
}

void TUniversalParser::AddBoolParamSupport(EIniSectCodeNum sect, int num, TParamCode param, bool def) {
  TSectionTable& table = m_sections[sect];
  AddRow(sect, num, param, ParamBool, static_cast<int>(table.boolValues.size()));
  table.boolValues.push_back(def);
  table.boolDefaults.push_back(def);
}

void TUniversalParser::AddIntParamSupport(EIniSectCodeNum sect, int num, TParamCode param, int def,
                                          TIntParamValidator validator) {
  TSectionTable& table = m_sections[sect];
  AddRow(sect, num, param, ParamInt, static_cast<int>(table.intValues.size()));
  table.intValues.push_back(def);
  table.intDefaults.push_back(def);
  table.validators.push_back(validator);
}

void TUniversalParser::AddCharParamSupport(EIniSectCodeNum sect, int num, TParamCode param, char def) {
  TSectionTable& table = m_sections[sect];
  AddRow(sect, num, param, ParamChar, static_cast<int>(table.charValues.size()));
  table.charValues.push_back(def);
  table.charDefaults.push_back(def);
}

void TUniversalParser::ParseGlobalSettings() {
  const auto end = m_parser.GetSections().end();
  for (const auto& [name, it] : m_parser.GetGlobalSettings()) {
    if (it == end) continue;
    const std::string nameUp = StrUpper(name);
    for (int sect = 0; sect < iscCount; ++sect) {
      TSectionTable& table = m_sections[sect];
      if (!table.registered || StrUpper(IniSectName(static_cast<EIniSectCodeNum>(sect))) != nameUp) continue;
      const TIniKeyMap& keys = it->second;
      for (const TParamTypeAndNums& row : table.rows) {
        const std::string& key = TIniParser::GetIniParamCode(row.paramCode);
        switch (row.type) {
          case ParamBool: {
            const bool def = table.boolDefaults[row.index];
            table.boolValues[row.index] = m_parser.GetIniParamBool(keys, key, def);
            break;
          }
          case ParamInt:
            table.intValues[row.index] = m_parser.GetIniParamInt(keys, key, table.intDefaults[row.index]);
            break;
          case ParamChar:
            table.charValues[row.index] = m_parser.GetIniParamChar(keys, key, table.charDefaults[row.index]);
            break;
          default:
            break;
        }
      }
    }
  }
}

const TUniversalParser::TParamTypeAndNums* TUniversalParser::FindRow(int sect, int num, int type) const {
  if (!IsSectionCode(sect)) return nullptr;
  const TSectionTable& table = m_sections[sect];
  if (num < 0 || num >= static_cast<int>(table.rows.size())) return nullptr;
  const TParamTypeAndNums& row = table.rows[num];
  return row.type == type ? &row : nullptr;
}

int TUniversalParser::GetBoolParamFromGlobalSection(bool& out, int sect, int num) const {
  const TParamTypeAndNums* row = FindRow(sect, num, ParamBool);
  if (row == nullptr) return ZDL_BAD_ARGUMENT;
  out = m_sections[sect].boolValues[row->index];
  return ZDL_OK;
}

int TUniversalParser::GetIntParamFromGlobalSection(int& out, int sect, int num) const {
  const TParamTypeAndNums* row = FindRow(sect, num, ParamInt);
  if (row == nullptr) return ZDL_BAD_ARGUMENT;
  out = m_sections[sect].intValues[row->index];
  return ZDL_OK;
}

int TUniversalParser::GetCharParamFromGlobalSection(char& out, int sect, int num) const {
  const TParamTypeAndNums* row = FindRow(sect, num, ParamChar);
  if (row == nullptr) return ZDL_BAD_ARGUMENT;
  out = m_sections[sect].charValues[row->index];
  return ZDL_OK;
}

int TUniversalParser::SetBoolParamToGlobalSection(bool value, int sect, int num) {
  const TParamTypeAndNums* row = FindRow(sect, num, ParamBool);
  if (row == nullptr) return ZDL_BAD_ARGUMENT;
  m_sections[sect].boolValues[row->index] = value;
  return ZDL_OK;
}

int TUniversalParser::SetIntParamToGlobalSection(int value, int sect, int num) {
  const TParamTypeAndNums* row = FindRow(sect, num, ParamInt);
  if (row == nullptr) return ZDL_BAD_ARGUMENT;
  TSectionTable& table = m_sections[sect];
  if (TIntParamValidator validator = table.validators[row->index]) {
    const int code = validator(value);
    if (code != ZDL_OK) return code;
  }
  table.intValues[row->index] = value;
  return ZDL_OK;
}

int TUniversalParser::SetCharParamToGlobalSection(char value, int sect, int num) {
  const TParamTypeAndNums* row = FindRow(sect, num, ParamChar);
  if (row == nullptr) return ZDL_BAD_ARGUMENT;
  m_sections[sect].charValues[row->index] = value;
  return ZDL_OK;
}

int TUniversalParser::IsEqualToDefValueBoolParamFromGlobalSection(bool& out, bool value, int sect,
                                                                  int num) const {
  const TParamTypeAndNums* row = FindRow(sect, num, ParamBool);
  if (row == nullptr) return ZDL_BAD_ARGUMENT;
  out = m_sections[sect].boolDefaults[row->index] == value;
  return ZDL_OK;
}

int TUniversalParser::IsEqualToDefValueIntParamFromGlobalSection(bool& out, int value, int sect, int num) const {
  const TParamTypeAndNums* row = FindRow(sect, num, ParamInt);
  if (row == nullptr) return ZDL_BAD_ARGUMENT;
  out = m_sections[sect].intDefaults[row->index] == value;
  return ZDL_OK;
}

int TUniversalParser::IsEqualToGlobalValueBoolParamFromGlobalSection(bool& out, bool value, int sect,
                                                                     int num) const {
  const TParamTypeAndNums* row = FindRow(sect, num, ParamBool);
  if (row == nullptr) return ZDL_BAD_ARGUMENT;
  out = m_sections[sect].boolValues[row->index] == value;
  return ZDL_OK;
}

int TUniversalParser::IsEqualToGlobalValueIntParamFromGlobalSection(bool& out, int value, int sect,
                                                                    int num) const {
  const TParamTypeAndNums* row = FindRow(sect, num, ParamInt);
  if (row == nullptr) return ZDL_BAD_ARGUMENT;
  out = m_sections[sect].intValues[row->index] == value;
  return ZDL_OK;
}

bool TUniversalParser::ReadGeneralInt(const char* key, int& out) const {
  const int num = GetParamNumInSect(iscGeneral, key);
  return num >= 0 && GetIntParamFromGlobalSection(out, iscGeneral, num) == ZDL_OK;
}

int TUniversalParser::GetParamNumInSect(int sect, const std::string& name) const {
  if (!IsSectionCode(sect)) return -1;
  const std::string nameUp = StrUpper(name);
  for (const auto& [rowName, num] : m_sections[sect].namesUp)
    if (rowName == nameUp) return num;
  return -1;
}

std::string TUniversalParser::ValueText(const TSectionTable& table, const TParamTypeAndNums& row,
                                        bool& isDefault) const {
  switch (row.type) {
    case ParamBool:
      isDefault = table.boolValues[row.index] == table.boolDefaults[row.index];
      return table.boolValues[row.index] ? "1" : "0";
    case ParamInt:
      isDefault = table.intValues[row.index] == table.intDefaults[row.index];
      return std::to_string(table.intValues[row.index]);
    case ParamChar:
      isDefault = table.charValues[row.index] == table.charDefaults[row.index];
      return table.charValues[row.index] == 0 ? std::string() : std::string(1, table.charValues[row.index]);
    default:
      isDefault = true;
      return std::string();
  }
}

void TUniversalParser::SettingToStrGlobalSection(std::string& out, int sect) const {
  if (!IsSectionCode(sect)) return;
  const TSectionTable& table = m_sections[sect];
  const TIniKeyMap* keys = m_parser.FindIniSectionRef(std::string(IniSectName(static_cast<EIniSectCodeNum>(sect))));
  const std::set<std::string>& excluded = ExcludedGeneralSettings();
  const bool isGeneral = sect == iscGeneral;
  std::vector<bool> written(table.rows.size(), false);
  auto writeLine = [&out](const std::string& name, const std::string& value) {
    out += name;
    out += '=';
    out += value;
    out += '\n';
  };
  if (keys != nullptr) {
    for (const auto& [key, value] : *keys) {
      const std::string keyUp = StrUpper(key);
      if (isGeneral && excluded.count(keyUp) != 0) continue;
      const int num = GetParamNumInSect(sect, key);
      if (num < 0) {
        writeLine(key, value);
        continue;
      }
      written[num] = true;
      bool isDefault = true;
      const std::string text = ValueText(table, table.rows[num], isDefault);
      if (!isDefault) writeLine(key, text);
    }
  }
  for (std::size_t num = 0; num < table.rows.size(); ++num) {
    const TParamTypeAndNums& row = table.rows[num];
    if (written[num] || row.type == ParamNone) continue;
    bool isDefault = true;
    const std::string text = ValueText(table, row, isDefault);
    if (!isDefault) writeLine(TIniParser::GetIniParamCode(row.paramCode), text);
  }
}

}  // namespace DL
