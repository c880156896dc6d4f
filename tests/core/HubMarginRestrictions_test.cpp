// The margin restrictions of a firm: the cache built at load, the margin
// sections written from their parsed objects, and a save that loads back to
// equal objects.
#include <gtest/gtest.h>

#include <string>

#include "cache/TCacheOfClientMarginRestrictions.h"
#include "core/SavedText.h"
#include "core/TStorageHub.h"

namespace {

using namespace DL;

const char* const kFirm =
    "[General]\nRstrNMBuy=3\n"
    "[ClassToLimitKind]\nTQBR=2\nSPBFUT=1\n"
    "[SecurityToLimitKind]\nSBER=1\n"
    "[SettleCodeToLimitKind]\nTQBR_Y2=3\n"
    "[cl<General>_Margin]\nRstrNMBuy=7\n"
    "[cl<General>_Margin_LimitKind_1]\nUseDiscountsType=2\n"
    "[clC1_Margin]\nusediscountstype=1\nClassToLimitKind_TQBR=2\nGrossLimit=5\nCalcNegDeal=0\nBaseDiscCoeff=1.5\n"
    "[clC1_Margin_LimitKind_2]\nRstrNMBuy=-1\nSecurityToLimitKind_SBER=2\n"
    "[clAB*_Margin]\nUseCorrelation=-1\nNegDealClasses=TQBR, SPBFUT\nMainMarginClasses=TQBR\n"
    "[clT1_Margin_Template]\nClients=C5,C6\nIncludeClientsWithLeverage=2\nRstrTransfer=0\n"
    "SettleCodeToLimitKind_TQBR_Y2=1\n"
    "[clT1_Margin_Template_LimitKind_1]\nLossLimit=4\nMDPlusDefaultNettingType=2\nInformClientsAboutShortPos=1\n"
    "[clC9_Margin]\nGrossLimit=1\n";

TCacheOfClientMarginRestrictions& Cache(TStorageHub& hub) {
  TCacheOfClientMarginRestrictions* cache = hub.GetClientMarginRestrictionsCache();
  EXPECT_NE(cache, nullptr);
  return *cache;
}

TClientMarginRestrictions* Query(TStorageHub& hub, const char* client, double leverage = -1) {
  TIniCacheItemID id(client, leverage);
  return Cache(hub).GetIniSetting(id);
}

TEST(HubMarginRestrictionsTest, TheCacheIsBuiltAtLoad) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("BuildClientMarginRestrictionsCache"));
  TStorageHub hub(kFirm, 2);
  ASSERT_NE(hub.GetClientMarginRestrictionsCache(), nullptr);
  EXPECT_DOUBLE_EQ(Query(hub, "C1")->Body(0)->grossLimit.value, 5.0);
  EXPECT_EQ(Query(hub, "C1")->Body(2)->rstrNMBuy.value, 3);
  EXPECT_EQ(Query(hub, "ZZZ")->Body(0)->rstrNMBuy.value, 7);  // the general section
}

TEST(HubMarginRestrictionsTest, ClientSectionsAreWrittenFromTheParsedObject) {
  TStorageHub hub(kFirm, 2);
  const TClientMarginRestrictions* c1 = Query(hub, "C1");
  TWrittenSections written;
  const std::string row =
      hub.GetRowFromAllLkSettings(hub.GetParser().GetMarginClientSettings().at("C1"), c1, false, written);
  EXPECT_EQ(row,
            "[clC1_Margin]\nBaseDiscCoeff=1.5\nCalcNegDeal=0\nClassToLimitKind_TQBR=2\nUseDiscountsType=1\n"
            "GrossLimit=5\n"
            "[clC1_Margin_LimitKind_2]\nSecurityToLimitKind_SBER=2\nRstrNMBuy=-1\n");
  EXPECT_EQ(written.size(), 2u);
  // A section already written is not written again.
  EXPECT_EQ(hub.GetRowFromAllLkSettings(hub.GetParser().GetMarginClientSettings().at("C1"), c1, false, written), "");
}

