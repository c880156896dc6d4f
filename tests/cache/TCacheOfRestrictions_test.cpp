// The restrictions cache: the self-check of its parse tables, the global
// sections, templates parsed on first use, the search by leverage and
// client, and the value grammar of every restriction.
#include "cache/TCacheOfRestrictions.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

using DL::TCacheOfRestrictions;
using DL::TCodeListWithAll;
using DL::TIniCacheItemID;
using DL::TIniParser;
using DL::TRestrictions;

struct TFixture {
  explicit TFixture(const std::string& text)
      : parser(std::make_unique<TIniParser>(text.c_str(), TIniParser::SourceText, ';', 1)),
        cache(std::make_unique<TCacheOfRestrictions>(parser.get())) {}
  std::unique_ptr<TIniParser> parser;
  std::unique_ptr<TCacheOfRestrictions> cache;
};

// The object of a template "T" with the given lines.
TRestrictions Template(const std::string& lines) {
  TFixture f("[clT_Restriction_Template]\nClients=C1\n" + lines);
  TRestrictions* r = f.cache->GetTemplateSettings("T");
  EXPECT_NE(r, nullptr);
  return r == nullptr ? TRestrictions() : *r;
}

TCodeListWithAll List(std::set<std::string> codes) { return TCodeListWithAll{false, std::move(codes)}; }

// ---- Self-check ----

TEST(CacheOfRestrictionsCheckTest, TheProgramTablesPass) {
  CErrors errors;
  TCacheOfRestrictions::CheckParseTables(TCacheOfRestrictions::BuildGlobalParseTable(),
                                         TCacheOfRestrictions::BuildTemplateParseTable(), errors);
  EXPECT_FALSE(errors.IsErrorOccurred()) << errors.Message();
}

TEST(CacheOfRestrictionsCheckTest, AMissingSectionFunctionIsNamed) {
  auto global = TCacheOfRestrictions::BuildGlobalParseTable();
  ASSERT_EQ(global.erase("MAXORDERQUANTITY"), 1u);
  CErrors errors;
  TCacheOfRestrictions::CheckParseTables(global, TCacheOfRestrictions::BuildTemplateParseTable(), errors);
  ASSERT_EQ(errors.Errors().size(), 1u);
  EXPECT_EQ(errors.Errors()[0], "Not mapped CacheOfRestrictions global parsing function for section \"MaxOrderQuantity\".\n");
}

TEST(CacheOfRestrictionsCheckTest, AMissingParamFunctionIsNamed) {
  auto templ = TCacheOfRestrictions::BuildTemplateParseTable();
  ASSERT_EQ(templ.erase("SOFT_SECURITYALLOWED_"), 1u);
  CErrors errors;
  TCacheOfRestrictions::CheckParseTables(TCacheOfRestrictions::BuildGlobalParseTable(), templ, errors);
  ASSERT_EQ(errors.Errors().size(), 1u);
  EXPECT_EQ(errors.Errors()[0],
            "Not mapped CacheOfRestrictions template parsing function for param \"Soft_SecurityAllowed_\".\n");
}

TEST(CacheOfRestrictionsCheckTest, HolesOfBothTablesAreGatheredTogether) {
  auto global = TCacheOfRestrictions::BuildGlobalParseTable();
  auto templ = TCacheOfRestrictions::BuildTemplateParseTable();
  global.erase("PRICELIMITBYTIME");
  templ.erase("PRICELIMITBYTIME_");
  CErrors errors;
  TCacheOfRestrictions::CheckParseTables(global, templ, errors);
  EXPECT_EQ(errors.Message(),
            "Not mapped CacheOfRestrictions global parsing function for section \"PriceLimitByTime\".\n\n"
            "Not mapped CacheOfRestrictions template parsing function for param \"PriceLimitByTime_\".\n\n");
}

TEST(CacheOfRestrictionsCheckTest, EveryTemplateParameterAndQualifiedInvestorsHaveAFunction) {
  const auto templ = TCacheOfRestrictions::BuildTemplateParseTable();
  EXPECT_EQ(templ.size(), 24u);
  EXPECT_EQ(templ.count("QUALIFIEDINVESTORS"), 1u);
  EXPECT_EQ(TCacheOfRestrictions::BuildGlobalParseTable().size(), 23u);
}

// ---- Global sections ----

