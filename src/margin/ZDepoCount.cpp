#include "margin/ZDepoCount.h"

#include <cmath>

#include "base/Numbers.h"

namespace {
// 2 to the 63rd: the first magnitude a 64-bit integer cannot hold.
constexpr double kTwoTo63 = 9.223372036854776e18;
}  // namespace

ZDepoCount::ZDepoCount(long scaled, short scale)
    : Value(DL::ConvertFromScaledQty(scaled, scale)), QtyScale(scale) {}

int64_t ZDepoCount::GetScaled(short scale) const {
  const double p = DL::pow10(scale) * Value;
  // 2^63 itself does not fit either: it saturates like everything above it.
  if (p >= kTwoTo63) return INT64_MAX;
  if (p < -kTwoTo63) return INT64_MIN;
  if (std::isnan(p)) return 0;
  return static_cast<int64_t>(DL::MTrunc(p));
}

ZDepoCount ZDepoCount::Trunc(double x, int digits) { return ZDepoCount(DL::RoundDoubleDown(x, digits)); }

ZDepoCount ZDepoCount::RoundUp(double x, int digits) { return ZDepoCount(DL::RoundDoubleUp(x, digits)); }
