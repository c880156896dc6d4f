// Client-scope Get commands through the dispatcher, as Execute runs them, on
// a firm of 50 000 clients: 40 % with a personal margin section, 40 % listed
// in ten margin templates, 20 % caught by prefix sections. For each level the
// command that reads what the client's settings say:
//   personal  GetUseSecurityDiscountsFromClientSettings of the client;
//   template  GetUseSecurityDiscountsFromMarginTemplate of the ten
//             templates: a template client has no settings of its own;
//   prefix    GetUseSecurityDiscountsFromClientSettings of the prefix ("Q12*").
// Warm: every owner asked once before the timing, then in a random order.
// Cold: the first request of each owner on a freshly loaded firm.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "api/AdapterRecords.h"
#include "api/ExecDealerAPI.h"
#include "api/ZDeallibAPI.h"

namespace {

constexpr int kHolder = 7;
constexpr int kPort = 4701;
constexpr int kClients = 50000;
const std::string kFirm = "CLIENTFIRM";

std::string Code(char head, int n) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "%c%06d", head, n);
  return buf;
}

// The owners each level's command is asked for, and the firm's text.
struct TClientFirm {
  TClientFirm() {
    const int personal = kClients * 2 / 5;
    const int perTemplate = kClients * 2 / 5 / 10;
    text = "[General]\nUseSecurityDiscounts=1\n";
    for (int i = 0; i < personal; ++i) {
      personals.push_back(Code('P', i));
      text += "[cl" + personals.back() + "_Margin]\nUseSecurityDiscounts=2\n";
    }
    for (int k = 0; k < 10; ++k) {
      templates.push_back("TPL" + std::to_string(k));
      text += "[cl" + templates.back() + "_Margin_Template]\nUseSecurityDiscounts=0\nClients=";
      for (int i = 0; i < perTemplate; ++i) text += (i ? "," : "") + Code('T', k * perTemplate + i);
      text += "\n";
    }
    for (int a = 0; a < 10; ++a)
      for (int b = 0; b < 10; ++b) {
        prefixes.push_back("Q" + std::to_string(a) + std::to_string(b) + "*");
        text += "[cl" + prefixes.back() + "_Margin]\nUseSecurityDiscounts=0\n";
      }
    std::mt19937 random(42);
    std::shuffle(personals.begin(), personals.end(), random);
    Load();
    work.port = kPort;
    work.mapLibrary[kFirm] = "/nonexistent/" + kFirm + ".ini";
    work.mapFileState["/nonexistent/" + kFirm + ".ini"] = tagDL_fileState{kHolder, 1};
  }
  void Load() { (void)ZDL_LoadSettingsForFirm(kFirm.c_str(), text.c_str(), 2); }

  std::string text;
  std::vector<std::string> personals, templates, prefixes;
  tagDL_work work;
};

TClientFirm& Firm() {
  static TClientFirm firm;
  return firm;
}

std::vector<unsigned char> Request(const std::string& owner) {
  TDL_TwoStringsAndInt record{kFirm, owner, 0};
  std::vector<unsigned char> data;
  StoreDataForZDealerAPI(record, data);
  return data;
}

// Asks `command` for each owner in turn, as new requests would come.
int Ask(CExecDealerAPI& api, const std::string& command, const std::vector<std::vector<unsigned char>>& requests,
        std::size_t i) {
  std::string name = command;
  std::vector<unsigned char> data = requests[i % requests.size()];
  const int result = api.ExecuteDealerAPI(name, data, &Firm().work, kHolder, 1, "bench", kPort);
  benchmark::DoNotOptimize(data.data());
  return result;
}

std::vector<std::vector<unsigned char>> Requests(const std::vector<std::string>& owners) {
  std::vector<std::vector<unsigned char>> requests;
  for (const std::string& owner : owners) requests.push_back(Request(owner));
  return requests;
}

const std::vector<std::string>& Owners(int level) {
  TClientFirm& firm = Firm();
  return level == 0 ? firm.personals : level == 1 ? firm.templates : firm.prefixes;
}
const char* CommandOf(int level) {
  return level == 1 ? "GetUseSecurityDiscountsFromMarginTemplate" : "GetUseSecurityDiscountsFromClientSettings";
}

// state.range(0): 0 personal, 1 template, 2 prefix.
void BM_ClientGetWarm(benchmark::State& state) {
  const int level = static_cast<int>(state.range(0));
  const auto requests = Requests(Owners(level));
  CExecDealerAPI api;
  for (std::size_t i = 0; i < requests.size(); ++i) (void)Ask(api, CommandOf(level), requests, i);
  std::size_t i = 0;
  for (auto _ : state)
    if (Ask(api, CommandOf(level), requests, i++) != 0) state.SkipWithError("the command failed");
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ClientGetWarm)->Arg(0)->Arg(1)->Arg(2);

// One pass over every owner of the level on a freshly loaded firm.
void BM_ClientGetCold(benchmark::State& state) {
  const int level = static_cast<int>(state.range(0));
  const auto requests = Requests(Owners(level));
  CExecDealerAPI api;
  for (auto _ : state) {
    state.PauseTiming();
    Firm().Load();
    state.ResumeTiming();
    for (std::size_t i = 0; i < requests.size(); ++i)
      if (Ask(api, CommandOf(level), requests, i) != 0) state.SkipWithError("the command failed");
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(requests.size()));
}
BENCHMARK(BM_ClientGetCold)->Arg(0)->Arg(1)->Arg(2)->Iterations(3);

}  // namespace
