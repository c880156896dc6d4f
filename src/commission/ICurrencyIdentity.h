#pragma once
// What the commission engine asks of a firm's currency identity: which code
// stands for the firm's rubles and whether two codes name the same money.
// The firm (core) answers; the engine knows nothing else of it.
#include <string_view>

namespace DL {

class ICurrencyIdentity {
 public:
  virtual ~ICurrencyIdentity() = default;
  // The firm's main rubles code: "SUR" unless "SubstitutableCurrencies"
  // gives "SUR" another main currency.
  virtual std::string_view GetMainRublesCode() const = 0;
  // True when the two codes are the same or have the same main currency
  // ("RUB" and "RUR" count as the main rubles, a substitute as its main
  // currency); false when either is empty. No allocation.
  virtual bool IsEqualCurrencies(std::string_view a, std::string_view b) const = 0;
};

}  // namespace DL
