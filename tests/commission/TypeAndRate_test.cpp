// One step of a volume table and its flat row form.
#include "commission/TypeAndRate.h"

#include <gtest/gtest.h>

#include <set>

#include "commission/VolumeAndSideToTypeAndRate.h"

namespace DL {
namespace {

TEST(TypeAndRateTest, NewStepIsUndefinedAndZero) {
  TypeAndRate t;
  EXPECT_EQ(t.CommType, ctUndefined);
  EXPECT_EQ(t.Rate, 0.0);
  EXPECT_EQ(t.Amount, 0.0);
}

TEST(TypeAndRateTest, SetReplacesAllThree) {
  TypeAndRate t(ctFixed, 1.0, 2.0);
  t.Set(ctTradeMin, 0.25, 7.5);
  EXPECT_EQ(t, TypeAndRate(ctTradeMin, 0.25, 7.5));
  EXPECT_FALSE(t == TypeAndRate(ctTradeMin, 0.25, 7.0));
}

TEST(VolumeAndSideToTypeAndRateTest, OrderIsVolumeThenSide) {
  const VolumeAndSideToTypeAndRate a{100.0, sdSell, {ctFixed, 1.0, 0.0}};
  const VolumeAndSideToTypeAndRate b{200.0, sdBoth, {ctFixed, 1.0, 0.0}};
  const VolumeAndSideToTypeAndRate c{200.0, sdBuy, {ctFixed, 0.5, 0.0}};
  EXPECT_TRUE(a < b);
  EXPECT_TRUE(b < c);
  EXPECT_FALSE(c < b);
  std::set<VolumeAndSideToTypeAndRate> rows{c, a, b};
  EXPECT_EQ(*rows.begin(), a);
  EXPECT_EQ(*rows.rbegin(), c);
}

TEST(VolumeAndSideToTypeAndRateTest, EqualityComparesTheRates) {
  const VolumeAndSideToTypeAndRate a{100.0, sdBuy, {ctTradeMax, 1.0, 5.0}};
  VolumeAndSideToTypeAndRate b = a;
  EXPECT_EQ(a, b);
  b.Rates.Amount = 6.0;
  EXPECT_FALSE(a == b);
  EXPECT_TRUE(a < b);
}

}  // namespace
}  // namespace DL
