#include "commission/TMoexCurrencyCommission.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>
#include <string_view>

#include "commission/TariffExpect.h"
#include "core/DLDates.h"

namespace {

using DL::TExchCommValue;
using DL::TMoexCurrencyCommission;

const TMoexCurrencyCommission::TClassRates kNoRates;

// A firm whose main rubles is "RUB"; "RUR" and "SUR" are its equivalents,
// and "USD" has the substitute "USDX".
class TRubFirm final : public DL::ICurrencyIdentity {
 public:
  std::string_view GetMainRublesCode() const override { return "RUB"; }
  bool IsEqualCurrencies(std::string_view a, std::string_view b) const override { return Main(a) == Main(b); }

 private:
  static std::string_view Main(std::string_view c) {
    if (c == "SUR" || c == "RUR" || c == "RUB") return "RUB";
    if (c == "USDX") return "USD";
    return c;
  }
};

class MoexCurrencyCommissionTest : public ::testing::Test {
 protected:
  // The tariff prepared for a deal without dates, firm rates or flags.
  static TMoexCurrencyCommission Deal(std::string_view cls, std::string_view sec, bool swap = false, char side = 'B',
                                      const DL::ICurrencyIdentity* hub = nullptr) {
    TMoexCurrencyCommission c(hub);
    c.Init(0, 0, kNoRates, kNoRates, kNoRates, cls, sec, false, swap, false, false, side);
    return c;
  }
  // The settle days of a deal of `days` days.
  static void SetTerm(TMoexCurrencyCommission& c, long days) {
    c.SettleDay1 = 20000;
    c.SettleDay2 = 20000 + days;
  }
  // The exchange's fee of the deal for a value of 1e6.
  static TExchCommValue Fee(const TMoexCurrencyCommission& c) {
    return c.GetTSCommission(1e6, c.ClassCode, c.SecCode, c.IsSwap);
  }
  // Organiser and clearing rates in per cent applied to 1e6.
  static void ExpectRates(const TExchCommValue& got, double org, double clearing) {
    EXPECT_COMM(got, 0.0, 1e6 * org / 100.0, 1e6 * clearing / 100.0);
  }
  // The term-band rates r of one rule: organiser share and clearing share.
  static void ExpectShared(const TExchCommValue& got, double r, double orgShare, double clearingShare) {
    ExpectRates(got, orgShare * r, clearingShare * r);
  }
  static constexpr double kSpotOrg = 0.575;
  static constexpr double kSpotClearing = 0.425;
  static constexpr double kSwapOrg = 0.47916666666666663;
  static constexpr double kSwapClearing = 0.5208333333333333;
};

// ---- Fields, defaults and Init ----

TEST_F(MoexCurrencyCommissionTest, DefaultsAreTheExchangesMinimumsAndFloors) {
  const TMoexCurrencyCommission c(nullptr);
  EXPECT_EQ(c.Hub, nullptr);
  EXPECT_EQ(c.SettleDay1, -1);
  EXPECT_EQ(c.SettleDay2, -1);
  EXPECT_EQ(c.MinTS, 0.0);
  EXPECT_EQ(c.MinOrg, 57.0);
  EXPECT_EQ(c.MinClearing, 43.0);
  EXPECT_EQ(c.FloorEquity, 10000.0);
  EXPECT_EQ(c.FloorSmall, 5000.0);
  EXPECT_EQ(c.FloorCommon, 2.0);
  EXPECT_FALSE(c.NoMinimum);
  EXPECT_FALSE(c.IsCurrencyClass);
  EXPECT_FALSE(c.IsSwap);
  EXPECT_FALSE(c.IsFixedCommission);
  EXPECT_FALSE(c.IsFlagAux);
  EXPECT_EQ(c.Side, 'B');
  EXPECT_EQ(c.Percent, 100.0);
  EXPECT_EQ(c.INIRates.TS, -1.0);
  EXPECT_EQ(c.INIRates.Org, -1.0);
  EXPECT_EQ(c.INIRates.Clearing, -1.0);
}

TEST_F(MoexCurrencyCommissionTest, InitCarriesCodesFlagsAndSide) {
  TMoexCurrencyCommission c(nullptr);
  c.Init(0, 0, kNoRates, kNoRates, kNoRates, "CETS", "USD000UTSTOM", true, true, true, true, 'S');
  EXPECT_EQ(c.ClassCode, "CETS");
  EXPECT_EQ(c.SecCode, "USD000UTSTOM");
  EXPECT_TRUE(c.NoMinimum);
  EXPECT_TRUE(c.IsSwap);
  EXPECT_TRUE(c.IsFixedCommission);
  EXPECT_TRUE(c.IsFlagAux);
  EXPECT_EQ(c.Side, 'S');
  EXPECT_TRUE(c.IsCurrencyClass);
}

TEST_F(MoexCurrencyCommissionTest, CurrencyClassesAreTheFourSpotClasses) {
  for (const char* cls : {"CETS", "AETS", "FIXS", "WAPS"})
    EXPECT_TRUE(Deal(cls, "USD000UTSTOM").IsCurrencyClass) << cls;
  for (const char* cls : {"CETS_SU", "FIXN", "WAPN", "FUTS", "CNGD", "CETS_MTL", "TQBR"})
    EXPECT_FALSE(Deal(cls, "USD000UTSTOM").IsCurrencyClass) << cls;
}

TEST_F(MoexCurrencyCommissionTest, InitTakesTheFirmRatesOfTheClassInUpperCase) {
  TMoexCurrencyCommission::TClassRates ts{{"CETS", 0.001}};
  TMoexCurrencyCommission::TClassRates org{{"CETS", 0.002}, {"FUTS", 0.5}};
  TMoexCurrencyCommission c(nullptr);
  c.Init(0, 0, ts, org, kNoRates, "cets", "USD000UTSTOM", false, false, false, false, 'B');
  EXPECT_EQ(c.INIRates.TS, 0.001);
  EXPECT_EQ(c.INIRates.Org, 0.002);
  EXPECT_EQ(c.INIRates.Clearing, -1.0);
}

TEST_F(MoexCurrencyCommissionTest, InitConvertsSettleDatesToDayNumbers) {
  TMoexCurrencyCommission c(nullptr);
  c.Init(20240228, 20240302, kNoRates, kNoRates, kNoRates, "CETS", "USD000UTSTOM", false, false, false, false, 'B');
  EXPECT_EQ(c.SettleDay2 - c.SettleDay1, 3);  // a leap year
  std::tm t{};
  t.tm_year = 124;
  t.tm_mon = 1;
  t.tm_mday = 28;
  t.tm_isdst = 0;
  EXPECT_EQ(c.SettleDay1, static_cast<std::int64_t>(std::mktime(&t)) / 86400);
}

TEST_F(MoexCurrencyCommissionTest, AFailedDateConversionLeavesMinusOne) {
  for (long bad : {0L, -5L, 20241301L, 20240100L, 20240132L, 18991231L}) {
    TMoexCurrencyCommission c(nullptr);
    c.Init(bad, 20240105, kNoRates, kNoRates, kNoRates, "CETS", "X", false, false, false, false, 'B');
    EXPECT_EQ(c.SettleDay1, -1) << bad;
    EXPECT_GE(c.SettleDay2, 0);
    c.Init(20240105, bad, kNoRates, kNoRates, kNoRates, "CETS", "X", false, false, false, false, 'B');
    EXPECT_EQ(c.SettleDay2, -1) << bad;
  }
}

TEST_F(MoexCurrencyCommissionTest, ADayBeyondTheEndOfItsMonthCountsIntoTheNext) {
  EXPECT_EQ(TMoexCurrencyCommission::SettleDayNumber(20250431), TMoexCurrencyCommission::SettleDayNumber(20250501));
  EXPECT_EQ(TMoexCurrencyCommission::SettleDayNumber(20250501) - TMoexCurrencyCommission::SettleDayNumber(20250430),
            1);
}

TEST_F(MoexCurrencyCommissionTest, ASecondInitReplacesTheFirst) {
  TMoexCurrencyCommission c(nullptr);
  TMoexCurrencyCommission::TClassRates org{{"CETS", 0.002}};
  c.Init(20240105, 20240110, kNoRates, org, kNoRates, "CETS", "USD000UTSTOM", true, true, true, true, 'S');
  c.Init(0, 0, kNoRates, kNoRates, kNoRates, "FUTS", "EUR", false, false, false, false, 'B');
  EXPECT_EQ(c.ClassCode, "FUTS");
  EXPECT_EQ(c.SecCode, "EUR");
  EXPECT_EQ(c.SettleDay1, -1);
  EXPECT_EQ(c.SettleDay2, -1);
  EXPECT_EQ(c.INIRates.Org, -1.0);
  EXPECT_FALSE(c.NoMinimum || c.IsSwap || c.IsFixedCommission || c.IsFlagAux || c.IsCurrencyClass);
  EXPECT_EQ(c.Side, 'B');
}

// ---- GetTermForSecurity ----

TEST_F(MoexCurrencyCommissionTest, ACodeEndingInTomIsOneDay) {
  const TMoexCurrencyCommission c(nullptr);
  EXPECT_EQ(c.GetTermForSecurity("USD000UTSTOM", "CETS"), 1);
  EXPECT_EQ(c.GetTermForSecurity("CNYRUB_TOM", "CETS"), 1);
}

TEST_F(MoexCurrencyCommissionTest, TermSuffixesGiveTheirDays) {
  const TMoexCurrencyCommission c(nullptr);
  const struct {
    const char* sec;
    long days;
  } cases[] = {{"USDRUB_OM", 1}, {"USDRUB_TM", 1},  {"USDRUB_SP", 1},   {"USDRUB_SPT", 2},  {"USDRUB_1W", 7},
               {"USDRUB_2W", 14}, {"USDRUB_1M", 30}, {"USDRUB_2M", 60},  {"USDRUB_3M", 90},  {"USDRUB_6M", 180},
               {"USDRUB_9M", 270}, {"USDRUB_1Y", 365}, {"usdrub_1w", 7}, {"1W", 7},  {"TOM", 1}};
  for (const auto& x : cases) EXPECT_EQ(c.GetTermForSecurity(x.sec, "CETS"), x.days) << x.sec;
}

TEST_F(MoexCurrencyCommissionTest, OneWeekIsSevenAndAnUnknownSuffixIsMinusOne) {
  const TMoexCurrencyCommission c(nullptr);
  EXPECT_EQ(c.GetTermForSecurity("USDRUB_1W", "FUTS"), 7);
  EXPECT_EQ(c.GetTermForSecurity("USD000TODTMS", "FUTS"), -1);
  EXPECT_EQ(c.GetTermForSecurity("USD000000TOD", "FUTS"), -1);
  EXPECT_EQ(c.GetTermForSecurity("X", "FUTS"), -1);
}

TEST_F(MoexCurrencyCommissionTest, AnEmptyCodeHasNoTerm) {
  TMoexCurrencyCommission c(nullptr);
  SetTerm(c, 10);
  EXPECT_EQ(c.GetTermForSecurity("", "FUTS"), -1);
}

TEST_F(MoexCurrencyCommissionTest, WithoutAnyDateADateStyleCodeHasNoTerm) {
  const TMoexCurrencyCommission c(nullptr);
  EXPECT_EQ(c.GetTermForSecurity("USDRUB_0925", "FUTS"), -1);
  EXPECT_EQ(c.GetTermForSecurity("USDRUB_FWD", "CETS"), -1);
  EXPECT_EQ(c.GetTermForSecurity("GLDRUB_LTV", "CETS_MTL"), -1);
}

TEST_F(MoexCurrencyCommissionTest, ADateStyleCodeTakesTheDaysBetweenTheSettleDates) {
  TMoexCurrencyCommission c(nullptr);
  c.Init(20250101, 20250131, kNoRates, kNoRates, kNoRates, "FUTS", "USDRUB_FWD", false, false, false, false, 'B');
  EXPECT_EQ(c.GetTermForSecurity("USDRUB_FWD", "FUTS"), 30);
  EXPECT_EQ(c.GetTermForSecurity("GLDRUB_LTV", "FUTS"), 30);
  EXPECT_EQ(c.GetTermForSecurity("USDRUB_0925", "FUTS"), 30);
  // A term suffix does not look at the dates.
  EXPECT_EQ(c.GetTermForSecurity("USDRUB_1W", "FUTS"), 7);
  // The order of the dates does not count.
  c.Init(20250131, 20250101, kNoRates, kNoRates, kNoRates, "FUTS", "USDRUB_FWD", false, false, false, false, 'B');
  EXPECT_EQ(c.GetTermForSecurity("USDRUB_FWD", "FUTS"), 30);
}

TEST_F(MoexCurrencyCommissionTest, WithOneDateOnlyADigitCodeCountsToItsMonthAndYear) {
  TMoexCurrencyCommission c(nullptr);
  c.Init(20250101, 0, kNoRates, kNoRates, kNoRates, "FUTS", "USDRUB_0326", false, false, false, false, 'B');
  // Month 03 of 2026 stands for 1 January 2026 plus 3 * 30 days: 365 + 90.
  EXPECT_EQ(c.GetTermForSecurity("USDRUB_0326", "FUTS"), 455);
  // Month 01 of 2025: 30 days after the first settle date.
  EXPECT_EQ(c.GetTermForSecurity("USDRUB_0125", "FUTS"), 30);
  // A date later than the month's day counts too.
  c.Init(20250301, 0, kNoRates, kNoRates, kNoRates, "FUTS", "USDRUB_0125", false, false, false, false, 'B');
  EXPECT_EQ(c.GetTermForSecurity("USDRUB_0125", "FUTS"), 59 - 30);
  // "FWD" and "LTV" have no month: no term.
  EXPECT_EQ(c.GetTermForSecurity("USDRUB_FWD", "FUTS"), -1);
}

// ---- GetTSCommission, class by class ----

TEST_F(MoexCurrencyCommissionTest, SettledInExchangeUnitsClasses) {
  ExpectRates(Fee(Deal("CETS_SU", "USD000UTSTOM")), 0.043125, 0.031875);
  ExpectRates(Fee(Deal("CNGD_SU", "GLDRUB_TOM")), 0.0008625, 0.0006375);
  ExpectRates(Fee(Deal("LICU_SU", "GLDRUB_TOM")), 0.0008625, 0.0006375);
  ExpectRates(Fee(Deal("CNGDSWAP_SU", "GLDRUB_TOM")), 0.0002875, 0.0003125);
  ExpectRates(Fee(Deal("LICUSWAP_SU", "GLDRUB_TOM")), 0.0002875, 0.0003125);
  ExpectRates(Fee(Deal("OTHER_SU", "USD000UTSTOM")), 0.0, 0.0);
}

TEST_F(MoexCurrencyCommissionTest, ForwardClassesByTermAtBothEdgesOfEachBand) {
  const struct {
    long from, to;
    double org, clearing;
  } bands[] = {{2, 6, 0.0002875, 0.0003125},   {7, 29, 0.000575, 0.000625},     {30, 89, 0.00115, 0.00125},
               {90, 179, 0.001725, 0.001875},  {180, 269, 0.002875, 0.003125},  {270, 364, 0.0043125, 0.0046875}};
  for (const char* cls : {"FUTS", "FUTN", "FUTS_SWAP", "FUTN_SWAP"}) {
    for (const auto& b : bands) {
      for (long t : {b.from, b.to}) {
        TMoexCurrencyCommission c = Deal(cls, "USDRUB_FWD");
        SetTerm(c, t);
        SCOPED_TRACE(std::string(cls) + " term " + std::to_string(t));
        ExpectRates(Fee(c), b.org, b.clearing);
      }
    }
    for (long t : {0L, 1L, 365L, 1000L}) {
      TMoexCurrencyCommission c = Deal(cls, "USDRUB_FWD");
      SetTerm(c, t);
      SCOPED_TRACE(std::string(cls) + " term " + std::to_string(t));
      ExpectRates(Fee(c), 0.00575, 0.00625);
    }
  }
}

TEST_F(MoexCurrencyCommissionTest, AForwardClassWithAnUnknownSuffixTakesTheLastLine) {
  const TMoexCurrencyCommission c = Deal("FUTS", "USD000TODTMS");
  ASSERT_EQ(c.GetTermForSecurity(c.SecCode, c.ClassCode), -1);
  ExpectRates(Fee(c), 0.00575, 0.00625);
  // A term suffix picks its band.
  ExpectRates(Fee(Deal("FUTS", "USDRUB_1W")), 0.000575, 0.000625);
}

TEST_F(MoexCurrencyCommissionTest, FixingAndAveragePriceClasses) {
  for (const char* cls : {"WAPS", "WAPN", "FIXS", "FIXN"}) {
    SCOPED_TRACE(cls);
    ExpectRates(Fee(Deal(cls, "USD000UTSTOM")), 0.00129375, 0.00095625);
    ExpectRates(Fee(Deal(cls, "USD000UTSTOM", true)), 0.00129375, 0.00095625);
  }
}

TEST_F(MoexCurrencyCommissionTest, TheSpotClassIsNotASettledUnitsClassAndTakesTheCurrencyRate) {
  ExpectShared(Fee(Deal("CETS", "USD000UTSTOM")), 0.0045, kSpotOrg, kSpotClearing);
  // 1e6 * 0.0045 / 100 = 45: 25.875 and 19.125.
  EXPECT_COMM(Fee(Deal("CETS", "USD000UTSTOM")), 0.0, 25.875, 19.125);
}

TEST_F(MoexCurrencyCommissionTest, SpotRatesOfTheOtherCurrencyClasses) {
  ExpectShared(Fee(Deal("SDBP", "USD000UTSTOM")), 0.003, kSpotOrg, kSpotClearing);
  ExpectShared(Fee(Deal("CNGD", "GLDRUB_TOM")), 0.00225, kSpotOrg, kSpotClearing);
  ExpectShared(Fee(Deal("LICU", "GLDRUB_TOM")), 0.00225, kSpotOrg, kSpotClearing);
  ExpectShared(Fee(Deal("AETS", "USD000UTSTOM")), 0.0045, kSpotOrg, kSpotClearing);
  // A code of three characters or fewer is spot even when it reads "FWD".
  ExpectShared(Fee(Deal("CETS", "FWD")), 0.0045, kSpotOrg, kSpotClearing);
}

TEST_F(MoexCurrencyCommissionTest, CurrencySwapsAndForwardsByTermAtBothEdges) {
  const struct {
    long from, to;
    double r;
  } bands[] = {{0, 7, 0.0006},     {8, 14, 0.0012},    {15, 60, 0.0024},  {61, 90, 0.0036},
               {91, 180, 0.006},   {181, 270, 0.009},  {271, 2000, 0.012}};
  for (const auto& b : bands) {
    for (long t : {b.from, b.to}) {
      SCOPED_TRACE("term " + std::to_string(t));
      TMoexCurrencyCommission swap = Deal("CETS", "USD000TODTOM", true);
      swap.SecCode = "USDRUB_0125";  // a date-style code, so the settle days decide
      SetTerm(swap, t);
      ExpectShared(Fee(swap), b.r, kSwapOrg, kSwapClearing);
      TMoexCurrencyCommission forward = Deal("CETS", "USDRUB_FWD");
      SetTerm(forward, t);
      ExpectShared(Fee(forward), b.r, kSwapOrg, kSwapClearing);
    }
  }
  // No term at all is under 8 days.
  ExpectShared(Fee(Deal("CETS", "USDRUB_FWD")), 0.0006, kSwapOrg, kSwapClearing);
}

TEST_F(MoexCurrencyCommissionTest, MetalForwardsByTermAtBothEdges) {
  const struct {
    long from, to;
    double r;
  } bands[] = {{2, 6, 0.005}, {7, 29, 0.01}, {30, 89, 0.02}, {90, 179, 0.03}, {180, 269, 0.05}};
  for (const char* sec : {"GLDRUB_LTV", "SLVRUB_FWD"}) {
    for (const auto& b : bands) {
      for (long t : {b.from, b.to}) {
        SCOPED_TRACE(std::string(sec) + " term " + std::to_string(t));
        TMoexCurrencyCommission c = Deal("CETS_MTL", sec);
        SetTerm(c, t);
        ExpectShared(Fee(c), b.r, kSpotOrg, kSpotClearing);
      }
    }
    for (long t : {0L, 1L, 270L, 400L}) {
      SCOPED_TRACE(std::string(sec) + " term " + std::to_string(t));
      TMoexCurrencyCommission c = Deal("CETS_MTL", sec);
      SetTerm(c, t);
      ExpectShared(Fee(c), 0.075, kSpotOrg, kSpotClearing);
    }
  }
}

TEST_F(MoexCurrencyCommissionTest, MetalSwapsByTermAtBothEdges) {
  const struct {
    long t;
    double org, clearing;
  } cases[] = {{1, 0.0002875, 0.0002125}, {7, 0.0002875, 0.0002125}, {0, 0.00115, 0.00085},
               {8, 0.00115, 0.00085},     {179, 0.00115, 0.00085},   {180, 0.002875, 0.002125},
               {500, 0.002875, 0.002125}};
  for (const auto& x : cases) {
    SCOPED_TRACE("term " + std::to_string(x.t));
    TMoexCurrencyCommission c = Deal("CETS_MTL", "GLD_0125", true);
    SetTerm(c, x.t);
    ExpectRates(Fee(c), x.org, x.clearing);
  }
  // A metal swap without a term is under 180 days.
  ExpectRates(Fee(Deal("CETS_MTL", "GLDRUB_TOD", true)), 0.00115, 0.00085);
}

TEST_F(MoexCurrencyCommissionTest, GoldBoughtWithoutForwardSuffixPaysTheFixedAmounts) {
  for (double value : {1.0, 1e6, 1e12}) {
    const TMoexCurrencyCommission c = Deal("CETS_MTL", "GLDRUB_TOM");
    EXPECT_COMM(c.GetTSCommission(value, c.ClassCode, c.SecCode, false), 0.0, 57.0, 43.0);
  }
  EXPECT_COMM(Deal("CETS_MTL", "GLDRUB_TOM").CalcCommValue(1e9, 1000.0, 0, 0), 0.0, 57.0, 43.0);
}

TEST_F(MoexCurrencyCommissionTest, MetalsSoldAndOtherMetals) {
  ExpectRates(Fee(Deal("CETS_MTL", "GLDRUB_TOM", false, 'S')), 0.0115, 0.0085);
  for (const char* sec : {"PLTRUB_TOM", "PLDRUB_TOM"}) {
    SCOPED_TRACE(sec);
    EXPECT_COMM(Fee(Deal("CETS_MTL", sec)), 0.0, 57.0, 43.0);
    ExpectRates(Fee(Deal("CETS_MTL", sec, false, 'S')), 0.01725, 0.01275);
  }
  ExpectRates(Fee(Deal("CETS_MTL", "SLVRUB_TOM")), 0.008625, 0.006375);
  ExpectRates(Fee(Deal("CETS_MTL", "SLVRUB_TOM", false, 'S')), 0.008625, 0.006375);
}

// ---- CalcCommValue: firm rates, minimums, floors ----

TEST_F(MoexCurrencyCommissionTest, FirmRatesReplaceTheirParts) {
  TMoexCurrencyCommission::TClassRates ts{{"CETS", 0.01}};
  TMoexCurrencyCommission::TClassRates org{{"CETS", 0.02}};
  TMoexCurrencyCommission::TClassRates clearing{{"CETS", 0.0}};
  TMoexCurrencyCommission c(nullptr);
  c.Init(0, 0, ts, org, clearing, "CETS", "USD000UTSTOM", true, false, false, false, 'B');
  EXPECT_COMM(c.CalcCommValue(1e6, 100.0, 0, 0), 100.0, 200.0, 0.0);
  // Without NoMinimum the zero clearing part is raised to its minimum.
  c.NoMinimum = false;
  EXPECT_COMM(c.CalcCommValue(1e6, 100.0, 0, 0), 100.0, 200.0, 43.0);
}

TEST_F(MoexCurrencyCommissionTest, NoMinimumGivesTheFeeAsItIs) {
  TMoexCurrencyCommission c = Deal("CETS", "USD000UTSTOM");
  c.NoMinimum = true;
  EXPECT_COMM(c.CalcCommValue(1e6, 1.0, 0, 0), 0.0, 25.875, 19.125);
}

TEST_F(MoexCurrencyCommissionTest, EachPartIsRaisedToItsMinimum) {
  const TMoexCurrencyCommission c = Deal("FUTS", "USDRUB_1W");
  EXPECT_COMM(c.CalcCommValue(1e6, 1.0, 0, 0), 0.0, 57.0, 43.0);
  // Above the minimums nothing changes.
  EXPECT_COMM(c.CalcCommValue(1e9, 1.0, 0, 0), 0.0, 1e9 * 0.000575 / 100, 1e9 * 0.000625 / 100);
  TMoexCurrencyCommission withTS = c;
  withTS.MinTS = 5.0;
  EXPECT_COMM(withTS.CalcCommValue(1e6, 1.0, 0, 0), 5.0, 57.0, 43.0);
}

TEST_F(MoexCurrencyCommissionTest, FortyNineDollarsAgainstRublesHaveTheFloorOfTenThousand) {
  const TMoexCurrencyCommission c = Deal("CETS", "USD000UTSTOM");
  EXPECT_EQ(c.GetFloor(49.0), 10000.0);
  EXPECT_COMM(c.CalcCommValue(1e6, 49.0, 0, 0), 0.0, 10000.0, 0.0);
  // A fee above the floor stays as it is.
  EXPECT_COMM(c.CalcCommValue(1e9, 49.0, 0, 0), 0.0, 25875.0, 19125.0);
}

TEST_F(MoexCurrencyCommissionTest, FiftyHaveTheCommonFloorOfTwo) {
  TMoexCurrencyCommission c = Deal("CETS", "USD000UTSTOM");
  EXPECT_EQ(c.GetFloor(50.0), 2.0);
  EXPECT_EQ(c.GetFloor(ZDepoCount(50, 0)), 2.0);
  EXPECT_EQ(c.GetFloor(ZDepoCount(4999, 2)), 10000.0);
  // With the minimums above the floor they decide ...
  EXPECT_COMM(c.CalcCommValue(1e6, 50.0, 0, 0), 0.0, 57.0, 43.0);
  // ... and without them a small fee goes up to the floor.
  c.MinOrg = 0.0;
  c.MinClearing = 0.0;
  EXPECT_COMM(c.CalcCommValue(1000.0, 50.0, 0, 0), 0.0, 2.0, 0.0);
}

TEST_F(MoexCurrencyCommissionTest, TheFloorComparesWithATenthOfAUnit) {
  TMoexCurrencyCommission c = Deal("CETS", "USD000UTSTOM");
  c.MinOrg = 0.0;
  c.MinClearing = 0.0;
  // The fee is 0.0045 per cent of the value: 1.95 is within 0.1 of the
  // floor of 2 and stays; 1.85 is below it.
  const TExchCommValue near = c.CalcCommValue(1.95 / 0.0045 * 100, 50.0, 0, 0);
  EXPECT_NEAR(near.Org + near.Clearing, 1.95, 1e-9);
  EXPECT_COMM(c.CalcCommValue(1.85 / 0.0045 * 100, 50.0, 0, 0), 0.0, 2.0, 0.0);
}

TEST_F(MoexCurrencyCommissionTest, SmallDealsOfOtherPairsHaveTheSmallFloor) {
  EXPECT_EQ(Deal("CETS", "EURUSD000TOM").GetFloor(1.0), 5000.0);
  EXPECT_EQ(Deal("CETS", "CNYRUB_TOM").GetFloor(1.0), 5000.0);
  EXPECT_EQ(Deal("CETS", "GLDRUB_TOM").GetFloor(1.0), 5000.0);
  EXPECT_EQ(Deal("CETS", "EUR_RUB__TOM").GetFloor(1.0), 10000.0);
  EXPECT_EQ(Deal("CETS", "EUR000TODTOM").GetFloor(1.0), 10000.0);
  EXPECT_EQ(Deal("CETS", "USDRUR_TOM").GetFloor(1.0), 10000.0);
  EXPECT_EQ(Deal("CETS", "12").GetFloor(1.0), 5000.0);
}

TEST_F(MoexCurrencyCommissionTest, OnlySpotDealsOfCurrencyClassesHaveAFloor) {
  EXPECT_EQ(Deal("CETS", "USD000UTSTOM", true).GetFloor(1.0), 0.0);
  EXPECT_EQ(Deal("FUTS", "USD000UTSTOM").GetFloor(1.0), 0.0);
  EXPECT_EQ(Deal("CETS_SU", "USD000UTSTOM").GetFloor(1.0), 0.0);
  EXPECT_EQ(Deal("AETS", "USD000UTSTOM").GetFloor(1.0), 10000.0);
  EXPECT_EQ(Deal("FIXS", "USD000UTSTOM").GetFloor(1.0), 10000.0);
  EXPECT_EQ(Deal("WAPS", "USD000UTSTOM").GetFloor(100.0), 2.0);
}

TEST_F(MoexCurrencyCommissionTest, TheFloorAsksTheFirmWhatItsRublesAre) {
  const TRubFirm firm;
  EXPECT_EQ(Deal("CETS", "USD000UTSTOM", false, 'B', &firm).GetFloor(1.0), 10000.0);
  EXPECT_EQ(Deal("CETS", "USDSUR_TOM", false, 'B', &firm).GetFloor(1.0), 10000.0);
  EXPECT_EQ(Deal("CETS", "USDKZT_TOM", false, 'B', &firm).GetFloor(1.0), 5000.0);
}

TEST_F(MoexCurrencyCommissionTest, FixedCommissionOfTheSettledUnitsSpotClassIsTheFloor) {
  TMoexCurrencyCommission c = Deal("CETS_SU", "USD000UTSTOM");
  c.IsFixedCommission = true;
  // CETS_SU is none of the floor classes: the floor is 0.
  EXPECT_COMM(c.CalcCommValue(1e9, 1.0, 0, 0), 0.0, 0.0, 0.0);
}

TEST_F(MoexCurrencyCommissionTest, FixedCommissionOfOtherClassesIsTheFixedAmountsCrossed) {
  for (const char* cls : {"CETS", "FUTS", "CETS_MTL"}) {
    TMoexCurrencyCommission c = Deal(cls, "USD000UTSTOM");
    c.IsFixedCommission = true;
    SCOPED_TRACE(cls);
    EXPECT_COMM(c.CalcCommValue(1e9, 1.0, 0, 0), 43.0, 0.0, 57.0);
  }
}

TEST_F(MoexCurrencyCommissionTest, CloneKeepsEveryField) {
  TMoexCurrencyCommission c = Deal("CETS", "USD000UTSTOM", false, 'S');
  c.MinOrg = 1.0;
  c.FloorCommon = 3.0;
  c.INIRates = DL::TExchCommRate(0.1, -1.0, 0.2);
  SetTerm(c, 12);
  const std::unique_ptr<DL::ABoardTariff> copy = c.Clone();
  const auto& k = dynamic_cast<const TMoexCurrencyCommission&>(*copy);
  EXPECT_EQ(k.ClassCode, "CETS");
  EXPECT_EQ(k.SecCode, "USD000UTSTOM");
  EXPECT_EQ(k.Side, 'S');
  EXPECT_EQ(k.MinOrg, 1.0);
  EXPECT_EQ(k.FloorCommon, 3.0);
  EXPECT_EQ(k.SettleDay2 - k.SettleDay1, 12);
  EXPECT_EQ(k.INIRates.TS, 0.1);
  EXPECT_EQ(k.INIRates.Clearing, 0.2);
  EXPECT_COMM(k.CalcCommValue(1e6, 100.0, 0, 0), c.CalcCommValue(1e6, 100.0, 0, 0).TS,
              c.CalcCommValue(1e6, 100.0, 0, 0).Org, c.CalcCommValue(1e6, 100.0, 0, 0).Clearing);
}

TEST_F(MoexCurrencyCommissionTest, CurrencyMarketClasses) {
  for (const char* cls : {"CETS", "AETS", "FIXS", "FIXN", "WAPS", "WAPN", "FUTS", "FUTN", "FUTS_SWAP", "FUTN_SWAP",
                          "CNGD", "LICU", "CETS_SU", "CNGDSWAP_SU", "CETS_MTL", "XMTL", "A_SU"})
    EXPECT_TRUE(TMoexCurrencyCommission::IsCurrencyMarketClass(cls)) << cls;
  for (const char* cls : {"TQBR", "SDBP", "EQRP", "cets", "", "DEFAULT"})
    EXPECT_FALSE(TMoexCurrencyCommission::IsCurrencyMarketClass(cls)) << cls;
}

}  // namespace

