#include "commission/TCacheOfClientSettings.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace DL {
namespace {

class ClientSettingsCacheTest : public ::testing::Test {
 protected:
  TCacheOfClientSettings& Load(const std::string& text) {
    parser = std::make_unique<TIniParser>();
    EXPECT_EQ(parser->Init(text.c_str(), TIniParser::SourceText, ';', 1), 1);
    cache = std::make_unique<TCacheOfClientSettings>(*parser, nullptr);
    return *cache;
  }
  const TClientCommSettings* Get(const char* client, double leverage = -1.0) {
    return cache->GetIniSetting(TIniCacheItemID(client, leverage));
  }
  std::unique_ptr<TIniParser> parser;
  std::unique_ptr<TCacheOfClientSettings> cache;
};

TEST_F(ClientSettingsCacheTest, WithoutAnySettingTheKindIsFixedAtHalfAPerCent) {
  Load("[Other]\nA=1\n");
  const TClientCommSettings& g = *cache->GlobalSettings();
  EXPECT_EQ(g.CommKind, CommKindFixed);
  EXPECT_DOUBLE_EQ(g.FixedRate, 0.5);
  EXPECT_DOUBLE_EQ(g.RepoBrokerCommission, 0.0);
  EXPECT_FALSE(g.ScaleJump);
  EXPECT_FALSE(g.RoundOnDayValue);
  EXPECT_FALSE(g.HasClassRate);
}

TEST_F(ClientSettingsCacheTest, UseCommissionScaleGivesTheScaleKindAndRateZero) {
  Load("[General]\nUseCommissionScale=1\n[Commission]\nBroker=0.3\n");
  EXPECT_EQ(cache->GlobalSettings()->CommKind, CommKindScale);
  EXPECT_DOUBLE_EQ(cache->GlobalSettings()->FixedRate, 0.0);
}

TEST_F(ClientSettingsCacheTest, TheFirmsRatesFlagsAndClassRatesAreRead) {
  Load("[General]\nCommissionScaleJump=1\nRoundScaleCommissionOnDayValue=1\n"
       "[Commission]\nBroker=0.3\nRepoBroker=0.1\nTQBR_FIXED=1\nRepoBroker_EQRP=1\n");
  const TClientCommSettings& g = *cache->GlobalSettings();
  EXPECT_EQ(g.CommKind, CommKindFixed);
  EXPECT_DOUBLE_EQ(g.FixedRate, 0.3);
  EXPECT_DOUBLE_EQ(g.RepoBrokerCommission, 0.1);
  EXPECT_TRUE(g.ScaleJump);
  EXPECT_TRUE(g.RoundOnDayValue);
  EXPECT_TRUE(g.HasClassRate);
  EXPECT_DOUBLE_EQ(g.fixedRates.at("TQBR"), 1.0);
  EXPECT_TRUE(g.IsRepoClass("EQRP"));
}

TEST_F(ClientSettingsCacheTest, SetCommScaleJumpChangesTheFirmsFlag) {
  Load("");
  cache->SetCommScaleJump(true);
  EXPECT_TRUE(cache->GlobalSettings()->ScaleJump);
}

TEST_F(ClientSettingsCacheTest, AClientWithNoSectionGetsTheFirmsSettingsAndIsNotEntered) {
  Load("[Commission]\nBroker=0.3\n[clC1]\nTQBR_FIXED=2\n");
  EXPECT_EQ(Get("NOBODY"), cache->GlobalSettings());
  EXPECT_TRUE(cache->ItemTable().empty());
}

TEST_F(ClientSettingsCacheTest, APersonalSectionIsParsedOnceAndEntered) {
  Load("[Commission]\nBroker=0.3\n[clC1]\nTQBR_FIXED=2\nTPName=plan1\nCommissionScaleJump=1\n");
  const TClientCommSettings* s = Get("C1");
  ASSERT_NE(s, cache->GlobalSettings());
  EXPECT_DOUBLE_EQ(s->fixedRates.at("TQBR"), 2.0);
  EXPECT_DOUBLE_EQ(s->FixedRate, 0.3);  // the firm's rate stands
  EXPECT_EQ(s->PlanName, "PLAN1");
  EXPECT_TRUE(s->ScaleJump);
  EXPECT_EQ(cache->ItemTable().size(), 1u);
  EXPECT_EQ(Get("C1"), s);
}

TEST_F(ClientSettingsCacheTest, ATemplateObjectIsSharedAndNotEntered) {
  Load("[clT1_Client_Template]\nCLIENTS=C2,C3\nTQBR_TRADE=0.01\n");
  const TClientCommSettings* a = Get("C2");
  const TClientCommSettings* b = Get("C3");
  ASSERT_NE(a, cache->GlobalSettings());
  EXPECT_EQ(a, b);
  EXPECT_DOUBLE_EQ(a->tradeRates.at("TQBR"), 1.0);
  EXPECT_TRUE(cache->ItemTable().empty());
  EXPECT_EQ(cache->ParsedSections().Size(), 1u);
}

TEST_F(ClientSettingsCacheTest, TheTemplateOfTheLeverageComesBeforeThePersonalSection) {
  Load("[clC1]\nTQBR_FIXED=2\n[clLev_Client_Template]\nIncludeClientsWithLeverage=2\nTQBR_FIXED=7\n");
  EXPECT_DOUBLE_EQ(Get("C1", 2.0)->fixedRates.at("TQBR"), 7.0);
  EXPECT_DOUBLE_EQ(Get("C1")->fixedRates.at("TQBR"), 2.0);
}

TEST_F(ClientSettingsCacheTest, ThePersonalSectionComesBeforeATemplateListingTheClient) {
  Load("[clC1]\nTQBR_FIXED=2\n[clT1_Client_Template]\nCLIENTS=C1\nTQBR_FIXED=3\n");
  EXPECT_DOUBLE_EQ(Get("C1")->fixedRates.at("TQBR"), 2.0);
}

TEST_F(ClientSettingsCacheTest, TheLongestPrefixSectionIsTakenAndEntered) {
  Load("[clA*]\nTQBR_FIXED=1\n[clAB*]\nTQBR_FIXED=4\n");
  EXPECT_DOUBLE_EQ(Get("ABC")->fixedRates.at("TQBR"), 4.0);
  EXPECT_DOUBLE_EQ(Get("AXY")->fixedRates.at("TQBR"), 1.0);
  EXPECT_EQ(cache->ItemTable().size(), 2u);
}

TEST_F(ClientSettingsCacheTest, ASectionStartsFromTheFirmsSettingsAsParsed) {
  Load("[Commission]\nBroker=0.3\nTQBR_TRADE=0.01\n[clC1]\nA=1\n");
  // The answer for a class is written into the firm's object...
  ASSERT_TRUE(cache->GlobalSettings()->ApplyClassRate("TQBR"));
  EXPECT_EQ(cache->GlobalSettings()->CommKind, CommKindTrade);
  // ...but a section parsed afterwards starts from the firm's kind and rate.
  const TClientCommSettings* s = Get("C1");
  EXPECT_EQ(s->CommKind, CommKindFixed);
  EXPECT_DOUBLE_EQ(s->FixedRate, 0.3);
}

TEST_F(ClientSettingsCacheTest, TheCacheHasALogicParserOfItsOwn) {
  Load("[clC1]\nA=1\n");
  (void)Get("C1");
  EXPECT_EQ(cache->LogicParser().Memo().count("C1"), 1u);
}

}  // namespace
}  // namespace DL
