// Tariffs of the gas company's boards: organiser by bond term, repo by term.
#include "commission/GZBTariffs.h"

#include <gtest/gtest.h>

#include "commission/TariffExpect.h"

namespace {

using DL::TExchCommRate;
using DL::TGZBBondsAtNegot;
using DL::TGZBBondsAtREPO;
using DL::TGZBSharesBondsAtMain;
using ztest::NotSet;

template <class T>
DL::TExchCommValue Calc(const T& t, double value, unsigned repoDays, unsigned bondDays) {
  return t.CalcCommValue(value, 0.0, repoDays, bondDays);
}

TEST(TGZBSharesBondsAtMainTest, OrganiserOnlyPerDayUnder101Days) {
  const TGZBSharesBondsAtMain t(NotSet());
  // 1e6 * 100 * 4.25e-05 / 100 = 42.5.
  EXPECT_COMM(Calc(t, 1e6, 0, 100), 0.0, 42.5, 0.0);
  // 101 days: 1e6 * 0.0053125 / 100 = 53.125.
  EXPECT_COMM(Calc(t, 1e6, 0, 101), 0.0, 53.125, 0.0);
}

TEST(TGZBSharesBondsAtMainTest, FirmRatesReachEveryPart) {
  const TGZBSharesBondsAtMain t(TExchCommRate(0.01, -1.0, 0.002));
  // TS 1e6 * 0.01 / 100 = 100; clearing 1e6 * 0.002 / 100 = 20.
  EXPECT_COMM(Calc(t, 1e6, 0, 10), 100.0, 4.25, 20.0);
}

TEST(TGZBBondsAtNegotTest, PerDayUnder201DaysAndCappedAtMax) {
  const TGZBBondsAtNegot t(NotSet());
  // 1e6 * 200 * 4.25e-05 / 100 = 85.
  EXPECT_COMM(Calc(t, 1e6, 0, 200), 0.0, 85.0, 0.0);
  // 201 days: 1e6 * 0.0053125 / 100 = 53.125.
  EXPECT_COMM(Calc(t, 1e6, 0, 201), 0.0, 53.125, 0.0);
  // 1e10 * 0.0053125 / 100 = 531250 -> 500000.
  EXPECT_COMM(Calc(t, 1e10, 0, 201), 0.0, 500000.0, 0.0);
}

TEST(TGZBBondsAtNegotTest, AFirmRateIsNotCapped) {
  const TGZBBondsAtNegot t(TExchCommRate(-1.0, 0.01, -1.0));
  // 1e10 * 0.01 / 100 = 1e6.
  EXPECT_COMM(Calc(t, 1e10, 0, 201), 0.0, 1e6, 0.0);
}

TEST(TGZBBondsAtREPOTest, PerDayUpTo100DaysFullBeyond) {
  const TGZBBondsAtREPO t(NotSet());
  // 10 days: 1e6 * 10 * 3e-05 / 100 = 3; 1e6 * 10 * 3.5e-05 / 100 = 3.5.
  EXPECT_COMM(Calc(t, 1e6, 10, 0), 3.0, 3.5, 3.5);
  // 100 days: 30 and 35.
  EXPECT_COMM(Calc(t, 1e6, 100, 0), 30.0, 35.0, 35.0);
  // 101 days: 1e6 * 0.003 / 100 = 30 (per day 30.3); 1e6 * 0.0035 / 100 = 35.
  EXPECT_COMM(Calc(t, 1e6, 101, 0), 30.0, 35.0, 35.0);
  // The bond term is not read.
  EXPECT_COMM(Calc(t, 1e6, 10, 500), 3.0, 3.5, 3.5);
}

TEST(TGZBBondsAtREPOTest, FirmRatesReplaceTheParts) {
  const TGZBBondsAtREPO t(TExchCommRate(0.0, -1.0, 0.01));
  EXPECT_COMM(Calc(t, 1e6, 10, 0), 0.0, 3.5, 100.0);
}

TEST(GZBTariffsTest, CloneKeepsRates) {
  TGZBBondsAtNegot negot(TExchCommRate(-1.0, 0.5, -1.0));
  negot.Max = 7.0;
  auto c1 = negot.Clone();
  const auto* n = dynamic_cast<const TGZBBondsAtNegot*>(c1.get());
  ASSERT_NE(n, nullptr);
  EXPECT_DOUBLE_EQ(n->Max, 7.0);
  EXPECT_DOUBLE_EQ(n->INIRates.Org, 0.5);

  auto c2 = TGZBSharesBondsAtMain(NotSet()).Clone();
  ASSERT_NE(dynamic_cast<const TGZBSharesBondsAtMain*>(c2.get()), nullptr);
  EXPECT_COMM(Calc(*c2, 1e6, 0, 101), 0.0, 53.125, 0.0);

  auto c3 = TGZBBondsAtREPO(NotSet()).Clone();
  ASSERT_NE(dynamic_cast<const TGZBBondsAtREPO*>(c3.get()), nullptr);
  EXPECT_COMM(Calc(*c3, 1e6, 10, 0), 3.0, 3.5, 3.5);
}

}  // namespace
