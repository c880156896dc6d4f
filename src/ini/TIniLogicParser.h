#pragma once
// TIniLogicParser: finds the section that holds a client's settings, by the
// grammar of section names, and remembers every answer, a negative one too.
//
// Grammar (matching ignores case; "cl" stands in front of every form):
//   cl<client>                            personal section, client of up to 12 bytes
//   cl<template>_Client_Template          template; CLIENTS lists clients,
//                                         IncludeClientsWithLeverage lists leverages
//   cl<client>_Margin[_LimitKind_n]       personal margin section
//   cl<prefix>*_Margin                    margin section for codes beginning with prefix
//   cl<General>_Margin[_LimitKind_n]      general margin section
//   cl<template>_Margin_Template[_LimitKind_n], cl<template>_Restriction_Template
//   cl<client>_CommissionScale, cl<prefix>*_CommissionScale,
//   cl<template>_CommissionScale_Template
//
// Each consumer (a cache) has its own instance and uses it with one ending,
// so one memo entry per client is enough. The searches are const but write
// the memo: one thread at a time per instance.
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ini/TIniParser.h"
#include "ini/TMaxOrderValue.h"

namespace DL {

// The scaled value of no valid leverage; in a leverage map, the mark of a map
// that was searched and found empty.
inline constexpr std::int32_t UNDEF_LEVERAGE = -1;

// Results of the searches for one client. "DEFAULT" means not searched yet;
// after a search a string holds the section name, or is empty for none.
struct TLogicFindResults {
  std::string unused = kNotSearched;
  std::string templ = kNotSearched;     // TemplateClientSectionEx
  std::string personal = kNotSearched;  // PersonalClientSection
  std::string prefix = kNotSearched;    // PrefixClientSection
  static inline const std::string kNotSearched = "DEFAULT";
};

struct TClientTemplateNames {
  std::string clientCode;
  std::string templateName;
};

// Where a consumer's settings for a client come from.
enum ESettingsSource : int {
  SourceGlobal = 0,    // the firm's global settings
  SourceClient = 1,    // a client-level section: personal or prefix
  SourceTemplate = 2,  // a template
};

struct TResolvedSection {
  const std::string* section;  // the section name; empty for the global settings
  ESettingsSource source;
};

class TIniLogicParser {
 public:
  explicit TIniLogicParser(TIniParser& parser);

  // beginning + client + ending if that section exists (binary search among
  // the upper names), else empty. Remembered per client.
  const std::string& PersonalClientSection(const std::string& client, const std::string& beginning,
                                           const std::string& ending) const;
  // The first section, in sorted name order, that begins with `beginning`,
  // ends with `ending` and lists the client in CLIENTS; else empty.
  // Remembered per client.
  const std::string& TemplateClientSectionEx(const std::string& client, const std::string& beginning,
                                             const std::string& ending) const;
  const std::string& TemplateClientSection(const std::string& client, const std::string& beginning,
                                           const std::string& ending) const {
    return TemplateClientSectionEx(client, beginning, ending);
  }
  // beginning + a prefix of the client + "*" + ending. Mode 1 tries the
  // prefixes from the whole code down to the empty one (the longest wins),
  // mode 2 from the empty one up (the shortest wins), any other mode none.
  // Remembered per client.
  const std::string& PrefixClientSection(const std::string& client, const std::string& beginning,
                                         const std::string& ending, int searchMode) const;

  // The client template bound to the leverage in the parser's leverage map:
  // 1 and its section name, or 0 (no template, or a leverage below -1e-7).
  int GetTemplateClientSectionByLeverage(double leverage, std::string& out) const;
  // The section among those beginning and ending so whose
  // IncludeClientsWithLeverage lists the scaled leverage exactly; empty for
  // none and for UNDEF_LEVERAGE. The sections are read on first use.
  const std::string& TemplateClientSectionByLeverage(const std::string& beginning, const std::string& ending,
                                                     std::int32_t scaledLeverage) const;
  const std::string& TemplateRestrictionSectionByLeverage(std::int32_t scaledLeverage,
                                                          const std::string& beginning,
                                                          const std::string& ending) const;

  // For each section beginning and ending so, in sorted order, one record
  // per client of its CLIENTS list, in list order.
  std::vector<TClientTemplateNames> GetClientTemplateNames(const std::string& beginning,
                                                           const std::string& ending) const;

  // "amount[,currency]": the amount MRound(amount * 100); three or more items
  // leave the amount at -100.0 (not set). The currency is kept if not given.
  static void ParseOrderMaxValueItem(TMaxOrderValue& out, const std::string& text);

  // ---- The search order of each consumer ----
  // Every order ends in the global settings (an empty name, SourceGlobal).
  // A scaled leverage of UNDEF_LEVERAGE means no leverage was given.

  // Client settings and security restrictions: the client template of the
  // leverage, the personal section "cl"+client, a client template listing
  // the client, the longest prefix section "cl"+prefix+"*".
  TResolvedSection ResolveClientSection(const std::string& client, std::int32_t scaledLeverage) const;
  // Margin restrictions: an empty client gives the global settings at once;
  // otherwise the margin template of the leverage, "cl"+client+"_Margin", a
  // margin template listing the client, the longest prefix
  // "cl"+prefix+"*_Margin", the general section cl<General>_Margin.
  TResolvedSection ResolveMarginSection(const std::string& client, std::int32_t scaledLeverage) const;
  // Restriction templates: the restriction template of the leverage, then a
  // restriction template listing the client.
  TResolvedSection ResolveRestrictionTemplate(const std::string& client, std::int32_t scaledLeverage) const;

  // Hash and equality of the memo, accepting a string view for lookups.
  struct TClientHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>()(s); }
  };
  using TResultsMemo = std::unordered_map<std::string, TLogicFindResults, TClientHash, std::equal_to<>>;

  TIniParser& Parser() const { return m_parser; }
  const TResultsMemo& Memo() const { return m_results; }

 private:
  using TLeverageMap = std::map<std::int32_t, std::string>;
  const std::string& TemplateSectionByLeverage_Body(const std::string& beginning, const std::string& ending,
                                                    std::int32_t scaledLeverage, TLeverageMap& map) const;
  TLogicFindResults& Results(const std::string& client) const;
  // The searches on the memo entry of the client, found once by the caller.
  const std::string& Personal(TLogicFindResults& r, const std::string& client, const std::string& beginning,
                              const std::string& ending) const;
  const std::string& Template(TLogicFindResults& r, const std::string& client, const std::string& beginning,
                              const std::string& ending) const;
  const std::string& Prefix(TLogicFindResults& r, const std::string& client, const std::string& beginning,
                            const std::string& ending, int searchMode) const;

  // The indexes, into the parser's name vectors, of the sections that begin
  // and end as given: the candidates of the template search, derived once per
  // generation of the names.
  const std::vector<std::size_t>& TemplateCandidates(const std::string& beginning, const std::string& ending) const;

  TIniParser& m_parser;
  mutable TResultsMemo m_results;
  mutable TLeverageMap m_clientTemplateByLeverage;
  mutable TLeverageMap m_restrictionTemplateByLeverage;
  mutable std::string m_nameUp;  // scratch of the prefix search
  mutable std::string m_candidatesBegUp, m_candidatesEndUp;
  mutable std::uint64_t m_candidatesGeneration = ~std::uint64_t{0};
  mutable std::vector<std::size_t> m_candidates;
};

}  // namespace DL
