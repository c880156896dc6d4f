// The effective-settings queries a host engine asks on every order: the
// effective discounts of a security and a restriction test, for a firm of
// clients at every level: 40 % with a personal margin section, 40 % listed in
// ten margin templates, 20 % caught by prefix sections (50 000 clients:
// 20 000, 20 000 and 10 000).
//
// Cold: the first query for a client on a freshly loaded firm (the caches
// parse the client's settings). Warm: the same query again. The warm figure
// is measured for firms of 1 000 to 100 000 clients. The memory benchmark
// reports the heap bytes in use of the loaded firm and of its caches
// after every client has been asked, against the size of the text.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <malloc.h>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "core/TInfoStorage.h"

namespace {

using DL::TDiscountsEx;
using DL::TInfoStorage;

std::string Code(char head, int n) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "%c%06d", head, n);
  return buf;
}

struct TFirmText {
  std::string text;
  std::vector<std::string> inOrder;  // in the order of the text: personal, template, prefix
  std::vector<std::string> clients;  // the same, shuffled: every level mixed
};

TFirmText MakeFirm(int total) {
  const int personal = total * 2 / 5;
  const int templates = 10;
  const int perTemplate = total * 2 / 5 / templates;
  const int prefixed = total - personal - templates * perTemplate;
  TFirmText f;
  std::string& t = f.text;
  t = "[General]\nUseMarginalSignsFromDiscSettings=1\n[ClientLag]\nP*=5\n[SecurityDiscounts]\n";
  for (int s = 0; s < 100; ++s) t += "S" + std::to_string(s) + "=1,1,0.2,0.3\n";
  t += "[RestShortSecurities]\nSECURITY_TQBR=S1,S2,S3,GA*\n";
  for (int i = 0; i < personal; ++i) {
    f.clients.push_back(Code('P', i));
    t += "[cl" + f.clients.back() + "_Margin]\nUseSecurityDiscounts=2\nS1_DISC=1,1,0.1,0.2\nS2_DISC=1,1,0.15,0.25\n";
  }
  for (int k = 0; k < templates; ++k) {
    t += "[clTPL" + std::to_string(k) + "_Margin_Template]\nUseSecurityDiscounts=0\nClients=";
    for (int i = 0; i < perTemplate; ++i) {
      f.clients.push_back(Code('T', k * perTemplate + i));
      t += (i ? "," : "") + f.clients.back();
    }
    t += "\n";
  }
  t += "[clQ*_Margin]\nUseSecurityDiscounts=0\n";
  for (int a = 0; a < 10; ++a) {
    t += "[clQ" + std::to_string(a) + "*_Margin]\nUseSecurityDiscounts=0\n";
    for (int b = 0; b < 10; ++b)
      t += "[clQ" + std::to_string(a) + std::to_string(b) + "*_Margin]\nUseSecurityDiscounts=0\n";
  }
  for (int i = 0; i < prefixed; ++i) f.clients.push_back(Code('Q', i));
  f.inOrder = f.clients;
  std::shuffle(f.clients.begin(), f.clients.end(), std::mt19937(42));
  return f;
}

const TFirmText& Firm(int total) {
  static std::map<int, std::unique_ptr<TFirmText>> firms;
  auto& f = firms[total];
  if (!f) f = std::make_unique<TFirmText>(MakeFirm(total));
  return *f;
}

void Discounts(const TInfoStorage& s, const std::string& client, TDiscountsEx& out) {
  s.GetEffectiveDiscountsEx(out, client.c_str(), "S1", "TQBR", "SUR", 0, 0, -1.0, -1.0, -1.0, 0.0, 0.0);
}

bool Restricted(const TInfoStorage& s, const std::string& client) {
  return s.IsSecurityRestricted(client.c_str(), -1.0, "TQBR", "S2", 0);
}

