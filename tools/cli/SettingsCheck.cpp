// The checker walks the text line by line exactly as the module's reader
// does (cut at ";", trim, headers, key lines), keeps what the reader would
// keep, and notes each place where the reader drops, merges or ignores
// something. The catalogue checks then run over the sections so gathered.
#include "tools/cli/SettingsCheck.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <algorithm>
#include <map>
#include <string>
#include <utility>

#include "base/TClassList.h"
#include "ini/IniSectCodes.h"
#include "ini/SettingsText.h"
#include "ini/TIniParser.h"
#include "settings/NamePattern.h"
#include "settings/SettingRules.h"

namespace zentdl {
namespace {

using DL::IsSameSettingsName;
using DL::TIniParser;

constexpr char kComment = ';';

std::string Quote(std::string_view s) { return "\"" + std::string(s) + "\""; }

std::string Upper(std::string_view s) {
  std::string out(s);
  for (char& c : out) c = DL::ToUpperAscii(c);
  return out;
}

bool StartsWithNoCase(std::string_view s, std::string_view prefix) {
  return s.size() >= prefix.size() && IsSameSettingsName(s.substr(0, prefix.size()), prefix);
}

// ---- What the catalogue knows ----------------------------------------------

// The types a value of a typed parameter must read as.
enum class EValueType { Flag, Int, Number, Char };

struct TTypedParam {
  std::string name;
  EValueType type;
};

class TCatalogue {
 public:
  TCatalogue() {
    TIniParser::FillCodeTables();
    for (int i = 0; i < DL::iscCount; ++i) m_sections.push_back(TIniParser::GetIniSectCode(static_cast<DL::EIniSectCodeNum>(i)));
    for (const auto& group : TIniParser::supParamAndSectCodes_)
      for (const auto& row : group)
        if (row.sectCode != DL::iscNone)
          m_sections.push_back(TIniParser::GetIniSectCode(static_cast<DL::EIniSectCodeNum>(row.sectCode)));
    for (int i = 0; i < TIniParser::ipcCount; ++i)
      AddParamName(TIniParser::GetIniParamCode(static_cast<TIniParser::EIniParamCodeNum>(i)));
    for (int i = 0; i < TIniParser::ppcCount; ++i)
      AddParamName(TIniParser::GetPartIniParamCode(static_cast<TIniParser::EPartIniParamCodeNum>(i)));

#define ZDL_NORM_SECTION(pattern, list) m_sectionRules.Add(DL::NamePattern::WholeName(pattern));
#define ZDL_NORM_PARAM(list, kind, text) AddParamRule(#kind, text);
#include "settings/SettingsNormalizerRules.def"

#define ZDL_GENERAL_PARAM(field, key, section, kind, def) AddGeneral(key, DL::isc##section, #kind);
#include "core/GeneralParams.def"
#undef ZDL_GENERAL_PARAM
#define ZDL_GENERAL_RENDERED(name) m_wholeParams.push_back(name);
#include "core/GeneralRenderedParams.def"
#undef ZDL_GENERAL_RENDERED
#define ZDL_UNIVERSAL_SECTION(section, count)
#define ZDL_UNIVERSAL_PARAM(section, number, type, parameter, def, validator) \
  AddUniversal(DL::isc##section, #type, TIniParser::GetIniParamCode(TIniParser::ipc##parameter));
#include "core/UniversalParams.def"
#undef ZDL_UNIVERSAL_PARAM
#undef ZDL_UNIVERSAL_SECTION
  }

  bool IsKnownSection(const std::string& name) const {
    for (const std::string& s : m_sections) {
      if (IsSameSettingsName(name, s)) return true;
      // A catalogue name ending in "_" opens a family ("PreTrade_12").
      if (!s.empty() && s.back() == '_' && name.size() > s.size() && StartsWithNoCase(name, s)) return true;
    }
    for (const char* family : {"ChangeFutClientCodes_", "CommissionScaleBoards_", "BaseAssets_Template_",
                               "PortfolioRiskConfig_", "VolumeBasedCommission_"})
      if (name.size() > std::strlen(family) && StartsWithNoCase(name, family)) return true;
    return m_sectionRules.Find(name).rule != nullptr;
  }

  bool IsKnownParameter(std::string_view key, int group) const {
    const std::string keyUp = Upper(key);
    for (const std::string& p : m_wholeParams)
      if (IsSameSettingsName(key, p)) return true;
    for (const std::string& p : m_prefixParams)
      if (key.size() > p.size() && StartsWithNoCase(key, p)) return true;
    for (const std::string& p : m_markerParamsUp)
      if (keyUp.find(p) != std::string::npos) return true;
    if (group >= 0 && static_cast<std::size_t>(group) < TIniParser::supParamAndSectCodes_.size())
      for (const auto& row : TIniParser::supParamAndSectCodes_[static_cast<std::size_t>(group)])
        if (TIniParser::DoesKeyMatchSupportedParam(row, keyUp)) return true;
    return m_paramRules.Find(key).rule != nullptr;
  }

  // The type of a typed parameter of the section, or null.
  const TTypedParam* TypedParam(const std::string& section, std::string_view key) const {
    auto it = m_typed.find(Upper(section));
    if (it == m_typed.end()) return nullptr;
    for (const TTypedParam& p : it->second)
      if (IsSameSettingsName(p.name, key)) return &p;
    return nullptr;
  }

 private:
  void AddParamName(const std::string& name) {
    if (name.empty()) return;
    if (name.front() == '_') {
      m_markerParamsUp.push_back(Upper(name));
    } else if (name.back() == '_') {
      m_prefixParams.push_back(name);
    } else {
      m_wholeParams.push_back(name);
    }
  }
  void AddParamRule(std::string_view kind, const char* text) {
    if (kind == "Prefix") {
      m_paramRules.Add(DL::NamePattern::Prefix(text));
    } else {
      m_paramRules.Add(DL::NamePattern::WholeName(text));
    }
  }
  void AddGeneral(const char* key, DL::EIniSectCodeNum section, std::string_view kind) {
    m_wholeParams.push_back(key);
    EValueType type;
    if (kind == "Flag") {
      type = EValueType::Flag;
    } else if (kind == "Int") {
      type = EValueType::Int;
    } else if (kind == "Number") {
      type = EValueType::Number;
    } else {
      return;  // texts and lists take any value
    }
    m_typed[Upper(DL::IniSectName(section))].push_back({key, type});
  }
  void AddUniversal(DL::EIniSectCodeNum section, std::string_view type, const std::string& name) {
    const EValueType t = type == "Char" ? EValueType::Char : type == "Bool" ? EValueType::Flag : EValueType::Int;
    m_typed[Upper(DL::IniSectName(section))].push_back({name, t});
  }

  std::vector<std::string> m_sections;       // whole section names
  DL::SettingRules m_sectionRules;           // the section families of the canonical order
  std::vector<std::string> m_wholeParams;    // parameter names matched whole
  std::vector<std::string> m_prefixParams;   // "MaxOrderQuantity_": an item follows
  std::vector<std::string> m_markerParamsUp; // "_DISC", upper-cased: joined to an item
  DL::SettingRules m_paramRules;             // parameter rules of the canonical order
  std::map<std::string, std::vector<TTypedParam>> m_typed;  // upper-case section -> typed parameters
};

const TCatalogue& Catalogue() {
  static const TCatalogue catalogue;
  return catalogue;
}

// The reading of a value as the module reads it at load: strtol or strtod
// over the whole trimmed value; an empty value takes the default.
bool ReadsAs(std::string_view value, EValueType type) {
  if (value.empty()) return true;
  const std::string text(value);
  char* end = nullptr;
  errno = 0;
  switch (type) {
    case EValueType::Char:
      return text.size() == 1;
    case EValueType::Number:
      std::strtod(text.c_str(), &end);
      break;
    case EValueType::Flag:
    case EValueType::Int: {
      const long v = std::strtol(text.c_str(), &end, 10);
      if (errno == ERANGE || v < -2147483648L || v > 2147483647L) return false;
      break;
    }
  }
  return end != nullptr && *end == '\0' && end != text.c_str() && errno != ERANGE;
}

std::string_view TypeWord(EValueType type) {
  switch (type) {
    case EValueType::Flag: return "a flag (a whole number, 0 for off)";
    case EValueType::Int: return "a whole number";
    case EValueType::Number: return "a number";
    case EValueType::Char: return "a single character";
  }
  return "";
}

// ---- The walk over the lines -----------------------------------------------

struct TKeySeen {
  int line;
  std::string key;
  std::string value;
};

struct TSectionSeen {
  std::string name;  // the spelling of the first header
  int line = 0;      // line of that header
  std::vector<TKeySeen> keys;                      // in file order
  std::map<std::string, std::size_t> keyIndex;     // upper-case key -> index in keys
};

class TChecker {
 public:
  std::vector<TFinding> Run(std::string_view text) {
    int lineNo = 0;
    while (!text.empty()) {
      ++lineNo;
      const std::size_t nl = text.find('\n');
      const std::string_view line = nl == std::string_view::npos ? text : text.substr(0, nl);
      Line(lineNo, line);
      text.remove_prefix(nl == std::string_view::npos ? text.size() : nl + 1);
    }
    ClosePending();
    CatalogueChecks();
    std::stable_sort(m_findings.begin(), m_findings.end(),
                     [](const TFinding& a, const TFinding& b) { return a.line < b.line; });
    return std::move(m_findings);
  }

