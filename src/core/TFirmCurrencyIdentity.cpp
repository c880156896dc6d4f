#include "core/TFirmCurrencyIdentity.h"

#include "core/TGeneralSettings.h"

namespace DL {

TFirmCurrencyIdentity::TFirmCurrencyIdentity(const TGeneralSettings& general)
    : m_mainRubles(general.GetMainCurrency()),
      m_substitutes(general.GetSubstitutableCurrencies().begin(), general.GetSubstitutableCurrencies().end()) {}

std::string_view TFirmCurrencyIdentity::MainCurrencyOf(std::string_view currency) const {
  const std::string_view replaced = currency == "RUB" || currency == "RUR" ? std::string_view(m_mainRubles) : currency;
  for (const auto& [substitute, main] : m_substitutes)
    if (replaced == substitute) return main;
  return replaced;
}

bool TFirmCurrencyIdentity::IsEqualCurrencies(std::string_view a, std::string_view b) const {
  if (a.empty() || b.empty()) return false;
  if (a == b) return true;
  return MainCurrencyOf(a) == MainCurrencyOf(b);
}

}  // namespace DL
