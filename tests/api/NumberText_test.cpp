// Numbers as change lines write them.
#include <gtest/gtest.h>

#include "api/ShapeAdapter.h"

namespace {

using DL::Adapters::Shape::NumberText;

TEST(NumberTextTest, WholeNumbersAreWrittenWithoutExponent) {
  EXPECT_EQ(NumberText(1000), "1000");
  EXPECT_EQ(NumberText(25000), "25000");
  EXPECT_EQ(NumberText(1234567), "1234567");
  EXPECT_EQ(NumberText(-3), "-3");
  EXPECT_EQ(NumberText(0), "0");
}

TEST(NumberTextTest, FractionsAreTheShortestFormThatReadsBack) {
  EXPECT_EQ(NumberText(2.5), "2.5");
  EXPECT_EQ(NumberText(0.1), "0.1");
  EXPECT_EQ(NumberText(500.5), "500.5");
  EXPECT_EQ(NumberText(0.0001), "0.0001");
  EXPECT_EQ(NumberText(1.0 / 3), "0.3333333333333333");
}

TEST(NumberTextTest, VeryLargeAndVerySmallValuesKeepTheirExponent) {
  EXPECT_EQ(NumberText(1e20), "1e+20");
  EXPECT_EQ(NumberText(1e-9), "1e-09");
}

}  // namespace
