// The dark pool tariff: two sets of rates, no trading-system part under
// NoTS, the floor of 1.0 under MinOne.
#include "commission/TDarkPool.h"

#include <gtest/gtest.h>

#include "commission/TariffExpect.h"

namespace {

using DL::TDarkPool;
using DL::TExchCommRate;
using ztest::NotSet;

DL::TExchCommValue Calc(const TDarkPool& t, double value) { return t.CalcCommValue(value, 0.0, 0, 0); }

TEST(TDarkPoolTest, FirstConstructorChargesAllThreeParts) {
  const TDarkPool t(NotSet(), false);
  EXPECT_FALSE(t.NoTS);
  // 1e6 * 0.0025 / 100 = 25; * 0.0035 = 35; * 0.004 = 40.
  EXPECT_COMM(Calc(t, 1e6), 25.0, 35.0, 40.0);
}

TEST(TDarkPoolTest, SecondConstructorUnderNoTSHasNoTradingSystemPart) {
  const TDarkPool t(true, NotSet(), false);
  // 1e6 * 0.002875 / 100 = 28.75; 1e6 * 0.002125 / 100 = 21.25.
  EXPECT_COMM(Calc(t, 1e6), 0.0, 28.75, 21.25);
}

TEST(TDarkPoolTest, NoTSIgnoresTheFirmsTradingSystemRate) {
  const TDarkPool t(true, TExchCommRate(0.01, -1.0, -1.0), false);
  EXPECT_COMM(Calc(t, 1e6), 0.0, 28.75, 21.25);
}

TEST(TDarkPoolTest, FirmRatesReplaceTheParts) {
  const TDarkPool t(TExchCommRate(0.001, 0.002, -1.0), false);
  // 1e6 * 0.001 / 100 = 10; 1e6 * 0.002 / 100 = 20; clearing by the exchange 40.
  EXPECT_COMM(Calc(t, 1e6), 10.0, 20.0, 40.0);
}

TEST(TDarkPoolTest, MinOneRaisesEveryPartWithoutAFirmRate) {
  const TDarkPool t(NotSet(), true);
  // 1000 * 0.0025 / 100 = 0.025, 0.035, 0.04: each -> 1.0.
  EXPECT_COMM(Calc(t, 1000.0), 1.0, 1.0, 1.0);
}

TEST(TDarkPoolTest, MinOneLeavesTheTradingSystemPartUnderNoTSAtZero) {
  const TDarkPool t(true, NotSet(), true);
  EXPECT_COMM(Calc(t, 1000.0), 0.0, 1.0, 1.0);
}

TEST(TDarkPoolTest, MinOneSparesAFreeTradingSystemPartButNotTheOrganisers) {
  // The firm makes TS and organiser free: TS keeps 0, the organiser is still
  // raised to 1.0.
  const TDarkPool t(TExchCommRate(0.0, 0.0, -1.0), true);
  EXPECT_COMM(Calc(t, 1e6), 0.0, 1.0, 40.0);
}

TEST(TDarkPoolTest, CloneKeepsRatesAndFlags) {
  TDarkPool t(true, TExchCommRate(-1.0, 0.01, -1.0), true);
  t.SetSide('S');
  t.SetFederalLoanBondsFlag(true);
  const std::unique_ptr<DL::ABoardTariff> c = t.Clone();
  const auto* copy = dynamic_cast<const TDarkPool*>(c.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_TRUE(copy->NoTS);
  EXPECT_TRUE(copy->MinOne);
  EXPECT_EQ(copy->Side, 'S');
  EXPECT_TRUE(copy->IsFederalLoanBonds);
  EXPECT_DOUBLE_EQ(copy->Rates.Org, 0.002875);
  EXPECT_DOUBLE_EQ(copy->INIRates.Org, 0.01);
  // organiser 1e6 * 0.01 / 100 = 100; clearing 21.25.
  EXPECT_COMM(Calc(*copy, 1e6), 0.0, 100.0, 21.25);
}

}  // namespace
