// The portfolio: a hand-worked portfolio whose initial and corrected margin
// are computed here from the formulas, step by step; the properties of the
// figures; and the edge cases of the initial margin.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "margin/TPortfolio.h"

namespace {

using namespace DL::MDPLUS;
using DL::TDiscountsEx;

TDiscountsEx Disc(double dLong, double dShort) { return TDiscountsEx{dLong, dShort, 0, 0, {}, false, false}; }

TAsset Money(const std::string& curr, double pos, double price = 1.0, TDiscountsEx d = Disc(0, 0)) {
  TAsset a;
  a.AssetType = atMoney;
  a.Pos = pos;
  a.Price = price;
  a.Discounts = d;
  a.SetCurrCode(curr);
  return a;
}

TAsset Depo(double pos, double price, int lot, TDiscountsEx d, const std::string& curr = "SUR") {
  TAsset a;
  a.AssetType = atDepo;
  a.Pos = pos;
  a.Price = price;
  a.LotSize = lot;
  a.Discounts = d;
  a.SetCurrCode(curr);
  return a;
}

// The option set of the hand-worked portfolio: a futures on "Si" at 100 with
// a short call and a long put on it, all priced on the set's grid.
const TDiscountsEx kSetDisc = Disc(0.15, 0.15);

TOptParams OptionParams(const std::string& code, TContractType type) {
  TOptParams o;
  o.OptCode = code;
  o.BaseCode = "SiZ6";
  o.ContractType = type;
  o.Stock = 100;
  o.Strike = 100;
  o.Ytm = 0.25;
  o.Vlt = 0.3;
  o.VltUp = 0.1;
  o.VltDwn = 0.1;
  o.Lot = 1;
  return o;
}

TAsset Option(const std::string& code, TContractType type, double pos) {
  TAsset a;
  a.AssetType = atOpt;
  a.Pos = pos;
  a.OptParams = std::make_unique<TOptParams>(OptionParams(code, type));
  a.Theor = OptionTheoreticalPrice(*a.OptParams);
  a.Price = a.Theor;
  a.Discounts = kSetDisc;
  a.InSet = true;
  a.KeepInOptionSet = true;
  a.SetCurrCode("SUR");
  const BaseAsset2OptCalcParams grid = PrepOptCalcParams(100, kSetDisc);
  a.CalcOptRisks(&grid);
  return a;
}

TAsset Futures() {
  TAsset a;
  a.AssetType = atFut;
  a.Pos = 2;
  a.Price = 100;
  a.VarMargin = 300;
  a.Discounts = kSetDisc;
  a.InSet = true;
  a.KeepInOptionSet = true;
  a.SetCurrCode("SUR");
  return a;
}

TAssetGroup Own(const std::string& code, const TAsset& a) {
  TAssetGroup g(code, a.GetCurrCode(), a.Discounts);
  g.NettingType = ENettingType{1};
  return g;
}

TAssetGroup SiSet() {
  TAssetGroup g("Si", "SUR", kSetDisc);
  g.NettingType = ENettingType{1};
  return g;
}

struct Entry {
  std::string code;
  TAsset asset;
  bool inSet;
};

// Cash, two shares, one futures, a call and a put on it; orders on the
// shares and on the call.
std::vector<Entry> HandWorked() {
  std::vector<Entry> e;
  e.push_back({"SUR", Money("SUR", 100000), false});
  TAsset sber = Depo(100, 250, 10, Disc(0.2, 0.3));
  sber.LockedBuyVal = 5000;
  sber.LockedBuyQty = 2;
  e.push_back({"SBER", sber, false});
  TAsset gazp = Depo(-50, 150, 10, Disc(0.25, 0.35));
  gazp.LockedSellVal = 1500;
  gazp.LockedSellQty = 1;
  e.push_back({"GAZP", gazp, false});
  e.push_back({"SiZ6", Futures(), true});
  TAsset call = Option("SiC", ctCall_P, -3);
  call.LockedBuyQty = 1;
  e.push_back({"SiC", call, true});
  e.push_back({"SiP", Option("SiP", ctPut_P, 4), true});
  return e;
}

void Fill(TPortfolio& p, std::vector<Entry> entries) {
  for (Entry& e : entries) p.AddAsset(e.code, e.asset, e.inSet ? SiSet() : Own(e.code, e.asset), true);
}

// ---- The formulas, written out independently of the portfolio's code ----

// The set's grid: 11 points from 85 to 115, step 3.
std::vector<double> GridPrices() {
  std::vector<double> g;
  for (int i = 0; i < 11; ++i) g.push_back(85.0 + 3.0 * i);
  return g;
}

// Change of one unit under each scenario: 11 points with the raised
// volatility, then 11 with the lowered one.
std::vector<double> OptionScenarios(TContractType type) {
  const double base = OptionTheoreticalPrice(type, 100, 100, 0.25, 0, 0, 0.3);
  std::vector<double> r;
  for (double f : {1.1, 0.9})
    for (double p : GridPrices()) r.push_back(OptionTheoreticalPrice(type, p, 100, 0.25, 0, 0, 0.3 * f) - base);
  return r;
}

std::vector<double> FuturesScenarios() {
  std::vector<double> r;
  for (int k = 0; k < 2; ++k)
    for (double p : GridPrices()) r.push_back(p - 100.0);
  return r;
}

// The worst column of the losses only.
double HalfNetto(const std::vector<std::vector<double>>& rows) {
  double worst = 0;
  for (size_t j = 0; j < rows[0].size(); ++j) {
    double col = 0;
    for (const auto& row : rows) col += std::min(row[j], 0.0);
    worst = std::min(worst, col);
  }
  return -worst;
}

double Netto(const std::vector<std::vector<double>>& rows) {
  double worst = 1e300;
  for (size_t j = 0; j < rows[0].size(); ++j) {
    double col = 0;
    for (const auto& row : rows) col += row[j];
    worst = std::min(worst, col);
  }
  return std::fabs(worst);
}

std::vector<double> Scaled(const std::vector<double>& v, double k) {
  std::vector<double> r(v);
  for (double& x : r) x *= k;
  return r;
}

std::vector<double> Worse(const std::vector<double>& v, double a, double b) {
  std::vector<double> r(v.size());
  for (size_t j = 0; j < v.size(); ++j) r[j] = std::min(v[j] * a, v[j] * b);
  return r;
}

class HandWorkedPortfolioTest : public ::testing::Test {
 protected:
  TPlainMarginSettings settings;
  // Threshold margin of the set: long futures 2 covers the short call only in
  // part; min(0.15 * 4, 0.15 * (-3 + 2), 0) = -0.15, times 100 per lot.
  const double thres = 0.15 * 1.0 * 100.0;
  const double theorCall = OptionTheoreticalPrice(ctCall_P, 100, 100, 0.25, 0, 0, 0.3);
  const double theorPut = OptionTheoreticalPrice(ctPut_P, 100, 100, 0.25, 0, 0, 0.3);
};

TEST_F(HandWorkedPortfolioTest, InitialMarginFromTheFormulas) {
  TPortfolio p(settings, "C1", -1, "", 0, false);
  Fill(p, HandWorked());

  // GAZP: -50 * 150 * 10 = -75000, short discount 0.35.
  const double gazp = 75000 * 0.35;
  const double gazpNetto = std::max({0.0, -75000 * 0.25, 75000 * 0.35});
  // SBER: 100 * 250 * 10 = 250000, long discount 0.2.
  const double sber = 250000 * 0.2;
  const double sberNetto = std::max({0.0, 250000 * 0.2, -250000 * 0.3});
  // Cash has discounts 0: it carries the premium but no risk.
  // The set: rows of the futures and the options, half netto plus threshold.
  const std::vector<std::vector<double>> rows = {Scaled(FuturesScenarios(), 2),
                                                 Scaled(OptionScenarios(ctCall_P), -3),
                                                 Scaled(OptionScenarios(ctPut_P), 4)};
  const double set = HalfNetto(rows) + thres;
  const double setNetto = Netto(rows) + std::max(0.0, thres);

  const auto [init, initNetto] = p.CalcInitialMarg();
  EXPECT_NEAR(init, gazp + sber + set, 1e-6);
  EXPECT_NEAR(initNetto, gazpNetto + sberNetto + setNetto, 1e-6);

  // Value: cash, the shares, the variation margin and the option premiums.
  const double cost = 100000 + 250000 - 75000 + 300 + (-3 * theorCall + 4 * theorPut);
  EXPECT_NEAR(p.CalcPortfolioCost(), cost, 1e-6);
  EXPECT_NEAR(p.CalcMinMarg(), (gazp + sber + set) * 0.5, 1e-6);
  EXPECT_NEAR(p.CalcNPR1(), cost - (gazp + sber + set), 1e-6);
  EXPECT_NEAR(p.CalcNPR2(), cost - (gazp + sber + set) * 0.5, 1e-6);
}

TEST_F(HandWorkedPortfolioTest, CorrectedMarginFromTheFormulas) {
  TPortfolio p(settings, "C1", -1, "", 0, false);
  Fill(p, HandWorked());

  // GAZP sell side: (-75000 - 1500 sold) * 0.35; its buy side is negative and
  // adds nothing.
  const double gazp = 76500 * 0.35;
  // SBER buy side: (250000 + 5000 bought) * 0.2; its sell side is positive.
  const double sber = 255000 * 0.2;
  // The set: each row the worse of position plus buys and position less sells.
  const std::vector<std::vector<double>> rows = {Scaled(FuturesScenarios(), 2),
                                                 Worse(OptionScenarios(ctCall_P), -3 + 1, -3),
                                                 Scaled(OptionScenarios(ctPut_P), 4)};
  const double set = HalfNetto(rows) + thres;

  bool nmShort = false;
  EXPECT_NEAR(p.CalcCorrMarg(llNone, nmShort, false), gazp + sber + set, 1e-6);
  EXPECT_FALSE(nmShort);
}

TEST_F(HandWorkedPortfolioTest, MargParamsGatherTheFiguresAndTheLog) {
  TPortfolio p(settings, "C1", -1, "", 0, false);
  Fill(p, HandWorked());
  TMargParams m;
  p.CalcMargParams(m, llAll);
  const auto [init, initNetto] = p.CalcInitialMarg();
  bool nm = false;
  EXPECT_EQ(m.Version, 20250718);
  EXPECT_DOUBLE_EQ(m.initMarg, init);
  EXPECT_DOUBLE_EQ(m.initMargNetto, initNetto);
  EXPECT_DOUBLE_EQ(m.minMarg, init * 0.5);
  EXPECT_DOUBLE_EQ(m.minMargNetto, initNetto * 0.5);
  EXPECT_DOUBLE_EQ(m.corrMarg, p.CalcCorrMarg(llNone, nm, false));
  EXPECT_DOUBLE_EQ(m.portfolio, p.CalcPortfolioCost());
  EXPECT_DOUBLE_EQ(m.NPR1_corr, m.portfolio - m.initMarg);
  EXPECT_DOUBLE_EQ(m.NPR2, m.portfolio - m.minMarg);
  EXPECT_DOUBLE_EQ(m.NPR1_corrNetto, m.portfolio - m.initMargNetto);
  EXPECT_DOUBLE_EQ(m.NPR2Netto, m.portfolio - m.minMargNetto);
  EXPECT_FALSE(m.NM_Short);
  const std::string log = p.GetLogText();
  EXPECT_EQ(log.rfind("minMarg:", 0), 0u);
  EXPECT_NE(log.find("CalcMarg: Set:Si"), std::string::npos);
  EXPECT_NE(log.find("; thresMarg:               15.00"), std::string::npos);
  EXPECT_NE(log.find("Asset:SBER; type:depo; curr:SUR"), std::string::npos);
  p.CalcMargParams(m, llAll);
  EXPECT_EQ(p.GetLogText(), log);  // a second calculation replaces the text
}

// ---- Properties ----

std::vector<double> Figures(TPortfolio& p) {
  TMargParams m;
  p.CalcMargParams(m, llNone);
  return {m.portfolio, m.initMarg, m.initMargNetto, m.minMarg, m.corrMarg, m.NPR1_corr, m.NPR2};
}

void ExpectSameFigures(const std::vector<double>& a, const std::vector<double>& b) {
  ASSERT_EQ(a.size(), b.size());
  for (size_t i = 0; i < a.size(); ++i) EXPECT_NEAR(a[i], b[i], 1e-6) << "figure " << i;
}

TEST(PortfolioPropertiesTest, APositionWithoutRiskLeavesTheFiguresAlone) {
  TPlainMarginSettings s;
  TPortfolio base(s, "C1", -1, "", 0, false);
  Fill(base, HandWorked());
  TPortfolio more(s, "C1", -1, "", 0, false);
  std::vector<Entry> entries = HandWorked();
  entries.push_back({"LKOH", Depo(0, 7000, 1, Disc(0.3, 0.4)), false});  // nothing held, nothing ordered
  entries.push_back({"VTBR", Depo(1, 0.04, 1, Disc(0.3, 0.4)), false});  // worth less than 0.1
  Fill(more, entries);
  // The margins stay; the value may take the tiny position's cost.
  const std::vector<double> a = Figures(base), b = Figures(more);
  for (size_t i = 1; i <= 4; ++i) EXPECT_NEAR(a[i], b[i], 1e-9) << "figure " << i;
  // The check can fail: a held position changes them.
  TPortfolio held(s, "C1", -1, "", 0, false);
  entries.push_back({"MGNT", Depo(1, 5000, 1, Disc(0.3, 0.4)), false});
  Fill(held, entries);
  EXPECT_NE(Figures(base)[1], Figures(held)[1]);
}

std::vector<Entry> WithoutOptions(double k) {
  std::vector<Entry> e;
  TAsset cash = Money("SUR", 50000 * k, 1, Disc(0.05, 0.1));
  cash.LockedBuyVal = 1000 * k;
  e.push_back({"SUR", cash, false});
  TAsset sber = Depo(100 * k, 250, 10, Disc(0.2, 0.3));
  sber.LockedBuyVal = 5000 * k;
  sber.LockedSellVal = 2500 * k;
  e.push_back({"SBER", sber, false});
  TAsset gazp = Depo(-50 * k, 150, 10, Disc(0.25, 0.35));
  gazp.LockedSellVal = 1500 * k;
  e.push_back({"GAZP", gazp, false});
  TAsset fut = Futures();
  fut.Pos = 3 * k;
  fut.VarMargin = 300 * k;
  fut.InSet = false;
  fut.KeepInOptionSet = false;
  e.push_back({"SiZ6", fut, false});
  return e;
}

TEST(PortfolioPropertiesTest, DoublingEveryQuantityWithoutOptionsDoublesTheRisks) {
  TPlainMarginSettings s;
  TPortfolio one(s, "C1", -1, "", 0, false);
  Fill(one, WithoutOptions(1));
  TPortfolio two(s, "C1", -1, "", 0, false);
  Fill(two, WithoutOptions(2));
  const auto [i1, n1] = one.CalcInitialMarg();
  const auto [i2, n2] = two.CalcInitialMarg();
  EXPECT_GT(i1, 0.0);
  EXPECT_NEAR(i2, 2 * i1, 1e-6);
  EXPECT_NEAR(n2, 2 * n1, 1e-6);
  bool nm = false;
  const double c1 = one.CalcCorrMarg(llNone, nm, false);
  EXPECT_GT(c1, 0.0);
  EXPECT_NEAR(two.CalcCorrMarg(llNone, nm, false), 2 * c1, 1e-6);
  EXPECT_NEAR(two.CalcPortfolioCost(), 2 * one.CalcPortfolioCost(), 1e-6);
}

TEST(PortfolioPropertiesTest, TheOrderOfAddingAssetsDoesNotMatter) {
  TPlainMarginSettings s;
  std::vector<Entry> entries = HandWorked();
  TPortfolio first(s, "C1", -1, "", 0, false);
  Fill(first, entries);
  const std::vector<double> expected = Figures(first);
  std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) { return a.code < b.code; });
  do {
    TPortfolio p(s, "C1", -1, "", 0, false);
    Fill(p, entries);
    ExpectSameFigures(Figures(p), expected);
  } while (std::next_permutation(entries.begin(), entries.end(),
                                 [](const Entry& a, const Entry& b) { return a.code < b.code; }));
}

