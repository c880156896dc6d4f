#include "ini/IniFile.h"

#include <strings.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "ini/PrivateProfile.h"
#include "support/FileUtils.h"
#include "support/HostEvent.h"
#include "support/ScopedFile.h"

namespace Library::Ini {
namespace {

// The reader's buffer for a value: one byte more than the size it is given,
// and a result this long or longer can only be a long default.
constexpr std::size_t kValueBuffer = 32002;
constexpr unsigned long kValueBufferSize = 32001;
constexpr std::size_t kLongValueResult = 32000;
// A value this long or longer is written without a line length limit.
constexpr std::size_t kLongValueWrite = 32768;
// Chunks in which GetRecords reads lines of any length.
constexpr int kRecordChunk = 32768;

std::string Header(const std::string& section) { return "[" + section + "]"; }

bool SameText(const std::string& a, const std::string& b) { return strcasecmp(a.c_str(), b.c_str()) == 0; }

// A trimmed line that begins with "[" and ends with "]".
bool IsHeaderLine(const std::string& line) { return !line.empty() && line.front() == '[' && line.back() == ']'; }

std::string Trimmed(std::string s) {
  CIniFile::trim(s);
  return s;
}

void AddRecord(std::string line, std::vector<CIniFile::CRecord>& records) {
  while (!line.empty() && line.back() == '\n') line.pop_back();
  if (!line.empty() && line.front() == ';') return;
  const std::size_t eq = line.find('=');
  if (eq == std::string::npos) return;
  records.push_back({Trimmed(line.substr(0, eq)), Trimmed(line.substr(eq + 1))});
}

// Every line of the file, each through trim; lines of any length.
std::vector<std::string> ReadTrimmedLines(const std::string& path) {
  std::vector<std::string> lines;
  std::ifstream in(path, std::ios::binary);
  std::string line;
  while (std::getline(in, line)) {
    CIniFile::trim(line);
    lines.push_back(line);
  }
  return lines;
}

}  // namespace

CIniFile::CIniFile(const std::string& path) : m_path(Library::FileUtils::GetFullPath(path)) {}

CIniFile::~CIniFile() = default;

bool CIniFile::IsFile() const {
  try {
    return std::filesystem::is_regular_file(std::filesystem::path(m_path));
  } catch (const std::filesystem::filesystem_error& e) {
    Library::Host::Event(0, "Error: %s", e.what());
    return false;
  }
}

int CIniFile::GetValue(const std::string& section, const std::string& key, int defaultValue) const {
  if (!IsFile()) return 0;
  return static_cast<int>(lx_GetPrivateProfileInt(section.c_str(), key.c_str(),
                                                  static_cast<unsigned long>(defaultValue), m_path.c_str()));
}

bool CIniFile::SetValue(const std::string& section, const std::string& key, int value) {
  if (!IsFile()) return false;
  return lx_WritePrivateProfileString(section.c_str(), key.c_str(), std::to_string(value).c_str(), m_path.c_str()) !=
         0;
}

std::string CIniFile::GetValue(const std::string& section, const std::string& key,
                               const std::string& defaultValue) const {
  if (!IsFile()) return defaultValue;
  std::vector<char> buf(kValueBuffer, '\0');
  const unsigned long len = lx_GetPrivateProfileString(section.c_str(), key.c_str(), defaultValue.c_str(),
                                                       buf.data(), kValueBufferSize, m_path.c_str());
  if (len < kLongValueResult) return std::string(buf.data(), len);
  return GetLongValue(section, key, defaultValue);
}

std::string CIniFile::GetLongValue(const std::string& section, const std::string& key,
                                   const std::string& defaultValue) const {
  std::ifstream in(m_path, std::ios::binary);
  const std::string header = Header(section);
  std::string line;
  bool inSection = false;
  while (std::getline(in, line)) {
    trim(line);
    if (!inSection) {
      inSection = SameText(line, header);
      continue;
    }
    if (line.empty()) continue;
    if (IsHeaderLine(line)) break;
    if (line.front() == ';') continue;
    const std::size_t eq = line.find('=');
    if (eq == std::string::npos) continue;
    if (SameText(Trimmed(line.substr(0, eq)), key)) return Trimmed(line.substr(eq + 1));
  }
  return defaultValue;
}

bool CIniFile::SetValue(const std::string& section, const std::string& key, const std::string& value) {
  if (!IsFile()) return false;
  if (value.size() < kLongValueWrite)
    return lx_WritePrivateProfileString(section.c_str(), key.c_str(), value.c_str(), m_path.c_str()) != 0;
  return SetLongValue(section, key, value);
}

bool CIniFile::SetLongValue(const std::string& section, const std::string& key, const std::string& value) const {
  std::vector<std::string> lines = ReadTrimmedLines(m_path);
  const std::string header = Header(section);
  std::size_t at = 0;
  while (at < lines.size() && !SameText(lines[at], header)) ++at;
  if (at == lines.size()) {
    lines.push_back(header);
    lines.push_back(key + "=" + value);
  } else {
    std::size_t i = at + 1;
    bool done = false;
    for (; i < lines.size(); ++i) {
      const std::string& line = lines[i];
      if (line.empty()) continue;
      if (IsHeaderLine(line)) break;
      if (line.front() == ';') continue;
      const std::size_t eq = line.find('=');
      if (eq == std::string::npos) continue;
      std::string left = Trimmed(line.substr(0, eq));
      if (SameText(left, key)) {
        // This path keeps the file's spelling of the key.
        lines[i] = left + "=" + value;
        done = true;
        break;
      }
    }
    if (!done) lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(i), key + "=" + value);
  }
  std::ofstream out(m_path, std::ios::binary | std::ios::trunc);
  if (!out) return false;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i != 0) out << '\n';
    out << lines[i];
  }
  return true;
}

