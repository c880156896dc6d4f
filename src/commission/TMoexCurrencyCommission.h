#pragma once
// The exchange's tariff of the MOEX currency market. Unlike a board tariff it
// depends on the instrument's class, its security code and the term of the
// deal. A firm has one object (TStorageHub::GetMoexCurrencyCommission); the
// host prepares it for a deal with Init and then asks CalcCommValue.
//
// Rates are in per cent of the value, as in every tariff. The result has a
// trading-system part of 0 unless the firm sets a rate for it; the organiser
// and clearing parts carry the exchange's minimums (57.0 and 43.0) and, for
// the spot classes, a floor on the whole fee that depends on the quantity and
// the currency pair.
#include <cstdint>
#include <string>
#include <string_view>

#include "commission/ABoardTariff.h"
#include "commission/ICurrencyIdentity.h"
#include "commission/TBoardTariffs.h"

namespace DL {

class TMoexCurrencyCommission : public ABoardTariff {
 public:
  // Upper-case class code -> the firm's rate in per cent.
  using TClassRates = TBoardTariffs::TBoardRates;

  // The firm answers the currency questions of the floor; null stands for a
  // firm with the default identity (main rubles "SUR", equivalents "SUR",
  // "RUR", "RUB", no substitutes). Not owned.
  explicit TMoexCurrencyCommission(const ICurrencyIdentity* hub);

  // Prepares the object for one deal. The settle dates are YYYYMMDD; each is
  // turned into a day number (SettleDayNumber), -1 for 0 or a date that does
  // not convert. The firm's rates of the class (looked up in upper case) go
  // to INIRates, -1.0 where a map has none. `aux` is carried and not read.
  // Class and security are copied; codes up to 15 characters do not
  // allocate.
  void Init(long settleDate1, long settleDate2, const TClassRates& tsRates, const TClassRates& orgRates,
            const TClassRates& clearingRates, std::string_view classCode, std::string_view secCode, bool noMinimum,
            bool isSwap, bool isFixed, bool aux, char side);

  // The term of the deal in days, or -1: from the code's term suffix ("TOM",
  // "1W", "3M" ...), or, for a code ending in four digits (month and year),
  // "FWD" or "LTV", from the settle days of the last Init. The class is not
  // read.
  long GetTermForSecurity(std::string_view sec, std::string_view classCode) const;
  // The exchange's own fee of a deal, before firm rates, minimums and floor.
  TExchCommValue GetTSCommission(double value, std::string_view classCode, std::string_view sec, bool isSwap) const;
  // The fee of the deal prepared by Init. The two counts are not read.
  TExchCommValue CalcCommValue(double value, ZDepoCount qty, unsigned repoDays, unsigned bondDays) const override;
  std::unique_ptr<ABoardTariff> Clone() const override;

  // The floor on the whole fee for the deal prepared by Init: 0 unless a
  // spot deal of a currency class; then FloorCommon, or below a quantity of
  // 50 FloorSmall, and FloorEquity when the pair is USD or EUR against the
  // firm's rubles.
  double GetFloor(ZDepoCount qty) const;

  // The day number of a YYYYMMDD date: seconds of mktime at local midnight
  // divided by 86400; -1 for a date that does not convert.
  static std::int64_t SettleDayNumber(long yyyymmdd);
  // "CETS", "AETS", "FIXS", "WAPS": the classes with a floor.
  static bool IsCurrencyClassCode(std::string_view classCode);
  // A class this tariff prices: the four above, "FIXN", "WAPN", "FUTS",
  // "FUTN", "FUTS_SWAP", "FUTN_SWAP", "CNGD", "LICU", and every class
  // ending in "_SU" or "MTL". Exact, upper case.
  static bool IsCurrencyMarketClass(std::string_view classCode);

  const ICurrencyIdentity* Hub;  // for the currency questions; not owned
  std::string ClassCode;
  std::string SecCode;
  std::int64_t SettleDay1 = -1;  // day number, -1 if absent
  std::int64_t SettleDay2 = -1;
  double MinTS = 0.0;
  double MinOrg = 57.0;
  double MinClearing = 43.0;
  double FloorEquity = 10000.0;
  double FloorSmall = 5000.0;
  double FloorCommon = 2.0;
  bool NoMinimum = false;
  bool IsCurrencyClass = false;  // class is one of IsCurrencyClassCode
  bool IsSwap = false;
  bool IsFixedCommission = false;
  bool IsFlagAux = false;  // carried for the host, not read
  char Side = 'B';

 private:
  // The day number of a date, remembered for the last few dates converted:
  // the deals of a day share a handful of settle dates, and mktime is by far
  // the dearest step of a deal.
  std::int64_t CachedSettleDayNumber(long yyyymmdd);
  struct TConvertedDate {
    long date = 0;
    std::int64_t day = -1;
  };
  static constexpr int kConvertedDates = 4;
  TConvertedDate m_converted[kConvertedDates];
  int m_nextConverted = 0;  // the entry the next new date replaces
  // The day number of 1 January of the last year a dated code named.
  std::int64_t YearStartDayNumber(int year) const;
  mutable int m_startYear = 0;
  mutable std::int64_t m_startYearDay = -1;
};

}  // namespace DL
