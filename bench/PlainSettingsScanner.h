#pragma once
// The settings text read the plain way: std::getline per line and std::string
// operations, building the same maps as DL::ParseSettings. It is the yardstick
// of the reader's benchmark and a second opinion in its fuzz target.
#include <cctype>
#include <istream>
#include <string>

#include "ini/SettingsText.h"

namespace zbench {

inline std::string PlainTrim(const std::string& s) {
  std::size_t b = 0, e = s.size();
  while (b < e && std::isspace(static_cast<unsigned char>(s[b]))) ++b;
  while (e > b && std::isspace(static_cast<unsigned char>(s[e - 1]))) --e;
  return s.substr(b, e - b);
}

inline std::string PlainUpper(std::string s) {
  for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return s;
}

inline void ParseSettingsByLines(std::istream& in, char comment, DL::TIniSectionsMap* sections,
                                 DL::TIniClientValueMap* clientValues) {
  if (sections == nullptr) return;
  std::string line, pending;
  DL::TIniKeyMap* current = nullptr;
  bool inside = false, done = false;
  const std::string clientCvalUp = PlainUpper(std::string(DL::kClientCvalSectionName));
  while (std::getline(in, line)) {
    const std::size_t c = line.find(comment);
    if (c != std::string::npos) line.erase(c);
    line = PlainTrim(line);
    if (line.empty()) continue;
    if (line[0] == '[') {
      const std::size_t e = line.find(']', 1);
      if (e == std::string::npos || e == 1) continue;
      pending = line.substr(1, e - 1);
      continue;
    }
    if (current == nullptr && pending.empty()) continue;
    const std::size_t eq = line.find('=');
    if (eq == std::string::npos || eq == 0) continue;
    const std::string key = PlainTrim(line.substr(0, eq));
    const std::string value = PlainTrim(line.substr(eq + 1));
    if (!pending.empty()) {
      done = done || inside;
      inside = false;
      if (!done) inside = PlainUpper(pending) == clientCvalUp;
      current = &(*sections)[pending];
      pending.clear();
    }
    if (!inside)
      current->insert({key, value});
    else if (clientValues != nullptr)
      clientValues->insert({key, value});
  }
}

}  // namespace zbench
