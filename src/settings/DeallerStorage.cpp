#include "settings/DeallerStorage.h"

#include <cmath>
#include <cstdlib>

#include "core/DLFunctionHelpers.h"

namespace DLTypes {

namespace {

constexpr double kDefaultLeverage = -1.0;

bool FlagText(const std::string& text) { return std::strtol(text.c_str(), nullptr, 10) != 0; }

void ReadFlags(const SectionText& section, std::map<SettingTypeFlag, bool>& out) {
  for (const auto& [flag, text] : section.flags) out[flag] = FlagText(text);
}

const std::string* Simple(const SectionText& section, SettingTypeSimple setting) {
  const auto it = section.simple.find(setting);
  return it == section.simple.end() ? nullptr : &it->second;
}

// "up,down", each half trimmed.
void ReadScenarios(const std::string& text, double& up, double& down) {
  const std::size_t comma = text.find(',');
  up = std::strtod(DL::TrimStr(text.substr(0, comma)).c_str(), nullptr);
  down = comma == std::string::npos ? 0.0 : std::strtod(DL::TrimStr(text.substr(comma + 1)).c_str(), nullptr);
}

// "ThresMarginCoeff": empty keeps the default, 0 to 100 is taken, anything
// else is refused.
int ReadThresMarginCoeff(const std::string& text, double& out) {
  if (DL::TrimStr(text).empty()) return tecSuccess;
  TThresMarginCoeff coeff;
  const int rc = coeff.SetFromString(DL::TrimStr(text));
  if (rc == tecSuccess) out = coeff.Get();
  return rc;
}

}  // namespace

Storage::Storage(const char* path, bool parse) {
  InitParser();
  if (parse && ParseIniFile(path)) LoadSettingsFromParser();
}

Storage::Storage(const DL::TIniSectionsMap& sections) {
  InitParser();
  ParseIniFile(sections);
  LoadSettingsFromParser();
}

Storage Storage::FromText(std::string_view text) {
  Storage s;
  s.InitParser();
  s.ParseIniText(text);
  s.LoadSettingsFromParser();
  return s;
}

int Storage::LoadSet(const SectionText& section, const std::string& defaultName, SetOfInstruments& out) const {
  int last = tecSuccess;
  const std::string* base = Simple(section, stsBaseIndicator);
  const std::string name = base != nullptr ? *base : defaultName;
  if (name.empty()) return tecBadName;
  if (const int rc = out.name.Set(name); rc != tecSuccess) return rc;
  if (base != nullptr) out.baseIndicator = *base;
  if (const std::string* v = Simple(section, stsNettingType))
    if (const int rc = out.nettingType.Set(static_cast<unsigned>(std::strtol(v->c_str(), nullptr, 10)));
        rc != tecSuccess)
      last = rc;
  if (const std::string* v = Simple(section, stsThresMarginCoeff))
    if (const int rc = ReadThresMarginCoeff(*v, out.thresMarginCoeff); rc != tecSuccess) last = rc;
  if (const std::string* v = Simple(section, stsVolatilityChangeScenarios))
    ReadScenarios(*v, out.volatilityUp, out.volatilityDown);
  if (const std::string* v = Simple(section, stsDerivativesAutoInclusion))
    if (const int rc = out.derivativesAutoInclusion.SetFromString(DL::TrimStr(*v)); rc != tecSuccess) last = rc;
  if (const auto it = section.complex.find(stcInstruments); it != section.complex.end()) {
    // Each row as its three texts in the syntax's order; a part the line
    // leaves out takes the default of the row (relative risk 1, trend 1).
    std::vector<std::vector<std::string>> rows;
    for (const SettingArgs& args : it->second) {
      std::vector<std::string> texts{"", "1", "1"};
      for (const SettingParameter& a : args) {
        if (DL::IsSameSettingsName(a.name, "Instrument")) texts[0] = a.value;
        else if (DL::IsSameSettingsName(a.name, "RelativeRiskRate")) texts[1] = a.value;
        else if (DL::IsSameSettingsName(a.name, "DependencyTrend")) texts[2] = a.value;
      }
      rows.push_back(std::move(texts));
    }
    if (const int rc = out.Instruments().SetAllSettings(rows); rc != tecSuccess) last = rc;
  }
  return last;
}

int Storage::LoadSettingsFromParser() {
  int last = tecSuccess;
  auto note = [&](int rc) {
    if (rc != tecSuccess) last = rc;
  };
  if (const SectionText* g = GetGlobalSection()) {
    ReadFlags(*g, m_general.flags);
    if (const std::string* v = Simple(*g, stsBaseCurrency); v != nullptr && !DL::TrimStr(*v).empty())
      m_general.mainCurrency = DL::TrimStr(*v);
    if (const std::string* v = Simple(*g, stsCreditLag)) m_general.creditLag = std::atoi(v->c_str());
    if (const std::string* v = Simple(*g, stsClassesWithVarMarginCalc))
      note(m_general.boardsWithVMCalc.StringToList(*v));
    if (const std::string* v = Simple(*g, stsClassesWithVarMarginCalcOnSettlePrice))
      note(m_general.boardsWithVMCalcByGO.StringToList(*v));
    if (const std::string* v = Simple(*g, stsMDPlusMinMarginCalcRate))
      note(m_general.minMarginCalcRate.SetFromString(DL::TrimStr(*v)));
    if (const std::string* v = Simple(*g, stsThresMarginCoeff)) note(ReadThresMarginCoeff(*v, m_general.thresMarginCoeff));
    if (const std::string* v = Simple(*g, stsVolatilityChangeScenarios))
      ReadScenarios(*v, m_general.volatilityUp, m_general.volatilityDown);
    if (const std::string* v = Simple(*g, stsDerivativesAutoInclusion))
      note(m_general.derivativesAutoInclusion.SetFromString(DL::TrimStr(*v)));
  }

  for (const auto& [parts, section] : GetTemplateTypeExamples(tsnSetOfInstruments)) {
    SetOfInstruments set;
    const int rc = LoadSet(section, parts[0], set);
    if (rc == tecBadName) {
      note(rc);
      continue;  // a set without a usable name is left out
    }
    note(rc);
    m_sets.insert_or_assign(set.name.Get(), std::move(set));
  }
  for (const auto& [parts, section] : GetTemplateTypeExamples(tsnTemplateSetOfInstruments)) {
    SetOfInstruments set;
    const int rc = LoadSet(section, parts[1], set);
    if (rc == tecBadName) {
      note(rc);
      continue;
    }
    note(rc);
    m_setsByTemplate[parts[0]].insert_or_assign(set.name.Get(), std::move(set));
  }
  for (const auto& [parts, section] : GetTemplateTypeExamples(tsnMarginTemplate)) {
    MarginTemplate t;
    t.name = parts[0];
    ReadFlags(section, t.flags);
    if (const std::string* v = Simple(section, stsClients)) {
      note(t.clients.StringToList(DL::TrimStr(*v)));
      for (const TClientCode& c : t.clients) m_byClient.emplace(c, TClaim{kUseTemplate, t.name});
    }
    if (const std::string* v = Simple(section, stsIncludeClientsWithLeverage)) {
      note(t.leverages.StringToList(DL::TrimStr(*v)));
      for (const TLeverage& l : t.leverages) m_byLeverage.emplace(l, TClaim{kUseTemplate, t.name});
    }
    m_templates.insert_or_assign(t.name, std::move(t));
  }
  return last;
}

const Storage::TClaim* Storage::FindClaim(const std::string& client, double leverage) const {
  if (std::fabs(leverage - kDefaultLeverage) > 0.001) {
    TLeverage key;
    if (key.Set(leverage) == tecSuccess) {
      if (const auto it = m_byLeverage.find(key); it != m_byLeverage.end()) return &it->second;
    }
  }
  const std::string code = client.empty() ? std::string("<EMPTY>") : client;
  TClientCode key;
  if (key.Set(code) != tecSuccess) return nullptr;  // longer than 13 characters: the default client
  const auto it = m_byClient.find(key);
  return it == m_byClient.end() ? nullptr : &it->second;
}

const MarginTemplate* Storage::GetMarginTemplateByName(const std::string& name) const {
  const auto it = m_templates.find(name);
  return it == m_templates.end() ? nullptr : &it->second;
}

const MarginTemplate* Storage::GetMarginTemplate(const std::string& client, double leverage) const {
  const TClaim* claim = FindClaim(client, leverage);
  if (claim == nullptr || claim->first != kUseTemplate) return nullptr;
  return GetMarginTemplateByName(claim->second);
}

const SetOfInstruments* Storage::GetSetOfInstruments(const std::string& name) const {
  const auto it = m_sets.find(name);
  return it == m_sets.end() ? nullptr : &it->second;
}

const TSetsByName* Storage::GetSetOfInstrumentsByTemplateEx(const std::string& templ) const {
  const auto it = m_setsByTemplate.find(templ);
  return it == m_setsByTemplate.end() ? nullptr : &it->second;
}

TSetsByName Storage::GetSetOfInstrumentsByTemplate(const std::string& templ) const {
  TSetsByName out;
  if (const TSetsByName* own = GetSetOfInstrumentsByTemplateEx(templ)) out = *own;
  const MarginTemplate* t = GetMarginTemplateByName(templ);
  const bool* useGlobal = t != nullptr ? t->FindFlag(stfUseGlobalSets) : nullptr;
  if (useGlobal != nullptr && *useGlobal)
    for (const auto& [name, set] : m_sets) out.emplace(name, set);  // an own set of the name stays
  return out;
}

const SetOfInstruments* Storage::GetSetOfInstrumentsByTemplate(const std::string& templ,
                                                               const std::string& name) const {
  if (const TSetsByName* own = GetSetOfInstrumentsByTemplateEx(templ))
    if (const auto it = own->find(name); it != own->end()) return &it->second;
  const MarginTemplate* t = GetMarginTemplateByName(templ);
  const bool* useGlobal = t != nullptr ? t->FindFlag(stfUseGlobalSets) : nullptr;
  return useGlobal != nullptr && *useGlobal ? GetSetOfInstruments(name) : nullptr;
}

TSetsByName Storage::GetEffectiveSetOfInstruments(const std::string& client, double leverage) const {
  const TClaim* claim = FindClaim(client, leverage);
  if (claim == nullptr) return m_general.GetFlag(stfUseSetsForNonTemplateClients) ? m_sets : TSetsByName();
  if (claim->first == kUseTemplate) return GetSetOfInstrumentsByTemplate(claim->second);
  return m_sets;
}

bool Storage::GetEffectiveFuturesDiscountFromCollateralAmount(const std::string& client, double leverage) const {
  const TClaim* claim = FindClaim(client, leverage);
  if (claim != nullptr && claim->first == kUseTemplate) {
    const MarginTemplate* t = GetMarginTemplateByName(claim->second);
    const bool* flag = t != nullptr ? t->FindFlag(stfFuturesDiscountFromCollateralAmount) : nullptr;
    return flag != nullptr && *flag;
  }
  return m_general.GetFlag(stfFuturesDiscountFromCollateralAmount);
}

}  // namespace DLTypes
