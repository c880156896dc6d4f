// Resolution of a client's section: the primitive searches, their memo, the
// leverage maps, and the order in which each consumer searches.
#include "ini/TIniLogicParser.h"

#include <gtest/gtest.h>

#include <string>

#include "base/Numbers.h"

namespace {

using DL::TIniLogicParser;
using DL::TIniParser;

class TIniLogicParserTest : public ::testing::Test {
 protected:
  void Load(const std::string& text) { ASSERT_EQ(parser.Init(text.c_str(), TIniParser::SourceText, ';', 1), 1); }
  static std::int32_t Scaled(double leverage) { return static_cast<std::int32_t>(DL::GetScaledLeverage(leverage)); }

  TIniParser parser;
  TIniLogicParser logic{parser};
};

// ---- A firm with every kind of client section, and the expected answers ----

const char* const kFirmText =
    "[General]\nCheckClient=1\n"
    "[clC1]\nA=1\n"
    "[clC2]\nA=1\n"
    "[clT1_Client_Template]\nCLIENTS=C2,C3,D1\nIncludeClientsWithLeverage=2\n"
    "[clT0_Client_Template]\nCLIENTS=C3\n"
    "[clLEV_Client_Template]\nClients=\nIncludeClientsWithLeverage=3,5.5\n"
    "[clA*]\nA=1\n"
    "[clAB*]\nA=1\n"
    "[clABCD*]\nA=1\n"
    "[clQ*_Margin]\nA=1\n"
    "[clC1_Margin]\nA=1\n"
    "[clM_Margin_Template]\nClients=C3\nIncludeClientsWithLeverage=4\n"
    "[clN_Margin_Template]\nClients=C3,D1\n"
    "[clR_Restriction_Template]\nClients=C1\nIncludeClientsWithLeverage=2\n"
    "[cl<General>_Margin]\nA=1\n";

struct TResolutionCase {
  const char* client;
  double leverage;  // below zero: none given
  const char* section;
  DL::ESettingsSource source;
};

const TResolutionCase kClientCases[] = {
    {"C1", -1, "clC1", DL::SourceClient},                      // personal section
    {"C1", 3.0, "clLEV_Client_Template", DL::SourceTemplate},  // leverage beats personal
    {"C2", -1, "clC2", DL::SourceClient},                      // personal beats a listing template
    {"C2", 2.0, "clT1_Client_Template", DL::SourceTemplate},   // leverage 2 is claimed by T1
    {"C3", -1, "clT0_Client_Template", DL::SourceTemplate},    // listed twice: sorted first
    {"D1", -1, "clT1_Client_Template", DL::SourceTemplate},
    {"ABCDE", -1, "clABCD*", DL::SourceClient},                // longest prefix of four
    {"ABCD", -1, "clABCD*", DL::SourceClient},                 // the whole code as prefix
    {"ABC", -1, "clAB*", DL::SourceClient},
    {"AZ", -1, "clA*", DL::SourceClient},
    {"A", -1, "clA*", DL::SourceClient},
    {"Z9", 5.5, "clLEV_Client_Template", DL::SourceTemplate},
    {"Z9", 5.499, "clLEV_Client_Template", DL::SourceTemplate},  // 549.9 + 0.5 truncates to 550
    {"Z9", 7.0, "", DL::SourceGlobal},                         // no template of that leverage
    {"Z9", -1, "", DL::SourceGlobal},
    {"c1", -1, "clc1", DL::SourceClient},                      // names match ignoring case
};

TEST_F(TIniLogicParserTest, ClientSettingsResolutionTable) {
  Load(kFirmText);
  for (const TResolutionCase& c : kClientCases) {
    TIniLogicParser fresh(parser);  // one leverage answer per instance would hide nothing here
    const auto r = fresh.ResolveClientSection(c.client, Scaled(c.leverage));
    EXPECT_EQ(*r.section, c.section) << c.client << " " << c.leverage;
    EXPECT_EQ(r.source, c.source) << c.client << " " << c.leverage;
  }
}

const TResolutionCase kMarginCases[] = {
    {"C1", -1, "clC1_Margin", DL::SourceClient},
    {"C1", 4.0, "clM_Margin_Template", DL::SourceTemplate},
    {"C3", -1, "clM_Margin_Template", DL::SourceTemplate},  // sorted first of M and N
    {"D1", -1, "clN_Margin_Template", DL::SourceTemplate},
    {"QX", -1, "clQ*_Margin", DL::SourceClient},
    {"Z9", -1, "cl<GENERAL>_Margin", DL::SourceTemplate},
    {"", 4.0, "", DL::SourceGlobal},                        // an empty client: global at once
};

TEST_F(TIniLogicParserTest, MarginResolutionTable) {
  Load(kFirmText);
  for (const TResolutionCase& c : kMarginCases) {
    TIniLogicParser fresh(parser);
    const auto r = fresh.ResolveMarginSection(c.client, Scaled(c.leverage));
    EXPECT_EQ(*r.section, c.section) << c.client << " " << c.leverage;
    EXPECT_EQ(r.source, c.source) << c.client << " " << c.leverage;
  }
}

TEST_F(TIniLogicParserTest, MarginWithoutGeneralSectionFallsToGlobal) {
  Load("[General]\nA=1\n[clC1_Margin]\nA=1\n");
  const auto r = logic.ResolveMarginSection("Z9", DL::UNDEF_LEVERAGE);
  EXPECT_EQ(*r.section, "");
  EXPECT_EQ(r.source, DL::SourceGlobal);
}

TEST_F(TIniLogicParserTest, RestrictionResolutionByLeverageThenByClient) {
  Load(kFirmText);
  auto r = logic.ResolveRestrictionTemplate("Z9", Scaled(2.0));
  EXPECT_EQ(*r.section, "clR_Restriction_Template");
  EXPECT_EQ(r.source, DL::SourceTemplate);
  r = logic.ResolveRestrictionTemplate("C1", DL::UNDEF_LEVERAGE);
  EXPECT_EQ(*r.section, "clR_Restriction_Template");
  r = logic.ResolveRestrictionTemplate("C2", DL::UNDEF_LEVERAGE);
  EXPECT_EQ(*r.section, "");
  EXPECT_EQ(r.source, DL::SourceGlobal);
}

// ---- The primitive searches ----

TEST_F(TIniLogicParserTest, ClientWithPersonalSectionAndLeverageTemplateGetsTheTemplate) {
  Load("[clC1]\nA=1\n[clT_Client_Template]\nIncludeClientsWithLeverage=2\n");
  const auto r = logic.ResolveClientSection("C1", Scaled(2.0));
  EXPECT_EQ(*r.section, "clT_Client_Template");
  EXPECT_EQ(r.source, DL::SourceTemplate);
  EXPECT_EQ(logic.PersonalClientSection("C1", "cl", ""), "clC1");
}

TEST_F(TIniLogicParserTest, ClientListedInTwoTemplatesGetsTheSortedFirst) {
  Load("[clZZ_Client_Template]\nClients=C1\n[clAA_Client_Template]\nClients=C1\n");
  EXPECT_EQ(logic.TemplateClientSection("C1", "cl", "_Client_Template"), "clAA_Client_Template");
}

TEST_F(TIniLogicParserTest, TemplateAddedAfterASearchIsSeenOnceTheNamesAreSorted) {
  Load("[clT_Client_Template]\nClients=C1\n");
  EXPECT_EQ(logic.TemplateClientSection("C1", "cl", "_Client_Template"), "clT_Client_Template");
  parser.AddIniSection("clU_Client_Template", {{"Clients", "C2"}});
  EXPECT_EQ(logic.TemplateClientSection("C2", "cl", "_Client_Template"), "");  // names not sorted yet
  parser.InitSectionNames();
  EXPECT_EQ(logic.TemplateClientSection("C3", "cl", "_Client_Template"), "");
  TIniLogicParser fresh(parser);
  EXPECT_EQ(fresh.TemplateClientSection("C2", "cl", "_Client_Template"), "clU_Client_Template");
}

TEST_F(TIniLogicParserTest, TemplateSectionCreatedBySetIniParamJoinsTheSearch) {
  Load("[clT_Client_Template]\nClients=C1\n");
  EXPECT_EQ(logic.TemplateClientSection("C1", "cl", "_Client_Template"), "clT_Client_Template");
  parser.SetIniParam(std::string("clV_Client_Template"), "Clients", "C4");
  EXPECT_EQ(logic.TemplateClientSection("C4", "cl", "_Client_Template"), "clV_Client_Template");
}

TEST_F(TIniLogicParserTest, StarMarginSectionCatchesEveryClientWithoutABetterOne) {
  Load("[cl*_Margin]\nA=1\n[clC1_Margin]\nA=1\n");
  EXPECT_EQ(logic.PrefixClientSection("ANY", "cl", "_Margin", 1), "cl*_Margin");
  EXPECT_EQ(logic.PrefixClientSection("X", "cl", "_Margin", 1), "cl*_Margin");
  const auto r = logic.ResolveMarginSection("C1", DL::UNDEF_LEVERAGE);
  EXPECT_EQ(*r.section, "clC1_Margin");
}

TEST_F(TIniLogicParserTest, LongestPrefixInModeOneShortestInModeTwo) {
  Load("[clAB*]\nA=1\n[clA*]\nA=1\n");
  EXPECT_EQ(logic.PrefixClientSection("ABC", "cl", "", 1), "clAB*");
  TIniLogicParser other(parser);
  EXPECT_EQ(other.PrefixClientSection("ABC", "cl", "", 2), "clA*");
}

TEST_F(TIniLogicParserTest, OtherPrefixModeSearchesNothingAndRemembersIt) {
  Load("[clA*]\nA=1\n");
  EXPECT_EQ(logic.PrefixClientSection("ABC", "cl", "", 3), "");
  EXPECT_EQ(logic.PrefixClientSection("ABC", "cl", "", 1), "");  // the memo answers
}

TEST_F(TIniLogicParserTest, NegativeAnswersAreRemembered) {
  Load("[General]\nA=1\n");
  EXPECT_EQ(logic.PersonalClientSection("C1", "cl", ""), "");
  parser.AddIniSection("clC1", {{"A", "1"}});
  parser.InitSectionNames();
  EXPECT_EQ(logic.PersonalClientSection("C1", "cl", ""), "");
  EXPECT_EQ(logic.Memo().at("C1").personal, "");
  EXPECT_EQ(logic.Memo().at("C1").templ, "DEFAULT");
  TIniLogicParser fresh(parser);
  EXPECT_EQ(fresh.PersonalClientSection("C1", "cl", ""), "clC1");
}

TEST_F(TIniLogicParserTest, MemoEntryStartsUnsearchedInEveryField) {
  Load("[clC1]\nA=1\n");
  logic.PersonalClientSection("C1", "cl", "");
  const DL::TLogicFindResults& r = logic.Memo().at("C1");
  EXPECT_EQ(r.unused, "DEFAULT");
  EXPECT_EQ(r.templ, "DEFAULT");
  EXPECT_EQ(r.prefix, "DEFAULT");
  EXPECT_EQ(r.personal, "clC1");
}

TEST_F(TIniLogicParserTest, EmptyLeverageListsAreNotWalkedTwice) {
  Load("[clT_Client_Template]\nClients=C1\n");
  EXPECT_EQ(logic.TemplateClientSectionByLeverage("cl", "_Client_Template", Scaled(2.0)), "");
  parser.AddIniSection("clU_Client_Template", {{"IncludeClientsWithLeverage", "2"}});
  parser.InitSectionNames();
  EXPECT_EQ(logic.TemplateClientSectionByLeverage("cl", "_Client_Template", Scaled(2.0)), "");
  TIniLogicParser fresh(parser);
  EXPECT_EQ(fresh.TemplateClientSectionByLeverage("cl", "_Client_Template", Scaled(2.0)), "clU_Client_Template");
}

TEST_F(TIniLogicParserTest, LeverageOf1999FindsTheTemplateFor200) {
  Load("[clT_Client_Template]\nIncludeClientsWithLeverage=2.00\n");
  EXPECT_EQ(Scaled(1.999), 200);
  EXPECT_EQ(logic.TemplateClientSectionByLeverage("cl", "_Client_Template", Scaled(1.999)), "clT_Client_Template");
  EXPECT_EQ(logic.TemplateClientSectionByLeverage("cl", "_Client_Template", Scaled(2.01)), "");
  EXPECT_EQ(logic.TemplateClientSectionByLeverage("cl", "_Client_Template", DL::UNDEF_LEVERAGE), "");
}

TEST_F(TIniLogicParserTest, FirstSectionForALeverageStays) {
  Load("[clB_Restriction_Template]\nIncludeClientsWithLeverage=2\n"
       "[clA_Restriction_Template]\nIncludeClientsWithLeverage=2\n");
  EXPECT_EQ(logic.TemplateRestrictionSectionByLeverage(200, "cl", "_Restriction_Template"),
            "clA_Restriction_Template");
}

TEST_F(TIniLogicParserTest, TemplateSectionByLeverageOfTheParserMap) {
  Load("[clT_Client_Template]\nIncludeClientsWithLeverage=2\n");
  std::string out = "unset";
  EXPECT_EQ(logic.GetTemplateClientSectionByLeverage(2.0, out), 1);
  EXPECT_EQ(out, "clT_Client_Template");
  out = "unset";
  EXPECT_EQ(logic.GetTemplateClientSectionByLeverage(-0.01, out), 0);
  EXPECT_EQ(logic.GetTemplateClientSectionByLeverage(2.01, out), 0);
  EXPECT_EQ(out, "unset");
}

TEST_F(TIniLogicParserTest, ClientTemplateNamesInSectionAndListOrder) {
  Load("[clB_Client_Template]\nClients=C9,C1\n[clA_Client_Template]\nClients=C5\n[clX]\nClients=Q\n");
  const auto names = logic.GetClientTemplateNames("cl", "_Client_Template");
  ASSERT_EQ(names.size(), 3u);
  EXPECT_EQ(names[0].clientCode, "C5");
  EXPECT_EQ(names[0].templateName, "A");
  EXPECT_EQ(names[1].clientCode, "C9");
  EXPECT_EQ(names[1].templateName, "B");
  EXPECT_EQ(names[2].clientCode, "C1");
}

// ---- ParseOrderMaxValueItem ----

TEST(ParseOrderMaxValueItemTest, AmountInHundredthsAndCurrency) {
  DL::TMaxOrderValue v;
  v.currency = "OLD";
  TIniLogicParser::ParseOrderMaxValueItem(v, "1234.567");
  EXPECT_DOUBLE_EQ(v.amount, 123457.0);
  EXPECT_EQ(v.currency, "OLD");
  TIniLogicParser::ParseOrderMaxValueItem(v, "10,USD");
  EXPECT_DOUBLE_EQ(v.amount, 1000.0);
  EXPECT_EQ(v.currency, "USD");
}

TEST(ParseOrderMaxValueItemTest, ThreeItemsLeaveTheAmountUnset) {
  DL::TMaxOrderValue v;
  v.amount = 5;
  v.currency = "EUR";
  TIniLogicParser::ParseOrderMaxValueItem(v, "10,USD,X");
  EXPECT_DOUBLE_EQ(v.amount, -100.0);
  EXPECT_EQ(v.currency, "EUR");
}

}  // namespace
