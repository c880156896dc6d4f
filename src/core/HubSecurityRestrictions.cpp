// Security restrictions of the hub.
#include "core/TStorageHub.h"

namespace DL {

void TStorageHub::BuildSecurityRestrictionsCache() {}
const TClientSecurityRestrictions* TStorageHub::ParsedSecurityRestrictionsOfSection(
    const std::string& /*section*/) const {
  return nullptr;
}

}  // namespace DL
