#include "commission/TMoexCurrencyCommission.h"

#include <array>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "commission/CurrOpCurrencies.h"
#include "core/misc.h"
#include "margin/ZDepoCount.h"

namespace DL {

namespace {

constexpr long kSecondsPerDay = 86400;
// Below this quantity a spot deal pays the higher floor.
constexpr long kSmallQuantity = 50;

bool EndsWith(std::string_view s, std::string_view tail) {
  return s.size() >= tail.size() && s.substr(s.size() - tail.size()) == tail;
}

bool AllDigits(std::string_view s) {
  for (char c : s)
    if (c < '0' || c > '9') return false;
  return true;
}

char Upper(char c) { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); }

// The firm's rate of the class, -1.0 when the map has none. Class codes are
// short: the upper-case key is built on the stack.
double RateOf(const TMoexCurrencyCommission::TClassRates& rates, std::string_view classCode) {
  if (rates.empty()) return ABoardTariff::kNotSet;
  std::array<char, 32> buf;
  if (classCode.size() > buf.size()) {
    std::string up(classCode);
    for (char& c : up) c = Upper(c);
    const auto it = rates.find(std::string_view(up));
    return it == rates.end() ? ABoardTariff::kNotSet : it->second;
  }
  for (std::size_t i = 0; i < classCode.size(); ++i) buf[i] = Upper(classCode[i]);
  const auto it = rates.find(std::string_view(buf.data(), classCode.size()));
  return it == rates.end() ? ABoardTariff::kNotSet : it->second;
}

// Term from the last two characters of the code, in upper case.
long TermOfSuffix(std::string_view sec) {
  const std::string_view two = sec.size() >= 2 ? sec.substr(sec.size() - 2) : sec;
  if (two.size() != 2) return -1;
  const char s[2] = {Upper(two[0]), Upper(two[1])};
  const std::string_view u(s, 2);
  struct TSuffix {
    std::string_view suffix;
    long days;
  };
  static constexpr TSuffix kSuffixes[] = {{"OM", 1},  {"TM", 1},   {"SP", 1},   {"PT", 2},   {"1W", 7},
                                          {"2W", 14}, {"1M", 30},  {"2M", 60},  {"3M", 90},  {"6M", 180},
                                          {"9M", 270}, {"1Y", 365}};
  for (const TSuffix& x : kSuffixes)
    if (x.suffix == u) return x.days;
  return -1;
}

// The terms of a band run from `from` to `to`, both included. The last band
// of a table has no terms of its own: it holds the rate of every term no
// other band holds.
constexpr long kAnyTerm = -2147483647L;

// Organiser and clearing rates (per cent) of one band.
struct TBand {
  long from;
  long to;
  double org;
  double clearing;
};

// One whole rate r (per cent) of one band, shared by organiser and clearing.
struct TRateBand {
  long from;
  long to;
  double r;
};

template <class Band, std::size_t N>
const Band& BandOf(const Band (&bands)[N], long t) {
  for (std::size_t i = 0; i + 1 < N; ++i)
    if (t >= bands[i].from && t <= bands[i].to) return bands[i];
  return bands[N - 1];
}

// Forward and swap classes of the currency market.
constexpr TBand kFuturesBands[] = {
    {2, 6, 0.0002875, 0.0003125},   {7, 29, 0.000575, 0.000625},      {30, 89, 0.00115, 0.00125},
    {90, 179, 0.001725, 0.001875},  {180, 269, 0.002875, 0.003125},   {270, 364, 0.0043125, 0.0046875},
    {0, -1, 0.00575, 0.00625}};

// Swaps and forwards of a currency; every term under 8 is the first band.
constexpr TRateBand kSwapRates[] = {{kAnyTerm, 7, 0.0006}, {8, 14, 0.0012},  {15, 60, 0.0024}, {61, 90, 0.0036},
                                    {91, 180, 0.006},      {181, 270, 0.009}, {0, -1, 0.012}};

// Metal forwards ("LTV", "FWD").
constexpr TRateBand kMetalForwardRates[] = {{2, 6, 0.005},    {7, 29, 0.01},    {30, 89, 0.02},
                                            {90, 179, 0.03},  {180, 269, 0.05}, {0, -1, 0.075}};

// Metal swaps: 1 to 7 days, then every term under 180, then the rest.
constexpr TBand kMetalSwapBands[] = {{1, 7, 0.0002875, 0.0002125},
                                     {kAnyTerm, 179, 0.00115, 0.00085},
                                     {0, -1, 0.002875, 0.002125}};

constexpr double kSpotOrgShare = 0.575;
constexpr double kSpotClearingShare = 0.425;
constexpr double kSwapOrgShare = 0.47916666666666663;
constexpr double kSwapClearingShare = 0.5208333333333333;

// The currency identity of a firm without settings of its own: main rubles
// "SUR", no substitutes.
class TDefaultCurrencyIdentity final : public ICurrencyIdentity {
 public:
  std::string_view GetMainRublesCode() const override { return "SUR"; }
  bool IsEqualCurrencies(std::string_view a, std::string_view b) const override {
    if (a.empty() || b.empty()) return false;
    return a == b || Main(a) == Main(b);
  }

