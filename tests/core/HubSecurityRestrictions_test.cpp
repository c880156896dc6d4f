// The hub's security restrictions: the cache built at load, the sections of
// clients and client templates written from their parsed objects, and the
// global sections written from the global object.
#include <gtest/gtest.h>

#include <string>

#include "cache/TCacheOfSecurityRestrictions.h"
#include "core/SavedText.h"
#include "core/TStorageHub.h"

namespace {

using DL::TClientSecurityRestrictions;
using DL::TIniCacheItemID;
using DL::TStorageHub;

const DL::TCacheOfSecurityRestrictions& Cache(const TStorageHub& hub) {
  const DL::TCacheOfSecurityRestrictions* cache = hub.GetSecurityRestrictionsCache();
  EXPECT_NE(cache, nullptr);
  return *cache;
}

const TClientSecurityRestrictions& Query(const TStorageHub& hub, const char* client, double leverage = -1.0) {
  return *Cache(hub).GetIniSetting(TIniCacheItemID(client, leverage));
}

std::size_t Count(const std::string& text, const std::string& what) {
  std::size_t n = 0;
  for (std::size_t pos = text.find(what); pos != std::string::npos; pos = text.find(what, pos + 1)) ++n;
  return n;
}

// One section written as the save writes a client or client template.
std::string Row(const TStorageHub& hub, const std::string& section, bool isTemplate) {
  const auto it = hub.GetSections().find(section);
  EXPECT_NE(it, hub.GetSections().end());
  DL::TSettingToStrSource parsed;
  parsed.kind = DL::TIniParser::SectClientTemplate;
  parsed.securityRestrictions = Cache(hub).FindParsedSection(section);
  return hub.GetRowFromSettings(it, isTemplate, parsed);
}

constexpr const char* kFirm =
    "[General]\nOrderMaxValue=1000,USD\nIGNORECHECKLIMITS=1\n"
    "[PriceLimit]\nMIDDLE=2,LAST\nTQBR=10\nTQBR_MIDDLE=OPEN\nEQOB=-1\n"
    "[SecPriceLimit]\nSBER=3,WAPRICE,1\n"
    "[Soft_PriceLimit]\nTQBR=4\n[Soft_SecPriceLimit]\nGAZP=5\n"
    "[AllowedPartnersAndSettleCodes]\nTQBR=P1|S1\n"
    "[ProhibitedPartnersAndSettleCodes]\nTQBR_SIDE_B_TERM_7=P2\n"
    "[Soft_ProhibitedPartnersAndSettleCodes]\n<ALL>=P3\n"
    "[RestrictSecurity]\nTQBR= GAZP , LKOH\nABCDEFGHIJKLM=X\n"
    "[RestrictOpenSecurity]\nEQOB=<ALL>\n"
    "[AllowedSecurity]\nTQBR=SBER\n"
    "[clC1]\nOrderMaxValue=50,EUR\nAllowedPartners=P2, P1\nProhibitedPartners=<ALL>\nUserTemplate=U1\n"
    "PriceLimit_MIDDLE=1,OPEN\nPriceLimit_TQBR=,WAPRICE,1\nPriceLimit_SPBFUT_MIDDLE=LAST\nPriceLimit_EQOB=-1\n"
    "SecPriceLimit_SBER=7\nSoft_PriceLimit_TQBR=8\nSoft_SecPriceLimit_MIDDLE=OPEN\nSoft_SecPriceLimit_GAZP=9\n"
    "AllowedPartnersAndSettleCodes_TQBR,EQOB_SIDE_S=P1,P2|S1\nProhibitedPartnersAndSettleCodes_EQRP_TERM_30=P3\n"
    "Soft_ProhibitedPartnersAndSettleCodes_<ALL_REPO>=P4\n"
    "TQBR_RESTRICTOPEN=SBER,GAZP\nTQBR_RESTSECURITY=<ALL>\nTQBR_SECURITY=SU26*\nTQBR_TRDACC=L01\n"
    "CommissionWriteOffCurrency_USD=TQBR\nTSCommission_EUR=CETS\nAllowPositionClosing=1\n"
    "ClassesWithoutTSCommission=TQBR\nLinkedUserTemplate=LT1,LT2\nBrokerQuoteBoard=PSAU\nTransferBoard=TQBR\n"
    "AddMultiCurrency_SUR=RUB,USD\nCurrency_MAIN=RUB,EUR\nCurrency2_MAIN=CNY\nUnknownParam=kept\n"
    "[clC2]\nPriceLimit_EQOB=-1\nPriceLimit_TQBR=6\n"
    "[clAB*]\nTransferBoard=SPBFUT\n"
    "[clT1_Client_Template]\nClients=C5,C6\nIncludeClientsWithLeverage=3\nPriceLimit_TQBR=11,LAST\n"
    "AllowedPartners=P9\nTQBR_TRDACC=<ALL>\nOther=1\n";

TEST(HubSecurityRestrictionsTest, CacheIsBuiltAtLoad) {
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("BuildSecurityRestrictionsCache"));
  EXPECT_FALSE(TStorageHub::IsPendingLoadStep("ParseSectionRestrictSecurity"));
  TStorageHub hub(kFirm, 2);
  const TClientSecurityRestrictions& g = *Cache(hub).GetGlobalSettings();
  EXPECT_TRUE(g.ignoreCheckLimits);
  EXPECT_EQ(g.restSecurity.at("TQBR").Items(), (std::vector<std::string>{"GAZP", "LKOH"}));
  EXPECT_DOUBLE_EQ(Query(hub, "C1").orderMaxValue.amount, 5000.0);
  EXPECT_EQ(&Query(hub, "NOBODY"), &g);
}

