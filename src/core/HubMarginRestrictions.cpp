// Client margin restrictions of the hub.
#include "core/TStorageHub.h"

namespace DL {

void TStorageHub::BuildClientMarginRestrictionsCache() {}
void TStorageHub::AppendMarginSettingsRows(std::string& /*text*/, TWrittenSections& /*written*/) const {}

}  // namespace DL
