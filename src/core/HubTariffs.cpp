// Board tariffs of the hub.
#include "core/TStorageHub.h"

namespace DL {

void TStorageHub::FillBoardTariffs() {}

}  // namespace DL
