// The exchange commission of one deal through the host engine's entry
// (GetExchangeCommission): board tariffs and the currency market, with the
// number of heap allocations per deal counted by a replaced operator new.
#include <benchmark/benchmark.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <vector>

#include "core/ExchangeCommission.h"
#include "core/TStorageHub.h"
#include "support/TTodayDate.h"

namespace {

std::atomic<std::size_t> g_allocations{0};

}  // namespace

// The replaced pair allocates with malloc and frees with free; the compiler
// cannot see that they match once inlined into a static initialiser.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void* operator new(std::size_t size) {
  g_allocations.fetch_add(1, std::memory_order_relaxed);
  if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
#pragma GCC diagnostic pop

namespace {

using DL::TExchangeDeal;

TExchangeDeal Deal(const char* board, const char* sec, double value, double qty, char side = 'B', long settle1 = 0,
                   long settle2 = 0, bool swap = false) {
  TExchangeDeal d;
  d.board = board;
  d.security = sec;
  d.value = value;
  d.qty = qty;
  d.side = side;
  d.settleDate1 = settle1;
  d.settleDate2 = settle2;
  d.isSwap = swap;
  return d;
}

// Deals over the board families: shares, repo by the board's term, T+ and
// negotiated bonds with a settle date, placement sold, the default board.
const std::vector<TExchangeDeal>& BoardDeals() {
  static const std::vector<TExchangeDeal> deals = {
      Deal("TQBR", "SBER", 1e6, 10),        Deal("EQWD", "SBER", 5e7, 100),
      Deal("TQCB", "RU000A0JX0J2", 2e6, 2, 'B', 20250115), Deal("PSNB", "RU000A0JX0J2", 3e8, 300, 'S', 20250301),
      Deal("PAEU", "RU000A0JX0J2", 1e9, 1000, 'S'),        Deal("tqbr", "GAZP", 5e5, 1),
      Deal("RPCC", "SBER", 1e7, 10, 'B', 20250115, 20250125), Deal("XXXX", "SBER", 1e5, 1)};
  return deals;
}

// Deals of the currency market: spot with the floor, forwards by suffix and
// by dates, a swap, gold bought and sold, fixing.
const std::vector<TExchangeDeal>& CurrencyDeals() {
  static const std::vector<TExchangeDeal> deals = {
      Deal("CETS", "USD000UTSTOM", 1e9, 1000),  Deal("CETS", "USD000UTSTOM", 1e6, 49),
      Deal("FUTS", "USDRUB_1W", 5e8, 500),      Deal("FUTS", "USDRUB_0326", 5e8, 500, 'B', 20250115),
      Deal("CETS", "USDRUB_0125", 1e9, 1000, 'B', 20250101, 20250131, true),
      Deal("CETS_MTL", "GLDRUB_TOM", 1e7, 10),  Deal("CETS_MTL", "GLDRUB_TOM", 1e7, 10, 'S'),
      Deal("FIXS", "EURUSD000TOM", 2e6, 20)};
  return deals;
}

void Run(benchmark::State& state, const std::vector<TExchangeDeal>& deals) {
  const Library::TScopedTodayDate today(20250110);
  DL::TStorageHub hub("[ORGCOMMISSION]\nTQBR=0.001\nCETS=0.002\n", 2);
  DL::TExchCommValue out;
  // The first deal of each kind builds what the firm keeps (the currency
  // tariff, sale-side copies); that is not part of a deal's cost.
  for (const TExchangeDeal& d : deals)
    if (DL::GetExchangeCommission(hub, d, &out) != 0) state.SkipWithError("deal refused");
  const std::size_t before = g_allocations.load(std::memory_order_relaxed);
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(DL::GetExchangeCommission(hub, deals[i++ % deals.size()], &out));
    benchmark::DoNotOptimize(out);
  }
  const std::size_t allocations = g_allocations.load(std::memory_order_relaxed) - before;
  state.counters["allocs_per_deal"] =
      benchmark::Counter(static_cast<double>(allocations), benchmark::Counter::kAvgIterations);
  state.counters["deals_per_s"] = benchmark::Counter(static_cast<double>(state.iterations()),
                                                     benchmark::Counter::kIsRate);
}

void BM_ExchangeCommissionBoard(benchmark::State& state) { Run(state, BoardDeals()); }
BENCHMARK(BM_ExchangeCommissionBoard);

void BM_ExchangeCommissionCurrency(benchmark::State& state) { Run(state, CurrencyDeals()); }
BENCHMARK(BM_ExchangeCommissionCurrency);

// The currency market without settle dates: the tariff's own work, without
// the conversion of dates.
void BM_ExchangeCommissionCurrencyNoDates(benchmark::State& state) {
  static const std::vector<TExchangeDeal> deals = {
      Deal("CETS", "USD000UTSTOM", 1e9, 1000), Deal("CETS", "USD000UTSTOM", 1e6, 49),
      Deal("FUTS", "USDRUB_1W", 5e8, 500),     Deal("CETS_MTL", "GLDRUB_TOM", 1e7, 10, 'S'),
      Deal("FIXS", "EURUSD000TOM", 2e6, 20),   Deal("CETS_SU", "USD000UTSTOM", 1e6, 1)};
  Run(state, deals);
}
BENCHMARK(BM_ExchangeCommissionCurrencyNoDates);

}  // namespace
