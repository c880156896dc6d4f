#include "support/LinuxUtils.h"

#include <dlfcn.h>
#include <limits.h>
#include <stdlib.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

namespace {

// ---- Last error ----------------------------------------------------------------

TEST(LastErrorTest, SetLastErrorNotesTheCodeAndItsText) {
  SetLastError(ENOENT);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ENOENT));
  EXPECT_EQ(g_LastErrorCode, ENOENT);
  EXPECT_EQ(GetDLErrorTextString(), std::strerror(ENOENT));
}

TEST(LastErrorTest, TheValuesAreSharedByAllThreads) {
  SetLastError(0);
  std::thread other([] { SetLastError(EACCES); });
  other.join();
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(EACCES));
}

TEST(LastErrorTest, AVeryLongLoaderTextIsCutAndStaysTerminated) {
  std::string text(2 * kLastErrorTextSize, 'e');
  Library::Linux::NoteModuleError(EINVAL, text.c_str());
  EXPECT_EQ(GetDLErrorTextString(), std::string(kLastErrorTextSize - 1, 'e'));
}

// ---- Modules ---------------------------------------------------------------------

constexpr char kMissingModule[] = "/nonexistent/libzdl_missing_module.so";

// A system library that a test program does not load by itself.
std::string UnloadedLibrary() {
  for (const char* name : {"libz.so.1", "libbz2.so.1.0", "libexpat.so.1", "libuuid.so.1"}) {
    void* h = dlopen(name, RTLD_LAZY | RTLD_NOLOAD);
    if (h != nullptr) {
      dlclose(h);
      continue;
    }
    void* probe = dlopen(name, RTLD_LAZY);  // exists at all?
    if (probe != nullptr) {
      dlclose(probe);
      if (dlopen(name, RTLD_LAZY | RTLD_NOLOAD) == nullptr) return name;  // unloaded again
    }
  }
  return {};
}

TEST(ModuleTest, LoadLibraryOfAMissingFileGivesNullAndTheLoaderText) {
  SetLastError(0);
  std::strcpy(g_LastErrorText, "");
  EXPECT_EQ(LoadLibrary(kMissingModule), nullptr);
  EXPECT_NE(GetDLErrorTextString().find(kMissingModule), std::string::npos) << GetDLErrorTextString();
}

TEST(ModuleTest, GetModuleHandleOfAMissingFileGivesNullAndTheLoaderText) {
  std::strcpy(g_LastErrorText, "");
  EXPECT_EQ(GetModuleHandle(kMissingModule), nullptr);
  EXPECT_NE(GetDLErrorTextString().find(kMissingModule), std::string::npos) << GetDLErrorTextString();
}

TEST(ModuleTest, GetModuleHandleFindsOnlyALoadedModule) {
  std::string name = UnloadedLibrary();
  if (name.empty()) GTEST_SKIP() << "no system library found that this process has not loaded";
  std::strcpy(g_LastErrorText, "");
  EXPECT_EQ(GetModuleHandle(name.c_str()), nullptr);
  EXPECT_FALSE(GetDLErrorTextString().empty());
  HMODULE loaded = LoadLibrary(name.c_str());
  ASSERT_NE(loaded, nullptr);
  HMODULE found = GetModuleHandle(name.c_str());
  EXPECT_EQ(found, loaded);
  EXPECT_EQ(FreeLibrary(found), 1);
  EXPECT_EQ(FreeLibrary(loaded), 1);
}

TEST(ModuleTest, GetModuleHandleOfTheCLibrary) { EXPECT_NE(GetModuleHandle("libc.so.6"), nullptr); }

TEST(ModuleTest, FreeLibraryOfNullFails) { EXPECT_EQ(FreeLibrary(nullptr), 0); }

TEST(ModuleTest, GetProcAddressFindsASymbol) {
  HMODULE libc = GetModuleHandle("libc.so.6");
  ASSERT_NE(libc, nullptr);
  EXPECT_EQ(GetProcAddress(libc, "strlen"), dlsym(libc, "strlen"));
  EXPECT_NE(GetProcAddress(libc, "strlen"), nullptr);
}

TEST(ModuleTest, GetProcAddressOfAMissingSymbolGivesNullAndTheLoaderText) {
  HMODULE libc = GetModuleHandle("libc.so.6");
  ASSERT_NE(libc, nullptr);
  std::strcpy(g_LastErrorText, "");
  EXPECT_EQ(GetProcAddress(libc, "zdl_no_such_symbol"), nullptr);
  EXPECT_NE(GetDLErrorTextString().find("zdl_no_such_symbol"), std::string::npos) << GetDLErrorTextString();
}

