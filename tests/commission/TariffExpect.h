#pragma once
// Comparison of commission values in the tariff tests: each part against a
// figure worked out by hand, to a relative 1e-9 (the arithmetic in the tests
// is written in a different order than in the code, so the last bits may
// differ).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "base/TradingTypes.h"

namespace ztest {

inline double CommTolerance(double expected) { return 1e-9 * std::max(1.0, std::fabs(expected)); }

inline void ExpectComm(const DL::TExchCommValue& got, double ts, double org, double clearing) {
  EXPECT_NEAR(got.TS, ts, CommTolerance(ts)) << "trading system";
  EXPECT_NEAR(got.Org, org, CommTolerance(org)) << "organiser";
  EXPECT_NEAR(got.Clearing, clearing, CommTolerance(clearing)) << "clearing";
}

// No firm rate set.
inline DL::TExchCommRate NotSet() { return DL::TExchCommRate(-1.0, -1.0, -1.0); }

}  // namespace ztest

#define EXPECT_COMM(got, ts, org, clearing) \
  do {                                      \
    SCOPED_TRACE(#got);                     \
    ztest::ExpectComm((got), (ts), (org), (clearing)); \
  } while (0)
