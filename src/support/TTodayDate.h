#pragma once
// Today's date, the one place where the library reads the calendar. Every
// rule that counts days from today (the term of a bond deal, the split of a
// repo term into years) asks here, never the clock itself, so that a test or
// a replay of past deals can fix the date.
//
// Dates are integers YYYYMMDD, the server's form of a settle date. The date
// is the host's local date (localtime_r). It is read again when the second
// changes, and the last reading is kept per thread, so the call costs about
// as much as time() itself.
namespace Library {

class TTodayDate {
 public:
  // Today as YYYYMMDD: the date fixed by Set, otherwise the host's local
  // date; 0 if the clock cannot be read.
  static long Get();
  // Fixes today's date for the whole process until Reset; 0 releases it too.
  static void Set(long yyyymmdd);
  static void Reset() { Set(0); }
  // Whether a date is fixed.
  static bool IsFixed();
};

// Fixes today's date for its lifetime and releases it afterwards.
class TScopedTodayDate {
 public:
  explicit TScopedTodayDate(long yyyymmdd) { TTodayDate::Set(yyyymmdd); }
  ~TScopedTodayDate() { TTodayDate::Reset(); }
  TScopedTodayDate(const TScopedTodayDate&) = delete;
  TScopedTodayDate& operator=(const TScopedTodayDate&) = delete;
};

}  // namespace Library
