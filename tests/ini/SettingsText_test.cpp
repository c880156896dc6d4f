#include "ini/SettingsText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "../../bench/PlainSettingsScanner.h"

namespace {

using Keys = std::vector<std::pair<std::string, std::string>>;
using Sections = std::vector<std::pair<std::string, Keys>>;

// A map written out in iteration order, so that a comparison checks order and spelling.
Keys Flat(const DL::TIniKeyMap& m) { return Keys(m.begin(), m.end()); }
Sections Flat(const DL::TIniSectionsMap& m) {
  Sections out;
  for (const auto& [name, keys] : m) out.emplace_back(name, Flat(keys));
  return out;
}

struct Parsed {
  DL::TIniSectionsMap sections;
  DL::TIniClientValueMap values;
};

Parsed Parse(const std::string& text) {
  Parsed p;
  std::istringstream in(text);
  DL::ParseSettings(in, ';', &p.sections, &p.values);
  return p;
}

class SettingsTextTest : public ::testing::Test {
 protected:
  static void ExpectParse(const std::string& text, const Sections& sections, const Keys& values = {}) {
    const Parsed p = Parse(text);
    EXPECT_EQ(Flat(p.sections), sections);
    EXPECT_EQ(Flat(p.values), values);
  }
};

// ---- The ordering of the maps ----

TEST(StringMapComparerTest, FoldsAsciiLettersOnly) {
  DL::StringMapComparerFunc less;
  EXPECT_FALSE(less("general", "GENERAL"));
  EXPECT_FALSE(less("GENERAL", "general"));
  EXPECT_TRUE(less("a", "B"));
  EXPECT_TRUE(less("A", "b"));
  // '_' (0x5F) lies between the upper (0x41..0x5A) and lower letters: folding puts letters first.
  EXPECT_TRUE(less("a", "_"));
  EXPECT_TRUE(less("Z_", "z_A") );
}

TEST(StringMapComparerTest, ShorterPrefixSortsFirst) {
  DL::StringMapComparerFunc less;
  EXPECT_TRUE(less("AB", "abc"));
  EXPECT_FALSE(less("abc", "AB"));
  EXPECT_TRUE(less("", "a"));
  EXPECT_FALSE(less("", ""));
}

TEST(StringMapComparerTest, BytesCompareAsSignedCharacters) {
  DL::StringMapComparerFunc less;
  EXPECT_TRUE(less("\xC0", "A"));
  EXPECT_TRUE(less("\x80", "\x01"));
  EXPECT_TRUE(less("\x80", "\xFF"));
  EXPECT_FALSE(less("\xE0", "\xC0"));  // no folding above ASCII
  EXPECT_TRUE(less("\xC0", "\xE0"));
}

TEST(StringMapComparerTest, ZeroBytesAreOrdinaryBytes) {
  DL::StringMapComparerFunc less;
  EXPECT_TRUE(less(std::string_view("a\0b", 3), std::string_view("a\0c", 3)));
  EXPECT_TRUE(less(std::string_view("a", 1), std::string_view("a\0", 2)));
}

TEST(StringMapComparerTest, NamesDifferingInCaseAreOneKey) {
  DL::TIniKeyMap m;
  m.emplace("Key", "1");
  EXPECT_FALSE(m.emplace("KEY", "2").second);
  EXPECT_EQ(m.count("key"), 1u);
  EXPECT_EQ(m.find(std::string_view("kEy"))->first, "Key");
}

TEST(StringMapComparerTest, SameNameTestMatchesTheOrdering) {
  EXPECT_TRUE(DL::IsSameSettingsName("ClientCval", "CLIENTCVAL"));
  EXPECT_FALSE(DL::IsSameSettingsName("ClientCval", "ClientCval "));
  EXPECT_FALSE(DL::IsSameSettingsName("\xE0", "\xC0"));
}

// ---- Each rule of the reader on its own ----

TEST_F(SettingsTextTest, SectionExistsOnlyFromItsFirstKeyLine) {
  ExpectParse("[A]\n[B]\nk=1\n", {{"B", {{"k", "1"}}}});
}

TEST_F(SettingsTextTest, HeaderWithoutKeysLeavesNoSection) { ExpectParse("[A]\n; nothing\n\n", {}); }

TEST_F(SettingsTextTest, UnterminatedHeaderLeavesTheSectionBefore) {
  ExpectParse("[C]\nx=0\n[A\nk=1\n", {{"C", {{"k", "1"}, {"x", "0"}}}});
}

TEST_F(SettingsTextTest, EmptyHeaderNameIsSkipped) { ExpectParse("[C]\nx=0\n[]\nk=1\n", {{"C", {{"k", "1"}, {"x", "0"}}}}); }

TEST_F(SettingsTextTest, HeaderWithTrailingCommentOpensTheSection) {
  ExpectParse("[A] trailing ; comment\nk=1\n", {{"A", {{"k", "1"}}}});
}

TEST_F(SettingsTextTest, BlanksInsideTheBracketsStayInTheName) {
  ExpectParse("[ A ]\nk=1\n", {{" A ", {{"k", "1"}}}});
}

TEST_F(SettingsTextTest, TextBehindTheClosingBracketIsIgnored) {
  ExpectParse("[A]junk=1\nk=1\n", {{"A", {{"k", "1"}}}});
}

TEST_F(SettingsTextTest, CommentCharacterInsideHeaderCutsIt) {
  // "[A;B]" is cut to "[A", a header without "]".
  ExpectParse("[A;B]\nk=1\n", {});
}

TEST_F(SettingsTextTest, ValueIsCutAtTheCommentCharacter) { ExpectParse("[A]\nk=1;2\n", {{"A", {{"k", "1"}}}}); }

TEST_F(SettingsTextTest, KeyAndValueAreTrimmed) { ExpectParse("[A]\nk = 1\n", {{"A", {{"k", "1"}}}}); }

TEST_F(SettingsTextTest, LineStartingWithEqualsIsSkipped) { ExpectParse("[A]\n=1\nm=2\n", {{"A", {{"m", "2"}}}}); }

TEST_F(SettingsTextTest, LineWithoutEqualsIsSkipped) { ExpectParse("[A]\nk\nm=2\n", {{"A", {{"m", "2"}}}}); }

TEST_F(SettingsTextTest, KeyWithNothingBehindEqualsHasEmptyValue) { ExpectParse("[A]\nk=\n", {{"A", {{"k", ""}}}}); }

TEST_F(SettingsTextTest, FirstValueOfARepeatedKeyStands) {
  ExpectParse("[A]\nk=1\nK=2\n", {{"A", {{"k", "1"}}}});
}

TEST_F(SettingsTextTest, CrLfLfAndMissingLastLineEndReadAlike) {
  const Sections expected = {{"A", {{"k", "1"}, {"m", "v w"}}}, {"B", {{"x", ""}}}};
  ExpectParse("[A]\r\nk=1\r\nm= v w \r\n\r\n[B]\r\nx=\r\n", expected);
  ExpectParse("[A]\nk=1\nm= v w \n\n[B]\nx=\n", expected);
  ExpectParse("[A]\nk=1\nm= v w \n\n[B]\nx=", expected);
  ExpectParse("[A]\r\nk=1\r\nm= v w \r\n\r\n[B]\r\nx=", expected);
}

TEST_F(SettingsTextTest, HashAndSlashesAreNoComments) {
  ExpectParse("[A]\n#k=v\n//c=d\n", {{"A", {{"#k", "v"}, {"//c", "d"}}}});
}

TEST_F(SettingsTextTest, RepeatedHeaderMergesIntoTheFirstSpelling) {
  ExpectParse("[General]\na=1\n[Other]\nx=1\n[general]\nb=2\na=3\n",
              {{"General", {{"a", "1"}, {"b", "2"}}}, {"Other", {{"x", "1"}}}});
}

TEST_F(SettingsTextTest, FirstRunOfClientCvalGoesToTheClientValues) {
  ExpectParse("[ClientCval]\nC1=1\nC2=2\n[A]\nk=1\n", {{"A", {{"k", "1"}}}, {"ClientCval", {}}},
              {{"C1", "1"}, {"C2", "2"}});
}

TEST_F(SettingsTextTest, LaterRunOfClientCvalIsAnOrdinarySection) {
  ExpectParse("[ClientCval]\nC1=1\n[A]\nk=1\n[CLIENTCVAL]\nC2=2\nC1=9\n",
              {{"A", {{"k", "1"}}}, {"ClientCval", {{"C1", "9"}, {"C2", "2"}}}}, {{"C1", "1"}});
}

TEST_F(SettingsTextTest, ClientValueSectionIsSectionCode20) {
  EXPECT_EQ(DL::kClientCvalSectionName, "ClientCval");
  EXPECT_EQ(DL::kClientCvalSectionName, DL::IniSectName(static_cast<DL::EIniSectCodeNum>(20)));
}

TEST_F(SettingsTextTest, NullSectionsMapReadsNothing) {
  std::istringstream in("[A]\nk=1\n");
  DL::TIniClientValueMap values{{"x", "1"}};
  DL::ParseSettings(in, ';', nullptr, &values);
  EXPECT_TRUE(in.good());
  EXPECT_EQ(in.tellg(), std::streampos(0));
  EXPECT_EQ(Flat(values), (Keys{{"x", "1"}}));
}

TEST_F(SettingsTextTest, NullClientValueMapDropsTheClientValues) {
  std::istringstream in("[ClientCval]\nC1=1\n[A]\nk=1\n");
  DL::TIniSectionsMap sections;
  DL::ParseSettings(in, ';', &sections, nullptr);
  EXPECT_EQ(Flat(sections), (Sections{{"A", {{"k", "1"}}}, {"ClientCval", {}}}));
}

TEST_F(SettingsTextTest, EntriesAlreadyInTheMapsAreKept) {
  Parsed p;
  p.sections["general"]["A"] = "old";
  p.values["C1"] = "old";
  std::istringstream in("[General]\na=new\nb=2\n[ClientCval]\nc1=new\n");
  DL::ParseSettings(in, ';', &p.sections, &p.values);
  EXPECT_EQ(Flat(p.sections), (Sections{{"ClientCval", {}}, {"general", {{"A", "old"}, {"b", "2"}}}}));
  EXPECT_EQ(Flat(p.values), (Keys{{"C1", "old"}}));
}

TEST_F(SettingsTextTest, OtherCommentCharacterIsHonoured) {
  DL::TIniSectionsMap sections;
  DL::TIniClientValueMap values;
  std::istringstream in("[A]\nk=1#2;3\n");
  DL::ParseSettings(in, '#', &sections, &values);
  EXPECT_EQ(Flat(sections), (Sections{{"A", {{"k", "1"}}}}));
}

TEST_F(SettingsTextTest, StreamIsReadToItsEnd) {
  std::istringstream in("[A]\nk=1");
  DL::TIniSectionsMap sections;
  DL::TIniClientValueMap values;
  DL::ParseSettings(in, ';', &sections, &values);
  EXPECT_TRUE(in.eof());
  EXPECT_TRUE(in.fail());
}

TEST_F(SettingsTextTest, FailedStreamReadsNothing) {
  std::istringstream in("[A]\nk=1\n");
  in.setstate(std::ios::failbit);
  DL::TIniSectionsMap sections;
  DL::TIniClientValueMap values;
  DL::ParseSettings(in, ';', &sections, &values);
  EXPECT_TRUE(sections.empty());
}

TEST_F(SettingsTextTest, MemoryFormReadsAsTheStreamForm) {
  const std::string text = "x=0\n[B]\r\nk=1\n[ClientCval]\nC=1\n[a]\nz=2";
  Parsed fromMemory;
  DL::ParseSettingsText_T(text, ';', &fromMemory.sections, &fromMemory.values);
  const Parsed fromStream = Parse(text);
  EXPECT_EQ(Flat(fromMemory.sections), Flat(fromStream.sections));
  EXPECT_EQ(Flat(fromMemory.values), Flat(fromStream.values));
  EXPECT_EQ(Flat(fromStream.sections), (Sections{{"a", {{"z", "2"}}}, {"B", {{"k", "1"}}}, {"ClientCval", {}}}));
}

// ---- The stream over a text in memory ----

TEST_F(SettingsTextTest, MemoryStreamReadsLikeAStringStream) {
  for (const std::string& text : {std::string(), std::string("[A]\r\nk=1\r\n\r\n[B]\nx = 2 ; c\nlast=3"),
                                 std::string("[ClientCval]\nC1=1\n[A]\nk=1\n")}) {
    Parsed fromMemory;
    DL::TMemoryInputStream in(text);
    DL::ParseSettings(in, ';', &fromMemory.sections, &fromMemory.values);
    const Parsed fromStream = Parse(text);
    EXPECT_EQ(Flat(fromMemory.sections), Flat(fromStream.sections)) << text;
    EXPECT_EQ(Flat(fromMemory.values), Flat(fromStream.values)) << text;
    EXPECT_TRUE(in.eof());
    EXPECT_TRUE(in.fail());
  }
}

TEST_F(SettingsTextTest, MemoryStreamReadsTheBytesInPlace) {
  const std::string text = "abc";
  DL::TMemoryInputStream in(std::string_view(text).substr(1));  // a view into the middle
  std::string all((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_EQ(all, "bc");
}

// Stands in for the reader while a test runs.
int g_replacementCalls = 0;
void CountingReader(std::istream&, char comment, DL::TIniSectionsMap* sections, DL::TIniClientValueMap*) {
  ++g_replacementCalls;
  (*sections)["Replaced"]["comment"] = std::string(1, comment);
}

TEST_F(SettingsTextTest, ReaderCanBeReplaced) {
  const DL::TParseSettingsFunc original = DL::ParseSettings;
  EXPECT_EQ(original, (&DL::ParseSettings_T<DL::TIniSectionsMap, DL::TIniClientValueMap>));
  DL::ParseSettings = &CountingReader;
  const Parsed p = Parse("[A]\nk=1\n");
  DL::ParseSettings = original;
  EXPECT_EQ(g_replacementCalls, 1);
  EXPECT_EQ(Flat(p.sections), (Sections{{"Replaced", {{"comment", ";"}}}}));
  EXPECT_EQ(Flat(Parse("[A]\nk=1\n").sections), (Sections{{"A", {{"k", "1"}}}}));
}

// ---- Many small texts, maps compared in full ----

struct TextCase {
  const char* name;
  std::string text;
  Sections sections;
  Keys values;
};

class SettingsTextTableTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(SettingsTextTableTest, GivesTheseMaps) {
  const TextCase& c = GetParam();
  const Parsed p = Parse(c.text);
  EXPECT_EQ(Flat(p.sections), c.sections);
  EXPECT_EQ(Flat(p.values), c.values);
}

const TextCase kTextCases[] = {
    {"Empty", "", {}, {}},
    {"OnlyNewlines", "\n\n\r\n", {}, {}},
    {"OneSection", "[A]\nk=1\n", {{"A", {{"k", "1"}}}}, {}},
    {"TwoSectionsSortedIgnoringCase", "[b]\nk=1\n[A]\nk=2\n[a_]\nk=3\n",
     {{"A", {{"k", "2"}}}, {"a_", {{"k", "3"}}}, {"b", {{"k", "1"}}}}, {}},
    {"PrefixNameSortsFirst", "[AB]\nk=1\n[a]\nk=2\n", {{"a", {{"k", "2"}}}, {"AB", {{"k", "1"}}}}, {}},
    {"HighBitNameSortsBeforeAscii", "[A]\nk=1\n[\xC0\xC1]\nk=2\n", {{"\xC0\xC1", {{"k", "2"}}}, {"A", {{"k", "1"}}}},
     {}},
    {"KeysSortedIgnoringCase", "[A]\nzeta=1\nAlpha=2\nbeta=3\n", {{"A", {{"Alpha", "2"}, {"beta", "3"}, {"zeta", "1"}}}},
     {}},
    {"WholeLineComments", "; first\n[A]\n;k=2\n  ; indented\nk=1 ; note\n", {{"A", {{"k", "1"}}}}, {}},
    {"CommentOnlyValue", "[A]\nk=;all comment\n", {{"A", {{"k", ""}}}}, {}},
    {"BlankAndWhiteLines", "\n   \n\t\n[A]\n\n  k=1  \n\f\v\n", {{"A", {{"k", "1"}}}}, {}},
    {"TabsAndFormFeedsTrimmed", "[A]\n\tk\t=\tv w\t\f\n", {{"A", {{"k", "v w"}}}}, {}},
    {"RepeatedKeyIgnoringCase", "[A]\nKey=1\nKEY=2\nkey=3\n", {{"A", {{"Key", "1"}}}}, {}},
    {"RepeatedKeyInRepeatedHeader", "[A]\nk=1\n[B]\nk=2\n[a]\nK=3\nm=4\n",
     {{"A", {{"k", "1"}, {"m", "4"}}}, {"B", {{"k", "2"}}}}, {}},
    {"CrLfLineEnds", "[A]\r\nk=1\r\n[B]\r\nm=2\r\n", {{"A", {{"k", "1"}}}, {"B", {{"m", "2"}}}}, {}},
    {"LoneCarriageReturnsStayInsideALine", "[A]\nk=1\r2\n", {{"A", {{"k", "1\r2"}}}}, {}},
    {"NoLastLineEnd", "[A]\nk=1", {{"A", {{"k", "1"}}}}, {}},
    {"TextBeforeTheFirstHeader", "k=0\nloose\n[A]\nk=1\n", {{"A", {{"k", "1"}}}}, {}},
    {"UnterminatedFirstHeader", "[A\nk=1\n[B]\nm=2\n", {{"B", {{"m", "2"}}}}, {}},
    {"UnterminatedHeaderAfterPendingHeader", "[A]\n[B\nk=1\n", {{"A", {{"k", "1"}}}}, {}},
    {"FirstClosingBracketEndsTheName", "[A]]\nk=1\n[[B]\nm=2\n", {{"A", {{"k", "1"}}}, {"[B", {{"m", "2"}}}}, {}},
    {"ValueKeepsLaterEquals", "[A]\nk=a=b\n", {{"A", {{"k", "a=b"}}}}, {}},
    {"KeyWithInnerBlank", "[A]\nmy key = my value\n", {{"A", {{"my key", "my value"}}}}, {}},
    {"ClientCvalFirstRun", "[General]\nCLIENTCVAL=1\n[ClientCval]\nC1=1\nC2=0\n",
     {{"ClientCval", {}}, {"General", {{"CLIENTCVAL", "1"}}}}, {{"C1", "1"}, {"C2", "0"}}},
    {"ClientCvalHeaderInOtherCase", "[clientcval]\nC1=1\n", {{"clientcval", {}}}, {{"C1", "1"}}},
    {"ClientCvalRepeatedKeyInFirstRun", "[ClientCval]\nC1=1\nc1=2\n", {{"ClientCval", {}}}, {{"C1", "1"}}},
    {"ClientCvalSecondRun", "[ClientCval]\nC1=1\n[A]\nk=1\n[ClientCval]\nC2=2\n",
     {{"A", {{"k", "1"}}}, {"ClientCval", {{"C2", "2"}}}}, {{"C1", "1"}}},
    {"ClientCvalTwiceInARow", "[ClientCval]\nC1=1\n[ClientCval]\nC2=2\n", {{"ClientCval", {{"C2", "2"}}}},
     {{"C1", "1"}}},
    {"ClientCvalWithoutKeysIsNoRun", "[ClientCval]\n[A]\nk=1\n[ClientCval]\nC1=1\n",
     {{"A", {{"k", "1"}}}, {"ClientCval", {}}}, {{"C1", "1"}}},
    {"ClientCvalUnterminatedHeaderKeepsTheRun", "[ClientCval]\nC1=1\n[A\nC2=2\n", {{"ClientCval", {}}},
     {{"C1", "1"}, {"C2", "2"}}},
    {"ClientCvalNameWithBlanksIsAnotherSection", "[ ClientCval ]\nC1=1\n", {{" ClientCval ", {{"C1", "1"}}}}, {}},
    {"ClientCvalAfterOtherSection", "[A]\nk=1\n[ClientCval]\nC1=1\n[B]\nm=2\n",
     {{"A", {{"k", "1"}}}, {"B", {{"m", "2"}}}, {"ClientCval", {}}}, {{"C1", "1"}}},
    {"NormalizerForm", "[A]\r\nk=1\r\n\r\n[B]\r\nm=2\r\n\r\n", {{"A", {{"k", "1"}}}, {"B", {{"m", "2"}}}}, {}},
    {"RowForm", "[A]\nk=1\n[B]\nm=2\n", {{"A", {{"k", "1"}}}, {"B", {{"m", "2"}}}}, {}},
};

INSTANTIATE_TEST_SUITE_P(Texts, SettingsTextTableTest, ::testing::ValuesIn(kTextCases),
                         [](const ::testing::TestParamInfo<TextCase>& info) { return std::string(info.param.name); });

// ---- Bad input ----

TEST_F(SettingsTextTest, ZeroByteInTheMiddleIsAnOrdinaryByte) {
  const std::string text("[A]\nk=a\0b\nm\0=1\n", 16);
  ExpectParse(text, {{"A", {{"k", std::string("a\0b", 3)}, {std::string("m\0", 2), "1"}}}});
}

TEST_F(SettingsTextTest, LongLineIsReadWhole) {
  const std::string longValue(3 * 1000 * 1000 + 17, 'x');
  ExpectParse("[A]\nk=" + longValue + "\nm=1\n", {{"A", {{"k", longValue}, {"m", "1"}}}});
}

TEST_F(SettingsTextTest, HundredMegabyteLineIsReadWithoutTrouble) {
  std::string text = "[A]\nk=v;";
  text.append(100u << 20, 'x');
  text += "\nm=1\n";
  ExpectParse(text, {{"A", {{"k", "v"}, {"m", "1"}}}});
}

TEST_F(SettingsTextTest, LinesAcrossReadBlocksReadAsInMemory) {
  // Lines of many lengths, so that line ends fall everywhere around the read blocks.
  std::mt19937 rng(7);
  std::string text;
  for (int s = 0; s < 300 || text.size() < 600000; ++s) {
    text += "[S" + std::to_string(s % 97) + "]\r\n";
    const int keys = 1 + static_cast<int>(rng() % 40);
    for (int k = 0; k < keys; ++k)
      text += "k" + std::to_string(rng() % 50) + "=" + std::string(rng() % (k % 7 == 0 ? 3000 : 60), static_cast<char>('a' + k % 26)) +
              (k % 3 == 0 ? "\n" : "\r\n");
  }
  Parsed fromMemory;
  DL::ParseSettingsText_T(text, ';', &fromMemory.sections, &fromMemory.values);
  const Parsed fromStream = Parse(text);
  EXPECT_EQ(fromStream.sections.size(), 97u);  // every name met has key lines
  EXPECT_EQ(Flat(fromStream.sections), Flat(fromMemory.sections));
}

TEST_F(SettingsTextTest, SectionsInAnyOrderReadAsThePlainScannerReadsThem) {
  // Sections in map order, in reverse, in runs that interleave, repeated, in
  // other case, and some already in the map: each is found or entered where
  // it belongs.
  std::mt19937 rng(5);
  for (int round = 0; round < 200; ++round) {
    std::vector<std::string> names;
    const int count = 1 + static_cast<int>(rng() % 60);
    for (int i = 0; i < count; ++i) names.push_back("cl" + std::to_string(1000 + i));
    const int order = round % 4;
    if (order == 1) std::reverse(names.begin(), names.end());
    if (order == 2)
      for (std::size_t i = 0; i + 1 < names.size(); i += 1 + rng() % 5) std::swap(names[i], names[i + 1]);
    if (order == 3) std::shuffle(names.begin(), names.end(), rng);
    std::string text;
    for (const std::string& name : names) {
      std::string header = name;
      if (rng() % 4 == 0) header[0] = 'C';
      text += "[" + header + "]\nk" + std::to_string(rng() % 3) + "=" + std::to_string(rng() % 10) + "\n";
      if (rng() % 5 == 0) text += "[" + names[rng() % names.size()] + "]\nr=" + std::to_string(round) + "\n";
      if (rng() % 7 == 0) text += "[" + header + "_Margin]\nm=1\n";
    }
    Parsed p;
    Parsed plain;
    for (Parsed* into : {&p, &plain}) into->sections["cl1005"]["pre"] = "1";
    std::istringstream in(text), inPlain(text);
    DL::ParseSettings(in, ';', &p.sections, &p.values);
    zbench::ParseSettingsByLines(inPlain, ';', &plain.sections, &plain.values);
    ASSERT_EQ(Flat(p.sections), Flat(plain.sections)) << "round " << round;
  }
}

TEST_F(SettingsTextTest, BinaryGarbageReadsAsThePlainScannerReadsIt) {
  std::mt19937 rng(11);
  const char alphabet[] = "[]=;\r\n \tCclientva\0\xFF\x80";
  for (int round = 0; round < 300; ++round) {
    std::string text;
    const std::size_t len = rng() % 400;
    for (std::size_t i = 0; i < len; ++i)
      text += (round % 2 == 0) ? static_cast<char>(rng() & 0xFF) : alphabet[rng() % (sizeof alphabet - 1)];
    const Parsed p = Parse(text);
    Parsed plain;
    std::istringstream in(text);
    zbench::ParseSettingsByLines(in, ';', &plain.sections, &plain.values);
    ASSERT_EQ(Flat(p.sections), Flat(plain.sections)) << "round " << round;
    ASSERT_EQ(Flat(p.values), Flat(plain.values)) << "round " << round;
  }
}

// ---- The forms in which the text is written ----

TEST(SettingsTextWriterTest, RowFormEndsEachLineWithLineFeed) {
  const DL::TIniKeyMap keys{{"b", "2"}, {"A", "1"}, {"c", ""}};
  EXPECT_EQ(DL::SectionToRowText("General", keys), "[General]\nA=1\nb=2\nc=\n");
}

TEST(SettingsTextWriterTest, RowFormOfAnEmptySectionIsEmpty) {
  EXPECT_EQ(DL::SectionToRowText("General", DL::TIniKeyMap{}), "");
}

TEST(SettingsTextWriterTest, CanonicalFormEndsLinesWithCrLfAndSectionsWithAnEmptyLine) {
  std::string out;
  DL::AppendSettingsHeader(out, "A", DL::ESettingsLineEnd::CrLf);
  DL::AppendSettingsKeyLine(out, "k", "1", DL::ESettingsLineEnd::CrLf);
  DL::AppendSettingsKeyLine(out, "m", "", DL::ESettingsLineEnd::CrLf);
  DL::AppendSettingsSectionEnd(out, DL::ESettingsLineEnd::CrLf);
  DL::AppendSettingsHeader(out, "B", DL::ESettingsLineEnd::CrLf);
  DL::AppendSettingsSectionEnd(out, DL::ESettingsLineEnd::CrLf);
  EXPECT_EQ(out, "[A]\r\nk=1\r\nm=\r\n\r\n[B]\r\n\r\n");
}

TEST(SettingsTextWriterTest, LineFeedFormHasNoSectionEnd) {
  std::string out;
  DL::AppendSettingsHeader(out, "A", DL::ESettingsLineEnd::Lf);
  DL::AppendSettingsKeyLine(out, "k", "1", DL::ESettingsLineEnd::Lf);
  DL::AppendSettingsSectionEnd(out, DL::ESettingsLineEnd::Lf);
  EXPECT_EQ(out, "[A]\nk=1\n");
}

TEST(SettingsTextWriterTest, BothFormsReadBackToTheSameMaps) {
  const DL::TIniKeyMap a{{"k", "1"}, {"List", "x,y"}};
  const DL::TIniKeyMap b{{"m", "2"}};
  const std::string rows = DL::SectionToRowText("A", a) + DL::SectionToRowText("B", b);
  std::string canonical;
  for (const auto* s : {&a, &b}) {
    DL::AppendSettingsHeader(canonical, s == &a ? "A" : "B", DL::ESettingsLineEnd::CrLf);
    for (const auto& [k, v] : *s) DL::AppendSettingsKeyLine(canonical, k, v, DL::ESettingsLineEnd::CrLf);
    DL::AppendSettingsSectionEnd(canonical, DL::ESettingsLineEnd::CrLf);
  }
  const Sections expected = {{"A", {{"k", "1"}, {"List", "x,y"}}}, {"B", {{"m", "2"}}}};
  EXPECT_EQ(Flat(Parse(rows).sections), expected);
  EXPECT_EQ(Flat(Parse(canonical).sections), expected);
}

}  // namespace