// range(0): clients in the firm; range(1): 1 asks them in a random order,
// 0 in the order of the text (neighbouring clients' settings lie together
// in memory, as in a host that walks its clients in turn).
template <class Query>
void Warm(benchmark::State& state, Query query) {
  const TFirmText& f = Firm(static_cast<int>(state.range(0)));
  const std::vector<std::string>& order = state.range(1) != 0 ? f.clients : f.inOrder;
  TInfoStorage storage(f.text.c_str(), 2, false);
  for (const std::string& c : order) query(storage, c);
  std::size_t i = 0;
  for (auto _ : state) {
    query(storage, order[i]);
    if (++i == order.size()) i = 0;
  }
  state.SetLabel(std::to_string(order.size()) + (state.range(1) != 0 ? " clients, random" : " clients, in turn"));
}

// Every timed query is the first for its client on the loaded firm; the
// firm is loaded anew (outside the timing) when all clients were asked.
template <class Query>
void Cold(benchmark::State& state, Query query) {
  const TFirmText& f = Firm(50000);
  std::unique_ptr<TInfoStorage> storage;
  std::size_t i = f.clients.size();
  for (auto _ : state) {
    if (i == f.clients.size()) {
      state.PauseTiming();
      storage.reset();
      storage = std::make_unique<TInfoStorage>(f.text.c_str(), 2, false);
      i = 0;
      state.ResumeTiming();
    }
    query(*storage, f.clients[i++]);
  }
}

void BM_EffectiveDiscountsWarm(benchmark::State& state) {
  TDiscountsEx out;
  Warm(state, [&](const TInfoStorage& s, const std::string& c) {
    Discounts(s, c, out);
    benchmark::DoNotOptimize(out);
  });
}
BENCHMARK(BM_EffectiveDiscountsWarm)->ArgsProduct({{1000, 10000, 50000, 100000}, {0, 1}});

void BM_EffectiveDiscountsCold(benchmark::State& state) {
  TDiscountsEx out;
  Cold(state, [&](const TInfoStorage& s, const std::string& c) {
    Discounts(s, c, out);
    benchmark::DoNotOptimize(out);
  });
}
BENCHMARK(BM_EffectiveDiscountsCold)->Iterations(100000);

void BM_IsSecurityRestrictedWarm(benchmark::State& state) {
  Warm(state, [](const TInfoStorage& s, const std::string& c) { benchmark::DoNotOptimize(Restricted(s, c)); });
}
BENCHMARK(BM_IsSecurityRestrictedWarm)->ArgsProduct({{1000, 10000, 50000, 100000}, {0, 1}});

void BM_IsSecurityRestrictedCold(benchmark::State& state) {
  Cold(state, [](const TInfoStorage& s, const std::string& c) { benchmark::DoNotOptimize(Restricted(s, c)); });
}
BENCHMARK(BM_IsSecurityRestrictedCold)->Iterations(100000);

// Bytes the heap has handed out and not taken back (glibc).
double HeapBytes() { return static_cast<double>(mallinfo2().uordblks); }

void BM_MemoryOfFirmAndCaches(benchmark::State& state) {
  const TFirmText& f = Firm(50000);
  for (auto _ : state) {
    const double before = HeapBytes();
    auto storage = std::make_unique<TInfoStorage>(f.text.c_str(), 2, false);
    const double loaded = HeapBytes();
    TDiscountsEx out;
    for (const std::string& c : f.clients) {
      Discounts(*storage, c, out);
      benchmark::DoNotOptimize(Restricted(*storage, c));
    }
    const double asked = HeapBytes();
    state.counters["text_MB"] = static_cast<double>(f.text.size()) / 1e6;
    state.counters["loaded_MB"] = (loaded - before) / 1e6;
    state.counters["after_50000_asked_MB"] = (asked - before) / 1e6;
    state.counters["caches_MB"] = (asked - loaded) / 1e6;
  }
}
BENCHMARK(BM_MemoryOfFirmAndCaches)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
