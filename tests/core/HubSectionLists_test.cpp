// The hub's section lists: currency replacement, the section lists of the
// old form, the user's securities and flood control, multi-currency support,
// the plain lists of other sections and the tag sections; each read from a
// text, written back byte for byte, and carried through a save and a reload.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "core/SavedText.h"
#include "core/TStorageHub.h"
#include "ini/TIniParser.h"

namespace {

using DL::TClassList;
using DL::TKeyToList;
using DL::TSettingToStrSource;
using DL::TStorageHub;
using DL::TTagToStrListStorage;

using TItems = std::vector<std::string>;
using TDump = std::map<std::string, std::string>;

std::string Save(TStorageHub& hub) { return ztest::SavedText(hub); }

TSettingToStrSource Source(const std::string& section) {
  TSettingToStrSource src;
  src.section = section;
  return src;
}

std::size_t Count(const std::string& text, const std::string& what) {
  std::size_t n = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + what.size())) ++n;
  return n;
}

// Plain dumps of the stores, "key" -> "items joined", for comparing two hubs.
TDump Dump(const TKeyToList& lists) {
  TDump out;
  for (const auto& [key, list] : lists) out[key] = list.ToString();
  return out;
}

TDump Dump(const TTagToStrListStorage& store) {
  TDump out = Dump(store.Lists());
  for (const auto& [key, value] : store.Raw()) out["raw:" + key] = value;
  for (const std::string& tag : store.Tags()) out["tag:" + tag] = "";
  return out;
}

TDump Dump(const DL::TSecuritiesByClass& store) {
  TDump out = Dump(store.byClass);
  if (store.hasAll) out["<ALL>"] = store.all.ToString();
  for (const auto& [key, value] : store.raw) out["raw:" + key] = value;
  return out;
}

TDump Dump(const TStorageHub::TCurrencyReplacements& sections) {
  TDump out;
  for (const auto& [name, section] : sections) {
    for (const auto& [key, list] : section.byCurrency) out[name + "/" + key] = list.ToString();
    for (const auto& [key, value] : section.raw) out[name + "/raw:" + key] = value;
  }
  return out;
}

// Loads `text`, saves, reloads the saved text and saves again: the second
// text equals the first. The reloaded hub is returned for the caller's checks.
struct TRoundTrip {
  explicit TRoundTrip(const std::string& text) : first(text.c_str(), 2), saved(Save(first)), second(saved.c_str(), 2) {
    EXPECT_EQ(Save(second), saved);
  }
  TStorageHub first;
  std::string saved;
  TStorageHub second;
};

// ---- Load steps that are done ----

TEST(HubSectionListsTest, TheirLoadStepsAreNoLongerPending) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseCurrencyReplacement"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseOldFormSectionLists"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseUserIdSecuritiesAndFloodControl"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseTagSections"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseRestrictSecuritiesProportionInCollateral"));
}

TEST(HubSectionListsTest, AnEmptyTextLeavesEveryStoreEmpty) {
  TStorageHub hub("", 2);
  EXPECT_TRUE(hub.GetCurrencyReplacements().empty());
  EXPECT_TRUE(hub.GetLimitAllowedSecurity().Empty());
  EXPECT_TRUE(hub.GetAssetSecurities().Empty());
  EXPECT_TRUE(hub.GetRestShortSecurities().Empty());
  EXPECT_TRUE(hub.GetCounterpartyLimits().empty());
  EXPECT_TRUE(hub.GetTranoutTags().empty());
  EXPECT_FALSE(hub.IsMultiCurrencySupported());
  EXPECT_TRUE(hub.GetMultiCurrencyByClass().empty());
  EXPECT_TRUE(hub.GetAddRepoBoards().empty());
  EXPECT_TRUE(hub.GetAddLockedBoards().empty());
  EXPECT_TRUE(hub.GetAddCommonSecTrdacc().empty());
  EXPECT_TRUE(hub.GetCurrBoards().empty());
  EXPECT_TRUE(hub.GetQuantityNotInLotsClasses().empty());
  EXPECT_TRUE(hub.GetAddMarketMarginalZadolg().empty());
  EXPECT_TRUE(hub.GetClassesWithoutLimitKinds().empty());
  EXPECT_TRUE(hub.GetRestrictSecuritiesProportionInCollateral().empty());
  EXPECT_TRUE(hub.GetClassesWithTradeCurrency().empty());
  EXPECT_TRUE(hub.GetReplaceableInstruments().empty());
  EXPECT_TRUE(hub.GetBoardTag().Empty());
  EXPECT_TRUE(hub.GetSpecialTradingAccounts().Empty());
  EXPECT_FALSE(hub.HasAddLimitBoards());
  EXPECT_FALSE(hub.HasAddNonMarginalBoard());
  EXPECT_TRUE(hub.GetLimitBoards().empty());
  EXPECT_TRUE(hub.GetLimitCommonTrdAccs().empty());
  EXPECT_TRUE(hub.GetSpotClasses().Empty());
  EXPECT_TRUE(hub.GetReservePerevorotGO().Empty());
  EXPECT_TRUE(hub.GetClassesWithoutPartExec().Empty());
  EXPECT_TRUE(hub.GetUseOpenFXRateClasses().Empty());
  EXPECT_EQ(hub.GetCurrencyClassesWithCCYData().Items(), TItems{"IMEXDA"});
  EXPECT_EQ(Save(hub), "");
}

