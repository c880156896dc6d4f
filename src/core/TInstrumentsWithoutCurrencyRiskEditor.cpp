#include "core/TInstrumentsWithoutCurrencyRiskEditor.h"

#include <algorithm>

#include "base/ResultCodes.h"
#include "base/TClassList.h"
#include "base/TMemory.h"
#include "base/TextHelpers.h"
#include "core/TOwnerSection.h"
#include "core/ValueChecks.h"
#include "ini/IniSectCodes.h"

namespace DL {

namespace {

const std::string& Prefix() { return TIniParser::GetIniParamCode(TIniParser::ipcInstrumentsWithoutCurrencyRisk_); }
const std::string& AllClasses() { return TIniParser::GetIniParamCode(TIniParser::ipcReserved_ALL); }

// 3 for a null or empty class, 9 for a long one; "<ALL>" stands for every class.
int CheckClass(const char* classCode) {
  if (classCode != nullptr && AllClasses() == classCode) return ZDL_OK;
  return CheckListItem(EListItem::Class, classCode);
}

std::vector<std::string> Split(const std::string& value) { return TClassList(value, TClassList::NoRepeats).Items(); }

std::string Join(const std::vector<std::string>& items) {
  std::string text;
  for (const std::string& item : items) text += (text.empty() ? "" : ",") + item;
  return text;
}

TOwnerSection::EOwner OwnerOf(bool client) {
  return client ? TOwnerSection::EOwner::ClientMargin : TOwnerSection::EOwner::ClientTemplate;
}

}  // namespace

int TInstrumentsWithoutCurrencyRiskEditor::Keys(EScope scope, const char* owner, bool make, TIniKeyMap*& keys) const {
  int result = ZDL_OK;
  if (scope == EScope::Global) {
    const std::string section(IniSectName(iscInstrumentsWithoutCurrencyRisk));
    keys = m_hub.GetOldParserPointer()->FindIniSectionRef(section);
    if (keys == nullptr && make) keys = &m_hub.GetOldParserPointer()->FindOrCreateIniSection(section)->second;
    return keys == nullptr ? ZDL_NOT_FOUND : ZDL_OK;
  }
  keys = TOwnerSection(m_hub, OwnerOf(scope == EScope::Client)).Find(owner, result);
  return result;
}

void TInstrumentsWithoutCurrencyRiskEditor::Done(EScope scope, const char* owner) {
  if (scope == EScope::Global)
    m_hub.ParseInstrumentWithoutCurrencyRiskSection();
  else
    TOwnerSection(m_hub, OwnerOf(scope == EScope::Client)).Forget(owner);
}

int TInstrumentsWithoutCurrencyRiskEditor::GetClasses(EScope scope, const char* owner,
                                                      ZDL_ArrayStrings** classes) const {
  if (classes == nullptr) return ZDL_BAD_ARGUMENT;
  TIniKeyMap* keys = nullptr;
  if (int r = Keys(scope, owner, false, keys); r != ZDL_OK) return r;
  const std::string prefixUp = StrUpper(Prefix());
  std::vector<std::string> items;
  for (const auto& [key, value] : *keys)
    if (key.size() > prefixUp.size() && StrUpper(key.substr(0, prefixUp.size())) == prefixUp)
      items.push_back(key.substr(prefixUp.size()));
  *classes = m_hub.GetMemory().ConstructStrings(items);
  return ZDL_OK;
}

int TInstrumentsWithoutCurrencyRiskEditor::AddClass(EScope scope, const char* owner, const char* classCode) {
  TIniKeyMap* keys = nullptr;
  if (scope != EScope::Global)
    if (int r = Keys(scope, owner, false, keys); r != ZDL_OK) return r;
  if (int r = CheckClass(classCode); r != ZDL_OK) return r;
  if (int r = Keys(scope, owner, true, keys); r != ZDL_OK) return r;
  if (!keys->emplace(Prefix() + classCode, std::string()).second) return ZDL_ALREADY_EXISTS;
  Done(scope, owner);
  return ZDL_OK;
}

int TInstrumentsWithoutCurrencyRiskEditor::RemoveClass(EScope scope, const char* owner, const char* classCode) {
  TIniKeyMap* keys = nullptr;
  const int found = Keys(scope, owner, false, keys);
  if (scope != EScope::Global && found != ZDL_OK) return found;
  if (int r = CheckClass(classCode); r != ZDL_OK) return r;
  if (keys == nullptr || keys->erase(Prefix() + classCode) == 0) return ZDL_NOT_FOUND;
  Done(scope, owner);
  return ZDL_OK;
}

int TInstrumentsWithoutCurrencyRiskEditor::GetInstruments(EScope scope, const char* owner, const char* classCode,
                                                          ZDL_ArrayStrings** instruments) const {
  TIniKeyMap* keys = nullptr;
  const int found = Keys(scope, owner, false, keys);
  if (scope != EScope::Global && found != ZDL_OK) return found;
  if (int r = CheckClass(classCode); r != ZDL_OK) return r;
  if (instruments == nullptr) return ZDL_BAD_ARGUMENT;
  if (keys == nullptr) return ZDL_NOT_FOUND;
  const auto it = keys->find(Prefix() + classCode);
  if (it == keys->end()) return ZDL_NOT_FOUND;
  *instruments = m_hub.GetMemory().ConstructStrings(Split(it->second));
  return ZDL_OK;
}

int TInstrumentsWithoutCurrencyRiskEditor::SetInstruments(EScope scope, const char* owner, const char* classCode,
                                                          ZDL_ArrayStrings* instruments) {
  TIniKeyMap* keys = nullptr;
  if (scope != EScope::Global)
    if (int r = Keys(scope, owner, false, keys); r != ZDL_OK) return r;
  if (int r = CheckClass(classCode); r != ZDL_OK) return r;
  if (instruments == nullptr) return ZDL_BAD_ARGUMENT;
  std::vector<std::string> list;
  for (std::uint64_t i = 0; i < instruments->count; ++i) {
    const char* item = instruments->items == nullptr ? nullptr : instruments->items[i];
    if (int r = CheckListItem(EListItem::Security, item); r != ZDL_OK) return r;
    if (std::find(list.begin(), list.end(), item) == list.end()) list.emplace_back(item);
  }
  if (int r = Keys(scope, owner, true, keys); r != ZDL_OK) return r;
  (*keys)[Prefix() + classCode] = Join(list);
  Done(scope, owner);
  return ZDL_OK;
}

int TInstrumentsWithoutCurrencyRiskEditor::AddInstrument(EScope scope, const char* owner, const char* classCode,
                                                         const char* secCode) {
  TIniKeyMap* keys = nullptr;
  if (scope != EScope::Global)
    if (int r = Keys(scope, owner, false, keys); r != ZDL_OK) return r;
  if (int r = CheckClass(classCode); r != ZDL_OK) return r;
  if (int r = CheckListItem(EListItem::Security, secCode); r != ZDL_OK) return r;
  if (int r = Keys(scope, owner, true, keys); r != ZDL_OK) return r;
  std::string& value = (*keys)[Prefix() + classCode];  // the class is made when missing
  std::vector<std::string> list = Split(value);
  if (std::find(list.begin(), list.end(), secCode) != list.end()) return ZDL_ALREADY_EXISTS;
  list.emplace_back(secCode);
  value = Join(list);
  Done(scope, owner);
  return ZDL_OK;
}

int TInstrumentsWithoutCurrencyRiskEditor::RemoveInstrument(EScope scope, const char* owner, const char* classCode,
                                                            const char* secCode) {
  TIniKeyMap* keys = nullptr;
  const int found = Keys(scope, owner, false, keys);
  if (scope != EScope::Global && found != ZDL_OK) return found;
  if (int r = CheckClass(classCode); r != ZDL_OK) return r;
  if (int r = CheckListItem(EListItem::Security, secCode); r != ZDL_OK) return r;
  if (keys == nullptr) return ZDL_NOT_FOUND;
  const auto it = keys->find(Prefix() + classCode);
  if (it == keys->end()) return ZDL_NOT_FOUND;
  std::vector<std::string> list = Split(it->second);
  const auto item = std::find(list.begin(), list.end(), secCode);
  if (item == list.end()) return ZDL_NOT_FOUND;
  list.erase(item);
  // A class whose last instrument goes goes with it.
  if (list.empty())
    keys->erase(it);
  else
    it->second = Join(list);
  Done(scope, owner);
  return ZDL_OK;
}

}  // namespace DL
