// The corrected margin: three sides at once, currency records, the
// operation's groups, forbidden shorts in a flip, and the log lines.
#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <string>
#include <type_traits>
#include <vector>

#include "margin/TPortfolio.h"

namespace {

using namespace DL::MDPLUS;
using DL::TDiscountsEx;

TDiscountsEx Disc(double dLong, double dShort) { return TDiscountsEx{dLong, dShort, 0, 0, {}, false, false}; }

TAsset Money(const std::string& curr, double pos, TDiscountsEx d = Disc(0, 0)) {
  TAsset a;
  a.AssetType = atMoney;
  a.Pos = pos;
  a.Price = 1;
  a.Discounts = d;
  a.SetCurrCode(curr);
  return a;
}

TAsset Depo(double pos, double price, TDiscountsEx d, const std::string& curr = "SUR") {
  TAsset a;
  a.AssetType = atDepo;
  a.Pos = pos;
  a.Price = price;
  a.Discounts = d;
  a.SetCurrCode(curr);
  return a;
}

void AddOwn(TPortfolio& p, const std::string& code, TAsset a) {
  TAssetGroup g(code, a.GetCurrCode(), a.Discounts);
  p.AddAsset(code, a, std::move(g), true);
}

// A dollar share with orders on both sides: 100 at 10, buys 500, sells 300.
TAsset DollarShare() {
  TAsset a = Depo(100, 10, Disc(0.2, 0.3), "USD");
  a.LockedBuyVal = 500;
  a.LockedSellVal = 300;
  return a;
}

TEST(CorrMargTest, WithCurrencyRiskNettingTheThreeSidesDiffer) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  AddOwn(p, "X", DollarShare());
  bool nm = false;
  // Side 0: buys (500 + 1000) * 0.2; the sell side stays positive.
  EXPECT_DOUBLE_EQ(p.CalcCorrMarg(llNone, nm, false), 300.0);
  const TCurrRecord& r = p.GetCurrRecords().at("USD");
  EXPECT_DOUBLE_EQ(r.R0, 300.0);
  EXPECT_DOUBLE_EQ(r.R1, 300.0);
  EXPECT_DOUBLE_EQ(r.R2, 200.0);  // sell side alone: the buys are not counted
  EXPECT_DOUBLE_EQ(r.CostUp, 1000 + 500);
  EXPECT_DOUBLE_EQ(r.CostDown, 1000 - 300);
}

TEST(CorrMargTest, WithoutCurrencyRiskNettingOnlySideZeroCounts) {
  TPlainMarginSettings s;
  s.currRiskNetting = false;
  TPortfolio p(s, "C1", -1, "", 0, false);
  AddOwn(p, "X", DollarShare());
  bool nm = false;
  EXPECT_DOUBLE_EQ(p.CalcCorrMarg(llNone, nm, false), 300.0);
  const TCurrRecord& r = p.GetCurrRecords().at("USD");
  EXPECT_DOUBLE_EQ(r.R0, 300.0);
  EXPECT_DOUBLE_EQ(r.R1, r.R0);
  EXPECT_DOUBLE_EQ(r.R2, r.R0);
}

TEST(CorrMargTest, AnAssetWithBothFlipFlagsTakesNoPositionValueInTheCurrencyCosts) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TAsset a = DollarShare();
  a.FlipsBuy = true;
  a.FlipsSell = true;
  AddOwn(p, "X", a);
  bool nm = false;
  p.CalcCorrMarg(llNone, nm, false);
  const TCurrRecord& r = p.GetCurrRecords().at("USD");
  EXPECT_EQ(r.CostUp, 0.0);
  EXPECT_EQ(r.CostDown, 0.0);
}

