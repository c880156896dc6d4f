#include "core/TOwnerParameterEditor.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "base/CodeLengths.h"
#include "base/ResultCodes.h"
#include "base/TMemory.h"
#include "base/TextHelpers.h"
#include "base/TClassList.h"
#include "cache/TCacheOfClientMarginRestrictions.h"
#include "cache/TCacheOfSecurityRestrictions.h"
#include "commission/TCacheOfClientSettings.h"

namespace DL {

namespace {

using P = TIniParser;

constexpr int kInherit = -2;
constexpr int kDefault = -1;

bool IsClient(TOwnerParameterEditor::EOwner owner) {
  return owner == TOwnerParameterEditor::EOwner::ClientMargin || owner == TOwnerParameterEditor::EOwner::Client;
}

}  // namespace

int TOwnerParameterEditor::Section(EOwner owner, const char* code, std::string& name) const {
  if (IsNullOrEmpty(code)) return ZDL_BAD_ARGUMENT;
  if (IsClient(owner) ? IsClientCodeLengthGreaterMaxLength(code) : IsTemplateCodeLengthGreaterMaxLength(code))
    return IsClient(owner) ? ZDL_CLIENT_CODE_TOO_LONG : ZDL_TEMPLATE_CODE_TOO_LONG;
  name = P::GetPartIniSectCode(P::pscCl) + code;
  switch (owner) {
    case EOwner::ClientMargin:
      name += P::GetPartIniSectCode(P::psc_Margin);
      break;
    case EOwner::MarginTemplate:
      name += P::GetPartIniSectCode(P::psc_Margin_Template);
      break;
    case EOwner::ClientTemplate:
      name += P::GetPartIniSectCode(P::psc_Client_Template);
      break;
    case EOwner::Client:
      break;
  }
  return ZDL_OK;
}

const TIniKeyMap* TOwnerParameterEditor::Keys(EOwner owner, const char* code, int& result) const {
  std::string name;
  result = Section(owner, code, name);
  if (result != ZDL_OK) return nullptr;
  const TIniKeyMap* keys = m_hub.GetParser().FindIniSectionRef(name);
  if (keys == nullptr) result = IsClient(owner) ? ZDL_CLIENT_SETTINGS_NOT_EXIST : ZDL_TEMPLATE_NOT_EXIST;
  return keys;
}

TIniKeyMap* TOwnerParameterEditor::Keys(EOwner owner, const char* code, int& result) {
  const TIniKeyMap* keys = static_cast<const TOwnerParameterEditor*>(this)->Keys(owner, code, result);
  // The section belongs to the hub's parser, which this editor may change.
  return const_cast<TIniKeyMap*>(keys);
}

void TOwnerParameterEditor::Forget(EOwner owner, const std::string& code, const std::string& section) {
  switch (owner) {
    case EOwner::ClientMargin:
      if (TCacheOfClientMarginRestrictions* cache = m_hub.GetClientMarginRestrictionsCache())
        cache->ForgetParsedClientSettings(code);
      break;
    case EOwner::MarginTemplate:
      if (TCacheOfClientMarginRestrictions* cache = m_hub.GetClientMarginRestrictionsCache())
        cache->ForgetParsedTemplateSettings(code);
      break;
    case EOwner::Client:
    case EOwner::ClientTemplate:
      m_hub.GetClientSettingsCache().ForgetParsedSection(section);
      if (TCacheOfSecurityRestrictions* cache = m_hub.m_securityRestrictions.Cache())
        cache->ForgetParsedSection(section);
      break;
  }
}

int TOwnerParameterEditor::Write(EOwner owner, const char* code, const char* key, const std::string& text) {
  int result = ZDL_OK;
  TIniKeyMap* keys = Keys(owner, code, result);
  if (keys == nullptr) return result;
  if (text.empty())
    keys->erase(key);
  else
    (*keys)[key] = text;
  std::string section;
  (void)Section(owner, code, section);
  Forget(owner, code, section);
  return ZDL_OK;
}

// ---- Whole numbers of margin sections, with inheritance ----

int TOwnerParameterEditor::GetInherit(EOwner owner, const char* code, const char* key, int* out) const {
  int result = ZDL_OK;
  std::string name;
  if (int r = Section(owner, code, name); r != ZDL_OK) return r;
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  const TIniKeyMap* keys = Keys(owner, code, result);
  if (keys == nullptr) return result;
  const auto it = keys->find(key);
  *out = it == keys->end() ? kInherit : static_cast<int>(std::strtol(it->second.c_str(), nullptr, 10));
  return ZDL_OK;
}

int TOwnerParameterEditor::SetInherit(EOwner owner, const char* code, const char* key, EValueCheck check,
                                      int value) {
  int result = ZDL_OK;
  if (Keys(owner, code, result) == nullptr) return result;
  if (value != kInherit && value != kDefault && !IsValueAllowed(check, value)) return ZDL_BAD_ARGUMENT;
  return Write(owner, code, key, value == kInherit ? std::string() : std::to_string(value));
}

// ---- Whole numbers and numbers ----

int TOwnerParameterEditor::GetInt(EOwner owner, const char* code, const char* key, int* out) const {
  double value = 0;
  const int result = GetNumber(owner, code, key, out == nullptr ? nullptr : &value);
  if (result == ZDL_OK) *out = static_cast<int>(value);
  return result;
}

int TOwnerParameterEditor::SetInt(EOwner owner, const char* code, const char* key, EValueCheck check, int value) {
  int result = ZDL_OK;
  if (Keys(owner, code, result) == nullptr) return result;
  if (!IsValueAllowed(check, value)) return ZDL_BAD_ARGUMENT;
  return Write(owner, code, key, std::to_string(value));
}

int TOwnerParameterEditor::GetNumber(EOwner owner, const char* code, const char* key, double* out) const {
  std::string name;
  if (int r = Section(owner, code, name); r != ZDL_OK) return r;
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  int result = ZDL_OK;
  const TIniKeyMap* keys = Keys(owner, code, result);
  if (keys == nullptr) return result;
  const auto it = keys->find(key);
  if (it == keys->end()) return ZDL_NOT_FOUND;
  *out = StrToDouble(it->second.c_str());
  return ZDL_OK;
}

int TOwnerParameterEditor::SetNumber(EOwner owner, const char* code, const char* key, EValueCheck check,
                                     double value) {
  int result = ZDL_OK;
  if (Keys(owner, code, result) == nullptr) return result;
  if (!IsValueAllowed(check, value)) return ZDL_BAD_ARGUMENT;
  return Write(owner, code, key, DoubleToString(value));
}

// ---- Lists ----

int TOwnerParameterEditor::GetList(EOwner owner, const char* code, const char* key, ZDL_ArrayStrings** out) const {
  std::string name;
  if (int r = Section(owner, code, name); r != ZDL_OK) return r;
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  int result = ZDL_OK;
  const TIniKeyMap* keys = Keys(owner, code, result);
  if (keys == nullptr) return result;
  const auto it = keys->find(key);
  const std::vector<std::string> items =
      it == keys->end() ? std::vector<std::string>() : TClassList(it->second, TClassList::NoRepeats).Items();
  ZDL_ArrayStrings* array = m_hub.GetMemory().ConstructArray<ZDL_ArrayStrings>(items.size());
  for (std::size_t i = 0; i < items.size(); ++i) array->items[i] = ZDLPlain::NewText(items[i]);
  *out = array;
  return ZDL_OK;
}

int TOwnerParameterEditor::SetList(EOwner owner, const char* code, const char* key, EListItem item,
                                   ZDL_ArrayStrings* items) {
  int result = ZDL_OK;
  if (Keys(owner, code, result) == nullptr) return result;
  if (items == nullptr) return ZDL_BAD_ARGUMENT;
  std::vector<std::string> list;
  for (std::uint64_t i = 0; i < items->count; ++i) {
    const char* text = items->items == nullptr ? nullptr : items->items[i];
    if (int r = CheckListItem(item, text); r != ZDL_OK) return r;
    if (std::find(list.begin(), list.end(), text) == list.end()) list.emplace_back(text);
  }
  std::string joined;
  for (const std::string& one : list) joined += (joined.empty() ? "" : ",") + one;
  return Write(owner, code, key, joined);
}

}  // namespace DL
