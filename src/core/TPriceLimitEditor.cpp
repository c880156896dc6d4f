#include "core/TPriceLimitEditor.h"

#include <cstring>
#include <vector>

#include "base/CodeLengths.h"
#include "base/ResultCodes.h"
#include "base/TextHelpers.h"
#include "cache/TCacheOfSecurityRestrictions.h"
#include "ini/IniSectCodes.h"

namespace DL {

namespace {
using P = TIniParser;
constexpr int kLastPriceType = 7;

const std::string& Key(P::EIniParamCodeNum code) { return P::GetIniParamCode(code); }

}  // namespace

int TPriceLimitEditor::PlaceOf(EOwner owner, const char* code, bool bySecurity, ZDL_SettingsScope scope,
                               TPlace& place) {
  if (owner != EOwner::Global) {
    if (IsNullOrEmpty(code)) return ZDL_BAD_ARGUMENT;
    if (owner == EOwner::Client && IsClientCodeLengthGreaterMaxLength(code)) return ZDL_CLIENT_CODE_TOO_LONG;
    if (owner == EOwner::Template && IsTemplateCodeLengthGreaterMaxLength(code)) return ZDL_TEMPLATE_CODE_TOO_LONG;
  }
  if (scope != 0 && scope != 1) return ZDL_WRONG_SCOPE;
  const bool soft = scope == 1;
  place.owner = owner;
  place.bySecurity = bySecurity;
  if (owner == EOwner::Global) {
    const EIniSectCodeNum section =
        bySecurity ? (soft ? iscSoft_SecPriceLimit : iscSecPriceLimit) : (soft ? iscSoft_PriceLimit : iscPriceLimit);
    place.section = std::string(IniSectName(section));
    place.prefix.clear();
    place.middleKey = Key(P::ipcMIDDLE);
    return ZDL_OK;
  }
  place.section = P::GetPartIniSectCode(P::pscCl) + code;
  if (owner == EOwner::Template) place.section += P::GetPartIniSectCode(P::psc_Client_Template);
  place.prefix = Key(bySecurity ? (soft ? P::ipcSoft_SecPriceLimit_ : P::ipcSecPriceLimit_)
                                : (soft ? P::ipcSoft_PriceLimit_ : P::ipcPriceLimit_));
  place.middleKey = Key(bySecurity ? (soft ? P::ipcSoft_SecPriceLimit_MIDDLE : P::ipcSecPriceLimit_MIDDLE)
                                   : (soft ? P::ipcSoft_PriceLimit_MIDDLE : P::ipcPriceLimit_MIDDLE));
  return ZDL_OK;
}

TIniParser::TKeyMap* TPriceLimitEditor::Keys(const TPlace& place, bool make, int* result) const {
  TIniParser::TKeyMap* keys = m_hub.GetOldParserPointer()->FindIniSectionRef(place.section);
  if (keys == nullptr && make && place.owner == EOwner::Global) {
    *result = ZDL_OK;  // made by MakeSection once the value passes
    return nullptr;
  }
  if (keys != nullptr) {
    *result = ZDL_OK;
  } else {
    *result = place.owner == EOwner::Client     ? ZDL_CLIENT_SETTINGS_NOT_EXIST
              : place.owner == EOwner::Template ? ZDL_TEMPLATE_NOT_EXIST
                                                : ZDL_NOT_FOUND;
  }
  return keys;
}

int TPriceLimitEditor::CheckCode(const TPlace& place, const char* code) {
  if (IsNullOrEmpty(code)) return ZDL_BAD_ARGUMENT;
  if (place.bySecurity) return IsSecCodeLengthGreaterMaxLength(code) ? ZDL_SEC_CODE_TOO_LONG : ZDL_OK;
  return IsClassCodeLengthGreaterMaxLength(code) ? ZDL_CLASS_CODE_TOO_LONG : ZDL_OK;
}

int TPriceLimitEditor::CheckLimit(const TPlace& place, const ZDL_PriceLimit* limit) {
  if (limit == nullptr) return ZDL_BAD_ARGUMENT;
  if (const int r = CheckCode(place, limit->classCode); r != ZDL_OK) return r;
  if (!(limit->deviation >= 0.0) || limit->priceType < 0 || limit->priceType > kLastPriceType) return ZDL_BAD_ARGUMENT;
  return ZDL_OK;
}

bool TPriceLimitEditor::IsLimitKey(const TPlace& place, const std::string& key, std::string* code) {
  const std::string up = StrUpper(key);
  const std::string prefixUp = StrUpper(place.prefix);
  if (up.size() <= prefixUp.size() || up.compare(0, prefixUp.size(), prefixUp) != 0) return false;
  const std::string rest = up.substr(prefixUp.size());
  const std::string& middleUp = P::GetPartIniParamCodeUp(P::ppc_MIDDLE);
  if (rest == StrUpper(Key(P::ipcMIDDLE))) return false;
  if (rest.size() >= middleUp.size() && rest.compare(rest.size() - middleUp.size(), middleUp.size(), middleUp) == 0)
    return false;
  if (code != nullptr) *code = rest;
  return true;
}

TIniParser::TKeyMap* TPriceLimitEditor::MakeSection(const TPlace& place, TIniParser::TKeyMap* keys) {
  if (keys != nullptr) return keys;
  return &m_hub.GetOldParserPointer()->FindOrCreateIniSection(place.section)->second;
}

void TPriceLimitEditor::Refresh(const TPlace& place) {
  TCacheOfSecurityRestrictions* cache = m_hub.m_securityRestrictions.Cache();
  if (cache == nullptr) return;
  if (place.owner == EOwner::Global)
    cache->ReparseGlobalSettings();
  else
    cache->ForgetParsedSection(place.section);
}

int TPriceLimitEditor::Add(int result, const TPlace& place, const ZDL_PriceLimit* limit) {
  if (result != ZDL_OK) return result;
  TIniParser::TKeyMap* keys = Keys(place, true, &result);
  if (result != ZDL_OK) return result;
  if (const int r = CheckLimit(place, limit); r != ZDL_OK) return r;
  keys = MakeSection(place, keys);
  const std::string code = StrUpper(limit->classCode);
  for (const auto& [key, value] : *keys) {
    std::string existing;
    if (IsLimitKey(place, key, &existing) && existing == code) return ZDL_ALREADY_EXISTS;
  }
  (*keys)[place.prefix + code] = TCacheOfSecurityRestrictions::PriceLimitItemToStr(
      TPriceLimitItem{limit->deviation, limit->priceType, limit->reject});
  Refresh(place);
  return ZDL_OK;
}

int TPriceLimitEditor::GetList(int result, const TPlace& place, ZDL_ArrayPriceLimit** limits) const {
  if (result != ZDL_OK) return result;
  if (limits == nullptr) return ZDL_BAD_ARGUMENT;
  const TIniParser::TKeyMap* keys = Keys(place, false, &result);
  if (keys == nullptr) return result;
  // The lines read as the load reads them, with the family's middle price as
  // the default of a line without a price type.
  TDeviationPercentMiddle middle;
  for (const auto& [key, value] : *keys)
    if (StrUpper(key) == StrUpper(place.middleKey))
      middle = TCacheOfSecurityRestrictions::ParseDeviationPercentMiddle(value);
  TPriceLimit parsed;
  for (const auto& [key, value] : *keys) {
    std::string code;
    if (!IsLimitKey(place, key, &code)) continue;
    TCacheOfSecurityRestrictions::ParsePriceLimit(parsed, middle, place.bySecurity ? cstSecurity : cstClass,
                                                  key.substr(place.prefix.size()), value);
  }
  ZDL_ArrayPriceLimit* array = m_hub.GetMemory().ConstructArray<ZDL_ArrayPriceLimit>(parsed.limits.size());
  size_t i = 0;
  for (const auto& [code, item] : parsed.limits) {
    array->items[i].classCode = ZDLPlain::NewText(code);
    array->items[i].deviation = item.deviation;
    array->items[i].priceType = item.priceType;
    array->items[i].reject = item.reject;
    ++i;
  }
  *limits = array;
  return ZDL_OK;
}

int TPriceLimitEditor::GetMiddle(int result, const TPlace& place, int* priceType) const {
  if (result != ZDL_OK) return result;
  if (priceType == nullptr) return ZDL_BAD_ARGUMENT;
  const TIniParser::TKeyMap* keys = Keys(place, false, &result);
  if (keys == nullptr) return result;
  *priceType = 0;
  for (const auto& [key, value] : *keys)
    if (StrUpper(key) == StrUpper(place.middleKey))
      *priceType = TCacheOfSecurityRestrictions::ParseDeviationPercentMiddle(value).priceType;
  return ZDL_OK;
}

int TPriceLimitEditor::Remove(int result, const TPlace& place, const char* code) {
  if (result != ZDL_OK) return result;
  TIniParser::TKeyMap* keys = Keys(place, false, &result);
  if (keys == nullptr) return result;
  if (const int r = CheckCode(place, code); r != ZDL_OK) return r;
  const std::string wanted = StrUpper(code);
  for (auto it = keys->begin(); it != keys->end(); ++it) {
    std::string existing;
    if (IsLimitKey(place, it->first, &existing) && existing == wanted) {
      keys->erase(it);
      Refresh(place);
      return ZDL_OK;
    }
  }
  return ZDL_NOT_FOUND;
}

int TPriceLimitEditor::SetList(int result, const TPlace& place, const ZDL_ArrayPriceLimit* limits) {
  if (result != ZDL_OK) return result;
  TIniParser::TKeyMap* keys = Keys(place, true, &result);
  if (result != ZDL_OK) return result;
  const uint64_t count = limits == nullptr ? 0 : limits->count;
  for (uint64_t i = 0; i < count; ++i)
    if (const int r = CheckLimit(place, &limits->items[i]); r != ZDL_OK) return r;
  keys = MakeSection(place, keys);
  std::erase_if(*keys, [&](const auto& entry) { return IsLimitKey(place, entry.first, nullptr); });
  int outcome = ZDL_OK;
  for (uint64_t i = 0; i < count && outcome == ZDL_OK; ++i) {
    const ZDL_PriceLimit& limit = limits->items[i];
    const std::string key = place.prefix + StrUpper(limit.classCode);
    if (keys->count(key) != 0) {
      outcome = ZDL_ALREADY_EXISTS;  // a code twice: the lines before it stay
      break;
    }
    (*keys)[key] = TCacheOfSecurityRestrictions::PriceLimitItemToStr(
        TPriceLimitItem{limit.deviation, limit.priceType, limit.reject});
  }
  Refresh(place);
  return outcome;
}

int TPriceLimitEditor::SetMiddle(int result, const TPlace& place, int priceType) {
  if (result != ZDL_OK) return result;
  TIniParser::TKeyMap* keys = Keys(place, true, &result);
  if (result != ZDL_OK) return result;
  if (priceType < 0 || priceType > kLastPriceType) return ZDL_BAD_ARGUMENT;
  keys = MakeSection(place, keys);
  TDeviationPercentMiddle middle;
  auto it = keys->begin();
  for (; it != keys->end(); ++it)
    if (StrUpper(it->first) == StrUpper(place.middleKey)) break;
  if (it != keys->end()) middle = TCacheOfSecurityRestrictions::ParseDeviationPercentMiddle(it->second);
  middle.priceType = priceType;
  const std::string text = TCacheOfSecurityRestrictions::DeviationPercentMiddleToStr(middle);
  if (it != keys->end()) keys->erase(it);
  if (!text.empty()) (*keys)[place.middleKey] = text;
  Refresh(place);
  return ZDL_OK;
}

// ---- The commands ----

#define ZDL_PRICE_LIMIT_BODIES_(Owner, Family, Item, OwnerKind, BySecurity, OwnerParam, OwnerArg, MiddleScope)         \
  int TPriceLimitEditor::Add##Item##SettingsTo##Owner##Family(ZDL_SettingsScope scope OwnerParam,                      \
                                                              const ZDL_PriceLimit* limit) {                           \
    TPlace place;                                                                                                      \
    const int result = PlaceOf(OwnerKind, OwnerArg, BySecurity, scope, place);                                         \
    return Add(result, place, limit);                                                                                  \
  }                                                                                                                    \
  int TPriceLimitEditor::GetSettingListFrom##Owner##Family(ZDL_SettingsScope scope OwnerParam,                         \
                                                           ZDL_ArrayPriceLimit** limits) const {                       \
    TPlace place;                                                                                                      \
    const int result = PlaceOf(OwnerKind, OwnerArg, BySecurity, scope, place);                                         \
    return GetList(result, place, limits);                                                                             \
  }                                                                                                                    \
  int TPriceLimitEditor::GetMiddlePriceFrom##Owner##Family(ZDL_SettingsScope scope OwnerParam, int* priceType) const { \
    TPlace place;                                                                                                      \
    const int result = PlaceOf(OwnerKind, OwnerArg, BySecurity, MiddleScope, place);                                   \
    return GetMiddle(result, place, priceType);                                                                        \
  }                                                                                                                    \
  int TPriceLimitEditor::Remove##Item##SettingsFrom##Owner##Family(ZDL_SettingsScope scope OwnerParam,                 \
                                                                   const char* code) {                                 \
    TPlace place;                                                                                                      \
    const int result = PlaceOf(OwnerKind, OwnerArg, BySecurity, scope, place);                                         \
    return Remove(result, place, code);                                                                                \
  }                                                                                                                    \
  int TPriceLimitEditor::SetSettingListTo##Owner##Family(ZDL_SettingsScope scope OwnerParam,                           \
                                                         const ZDL_ArrayPriceLimit* limits) {                          \
    TPlace place;                                                                                                      \
    const int result = PlaceOf(OwnerKind, OwnerArg, BySecurity, scope, place);                                         \
    return SetList(result, place, limits);                                                                             \
  }                                                                                                                    \
  int TPriceLimitEditor::SetMiddlePriceTo##Owner##Family(ZDL_SettingsScope scope OwnerParam, int priceType) {          \
    TPlace place;                                                                                                      \
    const int result = PlaceOf(OwnerKind, OwnerArg, BySecurity, MiddleScope, place);                                   \
    return SetMiddle(result, place, priceType);                                                                        \
  }
