// The effective-settings queries of TInfoStorage on whole settings texts:
// the level that answers for a client, limit kinds, restriction tests,
// currency identity and effective discounts.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/TInfoStorage.h"

namespace {

using DL::TDiscountsEx;
using DL::TInfoStorage;

// One client at each level of the margin settings. Every level says its own
// "UseDiscountsType", which GetDiscountType gives for a class without an
// entry of its own.
const char* const kLevels =
    "[General]\n"
    "UseDiscountsType=3\n"
    "[cl<GENERAL>_Margin]\n"
    "UseDiscountsType=15\n"
    "[clX*_Margin]\n"
    "UseDiscountsType=14\n"
    "[clXOWN_Margin]\n"
    "UseDiscountsType=12\n"
    "[clTPL_Margin_Template]\n"
    "Clients=XTPL,XOWN\n"
    "UseDiscountsType=13\n"
    "[clLEV_Margin_Template]\n"
    "IncludeClientsWithLeverage=2\n"
    "UseDiscountsType=11\n";

struct TPrecedenceRow {
  const char* client;
  double leverage;
  int expected;  // the UseDiscountsType of the level that wins
  const char* level;
};

TEST(QueriesPrecedenceTest, MarginLevelsByPrecedence) {
  TInfoStorage storage(kLevels, 2, false);
  // client    leverage  value  level that wins
  const TPrecedenceRow rows[] = {
      {"XOWN", 2.0, 11, "leverage template outranks the client's own section"},
      {"XTPL", 2.0, 11, "leverage template outranks the template naming the client"},
      {"XPRE", 2.0, 11, "leverage template outranks the prefix"},
      {"NOBODY", 2.0, 11, "leverage template outranks the general section"},
      {"XOWN", -1.0, 12, "own section outranks the template naming the client and the prefix"},
      {"XOWN", 3.0, 12, "a leverage no template claims: own section"},
      {"XTPL", -1.0, 13, "template naming the client outranks the prefix"},
      {"XPRE", -1.0, 14, "prefix outranks the general section"},
      {"NOBODY", -1.0, 15, "general section outranks the global settings"},
      {"", -1.0, 3, "an empty client gets the global settings"},
      {"", 2.0, 3, "an empty client gets the global settings at any leverage"},
  };
  for (const TPrecedenceRow& row : rows)
    EXPECT_EQ(storage.GetDiscountType(row.client, 0, row.leverage, "TQBR"), row.expected)
        << row.client << " at " << row.leverage << ": " << row.level;
}

TEST(QueriesPrecedenceTest, WithoutTheGeneralSectionAnUnknownClientGetsTheGlobalSettings) {
  TInfoStorage storage("[General]\nUseDiscountsType=2\n[clX*_Margin]\nUseDiscountsType=14\n", 2, false);
  EXPECT_EQ(storage.GetDiscountType("NOBODY", 0, -1.0, "TQBR"), 2);
  EXPECT_EQ(storage.GetDiscountType("X1", 0, -1.0, "TQBR"), 14);
}

TEST(QueriesPrecedenceTest, RestrictionLevelsByPrecedence) {
  // The soft restricted lists: the resolved restriction template's list of
  // a class replaces the global one.
  TInfoStorage storage(
      "[Soft_SecurityRestricted]\nTQBR=SBER\n"
      "[clT_Restriction_Template]\nClients=C1\nSoft_SecurityRestricted_TQBR=GAZP\n"
      "[clL_Restriction_Template]\nIncludeClientsWithLeverage=5\nSoft_SecurityRestricted_TQBR=LKOH\n",
      2, false);
  struct Row {
    const char* client;
    double leverage;
    const char* sec;
    int expected;
  };
  // client leverage security hit
  const Row rows[] = {
      {"C1", -1.0, "GAZP", 1},  // the template naming the client
      {"C1", -1.0, "SBER", 0},  // its list replaces the global one
      {"C1", 5.0, "LKOH", 1},   // the leverage template
      {"C1", 5.0, "GAZP", 0},
      {"C2", -1.0, "SBER", 1},  // no template: global
      {"", -1.0, "SBER", 1},    // empty client: global
      {"", -1.0, "GAZP", 0},
  };
  for (const Row& row : rows) {
    int hit = -1;
    ASSERT_EQ(storage.IsSoftSecurityRestricted(&hit, row.client, row.leverage, "TQBR", row.sec, 0, DL::sdBuy), 0);
    EXPECT_EQ(hit, row.expected) << row.client << " " << row.leverage << " " << row.sec;
  }
  EXPECT_EQ(storage.IsSoftSecurityRestricted(nullptr, "C1", -1.0, "TQBR", "SBER", 0, DL::sdBuy), 3);
}

// ---- Limit kinds ----

TEST(QueriesLimitKindsTest, ClientLimitKindsAreSorted) {
  TInfoStorage storage("[clC1_Margin]\nLimitKinds=5,0,2\n", 2, false);
  EXPECT_EQ(storage.ClientLimitKinds("C1", -1.0, 0), (std::vector<int>{0, 2, 5}));
  EXPECT_TRUE(storage.ClientLimitKinds("C2", -1.0, 0).empty());
}

TEST(QueriesLimitKindsTest, ConfiguredKindBySecurityThenSettleCodeThenClass) {
  TInfoStorage storage(
      "[ClassToLimitKind]\nTQBR=4\nTQTF=6\n"
      "[SecurityToLimitKind]\nGAZP=9\n"
      "[clC1_Margin]\nClassToLimitKind_TQBR=3\nSecurityToLimitKind_SBER=7\nSettleCodeToLimitKind_TQBR_Y2=2\n",
      2, false);
  EXPECT_EQ(storage.GetLimitKindForOperationFromIni("C1", -1.0, "SBER", "TQBR", "Y2"), 7);
  EXPECT_EQ(storage.GetLimitKindForOperationFromIni("C1", -1.0, "GAZP", "TQBR", "Y2"), 9);  // global security map
  EXPECT_EQ(storage.GetLimitKindForOperationFromIni("C1", -1.0, "LKOH", "tqbr", "y2"), 2);  // upper-cased
  EXPECT_EQ(storage.GetLimitKindForOperationFromIni("C1", -1.0, "LKOH", "TQBR", "T0"), 3);
  EXPECT_EQ(storage.GetLimitKindForOperationFromIni("C1", -1.0, "LKOH", "TQTF", nullptr), 6);
  EXPECT_EQ(storage.GetLimitKindForOperationFromIni("C2", -1.0, "LKOH", "TQBR", nullptr), 4);
  EXPECT_EQ(storage.GetLimitKindForOperationFromIni("C1", -1.0, nullptr, nullptr, nullptr), 0);
}

std::vector<int> Chain(const TInfoStorage& storage, const char* classCode) {
  std::vector<int> out{99};
  storage.GetChainLimitKindsForOperation(out, "", classCode, "", "C1", -1.0);
  return out;
}

TEST(QueriesLimitKindsTest, ChainFromTheConfiguredKindUpward) {
  const std::string base =
      "[clC1_Margin]\nLimitKinds=0,2,5\nClassToLimitKind_K3=3\nClassToLimitKind_K1=1\nClassToLimitKind_K9=9\n"
      "ClassToLimitKind_WL=1\n[ClassesWithoutLimitKinds]\nClasses=WL\n";
  TInfoStorage storage(base.c_str(), 2, false);
  EXPECT_EQ(Chain(storage, "K3"), (std::vector<int>{5}));
  EXPECT_EQ(Chain(storage, "K1"), (std::vector<int>{2, 5}));
  EXPECT_EQ(Chain(storage, "K9"), (std::vector<int>{5}));
  EXPECT_EQ(Chain(storage, "WL"), (std::vector<int>{2}));  // a class without limit kinds: one element
  EXPECT_EQ(storage.GetLimitKindForOperation("C1", -1.0, "", "K1", ""), 2);
}

TEST(QueriesLimitKindsTest, WithoutLimitKindsTheChainIsZero) {
  TInfoStorage storage("[clC1_Margin]\nClassToLimitKind_K3=3\n", 2, false);
  EXPECT_EQ(Chain(storage, "K3"), (std::vector<int>{0}));
}

TEST(QueriesLimitKindsTest, AllLimitKindsTheSameRedirectsToZero) {
  TInfoStorage storage(
      "[clC1_Margin]\nCheckForAllLimitKinds=1\nUseDiscountsType=1\n[clC1_Margin_LimitKind_2]\nUseDiscountsType=2\n"
      "[clC2_Margin]\nUseDiscountsType=1\n[clC2_Margin_LimitKind_2]\nUseDiscountsType=2\n",
      2, false);
  EXPECT_EQ(storage.GetEffectiveLK("C1", -1.0, 2), 0);
  EXPECT_EQ(storage.GetDiscountType("C1", 2, -1.0, "TQBR"), 1);
  EXPECT_EQ(storage.GetEffectiveLK("C2", -1.0, 2), 2);
  EXPECT_EQ(storage.GetDiscountType("C2", 2, -1.0, "TQBR"), 2);
  EXPECT_EQ(storage.GetDiscountType("C2", 7, -1.0, "TQBR"), 1);  // no body of kind 7: kind 0
}

// ---- Restriction tests ----

TEST(QueriesRestrictedTest, GlobalListsByClassAndForEveryClass) {
  TInfoStorage storage("[RestShortSecurities]\nSECURITY_TQBR=SBER,GAZ*\n<ALL>=VTBR\n", 2, false);
  EXPECT_TRUE(storage.IsSecurityRestricted("C1", -1.0, "TQBR", "SBER", 0));
  EXPECT_TRUE(storage.IsSecurityRestricted("C1", -1.0, "TQBR", "GAZP", 0));  // by trailing prefix
  EXPECT_FALSE(storage.IsSecurityRestricted("C1", -1.0, "TQBR", "LKOH", 0));
  EXPECT_FALSE(storage.IsSecurityRestricted("C1", -1.0, "TQTF", "SBER", 0));
  EXPECT_TRUE(storage.IsSecurityRestricted("C1", -1.0, "TQTF", "VTBR", 0));  // listed for every class
  EXPECT_TRUE(storage.IsSecurityRestricted("", -1.0, "TQBR", "SBER", 0));
}

TEST(QueriesRestrictedTest, OwnListThenLimitKindZeroThenGlobal) {
  TInfoStorage storage(
      "[RestShortSecurities]\nSECURITY_TQBR=SBER\n"
      "[clC1_Margin]\nSECURITY_TQBR_RESTSHORT=LKOH\n[clC1_Margin_LimitKind_2]\nUseDiscountsType=1\n"
      "[clC1_Margin_LimitKind_3]\nSECURITY_TQBR_RESTSHORT=MTSS\n"
      "[clC2_Margin]\nSECURITY_<ALL>_RESTSHORT=<ALL>\n",
      2, false);
  EXPECT_TRUE(storage.IsSecurityRestricted("C1", -1.0, "TQBR", "LKOH", 0));
  EXPECT_FALSE(storage.IsSecurityRestricted("C1", -1.0, "TQBR", "SBER", 0));  // the own list stands for all
  EXPECT_TRUE(storage.IsSecurityRestricted("C1", -1.0, "TQBR", "LKOH", 2));   // kind 2 has none: kind 0
  EXPECT_TRUE(storage.IsSecurityRestricted("C1", -1.0, "TQBR", "MTSS", 3));
  EXPECT_FALSE(storage.IsSecurityRestricted("C1", -1.0, "TQBR", "LKOH", 3));
  EXPECT_TRUE(storage.IsSecurityRestricted("C2", -1.0, "ANY", "THING", 0));  // restricts everything
  EXPECT_TRUE(storage.IsSecurityRestricted("C3", -1.0, "TQBR", "SBER", 0));
}

TEST(QueriesAllowedTest, GlobalListWithoutCheckClient) {
  TInfoStorage storage("[AllowedSecurity]\nTQBR=SBER,GAZ*\nTQTF=<ALL>\n[clC1]\nTQBR_SECURITY=LKOH\n", 2, false);
  EXPECT_TRUE(storage.IsSecurityAllowed("C1", "TQBR", "SBER", -1.0));
  EXPECT_TRUE(storage.IsSecurityAllowed("C1", "TQBR", "GAZP", -1.0));
  EXPECT_FALSE(storage.IsSecurityAllowed("C1", "TQBR", "LKOH", -1.0));  // the client list is not asked
  EXPECT_TRUE(storage.IsSecurityAllowed("C1", "TQTF", "ANY", -1.0));
  EXPECT_TRUE(storage.IsSecurityAllowed("C1", "CETS", "USD", -1.0));  // class not listed
  EXPECT_TRUE(storage.IsSecurityAllowed("", "TQBR", "SBER", -1.0));
}

TEST(QueriesAllowedTest, TheEmptyClientGetsTheGlobalListWithCheckClient) {
  TInfoStorage storage("[General]\nCheckClient=1\n[AllowedSecurity]\nTQBR=SBER\n[clC1]\nTQBR_SECURITY=LKOH\n", 2,
                       false);
  EXPECT_TRUE(storage.IsSecurityAllowed("", "TQBR", "SBER", -1.0));
  EXPECT_FALSE(storage.IsSecurityAllowed("", "TQBR", "LKOH", -1.0));
}

TEST(QueriesAllowedTest, WithCheckClientTheClientsOwnListIsUsed) {
  TInfoStorage storage("[General]\nCheckClient=1\n[AllowedSecurity]\nTQBR=SBER\n[clC1]\nTQBR_SECURITY=LKOH\n", 2,
                       false);
  EXPECT_TRUE(storage.IsSecurityAllowed("C1", "TQBR", "LKOH", -1.0));
  EXPECT_FALSE(storage.IsSecurityAllowed("C1", "TQBR", "SBER", -1.0));
  EXPECT_FALSE(storage.IsSecurityAllowed("C1", "CETS", "USD", -1.0));  // not the global list
  EXPECT_TRUE(storage.IsSecurityAllowed("C2", "TQBR", "SBER", -1.0));  // no own list: global
  EXPECT_TRUE(storage.IsSecurityAllowed("C2", "CETS", "USD", -1.0));
}

TEST(QueriesAllowedTest, TradeAccountListsProhibitFirstThenAllow) {
  TInfoStorage storage("[SecurityAllowedTrdAcc]\nTQBR=SBER,GAZP\n[SecurityProhibitedTrdAcc]\nTQBR=GAZP\nTQTF=<ALL>\n",
                       2, false);
  EXPECT_TRUE(storage.IsSecurityAllowedTrdAcc("C1", "TQBR", "SBER", DL::sdBuy, -1.0));
  EXPECT_FALSE(storage.IsSecurityAllowedTrdAcc("C1", "TQBR", "GAZP", DL::sdBuy, -1.0));  // prohibited wins
  EXPECT_FALSE(storage.IsSecurityAllowedTrdAcc("C1", "TQBR", "LKOH", DL::sdSell, -1.0));  // not in the allowed list
  EXPECT_FALSE(storage.IsSecurityAllowedTrdAcc("C1", "TQTF", "FXGD", DL::sdBuy, -1.0));   // "<ALL>" prohibited
  EXPECT_TRUE(storage.IsSecurityAllowedTrdAcc("C1", "CETS", "USD", DL::sdBuy, -1.0));     // class in no list
}

// ---- Currency identity ----

TEST(QueriesCurrencyTest, RubAndRurBecomeTheMainRubles) {
  TInfoStorage storage("", 2, false);
  EXPECT_EQ(storage.ReplaceRubRurToMainRubles("RUB"), "SUR");
  EXPECT_EQ(storage.ReplaceRubRurToMainRubles("USD"), "USD");
  EXPECT_EQ(TInfoStorage::ReplaceRubRurToDefaultRubles("RUR"), "SUR");
  EXPECT_EQ(TInfoStorage::ReplaceRubRurToDefaultRubles("EUR"), "EUR");
  std::set<std::string> set{"RUB", "RUR", "USD"};
  TInfoStorage::ReplaceRubRurToSurInSet(set);
  EXPECT_EQ(set, (std::set<std::string>{"SUR", "USD"}));
  EXPECT_EQ(storage.GetRublesEquivalents(), (std::set<std::string>{"RUB", "RUR", "SUR"}));
  EXPECT_TRUE(storage.IsEqualCurrencies("RUB", "SUR"));
  EXPECT_FALSE(storage.IsEqualCurrencies("USD", "SUR"));
  EXPECT_FALSE(storage.IsEqualCurrencies("", ""));
}

TEST(QueriesCurrencyTest, MainCurrencyOfAMultiCurrencyGroup) {
  TInfoStorage storage(
      "[General]\nSupportMultiCurrency=1\n[AddMultiCurrency]\nUSD=UST,USX\n[ClientsNoMultiCurrency]\nClients=C2\n", 2,
      false);
  ASSERT_NE(storage.GetMainCurrency("C1", -1.0, "UST"), nullptr);
  EXPECT_STREQ(storage.GetMainCurrency("C1", -1.0, "UST"), "USD");
  EXPECT_STREQ(storage.GetMainCurrency("C1", -1.0, "USD"), "USD");
  EXPECT_EQ(storage.GetMainCurrency("C1", -1.0, "EUR"), nullptr);
  EXPECT_EQ(storage.GetMainCurrency("C1", -1.0, ""), nullptr);
  EXPECT_EQ(storage.GetMainCurrency("C2", -1.0, "UST"), nullptr);  // the client is excluded
  EXPECT_FALSE(storage.DoesClientSupportMultiCurrency("C2"));
}

TEST(QueriesCurrencyTest, MultiCurrencyOfAClassAndASecurity) {
  TInfoStorage storage(
      "[General]\nSupportMultiCurrency=1\nMULTICURRINSTRCLASSES=CETS\n[AddMultiCurrency]\nUSD=UST\n"
      "[ClientsNoMultiCurrency]\nClients=C2\n",
      2, false);
  EXPECT_TRUE(storage.DoesSupportMultiCurrency("C1", -1.0, "CETS", "USD000", "UST"));
  EXPECT_TRUE(storage.DoesSupportMultiCurrency("C1", -1.0, "CETS", "USD000", "USD"));
  EXPECT_FALSE(storage.DoesSupportMultiCurrency("C1", -1.0, "CETS", "USD000", "EUR"));
  EXPECT_FALSE(storage.DoesSupportMultiCurrency("C1", -1.0, "TQBR", "SBER", "UST"));  // not a multi-currency class
  EXPECT_FALSE(storage.DoesSupportMultiCurrency("C2", -1.0, "CETS", "USD000", "UST"));
  EXPECT_FALSE(storage.DoesSupportMultiCurrency("C1", -1.0, "CETS", "", "UST"));  // a missing code
}

TEST(QueriesCurrencyTest, MultiCurrencyOffGivesNull) {
  TInfoStorage storage("[AddMultiCurrency]\nUSD=UST\n", 2, false);
  EXPECT_EQ(storage.GetMainCurrency("C1", -1.0, "UST"), nullptr);
  EXPECT_FALSE(storage.DoesSupportMultiCurrency("C1", -1.0, "CETS", "USD000", "UST"));
}

TEST(QueriesCurrencyTest, MainSecurityOfAReplaceableOne) {
  TInfoStorage storage("[ReplaceableInstruments]\nTQBR=SBERP:SBER\n", 2, false);
  EXPECT_EQ(storage.GetMainSec("TQBR", "SBERP"), "SBER");
  EXPECT_EQ(storage.GetMainSec("TQBR", "GAZP"), "GAZP");
}

// ---- Discounts ----

TEST(QueriesDiscountTypeTest, EmptyClassIs3) {
  TInfoStorage storage("[clC1_Margin]\nUseDiscountsType=1\n", 2, false);
  EXPECT_EQ(storage.GetDiscountType("C1", 0, -1.0, ""), 3);
  EXPECT_EQ(storage.GetDiscountType("C1", 0, -1.0, nullptr), 3);
}

TEST(QueriesDiscountTypeTest, ClientClassMapThenGlobalThenTheBodysDefault) {
  TInfoStorage storage(
      "[DiscountsTypeByClasses]\nTQBR=2\nTQTF=0\n[clC1_Margin]\nUseDiscountsType=1\nDiscountsTypeByClasses_TQBR=4\n",
      2, false);
  EXPECT_EQ(storage.GetDiscountType("C1", 0, -1.0, "tqbr"), 4);
  EXPECT_EQ(storage.GetDiscountType("C1", 0, -1.0, "TQTF"), 0);
  EXPECT_EQ(storage.GetDiscountType("C1", 0, -1.0, "CETS"), 1);
  EXPECT_EQ(storage.GetDiscountType("C2", 0, -1.0, "TQBR"), 2);
}

const char* const kDiscounts =
    "[ClientLag]\nM1=5\nM2=5\n"
    "[SecurityDiscounts]\nSBER=1,1,0.2,0.3\nGA*=1,1,0.4,0.5\n"
    "[clM1_Margin]\nUseSecurityDiscounts=2\nSBER_DISC=1,1,0.1,0.15,,,USD\n"
    "[clM2_Margin]\nUseSecurityDiscounts=2\nMinDiscRateLong=0.35\n"
    "[clG1_Margin]\nUseSecurityDiscounts=0\n"
    "[clG2_Margin]\nUseSecurityDiscounts=0\nDoNotUseGlobalDiscounts=1\n";

TEST(QueriesDiscountsTest, ASecurityWithoutALineIsNotMarginal) {
  TInfoStorage storage(kDiscounts, 2, false);
  TDiscountsEx out;
  EXPECT_EQ(storage.GetEffectiveDiscountsEx(out, "C1", "LKOH", "TQBR", "SUR", 0, 0, -1.0, -1, -1, 0, 0), 1);
  EXPECT_DOUBLE_EQ(out.DLong, 1.0);
  EXPECT_DOUBLE_EQ(out.DShort, 1e50);
  EXPECT_DOUBLE_EQ(out.DLongMin, 1.0);
  EXPECT_DOUBLE_EQ(out.DShortMin, 1e50);
  EXPECT_STREQ(out.RCur, "");
  EXPECT_FALSE(out.bC);
  EXPECT_FALSE(out.bS);
}

TEST(QueriesDiscountsTest, AClientOfTheGlobalLevelGetsTheGlobalLine) {
  TInfoStorage storage(kDiscounts, 2, false);
  TDiscountsEx out;
  storage.GetEffectiveDiscountsEx(out, "C1", "SBER", "TQBR", "SUR", 0, 0, -1.0, -1, -1, 0, 0);
  EXPECT_DOUBLE_EQ(out.DLong, 0.2);
  EXPECT_DOUBLE_EQ(out.DShort, 0.3);
  EXPECT_NEAR(out.DLongMin, 0.2, 1e-12);
  EXPECT_NEAR(out.DShortMin, 0.3, 1e-12);
  storage.GetEffectiveDiscountsEx(out, "C1", "GAZP", "TQBR", "SUR", 0, 0, -1.0, -1, -1, 0, 0);
  EXPECT_DOUBLE_EQ(out.DLong, 0.4);  // the prefix line
  storage.GetEffectiveDiscountsEx(out, "C1", "SBER", "TQBR", "SUR", 0, 0, -1.0, 30.0, -1, 0, 0);
  EXPECT_NEAR(out.DLong, 0.3, 1e-12);  // the price: 1 - (1 - max(0.3, 0.2))^1
}

TEST(QueriesDiscountsTest, UseSecurityDiscountsDecidesWhoseLineIsRead) {
  TInfoStorage storage(kDiscounts, 2, false);
  const DL::TEffectiveDiscounts own = storage.GetActualEffectiveDiscountsSettings("SBER", "TQBR", "M1", 0, -1.0, false);
  EXPECT_TRUE(own.discountsSet);
  EXPECT_DOUBLE_EQ(own.DLong, 0.1);
  EXPECT_EQ(own.RCur, "USD");
  EXPECT_TRUE(own.allowMarginTrading);
  const DL::TEffectiveDiscounts g1 = storage.GetActualEffectiveDiscountsSettings("SBER", "TQBR", "G1", 0, -1.0, false);
  EXPECT_DOUBLE_EQ(g1.DLong, 0.2);  // mode 0: the global line
  const DL::TEffectiveDiscounts g2 = storage.GetActualEffectiveDiscountsSettings("SBER", "TQBR", "G2", 0, -1.0, false);
  EXPECT_FALSE(g2.discountsSet);  // the global line is refused
  EXPECT_EQ(g2.RCur, "");
  const DL::TEffectiveDiscounts m2 = storage.GetActualEffectiveDiscountsSettings("SBER", "TQBR", "M2", 0, -1.0, false);
  EXPECT_FALSE(m2.discountsSet);  // mode 2 without an own line
}

TEST(QueriesDiscountsTest, AMarginClientGetsItsOwnLineWithTheMinimumMarks) {
  TInfoStorage storage(kDiscounts, 2, false);
  TDiscountsEx out;
  storage.GetEffectiveDiscountsEx(out, "M1", "SBER", "TQBR", "SUR", 0, 0, -1.0, -1, -1, 0, 0);
  EXPECT_DOUBLE_EQ(out.DLong, 0.1);
  EXPECT_DOUBLE_EQ(out.DShort, 0.15);
  EXPECT_DOUBLE_EQ(out.DLongMin, 1.0);
  EXPECT_DOUBLE_EQ(out.DShortMin, 1e50);
  EXPECT_STREQ(out.RCur, "USD");
  EXPECT_FALSE(out.bC);
  storage.GetEffectiveDiscountsEx(out, "M1", "SBER", "TQBR", "SUR", TInfoStorage::dfMarginal, 0, -1.0, -1, -1, 0, 0);
  EXPECT_TRUE(out.bC);
  EXPECT_TRUE(out.bS);
}

TEST(QueriesDiscountsTest, BodyDefaultsFillAnUnsetDiscountOfAMarginClient) {
  TInfoStorage storage("[ClientLag]\nM2=5\n[clM2_Margin]\nUseSecurityDiscounts=2\nMinDiscRateLong=0.35\n"
                       "SBER_DISC=1,1,,0.2\n",
                       2, false);
  EXPECT_DOUBLE_EQ(storage.GetActualEffectiveDiscountsSettings("SBER", "TQBR", "M2", 0, -1.0, true).DLong, 0.35);
  EXPECT_DOUBLE_EQ(storage.GetActualEffectiveDiscountsSettings("SBER", "TQBR", "M2", 0, -1.0, false).DLong, -1.0);
}

TEST(QueriesDiscountsTest, TheEmptyClientGetsTheGlobalLine) {
  TInfoStorage storage(kDiscounts, 2, false);
  TDiscountsEx out;
  storage.GetEffectiveDiscountsEx(out, "", "SBER", "TQBR", "SUR", 0, 0, -1.0, -1, -1, 0, 0);
  EXPECT_DOUBLE_EQ(out.DLong, 0.2);
}

}  // namespace
