// Volume-based commission sections of the hub.
#include "core/TStorageHub.h"

namespace DL {

// Clients' (step 3), templates' (step 4) and the global (step 6)
// volume-based commission sections have no parsed home yet: the save copies
// them raw with the sections nobody wrote.
void TStorageHub::AppendVolumeBasedCommissionRows(std::string& /*text*/, TWrittenSections& /*written*/,
                                                  int /*step*/) const {}

}  // namespace DL
