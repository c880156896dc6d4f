#include "core/TStorageHub.h"

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <streambuf>

#include "core/ZDLErrors.h"

namespace {

// Source types of a settings load.
constexpr int kSourceFile = 1;  // the name is a path
constexpr int kSourceText = 2;  // the name is the whole text

constexpr char kCommentChar = ';';

constexpr const char* kGeneralSection = "General";
constexpr const char* kUsePGOParam = "UsePGO";

// Reads a text in memory as a stream, without copying it.
class TMemoryStreamBuf : public std::streambuf {
 public:
  TMemoryStreamBuf(const char* data, size_t size) {
    char* begin = const_cast<char*>(data);
    setg(begin, begin, begin + size);
  }
};

}  // namespace

TStorageHub::TStorageHub(const char* ini_source_name, int ini_source_type) {
  if (ini_source_name == nullptr) return;
  if (ini_source_type == kSourceFile) {
    std::ifstream in(ini_source_name, std::ios::binary);
    if (in) DL::ParseSettings(in, kCommentChar, &m_sections, &m_clientValues);
  } else if (ini_source_type == kSourceText) {
    TMemoryStreamBuf buffer(ini_source_name, std::strlen(ini_source_name));
    std::istream in(&buffer);
    DL::ParseSettings(in, kCommentChar, &m_sections, &m_clientValues);
  }
}

int TStorageHub::SaveSettingsToMemory(char** out) {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  // Every setting is still in its raw home, the section map: each section is
  // written as it stands.
  // The first ClientCval section was read into the client values; its entry in
  // the section map stays empty, so its keys are written from there.
  std::string text;
  for (const auto& [name, keys] : m_sections) {
    bool clientValues = keys.empty() && DL::IsSameSettingsName(name, DL::kClientCvalSectionName);
    text += DL::SectionToRowText(name, clientValues ? m_clientValues : keys);
  }
  char* block = m_memory.ConstructString(text.size() + 1);
  std::memcpy(block, text.data(), text.size());
  *out = block;
  return ZDL_OK;
}

int TStorageHub::GetUsePGOFromGlobal(bool* value) const {
  if (value == nullptr) return ZDL_BAD_ARGUMENT;
  auto general = m_sections.find(kGeneralSection);
  if (general == m_sections.end()) return ZDL_NOT_FOUND;
  auto param = general->second.find(kUsePGOParam);
  *value = param != general->second.end() && std::strtol(param->second.c_str(), nullptr, 10) != 0;
  return ZDL_OK;
}

int TStorageHub::SetUsePGOToGlobal(int value) {
  if (value < 0 || value > 1) return ZDL_BAD_ARGUMENT;
  DL::TIniKeyMap& general = m_sections[kGeneralSection];
  if (value == 1)
    general[kUsePGOParam] = "1";
  else
    general.erase(kUsePGOParam);
  return ZDL_OK;
}
