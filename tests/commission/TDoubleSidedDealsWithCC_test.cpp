// Double-sided deals with the central counterparty: organiser only.
#include "commission/TDoubleSidedDealsWithCC.h"

#include <gtest/gtest.h>

#include "commission/TariffExpect.h"

namespace {

using DL::TDoubleSidedDealsWithCC;
using DL::TExchCommRate;
using ztest::NotSet;

DL::TExchCommValue Calc(const TDoubleSidedDealsWithCC& t, double value, unsigned bondDays) {
  return t.CalcCommValue(value, 0.0, 0, bondDays);
}

TEST(TDoubleSidedDealsWithCCTest, PerDayUnder51DaysFullFrom51) {
  const TDoubleSidedDealsWithCC t(NotSet(), false);
  // 1e6 * 50 * 0.0001 / 100 = 50.
  EXPECT_COMM(Calc(t, 1e6, 50), 0.0, 50.0, 0.0);
  // 51 days: 1e6 * 0.01 / 100 = 100 (per day 51).
  EXPECT_COMM(Calc(t, 1e6, 51), 0.0, 100.0, 0.0);
}

TEST(TDoubleSidedDealsWithCCTest, OnlyTheOrganisersFirmRateIsRead) {
  const TDoubleSidedDealsWithCC t(TExchCommRate(0.01, 0.002, 0.01), false);
  // organiser 1e6 * 0.002 / 100 = 20; TS and clearing stay 0.
  EXPECT_COMM(Calc(t, 1e6, 10), 0.0, 20.0, 0.0);
}

TEST(TDoubleSidedDealsWithCCTest, MinOneRaisesTheOrganiserFirmRateIncluded) {
  const TDoubleSidedDealsWithCC t(NotSet(), true);
  // 1000 * 1 * 0.0001 / 100 = 0.001 -> 1.0.
  EXPECT_COMM(Calc(t, 1000.0, 1), 0.0, 1.0, 0.0);
  const TDoubleSidedDealsWithCC free(TExchCommRate(-1.0, 0.0, -1.0), true);
  EXPECT_COMM(Calc(free, 1e6, 1), 0.0, 1.0, 0.0);
  const TDoubleSidedDealsWithCC noMin(TExchCommRate(-1.0, 0.0, -1.0), false);
  EXPECT_COMM(Calc(noMin, 1e6, 1), 0.0, 0.0, 0.0);
}

TEST(TDoubleSidedDealsWithCCTest, CloneKeepsRatesAndFlags) {
  TDoubleSidedDealsWithCC t(TExchCommRate(-1.0, 0.002, -1.0), true);
  t.Full = 0.02;
  auto c = t.Clone();
  const auto* copy = dynamic_cast<const TDoubleSidedDealsWithCC*>(c.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_TRUE(copy->MinOne);
  EXPECT_DOUBLE_EQ(copy->Full, 0.02);
  EXPECT_DOUBLE_EQ(copy->PerDay, 0.0001);
  EXPECT_DOUBLE_EQ(copy->INIRates.Org, 0.002);
}

}  // namespace
