#include "settings/TypedSections.h"

namespace DLTypes {

std::vector<std::string> SetOfInstruments::GetAllInstruments() const {
  std::vector<std::string> out;
  for (const auto& [key, row] : m_instruments.Rows()) out.push_back(key.Get());
  return out;
}

void SetOfInstruments::CopySetParams(const SetOfInstruments& other) {
  baseIndicator = other.baseIndicator;
  nettingType = other.nettingType;
  thresMarginCoeff = other.thresMarginCoeff;
  volatilityUp = other.volatilityUp;
  volatilityDown = other.volatilityDown;
  derivativesAutoInclusion = other.derivativesAutoInclusion;
}

}  // namespace DLTypes
