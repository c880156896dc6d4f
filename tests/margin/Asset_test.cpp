// Assets, groups and risk records of the margin method: the valuation of one
// position of every kind.
#include <gtest/gtest.h>

#include "margin/TAssetGroup.h"
#include "margin/TRisk.h"

namespace {

using namespace DL::MDPLUS;
using DL::TDiscountsEx;

TDiscountsEx Disc(double dLong, double dShort) { return TDiscountsEx{dLong, dShort, 0, 0, {}, false, false}; }

TAsset Depo(double pos, double price, double dLong = 0.2, double dShort = 0.3) {
  TAsset a;
  a.AssetType = atDepo;
  a.Pos = pos;
  a.Price = price;
  a.Discounts = Disc(dLong, dShort);
  return a;
}

TAsset Money(double pos, double dLong = 0.5, double dShort = 0.5) {
  TAsset a = Depo(pos, 1.0, dLong, dShort);
  a.AssetType = atMoney;
  return a;
}

TEST(AssetTest, ANewAssetIsUndefinedWithLotOneTrendOneAndNonMarginalDiscounts) {
  TAsset a;
  EXPECT_EQ(a.AssetType, atUndef);
  EXPECT_EQ(a.LotSize, 1);
  EXPECT_EQ(a.Trend, trWith);
  EXPECT_DOUBLE_EQ(a.Discounts.DLong, 1.0);
  EXPECT_DOUBLE_EQ(a.Discounts.DShort, 1e50);
  EXPECT_EQ(a.OptParams, nullptr);
}

TEST(AssetTest, AssetTypeWords) {
  EXPECT_STREQ(EAssetTypeToStr(atMoney), "money");
  EXPECT_STREQ(EAssetTypeToStr(atDepo), "depo");
  EXPECT_STREQ(EAssetTypeToStr(atFut), "fut");
  EXPECT_STREQ(EAssetTypeToStr(atOpt), "opt");
  EXPECT_STREQ(EAssetTypeToStr(atOptShr), "opt_shr");
  EXPECT_STREQ(EAssetTypeToStr(atUndef), "undef");
  EXPECT_STREQ(EAssetTypeToStr(static_cast<EAssetType>(5)), "");
}

TEST(AssetTest, TrendConversionReportsAValueOutsideTheTwo) {
  int sign = 0;
  EXPECT_EQ(ConvertPrimitiveToInt(trAgainst, sign), 0);
  EXPECT_EQ(sign, -1);
  EXPECT_EQ(ConvertPrimitiveToInt(static_cast<Enum_TrendToBaseBoard>(7), sign), 1);
  EXPECT_EQ(sign, 1);
}

TEST(AssetTest, APositionWorthFiveHundredthsCountsAsZero) {
  const TAsset small = Money(0.05);
  EXPECT_EQ(small.GetDiscInitialPosValuation(Disc(0.5, 0.5), false, 0, 0), 0.0);
  // The quantity tolerance is far tighter: 0.2 is a value.
  const TAsset larger = Money(0.2);
  EXPECT_DOUBLE_EQ(larger.GetDiscInitialPosValuation(Disc(0.5, 0.5), false, 0, 0), 0.1);
}

TEST(AssetTest, ATrendOfMinusOneFlipsTheSignAndTheDiscountFollowsTheUnsignedValue) {
  TAsset a = Depo(10, 10);
  EXPECT_DOUBLE_EQ(a.GetDiscInitialPosValuation(Disc(0, 0), false, 0, 0), 20.0);  // own discounts, long
  a.Trend = trAgainst;
  EXPECT_DOUBLE_EQ(a.GetDiscInitialPosValuation(Disc(0, 0), false, 0, 0), -30.0);  // short discount, negated
  a.Pos = -10;
  EXPECT_DOUBLE_EQ(a.GetDiscInitialPosValuation(Disc(0, 0), false, 0, 0), 20.0);
}

TEST(AssetTest, FullNettingValuationTakesTheDiscountOfTheSideAsked) {
  const TAsset a = Depo(-10, 10);
  EXPECT_DOUBLE_EQ(a.GetDiscInitialPosValuationFullNetting(Disc(0, 0), false, true, 0, 0), -20.0);
  EXPECT_DOUBLE_EQ(a.GetDiscInitialPosValuationFullNetting(Disc(0, 0), false, false, 0, 0), -30.0);
}

TEST(AssetTest, ASetMemberUsesTheGroupDiscountsUnlessTheFirmAsksForItsOwn) {
  TAsset a = Depo(10, 10);
  a.InSet = true;
  EXPECT_DOUBLE_EQ(a.GetDiscInitialPosValuation(Disc(0.5, 0.5), false, 0, 0), 50.0);
  EXPECT_DOUBLE_EQ(a.GetDiscInitialPosValuation(Disc(0.5, 0.5), true, 0, 0), 20.0);
}

TEST(AssetTest, OptionsHaveNoPositionValuation) {
  TAsset a = Depo(10, 10);
  a.AssetType = atOpt;
  EXPECT_EQ(a.GetDiscInitialPosValuation(Disc(0, 0), false, 0, 0), 0.0);
  a.AssetType = atOptShr;
  bool critical = false;
  EXPECT_EQ(a.GetDiscCorrPosValuation(Disc(0, 0), false, false, DL::sdBuy, true, 0, critical, 0, ZERO_CUR), 0.0);
}

TEST(AssetTest, ADepoShortOfItsSellOrdersWithoutMarginalSignsIsForbidden) {
  TAsset a = Depo(10, 10);
  a.LockedSellQty = 15;
  bool critical = false;
  EXPECT_EQ(a.GetDiscNMPosValuation(true, false, DL::sdSell, 0, critical, 0, ZERO_CUR), -1e50);
  a.LockedSellQty = 10;
  EXPECT_EQ(a.GetDiscNMPosValuation(true, false, DL::sdSell, 0, critical, 0, ZERO_CUR), 0.0);
}

TEST(AssetTest, NonMarginalValuationWithSignsMarksAShortThatMayNotBeShorted) {
  TAsset a = Depo(-10, 10, 0.5, 0.5);
  bool critical = false;
  EXPECT_DOUBLE_EQ(a.GetDiscNMPosValuation(false, true, DL::sdSell, 0, critical, 0, ZERO_CUR), -50.0);
  EXPECT_TRUE(critical);
  EXPECT_TRUE(a.IsCritical);
}

TEST(AssetTest, WithFlipsSellTheBuySideOfMoneyIsMoneyAddWithoutDiscount) {
  TAsset a = Money(1000);
  a.FlipsSell = true;
  bool critical = false;
  EXPECT_DOUBLE_EQ(a.GetDiscCorrPosValuation(Disc(0, 0), false, false, DL::sdBuy, true, 0, critical, 77, ZERO_CUR),
                   77.0);
  a.FlipsSell = false;
  EXPECT_DOUBLE_EQ(a.GetDiscCorrPosValuation(Disc(0, 0), false, false, DL::sdBuy, true, 0, critical, 77, ZERO_CUR),
                   (1000 + 77) * 0.5);
}

TEST(AssetTest, CorrectedSellSideTakesTheSellOrdersAndTheShortDiscount) {
  TAsset a = Depo(10, 10);
  a.LockedSellVal = 150;
  bool critical = false;
  // (100 - 150) * 0.3
  EXPECT_DOUBLE_EQ(a.GetDiscCorrPosValuation(Disc(0, 0), false, false, DL::sdSell, true, 0, critical, 0, ZERO_CUR),
                   -15.0);
  // With a negative limit the orders take at least -limit: max(150, 200).
  EXPECT_DOUBLE_EQ(
      a.GetDiscCorrPosValuation(Disc(0, 0), false, false, DL::sdSell, true, -200, critical, 0, ZERO_CUR), -30.0);
  EXPECT_FALSE(critical);
  EXPECT_DOUBLE_EQ(a.GetDiscCorrPosValuation(Disc(0, 0), false, true, DL::sdSell, true, 0, critical, 0, ZERO_CUR),
                   -15.0);
  EXPECT_TRUE(critical);  // with signs, the sale leaves a short that bS does not allow
}

TEST(AssetTest, CorrectedFullNettingBuySideTakesTheReductionUpToTheValue) {
  TAsset a = Depo(10, 10);
  a.LockedAnyVal = 300;  // more than the value and the buys together
  bool critical = false;
  // t = 100 > 0 is taken off instead of the reduction: (100 - 100) -> 0.
  EXPECT_EQ(a.GetDiscCorrPosValuationFullNetting(Disc(0, 0), false, false, DL::sdBuy, true, false, 0, critical, 0,
                                                 ZERO_CUR),
            0.0);
  a.LockedAnyVal = 30;
  EXPECT_DOUBLE_EQ(a.GetDiscCorrPosValuationFullNetting(Disc(0, 0), false, false, DL::sdBuy, true, false, 0,
                                                        critical, 0, ZERO_CUR),
                   (100 - 30) * 0.2);
}

TEST(AssetTest, ReductionsOfThePositionValue) {
  TAsset m = Money(1000);
  m.LockedMoneyVal = 1;
  m.LockedForNMVal = 2;
  m.LockedAnyVal = 4;
  m.LockedQty = 30;
  m.LockedOutQty = 10;
  EXPECT_DOUBLE_EQ(m.GetLockedCommVal(), 20.0);
  EXPECT_DOUBLE_EQ(m.GetPosValReduction(), 1 + 2 + 20 + 4 + 10);
  TAsset d = Depo(10, 10);
  d.LockedForNMVal = 2;
  d.LockedMoneyVal = 100;  // money only
  d.LockedOutQty = 1;
  EXPECT_EQ(d.GetLockedCommVal(), 0.0);
  EXPECT_DOUBLE_EQ(d.GetPosValReduction(), 2 + 10);
}

TEST(AssetTest, RelativeRiskOfAnAssetWithBothFlipFlagsPutsItsValueOnBothSides) {
  TAsset a = Depo(10, 10);
  a.InSet = true;
  a.RelRiskRate = 0.1;
  a.LockedSellVal = 30;
  a.LockedBuyVal = 50;
  a.LockedAnyVal = 20;
  // No flags: u = 50 - 20, w = -30, both plus the value 100.
  EXPECT_DOUBLE_EQ(a.GetRelativeRiskValuation(true, DL::sdBoth, false, 0, 0, ZERO_CUR), 13.0);
  a.FlipsSell = true;
  a.FlipsBuy = true;
  // Both: the value goes to both sides, no reduction, no position left.
  EXPECT_DOUBLE_EQ(a.GetRelativeRiskValuation(true, DL::sdBoth, false, 0, 0, ZERO_CUR), 15.0);
  a.FlipsBuy = false;
  // Sell flip only: the buy side keeps no position value.
  EXPECT_DOUBLE_EQ(a.GetRelativeRiskValuation(true, DL::sdBoth, false, 0, 0, ZERO_CUR), 7.0);
}

TEST(AssetTest, RelativeRiskNeedsASetMember) {
  TAsset a = Depo(10, 10);
  a.RelRiskRate = 0.1;
  EXPECT_EQ(a.GetRelativeRiskValuation(false, DL::sdBoth, false, 0, 0, ZERO_CUR), 0.0);
  a.InSet = true;
  EXPECT_DOUBLE_EQ(a.GetRelativeRiskValuation(false, DL::sdBoth, false, 0, 0, ZERO_CUR), 10.0);
}

TEST(AssetTest, AssetCostOfANonMarginalDepoIsZeroLongAndItsValueShort) {
  TPlainMarginSettings s;
  TAsset a = Depo(10, 10, 1.0, 1e50);
  EXPECT_EQ(a.GetAssetCost(s, 0), 0.0);
  a.Pos = -10;
  EXPECT_DOUBLE_EQ(a.GetAssetCost(s, 0), -100.0);
  TAsset m = Depo(10, 10);
  EXPECT_DOUBLE_EQ(m.GetAssetCost(s, 0), 100.0);
  m.AssetType = atFut;
  EXPECT_EQ(m.GetAssetCost(s, 0), 0.0);
  TAsset money = Money(10);
  EXPECT_DOUBLE_EQ(money.GetAssetCost(s, 5), 15.0);
}

TEST(AssetTest, MarginalForTheMethod) {
  TPlainMarginSettings s;
  EXPECT_FALSE(IsSecMarginForMDPlusClient(s, Disc(1.0, 1e26)));
  EXPECT_TRUE(IsSecMarginForMDPlusClient(s, Disc(1.0, 1e25)));
  EXPECT_TRUE(IsSecMarginForMDPlusClient(s, Disc(0.9, 1e50)));
  s.useMarginalSigns = true;
  TDiscountsEx d = Disc(0.1, 0.1);
  EXPECT_FALSE(IsSecMarginForMDPlusClient(s, d));
  d.bC = true;
  EXPECT_TRUE(IsSecMarginForMDPlusClient(s, d));
  d.bC = false;
  d.bS = true;
  EXPECT_TRUE(IsSecMarginForMDPlusClient(s, d));
}

TEST(AssetTest, ASingleOptionRiskIsNeverPositive) {
  TAsset a;
  a.AssetType = atOpt;
  EXPECT_EQ(CalcSingleOptionRisk(&a, true), 0.0);  // no scenarios
  a.ScenRisks = {1.0, 2.0, 3.0};
  a.Pos = 5;
  EXPECT_EQ(CalcSingleOptionRisk(&a, true), 0.0);
  a.ScenRisks = {1.0, -2.0, 3.0};
  EXPECT_DOUBLE_EQ(CalcSingleOptionRisk(&a, true), -10.0);
  a.LockedBuyQty = 2;
  EXPECT_DOUBLE_EQ(CalcSingleOptionRisk(&a, false), -14.0);
  a.Pos = 0;
  a.LockedBuyQty = 0;
  EXPECT_EQ(CalcSingleOptionRisk(&a, false), 0.0);
}

TEST(AssetTest, OptionLotsGoToCallsOrPuts) {
  TAsset a;
  a.AssetType = atOpt;
  a.OptParams = std::make_unique<TOptParams>();
  a.OptParams->Lot = 10;
  a.OptParams->ContractType = ctCall_M;
  a.Pos = 3;
  a.LockedSellQty = 1;
  double calls = 0, puts = 0;
  OptPosSummator(&a, true, &calls, &puts);
  EXPECT_DOUBLE_EQ(calls, 30.0);
  OptPosSummator(&a, false, &calls, &puts);
  EXPECT_DOUBLE_EQ(calls, 50.0);
  a.OptParams->ContractType = ctPut_P;
  OptPosSummator(&a, true, &calls, &puts);
  EXPECT_DOUBLE_EQ(puts, 30.0);
}

TEST(AssetTest, PremiumOrVariationMarginOfAnOption) {
  TAsset a;
  a.AssetType = atOpt;
  a.OptParams = std::make_unique<TOptParams>();
  a.OptParams->ContractType = ctCall_P;
  a.Pos = 3;
  a.Theor = 2;
  a.VarMargin = 7;
  a.LockedBuyQty = 1;
  a.SetCurrCode("USD");
  double sum = 0;
  SumOptPremiumAndVMBase(a, sum);
  EXPECT_DOUBLE_EQ(sum, 6.0);
  TCurrRecords records;
  SumOptPremiumAndVMCorr(a, false, records);
  EXPECT_DOUBLE_EQ(records["USD"].R0, 8.0);
  EXPECT_DOUBLE_EQ(records["USD"].R2, 8.0);
  a.OptParams->ContractType = ctPut_M;
  SumOptPremiumAndVMBase(a, sum);
  SumOptPremiumAndVMCorr(a, false, records);
  EXPECT_DOUBLE_EQ(sum, 13.0);
  EXPECT_DOUBLE_EQ(records["USD"].VM, 7.0);
  a.OptParams->ContractType = ctCall_P;
  a.ExcludedFromCurrRisk = true;
  SumOptPremiumAndVMBase(a, sum);
  EXPECT_DOUBLE_EQ(sum, 13.0);
  EXPECT_TRUE(a.IsPremOption());
}

TEST(AssetTest, ACopyOwnsItsOptionData) {
  TAsset a;
  a.OptParams = std::make_unique<TOptParams>();
  a.OptParams->Strike = 100;
  TAsset b = a;
  b.OptParams->Strike = 200;
  EXPECT_DOUBLE_EQ(a.OptParams->Strike, 100.0);
}

TEST(AssetTest, NullifyAllLockedsClearsTheLockedFieldsOnly) {
  TAsset a = Depo(10, 10);
  a.LockedBuyVal = 1;
  a.LockedSellQty = 2;
  a.LockedQty = 3;
  a.OptPremQty = 4;
  a.LockedNegVal = 5;
  a.LockedAnyVal = 6;
  a.NullifyAllLockeds();
  EXPECT_EQ(a.LockedBuyVal, 0.0);
  EXPECT_TRUE(a.LockedSellQty.isZero());
  EXPECT_TRUE(a.LockedQty.isZero());
  EXPECT_TRUE(a.OptPremQty.isZero());
  EXPECT_EQ(a.LockedNegVal, 0.0);
  EXPECT_DOUBLE_EQ(a.LockedAnyVal, 6.0);
  EXPECT_DOUBLE_EQ(a.Pos.asDouble(), 10.0);
}

TEST(RiskTest, TotalTakesTheWorseDirectionAndTheNettedFigure) {
  TRisk r;
  r.DLongV = 10;
  r.DShortV_inv = 5;
  r.DShortV = 12;
  r.DFullRisk_Short = -7;
  r.RelRisk = 1;
  r.NMRisk = 2;
  r.Reserved8 = 100;
  r.OptRisk = 3;
  EXPECT_DOUBLE_EQ(r.CalcTotalRisk(), 15 + 7 + 1 + 2 + 100 + 3);
  TRiskEx x;
  x.DLongV = 10;
  x.DShortV_inv = 5;
  x.Reserved8 = 100;  // not part of this total
  x.OutVal = 1;
  x.MForNMVal = 2;
  x.NegVal = 4;
  x.OptPrem = 8;
  EXPECT_DOUBLE_EQ(x.CalcTotalRisk(), 15 + 1 + 2 + 4 + 8);
  EXPECT_DOUBLE_EQ(x.CalcPortfolioDecreaseRisk(), 7.0);
  TRiskEx y = x;
  y += x;
  EXPECT_DOUBLE_EQ(y.OptPrem, 16.0);
}

TEST(GroupTest, GroupCostBringsVariationMarginThroughItsOwnMoney) {
  TPlainMarginSettings s;
  TAssetGroup g("G", "SUR");
  TAsset cash = Money(100);
  cash.SetCurrCode("SUR");
  TAsset fut = Depo(1, 50);
  fut.AssetType = atFut;
  fut.VarMargin = 7;
  g.AddAsset("SUR", cash);
  g.AddAsset("F", fut);
  g.AddAsset("D", Depo(2, 10));
  EXPECT_DOUBLE_EQ(g.CalcTotalCost(s), 100 + 7 + 20);
  g.Assets.erase("SUR");
  EXPECT_DOUBLE_EQ(g.CalcTotalCost(s), 7 + 20);
  EXPECT_DOUBLE_EQ(g.CalcTotalTurnover(s), 50 + 20);
}

TEST(GroupTest, EqualityIsNameAndCurrency) {
  TAssetGroup a("G", "SUR"), b("G", "SUR", Disc(0.1, 0.1)), c("G", "USD");
  EXPECT_TRUE(a == b);
  EXPECT_FALSE(a == c);
  EXPECT_DOUBLE_EQ(a.Discounts.DShort, 1e50);
  b.AlwaysLog = true;
  b.AddAsset("X", Depo(1, 1));
  a << b;
  EXPECT_TRUE(a.AlwaysLog);
  EXPECT_NE(a.GetAssetPointer("X"), nullptr);
  EXPECT_EQ(a.GetAssetPointer("Y"), nullptr);
}

TEST(LogTest, DiscountsAreWrittenWithFourDecimals) {
  TDiscountsEx d = Disc(0.25, 0.5);
  d.RCur[0] = 'U';
  d.RCur[1] = 'S';
  d.RCur[2] = 'D';
  d.bC = true;
  EXPECT_EQ(DiscountsToLog(d),
            "; DLong:              0.2500; DShort:              0.5000; RCur:USD; bC:true; bS:false");
}

}  // namespace