TEST(CorrMargTest, ForeignRiskChargesTheDollarsThroughTheCurrencyRecord) {
  TPlainMarginSettings s;
  s.currRiskNetting = false;
  TPortfolio p(s, "C1", -1, "", 0, false);
  AddOwn(p, "X", DollarShare());
  TAsset usd = Money("USD", 1000, Disc(0.1, 0.1));
  usd.Price = 90;
  p.AddAsset("USD", usd, TAssetGroup("USD", "SUR", usd.Discounts), true);
  bool nm = false;
  // Dollars: 90000 plus the cover CostUp - R0 = 1500 - 300 on the buy side.
  EXPECT_NEAR(p.CalcCorrMarg(llNone, nm, false), 300 + (90000 + 1200) * 0.1, 1e-6);
}

TEST(CorrMargTest, ANonMarginalShortInAFlipIsNotForbiddenOutsideTheOperation) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  AddOwn(p, "SUR", Money("SUR", 1000));
  AddOwn(p, "X", Depo(-10, 10, Disc(1.0, 1e50)));
  AddOwn(p, "Y", Depo(10, 10, Disc(0.2, 0.3)));
  bool nm = false;
  EXPECT_EQ(p.CalcCorrMarg(llNone, nm, false), 1e50);
  p.NonMargFlipPosition = true;
  p.SetOperationAssets("Y", "SUR", "", "");
  EXPECT_NEAR(p.CalcCorrMarg(llNone, nm, false), 20.0, 1e-9);
  p.SetOperationAssets("X", "SUR", "", "");
  EXPECT_EQ(p.CalcCorrMarg(llNone, nm, false), 1e50);
  p.ResetNonMargFlipPositionFlag();
  EXPECT_FALSE(p.NonMargFlipPosition);
}

TEST(CorrMargTest, ASaleThatCoversANonMarginalShortFlipsItsBuySide) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  AddOwn(p, "SUR", Money("SUR", 1000));
  AddOwn(p, "X", Depo(-10, 10, Disc(1.0, 1e50)));
  p.CheckTransactionFlipsPosition('S', 5, 20, p.GetAssetPointer("SUR"), p.GetAssetPointer("X"));
  EXPECT_TRUE(p.NonMargFlipPosition);
  EXPECT_TRUE(p.GetAssetPointer("X")->FlipsBuy);
  p.SetOperationAssets("X", "SUR", "", "");
  bool nm = false;
  EXPECT_EQ(p.CalcCorrMarg(llNone, nm, false), 0.0);
}

TEST(CorrMargTest, OperationGroupsOnlyWithAnEmptyOperationListGivesZero) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  AddOwn(p, "SUR", Money("SUR", 1000));
  AddOwn(p, "Y", Depo(10, 10, Disc(0.2, 0.3)));
  AddOwn(p, "Z", Depo(-10, 10, Disc(0.2, 0.3)));
  AddOwn(p, "X", DollarShare());
  bool nm = false;
  EXPECT_EQ(p.CalcCorrMarg(llNone, nm, true), 0.0);
  ASSERT_TRUE(p.FormOperationGroup("Y", "SUR", "SUR", ""));
  EXPECT_NEAR(p.CalcCorrMarg(llNone, nm, true), 20.0, 1e-9);
  EXPECT_NEAR(p.CalcCorrMarg(llNone, nm, false), 20 + 30 + 300, 1e-9);
  EXPECT_TRUE(p.IsOperationGroupAsset("Y"));
  EXPECT_FALSE(p.IsOperationGroupAsset("Z"));
  EXPECT_FALSE(p.IsOperationGroupAsset(""));
  EXPECT_FALSE(p.FormOperationGroup("Y", "NOPE", "", ""));
}

