#include "core/TTemplateEditor.h"

#include <cstring>
#include <vector>

#include "base/ResultCodes.h"

namespace DL {

namespace {
constexpr const char* kClientsParam = "Clients";
}  // namespace

std::string TTemplateEditor::ClientTemplateSection(const std::string& code) {
  return "cl" + code + "_Client_Template";
}
std::string TTemplateEditor::MarginTemplateSection(const std::string& code) {
  return "cl" + code + "_Margin_Template";
}
std::string TTemplateEditor::BaseAssetsTemplateSection(const std::string& code) {
  return "BaseAssets_Template_" + code;
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
  std::vector<std::string> list = TIniParser::GetIniSettingByKey(*keys, kClientsParam);
  std::vector<std::string> items;
  for (auto& item : list)
    if (!item.empty()) items.push_back(std::move(item));
  ZDL_ArrayStrings* array = m_hub.GetMemory().ConstructArray<ZDL_ArrayStrings>(items.size());
  for (size_t i = 0; i < items.size(); ++i) {
    array->items[i] = new char[items[i].size() + 1];
    std::memcpy(array->items[i], items[i].c_str(), items[i].size() + 1);
  }
  *clients = array;
  return ZDL_OK;
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
