#pragma once
// Dates and times of the settings core. Dates are TDate or an integer
// YYYYMMDD; conversions to seconds go through mktime in the host's zone, with
// daylight saving off, so that a day is always 86400 seconds.

#include <ctime>
#include <string>

#include "core/DLInnerTypes.h"

namespace DL {

// Splits YYYYMMDD by 100 and 10000.
TDate ConvertLongToTDate(long date);
// The difference of two YYYYMMDD numbers; only its sign means anything.
long CompareDates(long a, long b);
// Divisible by 400, or divisible by 4 and not by 100.
bool IsLeapYear(int year);
// True for the default TDate.
bool IsDefaultDate(const TDate& date);

// Fills a tm at midnight from YYYYMMDD; false if month or day is out of range
// or the year is before 1900.
bool ConvertServerSettleDateToTm(long date, std::tm& out);

// Whole days between the two dates (midnight to midnight), whatever their order.
int GetDaysBetweenDates(const TDate& a, const TDate& b);
// The same for YYYYMMDD dates; a date that does not convert gives 0.
int GetDaysBetweenDates(long a, long b);

// True if the year of a is leap and a is on or before 29 February; or the
// year of b is leap and b is on or after 29 February; or a year strictly
// between the two is leap.
bool IsFEB29BetweenDates(const TDate& a, const TDate& b);

// The date n days later (earlier for negative n); an unconvertible date comes
// back as it was.
TDate IncDate(const TDate& date, int n);

// Hours at most 23 and minutes at most 59.
bool IsTimeCorrect(unsigned hour, unsigned minute);
// begin <= time <= end.
bool IsTimeInsideTimeInterval(const TTime& time, const TTimeInterval& interval);

// "HH:MM" into a time; false (time untouched) if not readable or not correct.
bool StrToTime(const std::string& text, TTime& out);
// "HH:MM-HH:MM" into an interval; false (interval untouched) if either bound fails.
bool StrToTimeInterval(const std::string& text, TTimeInterval& out);
// The interval as "HH:MM-HH:MM".
std::string TimeIntervalToStr(const TTimeInterval& interval);
// "DD.MM.YYYY" into a tm at midnight; false if not readable.
bool StrToTm(const std::string& text, std::tm& out);

// Splits a term of days starting today (Library::TTodayDate) into the days that fall in years of
// 365 days (t365) and in leap years (t366). With countFirstDay false the
// first day does not count. False, with both 0, if today cannot be read.
bool Get_T365_T366(int term, int& t365, int& t366, bool countFirstDay);
// The same from a given start date; a date that does not convert fails.
bool Get_T365_T366(int term, int& t365, int& t366, bool countFirstDay, const TDate& today);

// The value of a repo's second part: value times the factor of the rate basis
// (1: 1 + r*n/365; 4: by Get_T365_T366 counting the first day; 6: 1 + r*n/360;
// 7: as 4 without the first day), with r = Rate / 100 and n = Term. Any other
// basis gives 0 with the factor r. The factor is written to factor.
// If the split of the term fails, all of it counts as days of 365-day years.
double CalcSecondPartRepoValue(double value, const TRepoParams& params, double& factor);
// The same from a given start date.
double CalcSecondPartRepoValue(double value, const TRepoParams& params, double& factor, const TDate& today);

}  // namespace DL
