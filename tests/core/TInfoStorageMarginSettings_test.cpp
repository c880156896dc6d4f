// The margin method's view of a loaded firm.
#include <gtest/gtest.h>

#include "core/TInfoStorage.h"
#include "core/TInfoStorageMarginSettings.h"
#include "margin/TPortfolio.h"

namespace {

using DL::TInfoStorage;
using DL::TInfoStorageMarginSettings;

TEST(InfoStorageMarginSettingsTest, AFirmThatSaysNothingGivesTheDefaults) {
  TInfoStorage storage("", 2, true);
  TInfoStorageMarginSettings s(storage);
  EXPECT_EQ(s.MainCurrency(), "SUR");
  EXPECT_DOUBLE_EQ(s.MDPlusMinMarginCalcRate("C1", -1, 0), 0.5);
  EXPECT_EQ(s.MDPlusDefaultNettingType("C1", -1, 0), 0);
  EXPECT_FALSE(s.IsUseMarginalSignsFromDiscSettings());
  EXPECT_FALSE(s.IsUseOwnAssetDiscInSets());
  EXPECT_FALSE(s.IsEnableDiscountPerevorot());
  EXPECT_TRUE(s.IsMDPlusCurrRiskNetting());
  EXPECT_FALSE(s.IsMDPlusDiffCurrAssetsInSets("C1", -1));
  EXPECT_FALSE(s.FuturesDiscountFromCollateralAmount("C1", -1));
  EXPECT_EQ(s.MainMultiCurrForCurr("USD"), "USD");
}

TEST(InfoStorageMarginSettingsTest, TheClientsMarginSectionOutranksTheGeneralRate) {
  TInfoStorage storage(
      "[General]\nMDPlusMinMarginCalcRate=0.75\nMDPlusDefaultNettingType=2\n"
      "[clC1_Margin]\nMDPlusMinMarginCalcRate=0.8\n",
      2, true);
  TInfoStorageMarginSettings s(storage);
  EXPECT_DOUBLE_EQ(s.MDPlusMinMarginCalcRate("C1", -1, 0), 0.8);
  EXPECT_DOUBLE_EQ(s.MDPlusMinMarginCalcRate("C2", -1, 0), 0.75);
  EXPECT_EQ(s.MDPlusDefaultNettingType("C2", -1, 0), 2);
}

TEST(InfoStorageMarginSettingsTest, FirmSwitchesOfTheMethodAreRead) {
  TInfoStorage storage(
      "[General]\nUseMarginalSignsFromDiscSettings=1\nUSEOWNASSETDISCINSETS=1\nENABLEDISCOUNTPEREVOROT=1\n"
      "MDPlusCurrRiskNetting=0\nFuturesDiscountFromCollateralAmount=1\nMDPlusDiffCurrAssetsInSets=1\n",
      2, true);
  TInfoStorageMarginSettings s(storage);
  EXPECT_TRUE(s.IsUseMarginalSignsFromDiscSettings());
  EXPECT_TRUE(s.IsUseOwnAssetDiscInSets());
  EXPECT_TRUE(s.IsEnableDiscountPerevorot());
  EXPECT_FALSE(s.IsMDPlusCurrRiskNetting());
  EXPECT_TRUE(s.FuturesDiscountFromCollateralAmount("C1", -1));
  EXPECT_TRUE(s.IsMDPlusDiffCurrAssetsInSets("C1", -1));
}

TEST(InfoStorageMarginSettingsTest, ACurrencyOfAMultiCurrencyGroupTakesItsMainCode) {
  TInfoStorage on("[General]\nSupportMultiCurrency=1\n[AddMultiCurrency]\nSUR=RUB,CNR\n", 2, true);
  TInfoStorageMarginSettings s(on);
  EXPECT_EQ(s.MainMultiCurrForCurr("CNR"), "SUR");
  EXPECT_EQ(s.MainMultiCurrForCurr("SUR"), "SUR");
  EXPECT_EQ(s.MainMultiCurrForCurr("USD"), "USD");
  TInfoStorage off("[AddMultiCurrency]\nSUR=RUB,CNR\n", 2, true);
  EXPECT_EQ(TInfoStorageMarginSettings(off).MainMultiCurrForCurr("CNR"), "CNR");
}

TEST(InfoStorageMarginSettingsTest, RestrictedProportionInCollateralIsMembershipOfAnyList) {
  TInfoStorage storage("[RestrictSecuritiesPropotionInCollateral]\nL1=SBER,GAZP\n", 2, true);
  TInfoStorageMarginSettings s(storage);
  EXPECT_TRUE(s.IsRestrictSecuritiesPropotionInCollateral("GAZP"));
  EXPECT_FALSE(s.IsRestrictSecuritiesPropotionInCollateral("LKOH"));
}

TEST(InfoStorageMarginSettingsTest, APortfolioOnAFirmReadsTheClientsRate) {
  TInfoStorage storage("[clC1_Margin]\nMDPlusMinMarginCalcRate=0.8\n", 2, true);
  TInfoStorageMarginSettings s(storage);
  DL::MDPLUS::TPortfolio p(s, "C1", -1, "", 0, false);
  EXPECT_DOUBLE_EQ(p.MinMarginRate, 0.8);
  EXPECT_EQ(p.BaseCurrCode, "SUR");
}

}  // namespace
