#include "support/FileUtils.h"

#include <elf.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <cstring>
#include <vector>

#include "support/WinFile.h"

namespace Library::FileUtils {

std::string GetPlatformName(const std::string& name) { return "lib" + name + ".so"; }

std::string PrepareZentModulePath(const std::string& name, bool gate) {
  if (name.empty()) return std::string();
  std::string path = "modules/";
  if (gate) path += "gates/";
  path += GetPlatformName(name);
  return GetFullPath(path);
}

std::string GetFullPath(const std::string& path) {
  if (IsFullPath(path)) return path;
  std::vector<char> cwd(4096);
  while (::getcwd(cwd.data(), cwd.size()) == nullptr) {
    if (errno != ERANGE) {
      SetLastError(errno);
      return path;
    }
    cwd.resize(cwd.size() * 2);
  }
  return std::string(cwd.data()) + "/" + path;
}

bool IsFullPath(const std::string& path) { return !path.empty() && path[0] == '/'; }

bool IsFileExist(const std::string& path) {
  struct stat st;
  return ::stat(path.c_str(), &st) == 0 && !S_ISDIR(st.st_mode);
}

std::string GetFullModuleName(HMODULE module) {
  std::vector<char> buffer(4096);
  DWORD n = GetModuleFileName(module, buffer.data(), static_cast<DWORD>(buffer.size()));
  return std::string(buffer.data(), n < buffer.size() ? n : buffer.size() - 1);
}

namespace {

using WinFile::CFile;

// Reads n bytes at offset; false if the file holds fewer.
bool ReadAt(CFile& file, std::uint64_t offset, void* to, std::uint64_t n) {
  return file.Seek(static_cast<std::int64_t>(offset), FILE_BEGIN) && file.Read(to, static_cast<unsigned>(n));
}

template <class Ehdr, class Shdr>
std::string FindSection(CFile& file, std::uint64_t fileSize, const std::string& section) {
  Ehdr header;
  if (fileSize < sizeof header || !ReadAt(file, 0, &header, sizeof header)) return {};
  if (header.e_shentsize != sizeof(Shdr) || header.e_shnum == 0 || header.e_shstrndx >= header.e_shnum)
    return {};
  std::uint64_t tableBytes = std::uint64_t{header.e_shnum} * sizeof(Shdr);
  if (header.e_shoff > fileSize || tableBytes > fileSize - header.e_shoff) return {};
  std::vector<Shdr> sections(header.e_shnum);
  if (!ReadAt(file, header.e_shoff, sections.data(), tableBytes)) return {};

  const Shdr& namesHeader = sections[header.e_shstrndx];
  std::uint64_t namesSize = namesHeader.sh_size;
  if (namesSize == 0 || namesHeader.sh_offset > fileSize || namesSize > fileSize - namesHeader.sh_offset) return {};
  std::vector<char> names(namesSize + 1, '\0');  // one zero past the table closes the last name
  if (!ReadAt(file, namesHeader.sh_offset, names.data(), namesSize)) return {};

  for (const Shdr& s : sections) {
    if (s.sh_name >= namesSize || section != &names[s.sh_name]) continue;
    // The name table's size bounds the read, not the section's own size.
    if (s.sh_offset >= fileSize) return {};
    std::uint64_t n = namesSize < fileSize - s.sh_offset ? namesSize : fileSize - s.sh_offset;
    std::vector<char> value(n);
    if (!ReadAt(file, s.sh_offset, value.data(), n)) return {};
    return std::string(value.data(), strnlen(value.data(), n));
  }
  return {};
}

// The leading decimal digits of a version number, after any white space, cut to 16 bits.
DWORD VersionNumber(const std::string& text) {
  size_t i = 0;
  while (i < text.size() && std::isspace(static_cast<unsigned char>(text[i]))) ++i;
  DWORD value = 0;
  for (; i < text.size() && std::isdigit(static_cast<unsigned char>(text[i])); ++i)
    value = value * 10 + static_cast<DWORD>(text[i] - '0');
  return value & 0xFFFFu;
}

}  // namespace

std::string GetELFSectionValue(const std::string& path, const std::string& section) {
  CFile file(path, GENERIC_READ, OPEN_EXISTING, false);
  if (!file.IsValid()) return {};
  std::int64_t size = file.Size();
  unsigned char ident[EI_NIDENT];
  if (size < EI_NIDENT || !file.Read(ident, EI_NIDENT)) return {};
  if (std::memcmp(ident, ELFMAG, SELFMAG) != 0) return {};
  const bool nativeOrder = ident[EI_DATA] == (__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ ? ELFDATA2LSB : ELFDATA2MSB);
  if (!nativeOrder) return {};
  auto fileSize = static_cast<std::uint64_t>(size);
  if (ident[EI_CLASS] == ELFCLASS64) return FindSection<Elf64_Ehdr, Elf64_Shdr>(file, fileSize, section);
  if (ident[EI_CLASS] == ELFCLASS32) return FindSection<Elf32_Ehdr, Elf32_Shdr>(file, fileSize, section);
  return {};
}

int GetFileVersion(const std::string& path, VS_FIXEDFILEINFO& info) {
  info = VS_FIXEDFILEINFO{};
  std::string value = GetELFSectionValue(path, ".version");
  if (value.empty()) return 0;
  DWORD numbers[4] = {0, 0, 0, 0};
  size_t start = 0;
  for (int i = 0; i < 4 && start <= value.size(); ++i) {
    size_t dot = value.find('.', start);
    numbers[i] = VersionNumber(value.substr(start, dot == std::string::npos ? std::string::npos : dot - start));
    if (dot == std::string::npos) break;
    start = dot + 1;
  }
  if (numbers[3] == 0) numbers[3] = 1;
  info.dwSignature = kFixedFileInfoSignature;
  info.dwFileVersionMS = info.dwProductVersionMS = (numbers[0] << 16) | numbers[1];
  info.dwFileVersionLS = info.dwProductVersionLS = (numbers[2] << 16) | numbers[3];
  return 1;
}

std::string GetFileVersion(const std::string& path, VERSION_NUMBER n) {
  VS_FIXEDFILEINFO info;
  if (GetFileVersion(path, info) == 0) return {};
  const DWORD numbers[4] = {info.dwFileVersionMS >> 16, info.dwFileVersionMS & 0xFFFFu,
                            info.dwFileVersionLS >> 16, info.dwFileVersionLS & 0xFFFFu};
  int count = n < VERSION_NUMBER_1 ? 0 : n > VERSION_NUMBER_4 ? VERSION_NUMBER_4 : n;
  std::string text;
  for (int i = 0; i < count; ++i) {
    if (i > 0) text += '.';
    text += std::to_string(numbers[i]);
  }
  return text;
}

bool CheckFileVersionLess(const VS_FIXEDFILEINFO& a, const VS_FIXEDFILEINFO& b) {
  if (a.dwFileVersionMS != b.dwFileVersionMS) return a.dwFileVersionMS < b.dwFileVersionMS;
  return a.dwFileVersionLS < b.dwFileVersionLS;
}

}  // namespace Library::FileUtils