TEST(CacheOfRestrictionsGlobalTest, GlobalSectionsHoldTheSameLinesAsTemplates) {
  TFixture f(
      "[MaxOrderQuantity]\nTQBR_INSTR_SBER=100\n"
      "[SecurityRestricted]\nTQBR,S=GAZP\n"
      "[Soft_SecurityRestricted]\nTQBR=LKOH\n"
      "[ProhibitedCPAndSettlementCurrency]\nCP_X_SettlementCurrency_USD_ClassList_TQBR=S0\n"
      "[AccessToComplexInstruments]\nAccessToComplexInstruments=a,b\n");
  const TRestrictions& g = f.cache->GetGlobalSettings();
  ASSERT_EQ(g.maxOrderQuantity.size(), 1u);
  EXPECT_EQ(g.maxOrderQuantity[0].Qty, 100);
  EXPECT_EQ(g.securityRestricted.at("TQBR").at(DL::sdSell), List({"GAZP"}));
  EXPECT_EQ(g.softSecurityRestricted.at("TQBR").at(DL::sdBoth), List({"LKOH"}));
  EXPECT_TRUE(g.securityRestricted.count("TQBR") == 1 && g.securityRestricted.at("TQBR").count(DL::sdBoth) == 0);
  EXPECT_TRUE(g.prohibitedCP.CheckRestriction("X", "USD", "TQBR", "S0"));  // the index is built
  EXPECT_EQ(g.accessToComplexInstruments, (std::set<std::string>{"A", "B"}));
}

TEST(CacheOfRestrictionsGlobalTest, RestOrdVolumeReadsBasePeriodAndChoosesItsTargetByTheSectionName) {
  TFixture f(
      "[RestOrdVolumeByAvgTurnover]\nBasePeriod=5\nTQBR_INSTR_SBER=10\n"
      "[Soft_RestOrdVolumeByAvgTurnover]\nBasePeriod=7\ntqbr_INSTR_gazp=20,1,x\n");
  const TRestrictions& g = f.cache->GetGlobalSettings();
  EXPECT_EQ(g.basePeriod, 5);
  EXPECT_EQ(g.softBasePeriod, 7);
  ASSERT_EQ(g.restOrdVolumeByAvgTurnover.items.size(), 1u);
  EXPECT_DOUBLE_EQ(g.restOrdVolumeByAvgTurnover.items[0].limit, 10.0);
  ASSERT_EQ(g.softRestOrdVolumeByAvgTurnover.items.size(), 1u);
  EXPECT_EQ(g.softRestOrdVolumeByAvgTurnover.items[0].securities, std::set<std::string>{"GAZP"});
  EXPECT_EQ(g.softRestOrdVolumeByAvgTurnover.items[0].text, "X");
}

TEST(CacheOfRestrictionsGlobalTest, ARestrictREPOByFirstPartSideSectionIsPassedOver) {
  TFixture f("[RestrictREPOByFirstPartSide]\nEQRP,B=SBER\n");
  EXPECT_TRUE(f.cache->GetGlobalSettings().restrictRepoByFirstPartSide.empty());
}

TEST(CacheOfRestrictionsGlobalTest, DefaultsOfAnEmptyText) {
  TFixture f("");
  const TRestrictions& g = f.cache->GetGlobalSettings();
  EXPECT_EQ(g.basePeriod, 2);
  EXPECT_DOUBLE_EQ(g.defaultDeviation, -1.0);
  EXPECT_TRUE(g.prohibitedCP.Empty());
  EXPECT_FALSE(g.qualifiedInvestors);
  EXPECT_EQ(g, TRestrictions());
}

// ---- Templates and the search ----

constexpr const char* kTemplates =
    "[clT1_Restriction_Template]\nClients=C1,C2\nSecurityAllowed_TQBR=SBER\n"
    "[clT2_Restriction_Template]\nIncludeClientsWithLeverage=2\nSecurityAllowed_TQBR=GAZP\n";

TEST(CacheOfRestrictionsSearchTest, AClientWithoutATemplateAndALeverageWithoutOneGiveNull) {
  TFixture f(kTemplates);
  EXPECT_EQ(f.cache->GetSettings(TIniCacheItemID("C9", 3.0)), nullptr);
  EXPECT_EQ(f.cache->GetSettings(TIniCacheItemID("C9", -1.0)), nullptr);
  EXPECT_EQ(f.cache->GetSettings(TIniCacheItemID("", -1.0)), nullptr);
}

