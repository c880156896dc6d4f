// The security restrictions component: the rendering
// of the settings it holds. A rendering function writes every key of its
// setting at once: with a parsed client or template object (the save's
// steps 1 and 2) the lines of that section, without the key text of the
// section; without one, the global section from the cache's global object,
// header included.
#include <memory>

#include "base/TextHelpers.h"
#include "core/TSecurityRestrictionSettings.h"

namespace DL {

namespace {

using P = TIniParser;

void AppendLine(std::string& out, std::string_view name, std::string_view value) {
  out += name;
  out += '=';
  out += value;
  out += '\n';
}

// A global section: the header and the lines; nothing when there are none.
void AppendSection(std::string& out, const std::string& section, const std::string& lines) {
  if (lines.empty()) return;
  out += '[';
  out += section;
  out += "]\n";
  out += lines;
}

// The key of a client line: the parameter's name (a prefix) then the rest;
// a global line has the rest alone.
std::string KeyOf(bool client, P::EIniParamCodeNum param, const std::string& rest) {
  return client ? P::GetIniParamCode(param) + rest : rest;
}

void PartnersToStr(std::string& out, bool client, P::EIniParamCodeNum param, const TPartnersAndSettleCodes& items) {
  for (const auto& [key, codes] : items.Items())
    AppendLine(out, KeyOf(client, param, TPartnersAndSettleCodes::KeyToStr(key)),
               TPartnersAndSettleCodes::CodesToStr(codes));
}

// A client writes "PriceLimit_MIDDLE", "PriceLimit_<item>_MIDDLE" and
// "PriceLimit_<item>"; a global section "MIDDLE", "<item>_MIDDLE", "<item>".
void PriceLimitToStr(std::string& out, bool client, P::EIniParamCodeNum param, P::EIniParamCodeNum middleParam,
                     const TPriceLimit& limit, const TDeviationPercentMiddle& def) {
  const std::string middle = TCacheOfSecurityRestrictions::DeviationPercentMiddleToStr(def);
  if (!middle.empty())
    AppendLine(out, client ? P::GetIniParamCode(middleParam) : P::GetIniParamCode(P::ipcMIDDLE), middle);
  const std::string& middleSuffix = P::GetPartIniParamCode(P::ppc_MIDDLE);
  for (const auto& [item, priceType] : limit.middles)
    AppendLine(out, KeyOf(client, param, item + middleSuffix), P::GetPriceTypeString(priceType));
  for (const auto& [item, value] : limit.limits)
    AppendLine(out, KeyOf(client, param, item), TCacheOfSecurityRestrictions::PriceLimitItemToStr(value));
}

// A client writes "<class>_RESTRICTOPEN" and its like; a global section the
// class alone.
void ClassToListToStr(std::string& out, bool client, P::EIniParamCodeNum suffix,
                      const TClientSecurityRestrictions::TClassToList& lists) {
  for (const auto& [cls, list] : lists) AppendLine(out, client ? cls + P::GetIniParamCode(suffix) : cls, list.ToStr());
}

// The object a rendering function writes from: the parsed one of the
// section being written (the lines of a client or template section), or
// else the cache's global object (a whole global section, header included).
template <class F>
void RenderSecurityRestrictions(std::string& out, const TSettingToStrSource& src,
                                const TCacheOfSecurityRestrictions* cache, F&& writeLines) {
  const bool client = src.securityRestrictions != nullptr;
  const TClientSecurityRestrictions* object =
      client ? src.securityRestrictions : (cache != nullptr ? cache->GetGlobalSettings() : nullptr);
  if (object == nullptr) return;
  std::string lines;
  writeLines(lines, client, *object);
  if (client)
    out += lines;
  else
    AppendSection(out, src.section, lines);
}

// The section given, header and lines, as it stands; nothing when empty.
void RawSection(std::string& out, const TSettingToStrSource& src) {
  std::string lines;
  if (src.keys != nullptr)
    for (const auto& [key, value] : *src.keys) AppendLine(lines, key, value);
  AppendSection(out, src.section, lines);
}

}  // namespace

// ---- Rendering ----

void TSecurityRestrictionSettings::SettingToStrSectionRestrictSecurity(std::string& out, const TSettingToStrSource& src) const {
  const TClientSecurityRestrictions* global =
      m_cache ? m_cache->GetGlobalSettings() : nullptr;
  if (global == nullptr) return;
  std::string lines;
  ClassToListToStr(lines, false, P::ipc_RESTSECURITY, global->restSecurity);
  AppendSection(out, src.section, lines);
}

void TSecurityRestrictionSettings::SettingToStrAllowedPartnersAndSettleCodesToClientTemplate(std::string& out,
                                                                            const TSettingToStrSource& src) const {
  RenderSecurityRestrictions(out, src, m_cache.get(),
                             [&](std::string& lines, bool client, const TClientSecurityRestrictions& o) {
                               PartnersToStr(lines, client, P::ipcAllowedPartnersAndSettleCodes_,
                                             o.allowedPartnersAndSettleCodes);
                             });
}

void TSecurityRestrictionSettings::SettingToStrProhibitedPartnersAndSettleCodesToClientTemplate(std::string& out,
                                                                               const TSettingToStrSource& src) const {
  RenderSecurityRestrictions(out, src, m_cache.get(),
                             [&](std::string& lines, bool client, const TClientSecurityRestrictions& o) {
                               PartnersToStr(lines, client, P::ipcProhibitedPartnersAndSettleCodes_,
                                             o.prohibitedPartnersAndSettleCodes);
                             });
}

void TSecurityRestrictionSettings::SettingToStrSoft_ProhibitedPartnersAndSettleCodesToClientTemplate(
    std::string& out, const TSettingToStrSource& src) const {
  RenderSecurityRestrictions(out, src, m_cache.get(),
                             [&](std::string& lines, bool client, const TClientSecurityRestrictions& o) {
                               PartnersToStr(lines, client, P::ipcSoft_ProhibitedPartnersAndSettleCodes_,
                                             o.softProhibitedPartnersAndSettleCodes);
                             });
}

void TSecurityRestrictionSettings::SettingToStrPriceLimitToClientTemplate(std::string& out, const TSettingToStrSource& src) const {
  RenderSecurityRestrictions(out, src, m_cache.get(),
                             [&](std::string& lines, bool client, const TClientSecurityRestrictions& o) {
                               PriceLimitToStr(lines, client, P::ipcPriceLimit_, P::ipcPriceLimit_MIDDLE, o.priceLimit,
                                               o.priceLimitMiddle);
                             });
}

void TSecurityRestrictionSettings::SettingToStrSecPriceLimitToClientTemplate(std::string& out, const TSettingToStrSource& src) const {
  RenderSecurityRestrictions(out, src, m_cache.get(),
                             [&](std::string& lines, bool client, const TClientSecurityRestrictions& o) {
                               PriceLimitToStr(lines, client, P::ipcSecPriceLimit_, P::ipcSecPriceLimit_MIDDLE,
                                               o.secPriceLimit, o.secPriceLimitMiddle);
                             });
}

void TSecurityRestrictionSettings::SettingToStrSoft_PriceLimitToClientTemplate(std::string& out, const TSettingToStrSource& src) const {
  RenderSecurityRestrictions(out, src, m_cache.get(),
                             [&](std::string& lines, bool client, const TClientSecurityRestrictions& o) {
                               PriceLimitToStr(lines, client, P::ipcSoft_PriceLimit_, P::ipcSoft_PriceLimit_MIDDLE,
                                               o.softPriceLimit, o.softPriceLimitMiddle);
                             });
}

void TSecurityRestrictionSettings::SettingToStrSoft_SecPriceLimitToClientTemplate(std::string& out,
                                                                 const TSettingToStrSource& src) const {
  RenderSecurityRestrictions(out, src, m_cache.get(),
                             [&](std::string& lines, bool client, const TClientSecurityRestrictions& o) {
                               PriceLimitToStr(lines, client, P::ipcSoft_SecPriceLimit_,
                                               P::ipcSoft_SecPriceLimit_MIDDLE, o.softSecPriceLimit,
                                               o.softSecPriceLimitMiddle);
                             });
}

void TSecurityRestrictionSettings::SettingToStrRestrictOpenSecurityToClientTemplate(std::string& out,
                                                                   const TSettingToStrSource& src) const {
  RenderSecurityRestrictions(out, src, m_cache.get(),
                             [&](std::string& lines, bool client, const TClientSecurityRestrictions& o) {
                               ClassToListToStr(lines, client, P::ipc_RESTRICTOPEN, o.restrictOpen);
                             });
}

// The settings below are read from client and template sections only: a
// global section of their name has no parsed home and is copied as it
// stands.

void TSecurityRestrictionSettings::SettingToStrAllowedPartnersToClientTemplate(std::string& out, const TSettingToStrSource& src) const {
  if (src.securityRestrictions == nullptr) return RawSection(out, src);
  if (!src.securityRestrictions->allowedPartners.Empty())
    AppendLine(out, P::GetIniParamCode(P::ipcAllowedPartners), src.securityRestrictions->allowedPartners.ToStr());
}

void TSecurityRestrictionSettings::SettingToStrProhibitedPartnersToClientTemplate(std::string& out,
                                                                 const TSettingToStrSource& src) const {
  if (src.securityRestrictions == nullptr) return RawSection(out, src);
  if (!src.securityRestrictions->prohibitedPartners.Empty())
    AppendLine(out, P::GetIniParamCode(P::ipcProhibitedPartners), src.securityRestrictions->prohibitedPartners.ToStr());
}

void TSecurityRestrictionSettings::SettingToStrAddMultiCurrencyToClientTemplate(std::string& out, const TSettingToStrSource& src) const {
  if (src.securityRestrictions == nullptr) return RawSection(out, src);
  for (const auto& [code, currencies] : src.securityRestrictions->addMultiCurrency)
    AppendLine(out, P::GetIniParamCode(P::ipcAddMultiCurrency) + "_" + code, GetRowWithDelimsFromListRows(currencies));
}

void TSecurityRestrictionSettings::SettingToStrLinkedUserTemplateToClientTemplate(std::string& out,
                                                                 const TSettingToStrSource& src) const {
  if (src.securityRestrictions == nullptr) return RawSection(out, src);
  if (!src.securityRestrictions->linkedUserTemplate.Empty())
    AppendLine(out, P::GetIniParamCode(P::ipcLinkedUserTemplate),
               src.securityRestrictions->linkedUserTemplate.ToString());
}

void TSecurityRestrictionSettings::SettingToStrBrokerQuoteBoardToClientTemplate(std::string& out, const TSettingToStrSource& src) const {
  if (src.securityRestrictions == nullptr) return RawSection(out, src);
  if (!src.securityRestrictions->brokerQuoteBoard.Empty())
    AppendLine(out, P::GetIniParamCode(P::ipcBrokerQuoteBoard), src.securityRestrictions->brokerQuoteBoard.ToString());
}

void TSecurityRestrictionSettings::SettingToStrTransferBoardToClientTemplate(std::string& out, const TSettingToStrSource& src) const {
  if (src.securityRestrictions == nullptr) return RawSection(out, src);
  if (!src.securityRestrictions->transferBoard.Empty())
    AppendLine(out, P::GetIniParamCode(P::ipcTransferBoard), src.securityRestrictions->transferBoard.ToString());
}

}  // namespace DL
