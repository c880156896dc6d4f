// Bond placement: tiers by the value, per-day charges by the term, the
// reduced rate of a placement sale.
#include "commission/TVolumeScaledBondsTariff.h"

#include <gtest/gtest.h>

#include "commission/TariffExpect.h"

namespace {

using DL::TExchCommRate;
using DL::TVolumeScaledBondsTariff;
using ztest::NotSet;

DL::TExchCommValue Calc(const TVolumeScaledBondsTariff& t, double value, unsigned bondDays) {
  return t.CalcCommValue(value, 0.0, 0, bondDays);
}

TEST(TVolumeScaledBondsTariffTest, AtExactly1e12TheFirstRowHolds) {
  const TVolumeScaledBondsTariff t(NotSet(), false);
  const TVolumeScaledBondsTariff::TTier tier = t.GetTier(1e12);
  EXPECT_DOUBLE_EQ(tier.orgRate, 0.008625);
  EXPECT_DOUBLE_EQ(tier.above, 0.0);
  // Within 0.1 above the bound still the first row.
  EXPECT_DOUBLE_EQ(t.GetTier(1e12 + 0.05).orgRate, 0.008625);
  EXPECT_DOUBLE_EQ(t.GetTier(1e12 + 1.0).orgRate, 0.0071875);
  // 1e12 * 0.008625 / 100 = 86250000; 1e12 * 0.006375 / 100 = 63750000.
  EXPECT_COMM(Calc(t, 1e12, 0), 0.0, 86250000.0, 63750000.0);
}

TEST(TVolumeScaledBondsTariffTest, EachTierChargesAboveItsBoundPlusItsBase) {
  const TVolumeScaledBondsTariff t(NotSet(), false);
  // 2e12: 0.0071875 * 1e12 / 100 + 86250000 = 71875000 + 86250000 = 158125000;
  //       0.0053125 * 1e12 / 100 + 63750000 = 53125000 + 63750000 = 116875000.
  EXPECT_COMM(Calc(t, 2e12, 0), 0.0, 158125000.0, 116875000.0);
  // 1e13: 0.00575 * 2.5e12 / 100 + 539062500 = 143750000 + 539062500 = 682812500;
  //       0.00425 * 2.5e12 / 100 + 398437500 = 106250000 + 398437500 = 504687500.
  EXPECT_COMM(Calc(t, 1e13, 0), 0.0, 682812500.0, 504687500.0);
  // 2e13: 0.0043125 * 5e12 / 100 + 970312500 = 215625000 + 970312500 = 1185937500;
  //       0.0031875 * 5e12 / 100 + 717187500 = 159375000 + 717187500 = 876562500.
  EXPECT_COMM(Calc(t, 2e13, 0), 0.0, 1185937500.0, 876562500.0);
  // 4e13: 0.002875 * 1e13 / 100 + 1617187500 = 287500000 + 1617187500 = 1904687500;
  //       0.002125 * 1e13 / 100 + 1195312500 = 212500000 + 1195312500 = 1407812500.
  EXPECT_COMM(Calc(t, 4e13, 0), 0.0, 1904687500.0, 1407812500.0);
}

TEST(TVolumeScaledBondsTariffTest, OneToSixDaysTakeThePerDayChargeWhateverTheFirmRates) {
  const TVolumeScaledBondsTariff t(TExchCommRate(0.5, 0.5, -1.0), false);
  // 3 * 2.3e-05 * 1e6 / 100 = 0.69; 3 * 1.7e-05 * 1e6 / 100 = 0.51; TS 0.
  EXPECT_COMM(Calc(t, 1e6, 3), 0.0, 0.69, 0.51);
  // 6 days: 1.38 and 1.02.
  EXPECT_COMM(Calc(t, 1e6, 6), 0.0, 1.38, 1.02);
}

TEST(TVolumeScaledBondsTariffTest, FromSevenDaysTheSmallerOfTierAndTermCharge) {
  const TVolumeScaledBondsTariff t(NotSet(), false);
  // 10 days, 1e6 (first row, d = 1e6, e = 3): organiser
  // min(0.008625 * 1e6 / 100 = 86.25, (7 * 2.3e-05 + 3 * 5.75e-05) * 1e6 / 100 = 3.335);
  // clearing min(63.75, (7 * 1.7e-05 + 3 * 4.25e-05) * 1e6 / 100 = 2.465).
  EXPECT_COMM(Calc(t, 1e6, 10), 0.0, 3.335, 2.465);
  // 7 days, 2e12 (second row, d = 1e12, e = 0): organiser
  // min(71875000, 7 * 2.3e-05 * 1e12 / 100 = 1610000) + 86250000 = 87860000;
  // clearing min(53125000, 7 * 1.7e-05 * 1e12 / 100 = 1190000) + 63750000 = 64940000.
  EXPECT_COMM(Calc(t, 2e12, 7), 0.0, 87860000.0, 64940000.0);
  // 400 days, 1e6: the term charge (7 * 2.3e-05 + 393 * 5.75e-05) * 1e4 = 227.585
  // is above the tier's 86.25.
  EXPECT_COMM(Calc(t, 1e6, 400), 0.0, 86.25, 63.75);
}

TEST(TVolumeScaledBondsTariffTest, ReducedRateOfAPlacementSaleJoinsTheFirstTwoRows) {
  TVolumeScaledBondsTariff t(NotSet(), false, true);
  EXPECT_TRUE(t.IsUseBondPlacementReducedMOEXRateUsed);
  t.SetSide('S');
  // 2e12 * 0.0071875 / 100 = 143750000; 2e12 * 0.0053125 / 100 = 106250000.
  EXPECT_COMM(Calc(t, 2e12, 0), 0.0, 143750000.0, 106250000.0);
  // 1e12: 71875000 and 53125000, below the first row's charge.
  EXPECT_COMM(Calc(t, 1e12, 0), 0.0, 71875000.0, 53125000.0);
  // From the third row on the table is as it stands.
  EXPECT_COMM(Calc(t, 1e13, 0), 0.0, 682812500.0, 504687500.0);
}

TEST(TVolumeScaledBondsTariffTest, ReducedRateNeedsBothTheFlagAndASale) {
  TVolumeScaledBondsTariff buy(NotSet(), false, true);
  EXPECT_COMM(Calc(buy, 2e12, 0), 0.0, 158125000.0, 116875000.0);
  TVolumeScaledBondsTariff sale(NotSet(), false);
  sale.SetSide('S');
  EXPECT_COMM(Calc(sale, 2e12, 0), 0.0, 158125000.0, 116875000.0);
  sale.SetUseBondPlacementReducedMOEXRate(true);
  EXPECT_COMM(Calc(sale, 2e12, 0), 0.0, 143750000.0, 106250000.0);
}

TEST(TVolumeScaledBondsTariffTest, FirmRatesReplaceTheirParts) {
  const TVolumeScaledBondsTariff org(TExchCommRate(-1.0, 0.001, -1.0), false);
  // organiser 2e12 * 0.001 / 100 = 2e7; clearing by the second row 116875000.
  EXPECT_COMM(Calc(org, 2e12, 0), 0.0, 2e7, 116875000.0);
  const TVolumeScaledBondsTariff both(TExchCommRate(0.002, 0.001, 0.001), false);
  // 1e6 * 0.002 / 100 = 20; 1e6 * 0.001 / 100 = 10 each.
  EXPECT_COMM(Calc(both, 1e6, 0), 20.0, 10.0, 10.0);
  EXPECT_COMM(Calc(both, 1e6, 30), 20.0, 10.0, 10.0);
}

TEST(TVolumeScaledBondsTariffTest, UseMinRaisesSmallCharges) {
  const TVolumeScaledBondsTariff t(NotSet(), true);
  // 3 * 2.3e-05 * 1000 / 100 = 0.00069 -> 1.0; 0.00051 -> 1.0.
  EXPECT_COMM(Calc(t, 1000.0, 3), 0.0, 1.0, 1.0);
}

TEST(TVolumeScaledBondsTariffTest, CloneKeepsRatesAndFlags) {
  TVolumeScaledBondsTariff t(TExchCommRate(-1.0, 0.001, -1.0), true, true);
  t.SetSide('S');
  auto c = t.Clone();
  const auto* copy = dynamic_cast<const TVolumeScaledBondsTariff*>(c.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_TRUE(copy->IsUseBondPlacementReducedMOEXRateUsed);
  EXPECT_TRUE(copy->UseMin);
  EXPECT_EQ(copy->Side, 'S');
  EXPECT_DOUBLE_EQ(copy->INIRates.Org, 0.001);
  // clearing 2e12 * 0.0053125 / 100 = 106250000 (reduced sale).
  EXPECT_COMM(Calc(*copy, 2e12, 0), 0.0, 2e7, 106250000.0);
}

}  // namespace