// ---- Edge cases of the initial margin ----

TEST(InitialMarginTest, AnEmptyPortfolioHasNoValueAndNoMargin) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  EXPECT_EQ(p.CalcPortfolioCost(), 0.0);
  EXPECT_EQ(p.CalcInitialMarg(), std::make_pair(0.0, 0.0));
  bool nm = false;
  EXPECT_EQ(p.CalcCorrMarg(llNone, nm, false), 0.0);
}

TEST(InitialMarginTest, AShortInAForbiddenSecurityGivesTheForbiddenPairWhateverElse) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  Fill(p, HandWorked());
  EXPECT_LT(p.CalcInitialMarg().first, 1e25);
  TAsset nm = Depo(-1, 10, 1, Disc(1.0, 1e50));
  p.AddAsset("NM", nm, Own("NM", nm), true);
  EXPECT_EQ(p.CalcInitialMarg(), std::make_pair(1e50, 1e50));
  bool nmShort = false;
  EXPECT_EQ(p.CalcCorrMarg(llNone, nmShort, false), 1e50);
  TMargParams m;
  p.CalcMargParams(m, llNone);
  EXPECT_NE(m.ToLog().find("; NM_Short:true"), std::string::npos);
}

// A lone short call on "Si" with no base asset held.
TAsset LoneCall(const std::string& code) {
  TAsset a = Option(code, ctCall_P, -1);
  a.InSet = false;
  a.KeepInOptionSet = false;
  return a;
}

