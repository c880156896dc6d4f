// Section lists, currency replacement, tag sections and user settings of the hub.
#include "core/TStorageHub.h"

namespace DL {

void TStorageHub::ParseCurrencyReplacement() {}
void TStorageHub::ParseOldFormSectionLists() {}
void TStorageHub::ParseTagSections() {}
void TStorageHub::ParseUserIdSecuritiesAndFloodControl(const TIniKeyMap& /*keys*/, TUserIdSettings& /*out*/) {}
void TStorageHub::AppendOldFormListRows(std::string& /*text*/, TWrittenSections& /*written*/) const {}
void TStorageHub::AppendCurrencyReplacementRows(std::string& /*text*/, TWrittenSections& /*written*/) const {}

}  // namespace DL
