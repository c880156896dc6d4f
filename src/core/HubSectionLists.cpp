// Section lists, currency replacement, tag sections and user settings of the hub.
#include "core/TStorageHub.h"

namespace DL {

void TStorageHub::ParseCurrencyReplacement() {}
void TStorageHub::ParseOldFormSectionLists() {}
void TStorageHub::ParseTagSections() {}
void TStorageHub::ParseUserIdSecuritiesAndFloodControl(const TIniKeyMap& /*keys*/, TUserIdSettings& /*out*/) {}

}  // namespace DL
