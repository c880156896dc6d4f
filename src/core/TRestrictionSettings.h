#pragma once
// The hub's component for the order restrictions: the restrictions cache
// (the global restrictions and the restriction templates, with the repo and
// settlement storages of each), built at load and rebuilt by the small
// reload, and the rendering of every restriction setting, in its template
// form (lines of a restriction template section) and in its global form (a
// section of its own).
#include <memory>
#include <string>

#include "cache/TCacheOfRestrictions.h"
#include "core/TSettingToStrSource.h"
#include "ini/TIniParser.h"

namespace DL {

class TRestrictionSettings {
 public:
  // The settings of a restrictions object that have a text form.
  enum ESetting {
    rsMaxOrderQuantity,
    rsMinOrderQuantity,
    rsMaxPositionLimit,
    rsPriceLimitByTime,
    rsRestOrdVolume,
    rsSoftRestOrdVolume,
    rsProhibitRepo,
    rsSoftProhibitRepo,
    rsRestrictRepoByFirstPartSide,
    rsSecurityAllowed,
    rsSoftSecurityAllowed,
    rsSecurityRestricted,
    rsSoftSecurityRestricted,
    rsProhibitedCP,
    rsSoftProhibitedCP,
    rsMaxValue,
    rsSoftMaxValue,
    rsRepoTerm,
    rsSoftRepoTerm,
    rsMaxSettleDate,
    rsAccessToComplexInstruments,
    rsAllowedISINPrefix
  };

  // Load step 11 and the small reload: the cache anew over the section map.
  void Build(TIniParser* parser) { m_cache = std::make_unique<TCacheOfRestrictions>(parser); }
  // Null only before the first Build.
  TCacheOfRestrictions* Cache() { return m_cache.get(); }
  const TCacheOfRestrictions* Cache() const { return m_cache.get(); }

  // One restriction setting: its lines in a restriction template section, or
  // as a global section its section from the parsed object (src.restrictions,
  // else the global object); with globalFromObject false, or no object, the
  // raw section is copied. Lines of a global section that the object does
  // not read follow as they stand.
  void Render(std::string& out, const TSettingToStrSource& src, ESetting setting, bool globalFromObject) const;

  // ---- Repo and settlement storages ----
  // Global sections: the section's name says whether the hard or the soft
  // storage is written.
  void SettingToStrSectionProhibitedCPandSettlementCurrency(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrSectionRestrictMaxValueForSettlementCurrency(std::string& out,
                                                                const TSettingToStrSource& src) const;
  void SettingToStrSectionRestrictREPOWithCPBasedOnTerm(std::string& out, const TSettingToStrSource& src) const;
  // Restriction template settings.
  void SettingToStrProhibitedCPAndSettlementCurrencyToRestrictionTemplate(std::string& out,
                                                                          const TSettingToStrSource& src) const;
  void SettingToStrSoft_ProhibitedCPAndSettlementCurrencyToRestrictionTemplate(std::string& out,
                                                                               const TSettingToStrSource& src) const;
  void SettingToStrRestrictMaxValueForSettlementCurrencyToRestrictionTemplate(std::string& out,
                                                                              const TSettingToStrSource& src) const;
  void SettingToStrSoft_RestrictMaxValueForSettlementCurrencyToRestrictionTemplate(
      std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrRestrictREPOWithCPBasedOnTermToRestrictionTemplate(std::string& out,
                                                                      const TSettingToStrSource& src) const;
  void SettingToStrSoft_RestrictREPOWithCPBasedOnTermToRestrictionTemplate(std::string& out,
                                                                           const TSettingToStrSource& src) const;
  void SettingToStrMaxSettleDateByAssetTypeToRestrictionTemplate(std::string& out,
                                                                 const TSettingToStrSource& src) const;

  // ---- The other restriction settings (restriction template form) ----
  void SettingToStrProhibitREPOByFirstPartSideAndTermToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrRestrictREPOByFirstPartSideToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrSecurityAllowedToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrSecurityRestrictedToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrSoft_ProhibitREPOByFirstPartSideAndTermToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrSoft_SecurityAllowedToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrSoft_SecurityRestrictedToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrAllowedISINPrefixToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrMaxOrderQuantityToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrMaxPositionLimitToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrMinOrderQuantityToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrRestOrdVolumeByAvgTurnoverToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrSoft_RestOrdVolumeByAvgTurnoverToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrPriceLimitByTimeToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;
  void SettingToStrAccessToComplexInstrumentsToRestrictionTemplate(std::string& out, const TSettingToStrSource& src) const;

 private:
  std::unique_ptr<TCacheOfRestrictions> m_cache;
};

}  // namespace DL
