// Resolution of a client's section in a large firm: 50 000 clients, of whom
// 20 000 have a personal section, 20 000 are listed in ten templates of 2 000
// clients each, and 10 000 are caught by prefix sections of lengths 1 to 3.
//
// Cold: the first query for a client on a resolver (the memo is empty for
// it). Warm: a query answered from the memo. Also the warm query of a cache
// for a client-level item, which is one hash lookup.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "cache/TIniSettingCache.h"
#include "ini/TIniLogicParser.h"
#include "ini/TIniParser.h"

namespace {

using DL::TIniLogicParser;
using DL::TIniParser;

constexpr int kPersonal = 20000;
constexpr int kTemplates = 10;
constexpr int kPerTemplate = 2000;
constexpr int kPrefixed = 10000;

std::string Code(char head, int n) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "%c%05d", head, n);
  return buf;
}

struct TFirm {
  TIniParser parser;
  std::vector<std::string> personal, listed, prefixed, all;

  TFirm() {
    std::string text = "[General]\nCheckClient=1\n";
    for (int i = 0; i < kPersonal; ++i) {
      personal.push_back(Code('P', i));
      text += "[cl" + personal.back() + "]\nUseTotalBalance=1\n";
    }
    for (int t = 0; t < kTemplates; ++t) {
      text += "[clTPL" + std::to_string(t) + "_Client_Template]\nIncludeClientsWithLeverage=" +
              std::to_string(t + 2) + "\nCLIENTS=";
      for (int i = 0; i < kPerTemplate; ++i) {
        listed.push_back(Code('T', t * kPerTemplate + i));
        text += (i ? "," : "") + listed.back();
      }
      text += "\n";
    }
    text += "[clQ*]\nA=1\n";
    for (int a = 0; a < 10; ++a) {
      text += "[clQ" + std::to_string(a) + "*]\nA=1\n";
      for (int b = 0; b < 10; ++b) text += "[clQ" + std::to_string(a) + std::to_string(b) + "*]\nA=1\n";
    }
    for (int i = 0; i < kPrefixed; ++i) prefixed.push_back(Code('Q', i * 7));
    all = personal;
    all.insert(all.end(), listed.begin(), listed.end());
    all.insert(all.end(), prefixed.begin(), prefixed.end());
    std::shuffle(all.begin(), all.end(), std::mt19937(42));
    parser.Init(text.c_str(), TIniParser::SourceText, ';', 1);
  }
};

TFirm& Firm() {
  static TFirm firm;
  return firm;
}

const std::vector<std::string>& Clients(int kind) {
  TFirm& f = Firm();
  switch (kind) {
    case 0: return f.personal;
    case 1: return f.listed;
    case 2: return f.prefixed;
    default: return f.all;
  }
}

const char* KindName(int kind) {
  static const char* const names[] = {"personal", "template", "prefix", "mixed"};
  return names[kind];
}

// Every query is the first for its client: a new resolver after each round.
void BM_ResolveCold(benchmark::State& state) {
  const std::vector<std::string>& clients = Clients(static_cast<int>(state.range(0)));
  auto logic = std::make_unique<TIniLogicParser>(Firm().parser);
  std::size_t i = 0;
  for (auto _ : state) {
    if (i == clients.size()) {
      state.PauseTiming();
      logic = std::make_unique<TIniLogicParser>(Firm().parser);
      i = 0;
      state.ResumeTiming();
    }
    benchmark::DoNotOptimize(logic->ResolveClientSection(clients[i++], DL::UNDEF_LEVERAGE));
  }
  state.SetLabel(KindName(static_cast<int>(state.range(0))));
}
BENCHMARK(BM_ResolveCold)->DenseRange(0, 3)->Unit(benchmark::kNanosecond);

// Every client resolved once before; each query is answered by the memo.
void BM_ResolveWarm(benchmark::State& state) {
  const std::vector<std::string>& clients = Clients(static_cast<int>(state.range(0)));
  TIniLogicParser logic(Firm().parser);
  for (const std::string& c : clients) logic.ResolveClientSection(c, DL::UNDEF_LEVERAGE);
  std::size_t i = 0;
  for (auto _ : state) {
    if (i == clients.size()) i = 0;
    benchmark::DoNotOptimize(logic.ResolveClientSection(clients[i++], DL::UNDEF_LEVERAGE));
  }
  state.SetLabel(KindName(static_cast<int>(state.range(0))));
}
BENCHMARK(BM_ResolveWarm)->DenseRange(0, 3)->Unit(benchmark::kNanosecond);

// A leverage query: the leverage map of the resolver, read once per resolver.
void BM_ResolveByLeverageWarm(benchmark::State& state) {
  TIniLogicParser logic(Firm().parser);
  const std::string& client = Firm().personal[0];
  int lev = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(logic.ResolveClientSection(client, 200 + 100 * (lev++ % kTemplates)));
  }
}
BENCHMARK(BM_ResolveByLeverageWarm)->Unit(benchmark::kNanosecond);

// A cache over the resolution: a client-level item is one hash lookup.
struct TFlag {
  int value;
};

class TBenchCache : public DL::AIniSettingCacheMaster<TFlag> {
 public:
  explicit TBenchCache(TIniParser& parser) : AIniSettingCacheMaster(parser, nullptr), m_logic(parser) {
    SetGlobalSettings(std::make_unique<TFlag>(TFlag{0}));
  }
  TParseResult ParseSettingsForClient(const DL::TIniCacheItemID& id) const override {
    const DL::TResolvedSection r = m_logic.ResolveClientSection(id.ClientCode(), id.LeverageInt());
    if (r.source == DL::SourceGlobal) return {nullptr, DL::SourceGlobal};
    TFlag* flag = m_sections.GetOrParse(*r.section, [&](const std::string& s) {
      return std::make_unique<TFlag>(TFlag{Parser().GetIniParamInt(s, "UseTotalBalance", 0)});
    });
    return {flag, r.source};
  }

 private:
  DL::TIniLogicParser m_logic;
  mutable DL::TParsedSections<TFlag> m_sections;
};

void BM_CacheGetIniSettingWarm(benchmark::State& state) {
  TBenchCache cache(Firm().parser);
  std::vector<DL::TIniCacheItemID> ids;
  for (const std::string& c : Firm().personal) ids.emplace_back(c.c_str(), "TQBR", "SBER", -1.0);
  for (const auto& id : ids) cache.GetIniSetting(id);
  std::size_t i = 0;
  for (auto _ : state) {
    if (i == ids.size()) i = 0;
    benchmark::DoNotOptimize(cache.GetIniSetting(ids[i++]));
  }
}
BENCHMARK(BM_CacheGetIniSettingWarm)->Unit(benchmark::kNanosecond);

}  // namespace