TEST(ModuleTest, GetProcAddressWithANullArgumentGivesNullAndNotesNothing) {
  HMODULE libc = GetModuleHandle("libc.so.6");
  SetLastError(0);
  std::strcpy(g_LastErrorText, "untouched");
  EXPECT_EQ(GetProcAddress(nullptr, "strlen"), nullptr);
  EXPECT_EQ(GetProcAddress(libc, nullptr), nullptr);
  EXPECT_EQ(GetDLErrorTextString(), "untouched");
  EXPECT_EQ(GetLastError(), 0u);
}

std::string RealPath(const std::string& path) {
  std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.c_str(), nullptr), &std::free);
  return resolved ? std::string(resolved.get()) : std::string();
}

std::string Argv0() {
  std::ifstream in("/proc/self/cmdline", std::ios::binary);
  std::string argv0;
  std::getline(in, argv0, '\0');
  return argv0;
}

TEST(ModuleTest, GetModuleFileNameOfNullNamesTheExecutable) {
  char buffer[4096];
  DWORD n = GetModuleFileName(nullptr, buffer, sizeof buffer);
  ASSERT_GT(n, 0u);
  EXPECT_EQ(std::strlen(buffer), n);
  EXPECT_EQ(RealPath(buffer), RealPath("/proc/self/exe"));
}

TEST(ModuleTest, GetModuleFileNameOfNullJoinsARelativeNameToPwd) {
  std::string argv0 = Argv0();
  const char* pwd = std::getenv("PWD");
  std::string saved = pwd != nullptr ? pwd : "";
  ::setenv("PWD", "/zdl/started/here", 1);
  char buffer[4096];
  DWORD n = GetModuleFileName(nullptr, buffer, sizeof buffer);
  if (pwd != nullptr) ::setenv("PWD", saved.c_str(), 1); else ::unsetenv("PWD");
  ASSERT_GT(n, 0u);
  if (argv0[0] == '/')
    EXPECT_EQ(std::string(buffer), argv0);  // an absolute start name is kept as it is
  else
    EXPECT_EQ(std::string(buffer), "/zdl/started/here/" + argv0);
}

TEST(ModuleTest, GetModuleFileNameOfAnAddressNamesItsModule) {
  HMODULE libc = GetModuleHandle("libc.so.6");
  FARPROC strlenAddress = GetProcAddress(libc, "strlen");
  char buffer[4096];
  DWORD n = GetModuleFileName(strlenAddress, buffer, sizeof buffer);
  ASSERT_GT(n, 0u);
  EXPECT_NE(std::string(buffer).find("libc.so"), std::string::npos) << buffer;
}

TEST(ModuleTest, GetModuleFileNameOfAnAddressInNoModuleFails) {
  auto heap = std::make_unique<int>(1);
  char buffer[64] = "x";
  SetLastError(0);
  EXPECT_EQ(GetModuleFileName(heap.get(), buffer, sizeof buffer), 0u);
  EXPECT_EQ(buffer[0], '\0');
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(EINVAL));
}

TEST(ModuleTest, GetModuleFileNameCutsALongNameToTheBuffer) {
  char full[4096];
  DWORD n = GetModuleFileName(nullptr, full, sizeof full);
  ASSERT_GT(n, 5u);
  char small[6];
  SetLastError(0);
  EXPECT_EQ(GetModuleFileName(nullptr, small, sizeof small), 6u);
  EXPECT_EQ(std::string(small), std::string(full, 5));
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERANGE));
}

TEST(ModuleTest, GetModuleFileNameWithoutABufferFails) {
  SetLastError(0);
  EXPECT_EQ(GetModuleFileName(nullptr, nullptr, 10), 0u);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(EINVAL));
  char buffer[1];
  EXPECT_EQ(GetModuleFileName(nullptr, buffer, 0), 0u);
}

// ---- IsUTF8 -----------------------------------------------------------------------

TEST(IsUTF8Test, AsciiAndTheEmptyTextAreUtf8) {
  EXPECT_TRUE(IsUTF8(""));
  EXPECT_TRUE(IsUTF8("plain ASCII text 0123 ~"));
  EXPECT_TRUE(IsUTF8(std::string("a\0b", 3)));
}

TEST(IsUTF8Test, WellFormedSequencesOfEachLength) {
  EXPECT_TRUE(IsUTF8("\xD0\x9F\xD1\x80\xD0\xB8"));      // "При"
  EXPECT_TRUE(IsUTF8("\xE2\x82\xAC"));                  // U+20AC
  EXPECT_TRUE(IsUTF8("\xEF\xBF\xBF"));                  // U+FFFF
  EXPECT_TRUE(IsUTF8("\xF0\x9F\x98\x80"));              // U+1F600
  EXPECT_TRUE(IsUTF8("\xF4\x8F\xBF\xBF"));              // U+10FFFF
}

TEST(IsUTF8Test, Cp1251TextIsNotUtf8) { EXPECT_FALSE(IsUTF8("\xCF\xF0\xE8\xE2\xE5\xF2")); }

