#include "commission/TCacheOfCommScales.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace DL {
namespace {

class CommScalesCacheTest : public ::testing::Test {
 protected:
  TCacheOfCommScales& Load(const std::string& text) {
    parser = std::make_unique<TIniParser>();
    EXPECT_EQ(parser->Init(text.c_str(), TIniParser::SourceText, ';', 1), 1);
    cache = std::make_unique<TCacheOfCommScales>(*parser, nullptr);
    cache->HashBoardScales();
    return *cache;
  }
  const TCommScale* Get(const char* client, const char* group = "", const char* plan = "", double leverage = -1.0) {
    return cache->GetIniSetting(TIniCacheItemID(client, group, plan, "", leverage));
  }
  static double FirstRate(const TCommScale* s) { return s->rates.begin()->rate; }
  std::unique_ptr<TIniParser> parser;
  std::unique_ptr<TCacheOfCommScales> cache;
};

TEST_F(CommScalesCacheTest, WithoutAScaleSectionTheFirmsScaleIsEmpty) {
  Load("[Other]\nA=1\n");
  ASSERT_NE(cache->GlobalSettings(), nullptr);
  EXPECT_TRUE(cache->GlobalSettings()->IsEmpty());
  EXPECT_EQ(cache->BoardScaleCount(), 0u);
}

TEST_F(CommScalesCacheTest, TheFirmsScaleIsReadInHundredths) {
  Load("[CommissionScale]\nMinValue=10\n1000=0.5\n");
  const TCommScale& g = *cache->GlobalSettings();
  EXPECT_DOUBLE_EQ(g.minValue, 1000.0);
  ASSERT_EQ(g.rates.size(), 1u);
  EXPECT_DOUBLE_EQ(g.rates.begin()->turnover, 100000.0);
  EXPECT_DOUBLE_EQ(g.rates.begin()->rate, 0.5);
}

TEST_F(CommScalesCacheTest, BoardScalesAreHashedByBoardAndPlanScalesStayOut) {
  Load("[bdTQBR_CommissionScale]\n100=0.1\n[tpP1_bdTQOB_CommissionScale]\n100=0.2\n");
  EXPECT_EQ(cache->BoardScaleCount(), 1u);
  ASSERT_NE(cache->BoardScale("tqbr"), nullptr);
  EXPECT_DOUBLE_EQ(cache->BoardScale("TQBR")->rates.begin()->turnover, 10000.0);
  EXPECT_EQ(cache->BoardScale("TQOB"), nullptr);
}

TEST_F(CommScalesCacheTest, APersonalScaleIsEnteredInTheItemTable) {
  Load("[clC1_CommissionScale]\n100=0.2\n[clC*_CommissionScale]\n100=0.9\n");
  const TCommScale* s = Get("C1", "TQBR");
  EXPECT_DOUBLE_EQ(FirstRate(s), 0.2);
  EXPECT_EQ(cache->ItemTable().size(), 1u);
  EXPECT_EQ(Get("C1", "TQBR"), s);
}

TEST_F(CommScalesCacheTest, ThePlansScaleOfTheGroupIsASharedTemplateResult) {
  Load("[tpP1_bdTQBR_CommissionScale]\n100=0.3\n[clC*_CommissionScale]\n100=0.9\n");
  const TCommScale* a = Get("C2", "TQBR", "P1");
  const TCommScale* b = Get("C3", "TQBR", "p1");
  EXPECT_DOUBLE_EQ(FirstRate(a), 0.3);
  EXPECT_EQ(a, b);
  EXPECT_TRUE(cache->ItemTable().empty());
  // Without the plan the prefix section applies.
  EXPECT_DOUBLE_EQ(FirstRate(Get("C2", "TQBR")), 0.9);
}

TEST_F(CommScalesCacheTest, AScaleTemplateListingTheClientComesBeforeAPrefix) {
  Load("[clT_CommissionScale_Template]\nClients=C3\n100=0.4\n[clC*_CommissionScale]\n100=0.9\n");
  EXPECT_DOUBLE_EQ(FirstRate(Get("C3")), 0.4);
  EXPECT_TRUE(cache->ItemTable().empty());
  EXPECT_DOUBLE_EQ(FirstRate(Get("C4")), 0.9);
  EXPECT_EQ(cache->ItemTable().size(), 1u);
}

TEST_F(CommScalesCacheTest, TheScaleOfTheBoardGroupComesLast) {
  Load("[CommissionScale]\n100=0.05\n[bdTQBR_CommissionScale]\n100=0.1\n");
  EXPECT_DOUBLE_EQ(FirstRate(Get("X", "TQBR")), 0.1);
  EXPECT_EQ(Get("X", "TQOB"), cache->GlobalSettings());
  EXPECT_EQ(Get("X"), cache->GlobalSettings());
  EXPECT_TRUE(cache->ItemTable().empty());
}

TEST_F(CommScalesCacheTest, EditsChangeTheFirmsScale) {
  Load("[CommissionScale]\nMinValue=10\n1000=0.5\n");
  cache->SetMinMaxTurnover({0.0, 20.0, 0.0});
  cache->SetScaleRates({{2000.0, 0.25}});
  const TCommScale& g = *cache->GlobalSettings();
  EXPECT_DOUBLE_EQ(g.minValue, 1000.0);
  EXPECT_DOUBLE_EQ(g.maxValue, 2000.0);
  ASSERT_EQ(g.rates.size(), 1u);
  EXPECT_DOUBLE_EQ(g.rates.begin()->turnover, 200000.0);
  std::string out;
  TCacheOfCommScales::MakeSettingsString(out, g);
  EXPECT_EQ(out, "MinValue=10.0000000000\nMaxValue=20.0000000000\n2000.0000000000=0.2500000000\n");
}

}  // namespace
}  // namespace DL
