#include "core/TTemplateEditor.h"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "base/CodeLengths.h"
#include "base/Numbers.h"
#include "base/ResultCodes.h"

namespace DL {

namespace {
constexpr const char* kClientsParam = "Clients";
constexpr const char* kLeverageParam = "IncludeClientsWithLeverage";
constexpr const char* kClientTemplateSuffix = "_Client_Template";
constexpr const char* kMarginTemplateSuffix = "_Margin_Template";
constexpr const char* kBaseAssetsTemplatePrefix = "BaseAssets_Template_";

std::string Upper(const std::string& text) {
  std::string out = text;
  for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return out;
}
}  // namespace

std::string TTemplateEditor::ClientTemplateSection(const std::string& code) {
  return "cl" + code + kClientTemplateSuffix;
}
std::string TTemplateEditor::MarginTemplateSection(const std::string& code) {
  return "cl" + code + kMarginTemplateSuffix;
}
std::string TTemplateEditor::BaseAssetsTemplateSection(const std::string& code) {
  return kBaseAssetsTemplatePrefix + code;
}

int TTemplateEditor::GetFullDealerLibrarySettings(char** out) const {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  return m_hub.SaveSettingsToMemory(out);
}

int TTemplateEditor::ClientsOfSection(const char* templateCode, std::string (*section)(const std::string&),
                                      ZDL_ArrayStrings** clients) const {
  if (templateCode == nullptr || *templateCode == '\0' || clients == nullptr) return ZDL_BAD_ARGUMENT;
  const TIniParser* parser = m_hub.GetOldParserPointer();
  const TIniParser::TKeyMap* keys = parser->FindIniSectionRef(section(templateCode));
  if (keys == nullptr) return ZDL_TEMPLATE_NOT_EXIST;
  return ClientsOfKeys(*keys, clients);
}

int TTemplateEditor::ClientsOfKeys(const TIniParser::TKeyMap& keys, ZDL_ArrayStrings** clients) const {
  std::vector<std::string> list = TIniParser::GetIniSettingByKey(keys, kClientsParam);
  std::vector<std::string> items;
  for (auto& item : list)
    if (!item.empty()) items.push_back(std::move(item));
  *clients = m_hub.GetMemory().ConstructStrings(items);
  return ZDL_OK;
}

int TTemplateEditor::CodesOfSections(const std::string& prefix, const std::string& suffix,
                                     ZDL_ArrayStrings** codes) const {
  if (codes == nullptr) return ZDL_BAD_ARGUMENT;
  const std::string prefixUp = Upper(prefix);
  const std::string suffixUp = Upper(suffix);
  std::vector<std::string> items;
  for (const auto& [name, keys] : m_hub.GetOldParserPointer()->GetSections()) {
    if (name.size() <= prefix.size() + suffix.size()) continue;
    const std::string up = Upper(name);
    if (up.compare(0, prefixUp.size(), prefixUp) != 0) continue;
    if (up.compare(up.size() - suffixUp.size(), suffixUp.size(), suffixUp) != 0) continue;
    items.push_back(name.substr(prefix.size(), name.size() - prefix.size() - suffix.size()));
  }
  *codes = m_hub.GetMemory().ConstructStrings(items);
  return ZDL_OK;
}

int TTemplateEditor::GetListOfClientTemplates(ZDL_ArrayStrings** codes) const {
  return CodesOfSections("cl", kClientTemplateSuffix, codes);
}
int TTemplateEditor::GetListOfMarginTemplates(ZDL_ArrayStrings** codes) const {
  return CodesOfSections("cl", kMarginTemplateSuffix, codes);
}
int TTemplateEditor::GetListOfBaseAssetsTemplates(ZDL_ArrayStrings** codes) const {
  return CodesOfSections(kBaseAssetsTemplatePrefix, "", codes);
}

int TTemplateEditor::GetClientsListOfClientTemplate(const char* templateCode, ZDL_ArrayStrings** clients) const {
  return ClientsOfSection(templateCode, &ClientTemplateSection, clients);
}
int TTemplateEditor::GetClientsListOfMarginTemplate(const char* templateCode, ZDL_ArrayStrings** clients) const {
  return ClientsOfSection(templateCode, &MarginTemplateSection, clients);
}
int TTemplateEditor::GetClientsListFromBaseAssetsTemplate(const char* templateCode,
                                                          ZDL_ArrayStrings** clients) const {
  return ClientsOfSection(templateCode, &BaseAssetsTemplateSection, clients);
}

}  // namespace DL

