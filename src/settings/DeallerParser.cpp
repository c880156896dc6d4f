#include "settings/DeallerParser.h"

#include <fstream>
#include <regex>
#include <sstream>

namespace DLTypes {

namespace {

std::string_view Trim(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) s.remove_suffix(1);
  return s;
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// An item is well formed when its name is not empty, holds no blank and a
// "<" stands before its ">".
bool IsSettingArgCorrect(std::string_view item) {
  const std::size_t lt = item.find('<');
  if (lt == std::string_view::npos || lt == 0 || item.empty() || item.back() != '>') return false;
  for (std::size_t i = 0; i < lt; ++i)
    if (IsBlank(item[i])) return false;
  return true;
}

}  // namespace

namespace TOOLS {

SettingArgs GetSettingArgs(std::string_view value, std::size_t start) {
  SettingArgs out;
  std::size_t pos = start;
  while (pos < value.size()) {
    const std::size_t gt = value.find('>', pos);
    if (gt == std::string_view::npos) break;
    const std::string_view item = Trim(value.substr(pos, gt - pos + 1));
    if (!IsSettingArgCorrect(item)) break;
    const std::size_t lt = item.find('<');
    out.push_back({std::string(item.substr(0, lt)), std::string(item.substr(lt + 1, item.size() - lt - 2))});
    pos = gt + 1;
    while (pos < value.size() && (IsBlank(value[pos]) || value[pos] == ',')) ++pos;
  }
  return out;
}

}  // namespace TOOLS

void Parser::InitParser() {
  if (m_initialised) return;
  m_initialised = true;
  m_globalGrammar.flags = {{"FuturesDiscountFromCollateralAmount", stfFuturesDiscountFromCollateralAmount},
                           {"UseSetsForNonTemplateClients", stfUseSetsForNonTemplateClients}};
  m_globalGrammar.simple = {{"BaseCurrency", stsBaseCurrency},
                            {"ClassesWithVarMarginCalc", stsClassesWithVarMarginCalc},
                            {"ClassesWithVarMarginCalcOnSettlePrice", stsClassesWithVarMarginCalcOnSettlePrice},
                            {"CreditLag", stsCreditLag},
                            {"DerivativesAutoInclusion", stsDerivativesAutoInclusion},
                            {"MDPlusMinMarginCalcRate", stsMDPlusMinMarginCalcRate},
                            {"ThresMarginCoeff", stsThresMarginCoeff},
                            {"VolatilityChangeScenarios", stsVolatilityChangeScenarios}};
  m_setGrammar.simple = {{"BaseIndicator", stsBaseIndicator},
                         {"NettingType", stsNettingType},
                         {"ThresMarginCoeff", stsThresMarginCoeff},
                         {"VolatilityChangeScenarios", stsVolatilityChangeScenarios},
                         {"DerivativesAutoInclusion", stsDerivativesAutoInclusion}};
  m_setGrammar.complex = {{{"Instrument", "RelativeRiskRate", "DependencyTrend"}, stcInstruments}};
  m_templateGrammar.flags = {{"FuturesDiscountFromCollateralAmount", stfFuturesDiscountFromCollateralAmount},
                             {"HighRiskLevelClients", stfHighRiskLevelClients},
                             {"UseGlobalSets", stfUseGlobalSets}};
  m_templateGrammar.simple = {{"Clients", stsClients}, {"IncludeClientsWithLeverage", stsIncludeClientsWithLeverage}};
}

TemplateSectionNameInfo Parser::IsSectionTemplate(std::string_view name) {
  static const std::regex rules[3] = {std::regex("^(cl.+)(_Margin)(_Template)"),
                                      std::regex("^(SetOfInstruments_)(.+)"),
                                      std::regex("^(cl.+)(_SetOfInstruments_)(.+)(_Template)")};
  TemplateSectionNameInfo info;
  if (name.empty()) return info;
  const std::string text(name);
  std::smatch m;
  if (std::regex_search(text, m, rules[0])) {
    info.kind = tsnMarginTemplate;
    info.parts = {m[1].str().substr(2)};
  } else if (std::regex_search(text, m, rules[1])) {
    info.kind = tsnSetOfInstruments;
    info.parts = {m[2].str()};
  } else if (std::regex_search(text, m, rules[2])) {
    info.kind = tsnTemplateSetOfInstruments;
    info.parts = {m[1].str().substr(2), m[3].str()};
  }
  return info;
}

bool Parser::IsGlobalSectionRepeat(std::string_view name) const {
  return DL::IsSameSettingsName(name, "General") && !m_general.name.empty();
}

bool Parser::IsTemplateSectionRepeat(const TemplateSectionNameInfo& info) const {
  return info.kind != tsnNone && m_templates[info.kind].count(info.parts) != 0;
}

void Parser::BeginSection(const std::string& name) {
  m_current = nullptr;
  m_currentGrammar = nullptr;
  if (DL::IsSameSettingsName(name, "General") && !IsGlobalSectionRepeat(name)) {
    m_general.name = name;
    m_current = &m_general;
    m_currentGrammar = &m_globalGrammar;
    return;
  }
  const TemplateSectionNameInfo info = IsSectionTemplate(name);
  if (info.kind == tsnNone || IsTemplateSectionRepeat(info)) return;
  SectionText& section = m_templates[info.kind][info.parts];
  section.name = name;
  m_current = &section;
  m_currentGrammar = info.kind == tsnMarginTemplate ? &m_templateGrammar : &m_setGrammar;
}

void Parser::ParseSettingLine(const TGrammar& grammar, SectionText& section, const std::string& key,
                              const std::string& value) const {
  if (const auto it = grammar.flags.find(key); it != grammar.flags.end()) {
    section.flags[it->second] = value;
    return;
  }
  if (const auto it = grammar.simple.find(key); it != grammar.simple.end()) {
    section.simple[it->second] = value;
    return;
  }
  const SettingArgs args = TOOLS::GetSettingArgs(value);
  SettingTypeComplex type = stcNone;
  if (!args.empty() && IsComplexSetting(grammar, args, type)) section.complex[type].push_back(args);
}

bool Parser::IsComplexSetting(const TGrammar& grammar, const SettingArgs& args, SettingTypeComplex& out) {
  // The first item names the row's key; every other item must be a part of
  // the same syntax, each at most once.
  for (const auto& [names, type] : grammar.complex) {
    if (!DL::IsSameSettingsName(args.front().name, names.front())) continue;
    std::set<std::string> seen;
    bool ok = true;
    for (const SettingParameter& a : args) {
      bool known = false;
      for (const std::string& n : names) known = known || DL::IsSameSettingsName(a.name, n);
      if (!known || !seen.insert(a.name).second) ok = false;
    }
    if (ok) {
      out = type;
      return true;
    }
  }
  return false;
}

void Parser::ParseIniText(std::string_view text) {
  InitParser();
  m_current = nullptr;
  std::size_t pos = 0;
  while (pos <= text.size()) {
    std::size_t end = text.find('\n', pos);
    if (end == std::string_view::npos) end = text.size();
    const std::string_view line = Trim(text.substr(pos, end - pos));
    pos = end + 1;
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '[') {
      const std::size_t close = line.find(']');
      BeginSection(std::string(Trim(line.substr(1, close == std::string_view::npos ? line.size() - 1 : close - 1))));
      continue;
    }
    if (m_current == nullptr) continue;
    const std::size_t eq = line.find('=');
    if (eq == std::string_view::npos) continue;
    ParseSettingLine(*m_currentGrammar, *m_current, std::string(Trim(line.substr(0, eq))),
                     std::string(Trim(line.substr(eq + 1))));
  }
  m_current = nullptr;
}

