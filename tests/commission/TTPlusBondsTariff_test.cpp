// The T+ bond tariffs: the smaller of the per-day and the full charge,
// bounded; firm rates with the tolerance 0.1; the minimum of 1.0.
#include "commission/TTPlusBondsTariff.h"

#include <gtest/gtest.h>

#include "commission/TariffExpect.h"

namespace {

using DL::TBoardsWithClearingCommOnly;
using DL::TExchCommRate;
using DL::TExchCommValue;
using DL::TNegDealBondsTariff;
using DL::TRPCBondsTariff;
using DL::TRPCBondsTariffNoExpDate;
using DL::TTPlusBondsTariff;
using ztest::NotSet;

TExchCommValue Calc(const DL::ABoardTariff& t, double value, unsigned bondDays) {
  return t.CalcCommValue(value, 0.0, 0, bondDays);
}

// ---- TTPlusBondsTariff ----

TEST(TTPlusBondsTariffTest, FiveDaysTakeTheSmallerOfPerDayAndFull) {
  const TTPlusBondsTariff t(NotSet(), false);
  // organiser: 5 * 1e6 * 5.75e-05 / 100 = 2.875 against 1e6 * 0.008625 / 100 = 86.25;
  // clearing: 5 * 1e6 * 4.25e-05 / 100 = 2.125 against 63.75.
  EXPECT_COMM(Calc(t, 1e6, 5), 0.0, 2.875, 2.125);
}

TEST(TTPlusBondsTariffTest, LongTermsTakeTheFullCharge) {
  const TTPlusBondsTariff t(NotSet(), false);
  // 200 days: per day 115 and 85, full 86.25 and 63.75.
  EXPECT_COMM(Calc(t, 1e6, 200), 0.0, 86.25, 63.75);
}

TEST(TTPlusBondsTariffTest, ZeroDaysTakeTheFullCharge) {
  const TTPlusBondsTariff t(NotSet(), false);
  EXPECT_COMM(Calc(t, 1e6, 0), 0.0, 86.25, 63.75);
}

TEST(TTPlusBondsTariffTest, UseMinRaisesOrganiserAndClearingButNotTheTradingSystem) {
  const TTPlusBondsTariff t(NotSet(), true);
  EXPECT_TRUE(t.NoMinTS);
  // 5 * 1000 * 5.75e-05 / 100 = 0.002875 -> 1.0; 0.002125 -> 1.0; TS 0.
  EXPECT_COMM(Calc(t, 1000.0, 5), 0.0, 1.0, 1.0);
}

TEST(TTPlusBondsTariffTest, WithoutNoMinTSTheTradingSystemPartIsRaisedToo) {
  TTPlusBondsTariff t(NotSet(), true);
  t.NoMinTS = false;
  EXPECT_COMM(Calc(t, 1000.0, 5), 1.0, 1.0, 1.0);
}

TEST(TTPlusBondsTariffTest, FirmRatesReplaceTheParts) {
  const TTPlusBondsTariff t(TExchCommRate(0.01, 0.002, 0.0), false);
  // TS 1e6 * 0.01 / 100 = 100; organiser 1e6 * 0.002 / 100 = 20; clearing free.
  EXPECT_COMM(Calc(t, 1e6, 5), 100.0, 20.0, 0.0);
}

TEST(TTPlusBondsTariffTest, AFreePartIsStillRaisedUnderUseMin) {
  const TTPlusBondsTariff t(TExchCommRate(-1.0, -1.0, 0.0), true);
  EXPECT_COMM(Calc(t, 1e6, 5), 0.0, 2.875, 1.0);
}

TEST(TTPlusBondsTariffTest, AFirmRateWithinPointOneBelowZeroCountsAsSet) {
  // -0.05 is 0 within the money tolerance: the organiser takes 1e6 * -0.05 / 100 = -500.
  const TTPlusBondsTariff t(TExchCommRate(-1.0, -0.05, -0.2), false);
  EXPECT_COMM(Calc(t, 1e6, 5), 0.0, -500.0, 2.125);
}

TEST(TTPlusBondsTariffTest, ApplyCustomRatesIfNeededFlagsTheSetRates) {
  const TTPlusBondsTariff t(TExchCommRate(0.0, -1.0, 0.01), false);
  TExchCommValue r(7.0, 7.0, 7.0);
  TTPlusBondsTariff::TCustomFlags flags;
  flags.Org = true;  // cleared by the call
  t.ApplyCustomRatesIfNeeded(r, 1e6, flags);
  EXPECT_TRUE(flags.TS);
  EXPECT_FALSE(flags.Org);
  EXPECT_TRUE(flags.Clearing);
  EXPECT_COMM(r, 0.0, 7.0, 100.0);
}

TEST(TTPlusBondsTariffTest, GetBoundedCommCapsWhereMaxIsAboveZeroAndRaisesToMinUnderUseMin) {
  const TTPlusBondsTariff t(NotSet(), true);
  TExchCommValue out;
  // Full 1e6 * 0.008625 / 100 = 86.25 capped at 50; clearing 63.75 with no cap
  // (0) raised to its minimum 70.
  t.GetBoundedComm(1e6, 0, t.Full, t.PerDay, TExchCommValue(0.0, 50.0, 0.0), TExchCommValue(0.0, 0.0, 70.0), out);
  EXPECT_COMM(out, 0.0, 50.0, 70.0);
}

TEST(TTPlusBondsTariffTest, GetBoundedCommTieWithinPointOneGoesToTheBound) {
  const TTPlusBondsTariff t(NotSet(), false);
  TExchCommValue out;
  // 86.25 against a cap of 86.3: within 0.1, the cap is taken.
  t.GetBoundedComm(1e6, 0, t.Full, t.PerDay, TExchCommValue(0.0, 86.3, 0.0), TExchCommValue(), out);
  EXPECT_DOUBLE_EQ(out.Org, 86.3);
}

TEST(TTPlusBondsTariffTest, SetMinCommValueDoesNothingWithoutUseMin) {
  const TTPlusBondsTariff t(NotSet(), false);
  TExchCommValue v(0.0, 0.5, 0.5);
  t.SetMinCommValue(v);
  EXPECT_COMM(v, 0.0, 0.5, 0.5);
}

TEST(TTPlusBondsTariffTest, FederalFlagWithoutFederalRatesKeepsTheBoardsRates) {
  TTPlusBondsTariff t(NotSet(), false);
  t.SetFederalLoanBondsFlag(true);
  EXPECT_COMM(Calc(t, 1e6, 5), 0.0, 2.875, 2.125);
}

// ---- TRPCBondsTariff ----

TEST(TRPCBondsTariffTest, FullRatesAndCaps) {
  const TRPCBondsTariff t(NotSet(), false);
  // 1e9 * 0.00575 / 100 = 57500; 1e9 * 0.00425 / 100 = 42500.
  EXPECT_COMM(Calc(t, 1e9, 0), 0.0, 57500.0, 42500.0);
  // 1e10: 575000 -> 201250; 425000 -> 148750.
  EXPECT_COMM(Calc(t, 1e10, 0), 0.0, 201250.0, 148750.0);
  // 5 days: 2.875 against 57.5; 2.125 against 42.5.
  EXPECT_COMM(Calc(t, 1e6, 5), 0.0, 2.875, 2.125);
}

// ---- TNegDealBondsTariff ----

TEST(TNegDealBondsTariffTest, UseMinRaisesToTheBoardsMinimum) {
  const TNegDealBondsTariff t(NotSet(), true);
  // 57.5 -> 5750; 42.5 -> 4250.
  EXPECT_COMM(Calc(t, 1e6, 0), 0.0, 5750.0, 4250.0);
  const TNegDealBondsTariff noMin(NotSet(), false);
  EXPECT_COMM(Calc(noMin, 1e6, 0), 0.0, 57.5, 42.5);
}

TEST(TNegDealBondsTariffTest, FederalLoanBondsTakeTheFederalRatesWithoutBounds) {
  TNegDealBondsTariff t(NotSet(), true);
  t.SetFederalLoanBondsFlag(true);
  // 0 days: 1e6 * 0.0071875 / 100 = 71.875; 1e6 * 0.0053125 / 100 = 53.125; no
  // minimum of 5750.
  EXPECT_COMM(Calc(t, 1e6, 0), 0.0, 71.875, 53.125);
  // 10 days: 10 * 1e6 * 5.75e-05 / 100 = 5.75; 4.25.
  EXPECT_COMM(Calc(t, 1e6, 10), 0.0, 5.75, 4.25);
  // 1e10 at 0 days: 718750 and 531250, above the board's caps.
  EXPECT_COMM(Calc(t, 1e10, 0), 0.0, 718750.0, 531250.0);
}

// ---- TRPCBondsTariffNoExpDate ----

TEST(TRPCBondsTariffNoExpDateTest, APlainPerCentWhateverTheTerm) {
  const TRPCBondsTariffNoExpDate t(NotSet(), false);
  // 1e6 * 0.008625 / 100 = 86.25; 1e6 * 0.006375 / 100 = 63.75.
  EXPECT_COMM(Calc(t, 1e6, 0), 0.0, 86.25, 63.75);
  EXPECT_COMM(Calc(t, 1e6, 5), 0.0, 86.25, 63.75);
}

TEST(TRPCBondsTariffNoExpDateTest, FirmRatesAndTheMinimum) {
  const TRPCBondsTariffNoExpDate t(TExchCommRate(0.01, 0.001, -1.0), true);
  // TS 1000 * 0.01 / 100 = 0.1, not raised (NoMinTS); organiser 0.01 -> 1.0;
  // clearing 1000 * 0.006375 / 100 = 0.06375 -> 1.0.
  EXPECT_COMM(Calc(t, 1000.0, 0), 0.1, 1.0, 1.0);
}

// ---- TBoardsWithClearingCommOnly ----

TEST(TBoardsWithClearingCommOnlyTest, ClearingOnlyWithItsMinimum) {
  const TBoardsWithClearingCommOnly t(0.02, 10000.0, NotSet(), false);
  EXPECT_DOUBLE_EQ(t.PerDay.Clearing, 0.02);
  EXPECT_DOUBLE_EQ(t.Full.Clearing, 0.0);
  // 1e6 * 0.02 / 100 = 200.
  EXPECT_COMM(Calc(t, 1e6, 0), 0.0, 0.0, 200.0);
  const TBoardsWithClearingCommOnly withMin(0.02, 10000.0, NotSet(), true);
  EXPECT_COMM(Calc(withMin, 1e6, 0), 0.0, 0.0, 10000.0);
  const TBoardsWithClearingCommOnly small(0.08, 2.0, NotSet(), true);
  // 1000 * 0.08 / 100 = 0.8 -> 2.0.
  EXPECT_COMM(Calc(small, 1000.0, 0), 0.0, 0.0, 2.0);
}

TEST(TBoardsWithClearingCommOnlyTest, OtherPartsOnlyByFirmRatesAndSetMinComm) {
  TBoardsWithClearingCommOnly t(0.02, 10000.0, TExchCommRate(-1.0, 0.01, -1.0), true);
  t.SetMinComm(100.0);
  // organiser 1e6 * 0.01 / 100 = 100; clearing 200 above the new minimum 100.
  EXPECT_COMM(Calc(t, 1e6, 0), 0.0, 100.0, 200.0);
}

TEST(TTPlusBondsFamilyTest, CloneKeepsRatesAndFlags) {
  TNegDealBondsTariff neg(TExchCommRate(-1.0, 0.5, -1.0), true);
  neg.SetFederalLoanBondsFlag(true);
  neg.SetSide('S');
  auto c1 = neg.Clone();
  const auto* n = dynamic_cast<const TNegDealBondsTariff*>(c1.get());
  ASSERT_NE(n, nullptr);
  EXPECT_TRUE(n->UseMin);
  EXPECT_TRUE(n->IsFederalLoanBonds);
  EXPECT_EQ(n->Side, 'S');
  EXPECT_DOUBLE_EQ(n->Min.Org, 5750.0);
  EXPECT_DOUBLE_EQ(n->FederalRates.Clearing, 0.0053125);
  EXPECT_DOUBLE_EQ(n->INIRates.Org, 0.5);

  auto c2 = TRPCBondsTariff(NotSet(), false).Clone();
  const auto* r = dynamic_cast<const TRPCBondsTariff*>(c2.get());
  ASSERT_NE(r, nullptr);
  EXPECT_DOUBLE_EQ(r->Max.Org, 201250.0);

  auto c3 = TRPCBondsTariffNoExpDate(NotSet(), true).Clone();
  const auto* x = dynamic_cast<const TRPCBondsTariffNoExpDate*>(c3.get());
  ASSERT_NE(x, nullptr);
  EXPECT_DOUBLE_EQ(x->Rates.Org, 0.008625);
  EXPECT_TRUE(x->UseMin);

  TBoardsWithClearingCommOnly clearing(0.04, 2.0, NotSet(), true);
  clearing.SetMinComm(3.0);
  auto c4 = clearing.Clone();
  const auto* b = dynamic_cast<const TBoardsWithClearingCommOnly*>(c4.get());
  ASSERT_NE(b, nullptr);
  EXPECT_DOUBLE_EQ(b->MinClearing, 3.0);
  EXPECT_DOUBLE_EQ(b->PerDay.Clearing, 0.04);

  auto c5 = TTPlusBondsTariff(NotSet(), false).Clone();
  EXPECT_NE(dynamic_cast<const TTPlusBondsTariff*>(c5.get()), nullptr);
  EXPECT_EQ(dynamic_cast<const TRPCBondsTariff*>(c5.get()), nullptr);
}

}  // namespace