 private:
  static std::string_view Main(std::string_view c) { return c == "RUB" || c == "RUR" ? "SUR" : c; }
};

const ICurrencyIdentity& DefaultIdentity() {
  static const TDefaultCurrencyIdentity identity;
  return identity;
}

}  // namespace

TMoexCurrencyCommission::TMoexCurrencyCommission(const ICurrencyIdentity* hub)
    : ABoardTariff(TExchCommRate(kNotSet, kNotSet, kNotSet)), Hub(hub) {}

std::int64_t TMoexCurrencyCommission::SettleDayNumber(long yyyymmdd) {
  const long day = yyyymmdd % 100;
  const long month = yyyymmdd / 100 % 100;
  const long year = yyyymmdd / 10000;
  if (year < 1900 || month < 1 || month > 12 || day < 1 || day > 31) return -1;
  std::tm t{};
  t.tm_year = static_cast<int>(year - 1900);
  t.tm_mon = static_cast<int>(month - 1);
  t.tm_mday = static_cast<int>(day);
  t.tm_isdst = 0;
  const std::time_t seconds = std::mktime(&t);
  if (seconds == static_cast<std::time_t>(-1)) return -1;
  return static_cast<std::int64_t>(seconds) / kSecondsPerDay;
}

std::int64_t TMoexCurrencyCommission::CachedSettleDayNumber(long yyyymmdd) {
  if (yyyymmdd == 0) return -1;
  for (const TConvertedDate& c : m_converted)
    if (c.date == yyyymmdd) return c.day;
  TConvertedDate& slot = m_converted[m_nextConverted];
  m_nextConverted = (m_nextConverted + 1) % kConvertedDates;
  slot.date = yyyymmdd;
  slot.day = SettleDayNumber(yyyymmdd);
  return slot.day;
}

std::int64_t TMoexCurrencyCommission::YearStartDayNumber(int year) const {
  if (year != m_startYear) {
    m_startYearDay = SettleDayNumber(year * 10000L + 101);
    m_startYear = year;
  }
  return m_startYearDay;
}

bool TMoexCurrencyCommission::IsCurrencyClassCode(std::string_view c) {
  return c == "CETS" || c == "AETS" || c == "FIXS" || c == "WAPS";
}

