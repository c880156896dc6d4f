// Portfolio risk configurations and base assets of the hub.
#include "core/TStorageHub.h"

namespace DL {

void TStorageHub::ParsePortfolioRiskConfigs() {}
void TStorageHub::FillBaseAssets() {}

}  // namespace DL
