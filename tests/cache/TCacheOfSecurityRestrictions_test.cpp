// The security restrictions cache: the lines of client, template and global
// sections, their value grammars, and the resolution of a client's section.
#include "cache/TCacheOfSecurityRestrictions.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/TStorageHub.h"

namespace {

using DL::TCacheOfSecurityRestrictions;
using DL::TClientSecurityRestrictions;
using DL::TIniCacheItemID;
using DL::TPartnersAndSettleCodes;
using DL::TPriceLimitItem;
using Strings = std::vector<std::string>;

constexpr int kLast = 2, kWaPrice = 1, kOpen = 3, kMarketPrice = 4, kTheorPrice = 6, kBidOffer = 7;

class SecurityRestrictionsCacheTest : public ::testing::Test {
 protected:
  TCacheOfSecurityRestrictions& Load(const std::string& text) {
    parser.Init(text.c_str(), DL::TIniParser::SourceText, ';', 1);
    cache = std::make_unique<TCacheOfSecurityRestrictions>(parser, hub);
    return *cache;
  }
  // The object of the personal section of a client.
  const TClientSecurityRestrictions& Client(const std::string& text, const std::string& client = "C1") {
    const TClientSecurityRestrictions* o = Load(text).GetClientSettings(client);
    EXPECT_NE(o, nullptr);
    static const TClientSecurityRestrictions kNone;
    return o != nullptr ? *o : kNone;
  }
  const TClientSecurityRestrictions& Global(const std::string& text) { return *Load(text).GetGlobalSettings(); }