bool Parser::ParseIniFile(const char* path) {
  std::ifstream in(path == nullptr ? "" : path, std::ios::binary);
  if (!in) return false;
  std::ostringstream text;
  text << in.rdbuf();
  ParseIniText(text.str());
  return true;
}

void Parser::ParseIniFile(const DL::TIniSectionsMap& sections) {
  InitParser();
  for (const auto& [name, keys] : sections) {
    BeginSection(name);
    if (m_current == nullptr) continue;
    for (const auto& [key, value] : keys) ParseSettingLine(*m_currentGrammar, *m_current, key, value);
  }
  m_current = nullptr;
}

std::string Parser::GetGlobalFlagSettingText(SettingTypeFlag flag) const {
  const auto it = m_general.flags.find(flag);
  return it == m_general.flags.end() ? std::string() : it->second;
}

std::string Parser::GetGlobalSimpleSettingText(SettingTypeSimple setting) const {
  const auto it = m_general.simple.find(setting);
  return it == m_general.simple.end() ? std::string() : it->second;
}

const std::map<std::vector<std::string>, SectionText>& Parser::GetTemplateTypeExamples(TemplateSectionName kind) const {
  static const std::map<std::vector<std::string>, SectionText> kNone;
  return kind >= tsnMarginTemplate && kind <= tsnTemplateSetOfInstruments ? m_templates[kind] : kNone;
}

const SectionText* Parser::GetTemplateSection(TemplateSectionName kind, const std::vector<std::string>& parts) const {
  const auto& all = GetTemplateTypeExamples(kind);
  const auto it = all.find(parts);
  return it == all.end() ? nullptr : &it->second;
}

}  // namespace DLTypes
