// The hub's commission lookups by client and class: the volume-based table
// (from its component) and the repo commission of a client's settings.
#include <string>

#include "base/TextHelpers.h"
#include "commission/TCacheOfClientSettings.h"
#include "core/TStorageHub.h"

namespace DL {

const TVolumeBasedCommission* TStorageHub::FindVolumeBasedCommission(const char* client,
                                                                     const char* classCode) const {
  return m_volumeCommission.Find(client, classCode, *m_logicParser);
}

TypeAndRate TStorageHub::GetEffectiveVolumeBasedCommTypeAndRate(const char* client, const char* classCode,
                                                               double volume, ESide side) const {
  const TVolumeBasedCommission* c = FindVolumeBasedCommission(client, classCode);
  return c != nullptr ? c->GetEffectiveTypeAndRate(volume, side) : TypeAndRate(ctUndefined, 0.0, 0.0);
}

double TStorageHub::CalcMaxVolumeBasedCommission(const char* client, const char* classCode, double value,
                                                 ESide side, short scale) const {
  const TVolumeBasedCommission* c = FindVolumeBasedCommission(client, classCode);
  return c != nullptr ? c->CalcMaxCommValue(value, side, scale) : 0.0;
}

bool TStorageHub::GetRepoPerDayCommissionSettings(const char* client, double leverage, const char* classCode,
                                                  TRepoCommRates* out) const {
  const TClientCommSettings* s = m_clientSettingsCache->GetIniSetting(TIniCacheItemID(client, leverage));
  return s != nullptr && s->RepoPerDay.GetCommissionRates(StrUpper(TrimStr(classCode != nullptr ? classCode : "")), out);
}

bool TStorageHub::GetRepoScaleByClassesSettings(const char* client, double leverage, const char* classCode,
                                                short term, TRepoCommRates* out) const {
  const TClientCommSettings* s = m_clientSettingsCache->GetIniSetting(TIniCacheItemID(client, leverage));
  return s != nullptr &&
         s->RepoScale.GetCommissionScaleRates(StrUpper(TrimStr(classCode != nullptr ? classCode : "")), term, out);
}

}  // namespace DL
