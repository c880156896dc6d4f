#pragma once
// A firm's settings text in scrambled order, for the normalizer's benchmark
// and its golden-output test. The same arguments always give the same text.
//
//   MakeScrambledSettingsText(10 << 20, 10)   about 10 MB, seeded with 10
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace zbench {

// Joins pieces by appending: g++ 12 at -O3 warns falsely (-Wrestrict) on
// "literal" + std::string.
template <class... Pieces>
inline std::string Join(const Pieces&... pieces) {
  std::string s;
  (s.append(std::string_view(pieces)), ...);
  return s;
}

// A firm's settings in scrambled order: the section families of a real file
// (globals, commissions with numeric keys, restrictions, clients with their
// commission scales and margin sections of several limit kinds, users,
// portfolio settings, and names no rule knows), sections and keys shuffled.
inline std::string MakeScrambledSettingsText(size_t targetBytes, uint32_t seed) {
  std::mt19937 rng(seed);
  std::vector<std::string> sections;
  size_t total = 0;
  auto add = [&](std::string section) {
    total += section.size();
    sections.push_back(std::move(section));
  };
  auto block = [&](const std::string& name, std::vector<std::string> lines) {
    std::shuffle(lines.begin(), lines.end(), rng);
    std::string s = Join("[", name, "]\n");
    for (const std::string& line : lines) s.append(line).append(1, '\n');
    return s;
  };

  add(block("General", {"MainCurrency=SUR", "UseCorrelation=1", "CalcNegDeal=0", "LimitKinds=0,1,2"}));
  add(block("Commission", {"Broker=0.05", "TS=0.01", "VAT=20", "RepoBroker_TQBR=0.02", "1000=0.04", "500=0.045",
                           "10000=0.03", "2.5=0.1", "MinValue=1"}));
  for (const char* name : {"SecurityRestricted", "PriceLimit", "MaxOrderQuantity", "AllowedSecurity"}) {
    add(block(name, {"BasePeriod=5", "MIDDLE=10", "Clients=C1,C2,C3", "SBER=1", "GAZP=2", "LKOH=3"}));
  }
  for (int i = 0; total < targetBytes; ++i) {
    const std::string code = std::to_string(100000 + i);
    add(block(Join("cl", code), {Join("Clients=", code), "CommissionType=FIXED", "BrokerCommission=0.05", "Currency_MAIN=SUR",
                            "AllowedPartners=P1,P2", "OrderMaxValue=1000000", "PriceLimit_MIDDLE=5",
                            "TradeCommission=0.01", Join("UnknownKey", std::to_string(i % 13), "=x"), "100=0.1",
                            "1000=0.05"}));
    add(block(Join("cl", code, "_Margin"), {"UsePgo=1", "MinMargin=0.5", "SBER_DISC=0.25", "GAZP_DISC=0.3",
                                        "SECURITY_SBER_ASSET=SBER", "TQBR_TAG=EQTV", "LossLimit=100000",
                                        "RstrNMBuy=1", "Comment=synthetic"}));
    if (i % 2 == 0) {
      add(block(Join("cl", code, "_Margin_LimitKind_", std::to_string(1 + i % 3)),
                {"UsePgo=0", "MinMargin=0.4", "SBER_DISC=0.2", "LastPricePercent=10"}));
    }
    if (i % 3 == 0) {
      add(block(Join("cl", code, "_CommissionScale"), {"1000=0.05", "50000=0.04", "1000000=0.03", "MaxValue=100"}));
    }
    if (i % 5 == 0) {
      add(block(Join("u", std::to_string(i)), {"Commission=0.1", Join("LimitPrefix=", code), "ProhibedTrdAcc=L01"}));
    }
    if (i % 50 == 0) {
      add(block(Join("PortfolioRiskConfig_T", std::to_string(i)),
                {Join("Clients=", code), "Volatility=30", "RiskFreeRate=0.07", "KGO=1", "MainAsset=RTS"}));
      add(block(Join("Custom", std::to_string(i)), {"b=1", "a=2", "C=3"}));
    }
  }
  std::shuffle(sections.begin(), sections.end(), rng);
  std::string text;
  text.reserve(total);
  for (const std::string& s : sections) text += s;
  return text;
}

}  // namespace zbench
