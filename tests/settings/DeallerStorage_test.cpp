// The typed store: typed values, the sets of instruments, the margin
// templates and the resolution of a client and a leverage.
#include <gtest/gtest.h>

#include "settings/DeallerStorage.h"

namespace {

using DLTypes::Storage;

TEST(DeallerStorageTest, GeneralValuesAndTheirDefaults) {
  const Storage s = Storage::FromText(
      "[General]\nBaseCurrency=USD\nCreditLag=3\nClassesWithVarMarginCalc=SPBFUT,SPBOPT\n"
      "MDPlusMinMarginCalcRate=0.25\nVolatilityChangeScenarios= 10 , 20\nFuturesDiscountFromCollateralAmount=1\n");
  const DLTypes::General& g = s.GetGeneralSection();
  EXPECT_EQ(g.mainCurrency, "USD");
  EXPECT_EQ(g.creditLag, 3);
  EXPECT_EQ(g.GetBoardsWithVMCalc().ToString(), "SPBFUT,SPBOPT");
  EXPECT_DOUBLE_EQ(g.GetMDPlusMinMarginCalcRate(), 0.25);
  EXPECT_DOUBLE_EQ(g.volatilityUp, 10.0);
  EXPECT_DOUBLE_EQ(g.volatilityDown, 20.0);
  EXPECT_TRUE(g.GetFlag(DLTypes::stfFuturesDiscountFromCollateralAmount));
  const Storage empty = Storage::FromText("");
  EXPECT_EQ(empty.GetGeneralSection().mainCurrency, "SUR");
  EXPECT_DOUBLE_EQ(empty.GetGeneralSection().GetMDPlusMinMarginCalcRate(), 0.5);
  EXPECT_EQ(empty.GetGeneralSection().marginType.Get(), 1u);
}

TEST(DeallerStorageTest, ASetWhoseBaseIndicatorHas14CharactersIsSkippedAndTheRestLoads) {
  const Storage s = Storage::FromText(
      "[SetOfInstruments_LONG]\nBaseIndicator=ABCDEFGHIJKLMN\n"
      "[SetOfInstruments_OK]\nBaseIndicator=RTSI\nNettingType=2\nR=Instrument<SBER>,RelativeRiskRate<0.4>,"
      "DependencyTrend<-1>\n"
      "[clT_Margin_Template]\nClients=C1\n");
  EXPECT_EQ(s.GetSetOfInstruments().size(), 1u);
  const DLTypes::SetOfInstruments* set = s.GetSetOfInstruments("RTSI");
  ASSERT_NE(set, nullptr);
  EXPECT_EQ(set->GetNettingType(), 2u);
  EXPECT_EQ(set->GetAllInstruments(), std::vector<std::string>{"SBER"});
  const auto& row = set->GetAllDependedInstruments().Rows().begin()->second;
  EXPECT_DOUBLE_EQ(row.GetValue().Get(), 0.4);
  EXPECT_EQ(row.GetThird(), DLTypes::ttbbInverse);
  EXPECT_NE(s.GetMarginTemplateByName("T"), nullptr);
}

TEST(DeallerStorageTest, ThresMarginCoeffOf100IsTakenAnd100Point01Refused) {
  const Storage s = Storage::FromText(
      "[SetOfInstruments_A]\nThresMarginCoeff=100\n[SetOfInstruments_B]\nThresMarginCoeff=100.01\n"
      "[SetOfInstruments_C]\nThresMarginCoeff=\n");
  EXPECT_DOUBLE_EQ(s.GetSetOfInstruments("A")->GetThresMarginCoeff(), 100.0);
  EXPECT_DOUBLE_EQ(s.GetSetOfInstruments("B")->GetThresMarginCoeff(), -1.0);
  EXPECT_DOUBLE_EQ(s.GetSetOfInstruments("C")->GetThresMarginCoeff(), -1.0);
}

const char* const kSets =
    "[General]\nUseSetsForNonTemplateClients=0\n"
    "[SetOfInstruments_G1]\nNettingType=1\n[SetOfInstruments_G2]\nNettingType=1\n"
    "[clT_Margin_Template]\nClients=C1,C2\nUseGlobalSets=1\nFuturesDiscountFromCollateralAmount=1\n"
    "[clT_SetOfInstruments_G1_Template]\nNettingType=2\n"
    "[clL_Margin_Template]\nIncludeClientsWithLeverage=3\n"
    "[clL_SetOfInstruments_OWN_Template]\nNettingType=0\n";

TEST(DeallerStorageTest, WithoutATemplateAndWithoutTheFlagTheSetsAreEmpty) {
  const Storage s = Storage::FromText(kSets);
  EXPECT_TRUE(s.GetEffectiveSetOfInstruments("C9", -1.0).empty());
  const Storage on = Storage::FromText(std::string(kSets) + "[General]\n");  // a repeated General is ignored
  EXPECT_TRUE(on.GetEffectiveSetOfInstruments("C9", -1.0).empty());
  const Storage flag = Storage::FromText("[General]\nUseSetsForNonTemplateClients=1\n[SetOfInstruments_G1]\n"
                                         "NettingType=1\n");
  EXPECT_EQ(flag.GetEffectiveSetOfInstruments("C9", -1.0).size(), 1u);
}

TEST(DeallerStorageTest, ATemplatesOwnSetTakesThePlaceOfTheGlobalOneOfItsName) {
  const Storage s = Storage::FromText(kSets);
  const DLTypes::TSetsByName sets = s.GetEffectiveSetOfInstruments("C1", -1.0);
  ASSERT_EQ(sets.size(), 2u);
  EXPECT_EQ(sets.at("G1").GetNettingType(), 2u);
  EXPECT_EQ(sets.at("G2").GetNettingType(), 1u);
  const DLTypes::TSetsByName lev = s.GetEffectiveSetOfInstruments("C9", 3.0);  // no UseGlobalSets
  ASSERT_EQ(lev.size(), 1u);
  EXPECT_EQ(lev.count("OWN"), 1u);
}

TEST(DeallerStorageTest, ALeverageOfMinus1Point0005CountsAsTheDefaultAndTheClientDecides) {
  const Storage s = Storage::FromText(kSets);
  ASSERT_NE(s.GetMarginTemplate("C1", -1.0005), nullptr);
  EXPECT_EQ(s.GetMarginTemplate("C1", -1.0005)->name, "T");
  EXPECT_EQ(s.GetMarginTemplate("C1", 3.0)->name, "L");  // the leverage comes first
  EXPECT_EQ(s.GetMarginTemplate("C9", 3.001)->name, "L");  // one leverage in hundredths
  EXPECT_EQ(s.GetMarginTemplate("C9", -1.0), nullptr);
}

TEST(DeallerStorageTest, ALeverageAbove999999999IsTheDefaultForTheLookup) {
  const Storage s = Storage::FromText("[clBIG_Margin_Template]\nIncludeClientsWithLeverage=999999999\n"
                                      "[clT_Margin_Template]\nClients=C1\n");
  EXPECT_EQ(s.GetMarginTemplate("C9", 999999999.0)->name, "BIG");
  EXPECT_EQ(s.GetMarginTemplate("C9", 1000000000.5), nullptr);
  EXPECT_EQ(s.GetMarginTemplate("C1", 1000000000.5)->name, "T");
}

TEST(DeallerStorageTest, ATemplateRemovedLeavesItsClientsWithNone) {
  Storage s = Storage::FromText(kSets);
  ASSERT_TRUE(s.RemoveMarginTemplate("T"));
  EXPECT_EQ(s.ByClient().size(), 2u);  // the claims stay
  EXPECT_EQ(s.GetMarginTemplate("C1", -1.0), nullptr);
}

TEST(DeallerStorageTest, TheFuturesDiscountFallsBackToGeneralAndATemplateWithoutItIsFalse) {
  const Storage s = Storage::FromText(std::string("[General]\nFuturesDiscountFromCollateralAmount=1\n") + kSets);
  EXPECT_TRUE(s.GetEffectiveFuturesDiscountFromCollateralAmount("C1", -1.0));   // the template's flag
  EXPECT_FALSE(s.GetEffectiveFuturesDiscountFromCollateralAmount("C9", 3.0));   // template L: absent
  EXPECT_TRUE(s.GetEffectiveFuturesDiscountFromCollateralAmount("C9", -1.0));   // no template: General
}

TEST(DeallerStorageTest, TheFirstClaimOnAClientStands) {
  const Storage s = Storage::FromText("[clA_Margin_Template]\nClients=C1\n[clB_Margin_Template]\nClients=C1,C2\n");
  EXPECT_EQ(s.GetMarginTemplate("C1", -1.0)->name, "A");
  EXPECT_EQ(s.GetMarginTemplate("C2", -1.0)->name, "B");
}

TEST(DeallerStorageTest, AClientCodeLongerThan13CharactersIsTheDefaultClient) {
  const Storage s = Storage::FromText("[clA_Margin_Template]\nClients=ABCDEFGHIJKLM\n");
  EXPECT_NE(s.GetMarginTemplate("ABCDEFGHIJKLM", -1.0), nullptr);
  EXPECT_EQ(s.GetMarginTemplate("ABCDEFGHIJKLMN", -1.0), nullptr);
}

}  // namespace
