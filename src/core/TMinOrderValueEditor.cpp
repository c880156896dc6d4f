#include "core/TMinOrderValueEditor.h"

#include <cstdlib>
#include <cstring>
#include <vector>

#include "base/CodeLengths.h"
#include "base/KeyParsers.h"
#include "base/ResultCodes.h"
#include "base/TextHelpers.h"
#include "ini/IniSectCodes.h"

namespace DL {

namespace {

const std::string& Part(TIniParser::EPartIniSectCodeNum code) { return TIniParser::GetPartIniSectCode(code); }

// The codes of a list as a set: 3 for a null or empty code, `tooLong` for
// one longer than its kind allows.
int CodesOf(const ZDL_ArrayStrings& list, bool (*isTooLong)(const char*), int tooLong, std::set<std::string>& out) {
  for (uint64_t i = 0; i < list.count; ++i) {
    const char* code = list.items == nullptr ? nullptr : list.items[i];
    if (IsNullOrEmpty(code)) return ZDL_BAD_ARGUMENT;
    if (isTooLong(code)) return tooLong;
    out.insert(code);
  }
  return ZDL_OK;
}

// The class list and security list of a row's key (after the owner's
// prefix): the lists before and behind "_INSTR_", or the whole key as the
// class list of a row without securities.
void ListsOfKey(const std::string& key, std::set<std::string>& classes, std::set<std::string>& securities) {
  classes.clear();
  securities.clear();
  if (Utils::GetClassListAndSecListFromString(key, classes, securities)) return;
  ParseRowWithDelimsToListRows(key, ',', classes);
}

// Whether the key (after the owner's prefix) is a row of the family.
bool HasPrefix(const std::string& key, const std::string& prefixUp) {
  return key.size() >= prefixUp.size() && StrUpper(std::string_view(key).substr(0, prefixUp.size())) == prefixUp;
}

void FillStrings(ZDL_ArrayStrings& out, const std::set<std::string>& in) {
  out.count = in.size();
  out.items = in.empty() ? nullptr : new char*[in.size()]();
  size_t i = 0;
  for (const std::string& s : in) out.items[i++] = ZDLPlain::NewText(s);
}
}  // namespace

TMinOrderValueEditor::TOwner TMinOrderValueEditor::Global() {
  return TOwner{std::string(IniSectName(iscOrderMinValue)), "", true, ZDL_NOT_FOUND};
}

int TMinOrderValueEditor::ClientOwner(const char* clientCode, TOwner& owner) {
  if (IsNullOrEmpty(clientCode)) return ZDL_BAD_ARGUMENT;
  if (IsClientCodeLengthGreaterMaxLength(clientCode)) return ZDL_CLIENT_CODE_TOO_LONG;
  owner = TOwner{Part(TIniParser::pscCl) + clientCode, TIniParser::GetIniParamCode(TIniParser::ipcOrderMinValue_),
                 false, ZDL_CLIENT_SETTINGS_NOT_EXIST};
  return ZDL_OK;
}

int TMinOrderValueEditor::TemplateOwner(const char* templateCode, int kind, TOwner& owner) {
  if (IsNullOrEmpty(templateCode)) return ZDL_BAD_ARGUMENT;
  if (IsTemplateCodeLengthGreaterMaxLength(templateCode)) return ZDL_TEMPLATE_CODE_TOO_LONG;
  TIniParser::EPartIniSectCodeNum ending{};
  if (TIniParser::GetPartIniSectCodeNum__XXX_Template(ending, kind) != ZDL_OK) return ZDL_TEMPLATE_NOT_EXIST;
  owner = TOwner{Part(TIniParser::pscCl) + templateCode + Part(ending),
                 TIniParser::GetIniParamCode(TIniParser::ipcOrderMinValue_), false, ZDL_TEMPLATE_NOT_EXIST};
  return ZDL_OK;
}

int TMinOrderValueEditor::MakeRow(const ZDL_MinOrderValue* item, TRow& row) {
  if (item == nullptr || item->lsClasses.count == 0) return ZDL_BAD_ARGUMENT;
  if (item->lsInstruments.count == 0 && item->lsInstruments.items != nullptr) return ZDL_BAD_ARGUMENT;
  if (const int r = CodesOf(item->lsClasses, &IsClassCodeLengthGreaterMaxLength, ZDL_CLASS_CODE_TOO_LONG, row.classes);
      r != ZDL_OK)
    return r;
  if (const int r =
          CodesOf(item->lsInstruments, &IsSecCodeLengthGreaterMaxLength, ZDL_SEC_CODE_TOO_LONG, row.securities);
      r != ZDL_OK)
    return r;
  const std::string currency = item->currency == nullptr ? "" : item->currency;
  if (IsCurrCodeLengthGreaterMaxLength(currency)) return ZDL_CURR_CODE_TOO_LONG;
  row.key = GetRowWithDelimsFromListRows(row.classes);
  if (!row.securities.empty())
    row.key += TIniParser::GetIniParamCode(TIniParser::ipc_INSTR_) + GetRowWithDelimsFromListRows(row.securities);
  row.value = DoubleToString(item->value);
  if (!currency.empty()) row.value += "," + currency;
  return ZDL_OK;
}

TIniParser::TKeyMap* TMinOrderValueEditor::Keys(const TOwner& owner, int* result) {
  TIniParser* parser = m_hub.GetOldParserPointer();
  TIniParser::TKeyMap* keys = parser->FindIniSectionRef(owner.section);
  if (keys == nullptr && owner.makeSection) keys = &parser->FindOrCreateIniSection(owner.section)->second;
  *result = keys == nullptr ? owner.missing : ZDL_OK;
  return keys;
}

int TMinOrderValueEditor::Collides(const TIniParser::TKeyMap& keys, const std::string& prefix, const TRow& row) {
  const std::string prefixUp = StrUpper(prefix);
  const std::string keyUp = StrUpper(row.key);
  for (const auto& [key, value] : keys) {
    if (!HasPrefix(key, prefixUp)) continue;
    const std::string rest = key.substr(prefix.size());
    if (StrUpper(rest) == keyUp) return ZDL_ALREADY_EXISTS;
    std::set<std::string> classes, securities;
    ListsOfKey(rest, classes, securities);
    std::string common;
    if (Utils::FindStringsIntersection(classes, row.classes, common) &&
        Utils::FindStringsIntersection(securities, row.securities, common))
      return ZDL_ALREADY_EXISTS;
  }
  return ZDL_OK;
}

int TMinOrderValueEditor::GetBody(int result, const TOwner& owner, ZDL_SettingsScope scope, const char* classCode,
                                  ZDL_ArrayMinOrderValue** rows) const {
  if (result != ZDL_OK) return result;
  if (rows == nullptr) return ZDL_BAD_ARGUMENT;
  if (scope != 0) return ZDL_WRONG_SCOPE;
  const TIniParser::TKeyMap* keys = m_hub.GetOldParserPointer()->FindIniSectionRef(owner.section);
  if (keys == nullptr) return owner.missing;
  const std::string prefixUp = StrUpper(owner.prefix);
  const std::string wanted = classCode == nullptr ? "" : classCode;
  struct TFound {
    std::set<std::string> classes, securities;
    double value = 0;
    std::string currency;
  };
  std::vector<TFound> found;
  for (const auto& [key, value] : *keys) {
    if (!HasPrefix(key, prefixUp)) continue;
    TFound f;
    ListsOfKey(key.substr(owner.prefix.size()), f.classes, f.securities);
    if (!wanted.empty() && f.classes.count(wanted) == 0 &&
        f.classes.count(TIniParser::GetIniParamCode(TIniParser::ipcReserved_ALL)) == 0)
      continue;
    const size_t comma = value.find(',');
    f.value = std::strtod(value.substr(0, comma).c_str(), nullptr);
    if (comma != std::string::npos) f.currency = TrimStr(std::string_view(value).substr(comma + 1));
    found.push_back(std::move(f));
  }
  ZDL_ArrayMinOrderValue* array = m_hub.GetMemory().ConstructArray<ZDL_ArrayMinOrderValue>(found.size());
  for (size_t i = 0; i < found.size(); ++i) {
    FillStrings(array->items[i].lsClasses, found[i].classes);
    FillStrings(array->items[i].lsInstruments, found[i].securities);
    array->items[i].value = found[i].value;
    array->items[i].currency = ZDLPlain::NewText(found[i].currency);
  }
  *rows = array;
  return ZDL_OK;
}

int TMinOrderValueEditor::AddBody(int result, const TOwner& owner, ZDL_SettingsScope scope,
                                  const ZDL_MinOrderValue* item) {
  if (result != ZDL_OK) return result;
  TRow row;
  if (const int r = MakeRow(item, row); r != ZDL_OK) return r;
  if (scope != 0) return ZDL_WRONG_SCOPE;
  TIniParser::TKeyMap* keys = Keys(owner, &result);
  if (keys == nullptr) return result;
  if (const int r = Collides(*keys, owner.prefix, row); r != ZDL_OK) return r;
  (*keys)[owner.prefix + row.key] = row.value;
  return ZDL_OK;
}

int TMinOrderValueEditor::SetBody(int result, const TOwner& owner, ZDL_SettingsScope scope,
                                  const ZDL_ArrayMinOrderValue* items) {
  if (result != ZDL_OK) return result;
  std::vector<TRow> rows(items == nullptr ? 0 : items->count);
  for (size_t i = 0; i < rows.size(); ++i)
    if (const int r = MakeRow(&items->items[i], rows[i]); r != ZDL_OK) return r;
  if (scope != 0) return ZDL_WRONG_SCOPE;
  TIniParser::TKeyMap* keys = Keys(owner, &result);
  if (keys == nullptr) return result;
  const std::string prefixUp = StrUpper(owner.prefix);
  std::erase_if(*keys, [&](const auto& entry) { return HasPrefix(entry.first, prefixUp); });
  for (const TRow& row : rows) {
    if (const int r = Collides(*keys, owner.prefix, row); r != ZDL_OK) return r;
    (*keys)[owner.prefix + row.key] = row.value;
  }
  return ZDL_OK;
}

int TMinOrderValueEditor::RemoveBody(int result, const TOwner& owner, ZDL_SettingsScope scope,
                                     const ZDL_MinOrderValue* item) {
  if (result != ZDL_OK) return result;
  TRow row;
  if (const int r = MakeRow(item, row); r != ZDL_OK) return r;
  if (scope != 0) return ZDL_WRONG_SCOPE;
  TIniParser::TKeyMap* keys = m_hub.GetOldParserPointer()->FindIniSectionRef(owner.section);
  if (keys == nullptr) return owner.missing;
  const std::string prefixUp = StrUpper(owner.prefix);
  for (auto it = keys->begin(); it != keys->end(); ++it) {
    if (!HasPrefix(it->first, prefixUp)) continue;
    std::set<std::string> classes, securities;
    ListsOfKey(it->first.substr(owner.prefix.size()), classes, securities);
    if (classes == row.classes && securities == row.securities) {
      keys->erase(it);
      return ZDL_OK;
    }
  }
  return ZDL_NOT_FOUND;
}

// ---- The owners ----
// Each command finds its owner, then runs the family's body; `extra` is the
// class code of a client's reading, null elsewhere.

#define ZDL_MIN_ORDER_VALUE_OWNER_(Owner, OwnerParam, FindOwner, extra)                        \
  int TMinOrderValueEditor::GetMinOrderValueFrom##Owner(ZDL_SettingsScope scope OwnerParam,    \
                                                        ZDL_ArrayMinOrderValue** rows) const { \
    TOwner owner;                                                                              \
    const int result = FindOwner;                                                              \
    return GetBody(result, owner, scope, extra, rows);                                         \
  }                                                                                            \
  int TMinOrderValueEditor::AddMinOrderValueTo##Owner(ZDL_SettingsScope scope OwnerParam,      \
                                                      const ZDL_MinOrderValue* row) {          \
    TOwner owner;                                                                              \
    const int result = FindOwner;                                                              \
    return AddBody(result, owner, scope, row);                                                 \
  }                                                                                            \
  int TMinOrderValueEditor::SetMinOrderValueTo##Owner(ZDL_SettingsScope scope OwnerParam,      \
                                                      const ZDL_ArrayMinOrderValue* rows) {    \
    TOwner owner;                                                                              \
    const int result = FindOwner;                                                              \
    return SetBody(result, owner, scope, rows);                                                \
  }                                                                                            \
  int TMinOrderValueEditor::RemoveMinOrderValueFrom##Owner(ZDL_SettingsScope scope OwnerParam, \
                                                           const ZDL_MinOrderValue* row) {     \
    TOwner owner;                                                                              \
    const int result = FindOwner;                                                              \
    return RemoveBody(result, owner, scope, row);                                              \
  }
