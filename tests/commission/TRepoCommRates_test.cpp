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

namespace DL {
namespace {

TRepoCommRates Rates(int type, double rate, double amount) {
  TRepoCommRates r;
  r.CommType = type;
  r.Rate = rate;
  r.Amount = amount;
  return r;
}

TEST(RepoCommissionTest, FixedRateIsPerDayOfTheTerm) {
  TRepoCommission c;
  ASSERT_TRUE(CalcRepoCommission(Rates(rctRepoFixed, 0.01, 99.0), 7, c));
  EXPECT_EQ(c.BaseCommType, 1);
  EXPECT_DOUBLE_EQ(c.Rate, 0.07);
  EXPECT_EQ(c.Amount, 0.0);
}

TEST(RepoCommissionTest, TermOfZeroDoesNotMultiplyTheRate) {
  TRepoCommission c;
  ASSERT_TRUE(CalcRepoCommission(Rates(rctRepoFixed, 0.01, 0.0), 0, c));
  EXPECT_DOUBLE_EQ(c.Rate, 0.01);
  ASSERT_TRUE(CalcRepoCommission(Rates(rctRepoTradeMax, 0.02, 5.0), 0, c));
  EXPECT_DOUBLE_EQ(c.Rate, 0.02);
}

TEST(RepoCommissionTest, TradeIsTheAmountOnly) {
  TRepoCommission c;
  ASSERT_TRUE(CalcRepoCommission(Rates(rctRepoTrade, 0.5, 30.0), 10, c));
  EXPECT_EQ(c.BaseCommType, 3);
  EXPECT_EQ(c.Rate, 0.0);
  EXPECT_DOUBLE_EQ(c.Amount, 30.0);
}

TEST(RepoCommissionTest, SumActsLikeMaxButKeepsItsBaseKind) {
  TRepoCommission max, sum;
  ASSERT_TRUE(CalcRepoCommission(Rates(rctRepoTradeMax, 0.02, 5.0), 3, max));
  ASSERT_TRUE(CalcRepoCommission(Rates(rctRepoTradeSum, 0.02, 5.0), 3, sum));
  EXPECT_DOUBLE_EQ(max.Rate, 0.06);
  EXPECT_DOUBLE_EQ(sum.Rate, 0.06);
  EXPECT_DOUBLE_EQ(max.Amount, 5.0);
  EXPECT_DOUBLE_EQ(sum.Amount, 5.0);
  EXPECT_EQ(max.BaseCommType, 4);
  EXPECT_EQ(sum.BaseCommType, 9);
}

TEST(RepoCommissionTest, KindNotSetGivesZerosAndFalse) {
  TRepoCommission c;
  c.Rate = 5.0;
  c.Amount = 5.0;
  EXPECT_FALSE(CalcRepoCommission(Rates(rctNotSet, 0.02, 5.0), 3, c));
  EXPECT_EQ(c.BaseCommType, 0);
  EXPECT_EQ(c.Rate, 0.0);
  EXPECT_EQ(c.Amount, 0.0);
}

}  // namespace
}  // namespace DL
