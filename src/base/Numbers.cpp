#include "base/Numbers.h"

#include <cmath>
#include <cstdio>
#include <limits>

namespace DL {
namespace {

// Floors (for v >= 0) or ceils the already adjusted value unless it lies at or
// beyond 2^52, where it is returned as it is.
double FloorUnlessHuge(double t) { return std::fabs(t) >= RoundingLimit ? t : std::floor(t); }
double CeilUnlessHuge(double t) { return std::fabs(t) >= RoundingLimit ? t : std::ceil(t); }

double RoundUpBy(double v, double e) {
  if (v >= 0) return FloorUnlessHuge(v - e + 1.0);
  return CeilUnlessHuge(v + e - 1.0);
}

double TruncBy(double v, double e) {
  if (v >= 0) return FloorUnlessHuge(v + e);
  return CeilUnlessHuge(v - e);
}

constexpr double kPow10Table[15] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6, 1e7,
                                    1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14};

// 2^63 as a double: the first value that no longer fits a signed 64-bit integer.
constexpr double kInt64Limit = 9.223372036854776e18;

}  // namespace

double MRound(double v) {
  if (v >= 0) return FloorUnlessHuge(v + DefaultTolerance + 0.5);
  return CeilUnlessHuge(v - DefaultTolerance - 0.5);
}

double MRound(double v, int p) {
  if (p == 0) return MRound(v);
  const double s = pow10(p);
  return MRound(v * s) / s;
}

double MTrunc(double v) { return TruncBy(v, DefaultTolerance); }

double MTrunc(double v, double m) { return MTruncToMultiple(v, m); }

double MTruncToMultiple(double v, double m) {
  if (m == 0) return v;
  return MTrunc(v / m) * m;
}

double MRoundUp(double v) { return RoundUpBy(v, DefaultTolerance); }

double MRoundUp(double v, double e) { return RoundUpBy(v, e); }

double MRoundUp(double v, int p) {
  if (p == 0) return RoundUpBy(v, 0.1);
  const double s = pow10(p);
  return RoundUpBy(v * s, 1.0 / s) / s;
}

double MRoundDown(double v) { return TruncBy(v, DefaultTolerance); }

double MRoundDown(double v, int p) {
  if (p == 0) return MRoundDown(v);
  const double s = pow10(p);
  return MRoundDown(v * s) / s;
}

double RoundDoubleDown(double v, int p) {
  const double m = pow10(p);
  if (v > 0) return FloorUnlessHuge(v * m + DefaultTolerance) / m;
  return CeilUnlessHuge(v * m - DefaultTolerance) / m;
}

double RoundDoubleUp(double v, int p) {
  const double m = pow10(p);
  if (v > 0) return FloorUnlessHuge(v * m - DefaultTolerance + 1.0) / m;
  return CeilUnlessHuge(v * m + DefaultTolerance - 1.0) / m;
}

double pow10(int n) {
  if (n < 0) return std::pow(10.0, n);
  if (n < 15) return kPow10Table[n];
  double r = 1.0;
  for (int i = 0; i < n; ++i) r *= 10.0;
  return r;
}

double ConvertFromScaledPrice(int64_t v, int s) { return static_cast<double>(v) / pow10(s); }

double ConvertFromScaledQty(int64_t v, int s) { return static_cast<double>(v) / pow10(s); }

int64_t ConvertToScaledQty(double v, int s) {
  int k = s + 7;
  if (k < 7) k = 7;
  if (k > 12) k = 12;
  const double e = 1.0 / pow10(k);
  const double r = pow10(s) * (v > 0 ? v + e : v - e);
  // 2^63 itself does not fit either: it saturates too.
  if (r >= kInt64Limit) return std::numeric_limits<int64_t>::max();
  if (r < -kInt64Limit) return std::numeric_limits<int64_t>::min();
  return static_cast<int64_t>(r);
}

int64_t GetScaledLeverage(double v) {
  if (MIsLTZero(v, 0.001)) return -1;
  const double t = v * 100.0 + 0.5;
  if (!(t < kInt64Limit)) return std::numeric_limits<int64_t>::max();
  return static_cast<int64_t>(t);
}

int64_t GetLeverageFromString(const char* text) {
  double v = -1.0;
  if (text == nullptr || std::sscanf(text, "%lf", &v) != 1) return -1;
  return GetScaledLeverage(v);
}

}  // namespace DL
