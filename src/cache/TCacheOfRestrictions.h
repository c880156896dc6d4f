#pragma once
// The order restrictions of a firm, parsed: the global object from the global
// sections (one section per kind, a key per item), and one object per
// restriction template (one section per template, a key per kind and item),
// parsed on first use. A client's template is found through its CLIENTS list
// or a leverage; a client with none is answered from the global object alone.
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>

#include "cache/TIniCacheItemID.h"
#include "cache/TRestrictions.h"
#include "ini/TIniLogicParser.h"
#include "ini/TIniParser.h"
#include "support/Errors.h"

namespace DL {

class TCacheOfRestrictions {
 public:
  using TSectionIt = TIniSectionsMap::iterator;
  using TGlobalParseFunc = void (TCacheOfRestrictions::*)(TRestrictions* r, TSectionIt section);
  using TTemplateParseFunc = void (TCacheOfRestrictions::*)(TRestrictions* r, const std::string& rest,
                                                            const std::string& value);
  // Upper section name -> function; upper parameter name -> function.
  using TGlobalParseTable = std::map<std::string, TGlobalParseFunc>;
  using TTemplateParseTable = std::map<std::string, TTemplateParseFunc>;
  // Template name -> its section and its object, made on first use.
  using TTemplateMap =
      std::map<std::string, std::pair<TSectionIt, std::unique_ptr<TRestrictions>>, StringMapComparerFunc>;

  // Builds the parse tables, checks them against the catalogue (throws
  // CErrors naming every hole), parses the global sections and enters every
  // restriction template of the parser, unparsed. The parser must outlive
  // the cache.
  explicit TCacheOfRestrictions(TIniParser* parser);
  TCacheOfRestrictions(const TCacheOfRestrictions&) = delete;
  TCacheOfRestrictions& operator=(const TCacheOfRestrictions&) = delete;

  // The parse tables as the program declares them.
  static TGlobalParseTable BuildGlobalParseTable();
  static TTemplateParseTable BuildTemplateParseTable();
  // Adds one text per row of the restriction template group of the
  // catalogue whose section or parameter has no function in the tables:
  //   Not mapped CacheOfRestrictions global parsing function for section "<name>".\n
  //   Not mapped CacheOfRestrictions template parsing function for param "<name>".\n
  static void CheckParseTables(const TGlobalParseTable& global, const TTemplateParseTable& templ, CErrors& errors);

  const TRestrictions& GetGlobalSettings() const { return m_global; }
  // The template's object if it has been parsed, else null.
  const TRestrictions* GetParsedTemplateSettings(const std::string& name) const;
  // The template's object, parsed on first use. An unknown name is entered
  // with an empty object, which is returned.
  TRestrictions* GetTemplateSettings(const std::string& name);
  TRestrictions* GetTemplateSettings(TTemplateMap::iterator it);
  // The template bound to the scaled leverage, or null.
  TRestrictions* GetTemplateSettingsByLeverage(std::int32_t scaledLeverage);
  // The template that applies to the identity: by its leverage first, then
  // by the client's restriction template; null when none does (the caller
  // then uses the global settings alone).
  TRestrictions* GetSettings(const TIniCacheItemID& id);

  bool IsTemplateExist(const std::string& name) const { return m_templates.count(name) != 0; }
  TTemplateMap::iterator GetTemplateIterator(const std::string& name) { return m_templates.find(name); }
  TTemplateMap::iterator TemplatesEnd() { return m_templates.end(); }
  const TTemplateMap& GetTemplates() const { return m_templates; }

  // A new template with an empty object and its section "cl<name>_Restriction_Template"
  // in the parser: 0, or 16 when the name is already there.
  [[nodiscard]] int AddTemplate(const std::string& name);
  // Removes a template: its client list emptied, its object destroyed with
  // all its stores, its entry and its section erased, and the lookups by
  // client and leverage that led to it forgotten. 0, or 4 when the name is
  // not there.
  [[nodiscard]] int RemoveTemplate(const std::string& name);

  // Empties the object and fills it from the keys of a template section:
  // each key goes to the first parameter of the table that it begins with;
  // a key that matches none is ignored.
  void ParseSettings(TRestrictions* r, const TIniKeyMap& keys);

  // Whether the line of a global section would be read into an object on
  // its own (the save keeps the lines that are not, as they stand). False
  // for a section that has no global function.
  bool ReadsGlobalLine(const std::string& section, const std::string& key, const std::string& value);

  // The beginning and ending of restriction template section names.
  static const std::string kSectBeginning;  // "cl"
  static const std::string kSectEnding;     // "_Restriction_Template"

 private:
  void ParseGlobalSettings();

  // ---- Template lines: the rest of the key behind the parameter, and the value ----
  void ParseMaxOrderQuantity(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseMinOrderQuantity(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseMaxPositionLimit(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParsePriceLimitByTime(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseReferencePrice(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseRestOrdVolumeByAvgTurnover(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseSoftRestOrdVolumeByAvgTurnover(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseProhibitREPOByFirstPartSideAndTerm(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseSoftProhibitREPOByFirstPartSideAndTerm(TRestrictions* r, const std::string& rest,
                                                   const std::string& value);
  void ParseRestrictREPOByFirstPartSide(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseSecurityAllowed(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseSoftSecurityAllowed(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseSecurityRestricted(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseSoftSecurityRestricted(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseProhibitedCP(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseSoftProhibitedCP(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseRepoTerm(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseSoftRepoTerm(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseMaxValue(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseSoftMaxValue(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseMaxSettleDate(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseQualifiedInvestors(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseAccessToComplexInstruments(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseAllowedISINPrefix(TRestrictions* r, const std::string& rest, const std::string& value);
  void ParseThresMarginCoeff(TRestrictions* r, const std::string& rest, const std::string& value);

  // ---- Global sections ----
  // Every key of the section through the template line function F.
  template <TTemplateParseFunc F>
  void ParseSectionLines(TRestrictions* r, TSectionIt section);
  // "RestOrdVolumeByAvgTurnover" and its soft twin: "BasePeriod" and the lines.
  void ParseSectionRestOrdVolumeByAvgTurnover(TRestrictions* r, TSectionIt section);
  // A section read by no one here ("RestrictREPOByFirstPartSide", "ThresMarginCoeff").
  void ParseSectionNothing(TRestrictions* r, TSectionIt section);

  TIniParser* m_parser;
  std::unique_ptr<TIniLogicParser> m_logic;
  TGlobalParseTable m_globalParse;
  TTemplateParseTable m_templateParse;
  TRestrictions m_global;
  TTemplateMap m_templates;
  std::map<std::string, TRestrictions*> m_byClient;
  const std::string m_sides[3] = {"", "B", "S"};
  std::unordered_map<std::int32_t, TRestrictions*> m_byLeverage;
};

}  // namespace DL
