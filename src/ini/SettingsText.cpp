#include "ini/SettingsText.h"

namespace DL {

template void ParseSettings_T<TIniSectionsMap, TIniClientValueMap>(std::istream&, char, TIniSectionsMap*,
                                                                   TIniClientValueMap*);
template void ParseSettingsText_T<TIniSectionsMap, TIniClientValueMap>(std::string_view, char, TIniSectionsMap*,
                                                                       TIniClientValueMap*);

TParseSettingsFunc ParseSettings = &ParseSettings_T<TIniSectionsMap, TIniClientValueMap>;

namespace {

std::string_view LineEnd(ESettingsLineEnd end) { return end == ESettingsLineEnd::CrLf ? "\r\n" : "\n"; }

}  // namespace

void AppendSettingsHeader(std::string& out, std::string_view name, ESettingsLineEnd end) {
  out += '[';
  out += name;
  out += ']';
  out += LineEnd(end);
}

void AppendSettingsKeyLine(std::string& out, std::string_view key, std::string_view value, ESettingsLineEnd end) {
  out += key;
  out += '=';
  out += value;
  out += LineEnd(end);
}

void AppendSettingsSectionEnd(std::string& out, ESettingsLineEnd end) {
  if (end == ESettingsLineEnd::CrLf) out += "\r\n";
}

std::string SectionToRowText(std::string_view name, const TIniKeyMap& keys) {
  std::string out;
  if (keys.empty()) return out;
  AppendSettingsHeader(out, name, ESettingsLineEnd::Lf);
  for (const auto& [key, value] : keys) AppendSettingsKeyLine(out, key, value, ESettingsLineEnd::Lf);
  return out;
}

}  // namespace DL
