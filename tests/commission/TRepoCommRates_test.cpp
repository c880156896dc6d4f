// Reading the value of a repo commission: "KIND,a,b".
#include "commission/TRepoCommRates.h"

#include <gtest/gtest.h>

namespace DL {
namespace {

struct Numbers {
  double rate = -1.0;
  double amount = -1.0;
};

bool Parse(const std::string& text, int type, Numbers& n) {
  return ParseSettingRepoPerDayAndScaleCommission(text, TREPOCommTypeEnum(type), n.rate, n.amount);
}

TEST(RepoCommValueTest, FixedTakesTheFirstNumberAsRate) {
  Numbers n;
  ASSERT_TRUE(Parse("0.02,300", rctRepoFixed, n));
  EXPECT_DOUBLE_EQ(n.rate, 0.02);
  EXPECT_DOUBLE_EQ(n.amount, 0.0);
}

TEST(RepoCommValueTest, TradeTakesTheSecondNumberAsAmount) {
  Numbers n;
  ASSERT_TRUE(Parse("0.02,300", rctRepoTrade, n));
  EXPECT_DOUBLE_EQ(n.rate, 0.0);
  EXPECT_DOUBLE_EQ(n.amount, 300.0);
}

TEST(RepoCommValueTest, MaxAndSumTakeBoth) {
  for (int type : {rctRepoTradeMax, rctRepoTradeSum}) {
    Numbers n;
    ASSERT_TRUE(Parse(" 0.5 , 12 ", type, n));
    EXPECT_DOUBLE_EQ(n.rate, 0.5);
    EXPECT_DOUBLE_EQ(n.amount, 12.0);
  }
}

TEST(RepoCommValueTest, TextWithoutCommaFails) {
  Numbers n;
  EXPECT_FALSE(Parse("0.5", rctRepoFixed, n));
  EXPECT_EQ(n.rate, -1.0);
}

TEST(RepoCommValueTest, EmptyPartFails) {
  Numbers n;
  EXPECT_FALSE(Parse(",5", rctRepoTrade, n));
  EXPECT_FALSE(Parse("0.5,", rctRepoFixed, n));
  EXPECT_FALSE(Parse(",", rctRepoTradeMax, n));
  EXPECT_EQ(n.amount, -1.0);
}

TEST(RepoCommValueTest, UnreadableOrThirdPartFails) {
  Numbers n;
  EXPECT_FALSE(Parse("x,5", rctRepoTradeMax, n));
  EXPECT_FALSE(Parse("1,2,3", rctRepoTradeMax, n));
}

TEST(RepoCommValueTest, KindNotSetFails) {
  Numbers n;
  EXPECT_FALSE(Parse("1,2", rctNotSet, n));
}

TEST(RepoCommRatesTest, WholeValueReadsKindAndNumbers) {
  TRepoCommRates r;
  ASSERT_TRUE(ParseRepoCommRates("REPOTRADE_SUM,0.1,40", r));
  EXPECT_EQ(r.CommType.value, rctRepoTradeSum);
  EXPECT_DOUBLE_EQ(r.Rate, 0.1);
  EXPECT_DOUBLE_EQ(r.Amount, 40.0);
  EXPECT_EQ(RepoCommRatesToStr(r), "REPOTRADE_SUM,0.1,40");
}

TEST(RepoCommRatesTest, UnknownKindLeavesTheRatesAlone) {
  TRepoCommRates r;
  EXPECT_FALSE(ParseRepoCommRates("REPOX,0.1,40", r));
  EXPECT_FALSE(ParseRepoCommRates("REPOFIXED", r));
  EXPECT_EQ(r, TRepoCommRates());
}

}  // namespace
}  // namespace DL
