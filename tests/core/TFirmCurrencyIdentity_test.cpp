#include "core/TFirmCurrencyIdentity.h"

#include <gtest/gtest.h>

#include "core/TInfoStorage.h"
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
  EXPECT_TRUE(id.IsEqualCurrencies("USD", "USD"));
  EXPECT_FALSE(id.IsEqualCurrencies("USD", "SUR"));
  EXPECT_FALSE(id.IsEqualCurrencies("USD", "EUR"));
  EXPECT_FALSE(id.IsEqualCurrencies("", "SUR"));
  EXPECT_FALSE(id.IsEqualCurrencies("", ""));
}

TEST(FirmCurrencyIdentityTest, SubstitutableCurrenciesMoveTheRublesAndJoinSubstitutes) {
  TStorageHub hub("[SubstitutableCurrencies]\nRUB=SUR,RUR\nUSD=USX\n", 2);
  const TFirmCurrencyIdentity& id = hub.GetCurrencyIdentity();
  EXPECT_EQ(id.GetMainRublesCode(), "RUB");
  EXPECT_TRUE(id.IsEqualCurrencies("SUR", "RUB"));
  EXPECT_TRUE(id.IsEqualCurrencies("USX", "USD"));
  EXPECT_EQ(id.MainCurrencyOf("USX"), "USD");
  EXPECT_EQ(id.MainCurrencyOf("SUR"), "RUB");
  EXPECT_EQ(id.MainCurrencyOf("RUR"), "RUB");
  EXPECT_EQ(id.MainCurrencyOf("CNY"), "CNY");
  EXPECT_FALSE(id.IsEqualCurrencies("USX", "RUB"));
}

// The commission engine's identity answers as the firm's query does.
TEST(FirmCurrencyIdentityTest, AgreesWithTheFirmsQuery) {
  for (const char* text : {"", "[SubstitutableCurrencies]\nRUB=SUR,RUR\nUSD=USX\n",
                           "[SubstitutableCurrencies]\nSUR=RUB\nEUR=EUX,EUY\n"}) {
    DL::TInfoStorage storage(text, 2, false);
    const TFirmCurrencyIdentity& id = storage.Hub().GetCurrencyIdentity();
    const char* codes[] = {"", "SUR", "RUB", "RUR", "rub", "USD", "USX", "EUR", "EUX", "EUY", "CNY"};
    for (const char* a : codes)
      for (const char* b : codes)
        EXPECT_EQ(id.IsEqualCurrencies(a, b), storage.IsEqualCurrencies(a, b)) << text << " " << a << " " << b;
  }
}

TEST(FirmCurrencyIdentityTest, TheHubBuildsItOnceAndTheCurrencyTariffUsesIt) {
  TStorageHub hub("", 2);
  const TFirmCurrencyIdentity* first = &hub.GetCurrencyIdentity();
  DL::TMoexCurrencyCommission& tariff = hub.GetMoexCurrencyCommission();
  EXPECT_EQ(&hub.GetCurrencyIdentity(), first);
  EXPECT_EQ(tariff.Hub, first);
}

}  // namespace
