#include "core/TOwnerSection.h"

#include "base/CodeLengths.h"
#include "base/ResultCodes.h"
#include "base/TextHelpers.h"
#include "cache/TCacheOfClientMarginRestrictions.h"
#include "cache/TCacheOfSecurityRestrictions.h"
#include "commission/TCacheOfClientSettings.h"
#include "core/TStorageHub.h"

namespace DL {

namespace {
using P = TIniParser;
}  // namespace

int TOwnerSection::Name(const char* code, std::string& name) const {
  if (IsNullOrEmpty(code)) return ZDL_BAD_ARGUMENT;
  if (IsClient() ? IsClientCodeLengthGreaterMaxLength(code) : IsTemplateCodeLengthGreaterMaxLength(code))
    return IsClient() ? ZDL_CLIENT_CODE_TOO_LONG : ZDL_TEMPLATE_CODE_TOO_LONG;
  name = P::GetPartIniSectCode(P::pscCl) + code;
  switch (m_owner) {
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

const TIniKeyMap* TOwnerSection::Find(const char* code, int& result) const {
  std::string name;
  result = Name(code, name);
  if (result != ZDL_OK) return nullptr;
  const TIniKeyMap* keys = m_hub.GetParser().FindIniSectionRef(name);
  if (keys == nullptr) result = IsClient() ? ZDL_CLIENT_SETTINGS_NOT_EXIST : ZDL_TEMPLATE_NOT_EXIST;
  return keys;
}

TIniKeyMap* TOwnerSection::Find(const char* code, int& result) {
  std::string name;
  result = Name(code, name);
  if (result != ZDL_OK) return nullptr;
  TIniKeyMap* keys = m_hub.GetOldParserPointer()->FindIniSectionRef(name);
  if (keys == nullptr) result = IsClient() ? ZDL_CLIENT_SETTINGS_NOT_EXIST : ZDL_TEMPLATE_NOT_EXIST;
  return keys;
}

void TOwnerSection::Forget(const char* code) {
  std::string section;
  if (Name(code, section) != ZDL_OK) return;
  switch (m_owner) {
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

}  // namespace DL