 private:
  void Add(int line, EFindingKind kind, std::string message) {
    m_findings.push_back({line, kind, std::move(message)});
  }

  void Line(int lineNo, std::string_view raw) {
    std::string_view line = raw;
    std::size_t cut = line.find(kComment);
    const bool hasComment = cut != std::string_view::npos;
    if (hasComment) line = line.substr(0, cut);
    line = DL::SettingsTextDetail::TrimSpaces(line);
    if (line.empty()) return;  // blank, or a comment line

    if (line.front() == '[') {
      const std::size_t close = line.find(']', 1);
      if (close == std::string_view::npos || close == 1) {
        std::string where = m_current != nullptr ? "key lines below it go on into [" + m_current->name + "]"
                            : m_hasPending    ? "key lines below it go on into [" + m_pending + "]"
                                              : "key lines below it are skipped";
        Add(lineNo, EFindingKind::BadHeader,
            std::string(close == 1 ? "header with an empty name" : "header without \"]\"") +
                (hasComment && close == std::string_view::npos ? " (\";\" cut the line)" : "") +
                ": the line is skipped and " + where);
        return;
      }
      const std::string_view behind = DL::SettingsTextDetail::TrimSpaces(line.substr(close + 1));
      if (!behind.empty())
        Add(lineNo, EFindingKind::TextAfterHeader, "text behind \"]\" is ignored: " + Quote(behind));
      ClosePending();
      m_pending.assign(line.substr(1, close - 1));
      m_pendingLine = lineNo;
      m_hasPending = true;
      return;
    }
    if (m_current == nullptr && !m_hasPending) {
      Add(lineNo, EFindingKind::BeforeHeader, "line before the first section header is skipped: " + Quote(line));
      return;
    }
    const std::size_t eq = line.find('=');
    if (eq == std::string_view::npos || eq == 0) {
      std::string why = eq == 0 ? "line begins with \"=\"" : "line has no \"=\"";
      if (eq != 0 && hasComment && raw.find('=') != std::string_view::npos) why = "\";\" cut the line before its \"=\"";
      Add(lineNo, EFindingKind::MalformedLine, why + " and is skipped: " + Quote(line));
      return;
    }
    const std::string_view key = DL::SettingsTextDetail::TrimSpaces(line.substr(0, eq));
    const std::string_view value = DL::SettingsTextDetail::TrimSpaces(line.substr(eq + 1));
    if (hasComment)
      Add(lineNo, EFindingKind::CommentCut,
          "\";\" cuts the line: " + std::string(key) + " reads " + Quote(value) + ", the rest " +
              Quote(raw.substr(cut)) + " is dropped");

    if (m_hasPending) EnterPending(lineNo);
    TSectionSeen& section = *m_current;
    const std::string keyUp = Upper(key);
    const auto found = section.keyIndex.find(keyUp);
    if (found != section.keyIndex.end()) {
      const TKeySeen& first = section.keys[found->second];
      Add(lineNo, EFindingKind::RepeatedKey,
          "key " + std::string(key) + " in [" + section.name + "] repeats line " + std::to_string(first.line) +
              ": this value " + Quote(value) + " is ignored, " + Quote(first.value) + " stands");
      return;
    }
    section.keyIndex.emplace(keyUp, section.keys.size());
    section.keys.push_back({lineNo, std::string(key), std::string(value)});
  }

