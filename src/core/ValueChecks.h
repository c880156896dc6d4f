#pragma once
// The range checks that the tables of single values name for a Set: a value
// outside its range is refused with 3 before anything changes.
#include <cmath>

namespace DL {

enum class EValueCheck {
  Any,          // any finite value
  NotNegative,  // 0 or above
  NettingType,  // a netting type: 0, 1 or 2
};

inline bool IsValueAllowed(EValueCheck check, double value) {
  if (!std::isfinite(value)) return false;
  switch (check) {
    case EValueCheck::NotNegative:
      return value >= 0.0;
    case EValueCheck::NettingType:
      return value >= 0.0 && value <= 2.0;
    case EValueCheck::Any:
      break;
  }
  return true;
}

}  // namespace DL
