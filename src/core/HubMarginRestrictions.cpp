// Client margin restrictions of the hub.
#include "core/TStorageHub.h"

namespace DL {

void TStorageHub::BuildClientMarginRestrictionsCache() {}

}  // namespace DL
