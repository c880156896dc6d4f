#include "commission/TCacheOfTariffPlans.h"

#include <gtest/gtest.h>

#include "commission/TCacheOfTariffPlansWithCommRates.h"

namespace DL {
namespace {

// The names of sections and parameters are filled by the first parser of the
// process; each test may run alone.
class TariffPlansTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { TIniParser catalogue("", TIniParser::SourceText, ';', 1); }
};

TEST_F(TariffPlansTest, ThePlansSectionNamesPlansGroupsAndTheDefaultPlan) {
  TCacheOfTariffPlans plans;
  ASSERT_TRUE(plans.ParseSection("CommissionScaleBoards", {{"p1", "G1, g2"}, {"P2", "G3"}, {"DefaultTP", "p1"}}));
  EXPECT_EQ(plans.GetAllPlanesNames(), (std::vector<std::string>{"P1", "P2"}));
  EXPECT_EQ(plans.GetDefaultPlan(), "P1");
  ASSERT_NE(plans.GetPlan("p1"), nullptr);
  EXPECT_EQ(plans.GetPlan("p1")->groups, (std::vector<std::string>{"G1", "G2"}));
  EXPECT_EQ(plans.GetPlan("P3"), nullptr);
}

TEST_F(TariffPlansTest, OtherSectionsAreNotTaken) {
  TCacheOfTariffPlans plans;
  EXPECT_FALSE(plans.ParseSection("CommissionScale", {{"100", "1"}}));
  EXPECT_FALSE(plans.ParseSection("CommissionScaleBoards_", {{"G", "B"}}));
  EXPECT_TRUE(plans.Empty());
}

TEST_F(TariffPlansTest, ClassCodesAreTheBoardsOfThePlanLessTheProhibited) {
  TCacheOfTariffPlans plans;
  ASSERT_TRUE(plans.ParseSection("commissionscaleboards_p1",
                                 {{"G1", "TQBR,TQOB"}, {"G2", "tqcb"}, {"PROHIBITED_BOARDS", "TQOB"}}));
  EXPECT_EQ(plans.CollectClassCodes("P1"), (std::set<std::string>{"TQBR", "TQCB"}));
  EXPECT_TRUE(plans.SetClassCodes("p1", {"TQBR"}));
  EXPECT_EQ(plans.GetPlan("P1")->classCodes, std::set<std::string>{"TQBR"});
}

TEST_F(TariffPlansTest, ClassCodesOfAnUnknownPlanAreRefused) {
  TCacheOfTariffPlans plans;
  EXPECT_FALSE(plans.SetClassCodes("NOPE", {"TQBR"}));
  EXPECT_TRUE(plans.CollectClassCodes("NOPE").empty());
}

TEST_F(TariffPlansTest, MakeStringWritesThePlansTheirBoardsAndTheirScales) {
  TCacheOfTariffPlans plans;
  TCacheOfTariffPlansWithCommRates rates;
  ASSERT_TRUE(plans.ParseSection("CommissionScaleBoards", {{"p1", "G1,G2"}, {"DefaultTP", "p1"}}));
  ASSERT_TRUE(plans.ParseSection("CommissionScaleBoards_P1", {{"G1", "TQBR,TQOB"}}));
  ASSERT_TRUE(rates.ParseSection("tpP1_bdG1_CommissionScale", {{"MinValue", "5"}, {"1000", "0.5"}}));
  plans.SetTariffPlaneCache(&rates);
  std::string out;
  std::vector<std::string> sections;
  plans.MakeString(out, sections);
  EXPECT_EQ(out,
            "[CommissionScaleBoards]\n"
            "DefaultTP=p1\n"
            "p1=G1,G2\n"
            "[CommissionScaleBoards_P1]\n"
            "G1=TQBR,TQOB\n"
            "[tpP1_bdG1_CommissionScale]\n"
            "MinValue=5.0000000000\n"
            "1000.0000000000=0.5000000000\n");
  EXPECT_EQ(sections, (std::vector<std::string>{"CommissionScaleBoards", "CommissionScaleBoards_P1",
                                                "tpP1_bdG1_CommissionScale"}));
}

TEST_F(TariffPlansTest, NoPlansWriteNothing) {
  TCacheOfTariffPlans plans;
  std::string out;
  std::vector<std::string> sections;
  plans.MakeString(out, sections);
  EXPECT_EQ(out, "");
  EXPECT_TRUE(sections.empty());
}

}  // namespace
}  // namespace DL
