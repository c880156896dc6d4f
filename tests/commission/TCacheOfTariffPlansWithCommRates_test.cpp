#include "commission/TCacheOfTariffPlansWithCommRates.h"

#include <gtest/gtest.h>

#include <iterator>

namespace DL {
namespace {

// The names of sections and parameters are filled by the first parser of the
// process; each test may run alone.
class TariffPlanScalesTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { TIniParser catalogue("", TIniParser::SourceText, ';', 1); }
};

TEST_F(TariffPlanScalesTest, APlanScaleNameSplitsIntoPlanAndGroup) {
  std::string plan, group;
  ASSERT_TRUE(TCacheOfTariffPlansWithCommRates::SplitSectionName("tpP1_bdTQBR_CommissionScale", plan, group));
  EXPECT_EQ(plan, "P1");
  EXPECT_EQ(group, "TQBR");
  ASSERT_TRUE(TCacheOfTariffPlansWithCommRates::SplitSectionName("TPA_B_BDG_COMMISSIONSCALE", plan, group));
  EXPECT_EQ(plan, "A_B");
  EXPECT_EQ(group, "G");
}

TEST_F(TariffPlanScalesTest, OtherNamesAreNoPlanScales) {
  std::string plan, group;
  EXPECT_FALSE(TCacheOfTariffPlansWithCommRates::SplitSectionName("bdTQBR_CommissionScale", plan, group));
  EXPECT_FALSE(TCacheOfTariffPlansWithCommRates::SplitSectionName("tp_bdTQBR_CommissionScale", plan, group));
  EXPECT_FALSE(TCacheOfTariffPlansWithCommRates::SplitSectionName("tpP1_bd_CommissionScale", plan, group));
  EXPECT_FALSE(TCacheOfTariffPlansWithCommRates::SplitSectionName("tpP1_bdTQBR", plan, group));
  TCacheOfTariffPlansWithCommRates cache;
  EXPECT_FALSE(cache.ParseSection("CommissionScale", {{"100", "0.1"}}));
  EXPECT_TRUE(cache.Scales().empty());
}

TEST_F(TariffPlanScalesTest, TheSectionIsReadIntoAScaleWithSortedRows) {
  TCacheOfTariffPlansWithCommRates cache;
  ASSERT_TRUE(cache.ParseSection("tpP1_bdTQBR_CommissionScale", {{"minvalue", "5"},
                                                                  {"MaxValue", "0"},
                                                                  {"ConsiderRepoTerm", "yes"},
                                                                  {"TradeCommission", "0.01"},
                                                                  {"1000", "0.5"},
                                                                  {"500", "0.7"}}));
  const TCommScale* s = cache.GetScale("p1", "tqbr");
  ASSERT_NE(s, nullptr);
  EXPECT_DOUBLE_EQ(s->minValue, 500.0);
  EXPECT_DOUBLE_EQ(s->maxValue, 0.0);
  EXPECT_FALSE(s->considerRepoTerm);
  EXPECT_DOUBLE_EQ(s->tradeCommission, 1.0);
  ASSERT_EQ(s->rates.size(), 2u);
  EXPECT_DOUBLE_EQ(s->rates.begin()->turnover, 50000.0);
  EXPECT_DOUBLE_EQ(s->rates.begin()->rate, 0.7);
  EXPECT_DOUBLE_EQ(std::next(s->rates.begin())->turnover, 100000.0);
  EXPECT_EQ(cache.GetScale("P1", "TQOB"), nullptr);
}

TEST_F(TariffPlanScalesTest, ConsiderRepoTermIsTrueOnlyForOne) {
  TCacheOfTariffPlansWithCommRates cache;
  ASSERT_TRUE(cache.ParseSection("tpP_bdG_CommissionScale", {{"ConsiderRepoTerm", "1"}}));
  EXPECT_TRUE(cache.GetScale("P", "G")->considerRepoTerm);
}

}  // namespace
}  // namespace DL
