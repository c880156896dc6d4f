#include "ini/PrivateProfile.h"

#include <strings.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "ini/SettingsText.h"
#include "support/ScopedFile.h"

namespace {

// Line buffers of the profile functions; their sizes decide where a long line
// is cut into several.
constexpr int kReadLineBuffer = 2000;
constexpr int kNamesLineBuffer = 256;
constexpr int kWriteStringLineBuffer = 1024;
constexpr int kWriteSectionLineBuffer = 256;

std::string Header(const char* section) { return std::string("[") + section + "]"; }

bool IsCommentLine(const std::string& line) {
  return !line.empty() && (line[0] == ';' || line[0] == '#' || (line[0] == '/' && line.size() > 1 && line[1] == '/'));
}

// Moves the file behind the header of the section as the readers find it.
bool SeekSectionForReading(FILE* f, const char* section, std::vector<char>& buf) {
  const std::string header = Header(section);
  while (std::fgets(buf.data(), static_cast<int>(buf.size()), f) != nullptr) {
    lx_trim(buf.data());
    if (buf[0] == ';') continue;
    if (_stristr(buf.data(), header.c_str()) != nullptr) return true;
  }
  return false;
}

// If the line holds "=" and its part before it, trimmed, equals the key:
// the value behind the "=", trimmed in place. Otherwise null. The line is
// changed either way.
char* MatchKeyLine(char* line, const char* key) {
  char* eq = std::strchr(line, '=');
  if (eq == nullptr) return nullptr;
  *eq = '\0';
  if (strcasecmp(lx_trim(line), key) != 0) return nullptr;
  return lx_trim(eq + 1);
}

unsigned long CopyOut(char* out, unsigned long size, const char* text) {
  if (out == nullptr || size == 0) return 0;
  std::strncpy(out, text, size);
  out[size - 1] = '\0';
  std::size_t len = std::strlen(out);
  if (len > 0 && (out[len - 1] == '\r' || out[len - 1] == '\n')) {
    out[--len] = '\0';
    if (len > 0 && out[len - 1] == '\r') out[--len] = '\0';
  }
  return static_cast<unsigned long>(len);
}

std::string Trimmed(std::string s) {
  s.resize(std::strlen(lx_trim(s.data())));
  return s;
}

// Every line of the file, each through lx_trim; a missing file gives none.
std::vector<std::string> ReadTrimmedLines(const char* path, int bufferSize) {
  std::vector<std::string> lines;
  Library::TScopedFile f(std::fopen(path, "r"));
  if (f.get() == nullptr) return lines;
  std::vector<char> buf(static_cast<std::size_t>(bufferSize));
  while (std::fgets(buf.data(), bufferSize, f.get()) != nullptr) lines.emplace_back(lx_trim(buf.data()));
  return lines;
}

// Index of the line equal to "[section]" ignoring case, or lines.size().
std::size_t FindHeaderForWriting(const std::vector<std::string>& lines, const char* section) {
  const std::string header = Header(section);
  for (std::size_t i = 0; i < lines.size(); ++i)
    if (strcasecmp(lines[i].c_str(), header.c_str()) == 0) return i;
  return lines.size();
}

int WriteLines(const char* path, const std::vector<std::string>& lines) {
  Library::TScopedFile f(std::fopen(path, "w"));
  if (f.get() == nullptr) return 0;
  for (const std::string& line : lines) {
    std::fwrite(line.data(), 1, line.size(), f.get());
    std::fputc('\n', f.get());
  }
  return 1;
}

}  // namespace

char* lx_rmcr(char* s) {
  char* cut = std::strrchr(s, '\r');
  if (cut == nullptr) cut = std::strrchr(s, '\n');
  if (cut != nullptr) *cut = '\0';
  return s;
}

char* lx_trim_right(char* s) {
  std::size_t len = std::strlen(s);
  while (len > 0 && static_cast<unsigned char>(s[len - 1]) < 33) --len;
  s[len] = '\0';
  return s;
}

char* lx_trim_left(char* s) {
  std::size_t skip = 0;
  while (s[skip] >= 1 && s[skip] <= 32) ++skip;
  if (skip != 0) std::memmove(s, s + skip, std::strlen(s + skip) + 1);
  return s;
}

char* lx_trim(char* s) { return lx_trim_left(lx_trim_right(lx_rmcr(s))); }

const char* _stristr(const char* haystack, const char* needle) {
  if (haystack == nullptr || needle == nullptr) return nullptr;
  for (const char* start = haystack;; ++start) {
    std::size_t i = 0;
    while (needle[i] != '\0' && DL::ToUpperAscii(start[i]) == DL::ToUpperAscii(needle[i])) ++i;
    if (needle[i] == '\0') return start;
    if (*start == '\0') return nullptr;
  }
}

long lx_GetPrivateProfileInt(const char* section, const char* key, unsigned long defaultValue, const char* path) {
  const long fallback = static_cast<long>(defaultValue);
  if (section == nullptr || key == nullptr || path == nullptr) return fallback;
  Library::TScopedFile f(std::fopen(path, "r"));
  if (f.get() == nullptr) return fallback;
  std::vector<char> buf(kReadLineBuffer);
  if (!SeekSectionForReading(f.get(), section, buf)) return fallback;
  while (std::fgets(buf.data(), kReadLineBuffer, f.get()) != nullptr) {
    lx_trim(buf.data());
    if (buf[0] == '[') break;
    if (const char* value = MatchKeyLine(buf.data(), key))
      return static_cast<long>(static_cast<std::int32_t>(std::strtol(value, nullptr, 10)));
  }
  return fallback;
}

