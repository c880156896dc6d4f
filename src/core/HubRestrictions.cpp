// Order restrictions of the hub.
#include "core/TStorageHub.h"

namespace DL {

void TStorageHub::BuildRestrictionsCache() {}
void TStorageHub::AppendRestrictionTemplateRows(std::string& /*text*/, TWrittenSections& /*written*/) const {}

}  // namespace DL
