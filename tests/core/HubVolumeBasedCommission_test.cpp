// Volume-based commission sections of a firm: load into the stores, save from
// them, and the commission lookups by client and class; the repo commission
// of a client.
#include <gtest/gtest.h>

#include <string>

#include "core/SavedText.h"
#include "core/TInfoStorage.h"
#include "core/TStorageHub.h"

namespace {

using DL::TStorageHub;
using DL::TypeAndRate;
using DL::VolumeAndSideToTypeAndRate;

const char* const kFirm =
    "[General]\nCALCVARMARGIN=1\n"
    "[VolumeBasedCommission_1]\nClasses=TQBR,TQTF\n0=FIXED,0.05,0\n1000000_B=TRADE_MAX,0.03,100\n"
    "Note=desk A\n"
    "[VolumeBasedCommission_2]\nClasses=<ALL>\n0=FIXED,0.2,0\n"
    "[clRETAIL_Client_Template]\nClients=C2\n"
    "[clRETAIL_Client_Template_VolumeBasedCommission_1]\nClasses=TQBR\n0_S=TRADE_MIN,0.1,5\n"
    "[clC1_VolumeBasedCommission_A]\nClasses=EQOB\n500=FIXED,0.01,0\nx=y\n"
    "[clC1_VolumeBasedCommission_B]\nClasses=TQBR\n";

using Rows = std::vector<VolumeAndSideToTypeAndRate>;

TEST(HubVolumeCommLoadTest, GlobalSectionsInNameOrder) {
  TStorageHub hub(kFirm, 2);
  const auto& global = hub.VolumeCommission().Global();
  ASSERT_EQ(global.size(), 2u);
  EXPECT_EQ(global[0].section, "VolumeBasedCommission_1");
  EXPECT_EQ(global[0].commission.GetAllStrings(), (std::set<std::string>{"TQBR", "TQTF"}));
  EXPECT_EQ(global[0].commission.GetAllSettings(),
            (Rows{{0.0, DL::sdBoth, {DL::ctFixed, 0.05, 0.0}}, {1000000.0, DL::sdBuy, {DL::ctTradeMax, 0.03, 100.0}}}));
  EXPECT_EQ(global[0].raw, (DL::TRawLines{{"Note", "desk A"}}));
  EXPECT_EQ(global[1].section, "VolumeBasedCommission_2");
  EXPECT_EQ(global[1].commission.GetAllStrings(), (std::set<std::string>{"<ALL>"}));
  EXPECT_EQ(global[1].commission.GetAllSettings(), (Rows{{0.0, DL::sdBoth, {DL::ctFixed, 0.2, 0.0}}}));
  EXPECT_TRUE(global[1].raw.empty());
}

TEST(HubVolumeCommLoadTest, TemplateAndClientSections) {
  TStorageHub hub(kFirm, 2);
  const auto& templates = hub.VolumeCommission().Templates();
  ASSERT_EQ(templates.size(), 1u);
  ASSERT_EQ(templates.at("RETAIL").size(), 1u);
  EXPECT_EQ(templates.at("retail")[0].section, "clRETAIL_Client_Template_VolumeBasedCommission_1");
  EXPECT_EQ(templates.at("RETAIL")[0].commission.GetAllSettings(),
            (Rows{{0.0, DL::sdSell, {DL::ctTradeMin, 0.1, 5.0}}}));
  const auto& clients = hub.VolumeCommission().Clients();
  ASSERT_EQ(clients.size(), 1u);
  const auto& c1 = clients.at("C1");
  ASSERT_EQ(c1.size(), 2u);
  EXPECT_EQ(c1[0].section, "clC1_VolumeBasedCommission_A");
  EXPECT_EQ(c1[0].commission.GetAllStrings(), (std::set<std::string>{"EQOB"}));
  EXPECT_EQ(c1[0].commission.GetAllSettings(), (Rows{{500.0, DL::sdBoth, {DL::ctFixed, 0.01, 0.0}}}));
  EXPECT_EQ(c1[0].raw, (DL::TRawLines{{"x", "y"}}));
  EXPECT_EQ(c1[1].section, "clC1_VolumeBasedCommission_B");
  EXPECT_TRUE(c1[1].commission.GetRates().empty());
}

TEST(HubVolumeCommLoadTest, NamesOfNoOwnerAreLeftInTheText) {
  TStorageHub hub(
      "[clABCDEFGHIJKLMN_VolumeBasedCommission_1]\nClasses=TQBR\n"  // client code too long
      "[DeskVolumeBasedCommission_1]\nClasses=TQBR\n",              // not at the start
      2);
  EXPECT_TRUE(hub.VolumeCommission().Global().empty());
  EXPECT_TRUE(hub.VolumeCommission().Clients().empty());
  const std::string saved = ztest::SavedText(hub);
  EXPECT_EQ(saved,
            "[DeskVolumeBasedCommission_1]\r\nClasses=TQBR\r\n\r\n"
            "[clABCDEFGHIJKLMN_VolumeBasedCommission_1]\r\nClasses=TQBR\r\n\r\n");
}

TEST(HubVolumeCommLoadTest, NoSectionsLeaveTheStoresEmpty) {
  TStorageHub hub("[General]\nCALCVARMARGIN=1\n", 2);
  EXPECT_TRUE(hub.VolumeCommission().Global().empty());
  EXPECT_TRUE(hub.VolumeCommission().Templates().empty());
  EXPECT_TRUE(hub.VolumeCommission().Clients().empty());
}

TEST(HubVolumeCommSaveTest, ReloadGivesEqualStores) {
  TStorageHub hub(kFirm, 2);
  const std::string saved = ztest::SavedText(hub);
  TStorageHub back(saved.c_str(), 2);
  EXPECT_EQ(back.VolumeCommission().Global(), hub.VolumeCommission().Global());
  EXPECT_EQ(back.VolumeCommission().Templates(), hub.VolumeCommission().Templates());
  EXPECT_EQ(back.VolumeCommission().Clients(), hub.VolumeCommission().Clients());
}

TEST(HubVolumeCommSaveTest, SavedTextIsAFixedPoint) {
  TStorageHub hub(kFirm, 2);
  const std::string first = ztest::SavedText(hub);
  TStorageHub back(first.c_str(), 2);
  EXPECT_EQ(ztest::SavedText(back), first);
}

TEST(HubVolumeCommSaveTest, SectionsAreWrittenFromTheStoresOnce) {
  TStorageHub hub(
      "[VolumeBasedCommission_1]\nclasses=TQTF , TQBR\n1e3_b=TRADE_MAX,0.50,10.0\n"
      "[clC1_VolumeBasedCommission_A]\nClasses=EQOB\n",
      2);
  const std::string saved = ztest::SavedText(hub);
  // The normaliser orders the lines of a section by name.
  EXPECT_NE(saved.find("[VolumeBasedCommission_1]\r\n1000_B=TRADE_MAX,0.5,10\r\nClasses=TQBR,TQTF\r\n"),
            std::string::npos)
      << saved;
  EXPECT_NE(saved.find("[clC1_VolumeBasedCommission_A]\r\nClasses=EQOB\r\n"), std::string::npos) << saved;
  for (const char* header : {"[VolumeBasedCommission_1]", "[clC1_VolumeBasedCommission_A]"}) {
    const std::size_t at = saved.find(header);
    ASSERT_NE(at, std::string::npos);
    EXPECT_EQ(saved.find(header, at + 1), std::string::npos) << header;
  }
}

TEST(HubVolumeCommSaveTest, UnknownKeysSurvive) {
  TStorageHub hub(kFirm, 2);
  const std::string saved = ztest::SavedText(hub);
  EXPECT_NE(saved.find("Classes=TQBR,TQTF\r\nNote=desk A\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("Classes=EQOB\r\nx=y\r\n"), std::string::npos) << saved;
  TStorageHub back(saved.c_str(), 2);
  EXPECT_EQ(back.VolumeCommission().Global()[0].raw, (DL::TRawLines{{"Note", "desk A"}}));
  EXPECT_EQ(back.VolumeCommission().Clients().at("C1")[0].raw, (DL::TRawLines{{"x", "y"}}));
}

TEST(HubVolumeCommSaveTest, ExactTextOfTheFirm) {
  TStorageHub hub(kFirm, 2);
  EXPECT_EQ(ztest::SavedText(hub),
            "[General]\r\nCALCVARMARGIN=1\r\n\r\n"
            "[clRETAIL_Client_Template]\r\nClients=C2\r\n\r\n"
            "[VolumeBasedCommission_1]\r\n0=FIXED,0.05,0\r\n1000000_B=TRADE_MAX,0.03,100\r\nClasses=TQBR,TQTF\r\n"
            "Note=desk A\r\n\r\n"
            "[VolumeBasedCommission_2]\r\n0=FIXED,0.2,0\r\nClasses=<ALL>\r\n\r\n"
            "[clC1_VolumeBasedCommission_A]\r\n500=FIXED,0.01,0\r\nClasses=EQOB\r\nx=y\r\n\r\n"
            "[clC1_VolumeBasedCommission_B]\r\nClasses=TQBR\r\n\r\n"
            "[clRETAIL_Client_Template_VolumeBasedCommission_1]\r\n0_S=TRADE_MIN,0.1,5\r\nClasses=TQBR\r\n\r\n");
}

TEST(HubVolumeCommSaveTest, AnEmptyClassListStays) {
  TStorageHub hub("[clC1_VolumeBasedCommission_B]\nClasses=\n", 2);
  ASSERT_EQ(hub.VolumeCommission().Clients().at("C1").size(), 1u);
  TStorageHub back(ztest::SavedText(hub).c_str(), 2);
  EXPECT_EQ(back.VolumeCommission().Clients(), hub.VolumeCommission().Clients());
}

class HubVolumeCommLookupTest : public ::testing::Test {
 protected:
  TStorageHub hub{kFirm, 2};
};

TEST_F(HubVolumeCommLookupTest, ClientOwnSectionFirst) {
  EXPECT_EQ(hub.GetEffectiveVolumeBasedCommTypeAndRate("C1", "EQOB", 600.0, DL::sdBuy),
            TypeAndRate(DL::ctFixed, 0.01, 0.0));
  // The client's own TQBR table has no steps: it is the client's all the same.
  EXPECT_EQ(hub.GetEffectiveVolumeBasedCommTypeAndRate("C1", "TQBR", 600.0, DL::sdBuy),
            TypeAndRate(DL::ctUndefined, 0.0, 0.0));
}

TEST_F(HubVolumeCommLookupTest, ClientsTemplateThenTheFirm) {
  // C2 is in RETAIL: its TQBR table has only a sell step.
  EXPECT_EQ(hub.GetEffectiveVolumeBasedCommTypeAndRate("C2", "TQBR", 10.0, DL::sdSell),
            TypeAndRate(DL::ctTradeMin, 0.1, 5.0));
  // TQTF is not in the template: the firm's table of TQBR and TQTF.
  EXPECT_EQ(hub.GetEffectiveVolumeBasedCommTypeAndRate("C2", "TQTF", 2000000.0, DL::sdBuy),
            TypeAndRate(DL::ctTradeMax, 0.03, 100.0));
}

TEST_F(HubVolumeCommLookupTest, NamedClassBeforeAllClasses) {
  EXPECT_EQ(hub.GetEffectiveVolumeBasedCommTypeAndRate("C9", "TQBR", 10.0, DL::sdBuy),
            TypeAndRate(DL::ctFixed, 0.05, 0.0));
  EXPECT_EQ(hub.GetEffectiveVolumeBasedCommTypeAndRate("C9", "SPBFUT", 10.0, DL::sdBuy),
            TypeAndRate(DL::ctFixed, 0.2, 0.0));
  EXPECT_EQ(hub.GetEffectiveVolumeBasedCommTypeAndRate(nullptr, "SPBFUT", 10.0, DL::sdBuy),
            TypeAndRate(DL::ctFixed, 0.2, 0.0));
}

TEST(HubVolumeCommLookupEmptyTest, NoTableGivesUndefinedAndZero) {
  TStorageHub hub("[VolumeBasedCommission_1]\nClasses=TQBR\n0=FIXED,1,0\n", 2);
  EXPECT_EQ(hub.FindVolumeBasedCommission("C1", "EQOB"), nullptr);
  EXPECT_EQ(hub.GetEffectiveVolumeBasedCommTypeAndRate("C1", "EQOB", 10.0, DL::sdBuy),
            TypeAndRate(DL::ctUndefined, 0.0, 0.0));
  EXPECT_EQ(hub.CalcMaxVolumeBasedCommission("C1", "EQOB", 1000.0, DL::sdBuy, 0), 0.0);
}

TEST_F(HubVolumeCommLookupTest, MaxCommissionOfTheTable) {
  // Firm table of TQBR, scale 0, buy: step 0 at 0.05% on 999999 gives
  // 499.9995; step 1000000 on 3000000: max(100, 900) = 900.
  EXPECT_DOUBLE_EQ(hub.CalcMaxVolumeBasedCommission("C9", "TQBR", 3000000.0, DL::sdBuy, 0), 900.0);
  // Sell side: only step 0, 3000000 * 0.05% = 1500.
  EXPECT_DOUBLE_EQ(hub.CalcMaxVolumeBasedCommission("C9", "TQBR", 3000000.0, DL::sdSell, 0), 1500.0);
}

TEST(InfoStorageVolumeCommTest, ForwardsToTheHub) {
  DL::TInfoStorage storage(kFirm, 2, false);
  EXPECT_EQ(storage.GetEffectiveVolumeBasedCommTypeAndRate("C1", "EQOB", 600.0, DL::sdSell),
            TypeAndRate(DL::ctFixed, 0.01, 0.0));
  EXPECT_DOUBLE_EQ(storage.CalcMaxVolumeBasedCommission("C1", "EQOB", 1000.0, DL::sdSell, 0), 0.1);
}

const char* const kRepoFirm =
    "[Commission]\nRepoPerDayCommission_<ALL>=REPOTRADE,0,25\n"
    "[clC1]\nRepoPerDayCommission_EQRP=REPOFIXED,0.01,0\nRepoScale_GCRP_1=REPOTRADE_MAX,0.02,3\n"
    "RepoScale_GCRP_30=REPOTRADE_SUM,0.01,4\n";

TEST(HubRepoCommTest, PerDayAndScaleThroughTheClientsSettings) {
  TStorageHub hub(kRepoFirm, 2);
  DL::TRepoCommRates r;
  ASSERT_TRUE(hub.GetRepoPerDayCommissionSettings("C1", -1.0, "eqrp", &r));
  EXPECT_EQ(r.CommType.value, DL::rctRepoFixed);
  EXPECT_DOUBLE_EQ(r.Rate, 0.01);
  ASSERT_TRUE(hub.GetRepoScaleByClassesSettings("C1", -1.0, "GCRP", 45, &r));
  EXPECT_EQ(r.CommType.value, DL::rctRepoTradeSum);
  EXPECT_FALSE(hub.GetRepoScaleByClassesSettings("C1", -1.0, "EQRP", 45, &r));
  // A client without a section takes the firm's common per-day rate.
  ASSERT_TRUE(hub.GetRepoPerDayCommissionSettings("C7", -1.0, "EQRP", &r));
  EXPECT_EQ(r.CommType.value, DL::rctRepoTrade);
  EXPECT_DOUBLE_EQ(r.Amount, 25.0);
}

TEST(InfoStorageRepoCommTest, ScaleBeforePerDay) {
  DL::TInfoStorage storage(kRepoFirm, 2, false);
  DL::TRepoCommission c;
  // GCRP, 7 days: the scale step of 1 day, 0.02 * 7 = 0.14 and 3.
  ASSERT_TRUE(storage.GetRepoCommByClass("GCRP", -1.0, "C1", 7, c));
  EXPECT_EQ(c.BaseCommType, 4);
  EXPECT_DOUBLE_EQ(c.Rate, 0.14);
  EXPECT_DOUBLE_EQ(c.Amount, 3.0);
  // 30 days: REPOTRADE_SUM, 0.01 * 30 = 0.3 and 4, base kind 9.
  ASSERT_TRUE(storage.GetRepoCommByClass("GCRP", -1.0, "C1", 30, c));
  EXPECT_EQ(c.BaseCommType, 9);
  EXPECT_DOUBLE_EQ(c.Rate, 0.3);
  EXPECT_DOUBLE_EQ(c.Amount, 4.0);
  // EQRP has no scale: per day, 0.01 * 10.
  ASSERT_TRUE(storage.GetRepoCommByClass("EQRP", -1.0, "C1", 10, c));
  EXPECT_EQ(c.BaseCommType, 1);
  EXPECT_DOUBLE_EQ(c.Rate, 0.1);
  EXPECT_EQ(c.Amount, 0.0);
  // Term 0 does not multiply.
  ASSERT_TRUE(storage.GetRepoCommByClass("EQRP", -1.0, "C1", 0, c));
  EXPECT_DOUBLE_EQ(c.Rate, 0.01);
}

TEST(InfoStorageRepoCommTest, NeitherGivesFalse) {
  DL::TInfoStorage storage("[clC1]\nRepoPerDayCommission_EQRP=REPOFIXED,0.01,0\n", 2, false);
  DL::TRepoCommission c;
  EXPECT_FALSE(storage.GetRepoCommByClass("GCRP", -1.0, "C1", 7, c));
}

}  // namespace

namespace {

TEST(HubVolumeCommSaveTest, NameInAnotherCaseIsReadAndWrittenOnce) {
  DL::TStorageHub hub("[volumebasedcommission_1]\nClasses=TQBR\n0=FIXED,1,0\n", 2);
  ASSERT_EQ(hub.VolumeCommission().Global().size(), 1u);
  EXPECT_EQ(ztest::SavedText(hub), "[volumebasedcommission_1]\r\n0=FIXED,1,0\r\nClasses=TQBR\r\n\r\n");
}

}  // namespace
