// Order restrictions of the hub.
#include "core/TStorageHub.h"

namespace DL {

void TStorageHub::BuildRestrictionsCache() {}

}  // namespace DL
