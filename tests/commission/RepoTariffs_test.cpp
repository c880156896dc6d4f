// Repo tariffs by term: TSharesEuroBondsAtREPO, TModifiedREPO, TMoexREPO.
#include "commission/RepoTariffs.h"

#include <gtest/gtest.h>

#include "commission/TariffExpect.h"

namespace {

using DL::TExchCommRate;
using DL::TModifiedREPO;
using DL::TMoexREPO;
using DL::TSharesEuroBondsAtREPO;
using ztest::NotSet;

template <class T>
DL::TExchCommValue Calc(const T& t, double value, unsigned repoDays) {
  return t.CalcCommValue(value, 0.0, repoDays, 0);
}

// ---- TSharesEuroBondsAtREPO, as the schedule builds it ----

TSharesEuroBondsAtREPO Shares(const TExchCommRate& ini = NotSet()) {
  return TSharesEuroBondsAtREPO(0.0015, 0.00425, 0.00425, ini);
}

TEST(TSharesEuroBondsAtREPOTest, ConstructorRatesAreTheFirstThreeClearingRates) {
  const TSharesEuroBondsAtREPO t = Shares();
  EXPECT_DOUBLE_EQ(t.ClearingByTerm[0], 0.0015);
  EXPECT_DOUBLE_EQ(t.ClearingByTerm[1], 0.00425);
  EXPECT_DOUBLE_EQ(t.ClearingByTerm[2], 0.00425);
  EXPECT_DOUBLE_EQ(t.ClearingByTerm[3], 0.02);
  EXPECT_DOUBLE_EQ(t.ClearingByTerm[4], 0.04);
}

TEST(TSharesEuroBondsAtREPOTest, ZeroDaysIsTheFixedFee) {
  EXPECT_COMM(Calc(Shares(), 1e6, 0), 1500.0, 1500.0, 1500.0);
}

TEST(TSharesEuroBondsAtREPOTest, OvernightRatesAndTheSecondClearingRate) {
  // 1e6 * 0.0025 / 100 = 25; 1e6 * 0.0035 / 100 = 35; 1e6 * 0.00425 / 100 = 42.5.
  EXPECT_COMM(Calc(Shares(), 1e6, 1), 25.0, 35.0, 42.5);
}

TEST(TSharesEuroBondsAtREPOTest, LongerTermsTakeTheClearingRateOfTheirTerm) {
  const TSharesEuroBondsAtREPO t = Shares();
  // TS and organiser 1e6 * 0.0045 / 100 = 45.
  EXPECT_COMM(Calc(t, 1e6, 2), 45.0, 45.0, 15.0);   // under 8 days: 0.0015
  EXPECT_COMM(Calc(t, 1e6, 7), 45.0, 45.0, 15.0);
  EXPECT_COMM(Calc(t, 1e6, 8), 45.0, 45.0, 42.5);   // 8 to 21: 0.00425
  EXPECT_COMM(Calc(t, 1e6, 21), 45.0, 45.0, 42.5);
  EXPECT_COMM(Calc(t, 1e6, 22), 45.0, 45.0, 42.5);  // 22 to 30: 0.00425
  EXPECT_COMM(Calc(t, 1e6, 30), 45.0, 45.0, 42.5);
  EXPECT_COMM(Calc(t, 1e6, 31), 45.0, 45.0, 200.0);  // 31 to 90: 0.02
  EXPECT_COMM(Calc(t, 1e6, 90), 45.0, 45.0, 200.0);
  EXPECT_COMM(Calc(t, 1e6, 91), 45.0, 45.0, 400.0);  // over 90: 0.04
}

TEST(TSharesEuroBondsAtREPOTest, DefaultClearingRatesByTerm) {
  const TSharesEuroBondsAtREPO t(0.004, 0.006, 0.011, NotSet());
  // 1e6 * 0.011 / 100 = 110 at 25 days.
  EXPECT_COMM(Calc(t, 1e6, 25), 45.0, 45.0, 110.0);
}

TEST(TSharesEuroBondsAtREPOTest, FirmRatesReplaceEvenTheFixedFee) {
  const TSharesEuroBondsAtREPO t = Shares(TExchCommRate(-1.0, 0.001, 0.0));
  // organiser 1e6 * 0.001 / 100 = 10; clearing free.
  EXPECT_COMM(Calc(t, 1e6, 0), 1500.0, 10.0, 0.0);
}

// ---- TModifiedREPO ----

TEST(TModifiedREPOTest, EachPartIsAtLeastTheMinimum) {
  const TModifiedREPO t(0.0015, 0.00425, 0.00425, NotSet());
  // 1e8 * 0.0001 / 100 = 100 -> 500; 1e8 * 0.00015 / 100 = 150 -> 500.
  EXPECT_COMM(Calc(t, 1e8, 0), 500.0, 500.0, 500.0);
}

TEST(TModifiedREPOTest, TheTermMultipliesThePart) {
  const TModifiedREPO t(0.0015, 0.00425, 0.00425, NotSet());
  // 1e9 * 0.0001 / 100 * 10 = 10000; 1e9 * 0.00015 / 100 * 10 = 15000.
  EXPECT_COMM(Calc(t, 1e9, 10), 10000.0, 10000.0, 15000.0);
  // 0 days count once: 1000 and 1500.
  EXPECT_COMM(Calc(t, 1e9, 0), 1000.0, 1000.0, 1500.0);
}

TEST(TModifiedREPOTest, AFirmRateDropsTheMinimumAndTheTerm) {
  const TModifiedREPO t(0.0015, 0.00425, 0.00425, TExchCommRate(0.0, 0.0001, -1.0));
  // TS free; organiser 1e6 * 0.0001 / 100 = 1; clearing 1e6 * 0.00015 / 100 * 3 = 4.5 -> 500.
  EXPECT_COMM(Calc(t, 1e6, 3), 0.0, 1.0, 500.0);
}

TEST(TModifiedREPOTest, ConstructorNumbersAreKept) {
  const TModifiedREPO t(0.00015, 0.00038, 60.0, NotSet());
  EXPECT_DOUBLE_EQ(t.First, 0.00015);
  EXPECT_DOUBLE_EQ(t.Second, 0.00038);
  EXPECT_DOUBLE_EQ(t.Third, 60.0);
  // They take no part: the same as with other numbers.
  const TModifiedREPO other(0.0015, 0.00425, 0.00425, NotSet());
  EXPECT_COMM(Calc(t, 1e9, 10), 10000.0, 10000.0, 15000.0);
  EXPECT_COMM(Calc(other, 1e9, 10), 10000.0, 10000.0, 15000.0);
}

// ---- TMoexREPO ----

TEST(TMoexREPOTest, FourRatesHaveNoTradingSystemPart) {
  const TMoexREPO t(0.00015, 0.00038, 1.0, 1.0, NotSet(), false);
  EXPECT_DOUBLE_EQ(t.Rates.TS, 0.0);
  EXPECT_DOUBLE_EQ(t.Min.TS, 0.0);
  EXPECT_DOUBLE_EQ(t.Min.Org, 1.0);
  // v = 1e6 * 7: 7e6 * 0.00015 / 100 = 10.5; 7e6 * 0.00038 / 100 = 26.6.
  EXPECT_COMM(Calc(t, 1e6, 7), 0.0, 10.5, 26.6);
}

TEST(TMoexREPOTest, ZeroDaysCountTheValueOnce) {
  const TMoexREPO t(0.00015, 0.00038, 1.0, 1.0, NotSet(), false);
  // 1e6 * 0.00015 / 100 = 1.5; 1e6 * 0.00038 / 100 = 3.8; the same as one day.
  EXPECT_COMM(Calc(t, 1e6, 0), 0.0, 1.5, 3.8);
  EXPECT_COMM(Calc(t, 1e6, 1), 0.0, 1.5, 3.8);
}

TEST(TMoexREPOTest, PartsBelowTheMinimumAreRaised) {
  const TMoexREPO t(3.6e-05, 3.6e-05, 0.000168, 30.0, 30.0, 140.0, NotSet(), false);
  // 1e6 * 3.6e-05 / 100 = 0.36 -> 30; 1e6 * 0.000168 / 100 = 1.68 -> 140.
  EXPECT_COMM(Calc(t, 1e6, 1), 30.0, 30.0, 140.0);
}

TEST(TMoexREPOTest, NoMinHasNoFloor) {
  const TMoexREPO t(3.6e-05, 3.6e-05, 0.000168, 30.0, 30.0, 140.0, NotSet(), true);
  EXPECT_COMM(Calc(t, 1e6, 1), 0.36, 0.36, 1.68);
  const TMoexREPO four(0.00015, 0.00038, 1.0, 1.0, NotSet(), true);
  // 1e5 * 0.00015 / 100 = 0.15; 1e5 * 0.00038 / 100 = 0.38, both kept.
  EXPECT_COMM(Calc(four, 1e5, 0), 0.0, 0.15, 0.38);
}

TEST(TMoexREPOTest, FirmRatesUseTheValueTimesTheTermAndKeepTheMinimum) {
  const TMoexREPO t(3.6e-05, 3.6e-05, 0.000168, 30.0, 30.0, 140.0, TExchCommRate(0.0, 0.001, -1.0), false);
  // TS free, then raised to its minimum 30; organiser 7e6 * 0.001 / 100 = 70;
  // clearing 7e6 * 0.000168 / 100 = 11.76 -> 140.
  EXPECT_COMM(Calc(t, 1e6, 7), 30.0, 70.0, 140.0);
}

TEST(RepoTariffsTest, CloneKeepsRatesAndFlags) {
  TMoexREPO moex(7.5e-05, 7.5e-05, 0.000365, 30.0, 30.0, 140.0, TExchCommRate(-1.0, -1.0, 0.5), true);
  auto c1 = moex.Clone();
  const auto* m = dynamic_cast<const TMoexREPO*>(c1.get());
  ASSERT_NE(m, nullptr);
  EXPECT_DOUBLE_EQ(m->Rates.Clearing, 0.000365);
  EXPECT_DOUBLE_EQ(m->Min.Clearing, 140.0);
  EXPECT_TRUE(m->NoMin);
  EXPECT_DOUBLE_EQ(m->INIRates.Clearing, 0.5);

  TModifiedREPO modified(0.00015, 0.00038, 60.0, NotSet());
  modified.Min = 10.0;
  auto c2 = modified.Clone();
  const auto* d = dynamic_cast<const TModifiedREPO*>(c2.get());
  ASSERT_NE(d, nullptr);
  EXPECT_DOUBLE_EQ(d->Min, 10.0);
  EXPECT_DOUBLE_EQ(d->Third, 60.0);

  const TSharesEuroBondsAtREPO shares = Shares();
  auto c3 = shares.Clone();
  const auto* s = dynamic_cast<const TSharesEuroBondsAtREPO*>(c3.get());
  ASSERT_NE(s, nullptr);
  EXPECT_DOUBLE_EQ(s->ClearingByTerm[0], 0.0015);
  EXPECT_COMM(Calc(*s, 1e6, 1), 25.0, 35.0, 42.5);
}

}  // namespace
