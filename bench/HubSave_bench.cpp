// Save of a whole firm: a loaded TStorageHub composes its settings text and
// the normalizer puts it in canonical order (SaveSettingsToMemory), for firms
// of 10 000 and 100 000 clients and of 10 and 20 MB. "MB" is the size of the
// saved text; the byte rate stays flat when nothing grows faster than the text.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "SettingsGenerator.h"
#include "core/TStorageHub.h"

namespace {

zbench::TSettingsTextShape Shape() {
  zbench::TSettingsTextShape shape;
  shape.allGroups = true;
  return shape;
}

void SaveLoop(benchmark::State& state, const std::string& text) {
  DL::TStorageHub hub(text.c_str(), 2);
  size_t saved = 0;
  for (auto _ : state) {
    char* out = nullptr;
    if (hub.SaveSettingsToMemory(&out) != 0) state.SkipWithError("save failed");
    state.PauseTiming();
    saved = std::char_traits<char>::length(out);
    void* block = out;
    (void)hub.GetMemory().FreeMemory(&block);
    state.ResumeTiming();
  }
  state.counters["MB"] = static_cast<double>(saved) / 1e6;
  state.SetBytesProcessed(static_cast<int64_t>(saved) * state.iterations());
}

void BM_HubSave_Clients(benchmark::State& state) {
  zbench::TSettingsTextShape shape = Shape();
  shape.clients = static_cast<std::size_t>(state.range(0));
  SaveLoop(state, zbench::GenerateSettingsText(shape));
}
BENCHMARK(BM_HubSave_Clients)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_HubSave_MB(benchmark::State& state) {
  SaveLoop(state, zbench::GenerateSettingsTextOfSize(static_cast<std::size_t>(state.range(0)) << 20, Shape()));
}
BENCHMARK(BM_HubSave_MB)->Arg(10)->Arg(20)->Unit(benchmark::kMillisecond);

}  // namespace