// ---- Currency replacement ----

TEST(HubCurrencyReplacementTest, SectionsCurrencyCurrency2AndCurrencyPrefixedAreRead) {
  TStorageHub hub(
      "[Currency]\nSUR=RUB,RUR\nUSD=USDT\n[Currency2]\nEUR=EU1\n[currency_C1]\nCNY=CNH\n"
      "[CurrencyLimits]\nA=1\n[Currency2X]\nB=2\n[CurrBoards]\nUSD=CETS\n[Cz]\nC=3\n",
      2);
  const auto& sections = hub.GetCurrencyReplacements();
  ASSERT_EQ(sections.size(), 3u);
  EXPECT_EQ(sections.at("Currency").byCurrency.at("SUR").Items(), (TItems{"RUB", "RUR"}));
  EXPECT_EQ(sections.at("Currency").byCurrency.at("USD").Items(), TItems{"USDT"});
  EXPECT_EQ(sections.at("Currency2").byCurrency.at("EUR").Items(), TItems{"EU1"});
  EXPECT_EQ(sections.at("Currency_C1").byCurrency.at("CNY").Items(), TItems{"CNH"});
  EXPECT_EQ(sections.count("CurrencyLimits"), 0u);
  EXPECT_EQ(sections.count("Currency2X"), 0u);
}

TEST(HubCurrencyReplacementTest, TheReplacingCurrencyIsTheKeyWhoseListHoldsTheCode) {
  TStorageHub hub("[Currency]\nSUR=RUB,RUR\nUSD=USDT\n[Currency2]\nEUR=GBP\n", 2);
  EXPECT_EQ(hub.GetReplacingCurrency("RUR"), "SUR");
  EXPECT_EQ(hub.GetReplacingCurrency("USDT"), "USD");
  EXPECT_EQ(hub.GetReplacingCurrency("GBP"), "");  // only "Currency" replaces
  EXPECT_EQ(hub.GetReplacingCurrency("SUR"), "");
}

TEST(HubCurrencyReplacementTest, AbsentSectionsReplaceNothing) {
  TStorageHub hub("[General]\nSupportMultiCurrency=1\n", 2);
  EXPECT_TRUE(hub.GetCurrencyReplacements().empty());
  EXPECT_EQ(hub.GetReplacingCurrency("RUR"), "");
}

TEST(HubCurrencyReplacementTest, LinesWithLongCodesOrNoCurrencyAreKeptRaw) {
  TStorageHub hub("[Currency]\nLONGER=USD\nUSD=\nEUR=EUROS\nGBP=GBX\n", 2);
  const DL::TCurrencyReplacement& section = hub.GetCurrencyReplacements().at("Currency");
  ASSERT_EQ(section.byCurrency.size(), 1u);
  EXPECT_EQ(section.byCurrency.at("GBP").Items(), TItems{"GBX"});
  EXPECT_EQ(section.raw, (DL::TIniKeyMap{{"LONGER", "USD"}, {"USD", ""}, {"EUR", "EUROS"}}));
}

TEST(HubCurrencyReplacementTest, RendererWritesTheListsAndTheRawLines) {
  TStorageHub hub("[Currency]\nUSD=USDT, USDC ,USDT\nLONGER=X\n", 2);
  std::string out;
  hub.SettingToStrGlobalCurrencyReplacement(out, Source("Currency"));
  EXPECT_EQ(out, "[Currency]\nLONGER=X\nUSD=USDT,USDC\n");
}

TEST(HubCurrencyReplacementTest, RendererOfASectionWithNothingWritesNothing) {
  TStorageHub hub("[Currency]\n", 2);
  std::string out;
  hub.SettingToStrGlobalCurrencyReplacement(out, Source("Currency"));
  EXPECT_EQ(out, "");
}

TEST(HubCurrencyReplacementTest, RoundTripKeepsEverySectionOnce) {
  TRoundTrip rt("[Currency]\nSUR=RUB,RUR\nBADCODE=1\n[Currency2]\nEUR=EU1\n[Currency_C1]\nCNY=CNH\n"
                "[CurrencyLimits]\nA=1\n");
  EXPECT_EQ(Dump(rt.second.GetCurrencyReplacements()), Dump(rt.first.GetCurrencyReplacements()));
  EXPECT_EQ(Count(rt.saved, "[Currency]"), 1u);
  EXPECT_EQ(Count(rt.saved, "[Currency2]"), 1u);
  EXPECT_EQ(Count(rt.saved, "[Currency_C1]"), 1u);
  EXPECT_NE(rt.saved.find("BADCODE=1\r\n"), std::string::npos);
  EXPECT_NE(rt.saved.find("[CurrencyLimits]\r\nA=1\r\n"), std::string::npos);
}

// ---- Section lists of the old form ----

