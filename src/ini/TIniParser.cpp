#include "ini/TIniParser.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <set>

#include "base/TradingTypes.h"
#include "base/Numbers.h"
#include "ini/CodeTable.h"
#include "base/TextHelpers.h"
#include "base/ResultCodes.h"

namespace DL {
namespace {

// A ","-separated list, items trimmed, empty items dropped.
std::vector<std::string> SplitList(std::string_view text) { return BoardListToVector(text, ',', false); }

const std::string& Part(TIniParser::EPartIniSectCodeNum code) { return TIniParser::GetPartIniSectCode(code); }
const std::string& PartUp(TIniParser::EPartIniSectCodeNum code) { return TIniParser::GetPartIniSectCodeUp(code); }


// Upper-cases the ASCII letters, as toupper does under the "C" locale.
void UpperInPlace(std::string& text) {
  for (char& c : text) c = ToUpperAscii(c);
}

// Sorts a vector of texts in byte order. Texts that already stand in a few
// ascending runs (names taken in the order of a case-insensitive map) are
// sorted by merging the runs, which costs one comparison per text when the
// vector is sorted already; many runs are left to std::sort.
void SortSortedRuns(std::vector<std::string>& texts) {
  constexpr std::size_t kMaxRunsToMerge = 64;
  std::vector<std::size_t> bounds{0};  // where each run begins, then the end
  for (std::size_t i = 1; i < texts.size(); ++i) {
    if (texts[i] < texts[i - 1]) {
      if (bounds.size() == kMaxRunsToMerge) {
        std::sort(texts.begin(), texts.end());
        return;
      }
      bounds.push_back(i);
    }
  }
  bounds.push_back(texts.size());
  while (bounds.size() > 2) {
    std::vector<std::size_t> merged;
    merged.reserve(bounds.size() / 2 + 2);
    std::size_t j = 0;
    for (; j + 2 < bounds.size(); j += 2) {
      const auto at = [&](std::size_t k) { return texts.begin() + static_cast<std::ptrdiff_t>(bounds[k]); };
      std::inplace_merge(at(j), at(j + 1), at(j + 2));
      merged.push_back(bounds[j]);
    }
    for (; j < bounds.size(); ++j) merged.push_back(bounds[j]);  // an odd run, and the end
    bounds.swap(merged);
  }
}

// The number behind "_LimitKind_", read by strtol.
std::int64_t LimitKindAt(const std::string& section, std::size_t pos) {
  return std::strtol(section.c_str() + pos, nullptr, 10);
}

}  // namespace

// ---- Construction and loading ----

TIniParser::TIniParser() = default;

TIniParser::TIniParser(const char* source, int mode, char comment, unsigned flags) {
  Init(source, mode, comment, flags);
}

void TIniParser::FillCodeTables() {
  // The order of the calls is the order of the messages.
  std::string sect = SetIniSectionCodes();
  std::string partSect = SetPartIniSectionCodes();
  std::string param = SetIniParamCodes();
  std::string partParam = SetPartIniParamCodes();
  std::string priceTypes = SetPriceTypes();
  SetSupParamAndSectCodes();
  ThrowIfCodeTableErrors({sect, partSect, param, partParam, priceTypes});
}

int TIniParser::Init(const char* source, int mode, char comment, unsigned /*flags*/) {
  FillCodeTables();
  m_sections.clear();
  m_cvalSection.clear();
  m_templateStringMemo.clear();
  if (mode == SourceFile) {
    std::ifstream file;
    if (source) file.open(source, std::ios::in | std::ios::binary);
    if (!file.is_open()) {
      IndexSections();
      return 0;
    }
    ParseSettings(file, comment, &m_sections, &m_cvalSection);
  } else if (mode == SourceText) {
    // The text is read where it stands, not copied into a stream of its own.
    TMemoryInputStream in(source ? std::string_view(source) : std::string_view());
    ParseSettings(in, comment, &m_sections, &m_cvalSection);
  } else {
    IndexSections();
    return 0;
  }
  IndexSections();
  return 1;
}

void TIniParser::IndexSections() {
  // InitSectionNames and DivideSectionsIntoGroups in one walk of the map: a
  // large map is scattered over memory, and each section's upper name
  // serves both.
  StartSectionNames();
  StartGroups();
  for (auto it = m_sections.begin(); it != m_sections.end(); ++it) {
    m_sectionNames.push_back(it->first);
    std::string& up = m_sectionNamesUp.emplace_back(it->first);
    UpperInPlace(up);
    TSectionClass c;
    c.group = SectionsGroupOfUpper(it->first, up, c.name, c.client, c.templ, c.limitKind, c.clientKind);
    AddSectionIntoSectionsGroup_Body(it, c);
  }
  FinishSectionNames();
  FinishGroups();
}

void TIniParser::InitSectionNames() {
  StartSectionNames();
  for (const auto& [name, keys] : m_sections) {
    m_sectionNames.push_back(name);
    UpperInPlace(m_sectionNamesUp.emplace_back(name));
  }
  FinishSectionNames();
}

void TIniParser::StartSectionNames() {
  ++m_namesGeneration;
  m_sectionNamesUp.clear();
  m_sectionNamesUpOrdered.clear();
  m_sectionNames.clear();
  m_sectionNamesUp.reserve(m_sections.size());
  m_sectionNamesUpOrdered.reserve(m_sections.size());
  m_sectionNames.reserve(m_sections.size());
}

void TIniParser::FinishSectionNames() {
  // The map's order is the byte order of the upper names as long as no byte
  // has its high bit set, and the byte order of the names where their case
  // agrees: both vectors come in few sorted runs, mostly in one.
  SortSortedRuns(m_sectionNamesUp);
  SortSortedRuns(m_sectionNames);
  for (const std::string& name : m_sectionNames) UpperInPlace(m_sectionNamesUpOrdered.emplace_back(name));
}

// ---- Classifying sections ----

TIniParser::ESectType TIniParser::GetSectionsGroupNum(const std::string& section, std::string& name,
                                                      std::string& client, std::string& templ,
                                                      std::int64_t& limitKind, int& clientKind) {
  std::string up = section;
  UpperInPlace(up);
  return SectionsGroupOfUpper(section, up, name, client, templ, limitKind, clientKind);
}

TIniParser::ESectType TIniParser::SectionsGroupOfUpper(const std::string& section, const std::string& up,
                                                       std::string& name, std::string& client,
                                                       std::string& templ, std::int64_t& limitKind,
                                                       int& clientKind) {
  const std::string& cl = PartUp(pscCl);

  if (StringStartsCaseSens(up, GetIniSectCodeUp(iscCommissionScaleBoards))) {
    name = section;
    return SectCommissionScale;
  }
  if (up.find(PartUp(pscBd)) != std::string::npos && StringFinishesCaseSens(up, PartUp(psc_CommissionScale))) {
    name = section;
    return SectCommissionScale;
  }
  const std::string& changeFut = GetIniSectCodeUp(iscChangeFutClientCodes);
  if (StringStartsCaseSens(up, changeFut)) {
    name = GetIniSectCode(iscChangeFutClientCodes) + section.substr(changeFut.size());
    return SectGlobal;
  }
  if (up == GetIniSectCodeUp(iscClientLag) || up == GetIniSectCodeUp(iscClientCval)) {
    name = GetIniSectCode(up == GetIniSectCodeUp(iscClientLag) ? iscClientLag : iscClientCval);
    return SectGlobal;
  }
  if (const auto it = supGlobSectCodeUpToSectCodes_.find(up); it != supGlobSectCodeUpToSectCodes_.end()) {
    name = it->second;
    return SectGlobal;
  }
  if (!StringStartsCaseSens(up, cl)) {
    name = section;
    return SectGlobal;
  }
  if (up.find(PartUp(pscVolumeBasedCommission_)) != std::string::npos) {
    name = section;
    return SectVolumeBasedCommission;
  }
  if (up.find(PartUp(pscSetOfInstruments_)) != std::string::npos) {
    name = section;
    return SectSetOfInstruments;
  }

  const std::string& margin = PartUp(psc_Margin);
  const std::string& limitKindMark = PartUp(psc_LimitKind_);
  const std::size_t marginPos = up.find(margin, cl.size());
  if (marginPos != std::string::npos) {
    const std::size_t behindMargin = marginPos + margin.size();
    const std::string& templMark = PartUp(psc_Template);
    const std::size_t templPos = up.find(templMark, behindMargin);
    if (templPos != std::string::npos) {
      const std::size_t behindTempl = templPos + templMark.size();
      if (behindTempl == up.size()) {
        templ = section.substr(cl.size(), marginPos - cl.size());
        limitKind = 0;
        return SectMarginTemplate;
      }
      if (up.compare(behindTempl, limitKindMark.size(), limitKindMark) == 0) {
        templ = section.substr(cl.size(), marginPos - cl.size());
        limitKind = LimitKindAt(section, behindTempl + limitKindMark.size());
        return limitKind < 0 ? SectInvalid : SectMarginTemplate;
      }
    }
    const bool endsWithMargin = behindMargin == up.size();
    const bool limitKindBehind = !endsWithMargin &&
                                 up.compare(behindMargin, limitKindMark.size(), limitKindMark) == 0;
    if (endsWithMargin || limitKindBehind) {
      client = section.substr(cl.size(), marginPos - cl.size());
      limitKind = endsWithMargin ? 0 : LimitKindAt(section, behindMargin + limitKindMark.size());
      if (IsSameSettingsName(client, PartUp(pscGeneral))) {
        clientKind = 0;
      } else if (!client.empty() && client.back() == '*') {
        client.pop_back();
        clientKind = 1;
      } else {
        clientKind = 2;
      }
      return limitKind < 0 ? SectInvalid : SectMarginClient;
    }
  }
  if (StringFinishesCaseSens(up, PartUp(psc_Restriction_Template))) {
    templ = section.substr(cl.size(), up.size() - cl.size() - PartUp(psc_Restriction_Template).size());
    return SectRestrictionTemplate;
  }
  if (StringFinishesCaseSens(up, PartUp(psc_Client_Template))) {
    templ = section.substr(cl.size(), up.size() - cl.size() - PartUp(psc_Client_Template).size());
    return SectClientTemplate;
  }
  client = section.substr(cl.size());
  if (client.size() <= MaxClientCodeLength) return SectClient;
  name = section;
  return SectGlobal;
}

TIniParser::TSectionClass TIniParser::ClassifySection(const std::string& section) {
  TSectionClass c;
  c.group = GetSectionsGroupNum(section, c.name, c.client, c.templ, c.limitKind, c.clientKind);
  return c;
}

void TIniParser::ClearGroups() {
  m_clientSections.clear();
  m_clientTemplates.clear();
  m_clientTemplatesByLeverage.clear();
  m_globalSections.clear();
  m_marginGlobal.clear();
  m_marginClients.clear();
  m_marginPrefixClients.clear();
  m_marginTemplates.clear();
  m_marginTemplatesByLeverage.clear();
  m_marginTemplatesByClient.clear();
  m_restrictionTemplates.clear();
}

void TIniParser::DivideSectionsIntoGroups() {
  StartGroups();
  for (auto it = m_sections.begin(); it != m_sections.end(); ++it) AddSectionIntoSectionsGroup(it);
  FinishGroups();
}

void TIniParser::StartGroups() {
  ClearGroups();
  FillKnownGlobalSections();
}

void TIniParser::FinishGroups() {
  for (const auto& [up, name] : supGlobSectCodeUpToSectCodes_) m_globalSections.emplace(name, m_sections.end());
}

void TIniParser::AddSectionIntoSectionsGroup(TSectionIt it) {
  if (it == m_sections.end()) return;
  AddSectionIntoSectionsGroup_Body(it, ClassifySection(it->first));
}

void TIniParser::AddSectionIntoSectionsGroup_Body(TSectionIt it, const TSectionClass& c) {
  switch (c.group) {
    case SectClient:
      // DivideSectionsIntoGroups enters the sections in map order, and the
      // clients with them: the end is the place to try first.
      m_clientSections.emplace_hint(m_clientSections.end(), c.client, it);
      break;
    case SectClientTemplate: {
      const auto templIt = m_clientTemplates.emplace_hint(m_clientTemplates.end(), c.templ, it);
      const std::string& list = GetIniParamString(it, ipcIncludeClientsWithLeverage, EmptyString());
      for (const std::string& item : SplitList(list)) {
        const std::int64_t leverage = GetLeverageFromString(item.c_str());
        if (leverage >= 0) m_clientTemplatesByLeverage.emplace(static_cast<std::int32_t>(leverage), templIt);
      }
      break;
    }
    case SectGlobal:
    case SectSetOfInstruments: {
      const std::size_t before = m_globalSections.size();
      const auto entry = m_globalSections.emplace_hint(m_globalSections.end(), c.name, it);
      if (m_globalSections.size() == before && entry->second == m_sections.end()) entry->second = it;
      break;
    }
    case SectMarginClient: {
      const auto kind = static_cast<std::uint64_t>(c.limitKind);
      if (c.clientKind == 0)
        m_marginGlobal.emplace(kind, it);
      else if (c.clientKind == 1)
        m_marginPrefixClients.try_emplace(m_marginPrefixClients.end(), c.client)->second.emplace(kind, it);
      else
        m_marginClients.try_emplace(m_marginClients.end(), c.client)->second.emplace(kind, it);
      break;
    }
    case SectMarginTemplate: {
      const auto templIt = m_marginTemplates.try_emplace(m_marginTemplates.end(), c.templ);
      templIt->second.emplace(static_cast<std::uint64_t>(c.limitKind), it);
      if (c.limitKind != 0) break;
      const std::string& levers = GetIniParamString(it, ipcIncludeClientsWithLeverage, EmptyString());
      for (const std::string& item : SplitList(levers)) {
        const std::int64_t leverage = GetLeverageFromString(item.c_str());
        if (leverage >= 0) m_marginTemplatesByLeverage.emplace(static_cast<std::int32_t>(leverage), templIt);
      }
      const std::string& clients = GetIniParamString(it, ipcClients, EmptyString());
      for (const std::string& client : SplitList(clients))
        m_marginTemplatesByClient.emplace(client, templIt);
      break;
    }
    case SectRestrictionTemplate:
      m_restrictionTemplates.emplace_hint(m_restrictionTemplates.end(), c.templ, it);
      break;
    default:  // commission scales, volume-based commission, invalid limit kinds
      break;
  }
}

void TIniParser::RemoveSectionFromSectionsGroup(TSectionIt it) {
  if (it == m_sections.end()) return;
  RemoveSectionFromSectionsGroup_Body(it, ClassifySection(it->first));
}

namespace {

// Erases every entry of a by-leverage or by-client map that points at `target`.
template <class M, class T>
void EraseEntriesPointingAt(M& map, T target) {
  std::erase_if(map, [&](const auto& entry) { return entry.second == target; });
}

// Erases one limit kind of a section from a client's or template's map; the
// caller drops the outer entry when it becomes empty.
template <class M>
void EraseLimitKind(M& outer, const std::string& name, std::uint64_t kind, TIniParser::TSectionIt it) {
  const auto found = outer.find(name);
  if (found == outer.end()) return;
  const auto inner = found->second.find(kind);
  if (inner != found->second.end() && inner->second == it) found->second.erase(inner);
}

}  // namespace

void TIniParser::RemoveSectionFromSectionsGroup_Body(TSectionIt it, const TSectionClass& c) {
  switch (c.group) {
    case SectClient: {
      const auto found = m_clientSections.find(c.client);
      if (found != m_clientSections.end() && found->second == it) m_clientSections.erase(found);
      break;
    }
    case SectClientTemplate: {
      const auto found = m_clientTemplates.find(c.templ);
      if (found == m_clientTemplates.end() || found->second != it) break;
      EraseEntriesPointingAt(m_clientTemplatesByLeverage, found);
      m_clientTemplates.erase(found);
      break;
    }
    case SectGlobal:
    case SectSetOfInstruments: {
      const auto found = m_globalSections.find(c.name);
      if (found == m_globalSections.end() || found->second != it) break;
      // A supported section stays known, without a section behind it.
      if (supGlobSectCodeUpToSectCodes_.count(StrUpper(c.name)))
        found->second = m_sections.end();
      else
        m_globalSections.erase(found);
      break;
    }
    case SectMarginClient: {
      const auto kind = static_cast<std::uint64_t>(c.limitKind);
      if (c.clientKind == 0) {
        const auto found = m_marginGlobal.find(kind);
        if (found != m_marginGlobal.end() && found->second == it) m_marginGlobal.erase(found);
        break;
      }
      TClientLimitKindsMap& outer = c.clientKind == 1 ? m_marginPrefixClients : m_marginClients;
      EraseLimitKind(outer, c.client, kind, it);
      const auto found = outer.find(c.client);
      if (found != outer.end() && found->second.empty()) outer.erase(found);
      break;
    }
    case SectMarginTemplate: {
      const auto found = m_marginTemplates.find(c.templ);
      if (found == m_marginTemplates.end()) break;
      EraseLimitKind(m_marginTemplates, c.templ, static_cast<std::uint64_t>(c.limitKind), it);
      if (c.limitKind == 0) {
        EraseEntriesPointingAt(m_marginTemplatesByLeverage, found);
        EraseEntriesPointingAt(m_marginTemplatesByClient, found);
      }
      if (found->second.empty()) {
        EraseEntriesPointingAt(m_marginTemplatesByLeverage, found);
        EraseEntriesPointingAt(m_marginTemplatesByClient, found);
        m_marginTemplates.erase(found);
      }
      break;
    }
    case SectRestrictionTemplate: {
      const auto found = m_restrictionTemplates.find(c.templ);
      if (found != m_restrictionTemplates.end() && found->second == it) m_restrictionTemplates.erase(found);
      break;
    }
    default:
      break;
  }
}

// ---- Reading a parameter ----

const std::string& TIniParser::EmptyString() {
  static const std::string kEmpty;
  return kEmpty;
}

const std::string* TIniParser::FindValue(const TKeyMap* keys, const std::string& key) {
  if (!keys) return nullptr;
  const auto it = keys->find(key);
  return it == keys->end() ? nullptr : &it->second;
}

int TIniParser::ValueToInt(const std::string* v, int def) {
  if (!v || v->empty()) return def;
  return static_cast<int>(std::strtol(v->c_str(), nullptr, 10));
}

double TIniParser::ValueToDouble(const std::string* v, double def) {
  if (!v || v->empty()) return def;
  return std::strtod(v->c_str(), nullptr);
}

int TIniParser::GetIniParamString(const char* section, const char* key, char* out, const char* def) const {
  const std::string* v = FindValue(SectionOf(section), KeyOf(key));
  const char* text = v ? v->c_str() : (def ? def : "");
  const std::size_t len = std::strlen(text);
  std::memcpy(out, text, len + 1);
  return static_cast<int>(len);
}

std::vector<std::string> TIniParser::GetIniSettingByKey(const TKeyMap& keys, const std::string& key) {
  const std::string keyUp = StrUpper(key);
  for (const auto& [k, v] : keys)
    if (StrUpper(k) == keyUp) return SplitList(v);
  return {};
}

// ---- Composing names ----

void TIniParser::GetClientSettingsSectionCode(std::string& out, const std::string& client) const {
  out = Part(pscCl) + client;
}

std::string TIniParser::ComposeTemplateSection(const std::string& templ, EPartIniSectCodeNum ending) const {
  return Part(pscCl) + templ + Part(ending);
}

void TIniParser::GetClientTemplateSectionCode(std::string& out, const std::string& templ) const {
  out = ComposeTemplateSection(templ, psc_Client_Template);
}

void TIniParser::GetRestrictionTemplateSectionCode(std::string& out, const std::string& templ) const {
  out = ComposeTemplateSection(templ, psc_Restriction_Template);
}

void TIniParser::GetMarginClientSettingsSectionCode(std::string& out, const std::string& client,
                                                    std::uint64_t limitKind) const {
  out = Part(pscCl) + client + Part(psc_Margin);
  if (limitKind != 0) out += Part(psc_LimitKind_) + std::to_string(limitKind);
}

void TIniParser::GetMarginTemplateSectionCode(std::string& out, const std::string& templ,
                                              std::uint64_t limitKind) const {
  out = ComposeTemplateSection(templ, psc_Margin_Template);
  if (limitKind != 0) out += Part(psc_LimitKind_) + std::to_string(limitKind);
}

void TIniParser::GetSectionHeader(std::string& out, EIniSectCodeNum code) const {
  out = "[" + GetIniSectCode(code) + "]";
}

std::string TIniParser::GetTPScaleSectionName(const std::string& plan, const std::string& board) const {
  std::string name;
  if (!plan.empty()) name = PartUp(pscTp) + plan + "_";
  return name + PartUp(pscBd) + board + PartUp(psc_CommissionScale);
}

void TIniParser::SettingIntValueToStr(std::string& out, EIniParamCodeNum code, long long value) const {
  out = GetIniParamCode(code) + "=" + std::to_string(value);
}

// ---- Finding sections ----

TIniParser::TSectionIt TIniParser::FindIniSection(const std::string& name) { return m_sections.find(name); }

TIniParser::TSectionsMap::const_iterator TIniParser::FindIniSection(const std::string& name) const {
  return m_sections.find(name);
}

TIniParser::TKeyMap* TIniParser::FindIniSectionRef(const std::string& name) {
  const auto it = m_sections.find(name);
  return it == m_sections.end() ? nullptr : &it->second;
}

const TIniParser::TKeyMap* TIniParser::FindIniSectionRef(const std::string& name) const {
  const auto it = m_sections.find(name);
  return it == m_sections.end() ? nullptr : &it->second;
}

TIniParser::TKeyMap* TIniParser::FindIniSection(EIniSectCodeNum code, ESectType type) {
  if (type == SectGlobal) {
    const auto it = m_globalSections.find(GetIniSectCode(code));
    if (it == m_globalSections.end() || it->second == m_sections.end()) return nullptr;
    return &it->second->second;
  }
  return FindIniSectionRef(GetIniSectCode(code));
}

bool TIniParser::IsSectionExist(const std::string& name) const { return m_sections.count(name) != 0; }

bool TIniParser::IsSectionExist(TSectionsMap::const_iterator it) const {
  if (it == m_sections.end()) return false;
  const auto found = m_sections.find(it->first);
  return found == it;
}

TIniParser::TKeyMap TIniParser::GetIniSection(const std::string& name) const {
  const TKeyMap* keys = FindIniSectionRef(name);
  return keys ? *keys : TKeyMap();
}

int TIniParser::GetIniSection(const char* section, char* out) const {
  const TKeyMap* keys = FindIniSectionRef(section ? section : "");
  char* p = out;
  if (keys) {
    for (const auto& [k, v] : *keys) {
      std::memcpy(p, k.data(), k.size());
      p += k.size();
      *p++ = '=';
      std::memcpy(p, v.data(), v.size());
      p += v.size();
      *p++ = '\0';
    }
  }
  *p = '\0';
  return static_cast<int>(p - out);
}

int TIniParser::GetIniSectionNames(char* out) const {
  char* p = out;
  for (const auto& [name, keys] : m_sections) {
    std::memcpy(p, name.data(), name.size());
    p += name.size();
    *p++ = '\0';
  }
  *p = '\0';
  return static_cast<int>(p - out);
}

bool TIniParser::DoesSectionEmpty(const std::string& name) const {
  const std::string up = StrUpper(name);
  if (std::find(m_sectionNamesUp.begin(), m_sectionNamesUp.end(), up) == m_sectionNamesUp.end()) return false;
  const TKeyMap* keys = FindIniSectionRef(name);
  return keys && keys->empty();
}

bool TIniParser::DoesSectionExistUp(std::string_view nameUp) const {
  return std::binary_search(m_sectionNamesUp.begin(), m_sectionNamesUp.end(), nameUp,
                            [](std::string_view a, std::string_view b) { return a < b; });
}

std::string TIniParser::DoesSectionExist(const std::string& beginning, const std::string& ending) const {
  const std::string begUp = StrUpper(beginning);
  if (ending.empty()) return DoesSectionExistUp(begUp) ? begUp : std::string();
  const std::string endUp = StrUpper(ending);
  for (const std::string& up : m_sectionNamesUp)
    if (up.size() >= begUp.size() + endUp.size() && StringStartsCaseSens(up, begUp) && StringFinishesCaseSens(up, endUp)) return up;
  return {};
}

std::vector<std::string> TIniParser::GetSectionNamesFromParser(const std::string& text) const {
  const std::string textUp = StrUpper(text);
  std::vector<std::string> names;
  for (std::size_t i = 0; i < m_sectionNames.size() && i < m_sectionNamesUpOrdered.size(); ++i)
    if (StringStartsCaseSens(m_sectionNamesUpOrdered[i], textUp)) names.push_back(m_sectionNames[i]);
  return names;
}

int TIniParser::GetSectionFromParser(const std::string& text, bool contains, TSectionsMap& out) const {
  out.clear();
  if (!contains) {
    const auto it = m_sections.find(text);
    if (it != m_sections.end()) out.insert(*it);
  } else {
    const std::string textUp = StrUpper(text);
    for (const auto& section : m_sections)
      if (StrUpper(section.first).find(textUp) != std::string::npos) out.insert(section);
  }
  return out.empty() ? ZDL_NOT_FOUND : ZDL_OK;
}

int TIniParser::GetSectionDictionary(int type, TGlobalSectionsMap*& out) {
  out = type == SectGlobal ? &m_globalSections : nullptr;
  return ZDL_OK;
}

// ---- Editing ----

TIniParser::TSectionIt TIniParser::CreateSectionUngrouped(const std::string& name) {
  auto it = m_sections.find(name);
  if (it != m_sections.end()) return it;
  it = m_sections.emplace(name, TKeyMap()).first;
  ++m_namesGeneration;
  m_sectionNames.push_back(name);
  m_sectionNamesUp.push_back(StrUpper(name));
  m_sectionNamesUpOrdered.push_back(m_sectionNamesUp.back());
  return it;
}

TIniParser::TSectionIt TIniParser::AddIniSection(const std::string& name, const TKeyMap& keys) {
  const auto [it, inserted] = m_sections.emplace(name, keys);
  if (inserted) AddSectionIntoSectionsGroup(it);
  return it;
}

TIniParser::TSectionIt TIniParser::FindOrCreateIniSection(const std::string& name) {
  const auto it = m_sections.find(name);
  return it != m_sections.end() ? it : AddIniSection(name, m_emptySection);
}

void TIniParser::RemoveIniSection(const std::string& name) { RemoveIniSection(m_sections.find(name)); }

void TIniParser::RemoveIniSection(TSectionIt it) {
  if (it == m_sections.end()) return;
  RemoveSectionFromSectionsGroup(it);
  m_sections.erase(it);
}

void TIniParser::ChangeIniParamValueListByKey(TKeyMap& keys, const std::string& key,
                                              const std::string& valueList, bool replace,
                                              bool keepOrder) {
  std::string& value = keys.try_emplace(key).first->second;
  const std::vector<std::string> given = SplitList(valueList);
  std::vector<std::string> result;
  if (keepOrder) {
    if (!replace) result = SplitList(value);
    result.insert(result.end(), given.begin(), given.end());
  } else {
    std::set<std::string> items(given.begin(), given.end());
    if (!replace)
      for (std::string& item : SplitList(value)) items.insert(std::move(item));
    result.assign(items.begin(), items.end());
  }
  std::string joined;
  for (const std::string& item : result) {
    if (!joined.empty()) joined += ",";
    joined += item;
  }
  value = joined;
}

int TIniParser::SetTemplateParamToAllLimitKinds(int type, const std::string& templ, EIniParamCodeNum param,
                                                const std::string& value) {
  if (templ.empty()) return ZDL_BAD_ARGUMENT;
  EPartIniSectCodeNum ending = pscCount;
  if (type < 0 || GetPartIniSectCodeNum__XXX_Template(ending, type) != ZDL_OK) return ZDL_TEMPLATE_NOT_EXIST;
  const std::string section = ComposeTemplateSection(templ, ending);
  auto it = m_sections.find(section);
  if (type == TemplateCommissionScale && it == m_sections.end()) {
    SetIniParam(section, GetIniParamCode(ipcClients), std::string());
    it = m_sections.find(section);
    AddSectionIntoSectionsGroup(it);
    if (it == m_sections.end()) return ZDL_TEMPLATE_NOT_EXIST;
  }
  const std::string& key = GetIniParamCode(param);
  SetIniParam(it, key, value);
  const std::string twinUp = StrUpper(section + Part(psc_LimitKind_));
  for (auto twin = m_sections.begin(); twin != m_sections.end(); ++twin)
    if (StringStartsCaseSens(StrUpper(twin->first), twinUp)) SetIniParam(twin, key, value);
  return ZDL_OK;
}

void TIniParser::ReloadRestrictionsTemplates(const TIniParser& other) {
  m_templateStringMemo.clear();
  for (auto it = m_sections.begin(); it != m_sections.end();) {
    if (ClassifySection(it->first).group == SectRestrictionTemplate) {
      RemoveSectionFromSectionsGroup(it);
      it = m_sections.erase(it);
    } else {
      ++it;
    }
  }
  m_restrictionTemplates.clear();
  std::string name;
  for (const auto& [templ, section] : other.m_restrictionTemplates) {
    GetRestrictionTemplateSectionCode(name, templ);
    AddIniSection(name, section->second);
  }
  InitSectionNames();
}

// ---- Templates ----

bool TIniParser::FindTemplateString(const std::string& section, const std::string& item) {
  auto memo = m_templateStringMemo.find(section);
  if (memo == m_templateStringMemo.end()) {
    std::vector<std::string> list =
        SplitList(GetIniParamString(section, ipcClients, EmptyString()));
    std::sort(list.begin(), list.end());
    memo = m_templateStringMemo.emplace(section, std::move(list)).first;
  }
  return std::binary_search(memo->second.begin(), memo->second.end(), item);
}

int TIniParser::GetTemplateClientSectionByLeverage(double leverage, std::string* out) const {
  if (leverage < -1e-7 || !out) return 0;
  const auto it = m_clientTemplatesByLeverage.find(static_cast<std::int32_t>(GetScaledLeverage(leverage)));
  if (it == m_clientTemplatesByLeverage.end()) return 0;
  *out = it->second->first;
  return 1;
}

// ---- Rendering ----

std::string TIniParser::GetRowFromSection(TSectionsMap::const_iterator it) const {
  if (it == m_sections.end() || it->second.empty()) return {};
  std::string row = "[" + it->first + "]\n";
  for (const auto& [k, v] : it->second) row += k + "=" + v + "\n";
  return row;
}

std::string TIniParser::GetRowFromSection(const std::string& name) const {
  return GetRowFromSection(m_sections.find(name));
}

std::string TIniParser::GetRowFromTemplateSection(TSectionsMap::const_iterator it) const {
  if (it == m_sections.end() || it->second.empty()) return {};
  const std::string& clientsKey = GetIniParamCode(ipcClients);
  std::string row = "[" + it->first + "]\n";
  row += clientsKey + "=" + GetIniParamString(it, ipcClients, EmptyString()) + "\n";
  for (const auto& [k, v] : it->second)
    if (StrUpper(k) != GetIniParamCodeUp(ipcClients)) row += k + "=" + v + "\n";
  return row;
}

}  // namespace DL