TEST(InitialMarginTest, AOneOptionGroupNamedOtherThanTheOptionIsAGroup) {
  TPlainMarginSettings s;
  // A short call loses what the call gains: its worst scenario is the largest gain.
  const std::vector<double> call = OptionScenarios(ctCall_P);
  const double worst = *std::max_element(call.begin(), call.end());
  // Threshold: a short call of one lot, no base: 0.15 * 1 * 100.
  const double thres = 15.0;

  TPortfolio alone(s, "C1", -1, "", 0, false);
  TAsset a = LoneCall("SiC");
  alone.AddAsset("SiC", a, TAssetGroup("SiC", "SUR", kSetDisc), true);
  EXPECT_NEAR(alone.CalcInitialMarg().first, std::max(worst, thres), 1e-6);

  TPortfolio group(s, "C1", -1, "", 0, false);
  TAsset b = LoneCall("SiC");
  b.InSet = true;
  group.AddAsset("SiC", b, TAssetGroup("SiSet", "SUR", kSetDisc), true);
  EXPECT_NEAR(group.CalcInitialMarg().first, worst + thres, 1e-6);
}

// Signs in use: a short without either sign is non-marginal, valued with its
// own discounts, and is not forbidden.
struct ForeignCase {
  TPlainMarginSettings s;
  ForeignCase() { s.useMarginalSigns = true; }
  double Init(bool marginal, bool netto = false) {
    TPortfolio p(s, "C1", -1, "", 0, false);
    TDiscountsEx usdDisc = Disc(0.1, 0.1);
    usdDisc.bC = true;
    TAsset usd = Money("USD", 1000, 90, usdDisc);
    TAssetGroup base("USD", "SUR", usdDisc);  // the money of a currency is valued in the main currency
    p.AddAsset("USD", usd, std::move(base), true);
    TDiscountsEx d = Disc(0.5, 0.5);
    d.bC = marginal;
    TAsset x = Depo(-100, 10, 1, d, "USD");
    p.AddAsset("XUSD", x, TAssetGroup("XUSD", "USD", d), true);
    const auto r = p.CalcInitialMarg();
    return netto ? r.second : r.first;
  }
};

