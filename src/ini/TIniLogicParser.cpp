#include "ini/TIniLogicParser.h"

#include <algorithm>
#include <cstdlib>

#include "base/TextHelpers.h"
#include "base/Numbers.h"

namespace DL {
namespace {

// True when the upper-case name is long enough for both and begins and ends
// with the upper-case beginning and ending.
bool HasBeginningAndEnding(std::string_view nameUp, std::string_view begUp, std::string_view endUp) {
  return nameUp.size() >= begUp.size() + endUp.size() && nameUp.ends_with(endUp) && nameUp.starts_with(begUp);
}

}  // namespace

TIniLogicParser::TIniLogicParser(TIniParser& parser) : m_parser(parser) {}

TLogicFindResults& TIniLogicParser::Results(const std::string& client) const {
  auto it = m_results.find(client);
  if (it == m_results.end()) it = m_results.emplace(client, TLogicFindResults()).first;
  return it->second;
}

const std::string& TIniLogicParser::PersonalClientSection(const std::string& client, const std::string& beginning,
                                                          const std::string& ending) const {
  return Personal(Results(client), client, beginning, ending);
}

const std::string& TIniLogicParser::TemplateClientSectionEx(const std::string& client, const std::string& beginning,
                                                            const std::string& ending) const {
  return Template(Results(client), client, beginning, ending);
}

const std::string& TIniLogicParser::PrefixClientSection(const std::string& client, const std::string& beginning,
                                                        const std::string& ending, int searchMode) const {
  return Prefix(Results(client), client, beginning, ending, searchMode);
}

const std::string& TIniLogicParser::Personal(TLogicFindResults& r, const std::string& client,
                                             const std::string& beginning, const std::string& ending) const {
  if (r.personal != TLogicFindResults::kNotSearched) return r.personal;
  std::string name = beginning + client + ending;
  if (!m_parser.DoesSectionExistUp(StrUpper(name))) name.clear();
  r.personal = std::move(name);
  return r.personal;
}

const std::vector<std::size_t>& TIniLogicParser::TemplateCandidates(const std::string& beginning,
                                                                     const std::string& ending) const {
  const std::uint64_t generation = m_parser.GetSectionNamesGeneration();
  std::string begUp = StrUpper(beginning);
  std::string endUp = StrUpper(ending);
  if (generation == m_candidatesGeneration && begUp == m_candidatesBegUp && endUp == m_candidatesEndUp)
    return m_candidates;
  m_candidates.clear();
  const std::vector<std::string>& upper = m_parser.GetIniSectionNamesUpperOrdered();
  const std::size_t n = std::min(upper.size(), m_parser.GetIniSectionNamesNotUpper().size());
  for (std::size_t i = 0; i < n; ++i)
    if (HasBeginningAndEnding(upper[i], begUp, endUp)) m_candidates.push_back(i);
  m_candidatesGeneration = generation;
  m_candidatesBegUp = std::move(begUp);
  m_candidatesEndUp = std::move(endUp);
  return m_candidates;
}

const std::string& TIniLogicParser::Template(TLogicFindResults& r, const std::string& client,
                                             const std::string& beginning, const std::string& ending) const {
  if (r.templ != TLogicFindResults::kNotSearched) return r.templ;
  // The sections qualify in sorted name order; the first that lists the
  // client wins.
  const std::vector<std::string>& names = m_parser.GetIniSectionNamesNotUpper();
  std::string found;
  for (const std::size_t i : TemplateCandidates(beginning, ending)) {
    if (m_parser.FindTemplateString(names[i], client)) {
      found = names[i];
      break;
    }
  }
  r.templ = std::move(found);
  return r.templ;
}

const std::string& TIniLogicParser::Prefix(TLogicFindResults& r, const std::string& client,
                                           const std::string& beginning, const std::string& ending,
                                           int searchMode) const {
  if (r.prefix != TLogicFindResults::kNotSearched) return r.prefix;
  std::string found;
  if (searchMode == 1 || searchMode == 2) {
    // One buffer: the upper beginning and client, then for each length the
    // client is cut and "*" and the ending follow.
    const std::string begUp = StrUpper(beginning);
    const std::string clientUp = StrUpper(client);
    const std::string endUp = StrUpper(ending);
    const std::size_t n = client.size();
    for (std::size_t step = 0; step <= n; ++step) {
      const std::size_t len = searchMode == 1 ? n - step : step;
      m_nameUp.assign(begUp);
      m_nameUp.append(clientUp, 0, len);
      m_nameUp += '*';
      m_nameUp += endUp;
      if (m_parser.DoesSectionExistUp(m_nameUp)) {
        found = beginning + client.substr(0, len) + "*" + ending;
        break;
      }
    }
  }
  r.prefix = std::move(found);
  return r.prefix;
}

int TIniLogicParser::GetTemplateClientSectionByLeverage(double leverage, std::string& out) const {
  if (leverage < -1e-7) return 0;
  const auto& byLeverage = m_parser.GetClientTemplateWithLeverageSettings();
  const auto it = byLeverage.find(static_cast<std::int32_t>(GetScaledLeverage(leverage)));
  if (it == byLeverage.end()) return 0;
  m_parser.GetClientTemplateSectionCode(out, it->second->first);
  return 1;
}

const std::string& TIniLogicParser::TemplateSectionByLeverage_Body(const std::string& beginning,
                                                                   const std::string& ending,
                                                                   std::int32_t scaledLeverage,
                                                                   TLeverageMap& map) const {
  if (scaledLeverage == UNDEF_LEVERAGE) return TIniParser::EmptyString();
  if (map.empty()) {
    const std::string begUp = StrUpper(beginning);
    const std::string endUp = StrUpper(ending);
    const auto& sections = m_parser.GetSections();
    for (const std::string& nameUp : m_parser.GetIniSectionNames()) {
      if (!HasBeginningAndEnding(nameUp, begUp, endUp)) continue;
      const auto section = sections.find(nameUp);
      if (section == sections.end()) continue;
      const std::string& list = m_parser.GetIniParamString(section, TIniParser::ipcIncludeClientsWithLeverage,
                                                           TIniParser::EmptyString());
      for (const std::string& item : BoardListToVector(list, ',')) {
        const std::int64_t leverage = GetLeverageFromString(item.c_str());
        if (leverage >= 0) map.emplace(static_cast<std::int32_t>(leverage), section->first);
      }
    }
    if (map.empty()) map.emplace(UNDEF_LEVERAGE, TLogicFindResults::kNotSearched);
  }
  const auto it = map.find(scaledLeverage);
  return it == map.end() ? TIniParser::EmptyString() : it->second;
}

const std::string& TIniLogicParser::TemplateClientSectionByLeverage(const std::string& beginning,
                                                                    const std::string& ending,
                                                                    std::int32_t scaledLeverage) const {
  return TemplateSectionByLeverage_Body(beginning, ending, scaledLeverage, m_clientTemplateByLeverage);
}

const std::string& TIniLogicParser::TemplateRestrictionSectionByLeverage(std::int32_t scaledLeverage,
                                                                         const std::string& beginning,
                                                                         const std::string& ending) const {
  return TemplateSectionByLeverage_Body(beginning, ending, scaledLeverage, m_restrictionTemplateByLeverage);
}

std::vector<TClientTemplateNames> TIniLogicParser::GetClientTemplateNames(const std::string& beginning,
                                                                          const std::string& ending) const {
  std::vector<TClientTemplateNames> out;
  const std::string begUp = StrUpper(beginning);
  const std::string endUp = StrUpper(ending);
  const auto& sections = m_parser.GetSections();
  for (const std::string& nameUp : m_parser.GetIniSectionNames()) {
    if (!HasBeginningAndEnding(nameUp, begUp, endUp)) continue;
    const auto section = sections.find(nameUp);
    if (section == sections.end()) continue;
    const std::string templ =
        section->first.substr(begUp.size(), section->first.size() - begUp.size() - endUp.size());
    const std::string& clients =
        m_parser.GetIniParamString(section, TIniParser::ipcClients, TIniParser::EmptyString());
    for (std::string& client : BoardListToVector(clients, ','))
      out.push_back(TClientTemplateNames{std::move(client), templ});
  }
  return out;
}

namespace {

const std::string& Part(TIniParser::EPartIniSectCodeNum code) { return TIniParser::GetPartIniSectCode(code); }

}  // namespace

TResolvedSection TIniLogicParser::ResolveClientSection(const std::string& client,
                                                       std::int32_t scaledLeverage) const {
  const std::string& cl = Part(TIniParser::pscCl);
  if (scaledLeverage != UNDEF_LEVERAGE) {
    const std::string& byLeverage =
        TemplateClientSectionByLeverage(cl, Part(TIniParser::psc_Client_Template), scaledLeverage);
    if (!byLeverage.empty()) return {&byLeverage, SourceTemplate};
  }
  TLogicFindResults& r = Results(client);
  if (const std::string& s = Personal(r, client, cl, TIniParser::EmptyString()); !s.empty())
    return {&s, SourceClient};
  if (const std::string& s = Template(r, client, cl, Part(TIniParser::psc_Client_Template)); !s.empty())
    return {&s, SourceTemplate};
  if (const std::string& s = Prefix(r, client, cl, TIniParser::EmptyString(), 1); !s.empty())
    return {&s, SourceClient};
  return {&TIniParser::EmptyString(), SourceGlobal};
}

TResolvedSection TIniLogicParser::ResolveMarginSection(const std::string& client,
                                                       std::int32_t scaledLeverage) const {
  if (client.empty()) return {&TIniParser::EmptyString(), SourceGlobal};
  const std::string& cl = Part(TIniParser::pscCl);
  const std::string& margin = Part(TIniParser::psc_Margin);
  const std::string& marginTemplate = Part(TIniParser::psc_Margin_Template);
  if (scaledLeverage != UNDEF_LEVERAGE) {
    const std::string& byLeverage = TemplateClientSectionByLeverage(cl, marginTemplate, scaledLeverage);
    if (!byLeverage.empty()) return {&byLeverage, SourceTemplate};
  }
  TLogicFindResults& r = Results(client);
  if (const std::string& s = Personal(r, client, cl, margin); !s.empty()) return {&s, SourceClient};
  if (const std::string& s = Template(r, client, cl, marginTemplate); !s.empty()) return {&s, SourceTemplate};
  if (const std::string& s = Prefix(r, client, cl, margin, 1); !s.empty()) return {&s, SourceClient};
  const std::string& general = TIniParser::GetIniSectCode(iscClGeneral_Margin);
  if (m_parser.DoesSectionExistUp(TIniParser::GetIniSectCodeUp(iscClGeneral_Margin)))
    return {&general, SourceTemplate};
  return {&TIniParser::EmptyString(), SourceGlobal};
}

TResolvedSection TIniLogicParser::ResolveRestrictionTemplate(const std::string& client,
                                                             std::int32_t scaledLeverage) const {
  const std::string& cl = Part(TIniParser::pscCl);
  const std::string& ending = Part(TIniParser::psc_Restriction_Template);
  if (scaledLeverage != UNDEF_LEVERAGE) {
    const std::string& byLeverage = TemplateRestrictionSectionByLeverage(scaledLeverage, cl, ending);
    if (!byLeverage.empty()) return {&byLeverage, SourceTemplate};
  }
  if (const std::string& s = Template(Results(client), client, cl, ending); !s.empty())
    return {&s, SourceTemplate};
  return {&TIniParser::EmptyString(), SourceGlobal};
}

void TIniLogicParser::ParseOrderMaxValueItem(TMaxOrderValue& out, const std::string& text) {
  out.amount = -100.0;
  const std::vector<std::string> items = BoardListToVector(text, ',', true);
  if (items.empty() || items.size() > 2) return;
  out.amount = MRound(std::strtod(items[0].c_str(), nullptr) * 100);
  if (items.size() == 2) out.currency = items[1];
}

}  // namespace DL