TEST(HubSecurityRestrictionsTest, QueriedFirmSavesAndReloadsToEqualObjects) {
  TStorageHub hub(kFirm, 2);
  const char* clients[] = {"C1", "C2", "AB7", "C5"};
  for (const char* client : clients) (void)Query(hub, client);
  (void)Query(hub, "ANY", 3.0);
  const std::string saved = ztest::SavedText(hub);
  TStorageHub reloaded(saved.c_str(), 2);
  for (const char* client : clients) EXPECT_EQ(Query(reloaded, client), Query(hub, client)) << client << "\n" << saved;
  EXPECT_EQ(Query(reloaded, "ANY", 3.0), Query(hub, "ANY", 3.0));
  EXPECT_EQ(*Cache(reloaded).GetGlobalSettings(), *Cache(hub).GetGlobalSettings()) << saved;
  // The objects hold what the text said, not merely the same as each other.
  const TClientSecurityRestrictions& c1 = Query(reloaded, "C1");
  EXPECT_EQ(c1.priceLimit.limits.at("TQBR").priceType, 1);
  EXPECT_DOUBLE_EQ(c1.priceLimit.limits.at("TQBR").deviation, 1.0);
  EXPECT_EQ(c1.priceLimit.limits.count("EQOB"), 0u);
  EXPECT_EQ(c1.allowedPartnersAndSettleCodes.Items().size(), 1u);
  EXPECT_EQ(c1.addMultiCurrency.at("SUR"), (std::set<std::string>{"SUR", "USD"}));
  EXPECT_EQ(Query(reloaded, "AB7").transferBoard.Items(), std::vector<std::string>{"SPBFUT"});
  EXPECT_FALSE(Query(reloaded, "C5").noAllowedList);
  // The second save writes the same text.
  EXPECT_EQ(ztest::SavedText(reloaded), saved);
}

TEST(HubSecurityRestrictionsTest, ClientSectionIsWrittenWithItsRenderedSettingsFirstAndItsUnknownParametersKept) {
  TStorageHub hub(
      "[clC1]\nZZZ=9\nPriceLimit_TQBR=5\nAllowedPartners=P2, P1\nUserTemplate=U1\nAAA=1\nPriceLimit_EQOB=-1\n"
      "Currency_MAIN=RUB\n",
      2);
  (void)Query(hub, "C1");
  // Settings without a parsed rendering (here "UserTemplate" and "Currency_")
  // stay among the raw lines, as written.
  EXPECT_EQ(
      Row(hub, "clC1", false),
      "[clC1]\nAllowedPartners=P2,P1\nPriceLimit_TQBR=5,LAST\nAAA=1\nCurrency_MAIN=RUB\nUserTemplate=U1\nZZZ=9\n");
}

