#pragma once
// A firm's currency identity for the commission engine: its main rubles code
// and its substitutable currencies, copied from the general parameters when
// built, so that a question compares short codes and allocates nothing. The
// answers are those of TInfoStorage::IsEqualCurrencies.
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
  // False when either code is empty; true for the same code; otherwise the
  // main currencies of the two are compared.
  bool IsEqualCurrencies(std::string_view a, std::string_view b) const override;
  // The main currency of a code: "RUB" and "RUR" become the main rubles;
  // then a substitute becomes its main currency; any other code stays.
  // Codes are compared as they are written.
  std::string_view MainCurrencyOf(std::string_view currency) const;

 private:
  std::string m_mainRubles;
  std::vector<std::pair<std::string, std::string>> m_substitutes;  // substitute -> main
};

}  // namespace DL
