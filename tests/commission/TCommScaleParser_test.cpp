// Commission scale searches: personal, template, prefix and global scales,
// and the reading of a scale section.
#include "commission/TCommScaleParser.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using DL::TCommScaleParser;
using DL::TIniParser;

class TCommScaleParserTest : public ::testing::Test {
 protected:
  void Load(const std::string& text) { ASSERT_EQ(parser.Init(text.c_str(), TIniParser::SourceText, ';', 1), 1); }
  // The first row's rate: which section a scale was read from.
  static double FirstRate(const std::unique_ptr<DL::TCommScale>& s) { return s->rates.begin()->rate; }

  TIniParser parser;
  TCommScaleParser scales{parser};
};

TEST_F(TCommScaleParserTest, SectionIsReadInHundredthsWithSortedRows) {
  Load("[CommissionScale]\nMinValue=1.5\nMaxValue=100\nMinVolume=2\nTradeCommission=0.25\n"
       "ConsiderRepoTerm=1\nClients=C1\n1000=0.1\n500=0.2\n0=0.3\n");
  const auto s = scales.GlobalCommScale();
  ASSERT_NE(s, nullptr);
  EXPECT_DOUBLE_EQ(s->minValue, 150.0);
  EXPECT_DOUBLE_EQ(s->maxValue, 10000.0);
  EXPECT_DOUBLE_EQ(s->minVolume, 200.0);
  EXPECT_DOUBLE_EQ(s->tradeCommission, 25.0);
  EXPECT_TRUE(s->considerRepoTerm);
  std::vector<std::pair<double, double>> rows;
  for (const auto& r : s->rates) rows.emplace_back(r.turnover, r.rate);
  EXPECT_EQ(rows, (std::vector<std::pair<double, double>>{{0, 0.3}, {50000, 0.2}, {100000, 0.1}}));
}

TEST_F(TCommScaleParserTest, ConsiderRepoTermOnlyForOne) {
  Load("[CommissionScale]\nConsiderRepoTerm=2\n");
  EXPECT_FALSE(scales.GlobalCommScale()->considerRepoTerm);
}

TEST_F(TCommScaleParserTest, RepeatedThresholdOverwrites) {
  Load("[CommissionScale]\n100=0.1\n100.0001=0.2\n");
  const auto s = scales.GlobalCommScale();
  ASSERT_EQ(s->rates.size(), 1u);
}

TEST_F(TCommScaleParserTest, EmptyOrMissingSectionGivesNull) {
  Load("[General]\nA=1\n");
  EXPECT_EQ(scales.GlobalCommScale(), nullptr);
  EXPECT_EQ(scales.CommScaleFromSection("Missing"), nullptr);
}

TEST_F(TCommScaleParserTest, PersonalScale) {
  Load("[clC1_CommissionScale]\n0=1\n");
  EXPECT_DOUBLE_EQ(FirstRate(scales.PersonalCommScale("C1")), 1.0);
  EXPECT_EQ(scales.PersonalCommScale("C2"), nullptr);
}

TEST_F(TCommScaleParserTest, PrefixModesLongestShortestAndAny) {
  Load("[clA*_CommissionScale]\n0=1\n[clAB*_CommissionScale]\n0=2\n[clZ*_CommissionScale]\n0=3\n");
  EXPECT_DOUBLE_EQ(FirstRate(scales.PrefixCommScale("ABC", 1)), 2.0);
  EXPECT_DOUBLE_EQ(FirstRate(scales.PrefixCommScale("ABC", 2)), 1.0);
  EXPECT_DOUBLE_EQ(FirstRate(scales.PrefixCommScale("QQ", 3)), 1.0);  // the first of any prefix
  EXPECT_EQ(scales.PrefixCommScale("QQ", 1), nullptr);
}

TEST_F(TCommScaleParserTest, TemplateByLeverageThenByClientList) {
  Load("[clT_Client_Template]\nIncludeClientsWithLeverage=2\n"
       "[clT_CommissionScale_Template]\n0=1\n"
       "[clU_CommissionScale_Template]\nClients= C1,C2 \n0=2\n"
       "[clV_CommissionScale_Template]\nClients=C3, C4\n0=3\n");
  EXPECT_DOUBLE_EQ(FirstRate(scales.TemplateCommScale("C9", 2.0)), 1.0);
  EXPECT_DOUBLE_EQ(FirstRate(scales.TemplateCommScale("C2", 2.0)), 1.0);  // leverage first
  EXPECT_DOUBLE_EQ(FirstRate(scales.TemplateCommScale("C2", -1)), 2.0);
  EXPECT_DOUBLE_EQ(FirstRate(scales.TemplateCommScale("C1", 3.0)), 2.0);  // no template of 3
  EXPECT_EQ(scales.TemplateCommScale("C9", -1), nullptr);
  // Only the ends of the list are trimmed: " C4" is not the client "C4".
  EXPECT_EQ(scales.TemplateCommScale("C4", -1), nullptr);
  EXPECT_DOUBLE_EQ(FirstRate(scales.TemplateCommScale("C3", -1)), 3.0);
}

TEST_F(TCommScaleParserTest, LeverageTemplateWithoutScaleFallsBackToTheList) {
  Load("[clT_Client_Template]\nIncludeClientsWithLeverage=2\n"
       "[clU_CommissionScale_Template]\nClients=C1\n0=2\n");
  EXPECT_DOUBLE_EQ(FirstRate(scales.TemplateCommScale("C1", 2.0)), 2.0);
}

}  // namespace
