// The second reading of a settings text: classification of section names,
// the grammar of each section kind and the items of a setting line.
#include <gtest/gtest.h>

#include "settings/DeallerParser.h"

namespace {

using DLTypes::Parser;
using DLTypes::SettingArgs;
using DLTypes::SettingParameter;

TEST(DeallerParserTest, AMarginTemplateSectionIsClassifiedButAMarginSectionIsNot) {
  const DLTypes::TemplateSectionNameInfo t = Parser::IsSectionTemplate("cl12345_Margin_Template");
  EXPECT_EQ(t.kind, DLTypes::tsnMarginTemplate);
  EXPECT_EQ(t.parts, std::vector<std::string>{"12345"});
  EXPECT_EQ(Parser::IsSectionTemplate("cl12345_Margin").kind, DLTypes::tsnNone);
  EXPECT_EQ(Parser::IsSectionTemplate("").kind, DLTypes::tsnNone);
}

TEST(DeallerParserTest, GlobalAndTemplateSetsAreTwoSectionsWithOneGrammar) {
  const DLTypes::TemplateSectionNameInfo g = Parser::IsSectionTemplate("SetOfInstruments_A");
  const DLTypes::TemplateSectionNameInfo t = Parser::IsSectionTemplate("clT_SetOfInstruments_A_Template");
  EXPECT_EQ(g.kind, DLTypes::tsnSetOfInstruments);
  EXPECT_EQ(g.parts, std::vector<std::string>{"A"});
  EXPECT_EQ(t.kind, DLTypes::tsnTemplateSetOfInstruments);
  EXPECT_EQ(t.parts, (std::vector<std::string>{"T", "A"}));
  Parser p;
  p.ParseIniText("[SetOfInstruments_A]\nNettingType=1\n[clT_SetOfInstruments_A_Template]\nNettingType=2\n");
  ASSERT_NE(p.GetTemplateSection(DLTypes::tsnSetOfInstruments, {"A"}), nullptr);
  ASSERT_NE(p.GetTemplateSection(DLTypes::tsnTemplateSetOfInstruments, {"T", "A"}), nullptr);
  EXPECT_EQ(p.GetTemplateSection(DLTypes::tsnSetOfInstruments, {"A"})->simple.at(DLTypes::stsNettingType), "1");
  EXPECT_EQ(p.GetTemplateSection(DLTypes::tsnTemplateSetOfInstruments, {"T", "A"})->simple.at(DLTypes::stsNettingType),
            "2");
}

TEST(DeallerParserTest, ASecondSectionOfTheSameTemplateIsIgnoredWhole) {
  Parser p;
  p.ParseIniText("[clT_Margin_Template]\nClients=C1\n[clT_Margin_Template]\nClients=C2\nUseGlobalSets=1\n");
  const DLTypes::SectionText* t = p.GetTemplateSection(DLTypes::tsnMarginTemplate, {"T"});
  ASSERT_NE(t, nullptr);
  EXPECT_EQ(t->simple.at(DLTypes::stsClients), "C1");
  EXPECT_TRUE(t->flags.empty());
}

TEST(DeallerParserTest, TwoLinesOfOneFlagTheSecondStands) {
  Parser p;
  p.ParseIniText("[General]\nUseSetsForNonTemplateClients=1\nUseSetsForNonTemplateClients=0\nCreditLag=2\n");
  EXPECT_EQ(p.GetGlobalFlagSettingText(DLTypes::stfUseSetsForNonTemplateClients), "0");
  EXPECT_EQ(p.GetGlobalSimpleSettingText(DLTypes::stsCreditLag), "2");
}

TEST(DeallerParserTest, KeysOutsideTheGrammarAndOtherSectionsAreSkipped) {
  Parser p;
  p.ParseIniText("[clC1_Margin]\nClients=C9\n[General]\nUnknownKey=1\nBaseCurrency=USD\n");
  ASSERT_NE(p.GetGlobalSection(), nullptr);
  EXPECT_TRUE(p.GetGlobalSection()->flags.empty());
  EXPECT_EQ(p.GetGlobalSection()->simple.size(), 1u);
  EXPECT_TRUE(p.GetTemplateTypeExamples(DLTypes::tsnMarginTemplate).empty());
}

TEST(DeallerParserTest, ItemsMaySeparateByCommaBlanksOrBoth) {
  const SettingArgs expected{{"Instrument", "SBER"}, {"RelativeRiskRate", "0.5"}, {"DependencyTrend", "-1"}};
  EXPECT_EQ(DLTypes::TOOLS::GetSettingArgs("Instrument<SBER>,RelativeRiskRate<0.5>,DependencyTrend<-1>"), expected);
  EXPECT_EQ(DLTypes::TOOLS::GetSettingArgs("Instrument<SBER> RelativeRiskRate<0.5>  DependencyTrend<-1>"), expected);
  EXPECT_EQ(DLTypes::TOOLS::GetSettingArgs("Instrument<SBER> , RelativeRiskRate<0.5>, DependencyTrend<-1>"), expected);
}

TEST(DeallerParserTest, TheItemAfterAMalformedOneIsNotRead) {
  const SettingArgs args = DLTypes::TOOLS::GetSettingArgs("Instrument<SBER>, Relative Risk<0.5>, DependencyTrend<1>");
  EXPECT_EQ(args, (SettingArgs{{"Instrument", "SBER"}}));
  EXPECT_TRUE(DLTypes::TOOLS::GetSettingArgs("<SBER>").empty());    // empty name
  EXPECT_TRUE(DLTypes::TOOLS::GetSettingArgs("Instrument>").empty());  // no "<" before ">"
}

TEST(DeallerParserTest, ComplexRowsOfASetKeepTheirOrderAndForeignItemsDropTheLine) {
  Parser p;
  p.ParseIniText(
      "[SetOfInstruments_S]\n"
      "Row1=Instrument<SBER>,RelativeRiskRate<0.5>\n"
      "Row2=Instrument<GAZP>,Color<red>\n"
      "Row3=Instrument<LKOH>\n");
  const DLTypes::SectionText* s = p.GetTemplateSection(DLTypes::tsnSetOfInstruments, {"S"});
  ASSERT_NE(s, nullptr);
  const auto& rows = s->complex.at(DLTypes::stcInstruments);
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0][0].value, "SBER");
  EXPECT_EQ(rows[1][0].value, "LKOH");
}

TEST(DeallerParserTest, TheSectionMapFormReadsTheSameSections) {
  DL::TIniSectionsMap sections;
  sections["General"]["BaseCurrency"] = "USD";
  sections["clT_Margin_Template"]["Clients"] = "C1";
  Parser p;
  p.ParseIniFile(sections);
  EXPECT_EQ(p.GetGlobalSimpleSettingText(DLTypes::stsBaseCurrency), "USD");
  EXPECT_NE(p.GetTemplateSection(DLTypes::tsnMarginTemplate, {"T"}), nullptr);
}

}  // namespace
