// The exchange fee of one deal: CalcCommValue of the board tariffs through
// the base class, as the host engine calls it, and the lookup of a board's
// tariff in a loaded firm.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "commission/RepoTariffs.h"
#include "commission/TNormalTariff.h"
#include "commission/TTPlusBondsTariff.h"
#include "commission/TVolumeScaledBondsTariff.h"
#include "core/TStorageHub.h"

namespace {

using DL::ABoardTariff;
using DL::TExchCommRate;

const TExchCommRate kNotSet(-1.0, -1.0, -1.0);

// Deal values that walk over small and large deals and several terms.
struct TDeal {
  double value;
  unsigned days;
};
const std::vector<TDeal>& Deals() {
  static const std::vector<TDeal> deals = {
      {1000.0, 0}, {1e6, 1}, {2.5e7, 5}, {1e9, 10}, {2e12, 30}, {1e13, 0}, {4e13, 200}, {5e5, 7}};
  return deals;
}

void RunCalc(benchmark::State& state, const ABoardTariff& tariff) {
  const std::vector<TDeal>& deals = Deals();
  std::size_t i = 0;
  for (auto _ : state) {
    const TDeal& d = deals[i++ % deals.size()];
    benchmark::DoNotOptimize(tariff.CalcCommValue(d.value, 0.0, d.days, d.days));
  }
}

void BM_NormalTariff(benchmark::State& state) {
  const std::unique_ptr<ABoardTariff> t = std::make_unique<DL::TNormalTariff>(0.01725, 0.01275, kNotSet, true);
  RunCalc(state, *t);
}
BENCHMARK(BM_NormalTariff);

void BM_MoexREPO(benchmark::State& state) {
  const std::unique_ptr<ABoardTariff> t =
      std::make_unique<DL::TMoexREPO>(3.6e-05, 3.6e-05, 0.000168, 30.0, 30.0, 140.0, kNotSet, false);
  RunCalc(state, *t);
}
BENCHMARK(BM_MoexREPO);

void BM_TPlusBondsTariff(benchmark::State& state) {
  const std::unique_ptr<ABoardTariff> t = std::make_unique<DL::TNegDealBondsTariff>(kNotSet, true);
  RunCalc(state, *t);
}
BENCHMARK(BM_TPlusBondsTariff);

void BM_VolumeScaledBondsTariff(benchmark::State& state) {
  const std::unique_ptr<ABoardTariff> t = std::make_unique<DL::TVolumeScaledBondsTariff>(kNotSet, true);
  RunCalc(state, *t);
}
BENCHMARK(BM_VolumeScaledBondsTariff);

// The host's whole step: the tariff of the deal's board, then the fee.
void BM_LookupAndCalc(benchmark::State& state) {
  const DL::TStorageHub hub("[ORGCOMMISSION]\nTQBR=0.001\n", 2);
  const char* boards[] = {"TQBR", "EQRP", "TQCB", "PAEU", "XXXX", "tqbr", "RPMA", "OCAR"};
  std::size_t i = 0;
  for (auto _ : state) {
    const ABoardTariff* t = hub.GetBoardTariff(boards[i++ % 8]);
    benchmark::DoNotOptimize(t->CalcCommValue(1e6, 0.0, 7, 7));
  }
}
BENCHMARK(BM_LookupAndCalc);

// The fill of a firm's tariffs is part of every load.
void BM_LoadEmptyFirm(benchmark::State& state) {
  for (auto _ : state) {
    const DL::TStorageHub hub("", 2);
    benchmark::DoNotOptimize(hub.GetBoardTariffs().Size());
  }
}
BENCHMARK(BM_LoadEmptyFirm);

}  // namespace
