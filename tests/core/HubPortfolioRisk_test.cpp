// Portfolio risk configurations, base assets and derivatives base assets:
// what the load reads, what the query answers, and what the save writes.
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/SavedText.h"
#include "core/TBaseAssets.h"
#include "core/TPortRiskSection.h"
#include "core/TPortfolioSpread.h"
#include "core/TSpreadLine.h"
#include "core/TStorageHub.h"
#include "core/TVolatilitySlopes.h"

namespace {

using DL::TPortRiskConfig;
using DL::TRiskConfig;
using DL::TStorageHub;

std::string Save(TStorageHub& hub) { return ztest::SavedText(hub); }

TPortRiskConfig Query(const TStorageHub& hub, const char* account, const char* asset) {
  std::optional<TPortRiskConfig> config = hub.PortfolioRiskConfig(account, asset);
  EXPECT_TRUE(config.has_value());
  return config.value_or(TPortRiskConfig());
}

// One risk parameter: its name, its default, a value to set and what that
// value reads as, and how to read the field.
struct TParamRow {
  const char* name;
  double def;
  const char* text;
  double set;
  std::function<double(const TRiskConfig&)> field;
};

const std::vector<TParamRow>& ParamRows() {
  static const std::vector<TParamRow> rows = {
      {"PRICESCANRANGETYPE", 0, "2", 2, [](const TRiskConfig& r) { return r.priceScanRangeType; }},
      {"PRICESCANRANGE", 0, "12.5", 12.5, [](const TRiskConfig& r) { return r.priceScanRange; }},
      {"VOLATILITYTYPE", 0, "1", 1, [](const TRiskConfig& r) { return r.volatilityType; }},
      {"ORDERLIMITATIONMODE", 0, "2", 2, [](const TRiskConfig& r) { return r.orderLimitationMode; }},
      {"IGNORENEARESTCONTRACTS", 0, "3", 3, [](const TRiskConfig& r) { return r.ignoreNearestContracts; }},
      {"VOLATILITY", 100, "55.5", 55.5, [](const TRiskConfig& r) { return r.volatility; }},
      {"VOLATILITYCHANGE", 100, "80", 80, [](const TRiskConfig& r) { return r.volatilityChange; }},
      {"EXPIRATIONMATDATETERM", 1, "4", 4, [](const TRiskConfig& r) { return r.expirationMatDateTerm; }},
      {"RISKFREERATE", 100, "7.25", 7.25, [](const TRiskConfig& r) { return r.riskFreeRate; }},
      {"MINSHORTOPTIONSIM", 100, "90", 90, [](const TRiskConfig& r) { return r.minShortOptionsIM; }},
      {"FUTURESLIQUIDITYFACTOR", 100, "110", 110, [](const TRiskConfig& r) { return r.futuresLiquidityFactor; }},
      {"KGO", 1, "1.5", 1.5, [](const TRiskConfig& r) { return r.kgo; }},
      {"ORDERKGO", 1, "2.5", 2.5, [](const TRiskConfig& r) { return r.orderKgo; }},
      {"OPTIONDELTATYPE", 0, "1", 1, [](const TRiskConfig& r) { return r.optionDeltaType; }},
      {"RESTRICTOPTIONORDERMARGIN", 0, "1", 1, [](const TRiskConfig& r) { return r.restrictOptionOrderMargin; }},
      {"BOUNDARYIMPLIEDRISK", 35, "40", 40, [](const TRiskConfig& r) { return r.boundaryImpliedRisk; }},
      {"BOUNDARYPRICECHANGE", 200, "150", 150, [](const TRiskConfig& r) { return r.boundaryPriceChange; }},
      {"RESTRICTMAXVOLATILITY", -1, "300", 300, [](const TRiskConfig& r) { return r.restrictMaxVolatility; }},
      {"USESPOTNETTING", 0, "1", 1, [](const TRiskConfig& r) { return r.useSpotNetting; }},
      {"SPOTVARMARGINPOS", 0, "0.5", 0.5, [](const TRiskConfig& r) { return r.spotVarMarginPos; }},
      {"SPOTVARMARGINNEG", 0, "-0.5", -0.5, [](const TRiskConfig& r) { return r.spotVarMarginNeg; }},
      {"OptionLiquidationValueByTheoreticalPrice", 0, "1", 1,
       [](const TRiskConfig& r) { return r.optionLiquidationValueByTheoreticalPrice; }},
      {"PortfolioValueMode", 3, "1", 1, [](const TRiskConfig& r) { return r.portfolioValueMode; }},
      {"UseFullPortfolioValue", 0, "1", 1, [](const TRiskConfig& r) { return r.useFullPortfolioValue; }},
      {"AccountFutPrices", 0, "1", 1, [](const TRiskConfig& r) { return r.accountFutPrices; }},
  };
  return rows;
}

// ---- Parameters of the firm level ----

TEST(PortfolioRiskParamsTest, EveryParameterAbsentTakesItsDefault) {
  TStorageHub hub("[PortfolioRiskConfig]\nNote=1\n", 2);
  ASSERT_TRUE(hub.PortfolioRisk().HasConfigs());
  const TRiskConfig& risk = hub.PortfolioRisk().DefaultConfig().risk;
  for (const TParamRow& row : ParamRows()) EXPECT_DOUBLE_EQ(row.field(risk), row.def) << row.name;
}

TEST(PortfolioRiskParamsTest, EveryParameterSetIsRead) {
  for (const TParamRow& row : ParamRows()) {
    TStorageHub hub((std::string("[PortfolioRiskConfig]\n") + row.name + "=" + row.text + "\n").c_str(), 2);
    EXPECT_DOUBLE_EQ(row.field(hub.PortfolioRisk().DefaultConfig().risk), row.set) << row.name;
  }
}

TEST(PortfolioRiskParamsTest, NamesAreMatchedWithoutRegardToCase) {
  TStorageHub hub("[PortfolioRiskConfig]\nvolatility=42\nportfoliovaluemode=2\n", 2);
  EXPECT_DOUBLE_EQ(hub.PortfolioRisk().DefaultConfig().risk.volatility, 42.0);
  EXPECT_EQ(hub.PortfolioRisk().DefaultConfig().risk.portfolioValueMode, 2);
}

TEST(PortfolioRiskParamsTest, PortfolioValueModeAbsentReadsAsThree) {
  TStorageHub hub("[PortfolioRiskConfig]\nKGO=2\n", 2);
  EXPECT_EQ(hub.PortfolioRisk().DefaultConfig().risk.portfolioValueMode, 3);
  EXPECT_EQ(Query(hub, "ACC", "SI").risk.portfolioValueMode, 3);
}

TEST(PortfolioRiskParamsTest, OrderKgoDefaultsToTheValueOfKgo) {
  TStorageHub hub("[PortfolioRiskConfig]\nKGO=2.5\n", 2);
  EXPECT_DOUBLE_EQ(hub.PortfolioRisk().DefaultConfig().risk.orderKgo, 2.5);
}

TEST(PortfolioRiskParamsTest, KgoOfZeroBecomesOne) {
  TStorageHub hub("[PortfolioRiskConfig]\nKGO=0.00000001\n", 2);
  EXPECT_DOUBLE_EQ(hub.PortfolioRisk().DefaultConfig().risk.kgo, 1.0);
  EXPECT_DOUBLE_EQ(hub.PortfolioRisk().DefaultConfig().risk.orderKgo, 1.0);
}

TEST(PortfolioRiskParamsTest, OrderKgoOfZeroBecomesOne) {
  TStorageHub hub("[PortfolioRiskConfig]\nKGO=3\nORDERKGO=0\n", 2);
  EXPECT_DOUBLE_EQ(hub.PortfolioRisk().DefaultConfig().risk.kgo, 3.0);
  EXPECT_DOUBLE_EQ(hub.PortfolioRisk().DefaultConfig().risk.orderKgo, 1.0);
}

TEST(PortfolioRiskParamsTest, MalformedNumbersReadAsZeroOrTheirLeadingDigits) {
  TStorageHub hub("[PortfolioRiskConfig]\nVOLATILITY=abc\nPRICESCANRANGETYPE=7x\nRISKFREERATE=5.5%\nKGO=abc\n", 2);
  const TRiskConfig& risk = hub.PortfolioRisk().DefaultConfig().risk;
  EXPECT_DOUBLE_EQ(risk.volatility, 0.0);
  EXPECT_EQ(risk.priceScanRangeType, 7);
  EXPECT_DOUBLE_EQ(risk.riskFreeRate, 5.5);
  EXPECT_DOUBLE_EQ(risk.kgo, 1.0);  // zero, hence one
}

TEST(PortfolioRiskParamsTest, AnEmptyValueKeepsTheDefault) {
  TStorageHub hub("[PortfolioRiskConfig]\nVOLATILITY=\n", 2);
  EXPECT_DOUBLE_EQ(hub.PortfolioRisk().DefaultConfig().risk.volatility, 100.0);
}

TEST(PortfolioRiskParamsTest, TheShortSpellingOfTheExpirationTermIsRead) {
  TStorageHub hub("[PortfolioRiskConfig]\nExpMatDateTerm=3\n", 2);
  EXPECT_DOUBLE_EQ(hub.PortfolioRisk().DefaultConfig().risk.expirationMatDateTerm, 3.0);
}

TEST(PortfolioRiskParamsTest, IdentityDefaultsAndValues) {
  TStorageHub empty("[PortfolioRiskConfig]\nNote=1\n", 2);
  EXPECT_EQ(empty.PortfolioRisk().DefaultConfig().boardTag, "EQTV");
  EXPECT_EQ(empty.PortfolioRisk().DefaultConfig().currency, "");
  EXPECT_EQ(empty.PortfolioRisk().DefaultConfig().limitKind, 0);
  TStorageHub hub("[PortfolioRiskConfig]\nBoardTag=FUTS\nCurrency=SUR\nLimitKind=2\n", 2);
  EXPECT_EQ(hub.PortfolioRisk().DefaultConfig().boardTag, "FUTS");
  EXPECT_EQ(hub.PortfolioRisk().DefaultConfig().currency, "SUR");
  EXPECT_EQ(hub.PortfolioRisk().DefaultConfig().limitKind, 2);
}

TEST(PortfolioRiskParamsTest, ABoardTagLongerThanTwelveCharactersIsNotRead) {
  TStorageHub hub("[PortfolioRiskConfig]\nBoardTag=ABCDEFGHIJKLM\nCurrency=ABCDEFGHIJKLM\n", 2);
  EXPECT_EQ(hub.PortfolioRisk().DefaultConfig().boardTag, "EQTV");
  EXPECT_EQ(hub.PortfolioRisk().DefaultConfig().currency, "");
  EXPECT_NE(Save(hub).find("BoardTag=ABCDEFGHIJKLM\r\n"), std::string::npos);  // kept as written
  TStorageHub twelve("[PortfolioRiskConfig]\nBoardTag=ABCDEFGHIJKL\n", 2);
  EXPECT_EQ(twelve.PortfolioRisk().DefaultConfig().boardTag, "ABCDEFGHIJKL");
}

TEST(PortfolioRiskParamsTest, TheLimitKindsOfTheFirmComeFromGeneral) {
  TStorageHub hub("[General]\nLimitKinds=0,1,2\n[PortfolioRiskConfig]\nKGO=1\n", 2);
  EXPECT_EQ(hub.PortfolioRisk().LimitKinds(), (std::vector<int>{0, 1, 2}));
}

// ---- Without the firm-level section ----

TEST(PortfolioRiskQueryTest, AFirmWithoutTheSectionHasNoConfiguration) {
  TStorageHub hub("[PortfolioRiskConfig_SI]\nKGO=2\n[PortfolioRiskConfig_T]\nClients=ACC\n", 2);
  EXPECT_FALSE(hub.PortfolioRisk().HasConfigs());
  EXPECT_FALSE(hub.PortfolioRiskConfig("ACC", "SI").has_value());
  EXPECT_FALSE(hub.PortfolioRiskConfig(nullptr, nullptr).has_value());
  EXPECT_TRUE(hub.PortfolioRisk().BaseAssetConfigs().empty());
  EXPECT_TRUE(hub.PortfolioRisk().TradeAccountConfigs().empty());
}

TEST(PortfolioRiskQueryTest, WithoutTheFirmSectionTheSpreadOrderIsNotRead) {
  TStorageHub hub("[PortfolioSpreadOrder]\n1=SI,RTS\n", 2);
  EXPECT_TRUE(hub.PortfolioRisk().SpreadOrder().empty());
}

// ---- Base assets, templates and the query ----

const char* const kFirm =
    "[PortfolioRiskConfig]\nKGO=2\nORDERKGO=4\nVOLATILITY=90\nBoardTag=FUTS\n"
    "[PortfolioRiskConfig_SI]\nVOLATILITY=50\nAddBaseAssets=SIM,SIX\nMainSec=A,B,C\nAddSec=D\nRemoveSec=B\n"
    "[PortfolioRiskConfig_RTS]\nRISKFREERATE=8\nCurrency=USD\n"
    "[PortfolioRiskConfig_TPL]\nClients=ACC1,ACC2\nKGO=3\n"
    "[PortfolioRiskConfig_TPL2]\nClients=ACC2,ACC3\nBoardTag=SPBFUT\n";

TEST(PortfolioRiskQueryTest, AnEmptyBaseAssetGivesTheFirmLevelDefault) {
  TStorageHub hub(kFirm, 2);
  const TPortRiskConfig config = Query(hub, "ACC1", "");
  EXPECT_EQ(config, hub.PortfolioRisk().DefaultConfig());
  EXPECT_DOUBLE_EQ(config.risk.kgo, 2.0);
  EXPECT_EQ(Query(hub, nullptr, nullptr), hub.PortfolioRisk().DefaultConfig());
}

TEST(PortfolioRiskQueryTest, ABaseAssetSectionOverridesTheFirmLevel) {
  TStorageHub hub(kFirm, 2);
  const TPortRiskConfig si = Query(hub, nullptr, "SI");
  EXPECT_EQ(si.baseAsset, "SI");
  EXPECT_DOUBLE_EQ(si.risk.volatility, 50.0);
  EXPECT_DOUBLE_EQ(si.risk.kgo, 2.0);
  EXPECT_DOUBLE_EQ(si.risk.orderKgo, 4.0);
  EXPECT_EQ(si.boardTag, "FUTS");
  const TPortRiskConfig rts = Query(hub, "NOBODY", "RTS");
  EXPECT_DOUBLE_EQ(rts.risk.riskFreeRate, 8.0);
  EXPECT_DOUBLE_EQ(rts.risk.volatility, 90.0);
  EXPECT_EQ(rts.currency, "USD");
}

TEST(PortfolioRiskQueryTest, AddBaseAssetsMakesTheConfigurationAnswerForFurtherAssets) {
  TStorageHub hub(kFirm, 2);
  const TPortRiskConfig config = Query(hub, nullptr, "SIX");
  EXPECT_EQ(config.baseAsset, "SI");
  EXPECT_DOUBLE_EQ(config.risk.volatility, 50.0);
}

TEST(PortfolioRiskQueryTest, AnUnknownBaseAssetGetsTheFirmLevelDefaultForIt) {
  TStorageHub hub(kFirm, 2);
  const TPortRiskConfig config = Query(hub, "ACC1", "GOLD");
  EXPECT_EQ(config.baseAsset, "GOLD");
  EXPECT_DOUBLE_EQ(config.risk.volatility, 90.0);
  EXPECT_DOUBLE_EQ(config.risk.kgo, 2.0);  // the template is not laid over the firm default here
}

TEST(PortfolioRiskQueryTest, TheSecuritiesAreMainSecAdjustedByAddSecAndRemoveSec) {
  TStorageHub hub(kFirm, 2);
  EXPECT_EQ(Query(hub, nullptr, "SI").Securities(), (std::vector<std::string>{"A", "C", "D"}));
}

TEST(PortfolioRiskQueryTest, ATradeAccountSectionThatSetsOnlyKgoKeepsEverythingElse) {
  TStorageHub hub(kFirm, 2);
  const TPortRiskConfig firmSi = Query(hub, nullptr, "SI");
  TPortRiskConfig account = Query(hub, "ACC1", "SI");
  EXPECT_DOUBLE_EQ(account.risk.kgo, 3.0);
  EXPECT_DOUBLE_EQ(account.risk.orderKgo, 4.0);  // the firm-level value, not the new KGO
  account.risk.kgo = firmSi.risk.kgo;
  EXPECT_EQ(account, firmSi);
}

TEST(PortfolioRiskQueryTest, AnAccountBoundByTwoTemplatesKeepsTheFirst) {
  TStorageHub hub(kFirm, 2);
  ASSERT_EQ(hub.PortfolioRisk().TradeAccountConfigs().count("ACC2"), 1u);
  EXPECT_EQ(hub.PortfolioRisk().TradeAccountConfigs().at("ACC2").section, "PortfolioRiskConfig_TPL");
  EXPECT_DOUBLE_EQ(Query(hub, "ACC2", "SI").risk.kgo, 3.0);
  EXPECT_EQ(Query(hub, "ACC2", "SI").boardTag, "FUTS");
  EXPECT_EQ(Query(hub, "ACC3", "SI").boardTag, "SPBFUT");
  EXPECT_DOUBLE_EQ(Query(hub, "ACC3", "SI").risk.kgo, 2.0);
}

TEST(PortfolioRiskQueryTest, TheTemplatesAreNotBaseAssets) {
  TStorageHub hub(kFirm, 2);
  ASSERT_EQ(hub.PortfolioRisk().BaseAssetConfigs().size(), 2u);
  EXPECT_EQ(hub.PortfolioRisk().BaseAssetConfigs()[0].baseAsset, "RTS");
  EXPECT_EQ(hub.PortfolioRisk().BaseAssetConfigs()[1].baseAsset, "SI");
  EXPECT_EQ(Query(hub, nullptr, "TPL").baseAsset, "TPL");  // the firm default for an unknown asset
}

TEST(PortfolioRiskQueryTest, TradeAccountsLongerThanTwelveCharactersAreDropped) {
  TStorageHub hub("[PortfolioRiskConfig]\nKGO=1\n[PortfolioRiskConfig_T]\nClients=ABCDEFGHIJKLM,ABCDEFGHIJKL\nKGO=5\n", 2);
  EXPECT_EQ(hub.PortfolioRisk().TradeAccountConfigs().count("ABCDEFGHIJKLM"), 0u);
  EXPECT_EQ(hub.PortfolioRisk().TradeAccountConfigs().count("ABCDEFGHIJKL"), 1u);
}

// ---- Volatility slopes ----

TEST(PortfolioRiskSlopesTest, PairsAreReadAndSorted) {
  TStorageHub hub("[PortfolioRiskConfig]\nVolatilitySlope_LONG_CALL=3,1,1,5,1,2\nVolatilitySlope_SHORT_PUT=0.5,7\n", 2);
  const DL::TVolatilitySlopes& slopes = hub.PortfolioRisk().DefaultConfig().slopes;
  using P = DL::TVolatilitySlopes::TPoint;
  EXPECT_EQ(slopes.points[DL::TVolatilitySlopes::LongCall], (std::vector<P>{{1, 2}, {1, 5}, {3, 1}}));
  EXPECT_EQ(slopes.points[DL::TVolatilitySlopes::ShortPut], (std::vector<P>{{0.5, 7}}));
  EXPECT_TRUE(slopes.points[DL::TVolatilitySlopes::ShortCall].empty());
}

TEST(PortfolioRiskSlopesTest, AnOddCountOfNumbersIsNotRead) {
  TStorageHub hub("[PortfolioRiskConfig]\nVolatilitySlope_SHORT_CALL=1,2,3\nVolatilitySlope_LONG_PUT=1,,2,3\n", 2);
  EXPECT_TRUE(hub.PortfolioRisk().DefaultConfig().slopes.points[DL::TVolatilitySlopes::ShortCall].empty());
  EXPECT_TRUE(hub.PortfolioRisk().DefaultConfig().slopes.points[DL::TVolatilitySlopes::LongPut].empty());
  EXPECT_NE(Save(hub).find("VolatilitySlope_SHORT_CALL=1,2,3\r\n"), std::string::npos);  // kept as written
}

TEST(PortfolioRiskSlopesTest, ABaseAssetSlopeReplacesTheFirmSlope) {
  TStorageHub hub("[PortfolioRiskConfig]\nVolatilitySlope_LONG_PUT=1,1\n[PortfolioRiskConfig_SI]\n"
                  "VolatilitySlope_LONG_PUT=2,2\n",
                  2);
  using P = DL::TVolatilitySlopes::TPoint;
  EXPECT_EQ(Query(hub, nullptr, "SI").slopes.points[DL::TVolatilitySlopes::LongPut], (std::vector<P>{{2, 2}}));
  EXPECT_EQ(Query(hub, nullptr, "RTS").slopes.points[DL::TVolatilitySlopes::LongPut], (std::vector<P>{{1, 1}}));
}

// ---- Spread tiers ----

TEST(PortfolioRiskSpreadTest, TierLinesAreReadAndATierWithoutALineGetsTheDefaultLine) {
  TStorageHub hub("[PortfolioRiskConfig]\nKGO=1\n[PortfolioRiskConfig_SI]\nSpreadTiers=T1,T2\nSpread_T1_FUT_OPT=1.5,2\n", 2);
  const TPortRiskConfig si = Query(hub, nullptr, "SI");
  EXPECT_EQ(si.spreadTiers, (std::vector<std::string>{"T1", "T2"}));
  ASSERT_EQ(si.spreadLines.size(), 2u);
  EXPECT_EQ(si.spreadLines[0].tier, "T1");
  EXPECT_EQ(si.spreadLines[0].leg1, "FUT");
  EXPECT_EQ(si.spreadLines[0].leg2, "OPT");
  EXPECT_DOUBLE_EQ(si.spreadLines[0].Rate1(), 1.5);
  EXPECT_DOUBLE_EQ(si.spreadLines[0].Rate2(), 2.0);
  EXPECT_FALSE(si.spreadLines[0].isDefault);
  EXPECT_EQ(si.spreadLines[1].tier, "T2");
  EXPECT_TRUE(si.spreadLines[1].isDefault);
  EXPECT_EQ(si.spreadLines[1].leg1, "SI");
  EXPECT_EQ(si.spreadLines[1].leg2, "SI");
  EXPECT_DOUBLE_EQ(si.spreadLines[1].Rate1(), 0.0);
}

TEST(PortfolioRiskSpreadTest, AOneLegLineIsASpreadWithinTheLeg) {
  DL::TSpreadLine line;
  ASSERT_TRUE(DL::ParseSpreadLine("spread_t1_FUT", "3", DL::TClassList("T1", DL::TClassList::NoRepeats), line));
  EXPECT_EQ(line.tier, "T1");
  EXPECT_EQ(line.leg1, "FUT");
  EXPECT_EQ(line.leg2, "FUT");
  EXPECT_DOUBLE_EQ(line.Rate2(), 3.0);  // the first rate stands for the second
}

TEST(PortfolioRiskSpreadTest, MalformedTierLinesAreSkipped) {
  const DL::TClassList tiers("T1", DL::TClassList::NoRepeats);
  DL::TSpreadLine line;
  EXPECT_FALSE(DL::ParseSpreadLine("Spread_T3_FUT", "1", tiers, line));           // tier not listed
  EXPECT_FALSE(DL::ParseSpreadLine("Spread_T1", "1", tiers, line));               // no leg
  EXPECT_FALSE(DL::ParseSpreadLine("Spread_T1_A_B_C", "1", tiers, line));         // three legs
  EXPECT_FALSE(DL::ParseSpreadLine("Spread_T1__FUT", "1", tiers, line));          // empty leg
  EXPECT_FALSE(DL::ParseSpreadLine("Spread_T1_ABCDEFGHIJKLM", "1", tiers, line)); // leg too long
  EXPECT_FALSE(DL::ParseSpreadLine("Spread_T1_FUT", ",", tiers, line));           // no number
  EXPECT_FALSE(DL::ParseSpreadLine("Spreads_T1_FUT", "1", tiers, line));          // not a spread key
  TStorageHub hub("[PortfolioRiskConfig]\nSpreadTiers=T1\nSpread_T1=1\nSpread_T2_FUT=1\n", 2);
  ASSERT_EQ(hub.PortfolioRisk().DefaultConfig().spreadLines.size(), 1u);
  EXPECT_TRUE(hub.PortfolioRisk().DefaultConfig().spreadLines[0].isDefault);
  const std::string text = Save(hub);  // both kept as written
  EXPECT_NE(text.find("Spread_T1=1\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("Spread_T2_FUT=1\r\n"), std::string::npos) << text;
}

TEST(PortfolioRiskSpreadTest, TheTiersOfATemplateReplaceThoseOfTheBaseAsset) {
  TStorageHub hub("[PortfolioRiskConfig]\nKGO=1\n[PortfolioRiskConfig_SI]\nSpreadTiers=T1\nSpread_T1_FUT=1\n"
                  "[PortfolioRiskConfig_TPL]\nClients=ACC\nSpreadTiers=T2\nSpread_T2_OPT=2\n",
                  2);
  const TPortRiskConfig config = Query(hub, "ACC", "SI");
  EXPECT_EQ(config.spreadTiers, (std::vector<std::string>{"T2"}));
  ASSERT_EQ(config.spreadLines.size(), 1u);
  EXPECT_EQ(config.spreadLines[0].leg1, "OPT");
  EXPECT_EQ(Query(hub, "OTHER", "SI").spreadTiers, (std::vector<std::string>{"T1"}));
}

// ---- Spread order ----

TEST(PortfolioSpreadOrderTest, LinesComeOutByPriorityNotByFileOrder) {
  TStorageHub hub("[PortfolioRiskConfig]\nKGO=1\n[PortfolioSpreadOrder]\n10=SI,RTS\n2=BR,GOLD\n9=SI,SIM\n", 2);
  const std::vector<DL::TPortfolioSpread>& order = hub.PortfolioRisk().SpreadOrder();
  ASSERT_EQ(order.size(), 3u);
  EXPECT_EQ(order[0].priority, 2);
  EXPECT_EQ(order[0].baseAsset1, "BR");
  EXPECT_EQ(order[0].baseAsset2, "GOLD");
  EXPECT_EQ(order[1].priority, 9);
  EXPECT_EQ(order[2].priority, 10);
  EXPECT_EQ(order[2].baseAsset2, "RTS");
}

TEST(PortfolioSpreadOrderTest, ALineWithThreeCodesIsDropped) {
  TStorageHub hub("[PortfolioRiskConfig]\nKGO=1\n[PortfolioSpreadOrder]\n1=SI,RTS,BR\n2=SI,RTS\nOrder=SI,BR\n", 2);
  ASSERT_EQ(hub.PortfolioRisk().SpreadOrder().size(), 1u);
  EXPECT_EQ(hub.PortfolioRisk().SpreadOrder()[0].priority, 2);
  // Left out of the order, the lines are kept as written.
  EXPECT_NE(Save(hub).find("[PortfolioSpreadOrder]\r\n1=SI,RTS,BR\r\n2=SI,RTS\r\nOrder=SI,BR\r\n\r\n"),
            std::string::npos);
}

TEST(PortfolioSpreadOrderTest, LinesOfOtherShapesAreDropped) {
  DL::TPortfolioSpread line;
  EXPECT_FALSE(DL::ParsePortfolioSpreadLine("1", "SI", line));
  EXPECT_FALSE(DL::ParsePortfolioSpreadLine("1", "SI,", line));
  EXPECT_FALSE(DL::ParsePortfolioSpreadLine("A", "SI,RTS", line));
  EXPECT_FALSE(DL::ParsePortfolioSpreadLine("-1", "SI,RTS", line));
  EXPECT_FALSE(DL::ParsePortfolioSpreadLine("99999999999999999999", "SI,RTS", line));
  EXPECT_TRUE(DL::ParsePortfolioSpreadLine("07", " SI , RTS ", line));
  EXPECT_EQ(line.priority, 7);
  EXPECT_EQ(line.baseAsset1, "SI");
  EXPECT_EQ(line.baseAsset2, "RTS");
}

// ---- Base assets ----

TEST(BaseAssetsTest, EachKeyIsABaseAssetWithItsSpotList) {
  TStorageHub hub("[BaseAssets]\nDEFAULT=SPOT0,1\nSI=USD000UTSTOM,1000,USD000000TOD,0.5\n", 2);
  const DL::TBaseAssetsSection& section = hub.PortfolioRisk().BaseAssetsSections().at("BaseAssets");
  EXPECT_FALSE(section.isTemplate);
  ASSERT_EQ(section.assets.size(), 2u);
  const DL::TSpotParams* si = section.SpotListFor("SI");
  ASSERT_NE(si, nullptr);
  ASSERT_EQ(si->spots.size(), 2u);
  EXPECT_EQ(si->spots[1].first, "USD000000TOD");
  EXPECT_DOUBLE_EQ(si->spots[1].second, 0.5);
  const DL::TSpotParams* other = section.SpotListFor("RTS");
  ASSERT_NE(other, nullptr);
  EXPECT_EQ(other->spots.at(0).first, "SPOT0");
}

TEST(BaseAssetsTest, WithoutDefaultAnUnknownAssetHasNoSpotList) {
  TStorageHub hub("[BaseAssets]\nSI=A,1\n", 2);
  EXPECT_EQ(hub.PortfolioRisk().BaseAssetsSections().at("BaseAssets").SpotListFor("RTS"), nullptr);
}

TEST(BaseAssetsTest, TemplatesBindClients) {
  TStorageHub hub("[BaseAssets_Template_T1]\nClients=C1,C2\nSI=A,2\n", 2);
  const DL::TBaseAssetsSection& section = hub.PortfolioRisk().BaseAssetsSections().at("BaseAssets_Template_T1");
  EXPECT_TRUE(section.isTemplate);
  EXPECT_EQ(section.code, "T1");
  EXPECT_EQ(section.clients, (std::vector<std::string>{"C1", "C2"}));
  ASSERT_EQ(section.assets.size(), 1u);
  EXPECT_EQ(section.assets[0].first, "SI");
}

TEST(BaseAssetsTest, MalformedSpotListsAreNotRead) {
  DL::TSpotParams params;
  EXPECT_FALSE(DL::TSpotParams::Parse("A", params));
  EXPECT_FALSE(DL::TSpotParams::Parse("A,1,B", params));
  EXPECT_FALSE(DL::TSpotParams::Parse(",1", params));
  EXPECT_FALSE(DL::TSpotParams::Parse("ABCDEFGHIJKLM,1", params));
  EXPECT_FALSE(DL::TSpotParams::Parse("A,", params));
  TStorageHub hub("[BaseAssets]\nSI=A,1,B\nRTS=B,2\nBR=SPBFUT\n", 2);
  ASSERT_EQ(hub.PortfolioRisk().BaseAssetsSections().at("BaseAssets").assets.size(), 1u);
  EXPECT_EQ(hub.PortfolioRisk().BaseAssetsSections().at("BaseAssets").assets[0].first, "RTS");
  EXPECT_NE(Save(hub).find("[BaseAssets]\r\nBR=SPBFUT\r\nRTS=B,2\r\nSI=A,1,B\r\n\r\n"), std::string::npos);
}

// ---- Derivatives base assets ----

TEST(DerivativesBaseAssetsTest, EachKeyIsABaseAssetWithAList) {
  TStorageHub hub("[DerivativesBaseAssets]\nSI=FUT,OPT,FUT\nRTS=\n", 2);
  const TStorageHub::TCodeToList& assets = hub.GetDerivativesBaseAssets();
  ASSERT_EQ(assets.size(), 2u);
  EXPECT_EQ(assets.at("SI").Items(), (std::vector<std::string>{"FUT", "OPT"}));
  EXPECT_TRUE(assets.at("RTS").Empty());
}

TEST(DerivativesBaseAssetsTest, TheRendererWritesTheParsedListsByteForByte) {
  TStorageHub hub("[DerivativesBaseAssets]\nSI= FUT , OPT \nBR=FUT\n", 2);
  DL::TSettingToStrSource src;
  src.section = "DerivativesBaseAssets";
  std::string out;
  hub.SettingToStrDerivativesBaseAssets(out, src);
  EXPECT_EQ(out, "[DerivativesBaseAssets]\nBR=FUT\nSI=FUT,OPT\n");
}

TEST(DerivativesBaseAssetsTest, NothingIsWrittenWithoutAList) {
  TStorageHub hub("", 2);
  DL::TSettingToStrSource src;
  src.section = "DerivativesBaseAssets";
  std::string out;
  hub.SettingToStrDerivativesBaseAssets(out, src);
  EXPECT_EQ(out, "");
}

TEST(DerivativesBaseAssetsTest, TheSavedSectionIsTheParsedOne) {
  TStorageHub hub("[DerivativesBaseAssets]\nSI=FUT, FUT\n", 2);
  EXPECT_NE(Save(hub).find("[DerivativesBaseAssets]\r\nSI=FUT\r\n\r\n"), std::string::npos);
}

// ---- Rendering ----

TEST(PortfolioRiskRenderTest, ASectionIsWrittenFromWhatItReadByteForByte) {
  DL::TIniKeyMap keys = {{"Clients", "ACC1, ACC2"},
                         {"BoardTag", "FUTS"},
                         {"kgo", "0"},
                         {"Volatility", "55.50"},
                         {"PortfolioValueMode", "2"},
                         {"UseSpotNetting", "7"},
                         {"VolatilitySlope_LONG_CALL", "2,1,1,1"},
                         {"SpreadTiers", "T1"},
                         {"Spread_T1_FUT", "1.0,2"},
                         {"Unknown", "x y"},
                         {"Empty", ""}};
  const DL::TPortRiskSection section =
      DL::TPortRiskSection::Parse("PortfolioRiskConfig_TPL", DL::TPortRiskSection::Template, "TPL", keys);
  EXPECT_EQ(section.ToText(),
            "[PortfolioRiskConfig_TPL]\n"
            "Clients=ACC1,ACC2\n"
            "BoardTag=FUTS\n"
            "Volatility=55.5\n"
            "kgo=1\n"
            "UseSpotNetting=1\n"
            "PortfolioValueMode=2\n"
            "VolatilitySlope_LONG_CALL=1,1,2,1\n"
            "SpreadTiers=T1\n"
            "Spread_T1_FUT=1,2\n"
            "Empty=\n"
            "Unknown=x y\n");
}

TEST(PortfolioRiskRenderTest, AnEmptySectionIsWrittenAsItsHeader) {
  const DL::TPortRiskSection section =
      DL::TPortRiskSection::Parse("PortfolioRiskConfig", DL::TPortRiskSection::Firm, "", {});
  EXPECT_EQ(section.ToText(), "[PortfolioRiskConfig]\n");
}

TEST(PortfolioRiskRenderTest, ABaseAssetsSectionIsWrittenByteForByte) {
  const DL::TBaseAssetsSection section = DL::TBaseAssetsSection::Parse(
      "BaseAssets_Template_T", true, "T", {{"Clients", "C1"}, {"SI", "A, 1.50 ,B,2"}, {"X", ""}});
  EXPECT_EQ(section.ToText(), "[BaseAssets_Template_T]\nClients=C1\nSI=A,1.5,B,2\nX=\n");
}

TEST(PortfolioRiskRenderTest, TheSavedTextHoldsTheSectionsInCanonicalForm) {
  TStorageHub hub("[PortfolioRiskConfig]\nKGO=2.50\n[PortfolioSpreadOrder]\n10=SI,RTS\n2=BR , GOLD\n3=A,B,C\n"
                  "[BaseAssets]\nSI=A,1.0\n",
                  2);
  const std::string text = Save(hub);
  EXPECT_NE(text.find("[PortfolioRiskConfig]\r\nKGO=2.5\r\n\r\n"), std::string::npos) << text;
  // The normalizer orders the keys of this section bytewise.
  EXPECT_NE(text.find("[PortfolioSpreadOrder]\r\n10=SI,RTS\r\n2=BR,GOLD\r\n3=A,B,C\r\n\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("[BaseAssets]\r\nSI=A,1\r\n\r\n"), std::string::npos) << text;
}

TEST(PortfolioRiskRenderTest, UnknownParametersSurviveASave) {
  TStorageHub hub("[PortfolioRiskConfig]\nMyFlag=abc\n[PortfolioRiskConfig_SI]\nClearingTime=18:45\n"
                  "[BaseAssets]\nClients=C1\n",
                  2);
  const std::string text = Save(hub);
  EXPECT_NE(text.find("MyFlag=abc\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("[PortfolioRiskConfig_SI]\r\nClearingTime=18:45\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("[BaseAssets]\r\nClients=C1\r\n"), std::string::npos) << text;
}

TEST(PortfolioRiskRenderTest, AFirmSectionWithoutLinesDoesNotCount) {
  // The text keeps no section without lines, so there is nothing to read.
  TStorageHub hub("[PortfolioRiskConfig]\n[PortfolioRiskConfig_SI]\nKGO=2\n", 2);
  EXPECT_FALSE(hub.PortfolioRisk().HasConfigs());
  EXPECT_NE(Save(hub).find("[PortfolioRiskConfig_SI]\r\nKGO=2\r\n"), std::string::npos);
}

TEST(PortfolioRiskRenderTest, ASectionEditedAfterTheLoadIsSavedAsEdited) {
  TStorageHub hub("[PortfolioRiskConfig]\nKGO=2\n[PortfolioSpreadOrder]\n1=SI,RTS\n", 2);
  DL::TIniParser* parser = hub.GetOldParserPointer();
  parser->SetIniParam(parser->FindIniSection(std::string("PortfolioRiskConfig")), "KGO", "5");
  parser->SetIniParam(parser->FindIniSection(std::string("PortfolioSpreadOrder")), "2", "BR,GOLD");
  const std::string text = Save(hub);
  EXPECT_NE(text.find("KGO=5\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("2=BR,GOLD\r\n"), std::string::npos) << text;
  EXPECT_DOUBLE_EQ(hub.PortfolioRisk().DefaultConfig().risk.kgo, 2.0);  // until a reload
}

// ---- Load, save, load ----

const char* const kRoundTrip =
    "[General]\nLimitKinds=0,2\n"
    "[PortfolioRiskConfig]\nKGO=2.50\nVOLATILITY=90\nBoardTag=FUTS\nSpreadTiers=T1,T2\nSpread_T1_FUT_OPT=1.5,2\n"
    "VolatilitySlope_SHORT_PUT=3,1,1,2\nSomething=else\nExpMatDateTerm=2\n"
    "[PortfolioRiskConfig_SI]\nVOLATILITY=50\nAddBaseAssets=SIM\nMainSec=A,B\nRemoveSec=B\nPortfolioValueMode=1\n"
    "[PortfolioRiskConfig_TPL]\nClients=ACC1,ACC2\nKGO=3\nCurrency=USD\nLimitKind=2\n"
    "[PortfolioSpreadOrder]\n10=SI,RTS\n02=BR,GOLD\n3=A,B,C\n"
    "[BaseAssets]\nDEFAULT=S0,1\nSI=USD000UTSTOM,1000\n"
    "[BaseAssets_Template_B1]\nClients=C1\nRTS=RTSI,0.02\n"
    "[DerivativesBaseAssets]\nSI=FUT,OPT\n";

TEST(PortfolioRiskRoundTripTest, TheSavedTextIsAFixedPoint) {
  TStorageHub first(kRoundTrip, 2);
  const std::string once = Save(first);
  TStorageHub second(once.c_str(), 2);
  EXPECT_EQ(Save(second), once);
}

TEST(PortfolioRiskRoundTripTest, TheConfigurationsAreEqualAfterAReload) {
  TStorageHub first(kRoundTrip, 2);
  TStorageHub second(Save(first).c_str(), 2);
  EXPECT_TRUE(second.PortfolioRisk().HasConfigs());
  EXPECT_EQ(second.PortfolioRisk().DefaultConfig(), first.PortfolioRisk().DefaultConfig());
  EXPECT_EQ(second.PortfolioRisk().BaseAssetConfigs(), first.PortfolioRisk().BaseAssetConfigs());
  EXPECT_EQ(second.PortfolioRisk().TradeAccountConfigs(), first.PortfolioRisk().TradeAccountConfigs());
  EXPECT_EQ(second.PortfolioRisk().SpreadOrder().size(), 2u);
  for (std::size_t i = 0; i < first.PortfolioRisk().SpreadOrder().size(); ++i) {
    EXPECT_EQ(second.PortfolioRisk().SpreadOrder()[i].priority, first.PortfolioRisk().SpreadOrder()[i].priority);
    EXPECT_EQ(second.PortfolioRisk().SpreadOrder()[i].baseAsset1, first.PortfolioRisk().SpreadOrder()[i].baseAsset1);
    EXPECT_EQ(second.PortfolioRisk().SpreadOrder()[i].baseAsset2, first.PortfolioRisk().SpreadOrder()[i].baseAsset2);
  }
  EXPECT_EQ(second.PortfolioRisk().LimitKinds(), first.PortfolioRisk().LimitKinds());
  ASSERT_EQ(second.PortfolioRisk().BaseAssetsSections().size(), first.PortfolioRisk().BaseAssetsSections().size());
  for (const auto& [name, section] : first.PortfolioRisk().BaseAssetsSections()) {
    const DL::TBaseAssetsSection& other = second.PortfolioRisk().BaseAssetsSections().at(name);
    EXPECT_EQ(other.assets, section.assets);
    EXPECT_EQ(other.clients, section.clients);
  }
  ASSERT_EQ(second.GetDerivativesBaseAssets().size(), 1u);
  EXPECT_EQ(second.GetDerivativesBaseAssets().at("SI").Items(), first.GetDerivativesBaseAssets().at("SI").Items());
  // Spot checks that the texts held what they say.
  EXPECT_DOUBLE_EQ(Query(second, "ACC2", "SIM").risk.kgo, 3.0);
  EXPECT_EQ(Query(second, "ACC2", "SIM").limitKind, 2);
  EXPECT_EQ(Query(second, nullptr, "SI").Securities(), (std::vector<std::string>{"A"}));
  EXPECT_DOUBLE_EQ(second.PortfolioRisk().DefaultConfig().risk.expirationMatDateTerm, 2.0);
}

}  // namespace