unsigned long lx_GetPrivateProfileString(const char* section, const char* key, const char* defaultValue, char* out,
                                         unsigned long size, const char* path) {
  const char* fallback = defaultValue != nullptr ? defaultValue : "";
  if (section == nullptr || key == nullptr || path == nullptr) return CopyOut(out, size, fallback);
  Library::TScopedFile f(std::fopen(path, "r"));
  if (f.get() == nullptr) return CopyOut(out, size, fallback);
  std::vector<char> buf(kReadLineBuffer);
  if (!SeekSectionForReading(f.get(), section, buf)) return CopyOut(out, size, fallback);
  while (std::fgets(buf.data(), kReadLineBuffer, f.get()) != nullptr) {
    if (buf[0] == '[') break;  // tested before trimming, by design
    if (const char* value = MatchKeyLine(buf.data(), key)) return CopyOut(out, size, value);
  }
  return CopyOut(out, size, fallback);
}

unsigned long lx_GetPrivateProfileSection(const char* section, char* out, unsigned long size, const char* path) {
  if (out == nullptr || size == 0) return 0;
  std::memset(out, 0, size);
  if (section == nullptr || path == nullptr) return 0;
  Library::TScopedFile f(std::fopen(path, "r"));
  if (f.get() == nullptr) return 0;
  std::vector<char> buf(kReadLineBuffer);
  if (!SeekSectionForReading(f.get(), section, buf)) return 0;
  unsigned long total = 0;
  while (std::fgets(buf.data(), kReadLineBuffer, f.get()) != nullptr) {
    lx_trim(buf.data());
    if (buf[0] == '[') break;
    const unsigned long len = static_cast<unsigned long>(std::strlen(buf.data()));
    if (total + len + 1 >= size) return size >= 2 ? size - 2 : 0;
    std::memcpy(out + total, buf.data(), len + 1);
    total += len + 1;
  }
  return total;
}

unsigned long lx_GetPrivateProfileSectionNames(char* out, unsigned long size, const char* path) {
  if (out == nullptr || size == 0) return 0;
  std::memset(out, 0, size);
  if (path == nullptr) return 0;
  Library::TScopedFile f(std::fopen(path, "r"));
  if (f.get() == nullptr) return 0;
  std::vector<char> buf(kNamesLineBuffer);
  unsigned long used = 0;
  while (std::fgets(buf.data(), kNamesLineBuffer, f.get()) != nullptr) {
    lx_trim(buf.data());
    if (buf[0] != '[') continue;
    const char* name = buf.data() + 1;
    const char* close = std::strrchr(name, ']');
    const unsigned long len = static_cast<unsigned long>(close != nullptr ? close - name : std::strlen(name));
    if (size - used <= len) break;
    std::memcpy(out + used, name, len);
    out[used + len] = '\0';
    used += len + 1;
  }
  return used;
}

int lx_WritePrivateProfileString(const char* section, const char* key, const char* value, const char* path) {
  if (section == nullptr || key == nullptr || path == nullptr) return 0;
  std::vector<std::string> lines = ReadTrimmedLines(path, kWriteStringLineBuffer);
  const std::size_t header = FindHeaderForWriting(lines, section);
  const bool sectionFound = header < lines.size();
  const std::string newLine = value != nullptr ? std::string(key) + "=" + value : std::string();

  if (!sectionFound) {
    // Nothing to remove; a new key brings its section along.
    if (value != nullptr) {
      lines.push_back(Header(section));
      lines.push_back(newLine);
    }
    return WriteLines(path, lines);
  }

  std::size_t i = header + 1;
  for (; i < lines.size(); ++i) {
    const std::string& line = lines[i];
    if (IsCommentLine(line)) continue;
    if (!line.empty() && line[0] == '[') break;
    const std::size_t eq = line.find('=');
    if (eq == std::string::npos) continue;
    if (strcasecmp(Trimmed(line.substr(0, eq)).c_str(), key) != 0) continue;
    // The key is there: replace or remove its line.
    if (value != nullptr)
      lines[i] = newLine;
    else
      lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(i));
    return WriteLines(path, lines);
  }
  // Not in the section: a new key goes right before the next header, or at the end.
  if (value != nullptr) lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(i), newLine);
  return WriteLines(path, lines);
}

int lx_WritePrivateProfileSection(const char* section, const char* strings, const char* path) {
  if (section == nullptr || path == nullptr) return 0;
  std::vector<std::string> lines = ReadTrimmedLines(path, kWriteSectionLineBuffer);
  std::size_t header = FindHeaderForWriting(lines, section);
  if (header == lines.size()) {
    if (!lines.empty()) lines.emplace_back();
    lines.push_back(Header(section));
    header = lines.size() - 1;
  }
  // Behind the header, only blanks and comments stay.
  for (std::size_t i = header + 1; i < lines.size() && (lines[i].empty() || lines[i][0] != '[');) {
    if (lines[i].empty() || IsCommentLine(lines[i]))
      ++i;
    else
      lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(i));
  }
  if (strings == nullptr) {
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(header));
  } else {
    std::size_t at = header + 1;
    for (const char* p = strings; *p != '\0'; p += std::strlen(p) + 1)
      lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at++), std::string(p));
  }
  return WriteLines(path, lines);
}