TEST(InitialMarginTest, ANonMarginalAssetOfAnotherCurrencyIsExcludedFromTheCurrencyRisk) {
  ForeignCase c;
  // Non-marginal: its risk 500 stays in its currency; the dollars are valued whole.
  EXPECT_NEAR(c.Init(false), 500 + 90000 * 0.1, 1e-6);
  // Marginal: risk 500 and cost -1000 charge the dollars: (90000 - 1000 - 500) * 0.1.
  EXPECT_NEAR(c.Init(true), 500 + (90000 - 1000 - 500) * 0.1, 1e-6);
}

TEST(InitialMarginTest, WithDifferentCurrenciesApartForeignRiskNeverReachesTheMainMoneyButNettoDoes) {
  ForeignCase c;
  c.s.diffCurrAssetsInSets = true;
  EXPECT_NEAR(c.Init(true), 500 + 90000 * 0.1, 1e-6);
  // The netto map is still filled: the full-netting value of the dollars
  // takes the netted foreign risk 500 (the cost is not charged).
  EXPECT_NEAR(c.Init(true, true), 500 + (90000 - 500) * 0.1, 1e-6);
}

TEST(InitialMarginTest, EveryMargParamsCarriesTheLayoutStamp) {
  TMargParams fresh;
  EXPECT_EQ(fresh.Version, 20250718);
  EXPECT_EQ(fresh.initMarg, 0.0);
  EXPECT_FALSE(fresh.NM_Short);
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TMargParams m;
  m.Version = 0;
  p.CalcMargParams(m, llNone);
  EXPECT_EQ(m.Version, 20250718);
}

