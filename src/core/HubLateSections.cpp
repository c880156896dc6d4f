// Late global sections of the hub.
#include "core/TStorageHub.h"

namespace DL {

void TStorageHub::ParseLateSectionsBeforeClientCVal() {}
void TStorageHub::ParseLateSectionsAfterClientCVal() {}
void TStorageHub::AppendCommissionSettingsCurrencyRows(std::string& /*text*/, TWrittenSections& /*written*/) const {}

}  // namespace DL