TEST(HubOldFormListsTest, LimitAllowedSecurityReadsAllAndSecurityByClass) {
  TStorageHub hub("[LimitAllowedSecurity]\n<ALL>=SBER,GAZP\nSECURITY_TQBR=LKOH\nSecurity_TQOB=SU26\n", 2);
  const DL::TSecuritiesByClass& store = hub.GetLimitAllowedSecurity();
  EXPECT_TRUE(store.hasAll);
  EXPECT_EQ(store.all.Items(), (TItems{"SBER", "GAZP"}));
  ASSERT_EQ(store.byClass.size(), 2u);
  EXPECT_EQ(store.byClass.at("TQBR").Items(), TItems{"LKOH"});
  EXPECT_EQ(store.byClass.at("TQOB").Items(), TItems{"SU26"});
  EXPECT_TRUE(store.raw.empty());
  EXPECT_TRUE(store.Contains("TQBR", "LKOH"));
  EXPECT_TRUE(store.Contains("TQOB", "SBER"));   // "<ALL>"
  EXPECT_FALSE(store.Contains("TQOB", "LKOH"));
  EXPECT_FALSE(store.Contains("TQTF", "SU26"));
}

TEST(HubOldFormListsTest, SecurityListsWithOtherKeysOrLongCodesAreKeptRaw) {
  TStorageHub hub(
      "[AssetSecurities]\nOTHER=1\nSECURITY_=X\nSECURITY_ABCDEFGHIJKLM=Y\nSECURITY_TQBR=SBER,ABCDEFGHIJKLM\n"
      "SECURITY_TQOB=SU26\n",
      2);
  const DL::TSecuritiesByClass& store = hub.GetAssetSecurities();
  EXPECT_FALSE(store.hasAll);
  ASSERT_EQ(store.byClass.size(), 1u);
  EXPECT_EQ(store.byClass.at("TQOB").Items(), TItems{"SU26"});
  EXPECT_EQ(store.raw, (DL::TIniKeyMap{{"OTHER", "1"},
                                       {"SECURITY_", "X"},
                                       {"SECURITY_ABCDEFGHIJKLM", "Y"},
                                       {"SECURITY_TQBR", "SBER,ABCDEFGHIJKLM"}}));
}

TEST(HubOldFormListsTest, RestShortSecuritiesHasTheSameForm) {
  TStorageHub hub("[RestShortSecurities]\n<ALL>=VTBR\nSECURITY_TQBR=SBER\n", 2);
  EXPECT_TRUE(hub.GetRestShortSecurities().Contains("TQBR", "SBER"));
  EXPECT_TRUE(hub.GetRestShortSecurities().Contains("EQBR", "VTBR"));
  EXPECT_FALSE(hub.GetRestShortSecurities().Contains("EQBR", "SBER"));
  EXPECT_TRUE(hub.GetAssetSecurities().Empty());
  EXPECT_TRUE(hub.GetLimitAllowedSecurity().Empty());
}

TEST(HubOldFormListsTest, CounterpartyLimitsByCounterparty) {
  TStorageHub hub("[CounterpartyLimits]\nCP1=TQBR, TQOB\nCOUNTERPARTY13=TQBR\nCP2=ABCDEFGHIJKLM\n", 2);
  const auto& limits = hub.GetCounterpartyLimits();
  ASSERT_EQ(limits.size(), 1u);
  EXPECT_EQ(limits.at("CP1").counterparty, "CP1");
  EXPECT_EQ(limits.at("CP1").classes.Items(), (TItems{"TQBR", "TQOB"}));
}

TEST(HubOldFormListsTest, TranoutTagNeedsAClassAndACurrency) {
  TStorageHub hub("[TranoutTag]\nNTI1=TQBR, USD\nNTI2=TQBR\nNTI3=TQBR,USDXX\nNTI4=,USD\nNTI5=A,B,C\n", 2);
  const auto& tags = hub.GetTranoutTags();
  ASSERT_EQ(tags.size(), 1u);
  EXPECT_EQ(tags.at("NTI1").nonTradeInstrument, "NTI1");
  EXPECT_EQ(tags.at("NTI1").classCode, "TQBR");
  EXPECT_EQ(tags.at("NTI1").currency, "USD");
}

TEST(HubOldFormListsTest, RenderersWriteAllFirstThenClassesInKeyOrderThenRaw) {
  TStorageHub hub(
      "[LimitAllowedSecurity]\nSecurity_TQOB=SU26\n<ALL>=SBER, GAZP\nOTHER=1\n"
      "[AssetSecurities]\nSECURITY_TQBR=LKOH\n[RestShortSecurities]\nSECURITY_EQBR=VTBR,VTBR\n",
      2);
  std::string out;
  hub.SettingToStrGlobalLimitAllowedSecurity(out, Source("LimitAllowedSecurity"));
  EXPECT_EQ(out, "[LimitAllowedSecurity]\n<ALL>=SBER,GAZP\nOTHER=1\nSECURITY_TQOB=SU26\n");
  out.clear();
  hub.SettingToStrGlobalAssetSecurities(out, Source("AssetSecurities"));
  EXPECT_EQ(out, "[AssetSecurities]\nSECURITY_TQBR=LKOH\n");
  out.clear();
  hub.SettingToStrGlobalRestShortSecurities(out, Source("RestShortSecurities"));
  EXPECT_EQ(out, "[RestShortSecurities]\nSECURITY_EQBR=VTBR\n");
}

TEST(HubOldFormListsTest, RendererOfAnAbsentSectionWritesNothing) {
  TStorageHub hub("", 2);
  std::string out;
  hub.SettingToStrGlobalLimitAllowedSecurity(out, Source("LimitAllowedSecurity"));
  hub.SettingToStrGlobalAssetSecurities(out, Source("AssetSecurities"));
  hub.SettingToStrGlobalRestShortSecurities(out, Source("RestShortSecurities"));
  EXPECT_EQ(out, "");
}