  void EnterPending(int lineNo) {
    (void)lineNo;
    m_valuesDone = m_valuesDone || m_insideValues;
    m_insideValues = false;
    const bool isCval = IsSameSettingsName(m_pending, DL::kClientCvalSectionName);
    if (!m_valuesDone && isCval) m_insideValues = true;
    if (isCval && m_valuesDone)
      Add(m_pendingLine, EFindingKind::LaterClientCval,
          "a later [" + m_pending + "] is an ordinary section: only the first run gives client values");
    // The client values of the first ClientCval run live apart from the section of that name.
    const std::string mapKey = (m_insideValues ? "\x01" : "") + Upper(m_pending);
    auto it = m_index.find(mapKey);
    if (it == m_index.end()) {
      it = m_index.emplace(mapKey, m_sections.size()).first;
      m_sections.push_back({m_pending, m_pendingLine, {}, {}});
      m_sectionIsValues.push_back(m_insideValues);
    } else if (!m_insideValues) {
      Add(m_pendingLine, EFindingKind::RepeatedSection,
          "section [" + m_pending + "] repeats line " + std::to_string(m_sections[it->second].line) +
              ": its keys join the first [" + m_sections[it->second].name + "]");
    }
    m_current = &m_sections[it->second];
    m_hasPending = false;
    m_pending.clear();
  }

