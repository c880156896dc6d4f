#include "commission/CurrOpCurrencies.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

using DL::FillBaseCurrencyForCurrOp;
using DL::FillQuoteCurrencyForCurrOp;

std::string_view Base(std::string_view sec) {
  std::string_view out = "unchanged";
  FillBaseCurrencyForCurrOp(sec, out);
  return out;
}

std::string_view Quote(std::string_view sec) {
  std::string_view out = "unchanged";
  FillQuoteCurrencyForCurrOp(sec, "SUR", out);
  return out;
}

TEST(CurrOpCurrenciesTest, TheBaseIsTheFirstThreeLetters) {
  EXPECT_EQ(Base("USD000UTSTOM"), "USD");
  EXPECT_EQ(Base("EUR_RUB__TOM"), "EUR");
  EXPECT_EQ(Base("cnyrub_tom"), "cny");
  EXPECT_EQ(Base("GLDRUB_TOM"), "GLD");
  EXPECT_EQ(Base("USD"), "USD");
}

TEST(CurrOpCurrenciesTest, ACodeThatDoesNotBeginWithThreeLettersHasNoBase) {
  std::string_view out = "x";
  EXPECT_FALSE(FillBaseCurrencyForCurrOp("US", out));
  EXPECT_EQ(out, "");
  EXPECT_FALSE(FillBaseCurrencyForCurrOp("U5D000UTSTOM", out));
  EXPECT_FALSE(FillBaseCurrencyForCurrOp("", out));
  EXPECT_FALSE(FillQuoteCurrencyForCurrOp("12", "SUR", out));
  EXPECT_EQ(out, "");
}

TEST(CurrOpCurrenciesTest, TheQuoteIsThreeLettersAfterTheBaseBeforeASeparator) {
  EXPECT_EQ(Quote("CNYRUB_TOM"), "RUB");
  EXPECT_EQ(Quote("EURUSD000TOM"), "USD");
  EXPECT_EQ(Quote("EUR_RUB__TOM"), "RUB");
  EXPECT_EQ(Quote("GLDRUB_TOM"), "RUB");
}

TEST(CurrOpCurrenciesTest, AnyOtherCodeIsQuotedInTheFirmsRubles) {
  EXPECT_EQ(Quote("USD000UTSTOM"), "SUR");
  EXPECT_EQ(Quote("USDTOM"), "SUR");      // "TOM" is not followed by a separator
  EXPECT_EQ(Quote("USDRUB"), "SUR");      // nor is "RUB" here
  EXPECT_EQ(Quote("USD_TOM"), "SUR");
  EXPECT_EQ(Quote("USD"), "SUR");
  std::string_view out;
  ASSERT_TRUE(FillQuoteCurrencyForCurrOp("USD000UTSTOM", "RUB", out));
  EXPECT_EQ(out, "RUB");
}

}  // namespace
