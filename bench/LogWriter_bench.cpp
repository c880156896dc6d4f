// Cost of one engine log line: a message below the level (skipped), and a
// message written to a file.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <string>

#include "support/LinuxUtils.h"
#include "support/LogWriter.h"

namespace {

std::string LogPath() { return "/tmp/zdl_logwriter_bench_" + std::to_string(::getpid()) + ".log"; }

void BM_WriteBelowTheLevel(benchmark::State& state) {
  TLogWriter log(0);
  std::string path = LogPath();
  log.Init(path, " [b] ");
  for (auto _ : state) log.Write(15, "TFirmManager::AddInfoStorage: firm_id= %s, ini_source_type= %d", "MC0001", 1);
  ::unlink(path.c_str());
}
BENCHMARK(BM_WriteBelowTheLevel);

void BM_WriteALine(benchmark::State& state) {
  TLogWriter log(20);
  std::string path = LogPath();
  log.Init(path, " [b] ");
  for (auto _ : state) log.Write(15, "TFirmManager::AddInfoStorage: firm_id= %s, ini_source_type= %d", "MC0001", 1);
  ::unlink(path.c_str());
}
BENCHMARK(BM_WriteALine);

void BM_IsUTF8(benchmark::State& state) {
  std::string text;
  for (int i = 0; i < 64; ++i) text += "C:/dl/\xD0\x9F\xD1\x80\xD0\xB8\xD0\xB2\xD0\xB5\xD1\x82.ini;";
  for (auto _ : state) benchmark::DoNotOptimize(IsUTF8(text));
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_IsUTF8);

void BM_IconvConvertToUtf8(benchmark::State& state) {
  std::string text = "C:/dl/\xCF\xF0\xE8\xE2\xE5\xF2/firm.ini";
  for (auto _ : state) benchmark::DoNotOptimize(IconvConvert(text, true));
}
BENCHMARK(BM_IconvConvertToUtf8);

}  // namespace