namespace DL {

int TTemplateEditor::AddTemplate(const char* templateCode, std::string (*section)(const std::string&)) {
  if (templateCode == nullptr || *templateCode == '\0') return ZDL_BAD_ARGUMENT;
  if (std::strlen(templateCode) > kMaxTemplateCodeLength) return ZDL_TEMPLATE_CODE_TOO_LONG;
  TIniParser* parser = m_hub.GetOldParserPointer();
  const std::string name = section(templateCode);
  if (parser->FindIniSectionRef(name) != nullptr) return ZDL_ALREADY_EXISTS;
  TIniParser::TKeyMap keys;
  keys.emplace(kClientsParam, "");
  parser->AddIniSection(name, keys);
  return ZDL_OK;
}

int TTemplateEditor::AddClientTemplate(const char* templateCode) {
  return AddTemplate(templateCode, &ClientTemplateSection);
}
int TTemplateEditor::AddMarginTemplate(const char* templateCode) {
  return AddTemplate(templateCode, &MarginTemplateSection);
}
int TTemplateEditor::AddBaseAssetsTemplate(const char* templateCode) {
  return AddTemplate(templateCode, &BaseAssetsTemplateSection);
}

}  // namespace DL

namespace DL {

int TTemplateEditor::LeveragesOfSection(const char* templateCode, std::string (*section)(const std::string&),
                                        ZDL_ArrayDoubleNumbers** leverages) const {
  if (templateCode == nullptr || *templateCode == '\0' || leverages == nullptr) return ZDL_BAD_ARGUMENT;
  const TIniParser::TKeyMap* keys = m_hub.GetOldParserPointer()->FindIniSectionRef(section(templateCode));
  if (keys == nullptr) return ZDL_TEMPLATE_NOT_EXIST;
  return LeveragesOfKeys(*keys, leverages);
}

int TTemplateEditor::LeveragesOfKeys(const TIniParser::TKeyMap& keys, ZDL_ArrayDoubleNumbers** leverages) const {
  std::vector<double> values;
  for (const std::string& item : TIniParser::GetIniSettingByKey(keys, kLeverageParam)) {
    if (GetLeverageFromString(item.c_str()) < 0) continue;
    values.push_back(std::strtod(item.c_str(), nullptr));
  }
  ZDL_ArrayDoubleNumbers* array = m_hub.GetMemory().ConstructArray<ZDL_ArrayDoubleNumbers>(values.size());
  for (size_t i = 0; i < values.size(); ++i) array->items[i] = values[i];
  *leverages = array;
  return ZDL_OK;
}

int TTemplateEditor::GetIncludeClientsWithLeverageFromClientTemplate(const char* templateCode,
                                                                     ZDL_ArrayDoubleNumbers** leverages) const {
  return LeveragesOfSection(templateCode, &ClientTemplateSection, leverages);
}
int TTemplateEditor::GetIncludeClientsWithLeverageFromMarginTemplate(const char* templateCode,
                                                                     ZDL_ArrayDoubleNumbers** leverages) const {
  return LeveragesOfSection(templateCode, &MarginTemplateSection, leverages);
}

}  // namespace DL

namespace DL {

int TTemplateEditor::GetListOfClientSettings(ZDL_ArrayStrings** clients) const {
  if (clients == nullptr) return ZDL_BAD_ARGUMENT;
  std::vector<std::string> codes;
  for (const auto& [code, section] : m_hub.GetOldParserPointer()->GetClientSettings()) codes.push_back(code);
  *clients = m_hub.GetMemory().ConstructStrings(codes);
  return ZDL_OK;
}

}  // namespace DL

