#include "ini/IniFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "common/EventLog.h"
#include "support/TempDir.h"

namespace {

using Library::Ini::CIniFile;
using ztest::ReadBytes;
using ztest::WriteBytes;

using Records = std::vector<std::pair<std::string, std::string>>;

Records Flat(const std::vector<CIniFile::CRecord>& records) {
  Records out;
  for (const CIniFile::CRecord& r : records) out.emplace_back(r.key, r.value);
  return out;
}

class IniFileTest : public ::testing::Test {
 protected:
  std::string File(const std::string& bytes, const std::string& name = "server.ini") {
    const std::string path = m_dir.File(name);
    WriteBytes(path, bytes);
    return path;
  }
  std::string Missing() const { return m_dir.File("missing.ini"); }
  std::string Dir() const { return m_dir.Path(); }

 private:
  ztest::TempDir m_dir;
};

// ---- The path and the file test ----

TEST_F(IniFileTest, KeepsTheFullPath) {
  EXPECT_EQ(CIniFile("/srv/dl/server.ini").GetPath(), "/srv/dl/server.ini");
  EXPECT_EQ(CIniFile("server.ini").GetPath(), std::filesystem::current_path().string() + "/server.ini");
}

TEST_F(IniFileTest, IsFileOnlyForARegularFile) {
  EXPECT_TRUE(CIniFile(File("")).IsFile());
  EXPECT_FALSE(CIniFile(Missing()).IsFile());
  EXPECT_FALSE(CIniFile(Dir()).IsFile());
}

TEST_F(IniFileTest, FileSystemErrorIsLoggedAndCountsAsNoFile) {
  ztest::ClearEvents();
  const CIniFile ini(Dir() + "/" + std::string(300, 'n') + "/server.ini");  // name too long
  EXPECT_FALSE(ini.IsFile());
  const std::vector<ztest::EventLine> events = ztest::Events();
  ASSERT_EQ(events.size(), 1u);
  EXPECT_EQ(events[0].level, 0);
  EXPECT_EQ(events[0].text.rfind("Error: ", 0), 0u) << events[0].text;
  EXPECT_NE(events[0].text.find("File name too long"), std::string::npos) << events[0].text;
}

// ---- Integer values ----

TEST_F(IniFileTest, IntegerValueOfAMissingFileIsZeroNotTheDefault) {
  EXPECT_EQ(CIniFile(Missing()).GetValue("General", "MaxDeallibSize", 10485760), 0);
}

TEST_F(IniFileTest, IntegerValueIsReadOrDefaulted) {
  const CIniFile ini(File("[General]\nMaxDeallibSize_7001=2048\n"));
  EXPECT_EQ(ini.GetValue("General", "MaxDeallibSize_7001", 0), 2048);
  EXPECT_EQ(ini.GetValue("General", "MaxDeallibSize", 10485760), 10485760);
  EXPECT_EQ(ini.GetValue("General", "MaxDeallibSize", -1), -1);
}

TEST_F(IniFileTest, SetIntegerValueWritesDecimal) {
  const std::string path = File("[General]\nk=1\n");
  CIniFile ini(path);
  EXPECT_TRUE(ini.SetValue("General", "n", -42));
  EXPECT_EQ(ReadBytes(path), "[General]\nk=1\nn=-42\n");
}

TEST_F(IniFileTest, SetIntegerValueNeverCreatesAFile) {
  CIniFile ini(Missing());
  EXPECT_FALSE(ini.SetValue("General", "n", 1));
  EXPECT_FALSE(std::filesystem::exists(Missing()));
}

// ---- String values ----

TEST_F(IniFileTest, StringValueOfAMissingFileIsTheDefault) {
  EXPECT_EQ(CIniFile(Missing()).GetValue("General", "Name", std::string("def")), "def");
}

TEST_F(IniFileTest, StringValueIsReadOrDefaulted) {
  const CIniFile ini(File("[General]\r\nName = Main port \r\n"));
  EXPECT_EQ(ini.GetValue("general", "NAME", std::string("def")), "Main port");
  EXPECT_EQ(ini.GetValue("General", "Other", std::string("def")), "def");
}

TEST_F(IniFileTest, LongDefaultIsReturnedWhole) {
  const std::string def(32000, 'd');
  const CIniFile ini(File("[A]\nk=1\n"));
  EXPECT_EQ(ini.GetValue("A", "m", def), def);
  EXPECT_EQ(ini.GetValue("A", "k", def), "1");
}

TEST_F(IniFileTest, LongDefaultLooksTheKeyUpAgainWithoutTheReadersLimits) {
  // "[x" ends the section for the profile reader but not for the second look.
  const CIniFile ini(File("[A]\n[x\nk = v \n[B]\nm=2\n"));
  EXPECT_EQ(ini.GetValue("A", "k", std::string("short")), "short");
  EXPECT_EQ(ini.GetValue("A", "k", std::string(32000, 'd')), "v");
  EXPECT_EQ(ini.GetValue("A", "m", std::string(32000, 'd')), std::string(32000, 'd'));
}

TEST_F(IniFileTest, SetStringValueUsesTheCallersSpelling) {
  const std::string path = File("[A]\nKey=1\n");
  CIniFile ini(path);
  EXPECT_TRUE(ini.SetValue("A", "key", std::string("2")));
  EXPECT_EQ(ReadBytes(path), "[A]\nkey=2\n");
}

TEST_F(IniFileTest, SetStringValueNeverCreatesAFile) {
  CIniFile ini(Missing());
  EXPECT_FALSE(ini.SetValue("A", "k", std::string("v")));
  EXPECT_FALSE(std::filesystem::exists(Missing()));
}

TEST_F(IniFileTest, SetLongValueKeepsTheFilesSpellingOfTheKey) {
  const std::string value(40000, 'v');
  const std::string path = File("[A]\r\n Key = 1 \r\n[B]\r\nx=1\r\n");
  CIniFile ini(path);
  EXPECT_TRUE(ini.SetValue("A", "key", value));
  EXPECT_EQ(ReadBytes(path), "[A]\nKey=" + value + "\n[B]\nx=1");
}

TEST_F(IniFileTest, SetLongValueGoesRightBeforeTheNextHeader) {
  const std::string value(40000, 'v');
  const std::string path = File("[A]\nk=1\n; m=0\nnote\n\n[B]\nx=1\n");
  CIniFile ini(path);
  EXPECT_TRUE(ini.SetValue("A", "m", value));
  EXPECT_EQ(ReadBytes(path), "[A]\nk=1\n; m=0\nnote\n\nm=" + value + "\n[B]\nx=1");
}

TEST_F(IniFileTest, SetLongValueAtTheEndOfTheFileOrInANewSection) {
  const std::string value(32768, 'v');
  const std::string path = File("[A]\nk=1\n");
  CIniFile ini(path);
  EXPECT_TRUE(ini.SetValue("A", "m", value));
  EXPECT_EQ(ReadBytes(path), "[A]\nk=1\nm=" + value);
  EXPECT_TRUE(ini.SetValue("C", "n", value));
  EXPECT_EQ(ReadBytes(path), "[A]\nk=1\nm=" + value + "\n[C]\nn=" + value);
}

// ---- Sections ----

TEST_F(IniFileTest, SectionsInFileOrderWithDuplicates) {
  const CIniFile ini(File("[A]\n k=1\n [B] \n[C\n[a]\n"));
  EXPECT_EQ(ini.GetSections(), (std::vector<std::string>{"A", "B", "a"}));
}

TEST_F(IniFileTest, SectionExistIgnoresCase) {
  const CIniFile ini(File("[Dealer-Library]\n"));
  EXPECT_TRUE(ini.SectionExist("dealer-library"));
  EXPECT_FALSE(ini.SectionExist("dealer"));
  EXPECT_FALSE(CIniFile(Missing()).SectionExist("dealer-library"));
}

// ---- Records ----

TEST_F(IniFileTest, RecordsInFileOrderWithDuplicates) {
  const CIniFile ini(File("[Other]\nFirm0=x\n[DEALER-LIBRARY]\r\n Firm1 = libs\\firm1.dl \r\n;Firm2=x\r\nnoequals\r\n"
                          "\r\nFIRM1=again=2\r\n  [Next]\r\nlate=1\r\n[Other]\nk=1\n"));
  EXPECT_EQ(Flat(ini.GetRecords("dealer-library")),
            (Records{{"Firm1", "libs\\firm1.dl"}, {"FIRM1", "again=2"}, {"late", "1"}}));
}

TEST_F(IniFileTest, RecordsCountALastLineWithoutLineEnd) {
  const CIniFile ini(File("[A]\nk=1\nm=2"));
  EXPECT_EQ(Flat(ini.GetRecords("A")), (Records{{"k", "1"}, {"m", "2"}}));
}

TEST_F(IniFileTest, RecordsHaveNoLineLengthLimit) {
  const std::string value(100000, 'v');
  const CIniFile ini(File("[A]\nk=" + value + "\nm=2\n"));
  EXPECT_EQ(Flat(ini.GetRecords("A")), (Records{{"k", value}, {"m", "2"}}));
}

TEST_F(IniFileTest, RecordsEndAtAReadChunkBeginningWithABracket) {
  // The chunk after the first 32767 bytes of a line begins with "[".
  const std::string head = "k=" + std::string(32765, 'v');
  const CIniFile ini(File("[A]\n" + head + "[B]=1\nm=2\n"));
  EXPECT_EQ(Flat(ini.GetRecords("A")), (Records{{"k", std::string(32765, 'v')}}));
}

TEST_F(IniFileTest, RecordsOfAMissingFileOrSectionAreNone) {
  EXPECT_TRUE(CIniFile(Missing()).GetRecords("A").empty());
  EXPECT_TRUE(CIniFile(File("[B]\nk=1\n")).GetRecords("A").empty());
}

TEST_F(IniFileTest, SetRecordsWritesEachInOrder) {
  const std::string path = File("[A]\nk=1\n");
  CIniFile ini(path);
  EXPECT_TRUE(ini.SetRecords("A", {{"k", "2"}, {"m", "3"}}));
  EXPECT_EQ(ReadBytes(path), "[A]\nk=2\nm=3\n");
}

TEST_F(IniFileTest, SetRecordsOfNoneIsTrueAndOfAMissingFileFalse) {
  CIniFile missing(Missing());
  EXPECT_TRUE(missing.SetRecords("A", {}));
  EXPECT_FALSE(missing.SetRecords("A", {{"k", "1"}}));
  EXPECT_FALSE(std::filesystem::exists(Missing()));
}

// ---- Strings and the value map ----

TEST_F(IniFileTest, StringsAreTheNonEmptyTrimmedLinesUpToTheNextHeader) {
  const CIniFile ini(File("[A]\n k = 1 \n\n; note\n[x\n[B]\nm=2\n"));
  EXPECT_EQ(ini.GetStrings("A"), (std::vector<std::string>{"k = 1", "; note", "[x"}));
}

TEST_F(IniFileTest, StringsMatchTheHeaderWithItsCase) {
  const CIniFile ini(File("[a]\nk=1\n[A]\nm=2\n"));
  EXPECT_EQ(ini.GetStrings("A"), (std::vector<std::string>{"m=2"}));
  EXPECT_TRUE(ini.GetStrings("B").empty());
}

TEST_F(IniFileTest, SetStringsReplacesTheSectionAndMayCreateTheFile) {
  const std::string path = File("[A]\nk=1\n");
  CIniFile ini(path);
  EXPECT_TRUE(ini.SetStrings("A", "p=1\0q=2\0"));
  EXPECT_EQ(ReadBytes(path), "[A]\np=1\nq=2\n");
  CIniFile missing(Missing());
  EXPECT_TRUE(missing.SetStrings("B", "x=1\0"));
  EXPECT_EQ(ReadBytes(Missing()), "[B]\nx=1\n");
}

TEST_F(IniFileTest, ValuesMapDropsBlanksAndKeepsLinesWithOneEquals) {
  const CIniFile ini(File("[A]\nk 1 = v 1\na=b=c\nx=1\nx=2\nK1=up\nnoeq\n; c=3\n=e\n"));
  EXPECT_EQ(ini.GetValuesMap("A"), (std::map<std::string, std::string>{
                                       {"k1", "v1"}, {"x", "2"}, {"K1", "up"}, {";c", "3"}, {"", "e"}}));
}

// ---- Trimming ----

TEST(IniFileTrimTest, TrimDropsTrailingLineEndsAndLeadingBlanks) {
  std::string s = " \t a b \t\r\n";
  CIniFile::trim(s);
  EXPECT_EQ(s, "a b");
  std::string lead = "\r a";
  CIniFile::trim(lead);
  EXPECT_EQ(lead, "\r a");
  std::string blank = " \r\n\t";
  CIniFile::trim(blank);
  EXPECT_EQ(blank, "");
}

TEST(IniFileTrimTest, TrimTabsAndSpacesRemovesThemEverywhere) {
  std::string s = " a\tb c \r";
  CIniFile::trimTabsAndSpaces(s);
  EXPECT_EQ(s, "abc\r");
}

}  // namespace