TEST(PortfolioModelTest, AnIdleOptionStaysOutOfItsSet) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TAsset idle = Option("SiC", ctCall_P, 0);
  p.AddAsset("SiC", idle, SiSet(), true);
  TAssetGroup* g = nullptr;
  EXPECT_EQ(p.GetAssetGroupIterator("SiC", g), 1);
  EXPECT_EQ(g->Key, "SiC");
  EXPECT_EQ(p.GetAllAssets().count("Si"), 0u);
  EXPECT_TRUE(p.WithOptions);
}

TEST(PortfolioModelTest, AnOptionKeptInItsSetMovesOutTheMembersThatAreNot) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TAsset d = Depo(10, 100, 1, kSetDisc);
  d.InSet = true;
  p.AddAsset("SHARE", d, SiSet(), true);
  TAsset opt = Option("SiC", ctCall_P, 1);
  p.AddAsset("SiC", opt, SiSet(), true);
  TAssetGroup* g = nullptr;
  ASSERT_EQ(p.GetAssetGroupIterator("SHARE", g), 1);
  EXPECT_EQ(g->Name, "SHARE");
  EXPECT_FALSE(p.GetAssetPointer("SHARE")->InSet);
  ASSERT_EQ(p.GetAssetGroupIterator("SiC", g), 1);
  EXPECT_EQ(g->Name, "Si");
  EXPECT_TRUE(g->HasOptionPositions);
}