std::vector<std::string> CIniFile::GetSections() const {
  std::vector<std::string> names;
  if (!IsFile()) return names;
  for (const std::string& line : ReadTrimmedLines(m_path))
    if (line.size() >= 2 && IsHeaderLine(line)) names.push_back(line.substr(1, line.size() - 2));
  return names;
}

bool CIniFile::SectionExist(const std::string& section) const {
  for (const std::string& name : GetSections())
    if (SameText(name, section)) return true;
  return false;
}

std::vector<CIniFile::CRecord> CIniFile::GetRecords(const std::string& section) const {
  std::vector<CRecord> records;
  if (!IsFile()) return records;
  Library::TScopedFile f(std::fopen(m_path.c_str(), "r"));
  if (f.get() == nullptr) return records;
  const std::string header = Header(section);
  std::vector<char> chunk(kRecordChunk);
  std::string line;
  bool found = false;
  while (!found && std::fgets(chunk.data(), kRecordChunk, f.get()) != nullptr) {
    line += chunk.data();
    if (line.empty() || line.back() != '\n') continue;
    trim(line);
    found = SameText(line, header);
    line.clear();
  }
  if (!found) return records;
  while (std::fgets(chunk.data(), kRecordChunk, f.get()) != nullptr) {
    if (chunk[0] == '[') break;
    line += chunk.data();
    if (line.empty() || line.back() != '\n') continue;
    AddRecord(line, records);
    line.clear();
  }
  if (!line.empty()) AddRecord(line, records);
  return records;
}

bool CIniFile::SetRecords(const std::string& section, const std::vector<CRecord>& records) {
  for (const CRecord& r : records)
    if (!SetValue(section, r.key, r.value)) return false;
  return true;
}

std::vector<std::string> CIniFile::GetStrings(const std::string& section) const {
  std::vector<std::string> strings;
  if (!IsFile()) return strings;
  const std::string header = Header(section);
  bool inSection = false;
  for (const std::string& line : ReadTrimmedLines(m_path)) {
    if (!inSection) {
      inSection = line == header;  // case counts here
      continue;
    }
    if (IsHeaderLine(line)) break;
    if (!line.empty()) strings.push_back(line);
  }
  return strings;
}

bool CIniFile::SetStrings(const std::string& section, const char* strings) {
  return lx_WritePrivateProfileSection(section.c_str(), strings, m_path.c_str()) != 0;
}

std::map<std::string, std::string> CIniFile::GetValuesMap(const std::string& section) const {
  std::map<std::string, std::string> values;
  for (std::string line : GetStrings(section)) {
    trimTabsAndSpaces(line);
    const std::size_t eq = line.find('=');
    if (eq == std::string::npos || line.find('=', eq + 1) != std::string::npos) continue;
    values[line.substr(0, eq)] = line.substr(eq + 1);
  }
  return values;
}

void CIniFile::trim(std::string& s) {
  const std::size_t end = s.find_last_not_of(" \t\r\n");
  if (end == std::string::npos) {
    s.clear();
    return;
  }
  s.erase(end + 1);
  s.erase(0, s.find_first_not_of(" \t"));
}

void CIniFile::trimTabsAndSpaces(std::string& s) {
  std::erase_if(s, [](char c) { return c == ' ' || c == '\t'; });
}

}  // namespace Library::Ini
