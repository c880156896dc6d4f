#include "core/TTemplateClientsEditor.h"

#include <cstring>
#include <vector>

#include "base/CodeLengths.h"
#include "base/Numbers.h"
#include "base/ResultCodes.h"
#include "base/TextHelpers.h"
#include "core/TTemplateEditor.h"

namespace DL {

namespace {
// The largest leverage a template may claim.
constexpr double kMaxLeverage = 999999999.0;

const std::string& Key(TIniParser::EIniParamCodeNum code) { return TIniParser::GetIniParamCode(code); }
const std::string& Part(TIniParser::EPartIniSectCodeNum code) { return TIniParser::GetPartIniSectCode(code); }

// The ending of the sections of a template kind; null for an unknown kind.
const std::string* SuffixOf(int kind) {
  TIniParser::EPartIniSectCodeNum ending{};
  if (kind < 0 || TIniParser::GetPartIniSectCodeNum__XXX_Template(ending, kind) != ZDL_OK) return nullptr;
  return &Part(ending);
}

// 0, 3 for a null or empty client, 10 for one longer than 12 characters.
int CheckClient(const char* client) {
  if (IsNullOrEmpty(client)) return ZDL_BAD_ARGUMENT;
  if (IsClientCodeLengthGreaterMaxLength(client)) return ZDL_CLIENT_CODE_TOO_LONG;
  return ZDL_OK;
}
}  // namespace

bool TTemplateClientsEditor::IsKnownKind(int kind) { return kind == kBaseAssets || SuffixOf(kind) != nullptr; }

std::string TTemplateClientsEditor::TemplateSection(int kind, const std::string& code) {
  if (kind == kBaseAssets) return Part(TIniParser::pscBaseAssets_Template_) + code;
  const std::string* suffix = SuffixOf(kind);
  return suffix == nullptr ? std::string() : Part(TIniParser::pscCl) + code + *suffix;
}

std::set<std::string> TTemplateClientsEditor::ClientsOf(const std::string& section) const {
  std::set<std::string> clients;
  const TIniParser::TKeyMap* keys = m_hub.GetOldParserPointer()->FindIniSectionRef(section);
  if (keys == nullptr) return clients;
  const auto list = keys->find(Key(TIniParser::ipcClients));
  if (list == keys->end()) return clients;
  ParseRowWithDelimsToListRows(list->second, ',', clients);
  std::erase_if(clients, [](const std::string& c) { return IsClientCodeLengthGreaterMaxLength(c); });
  return clients;
}

std::set<std::string> TTemplateClientsEditor::ClientsOfOtherTemplates(int kind, const std::string& own) const {
  std::set<std::string> clients;
  const std::string ownUp = StrUpper(TemplateSection(kind, own));
  const std::string mark = StrUpper(kind == kBaseAssets ? Part(TIniParser::pscBaseAssets_Template_) : *SuffixOf(kind));
  for (const auto& [name, keys] : m_hub.GetOldParserPointer()->GetSections()) {
    const std::string up = StrUpper(name);
    const bool ofKind = kind == kBaseAssets ? up.rfind(mark, 0) == 0 : up.find(mark) != std::string::npos;
    if (!ofKind || up == ownUp) continue;
    // The template's own limit kinds repeat its list: they are not another
    // template.
    if (up.rfind(ownUp + StrUpper(Part(TIniParser::psc_LimitKind_)), 0) == 0) continue;
    clients.merge(ClientsOf(name));
  }
  return clients;
}

int TTemplateClientsEditor::CreateTemplate(int kind, const std::string& code) {
  TTemplateEditor templates(m_hub);
  switch (kind) {
    case TIniParser::TemplateClient:
      return templates.AddClientTemplate(code.c_str());
    case TIniParser::TemplateMargin:
      return templates.AddMarginTemplate(code.c_str());
    case TIniParser::TemplateRestriction:
      return templates.AddRestrictionTemplate(code.c_str());
    case kBaseAssets:
      return templates.AddBaseAssetsTemplate(code.c_str());
    default:
      return ZDL_TEMPLATE_NOT_EXIST;
  }
}

int TTemplateClientsEditor::WriteClients(int kind, const std::string& code, const std::set<std::string>& clients) {
  const std::string list = GetRowWithDelimsFromListRows(clients, ',');
  TIniParser* parser = m_hub.GetOldParserPointer();
  if (kind == kBaseAssets) {
    TIniParser::TKeyMap* keys = parser->FindIniSectionRef(TemplateSection(kind, code));
    if (keys == nullptr) return ZDL_TEMPLATE_NOT_EXIST;
    (*keys)[Key(TIniParser::ipcClients)] = list;
    return ZDL_OK;
  }
  const int result = parser->SetTemplateParamToAllLimitKinds(kind, code, TIniParser::ipcClients, list);
  if (result != ZDL_OK || kind != TIniParser::TemplateClient) return result;
  // The commission scale template of the same code follows the client
  // template, so that the two stay in step.
  return parser->SetTemplateParamToAllLimitKinds(TIniParser::TemplateCommissionScale, code, TIniParser::ipcClients,
                                                 list);
}

int TTemplateClientsEditor::AddItemToTemplateClients(int kind, const char* templateCode, const char* clientCode) {
  if (IsNullOrEmpty(templateCode)) return ZDL_BAD_ARGUMENT;
  if (const int checked = CheckClient(clientCode); checked != ZDL_OK) return checked;
  if (!IsKnownKind(kind)) return ZDL_TEMPLATE_NOT_EXIST;
  const std::string section = TemplateSection(kind, templateCode);
  if (m_hub.GetOldParserPointer()->FindIniSectionRef(section) == nullptr) {
    if (const int created = CreateTemplate(kind, templateCode); created != ZDL_OK) return created;
  }
  if (ClientsOfOtherTemplates(kind, templateCode).count(clientCode) != 0) return ZDL_ALREADY_EXISTS;
  std::set<std::string> clients = ClientsOf(section);
  if (!clients.insert(clientCode).second) return ZDL_ALREADY_EXISTS;
  return WriteClients(kind, templateCode, clients);
}

int TTemplateClientsEditor::RemoveItemFromTemplateClients(int kind, const char* templateCode, const char* clientCode) {
  if (IsNullOrEmpty(templateCode)) return ZDL_BAD_ARGUMENT;
  if (const int checked = CheckClient(clientCode); checked != ZDL_OK) return checked;
  if (!IsKnownKind(kind)) return ZDL_TEMPLATE_NOT_EXIST;
  const std::string section = TemplateSection(kind, templateCode);
  if (m_hub.GetOldParserPointer()->FindIniSectionRef(section) == nullptr) return ZDL_TEMPLATE_NOT_EXIST;
  std::set<std::string> clients = ClientsOf(section);
  if (clients.erase(clientCode) == 0) return ZDL_NOT_FOUND;
  return WriteClients(kind, templateCode, clients);
}

int TTemplateClientsEditor::SetItemsToTemplateClients(int kind, const char* templateCode,
                                                      const ZDL_ArrayStrings* clients) {
  if (IsNullOrEmpty(templateCode)) return ZDL_BAD_ARGUMENT;
  if (!IsKnownKind(kind)) return ZDL_TEMPLATE_NOT_EXIST;
  std::set<std::string> list;
  const uint64_t count = clients == nullptr ? 0 : clients->count;
  // Every client is checked before anything is written.
  const std::set<std::string> taken = ClientsOfOtherTemplates(kind, templateCode);
  for (uint64_t i = 0; i < count; ++i) {
    const char* client = clients->items[i];
    if (const int checked = CheckClient(client); checked != ZDL_OK) return checked;
    if (taken.count(client) != 0) return ZDL_ALREADY_EXISTS;
    list.insert(client);
  }
  const std::string section = TemplateSection(kind, templateCode);
  if (m_hub.GetOldParserPointer()->FindIniSectionRef(section) == nullptr) {
    if (const int created = CreateTemplate(kind, templateCode); created != ZDL_OK) return created;
  }
  return WriteClients(kind, templateCode, list);
}

int TTemplateClientsEditor::MoveItemBetweenTemplatesClients(int kind, const char* fromTemplate, const char* toTemplate,
                                                            const char* clientCode) {
  if (IsNullOrEmpty(fromTemplate) || IsNullOrEmpty(toTemplate)) return ZDL_BAD_ARGUMENT;
  if (const int checked = CheckClient(clientCode); checked != ZDL_OK) return checked;
  if (!IsKnownKind(kind)) return ZDL_TEMPLATE_NOT_EXIST;
  if (m_hub.GetOldParserPointer()->FindIniSectionRef(TemplateSection(kind, fromTemplate)) == nullptr)
    return ZDL_TEMPLATE_NOT_EXIST;
  if (const int removed = RemoveItemFromTemplateClients(kind, fromTemplate, clientCode); removed != ZDL_OK)
    return removed;
  // Not undone when the add fails: the client then stands in neither.
  return AddItemToTemplateClients(kind, toTemplate, clientCode);
}

int TTemplateClientsEditor::RemoveTemplate(const char* templateCode, int kind) {
  if (IsNullOrEmpty(templateCode)) return ZDL_BAD_ARGUMENT;
  if (IsTemplateCodeLengthGreaterMaxLength(templateCode)) return ZDL_TEMPLATE_CODE_TOO_LONG;
  TIniParser* parser = m_hub.GetOldParserPointer();
  const std::string section = TemplateSection(kind, templateCode);
  if (parser->FindIniSectionRef(section) == nullptr) return ZDL_TEMPLATE_NOT_EXIST;
  parser->RemoveIniSection(section);
  if (parser->FindIniSectionRef(section) != nullptr) return ZDL_FAILED;
  const std::string twinsUp = StrUpper(section + Part(TIniParser::psc_LimitKind_));
  std::vector<std::string> twins;
  for (const auto& [name, keys] : parser->GetSections())
    if (StrUpper(name).rfind(twinsUp, 0) == 0) twins.push_back(name);
  for (const std::string& name : twins) parser->RemoveIniSection(name);
  return ZDL_OK;
}

int TTemplateClientsEditor::RemoveClientTemplate(const char* templateCode) {
  if (IsNullOrEmpty(templateCode)) return ZDL_BAD_ARGUMENT;
  if (TCacheOfSecurityRestrictions* cache = m_hub.m_securityRestrictions.Cache(); cache != nullptr)
    (void)cache->RemoveParsedTemplateSettings(templateCode);
  if (const int removed = RemoveTemplate(templateCode, TIniParser::TemplateClient); removed != ZDL_OK) return removed;
  m_hub.m_volumeCommission.EraseTemplate(templateCode);
  // The commission scale template of the code goes with it, if there is one.
  (void)RemoveTemplate(templateCode, TIniParser::TemplateCommissionScale);
  return ZDL_OK;
}

int TTemplateClientsEditor::RemoveMarginTemplate(const char* templateCode) {
  return RemoveTemplate(templateCode, TIniParser::TemplateMargin);
}

int TTemplateClientsEditor::RemoveBaseAssetsTemplate(const char* templateCode) {
  return RemoveTemplate(templateCode, kBaseAssets);
}

int TTemplateClientsEditor::RemoveRestrictionTemplate(const char* templateCode) {
  if (IsNullOrEmpty(templateCode)) return ZDL_BAD_ARGUMENT;
  TCacheOfRestrictions* cache = m_hub.GetRestrictionsCache();
  if (cache == nullptr) return ZDL_NOT_FOUND;
  return cache->RemoveTemplate(templateCode);
}

bool TTemplateClientsEditor::LeverageOfOtherTemplate(int kind, const std::string& own, int64_t scaled) const {
  const std::string ownUp = StrUpper(TemplateSection(kind, own));
  const std::string mark = StrUpper(*SuffixOf(kind));
  for (const auto& [name, keys] : m_hub.GetOldParserPointer()->GetSections()) {
    const std::string up = StrUpper(name);
    if (up.size() < mark.size() || up.compare(up.size() - mark.size(), mark.size(), mark) != 0 || up == ownUp) continue;
    const auto list = keys.find(Key(TIniParser::ipcIncludeClientsWithLeverage));
    if (list == keys.end()) continue;
    for (const std::string& item : BoardListToVector(list->second, ','))
      if (GetLeverageFromString(item.c_str()) == scaled) return true;
  }
  return false;
}

int TTemplateClientsEditor::SetLeverages(int kind, const char* templateCode, const ZDL_ArrayDoubleNumbers* leverages) {
  if (IsNullOrEmpty(templateCode)) return ZDL_BAD_ARGUMENT;
  if (m_hub.GetOldParserPointer()->FindIniSectionRef(TemplateSection(kind, templateCode)) == nullptr)
    return ZDL_TEMPLATE_NOT_EXIST;
  std::vector<std::string> items;
  std::set<int64_t> seen;
  const uint64_t count = leverages == nullptr ? 0 : leverages->count;
  for (uint64_t i = 0; i < count; ++i) {
    const double value = leverages->items[i];
    if (!(value >= 0.0 && value <= kMaxLeverage)) return ZDL_BAD_ARGUMENT;
    const int64_t scaled = GetScaledLeverage(value);
    if (LeverageOfOtherTemplate(kind, templateCode, scaled)) return ZDL_ALREADY_EXISTS;
    if (seen.insert(scaled).second) items.push_back(DoubleToString(value));
  }
  return m_hub.GetOldParserPointer()->SetTemplateParamToAllLimitKinds(
      kind, templateCode, TIniParser::ipcIncludeClientsWithLeverage, ListToString(items));
}

int TTemplateClientsEditor::SetIncludeClientsWithLeverageToClientTemplate(const char* templateCode,
                                                                          const ZDL_ArrayDoubleNumbers* leverages) {
  return SetLeverages(TIniParser::TemplateClient, templateCode, leverages);
}
int TTemplateClientsEditor::SetIncludeClientsWithLeverageToMarginTemplate(const char* templateCode,
                                                                          const ZDL_ArrayDoubleNumbers* leverages) {
  return SetLeverages(TIniParser::TemplateMargin, templateCode, leverages);
}
int TTemplateClientsEditor::SetIncludeClientsWithLeverageToRestrictionTemplate(
    const char* templateCode, const ZDL_ArrayDoubleNumbers* leverages) {
  return SetLeverages(TIniParser::TemplateRestriction, templateCode, leverages);
}

// ---- The commands, one kind each ----

int TTemplateClientsEditor::AddClientToClientTemplate(const char* templateCode, const char* clientCode) {
  return AddItemToTemplateClients(TIniParser::TemplateClient, templateCode, clientCode);
}
int TTemplateClientsEditor::RemoveClientFromClientTemplate(const char* templateCode, const char* clientCode) {
  return RemoveItemFromTemplateClients(TIniParser::TemplateClient, templateCode, clientCode);
}
int TTemplateClientsEditor::SetClientsListOfClientTemplate(const char* templateCode, const ZDL_ArrayStrings* clients) {
  return SetItemsToTemplateClients(TIniParser::TemplateClient, templateCode, clients);
}
int TTemplateClientsEditor::MoveClientBetweenClientTemplates(const char* fromTemplate, const char* toTemplate,
                                                             const char* clientCode) {
  return MoveItemBetweenTemplatesClients(TIniParser::TemplateClient, fromTemplate, toTemplate, clientCode);
}

int TTemplateClientsEditor::AddClientToMarginTemplate(const char* templateCode, const char* clientCode) {
  return AddItemToTemplateClients(TIniParser::TemplateMargin, templateCode, clientCode);
}
int TTemplateClientsEditor::RemoveClientFromMarginTemplate(const char* templateCode, const char* clientCode) {
  return RemoveItemFromTemplateClients(TIniParser::TemplateMargin, templateCode, clientCode);
}
int TTemplateClientsEditor::SetClientsListOfMarginTemplate(const char* templateCode, const ZDL_ArrayStrings* clients) {
  return SetItemsToTemplateClients(TIniParser::TemplateMargin, templateCode, clients);
}
int TTemplateClientsEditor::MoveClientBetweenMarginTemplates(const char* fromTemplate, const char* toTemplate,
                                                             const char* clientCode) {
  return MoveItemBetweenTemplatesClients(TIniParser::TemplateMargin, fromTemplate, toTemplate, clientCode);
}

int TTemplateClientsEditor::AddClientToRestrictionTemplate(const char* templateCode, const char* clientCode) {
  return AddItemToTemplateClients(TIniParser::TemplateRestriction, templateCode, clientCode);
}
int TTemplateClientsEditor::RemoveClientFromRestrictionTemplate(const char* templateCode, const char* clientCode) {
  return RemoveItemFromTemplateClients(TIniParser::TemplateRestriction, templateCode, clientCode);
}
int TTemplateClientsEditor::SetClientsListOfRestrictionTemplate(const char* templateCode,
                                                                const ZDL_ArrayStrings* clients) {
  return SetItemsToTemplateClients(TIniParser::TemplateRestriction, templateCode, clients);
}
int TTemplateClientsEditor::MoveClientBetweenRestrictionTemplates(const char* fromTemplate, const char* toTemplate,
                                                                  const char* clientCode) {
  return MoveItemBetweenTemplatesClients(TIniParser::TemplateRestriction, fromTemplate, toTemplate, clientCode);
}

int TTemplateClientsEditor::AddClientToBaseAssetsTemplate(const char* templateCode, const char* clientCode) {
  return AddItemToTemplateClients(kBaseAssets, templateCode, clientCode);
}
int TTemplateClientsEditor::RemoveClientFromBaseAssetsTemplate(const char* templateCode, const char* clientCode) {
  return RemoveItemFromTemplateClients(kBaseAssets, templateCode, clientCode);
}
int TTemplateClientsEditor::SetClientsListOfBaseAssetsTemplate(const char* templateCode,
                                                               const ZDL_ArrayStrings* clients) {
  return SetItemsToTemplateClients(kBaseAssets, templateCode, clients);
}
int TTemplateClientsEditor::MoveClientBetweenBaseAssetsTemplates(const char* fromTemplate, const char* toTemplate,
                                                                 const char* clientCode) {
  return MoveItemBetweenTemplatesClients(kBaseAssets, fromTemplate, toTemplate, clientCode);
}

}  // namespace DL
