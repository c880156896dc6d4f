// Remote commands through the dispatcher, as Execute runs them: the request
// block decoded, the handler and its settings operation run, the reply block
// encoded (and, for a change, its change line noted). One core, one firm held
// by the caller.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "api/AdapterRecords.h"
#include "api/ExecDealerAPI.h"
#include "api/OwnClientListsCommands.h"
#include "api/ZDeallibAPI.h"

namespace {

constexpr int kHolder = 7;
constexpr int kPort = 4700;
const std::string kFirm = "BENCHFIRM";

// A firm whose approved clients are 100 codes, held by kHolder on kPort.
struct TBenchFirm {
  TBenchFirm() {
    std::string text = "[General]\nUsePGO=1\n[ComplexFIApprovedClients]\nClients=";
    for (int i = 0; i < 100; ++i) text += (i ? "," : "") + ("C" + std::to_string(1000 + i));
    text += "\n";
    (void)ZDL_LoadSettingsForFirm(kFirm.c_str(), text.c_str(), 2);
    work.port = kPort;
    work.mapLibrary[kFirm] = "/nonexistent/" + kFirm + ".ini";
    work.mapFileState["/nonexistent/" + kFirm + ".ini"] = tagDL_fileState{kHolder, 1};
  }
  tagDL_work work;
};

TBenchFirm& Firm() {
  static TBenchFirm firm;
  return firm;
}

template <class Record>
std::vector<unsigned char> Request(Record record) {
  std::vector<unsigned char> data;
  StoreDataForZDealerAPI(record, data);
  return data;
}

// Runs `command` on a copy of the request each time, as a new request would come.
void RunCommand(benchmark::State& state, const std::string& command, const std::vector<unsigned char>& request) {
  TBenchFirm& firm = Firm();
  CExecDealerAPI api;
  std::string name;
  std::vector<unsigned char> data;
  for (auto _ : state) {
    name = command;
    data = request;
    const int result = api.ExecuteDealerAPI(name, data, &firm.work, kHolder, 1, "bench", kPort);
    if (result != 0) state.SkipWithError("the command failed");
    benchmark::DoNotOptimize(data.data());
    // The change lines of a long run would pile up: the next update takes them.
    if (api.m_DEALLIB_PACKET_CHANGE_map[kFirm].size() > 100000) api.m_DEALLIB_PACKET_CHANGE_map[kFirm].clear();
  }
  state.SetItemsProcessed(state.iterations());
}

void BM_GetGeneralParameter(benchmark::State& state) {
  RunCommand(state, "GetUsePGOFromGlobal", Request(TDL_StringAndBool{kFirm, false}));
}
BENCHMARK(BM_GetGeneralParameter);

void BM_GetListOf100Items(benchmark::State& state) {
  RunCommand(state, "GetComplexFIApprovedClientsFromGlobal",
             Request(TDL_GetComplexFIApprovedClientsFromGlobal{kFirm, {}}));
}
BENCHMARK(BM_GetListOf100Items);

void BM_SetGeneralParameterWithChangeLine(benchmark::State& state) {
  RunCommand(state, "SetUsePGOToGlobal", Request(TDL_StringAndBool{kFirm, true}));
}
BENCHMARK(BM_SetGeneralParameterWithChangeLine);

}  // namespace