bool TMoexCurrencyCommission::IsCurrencyMarketClass(std::string_view c) {
  // Every board of a deal passes here: the four-letter classes are compared
  // as one 32-bit word each.
  static constexpr std::string_view kFourLetterClasses[] = {"CETS", "AETS", "FIXS", "FIXN", "WAPS",
                                                            "WAPN", "FUTS", "FUTN", "CNGD", "LICU"};
  if (c.size() == 4) {
    const auto word = [](std::string_view s) {
      std::uint32_t w = 0;
      std::memcpy(&w, s.data(), 4);
      return w;
    };
    const std::uint32_t w = word(c);
    for (std::string_view k : kFourLetterClasses)
      if (word(k) == w) return true;
  }
  return c == "FUTS_SWAP" || c == "FUTN_SWAP" || EndsWith(c, "_SU") || EndsWith(c, "MTL");
}

void TMoexCurrencyCommission::Init(long settleDate1, long settleDate2, const TClassRates& tsRates,
                                   const TClassRates& orgRates, const TClassRates& clearingRates,
                                   std::string_view classCode, std::string_view secCode, bool noMinimum, bool isSwap,
                                   bool isFixed, bool aux, char side) {
  SettleDay1 = CachedSettleDayNumber(settleDate1);
  SettleDay2 = CachedSettleDayNumber(settleDate2);
  INIRates = TExchCommRate(RateOf(tsRates, classCode), RateOf(orgRates, classCode), RateOf(clearingRates, classCode));
  ClassCode.assign(classCode);
  SecCode.assign(secCode);
  NoMinimum = noMinimum;
  IsCurrencyClass = IsCurrencyClassCode(classCode);
  IsSwap = isSwap;
  IsFixedCommission = isFixed;
  IsFlagAux = aux;
  Side = side;
}

long TMoexCurrencyCommission::GetTermForSecurity(std::string_view sec, std::string_view) const {
  if (sec.empty()) return -1;
  std::string_view tail;
  bool digits = false;
  bool byDates = false;
  if (sec.size() >= 4) {
    tail = sec.substr(sec.size() - 4);
    digits = AllDigits(tail);
    const std::string_view last3 = tail.substr(1);
    byDates = digits || last3 == "FWD" || last3 == "LTV";
  }
  if (!byDates) return TermOfSuffix(sec);

  if (SettleDay1 < 0) return -1;
  if (SettleDay2 >= 0) return static_cast<long>(std::llabs(SettleDay1 - SettleDay2));
  if (!digits) return -1;
  // Month and year of the code: its day is the month's 30-day share of the
  // year, counted in the day numbers of the settle dates.
  const int month = (tail[0] - '0') * 10 + (tail[1] - '0');
  const int year = (tail[2] - '0') * 10 + (tail[3] - '0');
  const std::int64_t yearStart = YearStartDayNumber(year + 2000);
  if (yearStart < 0) return -1;
  const std::int64_t other = yearStart + month * 30;
  return static_cast<long>(std::llabs(SettleDay1 - other));
}

