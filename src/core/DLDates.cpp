#include "core/DLDates.h"

#include <cstdio>
#include <cstdlib>

#include "core/misc.h"
#include "support/TTodayDate.h"

namespace DL {
namespace {

constexpr long kSecondsPerDay = 86400;

// A tm at midnight of the date, daylight saving off: mktime then counts every
// day as 86400 seconds.
std::tm MidnightOf(const TDate& d) {
  std::tm t{};
  t.tm_year = d.year - 1900;
  t.tm_mon = d.month - 1;
  t.tm_mday = d.day;
  t.tm_isdst = 0;
  return t;
}

bool IsValidDate(const TDate& d) {
  return d.year >= 1900 && d.month >= 1 && d.month <= 12 && d.day >= 1 && d.day <= 31;
}

int DaysInYear(int year) { return IsLeapYear(year) ? 366 : 365; }

bool OnOrBeforeFeb29(const TDate& d) { return d.month < 2 || (d.month == 2 && d.day <= 29); }
bool OnOrAfterFeb29(const TDate& d) { return d.month > 2 || (d.month == 2 && d.day >= 29); }

bool ReadTwoNumbers(const std::string& text, unsigned& a, unsigned& b) {
  int consumed = 0;
  if (std::sscanf(text.c_str(), "%u:%u%n", &a, &b, &consumed) != 2) return false;
  return static_cast<size_t>(consumed) == text.size();
}

}  // namespace

TDate ConvertLongToTDate(long date) {
  TDate d;
  d.day = static_cast<int>(date % 100);
  d.month = static_cast<int>(date / 100 % 100);
  d.year = static_cast<int>(date / 10000);
  return d;
}

long CompareDates(long a, long b) { return a - b; }

bool IsLeapYear(int year) { return year % 400 == 0 || (year % 4 == 0 && year % 100 != 0); }

bool IsDefaultDate(const TDate& date) { return date == TDate{}; }

bool ConvertServerSettleDateToTm(long date, std::tm& out) {
  const TDate d = ConvertLongToTDate(date);
  if (!IsValidDate(d)) return false;
  out = MidnightOf(d);
  return true;
}

int GetDaysBetweenDates(const TDate& a, const TDate& b) {
  std::tm ta = MidnightOf(a);
  std::tm tb = MidnightOf(b);
  const std::time_t sa = std::mktime(&ta);
  const std::time_t sb = std::mktime(&tb);
  const long diff = static_cast<long>(sa > sb ? sa - sb : sb - sa);
  return static_cast<int>(diff / kSecondsPerDay);
}

int GetDaysBetweenDates(long a, long b) {
  std::tm ta{};
  std::tm tb{};
  if (!ConvertServerSettleDateToTm(a, ta) || !ConvertServerSettleDateToTm(b, tb)) return 0;
  return GetDaysBetweenDates(ConvertLongToTDate(a), ConvertLongToTDate(b));
}

bool IsFEB29BetweenDates(const TDate& a, const TDate& b) {
  if (IsLeapYear(a.year) && OnOrBeforeFeb29(a)) return true;
  if (IsLeapYear(b.year) && OnOrAfterFeb29(b)) return true;
  for (int y = a.year + 1; y < b.year; ++y)
    if (IsLeapYear(y)) return true;
  return false;
}

TDate IncDate(const TDate& date, int n) {
  if (!IsValidDate(date)) return date;
  std::tm t = MidnightOf(date);
  t.tm_mday += n;
  if (std::mktime(&t) == static_cast<std::time_t>(-1)) return date;
  return TDate{t.tm_mday, t.tm_mon + 1, t.tm_year + 1900};
}

bool IsTimeCorrect(unsigned hour, unsigned minute) { return hour <= 23 && minute <= 59; }

bool IsTimeInsideTimeInterval(const TTime& time, const TTimeInterval& interval) {
  const unsigned t = time.hour * 60 + time.minute;
  const unsigned b = interval.begin.hour * 60 + interval.begin.minute;
  const unsigned e = interval.end.hour * 60 + interval.end.minute;
  return b <= t && t <= e;
}

bool StrToTime(const std::string& text, TTime& out) {
  unsigned h = 0;
  unsigned m = 0;
  if (!ReadTwoNumbers(text, h, m) || !IsTimeCorrect(h, m)) return false;
  out = TTime{h, m};
  return true;
}

bool StrToTimeInterval(const std::string& text, TTimeInterval& out) {
  const size_t dash = text.find('-');
  if (dash == std::string::npos) return false;
  TTimeInterval r;
  if (!StrToTime(text.substr(0, dash), r.begin) || !StrToTime(text.substr(dash + 1), r.end)) return false;
  out = r;
  return true;
}

std::string TimeIntervalToStr(const TTimeInterval& interval) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%02u:%02u-%02u:%02u", interval.begin.hour % 100, interval.begin.minute % 100,
                interval.end.hour % 100, interval.end.minute % 100);
  return buf;
}

