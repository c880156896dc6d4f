// The plain tariff: per cent of the value, the exchange's minimum of 1.0 per
// part under UseMin, the firm's rates without a minimum.
#include "commission/TNormalTariff.h"

#include <gtest/gtest.h>

#include "commission/TariffExpect.h"

namespace {

using DL::TExchCommRate;
using DL::TNormalTariff;
using ztest::NotSet;

DL::TExchCommValue Calc(const TNormalTariff& t, double value) { return t.CalcCommValue(value, 0.0, 0, 0); }

TEST(TNormalTariffTest, ThreeRatesArePerCentOfTheValue) {
  const TNormalTariff t(0.0015, 0.00425, 0.00425, NotSet(), false);
  // 1e6 * 0.0015 / 100 = 15; 1e6 * 0.00425 / 100 = 42.5.
  EXPECT_COMM(Calc(t, 1e6), 15.0, 42.5, 42.5);
  EXPECT_DOUBLE_EQ(t.Percent, 100.0);
}

TEST(TNormalTariffTest, SmallPartsAreRaisedToOneUnderUseMin) {
  const TNormalTariff t(0.0015, 0.00425, 0.00425, NotSet(), true);
  // 1000 * 0.0015 / 100 = 0.015 -> 1.0; 1000 * 0.00425 / 100 = 0.0425 -> 1.0.
  EXPECT_COMM(Calc(t, 1000.0), 1.0, 1.0, 1.0);
}

TEST(TNormalTariffTest, WithoutUseMinSmallPartsStay) {
  const TNormalTariff t(0.0015, 0.00425, 0.00425, NotSet(), false);
  EXPECT_COMM(Calc(t, 1000.0), 0.015, 0.0425, 0.0425);
}

TEST(TNormalTariffTest, PartsAboveTheMinimumAreNotChanged) {
  const TNormalTariff t(0.0015, 0.00425, 0.00425, NotSet(), true);
  EXPECT_COMM(Calc(t, 1e6), 15.0, 42.5, 42.5);
}

TEST(TNormalTariffTest, TwoRatesHaveNoTradingSystemPartAndNoMinimumForIt) {
  const TNormalTariff t(0.01725, 0.01275, NotSet(), true);
  EXPECT_DOUBLE_EQ(t.Rates.TS, 0.0);
  EXPECT_FALSE(t.MinTS);
  EXPECT_TRUE(t.MinOrg);
  EXPECT_TRUE(t.MinClearing);
  // 1000 * 0.01725 / 100 = 0.1725 -> 1.0; 1000 * 0.01275 / 100 = 0.1275 -> 1.0.
  EXPECT_COMM(Calc(t, 1000.0), 0.0, 1.0, 1.0);
  // 1e6: 172.5 and 127.5.
  EXPECT_COMM(Calc(t, 1e6), 0.0, 172.5, 127.5);
}

TEST(TNormalTariffTest, OneRateHasTheMinimumForTheOrganiserOnly) {
  const TNormalTariff t(0.01, NotSet(), true);
  EXPECT_FALSE(t.MinTS);
  EXPECT_FALSE(t.MinClearing);
  EXPECT_TRUE(t.MinOrg);
  // 1000 * 0.01 / 100 = 0.1 -> 1.0; the other parts stay 0.
  EXPECT_COMM(Calc(t, 1000.0), 0.0, 1.0, 0.0);
}

TEST(TNormalTariffTest, AFirmRateReplacesThePartAndAZeroRateMakesItFree) {
  // TS by the firm's 0.02, organiser not set (-1), clearing free (0).
  const TNormalTariff t(0.0015, 0.00425, 0.00425, TExchCommRate(0.02, -1.0, 0.0), true);
  EXPECT_TRUE(t.HasTS);
  EXPECT_FALSE(t.HasOrg);
  EXPECT_TRUE(t.HasClearing);
  // TS 1e6 * 0.02 / 100 = 200; organiser by the exchange 42.5; clearing 0, no floor.
  EXPECT_COMM(Calc(t, 1e6), 200.0, 42.5, 0.0);
  // 1000: TS 1000 * 0.02 / 100 = 0.2, no floor under a firm rate; organiser
  // 0.0425 -> 1.0; clearing 0.
  EXPECT_COMM(Calc(t, 1000.0), 0.2, 1.0, 0.0);
}

TEST(TNormalTariffTest, SetINIRatesRecomputesWhichPartsHaveAFirmRate) {
  TNormalTariff t(0.0015, 0.00425, 0.00425, NotSet(), false);
  EXPECT_FALSE(t.HasTS);
  t.SetINIRates(TExchCommRate(-1.0, 0.001, -1.0));
  EXPECT_FALSE(t.HasTS);
  EXPECT_TRUE(t.HasOrg);
  EXPECT_FALSE(t.HasClearing);
  EXPECT_DOUBLE_EQ(t.INIRates.Org, 0.001);
  // organiser 1e6 * 0.001 / 100 = 10.
  EXPECT_COMM(Calc(t, 1e6), 15.0, 10.0, 42.5);
}

TEST(TNormalTariffTest, ARateJustBelowZeroWithinTheToleranceCountsAsSet) {
  TNormalTariff t(0.0015, 0.00425, 0.00425, TExchCommRate(-5e-8, -1e-6, -1.0), false);
  EXPECT_TRUE(t.HasTS);
  EXPECT_FALSE(t.HasOrg);
}

TEST(TNormalTariffTest, CloneKeepsRatesAndFlags) {
  TNormalTariff t(0.01725, 0.01275, TExchCommRate(0.5, -1.0, 0.0), true);
  t.Percent = 50.0;
  const std::unique_ptr<DL::ABoardTariff> c = t.Clone();
  const auto* copy = dynamic_cast<const TNormalTariff*>(c.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy, &t);
  EXPECT_DOUBLE_EQ(copy->Rates.Org, 0.01725);
  EXPECT_DOUBLE_EQ(copy->Rates.Clearing, 0.01275);
  EXPECT_DOUBLE_EQ(copy->INIRates.TS, 0.5);
  EXPECT_DOUBLE_EQ(copy->INIRates.Org, -1.0);
  EXPECT_DOUBLE_EQ(copy->Percent, 50.0);
  EXPECT_TRUE(copy->UseMin);
  EXPECT_TRUE(copy->HasTS);
  EXPECT_FALSE(copy->HasOrg);
  EXPECT_TRUE(copy->HasClearing);
  EXPECT_FALSE(copy->MinTS);
  // Same answer: TS 1e5 * 0.5 / 50 = 1000; organiser 1e5 * 0.01725 / 50 = 34.5; clearing 0.
  EXPECT_COMM(Calc(*copy, 1e5), 1000.0, 34.5, 0.0);
  EXPECT_COMM(Calc(t, 1e5), 1000.0, 34.5, 0.0);
}

}  // namespace