namespace {

TEST(MoexCurrencyCommissionDatesTest, RepeatedAndManyDatesConvertAlike) {
  TMoexCurrencyCommission c(nullptr);
  const long dates[] = {20250101, 20250102, 20250103, 20250104, 20250105, 20250106, 20250101, 20250105, 0, 20251340};
  for (int round = 0; round < 3; ++round) {
    for (long d1 : dates) {
      for (long d2 : dates) {
        c.Init(d1, d2, kNoRates, kNoRates, kNoRates, "CETS", "USD000UTSTOM", false, false, false, false, 'B');
        ASSERT_EQ(c.SettleDay1, TMoexCurrencyCommission::SettleDayNumber(d1)) << d1;
        ASSERT_EQ(c.SettleDay2, TMoexCurrencyCommission::SettleDayNumber(d2)) << d2;
      }
    }
  }
}

}  // namespace

namespace {

// The tariff converts settle dates as the library's date helper does: the
// same dates convert, to the same midnight.
TEST(MoexCurrencyCommissionDatesTest, SettleDaysFollowTheServerDateConversion) {
  for (long date : {0L, 19000101L, 19700101L, 20240229L, 20241231L, 20250431L, 20251301L, 20250100L, 20250132L,
                    18991231L, -20250101L, 99991231L}) {
    std::tm t{};
    const bool converts = DL::ConvertServerSettleDateToTm(date, t);
    const std::int64_t day = TMoexCurrencyCommission::SettleDayNumber(date);
    if (!converts) {
      EXPECT_EQ(day, -1) << date;
      continue;
    }
    const std::time_t seconds = std::mktime(&t);
    EXPECT_EQ(day, seconds == static_cast<std::time_t>(-1) ? -1 : static_cast<std::int64_t>(seconds) / 86400)
        << date;
  }
}

}  // namespace
