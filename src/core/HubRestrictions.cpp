// Order restrictions of the hub: the load step that builds the restrictions
// component's cache, the restriction templates written at save, and the
// rendering functions of the restriction settings not yet named from the
// component by the rendering maps.
#include "core/TStorageHub.h"

namespace DL {

// ---- Load ----

void TStorageHub::BuildRestrictionsCache() { m_restrictions.Build(m_parser.get()); }

// ---- Save ----

void TStorageHub::AppendRestrictionTemplateRows(std::string& text, TWrittenSections& written) const {
  const TIniSectionsMap& sections = m_parser->GetSections();
  const TCacheOfRestrictions* cache = m_restrictions.Cache();
  for (const auto& [name, it] : m_parser->GetRestrictionTemplateSettings()) {
    if (it == sections.end() || written.count(&it->first) != 0) continue;
    written.insert(&it->first);
    TSettingToStrSource src;
    src.kind = TIniParser::SectRestrictionTemplate;
    src.restrictions = cache != nullptr ? cache->GetParsedTemplateSettings(name) : nullptr;
    text += GetRowFromSettings(it, false, src);
  }
}

// ---- Rendering ----

// The restriction template settings. The global section of
// "RestrictREPOByFirstPartSide" is not read into the global object, so it is
// copied as it stands.
#define ZDL_RESTRICTION_RENDER(function, setting, globalFromObject)                     \
  void TStorageHub::function(std::string& out, const TSettingToStrSource& src) const { \
    m_restrictions.Render(out, src, TRestrictionSettings::setting, globalFromObject);   \
  }
ZDL_RESTRICTION_RENDER(SettingToStrProhibitREPOByFirstPartSideAndTermToRestrictionTemplate, rsProhibitRepo, true)
ZDL_RESTRICTION_RENDER(SettingToStrRestrictREPOByFirstPartSideToRestrictionTemplate, rsRestrictRepoByFirstPartSide, false)
ZDL_RESTRICTION_RENDER(SettingToStrSecurityAllowedToRestrictionTemplate, rsSecurityAllowed, true)
ZDL_RESTRICTION_RENDER(SettingToStrSecurityRestrictedToRestrictionTemplate, rsSecurityRestricted, true)
ZDL_RESTRICTION_RENDER(SettingToStrSoft_ProhibitREPOByFirstPartSideAndTermToRestrictionTemplate, rsSoftProhibitRepo, true)
ZDL_RESTRICTION_RENDER(SettingToStrSoft_SecurityAllowedToRestrictionTemplate, rsSoftSecurityAllowed, true)
ZDL_RESTRICTION_RENDER(SettingToStrSoft_SecurityRestrictedToRestrictionTemplate, rsSoftSecurityRestricted, true)
ZDL_RESTRICTION_RENDER(SettingToStrAllowedISINPrefixToRestrictionTemplate, rsAllowedISINPrefix, true)
ZDL_RESTRICTION_RENDER(SettingToStrMaxOrderQuantityToRestrictionTemplate, rsMaxOrderQuantity, true)
ZDL_RESTRICTION_RENDER(SettingToStrMaxPositionLimitToRestrictionTemplate, rsMaxPositionLimit, true)
ZDL_RESTRICTION_RENDER(SettingToStrMinOrderQuantityToRestrictionTemplate, rsMinOrderQuantity, true)
ZDL_RESTRICTION_RENDER(SettingToStrRestOrdVolumeByAvgTurnoverToRestrictionTemplate, rsRestOrdVolume, true)
ZDL_RESTRICTION_RENDER(SettingToStrSoft_RestOrdVolumeByAvgTurnoverToRestrictionTemplate, rsSoftRestOrdVolume, true)
ZDL_RESTRICTION_RENDER(SettingToStrPriceLimitByTimeToRestrictionTemplate, rsPriceLimitByTime, true)
ZDL_RESTRICTION_RENDER(SettingToStrAccessToComplexInstrumentsToRestrictionTemplate, rsAccessToComplexInstruments, true)
#undef ZDL_RESTRICTION_RENDER

}  // namespace DL
