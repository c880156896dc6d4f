#include "support/LinuxUtils.h"

#include <dlfcn.h>
#include <iconv.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <vector>

int g_LastErrorCode = 0;
char g_LastErrorText[kLastErrorTextSize] = {};

namespace {

void NoteText(const char* text) {
  std::strncpy(g_LastErrorText, text != nullptr ? text : "", kLastErrorTextSize - 1);
  g_LastErrorText[kLastErrorTextSize - 1] = '\0';
}

// Copies name into the caller's buffer as GetModuleFileName promises.
DWORD CopyName(const std::string& name, char* buffer, DWORD size) {
  if (name.size() < size) {
    std::memcpy(buffer, name.c_str(), name.size() + 1);
    return static_cast<DWORD>(name.size());
  }
  std::memcpy(buffer, name.data(), size - 1);
  buffer[size - 1] = '\0';
  SetLastError(ERANGE);
  return size;
}

// argv[0] of this process, joined to the directory the host was started in.
std::string ExecutableName() {
  std::ifstream in("/proc/self/cmdline", std::ios::binary);
  if (!in) {
    SetLastError(errno);
    return {};
  }
  std::string argv0;
  std::getline(in, argv0, '\0');
  if (argv0.empty() || argv0[0] == '/') return argv0;
  const char* pwd = std::getenv("PWD");
  return std::string(pwd != nullptr ? pwd : "") + "/" + argv0;
}

}  // namespace

DWORD GetLastError() { return static_cast<DWORD>(g_LastErrorCode); }

void SetLastError(DWORD code) {
  g_LastErrorCode = static_cast<int>(code);
  NoteText(std::strerror(static_cast<int>(code)));
}

std::string GetDLErrorTextString() { return g_LastErrorText; }

namespace Library::Linux {
void NoteModuleError(int code, const char* dlText) {
  g_LastErrorCode = code;
  NoteText(dlText != nullptr ? dlText : std::strerror(code));
}
}  // namespace Library::Linux

HMODULE GetModuleHandle(const char* path) {
  HMODULE module = dlopen(path, RTLD_LAZY | RTLD_NOLOAD);
  if (module == nullptr) Library::Linux::NoteModuleError(errno, dlerror());
  return module;
}

HMODULE LoadLibrary(const char* path) {
  HMODULE module = dlopen(path, RTLD_LAZY);
  if (module == nullptr) Library::Linux::NoteModuleError(errno, dlerror());
  return module;
}

BOOL FreeLibrary(HMODULE module) {
  if (module == nullptr) return 0;
  if (dlclose(module) != 0) {
    Library::Linux::NoteModuleError(errno, dlerror());
    return 0;
  }
  return 1;
}

FARPROC GetProcAddress(HMODULE module, const char* name) {
  if (module == nullptr || name == nullptr) return nullptr;
  dlerror();  // a symbol may be null by right; only a loader text means failure
  FARPROC address = dlsym(module, name);
  if (address == nullptr) {
    const char* text = dlerror();
    if (text != nullptr) Library::Linux::NoteModuleError(errno, text);
  }
  return address;
}

DWORD GetModuleFileName(HMODULE module, char* buffer, DWORD size) {
  if (buffer == nullptr || size == 0) {
    SetLastError(EINVAL);
    return 0;
  }
  std::string name;
  if (module == nullptr) {
    name = ExecutableName();
  } else {
    Dl_info info{};
    if (dladdr(module, &info) == 0 || info.dli_fname == nullptr) {
      Library::Linux::NoteModuleError(EINVAL, "address is in no loaded module");
    } else {
      name = info.dli_fname;
    }
  }
  if (name.empty()) {
    buffer[0] = '\0';
    return 0;
  }
  return CopyName(name, buffer, size);
}

// ---- Text conversion ----------------------------------------------------------

bool IsUTF8(std::string_view text) {
  const auto* p = reinterpret_cast<const unsigned char*>(text.data());
  const auto* end = p + text.size();
  while (p < end) {
    unsigned char c = *p;
    if (c < 0x80) {
      ++p;
      continue;
    }
    int tail;
    unsigned char lo = 0x80, hi = 0xBF;  // allowed range of the first continuation byte
    if (c >= 0xC2 && c <= 0xDF) {
      tail = 1;
    } else if (c >= 0xE0 && c <= 0xEF) {
      tail = 2;
      if (c == 0xE0) lo = 0xA0;       // no overlong three-byte forms
      if (c == 0xED) hi = 0x9F;       // no surrogates
    } else if (c >= 0xF0 && c <= 0xF4) {
      tail = 3;
      if (c == 0xF0) lo = 0x90;       // no overlong four-byte forms
      if (c == 0xF4) hi = 0x8F;       // nothing above U+10FFFF
    } else {
      return false;                   // a continuation byte, C0, C1 or F5..FF
    }
    if (end - p <= tail) return false;
    if (p[1] < lo || p[1] > hi) return false;
    for (int i = 2; i <= tail; ++i)
      if ((p[i] & 0xC0) != 0x80) return false;
    p += tail + 1;
  }
  return true;
}

namespace {

constexpr char kIconvError[] = "<iconv error>";
const iconv_t kNoConverter = reinterpret_cast<iconv_t>(-1);

// The two converters, opened at first use and kept for the life of the process.
iconv_t Converter(bool toUtf8) {
  static iconv_t toUtf8Cd = kNoConverter;
  static iconv_t toCp1251Cd = kNoConverter;
  iconv_t& cd = toUtf8 ? toUtf8Cd : toCp1251Cd;
  if (cd == kNoConverter) {
    cd = toUtf8 ? iconv_open("UTF-8", "CP1251") : iconv_open("CP1251", "UTF-8");
  }
  return cd;
}

}  // namespace

std::string IconvConvert(const std::string& text, bool toUtf8) {
  if (IsUTF8(text) == toUtf8) return text;
  iconv_t cd = Converter(toUtf8);
  if (cd == kNoConverter) return kIconvError;
  iconv(cd, nullptr, nullptr, nullptr, nullptr);  // a kept converter starts from its initial state
  std::vector<char> out(text.size() * 4 < 16 ? 16 : text.size() * 4, '\0');
  char* in = const_cast<char*>(text.data());
  size_t inLeft = text.size();
  char* to = out.data();
  size_t toLeft = out.size();
  // The last error is left alone: a conversion is no platform call of the caller's.
  if (iconv(cd, &in, &inLeft, &to, &toLeft) == static_cast<size_t>(-1)) return kIconvError;
  size_t written = out.size() - toLeft;
  return std::string(out.data(), strnlen(out.data(), written));
}