TEST(PortfolioModelTest, AForeignGroupGoesToItsCurrency) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TAsset x = Depo(1, 10, 1, Disc(0.1, 0.1), "USD");
  p.AddAsset("X", x, TAssetGroup("X", "USD", x.Discounts), true);
  TAssetGroup* g = nullptr;
  EXPECT_EQ(p.GetAssetGroupIterator("X", g), 2);
  EXPECT_EQ(p.GetAssetGroupIterator("Y", g), 0);
  EXPECT_EQ(p.GetAllCurrAssets().at("USD").size(), 1u);
}

TEST(PortfolioModelTest, AShortWithoutPermissionUnderSignsMarksTheCriticalStatus) {
  TPlainMarginSettings s;
  s.useMarginalSigns = true;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TAsset x = Depo(-1, 10, 1, Disc(0.1, 0.1));
  p.AddAsset("X", x, Own("X", x), true);
  EXPECT_TRUE(p.CriticalStatus);
}

TEST(PortfolioModelTest, UpdateMainParamsTellsWhetherAnythingChanged) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  EXPECT_DOUBLE_EQ(p.MinMarginRate, 0.5);
  EXPECT_FALSE(p.UpdateMainParams("C1", -1, "", "", "SUR"));
  s.minMarginCalcRate = 0.7;
  EXPECT_TRUE(p.UpdateMainParams("C1", 2, "", "", "SUR"));
  EXPECT_DOUBLE_EQ(p.MinMarginRate, 0.7);
}

TEST(AddBoardsTest, AMoneyAssetOfTag3AddsItsPositionAndRevertTakesItBack) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TAsset cash = Money("SUR", 1000);
  p.AddAsset("SUR", cash, Own("SUR", cash), true);
  TAsset add = Money("SUR", 200);
  add.TagType = ETagTypes{3};
  add.LockedQty = 5;
  p.AddAdditionalAsset("SUR", add, "SUR", Disc(0, 0));
  p.ApplyAddBoards({3}, {});
  EXPECT_DOUBLE_EQ(p.GetAssetPointer("SUR")->Pos.asDouble(), 1200.0);
  EXPECT_DOUBLE_EQ(p.GetAssetPointer("SUR")->LockedQty.asDouble(), 5.0);
  p.RevertAddBoards({3}, {});
  EXPECT_DOUBLE_EQ(p.GetAssetPointer("SUR")->Pos.asDouble(), 1000.0);
  p.ApplyAddBoards({4}, {});  // not its tag
  EXPECT_DOUBLE_EQ(p.GetAssetPointer("SUR")->Pos.asDouble(), 1000.0);
}