  // A pending header that no key line entered leaves no section.
  void ClosePending() {
    if (!m_hasPending) return;
    Add(m_pendingLine, EFindingKind::EmptySection,
        "section [" + m_pending + "] has no valid key line and does not come into being" +
            (m_current != nullptr ? "; key lines below a broken header would go on into [" + m_current->name + "]"
                                  : std::string()));
    m_hasPending = false;
  }

  void CatalogueChecks() {
    const TCatalogue& catalogue = Catalogue();
    // kind of template family -> client -> (template section, line of its Clients)
    std::map<std::string, std::map<std::string, std::pair<std::string, int>>> claimed;
    for (std::size_t i = 0; i < m_sections.size(); ++i) {
      if (m_sectionIsValues[i]) continue;
      const TSectionSeen& s = m_sections[i];
      const TIniParser::TSectionClass c = TIniParser::ClassifySection(s.name);
      if (c.group == TIniParser::SectInvalid) {
        Add(s.line, EFindingKind::InvalidSection,
            "section [" + s.name + "] has a negative limit kind and joins no group: the module ignores it");
        continue;
      }
      const bool known = c.group != TIniParser::SectGlobal || catalogue.IsKnownSection(s.name);
      if (!known) {
        Add(s.line, EFindingKind::UnknownSection,
            "section [" + s.name + "] is unknown to the catalogue: the module keeps it as text and uses none of it");
        continue;
      }
      const bool isGeneral = IsSameSettingsName(s.name, DL::IniSectName(DL::iscGeneral));
      const bool fixedVocabulary = isGeneral || c.group == TIniParser::SectClient ||
                                   c.group == TIniParser::SectClientTemplate ||
                                   c.group == TIniParser::SectMarginClient ||
                                   c.group == TIniParser::SectMarginTemplate ||
                                   c.group == TIniParser::SectRestrictionTemplate;
      for (const TKeySeen& k : s.keys) {
        if (fixedVocabulary && !catalogue.IsKnownParameter(k.key, c.group))
          Add(k.line, EFindingKind::UnknownParameter,
              "parameter " + k.key + " of [" + s.name + "] is unknown to the catalogue: the module ignores it");
        if (const TTypedParam* p = catalogue.TypedParam(s.name, k.key); p != nullptr && !ReadsAs(k.value, p->type))
          Add(k.line, EFindingKind::BadValue,
              "value " + Quote(k.value) + " of " + k.key + " in [" + s.name + "] is not " +
                  std::string(TypeWord(p->type)) + ": the module reads what it can of it");
      }
      // Templates naming their clients in "Clients".
      std::string family;
      if (c.group == TIniParser::SectClientTemplate) family = "client template";
      if (c.group == TIniParser::SectMarginTemplate && c.limitKind == 0) family = "margin template";
      if (c.group == TIniParser::SectRestrictionTemplate) family = "restriction template";
      if (c.group == TIniParser::SectGlobal && StartsWithNoCase(s.name, "BaseAssets_Template_")) family = "base assets template";
      if (c.group == TIniParser::SectGlobal && StartsWithNoCase(s.name, "PortfolioRiskConfig_")) family = "portfolio risk template";
      if (family.empty()) continue;
      const auto clientsIt = s.keyIndex.find("CLIENTS");
      if (clientsIt == s.keyIndex.end()) continue;
      const TKeySeen& clients = s.keys[clientsIt->second];
      const DL::TClassList clientList(clients.value, DL::TClassList::NoRepeats);
      for (const std::string& client : clientList.Items()) {
        auto [it, added] = claimed[family].emplace(client, std::make_pair(s.name, clients.line));
        if (!added && !IsSameSettingsName(it->second.first, s.name))
          Add(clients.line, EFindingKind::ClientInTwoTemplates,
              "client " + client + " is in \"Clients\" of two " + family + "s, [" + it->second.first + "] (line " +
                  std::to_string(it->second.second) + ") and [" + s.name + "]: only one of them applies to it");
      }
    }
  }

