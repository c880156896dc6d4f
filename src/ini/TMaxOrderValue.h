#pragma once
// The largest value of one order, as the OrderMaxValue settings give it.
#include <string>

namespace DL {

struct TMaxOrderValue {
  double amount = -100.0;  // in hundredths; -100.0 means not set
  std::string currency;    // empty: the value is in the main currency
};

}  // namespace DL
