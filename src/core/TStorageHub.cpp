#include "core/TStorageHub.h"

#include <cstdlib>
#include <cstring>

#include "core/ZDLErrors.h"
#include "settings/SettingsNormalizer.h"

namespace DL {

namespace {

constexpr char kCommentChar = ';';
constexpr unsigned kParserFlags = 1;

constexpr const char* kGeneralSection = "General";
constexpr const char* kUsePGOParam = "UsePGO";

}  // namespace

TStorageHub::TStorageHub(const char* ini_source_name, int ini_source_type) {
  m_parser.Init(ini_source_name, ini_source_type, kCommentChar, kParserFlags);
  m_general.Load(m_parser);
}

int TStorageHub::GetUsePGOFromGlobal(bool* value) const {
  if (value == nullptr) return ZDL_BAD_ARGUMENT;
  const DL::TIniKeyMap* general = m_parser.FindIniSectionRef(kGeneralSection);
  if (general == nullptr) return ZDL_NOT_FOUND;
  auto param = general->find(kUsePGOParam);
  *value = param != general->end() && std::strtol(param->second.c_str(), nullptr, 10) != 0;
  return ZDL_OK;
}

int TStorageHub::SetUsePGOToGlobal(int value) {
  if (value < 0 || value > 1) return ZDL_BAD_ARGUMENT;
  auto general = m_parser.FindOrCreateIniSection(kGeneralSection);
  if (value == 1)
    m_parser.SetIniParam(general, kUsePGOParam, "1");
  else
    general->second.erase(kUsePGOParam);
  return ZDL_OK;
}

int TStorageHub::SaveSettingsToMemory(char** out) {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  // Every setting read so far lives in the section map, so each section is
  // written as it stands. The keys of the first ClientCval section went to the
  // client values and its entry in the map holds only the keys of later
  // ClientCval sections: the client values are written first, as a section of
  // their own, so that a reload sends each key back to where it came from.
  std::string text;
  const DL::TIniSectionsMap& sections = m_parser.GetSections();
  for (auto it = sections.begin(); it != sections.end(); ++it) {
    if (DL::IsSameSettingsName(it->first, DL::kClientCvalSectionName))
      text += DL::SectionToRowText(it->first, m_parser.GetCValSection());
    text += m_parser.GetRowFromSection(it);
  }
  DL::SettingsNormalizer normalizer;
  normalizer.ReadFrom(text);
  normalizer.Normalize();
  std::string canonical;
  normalizer.WriteTo(canonical);
  char* block = m_memory.ConstructString(canonical.size() + 1);
  std::memcpy(block, canonical.data(), canonical.size());
  *out = block;
  return ZDL_OK;
}

}  // namespace DL
