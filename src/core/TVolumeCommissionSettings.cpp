#include "core/TVolumeCommissionSettings.h"

#include <string>

#include "base/TextHelpers.h"
#include "core/HubSectionHelpers.h"

namespace DL {

namespace {

constexpr std::string_view kMarkUp = "VOLUMEBASEDCOMMISSION_";
constexpr std::string_view kClientPrefixUp = "CL";
constexpr std::string_view kTemplateTailUp = "_CLIENT_TEMPLATE_";
constexpr const char* kClientTemplateBeginning = "cl";
constexpr const char* kClientTemplateEnding = "_Client_Template";

enum class EVolumeOwner { None, Global, Template, Client };

// Which store a section name belongs to, and the owner's code (as written).
EVolumeOwner ClassifyVolumeSection(const std::string& name, std::string& owner) {
  const std::string up = StrUpper(name);
  const std::size_t mark = up.find(kMarkUp);
  if (mark == std::string::npos) return EVolumeOwner::None;
  if (mark == 0) return EVolumeOwner::Global;
  if (up.compare(0, kClientPrefixUp.size(), kClientPrefixUp) != 0) return EVolumeOwner::None;
  const std::string head = up.substr(0, mark);  // "CL<owner>_..."
  if (head.size() > kClientPrefixUp.size() + kTemplateTailUp.size() &&
      head.compare(head.size() - kTemplateTailUp.size(), kTemplateTailUp.size(), kTemplateTailUp) == 0) {
    owner = name.substr(kClientPrefixUp.size(), head.size() - kClientPrefixUp.size() - kTemplateTailUp.size());
    return HubText::IsCode(owner, MaxTemplateCodeLength) ? EVolumeOwner::Template : EVolumeOwner::None;
  }
  if (head.size() > kClientPrefixUp.size() + 1 && head.back() == '_') {
    owner = name.substr(kClientPrefixUp.size(), head.size() - kClientPrefixUp.size() - 1);
    return HubText::IsCode(owner, MaxClientCodeLength) ? EVolumeOwner::Client : EVolumeOwner::None;
  }
  return EVolumeOwner::None;
}

// The first table naming the class, else the first for all classes.
const TVolumeBasedCommission* FindInSections(const TVolumeCommissionSettings::TSections& sections,
                                             const std::string& classCode) {
  for (const auto& s : sections)
    if (s.commission.GetAllStrings().count(classCode) != 0) return &s.commission;
  for (const auto& s : sections)
    if (s.commission.GetAllStrings().count(AllMark) != 0) return &s.commission;
  return nullptr;
}

}  // namespace

void TVolumeCommissionSettings::Parse(const TIniParser& parser) {
  m_global.clear();
  m_templates.clear();
  m_clients.clear();
  for (const auto& [name, keys] : parser.GetSections()) {
    std::string owner;
    const EVolumeOwner kind = ClassifyVolumeSection(name, owner);
    if (kind == EVolumeOwner::None) continue;
    TVolumeBasedCommissionSection s;
    s.section = name;
    s.commission.ParseFromSection(keys, s.raw);
    switch (kind) {
      case EVolumeOwner::Global:
        m_global.push_back(std::move(s));
        break;
      case EVolumeOwner::Template:
        m_templates[owner].push_back(std::move(s));
        break;
      case EVolumeOwner::Client:
        m_clients[owner].push_back(std::move(s));
        break;
      case EVolumeOwner::None:
        break;
    }
  }
}

void TVolumeCommissionSettings::SectionToStr(std::string& out, const TVolumeBasedCommissionSection& s) {
  out += '[';
  out += s.section;
  out += "]\n";
  out += s.commission.ToSectionBody();
  HubText::AppendRawLines(out, s.raw);
}

void TVolumeCommissionSettings::AppendRows(const TIniParser& parser, std::string& text, TWrittenSections& written,
                                           int step) const {
  const TIniSectionsMap& sections = parser.GetSections();
  // False for a section an earlier step wrote already.
  auto markWritten = [&](const TVolumeBasedCommissionSection& s) {
    const auto it = sections.find(s.section);
    return it == sections.end() || written.insert(&it->first).second;
  };
  switch (step) {
    case 3:
      for (const auto& [client, list] : m_clients)
        for (const auto& s : list) {
          if (markWritten(s)) SectionToStr(text, s);
        }
      break;
    case 4:
      for (const auto& [templ, list] : m_templates)
        for (const auto& s : list) {
          if (markWritten(s)) SectionToStr(text, s);
        }
      break;
    case 6:
      for (const auto& s : m_global) {
        if (markWritten(s)) SectionToStr(text, s);
      }
      break;
    default:
      break;
  }
}

const TVolumeBasedCommission* TVolumeCommissionSettings::Find(const char* client, const char* classCode,
                                                              const TIniLogicParser& logic) const {
  const std::string cls = TrimStr(classCode != nullptr ? classCode : "");
  const std::string code = TrimStr(client != nullptr ? client : "");
  if (!code.empty()) {
    const auto own = m_clients.find(code);
    if (own != m_clients.end())
      if (const TVolumeBasedCommission* c = FindInSections(own->second, cls)) return c;
    const std::string& templSection =
        logic.TemplateClientSection(code, kClientTemplateBeginning, kClientTemplateEnding);
    const std::size_t beginning = std::char_traits<char>::length(kClientTemplateBeginning);
    const std::size_t ending = std::char_traits<char>::length(kClientTemplateEnding);
    if (templSection.size() > beginning + ending) {
      const std::string templ = templSection.substr(beginning, templSection.size() - beginning - ending);
      const auto t = m_templates.find(templ);
      if (t != m_templates.end())
        if (const TVolumeBasedCommission* c = FindInSections(t->second, cls)) return c;
    }
  }
  return FindInSections(m_global, cls);
}

}  // namespace DL
