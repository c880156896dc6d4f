// The exchange's commission of a few deals on different boards, as a host
// engine asks it: load a firm's settings, then GetExchangeCommission per deal.
//
//   build/examples/engine/exchange_commission
//
// The firm "INVEST" of the example server sets its own rates for the board
// TQBR; "BROKER" keeps the exchange's schedule. Today's date is fixed, as a
// replay of a past day would do, so the bond terms printed are the same on
// every run.
#include <cstdio>
#include <string>

#include "core/ExchangeCommission.h"
#include "core/TFirmManager.h"
#include "support/TTodayDate.h"

namespace {

DL::TExchangeDeal Deal(const char* board, const char* sec, char side, double value, double qty, long settle1 = 0,
                       long settle2 = 0) {
  DL::TExchangeDeal d;
  d.board = board;
  d.security = sec;
  d.side = side;
  d.value = value;
  d.qty = qty;
  d.settleDate1 = settle1;
  d.settleDate2 = settle2;
  return d;
}

void Print(const DL::TFirmManager& firms, const char* firm, const char* what, const DL::TExchangeDeal& deal) {
  DL::TExchCommValue fee;
  const int rc = DL::GetExchangeCommission(firms, firm, deal, &fee);
  if (rc != 0) {
    std::printf("%-7s %-34s error %d\n", firm, what, rc);
    return;
  }
  std::printf("%-7s %-34s %14.2f  TS %10.2f  org %10.2f  clearing %10.2f\n", firm, what, deal.value, fee.TS, fee.Org,
              fee.Clearing);
}

}  // namespace

int main() {
  const std::string libs = std::string(ZDL_EXAMPLES_DIR) + "/server/libs/";
  DL::TFirmManager firms;
  if (firms.AddInfoStorage("INVEST", (libs + "invest.ini").c_str(), 1) == nullptr ||
      firms.AddInfoStorage("BROKER", (libs + "broker.ini").c_str(), 1) == nullptr) {
    std::fprintf(stderr, "cannot load the example firms from %s\n", libs.c_str());
    return 1;
  }
  Library::TTodayDate::Set(20250110);

  std::printf("%-7s %-34s %14s\n", "firm", "deal", "value");
  for (const char* firm : {"BROKER", "INVEST"}) {
    Print(firms, firm, "TQBR shares, buy", Deal("TQBR", "SBER", 'B', 1e6, 100));
    Print(firms, firm, "EQWD repo, board term 7 days", Deal("EQWD", "SBER", 'S', 5e7, 1000));
    Print(firms, firm, "TQCB bond, settles in 5 days", Deal("TQCB", "RU000A0JX0J2", 'B', 2e6, 2000, 20250115));
    Print(firms, firm, "PSNB negotiated bond, 50 days", Deal("PSNB", "RU000A0JX0J2", 'S', 3e8, 300000, 20250301));
    Print(firms, firm, "CETS USD/RUB TOM, 1000 lots", Deal("CETS", "USD000UTSTOM", 'B', 1e9, 1000));
    Print(firms, firm, "CETS USD/RUB TOM, 49 lots", Deal("CETS", "USD000UTSTOM", 'B', 4.9e6, 49));
    Print(firms, firm, "FUTS USD/RUB one week", Deal("FUTS", "USDRUB_1W", 'S', 5e8, 500));
    Print(firms, firm, "CETS_MTL gold bought", Deal("CETS_MTL", "GLDRUB_TOM", 'B', 1e7, 10));
    Print(firms, firm, "XXXX board without a tariff", Deal("XXXX", "SBER", 'B', 1e5, 10));
  }
  Print(firms, "NOFIRM", "a firm that is not loaded", Deal("TQBR", "SBER", 'B', 1e6, 100));
  Library::TTodayDate::Reset();
  return 0;
}
