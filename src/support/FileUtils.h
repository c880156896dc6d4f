#pragma once
// Paths, module paths and the file version of the library's platform layer.
#include <cstdint>
#include <string>

#include "support/LinuxUtils.h"

// The fixed version record. GetFileVersion fills the file and the product
// version alike: the first number in the high 16 bits of the most significant
// word, the second in its low 16 bits, the third and fourth likewise in the
// least significant word.
struct VS_FIXEDFILEINFO {
  DWORD dwSignature = 0;  // 0xFEEF04BD when filled
  DWORD dwStrucVersion = 0;
  DWORD dwFileVersionMS = 0;
  DWORD dwFileVersionLS = 0;
  DWORD dwProductVersionMS = 0;
  DWORD dwProductVersionLS = 0;
  DWORD dwFileFlagsMask = 0;
  DWORD dwFileFlags = 0;
  DWORD dwFileOS = 0;
  DWORD dwFileType = 0;
  DWORD dwFileSubtype = 0;
  DWORD dwFileDateMS = 0;
  DWORD dwFileDateLS = 0;
};

namespace Library::FileUtils {

inline constexpr DWORD kFixedFileInfoSignature = 0xFEEF04BDu;

// How many numbers of a version the text form shows.
enum VERSION_NUMBER : int {
  VERSION_NUMBER_1 = 1,  // "7"
  VERSION_NUMBER_2 = 2,  // "7.2"
  VERSION_NUMBER_3 = 3,  // "7.2.1"
  VERSION_NUMBER_4 = 4,  // "7.2.1.30"
};

// "lib<name>.so".
std::string GetPlatformName(const std::string& name);
// "modules/" [+ "gates/" when gate] + GetPlatformName(name), made absolute by
// GetFullPath. An empty name gives an empty string.
std::string PrepareZentModulePath(const std::string& name, bool gate);
// An absolute path as it is; otherwise the current directory, "/" and path.
// Nothing is normalised ("./" and ".." stay).
std::string GetFullPath(const std::string& path);
// True when the path has a root directory (starts with "/").
bool IsFullPath(const std::string& path);
// True when stat() succeeds and the path is not a directory.
bool IsFileExist(const std::string& path);
// The file name of a module (GetModuleFileName); the host executable for a
// null module. Empty on failure.
std::string GetFullModuleName(HMODULE module = nullptr);

// The content of the named section of an ELF file, up to its first zero byte.
// As many bytes are read from the section's offset as the section-name table
// holds, whatever the section's own size: a value is never longer than that
// table, and a section without a closing zero runs on into the bytes after it.
// Empty when the file cannot be read, is no ELF file, or lacks the section.
std::string GetELFSectionValue(const std::string& path, const std::string& section);

// Reads the ".version" section ("a.b.c.d") into info. Exactly four numbers
// are taken: missing ones are empty (0) and extras are dropped. Each number is
// its leading decimal digits, cut to 16 bits. A fourth number of 0 becomes 1.
// Returns 1, or 0 when the section is missing or empty (info is then zeroed).
int GetFileVersion(const std::string& path, VS_FIXEDFILEINFO& info);
// The first n numbers of the version, joined by dots; empty for a file
// without a version.
std::string GetFileVersion(const std::string& path, VERSION_NUMBER n);
// True when a is older than b: the most significant words decide, then the
// least significant ones.
bool CheckFileVersionLess(const VS_FIXEDFILEINFO& a, const VS_FIXEDFILEINFO& b);

}  // namespace Library::FileUtils
