// The portfolio margin of an option book: 10, 100 and 1 000 options spread
// over 10 base futures, each base in a set of its own with its options, on
// the 73-point grid of a non-marginal base (the scenario vectors are priced
// once by the host, as in production). One benchmark for the initial margin,
// one for the corrected margin (which also reads the orders).
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "margin/TPortfolio.h"

namespace {

using namespace DL::MDPLUS;

constexpr int kBases = 10;
// Above 1: the grid runs from 0 to twice the price, 73 points.
const DL::TDiscountsEx kSetDisc{1.5, 1.5, 0, 0, {}, false, false};

void Fill(TPortfolio& p, int options) {
  TAsset cash;
  cash.AssetType = atMoney;
  cash.Pos = 1e7;
  cash.Price = 1;
  cash.Discounts = DL::TDiscountsEx{0, 0, 0, 0, {}, false, false};
  cash.SetCurrCode("SUR");
  p.AddAsset("SUR", cash, TAssetGroup("SUR", "SUR", cash.Discounts), true);
  for (int b = 0; b < kBases; ++b) {
    const std::string base = "FUT" + std::to_string(b);
    const std::string set = "SET" + std::to_string(b);
    const double price = 100.0 + 10.0 * b;
    TAsset fut;
    fut.AssetType = atFut;
    fut.Pos = 5 + b;
    fut.Price = price;
    fut.Discounts = kSetDisc;
    fut.InSet = fut.KeepInOptionSet = true;
    fut.LockedSellQty = 1;
    fut.SetCurrCode("SUR");
    p.AddAsset(base, fut, TAssetGroup(set, "SUR", kSetDisc), true);
    const BaseAsset2OptCalcParams grid = PrepOptCalcParams(price, kSetDisc);
    for (int k = 0; k < options / kBases; ++k) {
      TAsset o;
      o.AssetType = atOpt;
      o.OptParams = std::make_unique<TOptParams>();
      TOptParams& op = *o.OptParams;
      op.OptCode = base + "_O" + std::to_string(k);
      op.BaseCode = base;
      op.ContractType = k % 2 ? ctPut_P : ctCall_P;
      op.Stock = price;
      op.Strike = price * (0.8 + 0.04 * (k % 11));
      op.Ytm = 0.1 + 0.05 * (k % 5);
      op.Vlt = 0.3;
      op.VltUp = op.VltDwn = 0.1;
      op.Lot = 1;
      o.Pos = (k % 3) - 1.0 + (k % 2 ? 2 : 0);
      o.LockedBuyQty = k % 4 == 0 ? 1 : 0;
      o.Theor = OptionTheoreticalPrice(op);
      o.Price = o.Theor;
      o.Discounts = kSetDisc;
      o.InSet = o.KeepInOptionSet = true;
      o.SetCurrCode("SUR");
      o.CalcOptRisks(&grid);
      p.AddAsset(op.OptCode, o, TAssetGroup(set, "SUR", kSetDisc), true);
    }
  }
}

void BM_InitialMargin(benchmark::State& state) {
  TPlainMarginSettings settings;
  TPortfolio p(settings, "C1", -1, "", 0, false);
  Fill(p, static_cast<int>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(p.CalcInitialMarg());
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_InitialMargin)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond)->Complexity();

void BM_CorrectedMargin(benchmark::State& state) {
  TPlainMarginSettings settings;
  TPortfolio p(settings, "C1", -1, "", 0, false);
  Fill(p, static_cast<int>(state.range(0)));
  bool nm = false;
  for (auto _ : state) benchmark::DoNotOptimize(p.CalcCorrMarg(llNone, nm, false));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_CorrectedMargin)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond)->Complexity();

}  // namespace
