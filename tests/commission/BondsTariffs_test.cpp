// Bond tariffs by term: TBondsAtNegot, TBondsTariff, TOtherBondsTariff.
#include "commission/BondsTariffs.h"

#include <gtest/gtest.h>

#include "commission/TariffExpect.h"

namespace {

using DL::TBondsAtNegot;
using DL::TBondsTariff;
using DL::TExchCommRate;
using DL::TOtherBondsTariff;
using ztest::NotSet;

template <class T>
DL::TExchCommValue Calc(const T& t, double value, unsigned bondDays) {
  return t.CalcCommValue(value, 0.0, 0, bondDays);
}

// ---- TBondsAtNegot ----

TEST(TBondsAtNegotTest, PerDayUpTo100Days) {
  const TBondsAtNegot t(NotSet(), false);
  // 1e6 * 10 * 1.5e-05 / 100 = 1.5; 1e6 * 10 * 4.25e-05 / 100 = 4.25.
  EXPECT_COMM(Calc(t, 1e6, 10), 1.5, 4.25, 4.25);
  // 100 days: 1e6 * 100 * 1.5e-05 / 100 = 15; 42.5.
  EXPECT_COMM(Calc(t, 1e6, 100), 15.0, 42.5, 42.5);
}

TEST(TBondsAtNegotTest, FullRateFrom101Days) {
  const TBondsAtNegot t(NotSet(), false);
  // 1e6 * 0.0015 / 100 = 15 (per day it would be 15.15); 1e6 * 0.00425 / 100 = 42.5.
  EXPECT_COMM(Calc(t, 1e6, 101), 15.0, 42.5, 42.5);
}

TEST(TBondsAtNegotTest, EachPartIsCapped) {
  const TBondsAtNegot t(NotSet(), false);
  // 1e10 * 0.0015 / 100 = 150000 -> 27000; 1e10 * 0.00425 / 100 = 425000 -> 76500.
  EXPECT_COMM(Calc(t, 1e10, 200), 27000.0, 76500.0, 76500.0);
}

TEST(TBondsAtNegotTest, AFirmRateRemovesTheCap) {
  const TBondsAtNegot t(TExchCommRate(0.001, -1.0, -1.0), false);
  // 1e10 * 0.001 / 100 = 100000, above the cap of 27000.
  EXPECT_COMM(Calc(t, 1e10, 200), 100000.0, 76500.0, 76500.0);
}

TEST(TBondsAtNegotTest, MinOneFloorsEachPartButAFreeTradingSystemPart) {
  const TBondsAtNegot t(NotSet(), true);
  // 1000 * 1 * 1.5e-05 / 100 = 1.5e-4 -> 1.0.
  EXPECT_COMM(Calc(t, 1000.0, 1), 1.0, 1.0, 1.0);
  const TBondsAtNegot free(TExchCommRate(0.0, 0.0, -1.0), true);
  EXPECT_COMM(Calc(free, 1000.0, 1), 0.0, 1.0, 1.0);
}

// ---- TBondsTariff ----

TEST(TBondsTariffTest, PerDayUpTo100DaysFullFrom101) {
  const TBondsTariff t(false, NotSet(), false);
  // 50 days: 1e6 * 50 * 1.5e-05 / 100 = 7.5; 1e6 * 50 * 4.25e-05 / 100 = 21.25.
  EXPECT_COMM(Calc(t, 1e6, 50), 7.5, 21.25, 21.25);
  // 101 days: 1e6 * 0.0015 / 100 = 15 (per day 15.15); 42.5 (per day 42.925).
  EXPECT_COMM(Calc(t, 1e6, 101), 15.0, 42.5, 42.5);
}

TEST(TBondsTariffTest, NoTSRates) {
  const TBondsTariff t(true, TExchCommRate(0.5, -1.0, -1.0), false);
  // 10 days: 1e6 * 10 * 5.75e-05 / 100 = 5.75; 1e6 * 10 * 4.25e-05 / 100 = 4.25.
  EXPECT_COMM(Calc(t, 1e6, 10), 0.0, 5.75, 4.25);
  // 200 days: 1e6 * 0.0071875 / 100 = 71.875; 1e6 * 0.0053125 / 100 = 53.125.
  EXPECT_COMM(Calc(t, 1e6, 200), 0.0, 71.875, 53.125);
}

TEST(TBondsTariffTest, FirmRatesAndMinOne) {
  const TBondsTariff t(false, TExchCommRate(-1.0, 0.0, 0.001), true);
  // TS 1000 * 50 * 1.5e-05 / 100 = 0.0075 -> 1.0; organiser free but floored
  // -> 1.0; clearing 1000 * 0.001 / 100 = 0.01 -> 1.0.
  EXPECT_COMM(Calc(t, 1000.0, 50), 1.0, 1.0, 1.0);
  // 1e6: TS 7.5; organiser 0 -> 1.0; clearing 1e6 * 0.001 / 100 = 10.
  EXPECT_COMM(Calc(t, 1e6, 50), 7.5, 1.0, 10.0);
}

// ---- TOtherBondsTariff ----

TEST(TOtherBondsTariffTest, PerDayUpTo125DaysFullAbove) {
  const TOtherBondsTariff t(false, NotSet(), false);
  // 101 days is still per day: 1e6 * 101 * 1.5e-05 / 100 = 15.15; * 4.25e-05 -> 42.925.
  EXPECT_COMM(Calc(t, 1e6, 101), 15.15, 42.925, 42.925);
  // 125 days: 18.75; 53.125.
  EXPECT_COMM(Calc(t, 1e6, 125), 18.75, 53.125, 53.125);
  // 126 days: full 1e6 * 0.001875 / 100 = 18.75 (per day 18.9); 1e6 * 0.0053125 / 100 = 53.125.
  EXPECT_COMM(Calc(t, 1e6, 126), 18.75, 53.125, 53.125);
}

TEST(TOtherBondsTariffTest, NoTSRates) {
  const TOtherBondsTariff t(true, NotSet(), false);
  EXPECT_DOUBLE_EQ(t.Full.Org, 0.0071875);
  // 130 days: 1e6 * 0.0071875 / 100 = 71.875; 53.125.
  EXPECT_COMM(Calc(t, 1e6, 130), 0.0, 71.875, 53.125);
}

TEST(BondsTariffsTest, CloneKeepsRatesAndFlags) {
  TBondsAtNegot negot(TExchCommRate(0.001, -1.0, -1.0), true);
  negot.Max.TS = 5.0;
  auto c1 = negot.Clone();
  const auto* n = dynamic_cast<const TBondsAtNegot*>(c1.get());
  ASSERT_NE(n, nullptr);
  EXPECT_DOUBLE_EQ(n->Max.TS, 5.0);
  EXPECT_TRUE(n->MinOne);
  EXPECT_DOUBLE_EQ(n->INIRates.TS, 0.001);

  const TBondsTariff bonds(true, NotSet(), true);
  auto c2 = bonds.Clone();
  const auto* b = dynamic_cast<const TBondsTariff*>(c2.get());
  ASSERT_NE(b, nullptr);
  EXPECT_TRUE(b->NoTS);
  EXPECT_TRUE(b->MinOne);
  EXPECT_DOUBLE_EQ(b->PerDay.Org, 5.75e-05);

  const TOtherBondsTariff other(false, NotSet(), false);
  auto c3 = other.Clone();
  const auto* o = dynamic_cast<const TOtherBondsTariff*>(c3.get());
  ASSERT_NE(o, nullptr);
  EXPECT_FALSE(o->NoTS);
  EXPECT_DOUBLE_EQ(o->Full.TS, 0.001875);
  EXPECT_COMM(Calc(*o, 1e6, 126), 18.75, 53.125, 53.125);
}

}  // namespace
