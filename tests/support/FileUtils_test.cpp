#include "support/FileUtils.h"

#include <elf.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

#include "support/TempDir.h"

namespace {

namespace FU = Library::FileUtils;
using ztest::ReadBytes;
using ztest::WriteBytes;

std::string Cwd() { return std::filesystem::current_path().string(); }

// ---- Paths ------------------------------------------------------------------------

TEST(FileUtilsTest, PlatformNameIsTheSharedLibraryName) { EXPECT_EQ(FU::GetPlatformName("dbzent"), "libdbzent.so"); }

TEST(FileUtilsTest, PrepareZentModulePathWithAnEmptyNameIsEmpty) {
  EXPECT_EQ(FU::PrepareZentModulePath("", false), "");
  EXPECT_EQ(FU::PrepareZentModulePath("", true), "");
}

TEST(FileUtilsTest, PrepareZentModulePathPointsIntoModules) {
  EXPECT_EQ(FU::PrepareZentModulePath("dbzent", false), Cwd() + "/modules/libdbzent.so");
}

TEST(FileUtilsTest, PrepareZentModulePathOfAGatePointsIntoGates) {
  EXPECT_EQ(FU::PrepareZentModulePath("fix", true), Cwd() + "/modules/gates/libfix.so");
}

TEST(FileUtilsTest, GetFullPathKeepsAnAbsolutePath) { EXPECT_EQ(FU::GetFullPath("/srv/dl/a.ini"), "/srv/dl/a.ini"); }

TEST(FileUtilsTest, GetFullPathPrefixesTheCurrentDirectoryWithoutNormalising) {
  EXPECT_EQ(FU::GetFullPath("dl/a.ini"), Cwd() + "/dl/a.ini");
  EXPECT_EQ(FU::GetFullPath("./a.ini"), Cwd() + "/./a.ini");
}

TEST(FileUtilsTest, IsFullPathWantsARootDirectory) {
  EXPECT_TRUE(FU::IsFullPath("/a"));
  EXPECT_TRUE(FU::IsFullPath("/"));
  EXPECT_FALSE(FU::IsFullPath("a/b"));
  EXPECT_FALSE(FU::IsFullPath("./a"));
  EXPECT_FALSE(FU::IsFullPath(""));
  EXPECT_FALSE(FU::IsFullPath("C:\\dl\\a.ini"));
}

TEST(FileUtilsTest, IsFileExistIsTrueForAFile) {
  ztest::TempDir dir;
  WriteBytes(dir.File("a"), "x");
  EXPECT_TRUE(FU::IsFileExist(dir.File("a")));
}

TEST(FileUtilsTest, IsFileExistIsFalseForADirectory) {
  ztest::TempDir dir;
  EXPECT_FALSE(FU::IsFileExist(dir.Path()));
}

TEST(FileUtilsTest, IsFileExistIsFalseForAMissingPath) {
  ztest::TempDir dir;
  EXPECT_FALSE(FU::IsFileExist(dir.File("missing")));
}

TEST(FileUtilsTest, GetFullModuleNameNamesTheExecutable) {
  std::string name = FU::GetFullModuleName();
  ASSERT_FALSE(name.empty());
  EXPECT_EQ(std::filesystem::canonical(name), std::filesystem::canonical("/proc/self/exe"));
}

TEST(FileUtilsTest, GetFullModuleNameOfAnAddressInNoModuleIsEmpty) {
  auto heap = std::make_unique<int>(0);
  EXPECT_EQ(FU::GetFullModuleName(heap.get()), "");
}

// ---- ELF sections and versions ---------------------------------------------------

// ELF files made for a test from this test program: a plain copy, and copies
// with a ".version" section of a given content.
class ElfVersionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (std::system("command -v objcopy >/dev/null 2>&1") != 0)
      GTEST_SKIP() << "objcopy (binutils) is not installed: ELF section tests need it";
    plain_ = dir_.File("plain");
    std::filesystem::copy_file("/proc/self/exe", plain_);
  }

  // A copy of the program with a section named name holding content.
  std::string WithSection(const std::string& name, const std::string& content) {
    std::string data = dir_.File("section" + std::to_string(++count_));
    std::string out = dir_.File("elf" + std::to_string(count_));
    WriteBytes(data, content);
    std::string command = "objcopy --add-section " + name + "=" + data + " --set-section-flags " + name +
                          "=noload,readonly " + plain_ + " " + out + " 2>/dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return out;
  }
  std::string WithVersion(const std::string& text) { return WithSection(".version", text + std::string(1, '\0')); }

  // The size of the section-name table, read straight from the 64-bit headers.
  static size_t NameTableSize(const std::string& elf) {
    std::string bytes = ReadBytes(elf);
    Elf64_Ehdr header;
    if (bytes.size() < sizeof header) return 0;
    std::memcpy(&header, bytes.data(), sizeof header);
    Elf64_Shdr names;
    size_t at = header.e_shoff + size_t{header.e_shstrndx} * sizeof names;
    if (header.e_ident[EI_CLASS] != ELFCLASS64 || at + sizeof names > bytes.size()) return 0;
    std::memcpy(&names, bytes.data() + at, sizeof names);
    return names.sh_size;
  }

  ztest::TempDir dir_;
  std::string plain_;
  int count_ = 0;
};

