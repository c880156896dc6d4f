// Command lookup on the request path: the sorted index of the table against an
// ordered map from name to row, as a table registered at start would hold.
#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

#include "api/CommandTable.h"

namespace {

std::vector<std::string> AllNames() {
  std::vector<std::string> names;
  for (const DL::TCommandRow& row : DL::kCommandTable) names.emplace_back(row.name);
  return names;
}

void BM_FindCommand(benchmark::State& state) {
  const std::vector<std::string> names = AllNames();
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(DL::FindCommand(names[i]));
    i = (i + 1) % names.size();
  }
}
BENCHMARK(BM_FindCommand);

void BM_MapLookup(benchmark::State& state) {
  const std::vector<std::string> names = AllNames();
  std::map<std::string, const DL::TCommandRow*> map;
  for (const DL::TCommandRow& row : DL::kCommandTable) map.emplace(std::string(row.name), &row);
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(map.find(names[i]));
    i = (i + 1) % names.size();
  }
}
BENCHMARK(BM_MapLookup);

}  // namespace
