#include "core/TChangeFutClientCodesEditor.h"

#include <cstring>
#include <string>

#include "base/CodeLengths.h"
#include "base/ResultCodes.h"
#include "base/TMemory.h"
#include "core/HubSectionHelpers.h"
#include "core/TStorageHub.h"
#include "ini/IniSectCodes.h"
#include "ini/SettingsText.h"

namespace DL {
namespace {

// A code of a pair: 3 when null or empty, 12 when longer than 12 characters.
int CheckPairCode(const char* code) {
  if (code == nullptr || *code == '\0') return ZDL_BAD_ARGUMENT;
  return std::strlen(code) > HubText::kCodeMax ? ZDL_FUT_CLIENT_PAIR_TOO_LONG : ZDL_OK;
}

// A firm of the derivatives market may be empty (the section without a tail).
int CheckFirm(const char* firm) {
  if (firm == nullptr) return ZDL_BAD_ARGUMENT;
  return IsFirmCodeLengthGreaterMaxLength(firm) ? ZDL_BAD_ARGUMENT : ZDL_OK;
}


}  // namespace

TChangeFutClientCodes* TChangeFutClientCodesEditor::Find(const char* firm) const {
  for (auto& [section, store] : m_hub.m_changeFutClientCodes)
    if (IsSameSettingsName(store.firm, firm)) return &store;
  return nullptr;
}

int TChangeFutClientCodesEditor::GetListOfFirmsGlobalChangeFutClientCodes(ZDL_ArrayStrings** firms) const {
  if (firms == nullptr) return ZDL_BAD_ARGUMENT;
  const auto& stores = m_hub.m_changeFutClientCodes;
  ZDL_ArrayStrings* array = m_hub.GetMemory().ConstructArray<ZDL_ArrayStrings>(stores.size());
  std::size_t i = 0;
  for (const auto& [section, store] : stores) array->items[i++] = ZDLPlain::NewText(store.firm);
  *firms = array;
  return ZDL_OK;
}

int TChangeFutClientCodesEditor::AddCorrespToGlobalChangeFutClientCodes(const char* firm, const char* client,
                                                                        const char* trdAcc) {
  if (int r = CheckFirm(firm); r != ZDL_OK) return r;
  if (int r = CheckPairCode(client); r != ZDL_OK) return r;
  if (int r = CheckPairCode(trdAcc); r != ZDL_OK) return r;
  TChangeFutClientCodes* store = Find(firm);
  if (store == nullptr) {
    std::string section(IniSectName(iscChangeFutClientCodes));
    if (*firm != '\0') section += std::string("_") + firm;
    store = &m_hub.m_changeFutClientCodes[section];
    store->section = section;
    store->firm = firm;
    m_hub.GetOldParserPointer()->FindOrCreateIniSection(section);
  }
  if (store->trdAccByClient.count(client) != 0) return ZDL_ALREADY_EXISTS;
  store->trdAccByClient.emplace(client, trdAcc);
  return ZDL_OK;
}

int TChangeFutClientCodesEditor::GetClientCodeGlobalChangeFutClientCodesByTrdAcc(const char* firm,
                                                                                 const char* trdAcc,
                                                                                 char** client) const {
  if (client == nullptr) return ZDL_BAD_ARGUMENT;
  if (int r = CheckFirm(firm); r != ZDL_OK) return r;
  if (int r = CheckPairCode(trdAcc); r != ZDL_OK) return r;
  const TChangeFutClientCodes* store = Find(firm);
  if (store == nullptr) return ZDL_NOT_FOUND;
  for (const auto& [code, account] : store->trdAccByClient)
    if (account == trdAcc) {
      char* text = m_hub.GetMemory().ConstructString(code.size() + 1);
      std::memcpy(text, code.c_str(), code.size());
      *client = text;
      return ZDL_OK;
    }
  return ZDL_NOT_FOUND;
}

int TChangeFutClientCodesEditor::GetTrdAccGlobalChangeFutClientCodesByClientCode(const char* firm,
                                                                                 const char* client,
                                                                                 char** trdAcc) const {
  if (trdAcc == nullptr) return ZDL_BAD_ARGUMENT;
  if (int r = CheckFirm(firm); r != ZDL_OK) return r;
  if (int r = CheckPairCode(client); r != ZDL_OK) return r;
  const TChangeFutClientCodes* store = Find(firm);
  if (store == nullptr) return ZDL_NOT_FOUND;
  auto it = store->trdAccByClient.find(client);
  if (it == store->trdAccByClient.end()) return ZDL_NOT_FOUND;
  char* text = m_hub.GetMemory().ConstructString(it->second.size() + 1);
  std::memcpy(text, it->second.c_str(), it->second.size());
  *trdAcc = text;
  return ZDL_OK;
}

int TChangeFutClientCodesEditor::RemoveAllCorrespsFromGlobalChangeFutClientCodes(const char* firm) {
  if (int r = CheckFirm(firm); r != ZDL_OK) return r;
  TChangeFutClientCodes* store = Find(firm);
  if (store == nullptr) return ZDL_NOT_FOUND;
  const std::string section = store->section;
  m_hub.m_changeFutClientCodes.erase(section);
  m_hub.GetOldParserPointer()->RemoveIniSection(section);
  return ZDL_OK;
}

int TChangeFutClientCodesEditor::RemoveCorrespFromGlobalChangeFutClientCodesByClientCode(const char* firm,
                                                                                         const char* client) {
  if (int r = CheckFirm(firm); r != ZDL_OK) return r;
  if (int r = CheckPairCode(client); r != ZDL_OK) return r;
  TChangeFutClientCodes* store = Find(firm);
  if (store == nullptr || store->trdAccByClient.erase(client) == 0) return ZDL_NOT_FOUND;
  return ZDL_OK;
}

int TChangeFutClientCodesEditor::RemoveCorrespFromGlobalChangeFutClientCodesByTrdAcc(const char* firm,
                                                                                     const char* trdAcc) {
  if (int r = CheckFirm(firm); r != ZDL_OK) return r;
  if (int r = CheckPairCode(trdAcc); r != ZDL_OK) return r;
  TChangeFutClientCodes* store = Find(firm);
  if (store == nullptr) return ZDL_NOT_FOUND;
  const std::size_t removed =
      std::erase_if(store->trdAccByClient, [trdAcc](const auto& pair) { return pair.second == trdAcc; });
  return removed == 0 ? ZDL_NOT_FOUND : ZDL_OK;
}

int TChangeFutClientCodesEditor::GetChangeFutClientCodesByFirmFromGlobal(
    const char* firm, ZDL_ArrayCodeToCodeTrdaccToTrdacc** pairs) const {
  if (pairs == nullptr) return ZDL_BAD_ARGUMENT;
  if (int r = CheckFirm(firm); r != ZDL_OK) return r;
  const TChangeFutClientCodes* store = Find(firm);
  if (store == nullptr) return ZDL_NOT_FOUND;
  auto* array = m_hub.GetMemory().ConstructArray<ZDL_ArrayCodeToCodeTrdaccToTrdacc>(store->trdAccByClient.size());
  std::size_t i = 0;
  for (const auto& [client, account] : store->trdAccByClient) {
    array->items[i].str1 = ZDLPlain::NewText(client);
    array->items[i].str2 = ZDLPlain::NewText(account);
    ++i;
  }
  *pairs = array;
  return ZDL_OK;
}

}  // namespace DL
