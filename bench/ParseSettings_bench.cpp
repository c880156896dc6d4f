// Throughput of the settings text reader on a synthetic firm of about 10 MB,
// beside a plain getline scanner that builds the same maps.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>

#include "PlainSettingsScanner.h"
#include "SettingsGenerator.h"
#include "ini/SettingsText.h"

namespace {

const std::string& Text() {
  static const std::string text = zbench::GenerateSettingsTextOfSize(10u << 20);
  return text;
}

template <class TRead>
void RunReader(benchmark::State& state, TRead read) {
  const std::string& text = Text();
  std::size_t sections = 0;
  for (auto _ : state) {
    state.PauseTiming();
    {
      std::istringstream in(text);
      DL::TIniSectionsMap map;
      DL::TIniClientValueMap values;
      state.ResumeTiming();
      read(in, &map, &values);
      state.PauseTiming();
      sections = map.size();
      benchmark::DoNotOptimize(values);
    }  // the maps are freed outside the measured time
    state.ResumeTiming();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(text.size()));
  state.counters["sections"] = static_cast<double>(sections);
  state.counters["MB"] = static_cast<double>(text.size()) / 1e6;
}

void BM_ParseSettings(benchmark::State& state) {
  RunReader(state, [](std::istream& in, DL::TIniSectionsMap* m, DL::TIniClientValueMap* v) {
    DL::ParseSettings(in, ';', m, v);
  });
}
BENCHMARK(BM_ParseSettings)->Unit(benchmark::kMillisecond);

void BM_PlainLineScanner(benchmark::State& state) {
  RunReader(state, [](std::istream& in, DL::TIniSectionsMap* m, DL::TIniClientValueMap* v) {
    zbench::ParseSettingsByLines(in, ';', m, v);
  });
}
BENCHMARK(BM_PlainLineScanner)->Unit(benchmark::kMillisecond);

// The reader over the text in memory, without the stream. The stream is
// still made outside the measured time, so that all three run on the same
// heap: how the allocator finds the freed maps of the last iteration weighs
// as much as the reading itself.
void BM_ParseSettingsText(benchmark::State& state) {
  RunReader(state, [](std::istream&, DL::TIniSectionsMap* m, DL::TIniClientValueMap* v) {
    DL::ParseSettingsText_T(Text(), ';', m, v);
  });
}
BENCHMARK(BM_ParseSettingsText)->Unit(benchmark::kMillisecond);

// Both readers must agree on the benchmark's own text, or the figures mean nothing.
const bool g_checked = [] {
  DL::TIniSectionsMap a, b;
  DL::TIniClientValueMap va, vb;
  std::istringstream ia(Text()), ib(Text());
  DL::ParseSettings(ia, ';', &a, &va);
  zbench::ParseSettingsByLines(ib, ';', &b, &vb);
  if (a != b || va != vb) {
    std::fprintf(stderr, "the readers disagree on the benchmark text\n");
    std::abort();
  }
  return true;
}();

}  // namespace