TEST(HubOldFormListsTest, RoundTripWritesEachSectionOnceAndKeepsTheOthers) {
  TRoundTrip rt(
      "[LimitAllowedSecurity]\n<ALL>=SBER\nSECURITY_TQBR=LKOH\nUNKNOWN=7\n[AssetSecurities]\nSECURITY_TQOB=SU26\n"
      "[RestShortSecurities]\n<ALL>=VTBR\n[LimitAllowedSecurityX]\nA=1\n[CounterpartyLimits]\nCP1=TQBR\n"
      "[TranoutTag]\nNTI1=TQBR,USD\nBAD=1\n");
  EXPECT_EQ(Dump(rt.second.GetLimitAllowedSecurity()), Dump(rt.first.GetLimitAllowedSecurity()));
  EXPECT_EQ(Dump(rt.second.GetAssetSecurities()), Dump(rt.first.GetAssetSecurities()));
  EXPECT_EQ(Dump(rt.second.GetRestShortSecurities()), Dump(rt.first.GetRestShortSecurities()));
  EXPECT_EQ(rt.second.GetCounterpartyLimits().size(), 1u);
  EXPECT_EQ(rt.second.GetTranoutTags().size(), 1u);
  EXPECT_EQ(Count(rt.saved, "[LimitAllowedSecurity]"), 1u);
  EXPECT_EQ(Count(rt.saved, "[AssetSecurities]"), 1u);
  EXPECT_EQ(Count(rt.saved, "[RestShortSecurities]"), 1u);
  EXPECT_NE(rt.saved.find("UNKNOWN=7\r\n"), std::string::npos);
  EXPECT_NE(rt.saved.find("[LimitAllowedSecurityX]\r\nA=1\r\n"), std::string::npos);
  EXPECT_NE(rt.saved.find("[TranoutTag]\r\nBAD=1\r\nNTI1=TQBR,USD\r\n"), std::string::npos);
}

// ---- User settings: securities and flood control ----

TEST(HubUserSettingsTest, SecuritiesRestrictedSecuritiesAndFloodControlByInstrument) {
  TStorageHub hub(
      "[u5]\nFloodControlByInstrument_SBER=10,1\nfloodcontrolbyinstrument_GAZP=3\nFloodControlByInstrument_=9\n"
      "TQBR_SECURITY=SBER,GAZP\nTQBR_RESTSECURITY=LKOH\n_SECURITY=X\nABCDEFGHIJKLM_SECURITY=Y\nTQOB_security=SU26\n",
      2);
  const DL::TUserIdSettings& user = hub.UserSettings().ByUser().at(5);
  EXPECT_EQ(user.floodControlByInstrument,
            (std::map<std::string, std::string, DL::StringMapComparerFunc>{{"SBER", "10,1"}, {"GAZP", "3"}}));
  ASSERT_EQ(user.securities.size(), 2u);
  EXPECT_EQ(user.securities.at("TQBR").Items(), (TItems{"SBER", "GAZP"}));
  EXPECT_EQ(user.securities.at("TQOB").Items(), TItems{"SU26"});
  ASSERT_EQ(user.restSecurities.size(), 1u);
  EXPECT_EQ(user.restSecurities.at("TQBR").Items(), TItems{"LKOH"});
}

TEST(HubUserSettingsTest, AUserWithoutThemHasEmptyLists) {
  TStorageHub hub("[u7]\nCOMMISSION=1\n", 2);
  const DL::TUserIdSettings& user = hub.UserSettings().ByUser().at(7);
  EXPECT_TRUE(user.securities.empty());
  EXPECT_TRUE(user.restSecurities.empty());
  EXPECT_TRUE(user.floodControlByInstrument.empty());
}

TEST(HubUserSettingsTest, ParseSecuritiesAndParseRestSecuritiesTakeOnlyTheirEnding) {
  DL::TIniParser catalogue("", 2, ';', 1);  // the first parser of the process fills the name tables
  const DL::TIniKeyMap keys{{"TQBR_SECURITY", "A,B"}, {"TQBR_RESTSECURITY", "C"}, {"TQOB_RESTSHORT", "D"}};
  TKeyToList allowed;
  TKeyToList restricted;
  DL::TUserSettings::ParseSecurities(keys, allowed);
  DL::TUserSettings::ParseRestSecurities(keys, restricted);
  EXPECT_EQ(Dump(allowed), (TDump{{"TQBR", "A,B"}}));
  EXPECT_EQ(Dump(restricted), (TDump{{"TQBR", "C"}}));
}

TEST(HubUserSettingsTest, RoundTripKeepsTheUserSection) {
  TRoundTrip rt(
      "[u5]\nFloodControlByInstrument_SBER=10,1\nTQBR_SECURITY=SBER\nTQBR_RESTSECURITY=LKOH\nUnknownKey=9\n");
  EXPECT_NE(rt.saved.find("UnknownKey=9\r\n"), std::string::npos);
  const DL::TUserIdSettings& a = rt.first.UserSettings().ByUser().at(5);
  const DL::TUserIdSettings& b = rt.second.UserSettings().ByUser().at(5);
  EXPECT_EQ(Dump(b.securities), Dump(a.securities));
  EXPECT_EQ(Dump(b.restSecurities), Dump(a.restSecurities));
  EXPECT_EQ(b.floodControlByInstrument, a.floodControlByInstrument);
}

