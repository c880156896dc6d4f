// A firm's board tariffs after a load: the default board, the exchange's
// schedule, the firm's rates per board and the boards the firm adds.
#include <gtest/gtest.h>

#include <stdexcept>
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
#include "core/TStorageHub.h"

namespace {

using DL::ABoardTariff;
using DL::TStorageHub;

template <class T>
const T& As(const TStorageHub& hub, const char* board) {
  const ABoardTariff* t = hub.GetBoardTariffs().Find(board);
  EXPECT_NE(t, nullptr) << board;
  if (t == nullptr) throw std::runtime_error(board);
  EXPECT_EQ(typeid(*t), typeid(T)) << board;
  return dynamic_cast<const T&>(*t);
}

void ExpectNotSet(const DL::TExchCommRate& r) {
  EXPECT_DOUBLE_EQ(r.TS, -1.0);
  EXPECT_DOUBLE_EQ(r.Org, -1.0);
  EXPECT_DOUBLE_EQ(r.Clearing, -1.0);
}

TEST(HubTariffsTest, DefaultBoardHasTheDefaultRatesAndNoFirmRates) {
  const TStorageHub hub("", 2);
  const auto& def = As<DL::TNormalTariff>(hub, "DEFAULT");
  EXPECT_DOUBLE_EQ(def.Rates.TS, 0.0105);
  EXPECT_DOUBLE_EQ(def.Rates.Org, 0.0);
  EXPECT_DOUBLE_EQ(def.Rates.Clearing, 0.0);
  ExpectNotSet(def.INIRates);
  EXPECT_FALSE(def.UseMin);
  // 1e6 * 0.0105 / 100 = 105.
  const DL::TExchCommValue v = def.CalcCommValue(1e6, 0.0, 0, 0);
  EXPECT_DOUBLE_EQ(v.TS, 105.0);
  EXPECT_DOUBLE_EQ(v.Org, 0.0);
  EXPECT_DOUBLE_EQ(v.Clearing, 0.0);
}

TEST(HubTariffsTest, AnUnknownBoardGetsTheDefaultTariff) {
  const TStorageHub hub("", 2);
  EXPECT_EQ(hub.GetBoardTariffs().Find("XXXX"), nullptr);
  EXPECT_EQ(hub.GetBoardTariff("XXXX"), hub.GetBoardTariffs().Find("DEFAULT"));
  EXPECT_EQ(hub.GetBoardTariff("tqbr"), hub.GetBoardTariffs().Find("TQBR"));
}

TEST(HubTariffsTest, DefaultRatesComeFromTheSectionsTSOrgAndClearing) {
  const TStorageHub hub("[TS]\nCOMMISSION=0.02\n[ORG]\ncommission=0.003\n[CLEARING]\nCOMMISSION=0.004\n", 2);
  const auto& def = As<DL::TNormalTariff>(hub, "DEFAULT");
  EXPECT_DOUBLE_EQ(def.Rates.TS, 0.02);
  EXPECT_DOUBLE_EQ(def.Rates.Org, 0.003);
  EXPECT_DOUBLE_EQ(def.Rates.Clearing, 0.004);
}

TEST(HubTariffsTest, TheScheduleHasOneTariffPerBoardPlusTheDefault) {
  const TStorageHub hub("", 2);
  // 362 board names in the schedule, "PYGC" twice: 361 boards and "DEFAULT".
  EXPECT_EQ(hub.GetBoardTariffs().Size(), 362u);
}

TEST(HubTariffsTest, EachRowBuildsItsClassWithItsRates) {
  const TStorageHub hub("", 2);
  As<DL::TTPlusBondsTariff>(hub, "TQCB");
  As<DL::TRPCBondsTariff>(hub, "PSIY");
  As<DL::TRPCBondsTariffNoExpDate>(hub, "PTUD");
  EXPECT_DOUBLE_EQ(As<DL::TNegDealBondsTariff>(hub, "PSBE").Min.Org, 5750.0);
  As<DL::TVolumeScaledBondsTariff>(hub, "PSAU");
  const auto& tqbr = As<DL::TNormalTariff>(hub, "TQBR");
  EXPECT_DOUBLE_EQ(tqbr.Rates.TS, 0.0);
  EXPECT_DOUBLE_EQ(tqbr.Rates.Org, 0.01725);
  EXPECT_DOUBLE_EQ(tqbr.Rates.Clearing, 0.01275);
  EXPECT_FALSE(tqbr.MinTS);
  EXPECT_DOUBLE_EQ(As<DL::TNormalTariff>(hub, "PSBB_EQ").Rates.Org, 0.008625);
  EXPECT_DOUBLE_EQ(As<DL::TNormalTariff>(hub, "TQDU").Rates.Clearing, 0.002125);
  EXPECT_DOUBLE_EQ(As<DL::TNormalTariff>(hub, "SDBP").Rates.Org, 0.00092);
  const auto& eqcc = As<DL::TNormalTariff>(hub, "EQCC");
  EXPECT_DOUBLE_EQ(eqcc.Rates.TS, 0.0025);
  EXPECT_TRUE(eqcc.MinTS);
  EXPECT_DOUBLE_EQ(As<DL::TNormalTariff>(hub, "PSOC").Rates.TS, 0.006);
  EXPECT_DOUBLE_EQ(As<DL::TNormalTariff>(hub, "PTQI").Rates.Clearing, 0.00425);
  EXPECT_DOUBLE_EQ(As<DL::TNormalTariff>(hub, "TDPU").Rates.Org, 0.0);
  EXPECT_DOUBLE_EQ(As<DL::TModifiedREPO>(hub, "RPOC").First, 0.0015);
  EXPECT_DOUBLE_EQ(As<DL::TModifiedREPO>(hub, "RPQI_BND").Third, 60.0);
  const auto& eqmy = As<DL::TMoexREPO>(hub, "EQMY");
  EXPECT_DOUBLE_EQ(eqmy.Rates.Org, 0.00015);
  EXPECT_DOUBLE_EQ(eqmy.Min.Clearing, 1.0);
  EXPECT_DOUBLE_EQ(As<DL::TMoexREPO>(hub, "PSRY_BND").Min.Clearing, 140.0);
  EXPECT_DOUBLE_EQ(As<DL::TMoexREPO>(hub, "FKOY").Rates.Org, 0.0004197);
  EXPECT_DOUBLE_EQ(As<DL::TMoexREPO>(hub, "FSFW").Rates.Clearing, 0.00076);
  EXPECT_DOUBLE_EQ(As<DL::TMoexREPO>(hub, "RPUA_MOEX").Rates.TS, 3.6e-05);
  EXPECT_FALSE(As<DL::TOtherBondsTariff>(hub, "PSAU_BND").NoTS);
  EXPECT_TRUE(As<DL::TOtherBondsTariff>(hub, "LIQO_BND").NoTS);
  EXPECT_FALSE(As<DL::TBondsTariff>(hub, "GAZP").NoTS);
  EXPECT_FALSE(As<DL::TDarkPool>(hub, "EQDP").NoTS);
  EXPECT_TRUE(As<DL::TDarkPool>(hub, "TQDB").NoTS);
  As<DL::TBondsAtNegot>(hub, "PTOY");
  EXPECT_DOUBLE_EQ(As<DL::TSharesEuroBondsAtREPO>(hub, "RPEQ").ClearingByTerm[0], 0.0015);
  As<DL::TGZBSharesBondsAtMain>(hub, "EXRP");
  As<DL::TGZBBondsAtNegot>(hub, "NEGD");
  As<DL::TGZBBondsAtREPO>(hub, "RPNG");
  As<DL::TDoubleSidedDealsWithCC>(hub, "OCTU");
  EXPECT_DOUBLE_EQ(As<DL::TBoardsWithClearingCommOnly>(hub, "MTQR").PerDay.Clearing, 0.08);
  EXPECT_DOUBLE_EQ(As<DL::TBoardsWithClearingCommOnly>(hub, "MPTR").MinClearing, 2.0);
  EXPECT_DOUBLE_EQ(As<DL::TBoardsWithClearingCommOnly>(hub, "OCBY").MinClearing, 10000.0);
}

TEST(HubTariffsTest, PYGCEndsWithTheSixRateRepoTariff) {
  const TStorageHub hub("", 2);
  const auto& pygc = As<DL::TMoexREPO>(hub, "PYGC");
  EXPECT_DOUBLE_EQ(pygc.Rates.TS, 7.5e-05);
  EXPECT_DOUBLE_EQ(pygc.Rates.Org, 7.5e-05);
  EXPECT_DOUBLE_EQ(pygc.Rates.Clearing, 0.000365);
  EXPECT_DOUBLE_EQ(pygc.Min.TS, 30.0);
  EXPECT_DOUBLE_EQ(pygc.Min.Org, 30.0);
  EXPECT_DOUBLE_EQ(pygc.Min.Clearing, 140.0);
  // Its neighbour of the earlier row keeps the four rates.
  EXPECT_DOUBLE_EQ(As<DL::TMoexREPO>(hub, "PSRD").Rates.TS, 0.0);
}

TEST(HubTariffsTest, ByDefaultEveryScheduledBoardHasTheMinimumAndNoFirmRates) {
  const TStorageHub hub("", 2);
  EXPECT_TRUE(As<DL::TNormalTariff>(hub, "TQBR").UseMin);
  EXPECT_TRUE(As<DL::TTPlusBondsTariff>(hub, "TQCB").UseMin);
  EXPECT_TRUE(As<DL::TDarkPool>(hub, "EQDP").MinOne);
  EXPECT_TRUE(As<DL::TDoubleSidedDealsWithCC>(hub, "OCTR").MinOne);
  ExpectNotSet(As<DL::TNormalTariff>(hub, "TQBR").INIRates);
  // The default list of minimum boards is the schedule's boards, so no board
  // is added for it.
  const auto& minTS = hub.General().GetMinTSCommClasses();
  for (const auto& [board, tariff] : hub.GetBoardTariffs().Tariffs()) {
    if (board != "DEFAULT") {
      EXPECT_TRUE(minTS.Contains(board)) << board;
    }
  }
  EXPECT_EQ(minTS.Size() + 1, hub.GetBoardTariffs().Size());
}

TEST(HubTariffsTest, TheFirmsMinimumListDecidesUseMin) {
  const TStorageHub hub("[General]\nMINTSCOMMCLASSES=TQBR,OCTR\n", 2);
  EXPECT_TRUE(As<DL::TNormalTariff>(hub, "TQBR").UseMin);
  EXPECT_FALSE(As<DL::TNormalTariff>(hub, "TQTF").UseMin);
  EXPECT_TRUE(As<DL::TDoubleSidedDealsWithCC>(hub, "OCTR").MinOne);
  EXPECT_FALSE(As<DL::TDoubleSidedDealsWithCC>(hub, "OCTU").MinOne);
  EXPECT_FALSE(As<DL::TBondsTariff>(hub, "GAZP").MinOne);
}

TEST(HubTariffsTest, BuySellRepoBoardsHaveNoMinimum) {
  const TStorageHub hub("", 2);
  EXPECT_TRUE(As<DL::TMoexREPO>(hub, "RPMA").NoMin);
  EXPECT_TRUE(As<DL::TMoexREPO>(hub, "RPMO").NoMin);
  EXPECT_FALSE(As<DL::TMoexREPO>(hub, "FBCB").NoMin);
  const TStorageHub own("[General]\nBUYSELLREPOTSCOMMCLASSES=FBCB\n", 2);
  EXPECT_FALSE(As<DL::TMoexREPO>(own, "RPMA").NoMin);
  EXPECT_TRUE(As<DL::TMoexREPO>(own, "FBCB").NoMin);
}

TEST(HubTariffsTest, FirmRatesPerBoardOverrideAndALowerCaseBoardIsFoundUnderItsUpperCaseKey) {
  const TStorageHub hub(
      "[BOARDCOMMISSION]\ntqbr=0.005\n[ORGCOMMISSION]\nTQBR=0.001\n[CLEARINGCOMMISSION]\nTqBr=0\n", 2);
  const auto& tqbr = As<DL::TNormalTariff>(hub, "TQBR");
  EXPECT_DOUBLE_EQ(tqbr.INIRates.TS, 0.005);
  EXPECT_DOUBLE_EQ(tqbr.INIRates.Org, 0.001);
  EXPECT_DOUBLE_EQ(tqbr.INIRates.Clearing, 0.0);
  // 1e6 * 0.005 / 100 = 50; 1e6 * 0.001 / 100 = 10; clearing free.
  const DL::TExchCommValue v = hub.GetBoardTariff("tqbr")->CalcCommValue(1e6, 0.0, 0, 0);
  EXPECT_DOUBLE_EQ(v.TS, 50.0);
  EXPECT_DOUBLE_EQ(v.Org, 10.0);
  EXPECT_DOUBLE_EQ(v.Clearing, 0.0);
  // No board is added for a scheduled one.
  EXPECT_EQ(hub.GetBoardTariffs().Size(), 362u);
  EXPECT_DOUBLE_EQ(hub.GetIndividualCommRate("tQbR").Org, 0.001);
  // Other boards keep no firm rates.
  ExpectNotSet(As<DL::TNormalTariff>(hub, "TQTF").INIRates);
}

TEST(HubTariffsTest, TheFirmsRatesReachTheTariffsThatReadThemFromTheBoard) {
  const TStorageHub hub("[ORGCOMMISSION]\nOCTR=0.002\nTQCB=0.003\n", 2);
  EXPECT_DOUBLE_EQ(As<DL::TDoubleSidedDealsWithCC>(hub, "OCTR").INIRates.Org, 0.002);
  EXPECT_DOUBLE_EQ(As<DL::TTPlusBondsTariff>(hub, "TQCB").INIRates.Org, 0.003);
  EXPECT_DOUBLE_EQ(As<DL::TTPlusBondsTariff>(hub, "TQCB").INIRates.TS, -1.0);
}

TEST(HubTariffsTest, ABoardOnlyTheFirmNamesGetsANormalTariffWithTheDefaultRates) {
  const TStorageHub hub("[TS]\nCOMMISSION=0.03\n[ORGCOMMISSION]\nmyb1=0.01\n[CLEARINGCOMMISSION]\nMYB2=0.02\n", 2);
  const auto& myb1 = As<DL::TNormalTariff>(hub, "MYB1");
  EXPECT_DOUBLE_EQ(myb1.Rates.TS, 0.03);
  EXPECT_DOUBLE_EQ(myb1.Rates.Org, 0.0);
  EXPECT_DOUBLE_EQ(myb1.INIRates.TS, -1.0);
  EXPECT_DOUBLE_EQ(myb1.INIRates.Org, 0.01);
  EXPECT_DOUBLE_EQ(myb1.INIRates.Clearing, -1.0);
  EXPECT_FALSE(myb1.UseMin);
  EXPECT_DOUBLE_EQ(As<DL::TNormalTariff>(hub, "MYB2").INIRates.Clearing, 0.02);
  EXPECT_EQ(hub.GetBoardTariffs().Size(), 364u);
  // 1e6: TS 1e6 * 0.03 / 100 = 300; organiser 1e6 * 0.01 / 100 = 100.
  const DL::TExchCommValue v = hub.GetBoardTariff("myb1")->CalcCommValue(1e6, 0.0, 0, 0);
  EXPECT_DOUBLE_EQ(v.TS, 300.0);
  EXPECT_DOUBLE_EQ(v.Org, 100.0);
  EXPECT_DOUBLE_EQ(v.Clearing, 0.0);
}

TEST(HubTariffsTest, ABoardOfTheMinimumListWithoutATariffGetsOneWithTheMinimum) {
  const TStorageHub hub("[General]\nMINTSCOMMCLASSES=TQBR,NEWB\n[BOARDCOMMISSION]\nNEWB=0.5\n[ORGCOMMISSION]\nNEWC=0.1\n", 2);
  // NEWB has a firm rate: it is added with the boards of the rate sections,
  // without the minimum.
  EXPECT_FALSE(As<DL::TNormalTariff>(hub, "NEWB").UseMin);
  EXPECT_DOUBLE_EQ(As<DL::TNormalTariff>(hub, "NEWB").INIRates.TS, 0.5);
  const TStorageHub only("[General]\nMINTSCOMMCLASSES=TQBR,NEWD\n", 2);
  const auto& newd = As<DL::TNormalTariff>(only, "NEWD");
  EXPECT_TRUE(newd.UseMin);
  ExpectNotSet(newd.INIRates);
  EXPECT_DOUBLE_EQ(newd.Rates.TS, 0.0105);
  // 1000 * 0.0105 / 100 = 0.105 -> 1.0; the organiser and clearing parts of 0
  // are raised too.
  const DL::TExchCommValue v = newd.CalcCommValue(1000.0, 0.0, 0, 0);
  EXPECT_DOUBLE_EQ(v.TS, 1.0);
  EXPECT_DOUBLE_EQ(v.Org, 1.0);
  EXPECT_DOUBLE_EQ(v.Clearing, 1.0);
}

TEST(HubTariffsTest, AnEmptyFirmRateIsNoRate) {
  const TStorageHub hub("[ORGCOMMISSION]\nTQBR=\nNEWE=\n", 2);
  ExpectNotSet(As<DL::TNormalTariff>(hub, "TQBR").INIRates);
  EXPECT_EQ(hub.GetBoardTariffs().Find("NEWE"), nullptr);
}

TEST(HubTariffsTest, AMalformedFirmRateReadsByItsLeadingDigits) {
  const TStorageHub hub("[ORGCOMMISSION]\nTQBR=abc\n[CLEARINGCOMMISSION]\nTQBR=0.5xyz\n", 2);
  const auto& tqbr = As<DL::TNormalTariff>(hub, "TQBR");
  EXPECT_DOUBLE_EQ(tqbr.INIRates.TS, -1.0);
  EXPECT_DOUBLE_EQ(tqbr.INIRates.Org, 0.0);  // no digits: a free organiser part
  EXPECT_DOUBLE_EQ(tqbr.INIRates.Clearing, 0.5);
}

TEST(HubTariffsTest, TheReducedPlacementRateFollowsTheFirmsFlag) {
  const TStorageHub off("", 2);
  EXPECT_FALSE(As<DL::TVolumeScaledBondsTariff>(off, "PAEU").IsUseBondPlacementReducedMOEXRateUsed);
  const TStorageHub on("[General]\nUseBondPlacementReducedMOEXRate=1\n", 2);
  EXPECT_TRUE(As<DL::TVolumeScaledBondsTariff>(on, "PAEU").IsUseBondPlacementReducedMOEXRateUsed);
}

}  // namespace