TEST_F(ElfVersionTest, SectionValueIsTheSectionContent) {
  EXPECT_EQ(FU::GetELFSectionValue(WithVersion("7.2.1.30"), ".version"), "7.2.1.30");
}

TEST_F(ElfVersionTest, SectionValueOfAnotherSectionName) {
  EXPECT_EQ(FU::GetELFSectionValue(WithSection(".zdl_note", std::string("hello") + '\0'), ".zdl_note"), "hello");
}

TEST_F(ElfVersionTest, SectionValueIsCutToTheSizeOfTheNameTable) {
  std::string elf = WithSection(".version", std::string(8192, 'A'));
  size_t tableSize = NameTableSize(elf);
  ASSERT_GT(tableSize, 0u);
  ASSERT_LT(tableSize, 8192u);
  EXPECT_EQ(FU::GetELFSectionValue(elf, ".version"), std::string(tableSize, 'A'));
}

TEST_F(ElfVersionTest, SectionValueOfAMissingSectionIsEmpty) {
  EXPECT_EQ(FU::GetELFSectionValue(plain_, ".version"), "");
}

TEST_F(ElfVersionTest, SectionValueOfAMissingFileIsEmptyAndNotesTheError) {
  SetLastError(0);
  EXPECT_EQ(FU::GetELFSectionValue(dir_.File("missing"), ".text"), "");
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ENOENT));
}

TEST_F(ElfVersionTest, SectionValueOfAFileThatIsNoElfIsEmpty) {
  WriteBytes(dir_.File("text"), std::string(4096, 'x'));
  EXPECT_EQ(FU::GetELFSectionValue(dir_.File("text"), ".version"), "");
  WriteBytes(dir_.File("short"), "\x7f" "ELF");
  EXPECT_EQ(FU::GetELFSectionValue(dir_.File("short"), ".version"), "");
}

TEST_F(ElfVersionTest, SectionValueOfATruncatedElfIsEmpty) {
  std::string elf = WithVersion("7.2.1.30");
  std::string bytes = ReadBytes(elf);
  WriteBytes(dir_.File("cut"), bytes.substr(0, 200));  // header only: the section table is gone
  EXPECT_EQ(FU::GetELFSectionValue(dir_.File("cut"), ".version"), "");
}

TEST_F(ElfVersionTest, ThreeNumbersGetAFourthThatBecomesOne) {
  std::string elf = WithVersion("7.2.1");
  VS_FIXEDFILEINFO info;
  ASSERT_EQ(FU::GetFileVersion(elf, info), 1);
  EXPECT_EQ(info.dwFileVersionMS, (7u << 16) | 2u);
  EXPECT_EQ(info.dwFileVersionLS, (1u << 16) | 1u);
  EXPECT_EQ(info.dwSignature, 0xFEEF04BDu);
  EXPECT_EQ(FU::GetFileVersion(elf, FU::VERSION_NUMBER_4), "7.2.1.1");
  EXPECT_EQ(FU::GetFileVersion(elf, FU::VERSION_NUMBER_3), "7.2.1");
}

TEST_F(ElfVersionTest, FourNumbersFillBothWords) {
  std::string elf = WithVersion("7.2.1.30");
  VS_FIXEDFILEINFO info;
  ASSERT_EQ(FU::GetFileVersion(elf, info), 1);
  EXPECT_EQ(info.dwFileVersionMS, 0x00070002u);
  EXPECT_EQ(info.dwFileVersionLS, 0x0001001Eu);
  EXPECT_EQ(info.dwProductVersionMS, info.dwFileVersionMS);
  EXPECT_EQ(info.dwProductVersionLS, info.dwFileVersionLS);
  EXPECT_EQ(FU::GetFileVersion(elf, FU::VERSION_NUMBER_4), "7.2.1.30");
  EXPECT_EQ(FU::GetFileVersion(elf, FU::VERSION_NUMBER_2), "7.2");
  EXPECT_EQ(FU::GetFileVersion(elf, FU::VERSION_NUMBER_1), "7");
}

