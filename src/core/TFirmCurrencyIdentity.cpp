#include "core/TFirmCurrencyIdentity.h"

#include <cctype>

#include "core/TGeneralSettings.h"

namespace DL {

namespace {

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (std::toupper(static_cast<unsigned char>(a[i])) != std::toupper(static_cast<unsigned char>(b[i])))
      return false;
  return true;
}

}  // namespace

TFirmCurrencyIdentity::TFirmCurrencyIdentity(const TGeneralSettings& general)
    : m_mainRubles(general.GetMainCurrency()),
      m_rublesEquivalents(general.GetRublesEquivalents().begin(), general.GetRublesEquivalents().end()),
      m_substitutes(general.GetSubstitutableCurrencies().begin(), general.GetSubstitutableCurrencies().end()) {}

std::string_view TFirmCurrencyIdentity::MainCurrencyOf(std::string_view currency) const {
  if (EqualIgnoringCase(currency, m_mainRubles)) return m_mainRubles;
  for (const std::string& rub : m_rublesEquivalents)
    if (EqualIgnoringCase(currency, rub)) return m_mainRubles;
  for (const auto& [substitute, main] : m_substitutes)
    if (EqualIgnoringCase(currency, substitute)) return main;
  return currency;
}

bool TFirmCurrencyIdentity::IsEqualCurrencies(std::string_view a, std::string_view b) const {
  return EqualIgnoringCase(MainCurrencyOf(a), MainCurrencyOf(b));
}

}  // namespace DL