TEST(AddBoardsTest, NegativeTag5MoneyIsReservedAndDepoOnAccountType5AddsItsShort) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TAsset cash = Money("SUR", 1000);
  p.AddAsset("SUR", cash, Own("SUR", cash), true);
  TAsset d = Depo(10, 10, 1, Disc(0.1, 0.1));
  p.AddAsset("D", d, Own("D", d), true);
  TAsset m5 = Money("SUR", -30);
  m5.TagType = ETagTypes{5};
  p.AddAdditionalAsset("SUR", m5, "SUR", Disc(0, 0));
  TAsset d5 = Depo(-4, 10, 1, Disc(0.1, 0.1));
  d5.TrdAccType = ETrdAccTypes{5};
  p.AddAdditionalAsset("D", d5, "SUR", Disc(0.1, 0.1));
  p.ApplyAddBoards({5}, {5});
  EXPECT_DOUBLE_EQ(p.GetAssetPointer("SUR")->ReservedQty.asDouble(), 30.0);
  EXPECT_DOUBLE_EQ(p.GetAssetPointer("D")->Pos.asDouble(), 6.0);
}

}  // namespace

namespace {

// ---- Relative risk of an option set ----

// A long call on "SiZ6" with relative risk 0.05, and a short futures.
struct RelRiskSet {
  TPlainMarginSettings s;
  TPortfolio p{s, "C1", -1, "", 0, false};
  TOptParams params = OptionParams("SiC", ctCall_P);
  explicit RelRiskSet(bool subGroup) {
    params.InRelRiskSubGroup = subGroup;
    TAsset call = Option("SiC", ctCall_P, 2);
    call.OptParams->InRelRiskSubGroup = subGroup;
    call.RelRiskRate = 0.05;
    TAsset fut = Futures();
    fut.Pos = -1;
    fut.VarMargin = 0;
    fut.RelRiskRate = 0.05;
    p.AddAsset("SiC", call, SiSet(), true);
    p.AddAsset("SiZ6", fut, SiSet(), true);
  }
  std::vector<std::vector<double>> Rows() const {
    return {Scaled(OptionScenarios(ctCall_P), 2), Scaled(FuturesScenarios(), -1)};
  }
  std::vector<std::pair<double, double>> Deltas() const {
    std::vector<std::pair<double, double>> d =
        ScenarioOptRelRiskDeltas(&params, PrepOptCalcParams(100, kSetDisc), 0.05);
    for (auto& e : d) e = {e.first * 2, e.second * 2};
    return d;
  }
};

TEST(OptionSetRelRiskTest, InitialMarginAddsTheRelativeRiskRowAndTheInstrumentsRisk) {
  RelRiskSet c(false);
  // Threshold: the short futures covers the call side: min(0.15 * 1, 0.15 * 2, 0) = 0.
  std::vector<std::vector<double>> rows = c.Rows();
  std::vector<double> rel;
  for (const auto& e : c.Deltas()) rel.push_back(std::min({0.0, e.first, e.second}));
  rows.push_back(rel);
  const double futRel = 1 * 100 * 0.05;
  const auto [init, netto] = c.p.CalcInitialMarg();
  EXPECT_NEAR(init, HalfNetto(rows) + futRel, 1e-6);
  EXPECT_NEAR(netto, Netto(c.Rows()) + futRel, 1e-6);
}

TEST(OptionSetRelRiskTest, SubGroupsCoverTheFuturesByDeltaInTheNettoMargin) {
  RelRiskSet c(true);
  const std::vector<std::vector<double>> rows = c.Rows();
  // The worst column of the netto sum, the earliest of equals.
  size_t worst = 0;
  double low = 0;
  for (size_t j = 0; j < rows[0].size(); ++j) {
    const double col = rows[0][j] + rows[1][j];
    if (j == 0 || col < low - 1e-7) {
      low = col;
      worst = j;
    }
  }
  const auto d = c.Deltas();
  // Short futures (q = -1) against a long call's positive delta: no share of
  // the futures goes to the call, so f is the call's own relative loss.
  const double f = std::max({0.0, -d[worst].second, -d[worst].first});
  const double futRel = 1 * 100 * 0.05;
  EXPECT_NEAR(c.p.CalcInitialMarg().second, std::fabs(low) + f + futRel, 1e-6);
}

// ---- Flips and additional boards ----

TEST(FlipTest, PerevorotMarksTheSideThatTurnsThePosition) {
  TPlainMarginSettings s;
  s.enableDiscountPerevorot = true;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TAsset shortNM = Depo(-10, 10, 1, Disc(1.0, 1e50));
  shortNM.LockedBuyVal = 100;
  p.AddAsset("X", shortNM, Own("X", shortNM), true);
  TAsset cash = Money("SUR", 1000);
  p.AddAsset("SUR", cash, Own("SUR", cash), true);
  p.CheckTransactionFlipsPosition('B', 10, 10, p.GetAssetPointer("X"), p.GetAssetPointer("SUR"));
  EXPECT_TRUE(p.GetAssetPointer("X")->FlipsBuy);
  EXPECT_TRUE(p.NonMargFlipPosition);
  TAsset longY = Depo(10, 10, 1, Disc(0.2, 0.3));
  longY.LockedSellVal = 100;
  p.AddAsset("Y", longY, Own("Y", longY), true);
  p.CheckTransactionFlipsPosition('S', 10, 10, p.GetAssetPointer("Y"), p.GetAssetPointer("SUR"));
  EXPECT_TRUE(p.GetAssetPointer("Y")->FlipsSell);
  EXPECT_FALSE(p.GetAssetPointer("SUR")->FlipsBuy);  // the money is not short
}

TEST(FlipTest, WithoutPerevorotASaleCoversOnlyAShortAtLeastItsSize) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TAsset cash = Money("SUR", 1000);
  p.AddAsset("SUR", cash, Own("SUR", cash), true);
  TAsset x = Depo(-5, 10, 1, Disc(1.0, 1e50));
  p.AddAsset("X", x, Own("X", x), true);
  p.CheckTransactionFlipsPosition('S', 10, 10, p.GetAssetPointer("SUR"), p.GetAssetPointer("X"));
  EXPECT_FALSE(p.NonMargFlipPosition);  // q = 10 is more than the short of 5
  p.CheckTransactionFlipsPosition('S', 5, 10, p.GetAssetPointer("SUR"), p.GetAssetPointer("X"));
  EXPECT_TRUE(p.NonMargFlipPosition);
}

