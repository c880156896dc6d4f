#pragma once
// Plain records used inside the settings core: dates, times, repo parameters
// and the parsed form of quantity keys.

#include <cstdint>
#include <set>
#include <string>

namespace DL {

// A calendar date. The default (all zero) is "no date", see IsDefaultDate.
struct TDate {
  int day = 0;    // 1..31
  int month = 0;  // 1..12
  int year = 0;   // four digits

  bool operator==(const TDate&) const = default;
};

// A time of day.
struct TTime {
  unsigned hour = 0;    // 0..23
  unsigned minute = 0;  // 0..59

  bool operator==(const TTime&) const = default;
};

// A closed interval of times of day, written "HH:MM-HH:MM".
struct TTimeInterval {
  TTime begin;
  TTime end;

  bool operator==(const TTimeInterval&) const = default;
};

// The terms of a repo deal that decide its second-part value.
struct TRepoParams {
  double Rate = 0.0;   // repo rate in per cent a year
  int Term = 0;        // term in days
  int RateBasis = 0;   // day-count basis: 1 act/365, 4 act/365-366, 6 act/360, 7 as 4 without the first day
};

// A quantity with the classes and securities it applies to, parsed from a key
// such as "TQBR,SMAL_INSTR_SBER" and its value.
struct TQtyToClassListAndSecList {
  int64_t Qty = 0;
  std::set<std::string> Classes;     // "<ALL>" stands for all
  std::set<std::string> Securities;  // "<ALL>" stands for all
  int64_t Interval = 0;              // only in keys with "_INTERVAL_"
  TTimeInterval Time;                // only in keys with "_TIME_"
};

}  // namespace DL
