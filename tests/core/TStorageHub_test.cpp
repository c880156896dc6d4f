// The load of a firm: the dispatch tables and their self-check, the order of
// the load, the global sections parsed by the hub, and the save.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "core/TFirmManager.h"
#include "core/TInfoStorage.h"
#include "core/SavedText.h"
#include "core/TGlobalParameterEditor.h"
#include "core/TStorageHub.h"
#include "base/ResultCodes.h"
#include "ini/TIniParser.h"
#include "support/Errors.h"

namespace {

using DL::TDispatchTables;
using DL::TIniParser;
using DL::TStorageHub;

std::string Save(TStorageHub& hub) { return ztest::SavedText(hub); }

// The catalogue is filled by the first parser of the process.
void FillCatalogue() { TIniParser parser("", 2, ';', 1); }

std::vector<std::string> Check(const TDispatchTables& tables) {
  FillCatalogue();
  CErrors errors;
  TStorageHub::CheckDispatchTables(tables, errors);
  return errors.Errors();
}

// Restores the program's tables when a test that swapped them ends.
struct TablesGuard {
  ~TablesGuard() { TStorageHub::UseDispatchTables(nullptr); }
};

// ---- Dispatch tables ----

TEST(HubDispatchTablesTest, TheProgramTablesPassTheCheck) {
  EXPECT_TRUE(Check(TDispatchTables::Build()).empty());
}

TEST(HubDispatchTablesTest, RenderingMapsAreKeyedBySectionCodeOrParamCodePlus109) {
  const TDispatchTables t = TDispatchTables::Build();
  EXPECT_EQ(t.global.count(DL::iscGeneral), 1u);
  EXPECT_EQ(t.global.at(DL::iscGeneral), &DL::RenderWith<&TStorageHub::SettingToStrGlobalGeneral>);
  EXPECT_EQ(t.global.at(DL::iscSoft_RestrictREPOWithCPBasedOnTerm),
            &DL::RenderWith<&DL::TRestrictionSettings::SettingToStrSectionRestrictREPOWithCPBasedOnTerm>);
  EXPECT_EQ(TDispatchTables::ParamKey(TIniParser::ipcUseDiscountsType), 184 + 109);
  EXPECT_EQ(t.marginTemplate.count(184 + 109), 1u);
  EXPECT_EQ(t.marginTemplate.count(DL::iscBoardTag), 1u);
  EXPECT_EQ(t.marginTemplate.count(TDispatchTables::ParamKey(TIniParser::ipcBoardTag)), 1u);
  EXPECT_EQ(t.clientTemplate.size(), 19u);
  EXPECT_EQ(t.globalParse.size(), 34u);
  EXPECT_EQ(t.globalParse.at("GENERAL"), &TStorageHub::ParseGlobalGeneral);
  EXPECT_EQ(t.globalParse.at("THRESMARGINCOEFF"), &TStorageHub::ParseTresholdMarginCoeffs);
}

TEST(HubDispatchTablesTest, MissingGlobalSectionIsReportedWithItsName) {
  TDispatchTables t = TDispatchTables::Build();
  t.global.erase(DL::iscGeneral);
  EXPECT_EQ(Check(t), std::vector<std::string>{"Not mapped settingToStr-function for Global-section General\".\n"});
}

TEST(HubDispatchTablesTest, ChangeFutClientCodesNeedsNoGlobalRenderingRow) {
  TDispatchTables t = TDispatchTables::Build();
  ASSERT_EQ(t.global.count(DL::iscChangeFutClientCodes), 0u);
  EXPECT_TRUE(Check(t).empty());
}

TEST(HubDispatchTablesTest, MissingClientTemplateSectionIsReportedOnce) {
  TDispatchTables t = TDispatchTables::Build();
  t.clientTemplate.erase(DL::iscCommissionWriteOffCurrency);  // named by four rows
  EXPECT_EQ(Check(t), std::vector<std::string>{
                          "Not mapped settingToStr-function for ClientTemplate-section CommissionWriteOffCurrency\".\n"});
}

TEST(HubDispatchTablesTest, MissingMarginTemplateParamAndSection) {
  TDispatchTables t = TDispatchTables::Build();
  t.marginTemplate.erase(TDispatchTables::ParamKey(TIniParser::ipcUseDiscountsType));
  t.marginTemplate.erase(DL::iscSecurityDiscounts);
  EXPECT_EQ(Check(t), (std::vector<std::string>{
                          "Not mapped settingToStr-function for MarginTemplate-section SecurityDiscounts\".\n",
                          "Not mapped settingToStr-function for MarginTemplate-param UseDiscountsType\".\n"}));
}

TEST(HubDispatchTablesTest, MissingRestrictionTemplateSection) {
  TDispatchTables t = TDispatchTables::Build();
  t.restrictionTemplate.erase(DL::iscSoft_SecurityAllowed);
  EXPECT_EQ(Check(t), std::vector<std::string>{
                          "Not mapped settingToStr-function for RestrictionTemplate-section Soft_SecurityAllowed\".\n"});
}

TEST(HubDispatchTablesTest, MissingGlobalParseFunction) {
  TDispatchTables t = TDispatchTables::Build();
  t.globalParse.erase("PROHIBITORDERS");
  EXPECT_EQ(Check(t), std::vector<std::string>{"Not mapped global parsing function for section ProhibitOrders\".\n"});
}

TEST(HubDispatchTablesTest, ALoadWithAHoleThrowsCErrorsWithTheCollectedTexts) {
  TablesGuard guard;
  TDispatchTables t = TDispatchTables::Build();
  t.global.erase(DL::iscProhibitOrders);
  t.clientTemplate.erase(DL::iscPriceLimit);
  TStorageHub::UseDispatchTables(&t);
  try {
    TStorageHub hub("[General]\nUSEPGO=1\n", 2);
    FAIL() << "the load went through";
  } catch (const CErrors& e) {
    EXPECT_EQ(e.Message(),
              "Not mapped settingToStr-function for ClientTemplate-section PriceLimit\".\n\n"
              "Not mapped settingToStr-function for Global-section ProhibitOrders\".\n\n");
  }
}

TEST(HubDispatchTablesTest, AFailedLoadThroughTheFirmManagerKeepsTheFirmLoadedEarlier) {
  TablesGuard guard;
  DL::TFirmManager manager;
  DL::TInfoStorage* first = manager.AddInfoStorage("FIRM1", "[General]\nUSEPGO=1\n", 2);
  ASSERT_NE(first, nullptr);
  TDispatchTables t = TDispatchTables::Build();
  t.globalParse.erase("GENERAL");
  TStorageHub::UseDispatchTables(&t);
  EXPECT_THROW(manager.AddInfoStorage("FIRM1", "[General]\nUSEPGO=0\n", 2), CErrors);
  TStorageHub::UseDispatchTables(nullptr);
  EXPECT_EQ(manager.GetInfoStorage("FIRM1"), first);
  EXPECT_EQ(manager.FirmCount(), 1u);
  bool usePGO = false;
  EXPECT_EQ(first->GetUsePGOFromGlobal(&usePGO), ZDL_OK);
  EXPECT_TRUE(usePGO);
}

// ---- The load ----

TEST(HubLoadTest, AnEmptyTextGivesTheDefaultCurrencyIdentityAndTheRepoTerms) {
  TStorageHub hub("", 2);
  EXPECT_EQ(hub.General().GetMainCurrency(), "SUR");
  EXPECT_EQ(hub.General().GetRublesEquivalents(), (std::set<std::string>{"RUB", "RUR", "SUR"}));
  int days = 0;
  EXPECT_TRUE(hub.General().GetRepoTermByBoard("GCOY", days));
  EXPECT_EQ(days, 365);
}

TEST(HubLoadTest, PreTradeSectionReachesItsParserWithItsNumber) {
  TStorageHub hub("[PreTrade_12]\nFloodControl=5,7\n[PreTrade_]\nFloodControl=1\n", 2);
  const auto& preTrade = hub.GetPreTradeSettings();
  ASSERT_EQ(preTrade.size(), 2u);
  EXPECT_EQ(preTrade.at(12).number, 12);
  EXPECT_EQ(preTrade.at(12).floodControl.count, 5);
  EXPECT_EQ(preTrade.at(12).floodControl.interval, 7);
  EXPECT_EQ(preTrade.at(0).number, 0);
  EXPECT_EQ(preTrade.at(0).floodControl.count, 1);
  EXPECT_EQ(preTrade.at(0).floodControl.interval, 1);
}

TEST(HubLoadTest, PreTradeSectionNameIgnoresCase) {
  TStorageHub hub("[pretrade_3]\nFloodControl=2\n", 2);
  ASSERT_EQ(hub.GetPreTradeSettings().count(3), 1u);
}

TEST(HubLoadTest, ProhibitOrdersDropsClientCodesLongerThan12) {
  TStorageHub hub(
      "[ProhibitOrders]\nClients=C1,ABCDEFGHIJKL,ABCDEFGHIJKLM,,C2\nIgnoreClasses=TQBR,SPBFUT\nManagerCanClosePos=1\n", 2);
  const DL::TProhibitOrders& p = hub.GetProhibitOrders();
  EXPECT_EQ(p.clients, (std::set<std::string>{"ABCDEFGHIJKL", "C1", "C2"}));
  EXPECT_EQ(p.ignoreClasses.Items(), (std::vector<std::string>{"TQBR", "SPBFUT"}));
  EXPECT_TRUE(p.managerCanClosePos);
}

TEST(HubLoadTest, ProhibitOrdersAbsentLeavesTheStoreEmpty) {
  TStorageHub hub("", 2);
  EXPECT_TRUE(hub.GetProhibitOrders().clients.empty());
  EXPECT_FALSE(hub.GetProhibitOrders().managerCanClosePos);
}

TEST(HubLoadTest, GlobalProhibedTrdAccIsTheParameterNamedAsTheSection) {
  TStorageHub hub("[GlobalProhibedTrdAcc]\nGlobalProhibedTrdAcc=L01, L02\nOther=X\n", 2);
  EXPECT_EQ(hub.GetGlobalProhibedTrdAcc().Items(), (std::vector<std::string>{"L01", "L02"}));
}

TEST(HubLoadTest, OrderMaxValueKeysAreReadAsAmountAndCurrency) {
  TStorageHub hub("[OrderMaxValue]\nC1=1000\nC2=5.5,USD\nC3=1,2,3\n", 2);
  const auto& values = hub.GetOrderMaxValues();
  ASSERT_EQ(values.size(), 3u);
  EXPECT_DOUBLE_EQ(values.at("C1").amount, 100000.0);
  EXPECT_EQ(values.at("C1").currency, "");
  EXPECT_DOUBLE_EQ(values.at("C2").amount, 550.0);
  EXPECT_EQ(values.at("C2").currency, "USD");
  EXPECT_DOUBLE_EQ(values.at("C3").amount, -100.0);
}

TEST(HubLoadTest, CodeToListSections) {
  TStorageHub hub(
      "[AddMultiCurrency]\nC1=USD,EUR\n[CommissionCurrency]\nTQBR=SUR\n[AddZadolgBoards]\nL01=TQBR,TQBR,EQOB\n"
      "[SecLotBoard]\nTQBR=SBER\n[SecurityAllowedTrdAcc]\nTQBR=GAZP,LKOH\n[SecurityProhibitedTrdAcc]\nTQOB=SU26\n",
      2);
  EXPECT_EQ(hub.GetAddMultiCurrency().at("C1").Items(), (std::vector<std::string>{"USD", "EUR"}));
  EXPECT_EQ(hub.GetCommissionCurrency().at("tqbr").Items(), (std::vector<std::string>{"SUR"}));
  EXPECT_EQ(hub.GetAddZadolgBoards().at("L01").Items(), (std::vector<std::string>{"TQBR", "EQOB"}));
  EXPECT_EQ(hub.GetSecLotBoard().at("TQBR").Items(), (std::vector<std::string>{"SBER"}));
  EXPECT_EQ(hub.GetSecurityAllowedTrdAcc().at("TQBR").Items(), (std::vector<std::string>{"GAZP", "LKOH"}));
  EXPECT_EQ(hub.GetSecurityProhibitedTrdAcc().at("TQOB").Items(), (std::vector<std::string>{"SU26"}));
}

TEST(HubLoadTest, GlobalGeneralFlagsAndOrderMaxValue) {
  TStorageHub hub("[General]\nCheckForAllLimitKinds=1\nCheckUser=1\nOrderMaxValue=20,EUR\n", 2);
  EXPECT_TRUE(hub.GetCheckForAllLimitKinds());
  EXPECT_TRUE(hub.GetCheckUser());
  EXPECT_FALSE(hub.GetExtendedSubClient());
  EXPECT_FALSE(hub.GetSubBrokerGenerateClient());
  EXPECT_DOUBLE_EQ(hub.GetGeneralOrderMaxValue().amount, 2000.0);
  EXPECT_EQ(hub.GetGeneralOrderMaxValue().currency, "EUR");
}

TEST(HubLoadTest, TypedParametersAreReadAtLoad) {
  TStorageHub hub("[General]\nUseDiscountsType=1\n", 2);
  int value = 0;
  ASSERT_EQ(hub.GetUniversalParser().GetIntParamFromGlobalSection(value, DL::iscGeneral, 4), ZDL_OK);
  EXPECT_EQ(value, 1);
}

TEST(HubLoadTest, ClientTemplateNamesAreCollected) {
  TStorageHub hub("[clRETAIL_Client_Template]\nClients=C1,C2\n", 2);
  ASSERT_EQ(hub.GetClientTemplateNames().size(), 2u);
  EXPECT_EQ(hub.GetClientTemplateNames()[0].clientCode, "C1");
}

TEST(HubLoadTest, UserSectionsGiveUserSettingsByNumber) {
  TStorageHub hub(
      "[u12]\nCOMMISSION=0.5\nOblCommission=0.25\nTradeCommission=1\nTradeOblCommission=2\n"
      "IgnoreNegDealCheck=1\nOrderMaxValue=10,USD\nAllowedTrdAcc=L01,L02\nProhibedTrdAcc=L03\n"
      "ClassesWithoutOrderCheck=TQBR\n[U-1]\nCOMMISSION=3\n[u]\nCOMMISSION=4\n[u1x]\nCOMMISSION=5\n[user]\nA=1\n",
      2);
  const auto& users = hub.UserSettings().ByUser();
  ASSERT_EQ(users.size(), 2u);
  const DL::TUserIdSettings& u = users.at(12);
  EXPECT_EQ(u.userId, 12);
  EXPECT_DOUBLE_EQ(u.commission, 0.5);
  EXPECT_DOUBLE_EQ(u.oblCommission, 0.25);
  EXPECT_DOUBLE_EQ(u.tradeCommission, 1.0);
  EXPECT_DOUBLE_EQ(u.tradeOblCommission, 2.0);
  EXPECT_TRUE(u.ignoreNegDealCheck);
  EXPECT_DOUBLE_EQ(u.orderMaxValue.amount, 1000.0);
  EXPECT_EQ(u.orderMaxValue.currency, "USD");
  EXPECT_EQ(u.allowedTrdAcc.Items(), (std::vector<std::string>{"L01", "L02"}));
  EXPECT_EQ(u.prohibedTrdAcc.Items(), std::vector<std::string>{"L03"});
  EXPECT_EQ(u.classesWithoutOrderCheck.Items(), std::vector<std::string>{"TQBR"});
  EXPECT_DOUBLE_EQ(users.at(-1).commission, 3.0);
  EXPECT_FALSE(users.at(-1).ignoreNegDealCheck);
}

TEST(HubLoadTest, StepsWithoutAParsedHomeAreListed) {
  EXPECT_TRUE(TStorageHub::PendingLoadSteps().empty());
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseVolumeBasedCommission"));
  TStorageHub hub("[VolumeBasedCommission_1]\nClasses=TQBR\n0=FIXED,0.1,0\n", 2);
  ASSERT_EQ(hub.VolumeCommission().Global().size(), 1u);
  EXPECT_TRUE(hub.VolumeCommission().Global()[0].commission.IsClassInList("TQBR"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseProhibitOrders"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseClientCval"));  // read by a later step on purpose
}

// Steps whose parsed home is a later stage of the library. Each becomes a
// real test of its behaviour when its store exists; until then it fails.
TEST(HubPendingStepsTest, ClientSettingsCachesAreBuiltAtLoad) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("BuildClientSettingsCaches"));
  TStorageHub hub("[Commission]\nBroker=0.3\n[CommissionScale]\n100=0.1\n[bdTQBR_CommissionScale]\n100=0.2\n", 2);
  EXPECT_DOUBLE_EQ(hub.GetClientSettingsCache().GlobalSettings()->FixedRate, 0.3);
  EXPECT_EQ(hub.GetCommScalesCache().GlobalSettings()->rates.size(), 1u);
  EXPECT_EQ(hub.GetCommScalesCache().BoardScaleCount(), 1u);
  EXPECT_EQ(hub.GetCommScalesBoardsCache().GetIniSetting("", "TQBR").boards, std::vector<std::string>{"TQBR"});
}
TEST(HubPendingStepsTest, SettingCachesAreBuiltAtLoad) {
  for (const char* step : {"BuildClientSettingsCaches", "BuildClientMarginRestrictionsCache",
                           "BuildSecurityRestrictionsCache", "BuildRestrictionsCache"})
    EXPECT_FALSE(TStorageHub::IsPendingLoadStep(step)) << step;
  TStorageHub hub("", 2);
  EXPECT_NE(hub.GetClientMarginRestrictionsCache(), nullptr);
  EXPECT_NE(hub.GetSecurityRestrictionsCache(), nullptr);
  EXPECT_NE(hub.GetRestrictionsCache(), nullptr);
}
TEST(HubPendingStepsTest, SecurityRestrictionsCacheIsBuiltAtLoad) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("BuildSecurityRestrictionsCache"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseSectionRestrictSecurity"));
  TStorageHub hub("[RestrictSecurity]\nTQBR=GAZP\n[clC1]\nTQBR_RESTRICTOPEN=SBER\n", 2);
  const DL::TCacheOfSecurityRestrictions* cache = hub.GetSecurityRestrictionsCache();
  ASSERT_NE(cache, nullptr);
  EXPECT_EQ(cache->GetGlobalSettings()->restSecurity.at("TQBR").Items(), std::vector<std::string>{"GAZP"});
  EXPECT_EQ(cache->GetIniSetting(DL::TIniCacheItemID("C1", -1.0))->restrictOpen.at("TQBR").Items(),
            std::vector<std::string>{"SBER"});
}
TEST(HubPendingStepsTest, CurrencyReplacementIsParsed) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseCurrencyReplacement"));
  TStorageHub hub("[Currency]\nSUR=RUB,RUR\n", 2);
  EXPECT_EQ(hub.GetReplacingCurrency("RUR"), "SUR");
}
TEST(HubPendingStepsTest, PortfolioRiskConfigsAreParsed) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParsePortfolioRiskConfigs"));
  TStorageHub hub("[PortfolioRiskConfig]\nKGO=2\n[PortfolioRiskConfig_SI]\nVOLATILITY=40\n", 2);
  ASSERT_TRUE(hub.PortfolioRisk().HasConfigs());
  EXPECT_DOUBLE_EQ(hub.PortfolioRisk().DefaultConfig().risk.kgo, 2.0);
  ASSERT_EQ(hub.PortfolioRisk().BaseAssetConfigs().size(), 1u);
  EXPECT_EQ(hub.PortfolioRisk().BaseAssetConfigs()[0].baseAsset, "SI");
  EXPECT_DOUBLE_EQ(hub.PortfolioRisk().BaseAssetConfigs()[0].risk.volatility, 40.0);
}
TEST(HubPendingStepsTest, OldFormSectionListsAreParsed) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseOldFormSectionLists"));
  TStorageHub hub("[LimitAllowedSecurity]\nSECURITY_TQBR=SBER\n", 2);
  EXPECT_TRUE(hub.GetLimitAllowedSecurity().Contains("TQBR", "SBER"));
}
TEST(HubPendingStepsTest, BaseAssetsAreFilled) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("FillBaseAssets"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseDerivativesBaseAssets"));
  TStorageHub hub("[BaseAssets]\nSI=USD000UTSTOM,1000\n", 2);
  ASSERT_EQ(hub.PortfolioRisk().BaseAssetsSections().size(), 1u);
  const DL::TBaseAssetsSection& section = hub.PortfolioRisk().BaseAssetsSections().begin()->second;
  ASSERT_EQ(section.assets.size(), 1u);
  EXPECT_EQ(section.assets[0].first, "SI");
  EXPECT_EQ(section.assets[0].second.spots.at(0).first, "USD000UTSTOM");
  EXPECT_DOUBLE_EQ(section.assets[0].second.spots.at(0).second, 1000.0);
}
TEST(HubPendingStepsTest, BoardTariffsAreFilled) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("FillBoardTariffs"));
  TStorageHub hub("[BOARDCOMMISSION]\nTQBR=0.005\n", 2);
  const DL::ABoardTariff* tqbr = hub.GetBoardTariff("TQBR");
  ASSERT_NE(tqbr, nullptr);
  EXPECT_NE(tqbr, hub.GetBoardTariff("DEFAULT"));
  EXPECT_DOUBLE_EQ(tqbr->INIRates.TS, 0.005);
  // 1e6 * 0.005 / 100 = 50.
  EXPECT_DOUBLE_EQ(tqbr->CalcCommValue(1e6, 0.0, 0, 0).TS, 50.0);
  EXPECT_EQ(hub.GetBoardTariff("XXXX"), hub.GetBoardTariff("DEFAULT"));
}
TEST(HubPendingStepsTest, UserSecuritiesAndFloodControlAreParsed) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseUserIdSecuritiesAndFloodControl"));
  TStorageHub hub("[u3]\nTQBR_SECURITY=SBER\nFloodControlByInstrument_SBER=5\n", 2);
  const DL::TUserIdSettings& user = hub.UserSettings().ByUser().at(3);
  EXPECT_TRUE(user.securities.at("TQBR").Contains("SBER"));
  EXPECT_EQ(user.floodControlByInstrument.at("SBER"), "5");
}
TEST(HubPendingStepsTest, TagSectionsAreParsed) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseTagSections"));
  TStorageHub hub("[BoardTag]\nEQTV=TQBR\n", 2);
  EXPECT_TRUE(hub.GetBoardTag().Contains("EQTV", "TQBR"));
}
TEST(HubPendingStepsTest, TariffPlansAreParsed) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseTariffPlans"));
  TStorageHub hub("[CommissionScaleBoards]\nP1=G1\nDefaultTP=P1\n[CommissionScaleBoards_P1]\nG1=TQBR\n"
                  "[tpP1_bdG1_CommissionScale]\n100=0.1\n", 2);
  EXPECT_EQ(hub.GetTariffPlans().GetAllPlanesNames(), std::vector<std::string>{"P1"});
  EXPECT_EQ(hub.GetTariffPlans().GetDefaultPlan(), "P1");
  EXPECT_EQ(hub.GetTariffPlans().GetPlan("P1")->classCodes, std::set<std::string>{"TQBR"});
  EXPECT_NE(hub.GetTariffPlansWithCommRates().GetScale("P1", "G1"), nullptr);
}
TEST(HubPendingStepsTest, LateSectionsAreParsed) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseLateSectionsBeforeClientCVal"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseLateSectionsAfterClientCVal"));
  EXPECT_TRUE(TStorageHub::PendingLoadSteps().empty());
  TStorageHub hub("[ChangeClientCodes]\nC1=C2\n[MOEXCommissionExportClasses]\nClasses=TQBR\n"
                  "[clT1_Client_Template_VolumeBasedCommission_1]\nClasses=TQBR\n100_B=TRADE_MAX,0.5,10\n"
                  "[clC1_VolumeBasedCommission_1]\nClasses=<ALL>\n0=FIXED,1,0\n",
                  2);
  EXPECT_EQ(hub.GetChangeClientCodes().values.at("C1"), "C2");
  ASSERT_EQ(hub.VolumeCommission().Templates().count("T1"), 1u);
  EXPECT_EQ(hub.VolumeCommission().Templates().at("T1")[0].commission.GetEffectiveTypeAndRate(100.0, DL::sdBuy),
            DL::TypeAndRate(DL::ctTradeMax, 0.5, 10.0));
  ASSERT_EQ(hub.VolumeCommission().Clients().count("C1"), 1u);
  EXPECT_TRUE(hub.VolumeCommission().Clients().at("C1")[0].commission.IsClassInList("EQOB"));
  EXPECT_EQ(hub.GetMOEXCommissionExportClasses().Items(), std::vector<std::string>{"TQBR"});
}
TEST(HubPendingStepsTest, InitLiteReplacesTheComplexInstrumentStores) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseComplexFIApprovedClients_Lite"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseComplexInstruments_Lite"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseComplexFIApprovedClientsList"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseComplexInstruments"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseGroupsOfInstrumentsAndClasses"));
  TStorageHub hub("[ComplexFIApprovedClients]\nClients=C1\n[ComplexInstruments]\nG1=_ClassList_TQBR\n", 2);
  ASSERT_EQ(hub.InitLite("[ComplexFIApprovedClients]\nClients=C2\n[ComplexInstruments]\nG2=_Instruments_SBER\n"),
            ZDL_OK);
  EXPECT_EQ(hub.GetComplexFIApprovedClients(), std::set<std::string>{"C2"});
  ASSERT_EQ(hub.GetComplexInstruments().size(), 1u);
  EXPECT_EQ(hub.GetComplexInstruments().begin()->first, "G2");
  EXPECT_EQ(hub.GetComplexInstruments().begin()->second.instrumentCodes, std::set<std::string>{"SBER"});
}
TEST(HubPendingStepsTest, RestrictionsCacheIsRebuiltByInitLite) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ReloadRestrictionTemplates (TCacheOfRestrictions)"));
  TStorageHub hub("[clA_Restriction_Template]\nClients=C1\n", 2);
  ASSERT_TRUE(hub.GetRestrictionsCache()->IsTemplateExist("A"));
  ASSERT_EQ(hub.InitLite("[clB_Restriction_Template]\nClients=C1\n"), 0);
  EXPECT_FALSE(hub.GetRestrictionsCache()->IsTemplateExist("A"));
  EXPECT_TRUE(hub.GetRestrictionsCache()->IsTemplateExist("B"));
}
TEST(HubPendingStepsTest, ChangeFutClientCodesAreParsed) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseChangeFutClientCodes"));
  TStorageHub hub("[ChangeFutClientCodes_F1]\nC1=T1\n", 2);
  ASSERT_NE(hub.FindChangeFutClientCodes("F1"), nullptr);
  EXPECT_EQ(hub.FindChangeFutClientCodes("F1")->trdAccByClient.at("C1"), "T1");
}
TEST(HubPendingStepsTest, SubBrokersAreParsed) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseSectionSubBrokers"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseSectionSubBrokerGlobals"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseSectionSubBrokerNoGlobals"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseSectionSubBrokerYesGlobals"));
  TStorageHub hub("[SubBrokers]\nSB1=C1\n[SubBrokerNoGlobals]\nSB1=CalcNegDeal\n", 2);
  EXPECT_EQ(hub.GetSubBrokers().at("SB1").clients.Items(), std::vector<std::string>{"C1"});
  EXPECT_EQ(hub.GetSubBrokers().at("SB1").noGlobals.Items(), std::vector<std::string>{"CalcNegDeal"});
}
TEST(HubPendingStepsTest, EveryLoadStepAndGlobalParserHasAParsedHome) {
  for (const std::string& step : TStorageHub::PendingLoadSteps()) ADD_FAILURE() << step;
}