TEST(AddBoardsTest, CorrectAddBoardAssetsMovesTheShortfallIntoTag6Assets) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TAsset t3 = Money("SUR", 4);
  t3.TagType = ETagTypes{3};
  t3.LockedQty = 10;
  p.AddAdditionalAsset("SUR", t3, "SUR", Disc(0, 0));
  TAsset t6 = Money("SUR", -10);
  t6.TagType = ETagTypes{6};
  p.AddAdditionalAsset("SUR", t6, "SUR", Disc(0, 0));
  p.CorrectAddBoardAssets();
  // s = 10 - 4 = 6; t = Positive(6 - 10) = 0; the tag-6 asset takes 6.
  EXPECT_DOUBLE_EQ(p.GetAdditionalAssets()[1].second.Pos.asDouble(), -4.0);
  EXPECT_DOUBLE_EQ(p.GetAdditionalAssets()[0].second.Pos.asDouble(), 4.0);
}

TEST(AddBoardsTest, Tag6CountsOnlyWhenTheMainOperationAssetIsNotMarginal) {
  TPlainMarginSettings s;
  TPortfolio p(s, "C1", -1, "", 0, false);
  TAsset cash = Money("SUR", 1000);
  p.AddAsset("SUR", cash, Own("SUR", cash), true);
  TAsset nm = Depo(1, 10, 1, Disc(1.0, 1e50));
  p.AddAsset("NM", nm, Own("NM", nm), true);
  TAsset t6 = Money("SUR", -30);
  t6.TagType = ETagTypes{6};
  p.AddAdditionalAsset("SUR", t6, "SUR", Disc(0, 0));
  p.SetOperationAssets("SUR", "NM", "", "");
  p.ApplyAddBoards({6}, {});
  EXPECT_DOUBLE_EQ(p.GetAssetPointer("SUR")->LockedQty.asDouble(), 0.0);  // main asset is marginal money
  p.SetOperationAssets("NM", "SUR", "", "");
  p.ApplyAddBoards({6}, {});
  EXPECT_DOUBLE_EQ(p.GetAssetPointer("SUR")->LockedQty.asDouble(), 30.0);
}

}  // namespace
