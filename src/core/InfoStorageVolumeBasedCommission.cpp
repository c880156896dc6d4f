// The volume-based and repo commission queries of a firm, forwarded to its hub.
#include "core/TInfoStorage.h"
#include "core/TStorageHub.h"

namespace DL {

double TInfoStorage::CalcMaxVolumeBasedCommission(const char* client, const char* classCode, double value,
                                                  ESide side, short scale) const {
  return Hub().CalcMaxVolumeBasedCommission(client, classCode, value, side, scale);
}

TypeAndRate TInfoStorage::GetEffectiveVolumeBasedCommTypeAndRate(const char* client, const char* classCode,
                                                                double volume, ESide side) const {
  return Hub().GetEffectiveVolumeBasedCommTypeAndRate(client, classCode, volume, side);
}

bool TInfoStorage::GetRepoCommByClass(const char* classCode, double leverage, const char* client, short term,
                                      TRepoCommission& out) const {
  TRepoCommRates found;
  if (!Hub().GetRepoScaleByClassesSettings(client, leverage, classCode, term, &found) &&
      !Hub().GetRepoPerDayCommissionSettings(client, leverage, classCode, &found))
    return false;
  return CalcRepoCommission(found, term, out);
}

}  // namespace DL