// ---- InitLite ----

TEST(HubInitLiteTest, ANullTextReturns3) {
  TStorageHub hub("", 2);
  EXPECT_EQ(hub.InitLite(nullptr), ZDL_BAD_ARGUMENT);
}

TEST(HubInitLiteTest, ReplacesTheComplexInstrumentSettingsAndTheClientValues) {
  TStorageHub hub(
      "[General]\nComplexInstrumentsAccessControl=1\nComplexInstrumentsTypesWithoutRestrictions=a,b\n"
      "[ClientCval]\nC1=1\n",
      2);
  EXPECT_TRUE(hub.GetComplexInstrumentsAccessControl());
  EXPECT_EQ(hub.GetComplexInstrumentsTypesWithoutRestrictions(), (std::set<std::string>{"A", "B"}));
  EXPECT_EQ(hub.GetClientCvalClients(), std::set<std::string>{"C1"});
  ASSERT_EQ(hub.InitLite("[General]\nClientCval=0\nComplexInstrumentsTypesWithoutRestrictions=x\n[ClientCval]\nC2=1\n"),
            ZDL_OK);
  EXPECT_FALSE(hub.GetComplexInstrumentsAccessControl());
  EXPECT_EQ(hub.GetComplexInstrumentsTypesWithoutRestrictions(), std::set<std::string>{"X"});
  EXPECT_EQ(hub.GetClientCvalSign(), 0);
  EXPECT_EQ(hub.GetClientCvalClients(), std::set<std::string>{"C2"});
}

