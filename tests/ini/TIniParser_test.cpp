// TIniParser: loading a settings text, sorting its sections into groups,
// reading parameters, composing names, and editing the section map.
#include "ini/TIniParser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <istream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using DL::TIniParser;

class TIniParserTest : public ::testing::Test {
 protected:
  // A parser over the text given in memory.
  void Load(const std::string& text) { ASSERT_EQ(p.Init(text.c_str(), TIniParser::SourceText, ';', 1), 1); }
  TIniParser::ESectType Group(const std::string& section) { return TIniParser::ClassifySection(section).group; }

  TIniParser p;
};

// ---- Loading ----

TEST_F(TIniParserTest, TextModeReadsSectionsAndClientValues) {
  Load("[General]\nUseCommissionScale=1\n[ClientCval]\nC1=5\n[clC1]\nX=1\n");
  EXPECT_TRUE(p.IsSectionExist("General"));
  EXPECT_TRUE(p.IsSectionExist("clC1"));
  EXPECT_EQ(p.GetCValSection().at("C1"), "5");
  // Both vectors are sorted in plain byte order, so the written names put
  // lower-case letters last and the upper forms beside them follow that order.
  EXPECT_EQ(p.GetIniSectionNamesNotUpper(), (std::vector<std::string>{"ClientCval", "General", "clC1"}));
  EXPECT_EQ(p.GetIniSectionNames(), (std::vector<std::string>{"CLC1", "CLIENTCVAL", "GENERAL"}));
  EXPECT_EQ(p.GetIniSectionNamesUpperOrdered(), (std::vector<std::string>{"CLIENTCVAL", "GENERAL", "CLC1"}));
}

// Section names of every mix of case, with bytes above 127, in an order of
// their own: the name vectors must come out in plain byte order all the same.
std::string NamesText(std::size_t count, unsigned seed) {
  std::string text;
  unsigned state = seed;
  for (std::size_t i = 0; i < count; ++i) {
    state = state * 1103515245u + 12345u;
    std::string name = "cl";
    for (int k = 0; k < 4; ++k) {
      const unsigned r = (state >> (8 + 3 * k)) % 6;
      name += r == 0 ? 'a' : r == 1 ? 'A' : r == 2 ? 'z' : r == 3 ? 'Z' : r == 4 ? '\xC9' : '_';
    }
    name += std::to_string(i);
    if ((state >> 24) % 3 == 0) name[0] = 'C';
    text += "[" + name + "]\nk=1\n";
  }
  return text;
}

std::vector<std::string> Sorted(std::vector<std::string> v) {
  std::sort(v.begin(), v.end());
  return v;
}

std::string Upper(std::string s) {
  for (char& c : s)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return s;
}

TEST_F(TIniParserTest, NameVectorsAreInByteOrderWhateverTheCaseOfTheNames) {
  for (const std::size_t count : {3u, 40u, 2000u}) {
    Load(NamesText(count, static_cast<unsigned>(count)));
    std::vector<std::string> names, upper;
    for (const auto& [name, keys] : p.GetSections()) {
      names.push_back(name);
      upper.push_back(Upper(name));
    }
    ASSERT_EQ(names.size(), count);
    EXPECT_EQ(p.GetIniSectionNamesNotUpper(), Sorted(names)) << count;
    EXPECT_EQ(p.GetIniSectionNames(), Sorted(upper)) << count;
    std::vector<std::string> upperOrdered;
    for (const std::string& name : Sorted(names)) upperOrdered.push_back(Upper(name));
    EXPECT_EQ(p.GetIniSectionNamesUpperOrdered(), upperOrdered) << count;
  }
}

TEST_F(TIniParserTest, NameVectorsOfNamesInMapOrderAreSortedAsWell) {
  // Upper-case names with no byte above 127: the map's order is the byte order.
  Load("[B]\nk=1\n[A]\nk=1\n[C_1]\nk=1\n");
  EXPECT_EQ(p.GetIniSectionNamesNotUpper(), (std::vector<std::string>{"A", "B", "C_1"}));
  EXPECT_EQ(p.GetIniSectionNames(), (std::vector<std::string>{"A", "B", "C_1"}));
  // A byte above 127 sorts first in the map, last in byte order.
  Load("[\xC9X]\nk=1\n[A]\nk=1\n");
  EXPECT_EQ(p.GetIniSectionNamesNotUpper(), (std::vector<std::string>{"A", "\xC9X"}));
  EXPECT_EQ(p.GetIniSectionNames(), (std::vector<std::string>{"A", "\xC9X"}));
}