  DL::TStorageHub hub{"", DL::TIniParser::SourceText};
  DL::TIniParser parser;
  std::unique_ptr<TCacheOfSecurityRestrictions> cache;
};

void ExpectLimit(const DL::TPriceLimit& limit, const std::string& item, double deviation, int priceType, bool reject) {
  const auto it = limit.limits.find(item);
  ASSERT_NE(it, limit.limits.end()) << item;
  EXPECT_DOUBLE_EQ(it->second.deviation, deviation) << item;
  EXPECT_EQ(it->second.priceType, priceType) << item;
  EXPECT_EQ(it->second.reject, reject) << item;
}

TPartnersAndSettleCodes::TKey Key(Strings classes, int side = DL::sdBoth, bool hasTerm = false, long long term = 0) {
  TPartnersAndSettleCodes::TKey k;
  k.classes = std::move(classes);
  k.side = side;
  k.hasTerm = hasTerm;
  k.term = term;
  return k;
}

// ---- Price limits ----

TEST_F(SecurityRestrictionsCacheTest, NegativeDeviationInAClientSectionRemovesThatClassLimit) {
  const auto& c = Client("[PriceLimit]\nTQBR=10,LAST\n[clC1]\nPriceLimit_TQBR=-1\nPriceLimit_SPBFUT=5,BIDOFFER\n");
  EXPECT_EQ(c.priceLimit.limits.count("TQBR"), 0u);
  ExpectLimit(c.priceLimit, "SPBFUT", 5.0, kBidOffer, false);
  // The global limit itself stays.
  ExpectLimit(cache->GetGlobalSettings()->priceLimit, "TQBR", 10.0, kLast, false);
}

TEST_F(SecurityRestrictionsCacheTest, PriceLimitValueIsDeviationPriceTypeAndReject) {
  const auto& c = Client("[clC1]\nPriceLimit_TQBR=10.5,WAPRICE,1\nPriceLimit_EQOB=7\nPriceLimit_CETS=3,NOSUCH,0\n");
  ExpectLimit(c.priceLimit, "TQBR", 10.5, kWaPrice, true);
  ExpectLimit(c.priceLimit, "EQOB", 7.0, kLast, false);
  ExpectLimit(c.priceLimit, "CETS", 3.0, kLast, false);
}

TEST_F(SecurityRestrictionsCacheTest, EmptyPartsOfALimitTakeTheFamilyDefault) {
  const auto& c =
      Client("[clC1]\nPriceLimit_TQBR=,OPEN\nPriceLimit_EQOB=4\nPriceLimit_MIDDLE=3,MARKETPRICE\nPriceLimit_CETS=,\n");
  ExpectLimit(c.priceLimit, "TQBR", 3.0, kOpen, false);
  ExpectLimit(c.priceLimit, "EQOB", 4.0, kMarketPrice, false);
  ExpectLimit(c.priceLimit, "CETS", 3.0, kMarketPrice, false);
  EXPECT_DOUBLE_EQ(c.priceLimitMiddle.deviation, 3.0);
  EXPECT_EQ(c.priceLimitMiddle.priceType, kMarketPrice);
}

TEST_F(SecurityRestrictionsCacheTest, LimitWithoutDeviationAndWithoutDefaultIsDropped) {
  const auto& c = Client("[clC1]\nPriceLimit_TQBR=,OPEN\n");
  EXPECT_TRUE(c.priceLimit.limits.empty());
}

TEST_F(SecurityRestrictionsCacheTest, DefaultOfAFamilyReadsDeviationAndPriceType) {
  EXPECT_EQ(TCacheOfSecurityRestrictions::ParseDeviationPercentMiddle("LAST").priceType, kLast);
  EXPECT_DOUBLE_EQ(TCacheOfSecurityRestrictions::ParseDeviationPercentMiddle("LAST").deviation, -1.0);
  EXPECT_DOUBLE_EQ(TCacheOfSecurityRestrictions::ParseDeviationPercentMiddle("5").deviation, 5.0);
  EXPECT_EQ(TCacheOfSecurityRestrictions::ParseDeviationPercentMiddle("5").priceType, 0);
  EXPECT_EQ(TCacheOfSecurityRestrictions::ParseDeviationPercentMiddle("5,open").priceType, kOpen);
  EXPECT_FALSE(TCacheOfSecurityRestrictions::ParseDeviationPercentMiddle("1,LAST,1").IsSet());
  EXPECT_EQ(TCacheOfSecurityRestrictions::DeviationPercentMiddleToStr({5.0, kOpen}), "5,OPEN");
  EXPECT_EQ(TCacheOfSecurityRestrictions::DeviationPercentMiddleToStr({-1.0, kLast}), "LAST");
  EXPECT_EQ(TCacheOfSecurityRestrictions::DeviationPercentMiddleToStr({2.5, 0}), "2.5");
  EXPECT_EQ(TCacheOfSecurityRestrictions::DeviationPercentMiddleToStr({}), "");
  EXPECT_EQ(TCacheOfSecurityRestrictions::PriceLimitItemToStr({10.5, kWaPrice, true}), "10.5,WAPRICE,1");
  EXPECT_EQ(TCacheOfSecurityRestrictions::PriceLimitItemToStr({7, kLast, false}), "7,LAST");
}

TEST_F(SecurityRestrictionsCacheTest, MiddleKeyOfAnItemSetsItsPriceType) {
  const auto& c = Client("[clC1]\nPriceLimit_TQBR_MIDDLE=open\nSecPriceLimit_SBER_MIDDLE=BIDOFFER\n");
  EXPECT_EQ(c.priceLimit.middles, (std::map<std::string, int>{{"TQBR", kOpen}}));
  EXPECT_EQ(c.secPriceLimit.middles, (std::map<std::string, int>{{"SBER", kBidOffer}}));
  EXPECT_TRUE(c.priceLimit.limits.empty());
}

TEST_F(SecurityRestrictionsCacheTest, TheoreticalPriceIsRefusedAsMiddleOfASecurityOnly) {
  const auto& c = Client("[clC1]\nPriceLimit_TQBR_MIDDLE=THEORPRICE\nSecPriceLimit_SBER_MIDDLE=THEORPRICE\n");
  EXPECT_EQ(c.priceLimit.middles.at("TQBR"), kTheorPrice);
  EXPECT_TRUE(c.secPriceLimit.middles.empty());
}

TEST_F(SecurityRestrictionsCacheTest, MiddleWithAnUnknownPriceTypeIsDropped) {
  const auto& c = Client("[clC1]\nPriceLimit_TQBR_MIDDLE=NOSUCH\n");
  EXPECT_TRUE(c.priceLimit.middles.empty());
}

TEST_F(SecurityRestrictionsCacheTest, PriceLimitItemLongerThanTwelveBytesIsDropped) {
  const auto& c =
      Client("[clC1]\nPriceLimit_ABCDEFGHIJKLM=5\nPriceLimit_ABCDEFGHIJKL=6\nPriceLimit_ABCDEFGHIJKLM_MIDDLE=LAST\n");
  EXPECT_EQ(c.priceLimit.limits.size(), 1u);
  ExpectLimit(c.priceLimit, "ABCDEFGHIJKL", 6.0, kLast, false);
  EXPECT_TRUE(c.priceLimit.middles.empty());
}

TEST_F(SecurityRestrictionsCacheTest, PriceLimitWithMoreThanThreeItemsIsDropped) {
  const auto& c = Client("[clC1]\nPriceLimit_TQBR=1,LAST,1,9\n");
  EXPECT_TRUE(c.priceLimit.limits.empty());
}

TEST_F(SecurityRestrictionsCacheTest, EmptyPriceLimitValueLeavesTheLimitUnread) {
  DL::TPriceLimit limit;
  TCacheOfSecurityRestrictions::ParsePriceLimit(limit, DL::TDeviationPercentMiddle{5.0, kLast}, DL::cstClass, "TQBR",
                                                "");
  EXPECT_TRUE(limit.Empty());
}

TEST_F(SecurityRestrictionsCacheTest, FourLimitFamiliesHaveFieldsOfTheirOwn) {
  const auto& c = Client(
      "[clC1]\nPriceLimit_A=1\nSecPriceLimit_B=2\nSoft_PriceLimit_C=3\nSoft_SecPriceLimit_D=4\n"
      "Soft_SecPriceLimit_MIDDLE=OPEN\nSoft_PriceLimit_MIDDLE=9\nSecPriceLimit_MIDDLE=8,WAPRICE\n");
  ExpectLimit(c.priceLimit, "A", 1, kLast, false);
  ExpectLimit(c.secPriceLimit, "B", 2, kWaPrice, false);
  ExpectLimit(c.softPriceLimit, "C", 3, kLast, false);
  ExpectLimit(c.softSecPriceLimit, "D", 4, kOpen, false);
  EXPECT_EQ(c.priceLimit.limits.size() + c.secPriceLimit.limits.size() + c.softPriceLimit.limits.size() +
                c.softSecPriceLimit.limits.size(),
            4u);
  EXPECT_DOUBLE_EQ(c.softPriceLimitMiddle.deviation, 9.0);
  EXPECT_DOUBLE_EQ(c.secPriceLimitMiddle.deviation, 8.0);
}

TEST_F(SecurityRestrictionsCacheTest, GlobalPriceLimitSectionsReadMiddleFirst) {
  const auto& g = Global(
      "[PriceLimit]\nTQBR=,OPEN\nMIDDLE=2,LAST\nTQBR_MIDDLE=WAPRICE\n[SecPriceLimit]\nSBER=-3\nGAZP=1\n"
      "[Soft_PriceLimit]\nTQBR=5\n[Soft_SecPriceLimit]\nMIDDLE=OPEN\nSBER=6\n");
  ExpectLimit(g.priceLimit, "TQBR", 2.0, kOpen, false);
  EXPECT_EQ(g.priceLimit.middles.at("TQBR"), kWaPrice);
  EXPECT_EQ(g.priceLimitMiddle.priceType, kLast);
  EXPECT_EQ(g.secPriceLimit.limits.count("SBER"), 0u);
  ExpectLimit(g.secPriceLimit, "GAZP", 1.0, kLast, false);
  ExpectLimit(g.softPriceLimit, "TQBR", 5.0, kLast, false);
  ExpectLimit(g.softSecPriceLimit, "SBER", 6.0, kOpen, false);
}

// ---- Order value ----

TEST_F(SecurityRestrictionsCacheTest, ClientOrderMaxValueWithoutAnAmountTakesTheGlobalAmount) {
  Load(
      "[General]\nOrderMaxValue=1000,USD\n[clC1]\nOrderMaxValue=\n[clC2]\nOrderMaxValue=1,2,3\n"
      "[clC3]\nX=1\n[clC4]\nOrderMaxValue=50.5,EUR\n");
  EXPECT_DOUBLE_EQ(cache->GetGlobalSettings()->orderMaxValue.amount, 100000.0);
  EXPECT_EQ(cache->GetGlobalSettings()->orderMaxValue.currency, "USD");
  for (const char* client : {"C1", "C2", "C3"}) {
    const TClientSecurityRestrictions* c = cache->GetClientSettings(client);
    ASSERT_NE(c, nullptr);
    EXPECT_DOUBLE_EQ(c->orderMaxValue.amount, 100000.0) << client;
    EXPECT_FALSE(c->orderMaxValueSet) << client;
  }
  const TClientSecurityRestrictions* own = cache->GetClientSettings("C4");
  EXPECT_DOUBLE_EQ(own->orderMaxValue.amount, 5050.0);
  EXPECT_EQ(own->orderMaxValue.currency, "EUR");
  EXPECT_TRUE(own->orderMaxValueSet);
}

TEST_F(SecurityRestrictionsCacheTest, WithoutAnyOrderMaxValueTheAmountStaysNotSet) {
  EXPECT_DOUBLE_EQ(Client("[clC1]\nX=1\n").orderMaxValue.amount, -100.0);
}

// ---- Partners and settle codes ----

TEST_F(SecurityRestrictionsCacheTest, PartnerLineWithOneCodeOverTheLimitHasNoEffect) {
  const auto& c = Client(
      "[clC1]\nAllowedPartnersAndSettleCodes_TQBR=P1,PARTNER_13_CH\n"
      "ProhibitedPartnersAndSettleCodes_TQBR=P1|S1,SETTLE_13_CHR\n"
      "Soft_ProhibitedPartnersAndSettleCodes_ABCDEFGHIJKLM=P1\n");
  EXPECT_TRUE(c.allowedPartnersAndSettleCodes.Empty());
  EXPECT_TRUE(c.prohibitedPartnersAndSettleCodes.Empty());
  EXPECT_TRUE(c.softProhibitedPartnersAndSettleCodes.Empty());
}

TEST_F(SecurityRestrictionsCacheTest, PartnerCodesOfTwelveBytesPass) {
  const auto& c = Client("[clC1]\nAllowedPartnersAndSettleCodes_TQBR=PARTNER_12CH|SETTLE_12_CH\n");
  const auto& items = c.allowedPartnersAndSettleCodes.Items();
  ASSERT_EQ(items.size(), 1u);
  EXPECT_EQ(items.begin()->second.partners, Strings{"PARTNER_12CH"});
  EXPECT_EQ(items.begin()->second.settleCodes, Strings{"SETTLE_12_CH"});
}

TEST_F(SecurityRestrictionsCacheTest, SideOtherThanBOrSDropsThePartnerLine) {
  const auto& c = Client(
      "[clC1]\nAllowedPartnersAndSettleCodes_TQBR_SIDE_X=P1\nAllowedPartnersAndSettleCodes_EQOB_SIDE_=P2\n"
      "AllowedPartnersAndSettleCodes_CETS_SIDE_BS=P3\nAllowedPartnersAndSettleCodes_SPBFUT_SIDE_B=P4\n");
  const auto& items = c.allowedPartnersAndSettleCodes.Items();
  ASSERT_EQ(items.size(), 1u);
  EXPECT_EQ(items.begin()->first, Key({"SPBFUT"}, DL::sdBuy));
  EXPECT_EQ(items.begin()->second.partners, Strings{"P4"});
}

TEST_F(SecurityRestrictionsCacheTest, PartnerKeyReadsClassesSideAndTerm) {
  const auto& c = Client(
      "[clC1]\nProhibitedPartnersAndSettleCodes_TQBR,<ALL_REPO_CCP>_Side_S_Term_30=P1, P2|S1,S2\n"
      "ProhibitedPartnersAndSettleCodes_EQRP_TERM_7=|S9\n");
  const auto& items = c.prohibitedPartnersAndSettleCodes.Items();
  ASSERT_EQ(items.size(), 2u);
  const auto first = items.find(Key({"TQBR", "<ALL_REPO_CCP>"}, DL::sdSell, true, 30));
  ASSERT_NE(first, items.end());
  EXPECT_EQ(first->second.partners, (Strings{"P1", "P2"}));
  EXPECT_EQ(first->second.settleCodes, (Strings{"S1", "S2"}));
  const auto second = items.find(Key({"EQRP"}, DL::sdBoth, true, 7));
  ASSERT_NE(second, items.end());
  EXPECT_TRUE(second->second.partners.empty());
  EXPECT_EQ(second->second.settleCodes, Strings{"S9"});
  EXPECT_EQ(TPartnersAndSettleCodes::KeyToStr(first->first), "TQBR,<ALL_REPO_CCP>_SIDE_S_TERM_30");
  EXPECT_EQ(TPartnersAndSettleCodes::CodesToStr(first->second), "P1,P2|S1,S2");
}

TEST_F(SecurityRestrictionsCacheTest, PartnerLineWithoutClassOrValueIsDropped) {
  TPartnersAndSettleCodes p;
  EXPECT_FALSE(p.AddLine("_SIDE_B", "P1"));
  EXPECT_FALSE(p.AddLine("TQBR", ""));
  EXPECT_FALSE(p.AddLine("TQBR", " | "));
  EXPECT_TRUE(p.Empty());
}

TEST_F(SecurityRestrictionsCacheTest, GlobalPartnerSectionsHoldTheKeyBehindTheParameter) {
  const auto& g = Global(
      "[AllowedPartnersAndSettleCodes]\nTQBR=P1\n[ProhibitedPartnersAndSettleCodes]\nTQBR_SIDE_B=P2\n"
      "[Soft_ProhibitedPartnersAndSettleCodes]\n<ALL>=P3\n");
  EXPECT_EQ(g.allowedPartnersAndSettleCodes.Items().begin()->first, Key({"TQBR"}));
  EXPECT_EQ(g.prohibitedPartnersAndSettleCodes.Items().begin()->first, Key({"TQBR"}, DL::sdBuy));
  EXPECT_EQ(g.softProhibitedPartnersAndSettleCodes.Items().begin()->first, Key({"<ALL>"}));
}

// ---- Lists ----

TEST_F(SecurityRestrictionsCacheTest, PartnerListsMaySayAll) {
  const auto& c = Client("[clC1]\nAllowedPartners=<ALL>\nProhibitedPartners=A, B ,A\nUserTemplate=U1\n");
  EXPECT_TRUE(c.allowedPartners.IsAll());
  EXPECT_TRUE(c.allowedPartners.Items().empty());
  EXPECT_EQ(c.allowedPartners.ToStr(), "<ALL>");
  EXPECT_EQ(c.prohibitedPartners.Items(), (Strings{"A", "B"}));
  EXPECT_EQ(c.userTemplate.Items(), Strings{"U1"});
}

TEST_F(SecurityRestrictionsCacheTest, ClassSuffixKeysFillTheirMaps) {
  const auto& c = Client(
      "[clC1]\nTQBR_RESTRICTOPEN=SBER,GAZP\nTQBR_RESTSECURITY=<ALL>\nEQOB_SECURITY=SU26*\nTQBR_TRDACC=L01\n"
      "ABCDEFGHIJKLM_RESTRICTOPEN=X\n_SECURITY=Y\n");
  EXPECT_EQ(c.restrictOpen.size(), 1u);
  EXPECT_EQ(c.restrictOpen.at("TQBR").Items(), (Strings{"SBER", "GAZP"}));
  EXPECT_TRUE(c.restSecurity.at("TQBR").IsAll());
  EXPECT_EQ(c.security.size(), 1u);
  EXPECT_TRUE(c.security.at("EQOB").Contains("SU26238RMFS4"));
  EXPECT_EQ(c.trdAcc.at("TQBR").Items(), Strings{"L01"});
}

TEST_F(SecurityRestrictionsCacheTest, NoAllowedListUntilASecurityKeyOrAnAllTradingAccount) {
  EXPECT_TRUE(Client("[clC1]\nTQBR_TRDACC=L01\n").noAllowedList);
  EXPECT_FALSE(Client("[clC1]\nTQBR_TRDACC=<ALL>\n").noAllowedList);
  EXPECT_FALSE(Client("[clC1]\nTQBR_SECURITY=SBER\n").noAllowedList);
  EXPECT_TRUE(Global("[General]\nX=1\n").noAllowedList);
}

TEST_F(SecurityRestrictionsCacheTest, WriteOffCurrencyReadsCurrenciesAndSwitches) {
  const auto& c = Client(
      "[clC1]\nCommissionWriteOffCurrency_USD=TQBR,SPBFUT\nTSCommission_EUR=CETS\nWithinAvailableCurrencyBalance=1\n"
      "AllowPositionClosing=yes\nDoNotCheckForDiffSettlCurr=1\nCommissionWriteOffCurrency_USDXX=TQBR\n");
  const auto& w = c.commissionWriteOffCurrency;
  EXPECT_EQ(w.broker.size(), 1u);
  EXPECT_EQ(w.broker.at("USD"), (Strings{"TQBR", "SPBFUT"}));
  EXPECT_EQ(w.tradeSystem.at("EUR"), Strings{"CETS"});
  EXPECT_TRUE(w.withinAvailableCurrencyBalance);
  EXPECT_FALSE(w.allowPositionClosing);
  EXPECT_TRUE(w.doNotCheckForDiffSettlCurr);
  EXPECT_EQ(w.GetFlags(), 5u);
}

TEST_F(SecurityRestrictionsCacheTest, PlainListsAndCurrencySets) {
  const auto& c = Client(
      "[clC1]\nClassesWithoutTSCommission=TQBR,EQOB\nLinkedUserTemplate=T1\nBrokerQuoteBoard=PSAU\n"
      "TransferBoard=TQBR, SPBFUT\nAddMultiCurrency_SUR=RUB,USD,RUR\nCurrency_MAIN=RUB,EUR\nCurrency2_MAIN=CNY\n"
      "AddMultiCurrency=USD\n");
  EXPECT_EQ(c.classesWithoutTSCommission.Items(), (Strings{"TQBR", "EQOB"}));
  EXPECT_EQ(c.linkedUserTemplate.Items(), Strings{"T1"});
  EXPECT_EQ(c.brokerQuoteBoard.Items(), Strings{"PSAU"});
  EXPECT_EQ(c.transferBoard.Items(), (Strings{"TQBR", "SPBFUT"}));
  EXPECT_EQ(c.addMultiCurrency.size(), 1u);
  EXPECT_EQ(c.addMultiCurrency.at("SUR"), (std::set<std::string>{"SUR", "USD"}));
  EXPECT_EQ(c.currency.at("MAIN"), (std::set<std::string>{"EUR", "SUR"}));
  EXPECT_EQ(c.currency2.at("MAIN"), (std::set<std::string>{"CNY"}));
}

TEST_F(SecurityRestrictionsCacheTest, GlobalSectionsFillTheGlobalObject) {
  const auto& g = Global(
      "[General]\nIGNORECHECKLIMITS=1\nOrderMaxValue=20\n[AddMultiCurrency]\nSUR=RUR,USD\n"
      "[AllowedSecurity]\nTQBR=SBER\n[RestrictSecurity]\nTQBR=GAZP,LKOH\nABCDEFGHIJKLM=X\n"
      "[RestrictOpenSecurity]\nEQOB=<ALL>\n[CommissionWriteOffCurrency]\nCommissionWriteOffCurrency_USD=TQBR\n"
      "AllowPositionClosing=1\n");
  EXPECT_TRUE(g.ignoreCheckLimits);
  EXPECT_DOUBLE_EQ(g.orderMaxValue.amount, 2000.0);
  EXPECT_TRUE(g.orderMaxValueSet);
  EXPECT_EQ(g.addMultiCurrency.at("SUR"), (std::set<std::string>{"SUR", "USD"}));
  EXPECT_EQ(g.security.at("TQBR").Items(), Strings{"SBER"});
  EXPECT_FALSE(g.noAllowedList);
  EXPECT_EQ(g.restSecurity.size(), 1u);
  EXPECT_EQ(g.restSecurity.at("TQBR").Items(), (Strings{"GAZP", "LKOH"}));
  EXPECT_TRUE(g.restrictOpen.at("EQOB").IsAll());
  EXPECT_EQ(g.commissionWriteOffCurrency.broker.at("USD"), Strings{"TQBR"});
  EXPECT_TRUE(g.commissionWriteOffCurrency.allowPositionClosing);
}

TEST_F(SecurityRestrictionsCacheTest, IgnoreCheckLimitsIsReadFromTheGlobalGeneralOnly) {
  Load("[General]\nX=1\n[clC1]\nIGNORECHECKLIMITS=1\n");
  EXPECT_FALSE(cache->GetGlobalSettings()->ignoreCheckLimits);
  EXPECT_FALSE(cache->GetClientSettings("C1")->ignoreCheckLimits);
}

TEST_F(SecurityRestrictionsCacheTest, ClientSectionCopiesNothingFromTheGlobalObjectButTheOrderValue) {
  const auto& c = Client("[RestrictSecurity]\nTQBR=GAZP\n[General]\nOrderMaxValue=5\n[clC1]\nX=1\n");
  EXPECT_TRUE(c.restSecurity.empty());
  EXPECT_DOUBLE_EQ(c.orderMaxValue.amount, 500.0);
}

// ---- Resolution ----

constexpr const char* kFirm =
    "[General]\nX=1\n"
    "[clC1]\nPriceLimit_A=1\n"
    "[clLEV_Client_Template]\nClients=C9\nIncludeClientsWithLeverage=2\nPriceLimit_A=2\n"
    "[clT1_Client_Template]\nClients=C5,C6\nPriceLimit_A=3\n"
    "[clT2_Client_Template]\nClients=C5\nPriceLimit_A=4\n"
    "[clA*]\nPriceLimit_A=5\n"
    "[clAB*]\nPriceLimit_A=6\n"
    "[clC5*]\nPriceLimit_A=7\n";

double LimitA(const TClientSecurityRestrictions* o) {
  const auto it = o->priceLimit.limits.find("A");
  return it == o->priceLimit.limits.end() ? -1.0 : it->second.deviation;
}

TEST_F(SecurityRestrictionsCacheTest, LeverageTemplateComesBeforeThePersonalSection) {
  Load(kFirm);
  const auto r = cache->ParseSettingsForClient(TIniCacheItemID("C1", 2.0));
  EXPECT_EQ(r.second, DL::SourceTemplate);
  EXPECT_DOUBLE_EQ(LimitA(r.first), 2.0);
  EXPECT_DOUBLE_EQ(LimitA(cache->GetIniSetting(TIniCacheItemID("C1", 1.999))), 2.0);
  EXPECT_TRUE(cache->ItemTable().empty());  // a template is not an item
  EXPECT_DOUBLE_EQ(LimitA(cache->GetIniSetting(TIniCacheItemID("C1", -1.0))), 1.0);
  EXPECT_EQ(cache->ItemTable().size(), 1u);
}

TEST_F(SecurityRestrictionsCacheTest, TemplateListingTheClientComesBeforeThePrefixAndTheSortedFirstWins) {
  Load(kFirm);
  const auto r = cache->ParseSettingsForClient(TIniCacheItemID("C5", -1.0));
  EXPECT_EQ(r.second, DL::SourceTemplate);
  EXPECT_DOUBLE_EQ(LimitA(r.first), 3.0);
  EXPECT_EQ(cache->GetParsedTemplateSettings().count("T1"), 1u);
  EXPECT_EQ(cache->GetTemplateSettings("T1"), r.first);
}

TEST_F(SecurityRestrictionsCacheTest, LongestPrefixSectionWins) {
  Load(kFirm);
  const auto r = cache->ParseSettingsForClient(TIniCacheItemID("ABC", -1.0));
  EXPECT_EQ(r.second, DL::SourceClient);
  EXPECT_DOUBLE_EQ(LimitA(r.first), 6.0);
  EXPECT_DOUBLE_EQ(LimitA(cache->GetIniSetting(TIniCacheItemID("AX", -1.0))), 5.0);
}

TEST_F(SecurityRestrictionsCacheTest, ClientsOfOnePrefixShareOneParsedObject) {
  Load(kFirm);
  const TClientSecurityRestrictions* a = cache->GetIniSetting(TIniCacheItemID("AB1", -1.0));
  const TClientSecurityRestrictions* b = cache->GetIniSetting(TIniCacheItemID("AB2", -1.0));
  EXPECT_EQ(a, b);
  EXPECT_EQ(cache->ItemTable().size(), 2u);
  EXPECT_EQ(cache->GetParsedClientSettings().size(), 1u);
  EXPECT_EQ(cache->FindParsedSection("clAB*"), a);
}

TEST_F(SecurityRestrictionsCacheTest, ClientWithoutSettingsGetsTheGlobalObjectAndIsNotEntered) {
  Load(kFirm);
  const auto r = cache->ParseSettingsForClient(TIniCacheItemID("ZZZ", -1.0));
  EXPECT_EQ(r.first, nullptr);
  EXPECT_EQ(r.second, DL::SourceGlobal);
  EXPECT_EQ(cache->GetIniSetting(TIniCacheItemID("ZZZ", -1.0)), cache->GetGlobalSettings());
  EXPECT_EQ(cache->GetIniSetting(TIniCacheItemID("", -1.0)), cache->GetGlobalSettings());
  EXPECT_TRUE(cache->ItemTable().empty());
}

TEST_F(SecurityRestrictionsCacheTest, MissingSectionYieldsNoObject) {
  Load(kFirm);
  EXPECT_EQ(cache->ParseSettingsFromSection("clNOSUCH"), nullptr);
  EXPECT_EQ(cache->GetClientSettings("NOSUCH"), nullptr);
  EXPECT_EQ(cache->GetTemplateSettings("NOSUCH"), nullptr);
  EXPECT_EQ(cache->FindParsedSection("clC1"), nullptr);  // not parsed yet
}

TEST_F(SecurityRestrictionsCacheTest, SectionIsParsedOnceAndFoundIgnoringCase) {
  Load(kFirm);
  const auto a = cache->ParseSettingsFromSection("clC1");
  const auto b = cache->ParseSettingsFromSection("CLC1");
  EXPECT_EQ(a.get(), b.get());
  EXPECT_EQ(cache->FindParsedSection("clc1"), a.get());
}

TEST_F(SecurityRestrictionsCacheTest, RemovingAnUnknownTemplateReturns15AndChangesNothing) {
  Load(kFirm);
  ASSERT_NE(cache->GetTemplateSettings("T1"), nullptr);
  EXPECT_EQ(cache->RemoveParsedTemplateSettings("NOSUCH"), 15);
  EXPECT_EQ(cache->GetParsedTemplateSettings().size(), 1u);
  EXPECT_NE(cache->FindParsedSection("clT1_Client_Template"), nullptr);
}

TEST_F(SecurityRestrictionsCacheTest, RemovingAKnownTemplateDropsItsObjectUntilNextUse) {
  Load(kFirm);
  ASSERT_NE(cache->GetTemplateSettings("T1"), nullptr);
  EXPECT_EQ(cache->RemoveParsedTemplateSettings("T1"), 0);
  EXPECT_TRUE(cache->GetParsedTemplateSettings().empty());
  EXPECT_EQ(cache->FindParsedSection("clT1_Client_Template"), nullptr);
  EXPECT_EQ(cache->RemoveParsedTemplateSettings("T2"), 0);  // known, never parsed
  EXPECT_DOUBLE_EQ(LimitA(cache->GetTemplateSettings("T1")), 3.0);
}

TEST_F(SecurityRestrictionsCacheTest, ObjectsCompareByContent) {
  Load(
      "[clC1]\nPriceLimit_A=1\nAllowedPartners=P\n[clC2]\nAllowedPartners=P\nPriceLimit_A=1\n[clC3]\nPriceLimit_A=2\n");
  EXPECT_EQ(*cache->GetClientSettings("C1"), *cache->GetClientSettings("C2"));
  EXPECT_NE(*cache->GetClientSettings("C1"), *cache->GetClientSettings("C3"));
}

}  // namespace
