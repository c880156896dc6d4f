// The section-writing steps of the save that belong to the hub itself: the
// global sections by kind (step 5), clients and client templates (steps 1
// and 2), and the composition of one section from its parsed object.
#include <map>

#include "core/TStorageHub.h"
#include "base/TextHelpers.h"
#include "base/KeyParsers.h"
#include "base/Numbers.h"

namespace DL {

namespace {

constexpr const char* kChangeFutClientCodesUp = "CHANGEFUTCLIENTCODES";


// Whether an upper-case key matches a catalogue row of the given kind.
bool KeyMatches(const std::string& keyUp, const std::string& nameUp, std::int32_t kind) {
  switch (kind) {
    case TIniParser::ParamMatchWhole:
      return keyUp == nameUp;
    case TIniParser::ParamMatchPrefix:
      return keyUp.size() >= nameUp.size() && keyUp.compare(0, nameUp.size(), nameUp) == 0;
    case TIniParser::ParamMatchSuffix:
      return keyUp.size() >= nameUp.size() &&
             keyUp.compare(keyUp.size() - nameUp.size(), nameUp.size(), nameUp) == 0;
    default:
      return false;
  }
}

// The rendering functions whose setting has no parsed home yet: they copy
// the raw section they are given.
bool IsRawRenderFunction(TSettingToStrFunc function) {
  static const TSettingToStrFunc kRaw[] = {
#define ZDL_HUB_RENDER_FUNC_Hub(name)
#define ZDL_HUB_RENDER_FUNC_Raw(name) &RenderWith<&TStorageHub::name>,
#define ZDL_HUB_RENDER_FUNC(name, home) ZDL_HUB_RENDER_FUNC_##home(name)
#include "core/HubRenderFunctions.def"
#undef ZDL_HUB_RENDER_FUNC
#undef ZDL_HUB_RENDER_FUNC_Raw
#undef ZDL_HUB_RENDER_FUNC_Hub
  };
  for (const TSettingToStrFunc raw : kRaw)
    if (raw == function) return true;
  return false;
}

}  // namespace

void TStorageHub::AppendGlobalSectionRows(std::string& text, TWrittenSections& written) const {
  const TIniSectionsMap& sections = m_parser->GetSections();
  // Section name -> the kind whose rendering map writes it, and its code.
  struct TKindAndCode {
    int kind;
    int code;
  };
  std::map<std::string, TKindAndCode, StringMapComparerFunc> kinds;
  const std::pair<TIniParser::ESectType, const std::map<int, TSettingToStrFunc>*> lists[] = {
      {TIniParser::SectClientTemplate, &m_tables->clientTemplate},
      {TIniParser::SectGlobal, &m_tables->global},
      {TIniParser::SectMarginTemplate, &m_tables->marginTemplate},
      {TIniParser::SectRestrictionTemplate, &m_tables->restrictionTemplate}};
  for (const auto& [group, map] : lists) {
    if (static_cast<std::size_t>(group) >= TIniParser::supParamAndSectCodes_.size()) continue;
    for (const TIniParser::TSupParamAndSectCodes& row : TIniParser::supParamAndSectCodes_[group]) {
      if (row.sectCode == iscNone || map->count(row.sectCode) == 0) continue;
      const std::string name(IniSectName(static_cast<EIniSectCodeNum>(row.sectCode)));
      // A section that is also a global one is written from the global home.
      if (group == TIniParser::SectGlobal)
        kinds[name] = {group, row.sectCode};
      else
        kinds.emplace(name, TKindAndCode{group, row.sectCode});
    }
  }
  bool changeFutWritten = false;
  for (const auto& [name, it] : m_parser->GetGlobalSettings()) {
    if (it == sections.end() || written.count(&it->first) != 0) continue;
    const std::string nameUp = StrUpper(name);
    if (StringStartsCaseSens(nameUp, kChangeFutClientCodesUp)) {
      written.insert(&it->first);
      if (!changeFutWritten) {
        changeFutWritten = true;
        SettingToStrGlobalChangeFutClientCodes(text);
        for (const auto& [other, keys] : sections)
          if (StringStartsCaseSens(StrUpper(other), kChangeFutClientCodesUp)) written.insert(&other);
      }
      continue;
    }
    // Written by the later steps.
    if (StringStartsCaseSens(name, "CommissionSettingsCurrency") ||
        name.find("VolumeBasedCommission_") != std::string::npos || StringStartsCaseSens(nameUp, "LIMITALLOWEDSECURITY") ||
        StringStartsCaseSens(nameUp, "ASSETSECURITIES") || StringStartsCaseSens(nameUp, "RESTSHORTSECURITIES") ||
        StringStartsCaseSens(nameUp, "CURRENCY"))
      continue;
    auto kind = kinds.find(name);
    if (kind == kinds.end()) continue;  // copied raw at the end
    written.insert(&it->first);
    TSettingToStrSource src;
    src.kind = TIniParser::SectGlobal;
    src.section = it->first;
    src.keys = &it->second;
    std::string block;
    switch (kind->second.kind) {
      case TIniParser::SectClientTemplate:
        SettingToStrGlobalSettingsClientTemplate(block, kind->second.code, src);
        break;
      case TIniParser::SectGlobal:
        SettingToStrGlobalSettings(block, kind->second.code, src);
        break;
      case TIniParser::SectMarginTemplate:
        SettingToStrGlobalSettingsMarginTemplate(block, kind->second.code, src);
        break;
      default:
        SettingToStrGlobalSettingsRestrictionTemplate(block, kind->second.code, src);
        break;
    }
    if (!block.empty()) {
      text += block;
      text += '\n';
    }
  }
}

std::string TStorageHub::GetRowFromSettings(TIniSectionsMap::const_iterator it, bool isTemplate,
                                            const TSettingToStrSource& parsed) const {
  if (parsed.restrictions == nullptr && parsed.securityRestrictions == nullptr &&
      parsed.marginRestrictions == nullptr)
    return isTemplate ? m_parser->GetRowFromTemplateSection(it) : m_parser->GetRowFromSection(it);
  const std::map<int, TSettingToStrFunc>* map = nullptr;
  switch (parsed.kind) {
    case TIniParser::SectMarginTemplate:
      map = &m_tables->marginTemplate;
      break;
    case TIniParser::SectRestrictionTemplate:
      map = &m_tables->restrictionTemplate;
      break;
    default:
      map = &m_tables->clientTemplate;
      break;
  }
  // The parameter rows of the kind that have a rendering function.
  struct TRule {
    std::string nameUp;
    std::int32_t kind;
    int key;
    bool raw;  // the setting's function copies raw text: its lines stay raw here
  };
  std::vector<TRule> rules;
  if (static_cast<std::size_t>(parsed.kind) < TIniParser::supParamAndSectCodes_.size())
    for (const TIniParser::TSupParamAndSectCodes& row : TIniParser::supParamAndSectCodes_[parsed.kind]) {
      if (row.paramCode == TIniParser::ipcNone) continue;
      // A parameter of a setting that has a section is rendered under the
      // section's code, one with no section under its own.
      int key = TDispatchTables::ParamKey(row.paramCode);
      if (row.sectCode != iscNone && map->count(row.sectCode) != 0) key = row.sectCode;
      const auto function = map->find(key);
      if (function == map->end()) continue;
      rules.push_back({TIniParser::GetIniParamCodeUp(static_cast<TIniParser::EIniParamCodeNum>(row.paramCode)),
                       row.kind, key, IsRawRenderFunction(function->second)});
    }
  const std::string& clientsUp = TIniParser::GetIniParamCodeUp(TIniParser::ipcClients);
  TSettingToStrSource src = parsed;
  src.section = it->first;
  src.keys = &it->second;
  std::set<int> done;
  std::string rendered;
  std::string raw;
  for (const auto& [key, value] : it->second) {
    const std::string keyUp = StrUpper(key);
    if (isTemplate && keyUp == clientsUp) continue;
    const TRule* match = nullptr;
    for (const TRule& rule : rules)
      if (KeyMatches(keyUp, rule.nameUp, rule.kind)) {
        match = &rule;
        break;
      }
    if (match == nullptr || match->raw) {
      raw += key;
      raw += '=';
      raw += value;
      raw += '\n';
      continue;
    }
    // The function writes every key of its setting at once.
    if (done.insert(match->key).second) map->at(match->key)(*this, rendered, src);
  }
  std::string row = "[" + it->first + "]\n";
  if (isTemplate)
    row += TIniParser::GetIniParamCode(TIniParser::ipcClients) + "=" +
           m_parser->GetIniParamString(it, TIniParser::ipcClients, TIniParser::EmptyString()) + "\n";
  row += rendered;
  row += raw;
  return row;
}

void TStorageHub::AppendClientAndTemplateRows(std::string& text, TWrittenSections& written) const {
  const TIniSectionsMap& sections = m_parser->GetSections();
  auto append = [&](TIniSectionsMap::const_iterator it, bool isTemplate) {
    if (it == sections.end() || !written.insert(&it->first).second) return;
    TSettingToStrSource parsed;
    parsed.kind = TIniParser::SectClientTemplate;
    parsed.securityRestrictions = m_securityRestrictions.ParsedSection(it->first);
    text += GetRowFromSettings(it, isTemplate, parsed);
  };
  for (const auto& [client, it] : m_parser->GetClientSettings()) append(it, false);
  for (const auto& [templ, it] : m_parser->GetClientTemplateSettings()) append(it, true);
}

}  // namespace DL
