#include "core/ExchangeCommission.h"

#include <array>
#include <cctype>

#include "commission/TMoexCurrencyCommission.h"
#include "core/TFirmManager.h"
#include "core/TInfoStorage.h"
#include "core/TStorageHub.h"
#include "core/ZDLErrors.h"
#include "support/TTodayDate.h"

namespace DL {

namespace {

constexpr std::size_t kMaxCode = 12;

// Days since 1 January 1970 of a proleptic Gregorian date: exact calendar
// arithmetic, the same in every zone. False for a date out of range.
bool CivilDayNumber(long yyyymmdd, long& out) {
  const long d = yyyymmdd % 100;
  const long m = yyyymmdd / 100 % 100;
  long y = yyyymmdd / 10000;
  if (y < 1900 || m < 1 || m > 12 || d < 1 || d > 31) return false;
  y -= m <= 2;
  const long era = y / 400;
  const long yoe = y - era * 400;
  const long doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  out = era * 146097 + doe - 719468;
  return true;
}

}  // namespace

unsigned ExchangeRepoDays(TStorageHub& hub, std::string_view upperBoard, const TExchangeDeal& deal) {
  if (deal.repoTerm >= 0) return static_cast<unsigned>(deal.repoTerm);
  int days = 0;
  if (hub.FindRepoTermOfUpperBoard(upperBoard, days) && days >= 0) return static_cast<unsigned>(days);
  long a = 0;
  long b = 0;
  if (CivilDayNumber(deal.settleDate1, a) && CivilDayNumber(deal.settleDate2, b))
    return static_cast<unsigned>(a > b ? a - b : b - a);
  return 0;
}

unsigned ExchangeBondDays(const TExchangeDeal& deal) {
  long settle = 0;
  long today = 0;
  if (!CivilDayNumber(deal.settleDate1, settle) || !CivilDayNumber(Library::TTodayDate::Get(), today)) return 0;
  return settle > today ? static_cast<unsigned>(settle - today) : 0;
}

int GetExchangeCommission(TStorageHub& hub, const TExchangeDeal& deal, TExchCommValue* out) {
  if (out == nullptr) return ZDL_BAD_ARGUMENT;
  *out = TExchCommValue();
  if (deal.board.empty()) return ZDL_BAD_ARGUMENT;
  if (deal.board.size() > kMaxCode) return ZDL_CLASS_CODE_TOO_LONG;
  if (deal.security.size() > kMaxCode) return ZDL_SEC_CODE_TOO_LONG;
  std::array<char, kMaxCode> buf;
  for (std::size_t i = 0; i < deal.board.size(); ++i)
    buf[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(deal.board[i])));
  const std::string_view board(buf.data(), deal.board.size());

  if (TMoexCurrencyCommission::IsCurrencyMarketClass(board)) {
    TMoexCurrencyCommission& tariff = hub.GetMoexCurrencyCommission();
    const TBoardTariffs& rates = hub.GetBoardTariffs();
    tariff.Init(deal.settleDate1, deal.settleDate2, rates.Rates(TBoardTariffs::rpTS),
                rates.Rates(TBoardTariffs::rpOrg), rates.Rates(TBoardTariffs::rpClearing), board, deal.security,
                deal.noMinimum, deal.isSwap, deal.isFixedCommission, false, deal.side);
    *out = tariff.CalcCommValue(deal.value, deal.qty, 0, 0);
    return ZDL_OK;
  }
  const ABoardTariff* tariff = deal.side == 'S' ? hub.GetSellSideBoardTariff(board) : hub.GetBoardTariff(board);
  if (tariff == nullptr) return ZDL_NOT_FOUND;
  *out = tariff->CalcCommValue(deal.value, deal.qty, ExchangeRepoDays(hub, board, deal), ExchangeBondDays(deal));
  return ZDL_OK;
}

int GetExchangeCommission(const TFirmManager& firms, const char* firm, const TExchangeDeal& deal,
                          TExchCommValue* out) {
  if (out != nullptr) *out = TExchCommValue();
  TInfoStorage* storage = firms.GetInfoStorage(firm);
  if (storage == nullptr) return ZDL_FIRM_NOT_LOADED;
  return GetExchangeCommission(storage->Hub(), deal, out);
}

}  // namespace DL
