// Client commission settings, commission scales and tariff plans of the hub.
#include "core/TStorageHub.h"

namespace DL {

void TStorageHub::BuildClientSettingsCaches() {}
void TStorageHub::ParseTariffPlans() {}
void TStorageHub::AppendTariffPlanRows(std::string& /*text*/, TWrittenSections& /*written*/) const {}

}  // namespace DL
