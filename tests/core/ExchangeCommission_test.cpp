// The exchange commission of a deal for a host engine: the tariff picked for
// each board family and for the currency market, the terms it is given, and
// the failures.
#include "core/ExchangeCommission.h"

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

#include "commission/BondsTariffs.h"
#include "commission/GZBTariffs.h"
#include "commission/RepoTariffs.h"
#include "commission/TDarkPool.h"
#include "commission/TDoubleSidedDealsWithCC.h"
#include "commission/TNormalTariff.h"
#include "commission/TTPlusBondsTariff.h"
#include "commission/TVolumeScaledBondsTariff.h"
#include "commission/TariffExpect.h"
#include "core/TFirmManager.h"
#include "core/TStorageHub.h"
#include "core/ZDLErrors.h"
#include "support/TTodayDate.h"

namespace {

using DL::ABoardTariff;
using DL::ExchangeBondDays;
using DL::ExchangeRepoDays;
using DL::GetExchangeCommission;
using DL::TExchangeDeal;
using DL::TExchCommValue;
using DL::TStorageHub;

class ExchangeCommissionTest : public ::testing::Test {
 protected:
  ExchangeCommissionTest() : m_today(20250110) {}

  static TExchangeDeal Deal(std::string_view board, std::string_view sec, double value = 1e6) {
    TExchangeDeal d;
    d.board = board;
    d.security = sec;
    d.value = value;
    d.qty = 1000.0;
    return d;
  }
  static TExchCommValue Commission(TStorageHub& hub, const TExchangeDeal& deal) {
    TExchCommValue out(-7.0, -7.0, -7.0);
    EXPECT_EQ(GetExchangeCommission(hub, deal, &out), ZDL_OK);
    return out;
  }