TExchCommValue TMoexCurrencyCommission::GetTSCommission(double value, std::string_view c, std::string_view sec,
                                                        bool isSwap) const {
  const auto fee = [&](double org, double clearing) {
    return TExchCommValue(0.0, value * org / Percent, value * clearing / Percent);
  };
  const auto spot = [&](double r) { return fee(kSpotOrgShare * r, kSpotClearingShare * r); };

  // 1. The classes settled in the exchange's own units.
  if (EndsWith(c, "_SU")) {
    if (c == "CETS_SU") return fee(0.043125, 0.031875);
    if (c == "CNGD_SU" || c == "LICU_SU") return fee(0.0008625, 0.0006375);
    if (c == "CNGDSWAP_SU" || c == "LICUSWAP_SU") return fee(0.0002875, 0.0003125);
    return fee(0.0, 0.0);
  }
  // 2. Forwards and swaps by the term of the deal.
  if (c == "FUTS" || c == "FUTN" || c == "FUTS_SWAP" || c == "FUTN_SWAP") {
    const TBand& b = BandOf(kFuturesBands, GetTermForSecurity(sec, c));
    return fee(b.org, b.clearing);
  }
  // 3. Fixing and average-price deals.
  if (c == "WAPS" || c == "WAPN" || c == "FIXS" || c == "FIXN") return fee(0.00129375, 0.00095625);
  // 4. Currencies.
  if (!EndsWith(c, "MTL")) {
    if (!isSwap && (sec.size() <= 3 || !EndsWith(sec, "FWD"))) {
      double r = 0.0045;
      if (c == "SDBP") r = 0.003;
      else if (c == "CNGD" || c == "LICU") r = 0.00225;
      return spot(r);
    }
    const double r = BandOf(kSwapRates, GetTermForSecurity(sec, c)).r;
    return fee(kSwapOrgShare * r, kSwapClearingShare * r);
  }
  // 5. Precious metals.
  if (EndsWith(sec, "LTV") || EndsWith(sec, "FWD"))
    return spot(BandOf(kMetalForwardRates, GetTermForSecurity(sec, c)).r);
  if (isSwap) {
    const TBand& b = BandOf(kMetalSwapBands, GetTermForSecurity(sec, c));
    return fee(b.org, b.clearing);
  }
  const std::string_view metal = sec.substr(0, 3);
  if (metal == "GLD") {
    if (Side == 'B') return TExchCommValue(0.0, MinOrg, MinClearing);
    return fee(0.0115, 0.0085);
  }
  if (metal == "PLT" || metal == "PLD") {
    if (Side == 'B') return TExchCommValue(0.0, MinOrg, MinClearing);
    return fee(0.01725, 0.01275);
  }
  return fee(0.008625, 0.006375);
}

double TMoexCurrencyCommission::GetFloor(ZDepoCount qty) const {
  double floor = 0.0;
  if (!IsCurrencyClass || IsSwap) return floor;
  floor = FloorCommon;
  if (!(qty < ZDepoCount(kSmallQuantity, 0))) return floor;
  floor = FloorSmall;
  const ICurrencyIdentity& identity = Hub != nullptr ? *Hub : DefaultIdentity();
  std::string_view base;
  std::string_view quote;
  const std::string_view rubles = identity.GetMainRublesCode();
  if (FillBaseCurrencyForCurrOp(SecCode, base) && FillQuoteCurrencyForCurrOp(SecCode, rubles, quote) &&
      (identity.IsEqualCurrencies(base, "USD") || identity.IsEqualCurrencies(base, "EUR")) &&
      identity.IsEqualCurrencies(quote, rubles))
    floor = FloorEquity;
  return floor;
}

TExchCommValue TMoexCurrencyCommission::CalcCommValue(double value, ZDepoCount qty, unsigned, unsigned) const {
  TExchCommValue r = GetTSCommission(value, ClassCode, SecCode, IsSwap);
  // The firm's rates, where set.
  if (!MIsLT(INIRates.TS, 0.0)) r.TS = value * INIRates.TS / Percent;
  if (!MIsLT(INIRates.Clearing, 0.0)) r.Clearing = value * INIRates.Clearing / Percent;
  if (!MIsLT(INIRates.Org, 0.0)) r.Org = value * INIRates.Org / Percent;
  if (NoMinimum) return r;

  const double floor = GetFloor(qty);
  if (!IsFixedCommission) {
    if (MIsLT(r.TS, MinTS)) r.TS = MinTS;
    if (MIsLT(r.Clearing, MinClearing)) r.Clearing = MinClearing;
    if (MIsLT(r.Org, MinOrg)) r.Org = MinOrg;
    if (MIsLT(r.TS + r.Org + r.Clearing, floor, 0.1)) return TExchCommValue(0.0, floor, 0.0);
    return r;
  }
  if (ClassCode == "CETS_SU") return TExchCommValue(0.0, floor, 0.0);
  // The fixed amounts go to the parts crossed, as the exchange reports them.
  return TExchCommValue(MinClearing, MinTS, MinOrg);
}

std::unique_ptr<ABoardTariff> TMoexCurrencyCommission::Clone() const {
  return std::make_unique<TMoexCurrencyCommission>(*this);
}

}  // namespace DL
