#include "ini/PrivateProfile.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "support/TempDir.h"

namespace {

using ztest::ReadBytes;
using ztest::WriteBytes;

class PrivateProfileTest : public ::testing::Test {
 protected:
  // Writes the bytes to a file of the test directory and returns its path.
  std::string File(const std::string& bytes, const std::string& name = "profile.ini") {
    const std::string path = m_dir.File(name);
    WriteBytes(path, bytes);
    return path;
  }
  std::string Missing() const { return m_dir.File("missing.ini"); }
  std::string Dir() const { return m_dir.Path(); }

  static std::string GetString(const char* section, const char* key, const char* def, const std::string& path,
                               unsigned long size = 256, unsigned long* length = nullptr) {
    std::vector<char> out(size + 1, '#');
    const unsigned long n = lx_GetPrivateProfileString(section, key, def, out.data(), size, path.c_str());
    if (length != nullptr) *length = n;
    EXPECT_EQ(n, std::strlen(out.data()));
    return std::string(out.data());
  }

 private:
  ztest::TempDir m_dir;
};

std::string Trim(std::string s, char* (*fn)(char*)) {
  fn(s.data());
  return std::string(s.c_str());
}

// ---- Trimming ----

TEST(ProfileTrimTest, RmcrCutsAtTheLastCarriageReturn) {
  EXPECT_EQ(Trim("abc\r\n", lx_rmcr), "abc");
  EXPECT_EQ(Trim("a\rb\rc", lx_rmcr), "a\rb");
  EXPECT_EQ(Trim("a\rb\nc", lx_rmcr), "a");
}

TEST(ProfileTrimTest, RmcrWithoutCarriageReturnCutsAtTheLastLineFeed) {
  EXPECT_EQ(Trim("a\nb\nc", lx_rmcr), "a\nb");
  EXPECT_EQ(Trim("abc", lx_rmcr), "abc");
}

TEST(ProfileTrimTest, TrimRightDropsBytesBelow33AndKeepsHighBytes) {
  EXPECT_EQ(Trim("ab \t\x01\x1F", lx_trim_right), "ab");
  EXPECT_EQ(Trim("ab\xA0", lx_trim_right), "ab\xA0");
  EXPECT_EQ(Trim(" \t ", lx_trim_right), "");
}

TEST(ProfileTrimTest, TrimLeftDropsBytesFrom1To32) {
  EXPECT_EQ(Trim(" \t\x01 ab ", lx_trim_left), "ab ");
  EXPECT_EQ(Trim("\xA0 ab", lx_trim_left), "\xA0 ab");
  EXPECT_EQ(Trim("   ", lx_trim_left), "");
}

TEST(ProfileTrimTest, TrimIsAllThreeInOrder) {
  EXPECT_EQ(Trim("  k = v \r\n", lx_trim), "k = v");
  EXPECT_EQ(Trim("  a\rb  ", lx_trim), "a");  // the cut at "\r" comes first
  char s[] = "  x ";
  EXPECT_EQ(lx_trim(s), s);
}

TEST(ProfileTrimTest, StristrFindsIgnoringCase) {
  const char* hay = "x=1 [General] y";
  EXPECT_EQ(_stristr(hay, "[general]"), hay + 4);
  EXPECT_EQ(_stristr(hay, "[GENERAL]"), hay + 4);
  EXPECT_EQ(_stristr(hay, "[Gen]"), nullptr);
  EXPECT_EQ(_stristr("ab", "abc"), nullptr);
  EXPECT_EQ(_stristr(hay, ""), hay);
  EXPECT_EQ(_stristr("", "a"), nullptr);
  const char* again = "aab";
  EXPECT_EQ(_stristr(again, "AB"), again + 1) << "restarts after a partial match";
}

// ---- Reading an integer ----

TEST_F(PrivateProfileTest, IntReadsTheDecimalValue) {
  const std::string path = File("[General]\nMaxDeallibSize=42\n");
  EXPECT_EQ(lx_GetPrivateProfileInt("General", "MaxDeallibSize", 7, path.c_str()), 42);
}

TEST_F(PrivateProfileTest, IntIgnoresCaseOfSectionAndKey) {
  const std::string path = File("[GENERAL]\r\n  maxdeallibsize = 5 \r\n");
  EXPECT_EQ(lx_GetPrivateProfileInt("General", "MaxDeallibSize", 7, path.c_str()), 5);
}

TEST_F(PrivateProfileTest, IntGivesTheDefaultForMissingFileSectionOrKey) {
  const std::string path = File("[General]\nk=1\n");
  EXPECT_EQ(lx_GetPrivateProfileInt("General", "k", 7, Missing().c_str()), 7);
  EXPECT_EQ(lx_GetPrivateProfileInt("Other", "k", 7, path.c_str()), 7);
  EXPECT_EQ(lx_GetPrivateProfileInt("General", "m", 7, path.c_str()), 7);
}

TEST_F(PrivateProfileTest, IntIsNarrowedTo32BitsAndSignExtended) {
  const std::string path = File("[A]\nbig=4294967297\nneg=2147483648\nminus=-5\nmixed=12abc\nempty=\n");
  EXPECT_EQ(lx_GetPrivateProfileInt("A", "big", 0, path.c_str()), 1);
  EXPECT_EQ(lx_GetPrivateProfileInt("A", "neg", 0, path.c_str()), -2147483648L);
  EXPECT_EQ(lx_GetPrivateProfileInt("A", "minus", 0, path.c_str()), -5);
  EXPECT_EQ(lx_GetPrivateProfileInt("A", "mixed", 0, path.c_str()), 12);
  EXPECT_EQ(lx_GetPrivateProfileInt("A", "empty", 9, path.c_str()), 0);
}

TEST_F(PrivateProfileTest, IntTakesTheFirstMatchingKey) {
  const std::string path = File("[A]\nk=1\nK=2\n");
  EXPECT_EQ(lx_GetPrivateProfileInt("A", "k", 0, path.c_str()), 1);
}

TEST_F(PrivateProfileTest, IndentedHeaderEndsTheSectionForIntOnly) {
  const std::string path = File("[A]\nx=1\n  [B]\nk=7\n");
  EXPECT_EQ(lx_GetPrivateProfileInt("A", "k", 3, path.c_str()), 3);
  EXPECT_EQ(GetString("A", "k", "d", path), "7");
}

TEST_F(PrivateProfileTest, SectionOpensAtAnyLineHoldingTheHeaderButNotAComment) {
  EXPECT_EQ(lx_GetPrivateProfileInt("A", "k", 0, File("; [A]\nk=1\n[B]\nk=2\n").c_str()), 0);
  EXPECT_EQ(lx_GetPrivateProfileInt("A", "k", 0, File("x=[a] y\nk=3\n").c_str()), 3);
  EXPECT_EQ(lx_GetPrivateProfileInt("A", "k", 0, File("# [A]\nk=4\n").c_str()), 4);
  EXPECT_EQ(lx_GetPrivateProfileInt("A", "k", 0, File("[AB]\nk=5\n").c_str()), 0);
}

// ---- Reading a string ----

TEST_F(PrivateProfileTest, StringReadsTheTrimmedValue) {
  unsigned long n = 0;
  EXPECT_EQ(GetString("dealer-library", "firm1", "", File("[dealer-library]\n firm1 =  a b  \r\n"), 256, &n), "a b");
  EXPECT_EQ(n, 3u);
}

TEST_F(PrivateProfileTest, StringGivesTheDefaultForMissingFileSectionOrKey) {
  const std::string path = File("[A]\nk=1\n");
  EXPECT_EQ(GetString("A", "k", "def", Missing()), "def");
  EXPECT_EQ(GetString("B", "k", "def", path), "def");
  EXPECT_EQ(GetString("A", "m", "def", path), "def");
}

TEST_F(PrivateProfileTest, StringNullDefaultReadsAsEmpty) {
  unsigned long n = 9;
  EXPECT_EQ(GetString("A", "m", nullptr, File("[A]\nk=1\n"), 16, &n), "");
  EXPECT_EQ(n, 0u);
}

TEST_F(PrivateProfileTest, StringIsCutToTheBufferWithItsLastByteZero) {
  std::vector<char> out(8, '#');
  const unsigned long n =
      lx_GetPrivateProfileString("A", "k", "", out.data(), 4, File("[A]\nk=abcdef\n").c_str());
  EXPECT_EQ(n, 3u);
  EXPECT_EQ(std::string(out.data(), 5), std::string("abc\0#", 5));
}

TEST_F(PrivateProfileTest, StringOfSizeZeroWritesNothing) {
  char out[4] = {'#', '#', '#', '#'};
  EXPECT_EQ(lx_GetPrivateProfileString("A", "k", "d", out, 0, File("[A]\nk=1\n").c_str()), 0u);
  EXPECT_EQ(std::string(out, 4), "####");
}

TEST_F(PrivateProfileTest, StringCutsOneTrailingLineEndOfTheDefault) {
  const std::string path = Missing();
  EXPECT_EQ(GetString("A", "k", "x\r\n", path), "x");
  EXPECT_EQ(GetString("A", "k", "x\n", path), "x");
  EXPECT_EQ(GetString("A", "k", "x\n\n", path), "x\n");
  EXPECT_EQ(GetString("A", "k", "x\r\r", path), "x");
  EXPECT_EQ(GetString("A", "k", "x\n\r", path), "x\n");
  EXPECT_EQ(GetString("A", "k", "ab\ncd", path, 4), "ab");  // the cut copy ends in "\n"
}

TEST_F(PrivateProfileTest, StringValueIsCutAtItsLastCarriageReturn) {
  EXPECT_EQ(GetString("A", "k", "", File("[A]\nk=a\rb\n")), "a");
}

TEST_F(PrivateProfileTest, StringSkipsLinesWithoutEquals) {
  EXPECT_EQ(GetString("A", "k", "", File("[A]\nk\n; k=0\nk=1\n")), "1");
}

TEST_F(PrivateProfileTest, LongLineIsReadAsPiecesOf1999Bytes) {
  const std::string path = File("[A]\nk=" + std::string(2500, 'x') + "\n");
  EXPECT_EQ(GetString("A", "k", "", path, 4000), std::string(1997, 'x'));
  // The second piece of a long line reads as a line of its own.
  const std::string split = File("[A]\n" + std::string(1999, 'y') + "m=2\n", "split.ini");
  EXPECT_EQ(GetString("A", "m", "", split), "2");
}

// ---- Reading a section ----

TEST_F(PrivateProfileTest, SectionPacksEveryTrimmedLineUpToTheNextHeader) {
  std::vector<char> out(32, '#');
  const unsigned long n = lx_GetPrivateProfileSection(
      "a", out.data(), 32, File("[A]\nk=1\n; c\n\n  m = 2 \r\n[B]\nx=1\n").c_str());
  EXPECT_EQ(n, 15u);
  EXPECT_EQ(std::string(out.data(), 32), std::string("k=1\0; c\0\0m = 2\0", 15) + std::string(17, '\0'));
}

TEST_F(PrivateProfileTest, SectionStopsAtTheBufferSizeAndReturnsSizeLessTwo) {
  std::vector<char> out(6, '#');
  EXPECT_EQ(lx_GetPrivateProfileSection("A", out.data(), 6, File("[A]\nk=1\n; c\n").c_str()), 4u);
  EXPECT_EQ(std::string(out.data(), 6), std::string("k=1\0\0\0", 6));
}

TEST_F(PrivateProfileTest, SectionMissingGivesAZeroedBuffer) {
  std::vector<char> out(8, '#');
  EXPECT_EQ(lx_GetPrivateProfileSection("Z", out.data(), 8, File("[A]\nk=1\n").c_str()), 0u);
  EXPECT_EQ(std::string(out.data(), 8), std::string(8, '\0'));
  EXPECT_EQ(lx_GetPrivateProfileSection("A", out.data(), 8, Missing().c_str()), 0u);
}

// ---- Reading the section names ----

TEST_F(PrivateProfileTest, SectionNamesArePackedInFileOrder) {
  std::vector<char> out(16, '#');
  const unsigned long n =
      lx_GetPrivateProfileSectionNames(out.data(), 16, File("[A]\nk=1\n  [B] ; x]\n[C\n[A]\n").c_str());
  EXPECT_EQ(n, 13u);
  EXPECT_EQ(std::string(out.data(), 16), std::string("A\0B] ; x\0C\0A\0", 13) + std::string(3, '\0'));
}

TEST_F(PrivateProfileTest, SectionNamesWithoutClosingBracketRunToTheLineEnd) {
  std::vector<char> out(8, '#');
  EXPECT_EQ(lx_GetPrivateProfileSectionNames(out.data(), 8, File("[C \n").c_str()), 2u);
  EXPECT_EQ(std::string(out.data(), 3), std::string("C\0\0", 3));
}

TEST_F(PrivateProfileTest, SectionNamesStopWhenTheRoomIsNotMoreThanTheName) {
  std::vector<char> out(4, '#');
  EXPECT_EQ(lx_GetPrivateProfileSectionNames(out.data(), 4, File("[A]\n[BC]\n").c_str()), 2u);
  EXPECT_EQ(std::string(out.data(), 4), std::string("A\0\0\0", 4));
}

TEST_F(PrivateProfileTest, SectionNamesOfAMissingFileAreNone) {
  std::vector<char> out(4, '#');
  EXPECT_EQ(lx_GetPrivateProfileSectionNames(out.data(), 4, Missing().c_str()), 0u);
}

// ---- Writing a value ----

TEST_F(PrivateProfileTest, WriteReplacesTheKeyLineWithTheCallersSpelling) {
  const std::string path = File("[General]\r\n  Key = old \r\n; c\r\n[Other]\r\nx=1\r\n");
  EXPECT_EQ(lx_WritePrivateProfileString("general", "key", "new", path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[General]\nkey=new\n; c\n[Other]\nx=1\n");
}

TEST_F(PrivateProfileTest, WriteAddsANewKeyRightBeforeTheNextHeader) {
  const std::string path = File("[A]\nk=1\n\n[B]\nx=1\n");
  EXPECT_EQ(lx_WritePrivateProfileString("A", "m", "2", path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[A]\nk=1\n\nm=2\n[B]\nx=1\n");
}

TEST_F(PrivateProfileTest, WriteAddsANewKeyAtTheEndOfTheFile) {
  const std::string path = File("[A]\nk=1");
  EXPECT_EQ(lx_WritePrivateProfileString("A", "m", "2", path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[A]\nk=1\nm=2\n");
}

TEST_F(PrivateProfileTest, WriteAppendsAMissingSectionWithoutABlankLine) {
  const std::string path = File("[A]\nk=1\n");
  EXPECT_EQ(lx_WritePrivateProfileString("B", "m", "2", path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[A]\nk=1\n[B]\nm=2\n");
}

TEST_F(PrivateProfileTest, WriteCreatesAMissingFile) {
  EXPECT_EQ(lx_WritePrivateProfileString("A", "k", "1", Missing().c_str()), 1);
  EXPECT_EQ(ReadBytes(Missing()), "[A]\nk=1\n");
}

TEST_F(PrivateProfileTest, WriteMatchesTheHeaderWholeOnly) {
  const std::string path = File("[A] ; note\nk=1\n");
  EXPECT_EQ(lx_WritePrivateProfileString("A", "k", "2", path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[A] ; note\nk=1\n[A]\nk=2\n");
}

TEST_F(PrivateProfileTest, WritePassesOverCommentLines) {
  const std::string path = File("[A]\n;k=1\n#k=2\n//k=3\nk =4\n");
  EXPECT_EQ(lx_WritePrivateProfileString("A", "k", "5", path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[A]\n;k=1\n#k=2\n//k=3\nk=5\n");
}

TEST_F(PrivateProfileTest, WriteWithNullValueRemovesTheKeyLine) {
  const std::string path = File("[A]\nk=1\nm=2\n[B]\nk=3\n");
  EXPECT_EQ(lx_WritePrivateProfileString("A", "K", nullptr, path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[A]\nm=2\n[B]\nk=3\n");
}

TEST_F(PrivateProfileTest, WriteWithNullValueForAMissingKeyOnlyTrimsTheFile) {
  const std::string path = File("  [A]  \r\n   k=1   \r\n\t\r\n[B]\r\nx = 2\r\n");
  EXPECT_EQ(lx_WritePrivateProfileString("A", "m", nullptr, path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[A]\nk=1\n\n[B]\nx = 2\n");
}

TEST_F(PrivateProfileTest, WriteWithNullValueForAMissingSectionOnlyTrimsTheFile) {
  const std::string path = File(" [A]\r\nk=1 \r\n");
  EXPECT_EQ(lx_WritePrivateProfileString("Z", "k", nullptr, path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[A]\nk=1\n");
}

TEST_F(PrivateProfileTest, WriteGivesBackALineOf1500BytesAsTwoLines) {
  const std::string line(1500, 'x');
  const std::string path = File("[A]\n" + line + "\n");
  EXPECT_EQ(lx_WritePrivateProfileString("A", "k", "v", path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[A]\n" + std::string(1023, 'x') + "\n" + std::string(477, 'x') + "\nk=v\n");
}

TEST_F(PrivateProfileTest, WriteThatCannotOpenTheFileReturnsZero) {
  EXPECT_EQ(lx_WritePrivateProfileString("A", "k", "1", Dir().c_str()), 0);
  EXPECT_EQ(lx_WritePrivateProfileString("A", "k", "1", (Dir() + "/no/such/dir.ini").c_str()), 0);
  EXPECT_EQ(lx_WritePrivateProfileSection("A", "k=1\0", Dir().c_str()), 0);
}

// ---- Writing a section ----

TEST_F(PrivateProfileTest, SectionWriteReplacesKeyLinesAndKeepsCommentsBelow) {
  const std::string path = File("[A]\nk=1\n; keep\n\n# too\nm=2\n[B]\nx=1\n");
  EXPECT_EQ(lx_WritePrivateProfileSection("a", "p=1\0q=2\0", path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[A]\np=1\nq=2\n; keep\n\n# too\n[B]\nx=1\n");
}

TEST_F(PrivateProfileTest, SectionWriteStopsAtTheFirstEmptyString) {
  const std::string path = File("[A]\nk=1\n");
  EXPECT_EQ(lx_WritePrivateProfileSection("A", "p=1\0\0q=2\0", path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[A]\np=1\n");
}

TEST_F(PrivateProfileTest, SectionWriteAppendsAMissingSectionAfterAnEmptyLine) {
  const std::string path = File("[A]\nk=1\n");
  EXPECT_EQ(lx_WritePrivateProfileSection("B", "p=1\0", path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[A]\nk=1\n\n[B]\np=1\n");
}

TEST_F(PrivateProfileTest, SectionWriteIntoAnEmptyFileWritesTheHeaderAlone) {
  const std::string path = File("");
  EXPECT_EQ(lx_WritePrivateProfileSection("B", "p=1\0", path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[B]\np=1\n");
}

TEST_F(PrivateProfileTest, SectionWriteWithNullStringsRemovesHeaderAndKeys) {
  const std::string path = File("[A]\nk=1\n; c\n[B]\nx=1\n");
  EXPECT_EQ(lx_WritePrivateProfileSection("A", nullptr, path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "; c\n[B]\nx=1\n");
}

TEST_F(PrivateProfileTest, SectionWriteWithNullStringsForAMissingSectionLeavesAnEmptyLine) {
  // The header is appended and removed again; the empty line before it stays.
  const std::string path = File("[A]\nk=1\n");
  EXPECT_EQ(lx_WritePrivateProfileSection("B", nullptr, path.c_str()), 1);
  EXPECT_EQ(ReadBytes(path), "[A]\nk=1\n\n");
}

TEST_F(PrivateProfileTest, SectionWriteReadsLinesWith256ByteBuffer) {
  const std::string path = File("[A]\n;" + std::string(299, 'c') + "\n");
  EXPECT_EQ(lx_WritePrivateProfileSection("A", "p=1\0", path.c_str()), 1);
  // The comment's second piece begins with no ";" and is dropped as a key line.
  EXPECT_EQ(ReadBytes(path), "[A]\np=1\n;" + std::string(254, 'c') + "\n");
}

}  // namespace
