#include "core/TLimitKindsEditor.h"

#include <algorithm>
#include <cstdlib>

#include "base/ResultCodes.h"
#include "base/TClassList.h"
#include "base/TMemory.h"
#include "ini/IniSectCodes.h"

namespace DL {

namespace {
const std::string& Key() { return TIniParser::GetIniParamCode(TIniParser::ipcLimitKinds); }
const std::string& GeneralSection() {
  static const std::string name(IniSectName(iscGeneral));
  return name;
}
}  // namespace

std::vector<int> TLimitKindsEditor::Read(const TIniKeyMap& keys) {
  std::vector<int> values;
  const auto it = keys.find(Key());
  if (it == keys.end()) return values;
  const TClassList items(it->second, TClassList::NoRepeats);
  for (const std::string& item : items.Items()) {
    char* end = nullptr;
    const long value = std::strtol(item.c_str(), &end, 10);
    // What the margin settings would not read as a limit kind is left out.
    if (end != item.c_str() && *end == '\0' && value >= 0) values.push_back(static_cast<int>(value));
  }
  return values;
}

int TLimitKindsEditor::Text(const ZDL_ArrayIntNumbers* kinds, std::string& text) {
  if (kinds == nullptr) return ZDL_BAD_ARGUMENT;
  std::vector<int> values;
  for (std::uint64_t i = 0; i < kinds->count; ++i) {
    const int value = kinds->items[i];
    if (value < 0) return ZDL_BAD_ARGUMENT;
    if (std::find(values.begin(), values.end(), value) == values.end()) values.push_back(value);
  }
  text.clear();
  for (int value : values) text += (text.empty() ? "" : ",") + std::to_string(value);
  return ZDL_OK;
}

void TLimitKindsEditor::Write(TIniKeyMap& keys, const std::string& text) {
  if (text.empty())
    keys.erase(Key());
  else
    keys[Key()] = text;
}

ZDL_ArrayIntNumbers* TLimitKindsEditor::NewInts(const std::vector<int>& values) const {
  ZDL_ArrayIntNumbers* array = m_hub.GetMemory().ConstructArray<ZDL_ArrayIntNumbers>(values.size());
  std::copy(values.begin(), values.end(), array->items);
  return array;
}

int TLimitKindsEditor::GetGlobalLimitKinds(ZDL_ArrayIntNumbers** kinds) const {
  if (kinds == nullptr) return ZDL_BAD_ARGUMENT;
  const TIniKeyMap* general = m_hub.GetParser().FindIniSectionRef(GeneralSection());
  if (general == nullptr) return ZDL_NOT_FOUND;
  *kinds = NewInts(Read(*general));
  return ZDL_OK;
}

int TLimitKindsEditor::SetGlobalLimitKinds(ZDL_ArrayIntNumbers* kinds) {
  std::string text;
  if (int r = Text(kinds, text); r != ZDL_OK) return r;
  Write(m_hub.GetOldParserPointer()->FindOrCreateIniSection(GeneralSection())->second, text);
  return ZDL_OK;
}

int TLimitKindsEditor::GetOwner(TOwnerSection::EOwner owner, const char* code, ZDL_ArrayIntNumbers** kinds) const {
  int result = ZDL_OK;
  const TIniKeyMap* keys = TOwnerSection(m_hub, owner).Find(code, result);
  if (keys == nullptr) return result;
  if (kinds == nullptr) return ZDL_BAD_ARGUMENT;
  *kinds = NewInts(Read(*keys));
  return ZDL_OK;
}

int TLimitKindsEditor::SetOwner(TOwnerSection::EOwner owner, const char* code, ZDL_ArrayIntNumbers* kinds) {
  TOwnerSection section(m_hub, owner);
  int result = ZDL_OK;
  TIniKeyMap* keys = section.Find(code, result);
  if (keys == nullptr) return result;
  std::string text;
  if (int r = Text(kinds, text); r != ZDL_OK) return r;
  Write(*keys, text);
  section.Forget(code);
  return ZDL_OK;
}

}  // namespace DL