  std::vector<TFinding> m_findings;
  std::deque<TSectionSeen> m_sections;      // in order of coming into being; stable addresses
  std::vector<bool> m_sectionIsValues;      // the entry is the first ClientCval run
  std::map<std::string, std::size_t> m_index;  // upper-case name -> index
  TSectionSeen* m_current = nullptr;
  std::string m_pending;
  int m_pendingLine = 0;
  bool m_hasPending = false;
  bool m_insideValues = false;
  bool m_valuesDone = false;
};

}  // namespace

std::string_view FindingKindName(EFindingKind kind) {
  switch (kind) {
    case EFindingKind::BeforeHeader: return "before-header";
    case EFindingKind::MalformedLine: return "malformed-line";
    case EFindingKind::BadHeader: return "bad-header";
    case EFindingKind::TextAfterHeader: return "text-after-header";
    case EFindingKind::EmptySection: return "empty-section";
    case EFindingKind::RepeatedSection: return "repeated-section";
    case EFindingKind::RepeatedKey: return "repeated-key";
    case EFindingKind::CommentCut: return "comment-cut";
    case EFindingKind::LaterClientCval: return "later-clientcval";
    case EFindingKind::UnknownSection: return "unknown-section";
    case EFindingKind::UnknownParameter: return "unknown-parameter";
    case EFindingKind::BadValue: return "bad-value";
    case EFindingKind::InvalidSection: return "invalid-section";
    case EFindingKind::ClientInTwoTemplates: return "client-in-two-templates";
  }
  return "";
}

std::vector<TFinding> CheckSettingsText(std::string_view text) { return TChecker().Run(text); }

}  // namespace zentdl