TEST(HubInitLiteTest, TakesTheRestrictionTemplatesAndLeavesOtherSectionsInForce) {
  TStorageHub hub("[clOLD_Restriction_Template]\nClients=C1\n[General]\nUSEPGO=1\n", 2);
  ASSERT_EQ(hub.InitLite("[clNEW_Restriction_Template]\nClients=C2\n"), ZDL_OK);
  EXPECT_EQ(hub.GetParser().GetRestrictionTemplateSettings().count("NEW"), 1u);
  EXPECT_EQ(hub.GetParser().GetRestrictionTemplateSettings().count("OLD"), 0u);
  bool usePGO = false;
  EXPECT_EQ(DL::TGlobalParameterEditor(hub).GetUsePGOFromGlobal(&usePGO), ZDL_OK);
  EXPECT_TRUE(usePGO);
}

// ---- The save ----

TEST(HubSaveTest, TypedParameterAtItsDefaultIsNotWritten) {
  TStorageHub hub("[General]\nRstrDerivatives=1\nUSEPGO=1\n", 2);
  EXPECT_EQ(Save(hub), "[General]\r\nUSEPGO=1\r\n\r\n");
}

TEST(HubSaveTest, ThresMarginCoeffAt100IsNotWrittenAndOtherValuesAre) {
  TStorageHub at100("[General]\nThresMarginCoeff=100\nUSEPGO=1\n", 2);
  EXPECT_EQ(Save(at100), "[General]\r\nUSEPGO=1\r\n\r\n");
  TStorageHub at50("[General]\nThresMarginCoeff=50\n", 2);
  EXPECT_EQ(Save(at50), "[General]\r\nThresMarginCoeff=50\r\n\r\n");
}