TEST_F(ElfVersionTest, AFourthNumberOfZeroBecomesOne) {
  EXPECT_EQ(FU::GetFileVersion(WithVersion("7.2.1.0"), FU::VERSION_NUMBER_4), "7.2.1.1");
}

TEST_F(ElfVersionTest, ExtraNumbersAreDropped) {
  EXPECT_EQ(FU::GetFileVersion(WithVersion("1.2.3.4.5.6"), FU::VERSION_NUMBER_4), "1.2.3.4");
}

TEST_F(ElfVersionTest, OneNumberIsPaddedWithEmptyOnes) {
  EXPECT_EQ(FU::GetFileVersion(WithVersion("9"), FU::VERSION_NUMBER_4), "9.0.0.1");
}

TEST_F(ElfVersionTest, NumbersAreCutTo16Bits) {
  EXPECT_EQ(FU::GetFileVersion(WithVersion("65537.2.3.4"), FU::VERSION_NUMBER_4), "1.2.3.4");
}

TEST_F(ElfVersionTest, AMissingSectionGivesZeroAndAnEmptyText) {
  VS_FIXEDFILEINFO info;
  info.dwFileVersionMS = 123;
  EXPECT_EQ(FU::GetFileVersion(plain_, info), 0);
  EXPECT_EQ(info.dwFileVersionMS, 0u);
  EXPECT_EQ(FU::GetFileVersion(plain_, FU::VERSION_NUMBER_4), "");
}

TEST_F(ElfVersionTest, AnEmptySectionGivesZero) {
  VS_FIXEDFILEINFO info;
  EXPECT_EQ(FU::GetFileVersion(WithSection(".version", std::string(1, '\0')), info), 0);
}

TEST_F(ElfVersionTest, AMissingFileGivesZeroAndAnEmptyText) {
  VS_FIXEDFILEINFO info;
  EXPECT_EQ(FU::GetFileVersion(dir_.File("missing"), info), 0);
  EXPECT_EQ(FU::GetFileVersion(dir_.File("missing"), FU::VERSION_NUMBER_4), "");
}

TEST_F(ElfVersionTest, CheckFileVersionLessComparesFilesOfDifferentVersions) {
  VS_FIXEDFILEINFO older, newer;
  ASSERT_EQ(FU::GetFileVersion(WithVersion("7.2.1.9"), older), 1);
  ASSERT_EQ(FU::GetFileVersion(WithVersion("7.2.1.30"), newer), 1);
  EXPECT_TRUE(FU::CheckFileVersionLess(older, newer));
  EXPECT_FALSE(FU::CheckFileVersionLess(newer, older));
  EXPECT_FALSE(FU::CheckFileVersionLess(newer, newer));
}

// ---- Version comparison --------------------------------------------------------------

VS_FIXEDFILEINFO Version(DWORD ms, DWORD ls) {
  VS_FIXEDFILEINFO info;
  info.dwFileVersionMS = ms;
  info.dwFileVersionLS = ls;
  return info;
}

TEST(FileVersionLessTest, TheMostSignificantWordDecidesFirst) {
  EXPECT_TRUE(FU::CheckFileVersionLess(Version(0x00070002, 0x00090009), Version(0x00070003, 0x00000001)));
  EXPECT_FALSE(FU::CheckFileVersionLess(Version(0x00070003, 0x00000001), Version(0x00070002, 0x00090009)));
}

TEST(FileVersionLessTest, TheLeastSignificantWordDecidesOnATie) {
  EXPECT_TRUE(FU::CheckFileVersionLess(Version(0x00070002, 0x00010001), Version(0x00070002, 0x00010002)));
  EXPECT_FALSE(FU::CheckFileVersionLess(Version(0x00070002, 0x00010002), Version(0x00070002, 0x00010001)));
}

TEST(FileVersionLessTest, EqualVersionsAreNotLess) {
  EXPECT_FALSE(FU::CheckFileVersionLess(Version(1, 1), Version(1, 1)));
}

}  // namespace
