#pragma once
// The margin settings of a firm for every limit kind: the global level, the
// general section cl<General>_Margin, personal sections, prefix sections and
// margin templates.
//
// Inheritance: every three-way setting of a section may ask to inherit (-2,
// also a missing key) or to take the default (-1). The section of limit kind
// 0 builds on the global object; a section of another limit kind builds on
// the limit kind 0 body of the same client, prefix or template, and takes
// the global value for -1. The general object is parsed like any other
// chain, in the constructor, and no other section builds on it.
//
// Queries are const but fill the maps of parsed objects: one thread at a
// time. Pointers handed out live until the cache is rebuilt or the template
// is dropped.
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "cache/IGeneralParamReader.h"
#include "cache/TClientMarginRestrictions.h"
#include "cache/TIniSettingCache.h"
#include "ini/TIniLogicParser.h"
#include "ini/TIniParser.h"

namespace DL {

class IFirmSettings;

class TCacheOfClientMarginRestrictions : public AIniSettingCacheMaster<TClientMarginRestrictions> {
 public:
  using TObject = TClientMarginRestrictions;
  using TBody = TClientMarginRestrictionsBody;

  // Parses the global object (sections "General", "ClassToLimitKind",
  // "SecurityToLimitKind", "SettleCodeToLimitKind", "SecToBoard",
  // "DiscountsTypeByClasses"; the typed parameters of "General" from
  // `universal`, when given) and the general object, and enters every
  // client, prefix and margin template of the text, unparsed. The parser and
  // the firm must outlive the cache; `universal` is read here only.
  TCacheOfClientMarginRestrictions(TIniParser& parser, const IGeneralParamReader* universal, const IFirmSettings& firm);

  // ---- Objects ----
  TObject* GetGlobalSettings() const { return GlobalSettings(); }
  // The object of cl<General>_Margin; null when the text has no such section
  // of limit kind 0.
  TObject* GetGlobal_General_Settings() const { return m_general.get(); }
  // The object of a personal section, parsed on first use; null for a client
  // without a margin section.
  TObject* GetClientSettings(const std::string& client) const;
  // The object of "cl" + prefix + "*_Margin"; null for an unknown prefix.
  TObject* GetPrefixClientSettings(const std::string& prefix) const;
  // Null for an empty name; "<General>" (case ignored) gives the general
  // object, a name ending in "*" the prefix object of the rest, any other
  // name the client object.
  TObject* GetClientGlobalOrPrefixSettings(const std::string& name) const;
  // The longest prefix of the code, cut from the right down to one byte,
  // that has a prefix section; null with no prefixes, for an empty client
  // and for "<EMPTY>".
  TObject* GetPrefixClientSettingsByClientCode(const std::string& client) const;
  // The object of a margin template, parsed on first use; null if unknown.
  TObject* GetTemplateSettings(const std::string& templ) const;
  // The template whose "Clients" names the client.
  TObject* GetTemplateSettingsByClientCode(const std::string& client) const;
  // The template whose "IncludeClientsWithLeverage" names exactly this
  // scaled leverage.
  TObject* GetTemplateWithLeverageSettings(std::int32_t scaledLeverage) const;

  // The parsed objects by name; an entry with a null object is known but
  // not parsed yet.
  using TParsedMap = TParsedSections<TObject>;
  const TParsedMap& GetParsedClientSettings() const { return m_clients; }
  const TParsedMap& GetParsedPrefixSettings() const { return m_prefixes; }
  const TParsedTemplates<TObject>& GetParsedTemplateSettings() const { return m_templates; }
  const std::set<std::string, StringMapComparerFunc>& GetPrefixNames() const { return m_prefixNames; }
  // Scaled leverage -> template name.
  const std::map<std::int32_t, std::string>& GetTemplatesByLeverage() const { return m_templatesByLeverage; }

  // Enters a template, not parsed: its object is made on first use.
  void AddTemplate(const std::string& templ);
  // Forget the parsed object of an edited margin section of a client or a
  // template, and every client's resolution: the next query parses the
  // section as it stands, and the save copies it as it stands until then.
  void ForgetParsedClientSettings(const std::string& client) {
    m_clients.Drop(client);
    Items().clear();
  }
  void ForgetParsedTemplateSettings(const std::string& templ) {
    m_templates.Drop(templ);
    Items().clear();
  }
  // Drops the parsed object of a template: 0, or 15 for an unknown
  // template, changing nothing.
  [[nodiscard]] int RemoveParsedTemplateSettings(const std::string& templ);

  // Calls `f` on the general object, the global object, each parsed client,
  // prefix, template by name and template by leverage; null ones skipped.
  void IterateClientMarginRestrictionsCaches(const std::function<void(TObject&)>& f) const;
  // Over the item table, then the walk above: in the body of limit kind 0,
  // clears the validity of the per-security parameters ...
  void ResetValidStatusOfSecurityParamsCache();
  // ... or empties the main margin class identifiers and their counter.
  void ClearMainMarginInClassIDsCache();

  bool IsAssignedSurDiscounts() const { return m_assignedSurDiscounts; }
  void SetAssignedSurDiscounts(bool value) { m_assignedSurDiscounts = value; }

  // The settings of an identity; never null. Same logic as the base class.
  TObject* GetIniSetting(TIniCacheItemID& id) const;
  // An empty client gives the global object; then the template of the
  // leverage (source 2), the personal section (1), the template listing the
  // client (2), the longest prefix, the empty one included (1), the general
  // object (2); else null. A section that yields no body counts as none.
  TParseResult ParseSettingsForClient(const TIniCacheItemID& id) const override;

  // ---- Parsing ----
  // The chain of one client, prefix or template: limit kind 0 on the global
  // object, every further limit kind on limit kind 0. Without a section of
  // limit kind 0 the object stays empty.
  std::unique_ptr<TObject> ParseSettingsFromSectionList(const TIniParser::TLimitKindMap& sections) const;
  // One section into `out`, on the base body; `first` is set for limit kind 0.
  void ParseSettingsFromSection(const TIniKeyMap& section, const TBody& base, TBody& out, bool first) const;
  // The global object from the firm's global sections.
  std::unique_ptr<TObject> ParseGlobalSettings(const IGeneralParamReader* universal) const;
  // Keys "InstrumentsWithoutCurrencyRisk_" + class: value a list of securities.
  static void ParseInstrumentsWithoutCurrencyRisk(const TIniKeyMap& keys,
                                                  TMarginCodeMap<std::vector<std::string>>& out);

  const TIniLogicParser& Logic() const { return m_logic; }
  const IFirmSettings& Firm() const { return m_firm; }

 private:
  // The body of limit kind 0 of the global object (defaults when absent).
  const TBody& GlobalBody() const;
  TObject* ObjectOf(TParsedMap& parsed, const TIniParser::TClientLimitKindsMap& sections,
                    const std::string& name) const;
  // The object of a section name the resolution gave, with its source.
  TParseResult ObjectOfSection(const std::string& section, ESettingsSource source) const;

  TIniLogicParser m_logic;
  const IFirmSettings& m_firm;
  std::unique_ptr<TObject> m_general;
  mutable TParsedTemplates<TObject> m_templates;
  mutable TParsedMap m_clients;
  mutable TParsedMap m_prefixes;
  std::set<std::string, StringMapComparerFunc> m_prefixNames;
  std::map<std::int32_t, std::string> m_templatesByLeverage;
  bool m_assignedSurDiscounts = false;
};

}  // namespace DL