// ---- Multi-currency support ----

TEST(HubMultiCurrencyTest, EveryMultiCurrencyClassTakesTheCurrenciesOfEveryGroup) {
  TStorageHub hub(
      "[General]\nSupportMultiCurrency=1\nMULTICURRINSTRCLASSES=CETS,SPBFX\n[AddMultiCurrency]\nUSD=USDT\nEUR=EU1,USD\n",
      2);
  EXPECT_TRUE(hub.IsMultiCurrencySupported());
  EXPECT_EQ(Dump(hub.GetMultiCurrencyByClass()), (TDump{{"CETS", "EUR,EU1,USD,USDT"}, {"SPBFX", "EUR,EU1,USD,USDT"}}));
}

TEST(HubMultiCurrencyTest, SupportOffLeavesTheMapEmpty) {
  TStorageHub hub("[General]\nSupportMultiCurrency=0\nMULTICURRINSTRCLASSES=CETS\n[AddMultiCurrency]\nUSD=USDT\n", 2);
  EXPECT_FALSE(hub.IsMultiCurrencySupported());
  EXPECT_TRUE(hub.GetMultiCurrencyByClass().empty());
}

TEST(HubMultiCurrencyTest, AMalformedSupportValueReadsAsItsLeadingDigits) {
  TStorageHub on("[General]\nSupportMultiCurrency=2x\nMULTICURRINSTRCLASSES=CETS\n", 2);
  EXPECT_TRUE(on.IsMultiCurrencySupported());
  EXPECT_EQ(Dump(on.GetMultiCurrencyByClass()), (TDump{{"CETS", ""}}));
  TStorageHub off("[General]\nSupportMultiCurrency=yes\nMULTICURRINSTRCLASSES=CETS\n", 2);
  EXPECT_FALSE(off.IsMultiCurrencySupported());
}

// ---- Plain lists of other sections ----

TEST(HubPlainListsTest, KeyToListSectionsAreReadWithTheirItems) {
  TStorageHub hub(
      "[AddREPOBoards]\nT1=EQRP, EQRD\n[AddLockedBoards]\nT2=TQBR\n[CurrBoards]\nUSD=CETS,CNGD\n"
      "[QuantityNotInLotsClasses]\nClasses=TQBR,TQOB\n[AddMarketMarginalZadolg]\nClasses=SPBFUT\n"
      "[ClassesWithoutLimitKinds]\nClasses=CETS\n[RestrictSecuritiesPropotionInCollateral]\nTQBR=SBER,GAZP\n"
      "[ClassesWithTradeCurrency]\nTQBR=USD\n",
      2);
  EXPECT_EQ(Dump(hub.GetAddRepoBoards()), (TDump{{"T1", "EQRP,EQRD"}}));
  EXPECT_EQ(Dump(hub.GetAddLockedBoards()), (TDump{{"T2", "TQBR"}}));
  EXPECT_EQ(Dump(hub.GetCurrBoards()), (TDump{{"USD", "CETS,CNGD"}}));
  EXPECT_EQ(Dump(hub.GetQuantityNotInLotsClasses()), (TDump{{"Classes", "TQBR,TQOB"}}));
  EXPECT_EQ(Dump(hub.GetAddMarketMarginalZadolg()), (TDump{{"Classes", "SPBFUT"}}));
  EXPECT_EQ(Dump(hub.GetClassesWithoutLimitKinds()), (TDump{{"Classes", "CETS"}}));
  EXPECT_EQ(Dump(hub.GetRestrictSecuritiesProportionInCollateral()), (TDump{{"TQBR", "SBER,GAZP"}}));
  EXPECT_EQ(Dump(hub.GetClassesWithTradeCurrency()), (TDump{{"TQBR", "USD"}}));
  EXPECT_TRUE(hub.IsQuantityNotInLotsClass("TQOB"));
  EXPECT_FALSE(hub.IsQuantityNotInLotsClass("CETS"));
  EXPECT_TRUE(hub.IsClassWithoutLimitKinds("CETS"));
  EXPECT_FALSE(hub.IsClassWithoutLimitKinds("TQBR"));
  EXPECT_TRUE(hub.IsRestrictSecuritiesPropotionInCollateral("GAZP"));
  EXPECT_FALSE(hub.IsRestrictSecuritiesPropotionInCollateral("LKOH"));
}

TEST(HubPlainListsTest, ParametersOfGeneralAreHashSets) {
  TStorageHub hub(
      "[General]\nRESERVEPEREVOROTGO=SPBFUT\nSPOTCLASSES=TQBR, TQOB\nCLASSESWITHOUTPARTEXEC=CETS\n"
      "UseOpenFXRateClasses=CETS,CNGD\nCurrencyClassesWithCCYData=IMEX, CETS\n",
      2);
  EXPECT_TRUE(hub.GetReservePerevorotGO().Contains("SPBFUT"));
  EXPECT_EQ(hub.GetSpotClasses().Items(), (TItems{"TQBR", "TQOB"}));
  EXPECT_TRUE(hub.GetSpotClasses().Contains("TQOB"));
  EXPECT_TRUE(hub.GetClassesWithoutPartExec().Contains("CETS"));
  EXPECT_TRUE(hub.GetUseOpenFXRateClasses().Contains("CNGD"));
  EXPECT_EQ(hub.GetCurrencyClassesWithCCYData().Items(), (TItems{"IMEX", "CETS"}));
  EXPECT_FALSE(hub.GetCurrencyClassesWithCCYData().Contains("IMEXDA"));
}

