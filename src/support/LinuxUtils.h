#pragma once
// The Windows-style platform calls that the code above is written against,
// done with POSIX: the process-wide last error, dynamic modules, and the
// conversion of text between CP1251 and UTF-8.
//
// Every wrapper that fails notes the failure in the last error and returns
// failure; none of them raises.
#include <cstdint>
#include <string>
#include <string_view>

using DWORD = std::uint32_t;
using BOOL = int;          // 1 success, 0 failure
using HMODULE = void*;     // a handle of dlopen, or an address inside a module
using FARPROC = void*;     // an address found by dlsym

// ---- Last error -----------------------------------------------------------
// One pair of values for the whole process, overwritten by each failing
// wrapper on any thread and read without a lock: a reader may see another
// thread's failure. The text is a fixed array so that a torn read is at worst
// a mixed text, never a freed block.
inline constexpr std::size_t kLastErrorTextSize = 512;
extern int g_LastErrorCode;                      // errno of the last failure
extern char g_LastErrorText[kLastErrorTextSize];  // strerror, or dlerror after a module call

// errno of the last failing wrapper; 0 before any failure.
DWORD GetLastError();
// Notes code as the last error, with the strerror text of it.
void SetLastError(DWORD code);
// The text of the last failure (g_LastErrorText).
std::string GetDLErrorTextString();

namespace Library::Linux {
// Notes a failed module call: errno as the code and the dlerror text (or the
// strerror text when the loader gave none).
void NoteModuleError(int code, const char* dlText);
}  // namespace Library::Linux

// ---- Modules ----------------------------------------------------------------
// A module that is already loaded (dlopen RTLD_LAZY | RTLD_NOLOAD); null if it
// is not loaded or the call fails.
HMODULE GetModuleHandle(const char* path);
// Loads the module (dlopen RTLD_LAZY); null on failure.
HMODULE LoadLibrary(const char* path);
// Drops one reference taken by LoadLibrary or GetModuleHandle. 1 on success.
BOOL FreeLibrary(HMODULE module);
// dlsym. Null if either argument is null (nothing noted then) or the symbol is
// missing (noted).
FARPROC GetProcAddress(HMODULE module, const char* name);
// Writes the file name of a module into buffer, always zero-terminated, and
// returns its length. A null module names the host executable: argv[0] from
// /proc/self/cmdline, joined to $PWD unless it is absolute. Any other value is
// taken as an address inside a loaded module (dladdr). A name that does not
// fit is cut to size - 1 bytes, and the result is size with ERANGE noted.
// 0 on failure.
DWORD GetModuleFileName(HMODULE module, char* buffer, DWORD size);

// ---- Text conversion --------------------------------------------------------
// True when text is well-formed UTF-8: shortest forms only, no surrogates,
// nothing above U+10FFFF. Pure ASCII and the empty text are UTF-8.
bool IsUTF8(std::string_view text);
// Converts text to UTF-8 (toUtf8) or to CP1251 (!toUtf8). A text already in
// the asked form, as IsUTF8 tells it, comes back unchanged. The result ends at
// the first zero byte. A text that cannot be converted gives "<iconv error>".
// The two converters are opened at first use and kept; the call is not safe
// for concurrent use.
std::string IconvConvert(const std::string& text, bool toUtf8);
