#pragma once
// TCacheOfSecurityRestrictions: the security restrictions of the firm
// (global sections) and of its clients and client templates, parsed from the
// text. The global object is built with the cache; a client's section is
// resolved (template by leverage, personal section, template listing the
// client, longest prefix section) and parsed on its first query, and every
// section is parsed once and shared by all the queries that resolve to it.
//
// Lines are read leniently: a malformed line is skipped without a word, a
// name longer than its code allows drops the line.
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "cache/TClientSecurityRestrictions.h"
#include "cache/TIniSettingCache.h"
#include "base/CodeLengths.h"
#include "ini/SettingsText.h"
#include "ini/TIniLogicParser.h"

namespace DL {

class IFirmSettings;

class TCacheOfSecurityRestrictions : public AIniSettingCacheMaster<TClientSecurityRestrictions> {
 public:
  using TSharedSettings = std::shared_ptr<TClientSecurityRestrictions>;
  // Section or template name -> parsed object, names compared ignoring case.
  using TParsedMap = std::map<std::string, TSharedSettings, StringMapComparerFunc>;

  // Parses the global settings of the text. The firm (IFirmSettings) is the owner; it is not
  // read while parsing.
  TCacheOfSecurityRestrictions(TIniParser& parser, const IFirmSettings& firm);

  // Resolution of a client's section: the object and its source (1 a
  // personal or prefix section, 2 a template); a null object when only the
  // global settings apply, or the section named yields nothing.
  TParseResult ParseSettingsForClient(const TIniCacheItemID& id) const override;

  const TClientSecurityRestrictions* GetGlobalSettings() const { return GlobalSettings(); }
  // The object of the client's personal section "cl" + client, parsed on
  // first use; null when the text has no such section.
  const TClientSecurityRestrictions* GetClientSettings(const std::string& client) const;
  // The object of the client template's section, parsed on first use; null
  // when the text has no such template.
  const TClientSecurityRestrictions* GetTemplateSettings(const std::string& templ) const;
  // The object of a section, parsed on first use and kept; null for a
  // section the text does not have.
  TSharedSettings ParseSettingsFromSection(const std::string& section) const;
  // The object of a section if it has been parsed, else null; parses nothing.
  const TClientSecurityRestrictions* FindParsedSection(const std::string& section) const;
  // Drops the parsed object of a client template, which the next use parses
  // anew: 0, or 15 for a template the text does not have (nothing changes).
  [[nodiscard]] int RemoveParsedTemplateSettings(const std::string& templ);
  // Forgets the parsed object of an edited client or template section and
  // every client's resolution, so that the next query parses the section as
  // it stands.
  void ForgetParsedSection(const std::string& section);
  // Reads the firm's global sections anew after an edit of them, and forgets
  // every client's resolution.
  void ReparseGlobalSettings();

  // Client-level objects by section name; template objects by template name.
  const TParsedMap& GetParsedClientSettings() const { return m_clients; }
  const TParsedMap& GetParsedTemplateSettings() const { return m_templates; }
  const IFirmSettings& Firm() const { return m_firm; }

  // ---- Lines of the settings, each on the object it fills ----
  // "OrderMaxValue": "amount[,currency]"; without an amount the global one
  // is taken and the object does not count as having its own.
  void ParseOrderMaxValue(TClientSecurityRestrictions& out, const std::string& value) const;
  // A price limit line, the key behind the parameter ("MIDDLE" is passed
  // over): "item_MIDDLE" = price type name, or "item" = deviation,price
  // type,reject. The item has 12 bytes at most; for securities THEORPRICE is
  // refused as a middle price. An empty deviation takes the default's, an
  // empty price type the default's, else LAST.
  static void ParsePriceLimit(TPriceLimit& limit, const TDeviationPercentMiddle& def, EClassSettingType type,
                              std::string_view key, std::string_view value);
  static void ParsePriceLimit(TClientSecurityRestrictions& out, std::string_view key, std::string_view value);
  static void ParseSecPriceLimit(TClientSecurityRestrictions& out, std::string_view key, std::string_view value);
  static void ParseSoftPriceLimit(TClientSecurityRestrictions& out, std::string_view key, std::string_view value);
  static void ParseSoftSecPriceLimit(TClientSecurityRestrictions& out, std::string_view key, std::string_view value);
  // The default of a family: "[deviation][,price type]", or a price type alone.
  static TDeviationPercentMiddle ParseDeviationPercentMiddle(std::string_view value);
  // The text ParseDeviationPercentMiddle reads back; empty when not set.
  static std::string DeviationPercentMiddleToStr(const TDeviationPercentMiddle& middle);
  // "deviation,price type[,1]" of one limit.
  static std::string PriceLimitItemToStr(const TPriceLimitItem& item);
  // A whole global price limit section: "MIDDLE" first, then every key.
  static void ParseGlobalPriceLimit(TPriceLimit& limit, TDeviationPercentMiddle& def, EClassSettingType type,
                                    const TIniKeyMap& keys);
  static void ParsePartnersAndSettleCodes(TPartnersAndSettleCodes& out, std::string_view key, std::string_view value);
  static void ParseSectionPartnersAndSettleCodes(TPartnersAndSettleCodes& out, const TIniKeyMap& keys);
  // "CommissionWriteOffCurrency_" or "TSCommission_" with a currency behind
  // it (a list of classes), or one of the three switches ("1" is true).
  static void ParseCommissionWriteOfCurrency(TCommissionWriteOffCurrency& out, std::string_view key,
                                             std::string_view value);
  // A currency list split at ",", "RUB" and "RUR" taken as "SUR".
  static std::set<std::string> ParseCurrencySet(std::string_view value);

 private:
  void ParseGlobalSettings();
  void ParseGlobalGeneral(TClientSecurityRestrictions& out, const TIniKeyMap& keys) const;
  static void ParseGlobalAddMultiCurrency(TClientSecurityRestrictions& out, const TIniKeyMap& keys);
  static void ParseGlobalAllowedSecurity(TClientSecurityRestrictions& out, const TIniKeyMap& keys);
  static void ParseGlobalRestrictSecurity(TClientSecurityRestrictions& out, const TIniKeyMap& keys);
  static void ParseGlobalRestrictOpenSecurity(TClientSecurityRestrictions& out, const TIniKeyMap& keys);
  // One key of a client or template section, dispatched by its name.
  void ParseSectionKey(TClientSecurityRestrictions& out, const std::string& key, const std::string& value) const;
  // The limits whose deviation is negative are deleted by it.
  static void DropNegativeLimits(TClientSecurityRestrictions& out);
  // The template of a client template section name.
  static std::string TemplateOfSection(const std::string& section);

  const IFirmSettings& m_firm;
  TIniLogicParser m_logic;
  mutable TParsedMap m_clients;    // client-level sections, by section name
  mutable TParsedMap m_templates;  // templates, by template name
  mutable TParsedMap m_sections;   // every parsed section, by section name
};

}  // namespace DL