#define ZDL_PRICE_LIMIT_NO_OWNER_
#define ZDL_PRICE_LIMIT_CLIENT_ , const char* clientCode
#define ZDL_PRICE_LIMIT_TEMPLATE_ , const char* templateCode
// A client's middle price has no soft twin: its scope 1 is refused like any
// other but 0.
#define ZDL_PRICE_LIMIT_CLIENT_MIDDLE_SCOPE_ (scope == 0 ? 0 : -1)
ZDL_PRICE_LIMIT_BODIES_(Global, PriceLimit, Class, EOwner::Global, false, ZDL_PRICE_LIMIT_NO_OWNER_, nullptr, scope)
ZDL_PRICE_LIMIT_BODIES_(Global, SecPriceLimit, Security, EOwner::Global, true, ZDL_PRICE_LIMIT_NO_OWNER_, nullptr,
                        scope)
ZDL_PRICE_LIMIT_BODIES_(ClientSettings, PriceLimit, Class, EOwner::Client, false, ZDL_PRICE_LIMIT_CLIENT_, clientCode,
                        ZDL_PRICE_LIMIT_CLIENT_MIDDLE_SCOPE_)
ZDL_PRICE_LIMIT_BODIES_(ClientSettings, SecPriceLimit, Security, EOwner::Client, true, ZDL_PRICE_LIMIT_CLIENT_,
                        clientCode, ZDL_PRICE_LIMIT_CLIENT_MIDDLE_SCOPE_)
ZDL_PRICE_LIMIT_BODIES_(ClientTemplate, PriceLimit, Class, EOwner::Template, false, ZDL_PRICE_LIMIT_TEMPLATE_,
                        templateCode, scope)
ZDL_PRICE_LIMIT_BODIES_(ClientTemplate, SecPriceLimit, Security, EOwner::Template, true, ZDL_PRICE_LIMIT_TEMPLATE_,
                        templateCode, scope)
#undef ZDL_PRICE_LIMIT_BODIES_
#undef ZDL_PRICE_LIMIT_NO_OWNER_
#undef ZDL_PRICE_LIMIT_CLIENT_
#undef ZDL_PRICE_LIMIT_TEMPLATE_
#undef ZDL_PRICE_LIMIT_CLIENT_MIDDLE_SCOPE_

}  // namespace DL