TEST(IsUTF8Test, MalformedSequencesAreRefused) {
  EXPECT_FALSE(IsUTF8("\x80"));                  // a lone continuation byte
  EXPECT_FALSE(IsUTF8("\xD0"));                  // cut short at the end
  EXPECT_FALSE(IsUTF8("\xD0" "A"));              // continuation missing
  EXPECT_FALSE(IsUTF8("\xE2\x82"));              // three-byte form cut short
  EXPECT_FALSE(IsUTF8("\xE2\x82" "A"));          // bad third byte
  EXPECT_FALSE(IsUTF8("\xF0\x9F\x98" "A"));      // bad fourth byte
  EXPECT_FALSE(IsUTF8("\xFF"));
  EXPECT_FALSE(IsUTF8("\xF5\x80\x80\x80"));
}

TEST(IsUTF8Test, OverlongFormsSurrogatesAndValuesAboveTheRangeAreRefused) {
  EXPECT_FALSE(IsUTF8("\xC0\x80"));
  EXPECT_FALSE(IsUTF8("\xC1\xBF"));
  EXPECT_FALSE(IsUTF8("\xE0\x80\x80"));
  EXPECT_FALSE(IsUTF8("\xE0\x9F\xBF"));
  EXPECT_FALSE(IsUTF8("\xED\xA0\x80"));          // U+D800
  EXPECT_FALSE(IsUTF8("\xF0\x80\x80\x80"));
  EXPECT_FALSE(IsUTF8("\xF4\x90\x80\x80"));      // U+110000
}

// ---- IconvConvert -------------------------------------------------------------------

TEST(IconvConvertTest, AsciiToUtf8ComesBackUnchanged) {
  EXPECT_EQ(IconvConvert("C:/dl/lib.ini", true), "C:/dl/lib.ini");
}

TEST(IconvConvertTest, AsciiToCp1251GivesTheSameBytes) {
  EXPECT_EQ(IconvConvert("lib.ini", false), "lib.ini");
}

TEST(IconvConvertTest, Cp1251ToUtf8) {
  // "Привет" in CP1251, then in UTF-8
  EXPECT_EQ(IconvConvert("\xCF\xF0\xE8\xE2\xE5\xF2", true), "\xD0\x9F\xD1\x80\xD0\xB8\xD0\xB2\xD0\xB5\xD1\x82");
}

TEST(IconvConvertTest, Utf8ToCp1251) {
  EXPECT_EQ(IconvConvert("\xD0\x9F\xD1\x80\xD0\xB8\xD0\xB2\xD0\xB5\xD1\x82", false), "\xCF\xF0\xE8\xE2\xE5\xF2");
}

TEST(IconvConvertTest, TextAlreadyInTheAskedFormIsUnchanged) {
  std::string utf8 = "\xD0\x9F\xD1\x80\xD0\xB8";
  EXPECT_EQ(IconvConvert(utf8, true), utf8);
  std::string cp1251 = "\xCF\xF0\xE8";
  EXPECT_EQ(IconvConvert(cp1251, false), cp1251);
}

TEST(IconvConvertTest, Cp1251BytesThatFormValidUtf8AreTakenAsUtf8) {
  // CP1251 "Рџ" happens to be the UTF-8 form of "П": the text is left alone.
  EXPECT_EQ(IconvConvert("\xD0\x9F", true), "\xD0\x9F");
}

TEST(IconvConvertTest, ThreeByteCharactersFitTheOutputBuffer) {
  // 0x88 is the euro sign and 0xB9 the numero sign, three UTF-8 bytes each.
  EXPECT_EQ(IconvConvert("\x88\xB9\x88", true), "\xE2\x82\xAC\xE2\x84\x96\xE2\x82\xAC");
}

TEST(IconvConvertTest, TheResultEndsAtTheFirstZero) {
  EXPECT_EQ(IconvConvert(std::string("\xCF\0\xF0", 3), true), "\xD0\x9F");
}

TEST(IconvConvertTest, AByteUndefinedInCp1251GivesTheErrorText) {
  EXPECT_EQ(IconvConvert("ab\x98", true), "<iconv error>");
}

TEST(IconvConvertTest, ACharacterMissingFromCp1251GivesTheErrorText) {
  EXPECT_EQ(IconvConvert("\xE4\xB8\xAD", false), "<iconv error>");  // a CJK ideograph
}

TEST(IconvConvertTest, TheKeptConverterWorksAfterAFailure) {
  EXPECT_EQ(IconvConvert("\xE4\xB8\xAD", false), "<iconv error>");
  EXPECT_EQ(IconvConvert("\xD0\x9F", false), "\xCF");
}

TEST(IconvConvertTest, ConversionLeavesTheLastErrorAlone) {
  SetLastError(EACCES);
  EXPECT_EQ(IconvConvert("ab\x98", true), "<iconv error>");
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(EACCES));
}

}  // namespace
