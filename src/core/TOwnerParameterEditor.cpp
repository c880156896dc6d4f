#include "core/TOwnerParameterEditor.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "base/ResultCodes.h"
#include "base/TClassList.h"
#include "base/TMemory.h"
#include "base/TextHelpers.h"

namespace DL {

namespace {

constexpr int kInherit = -2;
constexpr int kDefault = -1;

}  // namespace

int TOwnerParameterEditor::Write(EOwner owner, const char* code, const char* key, const std::string& text) {
  TOwnerSection section(m_hub, owner);
  int result = ZDL_OK;
  TIniKeyMap* keys = section.Find(code, result);
  if (keys == nullptr) return result;
  if (text.empty())
    keys->erase(key);
  else
    (*keys)[key] = text;
  section.Forget(code);
  return ZDL_OK;
}

const TIniKeyMap* TOwnerParameterEditor::KeysToRead(EOwner owner, const char* code, bool hasOut, int& result) const {
  std::string name;
  result = Section(owner, code, name);
  if (result == ZDL_OK && !hasOut) result = ZDL_BAD_ARGUMENT;
  return result == ZDL_OK ? Keys(owner, code, result) : nullptr;
}

// ---- Whole numbers of margin sections, with inheritance ----

int TOwnerParameterEditor::GetInherit(EOwner owner, const char* code, const char* key, int* out) const {
  int result = ZDL_OK;
  const TIniKeyMap* keys = KeysToRead(owner, code, out != nullptr, result);
  if (keys == nullptr) return result;
  const auto it = keys->find(key);
  *out = it == keys->end() ? kInherit : static_cast<int>(std::strtol(it->second.c_str(), nullptr, 10));
  return ZDL_OK;
}

int TOwnerParameterEditor::SetInherit(EOwner owner, const char* code, const char* key, EValueCheck check, int value) {
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
  int result = ZDL_OK;
  const TIniKeyMap* keys = KeysToRead(owner, code, out != nullptr, result);
  if (keys == nullptr) return result;
  const auto it = keys->find(key);
  if (it == keys->end()) return ZDL_NOT_FOUND;
  *out = StrToDouble(it->second.c_str());
  return ZDL_OK;
}

int TOwnerParameterEditor::SetNumber(EOwner owner, const char* code, const char* key, EValueCheck check, double value) {
  int result = ZDL_OK;
  if (Keys(owner, code, result) == nullptr) return result;
  if (!IsValueAllowed(check, value)) return ZDL_BAD_ARGUMENT;
  return Write(owner, code, key, DoubleToString(value));
}

// ---- Lists ----

int TOwnerParameterEditor::GetList(EOwner owner, const char* code, const char* key, ZDL_ArrayStrings** out) const {
  int result = ZDL_OK;
  const TIniKeyMap* keys = KeysToRead(owner, code, out != nullptr, result);
  if (keys == nullptr) return result;
  const auto it = keys->find(key);
  const std::vector<std::string> items =
      it == keys->end() ? std::vector<std::string>() : TClassList(it->second, TClassList::NoRepeats).Items();
  *out = m_hub.GetMemory().ConstructStrings(items);
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
