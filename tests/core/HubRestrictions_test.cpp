// The restrictions cache in the hub: built at load, rebuilt by InitLite, and
// the restriction templates and repo sections written back at save so that
// a reload reads the same restrictions.
#include <gtest/gtest.h>

#include <string>

#include "cache/TCacheOfRestrictions.h"
#include "core/SavedText.h"
#include "core/TStorageHub.h"

namespace {

using DL::TCacheOfRestrictions;
using DL::TRestrictions;
using DL::TStorageHub;

constexpr const char* kFirm =
    "[General]\nUsePGO=1\n"
    "[ProhibitedCPAndSettlementCurrency]\nCP_X_SettlementCurrency_USD_ClassList_TQBR,EQOB=S0,Y2\nCP_BAD=1\n"
    "[Soft_ProhibitedCPAndSettlementCurrency]\nCP_<ALL>_SettlementCurrency_EUR_ClassList_<ALL>=S0\n"
    "[RestrictMaxValueForSettlementCurrency]\nSettlementCurrency_USD_ClassList_TQBR_Side_B=1500.5\n"
    "[Soft_RestrictMaxValueForSettlementCurrency]\nSettlementCurrency_USD_ClassList_<ALL>_Side_=10\n"
    "[RestrictREPOWithCPBasedOnTerm]\nCP_X_SettlementCurrency_USD_FaceValueCurrency_RUB_ClassList_EQRP=30\n"
    "[Soft_RestrictREPOWithCPBasedOnTerm]\nCP_Y_SettlementCurrency_USD_FaceValueCurrency_USD_ClassList_EQRP=3\n"
    "[MaxOrderQuantity]\nTQBR_INSTR_SBER=100\n"
    "[SecurityRestricted]\nTQBR,S=GAZP\n"
    "[RestOrdVolumeByAvgTurnover]\nBasePeriod=5\nTQBR_INSTR_SBER=10,2,AVG\n"
    "[RestrictREPOByFirstPartSide]\nEQRP,B=SBER\n"
    "[MinOrderQuantity]\nTQBR=1\n<ALL>_INSTR_SBER=10\n"
    "[MaxPositionLimit]\nINSTR_SBER=10,5\nINSTR_GAZP=3\n"
    "[PriceLimitByTime]\nTQBR_INSTR_SBER_TIME_10:00-11:00=3,OPEN,0\nReferencePrice_TQBR=LAST\n"
    "[Soft_RestOrdVolumeByAvgTurnover]\nBasePeriod=3\nTQBR_INSTR_GAZP=7,1\n"
    "[ProhibitREPOByFirstPartSideAndTerm]\nEQRP,S,14=TQBR\n"
    "[Soft_ProhibitREPOByFirstPartSideAndTerm]\nEQRP=<ALL>\n"
    "[SecurityAllowed]\nTQBR=SBER,GAZP\n"
    "[Soft_SecurityAllowed]\nTQOB=<ALL>\n"
    "[Soft_SecurityRestricted]\nTQBR,B=MGNT\n"
    "[MaxSettleDateByAssetType]\nClassList_TQBR_AssetType_SHARE_Side_B=2\n"
    "[AccessToComplexInstruments]\nAccessToComplexInstruments=q1,Q2\n"
    "[clT1_Restriction_Template]\nClients=C1,C2\n"
    "MaxOrderQuantity_TQBR,SMAL_INSTR_SBER,GAZP=100\n"
    "MinOrderQuantity_<ALL>_INSTR_<ALL>=5\n"
    "MaxPositionLimit_INSTR_SBER=100,50\n"
    "MaxPositionLimit_INSTR_GAZP=70\n"
    "PriceLimitByTime_TQBR_INSTR_SBER_TIME_10:00-12:30=5.5,WAPRICE,1\n"
    "PriceLimitByTime_ReferencePrice_TQBR=CLOSE\n"
    "RestOrdVolumeByAvgTurnover_TQBR_INSTR_SBER=10,2.5,AVG\n"
    "Soft_RestOrdVolumeByAvgTurnover_TQBR_INSTR_GAZP=3\n"
    "ProhibitREPOByFirstPartSideAndTerm_EQRP=TQBR,TQOB\n"
    "ProhibitREPOByFirstPartSideAndTerm_PSRP,S,30=<ALL>\n"
    "Soft_ProhibitREPOByFirstPartSideAndTerm_EQRP,B,7=TQBR\n"
    "RestrictREPOByFirstPartSide_EQRP,S=SBER\n"
    "SecurityAllowed_TQBR=SBER,GAZP\n"
    "Soft_SecurityAllowed_TQOB=<ALL>\n"
    "SecurityRestricted_TQBR,B=LKOH\n"
    "Soft_SecurityRestricted_TQBR=MGNT\n"
    "ProhibitedCPAndSettlementCurrency_CP_X_SettlementCurrency_USD_ClassList_TQBR=S0\n"
    "Soft_ProhibitedCPAndSettlementCurrency_CP_Y_SettlementCurrency_USD_ClassList_TQBR=S0\n"
    "RestrictREPOWithCPBasedOnTerm_CP_X_SettlementCurrency_USD_FaceValueCurrency_RUB_ClassList_EQRP=30\n"
    "Soft_RestrictREPOWithCPBasedOnTerm_CP_X_SettlementCurrency_USD_FaceValueCurrency_RUB_ClassList_EQRP=3\n"
    "RestrictMaxValueForSettlementCurrency_SettlementCurrency_USD_ClassList_TQBR_Side_B=100\n"
    "Soft_RestrictMaxValueForSettlementCurrency_SettlementCurrency_USD_ClassList_TQBR_Side_S=10\n"
    "MaxSettleDateByAssetType_ClassList_TQBR_AssetType_BOND_Side_S=30\n"
    "QualifiedInvestors=1\n"
    "AccessToComplexInstruments=A,B\n"
    "AllowedISINPrefix=RU,US\n"
    "ThresMarginCoeff=50\n"
    "SecurityAllowed_TQBRTQBRTQBRX=SBER\n"
    "[clT2_Restriction_Template]\nClients=C3\nSecurityAllowed_TQBR=SBER\nSecurityAllowed_BAD_CLASS_TOO_LONG=X\n";

TEST(HubRestrictionsTest, TheCacheIsBuiltAtLoad) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("BuildRestrictionsCache"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ReloadRestrictionTemplates (TCacheOfRestrictions)"));
  TStorageHub hub(kFirm, 2);
  const TCacheOfRestrictions* cache = hub.GetRestrictionsCache();
  ASSERT_NE(cache, nullptr);
  EXPECT_TRUE(cache->GetGlobalSettings().prohibitedCP.CheckRestriction("X", "USD", "TQBR", "Y2"));
  EXPECT_TRUE(cache->IsTemplateExist("T1"));
  EXPECT_TRUE(cache->IsTemplateExist("T2"));
  EXPECT_EQ(cache->GetParsedTemplateSettings("T1"), nullptr);
}

TEST(HubRestrictionsTest, SaveAndReloadGiveEqualParsedObjects) {
  TStorageHub first(kFirm, 2);
  TCacheOfRestrictions* cache = first.GetRestrictionsCache();
  ASSERT_NE(cache, nullptr);
  const TRestrictions* t1 = cache->GetTemplateSettings("T1");
  ASSERT_NE(t1, nullptr);
  ASSERT_FALSE(t1->maxOrderQuantity.empty());
  ASSERT_NE(cache->GetTemplateSettings("T2"), nullptr);
  const std::string text = ztest::SavedText(first);
  TStorageHub second(text.c_str(), 2);
  TCacheOfRestrictions* again = second.GetRestrictionsCache();
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again->GetGlobalSettings(), cache->GetGlobalSettings()) << text;
  ASSERT_NE(again->GetTemplateSettings("T1"), nullptr);
  EXPECT_EQ(*again->GetTemplateSettings("T1"), *t1) << text;
  EXPECT_EQ(*again->GetTemplateSettings("T2"), *cache->GetTemplateSettings("T2")) << text;
  // A second round writes the same text.
  EXPECT_EQ(ztest::SavedText(second), text);
}

