// The hub's client commission settings, commission scales and tariff plans:
// the answer for one client and class, the caches built at load, and the
// tariff plans and the firm's scale through a save and a new load.
#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "core/SavedText.h"
#include "core/TStorageHub.h"

namespace {

using DL::TClientCommSettings;
using DL::TStorageHub;

TClientCommSettings& Ask(TStorageHub& hub, const char* client, const char* classCode, bool isRepo = false,
                         const char* boards = "") {
  return hub.ClientCommSettings(client, classCode, boards, -1.0, isRepo);
}

TEST(HubClientCommSettingsTest, WithoutAnySettingTheRateIsFixedAtHalfAPerCent) {
  TStorageHub hub("", 2);
  const TClientCommSettings& s = Ask(hub, "C1", "TQBR");
  EXPECT_EQ(s.CommKind, DL::CommKindFixed);
  EXPECT_DOUBLE_EQ(s.FixedRate, 0.5);
  EXPECT_FALSE(s.HasClassRate);
}

TEST(HubClientCommSettingsTest, NullCodesAnswerWithTheFirmsSettings) {
  TStorageHub hub("[Commission]\nBroker=0.4\n[clC1]\nTQBR_FIXED=2\n", 2);
  const TClientCommSettings& s = hub.ClientCommSettings(nullptr, nullptr, nullptr, -1.0, false);
  EXPECT_EQ(&s, hub.GetClientSettingsCache().GlobalSettings());
  EXPECT_EQ(s.CommKind, DL::CommKindFixed);
  EXPECT_DOUBLE_EQ(s.FixedRate, 0.4);
}

TEST(HubClientCommSettingsTest, AClassWithFixedAndTradeRatesTakesTheFixedRate) {
  TStorageHub hub("[clC1]\nTQBR_TRADE=0.01\nTQBR_FIXED=1.25\n", 2);
  const TClientCommSettings& s = Ask(hub, "C1", "tqbr");
  EXPECT_EQ(s.CommKind, DL::CommKindFixed);
  EXPECT_DOUBLE_EQ(s.FixedRate, 1.25);
  EXPECT_TRUE(s.HasClassRate);
}

TEST(HubClientCommSettingsTest, AnUnknownClassTakesTheDefaultRate) {
  TStorageHub hub("[Commission]\nBroker=0.4\nDEFAULT_FIXED=0.7\nTQBR_TRADE=0.01\n", 2);
  const TClientCommSettings& s = Ask(hub, "C1", "TQOB");
  EXPECT_EQ(s.CommKind, DL::CommKindFixed);
  EXPECT_DOUBLE_EQ(s.FixedRate, 0.7);
  EXPECT_TRUE(s.HasClassRate);
  EXPECT_TRUE(s.UsedDefaultRate);
}

TEST(HubClientCommSettingsTest, ARepoWithARepoBrokerCommissionSkipsTheDefaultRate) {
  TStorageHub hub("[Commission]\nBroker=0.4\nRepoBroker=0.2\nDEFAULT_FIXED=0.7\n", 2);
  const TClientCommSettings& repo = Ask(hub, "C1", "EQRP", true);
  EXPECT_EQ(repo.CommKind, DL::CommKindFixed);
  EXPECT_DOUBLE_EQ(repo.FixedRate, 0.4);
  EXPECT_FALSE(repo.HasClassRate);
  EXPECT_FALSE(repo.UsedDefaultRate);
  EXPECT_DOUBLE_EQ(Ask(hub, "C1", "EQRP", false).FixedRate, 0.7);
}

TEST(HubClientCommSettingsTest, ARepoClassOfTheRepoBrokerListSkipsTheDefaultRate) {
  TStorageHub hub("[Commission]\nBroker=0.4\nRepoBroker_EQRP=1\nDEFAULT_FIXED=0.7\n", 2);
  EXPECT_DOUBLE_EQ(Ask(hub, "C1", "EQRP", true).FixedRate, 0.4);
  // Without a repo broker commission another repo class keeps the default.
  EXPECT_DOUBLE_EQ(Ask(hub, "C1", "GCRP", true).FixedRate, 0.7);
}

TEST(HubClientCommSettingsTest, AClassWithoutARateFallsBackToTheFirmsKind) {
  TStorageHub hub("[Commission]\nBroker=0.4\n[clC1]\nTQBR_TRADE=0.01\n", 2);
  EXPECT_EQ(Ask(hub, "C1", "TQBR").CommKind, DL::CommKindTrade);
  const TClientCommSettings& s = Ask(hub, "C1", "TQOB");
  EXPECT_EQ(s.CommKind, DL::CommKindFixed);
  EXPECT_DOUBLE_EQ(s.FixedRate, 0.4);
  EXPECT_FALSE(s.HasClassRate);
}

TEST(HubClientCommSettingsTest, UseCommissionScaleFindsTheScaleOfTheBoard) {
  TStorageHub hub("[General]\nUseCommissionScale=1\n[CommissionScale]\n100=0.05\n[bdTQBR_CommissionScale]\n100=0.1\n",
                  2);
  EXPECT_TRUE(hub.UseCommissionScale());
  const TClientCommSettings& s = Ask(hub, "C1", "TQBR");
  EXPECT_EQ(s.CommKind, DL::CommKindScale);
  EXPECT_DOUBLE_EQ(s.FixedRate, 0.0);
  EXPECT_EQ(s.BoardGroup, "TQBR");
  EXPECT_TRUE(s.HasBoardScale);
  EXPECT_TRUE(s.HasTPScale);  // "bdTQBR_CommissionScale" is the scale section without a plan
  EXPECT_EQ(hub.GetCommScaleBoardList(), std::vector<std::string>{"TQBR"});
  const TClientCommSettings& other = Ask(hub, "C1", "TQOB");
  EXPECT_FALSE(other.HasBoardScale);
  EXPECT_FALSE(other.HasTPScale);
}

TEST(HubClientCommSettingsTest, TheDefaultPlansBoardsStopTheWalkOverTheBoardList) {
  TStorageHub hub("[General]\nUseCommissionScale=1\n[CommissionScaleBoards]\nP1=G1\nDefaultTP=P1\n"
                  "[CommissionScaleBoards_P1]\nG1=TQBR,TQCB\n[tpP1_bdG1_CommissionScale]\n100=0.3\n",
                  2);
  const TClientCommSettings& s = Ask(hub, "C1", "TQBR", false, "G1,G2");
  EXPECT_EQ(s.BoardGroup, "G1");
  EXPECT_TRUE(s.HasBoardScale);
  EXPECT_TRUE(s.HasTPScale);
  EXPECT_EQ(hub.CommissionScaleBoards("C1", "TQBR", "G1,G2", -1.0, false),
            (std::vector<std::string>{"TQBR", "TQCB"}));
}

TEST(HubClientCommSettingsTest, AClientsOwnPlanWithoutBoardsWalksEveryBoard) {
  TStorageHub hub("[General]\nUseCommissionScale=1\n[CommissionScaleBoards]\nP1=G1\nDefaultTP=P1\n"
                  "[CommissionScaleBoards_P1]\nG1=TQBR\n[clC2]\nTPName=P2\n",
                  2);
  const TClientCommSettings& s = Ask(hub, "C2", "TQBR", false, "G1,G2");
  EXPECT_EQ(s.PlanName, "P2");
  EXPECT_EQ(s.BoardGroup, "G2");
  EXPECT_FALSE(s.HasBoardScale);
  EXPECT_FALSE(s.HasTPScale);
  EXPECT_EQ(hub.GetCommScaleBoardList(), std::vector<std::string>{"G2"});
}

// ---- Save ----
// The saved text is canonical: its lines end in CR LF.

const char* const kPlansText =
    "[General]\nUseCommissionScale=1\n"
    "[CommissionScaleBoards]\np1=G1,G2\nDefaultTP=p1\n"
    "[CommissionScaleBoards_P1]\nG1=TQBR,TQOB\nPROHIBITED_BOARDS=TQOB\n"
    "[tpP1_bdG1_CommissionScale]\nMinValue=5\nMaxValue=50\nConsiderRepoTerm=1\n1000=0.5\n500=0.7\n";

void ExpectPlansAsLoaded(TStorageHub& hub) {
  const DL::TCacheOfTariffPlans& plans = hub.GetTariffPlans();
  EXPECT_EQ(plans.GetAllPlanesNames(), std::vector<std::string>{"P1"});
  EXPECT_EQ(plans.GetDefaultPlan(), "P1");
  ASSERT_NE(plans.GetPlan("P1"), nullptr);
  EXPECT_EQ(plans.GetPlan("P1")->groups, (std::vector<std::string>{"G1", "G2"}));
  EXPECT_EQ(plans.GetPlan("P1")->classCodes, std::set<std::string>{"TQBR"});
  const DL::TCommScale* scale = hub.GetTariffPlansWithCommRates().GetScale("P1", "G1");
  ASSERT_NE(scale, nullptr);
  EXPECT_DOUBLE_EQ(scale->minValue, 500.0);
  EXPECT_DOUBLE_EQ(scale->maxValue, 5000.0);
  EXPECT_TRUE(scale->considerRepoTerm);
  ASSERT_EQ(scale->rates.size(), 2u);
  EXPECT_DOUBLE_EQ(scale->rates.begin()->turnover, 50000.0);
  EXPECT_DOUBLE_EQ(scale->rates.begin()->rate, 0.7);
  EXPECT_DOUBLE_EQ(std::next(scale->rates.begin())->turnover, 100000.0);
  EXPECT_DOUBLE_EQ(std::next(scale->rates.begin())->rate, 0.5);
}

TEST(HubTariffPlanSaveTest, TariffPlansSurviveASaveAndANewLoad) {
  TStorageHub first(kPlansText, 2);
  ExpectPlansAsLoaded(first);
  const std::string saved = ztest::SavedText(first);
  EXPECT_NE(saved.find("p1=G1,G2\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("DefaultTP=p1\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("[tpP1_bdG1_CommissionScale]\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("MinValue=5.0000000000\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("500.0000000000=0.7000000000\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("PROHIBITED_BOARDS=TQOB\r\n"), std::string::npos) << saved;
  TStorageHub second(saved.c_str(), 2);
  ExpectPlansAsLoaded(second);
  EXPECT_EQ(ztest::SavedText(second), saved);
}

TEST(HubTariffPlanSaveTest, EachPlanSectionIsWrittenOnce) {
  TStorageHub hub(kPlansText, 2);
  const std::string saved = ztest::SavedText(hub);
  for (const char* header : {"[CommissionScaleBoards]\r\n", "[CommissionScaleBoards_P1]\r\n",
                             "[tpP1_bdG1_CommissionScale]\r\n"}) {
    const std::size_t at = saved.find(header);
    ASSERT_NE(at, std::string::npos) << header;
    EXPECT_EQ(saved.find(header, at + 1), std::string::npos) << header;
  }
}

TEST(HubTariffPlanSaveTest, AnEditOfAPlansScaleReachesTheText) {
  TStorageHub hub(kPlansText, 2);
  hub.GetTariffPlansWithCommRates().GetScale("P1", "G1")->SetScaleRates({{2000.0, 0.25}});
  const std::string saved = ztest::SavedText(hub);
  EXPECT_NE(saved.find("2000.0000000000=0.2500000000\r\n"), std::string::npos) << saved;
  EXPECT_EQ(saved.find("500.0000000000=0.7000000000\r\n"), std::string::npos) << saved;
}

TEST(HubCommissionScaleSaveTest, TheFirmsScaleIsWrittenFromItsParsedHome) {
  TStorageHub hub("[CommissionScale]\nMinValue=10\nClients=X\n1000=0.5\n", 2);
  hub.GetCommScalesCache().SetMinMaxTurnover({0.0, 20.0, 0.0});
  const std::string saved = ztest::SavedText(hub);
  EXPECT_NE(saved.find("MinValue=10.0000000000\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("MaxValue=20.0000000000\r\n"), std::string::npos) << saved;
  EXPECT_NE(saved.find("1000.0000000000=0.5000000000\r\n"), std::string::npos) << saved;
  TStorageHub again(saved.c_str(), 2);
  const DL::TCommScale& g = *again.GetCommScalesCache().GlobalSettings();
  EXPECT_DOUBLE_EQ(g.minValue, 1000.0);
  EXPECT_DOUBLE_EQ(g.maxValue, 2000.0);
  ASSERT_EQ(g.rates.size(), 1u);
  EXPECT_DOUBLE_EQ(g.rates.begin()->turnover, 100000.0);
  EXPECT_DOUBLE_EQ(g.rates.begin()->rate, 0.5);
  const DL::TIniKeyMap* keys = again.GetParser().FindIniSectionRef("CommissionScale");
  ASSERT_NE(keys, nullptr);
  EXPECT_EQ(again.GetParser().GetIniParamString(*keys, std::string("Clients"), std::string()), "X");
}

TEST(HubCommissionScaleSaveTest, BoardScalesAreKeptAsWritten) {
  TStorageHub hub("[bdTQBR_CommissionScale]\n100=0.1\n", 2);
  const std::string saved = ztest::SavedText(hub);
  EXPECT_NE(saved.find("[bdTQBR_CommissionScale]\r\n100=0.1\r\n"), std::string::npos) << saved;
}

}  // namespace
