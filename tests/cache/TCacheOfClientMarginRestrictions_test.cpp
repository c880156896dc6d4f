// The margin restrictions cache: the inheritance chain of the limit kinds,
// the lookups of clients, prefixes and templates, the resolution order, and
// the walks over the parsed objects.
#include "cache/TCacheOfClientMarginRestrictions.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/TStorageHub.h"

namespace {

using namespace DL;

// A firm loaded from text, and a cache of its own on the firm's parser.
struct Firm {
  explicit Firm(const std::string& text)
      : hub(text.c_str(), 2), cache(*hub.GetOldParserPointer(), &hub.GetUniversalParser(), hub) {}
  TStorageHub hub;
  TCacheOfClientMarginRestrictions cache;
};

const TClientMarginRestrictionsBody& Body(const TClientMarginRestrictions* object, std::uint64_t limitKind) {
  static const TClientMarginRestrictionsBody kNone;
  EXPECT_NE(object, nullptr);
  if (object == nullptr) return kNone;
  const TClientMarginRestrictionsBody* body = object->Body(limitKind);
  EXPECT_NE(body, nullptr) << "limit kind " << limitKind;
  return body ? *body : kNone;
}

// ---- The global object ----

TEST(MarginCacheGlobalTest, DefaultsOfAnEmptyFirm) {
  Firm f("");
  const TClientMarginRestrictionsBody& g = Body(f.cache.GetGlobalSettings(), 0);
  EXPECT_EQ(g.useCHSecurityDiscounts.value, 0);
  EXPECT_EQ(g.useSecurityDiscounts.value, 0);
  EXPECT_EQ(g.useDiscountsType.value, 3);
  EXPECT_EQ(g.rstrDerivatives.value, 1);
  EXPECT_EQ(g.rstrTransfer.value, 1);
  EXPECT_EQ(g.useCorrelation.value, 1);
  EXPECT_EQ(g.rstrNMBuy.value, 0);
  EXPECT_FALSE(g.restrictMarginalBuys.value);
  EXPECT_TRUE(g.calcNegDeal.value);
  EXPECT_DOUBLE_EQ(g.mdPlusMinMarginCalcRate.value, 0.5);
  EXPECT_DOUBLE_EQ(g.baseDiscCoeff.value, -1.0);
  EXPECT_DOUBLE_EQ(g.includeClientsWithLeverage, -1.0);
  EXPECT_EQ(g.negativeMoneyToShort.value, 0);
  EXPECT_EQ(f.cache.GetGlobal_General_Settings(), nullptr);
}

TEST(MarginCacheGlobalTest, GeneralKeysAndTheTypedParametersOfTheFirm) {
  Firm f(
      "[General]\nUseDiscountsType=2\nRstrTransfer=0\nRstrNMBuy=4\nRestrictMarginalBuys=1\nCalcNegDeal=0\n"
      "MDPlusMinMarginCalcRate=0.75\nBaseDiscCoeff=1.25\nNegativeMoneyToShort=2\nUseCorrelation=0\n"
      "ClassesWithIgnoreRstrTransfer=TQBR, SPBFUT\nLimitKinds=0,2,x,-1,5\nIncludeClientsWithLeverage=3\n"
      "InstrumentsWithoutCurrencyRisk_CETS=USD000UTSTOM,EUR_RUB__TOM\n"
      "[ClassToLimitKind]\nTQBR=2\nSPBFUT=abc\n[SecurityToLimitKind]\nSBER=1\n"
      "[SettleCodeToLimitKind]\nTQBR_Y2=3\n[DiscountsTypeByClasses]\nTQBR=1\n[SecToBoard]\nSBER=TQBR\n");
  const TClientMarginRestrictionsBody& g = Body(f.cache.GetGlobalSettings(), 0);
  EXPECT_EQ(g.useDiscountsType.value, 2);
  EXPECT_EQ(g.rstrTransfer.value, 0);
  EXPECT_EQ(g.rstrNMBuy.value, 4);
  EXPECT_TRUE(g.restrictMarginalBuys.value);
  EXPECT_FALSE(g.calcNegDeal.value);
  EXPECT_DOUBLE_EQ(g.mdPlusMinMarginCalcRate.value, 0.75);
  EXPECT_DOUBLE_EQ(g.baseDiscCoeff.value, 1.25);
  EXPECT_EQ(g.negativeMoneyToShort.value, 2);
  EXPECT_EQ(g.useCorrelation.value, 0);
  EXPECT_EQ(g.classesWithIgnoreRstrTransfer, (std::vector<std::string>{"TQBR", "SPBFUT"}));
  EXPECT_EQ(g.limitKinds, (std::vector<std::uint64_t>{0, 2, 5}));
  EXPECT_DOUBLE_EQ(g.includeClientsWithLeverage, 3.0);
  ASSERT_EQ(g.instrumentsWithoutCurrencyRisk.count("CETS"), 1u);
  EXPECT_EQ(g.instrumentsWithoutCurrencyRisk.at("CETS"), (std::vector<std::string>{"USD000UTSTOM", "EUR_RUB__TOM"}));
  EXPECT_EQ(g.classToLimitKind.at("TQBR"), 2);
  EXPECT_EQ(g.classToLimitKind.at("spbfut"), 0);  // unreadable numbers read as 0
  EXPECT_EQ(g.securityToLimitKind.at("SBER"), 1);
  EXPECT_EQ(g.settleCodeToLimitKind.at("TQBR_Y2"), 3);
  EXPECT_EQ(g.discountsTypeByClasses.at("TQBR"), 1);
  EXPECT_EQ(g.secToBoard.at("SBER"), "TQBR");
}

TEST(MarginCacheGlobalTest, TheTypedParameterIsReadFromTheUniversalParser) {
  Firm f("[General]\nUseDiscountsType=2\n");
  ASSERT_EQ(f.hub.GetUniversalParser().SetIntParamToGlobalSection(
                1, iscGeneral, f.hub.GetUniversalParser().GetParamNumInSect(iscGeneral, "UseDiscountsType")),
            0);
  const TCacheOfClientMarginRestrictions rebuilt(*f.hub.GetOldParserPointer(), &f.hub.GetUniversalParser(), f.hub);
  EXPECT_EQ(Body(rebuilt.GetGlobalSettings(), 0).useDiscountsType.value, 1);
  const TCacheOfClientMarginRestrictions withoutTyped(*f.hub.GetOldParserPointer(), nullptr, f.hub);
  EXPECT_EQ(Body(withoutTyped.GetGlobalSettings(), 0).useDiscountsType.value, 3);
}

// ---- Inheritance ----

TEST(MarginCacheInheritTest, AMissingKeyInTheLimitKindZeroSectionTakesTheGlobalValue) {
  Firm f("[General]\nUseDiscountsType=2\nRstrNMBuy=4\n[clC1_Margin]\nGrossLimit=5\n");
  const TClientMarginRestrictionsBody& b = Body(f.cache.GetClientSettings("C1"), 0);
  EXPECT_EQ(b.useDiscountsType.value, 2);
  EXPECT_EQ(b.rstrNMBuy.value, 4);
  EXPECT_TRUE(b.calcNegDeal.value);
  EXPECT_DOUBLE_EQ(b.grossLimit.value, 5.0);
  EXPECT_EQ(b.useDiscountsType.read, -2);
  EXPECT_DOUBLE_EQ(b.grossLimit.read, 5.0);
}

TEST(MarginCacheInheritTest, MinusOneInTheLimitKindZeroSectionStaysAndIsTrueForAFlag) {
  Firm f("[General]\nUseDiscountsType=2\n[clC1_Margin]\nUseDiscountsType=-1\nRestrictMarginalBuys=-1\n"
         "GrossLimit=-1\n");
  const TClientMarginRestrictionsBody& b = Body(f.cache.GetClientSettings("C1"), 0);
  EXPECT_EQ(b.useDiscountsType.value, -1);
  EXPECT_TRUE(b.restrictMarginalBuys.value);
  EXPECT_DOUBLE_EQ(b.grossLimit.value, -1.0);
}

TEST(MarginCacheInheritTest, AFurtherLimitKindTakesLimitKindZeroAndMinusOneTakesTheGlobalValue) {
  Firm f("[General]\nRstrNMBuy=3\nUseDiscountsType=2\n"
         "[clC1_Margin]\nUseDiscountsType=1\nRstrNMBuy=5\nGrossLimit=7\nRestrictMarginalBuys=1\n"
         "[clC1_Margin_LimitKind_2]\nRstrNMBuy=-1\nLossLimit=9\nRestrictMarginalBuys=-2\n");
  const TClientMarginRestrictions* c = f.cache.GetClientSettings("C1");
  ASSERT_NE(c, nullptr);
  EXPECT_EQ(c->size(), 2u);
  const TClientMarginRestrictionsBody& lk2 = Body(c, 2);
  EXPECT_EQ(lk2.useDiscountsType.value, 1);  // missing: limit kind 0 of the client
  EXPECT_DOUBLE_EQ(lk2.grossLimit.value, 7.0);
  EXPECT_TRUE(lk2.restrictMarginalBuys.value);  // -2: limit kind 0 of the client
  EXPECT_EQ(lk2.rstrNMBuy.value, 3);             // -1: the global value
  EXPECT_DOUBLE_EQ(lk2.lossLimit.value, 9.0);
  EXPECT_EQ(Body(c, 0).rstrNMBuy.value, 5);
}

TEST(MarginCacheInheritTest, ALimitKindWithoutLimitKindZeroHasNoEffect) {
  Firm f("[clC1_Margin_LimitKind_2]\nGrossLimit=7\n");
  const TClientMarginRestrictions* c = f.cache.GetClientSettings("C1");
  ASSERT_NE(c, nullptr);
  EXPECT_TRUE(c->empty());
  TIniCacheItemID id("C1", -1);
  EXPECT_EQ(f.cache.GetIniSetting(id), f.cache.GetGlobalSettings());
  EXPECT_TRUE(f.cache.ItemTable().empty());
}

TEST(MarginCacheInheritTest, NegativeMoneyToShortThreeReadsAsZero) {
  Firm f("[General]\nNegativeMoneyToShort=2\n[clC1_Margin]\nNegativeMoneyToShort=3\n"
         "[clC2_Margin]\nNegativeMoneyToShort=1\n[clC3_Margin]\nGrossLimit=1\n");
  EXPECT_EQ(Body(f.cache.GetClientSettings("C1"), 0).negativeMoneyToShort.value, 0);
  EXPECT_EQ(Body(f.cache.GetClientSettings("C2"), 0).negativeMoneyToShort.value, 1);
  EXPECT_EQ(Body(f.cache.GetClientSettings("C3"), 0).negativeMoneyToShort.value, 2);
}

TEST(MarginCacheInheritTest, CorrelationDefaultsAreOneAndZero) {
  Firm f("[General]\nUseCorrelation=0\n[clC1_Margin]\nUseCorrelation=-1\nUseOrdersCorrelation=-1\n"
         "[clC2_Margin]\nUseOrdersCorrelation=1\n");
  const TClientMarginRestrictionsBody& c1 = Body(f.cache.GetClientSettings("C1"), 0);
  EXPECT_EQ(c1.useCorrelation.value, 1);
  EXPECT_EQ(c1.useOrdersCorrelation.value, 0);
  const TClientMarginRestrictionsBody& c2 = Body(f.cache.GetClientSettings("C2"), 0);
  EXPECT_EQ(c2.useCorrelation.value, 0);  // missing: the global value
  EXPECT_EQ(c2.useOrdersCorrelation.value, 1);
}

TEST(MarginCacheInheritTest, UnreadableNumbersReadAsZero) {
  Firm f("[General]\nRstrNMBuy=4\n[clC1_Margin]\nRstrNMBuy=abc\nGrossLimit=x\n");
  const TClientMarginRestrictionsBody& b = Body(f.cache.GetClientSettings("C1"), 0);
  EXPECT_EQ(b.rstrNMBuy.value, 0);
  EXPECT_DOUBLE_EQ(b.grossLimit.value, 0.0);
}

TEST(MarginCacheInheritTest, KeysWithCodesGoToTheMapsOfTheBody) {
  Firm f("[clC1_Margin]\nClassToLimitKind_TQBR=2\nSecurityToLimitKind_SBER=1\nSettleCodeToLimitKind_TQBR_Y2=3\n"
         "AddCommonTrdAcc_TQBR=L01, L02\nTQBR_TAG=EQTV\nSecToBoard_SBER=TQBR\nSi_CORRELATION=0.5\nRi_COEF=1.5\n"
         "DiscountsTypeByClasses_TQBR=2\nLimitKinds=0,1\nMainMarginClasses=TQBR,SPBFUT\nAddLimitKind=1\n"
         "NegDealClasses=A,B\nClassesWithIgnoreRstrTransfer=C\nClassToLimitKind_=4\n");
  const TClientMarginRestrictionsBody& b = Body(f.cache.GetClientSettings("C1"), 0);
  EXPECT_EQ(b.classToLimitKind.size(), 1u);  // a key without a code is dropped
  EXPECT_EQ(b.classToLimitKind.at("TQBR"), 2);
  EXPECT_EQ(b.securityToLimitKind.at("SBER"), 1);
  EXPECT_EQ(b.settleCodeToLimitKind.at("TQBR_Y2"), 3);
  EXPECT_EQ(b.addCommonTrdAcc.at("TQBR"), (std::vector<std::string>{"L01", "L02"}));
  EXPECT_EQ(b.boardTags.at("TQBR"), "EQTV");
  EXPECT_EQ(b.secToBoard.at("SBER"), "TQBR");
  EXPECT_DOUBLE_EQ(b.correlations.at("Si"), 0.5);
  EXPECT_DOUBLE_EQ(b.coefs.at("Ri"), 1.5);
  EXPECT_EQ(b.discountsTypeByClasses.at("TQBR"), 2);
  EXPECT_EQ(b.limitKinds, (std::vector<std::uint64_t>{0, 1}));
  EXPECT_EQ(b.mainMarginClasses, (std::vector<std::string>{"TQBR", "SPBFUT"}));
  EXPECT_EQ(b.addLimitKind, (std::vector<std::string>{"1"}));
  EXPECT_EQ(b.negDealClasses, (std::vector<std::string>{"A", "B"}));
  EXPECT_EQ(b.classesWithIgnoreRstrTransfer, (std::vector<std::string>{"C"}));
}

// ---- Lookups ----

TEST(MarginCacheLookupTest, AnUnknownClientGivesNullAndAKnownOneIsParsedOnce) {
  Firm f("[clC1_Margin]\nGrossLimit=5\n");
  EXPECT_EQ(f.cache.GetClientSettings("C9"), nullptr);
  EXPECT_TRUE(f.cache.GetParsedClientSettings().Contains("C1"));
  EXPECT_EQ(f.cache.GetParsedClientSettings().Find("C1"), nullptr);  // known, not parsed yet
  TClientMarginRestrictions* first = f.cache.GetClientSettings("C1");
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(f.cache.GetClientSettings("c1"), first);
  EXPECT_EQ(f.cache.GetParsedClientSettings().Find("C1"), first);
}

TEST(MarginCacheLookupTest, TheLongestPrefixOfTheCodeWins) {
  Firm f("[clA*_Margin]\nGrossLimit=1\n[clAB*_Margin]\nGrossLimit=2\n");
  EXPECT_DOUBLE_EQ(Body(f.cache.GetPrefixClientSettingsByClientCode("ABC"), 0).grossLimit.value, 2.0);
  EXPECT_DOUBLE_EQ(Body(f.cache.GetPrefixClientSettingsByClientCode("AXY"), 0).grossLimit.value, 1.0);
  EXPECT_EQ(f.cache.GetPrefixClientSettingsByClientCode("B1"), nullptr);
  EXPECT_EQ(f.cache.GetPrefixClientSettingsByClientCode(""), nullptr);
  EXPECT_EQ(f.cache.GetPrefixClientSettingsByClientCode("<EMPTY>"), nullptr);
  EXPECT_EQ(f.cache.GetPrefixNames().size(), 2u);
}

TEST(MarginCacheLookupTest, NoPrefixesGiveNull) {
  Firm f("[clC1_Margin]\nGrossLimit=5\n");
  EXPECT_EQ(f.cache.GetPrefixClientSettingsByClientCode("C1"), nullptr);
}

TEST(MarginCacheLookupTest, ClientGlobalOrPrefixByName) {
  Firm f("[cl<General>_Margin]\nGrossLimit=1\n[clAB*_Margin]\nGrossLimit=2\n[clC1_Margin]\nGrossLimit=3\n");
  EXPECT_EQ(f.cache.GetClientGlobalOrPrefixSettings(""), nullptr);
  EXPECT_EQ(f.cache.GetClientGlobalOrPrefixSettings("<General>"), f.cache.GetGlobal_General_Settings());
  EXPECT_EQ(f.cache.GetClientGlobalOrPrefixSettings("<GENERAL>"), f.cache.GetGlobal_General_Settings());
  EXPECT_DOUBLE_EQ(Body(f.cache.GetClientGlobalOrPrefixSettings("AB*"), 0).grossLimit.value, 2.0);
  EXPECT_DOUBLE_EQ(Body(f.cache.GetClientGlobalOrPrefixSettings("C1"), 0).grossLimit.value, 3.0);
  EXPECT_EQ(f.cache.GetClientGlobalOrPrefixSettings("C2"), nullptr);
}

TEST(MarginCacheLookupTest, TemplatesByClientAndByLeverage) {
  Firm f("[clT1_Margin_Template]\nClients=C5,C6\nIncludeClientsWithLeverage=2\nGrossLimit=11\n"
         "[clT1_Margin_Template_LimitKind_1]\nLossLimit=4\n");
  TClientMarginRestrictions* t = f.cache.GetTemplateSettings("T1");
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(f.cache.GetTemplateSettingsByClientCode("C6"), t);
  EXPECT_EQ(f.cache.GetTemplateSettingsByClientCode("C7"), nullptr);
  EXPECT_EQ(f.cache.GetTemplateWithLeverageSettings(200), t);
  EXPECT_EQ(f.cache.GetTemplateWithLeverageSettings(201), nullptr);
  EXPECT_DOUBLE_EQ(Body(t, 1).grossLimit.value, 11.0);
  EXPECT_DOUBLE_EQ(Body(t, 1).lossLimit.value, 4.0);
  EXPECT_EQ(f.cache.GetTemplatesByLeverage().at(200), "T1");
}

TEST(MarginCacheLookupTest, AnAbsentGeneralSectionGivesNullAndTheSearchGoesOnToTheGlobalObject) {
  Firm f("[clC1_Margin]\nGrossLimit=5\n");
  EXPECT_EQ(f.cache.GetGlobal_General_Settings(), nullptr);
  TIniCacheItemID id("ZZ", -1);
  EXPECT_EQ(f.cache.GetIniSetting(id), f.cache.GetGlobalSettings());
}

TEST(MarginCacheLookupTest, TheGeneralObjectIsParsedAtOnceAndNoSectionBuildsOnIt) {
  Firm f("[General]\nRstrNMBuy=4\n[cl<General>_Margin]\nRstrNMBuy=7\n[cl<General>_Margin_LimitKind_3]\nGrossLimit=2\n"
         "[clC1_Margin]\nGrossLimit=5\n");
  const TClientMarginRestrictions* general = f.cache.GetGlobal_General_Settings();
  ASSERT_NE(general, nullptr);
  EXPECT_EQ(Body(general, 0).rstrNMBuy.value, 7);
  EXPECT_EQ(Body(general, 3).rstrNMBuy.value, 7);
  EXPECT_EQ(Body(f.cache.GetClientSettings("C1"), 0).rstrNMBuy.value, 4);
  TIniCacheItemID id("ZZ", -1);
  EXPECT_EQ(f.cache.GetIniSetting(id), general);
  EXPECT_TRUE(f.cache.ItemTable().empty());  // the general object is not stored per client
}

// ---- Resolution ----

TEST(MarginCacheResolveTest, AnEmptyClientGivesTheGlobalObject) {
  Firm f("[cl<General>_Margin]\nGrossLimit=1\n");
  const TIniCacheItemID empty("", -1);
  EXPECT_EQ(f.cache.ParseSettingsForClient(empty).first, f.cache.GetGlobalSettings());
  EXPECT_EQ(f.cache.ParseSettingsForClient(empty).second, SourceGlobal);
  TIniCacheItemID id("", -1);
  EXPECT_EQ(f.cache.GetIniSetting(id), f.cache.GetGlobalSettings());
  EXPECT_EQ(id.ClientCode(), "<EMPTY>");
}

TEST(MarginCacheResolveTest, TheOrderOfTheSearchAndTheSources) {
  Firm f("[clT1_Margin_Template]\nClients=P1\nIncludeClientsWithLeverage=2\nGrossLimit=1\n"
         "[clT2_Margin_Template]\nClients=C1,C3\nGrossLimit=2\n"
         "[clC1_Margin]\nGrossLimit=3\n[clC*_Margin]\nGrossLimit=4\n[cl*_Margin]\nGrossLimit=5\n");
  // The template of the leverage comes before the personal section.
  auto r = f.cache.ParseSettingsForClient(TIniCacheItemID("C1", 2.0));
  EXPECT_DOUBLE_EQ(Body(r.first, 0).grossLimit.value, 1.0);
  EXPECT_EQ(r.second, SourceTemplate);
  r = f.cache.ParseSettingsForClient(TIniCacheItemID("C1", -1));
  EXPECT_DOUBLE_EQ(Body(r.first, 0).grossLimit.value, 3.0);
  EXPECT_EQ(r.second, SourceClient);
  r = f.cache.ParseSettingsForClient(TIniCacheItemID("C3", -1));
  EXPECT_DOUBLE_EQ(Body(r.first, 0).grossLimit.value, 2.0);
  EXPECT_EQ(r.second, SourceTemplate);
  r = f.cache.ParseSettingsForClient(TIniCacheItemID("C4", -1));
  EXPECT_DOUBLE_EQ(Body(r.first, 0).grossLimit.value, 4.0);
  EXPECT_EQ(r.second, SourceClient);
  r = f.cache.ParseSettingsForClient(TIniCacheItemID("X1", -1));  // the empty prefix catches the rest
  EXPECT_DOUBLE_EQ(Body(r.first, 0).grossLimit.value, 5.0);
  EXPECT_EQ(r.second, SourceClient);
}

TEST(MarginCacheResolveTest, OnlyClientLevelResultsEnterTheItemTable) {
  Firm f("[clT2_Margin_Template]\nClients=C3\nGrossLimit=2\n[clC1_Margin]\nGrossLimit=3\n"
         "[clC*_Margin]\nGrossLimit=4\n");
  TIniCacheItemID personal("C1", -1), templ("C3", -1), prefix("C4", -1), none("Z1", -1);
  EXPECT_DOUBLE_EQ(Body(f.cache.GetIniSetting(personal), 0).grossLimit.value, 3.0);
  EXPECT_DOUBLE_EQ(Body(f.cache.GetIniSetting(templ), 0).grossLimit.value, 2.0);
  EXPECT_DOUBLE_EQ(Body(f.cache.GetIniSetting(prefix), 0).grossLimit.value, 4.0);
  EXPECT_EQ(f.cache.GetIniSetting(none), f.cache.GetGlobalSettings());
  EXPECT_EQ(f.cache.ItemTable().size(), 2u);
  EXPECT_EQ(f.cache.ItemTable().count(personal.ItemID()), 1u);
  EXPECT_EQ(f.cache.ItemTable().count(prefix.ItemID()), 1u);
  EXPECT_EQ(f.cache.ItemTable().count(templ.ItemID()), 0u);
}

TEST(MarginCacheResolveTest, TwoLeveragesAreTwoItems) {
  Firm f("[clC1_Margin]\nGrossLimit=3\n");
  TIniCacheItemID a("C1", 1.0), b("C1", 2.0);
  EXPECT_EQ(f.cache.GetIniSetting(a), f.cache.GetIniSetting(b));
  EXPECT_EQ(f.cache.ItemTable().size(), 2u);
}

// ---- Templates and walks ----

TEST(MarginCacheTemplateTest, RemovingAnUnknownTemplateGives15AndChangesNothing) {
  Firm f("[clT1_Margin_Template]\nClients=C5\nGrossLimit=11\n");
  TClientMarginRestrictions* t = f.cache.GetTemplateSettings("T1");
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(f.cache.RemoveParsedTemplateSettings("T9"), 15);
  EXPECT_EQ(f.cache.GetParsedTemplateSettings().Find("T1"), t);
  EXPECT_EQ(f.cache.GetParsedTemplateSettings().Size(), 1u);
}

TEST(MarginCacheTemplateTest, RemovingAKnownTemplateDropsItsObjectUntilTheNextUse) {
  Firm f("[clT1_Margin_Template]\nClients=C5\nGrossLimit=11\n");
  ASSERT_NE(f.cache.GetTemplateSettings("T1"), nullptr);
  EXPECT_EQ(f.cache.RemoveParsedTemplateSettings("T1"), 0);
  EXPECT_EQ(f.cache.GetParsedTemplateSettings().Find("T1"), nullptr);
  EXPECT_TRUE(f.cache.GetParsedTemplateSettings().Contains("T1"));
  EXPECT_DOUBLE_EQ(Body(f.cache.GetTemplateSettings("T1"), 0).grossLimit.value, 11.0);
}

TEST(MarginCacheTemplateTest, AnAddedTemplateIsKnown) {
  Firm f("");
  EXPECT_EQ(f.cache.RemoveParsedTemplateSettings("NEW"), 15);
  f.cache.AddTemplate("NEW");
  EXPECT_EQ(f.cache.RemoveParsedTemplateSettings("NEW"), 0);
  EXPECT_EQ(f.cache.GetTemplateSettings("NEW"), nullptr);  // no section in the text
}

TEST(MarginCacheWalkTest, TheWalkVisitsGeneralGlobalAndEveryParsedObject) {
  Firm f("[cl<General>_Margin]\nGrossLimit=1\n[clC1_Margin]\nGrossLimit=2\n[clC2_Margin]\nGrossLimit=3\n"
         "[clAB*_Margin]\nGrossLimit=4\n[clT1_Margin_Template]\nIncludeClientsWithLeverage=2\nGrossLimit=5\n");
  int visits = 0;
  f.cache.IterateClientMarginRestrictionsCaches([&](TClientMarginRestrictions&) { ++visits; });
  EXPECT_EQ(visits, 2);  // general and global; nothing else parsed yet
  ASSERT_NE(f.cache.GetClientSettings("C1"), nullptr);
  ASSERT_NE(f.cache.GetPrefixClientSettings("AB"), nullptr);
  ASSERT_NE(f.cache.GetTemplateSettings("T1"), nullptr);
  visits = 0;
  f.cache.IterateClientMarginRestrictionsCaches([&](TClientMarginRestrictions&) { ++visits; });
  EXPECT_EQ(visits, 6);  // the template once by name and once by leverage
}

TEST(MarginCacheWalkTest, ResetValidStatusClearsTheFlagOfLimitKindZeroEverywhere) {
  Firm f("[cl<General>_Margin]\nGrossLimit=1\n[clC1_Margin]\nGrossLimit=2\n[clC1_Margin_LimitKind_1]\nGrossLimit=3\n");
  TIniCacheItemID id("C1", -1);
  TClientMarginRestrictions* c1 = f.cache.GetIniSetting(id);
  ASSERT_NE(c1, nullptr);
  (*c1)[0].securityParamsValid = true;
  (*c1)[1].securityParamsValid = true;
  (*f.cache.GetGlobal_General_Settings())[0].securityParamsValid = true;
  (*f.cache.GetGlobalSettings())[0].securityParamsValid = true;
  f.cache.ResetValidStatusOfSecurityParamsCache();
  EXPECT_FALSE((*c1)[0].securityParamsValid);
  EXPECT_TRUE((*c1)[1].securityParamsValid);
  EXPECT_FALSE((*f.cache.GetGlobal_General_Settings())[0].securityParamsValid);
  EXPECT_FALSE((*f.cache.GetGlobalSettings())[0].securityParamsValid);
}

TEST(MarginCacheWalkTest, ClearMainMarginClassIDsEmptiesTheVectorAndTheCounter) {
  Firm f("[clAB*_Margin]\nMainMarginClasses=TQBR\n");
  TIniCacheItemID id("ABX", -1);
  TClientMarginRestrictions* p = f.cache.GetIniSetting(id);
  ASSERT_NE(p, nullptr);
  (*p)[0].mainMarginClassIDs = {3, 4};
  (*p)[0].mainMarginClassIDsCount = 2;
  (*f.cache.GetGlobalSettings())[0].mainMarginClassIDs = {1};
  (*f.cache.GetGlobalSettings())[0].mainMarginClassIDsCount = 1;
  f.cache.ClearMainMarginInClassIDsCache();
  EXPECT_TRUE((*p)[0].mainMarginClassIDs.empty());
  EXPECT_EQ((*p)[0].mainMarginClassIDsCount, 0);
  EXPECT_TRUE((*f.cache.GetGlobalSettings())[0].mainMarginClassIDs.empty());
  EXPECT_EQ((*p)[0].mainMarginClasses, (std::vector<std::string>{"TQBR"}));  // the settings stay
}

TEST(MarginCacheWalkTest, AssignedSurDiscountsFlag) {
  Firm f("");
  EXPECT_FALSE(f.cache.IsAssignedSurDiscounts());
  f.cache.SetAssignedSurDiscounts(true);
  EXPECT_TRUE(f.cache.IsAssignedSurDiscounts());
}

}  // namespace