TEST(HubRestrictionsTest, AParsedTemplateIsWrittenFromItsObject) {
  TStorageHub hub(kFirm, 2);
  ASSERT_NE(hub.GetRestrictionsCache()->GetTemplateSettings("T1"), nullptr);
  const std::string text = ztest::SavedText(hub);
  // The malformed line is not read, so it is not written; the rest is, in
  // its canonical form; unparsed parameters are copied.
  EXPECT_EQ(text.find("SecurityAllowed_TQBRTQBRTQBRX"), std::string::npos) << text;
  EXPECT_NE(text.find("SecurityAllowed_TQBR=GAZP,SBER\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("MaxPositionLimit_INSTR_GAZP=70\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("MaxPositionLimit_INSTR_SBER=100,50\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("PriceLimitByTime_TQBR_INSTR_SBER_TIME_10:00-12:30=5.5,WAPRICE,1\r\n"), std::string::npos)
      << text;
  EXPECT_NE(text.find("ProhibitREPOByFirstPartSideAndTerm_PSRP,S,30=<ALL>\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("MaxSettleDateByAssetType_ClassList_TQBR_AssetType_BOND_Side_S=30\r\n"), std::string::npos)
      << text;
  EXPECT_NE(text.find("QualifiedInvestors=1\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("ThresMarginCoeff=50\r\n"), std::string::npos) << text;
}

TEST(HubRestrictionsTest, AnUnparsedTemplateIsCopiedAsItStands) {
  TStorageHub hub(kFirm, 2);
  const std::string text = ztest::SavedText(hub);
  EXPECT_NE(text.find("SecurityAllowed_BAD_CLASS_TOO_LONG=X\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("SecurityAllowed_TQBRTQBRTQBRX=SBER\r\n"), std::string::npos) << text;
}

TEST(HubRestrictionsTest, GlobalRepoSectionsAreWrittenFromTheGlobalObject) {
  TStorageHub hub(kFirm, 2);
  const std::string text = ztest::SavedText(hub);
  // The classes come back sorted; the line the object does not read stays
  // (the saved text orders the lines of a section by key).
  EXPECT_NE(text.find("[ProhibitedCPAndSettlementCurrency]\r\nCP_BAD=1\r\n"
                      "CP_X_SettlementCurrency_USD_ClassList_EQOB,TQBR=S0,Y2\r\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("[Soft_RestrictMaxValueForSettlementCurrency]\r\n"
                      "SettlementCurrency_USD_ClassList_<ALL>_Side_=10\r\n"),
            std::string::npos)
      << text;
  // Not read into the global object: copied.
  EXPECT_NE(text.find("[RestrictREPOByFirstPartSide]\r\nEQRP,B=SBER\r\n"), std::string::npos) << text;
}

TEST(HubRestrictionsTest, EveryGlobalSectionIsReadAtLoad) {
  TStorageHub hub(kFirm, 2);
  const TRestrictions& g = hub.GetRestrictionsCache()->GetGlobalSettings();
  EXPECT_EQ(g.minOrderQuantity.size(), 1u);  // "TQBR=1" names no securities: not read
  EXPECT_EQ(g.maxPositionLimit.size(), 2u);
  EXPECT_EQ(g.priceLimitByTime.limits.size(), 1u);
  EXPECT_EQ(g.softBasePeriod, 3);
  EXPECT_EQ(g.prohibitRepoByFirstPartSideAndTerm.size(), 1u);
  EXPECT_EQ(g.softProhibitRepoByFirstPartSideAndTerm.size(), 1u);
  EXPECT_EQ(g.securityAllowed.size(), 1u);
  EXPECT_TRUE(g.softSecurityAllowed.at("TQOB").all);
  EXPECT_EQ(g.maxSettleDate.GetConstRestriction().size(), 1u);
  EXPECT_EQ(g.accessToComplexInstruments, (std::set<std::string>{"Q1", "Q2"}));
}

TEST(HubRestrictionsTest, ALineTheGlobalObjectDoesNotReadIsKept) {
  TStorageHub hub(kFirm, 2);
  const std::string text = ztest::SavedText(hub);
  EXPECT_NE(text.find("[MinOrderQuantity]\r\n<ALL>_INSTR_SBER=10\r\nTQBR=1\r\n"), std::string::npos) << text;
}

TEST(HubRestrictionsTest, InitLiteRebuildsTheCache) {
  TStorageHub hub(kFirm, 2);
  ASSERT_NE(hub.GetRestrictionsCache()->GetTemplateSettings("T1"), nullptr);
  ASSERT_EQ(hub.InitLite("[clT9_Restriction_Template]\nClients=C1\nSecurityAllowed_EQOB=LKOH\n"), 0);
  TCacheOfRestrictions* cache = hub.GetRestrictionsCache();
  ASSERT_NE(cache, nullptr);
  EXPECT_FALSE(cache->IsTemplateExist("T1"));
  EXPECT_TRUE(cache->IsTemplateExist("T9"));
  const TRestrictions* r = cache->GetSettings(DL::TIniCacheItemID("C1", -1.0));
  ASSERT_NE(r, nullptr);
  EXPECT_EQ(r->securityAllowed.at("EQOB").codes, std::set<std::string>{"LKOH"});
}

}  // namespace