namespace DL {

const TIniParser::TKeyMap* TTemplateEditor::RestrictionTemplateKeys(const std::string& code) const {
  const TCacheOfRestrictions* cache = m_hub.GetRestrictionsCache();
  if (cache == nullptr) return nullptr;
  const auto it = cache->GetTemplates().find(code);
  if (it == cache->GetTemplates().end()) return nullptr;
  return &it->second.first->second;
}

int TTemplateEditor::GetClientsListOfRestrictionTemplate(const char* templateCode, ZDL_ArrayStrings** clients) const {
  if (templateCode == nullptr || *templateCode == '\0' || clients == nullptr) return ZDL_BAD_ARGUMENT;
  const TIniParser::TKeyMap* keys = RestrictionTemplateKeys(templateCode);
  if (keys == nullptr) return ZDL_TEMPLATE_NOT_EXIST;
  return ClientsOfKeys(*keys, clients);
}

int TTemplateEditor::GetIncludeClientsWithLeverageFromRestrictionTemplate(const char* templateCode,
                                                                          ZDL_ArrayDoubleNumbers** leverages) const {
  if (templateCode == nullptr || *templateCode == '\0' || leverages == nullptr) return ZDL_BAD_ARGUMENT;
  const TIniParser::TKeyMap* keys = RestrictionTemplateKeys(templateCode);
  if (keys == nullptr) return ZDL_TEMPLATE_NOT_EXIST;
  return LeveragesOfKeys(*keys, leverages);
}

int TTemplateEditor::GetListOfRestrictionTemplates(ZDL_ArrayStrings** codes) const {
  if (codes == nullptr) return ZDL_BAD_ARGUMENT;
  std::vector<std::string> names;
  if (const TCacheOfRestrictions* cache = m_hub.GetRestrictionsCache(); cache != nullptr)
    for (const auto& [name, entry] : cache->GetTemplates()) names.push_back(name);
  *codes = m_hub.GetMemory().ConstructStrings(names);
  return ZDL_OK;
}

int TTemplateEditor::AddRestrictionTemplate(const char* templateCode) {
  if (templateCode == nullptr || *templateCode == '\0') return ZDL_BAD_ARGUMENT;
  if (std::strlen(templateCode) > kMaxTemplateCodeLength) return ZDL_TEMPLATE_CODE_TOO_LONG;
  TCacheOfRestrictions* cache = m_hub.GetRestrictionsCache();
  if (cache == nullptr) return ZDL_NOT_FOUND;
  const int result = cache->AddTemplate(templateCode);
  if (result != ZDL_OK) return result;
  // The empty "Clients" line keeps the new section in the saved text.
  const auto it = cache->GetTemplateIterator(templateCode);
  if (it != cache->TemplatesEnd()) it->second.first->second.try_emplace(kClientsParam, "");
  return ZDL_OK;
}

}  // namespace DL

namespace DL {

template <class Match>
int TTemplateEditor::FindClientTemplate(Match match, char** templateCode) const {
  const std::string prefixUp = "CL";
  const std::string suffixUp = Upper(kClientTemplateSuffix);
  for (const auto& [name, keys] : m_hub.GetOldParserPointer()->GetSections()) {
    if (name.size() <= prefixUp.size() + suffixUp.size()) continue;
    const std::string up = Upper(name);
    if (up.compare(0, prefixUp.size(), prefixUp) != 0) continue;
    if (up.compare(up.size() - suffixUp.size(), suffixUp.size(), suffixUp) != 0) continue;
    if (!match(keys)) continue;
    const std::string code = name.substr(prefixUp.size(), name.size() - prefixUp.size() - suffixUp.size());
    char* text = m_hub.GetMemory().ConstructString(code.size() + 1);
    std::memcpy(text, code.c_str(), code.size());
    *templateCode = text;
    return ZDL_OK;
  }
  return ZDL_NOT_FOUND;
}

int TTemplateEditor::GetClientTemplateNameByClientCode(const char* clientCode, char** templateCode) const {
  if (clientCode == nullptr || *clientCode == '\0' || templateCode == nullptr) return ZDL_BAD_ARGUMENT;
  if (IsClientCodeLengthGreaterMaxLength(clientCode)) return ZDL_CLIENT_CODE_TOO_LONG;
  const std::string client = clientCode;
  return FindClientTemplate(
      [&client](const TIniParser::TKeyMap& keys) {
        for (const std::string& item : TIniParser::GetIniSettingByKey(keys, kClientsParam))
          if (item == client) return true;
        return false;
      },
      templateCode);
}

int TTemplateEditor::GetClientTemplateNameByLeverage(double leverage, char** templateCode) const {
  const int64_t scaled = GetScaledLeverage(leverage);
  if (scaled < 0 || templateCode == nullptr) return ZDL_BAD_ARGUMENT;
  return FindClientTemplate(
      [scaled](const TIniParser::TKeyMap& keys) {
        for (const std::string& item : TIniParser::GetIniSettingByKey(keys, kLeverageParam))
          if (GetLeverageFromString(item.c_str()) == scaled) return true;
        return false;
      },
      templateCode);
}

}  // namespace DL
