// The hub answers, through IFirmSettings, what the engines below it may ask
// about the firm; a cache holds that interface and never the hub itself.
#include <gtest/gtest.h>

#include <string>

#include "cache/IFirmSettings.h"
#include "cache/TCacheOfSecurityRestrictions.h"
#include "core/TStorageHub.h"
#include "ini/TIniParser.h"

namespace {

using DL::IFirmSettings;
using DL::TStorageHub;

TEST(StorageHubFirmSettingsTest, AnEmptyTextHasTheDefaultMainCurrencyAndRubles) {
  TStorageHub hub("", DL::TIniParser::SourceText);
  const IFirmSettings& firm = hub;
  EXPECT_EQ(firm.MainCurrency(), "SUR");
  EXPECT_TRUE(firm.IsRublesEquivalent("SUR"));
  EXPECT_TRUE(firm.IsRublesEquivalent("RUR"));
  EXPECT_TRUE(firm.IsRublesEquivalent("RUB"));
  EXPECT_FALSE(firm.IsRublesEquivalent("USD"));
  EXPECT_FALSE(firm.IsRublesEquivalent("sur"));
}

TEST(StorageHubFirmSettingsTest, ASubstituteOfSurBecomesTheMainCurrency) {
  TStorageHub hub("[SubstitutableCurrencies]\nRUB=SUR\n", DL::TIniParser::SourceText);
  const IFirmSettings& firm = hub;
  EXPECT_EQ(firm.MainCurrency(), "RUB");
  EXPECT_TRUE(firm.IsRublesEquivalent("SUR"));
  EXPECT_FALSE(firm.IsRublesEquivalent("EUR"));
}

// A firm of a host engine's own, not a hub.
class OwnFirm : public IFirmSettings {
 public:
  const std::string& MainCurrency() const override { return m_main; }
  bool IsRublesEquivalent(const std::string& currency) const override { return currency == "XXX"; }

 private:
  std::string m_main = "KZT";
};

TEST(StorageHubFirmSettingsTest, ACacheWorksForAFirmThatIsNoHub) {
  DL::TIniParser parser;
  parser.Init("[General]\n", DL::TIniParser::SourceText, ';', 1);
  OwnFirm own;
  DL::TCacheOfSecurityRestrictions cache(parser, own);
  EXPECT_EQ(&cache.Firm(), &own);
  EXPECT_EQ(cache.Firm().MainCurrency(), "KZT");
  EXPECT_TRUE(cache.Firm().IsRublesEquivalent("XXX"));
}

}  // namespace
