#pragma once
// The hub's component for the security restrictions: the cache of load step
// 11 (the global sections "RestrictSecurity", the partners and price limit
// sections, and the client and client template sections that carry them) and
// the rendering of the settings it holds. A rendering function writes every
// key of its setting at once: with a parsed client or template object the
// lines of that section; without one, the global section from the cache's
// global object, header included.
#include <memory>
#include <string>

#include "cache/IFirmSettings.h"
#include "cache/TCacheOfSecurityRestrictions.h"
#include "core/TSettingToStrSource.h"
#include "ini/TIniParser.h"

namespace DL {

class TSecurityRestrictionSettings {
 public:
  // Load step 11: the cache over the section map and the firm's answers.
  void Build(TIniParser& parser, const IFirmSettings& firm) {
    m_cache = std::make_unique<TCacheOfSecurityRestrictions>(parser, firm);
  }
  // Null only before Build.
  const TCacheOfSecurityRestrictions* Cache() const { return m_cache.get(); }
  TCacheOfSecurityRestrictions* Cache() { return m_cache.get(); }
  // The parsed security restrictions of a client or client template
  // section, null when the section has not been parsed.
  const TClientSecurityRestrictions* ParsedSection(const std::string& section) const {
    return m_cache ? m_cache->FindParsedSection(section) : nullptr;
  }

  // ---- Rendering (named by the hub's rendering maps) ----
  void SettingToStrSectionRestrictSecurity(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrAllowedPartnersAndSettleCodesToClientTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrProhibitedPartnersAndSettleCodesToClientTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrSoft_ProhibitedPartnersAndSettleCodesToClientTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrPriceLimitToClientTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrSecPriceLimitToClientTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrSoft_PriceLimitToClientTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrSoft_SecPriceLimitToClientTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrRestrictOpenSecurityToClientTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrAllowedPartnersToClientTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrProhibitedPartnersToClientTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrAddMultiCurrencyToClientTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrLinkedUserTemplateToClientTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrBrokerQuoteBoardToClientTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrTransferBoardToClientTemplate(std::string& out, const TSettingToStrSource& src) const;

 private:
  std::unique_ptr<TCacheOfSecurityRestrictions> m_cache;
};

}  // namespace DL