TEST(HubSecurityRestrictionsTest, TemplateSectionIsWrittenWithItsClientsFirst) {
  TStorageHub hub("[clT1_Client_Template]\nOther=1\nClients=C5,C6\nTQBR_RESTRICTOPEN=SBER\nTransferBoard=A, B\n", 2);
  (void)Query(hub, "C5");
  EXPECT_EQ(Row(hub, "clT1_Client_Template", true),
            "[clT1_Client_Template]\nClients=C5,C6\nTQBR_RESTRICTOPEN=SBER\nTransferBoard=A,B\nOther=1\n");
}

TEST(HubSecurityRestrictionsTest, EverySettingOfTheSectionComesFromItsParsedObject) {
  TStorageHub hub(
      "[clC1]\nPriceLimit_MIDDLE=1,OPEN\nPriceLimit_TQBR=,WAPRICE,1\nPriceLimit_SPBFUT_MIDDLE=LAST\n"
      "AllowedPartnersAndSettleCodes_TQBR_SIDE_S=P1|S1\nAllowedPartnersAndSettleCodes_EQOB=P2\n"
      "AddMultiCurrency_SUR=RUB,USD\n",
      2);
  (void)Query(hub, "C1");
  EXPECT_EQ(Row(hub, "clC1", false),
            "[clC1]\nAddMultiCurrency_SUR=SUR,USD\n"
            "AllowedPartnersAndSettleCodes_EQOB=P2\nAllowedPartnersAndSettleCodes_TQBR_SIDE_S=P1|S1\n"
            "PriceLimit_MIDDLE=1,OPEN\nPriceLimit_SPBFUT_MIDDLE=LAST\nPriceLimit_TQBR=1,WAPRICE,1\n");
}

TEST(HubSecurityRestrictionsTest, SectionNotParsedIsCopiedAsItStands) {
  TStorageHub hub("[clC1]\nPriceLimit_EQOB=-1\n[clC2]\nPriceLimit_EQOB=-1\n", 2);
  EXPECT_EQ(Row(hub, "clC2", false), "[clC2]\nPriceLimit_EQOB=-1\n");
  (void)Query(hub, "C1");
  const std::string saved = ztest::SavedText(hub);
  EXPECT_EQ(Count(saved, "PriceLimit_EQOB=-1"), 1u) << saved;
  EXPECT_NE(saved.find("[clC2]\r\nPriceLimit_EQOB=-1\r\n"), std::string::npos) << saved;
}

TEST(HubSecurityRestrictionsTest, GlobalSectionsAreWrittenFromTheGlobalObject) {
  TStorageHub hub(
      "[RestrictSecurity]\nTQBR= GAZP , LKOH\nABCDEFGHIJKLM=X\n"
      "[PriceLimit]\nEQOB=-1\nTQBR=10\nMIDDLE=2,LAST\n"
      "[ProhibitedPartnersAndSettleCodes]\nTQBR_SIDE_X=P1\nTQBR_Side_B=P2\n"
      "[RestrictOpenSecurity]\nEQOB=A,<ALL>\n",
      2);
  const std::string saved = ztest::SavedText(hub);
  EXPECT_NE(saved.find("[RestrictSecurity]\r\nTQBR=GAZP,LKOH\r\n\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("[PriceLimit]\r\nMIDDLE=2,LAST\r\nTQBR=10,LAST\r\n\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("[ProhibitedPartnersAndSettleCodes]\r\nTQBR_SIDE_B=P2\r\n\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("[RestrictOpenSecurity]\r\nEQOB=<ALL>\r\n\r\n"), std::string::npos) << saved;
  EXPECT_EQ(saved.find("ABCDEFGHIJKLM"), std::string::npos) << saved;
}

TEST(HubSecurityRestrictionsTest, GlobalSectionWithoutAParsedHomeIsCopied) {
  TStorageHub hub("[AllowedPartners]\nX=1\n[LinkedUserTemplate]\nY=2\n", 2);
  const std::string saved = ztest::SavedText(hub);
  EXPECT_NE(saved.find("[AllowedPartners]\r\nX=1\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("[LinkedUserTemplate]\r\nY=2\r\n"), std::string::npos) << saved;
}

TEST(HubSecurityRestrictionsTest, GlobalSectionThatParsesToNothingIsLeftOut) {
  TStorageHub hub("[RestrictSecurity]\nABCDEFGHIJKLM=X\n[General]\nA=1\n", 2);
  EXPECT_EQ(ztest::SavedText(hub).find("RestrictSecurity"), std::string::npos);
}

}  // namespace