TEST(HubMarginRestrictionsTest, TemplateSectionsWriteClientsFirstInLimitKindZero) {
  TStorageHub hub(kFirm, 2);
  const TClientMarginRestrictions* t1 = Cache(hub).GetTemplateSettings("T1");
  ASSERT_NE(t1, nullptr);
  TWrittenSections written;
  EXPECT_EQ(hub.GetRowFromAllLkSettings(hub.GetParser().GetMarginTemplateSettings().at("T1"), t1, true, written),
            "[clT1_Margin_Template]\nClients=C5,C6\nRstrTransfer=0\nSettleCodeToLimitKind_TQBR_Y2=1\n"
            "IncludeClientsWithLeverage=2\n"
            "[clT1_Margin_Template_LimitKind_1]\nInformClientsAboutShortPos=1\nMDPlusDefaultNettingType=2\n"
            "LossLimit=4\n");
}

TEST(HubMarginRestrictionsTest, WithoutAParsedObjectTheSectionsAreCopiedRaw) {
  TStorageHub hub(kFirm, 2);
  TWrittenSections written;
  EXPECT_EQ(hub.GetRowFromAllLkSettings(hub.GetParser().GetMarginClientSettings().at("C1"), nullptr, false, written),
            "[clC1_Margin]\nBaseDiscCoeff=1.5\nCalcNegDeal=0\nClassToLimitKind_TQBR=2\nGrossLimit=5\n"
            "usediscountstype=1\n"
            "[clC1_Margin_LimitKind_2]\nRstrNMBuy=-1\nSecurityToLimitKind_SBER=2\n");
}

TEST(HubMarginRestrictionsTest, AnEditOfTheParsedObjectReachesTheText) {
  TStorageHub hub(kFirm, 2);
  TClientMarginRestrictions* c1 = Query(hub, "C1");
  (*c1)[0].useDiscountsType.read = 2;
  (*c1)[0].classToLimitKind["SPBFUT"] = 4;
  (*c1)[0].negDealClasses = {"X", "Y"};  // the key is not in the section: not written
  TWrittenSections written;
  EXPECT_EQ(hub.GetRowFromAllLkSettings(hub.GetParser().GetMarginClientSettings().at("C1"), c1, false, written),
            "[clC1_Margin]\nBaseDiscCoeff=1.5\nCalcNegDeal=0\nClassToLimitKind_SPBFUT=4\nClassToLimitKind_TQBR=2\n"
            "UseDiscountsType=2\nGrossLimit=5\n"
            "[clC1_Margin_LimitKind_2]\nSecurityToLimitKind_SBER=2\nRstrNMBuy=-1\n");
  const std::string saved = ztest::SavedText(hub);
  EXPECT_NE(saved.find("[clC1_Margin]\r\nCalcNegDeal=0\r\nGrossLimit=5\r\nUseDiscountsType=2\r\n"),
            std::string::npos);
  EXPECT_EQ(saved.find("usediscountstype"), std::string::npos);
}

TEST(HubMarginRestrictionsTest, PrefixListsAreWrittenJoined) {
  TStorageHub hub(kFirm, 2);
  const TClientMarginRestrictions* ab = Query(hub, "ABX");
  TWrittenSections written;
  EXPECT_EQ(hub.GetRowFromAllLkSettings(hub.GetParser().GetMarginPrefixClientSettings().at("AB"), ab, false, written),
            "[clAB*_Margin]\nNegDealClasses=TQBR,SPBFUT\nUseCorrelation=-1\nMainMarginClasses=TQBR\n");
}

TEST(HubMarginRestrictionsTest, GlobalLimitKindSectionsAreWrittenFromTheGlobalObject) {
  TStorageHub hub(kFirm, 2);
  TSettingToStrSource src;
  src.section = "ClassToLimitKind";
  std::string out;
  hub.SettingToStrClassToLimitKindGlob(out, src);
  EXPECT_EQ(out, "[ClassToLimitKind]\nSPBFUT=1\nTQBR=2\n");
  out.clear();
  src.section = "SecurityToLimitKind";
  hub.SettingToStrSecurityToLimitKindGlob(out, src);
  EXPECT_EQ(out, "[SecurityToLimitKind]\nSBER=1\n");
  out.clear();
  src.section = "SettleCodeToLimitKind";
  hub.SettingToStrSettleCodeToLimitKindGlob(out, src);
  EXPECT_EQ(out, "[SettleCodeToLimitKind]\nTQBR_Y2=3\n");
  // An edit of the global object is what the next save writes.
  (*Cache(hub).GetGlobalSettings())[0].classToLimitKind.erase("SPBFUT");
  out.clear();
  src.section = "ClassToLimitKind";
  hub.SettingToStrClassToLimitKindGlob(out, src);
  EXPECT_EQ(out, "[ClassToLimitKind]\nTQBR=2\n");
}

