#include "core/TStorageHub.h"

#include <cstring>
#include <fstream>
#include <streambuf>

#include "core/ZDLErrors.h"

namespace {

// Source types of a settings load.
constexpr int kSourceFile = 1;  // the name is a path
constexpr int kSourceText = 2;  // the name is the whole text

constexpr char kCommentChar = ';';

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
