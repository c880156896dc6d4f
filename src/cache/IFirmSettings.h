#pragma once
// What an engine below the settings core may ask about the firm whose
// settings it reads. The core implements it (TStorageHub answers from the
// settings it has loaded); the caches and the commission and margin engines
// hold it instead of the hub, so that they depend on nothing above their own
// floor and a host engine or a test can answer for a firm of its own.
#include <string>

namespace DL {

class IFirmSettings {
 public:
  virtual ~IFirmSettings() = default;
  // The firm's main currency: "SUR" unless "SubstitutableCurrencies" names
  // another main currency for it.
  virtual const std::string& MainCurrency() const = 0;
  // Whether the code stands for rubles: "SUR", "RUR", "RUB" and the
  // substitutes of the main currency.
  virtual bool IsRublesEquivalent(const std::string& currency) const = 0;
};

}  // namespace DL