TEST(HubMarginRestrictionsTest, AnEmptyGlobalMapWritesNothing) {
  TStorageHub hub("", 2);
  TSettingToStrSource src;
  src.section = "ClassToLimitKind";
  std::string out;
  hub.SettingToStrClassToLimitKindGlob(out, src);
  EXPECT_EQ(out, "");
}

TEST(HubMarginRestrictionsTest, AParameterRendererWithoutAParsedObjectWritesTheGlobalObjectsSetting) {
  TStorageHub hub(kFirm, 2);
  TSettingToStrSource src;
  std::string out;
  hub.SettingToStrUseDiscountsTypeToMarginTemplate(out, src);
  EXPECT_EQ(out, "");  // the global level has no margin-section value of its own
  (*Cache(hub).GetGlobalSettings())[0].classToLimitKind["CETS"] = 5;
  hub.SettingToStrClassToLimitKindToMarginTemplate(out, src);
  EXPECT_EQ(out, "ClassToLimitKind_CETS=5\nClassToLimitKind_SPBFUT=1\nClassToLimitKind_TQBR=2\n");
}

TEST(HubMarginRestrictionsTest, TheBoardTagParameterWritesTheTagsOfTheSection) {
  TStorageHub hub("[clC1_Margin]\nTQBR_TAG=EQTV\nSPBFUT_tag=FUT\n", 2);
  TSettingToStrSource src;
  src.marginRestrictions = Query(hub, "C1");
  std::string out;
  hub.SettingToStrBoardTagToMarginTemplate(out, src);
  EXPECT_EQ(out, "SPBFUT_TAG=FUT\nTQBR_TAG=EQTV\n");
}

// Every margin object of the firm after a save and a reload.
void ExpectSameMarginObjects(TStorageHub& a, TStorageHub& b) {
  for (const char* client : {"C1", "ABX", "C5", "C9", "ZZZ"}) {
    TClientMarginRestrictions* x = Query(a, client);
    TClientMarginRestrictions* y = Query(b, client);
    ASSERT_NE(x, nullptr);
    ASSERT_NE(y, nullptr);
    EXPECT_TRUE(*x == *y) << client;
  }
  EXPECT_TRUE(*Query(a, "Q", 2.0) == *Query(b, "Q", 2.0));
  EXPECT_TRUE(*Cache(a).GetGlobalSettings() == *Cache(b).GetGlobalSettings());
  ASSERT_NE(Cache(b).GetGlobal_General_Settings(), nullptr);
  EXPECT_TRUE(*Cache(a).GetGlobal_General_Settings() == *Cache(b).GetGlobal_General_Settings());
}

TEST(HubMarginRestrictionsTest, QueriedSavedAndReloadedGivesEqualObjects) {
  TStorageHub first(kFirm, 2);
  for (const char* client : {"C1", "ABX", "C5"}) ASSERT_NE(Query(first, client), nullptr);
  const std::string saved = ztest::SavedText(first);
  TStorageHub second(saved.c_str(), 2);
  ExpectSameMarginObjects(first, second);
  // The unparsed client section came back raw.
  EXPECT_NE(saved.find("[clC9_Margin]\r\nGrossLimit=1\r\n"), std::string::npos);
  // And the text is stable: a second save gives the same text.
  for (const char* client : {"C1", "ABX", "C5"}) ASSERT_NE(Query(second, client), nullptr);
  EXPECT_EQ(ztest::SavedText(second), saved);
}

TEST(HubMarginRestrictionsTest, ASaveWithNothingQueriedLoadsBackToEqualObjects) {
  TStorageHub first(kFirm, 2);
  const std::string saved = ztest::SavedText(first);
  TStorageHub second(saved.c_str(), 2);
  ExpectSameMarginObjects(first, second);
}

}  // namespace
