// A host engine computing a client's portfolio margin: reads positions from a
// small CSV file (examples/engine/data/portfolio.csv, or the file named on the
// command line), fills a TPortfolio on a firm's settings, and prints the five
// figures and the margin log.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "core/TInfoStorage.h"
#include "core/TInfoStorageMarginSettings.h"
#include "margin/TPortfolio.h"

using namespace DL::MDPLUS;

namespace {

std::vector<std::string> SplitCsv(const std::string& line) {
  std::vector<std::string> out;
  std::stringstream in(line);
  std::string item;
  while (std::getline(in, item, ',')) out.push_back(item);
  while (out.size() < 15) out.emplace_back();
  return out;
}

double Num(const std::string& s) { return s.empty() ? 0.0 : std::stod(s); }

}  // namespace

int main(int argc, char** argv) {
  const std::string path = argc > 1 ? argv[1] : ZDL_EXAMPLES_DIR "/engine/data/portfolio.csv";
  std::ifstream file(path);
  if (!file) {
    std::fprintf(stderr, "cannot read %s\n", path.c_str());
    return 1;
  }

  // The firm's settings: a settings text in memory (source type 2).
  DL::TInfoStorage storage("[General]\nMDPlusMinMarginCalcRate=0.5\n", 2, true);
  DL::TInfoStorageMarginSettings settings(storage);
  TPortfolio portfolio(settings, "C1", -1, "", 0, false);
  const std::string curr = settings.MainCurrency();

  // Set -> its futures (code, price): the base of the set's options.
  std::map<std::string, std::pair<std::string, double>> bases;
  std::string line;
  while (std::getline(file, line)) {
    if (line.empty() || line[0] == '#') continue;
    const std::vector<std::string> f = SplitCsv(line);
    const std::string& kind = f[0];
    const std::string& code = f[1];
    const std::string& set = f[2];
    TAsset a;
    a.AssetType = kind == "money" ? atMoney : kind == "depo" ? atDepo : kind == "fut" ? atFut : atOpt;
    a.Pos = Num(f[3]);
    a.Price = Num(f[4]);
    a.LotSize = static_cast<int32_t>(Num(f[5]));
    a.Discounts = DL::TDiscountsEx{Num(f[6]), Num(f[7]), 0, 0, {}, false, false};
    a.LockedBuyVal = Num(f[8]);
    a.LockedSellVal = Num(f[9]);
    a.VarMargin = Num(f[10]);
    a.SetCurrCode(curr, &settings);
    a.InSet = !set.empty();
    a.KeepInOptionSet = a.InSet;
    if (a.AssetType == atFut) bases[set] = {code, a.Price};
    if (a.AssetType == atOpt) {
      auto opt = std::make_unique<TOptParams>();
      opt->OptCode = code;
      opt->ContractType = static_cast<TContractType>(Num(f[11]));
      opt->Strike = Num(f[12]);
      opt->Ytm = Num(f[13]);
      opt->Vlt = Num(f[14]);
      opt->VltUp = opt->VltDwn = 0.1;
      opt->Lot = 1;
      opt->BaseCode = bases[set].first;
      opt->Stock = bases[set].second;
      a.OptParams = std::move(opt);
      a.Theor = OptionTheoreticalPrice(*a.OptParams);
      a.Price = a.Theor;
      // The scenarios of an option are priced on its set's grid around the base price.
      const BaseAsset2OptCalcParams grid = PrepOptCalcParams(a.OptParams->Stock, a.Discounts);
      a.CalcOptRisks(&grid);
    }
    TAssetGroup group(set.empty() ? code : set, curr, a.Discounts);
    group.NettingType = ENettingType{1};
    portfolio.AddAsset(code, a, std::move(group), true);
  }

  TMargParams m;
  portfolio.CalcMargParams(m, llAll);
  std::printf("portfolio value  %14.2f\n", m.portfolio);
  std::printf("initial margin   %14.2f\n", m.initMarg);
  std::printf("minimal margin   %14.2f\n", m.minMarg);
  std::printf("corrected margin %14.2f\n", m.corrMarg);
  std::printf("NPR1             %14.2f\n", m.NPR1_corr);
  std::printf("NPR2             %14.2f\n", m.NPR2);
  std::printf("\n%s", portfolio.GetLogText().c_str());
  return 0;
}