TEST(CorrMargTest, ACriticalShortUnderSignsMakesTheExFormForbidden) {
  TPlainMarginSettings s;
  s.useMarginalSigns = true;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TDiscountsEx d = Disc(0.2, 0.3);
  d.bC = true;  // marginal, but may not be shorted
  TAsset a = Depo(10, 10, d);
  a.LockedSellVal = 150;
  AddOwn(p, "Y", a);
  bool nm = false;
  EXPECT_LT(p.CalcCorrMarg(llNone, nm, false), 1e25);
  EXPECT_TRUE(nm);
  EXPECT_EQ(p.CalcCorrMargEx(llNone, false), 1e50);
  double cost = 0, corr = 0;
  p.CalcMargParamsLite(cost, corr, llNone);
  EXPECT_DOUBLE_EQ(cost, 100.0);
  EXPECT_EQ(corr, 1e50);
  EXPECT_EQ(p.GetCriticalNMAssets(), std::vector<std::string>{"Y"});
}

TEST(CorrMargTest, AStandAloneOptionRecordsItsThresholdMargin) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TAsset o;
  o.AssetType = atOpt;
  o.Pos = -2;
  o.OptParams = std::make_unique<TOptParams>();
  o.OptParams->OptCode = "C100";
  o.OptParams->BaseCode = "BASE";
  o.OptParams->Stock = 50;
  o.OptParams->Lot = 1;
  o.Discounts = Disc(0.1, 0.1);
  o.ScenRisks = {1.0, -1.0};
  o.SetCurrCode("SUR");
  p.AddAsset("C100", o, TAssetGroup("C100", "SUR", o.Discounts), true);
  bool nm = false;
  // Short 2 calls without base: threshold 0.1 * 2 * 50 = 10, above the worst scenario 2.
  EXPECT_NEAR(p.CalcCorrMarg(llNone, nm, false), 10.0, 1e-9);
  ASSERT_EQ(p.GetOutOfSetOptThresMarg().size(), 1u);
  EXPECT_EQ(p.GetOutOfSetOptThresMarg()[0].first, "SUR");
  EXPECT_NEAR(p.GetOutOfSetOptThresMarg()[0].second, 10.0, 1e-9);
}

// ---- Logging ----

TEST(MarginLogTest, MargParamsAreWrittenInTheirFixedOrder) {
  TMargParams m;
  m.minMarg = 1.5;
  m.minMargNetto = 2;
  m.initMarg = 3;
  m.initMargNetto = 4;
  m.corrMarg = 5.25;
  m.portfolio = 100;
  m.NPR1_corr = 97;
  m.NPR2 = 98.5;
  m.NPR1_corrNetto = 96;
  m.NPR2Netto = -1234567.891;
  EXPECT_EQ(m.ToLog(),
            "minMarg:                1.50"
            "; minMargNetto:                2.00"
            "; initMarg:                3.00"
            "; initMargNetto:                4.00"
            "; corrMarg:                5.25"
            "; portfolio:              100.00"
            "; NPR1_corr:               97.00"
            "; NPR2:               98.50"
            "; NPR1_corrNetto:               96.00"
            "; NPR2Netto:         -1234567.89"
            "; NM_Short:false");
  m.corrMarg = 1e50;
  EXPECT_NE(m.ToLog().find("; NM_Short:true"), std::string::npos);
  m.corrMarg = 0;
  m.NM_Short = true;
  EXPECT_NE(m.ToLog().find("; NM_Short:true"), std::string::npos);
}

// Positions of the tags in the text; each must follow the one before.
void ExpectInOrder(const std::string& text, const std::vector<std::string>& tags) {
  size_t at = 0;
  for (const std::string& t : tags) {
    const size_t found = text.find(t, at);
    ASSERT_NE(found, std::string::npos) << t << " missing after " << at << " in\n" << text;
    at = found + t.size();
  }
}