bool StrToTm(const std::string& text, std::tm& out) {
  int d = 0;
  int m = 0;
  int y = 0;
  int consumed = 0;
  if (std::sscanf(text.c_str(), "%d.%d.%d%n", &d, &m, &y, &consumed) != 3) return false;
  if (static_cast<size_t>(consumed) != text.size()) return false;
  const TDate date{d, m, y};
  if (!IsValidDate(date)) return false;
  out = MidnightOf(date);
  return true;
}

bool Get_T365_T366(int term, int& t365, int& t366, bool countFirstDay, const TDate& today) {
  t365 = 0;
  t366 = 0;
  if (!IsValidDate(today)) return false;
  std::tm t = MidnightOf(today);
  if (std::mktime(&t) == static_cast<std::time_t>(-1)) return false;
  if (term <= 0) return true;

  int year = t.tm_year + 1900;
  // Days from today to the end of its year; without the first day, from tomorrow.
  int left = DaysInYear(year) - t.tm_yday;
  if (!countFirstDay) left -= 1;
  int share = term < left ? term : left;
  (IsLeapYear(year) ? t366 : t365) += share;
  int remaining = term - share;

  // The rest is walked over the following years, whole years at most.
  int years = static_cast<int>(MRoundUp(term / 365.0));
  if (term % 365 == 0) years += 1;
  for (int i = 0; i < years && remaining > 0; ++i) {
    ++year;
    const int days = DaysInYear(year);
    share = remaining < days ? remaining : days;
    (IsLeapYear(year) ? t366 : t365) += share;
    remaining -= share;
  }
  return true;
}

bool Get_T365_T366(int term, int& t365, int& t366, bool countFirstDay) {
  t365 = 0;
  t366 = 0;
  const long today = Library::TTodayDate::Get();
  if (today == 0) return false;
  return Get_T365_T366(term, t365, t366, countFirstDay, ConvertLongToTDate(today));
}

namespace {

double RepoFactor(const TRepoParams& params, bool split, int t365, int t366) {
  const double r = params.Rate / 100.0;
  if (!split) t365 = params.Term, t366 = 0;
  return 1.0 + r * (t366 / 366.0 + t365 / 365.0);
}

template <class Split>
double SecondPart(double value, const TRepoParams& params, double& factor, Split split) {
  const double r = params.Rate / 100.0;
  const double n = params.Term;
  int t365 = 0;
  int t366 = 0;
  switch (params.RateBasis) {
    case 1: factor = 1.0 + r * n / 365.0; break;
    case 4: {
      const bool ok = split(true, t365, t366);
      factor = RepoFactor(params, ok, t365, t366);
      break;
    }
    case 6: factor = 1.0 + r * n / 360.0; break;
    case 7: {
      const bool ok = split(false, t365, t366);
      factor = RepoFactor(params, ok, t365, t366);
      break;
    }
    default: factor = r; return 0.0;
  }
  return value * factor;
}

}  // namespace

double CalcSecondPartRepoValue(double value, const TRepoParams& params, double& factor) {
  return SecondPart(value, params, factor, [&](bool first, int& a, int& b) {
    return Get_T365_T366(params.Term, a, b, first);
  });
}

double CalcSecondPartRepoValue(double value, const TRepoParams& params, double& factor, const TDate& today) {
  return SecondPart(value, params, factor, [&](bool first, int& a, int& b) {
    return Get_T365_T366(params.Term, a, b, first, today);
  });
}

}  // namespace DL