#define ZDL_MOV_NONE_
#define ZDL_MOV_TEMPLATE_ , const char* templateCode

ZDL_MIN_ORDER_VALUE_OWNER_(Global, ZDL_MOV_NONE_, (owner = Global(), ZDL_OK), nullptr)
ZDL_MIN_ORDER_VALUE_OWNER_(ClientTemplate, ZDL_MOV_TEMPLATE_,
                           TemplateOwner(templateCode, TIniParser::TemplateClient, owner), nullptr)
ZDL_MIN_ORDER_VALUE_OWNER_(RestrictionTemplate, ZDL_MOV_TEMPLATE_,
                           TemplateOwner(templateCode, TIniParser::TemplateRestriction, owner), nullptr)
#undef ZDL_MIN_ORDER_VALUE_OWNER_
#undef ZDL_MOV_NONE_
#undef ZDL_MOV_TEMPLATE_

// A client's reading takes the class code besides the owner, so its four
// commands are written out.
int TMinOrderValueEditor::GetMinOrderValueFromClientSettings(ZDL_SettingsScope scope, const char* clientCode,
                                                             const char* classCode,
                                                             ZDL_ArrayMinOrderValue** rows) const {
  TOwner owner;
  const int result = ClientOwner(clientCode, owner);
  return GetBody(result, owner, scope, classCode, rows);
}
int TMinOrderValueEditor::AddMinOrderValueToClientSettings(ZDL_SettingsScope scope, const char* clientCode,
                                                           const ZDL_MinOrderValue* row) {
  TOwner owner;
  const int result = ClientOwner(clientCode, owner);
  return AddBody(result, owner, scope, row);
}
int TMinOrderValueEditor::SetMinOrderValueToClientSettings(ZDL_SettingsScope scope, const char* clientCode,
                                                           const ZDL_ArrayMinOrderValue* rows) {
  TOwner owner;
  const int result = ClientOwner(clientCode, owner);
  return SetBody(result, owner, scope, rows);
}
int TMinOrderValueEditor::RemoveMinOrderValueFromClientSettings(ZDL_SettingsScope scope, const char* clientCode,
                                                                const ZDL_MinOrderValue* row) {
  TOwner owner;
  const int result = ClientOwner(clientCode, owner);
  return RemoveBody(result, owner, scope, row);
}

}  // namespace DL
