// Volume-based commission sections of the hub: read at load into one store
// for the firm, one per client template and one per client; written back
// from those stores by the save (steps 3, 4 and 6); and the lookups of the
// commission by client and class, with the repo commission of a client.
#include <string>

#include "commission/TCacheOfClientSettings.h"
#include "base/TextHelpers.h"
#include "core/HubSectionHelpers.h"
#include "core/TStorageHub.h"

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

void VolumeSectionToStr(std::string& out, const TStorageHub::TVolumeBasedCommissionSection& s) {
  // The header is written even for an empty section, so that a reload finds
  // the same sections.
  out += '[';
  out += s.section;
  out += "]\n";
  out += s.commission.ToSectionBody();
  HubText::AppendRawLines(out, s.raw);
}

// The first table naming the class, else the first for all classes.
const TVolumeBasedCommission* FindInSections(const TStorageHub::TVolumeBasedCommissionSections& sections,
                                             const std::string& classCode) {
  for (const auto& s : sections)
    if (s.commission.GetAllStrings().count(classCode) != 0) return &s.commission;
  for (const auto& s : sections)
    if (s.commission.GetAllStrings().count(AllMark) != 0) return &s.commission;
  return nullptr;
}

}  // namespace

void TStorageHub::ParseVolumeBasedCommission() {
  m_globalVolumeComm.clear();
  m_templateVolumeComm.clear();
  m_clientVolumeComm.clear();
  for (const auto& [name, keys] : m_parser->GetSections()) {
    std::string owner;
    const EVolumeOwner kind = ClassifyVolumeSection(name, owner);
    if (kind == EVolumeOwner::None) continue;
    TVolumeBasedCommissionSection s;
    s.section = name;
    s.commission.ParseFromSection(keys, s.raw);
    switch (kind) {
      case EVolumeOwner::Global:
        m_globalVolumeComm.push_back(std::move(s));
        break;
      case EVolumeOwner::Template:
        m_templateVolumeComm[owner].push_back(std::move(s));
        break;
      case EVolumeOwner::Client:
        m_clientVolumeComm[owner].push_back(std::move(s));
        break;
      case EVolumeOwner::None:
        break;
    }
  }
}

void TStorageHub::SettingToStrClientVolumeBasedCommission(std::string& out,
                                                          const TVolumeBasedCommissionSection& s) const {
  VolumeSectionToStr(out, s);
}
void TStorageHub::SettingToStrTemplateVolumeBasedCommission(std::string& out,
                                                            const TVolumeBasedCommissionSection& s) const {
  VolumeSectionToStr(out, s);
}
void TStorageHub::SettingToStrGlobalVolumeBasedCommission(std::string& out,
                                                          const TVolumeBasedCommissionSection& s) const {
  VolumeSectionToStr(out, s);
}

// Step 3 writes the clients' sections, step 4 the templates', step 6 the
// firm's; each section written is entered in `written` so that the final
// raw copy leaves it alone.
void TStorageHub::AppendVolumeBasedCommissionRows(std::string& text, TWrittenSections& written, int step) const {
  const TIniSectionsMap& sections = m_parser->GetSections();
  // False for a section an earlier step wrote already.
  auto markWritten = [&](const TVolumeBasedCommissionSection& s) {
    const auto it = sections.find(s.section);
    return it == sections.end() || written.insert(&it->first).second;
  };
  switch (step) {
    case 3:
      for (const auto& [client, list] : m_clientVolumeComm)
        for (const auto& s : list) {
          if (markWritten(s)) SettingToStrClientVolumeBasedCommission(text, s);
        }
      break;
    case 4:
      for (const auto& [templ, list] : m_templateVolumeComm)
        for (const auto& s : list) {
          if (markWritten(s)) SettingToStrTemplateVolumeBasedCommission(text, s);
        }
      break;
    case 6:
      for (const auto& s : m_globalVolumeComm) {
        if (markWritten(s)) SettingToStrGlobalVolumeBasedCommission(text, s);
      }
      break;
    default:
      break;
  }
}

const TVolumeBasedCommission* TStorageHub::FindVolumeBasedCommission(const char* client,
                                                                     const char* classCode) const {
  const std::string cls = TrimStr(classCode != nullptr ? classCode : "");
  const std::string code = TrimStr(client != nullptr ? client : "");
  if (!code.empty()) {
    const auto own = m_clientVolumeComm.find(code);
    if (own != m_clientVolumeComm.end())
      if (const TVolumeBasedCommission* c = FindInSections(own->second, cls)) return c;
    const std::string& templSection =
        m_logicParser->TemplateClientSection(code, kClientTemplateBeginning, kClientTemplateEnding);
    const std::size_t beginning = std::char_traits<char>::length(kClientTemplateBeginning);
    const std::size_t ending = std::char_traits<char>::length(kClientTemplateEnding);
    if (templSection.size() > beginning + ending) {
      const std::string templ = templSection.substr(beginning, templSection.size() - beginning - ending);
      const auto t = m_templateVolumeComm.find(templ);
      if (t != m_templateVolumeComm.end())
        if (const TVolumeBasedCommission* c = FindInSections(t->second, cls)) return c;
    }
  }
  return FindInSections(m_globalVolumeComm, cls);
}

TypeAndRate TStorageHub::GetEffectiveVolumeBasedCommTypeAndRate(const char* client, const char* classCode,
                                                               double volume, ESide side) const {
  const TVolumeBasedCommission* c = FindVolumeBasedCommission(client, classCode);
  return c != nullptr ? c->GetEffectiveTypeAndRate(volume, side) : TypeAndRate(ctUndefined, 0.0, 0.0);
}

double TStorageHub::CalcMaxVolumeBasedCommission(const char* client, const char* classCode, double value,
                                                 ESide side, short scale) const {
  const TVolumeBasedCommission* c = FindVolumeBasedCommission(client, classCode);
  return c != nullptr ? c->CalcMaxCommValue(value, side, scale) : 0.0;
}

bool TStorageHub::GetRepoPerDayCommissionSettings(const char* client, double leverage, const char* classCode,
                                                  TRepoCommRates* out) const {
  const TClientCommSettings* s = m_clientSettingsCache->GetIniSetting(TIniCacheItemID(client, leverage));
  return s != nullptr && s->RepoPerDay.GetCommissionRates(StrUpper(TrimStr(classCode != nullptr ? classCode : "")), out);
}

bool TStorageHub::GetRepoScaleByClassesSettings(const char* client, double leverage, const char* classCode,
                                                short term, TRepoCommRates* out) const {
  const TClientCommSettings* s = m_clientSettingsCache->GetIniSetting(TIniCacheItemID(client, leverage));
  return s != nullptr &&
         s->RepoScale.GetCommissionScaleRates(StrUpper(TrimStr(classCode != nullptr ? classCode : "")), term, out);
}

}  // namespace DL