TEST(CacheOfRestrictionsSearchTest, TheClientsTemplateIsFoundAndKept) {
  TFixture f(kTemplates);
  EXPECT_EQ(f.cache->GetParsedTemplateSettings("T1"), nullptr);  // parsed on first use
  TRestrictions* r = f.cache->GetSettings(TIniCacheItemID("C2", -1.0));
  ASSERT_NE(r, nullptr);
  EXPECT_EQ(r->securityAllowed.at("TQBR"), List({"SBER"}));
  EXPECT_EQ(f.cache->GetParsedTemplateSettings("T1"), r);
  EXPECT_EQ(f.cache->GetSettings(TIniCacheItemID("C2", -1.0)), r);
}

TEST(CacheOfRestrictionsSearchTest, TheLeverageTemplateComesFirst) {
  TFixture f(kTemplates);
  TRestrictions* r = f.cache->GetSettings(TIniCacheItemID("C1", 2.0));
  ASSERT_NE(r, nullptr);
  EXPECT_EQ(r->securityAllowed.at("TQBR"), List({"GAZP"}));
  EXPECT_EQ(f.cache->GetTemplateSettingsByLeverage(200), r);
  // A leverage without a template falls through to the client's template.
  TRestrictions* byClient = f.cache->GetSettings(TIniCacheItemID("C1", 5.0));
  ASSERT_NE(byClient, nullptr);
  EXPECT_EQ(byClient->securityAllowed.at("TQBR"), List({"SBER"}));
}

TEST(CacheOfRestrictionsSearchTest, AnUnknownTemplateNameIsEnteredWithAnEmptyObject) {
  TFixture f(kTemplates);
  EXPECT_FALSE(f.cache->IsTemplateExist("NEW"));
  TRestrictions* r = f.cache->GetTemplateSettings("NEW");
  ASSERT_NE(r, nullptr);
  EXPECT_EQ(*r, TRestrictions());
  EXPECT_TRUE(f.cache->IsTemplateExist("NEW"));
  EXPECT_EQ(f.cache->GetTemplateSettings(f.cache->TemplatesEnd()), nullptr);
}

TEST(CacheOfRestrictionsSearchTest, TemplatesOfTheTextAreEnteredUnparsed) {
  TFixture f(kTemplates);
  EXPECT_TRUE(f.cache->IsTemplateExist("T1"));
  EXPECT_TRUE(f.cache->IsTemplateExist("t2"));
  EXPECT_EQ(f.cache->GetTemplates().size(), 2u);
  EXPECT_NE(f.cache->GetTemplateIterator("T2"), f.cache->TemplatesEnd());
}

TEST(CacheOfRestrictionsSearchTest, AddTemplateMakesTheSectionAndRefusesARepeat) {
  TFixture f(kTemplates);
  EXPECT_EQ(f.cache->AddTemplate("T1"), 16);
  EXPECT_EQ(f.cache->AddTemplate("T3"), 0);
  EXPECT_NE(f.parser->FindIniSectionRef("clT3_Restriction_Template"), nullptr);
  ASSERT_NE(f.cache->GetParsedTemplateSettings("T3"), nullptr);
  EXPECT_EQ(*f.cache->GetParsedTemplateSettings("T3"), TRestrictions());
  EXPECT_EQ(f.cache->AddTemplate("T3"), 16);
}

TEST(CacheOfRestrictionsSearchTest, ParseSettingsEmptiesTheObjectFirst) {
  TFixture f(kTemplates);
  TRestrictions* r = f.cache->GetTemplateSettings("T1");
  ASSERT_NE(r, nullptr);
  DL::TIniKeyMap keys;
  keys["SecurityAllowed_EQOB"] = "LKOH";
  keys["UnknownKey"] = "1";
  f.cache->ParseSettings(r, keys);
  EXPECT_EQ(r->securityAllowed.size(), 1u);
  EXPECT_EQ(r->securityAllowed.at("EQOB"), List({"LKOH"}));
}

// ---- Value grammars ----

TEST(CacheOfRestrictionsGrammarTest, OrderQuantities) {
  const TRestrictions r = Template(
      "MaxOrderQuantity_TQBR,SMAL_INSTR_SBER,GAZP=100\n"
      "MinOrderQuantity_<ALL>_INSTR_<ALL>=5\n");
  ASSERT_EQ(r.maxOrderQuantity.size(), 1u);
  EXPECT_EQ(r.maxOrderQuantity[0].Classes, (std::set<std::string>{"SMAL", "TQBR"}));
  EXPECT_EQ(r.maxOrderQuantity[0].Securities, (std::set<std::string>{"GAZP", "SBER"}));
  EXPECT_EQ(r.maxOrderQuantity[0].Qty, 100);
  ASSERT_EQ(r.minOrderQuantity.size(), 1u);
  EXPECT_EQ(r.minOrderQuantity[0].Classes, std::set<std::string>{"<ALL>"});
  EXPECT_EQ(r.minOrderQuantity[0].Qty, 5);
}

