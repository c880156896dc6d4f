// The per-request work of the wire layer: a request message read, turned
// into the reply in place, and a record block decoded and encoded.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "api/RecordFields.h"
#include "support/Alert.h"

namespace {

ZDL_DECLARE_RECORD(TBenchTwoStrings,
                   (std::string, firmCode),
                   (std::string, strParam));

std::vector<unsigned char> SampleBlock() {
  TBenchTwoStrings r;
  r.firmCode = "MC0002500000";
  r.strParam = "TQBR";
  std::vector<unsigned char> block;
  StoreDataForZDealerAPI(r, block);
  return block;
}

// One request in one message object that lives across requests, as a handler sees it.
void BM_RequestReadAndReply(benchmark::State& state) {
  const std::vector<unsigned char> block = SampleBlock();
  CAlert m;
  std::string command;
  std::vector<unsigned char> data;
  for (auto _ : state) {
    m.clear();
    m << "GetUsePGOFromGlobal" << block;
    m.set_begin();
    m >> command >> data;
    m.clear();
    m << command << 0 << data;
    benchmark::DoNotOptimize(m.get_data());
  }
}
BENCHMARK(BM_RequestReadAndReply);

// The same with a fresh message per request (8 KiB block each time).
void BM_RequestFreshMessage(benchmark::State& state) {
  const std::vector<unsigned char> block = SampleBlock();
  std::string command;
  std::vector<unsigned char> data;
  for (auto _ : state) {
    CAlert m;
    m << "GetUsePGOFromGlobal" << block;
    m.set_begin();
    m >> command >> data;
    benchmark::DoNotOptimize(m.get_data());
  }
}
BENCHMARK(BM_RequestFreshMessage);

void BM_RecordDecode(benchmark::State& state) {
  std::vector<unsigned char> block = SampleBlock();
  for (auto _ : state) {
    TBenchTwoStrings r;
    LoadDataForZDeallibAPI(r, block);
    benchmark::DoNotOptimize(r.firmCode.data());
  }
}
BENCHMARK(BM_RecordDecode);

void BM_RecordEncode(benchmark::State& state) {
  TBenchTwoStrings r;
  r.firmCode = "MC0002500000";
  r.strParam = "TQBR";
  std::vector<unsigned char> block;
  for (auto _ : state) {
    StoreDataForZDealerAPI(r, block);
    benchmark::DoNotOptimize(block.data());
  }
}
BENCHMARK(BM_RecordEncode);

}  // namespace
