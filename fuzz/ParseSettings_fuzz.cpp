// Feeds arbitrary bytes to the settings text reader, in the stream form and
// in the memory form, and checks both against the plain line scanner and
// against the reader's own promises about what a map may hold.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>

#include "../bench/PlainSettingsScanner.h"
#include "ini/SettingsText.h"

namespace {

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r'; }

// A trimmed, non-empty text free of the line end and the comment character.
bool IsCleanToken(const std::string& s, char comment, bool mayBeEmpty) {
  if (s.empty()) return mayBeEmpty;
  if (IsSpace(s.front()) || IsSpace(s.back())) return false;
  return s.find('\n') == std::string::npos && s.find(comment) == std::string::npos;
}

void Check(bool ok) {
  if (!ok) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The first byte picks the comment character, so that other choices are tried as well.
  const char comment = size > 0 && (data[0] & 1) ? static_cast<char>(data[0] >> 1) : ';';
  const std::string text(reinterpret_cast<const char*>(data), size);

  DL::TIniSectionsMap sections;
  DL::TIniClientValueMap values;
  std::istringstream in(text);
  DL::ParseSettings(in, comment, &sections, &values);

  DL::TIniSectionsMap fromMemory;
  DL::TIniClientValueMap valuesFromMemory;
  DL::ParseSettingsText_T(std::string_view(text), comment, &fromMemory, &valuesFromMemory);
  Check(fromMemory == sections && valuesFromMemory == values);

  DL::TIniSectionsMap plain;
  DL::TIniClientValueMap plainValues;
  std::istringstream again(text);
  zbench::ParseSettingsByLines(again, comment, &plain, &plainValues);
  Check(plain == sections && plainValues == values);

  for (const auto& [name, keys] : sections) {
    Check(!name.empty() && name.find('\n') == std::string::npos && name.find(comment) == std::string::npos);
    for (const auto& [key, value] : keys) {
      Check(IsCleanToken(key, comment, false) && key.front() != '[');
      Check(IsCleanToken(value, comment, true));
    }
  }
  for (const auto& [key, value] : values) Check(IsCleanToken(key, comment, false) && IsCleanToken(value, comment, true));
  return 0;
}
