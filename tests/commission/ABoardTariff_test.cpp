// What every board tariff shares: the base of the rates, the firm's rates
// and their override, and copies through the base.
#include "commission/ABoardTariff.h"

#include <gtest/gtest.h>

#include "commission/GZBTariffs.h"
#include "commission/TDarkPool.h"
#include "commission/TariffExpect.h"

namespace {

using DL::ABoardTariff;
using DL::TExchCommRate;
using ztest::NotSet;

TEST(ABoardTariffTest, RatesAreInPerCentOfOneHundred) {
  const DL::TGZBBondsAtREPO t(NotSet());
  EXPECT_DOUBLE_EQ(t.Percent, 100.0);
  EXPECT_DOUBLE_EQ(ABoardTariff::kPercent, 100.0);
}

TEST(ABoardTariffTest, TheBaseSetINIRatesCopiesTheThreeRates) {
  DL::TDarkPool t(NotSet(), false);
  ABoardTariff& base = t;
  base.SetINIRates(TExchCommRate(0.1, 0.2, 0.3));
  EXPECT_DOUBLE_EQ(t.INIRates.TS, 0.1);
  EXPECT_DOUBLE_EQ(t.INIRates.Org, 0.2);
  EXPECT_DOUBLE_EQ(t.INIRates.Clearing, 0.3);
  // 1e6 * 0.1 / 100 = 1000, 2000, 3000.
  EXPECT_COMM(t.CalcCommValue(1e6, 0.0, 0, 0), 1000.0, 2000.0, 3000.0);
}

TEST(ABoardTariffTest, MinusOneIsNotSetAndZeroIsAFreePart) {
  const DL::TGZBBondsAtREPO t(TExchCommRate(-1.0, 0.0, -1.0));
  // 10 days: TS 1e6 * 10 * 3e-05 / 100 = 3 by the exchange; organiser free;
  // clearing 3.5 by the exchange.
  EXPECT_COMM(t.CalcCommValue(1e6, 0.0, 10, 0), 3.0, 0.0, 3.5);
}

TEST(ABoardTariffTest, AnyNegativeFirmRateIsNotSet) {
  const DL::TGZBBondsAtREPO t(TExchCommRate(-1e-9, -0.5, -1.0));
  EXPECT_COMM(t.CalcCommValue(1e6, 0.0, 10, 0), 3.0, 3.5, 3.5);
}

TEST(ABoardTariffTest, ThePercentBaseDividesEveryPart) {
  DL::TGZBBondsAtREPO t(TExchCommRate(-1.0, 0.01, -1.0));
  t.Percent = 1000.0;
  // 1e6 * 10 * 3e-05 / 1000 = 0.3; 1e6 * 0.01 / 1000 = 10; 1e6 * 10 * 3.5e-05 / 1000 = 0.35.
  EXPECT_COMM(t.CalcCommValue(1e6, 0.0, 10, 0), 0.3, 10.0, 0.35);
}

TEST(ABoardTariffTest, CloneThroughTheBaseIsAnIndependentCopy) {
  DL::TGZBBondsAtREPO t(NotSet());
  const ABoardTariff& base = t;
  std::unique_ptr<ABoardTariff> copy = base.Clone();
  t.SetINIRates(TExchCommRate(0.0, 0.0, 0.0));
  EXPECT_DOUBLE_EQ(copy->INIRates.TS, -1.0);
  EXPECT_COMM(copy->CalcCommValue(1e6, 0.0, 10, 0), 3.0, 3.5, 3.5);
  EXPECT_COMM(t.CalcCommValue(1e6, 0.0, 10, 0), 0.0, 0.0, 0.0);
}

TEST(ABondsTariffTest, DefaultsAndSetters) {
  DL::TDarkPool t(NotSet(), false);
  EXPECT_FALSE(t.IsFederalLoanBonds);
  EXPECT_EQ(t.Side, 'B');
  EXPECT_TRUE(t.FederalRates.IsZero());
  EXPECT_TRUE(t.FederalRatesPerDay.IsZero());
  t.SetFederalLoanBondsFlag(true);
  t.SetSide('S');
  EXPECT_TRUE(t.IsFederalLoanBonds);
  EXPECT_EQ(t.Side, 'S');
}

}  // namespace
