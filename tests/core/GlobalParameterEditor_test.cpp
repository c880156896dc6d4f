// The firm's single values edited in their homes: the rules of each home and
// the canonical text the save writes from it (General first, keys in order).
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "base/ResultCodes.h"
#include "core/SavedText.h"
#include "core/TGlobalParameterEditor.h"
#include "core/TStorageHub.h"

namespace {

using DL::TGlobalParameterEditor;
using DL::TStorageHub;

TEST(GlobalParameterEditorTest, ARawFlagAboveOneIsRefusedAndZeroErasesIt) {
  TStorageHub hub("[General]\nUsePGO=1\n", 2);
  TGlobalParameterEditor editor(hub);
  EXPECT_EQ(editor.SetUsePGOToGlobal(2), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(editor.SetUsePGOToGlobal(-1), ZDL_BAD_ARGUMENT);
  bool value = false;
  ASSERT_EQ(editor.GetUsePGOFromGlobal(&value), ZDL_OK);
  EXPECT_TRUE(value);
  ASSERT_EQ(editor.SetUsePGOToGlobal(0), ZDL_OK);
  EXPECT_EQ(hub.GetSections().find("General")->second.count("UsePGO"), 0u);
  value = true;
  ASSERT_EQ(editor.GetUsePGOFromGlobal(&value), ZDL_OK);
  EXPECT_FALSE(value);
}

TEST(GlobalParameterEditorTest, ARawValueOfAFirmWithoutGeneralIsNotFoundAndASetMakesTheSection) {
  TStorageHub hub("[Commission]\nVAT=20\n", 2);
  TGlobalParameterEditor editor(hub);
  bool flag = false;
  int number = 0;
  ZDL_VolatilityChangeScenarios scenarios{};
  EXPECT_EQ(editor.GetAssessTotalDebtByMarketFromGlobal(&flag), ZDL_NOT_FOUND);
  EXPECT_EQ(editor.GetCommissionScaleJumpFromGlobal(&number), ZDL_NOT_FOUND);
  EXPECT_EQ(editor.GetVolatilityChangeScenariosFromGlobal(&scenarios), ZDL_NOT_FOUND);
  EXPECT_EQ(editor.GetAssessTotalDebtByMarketFromGlobal(nullptr), ZDL_BAD_ARGUMENT);
  ASSERT_EQ(editor.SetAssessTotalDebtByMarketToGlobal(1), ZDL_OK);
  ASSERT_EQ(editor.GetAssessTotalDebtByMarketFromGlobal(&flag), ZDL_OK);
  EXPECT_TRUE(flag);
  // The section exists now, but the scenarios are still not there.
  EXPECT_EQ(editor.GetVolatilityChangeScenariosFromGlobal(&scenarios), ZDL_NOT_FOUND);
  EXPECT_EQ(ztest::SavedText(hub), "[General]\r\nAssessTotalDebtByMarket=1\r\n\r\n[Commission]\r\nVAT=20\r\n\r\n");
}

TEST(GlobalParameterEditorTest, ScenariosAreWrittenAsTwoNumbersAndReadBack) {
  TStorageHub hub("[General]\nVolatilityChangeScenarios= 2.5 , -1\n", 2);
  TGlobalParameterEditor editor(hub);
  ZDL_VolatilityChangeScenarios scenarios{};
  ASSERT_EQ(editor.GetVolatilityChangeScenariosFromGlobal(&scenarios), ZDL_OK);
  EXPECT_DOUBLE_EQ(scenarios.value1, 2.5);
  EXPECT_DOUBLE_EQ(scenarios.value2, -1.0);
  EXPECT_EQ(editor.SetVolatilityChangeScenariosToGlobal({std::nan(""), 1.0}), ZDL_BAD_ARGUMENT);
  ASSERT_EQ(editor.SetVolatilityChangeScenariosToGlobal({10.0, 0.25}), ZDL_OK);
  EXPECT_EQ(ztest::SavedText(hub), "[General]\r\nVolatilityChangeScenarios=10,0.25\r\n\r\n");
}

TEST(GlobalParameterEditorTest, AGeneralFlagIsWrittenFromItsFieldAndAFlagDefaultingToOnWritesZero) {
  TStorageHub hub("", 2);
  TGlobalParameterEditor editor(hub);
  bool value = true;
  ASSERT_EQ(editor.GetCalcNegDealFromGlobal(&value), ZDL_OK);
  EXPECT_FALSE(value);
  ASSERT_EQ(editor.SetCalcNegDealToGlobal(1), ZDL_OK);
  ASSERT_EQ(editor.SetAcceptClosePeriodOrdersToGlobal(0), ZDL_OK);
  EXPECT_EQ(editor.SetWriteDebugInfoToGlobal(2), ZDL_BAD_ARGUMENT);
  ASSERT_EQ(editor.SetSupportMultiCurrencyToGlobal(1), ZDL_OK);  // kept as a whole number
  EXPECT_EQ(hub.General().GetSupportMultiCurrency(), 1);
  EXPECT_EQ(ztest::SavedText(hub),
            "[General]\r\nAcceptClosePeriodOrders=0\r\nCalcNegDeal=1\r\nSupportMultiCurrency=1\r\n\r\n");
}

TEST(GlobalParameterEditorTest, TheNettingTypeIsZeroToTwo) {
  TStorageHub hub("[General]\nMDPlusDefaultNettingType=1\n", 2);
  TGlobalParameterEditor editor(hub);
  EXPECT_EQ(editor.SetMDPlusDefaultNettingTypeToGlobal(3), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(editor.SetMDPlusDefaultNettingTypeToGlobal(-1), ZDL_BAD_ARGUMENT);
  int value = -1;
  ASSERT_EQ(editor.GetMDPlusDefaultNettingTypeFromGlobal(&value), ZDL_OK);
  EXPECT_EQ(value, 1);
  ASSERT_EQ(editor.SetMDPlusDefaultNettingTypeToGlobal(2), ZDL_OK);
  ASSERT_EQ(editor.GetMDPlusDefaultNettingTypeFromGlobal(&value), ZDL_OK);
  EXPECT_EQ(value, 2);
}

TEST(GlobalParameterEditorTest, ThresMarginCoeffBelowTenIsRaisedAndOneHundredLeavesNoLine) {
  TStorageHub hub("[General]\nThresMarginCoeff=50\n", 2);
  TGlobalParameterEditor editor(hub);
  EXPECT_EQ(editor.SetThresMarginCoeffToGlobal(-0.5), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(editor.SetThresMarginCoeffToGlobal(std::numeric_limits<double>::infinity()), ZDL_BAD_ARGUMENT);
  ASSERT_EQ(editor.SetThresMarginCoeffToGlobal(4), ZDL_OK);
  double value = 0;
  ASSERT_EQ(editor.GetThresMarginCoeffFromGlobal(&value), ZDL_OK);
  EXPECT_DOUBLE_EQ(value, 10.0);
  EXPECT_EQ(ztest::SavedText(hub), "[General]\r\nThresMarginCoeff=10\r\n\r\n");
  ASSERT_EQ(editor.SetThresMarginCoeffToGlobal(100), ZDL_OK);
  EXPECT_EQ(ztest::SavedText(hub), "");
}

TEST(GlobalParameterEditorTest, BaseDiscCoeffKeepsThePlaceOfAMissingCoefficient) {
  TStorageHub hub("[General]\nBaseDiscCoeff=,30\n", 2);
  TGlobalParameterEditor editor(hub);
  ZDL_BaseDiscCoeff coeffs{};
  ASSERT_EQ(editor.GetBaseDiscCoeffFromGlobal(&coeffs), ZDL_OK);
  EXPECT_EQ(coeffs.coeff1, -1.0);
  EXPECT_EQ(coeffs.coeff2, 30.0);
  EXPECT_EQ(coeffs.coeff3, -1.0);
  EXPECT_EQ(editor.SetBaseDiscCoeffToGlobal({0.0, -1, -1}), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(editor.SetBaseDiscCoeffToGlobal({-1, 100.5, -1}), ZDL_BAD_ARGUMENT);
  EXPECT_EQ(editor.SetBaseDiscCoeffToGlobal({-1, -1, -2}), ZDL_BAD_ARGUMENT);
  ASSERT_EQ(editor.SetBaseDiscCoeffToGlobal({12.5, -1, 100}), ZDL_OK);
  EXPECT_EQ(ztest::SavedText(hub), "[General]\r\nBaseDiscCoeff=12.5,,100\r\n\r\n");
  ASSERT_EQ(editor.GetBaseDiscCoeffFromGlobal(&coeffs), ZDL_OK);
  EXPECT_EQ(coeffs.coeff1, 12.5);
  EXPECT_EQ(coeffs.coeff2, -1.0);
  EXPECT_EQ(coeffs.coeff3, 100.0);
  ASSERT_EQ(editor.SetBaseDiscCoeffToGlobal({-1, -1, -1}), ZDL_OK);
  EXPECT_EQ(ztest::SavedText(hub), "");
}

TEST(GlobalParameterEditorTest, ATypedParameterKeepsItsValidatorAndIsNotWrittenAtItsDefault) {
  TStorageHub hub("[General]\nUseDiscountsType=1\nRstrDerivatives=0\n", 2);
  TGlobalParameterEditor editor(hub);
  EXPECT_EQ(editor.SetUseDiscountsTypeToGlobal(-1), ZDL_BAD_ARGUMENT);
  int value = -1;
  ASSERT_EQ(editor.GetUseDiscountsTypeFromGlobal(&value), ZDL_OK);
  EXPECT_EQ(value, 1);
  ASSERT_EQ(editor.SetRestrictDerivativesToGlobal(1), ZDL_OK);  // the default
  ASSERT_EQ(editor.SetUseCorrelationBetweenSecuritiesToGlobal(0), ZDL_OK);
  EXPECT_EQ(ztest::SavedText(hub), "[General]\r\nUseCorrelation=0\r\nUseDiscountsType=1\r\n\r\n");
}

TEST(GlobalParameterEditorTest, TheSubClientDelimiterIsReadAsATextOfOneCharacter) {
  TStorageHub with("[General]\nAddSubClientDelimiter=/\n", 2);
  char* text = nullptr;
  ASSERT_EQ(TGlobalParameterEditor(with).GetAdditionalSubClientDelimiterFromGlobal(&text), ZDL_OK);
  ASSERT_NE(text, nullptr);
  EXPECT_STREQ(text, "/");
  void* block = text;
  EXPECT_EQ(with.GetMemory().FreeMemory(&block), 0);

  TStorageHub without("", 2);
  ASSERT_EQ(TGlobalParameterEditor(without).GetAdditionalSubClientDelimiterFromGlobal(&text), ZDL_OK);
  EXPECT_STREQ(text, "");
  block = text;
  EXPECT_EQ(without.GetMemory().FreeMemory(&block), 0);
  EXPECT_EQ(TGlobalParameterEditor(without).GetAdditionalSubClientDelimiterFromGlobal(nullptr), ZDL_BAD_ARGUMENT);
}

TEST(GlobalParameterEditorTest, TheCommissionScaleIsSwitchedOnOnlyOverAScaleWithRows) {
  TStorageHub noGeneral("[CommissionScale]\n1000=0.5\n", 2);
  EXPECT_EQ(TGlobalParameterEditor(noGeneral).SetUseCommissionScaleToGlobal(1), ZDL_NOT_FOUND);

  TStorageHub empty("[General]\nCALCVARMARGIN=1\n", 2);
  TGlobalParameterEditor emptyEditor(empty);
  EXPECT_EQ(emptyEditor.SetUseCommissionScaleToGlobal(1), ZDL_SCALE_HAS_NO_ROWS);
  EXPECT_EQ(emptyEditor.SetUseCommissionScaleToGlobal(0), ZDL_OK);

  TStorageHub scaled("[General]\nUseCommissionScale=1\n[CommissionScale]\n1000=0.5\n", 2);
  TGlobalParameterEditor editor(scaled);
  bool value = false;
  ASSERT_EQ(editor.GetUseCommissionScaleFromGlobal(&value), ZDL_OK);
  EXPECT_TRUE(value);
  ASSERT_EQ(editor.SetUseCommissionScaleToGlobal(0), ZDL_OK);
  ASSERT_EQ(editor.GetUseCommissionScaleFromGlobal(&value), ZDL_OK);
  EXPECT_FALSE(value);
  EXPECT_EQ(ztest::SavedText(scaled).find("UseCommissionScale"), std::string::npos);
  ASSERT_EQ(editor.SetUseCommissionScaleToGlobal(1), ZDL_OK);
  EXPECT_NE(ztest::SavedText(scaled).find("UseCommissionScale=1\r\n"), std::string::npos);
}

TEST(GlobalParameterEditorTest, ManagerCanClosePosLivesInTheProhibitedOrders) {
  TStorageHub hub("[ProhibitOrders]\nClients=C1\n", 2);
  TGlobalParameterEditor editor(hub);
  bool value = true;
  ASSERT_EQ(editor.GetManagerCanClosePosFromGlobal(&value), ZDL_OK);
  EXPECT_FALSE(value);
  ASSERT_EQ(editor.SetManagerCanClosePosToGlobal(1), ZDL_OK);
  EXPECT_EQ(ztest::SavedText(hub), "[ProhibitOrders]\r\nClients=C1\r\nManagerCanClosePos=1\r\n\r\n");
  TStorageHub none("", 2);
  ASSERT_EQ(TGlobalParameterEditor(none).SetManagerCanClosePosToGlobal(1), ZDL_OK);
  EXPECT_EQ(ztest::SavedText(none), "[ProhibitOrders]\r\nManagerCanClosePos=1\r\n\r\n");
}

TEST(GlobalParameterEditorTest, ExtendedSubClientIsWrittenFromTheHub) {
  TStorageHub hub("[General]\nExtendedSubClient=1\n", 2);
  TGlobalParameterEditor editor(hub);
  ASSERT_EQ(editor.SetExtendedSubClientToGlobal(0), ZDL_OK);
  EXPECT_FALSE(hub.GetExtendedSubClient());
  EXPECT_EQ(ztest::SavedText(hub), "");
}

TEST(GlobalParameterEditorTest, TheGroupsOfNumbersAreRemovedWholeOnce) {
  TStorageHub hub("[General]\nBaseDiscCoeff=20,30\nVolatilityChangeScenarios=1,2\nCALCVARMARGIN=1\n", 2);
  TGlobalParameterEditor editor(hub);
  ASSERT_EQ(editor.RemoveBaseDiscCoeffFromGlobal(), ZDL_OK);
  EXPECT_EQ(editor.RemoveBaseDiscCoeffFromGlobal(), ZDL_NOT_FOUND);
  ASSERT_EQ(editor.RemoveVolatilityChangeScenariosFromGlobal(), ZDL_OK);
  EXPECT_EQ(editor.RemoveVolatilityChangeScenariosFromGlobal(), ZDL_NOT_FOUND);
  ZDL_BaseDiscCoeff coeffs{};
  ASSERT_EQ(editor.GetBaseDiscCoeffFromGlobal(&coeffs), ZDL_OK);
  EXPECT_EQ(coeffs.coeff1, -1.0);
  EXPECT_EQ(ztest::SavedText(hub), "[General]\r\nCALCVARMARGIN=1\r\n\r\n");
  TStorageHub none("", 2);
  EXPECT_EQ(TGlobalParameterEditor(none).RemoveVolatilityChangeScenariosFromGlobal(), ZDL_NOT_FOUND);
}

}  // namespace
