#pragma once
// Numeric value helpers shared by the whole engine: comparison of doubles with
// a tolerance, rounding that forgives the representation error, powers of ten
// and the scaled integer forms of prices, quantities and leverages.
//
// These constants decide results everywhere (limits, discounts, commissions,
// margin), so every caller goes through these functions instead of writing its
// own tolerance. The free comparisons use 1e-7; money values in margin and
// tariff code pass 0.1 explicitly. ZDepoCount keeps its own stricter 1e-9.

#include <cstdint>

namespace DL {

// The tolerance of every comparison and rounding helper unless one is given.
inline constexpr double DefaultTolerance = 1e-7;

// 2 to the 52nd: from here on a double has no fractional part, so rounding
// helpers return the adjusted value as it is.
inline constexpr double RoundingLimit = 4503599627370496.0;

// ---- Comparison: a and b are equal when -e < a - b < e. ----

inline bool MIsEqual(double a, double b, double e = DefaultTolerance) {
  const double d = a - b;
  return -e < d && d < e;
}
inline bool MIsZero(double a, double e = DefaultTolerance) { return -e < a && a < e; }
// Equal, or a > b.
inline bool MIsGE(double a, double b, double e = DefaultTolerance) { return MIsEqual(a, b, e) || a > b; }
// Equal, or a < b.
inline bool MIsLE(double a, double b, double e = DefaultTolerance) { return MIsEqual(a, b, e) || a < b; }
// Not equal, and a >= b.
inline bool MIsGT(double a, double b, double e = DefaultTolerance) { return !MIsEqual(a, b, e) && a >= b; }
// Not equal, and a <= b.
inline bool MIsLT(double a, double b, double e = DefaultTolerance) { return !MIsEqual(a, b, e) && a <= b; }

inline bool MIsGEZero(double a, double e = DefaultTolerance) { return MIsGE(a, 0.0, e); }
inline bool MIsLEZero(double a, double e = DefaultTolerance) { return MIsLE(a, 0.0, e); }
inline bool MIsGTZero(double a, double e = DefaultTolerance) { return MIsGT(a, 0.0, e); }
inline bool MIsLTZero(double a, double e = DefaultTolerance) { return MIsLT(a, 0.0, e); }

// Exactly 0.0 for a value within the tolerance of zero, else the value.
inline double MCorrectIfZero(double a, double e = DefaultTolerance) { return MIsZero(a, e) ? 0.0 : a; }
inline void MCorrectIfZeroInPlace(double& a, double e = DefaultTolerance) { a = MCorrectIfZero(a, e); }

// The larger (smaller) of two values; on a tie within the tolerance both
// return the second argument.
inline double Max(double a, double b, double e = DefaultTolerance) {
  if (MIsEqual(a, b, e)) return b;
  return a > b ? a : b;
}
inline double Min(double a, double b, double e = DefaultTolerance) {
  if (MIsEqual(a, b, e)) return b;
  return a < b ? a : b;
}

// ---- Rounding. Each moves the argument by the allowance (1e-7 unless given)
// before flooring or ceiling, so a value a hair off a whole number counts as
// that number. A value at or beyond 2^52 comes back adjusted but unrounded. ----

// Half away from zero: floor(v + e + 0.5) for v >= 0, ceil(v - e - 0.5) below.
double MRound(double v);
// With p decimals: MRound(v * 10^p) / 10^p; p = 0 is MRound(v).
double MRound(double v, int p);
// Toward zero: floor(v + e) for v >= 0, ceil(v - e) below.
double MTrunc(double v);
// Truncation to a multiple of m; the same as MTruncToMultiple.
double MTrunc(double v, double m);
// MTrunc(v / m) * m; m = 0 leaves the value as it is.
double MTruncToMultiple(double v, double m);
// Away from zero: floor(v - e + 1) for v >= 0, ceil(v + e - 1) below.
double MRoundUp(double v);
double MRoundUp(double v, double e);
// With p decimals: MRoundUp(v * s, 1 / s) / s for s = 10^p. For p = 0 the
// allowance is deliberately the wider 0.1: MRoundUp(v, 0.1).
double MRoundUp(double v, int p);
// Toward zero with the same allowance as MTrunc.
double MRoundDown(double v);
// With p decimals: MRoundDown(v * 10^p) / 10^p; p = 0 is MRoundDown(v).
double MRoundDown(double v, int p);
// Cuts toward zero at p decimals, forgiving 1e-7 in scaled units:
// 1.239 -> 1.23, -1.239 -> -1.23, 1.2399999999 -> 1.24.
double RoundDoubleDown(double v, int p);
// Its mirror, away from zero; an exact multiple stays: 1.23 -> 1.23, 1.231 -> 1.24.
double RoundDoubleUp(double v, int p);

// ---- Powers of ten and scaled integers. ----

// 10^n: below 0 by pow, 0 to 14 from a table of exact values, from 15 on by
// repeated multiplication.
double pow10(int n);

// v / 10^s.
double ConvertFromScaledPrice(int64_t v, int s);
double ConvertFromScaledQty(int64_t v, int s);
// The inverse of ConvertFromScaledQty: moves v away from zero by 1/10^k (k is
// s + 7 clamped to 7..12), multiplies by 10^s and truncates toward zero.
// Saturates at the 64-bit limits.
int64_t ConvertToScaledQty(double v, int s);

// Leverage in hundredths: -1 for a value below zero (tolerance 0.001),
// otherwise the truncation of v * 100 + 0.5. GetScaledLeverage(2.5) is 250.
// 64 bits wide: a leverage may reach 999999999.
int64_t GetScaledLeverage(double v);
// Reads a real with "%lf" and scales it as above; unreadable text gives -1.
int64_t GetLeverageFromString(const char* text);

}  // namespace DL