// Stands in for the settings reader while a test runs.
int g_readerCalls = 0;
void RecordingReader(std::istream& in, char comment, DL::TIniSectionsMap* sections, DL::TIniClientValueMap*) {
  ++g_readerCalls;
  std::string all((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  (*sections)["clSEEN"]["text"] = all;
  (*sections)["clSEEN"]["comment"] = std::string(1, comment);
}

TEST_F(TIniParserTest, TextModeReadsThroughTheReplaceableReader) {
  const DL::TParseSettingsFunc original = DL::ParseSettings;
  DL::ParseSettings = &RecordingReader;
  const int rc = p.Init("[A]\nk=1", TIniParser::SourceText, '#', 1);
  DL::ParseSettings = original;
  EXPECT_EQ(rc, 1);
  EXPECT_EQ(g_readerCalls, 1);
  EXPECT_EQ(p.GetIniParamString("clSEEN", "text", TIniParser::EmptyString()), "[A]\nk=1");
  EXPECT_EQ(p.GetIniParamString("clSEEN", "comment", TIniParser::EmptyString()), "#");
  // The replaced reader's section is grouped like any other.
  EXPECT_EQ(p.GetClientSettings().count("SEEN"), 1u);
}

TEST_F(TIniParserTest, FileModeReadsTheFile) {
  const std::string path = ::testing::TempDir() + "tiniparser_file.ini";
  std::ofstream(path) << "[General]\r\nCheckClient=1\r\n";
  EXPECT_EQ(p.Init(path.c_str(), TIniParser::SourceFile, ';', 1), 1);
  EXPECT_EQ(p.GetIniParamInt("General", "CheckClient", 0), 1);
  std::remove(path.c_str());
}

TEST_F(TIniParserTest, MissingFileGivesAnEmptyUsableParser) {
  Load("[General]\nCheckClient=1\n");
  EXPECT_EQ(p.Init("/nonexistent/dir/firm.ini", TIniParser::SourceFile, ';', 1), 0);
  EXPECT_TRUE(p.GetSections().empty());
  EXPECT_EQ(p.GetIniParamInt("General", "CheckClient", 7), 7);
  EXPECT_TRUE(p.GetGlobalSettings().count("General"));  // known, with no section behind it
  EXPECT_EQ(p.FindIniSection(DL::iscGeneral, TIniParser::SectGlobal), nullptr);
}

TEST_F(TIniParserTest, OtherModeReadsNothing) {
  EXPECT_EQ(p.Init("[General]\nA=1\n", 3, ';', 1), 0);
  EXPECT_TRUE(p.GetSections().empty());
}

TEST_F(TIniParserTest, SecondParserFindsTablesFilledAndLeavesThemAlone) {
  Load("[General]\nA=1\n");
  const std::string* name = &TIniParser::GetIniSectCode(DL::iscGeneral);
  const std::size_t rows = TIniParser::supParamAndSectCodes_[TIniParser::SectClientTemplate].size();
  TIniParser second("[General]\nA=2\n", TIniParser::SourceText, ';', 1);
  EXPECT_EQ(name, &TIniParser::GetIniSectCode(DL::iscGeneral));
  EXPECT_EQ(TIniParser::GetIniSectCode(DL::iscGeneral), "General");
  EXPECT_EQ(TIniParser::supParamAndSectCodes_[TIniParser::SectClientTemplate].size(), rows);
  EXPECT_EQ(second.GetIniParamInt("General", "A", 0), 2);
}

// ---- Section groups ----

TEST_F(TIniParserTest, GroupsOfTheSectionForms) {
  TIniParser::FillCodeTables();
  EXPECT_EQ(Group("clC1"), TIniParser::SectClient);
  EXPECT_EQ(Group("clT_Client_Template"), TIniParser::SectClientTemplate);
  EXPECT_EQ(Group("General"), TIniParser::SectGlobal);
  EXPECT_EQ(Group("clC1_Margin"), TIniParser::SectMarginClient);
  EXPECT_EQ(Group("clC1_Margin_LimitKind_3"), TIniParser::SectMarginClient);
  EXPECT_EQ(Group("clT_Margin_Template"), TIniParser::SectMarginTemplate);
  EXPECT_EQ(Group("clT_Margin_Template_LimitKind_2"), TIniParser::SectMarginTemplate);
  EXPECT_EQ(Group("clT_Restriction_Template"), TIniParser::SectRestrictionTemplate);
  EXPECT_EQ(Group("CommissionScaleBoards_X"), TIniParser::SectCommissionScale);
  EXPECT_EQ(Group("tpP_bdTQBR_CommissionScale"), TIniParser::SectCommissionScale);
  EXPECT_EQ(Group("clA_VolumeBasedCommission_1"), TIniParser::SectVolumeBasedCommission);
  EXPECT_EQ(Group("clT_SetOfInstruments_S1_Template"), TIniParser::SectSetOfInstruments);
  EXPECT_EQ(Group("clT_Margin_Template_LimitKind_-2"), TIniParser::SectInvalid);
}

TEST_F(TIniParserTest, GroupTestsIgnoreCaseAndKeepTheWrittenSlices) {
  TIniParser::FillCodeTables();
  const auto c = TIniParser::ClassifySection("CLab_MARGIN_template_limitkind_4");
  EXPECT_EQ(c.group, TIniParser::SectMarginTemplate);
  EXPECT_EQ(c.templ, "ab");
  EXPECT_EQ(c.limitKind, 4);
  const auto g = TIniParser::ClassifySection("general");
  EXPECT_EQ(g.group, TIniParser::SectGlobal);
  EXPECT_EQ(g.name, "General");
}

TEST_F(TIniParserTest, PrefixMarginSectionIsEnteredWithoutItsStar) {
  Load("[clABC*_Margin]\nA=1\n[clABC_Margin]\nA=2\n");
  ASSERT_EQ(p.GetMarginPrefixClientSettings().count("ABC"), 1u);
  EXPECT_EQ(p.GetMarginPrefixClientSettings().at("ABC").at(0)->first, "clABC*_Margin");
  ASSERT_EQ(p.GetMarginClientSettings().count("ABC"), 1u);
  EXPECT_EQ(p.GetMarginClientSettings().at("ABC").at(0)->first, "clABC_Margin");
}

TEST_F(TIniParserTest, GeneralMarginSectionInAnyCaseIsTheGeneralEntry) {
  Load("[CL<general>_margin]\nA=1\n[cl<GENERAL>_Margin_LimitKind_2]\nA=2\n");
  ASSERT_EQ(p.GetMarginGlobalSettings().size(), 2u);
  EXPECT_EQ(p.GetMarginGlobalSettings().at(0)->first, "CL<general>_margin");
  EXPECT_EQ(p.GetMarginGlobalSettings().at(2)->first, "cl<GENERAL>_Margin_LimitKind_2");
  EXPECT_TRUE(p.GetMarginClientSettings().empty());
  EXPECT_TRUE(p.GetMarginPrefixClientSettings().empty());
}

TEST_F(TIniParserTest, NegativeLimitKindLandsInNoGroupButStaysInTheText) {
  Load("[clX_Margin_LimitKind_-1]\nA=1\n");
  EXPECT_TRUE(p.IsSectionExist("clX_Margin_LimitKind_-1"));
  EXPECT_TRUE(p.GetMarginClientSettings().empty());
  EXPECT_TRUE(p.GetMarginGlobalSettings().empty());
  EXPECT_TRUE(p.GetClientSettings().empty());
  EXPECT_EQ(p.GetGlobalSettings().count("clX_Margin_LimitKind_-1"), 0u);
  EXPECT_EQ(p.GetRowFromSection("clX_Margin_LimitKind_-1"), "[clX_Margin_LimitKind_-1]\nA=1\n");
}

TEST_F(TIniParserTest, ClientCodeOfThirteenBytesIsAGlobalSection) {
  Load("[clABCDEFGHIJKL]\nA=1\n[clABCDEFGHIJKLM]\nA=2\n");
  EXPECT_EQ(p.GetClientSettings().count("ABCDEFGHIJKL"), 1u);
  EXPECT_EQ(p.GetClientSettings().count("ABCDEFGHIJKLM"), 0u);
  EXPECT_EQ(p.GetGlobalSettings().count("clABCDEFGHIJKLM"), 1u);
}

TEST_F(TIniParserTest, MarginTemplateLimitKindAddsToTheTemplateButItsClientsDoNot) {
  Load("[clA_Margin_Template]\nClients=C1\n"
       "[clA_Margin_Template_LimitKind_2]\nClients=C2\nIncludeClientsWithLeverage=3\n");
  ASSERT_EQ(p.GetMarginTemplateSettings().count("A"), 1u);
  const auto& kinds = p.GetMarginTemplateSettings().at("A");
  EXPECT_EQ(kinds.size(), 2u);
  EXPECT_EQ(kinds.at(2)->first, "clA_Margin_Template_LimitKind_2");
  EXPECT_EQ(p.GetMarginTemplateWithClientCodeSettings().count("C1"), 1u);
  EXPECT_EQ(p.GetMarginTemplateWithClientCodeSettings().count("C2"), 0u);
  EXPECT_EQ(p.GetMarginTemplateWithLeverageSettings().count(300), 0u);
}

TEST_F(TIniParserTest, FirstTemplateInMapOrderKeepsAClaimedLeverage) {
  Load("[clB_Client_Template]\nIncludeClientsWithLeverage=2.0\n"
       "[clA_Client_Template]\nIncludeClientsWithLeverage=2,3\n"
       "[clB_Margin_Template]\nIncludeClientsWithLeverage=2\n"
       "[clA_Margin_Template]\nIncludeClientsWithLeverage=2.00\n");
  EXPECT_EQ(p.GetClientTemplateWithLeverageSettings().at(200)->first, "A");
  EXPECT_EQ(p.GetClientTemplateWithLeverageSettings().at(300)->first, "A");
  EXPECT_EQ(p.GetMarginTemplateWithLeverageSettings().at(200)->first, "A");
  std::string name;
  EXPECT_EQ(p.GetTemplateClientSectionByLeverage(2.0, &name), 1);
  EXPECT_EQ(name, "A");
}

TEST_F(TIniParserTest, TemplateByLeverageNeedsTheExactScaledValue) {
  Load("[clT_Client_Template]\nIncludeClientsWithLeverage=2\n");
  std::string name = "unset";
  EXPECT_EQ(p.GetTemplateClientSectionByLeverage(2.01, &name), 0);
  EXPECT_EQ(p.GetTemplateClientSectionByLeverage(-0.5, &name), 0);
  EXPECT_EQ(p.GetTemplateClientSectionByLeverage(2.0, nullptr), 0);
  EXPECT_EQ(name, "unset");
  EXPECT_EQ(p.GetTemplateClientSectionByLeverage(1.999, &name), 1);
  EXPECT_EQ(name, "T");
}

TEST_F(TIniParserTest, GlobalMapHoldsSupportedSectionsEvenWhenAbsent) {
  Load("[General]\nA=1\n[MyOwnSection]\nB=2\n[changefutclientcodes_F1]\nX=Y\n");
  const auto& global = p.GetGlobalSettings();
  EXPECT_EQ(global.at("General")->first, "General");
  EXPECT_EQ(global.at("MyOwnSection")->first, "MyOwnSection");
  ASSERT_EQ(global.count("SubBrokers"), 1u);
  EXPECT_EQ(global.at("SubBrokers"), p.GetSections().end());
  ASSERT_EQ(global.count("ChangeFutClientCodes_F1"), 1u);
  EXPECT_EQ(global.find("ChangeFutClientCodes_F1")->first, "ChangeFutClientCodes_F1");
  EXPECT_NE(p.FindIniSection(DL::iscGeneral, TIniParser::SectGlobal), nullptr);
  EXPECT_EQ(p.FindIniSection(DL::iscSubBrokers, TIniParser::SectGlobal), nullptr);
}

TEST_F(TIniParserTest, SectionDictionaryOnlyForTheGlobalGroup) {
  Load("[General]\nA=1\n");
  TIniParser::TGlobalSectionsMap* out = nullptr;
  EXPECT_EQ(p.GetSectionDictionary(TIniParser::SectGlobal, out), 0);
  EXPECT_EQ(out, &p.GetGlobalSettings());
  EXPECT_EQ(p.GetSectionDictionary(TIniParser::SectClient, out), 0);
  EXPECT_EQ(out, nullptr);
}

// ---- Reading parameters ----

TEST_F(TIniParserTest, IntReadsTheLeadingDigits) {
  Load("[S]\nN=12ab\nW=yes\nE=\nD=2.5x\nC=xyz\n");
  EXPECT_EQ(p.GetIniParamInt("S", "N", 7), 12);
  EXPECT_FALSE(p.GetIniParamBool("S", "W", true));
  EXPECT_DOUBLE_EQ(p.GetIniParamDouble("S", "D", 0.0), 2.5);
  EXPECT_EQ(p.GetIniParamChar("S", "C", '-'), 'x');
}

TEST_F(TIniParserTest, EmptyValueIsEmptyForStringsAndTheDefaultForNumbers) {
  Load("[S]\nE=\n");
  EXPECT_EQ(p.GetIniParamString("S", "E", std::string("def")), "");
  EXPECT_EQ(p.GetIniParamInt("S", "E", 7), 7);
  EXPECT_DOUBLE_EQ(p.GetIniParamDouble("S", "E", 1.5), 1.5);
  EXPECT_TRUE(p.GetIniParamBool("S", "E", true));
  EXPECT_EQ(p.GetIniParamChar("S", "E", '-'), '-');
}

TEST_F(TIniParserTest, MissingSectionOrKeyGivesTheDefault) {
  Load("[S]\nA=1\n");
  const std::string def = "d";
  EXPECT_EQ(&p.GetIniParamString("S", "B", def), &def);
  EXPECT_EQ(&p.GetIniParamString("T", "A", def), &def);
  EXPECT_EQ(p.GetIniParamInt("T", "A", -3), -3);
}

TEST_F(TIniParserTest, EverySectionAndKeyFormReadsTheSameValue) {
  Load("[General]\nCheckClient=5\n");
  const auto it = p.FindIniSection(std::string("General"));
  const TIniParser::TKeyMap* ref = p.FindIniSectionRef("General");
  const TIniParser::TKeyMap* none = nullptr;
  EXPECT_EQ(p.GetIniParamInt(it, TIniParser::ipcCheckClient, 0), 5);
  EXPECT_EQ(p.GetIniParamInt(*ref, "checkclient", 0), 5);
  EXPECT_EQ(p.GetIniParamInt(ref, std::string("CheckClient"), 0), 5);
  EXPECT_EQ(p.GetIniParamInt(std::string("GENERAL"), TIniParser::ipcCheckClient, 0), 5);
  EXPECT_EQ(p.GetIniParamInt(none, TIniParser::ipcCheckClient, 9), 9);
  EXPECT_EQ(p.GetIniParamInt(p.GetSections().end(), TIniParser::ipcCheckClient, 8), 8);
}

TEST_F(TIniParserTest, CFormCopiesTheValueOrTheDefault) {
  Load("[S]\nA=abc\nE=\n");
  char out[16];
  EXPECT_EQ(p.GetIniParamString("S", "A", out, "zz"), 3);
  EXPECT_STREQ(out, "abc");
  EXPECT_EQ(p.GetIniParamString("S", "E", out, "zz"), 0);
  EXPECT_STREQ(out, "");
  EXPECT_EQ(p.GetIniParamString("S", "B", out, "zz"), 2);
  EXPECT_STREQ(out, "zz");
  EXPECT_EQ(p.GetIniParamString("S", "B", out, nullptr), 0);
}

TEST_F(TIniParserTest, SettingByKeySplitsTheFirstMatchIgnoringCase) {
  TIniParser::TKeyMap keys{{"Boards", " TQBR , SMAL "}, {"Other", "x"}};
  EXPECT_EQ(TIniParser::GetIniSettingByKey(keys, "BOARDS"), (std::vector<std::string>{"TQBR", "SMAL"}));
  EXPECT_TRUE(TIniParser::GetIniSettingByKey(keys, "Missing").empty());
}

// ---- Names ----

TEST_F(TIniParserTest, ComposedSectionNames) {
  TIniParser::FillCodeTables();
  std::string out;
  p.GetClientSettingsSectionCode(out, "C1");
  EXPECT_EQ(out, "clC1");
  p.GetClientTemplateSectionCode(out, "T");
  EXPECT_EQ(out, "clT_Client_Template");
  p.GetRestrictionTemplateSectionCode(out, "T");
  EXPECT_EQ(out, "clT_Restriction_Template");
  p.GetMarginClientSettingsSectionCode(out, "C1", 0);
  EXPECT_EQ(out, "clC1_Margin");
  p.GetMarginClientSettingsSectionCode(out, "C1", 12);
  EXPECT_EQ(out, "clC1_Margin_LimitKind_12");
  p.GetMarginTemplateSectionCode(out, "T", 0);
  EXPECT_EQ(out, "clT_Margin_Template");
  p.GetMarginTemplateSectionCode(out, "T", 2);
  EXPECT_EQ(out, "clT_Margin_Template_LimitKind_2");
  p.GetSectionHeader(out, DL::iscClientCval);
  EXPECT_EQ(out, "[ClientCval]");
  p.SettingIntValueToStr(out, TIniParser::ipcCheckClient, -4);
  EXPECT_EQ(out, "CheckClient=-4");
  EXPECT_EQ(p.GetTPScaleSectionName("Plan", "TQBR"), "TPPlan_BDTQBR_COMMISSIONSCALE");
  EXPECT_EQ(p.GetTPScaleSectionName("", "TQBR"), "BDTQBR_COMMISSIONSCALE");
}

// ---- Lookups ----

TEST_F(TIniParserTest, DoesSectionExistByBinarySearchOrByBeginningAndEnding) {
  Load("[clAB*_Margin]\nA=1\n[clT1_Client_Template]\nA=1\n[clT0_Client_Template]\nA=1\n");
  EXPECT_EQ(p.DoesSectionExist("clab*_margin", ""), "CLAB*_MARGIN");
  EXPECT_EQ(p.DoesSectionExist("clA*_Margin", ""), "");
  EXPECT_EQ(p.DoesSectionExist("cl", "_client_template"), "CLT0_CLIENT_TEMPLATE");
  EXPECT_EQ(p.DoesSectionExist("clT1_Client", "_Client_Template"), "");  // too short for both
  EXPECT_TRUE(p.DoesSectionExistUp("CLT1_CLIENT_TEMPLATE"));
}

TEST_F(TIniParserTest, SectionSetWithoutNamesRefreshIsNotFoundByBinarySearch) {
  Load("[General]\nA=1\n");
  p.SetIniParam(std::string("clNEW"), "K", 5);
  EXPECT_EQ(p.GetIniParamInt("clNEW", "K", 0), 5);
  EXPECT_EQ(p.DoesSectionExist("clNEW", ""), "");
  EXPECT_TRUE(p.GetClientSettings().empty());  // not entered into a group either
  p.InitSectionNames();
  EXPECT_EQ(p.DoesSectionExist("clNEW", ""), "CLNEW");
}

TEST_F(TIniParserTest, DoesSectionEmptyOnlyForAKnownEmptySection) {
  Load("[ClientCval]\nC=1\n[S]\nA=1\n");
  EXPECT_TRUE(p.DoesSectionEmpty("clientcval"));
  EXPECT_FALSE(p.DoesSectionEmpty("S"));
  EXPECT_FALSE(p.DoesSectionEmpty("Missing"));
}

TEST_F(TIniParserTest, PackedSectionAndNames) {
  Load("[S]\nA=1\nB=\n[T]\nC=3\n");
  char out[64];
  const int n = p.GetIniSection("S", out);
  EXPECT_EQ(std::string(out, n + 1), std::string("A=1\0B=\0\0", 8));
  EXPECT_EQ(p.GetIniSection("Missing", out), 0);
  EXPECT_EQ(out[0], '\0');
  const int m = p.GetIniSectionNames(out);
  EXPECT_EQ(std::string(out, m + 1), std::string("S\0T\0\0", 5));
}

TEST_F(TIniParserTest, SectionNamesAndSectionsByText) {
  Load("[clA_Margin]\nA=1\n[clB_Margin]\nB=1\n[General]\nC=1\n");
  EXPECT_EQ(p.GetSectionNamesFromParser("CLA"), (std::vector<std::string>{"clA_Margin"}));
  EXPECT_EQ(p.GetSectionNamesFromParser("").size(), 3u);
  TIniParser::TSectionsMap out;
  EXPECT_EQ(p.GetSectionFromParser("general", false, out), 0);
  EXPECT_EQ(out.size(), 1u);
  EXPECT_EQ(p.GetSectionFromParser("_margin", true, out), 0);
  EXPECT_EQ(out.size(), 2u);
  EXPECT_EQ(p.GetSectionFromParser("_margin", false, out), 4);
  EXPECT_TRUE(out.empty());
}

TEST_F(TIniParserTest, GetIniSectionCopiesOrGivesEmpty) {
  Load("[S]\nA=1\n");
  EXPECT_EQ(p.GetIniSection(std::string("S")).at("A"), "1");
  EXPECT_TRUE(p.GetIniSection(std::string("X")).empty());
}

// ---- Editing ----

TEST_F(TIniParserTest, AddAndRemoveSectionsKeepTheGroupsInStep) {
  Load("[General]\nA=1\n");
  p.AddIniSection("clT_Client_Template", {{"IncludeClientsWithLeverage", "5"}, {"Clients", "C1"}});
  EXPECT_EQ(p.GetClientTemplateSettings().count("T"), 1u);
  EXPECT_EQ(p.GetClientTemplateWithLeverageSettings().count(500), 1u);
  p.RemoveIniSection("clT_Client_Template");
  EXPECT_FALSE(p.IsSectionExist("clT_Client_Template"));
  EXPECT_TRUE(p.GetClientTemplateSettings().empty());
  EXPECT_TRUE(p.GetClientTemplateWithLeverageSettings().empty());
}

TEST_F(TIniParserTest, RemovingOneLimitKindKeepsTheOthers) {
  Load("[clT_Margin_Template]\nClients=C1\nIncludeClientsWithLeverage=4\n"
       "[clT_Margin_Template_LimitKind_1]\nA=1\n[clC_Margin]\nA=1\n");
  p.RemoveIniSection("clT_Margin_Template");
  ASSERT_EQ(p.GetMarginTemplateSettings().count("T"), 1u);
  EXPECT_EQ(p.GetMarginTemplateSettings().at("T").size(), 1u);
  EXPECT_TRUE(p.GetMarginTemplateWithClientCodeSettings().empty());
  EXPECT_TRUE(p.GetMarginTemplateWithLeverageSettings().empty());
  p.RemoveIniSection("clT_Margin_Template_LimitKind_1");
  EXPECT_TRUE(p.GetMarginTemplateSettings().empty());
  p.RemoveIniSection("clC_Margin");
  EXPECT_TRUE(p.GetMarginClientSettings().empty());
  p.RemoveIniSection(p.GetSections().end());  // does nothing
}

TEST_F(TIniParserTest, RemovingASupportedGlobalSectionKeepsItKnown) {
  Load("[General]\nA=1\n");
  p.RemoveIniSection("General");
  ASSERT_EQ(p.GetGlobalSettings().count("General"), 1u);
  EXPECT_EQ(p.GetGlobalSettings().at("General"), p.GetSections().end());
}

TEST_F(TIniParserTest, FindOrCreateInsertsAnEmptySectionIntoItsGroup) {
  Load("[General]\nA=1\n");
  const auto it = p.FindOrCreateIniSection("clC9");
  EXPECT_TRUE(it->second.empty());
  EXPECT_EQ(p.GetClientSettings().count("C9"), 1u);
  EXPECT_EQ(p.FindOrCreateIniSection("CLC9"), it);
}

TEST_F(TIniParserTest, SetIniParamFormatsThroughAStream) {
  Load("[S]\nA=1\n");
  const auto it = p.FindIniSection(std::string("S"));
  p.SetIniParam(it, "D", 2.5);
  p.SetIniParam(it, "A", std::string("x"));
  EXPECT_EQ(p.GetRowFromSection("S"), "[S]\nA=x\nD=2.5\n");
  p.SetIniParam(p.GetSections().end(), "Z", 1);  // does nothing
}

TEST_F(TIniParserTest, ValueListMergesSortedWithoutDuplicates) {
  TIniParser::TKeyMap keys{{"L", "C,A"}};
  TIniParser::ChangeIniParamValueListByKey(keys, "L", "B,A", false, false);
  EXPECT_EQ(keys.at("L"), "A,B,C");
}

TEST_F(TIniParserTest, ValueListReplaceSortsTheGivenItems) {
  TIniParser::TKeyMap keys{{"L", "C,A"}};
  TIniParser::ChangeIniParamValueListByKey(keys, "L", "Z,B,B", true, false);
  EXPECT_EQ(keys.at("L"), "B,Z");
}

TEST_F(TIniParserTest, ValueListKeepOrderAppendsWithDuplicates) {
  TIniParser::TKeyMap keys{{"L", "C,A"}};
  TIniParser::ChangeIniParamValueListByKey(keys, "L", "B,A", false, true);
  EXPECT_EQ(keys.at("L"), "C,A,B,A");
}

TEST_F(TIniParserTest, ValueListAddsAMissingKey) {
  TIniParser::TKeyMap keys;
  TIniParser::ChangeIniParamValueListByKey(keys, "L", "B", false, false);
  EXPECT_EQ(keys.at("L"), "B");
}

TEST_F(TIniParserTest, TemplateParamReachesEveryLimitKind) {
  Load("[clT_Margin_Template]\nA=1\n[clT_Margin_Template_LimitKind_1]\nA=1\n"
       "[clT_Margin_Template_LimitKind_7]\nA=1\n[clTX_Margin_Template]\nA=1\n");
  EXPECT_EQ(p.SetTemplateParamToAllLimitKinds(TIniParser::TemplateMargin, "T", TIniParser::ipcCalcNegDeal, "1"), 0);
  EXPECT_EQ(p.GetIniParamInt("clT_Margin_Template", TIniParser::ipcCalcNegDeal, 0), 1);
  EXPECT_EQ(p.GetIniParamInt("clT_Margin_Template_LimitKind_1", TIniParser::ipcCalcNegDeal, 0), 1);
  EXPECT_EQ(p.GetIniParamInt("clT_Margin_Template_LimitKind_7", TIniParser::ipcCalcNegDeal, 0), 1);
  EXPECT_EQ(p.GetIniParamInt("clTX_Margin_Template", TIniParser::ipcCalcNegDeal, 0), 0);
}

TEST_F(TIniParserTest, TemplateParamRefusesEmptyNameAndUnknownType) {
  Load("[General]\nA=1\n");
  EXPECT_EQ(p.SetTemplateParamToAllLimitKinds(TIniParser::TemplateMargin, "", TIniParser::ipcCalcNegDeal, "1"), 3);
  EXPECT_EQ(p.SetTemplateParamToAllLimitKinds(4, "T", TIniParser::ipcCalcNegDeal, "1"), 15);
}

TEST_F(TIniParserTest, TemplateParamCreatesOnlyACommissionScaleTemplate) {
  Load("[General]\nA=1\n");
  EXPECT_EQ(p.SetTemplateParamToAllLimitKinds(TIniParser::TemplateMargin, "M", TIniParser::ipcCalcNegDeal, "1"), 0);
  EXPECT_FALSE(p.IsSectionExist("clM_Margin_Template"));
  EXPECT_EQ(p.SetTemplateParamToAllLimitKinds(TIniParser::TemplateCommissionScale, "S",
                                              TIniParser::ipcMinValue, "10"), 0);
  EXPECT_EQ(p.GetRowFromSection("clS_CommissionScale_Template"),
            "[clS_CommissionScale_Template]\nClients=\nMinValue=10\n");
}

TEST_F(TIniParserTest, ReloadRestrictionTemplatesReplacesOnlyThem) {
  Load("[clOld_Restriction_Template]\nA=1\n[General]\nB=1\n");
  TIniParser other("[clNew_Restriction_Template]\nC=3\n[General]\nB=2\n", TIniParser::SourceText, ';', 1);
  p.ReloadRestrictionsTemplates(other);
  EXPECT_FALSE(p.IsSectionExist("clOld_Restriction_Template"));
  EXPECT_EQ(p.GetIniParamInt("clNew_Restriction_Template", "C", 0), 3);
  EXPECT_EQ(p.GetIniParamInt("General", "B", 0), 1);
  EXPECT_EQ(p.GetRestrictionTemplateSettings().size(), 1u);
  EXPECT_EQ(p.GetRestrictionTemplateSettings().count("New"), 1u);
  EXPECT_EQ(p.DoesSectionExist("clNew_Restriction_Template", ""), "CLNEW_RESTRICTION_TEMPLATE");
}

// ---- Templates ----

TEST_F(TIniParserTest, TemplateStringIsFoundInTheClientsList) {
  Load("[clT_Client_Template]\nCLIENTS=C3, C1 ,C2\n");
  EXPECT_TRUE(p.FindTemplateString("clT_Client_Template", "C1"));
  EXPECT_TRUE(p.FindTemplateString("CLT_CLIENT_TEMPLATE", "C3"));
  EXPECT_FALSE(p.FindTemplateString("clT_Client_Template", "C4"));
  EXPECT_FALSE(p.FindTemplateString("clMissing", "C1"));
}

TEST_F(TIniParserTest, TemplateStringMemoDoesNotSeeLaterEdits) {
  Load("[clT_Client_Template]\nClients=C1\n");
  EXPECT_FALSE(p.FindTemplateString("clT_Client_Template", "C2"));
  p.SetIniParam(p.FindIniSection(std::string("clT_Client_Template")), "Clients", "C1,C2");
  EXPECT_FALSE(p.FindTemplateString("clT_Client_Template", "C2"));
  TIniParser other;
  p.ReloadRestrictionsTemplates(other);  // drops the memo
  EXPECT_TRUE(p.FindTemplateString("clT_Client_Template", "C2"));
}

// ---- Rendering ----

TEST_F(TIniParserTest, RowsOfASectionAndOfATemplate) {
  Load("[clT_Client_Template]\nA=1\nZ=2\n[clU_Client_Template]\nB=1\nClients=C1,C2\n[Empty]\n");
  EXPECT_EQ(p.GetRowFromSection("clT_Client_Template"), "[clT_Client_Template]\nA=1\nZ=2\n");
  EXPECT_EQ(p.GetRowFromTemplateSection(p.FindIniSection(std::string("clT_Client_Template"))),
            "[clT_Client_Template]\nClients=\nA=1\nZ=2\n");
  EXPECT_EQ(p.GetRowFromTemplateSection(p.FindIniSection(std::string("clU_Client_Template"))),
            "[clU_Client_Template]\nClients=C1,C2\nB=1\n");
  EXPECT_EQ(p.GetRowFromSection("Empty"), "");
  EXPECT_EQ(p.GetRowFromSection("Missing"), "");
}

}  // namespace