TEST(HubPlainListsTest, AddCommonSecTrdaccTakesClassSecurityPairsAndWholeClasses) {
  TStorageHub hub(
      "[AddCommonSecTrdacc]\nL01=TQBR:SBER, TQOB\nL02=TQBR:\nTRDACC1234567X=TQBR\nL03=:SBER\nL04=\n", 2);
  const auto& accounts = hub.GetAddCommonSecTrdacc();
  ASSERT_EQ(accounts.size(), 1u);
  const DL::TAdditionalSecTrdaccRec& rec = accounts.at("L01");
  EXPECT_EQ(rec.trdAcc, "L01");
  ASSERT_EQ(rec.securities.size(), 2u);
  EXPECT_EQ(rec.securities[0].classCode, "TQBR");
  EXPECT_EQ(rec.securities[0].secCode, "SBER");
  EXPECT_EQ(rec.securities[1].classCode, "TQOB");
  EXPECT_EQ(rec.securities[1].secCode, "");
  EXPECT_TRUE(rec.Contains("TQBR", "SBER"));
  EXPECT_FALSE(rec.Contains("TQBR", "GAZP"));
  EXPECT_TRUE(rec.Contains("TQOB", "SU26"));  // the whole class
}

TEST(HubPlainListsTest, ReplaceableInstrumentsGiveTheMainSecurity) {
  TStorageHub hub("[ReplaceableInstruments]\nTQBR=SBERP:SBER, GAZP2:GAZP\nTQOB=BAD\nTQTF=A:\n", 2);
  EXPECT_EQ(hub.GetReplaceableInstruments().size(), 1u);
  EXPECT_EQ(hub.GetMainSec("TQBR", "SBERP"), "SBER");
  EXPECT_EQ(hub.GetMainSec("TQBR", "GAZP2"), "GAZP");
  EXPECT_EQ(hub.GetMainSec("TQBR", "LKOH"), "LKOH");
  EXPECT_EQ(hub.GetMainSec("TQOB", "BAD"), "BAD");
  EXPECT_EQ(hub.GetMainSec("TQTF", "A"), "A");
}

TEST(HubPlainListsTest, RenderersOfTheGlobalMapWriteTheParsedLists) {
  TStorageHub hub(
      "[RestrictSecuritiesPropotionInCollateral]\nTQBR=SBER, GAZP,SBER\n<ALL>=VTBR\n"
      "[ClassesWithTradeCurrency]\nTQOB=USD, EUR\nEMPTY=\n",
      2);
  std::string out;
  hub.SettingToStrGlobalRestrictSecuritiesProportionInCollateral(out,
                                                                 Source("RestrictSecuritiesPropotionInCollateral"));
  EXPECT_EQ(out, "[RestrictSecuritiesPropotionInCollateral]\n<ALL>=VTBR\nTQBR=SBER,GAZP\n");
  out.clear();
  hub.SettingToStrClassesWithTradeCurrencyGlob(out, Source("ClassesWithTradeCurrency"));
  EXPECT_EQ(out, "[ClassesWithTradeCurrency]\nEMPTY=\nTQOB=USD,EUR\n");
}

TEST(HubPlainListsTest, RoundTripKeepsEveryList) {
  TRoundTrip rt(
      "[General]\nSPOTCLASSES=TQBR\nCurrencyClassesWithCCYData=CETS\n[AddREPOBoards]\nT1=EQRP\n"
      "[AddLockedBoards]\nT2=TQBR\n[AddCommonSecTrdacc]\nL01=TQBR:SBER\nBAD=:X\n[CurrBoards]\nUSD=CETS\n"
      "[QuantityNotInLotsClasses]\nClasses=TQBR\n[AddMarketMarginalZadolg]\nClasses=SPBFUT\n"
      "[ClassesWithoutLimitKinds]\nClasses=CETS\n[RestrictSecuritiesPropotionInCollateral]\nTQBR=SBER\n"
      "[ClassesWithTradeCurrency]\nTQBR=USD\n[ReplaceableInstruments]\nTQBR=SBERP:SBER\n");
  const TStorageHub& a = rt.first;
  const TStorageHub& b = rt.second;
  EXPECT_EQ(Dump(b.GetAddRepoBoards()), Dump(a.GetAddRepoBoards()));
  EXPECT_EQ(Dump(b.GetAddLockedBoards()), Dump(a.GetAddLockedBoards()));
  EXPECT_EQ(b.GetAddCommonSecTrdacc().size(), 1u);
  EXPECT_EQ(Dump(b.GetCurrBoards()), Dump(a.GetCurrBoards()));
  EXPECT_EQ(Dump(b.GetQuantityNotInLotsClasses()), Dump(a.GetQuantityNotInLotsClasses()));
  EXPECT_EQ(Dump(b.GetAddMarketMarginalZadolg()), Dump(a.GetAddMarketMarginalZadolg()));
  EXPECT_EQ(Dump(b.GetClassesWithoutLimitKinds()), Dump(a.GetClassesWithoutLimitKinds()));
  EXPECT_EQ(Dump(b.GetRestrictSecuritiesProportionInCollateral()),
            Dump(a.GetRestrictSecuritiesProportionInCollateral()));
  EXPECT_EQ(Dump(b.GetClassesWithTradeCurrency()), Dump(a.GetClassesWithTradeCurrency()));
  EXPECT_EQ(b.GetReplaceableInstruments(), a.GetReplaceableInstruments());
  EXPECT_EQ(b.GetSpotClasses().Items(), TItems{"TQBR"});
  EXPECT_EQ(b.GetCurrencyClassesWithCCYData().Items(), TItems{"CETS"});
  EXPECT_NE(rt.saved.find("BAD=:X\r\n"), std::string::npos);
  EXPECT_EQ(Count(rt.saved, "[RestrictSecuritiesPropotionInCollateral]"), 1u);
  EXPECT_EQ(Count(rt.saved, "[ClassesWithTradeCurrency]"), 1u);
}