TEST(CacheOfRestrictionsGrammarTest, AQuantityOfDigitsAndLettersSetsNothing) {
  const TRestrictions r = Template("MaxOrderQuantity_TQBR_INSTR_SBER=10a\n");
  EXPECT_TRUE(r.maxOrderQuantity.empty());
}

TEST(CacheOfRestrictionsGrammarTest, ACodeLongerThan12SkipsTheLine) {
  const TRestrictions r = Template("MaxOrderQuantity_TQBR_INSTR_SBERSBERSBERX=10\n");
  EXPECT_TRUE(r.maxOrderQuantity.empty());
}

TEST(CacheOfRestrictionsGrammarTest, PositionLimits) {
  const TRestrictions r = Template(
      "MaxPositionLimit_INSTR_SBER=100,50\n"
      "MaxPositionLimit_INSTR_GAZP=70\n"
      "MaxPositionLimit_INSTR_LKOH=,30\n"
      "MaxPositionLimit__INSTR_MGNT=\n");
  ASSERT_EQ(r.maxPositionLimit.size(), 4u);
  // Key order: GAZP, LKOH, SBER, then "_INSTR_MGNT" (the "_" sorts after letters).
  EXPECT_EQ(r.maxPositionLimit[0], (DL::TMaxPositionLimit{70, 70, {"GAZP"}}));
  EXPECT_EQ(r.maxPositionLimit[1], (DL::TMaxPositionLimit{-1, 30, {"LKOH"}}));
  EXPECT_EQ(r.maxPositionLimit[2], (DL::TMaxPositionLimit{100, 50, {"SBER"}}));
  EXPECT_EQ(r.maxPositionLimit[3], (DL::TMaxPositionLimit{-1, -1, {"MGNT"}}));
}

TEST(CacheOfRestrictionsGrammarTest, PriceLimitByTimeAndReferencePrices) {
  const TRestrictions r = Template(
      "PriceLimitByTime_TQBR_INSTR_SBER_TIME_10:00-12:30=5.5,WAPRICE,1\n"
      "PriceLimitByTime_TQBR_INSTR_GAZP_TIME_13:00-14:00=\n"
      "PriceLimitByTime_ReferencePrice_TQBR=CLOSE\n"
      "PriceLimitByTime_TQBR_INSTR_LKOH=5\n");
  ASSERT_EQ(r.priceLimitByTime.limits.size(), 2u);
  const DL::TPriceLimitByTime& gazp = r.priceLimitByTime.limits[0];
  EXPECT_EQ(gazp.securities, std::set<std::string>{"GAZP"});
  EXPECT_DOUBLE_EQ(gazp.deviation, -1.0);
  EXPECT_EQ(gazp.priceType, TIniParser::GetPriceType("LAST"));
  EXPECT_FALSE(gazp.reject);
  const DL::TPriceLimitByTime& sber = r.priceLimitByTime.limits[1];
  EXPECT_DOUBLE_EQ(sber.deviation, 5.5);
  EXPECT_EQ(sber.priceType, 1);
  EXPECT_TRUE(sber.reject);
  EXPECT_EQ(sber.time.begin.hour, 10u);
  EXPECT_EQ(sber.time.end.minute, 30u);
  EXPECT_EQ(r.priceLimitByTime.referencePrices, (std::map<std::string, std::string>{{"TQBR", "CLOSE"}}));
}

