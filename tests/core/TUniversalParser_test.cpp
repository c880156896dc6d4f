// The typed parameters of the firm-wide sections: reading, the accessors
// with their result codes, and the text written back.
#include <gtest/gtest.h>

#include <memory>

#include "core/TUniversalParser.h"
#include "base/ResultCodes.h"

namespace {

using DL::TIniParser;
using DL::TUniversalParser;

// Numbers of the General section.
constexpr int kDelimiter = 0;
constexpr int kReserved = 1;
constexpr int kSecPricePrior = 2;
constexpr int kUseDiscountsType = 4;
constexpr int kRstrDerivatives = 6;
constexpr int kUseCorrelation = 8;

class UniversalParserTest : public ::testing::Test {
 protected:
  void Load(const std::string& text) {
    m_parser = std::make_unique<TIniParser>(text.c_str(), 2, ';', 1);
    m_universal = std::make_unique<TUniversalParser>(*m_parser);
    m_universal->ParseGlobalSettings();
  }
  std::string General() const {
    std::string out;
    m_universal->SettingToStrGlobalSection(out, DL::iscGeneral);
    return out;
  }
  std::unique_ptr<TIniParser> m_parser;
  std::unique_ptr<TUniversalParser> m_universal;
};

TEST_F(UniversalParserTest, MissingSectionGivesTheRegisteredDefaults) {
  Load("");
  int value = -5;
  ASSERT_EQ(m_universal->GetIntParamFromGlobalSection(value, DL::iscGeneral, kUseDiscountsType), ZDL_OK);
  EXPECT_EQ(value, 3);
  ASSERT_EQ(m_universal->GetIntParamFromGlobalSection(value, DL::iscGeneral, kRstrDerivatives), ZDL_OK);
  EXPECT_EQ(value, 1);
  char delimiter = 'x';
  ASSERT_EQ(m_universal->GetCharParamFromGlobalSection(delimiter, DL::iscGeneral, kDelimiter), ZDL_OK);
  EXPECT_EQ(delimiter, '\0');
}

TEST_F(UniversalParserTest, ReadsTypedValuesIgnoringCaseOfSectionAndKey) {
  Load("[GENERAL]\nsecpriceprior=7\nAddSubClientDelimiter=/x\nUseCorrelation=0\n");
  int value = 0;
  ASSERT_EQ(m_universal->GetIntParamFromGlobalSection(value, DL::iscGeneral, kSecPricePrior), ZDL_OK);
  EXPECT_EQ(value, 7);
  ASSERT_EQ(m_universal->GetIntParamFromGlobalSection(value, DL::iscGeneral, kUseCorrelation), ZDL_OK);
  EXPECT_EQ(value, 0);
  char delimiter = 0;
  ASSERT_EQ(m_universal->GetCharParamFromGlobalSection(delimiter, DL::iscGeneral, kDelimiter), ZDL_OK);
  EXPECT_EQ(delimiter, '/');
}

TEST_F(UniversalParserTest, BoolAccessOnAnIntegerRowReturns3AndKeepsTheOutput) {
  Load("");
  bool out = true;
  EXPECT_EQ(m_universal->GetBoolParamFromGlobalSection(out, DL::iscGeneral, kUseDiscountsType), ZDL_BAD_ARGUMENT);
  EXPECT_TRUE(out);
  out = false;
  EXPECT_EQ(m_universal->GetBoolParamFromGlobalSection(out, DL::iscGeneral, kUseDiscountsType), ZDL_BAD_ARGUMENT);
  EXPECT_FALSE(out);
}

TEST_F(UniversalParserTest, ReservedNumberFailsEveryAccess) {
  Load("");
  int i = 11;
  bool b = true;
  char c = 'q';
  EXPECT_EQ(m_universal->GetIntParamFromGlobalSection(i, DL::iscGeneral, kReserved), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(m_universal->GetBoolParamFromGlobalSection(b, DL::iscGeneral, kReserved), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(m_universal->GetCharParamFromGlobalSection(c, DL::iscGeneral, kReserved), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(m_universal->SetIntParamToGlobalSection(1, DL::iscGeneral, kReserved), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(m_universal->SetBoolParamToGlobalSection(true, DL::iscGeneral, kReserved), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(m_universal->SetCharParamToGlobalSection('a', DL::iscGeneral, kReserved), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(i, 11);
}

TEST_F(UniversalParserTest, SectionCodeAbove108Returns3) {
  Load("");
  int i = 0;
  EXPECT_EQ(m_universal->GetIntParamFromGlobalSection(i, 109, kUseDiscountsType), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(m_universal->GetIntParamFromGlobalSection(i, -1, kUseDiscountsType), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(m_universal->SetIntParamToGlobalSection(1, 109, kUseDiscountsType), ZDL_BAD_ARGUMENT);
  bool eq = false;
  EXPECT_EQ(m_universal->IsEqualToDefValueIntParamFromGlobalSection(eq, 3, 200, kUseDiscountsType),
            ZDL_BAD_ARGUMENT);
}

TEST_F(UniversalParserTest, NumberOutsideTheTableReturns3) {
  Load("");
  int i = 0;
  EXPECT_EQ(m_universal->GetIntParamFromGlobalSection(i, DL::iscGeneral, 9), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(m_universal->GetIntParamFromGlobalSection(i, DL::iscGeneral, -1), ZDL_BAD_ARGUMENT);
  // A section without a table has no numbers at all.
  EXPECT_EQ(m_universal->GetIntParamFromGlobalSection(i, DL::iscCommission, 0), ZDL_BAD_ARGUMENT);
}

TEST_F(UniversalParserTest, ValidatorRefusesNegativeUseDiscountsTypeAndKeepsTheValue) {
  Load("[General]\nUseDiscountsType=2\n");
  EXPECT_EQ(m_universal->SetIntParamToGlobalSection(-1, DL::iscGeneral, kUseDiscountsType), ZDL_BAD_ARGUMENT);
  int value = 0;
  ASSERT_EQ(m_universal->GetIntParamFromGlobalSection(value, DL::iscGeneral, kUseDiscountsType), ZDL_OK);
  EXPECT_EQ(value, 2);
  EXPECT_EQ(m_universal->SetIntParamToGlobalSection(0, DL::iscGeneral, kUseDiscountsType), ZDL_OK);
  ASSERT_EQ(m_universal->GetIntParamFromGlobalSection(value, DL::iscGeneral, kUseDiscountsType), ZDL_OK);
  EXPECT_EQ(value, 0);
}

TEST_F(UniversalParserTest, RowWithoutValidatorTakesANegativeValue) {
  Load("");
  EXPECT_EQ(m_universal->SetIntParamToGlobalSection(-4, DL::iscGeneral, kSecPricePrior), ZDL_OK);
  int value = 0;
  ASSERT_EQ(m_universal->GetIntParamFromGlobalSection(value, DL::iscGeneral, kSecPricePrior), ZDL_OK);
  EXPECT_EQ(value, -4);
}

TEST_F(UniversalParserTest, EqualToDefaultAndToGlobalValue) {
  Load("[General]\nRstrDerivatives=0\n");
  bool eq = false;
  ASSERT_EQ(m_universal->IsEqualToDefValueIntParamFromGlobalSection(eq, 1, DL::iscGeneral, kRstrDerivatives),
            ZDL_OK);
  EXPECT_TRUE(eq);
  ASSERT_EQ(m_universal->IsEqualToGlobalValueIntParamFromGlobalSection(eq, 1, DL::iscGeneral, kRstrDerivatives),
            ZDL_OK);
  EXPECT_FALSE(eq);
  ASSERT_EQ(m_universal->IsEqualToGlobalValueIntParamFromGlobalSection(eq, 0, DL::iscGeneral, kRstrDerivatives),
            ZDL_OK);
  EXPECT_TRUE(eq);
  EXPECT_EQ(m_universal->IsEqualToDefValueBoolParamFromGlobalSection(eq, true, DL::iscGeneral, kRstrDerivatives),
            ZDL_BAD_ARGUMENT);
  EXPECT_EQ(
      m_universal->IsEqualToGlobalValueBoolParamFromGlobalSection(eq, true, DL::iscGeneral, kRstrDerivatives),
      ZDL_BAD_ARGUMENT);
}

TEST_F(UniversalParserTest, BoolRowsOfARegisteredSection) {
  Load("[General]\nKeepFlag=1\n");
  // A flag row registered on a free section code.
  m_universal->AddBoolParamSupport(DL::iscCommission, 0, TIniParser::ipcCalcNegDeal, true);
  bool value = false;
  ASSERT_EQ(m_universal->GetBoolParamFromGlobalSection(value, DL::iscCommission, 0), ZDL_OK);
  EXPECT_TRUE(value);
  ASSERT_EQ(m_universal->SetBoolParamToGlobalSection(false, DL::iscCommission, 0), ZDL_OK);
  bool eq = true;
  ASSERT_EQ(m_universal->IsEqualToDefValueBoolParamFromGlobalSection(eq, false, DL::iscCommission, 0), ZDL_OK);
  EXPECT_FALSE(eq);
  ASSERT_EQ(m_universal->IsEqualToGlobalValueBoolParamFromGlobalSection(eq, false, DL::iscCommission, 0), ZDL_OK);
  EXPECT_TRUE(eq);
  std::string out;
  m_universal->SettingToStrGlobalSection(out, DL::iscCommission);
  EXPECT_EQ(out, "CalcNegDeal=0\n");
}

TEST_F(UniversalParserTest, ParamNumberByNameIgnoringCase) {
  Load("");
  EXPECT_EQ(m_universal->GetParamNumInSect(DL::iscGeneral, "usediscountstype"), kUseDiscountsType);
  EXPECT_EQ(m_universal->GetParamNumInSect(DL::iscGeneral, "AddSubClientDelimiter"), kDelimiter);
  EXPECT_EQ(m_universal->GetParamNumInSect(DL::iscGeneral, "NoSuchParam"), -1);
  EXPECT_EQ(m_universal->GetParamNumInSect(DL::iscCommission, "UseDiscountsType"), -1);
  EXPECT_EQ(m_universal->GetParamNumInSect(500, "UseDiscountsType"), -1);
}

TEST_F(UniversalParserTest, TypedParameterAtItsDefaultIsNotWritten) {
  Load("[General]\nRstrDerivatives=1\nUseCorrelation=1\n");
  EXPECT_EQ(General(), "");
}

TEST_F(UniversalParserTest, TypedValueDifferentFromDefaultIsWrittenUnderTheRawName) {
  Load("[General]\nrstrderivatives=0\nSecPricePrior=2\n");
  EXPECT_EQ(General(), "rstrderivatives=0\nSecPricePrior=2\n");
}

TEST_F(UniversalParserTest, EditedValueReplacesTheRawValueInTheText) {
  Load("[General]\nUseDiscountsType=2\n");
  ASSERT_EQ(m_universal->SetIntParamToGlobalSection(5, DL::iscGeneral, kUseDiscountsType), ZDL_OK);
  EXPECT_EQ(General(), "UseDiscountsType=5\n");
  ASSERT_EQ(m_universal->SetIntParamToGlobalSection(3, DL::iscGeneral, kUseDiscountsType), ZDL_OK);
  EXPECT_EQ(General(), "");
}

TEST_F(UniversalParserTest, EditedValueAbsentFromTheTextIsWrittenAfterTheRawLines) {
  Load("[General]\nOther=abc\n");
  ASSERT_EQ(m_universal->SetCharParamToGlobalSection('#', DL::iscGeneral, kDelimiter), ZDL_OK);
  ASSERT_EQ(m_universal->SetIntParamToGlobalSection(0, DL::iscGeneral, kUseCorrelation), ZDL_OK);
  EXPECT_EQ(General(), "Other=abc\nAddSubClientDelimiter=#\nUseCorrelation=0\n");
}

TEST_F(UniversalParserTest, ExcludedSettingsAreLeftToTheHubAndOtherRawLinesStay) {
  Load("[General]\nCalcNegDeal=1\nThresMarginCoeff=50\nUSEPGO=1\nbasedisccoeff=0.5\n");
  EXPECT_EQ(General(), "USEPGO=1\n");
}

TEST(UniversalParserExcludedSet, HoldsTheUpperCaseNamesTheHubWrites) {
  const auto& excluded = TUniversalParser::ExcludedGeneralSettings();
  EXPECT_EQ(excluded.size(), 34u);
  EXPECT_EQ(excluded.count("CHECKUSER"), 1u);
  EXPECT_EQ(excluded.count("THRESMARGINCOEFF"), 1u);
  EXPECT_EQ(excluded.count("VOLATILITYCHANGESCENARIOS"), 1u);
  EXPECT_EQ(excluded.count("USEPGO"), 0u);
}

}  // namespace