// ---- Tag sections ----

TEST(HubTagSectionsTest, EveryTagSectionIsReadIntoItsStoreAndItsTagsAreCollected) {
  TStorageHub hub(
      "[AddLockedTrdacc]\nT1=L01,L02\n[BoardTag]\nEQTV=TQBR, TQOB\nFUT=SPBFUT\n[SecToBoard]\nSBER=TQBR\n"
      "[AddLimitBoards]\nT2=EQRP\n[AddLimitTrdacc]\nT3=L03\n[AddNonMarginalBoard]\nT4=TQTF\n"
      "[AddREPOTrdacc]\nT5=L05\n[AddCommonTrdacc]\nT6=L06,L07\n[REPOLimitTrdAcc]\nT7=L08\n"
      "[REPOLimitBoards]\nT8=EQRD,EQRP\nT9=GCRP\n",
      2);
  EXPECT_EQ(Dump(hub.GetAddLockedTrdacc().Lists()), (TDump{{"T1", "L01,L02"}}));
  EXPECT_EQ(Dump(hub.GetBoardTag().Lists()), (TDump{{"EQTV", "TQBR,TQOB"}, {"FUT", "SPBFUT"}}));
  EXPECT_EQ(hub.GetBoardTag().Tags(), (std::set<std::string>{"EQTV", "FUT"}));
  EXPECT_TRUE(hub.GetBoardTag().Contains("eqtv", "TQOB"));
  EXPECT_FALSE(hub.GetBoardTag().Contains("FUT", "TQOB"));
  EXPECT_TRUE(hub.GetBoardTag().ContainsAnywhere("SPBFUT"));
  EXPECT_EQ(hub.GetBoardTag().Find("NONE"), nullptr);
  EXPECT_EQ(Dump(hub.GetSecToBoard().Lists()), (TDump{{"SBER", "TQBR"}}));
  EXPECT_EQ(Dump(hub.GetAddLimitBoards().Lists()), (TDump{{"T2", "EQRP"}}));
  EXPECT_EQ(Dump(hub.GetAddLimitTrdacc().Lists()), (TDump{{"T3", "L03"}}));
  EXPECT_EQ(Dump(hub.GetAddNonMarginalBoard().Lists()), (TDump{{"T4", "TQTF"}}));
  EXPECT_EQ(Dump(hub.GetAddREPOTrdacc().Lists()), (TDump{{"T5", "L05"}}));
  EXPECT_EQ(Dump(hub.GetAddCommonTrdacc().Lists()), (TDump{{"T6", "L06,L07"}}));
  EXPECT_EQ(Dump(hub.GetREPOLimitTrdAcc().Lists()), (TDump{{"T7", "L08"}}));
  EXPECT_EQ(hub.GetREPOLimitTrdAcc().Tags(), std::set<std::string>{"T7"});
  EXPECT_EQ(hub.GetAddLockedTrdacc().Tags(), std::set<std::string>{"T1"});
  EXPECT_TRUE(hub.HasAddLimitBoards());
  EXPECT_TRUE(hub.HasAddNonMarginalBoard());
  EXPECT_EQ(hub.GetLimitBoards(), (std::set<std::string>{"EQRD", "EQRP", "GCRP"}));
  EXPECT_EQ(hub.GetLimitCommonTrdAccs(), (std::set<std::string>{"L06", "L07"}));
}

TEST(HubTagSectionsTest, AFlaggedSectionWithOnlyUnreadableLinesStillSetsItsFlag) {
  TStorageHub hub("[AddLimitBoards]\nTAG4567890123=EQRP\n", 2);
  EXPECT_TRUE(hub.HasAddLimitBoards());
  EXPECT_FALSE(hub.HasAddNonMarginalBoard());
  EXPECT_TRUE(hub.GetAddLimitBoards().Lists().empty());
}

TEST(HubTagSectionsTest, AHeaderWithoutLinesIsNoSectionAndSetsNoFlag) {
  TStorageHub hub("[AddNonMarginalBoard]\n[General]\nA=1\n", 2);
  EXPECT_FALSE(hub.HasAddNonMarginalBoard());
}

