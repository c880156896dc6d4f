#pragma once
// A firm's currency identity for the commission engine: its main rubles code,
// its rubles equivalents and its substitutable currencies, copied from the
// general parameters when built, so that a question compares short codes and
// allocates nothing.
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "commission/ICurrencyIdentity.h"

namespace DL {

class TGeneralSettings;

class TFirmCurrencyIdentity final : public ICurrencyIdentity {
 public:
  explicit TFirmCurrencyIdentity(const TGeneralSettings& general);

  std::string_view GetMainRublesCode() const override { return m_mainRubles; }
  bool IsEqualCurrencies(std::string_view a, std::string_view b) const override;
  // The main currency of a code: the main rubles for a rubles equivalent,
  // the main currency of a substitute, else the code itself.
  std::string_view MainCurrencyOf(std::string_view currency) const;

 private:
  std::string m_mainRubles;
  std::vector<std::string> m_rublesEquivalents;
  std::vector<std::pair<std::string, std::string>> m_substitutes;  // substitute -> main
};

}  // namespace DL
