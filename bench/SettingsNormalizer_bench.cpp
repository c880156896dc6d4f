// Normalising synthetic settings texts of 1, 2, 10 and 20 MB: each size is
// about double the one before (2 to 1, 20 to 10), so a quadratic step would
// show as a fourfold time.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "ScrambledSettingsText.h"
#include "settings/SettingsNormalizer.h"

namespace {

using zbench::MakeScrambledSettingsText;

const std::string& Text(size_t megabytes) {
  static std::map<size_t, std::string> texts;
  auto [it, inserted] = texts.try_emplace(megabytes);
  if (inserted) it->second = MakeScrambledSettingsText(megabytes << 20, static_cast<uint32_t>(megabytes));
  return it->second;
}

// Read, sort and write a scrambled text: the whole work of a settings save.
void BM_NormalizeScrambled(benchmark::State& state) {
  const std::string& text = Text(static_cast<size_t>(state.range(0)));
  DL::SettingsNormalizer normalizer;
  std::string out;
  for (auto _ : state) {
    normalizer.ClearSettings();
    normalizer.ReadFrom(text);
    normalizer.Normalize();
    normalizer.WriteTo(out);
    benchmark::DoNotOptimize(out.data());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
  state.counters["sections"] = static_cast<double>(normalizer.GetSectionCount());
}
BENCHMARK(BM_NormalizeScrambled)->Arg(1)->Arg(2)->Arg(10)->Arg(20)->Unit(benchmark::kMillisecond);

// The same on text already in canonical order.
void BM_NormalizeCanonical(benchmark::State& state) {
  std::string canonical;
  {
    DL::SettingsNormalizer n;
    n.ReadFrom(Text(static_cast<size_t>(state.range(0))));
    n.Normalize();
    n.WriteTo(canonical);
  }
  DL::SettingsNormalizer normalizer;
  std::string out;
  for (auto _ : state) {
    normalizer.ClearSettings();
    normalizer.ReadFrom(canonical);
    normalizer.Normalize();
    normalizer.WriteTo(out);
    benchmark::DoNotOptimize(out.data());
  }
  if (out != canonical) state.SkipWithError("canonical text changed");
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * canonical.size()));
}
BENCHMARK(BM_NormalizeCanonical)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

// Normalize alone, the read and the write left out of the timing.
void BM_SortOnly(benchmark::State& state) {
  const std::string& text = Text(static_cast<size_t>(state.range(0)));
  DL::SettingsNormalizer normalizer;
  for (auto _ : state) {
    state.PauseTiming();
    normalizer.ClearSettings();
    normalizer.ReadFrom(text);
    state.ResumeTiming();
    normalizer.Normalize();
  }
}
BENCHMARK(BM_SortOnly)->Arg(1)->Arg(2)->Arg(10)->Arg(20)->Unit(benchmark::kMillisecond);

// Building the rules: once per normalizer object.
void BM_CompileRules(benchmark::State& state) {
  for (auto _ : state) {
    DL::SettingsNormalizer normalizer;
    benchmark::DoNotOptimize(&normalizer);
  }
}
BENCHMARK(BM_CompileRules)->Unit(benchmark::kMicrosecond);

}  // namespace