TEST(HubTagSectionsTest, LinesWithAnEmptyKeyOrALongCodeAreKeptRaw) {
  TStorageHub hub("[BoardTag]\nEQTV=TQBR\nTAG4567890123=TQBR\nFUT=BOARD67890123\n", 2);
  EXPECT_EQ(Dump(hub.GetBoardTag().Lists()), (TDump{{"EQTV", "TQBR"}}));
  EXPECT_EQ(hub.GetBoardTag().Raw(), (DL::TIniKeyMap{{"TAG4567890123", "TQBR"}, {"FUT", "BOARD67890123"}}));
  EXPECT_EQ(hub.GetBoardTag().Tags(), std::set<std::string>{"EQTV"});
}

TEST(HubTagSectionsTest, ParseTagToStrListSectionClearsTheStoreAndTellsPresence) {
  TTagToStrListStorage store;
  bool present = true;
  const DL::TIniKeyMap first{{"A", "1,2"}};
  TStorageHub::ParseTagToStrListSection(&first, store, &present);
  EXPECT_TRUE(present);
  TStorageHub::ParseTagToStrListSection(nullptr, store, &present);
  EXPECT_FALSE(present);
  EXPECT_TRUE(store.Empty());
}

TEST(HubTagSectionsTest, SpecialTradingAccountsIsATagSection) {
  TStorageHub hub("[SpecialTradingAccounts]\nOWN=L01,L02\nBADKEY1234567=L03\n", 2);
  EXPECT_EQ(Dump(hub.GetSpecialTradingAccounts()),
            (TDump{{"OWN", "L01,L02"}, {"raw:BADKEY1234567", "L03"}, {"tag:OWN", ""}}));
  EXPECT_TRUE(hub.GetSpecialTradingAccounts().Contains("OWN", "L02"));
}

TEST(HubTagSectionsTest, BoardTagRendererWritesTheListsAndTheRawLines) {
  TStorageHub hub("[BoardTag]\nFUT=SPBFUT\nEQTV=TQBR, TQOB,TQBR\nTAG4567890123=X\n", 2);
  std::string out;
  hub.SettingToStrBoardTagGlob(out, Source("BoardTag"));
  EXPECT_EQ(out, "[BoardTag]\nEQTV=TQBR,TQOB\nFUT=SPBFUT\nTAG4567890123=X\n");
}

TEST(HubTagSectionsTest, BoardTagRendererOfAnEmptyStoreWritesNothing) {
  TStorageHub hub("", 2);
  std::string out;
  hub.SettingToStrBoardTagGlob(out, Source("BoardTag"));
  EXPECT_EQ(out, "");
}

TEST(HubTagSectionsTest, RoundTripKeepsEveryTagSection) {
  TRoundTrip rt(
      "[AddLockedTrdacc]\nT1=L01\n[BoardTag]\nEQTV=TQBR\nTAG4567890123=X\n[SecToBoard]\nSBER=TQBR\n"
      "[AddLimitBoards]\nT2=EQRP\n[AddLimitTrdacc]\nT3=L03\n[AddNonMarginalBoard]\nT4=TQTF\n"
      "[AddREPOTrdacc]\nT5=L05\n[AddCommonTrdacc]\nT6=L06\n[REPOLimitTrdAcc]\nT7=L08\n[REPOLimitBoards]\nT8=EQRD\n"
      "[SpecialTradingAccounts]\nOWN=L01\n");
  const TStorageHub& a = rt.first;
  const TStorageHub& b = rt.second;
  EXPECT_EQ(Dump(b.GetAddLockedTrdacc()), Dump(a.GetAddLockedTrdacc()));
  EXPECT_EQ(Dump(b.GetBoardTag()), Dump(a.GetBoardTag()));
  EXPECT_EQ(Dump(b.GetSecToBoard()), Dump(a.GetSecToBoard()));
  EXPECT_EQ(Dump(b.GetAddLimitBoards()), Dump(a.GetAddLimitBoards()));
  EXPECT_EQ(Dump(b.GetAddLimitTrdacc()), Dump(a.GetAddLimitTrdacc()));
  EXPECT_EQ(Dump(b.GetAddNonMarginalBoard()), Dump(a.GetAddNonMarginalBoard()));
  EXPECT_EQ(Dump(b.GetAddREPOTrdacc()), Dump(a.GetAddREPOTrdacc()));
  EXPECT_EQ(Dump(b.GetAddCommonTrdacc()), Dump(a.GetAddCommonTrdacc()));
  EXPECT_EQ(Dump(b.GetREPOLimitTrdAcc()), Dump(a.GetREPOLimitTrdAcc()));
  EXPECT_EQ(Dump(b.GetREPOLimitBoards()), Dump(a.GetREPOLimitBoards()));
  EXPECT_EQ(Dump(b.GetSpecialTradingAccounts()), Dump(a.GetSpecialTradingAccounts()));
  EXPECT_EQ(b.GetLimitBoards(), a.GetLimitBoards());
  EXPECT_EQ(b.HasAddLimitBoards(), a.HasAddLimitBoards());
  EXPECT_EQ(Count(rt.saved, "[BoardTag]"), 1u);
  EXPECT_NE(rt.saved.find("TAG4567890123=X\r\n"), std::string::npos);
}

}  // namespace
