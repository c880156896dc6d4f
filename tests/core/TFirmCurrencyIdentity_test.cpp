#include "core/TFirmCurrencyIdentity.h"

#include <gtest/gtest.h>

#include "core/TStorageHub.h"

namespace {

using DL::TFirmCurrencyIdentity;
using DL::TStorageHub;

TEST(FirmCurrencyIdentityTest, ByDefaultTheRublesAreSurAndItsEquivalents) {
  TStorageHub hub("", 2);
  const TFirmCurrencyIdentity& id = hub.GetCurrencyIdentity();
  EXPECT_EQ(id.GetMainRublesCode(), "SUR");
  EXPECT_TRUE(id.IsEqualCurrencies("RUB", "SUR"));
  EXPECT_TRUE(id.IsEqualCurrencies("RUR", "RUB"));
  EXPECT_TRUE(id.IsEqualCurrencies("rub", "SUR"));
  EXPECT_TRUE(id.IsEqualCurrencies("USD", "usd"));
  EXPECT_FALSE(id.IsEqualCurrencies("USD", "SUR"));
  EXPECT_FALSE(id.IsEqualCurrencies("USD", "EUR"));
  EXPECT_FALSE(id.IsEqualCurrencies("", "SUR"));
  EXPECT_TRUE(id.IsEqualCurrencies("", ""));
}

TEST(FirmCurrencyIdentityTest, SubstitutableCurrenciesMoveTheRublesAndJoinSubstitutes) {
  TStorageHub hub("[SubstitutableCurrencies]\nRUB=SUR,RUR\nUSD=USX\n", 2);
  const TFirmCurrencyIdentity& id = hub.GetCurrencyIdentity();
  EXPECT_EQ(id.GetMainRublesCode(), "RUB");
  EXPECT_TRUE(id.IsEqualCurrencies("SUR", "RUB"));
  EXPECT_TRUE(id.IsEqualCurrencies("USX", "USD"));
  EXPECT_EQ(id.MainCurrencyOf("usx"), "USD");
  EXPECT_EQ(id.MainCurrencyOf("SUR"), "RUB");
  EXPECT_EQ(id.MainCurrencyOf("CNY"), "CNY");
  EXPECT_FALSE(id.IsEqualCurrencies("USX", "RUB"));
}

TEST(FirmCurrencyIdentityTest, TheHubBuildsItOnceAndTheCurrencyTariffUsesIt) {
  TStorageHub hub("", 2);
  const TFirmCurrencyIdentity* first = &hub.GetCurrencyIdentity();
  DL::TMoexCurrencyCommission& tariff = hub.GetMoexCurrencyCommission();
  EXPECT_EQ(&hub.GetCurrencyIdentity(), first);
  EXPECT_EQ(tariff.Hub, first);
}

}  // namespace
