// Security restrictions of the hub.
#include "core/TStorageHub.h"

namespace DL {

void TStorageHub::BuildSecurityRestrictionsCache() {}

}  // namespace DL