TEST(HubSaveTest, AnEditedTypedValueStandsInTheTextAndTheRawValueDoesNotReturn) {
  TStorageHub hub("[General]\nRstrDerivatives=0\n", 2);
  ASSERT_EQ(hub.GetUniversalParser().SetIntParamToGlobalSection(1, DL::iscGeneral, 6), ZDL_OK);
  EXPECT_EQ(Save(hub), "");
  ASSERT_EQ(hub.GetUniversalParser().SetIntParamToGlobalSection(2, DL::iscGeneral, 6), ZDL_OK);
  EXPECT_EQ(Save(hub), "[General]\r\nRstrDerivatives=2\r\n\r\n");
}

TEST(HubSaveTest, GeneralFlagOnIsWrittenWithOne) {
  TStorageHub hub("[General]\nCalcNegDeal=7\nAcceptClosePeriodOrders=0\n", 2);
  const std::string saved = Save(hub);
  EXPECT_NE(saved.find("CalcNegDeal=1\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("AcceptClosePeriodOrders=0\r\n"), std::string::npos) << saved;
}

TEST(HubSaveTest, FlagsOfTheHubsOwnGeneralParseAreWrittenOnceFromTheirFields) {
  TStorageHub hub("[General]\nCheckUser=5\nExtendedSubClient=0\nSubBrokerGenerateClient=1\n", 2);
  EXPECT_EQ(Save(hub), "[General]\r\nCheckUser=1\r\nSubBrokerGenerateClient=1\r\n\r\n");
}

TEST(HubSaveTest, ProhibitOrdersIsWrittenFromItsParsedFieldsAndKeepsUnknownKeys) {
  TStorageHub hub("[ProhibitOrders]\nClients=C2,C1,ABCDEFGHIJKLM\nNote=x\n", 2);
  EXPECT_EQ(Save(hub), "[ProhibitOrders]\r\nClients=C1,C2\r\nNote=x\r\n\r\n");
}

TEST(HubSaveTest, ASectionWithNothingLeftIsAbsent) {
  TStorageHub hub("[ProhibitOrders]\nClients=ABCDEFGHIJKLM\n[General]\nUseCorrelation=1\n", 2);
  EXPECT_EQ(Save(hub), "");
}

TEST(HubSaveTest, SeveralChangeFutClientCodesSectionsAreWrittenOnce) {
  TStorageHub hub("[ChangeFutClientCodes_F1]\nC1=A\n[ChangeFutClientCodes_F2]\nC2=B\n", 2);
  EXPECT_EQ(Save(hub), "[ChangeFutClientCodes_F1]\r\nC1=A\r\n\r\n[ChangeFutClientCodes_F2]\r\nC2=B\r\n\r\n");
}

TEST(HubSaveTest, ClientSectionsAndTemplatesAreKept) {
  TStorageHub hub("[clC1]\nMaxOrderQuantity_TQBR=5\n[clT_Client_Template]\nMaxOrderQuantity_TQBR=6\n", 2);
  const std::string saved = Save(hub);
  EXPECT_NE(saved.find("[clC1]\r\nMaxOrderQuantity_TQBR=5\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("[clT_Client_Template]\r\nClients=\r\nMaxOrderQuantity_TQBR=6\r\n"), std::string::npos)
      << saved;
}

}  // namespace
