// Order restrictions of the hub: the load step that builds the restrictions
// component's cache and the save step of the restriction templates (each
// section composed by GetRowFromSettings, whose rendering map names the
// component's functions).
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

}  // namespace DL