  Library::TScopedTodayDate m_today;
};

// One board of each family of the schedule, the board of "DEFAULT", and the
// tariff class that prices it.
struct TFamily {
  const char* board;
  const std::type_info& type;
};
const TFamily kFamilies[] = {
    {"TQCB", typeid(DL::TTPlusBondsTariff)},        {"PSOB", typeid(DL::TRPCBondsTariff)},
    {"PTOB", typeid(DL::TRPCBondsTariffNoExpDate)}, {"PSBB", typeid(DL::TNegDealBondsTariff)},
    {"PAEU", typeid(DL::TVolumeScaledBondsTariff)}, {"TQBR", typeid(DL::TNormalTariff)},
    {"RPCC", typeid(DL::TModifiedREPO)},            {"EQWD", typeid(DL::TMoexREPO)},
    {"TQQD", typeid(DL::TOtherBondsTariff)},        {"TQNB", typeid(DL::TBondsTariff)},
    {"EQDP", typeid(DL::TDarkPool)},                {"PSNB", typeid(DL::TBondsAtNegot)},
    {"RPEQ", typeid(DL::TSharesEuroBondsAtREPO)},   {"MAIN", typeid(DL::TGZBSharesBondsAtMain)},
    {"NEGD", typeid(DL::TGZBBondsAtNegot)},         {"RPCB", typeid(DL::TGZBBondsAtREPO)},
    {"OCTR", typeid(DL::TDoubleSidedDealsWithCC)},  {"MTQR", typeid(DL::TBoardsWithClearingCommOnly)},
    {"XXXX", typeid(DL::TNormalTariff)},
};

TEST_F(ExchangeCommissionTest, EachBoardFamilyIsPricedByItsTariffWithTheDealsTerms) {
  TStorageHub hub("", 2);
  for (const TFamily& f : kFamilies) {
    SCOPED_TRACE(f.board);
    const ABoardTariff* tariff = hub.GetBoardTariff(f.board);
    ASSERT_NE(tariff, nullptr);
    EXPECT_EQ(typeid(*tariff), f.type);
    for (long settle : {0L, 20250115L, 20250601L}) {
      TExchangeDeal deal = Deal(f.board, "SEC1");
      deal.settleDate1 = settle;
      const unsigned bondDays = settle == 0 ? 0 : settle == 20250115L ? 5 : 142;
      ASSERT_EQ(ExchangeBondDays(deal), bondDays);
      const unsigned repoDays = std::string(f.board) == "EQWD" ? 7 : 0;
      ASSERT_EQ(ExchangeRepoDays(hub, f.board, deal), repoDays);
      const TExchCommValue want = tariff->CalcCommValue(deal.value, deal.qty, repoDays, bondDays);
      EXPECT_COMM(Commission(hub, deal), want.TS, want.Org, want.Clearing);
    }
  }
}

TEST_F(ExchangeCommissionTest, WorkedValuesOfSomeBoards) {
  TStorageHub hub("", 2);
  // Shares: 0.01725 and 0.01275 per cent.
  EXPECT_COMM(Commission(hub, Deal("TQBR", "SBER")), 0.0, 172.5, 127.5);
  // Board without a tariff: the default trading-system rate 0.0105 per cent.
  EXPECT_COMM(Commission(hub, Deal("XXXX", "SBER")), 105.0, 0.0, 0.0);
  // One-week repo: the value counts seven times, 0.00015 and 0.00038 per cent.
  EXPECT_COMM(Commission(hub, Deal("EQWD", "SBER")), 0.0, 10.5, 26.6);
  // T+ bonds settled in 5 days: the per-day rates 5.75e-05 and 4.25e-05.
  TExchangeDeal bond = Deal("TQCB", "RU000A0JX0J2");
  bond.settleDate1 = 20250115;
  EXPECT_COMM(Commission(hub, bond), 0.0, 2.875, 2.125);
  // The currency market: 0.0045 per cent shared 0.575 : 0.425.
  TExchangeDeal fx = Deal("CETS", "USD000UTSTOM", 1e9);
  EXPECT_COMM(Commission(hub, fx), 0.0, 25875.0, 19125.0);
}

TEST_F(ExchangeCommissionTest, BoardCodesAreReadIgnoringCase) {
  TStorageHub hub("", 2);
  EXPECT_COMM(Commission(hub, Deal("tqbr", "SBER")), 0.0, 172.5, 127.5);
  EXPECT_COMM(Commission(hub, Deal("cets", "USD000UTSTOM", 1e9)), 0.0, 25875.0, 19125.0);
}

TEST_F(ExchangeCommissionTest, TheFirmsRatesOfABoardApply) {
  TStorageHub hub("[ORGCOMMISSION]\ntqbr=0.001\n", 2);
  EXPECT_COMM(Commission(hub, Deal("TQBR", "SBER")), 0.0, 10.0, 127.5);
}

TEST_F(ExchangeCommissionTest, CurrencyClassesArePricedByTheCurrencyTariffWithTheFirmsRatesOfTheClass) {
  TStorageHub hub("[ORGCOMMISSION]\nCETS=0.001\n[CLEARINGCOMMISSION]\nFUTS=0.002\n", 2);
  EXPECT_COMM(Commission(hub, Deal("CETS", "USD000UTSTOM", 1e9)), 0.0, 10000.0, 19125.0);
  // The class is not priced by the tariff the firm's rate adds for the board.
  TExchangeDeal fwd = Deal("FUTS", "USDRUB_1W", 1e9);
  EXPECT_COMM(Commission(hub, fwd), 0.0, 1e9 * 0.000575 / 100, 1e9 * 0.002 / 100);
  const DL::TMoexCurrencyCommission& tariff = hub.GetMoexCurrencyCommission();
  EXPECT_EQ(tariff.ClassCode, "FUTS");
  EXPECT_EQ(tariff.SecCode, "USDRUB_1W");
}

TEST_F(ExchangeCommissionTest, TheCurrencyTariffIsOneObjectPerFirm) {
  TStorageHub hub("", 2);
  DL::TMoexCurrencyCommission* first = &hub.GetMoexCurrencyCommission();
  TExchCommValue out;
  ASSERT_EQ(GetExchangeCommission(hub, Deal("CETS", "USD000UTSTOM"), &out), ZDL_OK);
  EXPECT_EQ(&hub.GetMoexCurrencyCommission(), first);
  TStorageHub other("", 2);
  EXPECT_NE(&other.GetMoexCurrencyCommission(), first);
}

TEST_F(ExchangeCommissionTest, TheCurrencyDealCarriesQuantityDatesAndFlags) {
  TStorageHub hub("", 2);
  TExchangeDeal small = Deal("CETS", "USD000UTSTOM");
  small.qty = 49.0;
  EXPECT_COMM(Commission(hub, small), 0.0, 10000.0, 0.0);
  small.qty = 50.0;
  EXPECT_COMM(Commission(hub, small), 0.0, 57.0, 43.0);
  small.noMinimum = true;
  EXPECT_COMM(Commission(hub, small), 0.0, 25.875, 19.125);
  TExchangeDeal fixed = Deal("CETS", "USD000UTSTOM");
  fixed.isFixedCommission = true;
  EXPECT_COMM(Commission(hub, fixed), 43.0, 0.0, 57.0);
  // A swap of 30 days by its settle dates.
  TExchangeDeal swap = Deal("CETS", "USDRUB_0125", 1e9);
  swap.isSwap = true;
  swap.settleDate1 = 20250101;
  swap.settleDate2 = 20250131;
  EXPECT_COMM(Commission(hub, swap), 0.0, 1e9 * 0.0024 * 0.47916666666666663 / 100,
              1e9 * 0.0024 * 0.5208333333333333 / 100);
  // Gold bought, and sold.
  TExchangeDeal gold = Deal("CETS_MTL", "GLDRUB_TOM", 1e9);
  EXPECT_COMM(Commission(hub, gold), 0.0, 57.0, 43.0);
  gold.side = 'S';
  EXPECT_COMM(Commission(hub, gold), 0.0, 1e9 * 0.0115 / 100, 1e9 * 0.0085 / 100);
}

TEST_F(ExchangeCommissionTest, TheRepoTermIsGivenOrTheBoardsOrByTheSettleDates) {
  TStorageHub hub("", 2);
  TExchangeDeal repo = Deal("EQWD", "SBER");
  EXPECT_EQ(ExchangeRepoDays(hub, "EQWD", repo), 7u);
  EXPECT_EQ(ExchangeRepoDays(hub, "GCOM", repo), 30u);
  repo.repoTerm = 3;
  EXPECT_EQ(ExchangeRepoDays(hub, "EQWD", repo), 3u);
  EXPECT_COMM(Commission(hub, repo), 0.0, 4.5, 11.4);
  repo.repoTerm = 0;
  EXPECT_EQ(ExchangeRepoDays(hub, "EQWD", repo), 0u);
  TExchangeDeal dated = Deal("RPCC", "SBER");
  dated.settleDate1 = 20250125;
  dated.settleDate2 = 20250115;
  EXPECT_EQ(ExchangeRepoDays(hub, "RPCC", dated), 10u);
  dated.settleDate2 = 0;
  EXPECT_EQ(ExchangeRepoDays(hub, "RPCC", dated), 0u);
  dated.settleDate2 = 20251340;
  EXPECT_EQ(ExchangeRepoDays(hub, "RPCC", dated), 0u);
}

TEST_F(ExchangeCommissionTest, TheBondTermCountsCalendarDaysFromToday) {
  TExchangeDeal d = Deal("TQCB", "X");
  d.settleDate1 = 20250110;
  EXPECT_EQ(ExchangeBondDays(d), 0u);
  d.settleDate1 = 20250109;
  EXPECT_EQ(ExchangeBondDays(d), 0u);
  d.settleDate1 = 20260110;
  EXPECT_EQ(ExchangeBondDays(d), 365u);
  d.settleDate1 = 20250100;
  EXPECT_EQ(ExchangeBondDays(d), 0u);
  {
    const Library::TScopedTodayDate leap(20240228);
    d.settleDate1 = 20240301;
    EXPECT_EQ(ExchangeBondDays(d), 2u);
  }
}

TEST_F(ExchangeCommissionTest, ASaleOnABoardThatReadsTheSideUsesASaleSideCopy) {
  TStorageHub hub("[General]\nUseBondPlacementReducedMOEXRate=1\n", 2);
  TExchangeDeal buy = Deal("PAEU", "RU000A0JX0J2", 1e9);
  TExchangeDeal sale = buy;
  sale.side = 'S';
  // Placement: up to 7.5e12 the sale pays the second row without a base.
  EXPECT_COMM(Commission(hub, buy), 0.0, 1e9 * 0.008625 / 100, 1e9 * 0.006375 / 100);
  EXPECT_COMM(Commission(hub, sale), 0.0, 1e9 * 0.0071875 / 100, 1e9 * 0.0053125 / 100);
  EXPECT_COMM(Commission(hub, buy), 0.0, 1e9 * 0.008625 / 100, 1e9 * 0.006375 / 100);
  const ABoardTariff* copy = hub.GetSellSideBoardTariff("PAEU");
  EXPECT_NE(copy, hub.GetBoardTariff("PAEU"));
  EXPECT_EQ(hub.GetSellSideBoardTariff("paeu"), copy);
  EXPECT_EQ(dynamic_cast<const DL::ABondsTariff&>(*copy).Side, 'S');
  EXPECT_EQ(dynamic_cast<const DL::ABondsTariff&>(*hub.GetBoardTariff("PAEU")).Side, 'B');
  // A tariff that does not read the side is its own sale-side tariff.
  EXPECT_EQ(hub.GetSellSideBoardTariff("TQBR"), hub.GetBoardTariff("TQBR"));
  EXPECT_EQ(hub.GetSellSideBoardTariff("XXXX"), hub.GetBoardTariff("XXXX"));
}

TEST_F(ExchangeCommissionTest, BadArguments) {
  TStorageHub hub("", 2);
  EXPECT_EQ(GetExchangeCommission(hub, Deal("TQBR", "SBER"), nullptr), ZDL_BAD_ARGUMENT);
  TExchCommValue out(1.0, 1.0, 1.0);
  EXPECT_EQ(GetExchangeCommission(hub, Deal("", "SBER"), &out), ZDL_BAD_ARGUMENT);
  EXPECT_COMM(out, 0.0, 0.0, 0.0);
  EXPECT_EQ(GetExchangeCommission(hub, Deal("ABCDEFGHIJKLM", "SBER"), &out), ZDL_CLASS_CODE_TOO_LONG);
  EXPECT_EQ(GetExchangeCommission(hub, Deal("ABCDEFGHIJKL", "SBER"), &out), ZDL_OK);
  EXPECT_EQ(GetExchangeCommission(hub, Deal("TQBR", "ABCDEFGHIJKLM"), &out), ZDL_SEC_CODE_TOO_LONG);
}

TEST_F(ExchangeCommissionTest, ByFirmCode) {
  DL::TFirmManager firms;
  ASSERT_NE(firms.AddInfoStorage("MC0001", "[ORGCOMMISSION]\nTQBR=0.001\n", 2), nullptr);
  TExchCommValue out(1.0, 1.0, 1.0);
  EXPECT_EQ(GetExchangeCommission(firms, "NOFIRM", Deal("TQBR", "SBER"), &out), ZDL_FIRM_NOT_LOADED);
  EXPECT_COMM(out, 0.0, 0.0, 0.0);
  EXPECT_EQ(GetExchangeCommission(firms, nullptr, Deal("TQBR", "SBER"), &out), ZDL_FIRM_NOT_LOADED);
  ASSERT_EQ(GetExchangeCommission(firms, "MC0001", Deal("TQBR", "SBER"), &out), ZDL_OK);
  EXPECT_COMM(out, 0.0, 10.0, 127.5);
}

}  // namespace