TEST(CacheOfRestrictionsGrammarTest, RestOrdVolumeByAvgTurnover) {
  const TRestrictions r = Template(
      "RestOrdVolumeByAvgTurnover_tqbr_INSTR_sber=10,2.5,avg\n"
      "RestOrdVolumeByAvgTurnover_TQBR_INSTR_GAZP=,,\n"
      "RestOrdVolumeByAvgTurnover_TQBR_INSTR_LKOH=\n"
      "Soft_RestOrdVolumeByAvgTurnover_TQBR_INSTR_MGNT=3\n");
  ASSERT_EQ(r.restOrdVolumeByAvgTurnover.items.size(), 2u);
  const DL::TRestOrdVolumeItem& gazp = r.restOrdVolumeByAvgTurnover.items[0];
  EXPECT_DOUBLE_EQ(gazp.limit, -1.0);
  EXPECT_DOUBLE_EQ(gazp.second, 0.0);
  EXPECT_EQ(gazp.text, "");
  const DL::TRestOrdVolumeItem& sber = r.restOrdVolumeByAvgTurnover.items[1];
  EXPECT_EQ(sber.classes, std::set<std::string>{"TQBR"});
  EXPECT_EQ(sber.securities, std::set<std::string>{"SBER"});
  EXPECT_DOUBLE_EQ(sber.limit, 10.0);
  EXPECT_DOUBLE_EQ(sber.second, 2.5);
  EXPECT_EQ(sber.text, "AVG");
  ASSERT_EQ(r.softRestOrdVolumeByAvgTurnover.items.size(), 1u);
  EXPECT_DOUBLE_EQ(r.softRestOrdVolumeByAvgTurnover.items[0].limit, 3.0);
}

TEST(CacheOfRestrictionsGrammarTest, ProhibitRepoByFirstPartSideAndTerm) {
  const TRestrictions r = Template(
      "ProhibitREPOByFirstPartSideAndTerm_EQRP=TQBR,TQOB\n"
      "ProhibitREPOByFirstPartSideAndTerm_PSRP,S,30=<ALL>\n"
      "Soft_ProhibitREPOByFirstPartSideAndTerm_EQRP,B,7=TQBR\n");
  const DL::TProhibitREPOByFirstPartSideAndTerm expected = {
      {{"EQRP", DL::sdBoth, 0}, List({"TQBR", "TQOB"})},
      {{"PSRP", DL::sdSell, 30}, TCodeListWithAll{true, {}}}};
  EXPECT_EQ(r.prohibitRepoByFirstPartSideAndTerm, expected);
  const DL::TProhibitREPOByFirstPartSideAndTerm soft = {{{"EQRP", DL::sdBuy, 7}, List({"TQBR"})}};
  EXPECT_EQ(r.softProhibitRepoByFirstPartSideAndTerm, soft);
}

TEST(CacheOfRestrictionsGrammarTest, ANegativeRepoTermLeavesTheLineUnread) {
  const TRestrictions r = Template("ProhibitREPOByFirstPartSideAndTerm_EQRP,B,-1=TQBR\n");
  EXPECT_TRUE(r.prohibitRepoByFirstPartSideAndTerm.empty());
}

TEST(CacheOfRestrictionsGrammarTest, AnUnknownSideLeavesTheLineUnread) {
  const TRestrictions r = Template(
      "ProhibitREPOByFirstPartSideAndTerm_EQRP,X,3=TQBR\n"
      "SecurityRestricted_TQBR,BUY=SBER\n"
      "RestrictREPOByFirstPartSide_EQRP,b=SBER\n");
  EXPECT_TRUE(r.prohibitRepoByFirstPartSideAndTerm.empty());
  EXPECT_TRUE(r.securityRestricted.empty());
  EXPECT_TRUE(r.restrictRepoByFirstPartSide.empty());
}

TEST(CacheOfRestrictionsGrammarTest, TwoLinesForOneClassAndSideTheFirstListStands) {
  // "TQBR ,B" sorts before "TQBR,B" and names the same class and side.
  const TRestrictions r = Template(
      "SecurityRestricted_TQBR ,B=SBER\n"
      "SecurityRestricted_TQBR,B=GAZP\n"
      "SecurityRestricted_TQBR,S=LKOH\n");
  EXPECT_EQ(r.securityRestricted.at("TQBR").at(DL::sdBuy), List({"SBER"}));
  EXPECT_EQ(r.securityRestricted.at("TQBR").at(DL::sdSell), List({"LKOH"}));
}

TEST(CacheOfRestrictionsGrammarTest, AnAllValueSetsTheFlagAndKeepsNoList) {
  const TRestrictions r = Template(
      "SecurityAllowed_TQBR=SBER,<ALL>\n"
      "RestrictREPOByFirstPartSide_EQRP,S=<ALL>\n");
  EXPECT_EQ(r.securityAllowed.at("TQBR"), (TCodeListWithAll{true, {}}));
  EXPECT_EQ(r.restrictRepoByFirstPartSide.at("EQRP").at(DL::sdSell), (TCodeListWithAll{true, {}}));
}

