#include "cache/TRestrictions.h"

namespace DL {

bool TQtyToClassListAndSecListVector::operator==(const TQtyToClassListAndSecListVector& o) const {
  if (size() != o.size()) return false;
  for (size_t i = 0; i < size(); ++i) {
    const TQtyToClassListAndSecList& a = (*this)[i];
    const TQtyToClassListAndSecList& b = o[i];
    if (a.Qty != b.Qty || a.Classes != b.Classes || a.Securities != b.Securities || a.Interval != b.Interval ||
        !(a.Time == b.Time))
      return false;
  }
  return true;
}

void TRestrictions::RebuildIndexes() {
  prohibitedCP.RebuildSettingsIndex();
  softProhibitedCP.RebuildSettingsIndex();
  maxValue.RebuildSettingsIndex();
  maxSettleDate.RebuildSettingsIndex();
  softMaxValue.RebuildSettingsIndex();
  repoTerm.RebuildSettingsIndex();
  softRepoTerm.RebuildSettingsIndex();
}

}  // namespace DL
