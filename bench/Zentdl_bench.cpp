// zentdl check and normalize on a library of about 10 MB: the parts alone
// (no file input and output), and the whole program from the command line.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "SettingsGenerator.h"
#include "tools/cli/CanonicalText.h"
#include "tools/cli/SettingsCheck.h"

namespace {

const std::string& Library10MB() {
  static const std::string text = zbench::GenerateSettingsTextOfSize(10u << 20);
  return text;
}

// The same library as a file, for the program.
const std::string& LibraryFile() {
  static const std::string path = [] {
    const std::string p = "/tmp/zentdl_bench_10mb.ini";
    std::ofstream(p, std::ios::binary | std::ios::trunc) << Library10MB();
    return p;
  }();
  return path;
}

void BM_Check(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(zentdl::CheckSettingsText(Library10MB()));
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * Library10MB().size()));
}
BENCHMARK(BM_Check)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_Normalize(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(zentdl::CanonicalSettingsText(Library10MB()));
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * Library10MB().size()));
}
BENCHMARK(BM_Normalize)->Unit(benchmark::kMillisecond)->UseRealTime();

void RunProgram(benchmark::State& state, const std::string& args) {
  const std::string command = std::string(ZENTDL_PATH) + " " + args + " " + LibraryFile() + " >/dev/null";
  for (auto _ : state)
    if (std::system(command.c_str()) == -1) state.SkipWithError("cannot run zentdl");
}

void BM_ProgramCheck(benchmark::State& state) { RunProgram(state, "check --quiet"); }
BENCHMARK(BM_ProgramCheck)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_ProgramNormalize(benchmark::State& state) { RunProgram(state, "normalize --quiet"); }
BENCHMARK(BM_ProgramNormalize)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