TEST(MarginLogTest, AMoneyLineKeepsTheTagOrder) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  AddOwn(p, "SUR", Money("SUR", 1000, Disc(0.1, 0.1)));
  bool nm = false;
  p.CalcCorrMarg(llAll, nm, false);
  const std::string log = p.GroupRisksToLog();
  EXPECT_EQ(log.rfind("CalcMarg: Set:SUR; DLong:              0.1000; DShort:              0.1000; RCur:; bC:false; "
                      "bS:false\nAsset:SUR; type:money; curr:SUR; qty:             1000.00; pr:            1.000000",
                      0),
            0u);
  ExpectInOrder(log, {"; type:", "; curr:", "; qty:", "; pr:", "; val:", "; marg:true", "; DLong:", "; DShort:",
                      "; RCur:", "; bC:", "; bS:", "; DLongV:", "; DShortV:", "; DLongV_inv:", "; DShortV_inv:",
                      "; RelRisk:", "; NMRisk:", "; l_MForNMVal:", "; l_b:", "; l_bv:", "; l_s:", "; l_sv:",
                      "; posValRed:", "; l_OutVal:", "; l_NegVal:", "; CURmax:", "; CURmin:", "; optPrem:",
                      "; Comm:", "\nGRisk:              100.00\n"});
  EXPECT_EQ(log.find("; lotsz:"), std::string::npos);  // lot size 1 is left out
}

TEST(MarginLogTest, AnOptionGroupLogsItsThresholdAndTheOptionTags) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TAsset o;
  o.AssetType = atOpt;
  o.Pos = 1;
  o.InSet = true;
  o.OptParams = std::make_unique<TOptParams>();
  o.OptParams->OptCode = "C100";
  o.OptParams->BaseCode = "BASE";
  o.OptParams->Lot = 1;
  o.ScenRisks = {1.0, -1.0};
  o.SetCurrCode("SUR");
  TAssetGroup g("SET", "SUR", Disc(0.1, 0.1));
  g.AlwaysLog = true;
  p.AddAsset("C100", o, std::move(g), true);
  bool nm = false;
  p.CalcCorrMarg(llNone, nm, false);
  EXPECT_EQ(p.GroupRisksToLog(), "");  // level 0 logs nothing
  p.CalcCorrMarg(llAlways, nm, false);
  const std::string log = p.GroupRisksToLog();
  ExpectInOrder(log, {"CalcMarg: Set:SET", "; bS:false", "; thresMarg:", "; optRelRisk:", "; instrRelRisk:",
                      "\nAsset:C100; type:opt", "; lot:", "; sType:Call_P", "; strike:", "; stock:", "; theor:",
                      "; ytm:", "; vlt:", "; vltUp:", "; vltDwn:", "; dThr:", "; riskFR:", "; div:", "; VM:",
                      "\nGRisk:"});
}

TEST(MarginLogTest, PortfolioTypeOneLogsEveryGroup) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  AddOwn(p, "Y", Depo(10, 10, Disc(0.2, 0.3)));
  bool nm = false;
  p.CalcCorrMarg(llAlways, nm, false);
  EXPECT_EQ(p.GroupRisksToLog(), "");
  p.PortfolioType = ptLogAll;
  p.CalcCorrMarg(llNone, nm, false);
  EXPECT_NE(p.GroupRisksToLog().find("Asset:Y; type:depo"), std::string::npos);
}

}  // namespace

namespace {

TEST(MargParamsLayoutTest, FieldsFollowTheRecordOrder) {
  using M = DL::MDPLUS::TMargParams;
  static_assert(std::is_standard_layout_v<M>);
  const size_t order[] = {offsetof(M, Version),        offsetof(M, minMarg),        offsetof(M, minMargNetto),
                          offsetof(M, initMarg),       offsetof(M, initMargNetto),  offsetof(M, corrMarg),
                          offsetof(M, portfolio),      offsetof(M, NPR1_corr),      offsetof(M, NPR2),
                          offsetof(M, NPR1_corrNetto), offsetof(M, NPR2Netto),      offsetof(M, RestrictLongAsset),
                          offsetof(M, DecreaseRisk),   offsetof(M, NM_Short)};
  for (size_t i = 1; i < std::size(order); ++i) EXPECT_LT(order[i - 1], order[i]) << "field " << i;
  EXPECT_EQ(sizeof(M().Version), 4u);
}

}  // namespace
