#include "core/TClientListsEditor.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <map>
#include <set>
#include <string>

#include "base/CodeLengths.h"
#include "base/ResultCodes.h"
#include "base/TMemory.h"
#include "core/TStorageHub.h"
#include "ini/TIniParser.h"

namespace DL {
namespace {

const std::string& GeneralSection() {
  static const std::string name(IniSectName(iscGeneral));
  return name;
}
const std::string& ClientCvalSection() {
  static const std::string name(IniSectName(iscClientCval));
  return name;
}
const std::string& ApprovedClientsSection() {
  static const std::string name(IniSectName(iscComplexFIApprovedClients));
  return name;
}
const std::string& ClientCvalParam() { return TIniParser::GetIniParamCode(TIniParser::ipcClientCval); }

// 3 for a null or empty client code, 10 for one longer than 12 characters.
int CheckClientCode(const char* client) {
  if (client == nullptr || *client == '\0') return ZDL_BAD_ARGUMENT;
  if (IsClientCodeLengthGreaterMaxLength(client)) return ZDL_CLIENT_CODE_TOO_LONG;
  return ZDL_OK;
}


// Whether the whole text is a decimal integer that fits an int.
bool IsIntegerText(const char* text) {
  if (text == nullptr || *text == '\0') return false;
  errno = 0;
  char* end = nullptr;
  const long value = std::strtol(text, &end, 10);
  return errno == 0 && *end == '\0' && value >= INT32_MIN && value <= INT32_MAX;
}

}  // namespace

// ---- Clients approved for complex instruments ----

int TClientListsEditor::GetComplexFIApprovedClientsFromGlobal(ZDL_ArrayStrings** out) const {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  if (!m_hub.GetParser().IsSectionExist(ApprovedClientsSection())) return ZDL_NOT_FOUND;
  const std::set<std::string>& clients = m_hub.m_complexFIApprovedClients;
  ZDL_ArrayStrings* array = m_hub.GetMemory().ConstructArray<ZDL_ArrayStrings>(clients.size());
  std::size_t i = 0;
  for (const std::string& client : clients) array->items[i++] = ZDLPlain::NewText(client);
  *out = array;
  return ZDL_OK;
}

int TClientListsEditor::SetComplexFIApprovedClientsToGlobal(ZDL_ArrayStrings* clients) {
  if (clients == nullptr) return ZDL_BAD_ARGUMENT;
  std::set<std::string> list;
  for (uint64_t i = 0; i < clients->count; ++i) {
    const char* client = clients->items == nullptr ? nullptr : clients->items[i];
    if (int r = CheckClientCode(client); r != ZDL_OK) return r;
    list.insert(client);
  }
  m_hub.m_complexFIApprovedClients = std::move(list);
  m_hub.GetOldParserPointer()->FindOrCreateIniSection(ApprovedClientsSection());
  return ZDL_OK;
}

int TClientListsEditor::AddComplexFIApprovedClientsToGlobal(const char* client) {
  if (int r = CheckClientCode(client); r != ZDL_OK) return r;
  if (!m_hub.m_complexFIApprovedClients.insert(client).second) return ZDL_ALREADY_EXISTS;
  m_hub.GetOldParserPointer()->FindOrCreateIniSection(ApprovedClientsSection());
  return ZDL_OK;
}

int TClientListsEditor::RemoveComplexFIApprovedClientsFromGlobal(const char* client) {
  if (int r = CheckClientCode(client); r != ZDL_OK) return r;
  return m_hub.m_complexFIApprovedClients.erase(client) == 0 ? ZDL_NOT_FOUND : ZDL_OK;
}

// ---- Client values ----

int TClientListsEditor::GetClientCvalSignFromGlobal(int* sign) const {
  if (sign == nullptr) return ZDL_BAD_ARGUMENT;
  const TIniKeyMap* general = m_hub.GetParser().FindIniSectionRef(GeneralSection());
  if (general == nullptr) return ZDL_NOT_FOUND;
  *sign = m_hub.GetParser().GetIniParamInt(GeneralSection(), TIniParser::ipcClientCval, 1);
  return ZDL_OK;
}

int TClientListsEditor::SetClientCvalSignToGlobal(int sign) {
  TIniParser& parser = *m_hub.GetOldParserPointer();
  auto general = parser.FindOrCreateIniSection(GeneralSection());
  // The key keeps the spelling the text gave it, if it had one.
  auto it = general->second.find(ClientCvalParam());
  const std::string key = it != general->second.end() ? it->first : ClientCvalParam();
  parser.SetIniParam(general, key, std::to_string(sign));
  return ZDL_OK;
}

int TClientListsEditor::GetClientCvalListFromGlobal(ZDL_ArrayStringToString** out) const {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  const TIniClientValueMap& values = m_hub.GetClientValues();
  if (values.empty() && !m_hub.GetParser().IsSectionExist(ClientCvalSection())) return ZDL_NOT_FOUND;
  ZDL_ArrayStringToString* array = m_hub.GetMemory().ConstructArray<ZDL_ArrayStringToString>(values.size());
  std::size_t i = 0;
  for (const auto& [client, value] : values) {
    array->items[i].str1 = ZDLPlain::NewText(client);
    array->items[i].str2 = ZDLPlain::NewText(value);
    ++i;
  }
  *out = array;
  return ZDL_OK;
}

int TClientListsEditor::SetClientCvalListToGlobal(ZDL_ArrayStringToString* values) {
  if (values == nullptr) return ZDL_BAD_ARGUMENT;
  std::map<std::string, std::string> checked;
  for (uint64_t i = 0; i < values->count; ++i) {
    if (values->items == nullptr) return ZDL_BAD_ARGUMENT;
    const ZDL_StringToString& item = values->items[i];
    if (int r = CheckClientCode(item.str1); r != ZDL_OK) return r;
    if (!IsIntegerText(item.str2)) return ZDL_BAD_ARGUMENT;
    checked.emplace(item.str1, item.str2);  // the first value of a repeated client wins
  }
  TIniParser& parser = *m_hub.GetOldParserPointer();
  TIniKeyMap& map = parser.GetCValSectionForEdit();
  map.clear();
  for (const auto& [client, value] : checked) map.emplace(client, value);
  parser.FindOrCreateIniSection(ClientCvalSection());
  return ZDL_OK;
}

int TClientListsEditor::AddClientCvalByClientCodeToGlobal(const char* client, int value) {
  if (int r = CheckClientCode(client); r != ZDL_OK) return r;
  TIniParser& parser = *m_hub.GetOldParserPointer();
  TIniKeyMap& map = parser.GetCValSectionForEdit();
  if (map.find(client) != map.end()) return ZDL_ALREADY_EXISTS;
  map.emplace(client, std::to_string(value));
  parser.FindOrCreateIniSection(ClientCvalSection());
  return ZDL_OK;
}

int TClientListsEditor::RemoveClientCvalByClientCodeFromGlobal(const char* client) {
  if (int r = CheckClientCode(client); r != ZDL_OK) return r;
  TIniKeyMap& map = m_hub.GetOldParserPointer()->GetCValSectionForEdit();
  auto it = map.find(client);
  if (it == map.end()) return ZDL_NOT_FOUND;
  map.erase(it);
  return ZDL_OK;
}

int TClientListsEditor::GetClientCvalByClientCodeFromGlobal(const char* client, int* value) const {
  if (value == nullptr) return ZDL_BAD_ARGUMENT;
  if (int r = CheckClientCode(client); r != ZDL_OK) return r;
  const TIniClientValueMap& values = m_hub.GetClientValues();
  auto it = values.find(client);
  if (it == values.end()) return ZDL_NOT_FOUND;
  *value = static_cast<int>(std::strtol(it->second.c_str(), nullptr, 10));
  return ZDL_OK;
}

}  // namespace DL
