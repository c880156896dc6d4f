// Load of a whole firm from its settings text (source type 2): text in
// memory to a ready TStorageHub, for firms of 1 000 to 100 000 clients and of
// 1 to 50 MB; beside it TIniParser::Init alone and its steps, so that a slow
// load can be pinned on one of them.
//
// Every text carries every section group: global sections, ClientCval,
// client, margin and restriction templates, client masks, margin sections
// and one section of twenty parameters per client. The freeing of what a load
// built is kept out of the measured time. Counters: "MB" the text size,
// "sections" the sections read, "ns_per_byte" the time of one load over the
// text size (flat when load time grows with the text and no faster).
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>

#include "SettingsGenerator.h"
#include "core/TStorageHub.h"
#include "ini/SettingsText.h"
#include "ini/TIniParser.h"

namespace {

zbench::TSettingsTextShape Shape() {
  zbench::TSettingsTextShape shape;
  shape.allGroups = true;
  return shape;
}

// The firm of that many clients; made once per process.
const std::string& TextOfClients(std::int64_t clients) {
  static std::map<std::int64_t, std::string> texts;
  auto it = texts.find(clients);
  if (it == texts.end()) {
    zbench::TSettingsTextShape shape = Shape();
    shape.clients = static_cast<std::size_t>(clients);
    it = texts.emplace(clients, zbench::GenerateSettingsText(shape)).first;
  }
  return it->second;
}

// The firm of about that many MB (2^20 bytes).
const std::string& TextOfMB(std::int64_t mb) {
  static std::map<std::int64_t, std::string> texts;
  auto it = texts.find(mb);
  if (it == texts.end())
    it = texts.emplace(mb, zbench::GenerateSettingsTextOfSize(static_cast<std::size_t>(mb) << 20, Shape())).first;
  return it->second;
}

void SetCounters(benchmark::State& state, const std::string& text, std::size_t sections) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(text.size()));
  state.counters["MB"] = static_cast<double>(text.size()) / 1e6;
  state.counters["sections"] = static_cast<double>(sections);
  state.counters["ns_per_byte"] = benchmark::Counter(static_cast<double>(text.size()),
                                                     benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
}

// glibc keeps the many small blocks just freed aside, and sorts them back
// into its free lists at the next request of a large block, which would be
// the new hub itself: the cost of freeing the last load would fall into the
// measured time of the next one. One large request here does that sorting
// while the clock is stopped, as it would be for the first load of a process.
void SettleFreedMemory() {
  void* block = std::malloc(std::size_t{64} << 10);
  benchmark::DoNotOptimize(block);
  std::free(block);
}

// One load per iteration; `make` builds the object from the text and returns
// it, its destruction waits outside the measured time.
template <class TMake>
void RunLoads(benchmark::State& state, const std::string& text, TMake make) {
  std::size_t sections = 0;
  for (auto _ : state) {
    auto built = make(text);
    state.PauseTiming();
    sections = built.second;
    built.first.reset();
    SettleFreedMemory();
    state.ResumeTiming();
  }
  SetCounters(state, text, sections);
}

auto LoadHub(const std::string& text) {
  auto hub = std::make_unique<DL::TStorageHub>(text.c_str(), DL::TIniParser::SourceText);
  const std::size_t sections = hub->GetSections().size();
  return std::make_pair(std::move(hub), sections);
}

auto InitParser(const std::string& text) {
  auto parser = std::make_unique<DL::TIniParser>();
  parser->Init(text.c_str(), DL::TIniParser::SourceText, ';', 1);
  const std::size_t sections = parser->GetSections().size();
  return std::make_pair(std::move(parser), sections);
}

// The reader alone, from memory, into the maps the parser would own.
struct TReadMaps {
  DL::TIniSectionsMap sections;
  DL::TIniClientValueMap values;
};
auto ReadText(const std::string& text) {
  auto maps = std::make_unique<TReadMaps>();
  DL::ParseSettingsText_T(text, ';', &maps->sections, &maps->values);
  const std::size_t sections = maps->sections.size();
  return std::make_pair(std::move(maps), sections);
}

void BM_HubLoad_Clients(benchmark::State& state) { RunLoads(state, TextOfClients(state.range(0)), LoadHub); }
BENCHMARK(BM_HubLoad_Clients)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_HubLoad_MB(benchmark::State& state) { RunLoads(state, TextOfMB(state.range(0)), LoadHub); }
BENCHMARK(BM_HubLoad_MB)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);

// Many small sections: a firm of 10 MB whose client sections hold three
// parameters each, about 120 000 sections, where the work per section rather
// than per byte dominates.
const std::string& SmallSectionsText() {
  static const std::string text = [] {
    zbench::TSettingsTextShape shape = Shape();
    shape.paramsPerClient = 3;
    return zbench::GenerateSettingsTextOfSize(std::size_t{10} << 20, shape);
  }();
  return text;
}
void BM_HubLoad_SmallSections10MB(benchmark::State& state) { RunLoads(state, SmallSectionsText(), LoadHub); }
BENCHMARK(BM_HubLoad_SmallSections10MB)->Unit(benchmark::kMillisecond);
void BM_IniParserInit_SmallSections10MB(benchmark::State& state) {
  RunLoads(state, SmallSectionsText(), InitParser);
}
BENCHMARK(BM_IniParserInit_SmallSections10MB)->Unit(benchmark::kMillisecond);
void BM_ReadText_SmallSections10MB(benchmark::State& state) { RunLoads(state, SmallSectionsText(), ReadText); }
BENCHMARK(BM_ReadText_SmallSections10MB)->Unit(benchmark::kMillisecond);

// TIniParser::Init alone: read, InitSectionNames, DivideSectionsIntoGroups.
void BM_IniParserInit_MB(benchmark::State& state) { RunLoads(state, TextOfMB(state.range(0)), InitParser); }
BENCHMARK(BM_IniParserInit_MB)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);

// The reading step of Init alone, from memory.
void BM_ReadText_MB(benchmark::State& state) { RunLoads(state, TextOfMB(state.range(0)), ReadText); }
BENCHMARK(BM_ReadText_MB)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond);

// InitSectionNames alone on a parser already filled.
void BM_InitSectionNames_MB(benchmark::State& state) {
  const std::string& text = TextOfMB(state.range(0));
  DL::TIniParser parser;
  parser.Init(text.c_str(), DL::TIniParser::SourceText, ';', 1);
  for (auto _ : state) parser.InitSectionNames();
  SetCounters(state, text, parser.GetSections().size());
}
BENCHMARK(BM_InitSectionNames_MB)->Arg(10)->Unit(benchmark::kMillisecond);

void BM_InitSectionNames_SmallSections10MB(benchmark::State& state) {
  const std::string& text = SmallSectionsText();
  DL::TIniParser parser;
  parser.Init(text.c_str(), DL::TIniParser::SourceText, ';', 1);
  for (auto _ : state) parser.InitSectionNames();
  SetCounters(state, text, parser.GetSections().size());
}
BENCHMARK(BM_InitSectionNames_SmallSections10MB)->Unit(benchmark::kMillisecond);

}  // namespace
