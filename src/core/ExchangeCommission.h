#pragma once
// The exchange's commission of one deal for a host engine: the three parts
// (trading system, organiser, clearing) in the deal's currency, from the
// tariff that prices the deal's board or class.
//
// A class of the currency market ("CETS", "FUTS", classes ending in "MTL" or
// "_SU" ...: TMoexCurrencyCommission::IsCurrencyMarketClass) is priced by the
// firm's currency-market tariff with the firm's rates of the class
// ("BOARDCOMMISSION", "ORGCOMMISSION", "CLEARINGCOMMISSION").
// Any other code is priced by the board tariff of the firm's schedule, or
// that of "DEFAULT" for a board the schedule does not know.
//
// The terms a board tariff reads are worked out here:
//   repo term  deal.repoTerm when 0 or more; else the board's term of the
//              repo term table ("EQWD" 7, "GCOM" 30 ...); else the days
//              between the two settle dates when both are given; else 0.
//   bond term  the calendar days from today (Library::TTodayDate) to the
//              first settle date; 0 without one, or when it is not later.
//
// Neither call allocates once the firm has priced a deal of the kind
// (the currency tariff and a sale-side copy of a bond tariff are built on
// first use). Calls for one firm must be serialised: the currency tariff is
// prepared per deal.
#include <string_view>

#include "commission/ABoardTariff.h"

namespace DL {

class TStorageHub;
class TFirmManager;

struct TExchangeDeal {
  std::string_view board;     // board or class code, any case; at most 12 characters
  std::string_view security;  // security code; at most 12 characters
  char side = 'B';            // 'B' buy, 'S' sell
  double value = 0.0;         // deal value in the deal's currency
  ZDepoCount qty;             // quantity (the currency market's floor reads it)
  long settleDate1 = 0;       // YYYYMMDD; 0 when none
  long settleDate2 = 0;       // YYYYMMDD of the second part; 0 when none
  int repoTerm = -1;          // days; negative: from the board or the dates
  bool isSwap = false;        // currency market: a swap
  bool noMinimum = false;     // currency market: no minimums, no floor
  bool isFixedCommission = false;  // currency market: the fixed amounts
};

// 0 with *out filled; 3 for a null out or an empty board; 9 for a board
// longer than 12 characters; 13 for a security longer than 12. *out is
// zero on failure.
[[nodiscard]] int GetExchangeCommission(TStorageHub& hub, const TExchangeDeal& deal, TExchCommValue* out);
// The same for a loaded firm; 2 when the firm is not loaded.
[[nodiscard]] int GetExchangeCommission(const TFirmManager& firms, const char* firm, const TExchangeDeal& deal,
                                        TExchCommValue* out);

// The repo and bond terms that GetExchangeCommission gives a board tariff
// for the deal (board in upper case).
unsigned ExchangeRepoDays(TStorageHub& hub, std::string_view upperBoard, const TExchangeDeal& deal);
unsigned ExchangeBondDays(const TExchangeDeal& deal);

}  // namespace DL