TEST(CacheOfRestrictionsGrammarTest, SoftTwinsFillTheirOwnFields) {
  const TRestrictions r = Template(
      "Soft_SecurityAllowed_TQBR=SBER\n"
      "Soft_SecurityRestricted_TQBR=GAZP\n");
  EXPECT_TRUE(r.securityAllowed.empty());
  EXPECT_TRUE(r.securityRestricted.empty());
  EXPECT_EQ(r.softSecurityAllowed.at("TQBR"), List({"SBER"}));
  EXPECT_EQ(r.softSecurityRestricted.at("TQBR").at(DL::sdBoth), List({"GAZP"}));
}

TEST(CacheOfRestrictionsGrammarTest, ATooLongClassOrAnEmptyValueIsSkipped) {
  const TRestrictions r = Template(
      "SecurityAllowed_TQBRTQBRTQBRX=SBER\n"
      "SecurityAllowed_TQBR=\n"
      "SecurityAllowed_EQOB=SBER,SBERSBERSBERX\n");
  EXPECT_EQ(r.securityAllowed.size(), 1u);
  EXPECT_EQ(r.securityAllowed.at("EQOB"), List({"SBER"}));
}

TEST(CacheOfRestrictionsGrammarTest, FlagsAndSets) {
  const TRestrictions yes = Template(
      "QualifiedInvestors=1\nAccessToComplexInstruments=a, b\nAllowedISINPrefix=RU,us\nThresMarginCoeff=50\n");
  EXPECT_TRUE(yes.qualifiedInvestors);
  EXPECT_EQ(yes.accessToComplexInstruments, (std::set<std::string>{"A", "B"}));
  EXPECT_EQ(yes.allowedISINPrefix, (std::set<std::string>{"RU", "us"}));
  const TRestrictions no = Template("QualifiedInvestors=yes\nThresMarginCoeff=50\n");
  EXPECT_FALSE(no.qualifiedInvestors);
  EXPECT_EQ(no, TRestrictions());  // ThresMarginCoeff is not read here
}

TEST(CacheOfRestrictionsGrammarTest, RepoStoragesAreFilledAndIndexed) {
  const TRestrictions r = Template(
      "ProhibitedCPAndSettlementCurrency_CP_X_SettlementCurrency_USD_ClassList_TQBR=S0\n"
      "Soft_ProhibitedCPAndSettlementCurrency_CP_Y_SettlementCurrency_USD_ClassList_TQBR=S0\n"
      "RestrictREPOWithCPBasedOnTerm_CP_X_SettlementCurrency_USD_FaceValueCurrency_RUB_ClassList_EQRP=30\n"
      "Soft_RestrictREPOWithCPBasedOnTerm_CP_X_SettlementCurrency_USD_FaceValueCurrency_RUB_ClassList_EQRP=3\n"
      "RestrictMaxValueForSettlementCurrency_SettlementCurrency_USD_ClassList_TQBR_Side_B=100\n"
      "Soft_RestrictMaxValueForSettlementCurrency_SettlementCurrency_USD_ClassList_TQBR_Side_B=10\n"
      "MaxSettleDateByAssetType_ClassList_TQBR_AssetType_BOND_Side_S=30\n");
  EXPECT_TRUE(r.prohibitedCP.CheckRestriction("X", "USD", "TQBR", "S0"));
  EXPECT_FALSE(r.prohibitedCP.CheckRestriction("Y", "USD", "TQBR", "S0"));
  EXPECT_TRUE(r.softProhibitedCP.CheckRestriction("Y", "USD", "TQBR", "S0"));
  int term = 0;
  EXPECT_FALSE(r.repoTerm.CheckRestriction("X", "USD", "RUB", "EQRP", 5, &term));
  EXPECT_TRUE(r.softRepoTerm.CheckRestriction("X", "USD", "RUB", "EQRP", 5, &term));
  double limit = 0.0;
  EXPECT_FALSE(r.maxValue.CheckRestriction("USD", "TQBR", DL::sdBuy, 50.0, &limit));
  EXPECT_TRUE(r.softMaxValue.CheckRestriction("USD", "TQBR", DL::sdBuy, 50.0, &limit));
  ZDL_AssetType type = ZDL_atBond;
  DL::ESide side = DL::sdSell;
  std::int32_t days = 40;
  EXPECT_TRUE(r.maxSettleDate.CheckRestriction("TQBR", type, side, days));
}

}  // namespace
